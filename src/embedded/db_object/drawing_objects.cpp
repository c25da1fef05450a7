// The companion module of drawing objects: command tables and the print scale.
#include "embedded/drafting/documents/session.h"
#include "embedded/drafting/host/host_state.h"
#include "platform/acad.h"
#include "platform/db_object.h"

int TqDefineCommand(const wchar_t* group, const TqCmdTable* table, int rows, int) {
  auto* stack = static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(kAcadRegisteredCommands));
  int added = 0;
  for (int i = 0; i < rows; ++i) {
    added +=
        stack->addCommand(group, table[i].name, table[i].name, table[i].flags, table[i].function);
  }
  return added;
}

// The drawing's dimension scale is its print scale; the status bar shows and sets it.
double TqDbGetPrintScale(AcDbDatabase* database) {
  const drafting::Database* drawing =
      database ? database->state()->database() : &drafting::Session::active().database();
  return drawing ? drawing->header.real("DIMSCALE") : 1.0;
}
