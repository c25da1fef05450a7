// file_lock.h over POSIX.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "embedded/base/file_lock.h"

namespace base {

bool FileLock::take(const std::filesystem::path& path, bool create) {
  release();
  const int fd = ::open(path.c_str(), O_RDWR | O_CLOEXEC | (create ? O_CREAT : 0), 0600);
  if (fd < 0) return false;
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
    ::close(fd);
    return false;
  }
  handle_ = fd;
  return true;
}

void FileLock::release() {
  if (held()) ::close(static_cast<int>(std::exchange(handle_, -1)));
}

}  // namespace base
