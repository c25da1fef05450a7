#include "embedded/drafting/database/fit_curve.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace drafting {
namespace {

constexpr std::int32_t kFitDegree = 3;

// The way from point to point: of each piece its length.
struct Way {
  std::vector<Point3> points;
  std::vector<double> steps;

  explicit Way(const std::vector<Point3>& all) : points(all) {
    points.erase(std::unique(points.begin(), points.end()), points.end());
    for (std::size_t i = 1; i < points.size(); ++i) {
      steps.push_back(length(points[i] - points[i - 1]));
    }
  }
};

// One row of the equations of speeds: low * the one before + middle * its own + high * the next.
struct Row {
  double low = 0, middle = 1, high = 0;
  Point3 right;
};

Row rowAt(const Way& way, std::size_t i, const Spline& spline) {
  const std::size_t last = way.steps.size();
  const Point3& tangent = i == 0 ? spline.startTangent : spline.endTangent;
  const double size = i == 0 || i == last ? length(tangent) : 0;
  Row row;
  if (size > 0) {
    row.right = tangent * (1 / size);
    return row;
  }
  row.low = i > 0 ? 1 / way.steps[i - 1] : 0;
  row.high = i < last ? 1 / way.steps[i] : 0;
  row.middle = 2 * (row.low + row.high);
  if (i > 0) row.right = (way.points[i] - way.points[i - 1]) * (3 * row.low * row.low);
  if (i < last) {
    row.right = row.right + (way.points[i + 1] - way.points[i]) * (3 * row.high * row.high);
  }
  return row;
}

std::vector<Point3> speedsOf(const Way& way, const Spline& spline) {
  const std::size_t count = way.points.size();
  std::vector<Point3> speeds(count);
  std::vector<double> high(count);
  for (std::size_t i = 0; i < count; ++i) {
    const Row row = rowAt(way, i, spline);
    const double pivot = row.middle - (i > 0 ? row.low * high[i - 1] : 0);
    const Point3 right = i > 0 ? row.right - speeds[i - 1] * row.low : row.right;
    high[i] = row.high / pivot;
    speeds[i] = right * (1 / pivot);
  }
  for (std::size_t i = count - 1; i-- > 0;) speeds[i] = speeds[i] - speeds[i + 1] * high[i];
  return speeds;
}

}  // namespace

FitCurve fitCurve(const Spline& spline) {
  const Way way(spline.fitPoints);
  FitCurve curve;
  if (way.points.size() < 2) return {{}, way.points};
  const auto& [points, steps] = way;
  const std::vector<Point3> speeds = speedsOf(way, spline);
  curve.knots.assign(4, 0);
  for (const double step : steps) curve.knots.push_back(curve.knots.back() + step);
  curve.knots.insert(curve.knots.end(), 3, curve.knots.back());
  curve.controls = {points[0], points[0] + speeds[0] * (steps[0] / 3)};
  for (std::size_t i = 1; i < steps.size(); ++i) {
    // The control points of the piece that ends here, and the way between them gone on.
    const double size = steps[i - 1];
    const Point3 first = points[i - 1] + speeds[i - 1] * (size / 3);
    const Point3 second = points[i] - speeds[i] * (size / 3);
    curve.controls.push_back(first + (second - first) * ((size + steps[i]) / size));
  }
  curve.controls.push_back(points.back() - speeds.back() * (steps.back() / 3));
  curve.controls.push_back(points.back());
  return curve;
}

Spline withControls(const Spline& spline) {
  Spline result = spline;
  if (!result.controls.empty()) return result;
  FitCurve curve = fitCurve(spline);
  result.degree = kFitDegree;
  result.knots = std::move(curve.knots);
  result.controls = std::move(curve.controls);
  result.weights.clear();
  return result;
}

bool followsFitPoints(const Spline& spline) {
  constexpr double kSame = 1e-9;  // relative
  if (spline.fitPoints.empty() || spline.degree != kFitDegree || !spline.weights.empty())
    return false;
  if (spline.closed || spline.periodic || spline.rational) return false;
  const FitCurve curve = fitCurve(spline);
  if (curve.controls.size() != spline.controls.size() || curve.knots.size() != spline.knots.size())
    return false;
  const double most = kSame * (1 + (curve.knots.empty() ? 0 : curve.knots.back()));
  return std::equal(curve.controls.begin(), curve.controls.end(), spline.controls.begin(),
                    [most](const Point3& a, const Point3& b) { return length(a - b) <= most; }) &&
         std::equal(curve.knots.begin(), curve.knots.end(), spline.knots.begin(),
                    [most](double a, double b) { return std::abs(a - b) <= most; });
}

}  // namespace drafting
