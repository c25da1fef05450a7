// Device contexts of windows.
#pragma once

#include "platform/framework_dc.h"

class CWnd;

// These three give their handle back when they go. The window outlives them.
class CClientDC : public CDC {
 public:
  explicit CClientDC(CWnd* window);  // null: the screen
  ~CClientDC() override;

 protected:
  void Release() override;
  HWND m_hWnd = nullptr;
};

class CWindowDC : public CDC {  // with the frame
 public:
  explicit CWindowDC(CWnd* window);
  ~CWindowDC() override;

 protected:
  void Release() override;
  HWND m_hWnd = nullptr;
};

// Begins and ends the painting of a window; only inside of its WM_PAINT.
class CPaintDC : public CDC {
 public:
  explicit CPaintDC(CWnd* window);
  ~CPaintDC() override;

  PAINTSTRUCT m_ps{};

 protected:
  void Release() override;
  HWND m_hWnd = nullptr;
};
