#include "embedded/slide_store/cell_grid.h"

#include <algorithm>
#include <cstdint>

namespace slide_store {

namespace {

constexpr int kMarkWidth = 2;
constexpr int kMostLines = 4096;  // more than pixels of any window

}  // namespace

CellGrid::CellGrid(const PixelRect& area, int columns, int rows)
    : area_(area),
      columns_(std::max(columns, 1)),
      rows_(std::max(rows, 1)),
      cellWidth_((area.right - area.left) / columns_),
      cellHeight_((area.bottom - area.top) / rows_) {}

std::vector<PixelRect> CellGrid::lines(int left, int top) const {
  std::vector<PixelRect> lines;
  if (cellWidth_ < 1 || cellHeight_ < 1 || columns_ > kMostLines || rows_ > kMostLines) {
    return lines;
  }
  // The last line of an area without remainder would lie outside: it goes to its edge.
  const int right = std::min(left + columns_ * cellWidth_, area_.right - 1);
  const int bottom = std::min(top + rows_ * cellHeight_, area_.bottom - 1);
  for (int i = 0; i <= columns_; ++i) {
    const int x = std::min(left + i * cellWidth_, right);
    lines.push_back({x, top, x + 1, bottom + 1});
  }
  for (int i = 0; i <= rows_; ++i) {
    const int y = std::min(top + i * cellHeight_, bottom);
    lines.push_back({left, y, right + 1, y + 1});
  }
  return lines;
}

std::optional<PixelRect> CellGrid::cellOnPage(int page, int cell) const {
  const std::int64_t size = std::int64_t{columns_} * rows_;
  // More cells than 32 bits count can't be told apart by a cell's number.
  if (size > INT32_MAX) return std::nullopt;
  const std::int64_t on = cell - page * size;
  if (on < 0 || on >= size) return std::nullopt;
  const int left = area_.left + static_cast<int>(on % columns_) * cellWidth_;
  const int top = area_.top + static_cast<int>(on / columns_) * cellHeight_;
  return PixelRect{left, top, left + cellWidth_, top + cellHeight_};
}

std::vector<PixelRect> markOf(const PixelRect& cell) {
  const PixelRect outer{cell.left + 1, cell.top + 1, cell.right - 1, cell.bottom - 1};
  const int width = outer.right - outer.left;
  const int height = outer.bottom - outer.top;
  if (width < 1 || height < 1) return {};
  if (width <= 2 * kMarkWidth || height <= 2 * kMarkWidth) return {outer};
  const int innerTop = outer.top + kMarkWidth;
  const int innerBottom = outer.bottom - kMarkWidth;
  return {{outer.left, outer.top, outer.right, innerTop},
          {outer.left, innerBottom, outer.right, outer.bottom},
          {outer.left, innerTop, outer.left + kMarkWidth, innerBottom},
          {outer.right - kMarkWidth, innerTop, outer.right, innerBottom}};
}

}  // namespace slide_store
