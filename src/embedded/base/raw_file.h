// The few file operations that the standard library lacks: writing with a flush to the disk, and
// replacing a file while keeping the old one. One implementation a system.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "embedded/base/status.h"

namespace base {

// A file opened for writing; closed, but not removed, at the end of its life.
class RawFile {
 public:
  RawFile() = default;
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;
  ~RawFile();

  // Makes the file, or empties it.
  Status create(const std::filesystem::path& path);
  bool isOpen() const { return handle_ != -1; }
  Status write(std::string_view bytes);
  // Returns when the bytes are on the disk.
  Status flush();
  Status close();

 private:
  std::filesystem::path path_;
  std::intptr_t handle_ = -1;
};

// Good if a save may replace the file: it isn't there, or its owner lets this process write it.
Status checkReplaceable(const std::filesystem::path& path);

// Gives `temporary` the permissions of `original`.
Status copyPermissions(const std::filesystem::path& original,
                       const std::filesystem::path& temporary);

// Makes `backup` a second name of `path`'s present contents, replacing an older backup. `path`
// stays in place all the time.
Status keepBackup(const std::filesystem::path& path, const std::filesystem::path& backup);

// Puts `temporary` in the place of `path` in one step that survives a loss of power.
Status replaceFile(const std::filesystem::path& temporary, const std::filesystem::path& path);

// A number that no other running process has, for names of temporary files.
std::uint64_t processNumber();

// "NAME: REASON" as a status.
Status fileFailure(const std::filesystem::path& path, std::string_view reason);

}  // namespace base
