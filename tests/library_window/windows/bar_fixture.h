// The library window with an auxiliary library of the test's own, and a hand for its bar: mouse,
// keyboard and menu.
#pragma once

#include <algorithm>
#include <utility>

#include "controls/bar_menu.h"
#include "controls/pause.h"
#include "controls/windows/gfx_out_bar_ctrl.h"
#include "embedded/framework/windows/kit.h"
#include "library_window/windows/window_fixture.h"
#include "platform/quill_data.h"
#include "platform/slide_store.h"

namespace library_window_test {

using window_kit::WindowScript;
using Names = std::vector<std::wstring>;

inline const std::wstring kBadIndex = L"遇到不适当的参数。";  // the framework's message

struct GroupOnDisk {
  std::wstring title;
  std::wstring directory;
  std::vector<std::pair<std::wstring, std::wstring>> items;  // label and block
};

class BarInFrame : public LibraryFrame {
 protected:
  BarInFrame() {
    setPause([this](int milliseconds) { pauses_.push_back(milliseconds); });
    groups_ = {{L"仪表",
                L"fzgn0001",
                {{L"电流表", L"FG001001"}, {L"电压表", L"FG001002"}, {L"信号灯", L"FG001003"}}},
               {L"接地", L"fzgn0002", {{L"避雷器", L"FG002001"}}},
               {L"备注", L"fzgn0003", {}}};
  }
  ~BarInFrame() override { setPause({}); }

  // --- the library on disk ---
  void put(const std::wstring& key, const std::wstring& text) {
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(storePath().c_str());
    set(tree, key, text);
    tree.WriteDataToQdpFile(storePath().c_str());
  }
  std::wstring onDisk(const std::wstring& key) const {
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(storePath().c_str());
    const CQuillDpNode* node = tree.GetSubValueFromPathW(0, key.c_str());
    return node ? node->text() : L"-";
  }
  std::wstring storePath() const { return test::Install::wide(file("zhlFzgn.qdp")); }
  std::filesystem::path file(const std::string& name) const { return install_.library() / name; }
  bool exists(const std::string& name) const { return std::filesystem::exists(file(name)); }

  void writeGroups() {
    CQuillDpData tree;
    std::wstring titles;
    for (const GroupOnDisk& group : groups_) {
      writeGroup(tree, group);
      titles += group.title + L"&";
    }
    set(tree, L"索引", titles);
    tree.WriteDataToQdpFile(storePath().c_str());
  }
  // The window with the groups, or with the store as it is.
  void showGroups() {
    writeGroups();
    showStore();
  }
  void showStore() {
    show(1);
    resize(620, 460);
    outside();
  }
  // The window ends and comes again.
  void restart() {
    close();
    open();
    ShowLibraryWindow();
    ::SetForegroundWindow(frame_->m_hWnd);
    resize(620, 460);
  }

  // --- what the bar shows ---
  CGfxOutBarCtrl& control() {
    return *static_cast<CGfxOutBarCtrl*>(CWnd::FromHandlePermanent(bar()));
  }
  Names titles() {
    Names all;
    for (int i = 0; i < control().GetFolderCount(); ++i) {
      all.push_back(control().folders().folder(i).name);
    }
    return all;
  }
  Names labels(int folder) {
    Names all;
    const CBarFolder& shown = control().folders().folder(folder);
    for (int i = 0; i < shown.GetItemCount(); ++i) all.push_back(shown.item(i).text.value_or(L"?"));
    return all;
  }
  static CPoint middle(const CRect& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  // For a second click on the same thing, which would be a double click at the same place.
  static CPoint leftOf(CPoint point, int by) { return {point.x - by, point.y}; }
  CPoint header(int folder) {
    CRect rect;
    control().layout().GetFolderRect(folder, *rect);
    return middle(rect);
  }
  CRect iconRect(int item) {
    return control().layout().GetItemIconRect(control().GetCurrentFolder(), item);
  }
  CPoint icon(int item) { return middle(iconRect(item)); }
  CRect cellRect(int item) {
    return control().layout().GetItemCellRect(control().GetCurrentFolder(), item);
  }
  // Below the open folder's items; where none is open the items' place reaches below the bar.
  CPoint background() {
    const CRect inside = control().layout().GetInsideRect();
    return {inside.left + 10, std::min(inside.bottom, client(bar()).bottom) - 8};
  }
  int litDots(const CRect& rect) {
    const auto picture = window_kit::pictureOf(bar());
    int lit = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) lit += picture.at(x, y) == 0xFF0000 ? 1 : 0;
    }
    return lit;
  }

  // --- the mouse ---
  void run(WindowScript& script) {
    EXPECT_EQ(script.run(), "");
    AfxPumpWaitingMessages();
  }
  void outside() {
    WindowScript script;
    run(script.move(frame_->m_hWnd, 5, 3));
  }
  WindowScript& press(WindowScript& script, CPoint at) {
    script.move(bar(), at.x, at.y).press();
    return script.waitFor("the capture", [this] { return ::GetCapture() == bar(); });
  }
  WindowScript& release(WindowScript& script) {
    script.release();
    return script.waitFor("the loop's end", [] { return ::GetCapture() == nullptr; });
  }
  void clickBar(CPoint at) {
    WindowScript script;
    run(release(press(script, at)));
  }
  // Drags by way of the free strip left of the icons, where no item is hit.
  void drag(CPoint from, CPoint to) {
    WindowScript script;
    press(script, from).move(bar(), 2, from.y);
    run(release(script.move(bar(), to.x, to.y)));
  }

  // --- the menu, by mouse and keyboard ---
  static HWND openMenu() {
    const HWND window = ::FindWindowW(L"#32768", nullptr);
    return window && ::IsWindowVisible(window) ? window : nullptr;
  }
  // The entries of the menu that a right click there opens; a separator is 0.
  std::vector<UINT> offered(CPoint at) {
    std::vector<UINT> commands;
    WindowScript script;
    script.rightClick(bar(), at.x, at.y);
    script.waitFor("the menu", [] { return openMenu() != nullptr; });
    script.then([&commands] {
      constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
      const auto menu = reinterpret_cast<HMENU>(::SendMessageW(openMenu(), kGetMenu, 0, 0));
      for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        commands.push_back(::GetMenuItemID(menu, i));
      }
    });
    script.key(VK_ESCAPE).waitFor("the menu's end", [] { return openMenu() == nullptr; });
    run(script);
    return commands;
  }
  // As above, without opening it.
  std::vector<unsigned> expected(CPoint at) {
    int index = -1;
    const BarHit code = control().layout().HitTestBar(at, index);
    std::vector<unsigned> commands;
    for (const BarMenuEntry& entry : barMenuEntries(code, index, kLibraryBarFlags)) {
      if (entry.command != 0) commands.push_back(entry.command);
    }
    return commands;
  }
  void choose(CPoint at, unsigned command) {
    const std::vector<unsigned> commands = expected(at);
    const auto place = std::find(commands.begin(), commands.end(), command);
    ASSERT_NE(place, commands.end());
    WindowScript script;
    script.rightClick(bar(), at.x, at.y);
    script.waitFor("the menu", [] { return openMenu() != nullptr; });
    for (auto entry = commands.begin(); entry <= place; ++entry) script.key(VK_DOWN);
    script.key(VK_RETURN).waitFor("the menu's end", [] { return openMenu() == nullptr; });
    run(script.then([] {}));
  }

  // --- the label editor ---
  bool editing() const { return ::GetDlgItem(bar(), 1) != nullptr; }
  // Keys for an editor that is open: the old text goes, the new one comes.
  void type(const std::wstring& text, WORD last = VK_RETURN) {
    ASSERT_TRUE(editing());
    ::SetWindowTextW(::GetDlgItem(bar(), 1), text.c_str());
    WindowScript script;
    script.translate(AfxPreTranslateMessage);
    run(script.key(last).then([] {}));
    EXPECT_FALSE(editing());
  }

  std::vector<GroupOnDisk> groups_;  // on disk, once written
  std::vector<int> pauses_;

 private:
  static void set(CQuillDpData& tree, const std::wstring& key, const std::wstring& text) {
    tree.SetSubValueW(key.c_str(), static_cast<std::int16_t>(text.size() + 1), text.c_str(), 0);
  }
  // A red cross over the whole icon.
  static std::string crossSlide() {
    slide_store::SlideWriter writer(640, 320);
    writer.line({0, 0}, {640, 320}, 1);
    writer.line({0, 320}, {640, 0}, 1);
    return writer.finish();
  }
  void writeGroup(CQuillDpData& tree, const GroupOnDisk& group) {
    const std::wstring key = L"数据\\" + group.title;
    set(tree, key, group.directory);
    set(tree, key + L"\\类型", L"0");
    const std::filesystem::path folder = install_.library() / group.directory;
    std::filesystem::create_directories(folder);
    CSlbMan slides;
    slides.OnOpenDocument(test::Install::wide(folder / (group.directory + L".slb")).c_str());
    std::wstring labels;
    for (const auto& [label, block] : group.items) {
      labels += label + L"&";
      set(tree, key + L"\\数据\\" + label, block);
      test::writeBytes(folder / (block + L".dwg"), "a drawing");
      const std::string slide = crossSlide();
      slides.AddSlideW(block.c_str(), slide.data(), static_cast<std::uint32_t>(slide.size()));
    }
    if (!group.items.empty()) set(tree, key + L"\\索引", labels);
    slides.SaveModified();
  }
};

}  // namespace library_window_test
