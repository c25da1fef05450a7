// The system's controls as children with an object.
#pragma once

#include "platform/framework_window.h"

class CStatic : public CWnd {
  DECLARE_DYNAMIC(CStatic)
 public:
  CStatic() = default;
  BOOL Create(const wchar_t* text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF);
};

class CButton : public CWnd {
  DECLARE_DYNAMIC(CButton)
 public:
  CButton() = default;
  BOOL Create(const wchar_t* text, DWORD style, const RECT& rect, CWnd* parent, UINT id);
  int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
  void SetCheck(int check) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
};

class CEdit : public CWnd {
  DECLARE_DYNAMIC(CEdit)
 public:
  CEdit() = default;
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  void SetSel(int first, int last) { SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last); }
  void LimitText(int characters) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(characters)); }
};

class CComboBox : public CWnd {
  DECLARE_DYNAMIC(CComboBox)
 public:
  CComboBox() = default;
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  int AddString(const wchar_t* text);
  int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
  int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }  // -1: none
  int SetCurSel(int index) {
    return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index)));
  }
};
