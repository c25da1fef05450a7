#include "controls/windows/library_bar.h"

#include "controls/windows/gdi_scope.h"
#include "platform/framework_app.h"
#include "platform/framework_window_dc.h"
#include "platform/slide_store.h"

namespace {

constexpr int kGrowth = 10;
constexpr std::size_t kStrip = 50;  // icons

std::unique_ptr<CBitmap> iconOf(CSlideLibraryData& slides, std::uint16_t slide, int width,
                                int height) {
  return std::unique_ptr<CBitmap>(
      slides.MakeBitMapFromIndex(slide, width, height, ::GetSysColor(COLOR_BACKGROUND)));
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

CImageList* LibraryBar::makeList(const Waiting& icons, int expected) {
  auto list = std::make_unique<CImageList>();
  if (!list->Create(icons.width, icons.height, 0, expected, kGrowth)) return nullptr;
  lists_.push_back(std::move(list));
  return lists_.back().get();
}

void LibraryBar::makeIconLists(int expected) {
  forgetWaiting();
  bar_.folders().workingLarge = makeList(large_, expected);
  bar_.folders().workingSmall = makeList(small_, expected);
  given_ = false;
}

void LibraryBar::takeIconLists(int folder) {
  forgetWaiting();
  BarFolders& folders = bar_.folders();
  folders.workingLarge = folders.GetFolderImageList(folder, false);
  folders.workingSmall = folders.GetFolderImageList(folder, true);
  given_ = false;
}

int LibraryBar::addIcon(CSlideLibraryData& slides, const std::wstring& name) {
  const std::uint16_t slide = slides.GetIndexFromName(name);
  add(bar_.folders().workingSmall, small_, iconOf(slides, slide, small_.width, small_.height));
  return add(bar_.folders().workingLarge, large_,
             iconOf(slides, slide, large_.width, large_.height));
}

int LibraryBar::add(CImageList* list, Waiting& waiting, std::unique_ptr<CBitmap> icon) {
  if (!list || !icon) return -1;
  if (waiting.icons.size() == kStrip) flush(list, waiting);
  waiting.icons.push_back(std::move(icon));
  return list->GetImageCount() + static_cast<int>(waiting.icons.size()) - 1;
}

// The lists have no mask: what a slide leaves free becomes black, as on the page of slides.
void LibraryBar::flush(CImageList* list, Waiting& waiting) {
  if (!list || waiting.icons.empty()) return;
  CClientDC screen(nullptr);
  CBitmap strip;
  strip.CreateCompatibleBitmap(&screen, static_cast<int>(waiting.icons.size()) * waiting.width,
                               waiting.height);
  {
    CDC target;
    CDC source;
    target.CreateCompatibleDC(&screen);
    source.CreateCompatibleDC(&screen);
    const SelectedObject into(target, strip.GetSafeHandle());
    int x = 0;
    for (const auto& icon : waiting.icons) {
      const SelectedObject from(source, icon->GetSafeHandle());
      target.BitBlt(x, 0, waiting.width, waiting.height, &source, 0, 0, SRCCOPY);
      x += waiting.width;
    }
  }
  list->Add(&strip, ::GetSysColor(COLOR_BACKGROUND));
  waiting.icons.clear();
}

void LibraryBar::forgetWaiting() {
  small_.icons.clear();
  large_.icons.clear();
}

void LibraryBar::giveIconLists(int folder) {
  BarFolders& folders = bar_.folders();
  folders.folder(folder);  // throws
  flush(folders.workingSmall, small_);
  flush(folders.workingLarge, large_);
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
