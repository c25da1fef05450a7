// The library window's client: two columns with a plain bar between them, no borders, and a free
// strip at the top with an etched line.
#pragma once

#include "platform/framework_splitter.h"

class CSplitterWndEx : public CSplitterWnd {
 public:
  CSplitterWndEx();

  // Nonzero on success. The panes are made afterwards.
  BOOL CreateSplit(CWnd* parent, int rows, int columns);
  // Ideal widths in pixels; 0 hides the second column.
  void SetColumnWidths(int first, int second);
  void RecalcLayout() override;

 protected:
  void OnDrawSplitter(CDC* dc, ESplitType type, const CRect& rect) override;
  void OnInvertTracker(const CRect& rect) override;
  void GetInsideRect(CRect& rect) const override;

  void OnMouseMove(UINT flags, CPoint point) { CSplitterWnd::OnMouseMove(flags, point); }
  BOOL OnEraseBkgnd(CDC* dc);
  void OnPaint();
  DECLARE_MESSAGE_MAP()

 private:
  int m_topMargin = 8;  // pixels
  int m_drawTopLine = 1;
};
