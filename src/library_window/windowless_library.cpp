// The windowless library's bar and its end.
#include "library_window/windowless_library.h"

#include "module/module_state.h"

WindowlessLibrary::WindowlessLibrary() { auxiliary_.fillBar(); }

WindowlessLibrary::~WindowlessLibrary() { auxiliary_.close(); }

bool WindowlessLibrary::DestroyWindow() {
  if (libraryWindow() == this) setLibraryWindow(nullptr);
  delete this;
  return true;
}
