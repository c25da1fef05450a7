// A canvas in memory for slides at the size of icons and cells: strokes are a pixel wide with both
// ends drawn, areas take their outline's pixels in, nothing is smoothed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "embedded/base/canvas.h"

namespace slide_store {

// Rows from the top, a pixel as 00RRGGBB hex.
struct Pixels {
  int width = 0, height = 0;
  std::vector<std::uint32_t> data;

  // Both sides above 0.
  Pixels(int width, int height, base::Rgb background);
  std::uint32_t at(int x, int y) const { return data[index(x, y)]; }
  std::size_t index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(x);
  }
};

// Draws within a box of the pixels, whose lower left pixel is (0, 0); what lies outside of either
// isn't drawn. The pixels must outlive the canvas.
std::unique_ptr<base::Canvas> makePixelCanvas(Pixels& pixels, int left, int top, int width,
                                              int height);

}  // namespace slide_store
