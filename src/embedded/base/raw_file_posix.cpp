// raw_file.h over POSIX.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "embedded/base/raw_file.h"

namespace base {

namespace fs = std::filesystem;

namespace {

Status systemFailure(const fs::path& path, int error) {
  return fileFailure(path, std::generic_category().message(error));
}

int descriptor(std::intptr_t handle) { return static_cast<int>(handle); }

// A rename is on the disk when its folder is. Some file systems can't flush folders: no failure.
void flushFolder(const fs::path& file) {
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  static_cast<void>(::fsync(fd));
  ::close(fd);
}

}  // namespace

RawFile::~RawFile() { static_cast<void>(close()); }

Status RawFile::create(const fs::path& path) {
  path_ = path;
  handle_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  return handle_ < 0 ? systemFailure(path_, errno) : Status();
}

Status RawFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor(handle_), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return systemFailure(path_, errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

Status RawFile::flush() {
  return ::fsync(descriptor(handle_)) == 0 ? Status() : systemFailure(path_, errno);
}

Status RawFile::close() {
  if (handle_ < 0) return {};
  const int fd = descriptor(handle_);
  handle_ = -1;
  return ::close(fd) == 0 ? Status() : systemFailure(path_, errno);
}

Status checkReplaceable(const fs::path& path) {
  if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 || errno == ENOENT) return {};
  return systemFailure(path, errno);
}

Status copyPermissions(const fs::path& original, const fs::path& temporary) {
  struct stat info {};
  if (::stat(original.c_str(), &info) != 0) return {};
  if (::chmod(temporary.c_str(), info.st_mode & 07777) != 0) return systemFailure(temporary, errno);
  return {};
}

Status keepBackup(const fs::path& path, const fs::path& backup) {
  fs::path fresh = backup;
  fresh += "-" + std::to_string(processNumber());
  std::error_code error;
  fs::remove(fresh, error);
  // A second name costs nothing; file systems without links get a copy.
  fs::create_hard_link(path, fresh, error);
  if (error) fs::copy_file(path, fresh, fs::copy_options::overwrite_existing, error);
  if (!error) fs::rename(fresh, backup, error);
  if (!error) return {};
  Status failure = fileFailure(backup, error.message());
  fs::remove(fresh, error);
  return failure;
}

Status replaceFile(const fs::path& temporary, const fs::path& path) {
  if (::rename(temporary.c_str(), path.c_str()) != 0) return systemFailure(path, errno);
  flushFolder(path);
  return {};
}

std::uint64_t processNumber() { return static_cast<std::uint64_t>(::getpid()); }

}  // namespace base
