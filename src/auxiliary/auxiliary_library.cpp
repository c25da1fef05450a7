// Commands and notifications of the bar.
#include "auxiliary/auxiliary_library.h"

#include "auxiliary/directory_tree.h"
#include "auxiliary/new_names.h"
#include "module/information.h"
#include "platform/common_funcs.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_files.h"
#include "platform/framework_messages.h"
#include "platform/framework_runtime.h"
#include "platform/slide_store.h"

namespace {

constexpr unsigned kOkOrCancel = 33;  // with a question mark
constexpr const wchar_t* kGroup = L"\"图库组吗?";
constexpr const wchar_t* kItem = L"\"图库项吗?";
constexpr const wchar_t* kTooLong = L"数据过长,辅助功能库未修改!\n请缩短名称或删除不用的项。";

// The waiting prompt takes the text as an answer. Behind the two characters stands a terminating
// one, and the length counts one more.
void send(const wchar_t* answer) {
  std::wstring text = answer;
  text.push_back(L'\0');
  SendMsgToAcad(text.c_str(), static_cast<int>(text.size()) + 1);
}

}  // namespace

bool AuxiliaryLibrary::confirmed(const std::wstring& name, const wchar_t* kind) {
  const std::wstring question = L"确定要删除\"" + name + kind;
  return bar_.ask(question, L"辅助功能删除", kOkOrCancel) == kMessageAnswerOk;
}

// --- groups ---

void AuxiliaryLibrary::NewGroup() {
  NameList names;
  const int count = bar_.folderCount();
  for (int i = 0; i < count; ++i) names.push_back(bar_.folderName(i));
  const std::wstring title = newGroupTitle(names);
  if (!store_.hasRoomFor(title)) {
    bar_.notice(kTooLong);
    return;
  }
  bar_.addFolder(title, count);
  bar_.repaint();
  store_.addGroup(title);
  const std::wstring directory = newGroupDirectory(store_.directory());
  if (!makeFolder(store_.folderPath(directory))) {
    // The group stays, without a directory.
    bar_.notice(L"创建路径失败,请检查磁盘是否写保护!\n驱动器是否关闭!");
    return;
  }
  store_.setDirectory(title, directory);
  CreateEmptySlideLibrary(store_.slidePath(directory).c_str());
}

void AuxiliaryLibrary::RemoveGroup(int folder) {
  if (!confirmed(bar_.folderName(folder), kGroup)) return;
  bar_.removeFolder(folder);
  bar_.repaint();
  const std::wstring directory = store_.removeGroup(folder);
  if (!directory.empty()) DeleteDirectoryTree(store_.folderPath(directory));
}

// --- items ---

void AuxiliaryLibrary::RemoveItem(int item) {
  const int folder = bar_.openFolder();
  if (!confirmed(bar_.itemLabel(folder, item), kItem)) return;
  RemoveItemFiles(item);
  bar_.removeItem(folder, item);
  bar_.repaintItems();
}

// The item is gone from the tree whether or not its files go.
void AuxiliaryLibrary::RemoveItemFiles(int item) {
  const auto symbol = store_.takeItem(openTitle(), item);
  if (!symbol) return;
  removeFile(store_.drawingPath(*symbol));
  const std::wstring path = store_.slidePath(symbol->directory);
  if (isLink(path)) return;  // its slides are another library's
  CSlideLibraryData slides;
  slides.ReadDataFromFileW(path);
  slides.DeleteSlideFromSlb(symbol->block);
  slides.WriteDataToFile(path);
}

NewItem AuxiliaryLibrary::NewItemKeys() {
  const int folder = bar_.openFolder();
  NameList labels;
  const int count = bar_.itemCount(folder);
  for (int i = 0; i < count; ++i) labels.push_back(bar_.itemLabel(folder, i));
  const std::wstring title = openTitle();
  const std::wstring label = newItemLabel(title, labels);
  const SymbolFiles symbol = store_.addItem(title, label);
  return {store_.folderPath(symbol.directory), symbol.directory, symbol.block, label};
}

void AuxiliaryLibrary::RemoveItemKeys(const std::wstring& label) {
  store_.removeItem(openTitle(), label);
}

void AuxiliaryLibrary::AddItemImage(const std::wstring& slidePath, const std::wstring& block,
                                    const std::wstring& label) {
  const int folder = bar_.openFolder();
  CSlideLibraryData slides;
  slides.ReadDataFromFileW(slidePath);
  const int count = bar_.itemCount(folder);
  if (count == 0) {
    bar_.makeIconLists(1);
  } else {
    bar_.takeIconLists(folder);
  }
  // The place in the list, which after a removal differs from the item's.
  bar_.insertItem(folder, count, label, bar_.addIcon(slides, block));
  bar_.giveIconLists(folder);
  bar_.dropIconLists();
  bar_.repaint();
}

// --- notifications ---

void AuxiliaryLibrary::itemClicked(int item) {
  const int folder = bar_.openFolder();
  const bool valid = item >= 0 && item < bar_.itemCount(folder);
  store_.chooseItem(folder, valid ? bar_.itemLabel(folder, item) : std::wstring());
  if (GetMessageMark() != 0) send(L"F ");
}

bool AuxiliaryLibrary::chooseItem(int folder, int item) {
  const CStringArray labels = store_.labels(folder);
  if (item < 0 || item >= labels.GetSize()) return false;
  return store_.chooseItem(folder, labels.GetAt(item).wide());
}

void AuxiliaryLibrary::askForNewItem() { send(L"N "); }

void AuxiliaryLibrary::itemRenamed(int item, const std::wstring& text) {
  const int folder = bar_.openFolder();
  switch (store_.renameItem(folder, item, text)) {
    case Renaming::taken: bar_.notice(L"已有此名的符号!"); break;
    case Renaming::tooLong: bar_.notice(kTooLong); break;
    case Renaming::done: bar_.setItemLabel(folder, item, text); break;
    case Renaming::nothing: break;
  }
  bar_.repaintItems();
}

void AuxiliaryLibrary::folderRenamed(int folder, const std::wstring& text) {
  switch (store_.renameGroup(folder, text)) {
    case Renaming::taken: bar_.notice(L"已有此名的标题!"); break;
    case Renaming::tooLong: bar_.notice(kTooLong); break;
    case Renaming::done: bar_.setFolderName(folder, text); break;
    case Renaming::nothing: break;
  }
  bar_.repaintHeader(folder);
}

bool AuxiliaryLibrary::itemMoved(int source, int target) {
  if (source == target || source == target - 1) return false;
  return store_.moveItem(openTitle(), source, target);
}

void AuxiliaryLibrary::close() { store_.close(!bar_.smallIcons()); }
