// Reads PNG files of 8 bits a channel, not interlaced, for tests that look at pixels.
// Format: W3C Recommendation "Portable Network Graphics", second edition.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace test {

struct PngPicture {
  int width = 0, height = 0;
  std::vector<std::uint32_t> pixels;  // 00RRGGBB, rows from the top
  std::string problem;                // empty, or why there is no picture

  explicit PngPicture(std::string_view file);
  // The pixel in column `x` whose row is counted from the bottom.
  std::uint32_t at(int x, int y) const {
    return pixels[static_cast<std::size_t>(height - 1 - y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

}  // namespace test
