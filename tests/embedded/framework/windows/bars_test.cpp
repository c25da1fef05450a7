// Tool bars and docking: the resource, the buttons, the geometry of a bar at the bottom.
#include "embedded/framework/windows/kit.h"
#include "platform/framework_view.h"
#include "resources/resource_ids.h"
#include "windows/window_script.h"

namespace {

using framework_test::Log;
using framework_test::ModuleResources;
using framework_test::numbers;
using framework_test::rectInParent;
using framework_test::showInFront;

class BarFrame : public CFrameWnd {
 public:
  CToolBar bar;
  Log log;

 protected:
  int OnCreate(CREATESTRUCTW* create) {
    if (CFrameWnd::OnCreate(create) == -1) return -1;
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | CBRS_ALIGN_BOTTOM | CBRS_BORDER_TOP |
                             CBRS_BORDER_3D | CBRS_SIZE_FIXED;
    if (!bar.Create(this, kStyle) || !bar.LoadToolBar(IDR_TOOL_BAR)) return -1;
    bar.EnableDocking(CBRS_ALIGN_BOTTOM);
    EnableDocking(CBRS_ALIGN_BOTTOM);
    DockControlBar(&bar, AFX_IDW_DOCKBAR_BOTTOM);
    return 0;
  }
  void onNextPage() { log.push_back("next page"); }
  void onUpdateNextPage(CCmdUI* item) { item->Enable(enabled); }
  void onUpdateAuxiliary(CCmdUI* item) { item->SetCheck(1); }
  DECLARE_MESSAGE_MAP()

 public:
  BOOL enabled = TRUE;
};
BEGIN_MESSAGE_MAP(BarFrame, CFrameWnd)
ON_WM_CREATE()
ON_COMMAND(ID_NEXT_PAGE, onNextPage)
ON_UPDATE_COMMAND_UI(ID_NEXT_PAGE, onUpdateNextPage)
ON_UPDATE_COMMAND_UI(ID_AUXILIARY_BAR, onUpdateAuxiliary)
END_MESSAGE_MAP()

class PlainView : public CView {
  DECLARE_DYNCREATE(PlainView)
 protected:
  void OnDraw(CDC*) override {}
};
IMPLEMENT_DYNCREATE(PlainView, CView)

class Bars : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(resources_.loaded());
    frame_ = new BarFrame;
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(PlainView);
    ASSERT_TRUE(frame_->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, {50, 50, 550, 400}, nullptr,
                               nullptr, 0, &context));
    showInFront(*frame_);
  }
  void TearDown() override { frame_->DestroyWindow(); }

  bool isEnabled(UINT id) const { return frame_->bar.SendMessage(TB_ISBUTTONENABLED, id) != 0; }

  ModuleResources resources_;
  BarFrame* frame_ = nullptr;
};

TEST_F(Bars, TheResourceGivesTheButtonsAndTheirSize) {
  const CToolBar& bar = frame_->bar;
  ASSERT_EQ(bar.GetButtonCount(), 6);
  const UINT ids[] = {ID_DRAW_MODE,     ID_EDIT_MODE, ID_GRID,
                      ID_PREVIOUS_PAGE, ID_NEXT_PAGE, ID_AUXILIARY_BAR};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(bar.GetItemID(i), ids[i]);
  EXPECT_EQ(bar.CommandToIndex(ID_GRID), 2);
  EXPECT_EQ(bar.CommandToIndex(1), -1);
  CRect button;
  bar.GetItemRect(1, button);
  EXPECT_EQ(button.Width(), 32);
  EXPECT_EQ(button.Height(), 22);
}

TEST_F(Bars, AMissingResourceIsRefused) { EXPECT_FALSE(frame_->bar.LoadToolBar(4711)); }

TEST_F(Bars, ASeparatorTakesItsWidthAndTheOthersMoveOn) {
  CToolBar& bar = frame_->bar;
  bar.SetButtonInfo(0, ID_DRAW_MODE, TBBS_SEPARATOR, 45);
  bar.SetButtonInfo(1, ID_EDIT_MODE, TBBS_SEPARATOR, 45);
  bar.SetButtonInfo(2, ID_GRID, TBBS_SEPARATOR, 50);
  const int lefts[] = {0, 45, 90, 140, 172, 204};
  for (int i = 0; i < 6; ++i) {
    CRect item;
    bar.GetItemRect(i, item);
    EXPECT_EQ(item.left, lefts[i]) << i;
  }
  // Contents 236, margins 6 and borders 2 on either side.
  EXPECT_EQ(bar.CalcFixedLayout(FALSE, TRUE).cx, 252);
}

TEST_F(Bars, TheDockedBarReachesTwoPixelsBeyondItsStrip) {
  CRect client;
  frame_->GetClientRect(client);
  const CWnd* strip = frame_->GetDlgItem(static_cast<int>(AFX_IDW_DOCKBAR_BOTTOM));
  ASSERT_NE(strip, nullptr);
  EXPECT_EQ(numbers(rectInParent(*strip)),
            numbers({0, client.bottom - 28, client.right, client.bottom}));
  EXPECT_EQ(frame_->bar.GetParent(), strip);
  EXPECT_EQ(frame_->bar.GetOwner(), frame_);
  // Six buttons of 32, margins and borders of 8 at either side.
  EXPECT_EQ(numbers(rectInParent(frame_->bar)), numbers({-2, -2, 6 * 32 + 16 - 2, 30}));
}

TEST_F(Bars, TheClientPaneTakesWhatTheStripLeaves) {
  const CWnd* pane = frame_->GetDlgItem(static_cast<int>(AFX_IDW_PANE_FIRST));
  CRect client;
  frame_->GetClientRect(client);
  EXPECT_EQ(numbers(rectInParent(*pane)), numbers({0, 0, client.right, client.bottom - 28}));
  frame_->MoveWindow(50, 50, 400, 300);
  frame_->GetClientRect(client);
  EXPECT_EQ(numbers(rectInParent(*pane)), numbers({0, 0, client.right, client.bottom - 28}));
}

TEST_F(Bars, AHiddenBarGivesItsStripBack) {
  frame_->bar.ShowWindow(SW_HIDE);
  frame_->RecalcLayout();
  CRect client;
  frame_->GetClientRect(client);
  const CWnd* pane = frame_->GetDlgItem(static_cast<int>(AFX_IDW_PANE_FIRST));
  EXPECT_EQ(numbers(rectInParent(*pane)), numbers(client));
}

TEST_F(Bars, AClickOnAButtonReachesTheFrame) {
  CRect button;
  frame_->bar.GetItemRect(4, button);
  window_kit::WindowScript script;
  script.click(frame_->bar.m_hWnd, button.left + 10, button.top + 10);
  script.waitFor("the command", [this] { return !frame_->log.empty(); });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(frame_->log, (Log{"next page"}));
}

TEST_F(Bars, IdleTimeBringsTheButtonsUpToDate) {
  AfxSetMainWnd(frame_);
  frame_->bar.SetButtonStyle(5, TBBS_CHECKBOX);
  frame_->enabled = FALSE;
  AfxOnIdle();
  EXPECT_FALSE(isEnabled(ID_NEXT_PAGE));
  EXPECT_FALSE(isEnabled(ID_PREVIOUS_PAGE)) << "nobody handles it";
  EXPECT_TRUE(frame_->bar.SendMessage(TB_ISBUTTONCHECKED, ID_AUXILIARY_BAR));
  frame_->enabled = TRUE;
  AfxOnIdle();
  EXPECT_TRUE(isEnabled(ID_NEXT_PAGE));
}

}  // namespace
