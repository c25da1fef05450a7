#include "embedded/framework/splitter_layout.h"

#include <algorithm>
#include <limits>

namespace framework {

namespace {

// Takes the gap behind an entry from the room. When there is no room for the gap, the entry gets
// what is left, but keeps clear of where the bar would have been.
void takeGap(SplitterEntry& entry, int& room, int gap) {
  if (room > gap) {
    room -= gap;
    return;
  }
  entry.current += room;
  if (entry.current > gap - 2) entry.current -= gap - 2;
  room = 0;
}

}  // namespace

void layoutSplitterAxis(std::vector<SplitterEntry>& entries, int size, int gap) {
  if (entries.empty()) return;
  int room = std::max(size, 0);
  for (SplitterEntry& entry : entries) {
    if (entry.ideal < entry.minimum) entry.ideal = 0;
    entry.current = entry.ideal;
  }
  entries.back().current = std::numeric_limits<int>::max();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    SplitterEntry& entry = entries[i];
    if (room == 0) {
      entry.current = 0;
      continue;
    }
    if (room < entry.minimum && i != 0) {
      entry.current = 0;
      entries[i - 1].current += room + gap;
      room = 0;
    } else if (entry.current != 0) {
      entry.current = std::min(entry.current, room);
      room -= entry.current;
    }
    if (i + 1 < entries.size()) takeGap(entry, room, gap);
  }
}

}  // namespace framework
