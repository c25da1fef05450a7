#include "embedded/drafting/display/splines.h"

#include <algorithm>
#include <array>

#include "embedded/drafting/database/fit_curve.h"

namespace drafting {
namespace {

constexpr int kHighestDegree = 25, kPiecesOfSpan = 16;

// A control point with its weight.
struct Weighted {
  Point2 point;
  double weight = 1;
};

bool isSound(const SplineCurve& spline) {
  const auto degree = static_cast<std::size_t>(std::max(spline.degree, 0));
  return spline.degree >= 1 && spline.degree <= kHighestDegree && spline.controls.size() > degree &&
         spline.knots.size() == spline.controls.size() + degree + 1 &&
         (spline.weights.empty() || spline.weights.size() == spline.controls.size()) &&
         std::is_sorted(spline.knots.begin(), spline.knots.end());
}

// De Boor's corner cutting in the span that begins at a knot.
Point2 splinePoint(const SplineCurve& spline, std::size_t span, double at) {
  const auto degree = static_cast<std::size_t>(spline.degree);
  std::array<Weighted, kHighestDegree + 1> corners;
  for (std::size_t i = 0; i <= degree; ++i) {
    const std::size_t from = span - degree + i;
    const double weight = spline.weights.empty() ? 1 : spline.weights[from];
    corners[i] = {spline.controls[from] * weight, weight};
  }
  for (std::size_t round = 1; round <= degree; ++round) {
    for (std::size_t i = degree; i >= round; --i) {
      const double low = spline.knots[span - degree + i], high = spline.knots[span + 1 + i - round];
      const double part = high > low ? (at - low) / (high - low) : 0;
      corners[i].point = corners[i - 1].point * (1 - part) + corners[i].point * part;
      corners[i].weight = corners[i - 1].weight * (1 - part) + corners[i].weight * part;
    }
  }
  const Weighted& end = corners[degree];
  return end.weight != 0 ? end.point * (1 / end.weight) : end.point;
}

}  // namespace

Path splinePath(const SplineCurve& spline) {
  if (!isSound(spline)) return {spline.controls.begin(), spline.controls.end()};
  Path path;
  const auto degree = static_cast<std::size_t>(spline.degree);
  for (std::size_t span = degree; span < spline.controls.size(); ++span) {
    const double from = spline.knots[span], to = spline.knots[span + 1];
    if (!(to > from)) continue;
    for (int i = path.empty() ? 0 : 1; i <= kPiecesOfSpan; ++i) {
      path.push_back(splinePoint(spline, span, from + (to - from) * i / kPiecesOfSpan));
    }
  }
  return path;
}

Path splinePath(const Spline& spline) {
  const Spline curve = withControls(spline);
  Path controls;
  for (const Point3& control : curve.controls) controls.push_back(flat(control));
  return splinePath(SplineCurve{curve.degree, curve.knots, controls, curve.weights});
}

}  // namespace drafting
