// The smooth curve through a spline's fit points, by control points as other programs want it.
#pragma once

#include "embedded/drafting/database/entities.h"

namespace drafting {

// A cubic between each two fit points, with one curvature where they meet; its parameter is the
// length of the way from point to point. The ends run along the tangents or, without one, straight.
struct FitCurve {
  std::vector<double> knots;
  std::vector<Point3> controls;
};
FitCurve fitCurve(const Spline& spline);

// The spline with control points: its own if it has any, else those of the curve, whose degree
// is 3.
Spline withControls(const Spline& spline);

// Whether its control points and flags say no more than its fit points do.
bool followsFitPoints(const Spline& spline);

}  // namespace drafting
