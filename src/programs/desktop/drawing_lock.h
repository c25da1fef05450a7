// DrawingLock: keeps two programs from saving over each other's work. The drawing that is open is
// held by a lock file beside it; one that another program holds, or may not be written, is open for
// reading only.
#pragma once

#include <filesystem>
#include <string>

#include "embedded/base/file_lock.h"

namespace desktop {

class DrawingLock {
 public:
  enum class Access { Free, ReadOnly };

  DrawingLock() = default;
  ~DrawingLock() { release(); }
  DrawingLock(const DrawingLock&) = delete;
  DrawingLock& operator=(const DrawingLock&) = delete;

  // Goes over to the drawing at `path` (UTF-8; empty: none, which is free).
  Access follow(const std::string& path);
  bool readOnly() const { return access_ == Access::ReadOnly; }

 private:
  void release();

  std::string path_;
  std::filesystem::path lockFile_;
  base::FileLock lock_;
  Access access_ = Access::Free;
};

}  // namespace desktop
