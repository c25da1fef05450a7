// The page of slides: a grid of cells over the view's client area. Slots count from 0 over all
// pages, pages from 1; everything else is client pixels. What the divisions leave over stays as a
// strip at the right and at the bottom.
#pragma once

#include <cstdint>

#include "platform/framework_shapes.h"

class GridLayout {
 public:
  // A count or page below 1 counts as 1, and so does a cell that is not even a pixel wide or high.
  GridLayout(SIZE client, int rows, int columns, std::int32_t page);

  SIZE cell() const { return cell_; }
  int cellsPerPage() const;
  std::int64_t firstSlot() const;
  // Where a slot of the page is drawn.
  POINT boxOf(std::int64_t slot) const;
  // The slot under a point of the client area. Nothing is clamped: the strips lead to slots further
  // on, at the right to the first of the next row.
  std::int32_t slotAt(const POINT& point) const;
  // What is painted anew when the cell under the point changes: the cell without its grid lines.
  RECT insideOf(const POINT& point) const;

 private:
  SIZE cell_;
  int rows_;
  int columns_;
  std::int32_t page_;
};

// Where the enlarged slide stands in the preview's client area: 3 to 8, as high as the area, in its
// middle; further left than the area when that is too narrow.
RECT previewBox(SIZE client);
