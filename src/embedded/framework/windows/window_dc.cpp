// Device contexts of windows.
#include "platform/framework_window.h"
#include "platform/framework_window_dc.h"

namespace {

HWND handleOf(const CWnd* window) { return window ? window->m_hWnd : nullptr; }

}  // namespace

CClientDC::CClientDC(CWnd* window) : m_hWnd(handleOf(window)) { Attach(::GetDC(m_hWnd)); }
CClientDC::~CClientDC() { CClientDC::Release(); }
void CClientDC::Release() {
  if (m_hDC) ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* window) : m_hWnd(handleOf(window)) { Attach(::GetWindowDC(m_hWnd)); }
CWindowDC::~CWindowDC() { CWindowDC::Release(); }
void CWindowDC::Release() {
  if (m_hDC) ::ReleaseDC(m_hWnd, Detach());
}

CPaintDC::CPaintDC(CWnd* window) : m_hWnd(handleOf(window)) { Attach(::BeginPaint(m_hWnd, &m_ps)); }
CPaintDC::~CPaintDC() { CPaintDC::Release(); }
void CPaintDC::Release() {
  if (Detach()) ::EndPaint(m_hWnd, &m_ps);
}
