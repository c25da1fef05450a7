// Views that scroll: when bars appear, where they lead, what is drawn.
#include "embedded/framework/windows/kit.h"
#include "platform/framework_view.h"
#include "windows/picture.h"

namespace {

constexpr COLORREF kMark = RGB(200, 30, 10);
constexpr std::uint32_t kMarkPixel = 0xC81E0A;

// Marks the surface point 300, 250 with a square of 10 pixels.
class MarkView : public CScrollView {
  DECLARE_DYNCREATE(MarkView)
 protected:
  void OnDraw(CDC* dc) override { dc->FillSolidRect(300, 250, 10, 10, kMark); }
};
IMPLEMENT_DYNCREATE(MarkView, CScrollView)

class ScrollView : public testing::Test {
 protected:
  void SetUp() override {
    frame_ = new CFrameWnd;
    ASSERT_TRUE(frame_->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, {40, 40, 440, 340}));
    view_ = new MarkView;
    ASSERT_TRUE(view_->Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE, {0, 0, 200, 150}, frame_,
                              AFX_IDW_PANE_FIRST + 1));
    framework_test::showInFront(*frame_);
  }
  void TearDown() override { frame_->DestroyWindow(); }

  bool has(DWORD bar) const { return (view_->GetStyle() & bar) != 0; }
  framework_test::Log position() const {
    const CPoint at = view_->GetDeviceScrollPosition();
    return {std::to_string(at.x), std::to_string(at.y)};
  }

  CFrameWnd* frame_ = nullptr;
  MarkView* view_ = nullptr;
};

TEST_F(ScrollView, ASurfaceThatFitsNeedsNoBars) {
  view_->SetScrollSizes(MM_TEXT, {200, 150});
  EXPECT_FALSE(has(WS_HSCROLL));
  EXPECT_FALSE(has(WS_VSCROLL));
}

TEST_F(ScrollView, OneBarMayCallForTheOther) {
  view_->SetScrollSizes(MM_TEXT, {195, 400});
  EXPECT_TRUE(has(WS_VSCROLL));
  EXPECT_TRUE(has(WS_HSCROLL)) << "the upright bar takes the room across";
}

TEST_F(ScrollView, BarsGoWithTheSurface) {
  view_->SetScrollSizes(MM_TEXT, {600, 500});
  EXPECT_TRUE(has(WS_HSCROLL));
  EXPECT_TRUE(has(WS_VSCROLL));
  view_->ScrollToPosition({100, 100});
  view_->SetScrollSizes(MM_TEXT, {100, 100});
  EXPECT_FALSE(has(WS_HSCROLL));
  EXPECT_FALSE(has(WS_VSCROLL));
  EXPECT_EQ(position(), (framework_test::Log{"0", "0"}));
}

TEST_F(ScrollView, PositionsStayOnTheSurface) {
  view_->SetScrollSizes(MM_TEXT, {600, 500});
  CRect client;
  view_->GetClientRect(client);
  view_->ScrollToPosition({10000, 10000});
  EXPECT_EQ(position(), (framework_test::Log{std::to_string(600 - client.right),
                                             std::to_string(500 - client.bottom)}));
  view_->ScrollToPosition({-5, -5});
  EXPECT_EQ(position(), (framework_test::Log{"0", "0"}));
}

TEST_F(ScrollView, LineAndPageStepsFollowTheGivenSizes) {
  view_->SetScrollSizes(MM_TEXT, {600, 500}, {60, 50}, {7, 9});
  view_->SendMessage(WM_VSCROLL, SB_LINEDOWN);
  view_->SendMessage(WM_HSCROLL, SB_PAGERIGHT);
  EXPECT_EQ(position(), (framework_test::Log{"60", "9"}));
  view_->SendMessage(WM_VSCROLL, SB_LINEUP);
  view_->SendMessage(WM_HSCROLL, SB_LINERIGHT);
  EXPECT_EQ(position(), (framework_test::Log{"67", "0"}));
}

TEST_F(ScrollView, WithoutSizesAStepIsATenth) {
  view_->SetScrollSizes(MM_TEXT, {600, 500});
  view_->SendMessage(WM_VSCROLL, SB_PAGEDOWN);
  view_->SendMessage(WM_HSCROLL, SB_LINERIGHT);
  EXPECT_EQ(position(), (framework_test::Log{"6", "50"}));
}

TEST_F(ScrollView, TheWheelMovesThreeLines) {
  view_->SetScrollSizes(MM_TEXT, {600, 500}, {60, 50}, {7, 9});
  view_->SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
  EXPECT_EQ(position(), (framework_test::Log{"0", "27"}));
}

TEST_F(ScrollView, DrawingMovesWithThePosition) {
  view_->SetScrollSizes(MM_TEXT, {600, 500});
  EXPECT_EQ(window_kit::pictureOf(view_->m_hWnd).count(kMarkPixel), 0);
  view_->ScrollToPosition({280, 230});
  const window_kit::Picture picture = window_kit::pictureOf(view_->m_hWnd);
  EXPECT_EQ(picture.at(20, 20), kMarkPixel);
  EXPECT_EQ(picture.at(29, 29), kMarkPixel);
  EXPECT_EQ(picture.count(kMarkPixel), 100);
}

}  // namespace
