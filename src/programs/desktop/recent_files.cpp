#include "programs/desktop/recent_files.h"

#include <algorithm>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"

namespace desktop {

namespace {

constexpr std::string_view kHeading = "recent drawings 1";
constexpr std::uint64_t kLargest = 1 << 16;

// False for what isn't such a list.
bool parse(std::string_view bytes, std::vector<std::string>& paths) {
  if (!base::isUtf8(bytes) || bytes.find('\0') != bytes.npos) return false;
  bool headed = false;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!headed && line != kHeading) return false;
    if (headed && !line.empty() && paths.size() < RecentFiles::kMost) paths.emplace_back(line);
    headed = true;
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return headed;
}

}  // namespace

base::Status RecentFiles::load() {
  paths_.clear();
  std::error_code error;
  if (!std::filesystem::exists(file_, error)) return {};
  const auto bytes = base::readFile(file_, kLargest);
  if (bytes.ok() && parse(*bytes, paths_)) return {};
  paths_.clear();
  const auto aside = base::moveDamagedAside(file_);
  const std::string name = base::utf8FromPath(file_);
  if (!aside.ok()) return aside.status();
  return base::Status::failure(name + ": is damaged; kept as " +
                               base::utf8FromPath(aside->filename()));
}

base::Status RecentFiles::add(const std::string& path) {
  const base::Status loaded = load();
  std::erase(paths_, path);
  paths_.insert(paths_.begin(), path);
  if (paths_.size() > kMost) paths_.resize(kMost);
  base::Status saved = save();
  return loaded ? saved : loaded;
}

base::Status RecentFiles::remove(const std::string& path) {
  const base::Status loaded = load();
  std::erase(paths_, path);
  base::Status saved = save();
  return loaded ? saved : loaded;
}

base::Status RecentFiles::save() {
  std::string bytes(kHeading);
  for (const std::string& path : paths_) bytes += "\n" + path;
  std::error_code ignored;
  std::filesystem::create_directories(file_.parent_path(), ignored);
  return base::saveAtomically(file_, bytes + "\n", {.keepBackup = false});
}

}  // namespace desktop
