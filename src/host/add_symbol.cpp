// The seam where adding a symbol comes in. Until then it says so and leaves everything alone.
#include "host/add_symbol.h"

#include "platform/acad_command.h"

int AddSymbolFromDrawing() {
  acutPrintf(L"\n尚不能从图中增加辅助图块.");
  return RTERROR;
}
