// The system's dialogs that ask for a file's name.
#pragma once

#include "platform/framework_text.h"
#include "platform/framework_window.h"

class CFileDialog {
 public:
  // `filter` is pairs of a text and patterns, each ended by '|', the last by "||". The extension is
  // put behind a name that has none. When saving, a file that is there already is asked about.
  CFileDialog(BOOL open, const wchar_t* extension, const wchar_t* fileName, DWORD flags,
              const wchar_t* filter, CWnd* parent = nullptr);

  INT_PTR DoModal();            // IDOK or IDCANCEL
  CString GetPathName() const;  // whole; empty before IDOK

 private:
  BOOL m_bOpen;
  CString m_extension;
  CString m_path;
  DWORD m_flags;
  std::wstring m_filter;
  CWnd* m_pParent;
};
