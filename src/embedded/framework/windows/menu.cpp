// Menus over the system's handles.
#include <utility>

#include "embedded/framework/windows/handle_map.h"
#include "embedded/framework/windows/state.h"
#include "embedded/framework/windows/temporary.h"
#include "platform/framework_menu.h"
#include "platform/framework_resources.h"
#include "platform/framework_window.h"

namespace {

framework::HandleMap<CMenu, HMENU>& menus() {
  static framework::HandleMap<CMenu, HMENU> map;
  [[maybe_unused]] static const bool registered = framework::addTemporaryKind(
      [] { menus().deleteTemporary([](CMenu& menu) { menu.m_hMenu = nullptr; }); });
  return map;
}

}  // namespace

IMPLEMENT_DYNCREATE(CMenu, CObject)

CMenu::~CMenu() { DestroyMenu(); }

BOOL CMenu::Attach(HMENU menu) {
  if (!menu || m_hMenu) return FALSE;
  m_hMenu = menu;
  menus().add(menu, this);
  return TRUE;
}

HMENU CMenu::Detach() {
  const HMENU menu = m_hMenu;
  if (menu && menus().permanent(menu) == this) menus().remove(menu);
  m_hMenu = nullptr;
  return menu;
}

BOOL CMenu::CreateMenu() { return Attach(::CreateMenu()); }
BOOL CMenu::CreatePopupMenu() { return Attach(::CreatePopupMenu()); }
BOOL CMenu::LoadMenu(UINT id) {
  const wchar_t* name = MAKEINTRESOURCEW(id);
  return Attach(::LoadMenuW(AfxFindResourceHandle(name, RT_MENU), name));
}
BOOL CMenu::DestroyMenu() {
  const HMENU menu = Detach();
  return menu ? ::DestroyMenu(menu) : FALSE;
}

CMenu* CMenu::FromHandle(HMENU menu) {
  return menus().find<CMenu>(menu,
                             [](CMenu& object, HMENU assigned) { object.m_hMenu = assigned; });
}
CMenu* CMenu::FromHandlePermanent(HMENU menu) { return menus().permanent(menu); }

UINT CMenu::GetMenuItemCount() const { return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }
UINT CMenu::GetMenuItemID(int position) const { return ::GetMenuItemID(m_hMenu, position); }
CMenu* CMenu::GetSubMenu(int position) const { return FromHandle(::GetSubMenu(m_hMenu, position)); }
UINT CMenu::GetMenuState(UINT item, UINT flags) const {
  return ::GetMenuState(m_hMenu, item, flags);
}
int CMenu::GetMenuString(UINT item, CString& text, UINT flags) const {
  const int length = ::GetMenuStringW(m_hMenu, item, nullptr, 0, flags);
  std::wstring buffer(static_cast<std::size_t>(length > 0 ? length : 0) + 1, L'\0');
  const int copied =
      ::GetMenuStringW(m_hMenu, item, buffer.data(), static_cast<int>(buffer.size()), flags);
  buffer.resize(static_cast<std::size_t>(copied));
  text = CString(buffer);
  return copied;
}
BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, const wchar_t* text) {
  return ::AppendMenuW(m_hMenu, flags, id, text);
}
BOOL CMenu::ModifyMenu(UINT position, UINT flags, UINT_PTR id, const wchar_t* text) {
  return ::ModifyMenuW(m_hMenu, position, flags, id, text);
}
UINT CMenu::EnableMenuItem(UINT item, UINT flags) {
  return static_cast<UINT>(::EnableMenuItem(m_hMenu, item, flags));
}
UINT CMenu::CheckMenuItem(UINT item, UINT flags) { return ::CheckMenuItem(m_hMenu, item, flags); }

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* window, const RECT* rect) {
  framework::State& state = framework::state();
  const HWND outerWindow = std::exchange(state.trackingWindow, window->m_hWnd);
  const HMENU outerMenu = std::exchange(state.trackingMenu, m_hMenu);
  const BOOL result = ::TrackPopupMenu(m_hMenu, flags, x, y, 0, window->m_hWnd, rect);
  state.trackingWindow = outerWindow;
  state.trackingMenu = outerMenu;
  return result;
}

void CMenu::DrawItem(DRAWITEMSTRUCT*) {}
void CMenu::MeasureItem(MEASUREITEMSTRUCT*) {}
