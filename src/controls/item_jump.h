// The little jump of the selected item's icon: which way at which tick of its timer, and from
// where.
#pragma once

#include <optional>

#include "controls/bar_layout.h"

class ItemJump {
 public:
  // The icon's distance from its place after this tick; none where nothing is drawn. A cycle is 12
  // ticks: four of jumping, eight of rest.
  std::optional<POINT> tick();

 private:
  int step_ = 0;
};

// Where the selected item's icon rests. None when the item is partly hidden, and when it isn't
// among the first items as many as there are folders: folders are counted, not items, and it is
// meant.
std::optional<POINT> restingIcon(const BarLayout& layout, const BarFolders& folders,
                                 const BarView& view, int item);
