// The module's globals. One thread, so plain variables.
#include "module/module_state.h"

namespace {

struct ModuleState {
  LibraryWindow* library = nullptr;
  HWND host = nullptr;
  HINSTANCE instance = nullptr;
  AFX_EXTENSION_MODULE extension;
};

ModuleState& state() {
  static ModuleState instance;
  return instance;
}

}  // namespace

LibraryWindow* libraryWindow() { return state().library; }
void setLibraryWindow(LibraryWindow* window) { state().library = window; }

HWND hostWindow() { return state().host; }
void setHostWindow(HWND window) { state().host = window; }

HINSTANCE moduleInstance() { return state().instance; }
void setModuleInstance(HINSTANCE instance) { state().instance = instance; }
AFX_EXTENSION_MODULE& extensionModule() { return state().extension; }
