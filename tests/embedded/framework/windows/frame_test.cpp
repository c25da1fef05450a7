// Frames and windows: the order of messages, the end of objects, exceptions in handlers.
#include "embedded/framework/windows/kit.h"
#include "platform/framework_controls.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_temporary.h"
#include "platform/framework_view.h"
#include "platform/framework_window_dc.h"

namespace {

using framework_test::BoxLog;
using framework_test::Log;
using framework_test::LoggedFrame;
using framework_test::showInFront;

constexpr RECT kPlace = {100, 80, 500, 380};

LoggedFrame* makeFrame(Log& log) {
  auto* frame = new LoggedFrame(log);
  frame->Create(nullptr, L"框", WS_OVERLAPPEDWINDOW, kPlace);
  return frame;
}

TEST(FrameMessages, CreationReachesTheObjectFromItsFirstMessage) {
  Log log;
  LoggedFrame* frame = makeFrame(log);
  EXPECT_EQ(log, (Log{"NCCREATE", "CREATE"}));
  frame->DestroyWindow();
}

TEST(FrameMessages, ShowingSizesThenTakesTheFocus) {
  Log log;
  LoggedFrame* frame = makeFrame(log);
  log.clear();
  showInFront(*frame);
  EXPECT_EQ(log, (Log{"SHOWWINDOW", "SETFOCUS", "SIZE"}));
  frame->DestroyWindow();
}

TEST(FrameMessages, DestructionEndsWithTheObject) {
  Log log;
  LoggedFrame* frame = makeFrame(log);
  log.clear();
  frame->DestroyWindow();
  EXPECT_EQ(log, (Log{"DESTROY", "NCDESTROY", "PostNcDestroy"}));
}

TEST(FrameMessages, ClosingDestroysUnlessHandled) {
  Log log;
  LoggedFrame* frame = makeFrame(log);
  log.clear();
  frame->SendMessage(WM_CLOSE);
  EXPECT_EQ(log, (Log{"CLOSE", "DESTROY", "NCDESTROY", "PostNcDestroy"}));
}

TEST(FrameMessages, TheFocusGoesFromFrameToFrame) {
  Log firstLog;
  Log secondLog;
  LoggedFrame* first = makeFrame(firstLog);
  LoggedFrame* second = makeFrame(secondLog);
  showInFront(*first);
  showInFront(*second);
  firstLog.clear();
  secondLog.clear();
  first->SetFocus();
  EXPECT_EQ(secondLog, (Log{"KILLFOCUS"}));
  EXPECT_EQ(firstLog, (Log{"SETFOCUS"}));
  second->DestroyWindow();
  first->DestroyWindow();
}

// --- objects and handles ---

TEST(WindowObjects, OnePermanentObjectStandsForAHandle) {
  Log log;
  LoggedFrame* frame = makeFrame(log);
  EXPECT_EQ(CWnd::FromHandlePermanent(frame->m_hWnd), frame);
  EXPECT_EQ(CWnd::FromHandle(frame->m_hWnd), frame);
  const HWND handle = frame->m_hWnd;
  frame->DestroyWindow();
  EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
}

TEST(WindowObjects, ForeignHandlesGetOneTemporaryObjectUntilIdleTime) {
  const HWND foreign = ::CreateWindowExW(0, L"STATIC", L"fremd", WS_POPUP, 0, 0, 10, 10, nullptr,
                                         nullptr, ::GetModuleHandleW(nullptr), nullptr);
  CWnd* temporary = CWnd::FromHandle(foreign);
  EXPECT_EQ(temporary->m_hWnd, foreign);
  EXPECT_EQ(CWnd::FromHandle(foreign), temporary);
  EXPECT_EQ(CWnd::FromHandlePermanent(foreign), nullptr);
  AfxOnIdle();
  EXPECT_TRUE(::IsWindow(foreign)) << "temporary objects own nothing";
  EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
  ::DestroyWindow(foreign);
}

TEST(WindowObjects, LockedTemporaryObjectsStay) {
  const HWND foreign = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr,
                                         nullptr, ::GetModuleHandleW(nullptr), nullptr);
  AfxLockTempMaps();
  const CWnd* temporary = CWnd::FromHandle(foreign);
  AfxOnIdle();
  EXPECT_EQ(temporary->m_hWnd, foreign);
  EXPECT_FALSE(AfxUnlockTempMaps());
  ::DestroyWindow(foreign);
}

TEST(WindowObjects, ASubclassedControlHearsItsMessagesAndIsLetGo) {
  class CountingEdit : public CEdit {
   public:
    int messages = 0;

   protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
      ++messages;
      return CEdit::WindowProc(message, wParam, lParam);
    }
  };
  Log log;
  LoggedFrame* frame = makeFrame(log);
  const HWND control =
      ::CreateWindowExW(0, L"EDIT", L"alt", WS_CHILD, 0, 0, 50, 20, frame->m_hWnd,
                        reinterpret_cast<HMENU>(7), ::GetModuleHandleW(nullptr), nullptr);
  CountingEdit edit;
  ASSERT_TRUE(edit.SubclassDlgItem(7, frame));
  edit.SetWindowText(L"neu");
  CString text;
  edit.GetWindowText(text);
  EXPECT_EQ(text, L"neu") << "the control's own procedure still works";
  EXPECT_GT(edit.messages, 0);
  EXPECT_EQ(edit.Detach(), control);
  const int before = edit.messages;
  ::SetWindowTextW(control, L"x");
  EXPECT_EQ(edit.messages, before);
  frame->DestroyWindow();
}

TEST(WindowObjects, ARefusedCreationTellsPostNcDestroy) {
  class Refusing : public CWnd {
   public:
    bool told = false;
    BOOL PreCreateWindow(CREATESTRUCTW&) override { return FALSE; }
    void PostNcDestroy() override { told = true; }
  };
  Refusing window;
  EXPECT_FALSE(window.CreateEx(0, nullptr, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr));
  EXPECT_TRUE(window.told);
  EXPECT_EQ(window.m_hWnd, nullptr);
}

TEST(WindowObjects, TheOwnerIsTheParentUnlessSet) {
  Log log;
  LoggedFrame* frame = makeFrame(log);
  LoggedFrame* other = makeFrame(log);
  CStatic child;
  ASSERT_TRUE(child.Create(L"", WS_CHILD, {0, 0, 5, 5}, frame, 3));
  EXPECT_EQ(child.GetOwner(), frame);
  child.SetOwner(other);
  EXPECT_EQ(child.GetOwner(), other);
  EXPECT_EQ(child.GetParentFrame(), frame);
  other->DestroyWindow();
  frame->DestroyWindow();
}

// --- exceptions ---

class FailingFrame : public CFrameWnd {
 public:
  int paints = 0;
  bool failing = true;

 protected:
  LRESULT onAsked(WPARAM, LPARAM) { AfxThrowInvalidArgException(); }
  void OnPaint() {
    ++paints;
    if (failing) AfxThrowInvalidArgException();
    CPaintDC dc(this);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(FailingFrame, CFrameWnd)
ON_WM_PAINT()
ON_MESSAGE(WM_APP, onAsked)
END_MESSAGE_MAP()

TEST(WindowExceptions, AHandlerThatThrowsIsReportedAndTheWindowGoesOn) {
  BoxLog boxes;
  auto* frame = new FailingFrame;
  frame->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, kPlace);
  EXPECT_EQ(frame->SendMessage(WM_APP), 0);
  EXPECT_EQ(boxes.texts, (std::vector<std::wstring>{L"遇到不适当的参数。"}));
  EXPECT_EQ(frame->SendMessage(WM_APP), 0);
  EXPECT_EQ(boxes.texts.size(), 2U);
  frame->DestroyWindow();
}

TEST(WindowExceptions, AFailingPaintIsValidatedAndReportedOnce) {
  BoxLog boxes;
  auto* frame = new FailingFrame;
  frame->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, kPlace);
  showInFront(*frame);
  const int painted = frame->paints;
  EXPECT_GT(painted, 0);
  EXPECT_FALSE(::GetUpdateRect(frame->m_hWnd, nullptr, FALSE)) << "the area is validated";
  frame->Invalidate();
  frame->UpdateWindow();
  EXPECT_EQ(frame->paints, painted + 1);
  EXPECT_EQ(boxes.texts.size(), 1U);
  frame->failing = false;  // after a good paint a new failure is told again
  frame->Invalidate();
  frame->UpdateWindow();
  frame->failing = true;
  frame->Invalidate();
  frame->UpdateWindow();
  EXPECT_EQ(boxes.texts.size(), 2U);
  frame->DestroyWindow();
}

// --- views ---

class PlainView : public CView {
  DECLARE_DYNCREATE(PlainView)
 public:
  static inline int drawn = 0;
  static inline int initial = 0;

 protected:
  void OnDraw(CDC*) override { ++drawn; }
  void OnInitialUpdate() override { ++initial; }
};
IMPLEMENT_DYNCREATE(PlainView, CView)

TEST(Frames, MakeTheContextsViewAsTheirClient) {
  PlainView::drawn = PlainView::initial = 0;
  auto* frame = new CFrameWnd;
  CCreateContext context;
  context.m_pNewViewClass = RUNTIME_CLASS(PlainView);
  ASSERT_TRUE(
      frame->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, kPlace, nullptr, nullptr, 0, &context));
  const CWnd* view = frame->GetDlgItem(static_cast<int>(AFX_IDW_PANE_FIRST));
  ASSERT_NE(view, nullptr);
  EXPECT_TRUE(view->IsKindOf(RUNTIME_CLASS(PlainView)));
  EXPECT_EQ(view->GetParentFrame(), frame);
  frame->InitialUpdateFrame();
  showInFront(*frame);
  EXPECT_EQ(PlainView::initial, 1);
  EXPECT_GT(PlainView::drawn, 0);
  CRect client;
  frame->GetClientRect(client);
  EXPECT_EQ(framework_test::rectInParent(*view), client);
  frame->DestroyWindow();
}

TEST(Frames, AClassThatIsNoViewIsRefused) {
  auto* frame = new CFrameWnd;
  CCreateContext context;
  context.m_pNewViewClass = RUNTIME_CLASS(CGdiObject);
  EXPECT_FALSE(
      frame->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, kPlace, nullptr, nullptr, 0, &context));
}

}  // namespace
