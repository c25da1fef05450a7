// How the panes of a splitter share an axis. Pixels.
#pragma once

#include <cstdint>
#include <span>

struct PaneExtent {
  std::int32_t least = 0;
  std::int32_t ideal = 0;
  std::int32_t current = 0;  // the result
};

// Each pane takes its ideal size as long as there is room, the last one what remains. A pane with
// nothing behind it, the next ones being cut to 0, also takes the room of the gap save two pixels.
// The available size below 0 counts as 0.
void layOutPanes(std::span<PaneExtent> panes, std::int32_t available, std::int32_t gap);
