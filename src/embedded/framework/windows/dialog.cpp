// Modal dialogs: making the window from the resource, the loop, the end.
#include <exception>

#include "embedded/framework/windows/state.h"
#include "platform/framework_app.h"
#include "platform/framework_dialog.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_resources.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, OnOK)
ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT templateId, CWnd* parent) : m_nTemplateID(templateId), m_pParentWnd(parent) {}

namespace {

// A window that takes no input while this object lives.
class Disabled {
 public:
  explicit Disabled(HWND window) : window_(window && ::IsWindowEnabled(window) ? window : nullptr) {
    if (window_) ::EnableWindow(window_, FALSE);
  }
  ~Disabled() {
    if (window_) ::EnableWindow(window_, TRUE);
  }
  Disabled(const Disabled&) = delete;
  Disabled& operator=(const Disabled&) = delete;

 private:
  HWND window_;
};

// Where the user was last: the main window, or a window above it.
HWND lastActiveWindow() {
  const CWnd* main = AfxGetMainWnd();
  return main && main->m_hWnd ? ::GetLastActivePopup(main->m_hWnd) : ::GetActiveWindow();
}

}  // namespace

INT_PTR CDialog::DoModal() {
  const HWND owner =
      m_pParentWnd ? ::GetAncestor(m_pParentWnd->m_hWnd, GA_ROOT) : lastActiveWindow();
  m_nResult = -1;
  m_bRunning = true;
  {
    const Disabled main(owner ? ::GetAncestor(owner, GA_ROOTOWNER) : nullptr);
    const Disabled behind(owner);
    if (createFromResource(owner)) pump();
    m_bRunning = false;
  }
  // The owner is enabled by now: the system hands the focus to it and not to another program.
  if (m_hWnd && owner && ::GetActiveWindow() == m_hWnd) ::SetActiveWindow(owner);
  DestroyWindow();
  return m_nResult;
}

bool CDialog::createFromResource(HWND parent) {
  const wchar_t* name = MAKEINTRESOURCEW(m_nTemplateID);
  const HINSTANCE module = AfxFindResourceHandle(name, RT_DIALOG);
  const framework::Creation creation(this);
  return ::CreateDialogParamW(module, name, parent, &CDialog::dialogProcedure,
                              reinterpret_cast<LPARAM>(this)) != nullptr;
}

INT_PTR CALLBACK CDialog::dialogProcedure(HWND window, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_INITDIALOG) return FALSE;
  auto* dialog = reinterpret_cast<CDialog*>(lParam);
  // The system stands between this call and the window procedure.
  try {
    const BOOL focusIsFree = dialog->OnInitDialog();
    dialog->centre(::GetWindow(window, GW_OWNER));
    return focusIsFree;
  } catch (CException*) {
    framework::reportException(window);
  } catch (const std::exception&) {
    framework::reportException(window);
  }
  return TRUE;
}

// A dialog whose resource gives no place stands in the middle of its owner, on the screen.
void CDialog::centre(HWND owner) {
  CRect own;
  GetWindowRect(own);
  CRect work;
  ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  CRect around = work;
  if (owner && ::IsWindowVisible(owner) && !::IsIconic(owner)) ::GetWindowRect(owner, around);
  const auto place = [](int low, int high, int size, int least, int most) {
    const int middle = low + (high - low - size) / 2;
    const int last = most - size > least ? most - size : least;
    return middle < least ? least : middle > last ? last : middle;
  };
  SetWindowPos(nullptr, place(around.left, around.right, own.Width(), work.left, work.right),
               place(around.top, around.bottom, own.Height(), work.top, work.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CDialog::pump() {
  // A dialog that its own start has ended is never shown.
  if (m_bRunning) ShowWindow(SW_SHOWNORMAL);
  while (m_bRunning && m_hWnd) {
    MSG next{};
    if (!::PeekMessageW(&next, nullptr, 0, 0, PM_NOREMOVE)) AfxOnIdle();
    if (AfxPumpMessage()) continue;
    // The program ends: the outer loop gets the message again.
    ::PostQuitMessage(framework::state().quitCode);
    return;
  }
}

void CDialog::EndDialog(int result) {
  m_nResult = result;
  m_bRunning = false;
  PostMessage(WM_NULL);  // wakes the loop
}

BOOL CDialog::OnInitDialog() {
  UpdateData(FALSE);
  return TRUE;
}

void CDialog::OnOK() {
  if (UpdateData(TRUE)) EndDialog(IDOK);
}
void CDialog::OnCancel() { EndDialog(IDCANCEL); }

BOOL CDialog::PreTranslateMessage(MSG* message) {
  const UINT number = message->message;
  const bool input = (number >= WM_KEYFIRST && number <= WM_KEYLAST) ||
                     (number >= WM_MOUSEFIRST && number <= WM_MOUSELAST);
  return input && ::IsDialogMessageW(m_hWnd, message);
}

BOOL CDialog::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
  if (CWnd::OnCmdMsg(id, code, extra, info)) return TRUE;
  // Notifications of the dialog's own controls don't concern its owner.
  if (code != CN_COMMAND && code != CN_UPDATE_COMMAND_UI) return FALSE;
  if (id <= IDCANCEL) return FALSE;
  CWnd* owner = GetParent();
  return owner && owner->OnCmdMsg(id, code, extra, info);
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
  if (control.m_hWnd || exchange->m_bSaveAndValidate) return;
  if (!control.SubclassDlgItem(static_cast<UINT>(id), exchange->m_pDlgWnd)) {
    AfxThrowInvalidArgException();
  }
}
