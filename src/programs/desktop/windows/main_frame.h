// MainFrame: the desktop's window: menus, tool bar, drawing area, command window, status bar. It
// pumps messages while the command line waits and shows what has changed before each wait.
#pragma once

#include "platform/framework_frame.h"
#include "platform/framework_menu.h"
#include "platform/framework_status_bar.h"
#include "programs/desktop/windows/command_window.h"
#include "programs/desktop/windows/drawing_view.h"

class MainFrame : public CFrameWnd {
 public:
  explicit MainFrame(desktop::Desktop& desktop);
  // Makes the window, hidden; the framework's main window from then on. False on failure: the
  // object is gone.
  bool CreateMain();

  // The command line waits: shows what has changed and takes a message. False when the program is
  // told to end.
  bool WaitForInput();
  void ShowState();

  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnCreateClient(CREATESTRUCTW* create, CCreateContext* context) override;
  int OnCreate(CREATESTRUCTW* create);
  void OnClose();
  void OnDestroy();
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
  void OnSetFocus(CWnd*) { command_.FocusInput(); }
  void OnActivate(UINT state, CWnd* other, BOOL minimised);
  int OnMouseActivate(CWnd* top, UINT hit, UINT message);
  LRESULT OnRaiseOwned(WPARAM, LPARAM);
  LRESULT OnDropFiles(WPARAM drop, LPARAM);
  void OnInitMenuPopup(CMenu* menu, UINT index, BOOL system);
  void OnEntry(UINT id);
  void OnRecent(UINT id);
  void OnUpdateUndo(CCmdUI* item);
  void OnUpdateRedo(CCmdUI* item);
  void OnUpdateSnaps(CCmdUI* item);
  void OnUpdateOrtho(CCmdUI* item);
  void OnUpdateLibrary(CCmdUI* item);
  void OnUpdateTextWindow(CCmdUI* item);
  void OnLayerPane();
  void OnColourPane();
  DECLARE_MESSAGE_MAP()

 private:
  bool CreateBars();
  void CreateMenus();
  void FillRecent(CMenu& menu);
  void ShowStatus();
  bool TakesKeysFrom(HWND window) const;
  bool TakeKey(UINT virtualKey);
  bool TakeCharacter(HWND window, wchar_t character);
  int ChooseFrom(const std::vector<std::string>& texts, const std::string& current, int pane);
  void About();

  desktop::Desktop& desktop_;
  DrawingView* view_ = nullptr;  // deletes itself with its window
  CommandWindow command_;
  CToolBar bar_;
  CStatusBar status_;
  CFont font_;
  CMenu menu_;
  std::wstring shownTitle_;
};
