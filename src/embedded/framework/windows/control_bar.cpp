// What all control bars share: notifications for the owner, place in the frame, margins.
#include "platform/framework_control_bar.h"
#include "platform/framework_frame.h"
#include "platform/framework_resources.h"

namespace {

constexpr int kBorder = 2;  // a line of light and one of shadow

}  // namespace

IMPLEMENT_DYNAMIC(CControlBar, CWnd)

BEGIN_MESSAGE_MAP(CControlBar, CWnd)
ON_WM_LBUTTONDOWN()
ON_MESSAGE(WM_SIZEPARENT, OnSizeParent)
ON_MESSAGE(WM_IDLEUPDATECMDUI, OnIdleUpdateCmdUI)
END_MESSAGE_MAP()

BOOL CControlBar::PreCreateWindow(CREATESTRUCTW& create) {
  if (!create.lpszClass) {
    create.lpszClass = AfxRegisterWndClass(0, ::LoadCursorW(nullptr, IDC_ARROW),
                                           ::GetSysColorBrush(COLOR_BTNFACE));
  }
  return CWnd::PreCreateWindow(create);
}

LRESULT CControlBar::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_COMMAND && message != WM_NOTIFY) {
    return CWnd::WindowProc(message, wParam, lParam);
  }
  LRESULT result = 0;
  if (OnWndMsg(message, wParam, lParam, &result)) return result;
  return GetOwner()->SendMessage(message, wParam, lParam);
}

void CControlBar::CalcInsideRect(CRect& rect, bool horizontal) const {
  if (m_dwStyle & CBRS_BORDER_LEFT) rect.left += kBorder;
  if (m_dwStyle & CBRS_BORDER_TOP) rect.top += kBorder;
  if (m_dwStyle & CBRS_BORDER_RIGHT) rect.right -= kBorder;
  if (m_dwStyle & CBRS_BORDER_BOTTOM) rect.bottom -= kBorder;
  // The margins turn with the bar.
  const int across = horizontal ? m_cxLeftBorder : m_cyTopBorder;
  const int acrossEnd = horizontal ? m_cxRightBorder : m_cyBottomBorder;
  const int along = horizontal ? m_cyTopBorder : m_cxLeftBorder;
  const int alongEnd = horizontal ? m_cyBottomBorder : m_cxRightBorder;
  rect.left += across;
  rect.right -= acrossEnd;
  rect.top += along;
  rect.bottom -= alongEnd;
}

CSize CControlBar::CalcFixedLayout(BOOL stretch, BOOL horizontal) {
  constexpr int kEndless = 32767;
  return {stretch && horizontal ? kEndless : 0, stretch && !horizontal ? kEndless : 0};
}

void CControlBar::OnLButtonDown(UINT, CPoint) { Default(); }

LRESULT CControlBar::OnSizeParent(WPARAM, LPARAM lParam) {
  auto* layout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
  if (!(GetStyle() & WS_VISIBLE)) return 0;
  const bool horizontal = (m_dwStyle & (CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT)) == 0;
  const CSize size = CalcFixedLayout(TRUE, horizontal);
  CRect own = layout->rect;
  switch (m_dwStyle & CBRS_ALIGN_ANY) {
    case CBRS_ALIGN_TOP: own.bottom = layout->rect.top = own.top + size.cy; break;
    case CBRS_ALIGN_BOTTOM: own.top = layout->rect.bottom = own.bottom - size.cy; break;
    case CBRS_ALIGN_LEFT: own.right = layout->rect.left = own.left + size.cx; break;
    case CBRS_ALIGN_RIGHT: own.left = layout->rect.right = own.right - size.cx; break;
    default: return 0;
  }
  AfxRepositionWindow(layout, m_hWnd, own);
  return 0;
}

LRESULT CControlBar::OnIdleUpdateCmdUI(WPARAM disableIfNoHandler, LPARAM) {
  auto* target = dynamic_cast<CFrameWnd*>(GetOwner());
  if (!target) target = GetParentFrame();
  if (target && (GetStyle() & WS_VISIBLE)) OnUpdateCmdUI(target, disableIfNoHandler != 0);
  return 0;
}
