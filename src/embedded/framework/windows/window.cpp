// Windows and their objects: the map of handles, making and ending, the window procedure.
#include <exception>
#include <set>
#include <utility>

#include "embedded/framework/windows/handle_map.h"
#include "embedded/framework/windows/state.h"
#include "embedded/framework/windows/temporary.h"
#include "platform/framework_app.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_frame.h"
#include "platform/framework_messages.h"
#include "platform/framework_resources.h"
#include "platform/framework_window.h"

namespace {

framework::HandleMap<CWnd, HWND>& windows() {
  static framework::HandleMap<CWnd, HWND> map;
  [[maybe_unused]] static const bool registered = framework::addTemporaryKind(
      [] { windows().deleteTemporary([](CWnd& window) { window.m_hWnd = nullptr; }); });
  return map;
}

// Windows whose last painting failed.
std::set<HWND>& paintFailures() {
  static std::set<HWND> failed;
  return failed;
}

// Keeps the message that is being handled across nested ones.
class CurrentMessage {
 public:
  CurrentMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
      : outer_(std::exchange(framework::state().current,
                             MSG{window, message, wParam, lParam, 0, {}})) {}
  ~CurrentMessage() { framework::state().current = outer_; }
  CurrentMessage(const CurrentMessage&) = delete;
  CurrentMessage& operator=(const CurrentMessage&) = delete;

 private:
  MSG outer_;
};

// What a window answers when its handler threw.
LRESULT afterException(HWND window, UINT message) {
  if (message != WM_PAINT) {
    framework::reportException(window);
    return message == WM_CREATE || message == WM_NCCREATE ? -1 : 0;
  }
  ::ValidateRect(window, nullptr);
  if (paintFailures().insert(window).second) framework::reportException(window);
  return 0;
}

}  // namespace

framework::State& framework::state() {
  static State instance;
  return instance;
}

void framework::reportException(HWND owner) {
  std::wstring text;
  try {
    throw;
  } catch (CException* exception) {
    text = exception->Message();
    exception->Delete();
  } catch (const std::exception&) {
    text = L"内部错误。";
  }
  showMessageBox({owner, text, AfxProgramName(), MB_ICONEXCLAMATION});
}

LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* object = CWnd::FromHandlePermanent(window);
  if (!object) return ::DefWindowProcW(window, message, wParam, lParam);
  const CurrentMessage current(window, message, wParam, lParam);
  try {
    // The object may be gone behind this call.
    const LRESULT result = object->WindowProc(message, wParam, lParam);
    if (message == WM_PAINT || message == WM_NCDESTROY) paintFailures().erase(window);
    return result;
  } catch (CException*) {
    return afterException(window, message);
  } catch (const std::exception&) {
    return afterException(window, message);
  }
}

// --- making ---

LRESULT CALLBACK frameworkCreationHook(int code, WPARAM wParam, LPARAM lParam) {
  CWnd* object = framework::state().creating;
  if (code == HCBT_CREATEWND && object) {
    framework::state().creating = nullptr;
    object->SubclassWindow(reinterpret_cast<HWND>(wParam));
  }
  return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

framework::Creation::Creation(CWnd* object)
    : hook_(::SetWindowsHookExW(WH_CBT, &frameworkCreationHook, nullptr, ::GetCurrentThreadId())) {
  state().creating = object;
}
framework::Creation::~Creation() {
  state().creating = nullptr;
  if (hook_) ::UnhookWindowsHookEx(hook_);
}
bool framework::Creation::attached() const { return !state().creating; }

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

CWnd::~CWnd() {
  if (m_hWnd) CWnd::DestroyWindow();
}

BOOL CWnd::CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style,
                    int x, int y, int width, int height, HWND parent, HMENU menuOrId,
                    void* parameter) {
  CREATESTRUCTW create = {
      parameter, AfxGetInstanceHandle(),   menuOrId, parent,    height, width, y,
      x,         static_cast<LONG>(style), title,    className, exStyle};
  bool attached = false;
  HWND made = nullptr;
  if (PreCreateWindow(create)) {
    const framework::Creation creation(this);
    made = ::CreateWindowExW(create.dwExStyle, create.lpszClass, create.lpszName,
                             static_cast<DWORD>(create.style), create.x, create.y, create.cx,
                             create.cy, create.hwndParent, create.hMenu, create.hInstance,
                             create.lpCreateParams);
    attached = creation.attached();
  }
  if (!attached) PostNcDestroy();
  return made != nullptr;
}

BOOL CWnd::CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style,
                    const RECT& rect, CWnd* parent, UINT id, void* parameter) {
  return CreateEx(exStyle, className, title, style, rect.left, rect.top, rect.right - rect.left,
                  rect.bottom - rect.top, parent ? parent->m_hWnd : nullptr,
                  reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), parameter);
}

BOOL CWnd::Create(const wchar_t* className, const wchar_t* title, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id, CCreateContext* context) {
  return CreateEx(0, className, title, style | WS_CHILD, rect, parent, id, context);
}

BOOL CWnd::PreCreateWindow(CREATESTRUCTW& create) {
  if (!create.lpszClass) {
    create.lpszClass = AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW,
                                           ::LoadCursorW(nullptr, IDC_ARROW));
  }
  return create.lpszClass != nullptr;
}

BOOL CWnd::DestroyWindow() {
  const HWND window = m_hWnd;
  if (!window) return FALSE;
  const bool known = windows().permanent(window) == this;
  const BOOL result = ::DestroyWindow(window);
  // A permanent object hears of the end itself, and may be deleted by now.
  if (!known) m_hWnd = nullptr;
  return result;
}

void CWnd::OnNcDestroy() {
  if (framework::state().main == this) framework::state().main = nullptr;
  Default();
  Detach();
  PostNcDestroy();  // may delete the object
}

// --- handle ---

BOOL CWnd::Attach(HWND window) {
  if (!window || m_hWnd || windows().permanent(window)) return FALSE;
  m_hWnd = window;
  windows().add(window, this);
  return TRUE;
}

HWND CWnd::Detach() {
  const HWND window = m_hWnd;
  if (!window) return nullptr;
  if (m_pfnSuper && ::IsWindow(window)) {
    ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
  }
  if (windows().permanent(window) == this) windows().remove(window);
  m_pfnSuper = nullptr;
  m_hWndOwner = nullptr;
  m_hWnd = nullptr;
  return window;
}

BOOL CWnd::SubclassWindow(HWND window) {
  if (!Attach(window)) return FALSE;
  const auto procedure = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
  // Windows of a class that was registered with the framework's procedure have no other one.
  m_pfnSuper = procedure == &AfxWndProc ? nullptr : procedure;
  return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
  return SubclassWindow(::GetDlgItem(parent->m_hWnd, static_cast<int>(id)));
}

CWnd* CWnd::FromHandle(HWND window) {
  return windows().find<CWnd>(window,
                              [](CWnd& object, HWND assigned) { object.m_hWnd = assigned; });
}

CWnd* CWnd::FromHandlePermanent(HWND window) { return windows().permanent(window); }
