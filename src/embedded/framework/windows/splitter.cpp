// Splitters: panes, lay-out, drawing. Moving a bar with the mouse stands in splitter_tracking.cpp.
#include <algorithm>

#include "embedded/framework/splitter_layout.h"
#include "platform/framework_dc.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_frame.h"
#include "platform/framework_splitter.h"
#include "platform/framework_view.h"
#include "platform/framework_window_dc.h"

namespace {

constexpr int kMaxPanes = 16;  // in one direction; ids go by row and column

CRowColInfo& entryAt(std::vector<CRowColInfo>& entries, int index) {
  if (index < 0 || index >= static_cast<int>(entries.size())) AfxThrowInvalidArgException();
  return entries[static_cast<std::size_t>(index)];
}
const CRowColInfo& entryAt(const std::vector<CRowColInfo>& entries, int index) {
  return entryAt(const_cast<std::vector<CRowColInfo>&>(entries), index);
}

void layoutAxis(std::vector<CRowColInfo>& entries, int size, int gap) {
  std::vector<framework::SplitterEntry> plain;
  for (const CRowColInfo& one : entries) plain.push_back({one.nMinSize, one.nIdealSize, 0});
  framework::layoutSplitterAxis(plain, size, gap);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    entries[i].nIdealSize = plain[i].ideal;
    entries[i].nCurSize = plain[i].current;
  }
}

}  // namespace

IMPLEMENT_DYNAMIC(CSplitterWnd, CWnd)

BEGIN_MESSAGE_MAP(CSplitterWnd, CWnd)
ON_WM_PAINT()
ON_WM_SIZE()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_KEYDOWN()
ON_WM_CAPTURECHANGED()
ON_WM_SETCURSOR()
END_MESSAGE_MAP()

CSplitterWnd::CSplitterWnd() = default;

// --- making ---

BOOL CSplitterWnd::CreateStatic(CWnd* parent, int rows, int columns, DWORD style, UINT id) {
  if (rows < 1 || rows > kMaxPanes || columns < 1 || columns > kMaxPanes) return FALSE;
  m_nRows = m_nMaxRows = rows;
  m_nCols = m_nMaxCols = columns;
  return CreateCommon(parent, {0, 0}, style, id);
}

BOOL CSplitterWnd::CreateCommon(CWnd* parent, SIZE minimum, DWORD style, UINT id) {
  m_pColInfo.assign(static_cast<std::size_t>(m_nMaxCols), {minimum.cx, minimum.cx, 0});
  m_pRowInfo.assign(static_cast<std::size_t>(m_nMaxRows), {minimum.cy, minimum.cy, 0});
  return CWnd::Create(nullptr, nullptr, (style & ~(WS_HSCROLL | WS_VSCROLL)) | WS_CLIPCHILDREN,
                      {0, 0, 0, 0}, parent, id);
}

BOOL CSplitterWnd::CreateView(int row, int column, CRuntimeClass* viewClass, SIZE size,
                              CCreateContext* context) {
  if (::GetDlgItem(m_hWnd, IdFromRowCol(row, column))) return FALSE;
  CRowColInfo& columnInfo = entryAt(m_pColInfo, column);
  CRowColInfo& rowInfo = entryAt(m_pRowInfo, row);
  columnInfo.nIdealSize = size.cx;
  rowInfo.nIdealSize = size.cy;
  CObject* made = viewClass->CreateObject();
  auto* pane = dynamic_cast<CWnd*>(made);
  if (!pane) {
    delete made;
    return FALSE;
  }
  const RECT rect = {0, 0, size.cx, size.cy};
  const auto id = static_cast<UINT>(IdFromRowCol(row, column));
  // A pane whose window isn't made has deleted itself.
  return pane->Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE, rect, this, id, context);
}

// --- panes ---

int CSplitterWnd::IdFromRowCol(int row, int column) const {
  return static_cast<int>(AFX_IDW_PANE_FIRST) + row * kMaxPanes + column;
}
CWnd* CSplitterWnd::GetPane(int row, int column) const {
  return GetDlgItem(IdFromRowCol(row, column));
}
void CSplitterWnd::GetRowInfo(int row, int& current, int& minimum) const {
  const CRowColInfo& info = entryAt(m_pRowInfo, row);
  current = info.nCurSize;
  minimum = info.nMinSize;
}
void CSplitterWnd::SetRowInfo(int row, int ideal, int minimum) {
  CRowColInfo& info = entryAt(m_pRowInfo, row);
  info.nIdealSize = std::max(ideal, 0);
  info.nMinSize = std::max(minimum, 0);
}
void CSplitterWnd::GetColumnInfo(int column, int& current, int& minimum) const {
  const CRowColInfo& info = entryAt(m_pColInfo, column);
  current = info.nCurSize;
  minimum = info.nMinSize;
}
void CSplitterWnd::SetColumnInfo(int column, int ideal, int minimum) {
  CRowColInfo& info = entryAt(m_pColInfo, column);
  info.nIdealSize = std::max(ideal, 0);
  info.nMinSize = std::max(minimum, 0);
}

CWnd* CSplitterWnd::GetSizingParent() const {
  CFrameWnd* frame = GetParentFrame();
  if (!frame || ::IsZoomed(frame->m_hWnd) || !(frame->GetStyle() & WS_THICKFRAME)) return nullptr;
  CRect client;
  frame->GetClientRect(client);
  CRect own;
  GetWindowRect(own);
  frame->ScreenToClient(own);
  return own.right == client.right && own.bottom == client.bottom ? frame : nullptr;
}

// --- lay-out ---

void CSplitterWnd::GetInsideRect(CRect& rect) const {
  GetClientRect(rect);
  rect.DeflateRect(m_cxBorder, m_cyBorder);
}

void CSplitterWnd::RecalcLayout() {
  if (!m_hWnd || m_pColInfo.empty()) return;
  CRect inside;
  GetInsideRect(inside);
  m_pColInfo.resize(static_cast<std::size_t>(m_nMaxCols));
  layoutAxis(m_pColInfo, inside.Width(), m_cxSplitterGap);
  layoutAxis(m_pRowInfo, inside.Height(), m_cySplitterGap);

  AFX_SIZEPARENTPARAMS layout = {::BeginDeferWindowPos(m_nRows * m_nCols), {}};
  int y = inside.top;
  for (const CRowColInfo& row : m_pRowInfo) {
    int x = inside.left;
    for (const CRowColInfo& column : m_pColInfo) {
      const auto rowIndex = static_cast<int>(&row - m_pRowInfo.data());
      const auto columnIndex = static_cast<int>(&column - m_pColInfo.data());
      const HWND pane = ::GetDlgItem(m_hWnd, IdFromRowCol(rowIndex, columnIndex));
      const CRect rect(x, y, x + column.nCurSize, y + row.nCurSize);
      if (pane) AfxRepositionWindow(&layout, pane, rect);
      x += column.nCurSize + m_cxSplitterGap;
    }
    y += row.nCurSize + m_cySplitterGap;
  }
  if (layout.hDWP) ::EndDeferWindowPos(layout.hDWP);
  DrawAllSplitBars(nullptr, inside.right, inside.bottom);
}

void CSplitterWnd::OnSize(UINT type, int width, int height) {
  Default();
  if (type != SIZE_MINIMIZED && width > 0 && height > 0) RecalcLayout();
}

// --- drawing ---

void CSplitterWnd::DrawAllSplitBars(CDC* dc, int insideRight, int insideBottom) {
  CRect client;
  GetClientRect(client);
  CRect bar = client;
  bar.left += m_cxBorder;
  for (int column = 0; column + 1 < m_nCols; ++column) {
    bar.left += m_pColInfo[static_cast<std::size_t>(column)].nCurSize;
    bar.right = bar.left + m_cxSplitter;
    if (bar.left > insideRight) break;
    OnDrawSplitter(dc, splitBar, bar);
    bar.left += m_cxSplitterGap;
  }
  bar = client;
  bar.top += m_cyBorder;
  for (int row = 0; row + 1 < m_nRows; ++row) {
    bar.top += m_pRowInfo[static_cast<std::size_t>(row)].nCurSize;
    bar.bottom = bar.top + m_cySplitter;
    if (bar.top > insideBottom) break;
    OnDrawSplitter(dc, splitBar, bar);
    bar.top += m_cySplitterGap;
  }
  if (!dc) return;
  for (int row = 0; row < m_nRows; ++row) {
    for (int column = 0; column < m_nCols; ++column) {
      const HWND pane = ::GetDlgItem(m_hWnd, IdFromRowCol(row, column));
      if (!pane) continue;
      CRect border;
      ::GetWindowRect(pane, border);
      ScreenToClient(border);
      border.InflateRect(m_cxBorder, m_cyBorder);
      OnDrawSplitter(dc, splitBorder, border);
    }
  }
}

void CSplitterWnd::OnPaint() {
  CPaintDC dc(this);
  CRect inside;
  GetInsideRect(inside);
  if (!m_pColInfo.empty()) DrawAllSplitBars(&dc, inside.right, inside.bottom);
}

void CSplitterWnd::OnDrawSplitter(CDC* dc, ESplitType type, const CRect& rect) {
  if (!dc) {
    RedrawWindow(rect, nullptr, RDW_INVALIDATE | RDW_NOCHILDREN);
    return;
  }
  if (type == splitBorder) {
    CRect edge = rect;
    dc->DrawEdge(edge, EDGE_SUNKEN, BF_RECT);
    return;
  }
  dc->FillSolidRect(rect, ::GetSysColor(COLOR_BTNFACE));
}

void CSplitterWnd::OnInvertTracker(const CRect& rect) {
  CDC* dc = GetDC();
  dc->InvertRect(rect);
  ReleaseDC(dc);
}
