// The strips at a frame's edges and the bars in them.
#include <algorithm>

#include "platform/framework_control_bar.h"

namespace {

constexpr int kOverlap = 2;  // a docked bar's border lies outside of the strip

bool isHorizontal(DWORD style) { return (style & (CBRS_ALIGN_TOP | CBRS_ALIGN_BOTTOM)) != 0; }

}  // namespace

IMPLEMENT_DYNAMIC(CDockBar, CControlBar)

BEGIN_MESSAGE_MAP(CDockBar, CControlBar)
ON_WM_DESTROY()
ON_MESSAGE(WM_SIZEPARENT, OnSizeParent)
END_MESSAGE_MAP()

BOOL CDockBar::Create(CWnd* frame, DWORD style, UINT id) {
  m_dwStyle = style & CBRS_ALL;
  m_cxLeftBorder = m_cxRightBorder = m_cyTopBorder = m_cyBottomBorder = 0;
  return CWnd::Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                      {0, 0, 0, 0}, frame, id);
}

void CDockBar::DockControlBar(CControlBar* bar) {
  if (bar->m_pDockBar == this) return;
  if (bar->m_pDockBar) bar->m_pDockBar->RemoveControlBar(bar);
  m_bars.push_back(bar);
  bar->m_pDockBar = this;
  bar->SetBarStyle((bar->GetBarStyle() & ~CBRS_ALIGN_ANY) | (m_dwStyle & CBRS_ALIGN_ANY) |
                   CBRS_BORDER_ANY);
  bar->SetParent(this);
  placeBars();
}

void CDockBar::RemoveControlBar(CControlBar* bar) {
  std::erase(m_bars, bar);
  bar->m_pDockBar = nullptr;
}

CSize CDockBar::CalcFixedLayout(BOOL stretch, BOOL horizontal) {
  CSize size = CControlBar::CalcFixedLayout(stretch, horizontal);
  for (CControlBar* bar : m_bars) {
    if (!(bar->GetStyle() & WS_VISIBLE)) continue;
    const CSize wanted = bar->CalcFixedLayout(FALSE, horizontal);
    if (horizontal) {
      size.cy = std::max(size.cy, wanted.cy - 2 * kOverlap);
    } else {
      size.cx = std::max(size.cx, wanted.cx - 2 * kOverlap);
    }
  }
  return size;
}

// Bar after bar from the strip's beginning; neighbours share their borders.
void CDockBar::placeBars() {
  const bool horizontal = isHorizontal(m_dwStyle);
  CPoint at(-kOverlap, -kOverlap);
  for (CControlBar* bar : m_bars) {
    if (!(bar->GetStyle() & WS_VISIBLE)) continue;
    const CSize size = bar->CalcFixedLayout(FALSE, horizontal);
    const CRect rect(at.x, at.y, at.x + size.cx, at.y + size.cy);
    AfxRepositionWindow(nullptr, bar->m_hWnd, rect);
    if (horizontal) {
      at.Offset(size.cx - kOverlap, 0);
    } else {
      at.Offset(0, size.cy - kOverlap);
    }
  }
}

LRESULT CDockBar::OnSizeParent(WPARAM wParam, LPARAM lParam) {
  const LRESULT result = CControlBar::OnSizeParent(wParam, lParam);
  placeBars();
  return result;
}

void CDockBar::OnDestroy() {
  for (CControlBar* bar : m_bars) bar->m_pDockBar = nullptr;
  m_bars.clear();
  Default();
}
