// Reads groups and items from the tree, and writes the choice and the icon state.
#include "auxiliary/auxiliary_store.h"

#include "auxiliary/auxiliary_keys.h"
#include "auxiliary/new_names.h"
#include "module/information.h"
#include "module/name_list.h"
#include "module/tree_values.h"
#include "platform/framework_files.h"

namespace keys = auxiliary_keys;

AuxiliaryStore::AuxiliaryStore() : directory_(libraryFolder()), path_(directory_ + L"zhlFzgn.qdp") {
  tree_.ReadDataFromQdpFile(path_.c_str());
}

// In this library a value counts from length 1 on; an empty text holds no separator and so gives an
// empty list.
bool AuxiliaryStore::hasValue(const std::wstring& key) const {
  const CQuillDpNode* node = tree_.GetSubValueFromPathW(0, key.c_str());
  return node && node->length >= 1;
}

std::wstring AuxiliaryStore::value(const std::wstring& key) const {
  return hasValue(key) ? tree_.GetSubValueFromPathW(0, key.c_str())->text() : std::wstring();
}

CStringArray AuxiliaryStore::list(const std::wstring& key) const {
  CStringArray names;
  if (!splitNames(value(key), keys::kSeparator, names)) names.RemoveAll();
  return names;
}

// Whether the names fit into one value of the tree.
bool AuxiliaryStore::fits(const CStringArray& names) {
  return joinNames(names, keys::kSeparator).size() <= kLongestTreeText;
}

void AuxiliaryStore::storeList(const std::wstring& key, const CStringArray& names) {
  storeText(tree_, key, joinNames(names, keys::kSeparator));
}

CStringArray AuxiliaryStore::titles() const { return list(keys::kIndex); }

bool AuxiliaryStore::isShown(const std::wstring& title) const {
  return isOneLevel(title) && value(keys::type(title)) == L"0";
}

std::vector<std::wstring> AuxiliaryStore::shownTitles() const {
  std::vector<std::wstring> shown;
  for (const CString& title : titles()) {
    if (isShown(title.wide())) shown.push_back(title.wide());
  }
  return shown;
}

// An empty text isn't "0".
bool AuxiliaryStore::largeIcons() const {
  return hasValue(keys::kIconState) && value(keys::kIconState) != L"0";
}

CStringArray AuxiliaryStore::labels(int folder) const {
  const CStringArray groups = titles();
  if (folder < 0 || folder >= groups.GetSize()) return {};
  return labelsOf(groups.GetAt(folder).wide());
}

CStringArray AuxiliaryStore::labelsOf(const std::wstring& title) const {
  return isOneLevel(title) ? list(keys::items(title)) : CStringArray();
}

// A link leads out of the library as much as ".." does.
std::wstring AuxiliaryStore::directoryOf(const std::wstring& title) const {
  const std::wstring name = isOneLevel(title) ? value(keys::group(title)) : std::wstring();
  return isPlainName(name) && !isLink(folderPath(name)) ? name : std::wstring();
}

std::wstring AuxiliaryStore::blockOf(const std::wstring& title, const std::wstring& label) const {
  if (!isOneLevel(title) || !isOneLevel(label)) return {};
  const std::wstring name = value(keys::item(title, label));
  return isPlainName(name) ? name : std::wstring();
}

std::wstring inFolder(const std::wstring& folder, const std::wstring& name) {
  return folder.empty() || folder.back() == L'\\' ? folder + name : folder + L"\\" + name;
}

std::wstring AuxiliaryStore::folderPath(const std::wstring& directory) const {
  return directory_ + directory;
}

std::wstring AuxiliaryStore::slidePath(const std::wstring& directory) const {
  return inFolder(folderPath(directory), directory + L".slb");
}

std::wstring AuxiliaryStore::drawingPath(const SymbolFiles& symbol) const {
  return inFolder(folderPath(symbol.directory), symbol.block + L".dwg");
}

bool AuxiliaryStore::chooseItem(int folder, const std::wstring& label) {
  const bool chosen = writeChoice(folder, label);
  tree_.WriteDataToQdpFile(path_.c_str());
  return chosen;
}

bool AuxiliaryStore::writeChoice(int folder, const std::wstring& label) {
  const CStringArray groups = titles();
  if (groups.IsEmpty()) return false;
  const std::wstring title = groups.GetAt(folder).wide();
  const SymbolFiles symbol{directoryOf(title), blockOf(title, label)};
  if (symbol.directory.empty() || symbol.block.empty()) return false;
  // Set anew also when it is the same: another program may have chosen meanwhile.
  tree_.DeleteSubKeyW(keys::kChosenBlock);
  tree_.DeleteSubKeyW(keys::kChosenType);
  storeText(tree_, keys::kChosenBlock, drawingPath(symbol));
  storeNumber(tree_, keys::kChosenType, folder);
  return true;
}

void AuxiliaryStore::close(bool largeIcons) {
  storeText(tree_, keys::kIconState, largeIcons ? L"1" : L"0");
  tree_.WriteDataToQdpFile(path_.c_str());
}
