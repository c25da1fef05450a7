// Finding resources and registering window classes.
#include <cstdint>
#include <cwchar>
#include <set>
#include <string>
#include <vector>

#include "embedded/framework/linked_libraries.h"
#include "platform/framework_resources.h"

HINSTANCE AfxGetInstanceHandle() { return ::GetModuleHandleW(nullptr); }

HINSTANCE AfxFindResourceHandle(const wchar_t* name, const wchar_t* type) {
  const std::vector<CDynLinkLibrary*>& libraries = framework::linkedLibraries();
  for (auto one = libraries.rbegin(); one != libraries.rend(); ++one) {
    const HINSTANCE module = (*one)->resources();
    if (module && ::FindResourceW(module, name, type)) return module;
  }
  return AfxGetInstanceHandle();
}

BOOL AfxRegisterClass(const WNDCLASSW* windowClass) {
  return ::RegisterClassW(windowClass) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

const wchar_t* AfxRegisterWndClass(UINT style, HCURSOR cursor, HBRUSH background, HICON icon) {
  static std::set<std::wstring> names;  // keeps the characters where they are
  wchar_t name[96];
  std::swprintf(name, 96, L"Framework:%x:%llx:%llx:%llx", style,
                static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(cursor)),
                static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(background)),
                static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(icon)));
  const std::wstring& kept = *names.insert(name).first;
  WNDCLASSW made{};
  made.style = style;
  made.lpfnWndProc = ::DefWindowProcW;  // windows get the framework's when they are made
  made.hInstance = AfxGetInstanceHandle();
  made.hIcon = icon;
  made.hCursor = cursor;
  made.hbrBackground = background;
  made.lpszClassName = kept.c_str();
  return AfxRegisterClass(&made) ? kept.c_str() : nullptr;
}
