// Reads groups and items from the tree, and writes the choice and the icon state.
#include "auxiliary/auxiliary_store.h"

#include "module/information.h"
#include "module/name_list.h"
#include "module/tree_values.h"

namespace {

constexpr wchar_t kSeparator = L'&';
constexpr const wchar_t* kIndex = L"索引";
constexpr const wchar_t* kIconState = L"图标状态";
// Two literals joined: the doubled backslash counts as one level.
constexpr const wchar_t* kChosenBlock =
    L"当前选择\\"
    L"\\块名";
constexpr const wchar_t* kChosenType =
    L"当前选择\\"
    L"\\类型";

std::wstring groupKey(const CString& title) { return L"数据\\" + title.wide(); }

}  // namespace

AuxiliaryStore::AuxiliaryStore() : directory_(libraryFolder()), path_(directory_ + L"zhlFzgn.qdp") {
  tree_.ReadDataFromQdpFile(path_.c_str());
}

// In this library a value counts from length 1 on; an empty text holds no separator and so gives an
// empty list.
std::wstring AuxiliaryStore::value(const std::wstring& key) const {
  const CQuillDpNode* node = tree_.GetSubValueFromPathW(0, key.c_str());
  return node && node->length >= 1 ? node->text() : std::wstring();
}

CStringArray AuxiliaryStore::list(const std::wstring& key) const {
  CStringArray names;
  if (!splitNames(value(key), kSeparator, names)) names.RemoveAll();
  return names;
}

CStringArray AuxiliaryStore::titles() const { return list(kIndex); }

std::vector<std::wstring> AuxiliaryStore::shownTitles() const {
  std::vector<std::wstring> shown;
  for (const CString& title : titles()) {
    if (value(groupKey(title) + L"\\类型") == L"0") shown.push_back(title.wide());
  }
  return shown;
}

bool AuxiliaryStore::largeIcons() const {
  const std::wstring state = value(kIconState);
  return !state.empty() && state != L"0";
}

CStringArray AuxiliaryStore::labels(int folder) const {
  const CStringArray groups = titles();
  if (folder < 0 || folder >= groups.GetSize()) return {};
  return list(groupKey(groups.GetAt(folder)) + L"\\" + kIndex);
}

bool AuxiliaryStore::chooseItem(int folder, const std::wstring& label) {
  const bool chosen = writeChoice(folder, label);
  tree_.WriteDataToQdpFile(path_.c_str());
  return chosen;
}

// A folder's index is its title's position in the list of titles.
bool AuxiliaryStore::writeChoice(int folder, const std::wstring& label) {
  const CStringArray groups = titles();
  if (groups.IsEmpty()) return false;
  const std::wstring group = groupKey(groups.GetAt(folder));
  const std::wstring directory = value(group);
  const std::wstring block = value(group + L"\\数据\\" + label);
  if (directory.empty() || block.empty()) return false;
  storeText(tree_, kChosenBlock, directory_ + directory + L"\\" + block + L".dwg");
  storeNumber(tree_, kChosenType, folder);
  return true;
}

void AuxiliaryStore::close(bool largeIcons) {
  storeText(tree_, kIconState, largeIcons ? L"1" : L"0");
  tree_.WriteDataToQdpFile(path_.c_str());
}
