// ScreenBitmap: pixels of a window that are drawn again at every turn of the wheel: lines of whole
// pixels, without smoothing, as fast as they go.
#pragma once

#include <vector>

#include "embedded/base/canvas.h"

namespace drafting {

using base::Point2;

class ScreenBitmap : public base::Canvas {
 public:
  ScreenBitmap(int width, int height);

  void clear(base::Rgb colour);
  int width() const { return width_; }
  int height() const { return height_; }
  // Row by row from the top, 0x00RRGGBB.
  const std::vector<std::uint32_t>& pixels() const { return pixels_; }
  base::Rgb at(int x, int y) const;  // y from the top; must lie in the bitmap

  // Lines thinner than two pixels are one pixel wide.
  void stroke(std::span<const Point2> points, base::Rgb colour, double width) override;
  void fill(std::span<const Point2> outline, base::Rgb colour) override;

 private:
  void line(Point2 from, Point2 to);
  void wideLine(Point2 from, Point2 to, double width);
  std::size_t placeOf(int x, int y) const {  // y from the top
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(x);
  }
  void put(int x, int y) { pixels_[placeOf(x, y)] = colour_; }
  void span(int y, double left, double right);
  bool clip(Point2& from, Point2& to) const;

  int width_, height_;
  std::uint32_t colour_ = 0;
  std::vector<std::uint32_t> pixels_;
  struct Crossing {
    double x;
    int winding;
  };
  std::vector<Crossing> crossings_;
};

}  // namespace drafting
