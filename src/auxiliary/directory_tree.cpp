#include "auxiliary/directory_tree.h"

#include "auxiliary/new_names.h"
#include "platform/framework_files.h"

void DeleteDirectoryTree(const std::wstring& path) {
  if (!isFolder(path)) return;
  if (!isLink(path)) {
    for (const FolderEntry& entry : folderEntries(path)) {
      // Where names may have backslashes, such a name as a path would lead elsewhere.
      if (entry.name.find(L'\\') != entry.name.npos) continue;
      const std::wstring inside = path + L"\\" + entry.name;
      if (entry.folder) {
        DeleteDirectoryTree(inside);
      } else {
        removeEntry(inside);
      }
    }
  }
  removeEntry(path);
}

// A folder counts as taken also when it is empty: a search in it finds ".".
std::wstring newGroupDirectory(const std::wstring& library) {
  int number = 1;
  while (isFolder(library + groupDirectory(number))) ++number;
  return groupDirectory(number);
}
