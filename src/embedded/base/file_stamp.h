// FileStamp: tells whether a file is still the one that was read.
#pragma once

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace base {

struct FileStamp {
  bool present = false;
  std::uint64_t size = 0;
  std::int64_t time = 0;  // of the last change, in the system's finest unit
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// The stamp of a file now. Anything but a file counts as not present.
inline FileStamp stampOf(const std::filesystem::path& path) {
#ifndef _WIN32
  struct stat found {};  // one look at the disk
  if (::stat(path.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return {};
  constexpr std::int64_t kSecond = 1000000000;
  return {true, static_cast<std::uint64_t>(found.st_size),
          found.st_mtim.tv_sec * kSecond + found.st_mtim.tv_nsec};
#else
  std::error_code error;
  const std::filesystem::directory_entry entry(path, error);
  if (error || !entry.is_regular_file(error)) return {};
  return {true, entry.file_size(error), entry.last_write_time(error).time_since_epoch().count()};
#endif
}

}  // namespace base
