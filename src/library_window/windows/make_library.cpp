// Chooses the library window that fits the host.
#include "library_window/library_window.h"
#include "library_window/windowless_library.h"
#include "library_window/windows/main_window.h"

// The window is made on the heap and deletes itself with its end.
LibraryWindow* makeLibraryWindow(HWND host) {
  if (!host) return new WindowlessLibrary;
  return &(new CZhlkMainWnd)->Door();
}
