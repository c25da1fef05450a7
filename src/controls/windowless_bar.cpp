#include "controls/windowless_bar.h"

#include "platform/framework_messages.h"
#include "platform/slide_store.h"

std::wstring WindowlessBar::itemLabel(int folder, int item) const {
  return folders_.folder(folder).item(item).text.value_or(L"");
}

void WindowlessBar::addFolder(const std::wstring& name, int data) {
  folders_.AddFolder(name, data);
  icons_.push_back(0);
}

void WindowlessBar::setFolderName(int folder, const std::wstring& name) {
  folders_.folder(folder).name = name;
}

void WindowlessBar::removeFolder(int folder) {
  folders_.removeFolder(folder);
  icons_.erase(icons_.begin() + folder);
  if (openFolder_ < folder) return;
  openFolder_ = folder - 1;
  if (openFolder_ < 0 && folderCount() > 0) openFolder_ = 0;
}

void WindowlessBar::selectFolder(int folder) {
  folders_.folder(folder);  // throws
  openFolder_ = folder;
}

void WindowlessBar::insertItem(int folder, int at, const std::wstring& label, int image) {
  folders_.InsertItem(folder, at, {image, label, 0});
}

void WindowlessBar::setItemLabel(int folder, int item, const std::wstring& label) {
  folders_.folder(folder).item(item).text = label;
}

// Throws for a bad index.
std::size_t WindowlessBar::indexOf(int folder) const {
  folders_.folder(folder);
  return static_cast<std::size_t>(folder);
}

int WindowlessBar::addIcon(CSlideLibraryData& slides, const std::wstring& name) {
  return slides.GetIndexFromName(name) == kNoSlide ? -1 : working_++;
}

void WindowlessBar::giveIconLists(int folder) {
  icons_.at(indexOf(folder)) = working_;
  working_ = 0;
}

int WindowlessBar::ask(const std::wstring& text, const std::wstring& caption, unsigned style) {
  return showMessageBox({.text = text, .caption = caption, .style = style});
}

void WindowlessBar::notice(const std::wstring& text) {
  showMessageBox({.text = text, .caption = {}});
}
