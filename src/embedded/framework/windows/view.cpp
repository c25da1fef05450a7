// Views, and views that scroll.
#include <algorithm>

#include "platform/framework_frame.h"
#include "platform/framework_resources.h"
#include "platform/framework_view.h"
#include "platform/framework_window_dc.h"

IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_WM_PAINT()
ON_WM_DESTROY()
ON_WM_MOUSEACTIVATE()
ON_MESSAGE(WM_INITIALUPDATE, OnInitialUpdateMessage)
END_MESSAGE_MAP()

CView::~CView() {
  if (m_hWnd) CWnd::DestroyWindow();
}

BOOL CView::PreCreateWindow(CREATESTRUCTW& create) {
  if (!create.lpszClass) {
    create.lpszClass =
        AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, ::LoadCursorW(nullptr, IDC_ARROW),
                            ::GetSysColorBrush(COLOR_WINDOW));
  }
  // A border is drawn sunken.
  if (create.style & WS_BORDER) {
    create.style &= ~WS_BORDER;
    create.dwExStyle |= WS_EX_CLIENTEDGE;
  }
  return CWnd::PreCreateWindow(create);
}

void CView::PostNcDestroy() { delete this; }

void CView::OnInitialUpdate() { Invalidate(); }
LRESULT CView::OnInitialUpdateMessage(WPARAM, LPARAM) {
  OnInitialUpdate();
  return 0;
}

void CView::OnPaint() {
  CPaintDC dc(this);
  OnPrepareDC(&dc);
  OnDraw(&dc);
}

void CView::OnDestroy() {
  CFrameWnd* frame = GetParentFrame();
  if (frame && frame->GetActiveView() == this) frame->SetActiveView(nullptr, FALSE);
  Default();
}

void CView::OnActivateView(BOOL activate, CView*, CView*) {
  const HWND top = ::GetAncestor(m_hWnd, GA_ROOT);
  if (activate && ::GetActiveWindow() == top) SetFocus();
}

int CView::OnMouseActivate(CWnd*, UINT, UINT) {
  const int answer = static_cast<int>(Default());
  CFrameWnd* frame = GetParentFrame();
  if (answer == MA_NOACTIVATE || answer == MA_NOACTIVATEANDEAT || !frame) return answer;
  const HWND focus = ::GetFocus();
  if (frame->GetActiveView() != this) {
    frame->SetActiveView(this);
  } else if (focus != m_hWnd && !::IsChild(m_hWnd, focus)) {
    OnActivateView(TRUE, this, this);
  }
  return answer;
}

// --- scrolling ---

IMPLEMENT_DYNAMIC(CScrollView, CView)

BEGIN_MESSAGE_MAP(CScrollView, CView)
ON_WM_SIZE()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

void CScrollView::SetScrollSizes(int, SIZE total, SIZE page, SIZE line) {
  const auto orTenth = [](int given, int whole) { return given > 0 ? given : whole / 10; };
  const CSize pageSize(orTenth(page.cx, total.cx), orTenth(page.cy, total.cy));
  const CSize lineSize(orTenth(line.cx, pageSize.cx), orTenth(line.cy, pageSize.cy));
  const bool same = total.cx == m_total.cx && total.cy == m_total.cy;
  m_total = total;
  m_page = pageSize;
  m_line = lineSize;
  // A view may set its sizes at each painting; only new ones move the bars.
  if (!same) updateBars();
}

CPoint CScrollView::GetDeviceScrollPosition() const {
  return {GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT)};
}

void CScrollView::OnPrepareDC(CDC* dc) {
  const CPoint corner = GetDeviceScrollPosition();
  dc->SetViewportOrg(-corner.x, -corner.y);
}

void CScrollView::OnSize(UINT, int, int) {
  Default();
  updateBars();
}

void CScrollView::updateBars() {
  if (!m_hWnd || m_bInsideUpdate) return;
  m_bInsideUpdate = true;
  const CSize bar(::GetSystemMetrics(SM_CXVSCROLL), ::GetSystemMetrics(SM_CYHSCROLL));
  CRect client;
  GetClientRect(client);
  CSize room(client.right + (GetStyle() & WS_VSCROLL ? bar.cx : 0),
             client.bottom + (GetStyle() & WS_HSCROLL ? bar.cy : 0));
  // A bar takes room from the other direction, which may then need one too.
  bool across = m_total.cx > room.cx;
  const bool down = m_total.cy > room.cy - (across ? bar.cy : 0);
  across = m_total.cx > room.cx - (down ? bar.cx : 0);
  room = CSize(room.cx - (down ? bar.cx : 0), room.cy - (across ? bar.cy : 0));

  const CPoint before = GetDeviceScrollPosition();
  ::ShowScrollBar(m_hWnd, SB_HORZ, across);
  ::ShowScrollBar(m_hWnd, SB_VERT, down);
  const auto set = [this](int which, bool shown, int total, int page) {
    SCROLLINFO info{};
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMax = shown ? total - 1 : 0;
    info.nPage = static_cast<UINT>(shown ? std::max(page, 0) : 0);
    SetScrollInfo(which, &info);
    if (!shown) ::SetScrollPos(m_hWnd, which, 0, TRUE);
  };
  set(SB_HORZ, across, m_total.cx, room.cx);
  set(SB_VERT, down, m_total.cy, room.cy);
  const CPoint after = GetDeviceScrollPosition();
  if (before.x != after.x || before.y != after.y) Invalidate();
  m_bInsideUpdate = false;
}

void CScrollView::ScrollToPosition(POINT position) {
  const CPoint before = GetDeviceScrollPosition();
  const auto set = [this](int which, int to) {
    SCROLLINFO info{};
    info.fMask = SIF_POS;
    info.nPos = to;
    SetScrollInfo(which, &info);
  };
  if (GetStyle() & WS_HSCROLL) set(SB_HORZ, position.x);
  if (GetStyle() & WS_VSCROLL) set(SB_VERT, position.y);
  const CPoint after = GetDeviceScrollPosition();
  if (before.x == after.x && before.y == after.y) return;
  ::ScrollWindow(m_hWnd, before.x - after.x, before.y - after.y, nullptr, nullptr);
  UpdateWindow();
}

void CScrollView::scrollBy(int bar, UINT code) {
  SCROLLINFO info{};
  GetScrollInfo(bar, &info);
  const bool across = bar == SB_HORZ;
  const int line = across ? m_line.cx : m_line.cy;
  const int page = across ? m_page.cx : m_page.cy;
  int to = info.nPos;
  switch (code) {
    case SB_LINEUP: to -= line; break;
    case SB_LINEDOWN: to += line; break;
    case SB_PAGEUP: to -= page; break;
    case SB_PAGEDOWN: to += page; break;
    case SB_TOP: to = info.nMin; break;
    case SB_BOTTOM: to = info.nMax; break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: to = info.nTrackPos; break;
    default: return;
  }
  CPoint position = GetDeviceScrollPosition();
  (across ? position.x : position.y) = to;
  ScrollToPosition(position);
}

void CScrollView::OnHScroll(UINT code, UINT, CWnd*) { scrollBy(SB_HORZ, code); }
void CScrollView::OnVScroll(UINT code, UINT, CWnd*) { scrollBy(SB_VERT, code); }

BOOL CScrollView::OnMouseWheel(UINT, short delta, CPoint) {
  constexpr int kLinesPerNotch = 3;
  CPoint position = GetDeviceScrollPosition();
  position.y -= delta * kLinesPerNotch * m_line.cy / WHEEL_DELTA;
  ScrollToPosition(position);
  return TRUE;
}
