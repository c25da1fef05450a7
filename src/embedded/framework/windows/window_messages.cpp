// How a window's messages find their handlers.
#include "embedded/framework/windows/state.h"
#include "platform/framework_menu.h"
#include "platform/framework_window.h"

CWnd* framework::windowOf(WPARAM handle) {
  return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}
CMenu* framework::menuOf(WPARAM handle) {
  return CMenu::FromHandle(reinterpret_cast<HMENU>(handle));
}

namespace {

// Learns whether a command is enabled, and changes nothing.
class EnabledTest : public CCmdUI {
 public:
  void Enable(BOOL on) override {
    enabled = on != FALSE;
    m_bEnableChanged = TRUE;
  }
  void SetCheck(int) override {}
  void SetText(const wchar_t*) override {}
  bool enabled = true;
};

const AFX_MSGMAP_ENTRY* messageEntry(const AFX_MSGMAP* map, UINT message) {
  for (; map; map = map->base ? map->base() : nullptr) {
    for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->nMessage != 0; ++entry) {
      if (entry->nMessage == message && entry->message) return entry;
    }
  }
  return nullptr;
}

}  // namespace

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  // The object may be gone when a handler was found.
  if (OnWndMsg(message, wParam, lParam, &result)) return result;
  return DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message == WM_COMMAND) {
    const BOOL handled = OnCommand(wParam, lParam);
    if (handled) *result = 1;
    return handled;
  }
  if (message == WM_NOTIFY) return OnNotify(wParam, lParam, result);
  const AFX_MSGMAP_ENTRY* entry = messageEntry(GetMessageMap(), message);
  if (!entry) return FALSE;
  *result = entry->message(*this, wParam, lParam);
  return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_pfnSuper) return ::CallWindowProcW(m_pfnSuper, m_hWnd, message, wParam, lParam);
  return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
  const MSG current = framework::state().current;
  return DefWindowProc(current.message, current.wParam, current.lParam);
}

// A command of a menu or an accelerator runs only while its update handler leaves it enabled; what
// controls send has passed the control's own state.
BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  const UINT id = LOWORD(wParam);
  if (lParam != 0) return OnCmdMsg(id, static_cast<short>(HIWORD(wParam)), nullptr, nullptr);
  if (id == 0) return FALSE;
  EnabledTest test;
  test.m_nID = id;
  OnCmdMsg(id, CN_UPDATE_COMMAND_UI, &test, nullptr);
  return !test.enabled || OnCmdMsg(id, CN_COMMAND, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM, LRESULT*) { return FALSE; }

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

// --- owner-drawn menus ---

void CWnd::OnDrawItem(int, DRAWITEMSTRUCT* item) {
  CMenu* menu = item->CtlType == ODT_MENU
                    ? CMenu::FromHandlePermanent(reinterpret_cast<HMENU>(item->hwndItem))
                    : nullptr;
  if (menu) {
    menu->DrawItem(item);
  } else {
    Default();
  }
}

void CWnd::OnMeasureItem(int, MEASUREITEMSTRUCT* item) {
  const framework::State& state = framework::state();
  const HMENU shown = state.trackingWindow == m_hWnd ? state.trackingMenu : ::GetMenu(m_hWnd);
  CMenu* menu = item->CtlType == ODT_MENU ? CMenu::FromHandlePermanent(shown) : nullptr;
  if (menu) {
    menu->MeasureItem(item);
  } else {
    Default();
  }
}
