// FileLock: a file that one process holds for as long as it lives. The system lets go of it however
// the process ends, so that others can tell a running owner from one that was killed.
#pragma once

#include <cstdint>
#include <filesystem>
#include <utility>

namespace base {

class FileLock {
 public:
  FileLock() = default;
  ~FileLock() { release(); }
  FileLock(FileLock&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
  FileLock& operator=(FileLock&& other) noexcept {
    release();
    handle_ = std::exchange(other.handle_, -1);
    return *this;
  }

  // Makes the file if `create` says so. False if another owner, of this process or another, holds
  // it, or it isn't there and can't be made.
  bool take(const std::filesystem::path& path, bool create);
  void release();  // the file stays
  bool held() const { return handle_ != -1; }

 private:
  std::intptr_t handle_ = -1;
};

}  // namespace base
