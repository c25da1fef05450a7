// The companion module of drawing objects: a table of commands, and the drawing's print scale.
#pragma once

#include <cstdint>

#include "platform/acad_database.h"

struct TqCmdTable {
  const wchar_t* name;  // global name of the command
  void (*function)();
  std::int32_t flags;  // the host's command flags
};

// Adds the rows as commands of the group to the host's command stack. The fourth argument is always
// 0. Number of commands added.
int TqDefineCommand(const wchar_t* group, const TqCmdTable* table, int rows, int unused);

// Drawing units for one unit on paper; null means the current drawing.
double TqDbGetPrintScale(AcDbDatabase* database);
