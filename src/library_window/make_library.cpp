// Chooses the library window that fits the host.
#include "library_window/library_window.h"
#include "library_window/windowless_library.h"

LibraryWindow* makeLibraryWindow([[maybe_unused]] HWND host) {
  // A host with a main window gets the real one as soon as there is one.
  return new WindowlessLibrary;
}
