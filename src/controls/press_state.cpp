#include "controls/press_state.h"

bool HeldButton::moved(bool onIt) {
  if (onIt == pressed_) return false;
  pressed_ = onIt;
  return true;
}

std::optional<int> folderToOpen(BarHit hit, int index, int currentFolder) {
  if (hit != BarHit::Folder || index == currentFolder) return std::nullopt;
  return index;
}

ItemPressChange ItemPress::moved(BarHit hit, int index) {
  if (dragging_) return ItemPressChange::None;
  if (hit != BarHit::Item) {
    if (!mayDrag_) return ItemPressChange::None;
    drawn_ = dragging_ = true;
    return ItemPressChange::StartDrag;
  }
  const bool onIt = index == item_;
  if (onIt == drawn_) return ItemPressChange::None;
  drawn_ = onIt;
  return onIt ? ItemPressChange::Sink : ItemPressChange::Rise;
}

bool ItemPress::clicked(BarHit hit, int index) const {
  return !dragging_ && hit == BarHit::Item && index == item_;
}

std::optional<int> dragGap(const DragPoint& point) {
  if (point.hit == BarHit::Item) return point.index;
  if (point.y > point.lastBottom && point.y < point.insideBottom) return point.itemCount;
  return std::nullopt;
}

std::optional<int> dropGap(const DragPoint& point, int source) {
  const std::optional<int> gap = dragGap(point);
  return gap == source ? std::nullopt : gap;
}

std::optional<int> scrolled(BarHit arrow, int firstItem, int lastBottom, int insideBottom) {
  switch (arrow) {
    case BarHit::DownArrow:
      if (lastBottom > insideBottom) return firstItem + 1;
      return std::nullopt;
    case BarHit::UpArrow:
      if (firstItem > 0) return firstItem - 1;
      return std::nullopt;
    default: return std::nullopt;
  }
}
