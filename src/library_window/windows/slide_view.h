// The page of slides: a grid of cells with the selected one marked and the frame's title showing
// its circuit. In draw mode a left click asks the host to place the circuit and a right click
// enlarges it; in edit mode a left click opens the editing dialog and a right click offers copy,
// paste, delete and enlarge. Page, selection and mode are read from the store each time.
#pragma once

#include "library_window/grid_layout.h"
#include "platform/framework_view.h"
#include "platform/slide_store.h"

class CZhlkLibStore;
class CZhlkSldWnd;

class CSlbView : public CView {
  DECLARE_DYNCREATE(CSlbView)

 protected:
  CSlbView() = default;

  void OnDraw(CDC*) override {}  // all painting is in OnPaint
  void OnPaint();
  BOOL OnEraseBkgnd(CDC*) { return TRUE; }  // painting covers everything: no flicker
  void OnLButtonDown(UINT flags, CPoint point);
  void OnRButtonDown(UINT flags, CPoint point);
  void OnRButtonUp(UINT, CPoint) { Default(); }
  void OnCopy();
  void OnPaste();
  void OnDelete();
  void OnEnlarge();
  DECLARE_MESSAGE_MAP()

 private:
  GridLayout layout();
  void drawSlides(CDC& dc, const CRect& client);
  void drawHighlight(CDC& dc, int slot);
  void showTitle(int slot);
  void selectAt(CPoint point);
  void placeCell(int slot);
  void editCell(CPoint point);
  void showMenu(CPoint point);

  CZhlkSldWnd* m_preview = nullptr;  // the last one made; it deletes itself and nobody looks here
  RECT m_contextRect{};              // the cell under the last right click, without its lines
  CGraph m_graph;
};
