// The thread's main window and its message loop. Every loop of ours pumps through these functions,
// so that PreTranslateMessage is asked in each.
#pragma once

#include "platform/framework_text.h"
#include "platform/framework_window.h"

CWnd* AfxGetMainWnd();  // null before it is set and after it is gone
void AfxSetMainWnd(CWnd* window);

// Asks the windows from the message's own up to the main window. True: taken, don't dispatch.
bool AfxPreTranslateMessage(MSG* message);
// Takes one message from the queue, waiting for it, and handles it. False for WM_QUIT.
bool AfxPumpMessage();
// Handles what is waiting without waiting itself; WM_QUIT stays in the queue. False when it found
// it.
bool AfxPumpWaitingMessages();
// Nothing is waiting: the main window's bars are brought up to date, temporary objects go.
void AfxOnIdle();
// Pumps until WM_QUIT, with idle time in between; the quit code.
int AfxRunMessageLoop();

// The program's file name without folder and ending.
std::wstring AfxProgramName();
// A message box owned by the main window, with the program's name as caption.
int AfxMessageBox(const wchar_t* text, unsigned style = 0);
// Message boxes and the wait cursor are the system's from now on.
void AfxUseSystemWindows();

// The hourglass while the object lives; the old cursor comes back with its end.
class CWaitCursor {
 public:
  CWaitCursor();
  ~CWaitCursor();
  CWaitCursor(const CWaitCursor&) = delete;
  CWaitCursor& operator=(const CWaitCursor&) = delete;

 private:
  HCURSOR before_;
};
