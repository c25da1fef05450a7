// Colour indexes (1 to 255) as colours of the screen or of paper.
#pragma once

#include "embedded/base/canvas.h"
#include "embedded/base/colour_table.h"

namespace drafting {

using base::screenColour;

enum class Background { White, Black };

class Palette {
 public:
  Palette(Background background, bool monochrome)
      : background_(background), monochrome_(monochrome) {}

  base::Rgb background() const;
  // Index 7 is the one that stands out against the background. On white, colours too bright to be
  // read (yellow, green, cyan) are darkened; their hue stays.
  base::Rgb operator()(int index) const;

 private:
  Background background_;
  bool monochrome_;
};

}  // namespace drafting
