// Which folder header and which item wear a hover frame. The caller draws what changes.
#pragma once

#include <optional>

struct HoverChange {
  int erase;  // whose frame goes; -1 nobody's
  int draw;   // whose frame comes; -1 nobody's
  bool pressed;
};

class BarHover {
 public:
  // The frame goes to that folder; -1: to none. Nothing when it is there already.
  std::optional<HoverChange> moveFolder(int folder);
  // The same for items. `plain` items, the selected one of a bar that shows it otherwise, take no
  // frame.
  std::optional<HoverChange> moveItem(int item, bool pressed, bool plain);

  int folder = -1;
  int item = -1;
  bool itemPressed = false;  // the item's frame is drawn sunken

 private:
  // One value for all bars of the process: it is meant.
  static inline bool lastPressed_ = false;
};
