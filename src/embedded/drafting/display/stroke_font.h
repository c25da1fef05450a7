// The built-in stroke font: Latin letters, digits, signs of drawings, common Chinese characters.
#pragma once

#include <vector>

#include "embedded/base/geometry.h"

namespace drafting {

// Units are those of the capital height: capitals reach from 0 to 1. The pen starts at (0, 0) and
// the next character stands at (advance, 0).
struct Glyph {
  double advance = 0;
  std::vector<std::vector<base::Point2>> strokes;
};

// A character that the font doesn't have is an empty box of its width, so that it is seen.
const Glyph& glyphOf(char32_t character);
bool hasGlyph(char32_t character);

}  // namespace drafting
