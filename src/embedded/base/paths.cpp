// The path resolver and the splitting and joining of wide paths.
#include "embedded/base/paths.h"

#ifndef _WIN32
#include <dirent.h>
#include <sys/stat.h>
#endif

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <unordered_map>

#include "embedded/base/text.h"

namespace base {

namespace fs = std::filesystem;

namespace {

std::size_t lastSeparator(std::wstring_view path) { return path.find_last_of(L"\\/"); }

#ifndef _WIN32

bool present(const std::string& path) {
  struct stat found {};
  return ::lstat(path.c_str(), &found) == 0;
}

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

// The entry of `folder` that equals `name` without regard to case; the first if there are several,
// empty if there is none.
std::string findNoCase(const std::string& folder, std::string_view name) {
  const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.empty() ? "." : folder.c_str()));
  std::string found;
  while (const dirent* entry = open ? ::readdir(open.get()) : nullptr) {
    const std::string_view candidate = entry->d_name;
    if (equalsNoCase(candidate, name) && (found.empty() || candidate < found)) found = candidate;
  }
  return found;
}

// What was found under another case than written: taken again as long as it is there, so that a
// file asked for often costs no search of its folder.
class FoundBefore {
 public:
  const std::string* find(const std::string& written) const {
    const auto known = paths_.find(written);
    return known != paths_.end() && present(known->second) ? &known->second : nullptr;
  }
  void add(const std::string& written, const std::string& found) {
    if (paths_.size() == kMost) paths_.clear();
    paths_[written] = found;
  }

 private:
  static constexpr std::size_t kMost = 256;
  std::unordered_map<std::string, std::string> paths_;
};

// Only what isn't there as written is looked for, component by component from the right.
std::string resolve(const std::string& written) {
  static FoundBefore foundBefore;
  if (written.empty() || present(written)) return written;
  if (const std::string* known = foundBefore.find(written)) return *known;
  const std::size_t end = written.find_last_not_of('/');
  if (end == std::string::npos) return written;
  const std::size_t begin = written.find_last_of('/', end) + 1;
  const std::string name = written.substr(begin, end + 1 - begin);
  const std::string folder = resolve(written.substr(0, begin));
  const std::string found = findNoCase(folder, name);
  std::string resolved = folder + (found.empty() ? name : found) + written.substr(end + 1);
  if (!found.empty()) foundBefore.add(written, resolved);
  return resolved;
}

#endif

}  // namespace

#ifdef _WIN32

fs::path resolvePath(std::wstring_view path) { return {path}; }
fs::path pathFromWide(std::wstring_view path) { return {path}; }
fs::path pathFromUtf8(std::string_view path) { return {wideFromUtf8(path)}; }
std::wstring wideFromPath(const fs::path& path) { return path.native(); }
std::string utf8FromPath(const fs::path& path) { return utf8FromWide(path.native()); }

#else

fs::path resolvePath(std::wstring_view wide) {
  std::string text = utf8FromWide(wide);
  std::replace(text.begin(), text.end(), '\\', '/');
  return resolve(text);
}

fs::path pathFromWide(std::wstring_view path) { return {utf8FromWide(path)}; }
fs::path pathFromUtf8(std::string_view path) { return {path}; }
std::wstring wideFromPath(const fs::path& path) { return wideFromUtf8(path.native()); }
std::string utf8FromPath(const fs::path& path) { return path.native(); }

#endif

std::filesystem::path environmentPath(const char* name) {
#ifdef _WIN32
  const wchar_t* value = _wgetenv(wideFromUtf8(name).c_str());
#else
  const char* value = std::getenv(name);
#endif
  return value ? std::filesystem::path(value) : std::filesystem::path();
}

std::wstring joinPath(std::wstring_view folder, std::wstring_view name) {
  std::wstring joined(folder);
  if (!joined.empty() && !isSeparator(joined.back())) joined += L'\\';
  joined += name;
  return joined;
}

std::wstring_view folderOf(std::wstring_view path) {
  const std::size_t at = lastSeparator(path);
  return at == std::wstring_view::npos ? std::wstring_view() : path.substr(0, at);
}

std::wstring_view fileNameOf(std::wstring_view path) {
  const std::size_t at = lastSeparator(path);
  return at == std::wstring_view::npos ? path : path.substr(at + 1);
}

std::wstring_view extensionOf(std::wstring_view path) {
  const std::wstring_view name = fileNameOf(path);
  const std::size_t dot = name.find_last_of(L'.');
  return dot == std::wstring_view::npos ? std::wstring_view() : name.substr(dot);
}

std::wstring_view stemOf(std::wstring_view path) {
  const std::wstring_view name = fileNameOf(path);
  return name.substr(0, name.size() - extensionOf(path).size());
}

}  // namespace base
