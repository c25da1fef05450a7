// Where there are no windows, there is one kind of library.
#include "library_window/library_window.h"
#include "library_window/windowless_library.h"

LibraryWindow* makeLibraryWindow(HWND) { return new WindowlessLibrary; }
