// Points, sizes and rectangles as lists of numbers, which compare and print.
#pragma once

#include <vector>

#include "platform/framework_shapes.h"

namespace test {

using Place = std::vector<int>;

inline Place edges(const RECT& rectangle) {
  return {static_cast<int>(rectangle.left), static_cast<int>(rectangle.top),
          static_cast<int>(rectangle.right), static_cast<int>(rectangle.bottom)};
}
inline Place place(const POINT& point) {
  return {static_cast<int>(point.x), static_cast<int>(point.y)};
}
inline Place extent(const SIZE& size) {
  return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
}

}  // namespace test
