// Shows and hides the library window.
#include "library_window/library_window.h"
#include "module/module_state.h"

void ShowLibraryWindow() {
  LibraryWindow* window = libraryWindow();
  if (!window) return;
  if (!window->IsVisible()) {
    window->ShowWindow(kShowWithoutActivating);
  } else if (window->IsMinimised()) {
    window->ShowWindow(kShowNormal);
  }
  window->UpdateWindow();
}

void HideLibraryWindow() {
  LibraryWindow* window = libraryWindow();
  if (!window) return;
  if (window->IsVisible()) window->ShowWindow(kShowHide);
  window->UpdateWindow();
}
