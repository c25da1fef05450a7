#include "library_window/split_layout.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::int32_t kRest = std::numeric_limits<std::int32_t>::max();

void startFromIdeals(std::span<PaneExtent> panes) {
  for (PaneExtent& pane : panes.first(panes.size() - 1)) {
    if (pane.ideal < pane.least) pane.ideal = 0;
    pane.current = pane.ideal;
  }
  panes.back().current = kRest;
}

}  // namespace

void layOutPanes(std::span<PaneExtent> panes, std::int32_t available, std::int32_t gap) {
  if (panes.empty()) return;
  startFromIdeals(panes);
  std::int32_t room = std::max(available, 0);
  for (std::size_t i = 0; i < panes.size(); ++i) {
    std::int32_t& current = panes[i].current;
    if (room == 0) {
      current = 0;
      continue;  // no gap either
    }
    if (room < panes[i].least && i != 0) {
      current = 0;
      panes[i - 1].current += room + 2;
      room = 0;
    } else if (current != 0) {
      current = std::min(current, room);
      room -= current;
    }
    if (i + 1 == panes.size()) break;
    if (room > gap) {
      room -= gap;
    } else {
      current += room;
      if (current > gap - 2) current -= gap - 2;
      room = 0;
    }
  }
}
