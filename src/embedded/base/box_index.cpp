#include "embedded/base/box_index.h"

#include <algorithm>

namespace base {
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

void BoxIndex::put(Key key, const Box2& box) {
  remove(key);
  if (box.empty()) return;
  const int level = levelOf(box);
  const Cell cell = cellOf(column(box.min.x, level), column(box.min.y, level));
  places_[key] = {level, cell};
  levels_[level][cell].push_back({key, box});
}

void BoxIndex::remove(Key key) {
  const auto place = places_.find(key);
  if (place == places_.end()) return;
  const auto level = levels_.find(place->second.level);
  const auto cell = level->second.find(place->second.cell);
  std::erase_if(cell->second, [key](const Item& item) { return item.key == key; });
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

}  // namespace base
