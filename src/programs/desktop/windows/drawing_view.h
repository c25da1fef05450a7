// DrawingView: the drawing area: shows the desktop's screen with what follows the mouse on it, and
// forwards mouse input to the desktop's pointer.
#pragma once

#include "platform/framework_view.h"
#include "programs/desktop/desktop.h"
#include "programs/desktop/overlay.h"

class DrawingView : public CView {
 public:
  explicit DrawingView(desktop::Desktop& desktop) : desktop_(desktop) {}
  ~DrawingView() override;

  // Shows what has changed: all of it, or only the crosshair and the rubber band.
  void Refresh();

 protected:
  void OnDraw(CDC* dc) override;
  BOOL OnEraseBkgnd(CDC*) { return TRUE; }
  void OnSize(UINT type, int width, int height);
  void OnSetFocus(CWnd* old);
  BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
  void OnMouseMove(UINT flags, CPoint point);
  LRESULT OnMouseLeave(WPARAM, LPARAM);
  void OnLButtonDown(UINT flags, CPoint point);
  void OnRButtonDown(UINT flags, CPoint point);
  void OnMButtonDown(UINT flags, CPoint point);
  void OnMButtonUp(UINT flags, CPoint point);
  void OnMButtonDblClk(UINT flags, CPoint point);
  BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
  void OnCaptureChanged(CWnd* window);
  DECLARE_MESSAGE_MAP()

 private:
  bool MakeBitmap(int width, int height);
  void ShowParts(const std::vector<desktop::PixelRect>& parts);

  desktop::Desktop& desktop_;
  desktop::Overlay overlay_;
  CDC memory_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ stock_ = nullptr;  // what the context held before
  bool tracksLeaving_ = false;
};
