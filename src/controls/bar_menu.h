// The entries of the bar's right-button menu.
#pragma once

#include <vector>

#include "controls/bar_layout.h"

struct BarMenuEntry {
  unsigned command;     // 0 for a separator
  const wchar_t* text;  // null for a separator
};

// For a click that hit that, on a bar with these flags. The index is the hit's.
std::vector<BarMenuEntry> barMenuEntries(BarHit hit, int index, unsigned flags);
