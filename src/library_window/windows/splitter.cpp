#include "library_window/windows/splitter.h"

#include <vector>

#include "library_window/split_layout.h"
#include "platform/framework_window_dc.h"

namespace {

constexpr int kBarWidth = 4;

void layOutAxis(std::vector<CRowColInfo>& entries, int count, int available, int gap) {
  std::vector<PaneExtent> panes;
  for (int i = 0; i < count; ++i) {
    const CRowColInfo& one = entries[static_cast<std::size_t>(i)];
    panes.push_back({one.nMinSize, one.nIdealSize, one.nCurSize});
  }
  layOutPanes(panes, available, gap);
  for (std::size_t i = 0; i < panes.size(); ++i) {
    entries[i].nIdealSize = panes[i].ideal;
    entries[i].nCurSize = panes[i].current;
  }
}

// A pane with a sunken edge, or one that is a splitter, hides its edge beyond its place.
void placePane(AFX_SIZEPARENTPARAMS& layout, const CWnd& pane, CRect rect) {
  const bool edged = (pane.GetExStyle() & WS_EX_CLIENTEDGE) != 0;
  if (edged || pane.IsKindOf(RUNTIME_CLASS(CSplitterWnd))) rect.InflateRect(2, 2);
  AfxRepositionWindow(&layout, pane.m_hWnd, rect);
}

// A line of one pixel along the window's top.
void drawLine(CDC& dc, int y, int left, int right, int systemColour) {
  CPen pen(PS_SOLID, 1, ::GetSysColor(systemColour));
  CPen* before = dc.SelectObject(&pen);
  dc.MoveTo(left, y);
  dc.LineTo(right, y);
  dc.SelectObject(before);
}

}  // namespace

BEGIN_MESSAGE_MAP(CSplitterWndEx, CSplitterWnd)
ON_WM_MOUSEMOVE()
ON_WM_ERASEBKGND()
ON_WM_PAINT()
END_MESSAGE_MAP()

CSplitterWndEx::CSplitterWndEx() {
  m_cxSplitter = m_cySplitter = kBarWidth;
  m_cxSplitterGap = m_cySplitterGap = kBarWidth;
  m_cxBorder = m_cyBorder = 0;
}

BOOL CSplitterWndEx::CreateSplit(CWnd* parent, int rows, int columns) {
  m_nMaxRows = m_nMaxCols = 2;
  m_nRows = rows;
  m_nCols = columns;
  return CreateCommon(parent, {0, 0}, WS_CHILD | WS_VISIBLE, AFX_IDW_PANE_FIRST);
}

void CSplitterWndEx::SetColumnWidths(int first, int second) {
  const int widths[] = {first, second};
  for (int column = 0; column < 2; ++column) {
    int current = 0;
    int least = 0;
    GetColumnInfo(column, current, least);
    SetColumnInfo(column, widths[column], least);
  }
  RecalcLayout();
}

void CSplitterWndEx::GetInsideRect(CRect& rect) const {
  CSplitterWnd::GetInsideRect(rect);
  rect.top += m_topMargin;
}

void CSplitterWndEx::RecalcLayout() {
  if (!m_hWnd || m_pColInfo.empty()) return;
  CRect inside;
  GetInsideRect(inside);
  layOutAxis(m_pColInfo, m_nCols, inside.Width(), m_cxSplitterGap);
  layOutAxis(m_pRowInfo, m_nRows, inside.Height(), m_cySplitterGap);

  AFX_SIZEPARENTPARAMS layout = {::BeginDeferWindowPos((m_nCols + 1) * (m_nRows + 1) + 1), {}};
  int y = inside.top;
  for (int row = 0; row < m_nRows; ++row) {
    const int height = m_pRowInfo[static_cast<std::size_t>(row)].nCurSize;
    int x = inside.left;
    for (int column = 0; column < m_nCols; ++column) {
      const int width = m_pColInfo[static_cast<std::size_t>(column)].nCurSize;
      const CWnd* pane = GetPane(row, column);
      if (pane) placePane(layout, *pane, {x, y, x + width, y + height});
      x += width + m_cxSplitterGap;
    }
    y += height + m_cySplitterGap;
  }
  if (layout.hDWP) ::EndDeferWindowPos(layout.hDWP);
  DrawAllSplitBars(nullptr, inside.right, inside.bottom);
}

// --- drawing ---

void CSplitterWndEx::OnDrawSplitter(CDC* dc, ESplitType type, const CRect& rect) {
  if (!dc) {
    RedrawWindow(rect, nullptr, RDW_INVALIDATE | RDW_NOCHILDREN);
    return;
  }
  if (type == splitBorder) return;  // panes have none
  CRect rest = rect;
  if (type == splitBox) {
    dc->Draw3dRect(rest, ::GetSysColor(COLOR_BTNFACE), ::GetSysColor(COLOR_WINDOWFRAME));
    rest.DeflateRect(1, 1);
    dc->Draw3dRect(rest, ::GetSysColor(COLOR_BTNHIGHLIGHT), ::GetSysColor(COLOR_BTNSHADOW));
    rest.DeflateRect(1, 1);
  }
  dc->FillSolidRect(rest, ::GetSysColor(COLOR_BTNFACE));
}

void CSplitterWndEx::OnInvertTracker(const CRect& rect) {
  CDC* dc = GetDC();
  const HGDIOBJ before = ::SelectObject(*dc, ::GetStockObject(WHITE_BRUSH));
  dc->PatBlt(rect.left, rect.top, rect.Width(), rect.Height(), PATINVERT);
  ::SelectObject(*dc, before);
  ReleaseDC(dc);
}

// Panes cover the rest.
BOOL CSplitterWndEx::OnEraseBkgnd(CDC* dc) {
  CRect strip;
  GetClientRect(strip);
  strip.DeflateRect(m_cxBorder, m_cyBorder);
  strip.bottom = strip.top + m_topMargin;
  dc->FillSolidRect(strip, ::GetSysColor(COLOR_BTNFACE));
  return TRUE;
}

void CSplitterWndEx::OnPaint() {
  CSplitterWnd::OnPaint();
  if (!m_drawTopLine) return;
  CRect client;
  GetClientRect(client);
  CClientDC dc(this);
  drawLine(dc, client.top, client.left, client.right, COLOR_BTNSHADOW);
  drawLine(dc, client.top + 1, client.left, client.right, COLOR_BTNHIGHLIGHT);
}
