// Moving a splitter's bar: the picture of the bar follows the mouse, the panes follow at the end.
#include <algorithm>

#include "platform/framework_splitter.h"

namespace {

// Where a pane begins that stands behind `index` others.
int paneStart(const std::vector<CRowColInfo>& entries, int index, int first, int gap) {
  for (int i = 0; i < index; ++i) first += entries[static_cast<std::size_t>(i)].nCurSize + gap;
  return first;
}

}  // namespace

CSplitterWnd::Hit CSplitterWnd::hitTest(CPoint point) const {
  CRect inside;
  GetInsideRect(inside);
  if (!inside.PtInRect(point) || m_pColInfo.empty()) return {};
  const auto barAt = [](const std::vector<CRowColInfo>& entries, int count, int start, int gap,
                        int at) {
    for (int i = 0; i + 1 < count; ++i) {
      start += entries[static_cast<std::size_t>(i)].nCurSize;
      if (at >= start && at < start + gap) return i;
      start += gap;
    }
    return -1;
  };
  const int column = barAt(m_pColInfo, m_nCols, inside.left, m_cxSplitterGap, point.x);
  if (column >= 0) return {Hit::column, column};
  const int row = barAt(m_pRowInfo, m_nRows, inside.top, m_cySplitterGap, point.y);
  if (row >= 0) return {Hit::row, row};
  return {};
}

// Where the bar would be with the mouse there; it stays inside.
CRect CSplitterWnd::trackerAt(CPoint point) const {
  CRect inside;
  GetInsideRect(inside);
  CRect bar = inside;
  if (m_tracked.kind == Hit::column) {
    const int last = std::max(inside.right - m_cxSplitter, inside.left);
    bar.left = std::clamp<int>(point.x + m_trackOffset.x, inside.left, last);
    bar.right = bar.left + m_cxSplitter;
  } else {
    const int last = std::max(inside.bottom - m_cySplitter, inside.top);
    bar.top = std::clamp<int>(point.y + m_trackOffset.y, inside.top, last);
    bar.bottom = bar.top + m_cySplitter;
  }
  return bar;
}

void CSplitterWnd::OnLButtonDown(UINT, CPoint point) {
  const Hit hit = hitTest(point);
  if (m_tracked.kind != Hit::none || hit.kind == Hit::none) return;
  CRect inside;
  GetInsideRect(inside);
  const int next = hit.index + 1;  // the bar ends where the next pane begins
  m_tracked = hit;
  if (hit.kind == Hit::column) {
    const int pane = paneStart(m_pColInfo, next, inside.left, m_cxSplitterGap);
    m_trackOffset = CPoint(pane - m_cxSplitterGap - point.x, 0);
  } else {
    const int pane = paneStart(m_pRowInfo, next, inside.top, m_cySplitterGap);
    m_trackOffset = CPoint(0, pane - m_cySplitterGap - point.y);
  }
  m_rectTracker = trackerAt(point);
  SetCapture();
  SetFocus();  // for Esc
  RedrawWindow(nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
  OnInvertTracker(m_rectTracker);
}

void CSplitterWnd::OnMouseMove(UINT, CPoint point) {
  if (m_tracked.kind == Hit::none) return;
  const CRect moved = trackerAt(point);
  if (moved == m_rectTracker) return;
  OnInvertTracker(m_rectTracker);
  m_rectTracker = moved;
  OnInvertTracker(m_rectTracker);
}

void CSplitterWnd::OnLButtonUp(UINT, CPoint) { stopTracking(true); }
void CSplitterWnd::OnKeyDown(UINT key, UINT, UINT) {
  if (key == VK_ESCAPE) stopTracking(false);
}
void CSplitterWnd::OnCaptureChanged(CWnd*) { stopTracking(false); }

void CSplitterWnd::stopTracking(bool accept) {
  if (m_tracked.kind == Hit::none) return;
  const Hit hit = m_tracked;
  m_tracked = {};  // first, since giving the capture up comes back here
  OnInvertTracker(m_rectTracker);
  if (GetCapture() == this) ::ReleaseCapture();
  ::SetFocus(::GetParent(m_hWnd));
  if (!accept) return;
  CRect inside;
  GetInsideRect(inside);
  const auto index = static_cast<std::size_t>(hit.index);
  if (hit.kind == Hit::column) {
    const int left = paneStart(m_pColInfo, hit.index, inside.left, m_cxSplitterGap);
    m_pColInfo[index].nIdealSize = m_rectTracker.left - left;
  } else {
    const int top = paneStart(m_pRowInfo, hit.index, inside.top, m_cySplitterGap);
    m_pRowInfo[index].nIdealSize = m_rectTracker.top - top;
  }
  RecalcLayout();
}

BOOL CSplitterWnd::OnSetCursor(CWnd*, UINT hit, UINT) {
  CPoint point;
  ::GetCursorPos(&point);
  ScreenToClient(&point);
  const Hit::Kind kind = hit == HTCLIENT ? hitTest(point).kind : Hit::none;
  if (kind == Hit::none) return static_cast<BOOL>(Default());
  ::SetCursor(::LoadCursorW(nullptr, kind == Hit::column ? IDC_SIZEWE : IDC_SIZENS));
  return TRUE;
}
