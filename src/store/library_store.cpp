// Files, names and rows of the library. Tree keys:
//
//   ZHLSY           the names in slot order, U+0003 behind each; a free slot has an empty name
//   ZHLSY\长度      number of slots
//   ZHLSY\剪贴板    number text of the copied slot, or "空"
//   ZHLLIB\<name>   a circuit's data row; ZHLLIB\空 is the template of a free slot
#include "store/library_store.h"

#include "module/information.h"
#include "module/name_list.h"
#include "module/tree_values.h"
#include "platform/acad_command.h"
#include "platform/framework_runtime.h"

namespace {

constexpr const wchar_t* kNames = L"ZHLSY";
constexpr const wchar_t* kLength = L"ZHLSY\\长度";
constexpr const wchar_t* kClipboard = L"ZHLSY\\剪贴板";
constexpr const wchar_t* kEmpty = L"空";  // free slot, empty clipboard, template

std::wstring rowKey(const CString& name) { return L"ZHLLIB\\" + name.wide(); }

// Characters of the list once `names` are joined.
std::size_t joinedSize(const CStringArray& names) {
  std::size_t size = 0;
  for (const CString& name : names) size += name.wide().size() + 1;
  return size;
}

// Whether a text of that size fits; says so on the command line when it doesn't.
bool fits(std::size_t characters) {
  if (characters <= kLongestTreeText) return true;
  acutPrintf(L"\n数据过长,主回路库未修改.");
  return false;
}

}  // namespace

CZhlkLibStore::CZhlkLibStore() {
  const std::wstring folder = libraryFolder();
  treePath_ = folder + L"zhllib.qdp";
  slidePath_ = folder + L"zhllib.slb";
  tree_.ReadDataFromQdpFile(treePath_.c_str());
  slides_.OnOpenDocument(slidePath_.c_str());
}

CZhlkLibStore::~CZhlkLibStore() { Save(); }

void CZhlkLibStore::Save() {
  tree_.WriteDataToQdpFile(treePath_.c_str());
  slides_.SaveModified();
}

const CQuillDpNode* CZhlkLibStore::read(const std::wstring& key) {
  lastNode_ = tree_.GetSubValueFromPathW(0, key.c_str());
  return lastNode_;
}

std::int16_t CZhlkLibStore::GetCount() {
  if (!hasValue(read(kLength))) return -1;
  return static_cast<std::int16_t>(wideToInt(lastNode_->text().c_str()));
}

int CZhlkLibStore::ReadNameList(CStringArray& names) {
  read(kNames);
  if (!lastNode_ || lastNode_->length == 0) return 0;  // an empty text counts as a value here
  return splitNames(lastNode_->text(), separator_, names);
}

int CZhlkLibStore::GetNameAt(int index, CString& name) {
  name.Empty();
  if (index < 0 || index >= GetCount()) return 0;
  CStringArray names;
  if (!ReadNameList(names)) return 0;
  name = names.GetAt(index);
  return 1;
}

int CZhlkLibStore::GetRowAt(int index, CString& row) {
  CString name;
  if (!GetNameAt(index, name) || name.IsEmpty()) name = kEmpty;
  if (!hasValue(read(rowKey(name)))) return 0;
  row = lastNode_->text();
  return 1;
}

int CZhlkLibStore::SetRowAt(int index, const CString& row) {
  CString name;
  if (!GetNameAt(index, name) || name.IsEmpty() || !fits(row.wide().size())) return 0;
  storeText(tree_, rowKey(name), row.wide());
  return 1;
}

int CZhlkLibStore::InsertCircuit(int index, const CString& row, const CString& name) {
  const int count = GetCount();
  if (index < 0) return -1;
  CStringArray names;
  ReadNameList(names);
  // The stored length decides where the name goes, and not the list's: without a length (-1) one
  // free slot more stands before the name.
  const int gap = index >= count ? index - count : 0;
  const std::size_t size =
      joinedSize(names) + static_cast<std::size_t>(gap) + name.wide().size() + 1;
  if (!fits(size) || !fits(row.wide().size())) return -1;
  if (index >= count) {
    for (int i = 0; i < gap; ++i) names.Add(CString());
    names.Add(name);
  } else {
    names.InsertAt(index, name);
  }
  writeNames(names);
  writeLength(names);
  if (!name.IsEmpty()) storeText(tree_, rowKey(name), row.wide());
  return 0;
}

int CZhlkLibStore::RenameAt(int index, const CString& newName) {
  if (index < 0 || index >= GetCount()) return 0;
  CStringArray names;
  if (!ReadNameList(names)) return 0;
  const CString oldName = names.GetAt(index);
  names.SetAt(index, newName);
  if (!fits(joinedSize(names))) return 0;
  writeNames(names);
  if (!oldName.IsEmpty()) {
    tree_.RenameSubKeyW(rowKey(oldName).c_str(), newName);
  } else {
    tree_.SetSubValueW(rowKey(newName).c_str(), 1, L" ", 0);  // the key, without a usable value
  }
  return 1;
}

int CZhlkLibStore::DeleteAt(int index) {
  // Both at once: this holds for index -1 without a length key and hardly ever else. Any other bad
  // index meets the array's own check below.
  if (index < 0 && index >= GetCount()) return -1;
  CStringArray names;
  if (!ReadNameList(names)) return -2;
  const CString name = names.GetAt(index);
  names.SetAt(index, CString());
  while (!names.IsEmpty() && names.GetAt(names.GetUpperBound()).IsEmpty()) {
    names.RemoveAt(names.GetUpperBound());
  }
  writeNames(names);
  writeLength(names);
  if (!name.IsEmpty()) tree_.DeleteSubKeyW(rowKey(name).c_str());
  return 0;
}

int CZhlkLibStore::HasCircuit(int index) {
  CString name;
  return GetNameAt(index, name) && !name.IsEmpty() ? 1 : 0;
}

int CZhlkLibStore::CopyToClipboard(int index) {
  storeText(tree_, kClipboard, NumberText(index).wide());
  return 1;
}

int CZhlkLibStore::GetClipboard(CString& number) {
  number = kEmpty;
  if (!read(kClipboard) || lastNode_->length <= 0) return 0;
  number = lastNode_->text();
  return number == kEmpty ? 0 : 1;
}

int CZhlkLibStore::CanPaste(int index) {
  if (HasCircuit(index)) return 0;
  CString number;
  return GetClipboard(number) && !(number == kEmpty) ? 1 : 0;
}

void CZhlkLibStore::writeNames(const CStringArray& names) {
  storeText(tree_, kNames, joinNames(names, separator_));
}

void CZhlkLibStore::writeLength(const CStringArray& names) {
  storeNumber(tree_, kLength, names.GetSize());
}

CString CZhlkLibStore::NumberText(int index) {
  CString text;
  text.Format(index < 9 ? L"0%lld" : L"%lld", static_cast<long long>(index) + 1);
  return text;
}

CString CZhlkLibStore::CircuitName(int index) { return L"主回路&" + NumberText(index); }
