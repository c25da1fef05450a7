// Message maps: which member function of a class handles which message or command. An entry calls
// its member through a function that is made for the member's own signature, so that a handler with
// the wrong parameters doesn't compile.
#pragma once

#include <type_traits>

#include "platform/framework_command.h"
#include "platform/framework_dc.h"
#include "platform/framework_rect.h"

struct AFX_MSGMAP_ENTRY {
  UINT nMessage;  // WM_COMMAND for commands; 0 ends the map
  int nCode;      // of a command
  UINT nID;       // first and last command that the entry handles
  UINT nLastID;
  LRESULT (*message)(CCmdTarget& target, WPARAM wParam, LPARAM lParam);
  void (*command)(CCmdTarget& target, UINT id, void* extra);
};

struct AFX_MSGMAP {
  const AFX_MSGMAP* (*base)();  // null: no base class has a map
  const AFX_MSGMAP_ENTRY* entries;
};

namespace framework {

// Calls one member; a member without result gives 0.
template <auto Handler>
struct Member;
template <typename Class, typename Result, typename... Arguments,
          Result (Class::*Handler)(Arguments...)>
struct Member<Handler> {
  static LRESULT call(CCmdTarget& target, Arguments... arguments) {
    auto& object = static_cast<Class&>(target);
    if constexpr (std::is_void_v<Result>) {
      (object.*Handler)(arguments...);
      return 0;
    } else {
      return static_cast<LRESULT>((object.*Handler)(arguments...));
    }
  }
};

CWnd* windowOf(WPARAM handle);
CMenu* menuOf(WPARAM handle);

// How messages carry their arguments.
template <auto H>
LRESULT plain(CCmdTarget& target, WPARAM, LPARAM) {
  return Member<H>::call(target);
}
template <auto H>
LRESULT bothParameters(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, w, l);
}
template <auto H>
LRESULT context(CCmdTarget& target, WPARAM w, LPARAM) {
  return Member<H>::call(target, CDC::FromHandle(reinterpret_cast<HDC>(w)));
}
template <auto H>
LRESULT point(CCmdTarget& target, WPARAM, LPARAM l) {
  return Member<H>::call(target, CPoint(l));
}
template <auto H>
LRESULT numberAndPoint(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, static_cast<UINT>(w), CPoint(l));
}
template <auto H>
LRESULT wheel(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, LOWORD(w), static_cast<short>(HIWORD(w)), CPoint(l));
}
template <auto H>
LRESULT numberAndSize(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, static_cast<UINT>(w), LOWORD(l), HIWORD(l));
}
template <auto H>
LRESULT number(CCmdTarget& target, WPARAM w, LPARAM) {
  return Member<H>::call(target, w);
}
template <auto H>
LRESULT numberAndParameter(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, static_cast<UINT>(w), l);
}
template <auto H>
LRESULT flagAndNumber(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, static_cast<BOOL>(w), static_cast<UINT>(l));
}
template <auto H>
LRESULT key(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, static_cast<UINT>(w), LOWORD(l), HIWORD(l));
}
template <auto H>
LRESULT window(CCmdTarget& target, WPARAM w, LPARAM) {
  return Member<H>::call(target, windowOf(w));
}
template <auto H>
LRESULT windowOfSecond(CCmdTarget& target, WPARAM, LPARAM l) {
  return Member<H>::call(target, windowOf(static_cast<WPARAM>(l)));
}
template <auto H>
LRESULT windowAndHalves(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, windowOf(w), LOWORD(l), HIWORD(l));
}
template <auto H>
LRESULT halvesAndWindow(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, LOWORD(w), HIWORD(w), windowOf(static_cast<WPARAM>(l)));
}
template <auto H>
LRESULT activation(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, LOWORD(w), windowOf(static_cast<WPARAM>(l)), HIWORD(w) != 0);
}
template <auto H>
LRESULT popup(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, menuOf(w), LOWORD(l), HIWORD(l) != 0);
}
template <typename Structure, auto H>
LRESULT structure(CCmdTarget& target, WPARAM, LPARAM l) {
  return Member<H>::call(target, reinterpret_cast<Structure*>(l));
}
template <typename Structure, auto H>
LRESULT numberAndStructure(CCmdTarget& target, WPARAM w, LPARAM l) {
  return Member<H>::call(target, static_cast<int>(w), reinterpret_cast<Structure*>(l));
}

// How commands carry theirs.
template <auto H>
void command(CCmdTarget& target, UINT, void*) {
  Member<H>::call(target);
}
template <auto H>
void commandWithId(CCmdTarget& target, UINT id, void*) {
  Member<H>::call(target, id);
}
template <auto H>
void update(CCmdTarget& target, UINT, void* extra) {
  Member<H>::call(target, static_cast<CCmdUI*>(extra));
}

}  // namespace framework

// Class and member names take no parentheses. NOLINTBEGIN(bugprone-macro-parentheses)

// Inside of a class that has a map.
#define DECLARE_MESSAGE_MAP()                       \
 protected:                                         \
  const AFX_MSGMAP* GetMessageMap() const override; \
  static const AFX_MSGMAP* GetThisMessageMap();

// In its source file: BEGIN_MESSAGE_MAP, the entries, END_MESSAGE_MAP.
#define BEGIN_MESSAGE_MAP(class_name, base_class_name)                                            \
  const AFX_MSGMAP* class_name::GetMessageMap() const { return class_name::GetThisMessageMap(); } \
  const AFX_MSGMAP* class_name::GetThisMessageMap() {                                             \
    using ThisClass [[maybe_unused]] = class_name;                                                \
    using BaseClass = base_class_name;                                                            \
    static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                                                                 \
  { 0, 0, 0, 0, nullptr, nullptr }                                                        \
  }                                                                                       \
  ;                                                                                       \
  static const AFX_MSGMAP map = {[] { return BaseClass::GetThisMessageMap(); }, entries}; \
  return &map;                                                                            \
  }

#define FRAMEWORK_MESSAGE(number, call) {number, 0, 0, 0, call, nullptr},
#define FRAMEWORK_COMMAND(code, first, last, call) {WM_COMMAND, code, first, last, nullptr, call},

// --- commands and notifications of controls ---
#define ON_COMMAND(id, member) \
  FRAMEWORK_COMMAND(CN_COMMAND, id, id, &framework::command<&ThisClass::member>)
#define ON_COMMAND_RANGE(first, last, member) \
  FRAMEWORK_COMMAND(CN_COMMAND, first, last, &framework::commandWithId<&ThisClass::member>)
#define ON_UPDATE_COMMAND_UI(id, member) \
  FRAMEWORK_COMMAND(CN_UPDATE_COMMAND_UI, id, id, &framework::update<&ThisClass::member>)
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, member) \
  FRAMEWORK_COMMAND(CN_UPDATE_COMMAND_UI, first, last, &framework::update<&ThisClass::member>)
#define ON_CONTROL(code, id, member) \
  FRAMEWORK_COMMAND(code, id, id, &framework::command<&ThisClass::member>)
#define ON_BN_CLICKED(id, member) ON_CONTROL(BN_CLICKED, id, member)
#define ON_CBN_SELCHANGE(id, member) ON_CONTROL(CBN_SELCHANGE, id, member)

// --- messages ---
#define ON_MESSAGE(number, member) \
  FRAMEWORK_MESSAGE(number, &framework::bothParameters<&ThisClass::member>)
#define FRAMEWORK_ON(number, form, member) \
  FRAMEWORK_MESSAGE(number, &framework::form<&ThisClass::member>)
#define FRAMEWORK_ON_STRUCTURE(number, type, member) \
  FRAMEWORK_MESSAGE(number, (&framework::structure<type, &ThisClass::member>))

#define ON_WM_CREATE() FRAMEWORK_ON_STRUCTURE(WM_CREATE, CREATESTRUCTW, OnCreate)
#define ON_WM_NCCREATE() FRAMEWORK_ON_STRUCTURE(WM_NCCREATE, CREATESTRUCTW, OnNcCreate)
#define ON_WM_DESTROY() FRAMEWORK_ON(WM_DESTROY, plain, OnDestroy)
#define ON_WM_NCDESTROY() FRAMEWORK_ON(WM_NCDESTROY, plain, OnNcDestroy)
#define ON_WM_CLOSE() FRAMEWORK_ON(WM_CLOSE, plain, OnClose)
#define ON_WM_PAINT() FRAMEWORK_ON(WM_PAINT, plain, OnPaint)
#define ON_WM_NCPAINT() FRAMEWORK_ON(WM_NCPAINT, plain, OnNcPaint)
#define ON_WM_ERASEBKGND() FRAMEWORK_ON(WM_ERASEBKGND, context, OnEraseBkgnd)
#define ON_WM_SIZE() FRAMEWORK_ON(WM_SIZE, numberAndSize, OnSize)
#define ON_WM_GETMINMAXINFO() FRAMEWORK_ON_STRUCTURE(WM_GETMINMAXINFO, MINMAXINFO, OnGetMinMaxInfo)
#define ON_WM_NCCALCSIZE()         \
  FRAMEWORK_MESSAGE(WM_NCCALCSIZE, \
                    (&framework::numberAndStructure<NCCALCSIZE_PARAMS, &ThisClass::OnNcCalcSize>))
#define ON_WM_NCHITTEST() FRAMEWORK_ON(WM_NCHITTEST, point, OnNcHitTest)
#define ON_WM_SHOWWINDOW() FRAMEWORK_ON(WM_SHOWWINDOW, flagAndNumber, OnShowWindow)
#define ON_WM_ACTIVATE() FRAMEWORK_ON(WM_ACTIVATE, activation, OnActivate)
#define ON_WM_MOUSEACTIVATE() FRAMEWORK_ON(WM_MOUSEACTIVATE, windowAndHalves, OnMouseActivate)
#define ON_WM_SETFOCUS() FRAMEWORK_ON(WM_SETFOCUS, window, OnSetFocus)
#define ON_WM_KILLFOCUS() FRAMEWORK_ON(WM_KILLFOCUS, window, OnKillFocus)
#define ON_WM_SETCURSOR() FRAMEWORK_ON(WM_SETCURSOR, windowAndHalves, OnSetCursor)
#define ON_WM_CAPTURECHANGED() FRAMEWORK_ON(WM_CAPTURECHANGED, windowOfSecond, OnCaptureChanged)
#define ON_WM_TIMER() FRAMEWORK_ON(WM_TIMER, number, OnTimer)
#define ON_WM_HSCROLL() FRAMEWORK_ON(WM_HSCROLL, halvesAndWindow, OnHScroll)
#define ON_WM_VSCROLL() FRAMEWORK_ON(WM_VSCROLL, halvesAndWindow, OnVScroll)
#define ON_WM_MOUSEWHEEL() FRAMEWORK_ON(WM_MOUSEWHEEL, wheel, OnMouseWheel)
#define ON_WM_MOUSEMOVE() FRAMEWORK_ON(WM_MOUSEMOVE, numberAndPoint, OnMouseMove)
#define ON_WM_LBUTTONDOWN() FRAMEWORK_ON(WM_LBUTTONDOWN, numberAndPoint, OnLButtonDown)
#define ON_WM_LBUTTONUP() FRAMEWORK_ON(WM_LBUTTONUP, numberAndPoint, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() FRAMEWORK_ON(WM_LBUTTONDBLCLK, numberAndPoint, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() FRAMEWORK_ON(WM_RBUTTONDOWN, numberAndPoint, OnRButtonDown)
#define ON_WM_RBUTTONUP() FRAMEWORK_ON(WM_RBUTTONUP, numberAndPoint, OnRButtonUp)
#define ON_WM_MBUTTONDOWN() FRAMEWORK_ON(WM_MBUTTONDOWN, numberAndPoint, OnMButtonDown)
#define ON_WM_MBUTTONUP() FRAMEWORK_ON(WM_MBUTTONUP, numberAndPoint, OnMButtonUp)
#define ON_WM_MBUTTONDBLCLK() FRAMEWORK_ON(WM_MBUTTONDBLCLK, numberAndPoint, OnMButtonDblClk)
#define ON_WM_NCLBUTTONDOWN() FRAMEWORK_ON(WM_NCLBUTTONDOWN, numberAndPoint, OnNcLButtonDown)
#define ON_WM_NCLBUTTONUP() FRAMEWORK_ON(WM_NCLBUTTONUP, numberAndPoint, OnNcLButtonUp)
#define ON_WM_NCRBUTTONDOWN() FRAMEWORK_ON(WM_NCRBUTTONDOWN, numberAndPoint, OnNcRButtonDown)
#define ON_WM_NCRBUTTONUP() FRAMEWORK_ON(WM_NCRBUTTONUP, numberAndPoint, OnNcRButtonUp)
#define ON_WM_CHAR() FRAMEWORK_ON(WM_CHAR, key, OnChar)
#define ON_WM_KEYDOWN() FRAMEWORK_ON(WM_KEYDOWN, key, OnKeyDown)
#define ON_WM_KEYUP() FRAMEWORK_ON(WM_KEYUP, key, OnKeyUp)
#define ON_WM_SYSCOMMAND() FRAMEWORK_ON(WM_SYSCOMMAND, numberAndParameter, OnSysCommand)
#define ON_WM_INITMENUPOPUP() FRAMEWORK_ON(WM_INITMENUPOPUP, popup, OnInitMenuPopup)
#define ON_WM_DRAWITEM()         \
  FRAMEWORK_MESSAGE(WM_DRAWITEM, \
                    (&framework::numberAndStructure<DRAWITEMSTRUCT, &ThisClass::OnDrawItem>))
#define ON_WM_MEASUREITEM() \
  FRAMEWORK_MESSAGE(        \
      WM_MEASUREITEM,       \
      (&framework::numberAndStructure<MEASUREITEMSTRUCT, &ThisClass::OnMeasureItem>))
// NOLINTEND(bugprone-macro-parentheses)
