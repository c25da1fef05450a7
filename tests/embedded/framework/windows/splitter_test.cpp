// Splitters with real panes: geometry, moving a bar with the mouse, drawing.
#include "embedded/framework/windows/kit.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_splitter.h"
#include "platform/framework_view.h"
#include "windows/picture.h"
#include "windows/window_script.h"

namespace {

using framework_test::numbers;
using framework_test::rectInParent;
using window_kit::WindowScript;

class PaneView : public CView {
  DECLARE_DYNCREATE(PaneView)
 protected:
  void OnDraw(CDC*) override {}
};
IMPLEMENT_DYNCREATE(PaneView, CView)

// Two panes beside each other; the default border is 2, the gap 7 pixels.
class SplitFrame : public CFrameWnd {
 public:
  CSplitterWnd splitter;

 protected:
  BOOL OnCreateClient(CREATESTRUCTW*, CCreateContext* context) override {
    return splitter.CreateStatic(this, 1, 2) &&
           splitter.CreateView(0, 0, RUNTIME_CLASS(PaneView), {100, 0}, context) &&
           splitter.CreateView(0, 1, RUNTIME_CLASS(PaneView), {50, 0}, context);
  }
};

class Splitter : public testing::Test {
 protected:
  void SetUp() override {
    frame_ = new SplitFrame;
    ASSERT_TRUE(frame_->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, {60, 60, 460, 300}));
    framework_test::showInFront(*frame_);
    splitter()->GetClientRect(client_);
  }
  void TearDown() override { frame_->DestroyWindow(); }

  CSplitterWnd* splitter() { return &frame_->splitter; }
  CRect pane(int column) { return rectInParent(*splitter()->GetPane(0, column)); }

  SplitFrame* frame_ = nullptr;
  CRect client_;
};

TEST_F(Splitter, TheLastPaneTakesWhatRemains) {
  EXPECT_EQ(numbers(pane(0)), numbers({2, 2, 102, client_.bottom - 2}));
  EXPECT_EQ(numbers(pane(1)), numbers({109, 2, client_.right - 2, client_.bottom - 2}));
}

TEST_F(Splitter, NewSizesTakeEffectWithTheNextLayOut) {
  splitter()->SetColumnInfo(0, 150, 20);
  EXPECT_EQ(pane(0).Width(), 100);
  splitter()->RecalcLayout();
  int current = 0;
  int minimum = 0;
  splitter()->GetColumnInfo(0, current, minimum);
  EXPECT_EQ(current, 150);
  EXPECT_EQ(minimum, 20);
  EXPECT_EQ(pane(0).Width(), 150);
}

TEST_F(Splitter, PanesFollowTheFramesSize) {
  frame_->MoveWindow(60, 60, 300, 200);
  splitter()->GetClientRect(client_);
  EXPECT_EQ(pane(0).Width(), 100);
  EXPECT_EQ(pane(1).right, client_.right - 2);
}

TEST_F(Splitter, APlaceIsFilledOnce) {
  EXPECT_FALSE(splitter()->CreateView(0, 0, RUNTIME_CLASS(PaneView), {1, 1}, nullptr));
}

TEST_F(Splitter, ABadIndexThrows) {
  try {
    splitter()->SetColumnInfo(2, 10, 10);
    FAIL() << "no exception";
  } catch (CException* exception) {
    exception->Delete();
  }
}

TEST_F(Splitter, ADraggedBarMovesThePanes) {
  const HWND window = splitter()->m_hWnd;
  EXPECT_EQ(WindowScript().drag(window, {105, 60}, {165, 60}).run(), "");
  EXPECT_EQ(pane(0).Width(), 160);
  EXPECT_EQ(pane(1).left, 169);
}

TEST_F(Splitter, ABarStaysInside) {
  const HWND window = splitter()->m_hWnd;
  EXPECT_EQ(WindowScript().drag(window, {105, 60}, {client_.right + 40, 60}).run(), "");
  EXPECT_EQ(pane(1).Width(), 0);
  EXPECT_EQ(pane(0).right, client_.right - 2 - 5) << "a hidden pane's bar still leaves its mark";
}

TEST_F(Splitter, EscLeavesThePanesAndThePictureAsTheyWere) {
  const HWND window = splitter()->m_hWnd;
  const window_kit::Picture before = window_kit::pictureOf(window);
  WindowScript script;
  script.move(window, 105, 60).press();
  script.waitFor("the capture", [window] { return ::GetCapture() == window; });
  script.move(window, 200, 60).key(VK_ESCAPE);
  script.waitFor("the end", [] { return ::GetCapture() == nullptr; }).release();
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(pane(0).Width(), 100);
  const window_kit::Picture after = window_kit::pictureOf(window);
  int different = 0;
  for (int y = 0; y < before.height(); ++y) {
    for (int x = 0; x < before.width(); ++x) different += before.at(x, y) != after.at(x, y) ? 1 : 0;
  }
  EXPECT_EQ(different, 0);
}

}  // namespace
