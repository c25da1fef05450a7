// Regions of the plane that select: a box, a polygon, or the open line of a fence.
#pragma once

#include <span>
#include <vector>

#include "embedded/base/geometry.h"

namespace drafting {

using base::Box2;
using base::Point2;

bool segmentsMeet(Point2 a, Point2 b, Point2 c, Point2 d);
bool segmentMeetsBox(Point2 a, Point2 b, const Box2& box);

class Region {
 public:
  static Region box(Point2 corner, Point2 opposite);
  static Region polygon(std::vector<Point2> corners);
  static Region fence(std::vector<Point2> points);

  const Box2& bounds() const { return bounds_; }
  bool isBox() const { return isBox_; }

  bool contains(Point2 point) const;  // the edge counts; never of a fence
  // A path of one point is a dot.
  bool meetsPath(std::span<const Point2> path) const;
  bool meetsArea(std::span<const Point2> outline) const;
  bool containsPath(std::span<const Point2> path) const;

 private:
  Region(std::vector<Point2> points, bool open);
  template <class F>
  bool anyEdge(F f) const;
  bool meetsSegment(Point2 a, Point2 b) const;

  std::vector<Point2> points_;
  Box2 bounds_;
  bool isBox_ = false, open_ = false;
};

// Whether the point is inside of a closed outline.
bool inside(std::span<const Point2> outline, Point2 point);

}  // namespace drafting
