// Windows. A CWnd stands for one window of the system. An object whose Create succeeded, or to
// which a handle was attached or subclassed, is permanent: messages of the window run through its
// message maps, and PostNcDestroy tells it that the window is gone. A class that is made on the
// heap and has nobody to delete it deletes itself there; views and frames do. Objects that
// FromHandle gives own nothing and last until the next idle time.
#pragma once

#include "platform/framework_command.h"
#include "platform/framework_message_map.h"
#include "platform/framework_rect.h"
#include "platform/framework_text.h"

class CDataExchange;
class CFont;
class CFrameWnd;
class CMenu;
struct CCreateContext;

// Ids of the framework's own child windows, and its messages between them.
constexpr UINT AFX_IDW_TOOLBAR = 0xE800;
constexpr UINT AFX_IDW_DOCKBAR_TOP = 0xE81B;
constexpr UINT AFX_IDW_DOCKBAR_LEFT = 0xE81C;
constexpr UINT AFX_IDW_DOCKBAR_RIGHT = 0xE81D;
constexpr UINT AFX_IDW_DOCKBAR_BOTTOM = 0xE81E;
constexpr UINT AFX_IDW_PANE_FIRST = 0xE900;
constexpr UINT AFX_IDW_PANE_LAST = 0xE9FF;
constexpr UINT WM_SIZEPARENT = 0x0361;       // frame to children: AFX_SIZEPARENTPARAMS
constexpr UINT WM_IDLEUPDATECMDUI = 0x0363;  // frame to children at idle: disable without handler
constexpr UINT WM_INITIALUPDATE = 0x0364;    // frame or splitter to a new view

struct AFX_SIZEPARENTPARAMS {
  HDWP hDWP;  // null: only measure
  RECT rect;  // what is left of the parent's client area
};

class CWnd : public CCmdTarget {
  DECLARE_DYNCREATE(CWnd)

 public:
  CWnd() = default;
  ~CWnd() override;

  HWND m_hWnd = nullptr;

  // --- handle ---
  HWND GetSafeHwnd() const { return m_hWnd; }
  BOOL Attach(HWND window);  // messages keep going to the window's own procedure
  HWND Detach();
  static CWnd* FromHandle(HWND window);
  static CWnd* FromHandlePermanent(HWND window);  // null when no object owns the window
  BOOL SubclassWindow(HWND window);               // from here on messages go through the maps
  BOOL SubclassDlgItem(UINT id, CWnd* parent);

  // --- making and ending ---
  // A child. A null class name gives a plain window class without background. False on failure, and
  // PostNcDestroy has then been called.
  virtual BOOL Create(const wchar_t* className, const wchar_t* title, DWORD style, const RECT& rect,
                      CWnd* parent, UINT id, CCreateContext* context = nullptr);
  BOOL CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style,
                const RECT& rect, CWnd* parent, UINT id, void* parameter = nullptr);
  BOOL CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style, int x,
                int y, int width, int height, HWND parent, HMENU menuOrId,
                void* parameter = nullptr);
  virtual BOOL PreCreateWindow(CREATESTRUCTW& create);  // may change what is made; false: refuse
  virtual BOOL DestroyWindow();
  virtual void PostNcDestroy() {}

  // --- relatives ---
  CWnd* GetParent() const;
  CWnd* GetOwner() const;  // who receives the notifications: the set owner, else the parent
  void SetOwner(CWnd* owner);
  CWnd* SetParent(CWnd* parent);
  CFrameWnd* GetParentFrame() const;  // the nearest frame above this window, or null
  CWnd* GetDlgItem(int id) const;
  int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
  BOOL IsChild(const CWnd* window) const { return ::IsChild(m_hWnd, window->m_hWnd); }

  // --- messages ---
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  LRESULT Default();  // inside of a handler: the current message's default processing
  // Asked before a message of the queue is dispatched, window by window upwards. True: taken.
  virtual BOOL PreTranslateMessage(MSG* message);

  // --- state ---
  DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_STYLE)); }
  DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_EXSTYLE)); }
  BOOL ModifyStyle(DWORD remove, DWORD add, UINT positionFlags = 0);
  BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
  BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
  BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
  BOOL EnableWindow(BOOL on = TRUE) { return ::EnableWindow(m_hWnd, on); }
  BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
  void SetWindowText(const wchar_t* text) { ::SetWindowTextW(m_hWnd, text); }
  void GetWindowText(CString& text) const;
  void SetFont(CFont* font, BOOL redraw = TRUE);
  CFont* GetFont() const;
  CMenu* GetMenu() const;
  CMenu* GetSystemMenu(BOOL revert) const;

  // --- place ---
  void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
  void MoveWindow(const RECT* rect, BOOL repaint = TRUE);
  BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
  void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
  void GetClientRect(RECT* rect) const { ::GetClientRect(m_hWnd, rect); }
  void ClientToScreen(POINT* point) const { ::ClientToScreen(m_hWnd, point); }
  void ClientToScreen(RECT* rect) const;
  void ScreenToClient(POINT* point) const { ::ScreenToClient(m_hWnd, point); }
  void ScreenToClient(RECT* rect) const;
  int SetScrollInfo(int bar, SCROLLINFO* info, BOOL redraw = TRUE);
  BOOL GetScrollInfo(int bar, SCROLLINFO* info, UINT mask = SIF_ALL) const;
  int GetScrollPos(int bar) const { return ::GetScrollPos(m_hWnd, bar); }

  // --- painting ---
  void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }
  void InvalidateRect(const RECT* rect, BOOL erase = TRUE);
  void UpdateWindow() { ::UpdateWindow(m_hWnd); }
  BOOL RedrawWindow(const RECT* rect, CRgn* region, UINT flags);
  CDC* GetDC();  // give it back with ReleaseDC
  int ReleaseDC(CDC* dc);

  // --- focus, capture, timers ---
  CWnd* SetFocus();
  static CWnd* GetFocus();
  CWnd* SetActiveWindow();
  CWnd* SetCapture();
  static CWnd* GetCapture();
  UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds);
  BOOL KillTimer(UINT_PTR id) { return ::KillTimer(m_hWnd, id); }

  // --- boxes and data ---
  int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT style = MB_OK);
  // Moves data between controls and members: to the members when saving. Always true.
  BOOL UpdateData(BOOL save = TRUE);
  virtual void DoDataExchange(CDataExchange*) {}

  // --- lay-out of a window with bars ---
  // Lets every child take its strip of the client area and gives the rest to the child `rest`.
  void RepositionBars(UINT first, UINT last, UINT rest);

  // The entry of every message; called by the system's window procedure alone.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

  // --- handlers of messages: what the framework does for every window ---
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);

 protected:
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);

  // The base class's part of these messages: default processing, if nothing else is said.
  int OnCreate(CREATESTRUCTW*) { return static_cast<int>(Default()); }
  void OnDestroy() { Default(); }
  void OnNcDestroy();
  void OnClose() { Default(); }
  void OnPaint() { Default(); }
  BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
  void OnSize(UINT, int, int) { Default(); }
  void OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
  void OnTimer(UINT_PTR) { Default(); }
  int OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
  void OnActivate(UINT, CWnd*, BOOL) { Default(); }
  void OnSetFocus(CWnd*) { Default(); }
  void OnKillFocus(CWnd*) { Default(); }
  BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
  void OnMouseMove(UINT, CPoint) { Default(); }
  void OnLButtonDown(UINT, CPoint) { Default(); }
  void OnLButtonUp(UINT, CPoint) { Default(); }
  void OnLButtonDblClk(UINT, CPoint) { Default(); }
  void OnRButtonDown(UINT, CPoint) { Default(); }
  void OnRButtonUp(UINT, CPoint) { Default(); }
  void OnNcLButtonDown(UINT, CPoint) { Default(); }
  void OnNcLButtonUp(UINT, CPoint) { Default(); }
  void OnNcRButtonDown(UINT, CPoint) { Default(); }
  void OnNcRButtonUp(UINT, CPoint) { Default(); }
  void OnHScroll(UINT, UINT, CWnd*) { Default(); }
  void OnVScroll(UINT, UINT, CWnd*) { Default(); }
  void OnChar(UINT, UINT, UINT) { Default(); }
  void OnKeyDown(UINT, UINT, UINT) { Default(); }
  void OnSysCommand(UINT, LPARAM) { Default(); }
  void OnDrawItem(int id, DRAWITEMSTRUCT* item);        // owner-drawn menus
  void OnMeasureItem(int id, MEASUREITEMSTRUCT* item);  // the same

  DECLARE_MESSAGE_MAP()

 private:
  friend LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  friend LRESULT CALLBACK frameworkCreationHook(int code, WPARAM wParam, LPARAM lParam);

  HWND m_hWndOwner = nullptr;
  WNDPROC m_pfnSuper = nullptr;  // of the window's class, when the framework's took its place
};

// The window procedure of every window with an object. Exceptions end here: the framework's message
// is shown and the window goes on; a window whose painting fails is validated and reports once.
LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
inline WNDPROC AfxGetAfxWndProc() { return &AfxWndProc; }

// Moves a child within the batch, or at once without one; nothing for a child that is there
// already.
void AfxRepositionWindow(AFX_SIZEPARENTPARAMS* layout, HWND window, const RECT* rect);
