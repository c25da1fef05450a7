// The windowless library's end and its bar.
#include "library_window/windowless_library.h"

#include "module/module_state.h"

WindowlessLibrary::~WindowlessLibrary() { auxiliary_.close(auxiliary_.largeIcons()); }

int WindowlessLibrary::GetFolderCount() {
  return static_cast<int>(auxiliary_.shownTitles().size());
}

bool WindowlessLibrary::DestroyWindow() {
  if (libraryWindow() == this) setLibraryWindow(nullptr);
  delete this;
  return true;
}

bool WindowlessLibrary::ChooseItem(int folder, int item) {
  const CStringArray labels = auxiliary_.labels(folder);
  if (item < 0 || item >= labels.GetSize()) return false;
  return auxiliary_.chooseItem(folder, labels.GetAt(item).wide());
}
