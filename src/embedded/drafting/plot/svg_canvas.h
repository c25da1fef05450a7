// A page as SVG. Texts are drawn as strokes; an invisible text lies over them for searching.
#pragma once

#include <string>

#include "embedded/base/canvas.h"

namespace drafting {

class SvgCanvas : public base::Canvas {
 public:
  // Millimetres.
  SvgCanvas(double width, double height, base::Rgb background);

  void stroke(std::span<const base::Point2> points, base::Rgb colour, double width) override;
  void fill(std::span<const base::Point2> outline, base::Rgb colour) override;
  void words(const base::Words& words) override;

  std::string finish();  // the file; the canvas is used up

 private:
  void appendPath(std::span<const base::Point2> points);
  void endPath();

  double height_;
  std::string out_;
  bool inPath_ = false;  // strokes of one pen share a path
  base::Rgb colour_;
  double width_ = 0;
};

}  // namespace drafting
