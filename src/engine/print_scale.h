// The drawing's print scale as the placing routines use it.
#pragma once

#include <string>

struct PrintScale {
  bool valid = false;  // readable and not negative; 0 is valid
  double value = 0;
  std::wstring text;  // as "%g" gives it; the marker block's attribute
};

// The scale goes through its text form, so that it has the precision that the text shows.
PrintScale readPrintScale();
