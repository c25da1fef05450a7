// Splitters with a fixed number of panes: child windows in rows and columns with bars between them
// that the mouse moves. The panes are the splitter's children and end with it.
#pragma once

#include <vector>

#include "platform/framework_window.h"

// One row or column, pixels.
struct CRowColInfo {
  int nMinSize = 0;    // below it the pane is hidden
  int nIdealSize = 0;  // what was asked for
  int nCurSize = 0;    // what the last lay-out gave
};

class CSplitterWnd : public CWnd {
  DECLARE_DYNAMIC(CSplitterWnd)

 public:
  CSplitterWnd();
  // The panes are made afterwards, each before the first lay-out.
  BOOL CreateStatic(CWnd* parent, int rows, int columns, DWORD style = WS_CHILD | WS_VISIBLE,
                    UINT id = AFX_IDW_PANE_FIRST);
  // Makes a pane from a class of views; false for a pane that is there or a class that isn't one.
  virtual BOOL CreateView(int row, int column, CRuntimeClass* viewClass, SIZE size,
                          CCreateContext* context);

  int GetRowCount() const { return m_nRows; }
  int GetColumnCount() const { return m_nCols; }
  CWnd* GetPane(int row, int column) const;
  int IdFromRowCol(int row, int column) const;
  void GetRowInfo(int row, int& current, int& minimum) const;
  void SetRowInfo(int row, int ideal, int minimum);
  void GetColumnInfo(int column, int& current, int& minimum) const;
  void SetColumnInfo(int column, int ideal, int minimum);
  virtual void RecalcLayout();

 protected:
  enum ESplitType { splitBox, splitBar, splitIntersection, splitBorder };

  BOOL CreateCommon(CWnd* parent, SIZE minimum, DWORD style, UINT id);
  // A null dc: the rectangle is to be repainted.
  virtual void OnDrawSplitter(CDC* dc, ESplitType type, const CRect& rect);
  virtual void OnInvertTracker(const CRect& rect);  // twice at one place restores the picture
  virtual void GetInsideRect(CRect& rect) const;    // the client area inside of the border
  CWnd* GetSizingParent() const;  // the frame that can be sized at this window's corner, or null
  void DrawAllSplitBars(CDC* dc, int insideRight, int insideBottom);

  void OnPaint();
  void OnSize(UINT type, int width, int height);
  void OnMouseMove(UINT flags, CPoint point);
  void OnLButtonDown(UINT flags, CPoint point);
  void OnLButtonUp(UINT flags, CPoint point);
  void OnKeyDown(UINT key, UINT repeat, UINT flags);
  void OnCaptureChanged(CWnd* window);
  BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
  DECLARE_MESSAGE_MAP()

  int m_nMaxRows = 1;
  int m_nMaxCols = 1;
  int m_nRows = 1;
  int m_nCols = 1;
  // Pixels: the bars, the gaps between panes in which they lie, the border round all panes.
  int m_cxSplitter = 7;
  int m_cySplitter = 7;
  int m_cxSplitterGap = 7;
  int m_cySplitterGap = 7;
  int m_cxBorder = 2;
  int m_cyBorder = 2;
  std::vector<CRowColInfo> m_pColInfo;
  std::vector<CRowColInfo> m_pRowInfo;

 private:
  // A bar at the mouse: which one, by the pane in front of it.
  struct Hit {
    enum Kind { none, column, row } kind = none;
    int index = 0;
  };
  Hit hitTest(CPoint point) const;
  CRect trackerAt(CPoint point) const;
  void track(CPoint point);
  void stopTracking(bool accept);

  Hit m_tracked;
  CRect m_rectTracker;
  CPoint m_trackOffset;  // from the mouse to the bar's corner
};
