// Where the icon bar's folders and items stand: integer arithmetic on the client rectangle, with
// the sizes of icons and labels measured by the caller. Headers of the folders up to the open one
// stand at the top, the others at the bottom, the open folder's items between them. Pixels.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/bar_folders.h"
#include "platform/framework_shapes.h"

constexpr int kFolderHeight = 22;
constexpr int kSmallLabelGap = 4;  // between icon and label
constexpr int kLargeLabelGap = 3;
constexpr int kSmallSpacing = 10;  // between items
constexpr int kLargeSpacing = 8;
constexpr int kLeftMargin = 5;
constexpr int kTopMargin = 5;
constexpr int kArrowMargin = 5;

// The sizes that a layout asks for, in the bar's font and with its images.
class BarMeasure {
 public:
  virtual ~BarMeasure() = default;
  virtual SIZE icon(int folder, int image, bool small) const = 0;  // 0 by 0 without a list
  virtual SIZE line(const std::wstring& text) const = 0;           // on one line
  virtual SIZE wrapped(const std::wstring& text, int width) const = 0;
};

// What the bar shows at the moment.
struct BarView {
  RECT client{};
  bool small = false;
  int currentFolder = 1;
  int firstItem = 0;  // the scroll position, in whole items
  bool upShown = false;
  bool downShown = false;
  RECT up{};
  RECT down{};
};

// Codes of HitTestBar.
enum class BarHit { Nothing = -1, Folder = 0, Item = 1, UpArrow = 2, DownArrow = 3 };

struct VisibleItems {
  int first;
  int last;  // the last that is wholly seen; first - 1 when none is
};

// Of one moment: folders, view and sizes stay as they are while a layout is in use. Each item is
// measured once, however often rectangles are asked for.
class BarLayout {
 public:
  // All three outlive the layout.
  BarLayout(const BarFolders& folders, const BarView& view, const BarMeasure& measure)
      : folders_(folders), view_(view), measure_(measure) {}

  RECT GetInsideRect() const;
  bool GetFolderRect(int index, RECT& rect) const;  // false for an index that there isn't
  SIZE iconSize(int folder, int index) const;
  SIZE labelSize(int folder, int index) const;
  SIZE wholeSize(int folder, int index) const;

  RECT GetItemCellRect(int folder, int index) const;
  RECT GetItemIconRect(int folder, int index) const;
  RECT GetItemLabelRect(int folder, int index) const;
  VisibleItems GetVisibleItems(int folder) const;
  // Leaves the index alone for the arrows; for nothing it is the open folder's number of items.
  BarHit HitTestBar(const POINT& point, int& index) const;

  // Where the arrows stand when they are shown; side is the system's scroll bar's width.
  RECT upArrow(int side) const;
  RECT downArrow(int side) const;

 private:
  // The top of an item in the list that begins at the inside rectangle, and how far that is
  // scrolled.
  struct Walk {
    int y;
    int scroll;
  };
  Walk walkTo(int folder, int index) const;
  int spacing() const { return view_.small ? kSmallSpacing : kLargeSpacing; }
  BarHit hitItem(const CBarFolder& folder, const POINT& point, int& index) const;

  SIZE measured(int folder, int index) const;

  const BarFolders& folders_;
  const BarView& view_;
  const BarMeasure& measure_;
  mutable int measuredFolder_ = -1;
  mutable std::vector<std::optional<SIZE>> wholeSizes_;  // of that folder's items
};
