// BoxIndex: boxes by place. A box lies in the grid whose cells are about its size, in the cell of
// its lower left corner; each size is a grid of its own, so that small and large ones don't disturb
// each other. Whose box it is, a number of the caller's tells.
#pragma once

#include <cmath>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <vector>

#include "embedded/base/geometry.h"

namespace base {

class BoxIndex {
 public:
  using Key = std::uint64_t;

  // Also moves one that is there already. An empty box is the same as none.
  void put(Key key, const Box2& box);
  void remove(Key key);
  void clear();

  // Calls f(key, box) for each box that meets the area, in no order.
  template <class F>
  void visit(const Box2& area, F f) const;

  Box2 bounds() const;  // of all; costs a look at each
  std::size_t size() const { return places_.size(); }

 private:
  struct Item {
    Key key = 0;
    Box2 box;
  };
  using Cell = std::uint64_t;
  using Grid = std::unordered_map<Cell, std::vector<Item>>;
  struct Place {
    int level = 0;
    Cell cell = 0;
  };

  static int levelOf(const Box2& box);
  static std::int64_t column(double coordinate, int level);
  static Cell cellOf(std::int64_t x, std::int64_t y) {
    return static_cast<Cell>(x & 0xFFFFFFFF) << 32 | static_cast<Cell>(y & 0xFFFFFFFF);
  }
  template <class F>
  static void visitItems(const std::vector<Item>& items, const Box2& area, F& f) {
    for (const Item& item : items) {
      if (meet(item.box, area)) f(item.key, item.box);
    }
  }

  std::unordered_map<Key, Place> places_;
  std::map<int, Grid> levels_;
};

template <class F>
void BoxIndex::visit(const Box2& area, F f) const {
  if (area.empty()) return;
  for (const auto& [level, grid] : levels_) {
    const std::int64_t left = column(area.min.x, level) - 1, right = column(area.max.x, level);
    const std::int64_t low = column(area.min.y, level) - 1, high = column(area.max.y, level);
    const double cells =
        static_cast<double>(right - left + 1) * static_cast<double>(high - low + 1);
    if (cells > static_cast<double>(grid.size())) {
      for (const auto& [cell, items] : grid) visitItems(items, area, f);
      continue;
    }
    for (std::int64_t x = left; x <= right; ++x) {
      for (std::int64_t y = low; y <= high; ++y) {
        const auto found = grid.find(cellOf(x, y));
        if (found != grid.end()) visitItems(found->second, area, f);
      }
    }
  }
}

}  // namespace base
