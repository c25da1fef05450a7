// The enlarged slide: a frame exactly over the library window that shows one slide and goes away at
// the first press or release of a mouse button, on its caption too. Deletes itself.
#pragma once

#include "platform/framework_frame.h"

class CZhlkSldWnd : public CFrameWnd {
  DECLARE_DYNAMIC(CZhlkSldWnd)

 public:
  CZhlkSldWnd() = default;

  // Shows the preview over the view's frame. Always 0.
  int CreatePreview(DWORD style, CWnd* view);

  // Filled in before.
  CString slideName;
  CString libraryPath;

 protected:
  void OnPaint();
  void OnLButtonDown(UINT flags, CPoint point);
  void OnLButtonUp(UINT flags, CPoint point);
  void OnRButtonDown(UINT flags, CPoint point);
  void OnRButtonUp(UINT flags, CPoint point);
  void OnNcLButtonDown(UINT, CPoint) { DestroyWindow(); }
  void OnNcLButtonUp(UINT, CPoint) { DestroyWindow(); }
  void OnNcRButtonDown(UINT, CPoint) { DestroyWindow(); }
  void OnNcRButtonUp(UINT, CPoint) { DestroyWindow(); }
  DECLARE_MESSAGE_MAP()
};
