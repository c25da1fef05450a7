#include "controls/bar_hover.h"

#include <utility>

std::optional<HoverChange> BarHover::moveFolder(int to) {
  if (to == folder) return std::nullopt;
  const int before = std::exchange(folder, to);
  return HoverChange{before, to, false};
}

std::optional<HoverChange> BarHover::moveItem(int to, bool pressed, bool plain) {
  if (to == item && pressed == lastPressed_) return std::nullopt;
  lastPressed_ = pressed;
  const int before = std::exchange(item, plain ? -1 : to);
  return HoverChange{before, item, pressed};
}
