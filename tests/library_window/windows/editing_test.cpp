// The road of an edit on the screen: a click on the page in edit mode, the dialog, the stored
// circuit, and its place in a drawing. Over the sample library and in the real host.
#include <gtest/gtest.h>

#include <algorithm>

#include "editor/windows/dialog_hand.h"
#include "embedded/drafting/documents/session.h"
#include "engine/place_row.h"
#include "library_window/windows/main_window.h"
#include "module/module_state.h"
#include "platform/framework_app.h"
#include "samples/generator/install.h"
#include "support/describe.h"
#include "support/install.h"

namespace {

using window_kit::Spot;
using window_kit::WindowScript;

class Editing : public testing::Test {
 protected:
  Editing() {
    test::setVariable("VORNIK_INFORMATION", folder_ / "information.txt");
    const auto made = samples::makeInstall(folder_ / "install", [](std::string_view) {});
    EXPECT_TRUE(made.ok()) << made.message();
    EXPECT_TRUE(samples::useInstall(folder_ / "install").ok());
    session_.line.output = [](std::string_view) {};
    host_ = ::CreateWindowExW(0, L"STATIC", L"host", WS_POPUP, 900, 700, 100, 100, nullptr, nullptr,
                              ::GetModuleHandleW(nullptr), nullptr);
    ::ShowWindow(host_, SW_SHOWNA);
    setModuleInstance(::GetModuleHandleW(nullptr));
    setHostWindow(host_);
    frame_ = new CZhlkMainWnd;
    setLibraryWindow(&frame_->Door());
    frame_->store.SetMode(1);
    frame_->store.SetPage(2);
    ShowLibraryWindow();
    frame_->MoveWindow(20, 20, 900, 600);
    ::SetForegroundWindow(frame_->m_hWnd);
    AfxPumpWaitingMessages();
  }
  ~Editing() override {
    libraryWindow()->DestroyWindow();
    ::DestroyWindow(host_);
    setHostWindow(nullptr);
  }

  HWND grid() const {
    return ::GetDlgItem(::GetDlgItem(frame_->m_hWnd, AFX_IDW_PANE_FIRST), AFX_IDW_PANE_FIRST);
  }
  // The cell of a slot on its page of three rows of six.
  Spot cellOf(int slot) const {
    CRect client;
    ::GetClientRect(grid(), client);
    const int width = client.Width() / 6;
    const int height = client.Height() / 3;
    const int cell = slot % 18;
    return {grid(), cell % 6 * width + width / 2, cell / 6 * height + height / 2};
  }

  // --- the dialog, while it is open ---
  CZHlkhlbjDlg* dialog() const {
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
          if (dynamic_cast<CZHlkhlbjDlg*>(CWnd::FromHandlePermanent(window))) {
            *reinterpret_cast<HWND*>(result) = window;
          }
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return dynamic_cast<CZHlkhlbjDlg*>(CWnd::FromHandlePermanent(found));
  }
  void waitForDialog(WindowScript& script) {
    script.waitFor("the dialog", [this] {
      const CZHlkhlbjDlg* open = dialog();
      return open && open->IsWindowVisible();
    });
    script.then([this] { dialog()->UpdateWindow(); });
  }
  void press(WindowScript& script, int id) { hand_.press(script, id); }
  void pick(WindowScript& script, int symbol) { hand_.pick(script, symbol % 36); }
  void put(WindowScript& script, std::uint16_t block) { hand_.click(script, block); }
  void waitForItsEnd(WindowScript& script) {
    script.waitFor("its end", [this] { return dialog() == nullptr; });
  }
  static void run(WindowScript& script) {
    script.translate([](MSG* message) { return AfxPreTranslateMessage(message); });
    EXPECT_EQ(script.run(), "");
  }

  // Lit pixels of the slot's cell, its lines and mark left out.
  int drawnIn(int slot) const {
    const auto picture = window_kit::pictureOf(grid());
    const Spot middle = cellOf(slot);
    int lit = 0;
    for (int y = middle.y - 70; y < middle.y + 70; ++y) {
      for (int x = middle.x - 30; x < middle.x + 30; ++x) lit += picture.at(x, y) != 0 ? 1 : 0;
    }
    return lit;
  }
  // What the slot's row draws: the block references with their extended data.
  std::vector<std::string> placed(int slot) {
    CString row;
    frame_->store.GetRowAt(slot, row);
    const ads_point origin = {0, 0, 0};
    EXPECT_EQ(PlaceRow(origin, row.wide()), RTNORM);
    return test::describeModelSpace(session_.database());
  }
  static int holding(const std::vector<std::string>& entities, std::string_view part) {
    return static_cast<int>(std::count_if(entities.begin(), entities.end(), [&](const auto& text) {
      return text.find(part) != text.npos;
    }));
  }
  std::wstring nameAt(int slot) {
    CString name;
    frame_->store.GetNameAt(slot, name);
    return name.wide();
  }

  test::TempFolder folder_;
  drafting::Session session_;
  HWND host_ = nullptr;
  CZhlkMainWnd* frame_ = nullptr;
  test::DialogHand hand_{[this] { return dialog(); }};
};

TEST_F(Editing, FreeSlotBecomesACircuitThatCanBePlaced) {
  constexpr int kFree = 25;
  EXPECT_EQ(drawnIn(kFree), 0);
  WindowScript script;
  script.move([this] { return cellOf(kFree); }).press().release();
  waitForDialog(script);
  for (const int line : {0, 2, 4, 6, 8, 10, 12}) {
    pick(script, line / 2 + 6);
    put(script, static_cast<std::uint16_t>(3 * line + 1));
  }
  press(script, IDC_PICKER_NEXT_PAGE);
  pick(script, test::firstWideSymbol(test::sampleSymbols(folder_ / "install")));  // page 2
  put(script, 3 * 7 + 1);
  script.then(
      [this] { test::keep(window_kit::pictureOf(dialog()->m_hWnd), "edit_of_a_free_slot"); });
  press(script, IDOK);
  waitForItsEnd(script);
  run(script);

  EXPECT_EQ(frame_->store.GetCount(), kFree + 1);
  EXPECT_EQ(nameAt(kFree), L"主回路&26");
  CString row;
  frame_->store.GetRowAt(kFree, row);
  EXPECT_EQ(row.wide().substr(0, 6), L"(\"26\" ");
  EXPECT_NE(row.wide().find(L"\"ZHL3"), std::wstring::npos);
  EXPECT_GT(drawnIn(kFree), 100);
  test::keep(window_kit::pictureOf(grid()), "page_after_the_edit");

  const auto entities = placed(kFree);
  // Each symbol has its index text, and so have the cells left empty and the blanks beside them.
  EXPECT_EQ(holding(entities, "INSERT ZHL1000 "), 24);
  EXPECT_EQ(holding(entities, "INSERT F002 "), 6);
  EXPECT_EQ(holding(entities, "{TKSY "), 24 + 6 + 8);
}

TEST_F(Editing, PastedCircuitKeepsItsModelsBesideAChangedSymbol) {
  constexpr int kFree = 26;
  frame_->store.SetPage(1);
  frame_->Invalidate();
  WindowScript script;
  const auto menu = [&](int slot, int downs) {
    script.move([this, slot] { return cellOf(slot); }).pressRight().releaseRight();
    script.waitFor("the menu", [] { return ::FindWindowW(L"#32768", nullptr) != nullptr; });
    for (int i = 0; i < downs; ++i) script.key(VK_DOWN);
    script.key(VK_RETURN);
    script.waitFor("the menu's end", [] { return ::FindWindowW(L"#32768", nullptr) == nullptr; });
  };
  menu(2, 1);  // copy
  script.then([this] {
    frame_->store.SetPage(2);
    frame_->RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  });
  menu(kFree, 2);  // paste
  script.waitFor("the pasted circuit", [this] { return nameAt(kFree) == L"主回路&27"; });
  script.move([this] { return cellOf(kFree); }).press().release();
  waitForDialog(script);
  pick(script, 4);
  put(script, 2);
  press(script, IDOK);
  waitForItsEnd(script);
  run(script);

  EXPECT_GT(drawnIn(kFree), 200);
  CString original;
  CString edited;
  frame_->store.GetRowAt(2, original);
  frame_->store.GetRowAt(kFree, edited);
  EXPECT_NE(original.wide().substr(5), edited.wide().substr(5));
  const auto entities = placed(kFree);
  EXPECT_GE(holding(entities, "{XHGG "), 3);
}

TEST_F(Editing, CancelChangesNothing) {
  CString before;
  frame_->store.GetRowAt(20, before);
  const int lit = drawnIn(20);
  WindowScript script;
  script.move([this] { return cellOf(20); }).press().release();
  waitForDialog(script);
  pick(script, 8);
  put(script, 4);
  press(script, IDCANCEL);
  waitForItsEnd(script);
  run(script);
  CString after;
  frame_->store.GetRowAt(20, after);
  EXPECT_EQ(after, before);
  EXPECT_EQ(drawnIn(20), lit);
}

TEST_F(Editing, LibraryWindowTakesNoClicksMeanwhile) {
  WindowScript script;
  script.move([this] { return cellOf(20); }).press().release();
  waitForDialog(script);
  script.then([this] { EXPECT_FALSE(frame_->IsWindowEnabled()); });
  press(script, IDCANCEL);
  waitForItsEnd(script);
  run(script);
  EXPECT_TRUE(frame_->IsWindowEnabled());
}

}  // namespace
