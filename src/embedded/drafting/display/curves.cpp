#include "embedded/drafting/display/curves.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace drafting {
namespace {

using base::kFullTurn;
constexpr int kUsualPieces = 64, kFewestPieces = 12, kMostPieces = 720;  // of a full circle
constexpr double kLongestMitre = 4;                                      // in half widths

Point2 leftOf(Point2 direction) { return {-direction.y, direction.x}; }

Point2 directionOf(Point2 from, Point2 to) {
  const Point2 way = to - from;
  const double size = length(way);
  return size > 0 ? way * (1 / size) : Point2{};
}

// What reaches from the middle line to the left edge, for a half width of 1, where two pieces of
// these directions meet: the mitre, cut where it would grow too long.
Point2 mitre(Point2 before, Point2 after) {
  const Point2 sum = leftOf(before) + leftOf(after);
  const double size = length(sum);
  if (size < 1e-9) return leftOf(after);
  const Point2 normal = sum * (1 / size);
  const Point2 left = leftOf(after);
  const double along = normal.x * left.x + normal.y * left.y;
  return normal * std::min(1 / std::max(along, 1e-9), kLongestMitre);
}

void dropRepeated(std::vector<Station>& stations, bool closed) {
  const auto same = [](const Station& a, const Station& b) { return a.point == b.point; };
  stations.erase(std::unique(stations.begin(), stations.end(), same), stations.end());
  if (closed && stations.size() > 1 && same(stations.front(), stations.back())) stations.pop_back();
}

// The outline: along the left edge and back along the right one. A ring's two edges are joined by a
// cut without width.
Path outlineOf(std::vector<Station> stations, bool closed) {
  dropRepeated(stations, closed);
  const std::size_t count = stations.size();
  if (count < 2) return {};
  Path left, right;
  for (std::size_t i = 0; i < count; ++i) {
    const bool first = i == 0 && !closed, last = i + 1 == count && !closed;
    const Point2 here = stations[i].point;
    const Point2 before = directionOf(stations[(i + count - 1) % count].point, here);
    const Point2 after = directionOf(here, stations[(i + 1) % count].point);
    const Point2 reach = mitre(first ? after : before, last ? before : after) * stations[i].half;
    left.push_back(here + reach);
    right.push_back(here - reach);
  }
  if (closed) {
    left.push_back(left.front());
    right.push_back(right.front());
  }
  left.insert(left.end(), right.rbegin(), right.rend());
  return left;
}

struct Widths {
  double start = 0, end = 0;
  bool wide() const { return start > 0 || end > 0; }
};

class ShapeMaker {
 public:
  ShapeMaker(const LwPolyline& polyline, double tolerance, const DashPattern& pattern)
      : polyline_(polyline), tolerance_(tolerance), pattern_(pattern) {}

  std::vector<PolylineShape> run() {
    const std::size_t count = polyline_.points.size();
    if (count == 0) return {};
    const std::size_t segments = polyline_.closed && count > 1 ? count : count - 1;
    if (segments == 0) return {{false, {polyline_.points[0]}}};
    const bool eachAlone = !pattern_.isContinuous() && !polyline_.continuousPattern;
    bool unbroken = true;
    for (std::size_t i = 0; i < segments; ++i) {
      if (i > 0 && (eachAlone || breaksAt(i))) {
        finish(false);
        unbroken = false;
      }
      addSegment(i);
    }
    finish(polyline_.closed && count > 1 && unbroken);
    return std::move(shapes_);
  }

 private:
  Widths widths(std::size_t i) const {
    if (i < polyline_.widths.size()) return {polyline_.widths[i].start, polyline_.widths[i].end};
    return {polyline_.constantWidth, polyline_.constantWidth};
  }

  // Whether the width jumps between the segment before and this one.
  bool breaksAt(std::size_t i) const {
    const Widths before = widths(i - 1), here = widths(i);
    return before.wide() != here.wide() || before.end != here.start;
  }

  void addSegment(std::size_t i) {
    const Point2 from = polyline_.points[i];
    const Point2 to = polyline_.points[(i + 1) % polyline_.points.size()];
    const Widths width = widths(i);
    wide_ = width.wide();
    Path path{from};
    appendBulge(path, from, to, i < polyline_.bulges.size() ? polyline_.bulges[i] : 0, tolerance_);
    const auto pieces = static_cast<double>(path.size() - 1);
    for (std::size_t k = 0; k < path.size(); ++k) {
      const double at = static_cast<double>(k) / pieces;
      stations_.push_back({path[k], (width.start + (width.end - width.start) * at) / 2});
    }
  }

  void finish(bool closed) {
    if (pattern_.isContinuous()) {
      put(stations_, closed);
    } else {
      cutIntoDashes(stations_, pattern_,
                    [this](std::span<const Station> dash) { put(dash, false); });
    }
    stations_.clear();
  }

  void put(std::span<const Station> stations, bool closed) {
    PolylineShape shape;
    shape.wide = wide_;
    if (wide_) {
      shape.path = outlineOf({stations.begin(), stations.end()}, closed);
    } else {
      for (const Station& station : stations) {
        if (shape.path.empty() || shape.path.back() != station.point) {
          shape.path.push_back(station.point);
        }
      }
    }
    if (!shape.path.empty()) shapes_.push_back(std::move(shape));
  }

  const LwPolyline& polyline_;
  double tolerance_;
  const DashPattern& pattern_;
  bool wide_ = false;
  std::vector<Station> stations_;
  std::vector<PolylineShape> shapes_;
};

}  // namespace

int piecesOf(double radius, double sweep, double tolerance) {
  double ofCircle = kUsualPieces;
  if (tolerance > 0 && radius > tolerance) {
    ofCircle = kFullTurn / (2 * std::acos(1 - tolerance / radius));
  } else if (tolerance > 0) {
    ofCircle = kFewestPieces;
  }
  ofCircle = std::clamp<double>(ofCircle, kFewestPieces, kMostPieces);
  // Angles of damaged drawings may be no numbers.
  const double pieces = std::ceil(ofCircle * std::abs(sweep) / kFullTurn);
  constexpr double kMostTurns = 100;
  return pieces >= 1 && pieces <= kMostPieces * kMostTurns ? static_cast<int>(pieces) : 1;
}

Path arcPath(Point2 centre, double radius, double start, double sweep, double tolerance) {
  const int pieces = piecesOf(radius, sweep, tolerance);
  Path path;
  path.reserve(static_cast<std::size_t>(pieces) + 1);
  for (int i = 0; i <= pieces; ++i) {
    path.push_back(base::polar(centre, start + sweep * i / pieces, radius));
  }
  return path;
}

void appendBulge(Path& path, Point2 from, Point2 to, double bulge, double tolerance) {
  const double chord = base::distance(from, to);
  if (bulge != 0 && chord > 0 && std::isfinite(bulge)) {
    const double sweep = 4 * std::atan(bulge);
    const double radius = chord / (2 * std::sin(std::abs(sweep) / 2));
    // The centre lies on the middle perpendicular, left of the way where the arc is less than half
    // a circle and turns left.
    const Point2 middle = (from + to) * 0.5;
    const double aside = radius * std::cos(sweep / 2) * (bulge > 0 ? 1 : -1);
    const Point2 centre = middle + leftOf(directionOf(from, to)) * aside;
    const double start = base::angleOf(from - centre);
    const int pieces = piecesOf(radius, sweep, tolerance);
    for (int i = 1; i < pieces; ++i) {
      path.push_back(base::polar(centre, start + sweep * i / pieces, radius));
    }
  }
  path.push_back(to);
}

double sweepOf(double start, double end) {
  const double sweep = std::fmod(end - start, kFullTurn);
  return sweep > 0 ? sweep : sweep + kFullTurn;
}

std::vector<PolylineShape> shapesOf(const LwPolyline& polyline, double tolerance,
                                    const DashPattern& pattern) {
  return ShapeMaker(polyline, tolerance, pattern).run();
}

}  // namespace drafting
