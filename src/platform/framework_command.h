// Command targets: objects that receive commands through their message maps, and the object through
// which a target enables, checks or renames what stands for a command.
#pragma once

#include "platform/framework_objects.h"
#include "platform/framework_system.h"

class CCmdTarget;
class CMenu;
class CWnd;
struct AFX_MSGMAP;

// Codes of OnCmdMsg besides the notifications of controls.
constexpr int CN_COMMAND = 0;
constexpr int CN_UPDATE_COMMAND_UI = -1;

// Given to OnCmdMsg to learn who would handle a command, which then isn't run.
struct AFX_CMDHANDLERINFO {
  CCmdTarget* pTarget = nullptr;
};

class CCmdTarget : public CObject {
  DECLARE_DYNAMIC(CCmdTarget)

 public:
  // Runs the first handler of the target's maps for the command, or with `info` only tells it.
  // `extra` is the CCmdUI of an update. False when there is none.
  virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info);

 protected:
  CCmdTarget() = default;
  virtual const AFX_MSGMAP* GetMessageMap() const;
  static const AFX_MSGMAP* GetThisMessageMap();
};

// One item that stands for a command, while its target is asked about it. Used for menus as it is;
// bars derive their own.
class CCmdUI {
 public:
  CCmdUI() = default;
  CCmdUI(const CCmdUI&) = delete;
  CCmdUI& operator=(const CCmdUI&) = delete;
  virtual ~CCmdUI() = default;

  virtual void Enable(BOOL on = TRUE);
  virtual void SetCheck(int check = 1);  // 0 off, 1 on, 2 half
  virtual void SetText(const wchar_t* text);

  // Asks the target. An item that the target neither enables nor disables is disabled, if so asked,
  // when nobody handles its command. True when there was an update handler.
  BOOL DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler);

  UINT m_nID = 0;
  UINT m_nIndex = 0;  // position in the menu or bar
  UINT m_nIndexMax = 0;
  CMenu* m_pMenu = nullptr;  // the menu that holds the item, if it is one of a menu
  CWnd* m_pOther = nullptr;  // else the bar
  BOOL m_bEnableChanged = FALSE;
};
