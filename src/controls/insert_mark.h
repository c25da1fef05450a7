// The mark between two items that shows where a dragged item would go: a line across the list with
// wedges at its ends, below it before the first item, above it behind the last, else both.
#pragma once

#include <vector>

#include "controls/bar_layout.h"

enum class InsertMarkKind { None = -1, First = 0, Between = 1, Last = 2 };

struct InsertMark {
  RECT rect;
  InsertMarkKind kind;
};

struct MarkLine {
  POINT from;
  POINT to;  // not drawn itself, as the system's lines leave out their end
};

// The mark before the item of that index, or behind the last when there is none such. The folder
// has items.
InsertMark GetInsertMarkRect(const BarLayout& layout, const BarFolders& folders,
                             const BarView& view, int index);
// What to paint anew when the mark goes.
RECT markedArea(const InsertMark& mark);
std::vector<MarkLine> markLines(const InsertMark& mark);
