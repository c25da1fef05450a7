// The runtime's calls: numbers, ANSI text, comparing, files.
#include <algorithm>
#include <atomic>
#include <filesystem>
#include <system_error>

#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/raw_file.h"
#include "embedded/base/text.h"
#include "platform/framework_runtime.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

template <typename Character>
Character lower(Character c) {
  return c >= 'A' && c <= 'Z' ? static_cast<Character>(c + 32) : c;
}

template <typename View>
bool equalFolded(View a, View b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](auto x, auto y) { return lower(x) == lower(y); });
}

#ifndef _WIN32
// A folder opens for reading here, which no caller expects.
bool isFolder(std::FILE* file) {
  struct stat status;
  return fstat(fileno(file), &status) != 0 || S_ISDIR(status.st_mode);
}
#endif

}  // namespace

std::int32_t wideToInt(const wchar_t* text) { return base::wtoi(text ? text : L""); }

double wideToDouble(const wchar_t* text) { return base::parseDouble(text ? text : L"").value; }

std::string ansiFromWide(std::wstring_view text) { return base::ansiFromWide(text); }
std::wstring wideFromAnsi(std::string_view text) { return base::wideFromAnsi(text); }

bool equalWithoutCase(std::string_view a, std::string_view b) { return equalFolded(a, b); }
bool equalWithoutCase(std::wstring_view a, std::wstring_view b) { return equalFolded(a, b); }

std::wstring temporaryName() {
  static std::atomic<std::uint32_t> counter{0};
  return L"\\s" + std::to_wstring(base::processNumber()) + L"." + std::to_wstring(counter++);
}

std::FILE* openFile(const std::wstring& path, const wchar_t* mode) {
  const std::filesystem::path resolved = base::resolvePath(path);
#ifdef _WIN32
  return _wfopen(resolved.c_str(), mode);
#else
  std::FILE* file = std::fopen(resolved.c_str(), base::utf8FromWide(mode).c_str());
  // A folder can be opened too, but only for reading alone.
  const bool mayBeFolder = std::wcspbrk(mode, L"wa+") == nullptr;
  if (!file || !mayBeFolder || !isFolder(file)) return file;
  std::fclose(file);
  return nullptr;
#endif
}

bool removeFile(const std::wstring& path) {
  std::error_code error;
  return std::filesystem::remove(base::resolvePath(path), error) && !error;
}

bool fileExists(const std::wstring& path) {
  std::error_code error;
  return std::filesystem::exists(base::resolvePath(path), error);
}
