// Views: child windows that show something, drawn through one function. A view deletes itself when
// its window is gone, unless it overrides PostNcDestroy.
#pragma once

#include "platform/framework_window.h"

class CView : public CWnd {
  DECLARE_DYNAMIC(CView)

 public:
  virtual void OnInitialUpdate();  // once, when the view's surroundings are complete
  virtual void OnPrepareDC(CDC*) {}
  BOOL PreCreateWindow(CREATESTRUCTW& create) override;
  void PostNcDestroy() override;

 protected:
  CView() = default;
  ~CView() override;
  virtual void OnDraw(CDC* dc) = 0;
  // Takes the focus, when the view becomes active in an active window.
  virtual void OnActivateView(BOOL activate, CView* activated, CView* deactivated);
  void OnPaint();
  void OnDestroy();
  int OnMouseActivate(CWnd* top, UINT hit, UINT message);
  LRESULT OnInitialUpdateMessage(WPARAM, LPARAM);
  DECLARE_MESSAGE_MAP()
  friend class CFrameWnd;
};

// A view on a surface of a given size in pixels, of which scroll bars choose the visible part.
class CScrollView : public CView {
  DECLARE_DYNAMIC(CScrollView)

 public:
  // The mapping is one pixel a unit (MM_TEXT). A page or line size of 0 means a tenth of the
  // surface, and a tenth of that.
  void SetScrollSizes(int mapMode, SIZE total, SIZE page = {0, 0}, SIZE line = {0, 0});
  CPoint GetDeviceScrollPosition() const;  // the surface point at the window's corner
  CSize GetTotalSize() const { return m_total; }
  void ScrollToPosition(POINT position);  // clipped to what the surface allows
  void OnPrepareDC(CDC* dc) override;

 protected:
  CScrollView() = default;
  void OnHScroll(UINT code, UINT position, CWnd* bar);
  void OnVScroll(UINT code, UINT position, CWnd* bar);
  BOOL OnMouseWheel(UINT flags, short delta, CPoint at);
  void OnSize(UINT type, int width, int height);
  DECLARE_MESSAGE_MAP()

 private:
  void updateBars();
  void scrollBy(int bar, UINT code);
  CSize m_total;
  CSize m_page;
  CSize m_line;
  bool m_bInsideUpdate = false;
};
