// Compiles shape fonts: polylines to shapes, shapes to the bytes of a font file.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "embedded/drafting/fonts/shape_font.h"

namespace drafting {

struct GridPoint {
  int x = 0, y = 0;
  friend bool operator==(GridPoint, GridPoint) = default;
};
using GridStroke = std::vector<GridPoint>;

// The bytes of a shape that draws the strokes and leaves the pen, up, at `end`. Only commands that
// every reader takes alike: pen up and down, moves of at most 127.
std::string compileShape(const std::vector<GridStroke>& strokes, GridPoint end);

// All of a font that its file holds.
struct FontParts {
  struct Shape {
    std::string name;   // of named shapes; readers of texts don't need it
    std::string bytes;  // what draws it, with the closing 0
  };
  FontKind kind = FontKind::Unifont;
  std::string name;
  FontMetrics metrics;                // with a height of 0 there is no font record
  std::vector<LeadRange> leadRanges;  // big fonts
  std::map<std::uint16_t, Shape> shapes;
};

// Fails on a shape of more than 2,000 bytes, the format's limit, and on what else doesn't fit.
base::Result<std::string> writeFont(const FontParts& parts);

FontParts partsOf(const ShapeFont& font);

}  // namespace drafting
