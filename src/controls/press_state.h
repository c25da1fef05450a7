// What a held mouse button decides: presses on headers, arrows and items, and the drag of an item.
// The loops that pump the messages and draw are the bar's.
#pragma once

#include <optional>

#include "controls/bar_layout.h"

// A header or an arrow that is held: pressed while the pointer is on it.
class HeldButton {
 public:
  // True when the look changes.
  bool moved(bool onIt);
  bool pressed() const { return pressed_; }

 private:
  bool pressed_ = true;
};

// The folder that a release opens: the one under the pointer, whichever was pressed.
std::optional<int> folderToOpen(BarHit hit, int index, int currentFolder);

// How an item that is held looks after a move.
enum class ItemPressChange {
  None,
  Sink,       // the pointer is back on the item: its frame is sunken
  Rise,       // on another item: raised
  StartDrag,  // off all items
};

class ItemPress {
 public:
  ItemPress(int item, bool mayDrag) : item_(item), mayDrag_(mayDrag) {}

  // A drag begins where the pointer leaves the items, not where it crosses another one. Nothing
  // changes any more once it has begun.
  ItemPressChange moved(BarHit hit, int index);
  bool clicked(BarHit hit, int index) const;  // on release there
  int item() const { return item_; }
  bool drawn() const { return drawn_; }  // the item has a sunken frame
  bool dragging() const { return dragging_; }
  void frameGone() { drawn_ = false; }

 private:
  int item_;
  bool mayDrag_;
  bool drawn_ = true;
  bool dragging_ = false;
};

// Where the pointer of a drag is.
struct DragPoint {
  BarHit hit;
  int index;  // of the hit
  int y;
  int lastBottom;  // of the last item's cell
  int insideBottom;
  int itemCount;
};

// The gap that the item would go to, the item count meaning behind the last; none off the list.
std::optional<int> dragGap(const DragPoint& point);
// The same for a release: the item's own place is none either.
std::optional<int> dropGap(const DragPoint& point, int source);

// The list's next first item when an arrow steps; none when that arrow's end is reached. Without
// items lastBottom is insideBottom.
std::optional<int> scrolled(BarHit arrow, int firstItem, int lastBottom, int insideBottom);
