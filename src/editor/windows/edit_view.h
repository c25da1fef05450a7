// CZHlkEditView: the circuit in the editing dialog, every block in a framed cell, every line and
// every text, on a scrolling surface. It owns no data: the dialog, its parent, has the circuit and
// the symbol that a click puts into a cell.
#pragma once

#include "platform/framework_view.h"

class CZHlkhlbjDlg;

class CZHlkEditView : public CScrollView {
  DECLARE_DYNCREATE(CZHlkEditView)

 public:
  CZHlkEditView() = default;
  BOOL Create(const wchar_t* className, const wchar_t* title, DWORD style, const RECT& rect,
              CWnd* parent, UINT id, CCreateContext* context = nullptr) override;
  void OnInitialUpdate() override;

 protected:
  void PostNcDestroy() override {}  // a member of the dialog
  void OnDraw(CDC* dc) override;

  BOOL OnEraseBkgnd(CDC* dc);
  void OnLButtonDown(UINT flags, CPoint point);
  void OnRButtonDown(UINT flags, CPoint point);
  void OnHScroll(UINT code, UINT position, CWnd* bar);
  void OnVScroll(UINT code, UINT position, CWnd* bar);
  int OnMouseActivate(CWnd* top, UINT hit, UINT message);
  DECLARE_MESSAGE_MAP()

 private:
  CZHlkhlbjDlg& dialog() const;
  void drawBlocks(CDC& dc) const;
  void drawTexts(CDC& dc) const;
  void drawLines(CDC& dc) const;
  CPoint onSurface(CPoint client) const;
  void repaint(RECT surface);
};
