// Commands: whom they reach, what stands for them in menus and bars.
#include "embedded/framework/windows/kit.h"
#include "platform/framework_controls.h"
#include "platform/framework_menu.h"
#include "platform/framework_view.h"
#include "windows/window_script.h"

namespace {

using framework_test::Log;
using window_kit::WindowScript;

constexpr UINT kBoth = 101;  // handled by view and frame
constexpr UINT kFrameOnly = 102;
constexpr UINT kDisabled = 103;  // its update handler disables it
constexpr UINT kNobody = 104;
constexpr UINT kRangeFirst = 110;
constexpr UINT kRangeLast = 112;
constexpr UINT kButton = 120;
constexpr UINT kCombo = 121;

Log& log() {
  static Log entries;
  return entries;
}

class CommandView : public CView {
  DECLARE_DYNCREATE(CommandView)
 protected:
  void OnDraw(CDC*) override {}
  void onBoth() { log().push_back("view both"); }
  DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(CommandView, CView)
BEGIN_MESSAGE_MAP(CommandView, CView)
ON_COMMAND(kBoth, onBoth)
END_MESSAGE_MAP()

class CommandFrame : public CFrameWnd {
 protected:
  void onBoth() { log().push_back("frame both"); }
  void onFrameOnly() { log().push_back("frame only"); }
  void onDisabled() { log().push_back("disabled"); }
  void onUpdateDisabled(CCmdUI* item) { item->Enable(FALSE); }
  void onUpdateFrameOnly(CCmdUI* item) { item->SetCheck(1); }
  void onRange(UINT id) { log().push_back("range " + std::to_string(id)); }
  void onButton() { log().push_back("button"); }
  void onCombo() { log().push_back("combo"); }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CommandFrame, CFrameWnd)
ON_COMMAND(kBoth, onBoth)
ON_COMMAND(kFrameOnly, onFrameOnly)
ON_COMMAND(kDisabled, onDisabled)
ON_UPDATE_COMMAND_UI(kDisabled, onUpdateDisabled)
ON_UPDATE_COMMAND_UI(kFrameOnly, onUpdateFrameOnly)
ON_COMMAND_RANGE(kRangeFirst, kRangeLast, onRange)
ON_BN_CLICKED(kButton, onButton)
ON_CBN_SELCHANGE(kCombo, onCombo)
END_MESSAGE_MAP()

class Commands : public testing::Test {
 protected:
  void SetUp() override {
    log().clear();
    frame_ = new CommandFrame;
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(CommandView);
    ASSERT_TRUE(frame_->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, {50, 50, 450, 350}, nullptr,
                               nullptr, 0, &context));
    view_ = dynamic_cast<CView*>(frame_->GetDlgItem(static_cast<int>(AFX_IDW_PANE_FIRST)));
    ASSERT_NE(view_, nullptr);
  }
  void TearDown() override { frame_->DestroyWindow(); }

  CommandFrame* frame_ = nullptr;
  CView* view_ = nullptr;
};

TEST_F(Commands, TheActiveViewComesBeforeTheFrame) {
  frame_->SendMessage(WM_COMMAND, kBoth);
  frame_->SetActiveView(view_);
  frame_->SendMessage(WM_COMMAND, kBoth);
  frame_->SendMessage(WM_COMMAND, kFrameOnly);
  EXPECT_EQ(log(), (Log{"frame both", "view both", "frame only"}));
}

TEST_F(Commands, ADisabledCommandOfAMenuDoesNotRun) {
  frame_->SendMessage(WM_COMMAND, kDisabled);
  EXPECT_TRUE(log().empty());
}

TEST_F(Commands, ARangeTellsWhichOne) {
  for (UINT id = kRangeFirst - 1; id <= kRangeLast + 1; ++id) frame_->SendMessage(WM_COMMAND, id);
  EXPECT_EQ(log(), (Log{"range 110", "range 111", "range 112"}));
}

TEST_F(Commands, NotificationsOfControlsCarryTheirCode) {
  frame_->SendMessage(WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED),
                      reinterpret_cast<LPARAM>(view_->m_hWnd));
  frame_->SendMessage(WM_COMMAND, MAKEWPARAM(kCombo, CBN_SELCHANGE),
                      reinterpret_cast<LPARAM>(view_->m_hWnd));
  frame_->SendMessage(WM_COMMAND, MAKEWPARAM(kCombo, CBN_DROPDOWN),
                      reinterpret_cast<LPARAM>(view_->m_hWnd));
  EXPECT_EQ(log(), (Log{"button", "combo"}));
}

TEST_F(Commands, AskingForTheHandlerRunsNothing) {
  AFX_CMDHANDLERINFO info;
  EXPECT_TRUE(frame_->OnCmdMsg(kFrameOnly, CN_COMMAND, nullptr, &info));
  EXPECT_EQ(info.pTarget, frame_);
  EXPECT_FALSE(frame_->OnCmdMsg(kNobody, CN_COMMAND, nullptr, &info));
  EXPECT_TRUE(log().empty());
}

TEST_F(Commands, AMenuIsBroughtUpToDateWhenItOpens) {
  CMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, kFrameOnly, L"a");
  menu.AppendMenu(MF_STRING, kDisabled, L"b");
  menu.AppendMenu(MF_SEPARATOR);
  menu.AppendMenu(MF_STRING, kNobody, L"c");
  frame_->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.m_hMenu), MAKELPARAM(0, 0));
  const auto state = [&menu](UINT position) {
    return menu.GetMenuState(position, MF_BYPOSITION) & (MF_GRAYED | MF_CHECKED);
  };
  EXPECT_EQ(state(0), static_cast<UINT>(MF_CHECKED));
  EXPECT_EQ(state(1), static_cast<UINT>(MF_GRAYED));
  EXPECT_EQ(state(3), static_cast<UINT>(MF_GRAYED)) << "nobody handles it";
}

// --- popup menus ---

class DrawnMenu : public CMenu {
 public:
  int measured = 0;
  int drawn = 0;
  void MeasureItem(MEASUREITEMSTRUCT* item) override {
    ++measured;
    item->itemWidth = 80;
    item->itemHeight = 22;
  }
  void DrawItem(DRAWITEMSTRUCT*) override { ++drawn; }
};

TEST_F(Commands, AnOwnerDrawnMenuMeasuresAndDrawsItself) {
  framework_test::showInFront(*frame_);
  DrawnMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_OWNERDRAW, kRangeFirst, L"one");
  menu.AppendMenu(MF_OWNERDRAW, kRangeLast, L"two");
  CPoint at(60, 60);
  frame_->ClientToScreen(&at);
  WindowScript script;
  script.then([&] { menu.TrackPopupMenu(TPM_RIGHTBUTTON, at.x, at.y, frame_); });
  script.waitFor("the items to be drawn", [&menu] { return menu.drawn >= 2; });
  script.key(VK_DOWN).key(VK_DOWN).key(VK_RETURN);
  script.waitFor("the command", [] { return !log().empty(); });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(menu.measured, 2);
  EXPECT_EQ(log(), (Log{"range 112"}));
}

// --- the loop ---

TEST_F(Commands, EveryWindowUpToTheMainOneIsAskedBeforeDispatch) {
  class Asking : public CStatic {
   public:
    BOOL PreTranslateMessage(MSG* message) override {
      if (message->message == WM_KEYDOWN) log().push_back("child");
      return message->wParam == VK_F2;
    }
  };
  Asking child;
  ASSERT_TRUE(child.Create(L"", WS_CHILD, {0, 0, 5, 5}, frame_, 7));
  AfxSetMainWnd(frame_);
  MSG taken = {child.m_hWnd, WM_KEYDOWN, VK_F2, 0, 0, {}};
  MSG passed = {child.m_hWnd, WM_KEYDOWN, VK_F3, 0, 0, {}};
  MSG elsewhere = {frame_->m_hWnd, WM_KEYDOWN, VK_F2, 0, 0, {}};
  EXPECT_TRUE(AfxPreTranslateMessage(&taken));
  EXPECT_FALSE(AfxPreTranslateMessage(&passed));
  EXPECT_FALSE(AfxPreTranslateMessage(&elsewhere));
  EXPECT_EQ(log(), (Log{"child", "child"}));
}

TEST_F(Commands, TheLoopEndsWithTheQuitCode) {
  ::PostQuitMessage(42);
  EXPECT_EQ(AfxRunMessageLoop(), 42);
}

TEST_F(Commands, TheMainWindowIsForgottenWithItsWindow) {
  auto* other = new CFrameWnd;
  other->Create(nullptr, L"");
  AfxSetMainWnd(other);
  EXPECT_EQ(AfxGetMainWnd(), other);
  other->DestroyWindow();
  EXPECT_EQ(AfxGetMainWnd(), nullptr);
}

}  // namespace
