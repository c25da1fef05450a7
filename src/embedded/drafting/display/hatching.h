// Hatches as what is drawn of them: an outline to fill, or the lines of a pattern within the
// boundary. Coordinates are those of the hatch's plane.
#pragma once

#include <functional>
#include <optional>

#include "embedded/drafting/display/curves.h"

namespace drafting {

// The boundary: closed outlines without the repeated first point.
struct HatchLoop {
  Path path;
  int depth = 0;  // in how many other loops it lies
};

// Loops of all paths, without those that the hatch's style leaves out: with the outermost style the
// ones within islands, with the ignoring style the islands too. Text boxes count as islands.
std::vector<HatchLoop> loopsOf(const Hatch& hatch, double tolerance);

// One outline that encloses, by its winding number, what lies in an odd number of loops: loops run
// by turns left and right and are joined by cuts without width. Empty without loops.
Path filledOutline(const std::vector<HatchLoop>& loops);

// Takes one line of a pattern, or a dot. False: enough, no more.
using HatchLine = std::function<bool(Point2 from, Point2 to)>;

// The pattern's lines within the loops. False if they would be too many to be told apart: then the
// area is better filled.
bool drawPattern(const Hatch& hatch, const std::vector<HatchLoop>& loops, const HatchLine& line);

}  // namespace drafting
