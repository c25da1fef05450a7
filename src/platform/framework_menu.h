// Menus. An object owns the handle that it made or that was attached to it and destroys it with
// itself; one that FromHandle gives owns nothing and lasts until the next idle time.
#pragma once

#include "platform/framework_command.h"
#include "platform/framework_text.h"

class CMenu : public CObject {
  DECLARE_DYNCREATE(CMenu)

 public:
  CMenu() = default;
  ~CMenu() override;

  HMENU GetSafeHmenu() const { return m_hMenu; }
  operator HMENU() const { return m_hMenu; }
  BOOL Attach(HMENU menu);
  HMENU Detach();
  BOOL CreateMenu();
  BOOL CreatePopupMenu();
  BOOL LoadMenu(UINT id);  // from the modules' resources
  BOOL DestroyMenu();
  static CMenu* FromHandle(HMENU menu);
  static CMenu* FromHandlePermanent(HMENU menu);  // null when no object owns the menu

  UINT GetMenuItemCount() const;
  UINT GetMenuItemID(int position) const;  // 0 for a separator, all ones for a sub-menu
  CMenu* GetSubMenu(int position) const;
  UINT GetMenuState(UINT item, UINT flags) const;
  int GetMenuString(UINT item, CString& text, UINT flags) const;  // the length
  BOOL AppendMenu(UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
  BOOL ModifyMenu(UINT position, UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
  UINT EnableMenuItem(UINT item, UINT flags);
  UINT CheckMenuItem(UINT item, UINT flags);

  // Shows the menu at a screen point and returns when it is closed; the commands and the questions
  // of owner-drawn items go to `window`.
  BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* window, const RECT* rect = nullptr);

  // Called for owner-drawn items of a menu that an object owns.
  virtual void DrawItem(DRAWITEMSTRUCT* item);
  virtual void MeasureItem(MEASUREITEMSTRUCT* item);

  HMENU m_hMenu = nullptr;
};
