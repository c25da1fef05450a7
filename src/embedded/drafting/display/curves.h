// Curves as polylines.
#pragma once

#include <vector>

#include "embedded/drafting/database/entities.h"
#include "embedded/drafting/display/dashes.h"

namespace drafting {

using Path = std::vector<Point2>;

// How many pieces a part of a circle takes so that no piece is farther than `tolerance` from it.
// A tolerance of 0 gives 64 for a full circle.
int piecesOf(double radius, double sweep, double tolerance);

// Counter-clockwise from start over `sweep` radians (negative: clockwise), both ends included.
Path arcPath(Point2 centre, double radius, double start, double sweep, double tolerance);

// Appends the way from `from` (not itself) to `to`; the bulge is the tangent of a quarter of the
// arc's angle, positive to the left of a walker who turns left.
void appendBulge(Path& path, Point2 from, Point2 to, double bulge, double tolerance);

// From an entity's start angle to its end angle, counter-clockwise: within (0, 2 pi].
double sweepOf(double start, double end);

// The polyline as it is drawn: a line without width as `line`, with width as an outline to fill.
struct PolylineShape {
  bool wide = false;
  Path path;
};
// One shape for a run of equal kind: where a polyline has width only in places, several; with a
// linetype one for each dash. The pattern begins anew at each vertex unless it is a continuous one.
std::vector<PolylineShape> shapesOf(const LwPolyline& polyline, double tolerance,
                                    const DashPattern& pattern = {});

}  // namespace drafting
