#include "embedded/drafting/display/hatching.h"

#include <algorithm>
#include <cmath>

#include "embedded/drafting/display/splines.h"

namespace drafting {
namespace {

using Edge = Hatch::Edge;
using Form = Edge::Form;

constexpr std::size_t kMostLoops = 2000;  // whose nesting is looked at
constexpr double kMostLines = 20000;      // of one line of a pattern
constexpr std::size_t kMostCrossings = 2'000'000;

// --- boundary

void appendArc(Path& path, const Edge& edge, double tolerance) {
  const bool isArc = edge.form == Form::Arc;
  double start = edge.startAngle, sweep = sweepOf(edge.startAngle, edge.endAngle);
  if (!edge.counterClockwise) {
    start = -start;
    sweep = -sweep;
  }
  if (isArc) {
    const Path arc = arcPath(edge.first, edge.size, start, sweep, tolerance);
    path.insert(path.end(), arc.begin(), arc.end());
    return;
  }
  const Point2 major = edge.second;
  const base::Affine2 axes{major.x,      major.y,     -major.y * edge.size, major.x * edge.size,
                           edge.first.x, edge.first.y};
  const double size = length(major);
  for (const Point2 point : arcPath({}, 1, start, sweep, size > 0 ? tolerance / size : 0)) {
    path.push_back(axes(point));
  }
}

void appendEdge(Path& path, const Edge& edge, double tolerance) {
  switch (edge.form) {
    case Form::Line:
      path.push_back(edge.first);
      path.push_back(edge.second);
      return;
    case Form::Arc:
    case Form::Ellipse: return appendArc(path, edge, tolerance);
    case Form::Spline: {
      const Path curve = splinePath({edge.degree, edge.knots, edge.controls, edge.weights});
      path.insert(path.end(), curve.begin(), curve.end());
      return;
    }
  }
}

bool isUsable(const Path& path) {
  constexpr double kFarthest = 1e50;
  return path.size() >= 3 && std::all_of(path.begin(), path.end(), [](Point2 p) {
           return std::abs(p.x) < kFarthest && std::abs(p.y) < kFarthest;
         });
}

Path outlineOf(const Hatch::Path& from, double tolerance) {
  Path path;
  if (!from.isPolyline()) {
    for (const Edge& edge : from.edges) appendEdge(path, edge, tolerance);
  } else {
    const std::size_t n = from.points.size();
    for (std::size_t i = 0; i < n; ++i) {
      const double bulge = i < from.bulges.size() ? from.bulges[i] : 0;
      appendBulge(path, from.points[i], from.points[(i + 1) % n], bulge, tolerance);
    }
  }
  path.erase(std::unique(path.begin(), path.end()), path.end());
  if (path.size() > 1 && path.front() == path.back()) path.pop_back();
  return path;
}

bool encloses(const Path& path, Point2 point) {
  bool inside = false;
  for (std::size_t i = 0, j = path.size() - 1; i < path.size(); j = i++) {
    const Point2 a = path[i], b = path[j];
    if ((a.y > point.y) == (b.y > point.y)) continue;
    if (point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
  }
  return inside;
}

base::Box2 boxOf(const Path& path) {
  base::Box2 box;
  for (const Point2 point : path) box.add(point);
  return box;
}

void setDepths(std::vector<HatchLoop>& loops) {
  if (loops.size() > kMostLoops) return;
  std::vector<base::Box2> boxes;
  boxes.reserve(loops.size());
  for (const HatchLoop& loop : loops) boxes.push_back(boxOf(loop.path));
  for (std::size_t i = 0; i < loops.size(); ++i) {
    // Half way between two corners: loops often share corners with others.
    const Point2 inside = (loops[i].path[0] + loops[i].path[1]) * 0.5;
    for (std::size_t j = 0; j < loops.size(); ++j) {
      const bool within = boxes[j].min.x <= inside.x && inside.x <= boxes[j].max.x &&
                          boxes[j].min.y <= inside.y && inside.y <= boxes[j].max.y;
      if (i != j && within && encloses(loops[j].path, inside)) ++loops[i].depth;
    }
  }
}

double signedArea(const Path& path) {
  double area = 0;
  for (std::size_t i = 0; i < path.size(); ++i) {
    const Point2 a = path[i], b = path[(i + 1) % path.size()];
    area += a.x * b.y - b.x * a.y;
  }
  return area / 2;
}

// --- lines

// One line of a pattern, repeated over the loops. Reckoned in coordinates whose x runs along it.
class LineFamily {
 public:
  LineFamily(const Hatch::PatternLine& line, const HatchLine& put)
      : line_(line),
        put_(put),
        turn_(base::Affine2::rotation(-line.angle)),
        back_(base::Affine2::rotation(line.angle)),
        base_(turn_(line.base)),
        step_(turn_(line.offset)) {}

  // False if it can't be drawn.
  bool run(const std::vector<HatchLoop>& loops) {
    if (!std::isfinite(step_.x) || !(std::abs(step_.y) > 0) || !std::isfinite(step_.y))
      return false;
    setPattern();
    for (const HatchLoop& loop : loops) {
      for (std::size_t i = 0; i < loop.path.size(); ++i) {
        if (!addCrossings(turn_(loop.path[i]), turn_(loop.path[(i + 1) % loop.path.size()]))) {
          return false;
        }
      }
    }
    std::sort(crossings_.begin(), crossings_.end());
    // Between each first and second crossing of a line lies an inside.
    for (std::size_t i = 0; i + 1 < crossings_.size(); ++i) {
      if (crossings_[i].line != crossings_[i + 1].line) continue;
      if (!putDashes(crossings_[i], crossings_[i + 1].x)) return true;
      ++i;
    }
    return true;
  }

 private:
  struct Crossing {
    double line = 0;  // number of the line; whole
    double x = 0;
    bool operator<(const Crossing& o) const { return line != o.line ? line < o.line : x < o.x; }
  };

  // A corner belongs to the edge above it, so that a line through one doesn't cross twice.
  bool addCrossings(Point2 a, Point2 b) {
    if (a.y > b.y) std::swap(a, b);
    double first = (a.y - base_.y) / step_.y, last = (b.y - base_.y) / step_.y;
    if (first > last) std::swap(first, last);
    first = std::ceil(first);
    last = std::floor(last);
    constexpr double kFarthest = 1e15;  // beyond, counting by one goes no further
    if (!(std::abs(first) < kFarthest && last - first < kMostLines)) return false;
    for (double n = first; n <= last; ++n) {
      const double y = base_.y + n * step_.y;
      if (!(a.y <= y && y < b.y)) continue;
      crossings_.push_back({n, a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y)});
    }
    return crossings_.size() < kMostCrossings;
  }

  void setPattern() {
    for (const double dash : line_.dashes) length_ += std::abs(dash);
    if (!std::isfinite(length_)) length_ = 0;
  }

  bool putLine(double from, double to, double y) {
    return put_(back_(Point2{from, y}), back_(Point2{to, y}));
  }

  // The dashes begin at the line's own base point.
  bool putDashes(const Crossing& from, double end) {
    const double y = base_.y + from.line * step_.y;
    const double repeats = length_ > 0 ? (end - from.x) / length_ : 0;
    if (!(length_ > 0) || !(repeats * static_cast<double>(line_.dashes.size()) < kMostLines)) {
      return putLine(from.x, end, y);
    }
    const double origin = base_.x + from.line * step_.x;
    double at = origin + std::floor((from.x - origin) / length_) * length_;
    for (double n = 0; at < end && n <= repeats + 2; ++n) {
      for (const double dash : line_.dashes) {
        const double next = at + std::abs(dash);
        const double left = std::max(at, from.x), right = std::min(next, end);
        if (dash >= 0 && left <= right && !putLine(left, right, y)) return false;
        at = next;
      }
    }
    return true;
  }

  const Hatch::PatternLine& line_;
  const HatchLine& put_;
  base::Affine2 turn_, back_;
  Point2 base_, step_;
  double length_ = 0;
  std::vector<Crossing> crossings_;
};

}  // namespace

std::vector<HatchLoop> loopsOf(const Hatch& hatch, double tolerance) {
  std::vector<HatchLoop> loops;
  for (const Hatch::Path& from : hatch.paths) {
    Path path = outlineOf(from, tolerance);
    if (isUsable(path)) loops.push_back({std::move(path), 0});
  }
  setDepths(loops);
  const int deepest = hatch.style == 1 ? 1 : hatch.style == 2 ? 0 : static_cast<int>(kMostLoops);
  std::erase_if(loops, [deepest](const HatchLoop& loop) { return loop.depth > deepest; });
  return loops;
}

Path filledOutline(const std::vector<HatchLoop>& loops) {
  Path outline;
  for (const HatchLoop& loop : loops) {
    const bool wanted = loop.depth % 2 == 0;
    if ((signedArea(loop.path) > 0) == wanted) {
      outline.insert(outline.end(), loop.path.begin(), loop.path.end());
    } else {
      outline.insert(outline.end(), loop.path.rbegin(), loop.path.rend());
    }
    outline.push_back(wanted == (signedArea(loop.path) > 0) ? loop.path.front() : loop.path.back());
    if (loops.size() > 1) outline.push_back(outline.front());  // the way back along the cut
  }
  return outline;
}

bool drawPattern(const Hatch& hatch, const std::vector<HatchLoop>& loops, const HatchLine& line) {
  return std::all_of(hatch.lines.begin(), hatch.lines.end(), [&](const Hatch::PatternLine& one) {
    return LineFamily(one, line).run(loops);
  });
}

}  // namespace drafting
