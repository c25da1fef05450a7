// The system's file dialogs.
#include "platform/framework_file_dialog.h"

// Leans on the system's header.
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "platform/framework_app.h"

CFileDialog::CFileDialog(BOOL open, const wchar_t* extension, const wchar_t* fileName, DWORD flags,
                         const wchar_t* filter, CWnd* parent)
    : m_bOpen(open),
      m_extension(extension),
      m_path(fileName),
      m_flags(flags),
      m_filter(filter ? filter : L""),
      m_pParent(parent ? parent : AfxGetMainWnd()) {
  std::replace(m_filter.begin(), m_filter.end(), L'|', L'\0');
}

INT_PTR CFileDialog::DoModal() {
  std::vector<wchar_t> name(32768);
  std::copy_n(m_path.GetString(),
              std::min<std::size_t>(static_cast<std::size_t>(m_path.GetLength()), name.size() - 1),
              name.begin());
  OPENFILENAMEW asked{};
  asked.lStructSize = sizeof asked;
  asked.hwndOwner = m_pParent ? m_pParent->m_hWnd : nullptr;
  asked.lpstrFilter = m_filter.c_str();
  asked.lpstrFile = name.data();
  asked.nMaxFile = static_cast<DWORD>(name.size());
  asked.lpstrDefExt = m_extension;
  asked.Flags = m_flags | OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR |
                (m_bOpen ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST);
  const BOOL chosen = m_bOpen ? ::GetOpenFileNameW(&asked) : ::GetSaveFileNameW(&asked);
  m_path = chosen ? name.data() : L"";
  return chosen ? IDOK : IDCANCEL;
}

CString CFileDialog::GetPathName() const { return m_path; }
