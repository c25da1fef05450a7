// FileStamp: tells whether a file is still the one that was read.
#pragma once

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace base {

struct FileStamp {
  bool present = false;
  std::uint64_t size = 0;
  std::filesystem::file_time_type time{};
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// The stamp of a file now. Anything but a file counts as not present.
inline FileStamp stampOf(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::directory_entry entry(path, error);
  if (error || !entry.is_regular_file(error)) return {};
  FileStamp stamp{true, entry.file_size(error), {}};
  stamp.time = entry.last_write_time(error);
  return stamp;
}

}  // namespace base
