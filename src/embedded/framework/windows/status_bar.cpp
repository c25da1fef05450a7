// Status bars over the system's control.
#include "platform/framework_resources.h"
#include "platform/framework_status_bar.h"

IMPLEMENT_DYNAMIC(CStatusBar, CControlBar)

BEGIN_MESSAGE_MAP(CStatusBar, CControlBar)
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

CStatusBar::~CStatusBar() { DestroyWindow(); }

BOOL CStatusBar::Create(CWnd* parent, DWORD style, UINT id) {
  m_dwStyle = style & CBRS_ALL;
  const DWORD control = (style & ~CBRS_ALL) | CCS_NOPARENTALIGN | CCS_NOMOVEY | CCS_NORESIZE;
  if (!CWnd::Create(STATUSCLASSNAMEW, nullptr, control, {0, 0, 0, 0}, parent, id)) return FALSE;
  SetOwner(parent);
  return TRUE;
}

BOOL CStatusBar::SetIndicators(const UINT* ids, int count) {
  if (count < 1) return FALSE;
  m_panes.assign(static_cast<std::size_t>(count), {});
  for (std::size_t i = 0; i < m_panes.size(); ++i) m_panes[i].id = ids[i];
  placePanes();
  return TRUE;
}

void CStatusBar::SetPaneWidth(int index, int width) {
  m_panes.at(static_cast<std::size_t>(index)).width = width;
  placePanes();
}

BOOL CStatusBar::SetPaneText(int index, const wchar_t* text) {
  const auto at = static_cast<std::size_t>(index);
  if (at >= m_panes.size()) return FALSE;
  if (m_panes[at].text == text) return TRUE;
  m_panes[at].text = text;
  return static_cast<BOOL>(
      SendMessage(SB_SETTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
}

CString CStatusBar::GetPaneText(int index) const {
  const auto at = static_cast<std::size_t>(index);
  return at < m_panes.size() ? m_panes[at].text : CString();
}

void CStatusBar::GetItemRect(int index, RECT* rect) const {
  SendMessage(SB_GETRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(rect));
}

CSize CStatusBar::CalcFixedLayout(BOOL stretch, BOOL horizontal) {
  constexpr int kRoom = 8;  // above and below the text, borders included
  CSize size = CControlBar::CalcFixedLayout(stretch, horizontal);
  const HDC dc = ::GetDC(m_hWnd);
  const HGDIOBJ old = ::SelectObject(dc, reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(dc, &metrics);
  ::SelectObject(dc, old);
  ::ReleaseDC(m_hWnd, dc);
  size.cy = metrics.tmHeight + kRoom;
  return size;
}

// The control counts right edges.
void CStatusBar::placePanes() {
  if (m_panes.empty()) return;
  CRect area;
  GetClientRect(area);
  std::vector<int> edges(m_panes.size());
  int edge = area.right;
  for (std::size_t i = m_panes.size(); i-- > 0;) {
    edges[i] = edge;
    edge -= m_panes[i].width;
  }
  SendMessage(SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void CStatusBar::OnSize(UINT, int, int) {
  Default();
  placePanes();
}

void CStatusBar::OnLButtonDown(UINT, CPoint point) {
  for (std::size_t i = 0; i < m_panes.size(); ++i) {
    CRect pane;
    GetItemRect(static_cast<int>(i), pane);
    if (m_panes[i].id == 0 || !pane.PtInRect(point)) continue;
    GetOwner()->SendMessage(WM_COMMAND, m_panes[i].id);
    return;
  }
}
