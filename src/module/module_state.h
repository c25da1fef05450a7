// What the whole module shares: its instance, the one library window, the host's main window. Set
// by the entry point and the window itself, read by everybody.
#pragma once

#include "platform/acad_module.h"
#include "platform/framework_module.h"

class LibraryWindow;

// The library window, or null before it is made and after it is gone. The window owns itself and
// clears the pointer when its end comes.
LibraryWindow* libraryWindow();
void setLibraryWindow(LibraryWindow* window);

// The host's main window, taken at application start; null without windows.
HWND hostWindow();
void setHostWindow(HWND window);

// The module's instance, set when the process attaches the library, and its extension record.
HINSTANCE moduleInstance();
void setModuleInstance(HINSTANCE instance);
AFX_EXTENSION_MODULE& extensionModule();
