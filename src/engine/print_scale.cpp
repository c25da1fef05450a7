// Reads the print scale of the current drawing.
#include "engine/print_scale.h"

#include "platform/acad_command.h"
#include "platform/db_object.h"
#include "platform/framework_text.h"

namespace {
constexpr int kDecimalDistance = 2;
}

PrintScale readPrintScale() {
  PrintScale scale;
  CString text;
  text.Format(L"%g", TqDbGetPrintScale(nullptr));
  scale.text = text.wide();
  const int result = acdbDisToF(scale.text.c_str(), kDecimalDistance, &scale.value);
  scale.valid = result == RTNORM && !(scale.value < 0);
  return scale;
}
