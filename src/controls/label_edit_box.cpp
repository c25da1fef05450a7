#include "controls/label_edit_box.h"

#include <algorithm>

RECT lineBox(RECT box, const RECT& parent, int textWidth) {
  box.right = std::min(box.left + textWidth, parent.right - 1);
  return box;
}

std::optional<RECT> wrappedBox(RECT box, const RECT& parent, const SIZE& text) {
  if (text.cx > box.right - box.left) {
    box.right = std::min(box.left + text.cx, parent.right);
    return box;
  }
  if (text.cy > box.bottom - box.top) {
    // The height goes on top of the box's bottom when it is compared, so growing down ends earlier
    // than growing to the right: it is meant.
    const bool fits = box.bottom + text.cy < parent.bottom;
    box.bottom = fits ? box.top + text.cy : parent.bottom;
    return box;
  }
  return std::nullopt;
}
