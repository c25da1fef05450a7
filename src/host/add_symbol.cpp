// Passes adding a symbol on to the library window's auxiliary library.
#include "host/add_symbol.h"

#include "auxiliary/add_symbol.h"
#include "library_window/library_window.h"
#include "module/module_state.h"
#include "platform/acad_command.h"

int AddSymbolFromDrawing() {
  AuxiliaryLibrary* const library = libraryWindow() ? libraryWindow()->Auxiliary() : nullptr;
  if (library) return AddSymbolFromDrawing(*library);
  acutPrintf(L"\n尚不能从图中增加辅助图块.");
  return RTERROR;
}
