#include "library_window/grid_layout.h"

#include <algorithm>
#include <limits>

GridLayout::GridLayout(SIZE client, int rows, int columns, std::int32_t page)
    : rows_(std::max(rows, 1)), columns_(std::max(columns, 1)), page_(std::max(page, 1)) {
  cell_.cx = std::max(client.cx / columns_, decltype(cell_.cx){1});
  cell_.cy = std::max(client.cy / rows_, decltype(cell_.cy){1});
}

int GridLayout::cellsPerPage() const {
  const std::int64_t cells = std::int64_t{rows_} * columns_;
  return static_cast<int>(std::min<std::int64_t>(cells, std::numeric_limits<int>::max()));
}

std::int64_t GridLayout::firstSlot() const { return (std::int64_t{page_} - 1) * cellsPerPage(); }

POINT GridLayout::boxOf(std::int64_t slot) const {
  const std::int64_t onPage = slot - firstSlot();
  POINT box;
  box.x = static_cast<decltype(box.x)>(cell_.cx * (onPage % columns_));
  box.y = static_cast<decltype(box.y)>(cell_.cy * (onPage / columns_));
  return box;
}

std::int32_t GridLayout::slotAt(const POINT& point) const {
  const std::int64_t slot =
      firstSlot() + point.x / cell_.cx + std::int64_t{point.y / cell_.cy} * columns_;
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(slot, 0, std::numeric_limits<std::int32_t>::max()));
}

RECT GridLayout::insideOf(const POINT& point) const {
  RECT inside;
  inside.left = point.x / cell_.cx * cell_.cx + 1;
  inside.top = point.y / cell_.cy * cell_.cy + 1;
  inside.right = inside.left + cell_.cx - 2;
  inside.bottom = inside.top + cell_.cy - 2;
  return inside;
}

RECT previewBox(SIZE client) {
  const int height = static_cast<int>(client.cy);
  const int width = static_cast<int>(height * 0.375);
  const int left =
      static_cast<int>(static_cast<int>(client.cx) * 0.5 - static_cast<int>(height * 0.1875));
  return {left, 0, left + width, height};
}
