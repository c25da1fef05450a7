// The main window, the message loop, message boxes, the hourglass.
#include "embedded/framework/windows/state.h"
#include "embedded/framework/windows/temporary.h"
#include "platform/framework_app.h"
#include "platform/framework_messages.h"
#include "platform/framework_wait_cursor.h"

CWnd* AfxGetMainWnd() { return framework::state().main; }
void AfxSetMainWnd(CWnd* window) { framework::state().main = window; }

bool AfxPreTranslateMessage(MSG* message) {
  const HWND main = framework::state().main ? framework::state().main->m_hWnd : nullptr;
  for (HWND window = message->hwnd; window; window = ::GetParent(window)) {
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (object && object->PreTranslateMessage(message)) return true;
    if (window == main) return false;
  }
  // Accelerators of the main window work in windows beside it, too.
  return message->hwnd && main && framework::state().main->PreTranslateMessage(message);
}

namespace {

void handle(MSG& message) {
  if (AfxPreTranslateMessage(&message)) return;
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
}

}  // namespace

bool AfxPumpMessage() {
  MSG message{};
  const BOOL got = ::GetMessageW(&message, nullptr, 0, 0);
  if (got == 0) framework::state().quitCode = static_cast<int>(message.wParam);
  if (got <= 0) return false;
  handle(message);
  return true;
}

bool AfxPumpWaitingMessages() {
  MSG message{};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      ::PostQuitMessage(static_cast<int>(message.wParam));
      return false;
    }
    handle(message);
  }
  return true;
}

void AfxOnIdle() {
  const CWnd* main = framework::state().main;
  if (main && main->IsWindowVisible()) {
    main->SendMessage(WM_IDLEUPDATECMDUI, TRUE);
    main->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE);
  }
  framework::deleteTemporaryObjects();
}

int AfxRunMessageLoop() {
  for (;;) {
    MSG next{};
    if (!::PeekMessageW(&next, nullptr, 0, 0, PM_NOREMOVE)) AfxOnIdle();
    if (!AfxPumpMessage()) return framework::state().quitCode;
  }
}

// --- message boxes ---

std::wstring AfxProgramName() {
  wchar_t path[MAX_PATH] = L"";
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring whole = path;
  const std::wstring file = whole.substr(whole.find_last_of(L'\\') + 1);
  return file.substr(0, file.find_last_of(L'.'));
}

int AfxMessageBox(const wchar_t* text, unsigned style) {
  const CWnd* main = framework::state().main;
  return showMessageBox({main ? main->m_hWnd : nullptr, text, AfxProgramName(), style});
}

void AfxUseSystemWindows() {
  setMessageBoxHandler([](const MessageBoxCall& call) {
    return ::MessageBoxW(static_cast<HWND>(call.owner), call.text.c_str(), call.caption.c_str(),
                         call.style);
  });
  setWaitCursorHandler([](WaitCursor) { ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT)); });
}

// --- hourglass ---

CWaitCursor::CWaitCursor() : before_(::SetCursor(::LoadCursorW(nullptr, IDC_WAIT))) {}
CWaitCursor::~CWaitCursor() { ::SetCursor(before_); }
