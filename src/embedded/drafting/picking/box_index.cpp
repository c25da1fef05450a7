#include "embedded/drafting/picking/box_index.h"

#include <algorithm>

namespace drafting {
namespace {

// Cells of one unit are the smallest: what is smaller shares them.
constexpr int kLowestLevel = 0;
// Columns beyond this one share it.
constexpr double kFarthestColumn = 1 << 30;

}  // namespace

int BoxIndex::levelOf(const Box2& box) {
  const double size = std::max(box.width(), box.height());
  return size > 1 ? std::max(std::ilogb(size) + 1, kLowestLevel) : kLowestLevel;
}

std::int64_t BoxIndex::column(double coordinate, int level) {
  const double at = std::floor(std::ldexp(coordinate, -level));
  return static_cast<std::int64_t>(std::clamp(at, -kFarthestColumn, kFarthestColumn));
}

void BoxIndex::put(Handle handle, const Box2& box) {
  remove(handle);
  if (box.empty()) return;
  const int level = levelOf(box);
  const Cell cell = cellOf(column(box.min.x, level), column(box.min.y, level));
  places_[handle] = {level, cell};
  levels_[level][cell].push_back({handle, box});
}

void BoxIndex::remove(Handle handle) {
  const auto place = places_.find(handle);
  if (place == places_.end()) return;
  const auto level = levels_.find(place->second.level);
  const auto cell = level->second.find(place->second.cell);
  std::erase_if(cell->second, [handle](const Item& item) { return item.handle == handle; });
  if (cell->second.empty()) level->second.erase(cell);
  if (level->second.empty()) levels_.erase(level);
  places_.erase(place);
}

void BoxIndex::clear() {
  places_.clear();
  levels_.clear();
}

Box2 BoxIndex::bounds() const {
  Box2 all;
  for (const auto& [level, grid] : levels_) {
    for (const auto& [cell, items] : grid) {
      for (const Item& item : items) all.add(item.box);
    }
  }
  return all;
}

}  // namespace drafting
