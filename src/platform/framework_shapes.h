// Points, sizes and rectangles in pixels, as the system lays them out.
#pragma once

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windef.h>
#else
#include <cstdint>

struct POINT {
  std::int32_t x;
  std::int32_t y;
};

struct SIZE {
  std::int32_t cx;
  std::int32_t cy;
};

struct RECT {
  std::int32_t left;
  std::int32_t top;
  std::int32_t right;
  std::int32_t bottom;
};
#endif

// As the system has it: the right and the bottom edge lie outside.
inline bool holds(const RECT& rectangle, const POINT& point) {
  return point.x >= rectangle.left && point.x < rectangle.right && point.y >= rectangle.top &&
         point.y < rectangle.bottom;
}
