// The windowless library's bar, its clicks and its end.
#include "library_window/windowless_library.h"

#include "module/module_state.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_messages.h"

// A store that a bad index stops on has shown what it could by then.
WindowlessLibrary::WindowlessLibrary() {
  try {
    auxiliary_.LoadStore();
  } catch (CException* exception) {
    showMessageBox({.text = exception->Message(), .caption = {}});
    exception->Delete();
  }
}

WindowlessLibrary::~WindowlessLibrary() { auxiliary_.close(); }

bool WindowlessLibrary::DestroyWindow() {
  if (libraryWindow() == this) setLibraryWindow(nullptr);
  delete this;
  return true;
}

bool WindowlessLibrary::ChooseItem(int folder, int item) {
  AuxiliaryStore& store = auxiliary_.store();
  const CStringArray labels = store.labels(folder);
  if (item < 0 || item >= labels.GetSize()) return false;
  return store.chooseItem(folder, labels.GetAt(item).wide());
}
