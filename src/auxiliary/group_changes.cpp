// Changes of groups in the tree: their titles and directories. The disk is the caller's.
#include "auxiliary/auxiliary_keys.h"
#include "auxiliary/auxiliary_store.h"
#include "auxiliary/new_names.h"
#include "auxiliary/renaming.h"
#include "module/tree_values.h"

namespace keys = auxiliary_keys;

bool AuxiliaryStore::hasRoomFor(const std::wstring& title) const {
  CStringArray all = titles();
  all.Add(title);
  return fits(all);
}

// Keys that a group of this title has left in the tree, when it got a title that isn't shown,
// become the new one's. It is meant: nothing of the tree is lost.
void AuxiliaryStore::addGroup(const std::wstring& title) {
  CStringArray all = titles();
  all.Add(title);
  storeList(keys::kIndex, all);
  storeText(tree_, keys::type(title), L"0");
}

void AuxiliaryStore::setDirectory(const std::wstring& title, const std::wstring& directory) {
  storeText(tree_, keys::group(title), directory);
}

std::wstring AuxiliaryStore::removeGroup(int folder) {
  CStringArray all = titles();
  const std::wstring title = all.GetAt(folder).wide();
  std::wstring directory = directoryOf(title);
  if (isOneLevel(title)) tree_.DeleteSubKeyW(keys::group(title).c_str());
  all.RemoveAt(folder);
  storeList(keys::kIndex, all);
  return directory;
}

// Neither "&" nor a backslash in the new title is looked for; the list shows it split at the next
// reading, and the tree keeps the old name.
Renaming AuxiliaryStore::renameGroup(int folder, const std::wstring& text) {
  CStringArray all = titles();
  if (all.IsEmpty()) return Renaming::nothing;
  if (hasOther(all, folder, text)) return Renaming::taken;
  if (folder >= 0 && folder < all.GetSize()) {
    const std::wstring title = all.GetAt(folder).wide();
    all.SetAt(folder, text);
    if (!fits(all)) return Renaming::tooLong;
    if (isOneLevel(title)) tree_.RenameSubKeyW(keys::group(title).c_str(), text.c_str());
    storeList(keys::kIndex, all);
  }
  return Renaming::done;
}
