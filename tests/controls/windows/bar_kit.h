// A real bar of 100 by 300 pixels for tests: five folders, the second open, red icons of two sizes;
// a library that notes what it is asked.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/pause.h"
#include "controls/windows/gfx_out_bar_ctrl.h"
#include "embedded/framework/windows/kit.h"
#include "platform/framework_image_list.h"
#include "platform/framework_window_dc.h"
#include "windows/picture.h"
#include "windows/window_script.h"

namespace controls_test {

using framework_test::Log;
using window_kit::pictureOf;
using window_kit::WindowScript;

class NotingLibrary : public BarLibrary {
 public:
  Log log;
  bool mayMove = true;

  void itemClicked(int item) override { note("click", item); }
  void renameItem(int item, const std::wstring& text) override { rename("item", item, text); }
  void renameFolder(int folder, const std::wstring& text) override {
    rename("folder", folder, text);
  }
  bool moveItem(int source, int target) override {
    log.push_back("move " + std::to_string(source) + " to " + std::to_string(target));
    return mayMove && target != source + 1;
  }
  void addGroup() override { log.push_back("add group"); }
  void addItem() override { log.push_back("add item"); }
  void removeGroup(int folder) override { note("remove group", folder); }
  void removeItem(int item) override { note("remove item", item); }

 private:
  void note(const std::string& what, int index) {
    log.push_back(what + " " + std::to_string(index));
  }
  void rename(const std::string& what, int index, const std::wstring& text) {
    log.push_back("rename " + what + " " + std::to_string(index) + " " +
                  std::string(text.begin(), text.end()));
  }
};

// Tells what menu it shows and which keys reach it.
class WatchedBar : public CGfxOutBarCtrl {
 public:
  HMENU menu = nullptr;  // open at the moment
  bool menuDrawn = false;
  int folderChanges = 0;
  std::vector<WPARAM> keys;

 protected:
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override {
    if (message == WM_INITMENUPOPUP) menu = reinterpret_cast<HMENU>(w);
    if (message == WM_ENTERIDLE) menuDrawn = true;
    if (message == WM_UNINITMENUPOPUP) menu = nullptr, menuDrawn = false;
    if (message == BARM_NOTIFY && w == BARN_FOLDERCHANGED) ++folderChanges;
    if (message == WM_KEYDOWN) keys.push_back(w);
    return CGfxOutBarCtrl::WindowProc(message, w, l);
  }
};

inline std::uint32_t rgb(COLORREF colour) {
  return static_cast<std::uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 |
                                    GetBValue(colour));
}
inline std::uint32_t systemColour(int index) { return rgb(::GetSysColor(index)); }

constexpr std::uint32_t kRed = 0xFF0000;

class BarWindow : public testing::Test {
 protected:
  BarWindow() {
    setPause([this](int milliseconds) { pauses_.push_back(milliseconds); });
  }
  ~BarWindow() override { setPause({}); }

  void SetUp() override {
    ASSERT_TRUE(resources_.loaded());
    fillList(large_, 32);
    fillList(small_, 16);
    frame_ = new CFrameWnd;
    ASSERT_TRUE(frame_->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, {100, 100, 400, 500}));
    bar_ = std::make_unique<WatchedBar>();
    // The edge takes a pixel on each side.
    ASSERT_TRUE(bar_->Create(WS_VISIBLE, {20, 10, 122, 312}, frame_, 5, flags_ | kLibraryBarFlags));
    bar_->setLibrary(&library_);
    bar_->setFolderAnimationDelay(20);
    for (const wchar_t* name : {L"first", L"second", L"third", L"fourth", L"fifth"}) {
      const int index = bar_->folders().AddFolder(name, 0);
      bar_->folders().SetFolderImageList(index, &large_, kLargeImages);
      bar_->folders().SetFolderImageList(index, &small_, kSmallImages);
    }
    framework_test::showInFront(*frame_);
    outside();
  }
  void TearDown() override {
    if (bar_) bar_->DestroyWindow();
    if (frame_) frame_->DestroyWindow();
  }

  // The items' labels are a, b, c and so on.
  void addItems(int count) {
    for (int i = 0; i < count; ++i) {
      bar_->folders().InsertItem(1, -1, {0, std::wstring(1, static_cast<wchar_t>(L'a' + i)), 0});
    }
    repaint();
  }
  void repaint() {
    bar_->Invalidate();
    AfxPumpWaitingMessages();
  }
  // The pointer goes beside the bar, and the hover frames with it.
  WindowScript& leave(WindowScript& script) {
    script.move(frame_->m_hWnd, 250, 350);
    return script.waitFor(
        "no hover", [this] { return bar_->hover().folder == -1 && bar_->hover().item == -1; });
  }
  void outside() {
    WindowScript script;
    EXPECT_EQ(leave(script).run(), "");
  }
  HWND window() const { return bar_->m_hWnd; }
  std::wstring order() const {
    std::wstring text;
    for (int i = 0; i < bar_->GetCurrentItemCount(); ++i) text += bar_->GetItemText(i).GetString();
    return text;
  }
  CRect header(int index) {
    CRect rect;
    bar_->layout().GetFolderRect(index, *rect);
    return rect;
  }
  CPoint middle(const CRect& rect) const {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  CRect icon(int item) { return bar_->layout().GetItemIconRect(1, item); }
  CRect cell(int item) { return bar_->layout().GetItemCellRect(1, item); }
  WindowScript& moveTo(WindowScript& script, CPoint point) {
    return script.move(window(), point.x, point.y);
  }
  // Holds the button there until the bar's loop runs.
  WindowScript& hold(WindowScript& script, CPoint point) {
    moveTo(script, point).press();
    return script.waitFor("the capture", [this] { return ::GetCapture() == window(); });
  }
  WindowScript& drop(WindowScript& script) {
    script.release();
    return script.waitFor("the loop's end", [] { return ::GetCapture() == nullptr; });
  }
  void click(CPoint point) {
    WindowScript script;
    drop(hold(script, point));
    EXPECT_EQ(script.run(), "");
  }
  // How many pixels differ from a picture that was taken before.
  int changedSince(const window_kit::Picture& before) const {
    const auto now = pictureOf(window());
    int changed = 0;
    for (int y = 0; y < now.height(); ++y) {
      for (int x = 0; x < now.width(); ++x) changed += now.at(x, y) != before.at(x, y) ? 1 : 0;
    }
    return changed;
  }
  bool frameAround(const CRect& icon, std::uint32_t topLeft, std::uint32_t bottomRight) {
    const auto picture = pictureOf(window());
    return picture.at(icon.left - 1, icon.top - 1) == topLeft &&
           picture.at(icon.right, icon.bottom) == bottomRight;
  }

  unsigned flags_ = 0;
  framework_test::ModuleResources resources_;
  NotingLibrary library_;
  CImageList large_;
  CImageList small_;
  CFrameWnd* frame_ = nullptr;
  std::unique_ptr<WatchedBar> bar_;
  std::vector<int> pauses_;

 private:
  static void fillList(CImageList& list, int side) {
    CClientDC screen(nullptr);
    CDC dc;
    CBitmap bitmap;
    dc.CreateCompatibleDC(&screen);
    bitmap.CreateCompatibleBitmap(&screen, side, side);
    const HGDIOBJ before = ::SelectObject(dc.GetSafeHdc(), bitmap.GetSafeHandle());
    dc.FillSolidRect(0, 0, side, side, RGB(255, 0, 0));
    ::SelectObject(dc.GetSafeHdc(), before);
    list.Create(side, side, ILC_COLOR24, 1, 1);
    list.Add(&bitmap, static_cast<CBitmap*>(nullptr));
  }
};

}  // namespace controls_test
