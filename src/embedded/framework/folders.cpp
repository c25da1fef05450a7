// Folders: listing, making and removing them. A link is an entry of its own kind here, whatever it
// leads to.
#ifdef _WIN32
#include <windows.h>
#endif

#include <filesystem>
#include <system_error>

#include "embedded/base/paths.h"
#include "platform/framework_files.h"

namespace fs = std::filesystem;

namespace {

// Junctions and mounted folders are links too; the standard library takes them for plain folders.
// Files that the system keeps packed or elsewhere are marked alike, but stand for nothing else.
bool linkAt(const fs::path& path) {
#ifdef _WIN32
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT)) {
    return false;
  }
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return true;
  ::FindClose(search);
  return found.dwReserved0 == 0 || IsReparseTagNameSurrogate(found.dwReserved0);
#else
  std::error_code error;
  return fs::is_symlink(fs::symlink_status(path, error));
#endif
}

bool folderAt(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

}  // namespace

std::vector<FolderEntry> folderEntries(const std::wstring& path) {
  std::vector<FolderEntry> entries;
  std::error_code error;
  fs::directory_iterator entry(base::resolvePath(path), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const fs::path& found = entry->path();
    entries.push_back({base::wideFromPath(found.filename()), folderAt(found) && !linkAt(found)});
  }
  return entries;
}

bool isFolder(const std::wstring& path) { return folderAt(base::resolvePath(path)); }

bool isLink(const std::wstring& path) { return linkAt(base::resolvePath(path)); }

bool makeFolder(const std::wstring& path) {
  std::error_code error;
  return fs::create_directory(base::resolvePath(path), error) && !error;
}

bool removeEntry(const std::wstring& path) {
#ifdef _WIN32
  return ::DeleteFileW(path.c_str()) || ::RemoveDirectoryW(path.c_str());
#else
  std::error_code error;
  return fs::remove(base::resolvePath(path), error) && !error;
#endif
}
