// The path resolver and the splitting and joining of wide paths.
#include "embedded/base/paths.h"

#include <algorithm>
#include <optional>
#include <system_error>

#include "embedded/base/text.h"

namespace base {

namespace fs = std::filesystem;

namespace {

std::size_t lastSeparator(std::wstring_view path) { return path.find_last_of(L"\\/"); }

#ifndef _WIN32

bool present(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(path, ignored));
}

// The entry of `folder` that equals `name` without regard to case; the first if there are several.
std::optional<fs::path> findNoCase(const fs::path& folder, std::string_view name) {
  std::error_code error;
  std::optional<fs::path> found;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
  for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
    const fs::path candidate = entry->path().filename();
    if (equalsNoCase(candidate.native(), name) && (!found || candidate < *found)) found = candidate;
  }
  return found;
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
  fs::path written = text;
  if (present(written)) return written;

  fs::path resolved;
  bool missing = false;
  for (const fs::path& component : written) {
    if (!missing && !present(resolved / component)) {
      const std::optional<fs::path> found = findNoCase(resolved, component.native());
      if (found) {
        resolved /= *found;
        continue;
      }
      missing = true;
    }
    resolved /= component;
  }
  return resolved;
}

fs::path pathFromWide(std::wstring_view path) { return {utf8FromWide(path)}; }
fs::path pathFromUtf8(std::string_view path) { return {path}; }
std::wstring wideFromPath(const fs::path& path) { return wideFromUtf8(path.native()); }
std::string utf8FromPath(const fs::path& path) { return path.native(); }

#endif

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
