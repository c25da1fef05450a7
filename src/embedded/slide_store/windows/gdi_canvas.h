// A canvas of pixels on a device context: strokes are a pixel wide, both ends drawn, areas take
// their outline's pixels in. The lower left pixel of the box is (0, 0).
#pragma once

#include <windows.h>

#include <vector>

#include "embedded/base/canvas.h"

namespace slide_store {

class GdiCanvas : public base::Canvas {
 public:
  // Draws within the box alone; the context is as before in the end.
  GdiCanvas(HDC dc, int left, int top, int width, int height);
  ~GdiCanvas() override;
  GdiCanvas(const GdiCanvas&) = delete;
  GdiCanvas& operator=(const GdiCanvas&) = delete;

  void stroke(std::span<const base::Point2> points, base::Rgb colour, double width) override;
  void fill(std::span<const base::Point2> outline, base::Rgb colour) override;

 private:
  void toPixels(std::span<const base::Point2> points);

  HDC dc_;
  int saved_;
  int left_, top_;
  double high_;  // of the highest pixel
  std::vector<POINT> pixels_;
};

}  // namespace slide_store
