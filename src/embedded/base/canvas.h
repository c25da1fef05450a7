// Canvas: what pictures are drawn on: a page, a bitmap, a window. Coordinates and widths are the
// canvas's own units (millimetres on paper, pixels on bitmaps), y upwards from the lower left
// corner.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "embedded/base/geometry.h"

namespace base {

struct Rgb {
  std::uint8_t red = 0, green = 0, blue = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

// A text that is already drawn as strokes, for canvases whose files can be searched.
struct Words {
  std::string_view text;  // UTF-8
  Affine2 place;          // from units of the text height, baseline from (0, 0) along x
  double advance = 0;     // length of the baseline in these units
};

class Canvas {
 public:
  virtual ~Canvas() = default;

  // An open polyline with round ends and joints; one point alone is a dot.
  virtual void stroke(std::span<const Point2> points, Rgb colour, double width) = 0;
  // The inside of a closed outline, by its winding number.
  virtual void fill(std::span<const Point2> outline, Rgb colour) = 0;
  virtual void words(const Words&) {}
};

}  // namespace base
