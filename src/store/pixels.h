// The edit view's scale, and pixels that stay within 32 bits whatever a row holds.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

constexpr double kPixelsPerUnitX = 4.0;
constexpr double kPixelsPerUnitY = 2.5;

// Towards zero; what no pixel can be is brought to the limit.
inline std::int32_t toPixels(double value) {
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::clamp(value, -kMost, kMost));
}

// Further right or down by so much; at the limits it stays.
inline std::int32_t moved(std::int32_t pixel, std::int32_t by) {
  constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(
      std::clamp(static_cast<std::int64_t>(pixel) + by, kLeast, kMost));
}
