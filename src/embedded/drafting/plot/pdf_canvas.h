// Pages as PDF. Texts are drawn as strokes; invisible text of a standard Chinese font, which every
// reader knows without having it, lies over them, so that they can be searched and copied.
#pragma once

#include <string>
#include <vector>

#include "embedded/base/canvas.h"

namespace drafting {

class PdfCanvas : public base::Canvas {
 public:
  // Millimetres.
  PdfCanvas(double width, double height, base::Rgb background);

  void stroke(std::span<const base::Point2> points, base::Rgb colour, double width) override;
  void fill(std::span<const base::Point2> outline, base::Rgb colour) override;
  void words(const base::Words& words) override;

  double width() const { return width_; }
  double height() const { return height_; }
  std::string finish();  // the page's content; the canvas is used up

 private:
  void appendPath(std::span<const base::Point2> points);
  void endPath();
  void setColour(base::Rgb colour, base::Rgb& current, const char* command);

  double width_, height_;
  std::string out_;
  bool inPath_ = false;  // strokes of one pen share a path
  base::Rgb strokeColour_, fillColour_;
  double penWidth_ = -1;
};

// The file of these pages, the same bytes for the same pages. The canvases are used up.
std::string makePdf(std::vector<PdfCanvas> pages);

}  // namespace drafting
