// How a splitter's room is shared among its rows or columns. Plain arithmetic.
#pragma once

#include <vector>

namespace framework {

// One row or column, pixels.
struct SplitterEntry {
  int minimum = 0;
  int ideal = 0;
  int current = 0;
};

// Sets every entry's current size. The last takes what remains; an entry without room for its
// minimum is hidden, and its neighbour takes the rest.
void layoutSplitterAxis(std::vector<SplitterEntry>& entries, int size, int gap);

}  // namespace framework
