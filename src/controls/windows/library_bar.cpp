#include "controls/windows/library_bar.h"

#include "platform/framework_app.h"
#include "platform/slide_store.h"

namespace {

struct IconSize {
  int width, height;
};
constexpr IconSize kSmall{32, 16};
constexpr IconSize kLarge{64, 32};
constexpr int kGrowth = 10;

// The lists have no mask: what the slide leaves free becomes black, as on the page of slides. The
// place in the list, or -1.
int addTo(CImageList* list, CSlideLibraryData& slides, const std::wstring& name, IconSize size) {
  const COLORREF background = ::GetSysColor(COLOR_BACKGROUND);
  const std::unique_ptr<CBitmap> icon(slides.MakeBitMapFromIndex(
      slides.GetIndexFromName(name), size.width, size.height, background));
  return list && icon ? list->Add(icon.get(), background) : -1;
}

}  // namespace

// --- folders and items ---

std::wstring LibraryBar::folderName(int folder) const { return bar_.folders().folder(folder).name; }

int LibraryBar::itemCount(int folder) const { return bar_.folders().folder(folder).GetItemCount(); }

std::wstring LibraryBar::itemLabel(int folder, int item) const {
  return bar_.folders().folder(folder).item(item).text.value_or(L"");
}

void LibraryBar::addFolder(const std::wstring& name, int data) {
  bar_.folders().AddFolder(name, data);
}

void LibraryBar::setFolderName(int folder, const std::wstring& name) {
  bar_.SetFolderText(folder, name.c_str());
}

void LibraryBar::removeFolder(int folder) {
  bar_.folders().removeFolder(folder);
  bar_.folderRemoved(folder);
}

void LibraryBar::insertItem(int folder, int at, const std::wstring& label, int image) {
  bar_.folders().InsertItem(folder, at, {image, label, 0});
}

void LibraryBar::setItemLabel(int folder, int item, const std::wstring& label) {
  bar_.folders().folder(folder).item(item).text = label;
}

void LibraryBar::removeItem(int folder, int item) {
  bar_.forgetSelection();
  bar_.folders().folder(folder).removeItem(item);
}

void LibraryBar::setAnimation(int folderStep, int itemInterval) {
  bar_.setFolderAnimationDelay(folderStep);
  bar_.SetItemAnimInterval(itemInterval);
}

// --- icons ---

CImageList* LibraryBar::makeList(int width, int height, int expected) {
  auto list = std::make_unique<CImageList>();
  if (!list->Create(width, height, 0, expected, kGrowth)) return nullptr;
  lists_.push_back(std::move(list));
  return lists_.back().get();
}

void LibraryBar::makeIconLists(int expected) {
  bar_.folders().workingLarge = makeList(kLarge.width, kLarge.height, expected);
  bar_.folders().workingSmall = makeList(kSmall.width, kSmall.height, expected);
  given_ = false;
}

void LibraryBar::takeIconLists(int folder) {
  BarFolders& folders = bar_.folders();
  folders.workingLarge = folders.GetFolderImageList(folder, false);
  folders.workingSmall = folders.GetFolderImageList(folder, true);
  given_ = false;
}

int LibraryBar::addIcon(CSlideLibraryData& slides, const std::wstring& name) {
  addTo(bar_.folders().workingSmall, slides, name, kSmall);
  return addTo(bar_.folders().workingLarge, slides, name, kLarge);
}

void LibraryBar::giveIconLists(int folder) {
  BarFolders& folders = bar_.folders();
  folders.folder(folder);  // throws
  if (!given_ && folders.workingLarge && folders.workingSmall) {
    folders.SetFolderImageList(folder, folders.workingSmall, kSmallImages);
    folders.SetFolderImageList(folder, folders.workingLarge, kLargeImages);
  }
  given_ = true;
}

void LibraryBar::dropIconLists() {
  bar_.folders().workingLarge = bar_.folders().workingSmall = nullptr;
}

// --- painting and message boxes ---

void LibraryBar::repaintItems() {
  const CRect inside = bar_.layout().GetInsideRect();
  bar_.InvalidateRect(inside);
}

void LibraryBar::repaintHeader(int folder) {
  CRect header;
  bar_.layout().GetFolderRect(folder, *header);
  bar_.InvalidateRect(header, FALSE);
}

int LibraryBar::ask(const std::wstring& text, const std::wstring& caption, unsigned style) {
  return bar_.MessageBox(text.c_str(), caption.c_str(), style);
}

void LibraryBar::notice(const std::wstring& text) { AfxMessageBox(text.c_str()); }
