// A window's calls that stand on the system's functions alone.
#include "platform/framework_dialog.h"
#include "platform/framework_frame.h"
#include "platform/framework_menu.h"
#include "platform/framework_messages.h"
#include "platform/framework_window.h"

namespace {

HWND handleOf(const CWnd* window) { return window ? window->m_hWnd : nullptr; }

}  // namespace

// --- relatives ---

CWnd* CWnd::GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
CWnd* CWnd::GetOwner() const { return m_hWndOwner ? FromHandle(m_hWndOwner) : GetParent(); }
void CWnd::SetOwner(CWnd* owner) { m_hWndOwner = handleOf(owner); }
CWnd* CWnd::SetParent(CWnd* parent) { return FromHandle(::SetParent(m_hWnd, handleOf(parent))); }
CWnd* CWnd::GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }

CFrameWnd* CWnd::GetParentFrame() const {
  for (HWND above = ::GetParent(m_hWnd); above; above = ::GetParent(above)) {
    if (auto* frame = dynamic_cast<CFrameWnd*>(FromHandlePermanent(above))) return frame;
  }
  return nullptr;
}

// --- messages ---

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
  return ::SendMessageW(m_hWnd, message, wParam, lParam);
}
BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
  return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam) const {
  const MSG sent = {nullptr, message, wParam, lParam, 0, {}};
  ::EnumChildWindows(
      m_hWnd,
      [](HWND child, LPARAM parameter) -> BOOL {
        const auto& all = *reinterpret_cast<const MSG*>(parameter);
        ::SendMessageW(child, all.message, all.wParam, all.lParam);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&sent));
}

// --- state ---

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT positionFlags) {
  const DWORD before = GetStyle();
  const DWORD after = (before & ~remove) | add;
  if (before == after) return FALSE;
  ::SetWindowLongW(m_hWnd, GWL_STYLE, static_cast<LONG>(after));
  constexpr UINT kStay = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
  if (positionFlags != 0) ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0, kStay | positionFlags);
  return TRUE;
}

void CWnd::GetWindowText(CString& text) const {
  std::wstring buffer(static_cast<std::size_t>(::GetWindowTextLengthW(m_hWnd)) + 1, L'\0');
  const int length = ::GetWindowTextW(m_hWnd, buffer.data(), static_cast<int>(buffer.size()));
  buffer.resize(static_cast<std::size_t>(length));
  text = CString(buffer);
}

void CWnd::SetFont(CFont* font, BOOL redraw) {
  SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font ? font->m_hObject : nullptr), redraw);
}
CFont* CWnd::GetFont() const {
  return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}
CMenu* CWnd::GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }
CMenu* CWnd::GetSystemMenu(BOOL revert) const {
  return CMenu::FromHandle(::GetSystemMenu(m_hWnd, revert));
}

// --- place ---

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
  ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}
void CWnd::MoveWindow(const RECT* rect, BOOL repaint) {
  MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}
BOOL CWnd::SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags) {
  return ::SetWindowPos(m_hWnd, handleOf(after), x, y, width, height, flags);
}
void CWnd::ClientToScreen(RECT* rect) const {
  ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(rect), 2);
}
void CWnd::ScreenToClient(RECT* rect) const {
  ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2);
}
int CWnd::SetScrollInfo(int bar, SCROLLINFO* info, BOOL redraw) {
  info->cbSize = sizeof *info;
  return ::SetScrollInfo(m_hWnd, bar, info, redraw);
}
BOOL CWnd::GetScrollInfo(int bar, SCROLLINFO* info, UINT mask) const {
  info->cbSize = sizeof *info;
  info->fMask = mask;
  return ::GetScrollInfo(m_hWnd, bar, info);
}

void AfxRepositionWindow(AFX_SIZEPARENTPARAMS* layout, HWND window, const RECT* rect) {
  CRect now;
  ::GetWindowRect(window, now);
  ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&now), 2);
  if (now == CRect(*rect)) return;
  const int width = rect->right - rect->left;
  const int height = rect->bottom - rect->top;
  constexpr UINT kFlags = SWP_NOACTIVATE | SWP_NOZORDER;
  if (layout && layout->hDWP) {
    layout->hDWP = ::DeferWindowPos(layout->hDWP, window, nullptr, rect->left, rect->top, width,
                                    height, kFlags);
  } else {
    ::SetWindowPos(window, nullptr, rect->left, rect->top, width, height, kFlags);
  }
}

void CWnd::RepositionBars(UINT first, UINT last, UINT rest) {
  constexpr int kUsualChildren = 8;
  AFX_SIZEPARENTPARAMS layout = {::BeginDeferWindowPos(kUsualChildren), {}};
  GetClientRect(&layout.rect);
  HWND remaining = nullptr;
  for (HWND child = ::GetTopWindow(m_hWnd); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    const auto id = static_cast<UINT>(::GetDlgCtrlID(child));
    if (id == rest) {
      remaining = child;
    } else if (id >= first && id <= last) {
      ::SendMessageW(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
    }
  }
  if (remaining) AfxRepositionWindow(&layout, remaining, &layout.rect);
  if (layout.hDWP) ::EndDeferWindowPos(layout.hDWP);
}

// --- painting ---

void CWnd::InvalidateRect(const RECT* rect, BOOL erase) { ::InvalidateRect(m_hWnd, rect, erase); }
BOOL CWnd::RedrawWindow(const RECT* rect, CRgn* region, UINT flags) {
  return ::RedrawWindow(m_hWnd, rect, region ? static_cast<HRGN>(*region) : nullptr, flags);
}
CDC* CWnd::GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
int CWnd::ReleaseDC(CDC* dc) { return ::ReleaseDC(m_hWnd, dc->m_hDC); }

// --- focus, capture, timers ---

CWnd* CWnd::SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
CWnd* CWnd::GetFocus() { return FromHandle(::GetFocus()); }
CWnd* CWnd::SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
CWnd* CWnd::SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
CWnd* CWnd::GetCapture() { return FromHandle(::GetCapture()); }
UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds) {
  return ::SetTimer(m_hWnd, id, milliseconds, nullptr);
}

// --- boxes and data ---

int CWnd::MessageBox(const wchar_t* text, const wchar_t* caption, UINT style) {
  return showMessageBox({m_hWnd, text ? text : L"", caption ? caption : L"", style});
}

BOOL CWnd::UpdateData(BOOL save) {
  CDataExchange exchange(this, save);
  DoDataExchange(&exchange);
  return TRUE;
}
