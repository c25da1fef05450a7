// The slide from one open folder to another, as the copies of each step. Two pictures take part:
// the closing folder's (first) and the opening one's (second), each as wide as the list and two
// headers higher; the header that travels stands at the top of its picture.
#pragma once

#include <vector>

#include "controls/bar_layout.h"

struct SlideCopy {
  bool second;  // from the opening folder's picture
  int y;        // on the bar
  int height;   // 0 and below: nothing to copy
  int sourceRow;
};

struct SlideStep {
  SlideCopy copies[2];  // in this order; a pause follows each step
};

// Both indices are folders, `from` the one that is still open.
std::vector<SlideStep> folderSlide(const BarLayout& layout, int from, int to);
