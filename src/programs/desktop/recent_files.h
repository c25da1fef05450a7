// RecentFiles: the drawings worked on last, kept as a text file of one path a line. Several
// programs may use one list: each change is made to what the file holds by then.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "embedded/base/status.h"

namespace desktop {

class RecentFiles {
 public:
  static constexpr std::size_t kMost = 9;

  explicit RecentFiles(std::filesystem::path file) : file_(std::move(file)) {}

  // Reads the list. One that is damaged is moved aside and an empty one begun: the status says so.
  base::Status load();
  // Puts a drawing (an absolute path, UTF-8) in front, takes one off the list.
  base::Status add(const std::string& path);
  base::Status remove(const std::string& path);
  const std::vector<std::string>& paths() const { return paths_; }  // the latest first

 private:
  base::Status save();

  std::filesystem::path file_;
  std::vector<std::string> paths_;
};

}  // namespace desktop
