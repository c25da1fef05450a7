// The system's controls.
#include "platform/framework_controls.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)

BOOL CStatic::Create(const wchar_t* text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"STATIC", text, style, rect, parent, id);
}
BOOL CButton::Create(const wchar_t* text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"BUTTON", text, style, rect, parent, id);
}
BOOL CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"EDIT", nullptr, style, rect, parent, id);
}
BOOL CComboBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"COMBOBOX", nullptr, style, rect, parent, id);
}
int CComboBox::AddString(const wchar_t* text) {
  return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}
