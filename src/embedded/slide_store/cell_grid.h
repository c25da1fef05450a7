// Where the cells of a page of slides stand, in pixels with y downwards: the grid and the mark.
#pragma once

#include <optional>
#include <vector>

namespace slide_store {

struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;  // right and bottom lie outside
  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// Cells of equal whole size within the area; counts below 1 are 1.
class CellGrid {
 public:
  CellGrid(const PixelRect& area, int columns, int rows);

  // The lines between and around the cells, a pixel wide, the first ones from (left, top) on.
  std::vector<PixelRect> lines(int left, int top) const;

  // The cell's place on that page, both counted from 0; nothing when it stands on another one.
  std::optional<PixelRect> cellOnPage(int page, int cell) const;

 private:
  PixelRect area_;
  int columns_, rows_;
  int cellWidth_, cellHeight_;
};

// A frame just inside of the cell's lines, in pieces that don't overlap, so that inverting them
// twice changes nothing.
std::vector<PixelRect> markOf(const PixelRect& cell);

}  // namespace slide_store
