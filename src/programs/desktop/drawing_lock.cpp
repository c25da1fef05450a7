#include "programs/desktop/drawing_lock.h"

#include <fstream>

#include "embedded/base/paths.h"
#include "embedded/base/text.h"

namespace desktop {

namespace fs = std::filesystem;

namespace {

bool mayBeWritten(const fs::path& file) {
  std::error_code error;
  if (!fs::exists(file, error)) return true;
  return std::fstream(file, std::ios::in | std::ios::out | std::ios::binary).is_open();
}

}  // namespace

DrawingLock::Access DrawingLock::follow(const std::string& path) {
  if (path == path_) return access_;
  release();
  path_ = path;
  access_ = Access::Free;
  if (path.empty()) return access_;
  const fs::path file = base::resolvePath(base::wideFromUtf8(path));
  lockFile_ = file;
  lockFile_ += ".lock";
  if (!mayBeWritten(file) || !lock_.take(lockFile_, true)) {
    access_ = Access::ReadOnly;
    lockFile_.clear();
  }
  return access_;
}

// The file goes while it is still held, where the system allows that, so that nobody else's is
// taken away.
void DrawingLock::release() {
  std::error_code ignored;
  if (lock_.held()) {
#ifdef _WIN32
    lock_.release();
    fs::remove(lockFile_, ignored);  // fails while another program holds it
#else
    fs::remove(lockFile_, ignored);
    lock_.release();
#endif
  }
  path_.clear();
}

}  // namespace desktop
