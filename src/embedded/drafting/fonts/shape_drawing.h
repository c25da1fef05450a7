// Draws a font's shapes: turns their bytes into lines and arcs.
#pragma once

#include <vector>

#include "embedded/base/geometry.h"
#include "embedded/drafting/fonts/shape_font.h"

namespace drafting {

using base::Point2;

// Gets a shape's strokes, in the font's units. A stroke is a move and what follows it.
class ShapePen {
 public:
  virtual ~ShapePen() = default;
  virtual void move(Point2 to) = 0;
  virtual void line(Point2 to) = 0;
  // An arc of at most half a circle; the bulge is the tangent of a quarter of its angle, positive
  // if it runs counter-clockwise.
  virtual void arc(Point2 to, double bulge) = 0;
};

// What a shape may cost before it is cut off. A font of a few bytes can ask for any amount.
inline constexpr std::size_t kMostShapeSteps = 20'000;

struct ShapeRun {
  Point2 end;             // of the pen: where the next character stands
  std::size_t steps = 0;  // what it cost
  bool cut = false;       // it cost too much
};

// Draws from (0, 0) with the pen down. A shape that the font doesn't have draws nothing and stays.
// In vertical text the commands are obeyed that horizontal text passes over.
ShapeRun drawShape(const ShapeFont& font, std::uint16_t code, ShapePen& pen, bool vertical = false,
                   std::size_t mostSteps = kMostShapeSteps);

// A shape's strokes as they come.
struct ShapeVertex {
  Point2 at;
  double bulge = 0;  // of the arc that leads here from the vertex before
};
struct ShapeStrokes {
  std::vector<std::vector<ShapeVertex>> strokes;
  ShapeRun run;
};
ShapeStrokes strokesOf(const ShapeFont& font, std::uint16_t code, bool vertical = false);

}  // namespace drafting
