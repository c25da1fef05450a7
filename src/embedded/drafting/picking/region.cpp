#include "embedded/drafting/picking/region.h"

#include <algorithm>

namespace drafting {
namespace {

double turn(Point2 a, Point2 b, Point2 c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

Box2 boxOf(Point2 a, Point2 b) {
  Box2 box;
  box.add(a);
  box.add(b);
  return box;
}

bool boxHolds(const Box2& box, Point2 p) {
  return p.x >= box.min.x && p.x <= box.max.x && p.y >= box.min.y && p.y <= box.max.y;
}

}  // namespace

bool segmentsMeet(Point2 a, Point2 b, Point2 c, Point2 d) {
  if (!meet(boxOf(a, b), boxOf(c, d))) return false;
  const double ab1 = turn(a, b, c), ab2 = turn(a, b, d);
  const double cd1 = turn(c, d, a), cd2 = turn(c, d, b);
  return !((ab1 > 0 && ab2 > 0) || (ab1 < 0 && ab2 < 0) || (cd1 > 0 && cd2 > 0) ||
           (cd1 < 0 && cd2 < 0));
}

bool segmentMeetsBox(Point2 a, Point2 b, const Box2& box) {
  if (!meet(boxOf(a, b), box)) return false;
  if (boxHolds(box, a) || boxHolds(box, b)) return true;
  const Point2 corners[] = {box.min, {box.max.x, box.min.y}, box.max, {box.min.x, box.max.y}};
  bool left = false, right = false;
  for (const Point2 corner : corners) {
    const double side = turn(a, b, corner);
    left = left || side >= 0;
    right = right || side <= 0;
  }
  return left && right;
}

Region::Region(std::vector<Point2> points, bool open) : points_(std::move(points)), open_(open) {
  for (const Point2 point : points_) bounds_.add(point);
}

Region Region::box(Point2 corner, Point2 opposite) {
  const Box2 b = boxOf(corner, opposite);
  Region region({b.min, {b.max.x, b.min.y}, b.max, {b.min.x, b.max.y}}, false);
  region.isBox_ = true;
  return region;
}

Region Region::polygon(std::vector<Point2> corners) { return {std::move(corners), false}; }
Region Region::fence(std::vector<Point2> points) { return {std::move(points), true}; }

template <class F>
bool Region::anyEdge(F f) const {
  const std::size_t count = points_.size();
  for (std::size_t i = 0; i + (open_ ? 1 : 0) < count; ++i) {
    if (f(points_[i], points_[(i + 1) % count])) return true;
  }
  return false;
}

bool Region::contains(Point2 point) const {
  if (open_ || !boxHolds(bounds_, point)) return false;
  return isBox_ || inside(points_, point) ||
         anyEdge([&](Point2 a, Point2 b) { return segmentsMeet(a, b, point, point); });
}

bool Region::meetsSegment(Point2 a, Point2 b) const {
  if (isBox_) return segmentMeetsBox(a, b, bounds_);
  return contains(a) || anyEdge([&](Point2 c, Point2 d) { return segmentsMeet(a, b, c, d); });
}

bool Region::meetsPath(std::span<const Point2> path) const {
  if (path.size() == 1) return meetsSegment(path[0], path[0]);
  for (std::size_t i = 1; i < path.size(); ++i) {
    if (meetsSegment(path[i - 1], path[i])) return true;
  }
  return false;
}

bool Region::meetsArea(std::span<const Point2> outline) const {
  if (outline.empty()) return false;
  return meetsPath(outline) || meetsSegment(outline.back(), outline.front()) ||
         inside(outline, points_.front());
}

bool Region::containsPath(std::span<const Point2> path) const {
  if (!std::all_of(path.begin(), path.end(), [this](Point2 p) { return contains(p); }))
    return false;
  if (isBox_) return true;
  for (std::size_t i = 1; i < path.size(); ++i) {  // out and in again where the polygon is bent
    if (!contains((path[i - 1] + path[i]) * 0.5)) return false;
  }
  return true;
}

bool inside(std::span<const Point2> outline, Point2 p) {
  bool in = false;
  for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
    const Point2 a = outline[i], b = outline[j];
    if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) in = !in;
  }
  return in;
}

}  // namespace drafting
