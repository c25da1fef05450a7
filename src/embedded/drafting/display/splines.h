// Splines as polylines.
#pragma once

#include <span>

#include "embedded/drafting/display/curves.h"

namespace drafting {

// A spline; of no degree, or with knots that don't ascend, it is its control points' way.
struct SplineCurve {
  int degree = 3;
  std::span<const double> knots;
  std::span<const Point2> controls;
  std::span<const double> weights;  // empty, or one a control point
};
Path splinePath(const SplineCurve& spline);

// The spline as it is seen from above: by its control points if it has any, else through its fit
// points.
Path splinePath(const Spline& spline);

}  // namespace drafting
