// Clips by halves of the plane, one side of the picture after the other; cuts by taking off ears.
#include "embedded/slide_store/polygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace slide_store {

namespace {

// One side of the picture.
struct Side {
  int SlidePoint::*axis;
  int SlidePoint::*other;
  int limit;
  bool upper;

  bool holds(SlidePoint p) const { return upper ? p.*axis <= limit : p.*axis >= limit; }

  // Where the line between a point on either side crosses it.
  SlidePoint cross(SlidePoint a, SlidePoint b) const {
    const double part = static_cast<double>(limit - a.*axis) / (b.*axis - a.*axis);
    SlidePoint p;
    p.*axis = limit;
    p.*other = a.*other + static_cast<int>(std::lround(part * (b.*other - a.*other)));
    return p;
  }
};

std::array<Side, 4> sides(SlidePoint high) {
  constexpr auto kX = &SlidePoint::x;
  constexpr auto kY = &SlidePoint::y;
  return {Side{kX, kY, 0, false}, Side{kX, kY, high.x, true}, Side{kY, kX, 0, false},
          Side{kY, kX, high.y, true}};
}

std::vector<SlidePoint> cutAt(const std::vector<SlidePoint>& corners, const Side& side) {
  std::vector<SlidePoint> kept;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const SlidePoint p = corners[i];
    const SlidePoint next = corners[(i + 1) % corners.size()];
    if (side.holds(p)) kept.push_back(p);
    if (side.holds(p) != side.holds(next)) kept.push_back(side.cross(p, next));
  }
  return kept;
}

// Twice the area of the triangle, above 0 when it turns left.
std::int64_t turn(SlidePoint a, SlidePoint b, SlidePoint c) {
  return static_cast<std::int64_t>(b.x - a.x) * (c.y - a.y) -
         static_cast<std::int64_t>(b.y - a.y) * (c.x - a.x);
}

std::int64_t twiceArea(const std::vector<SlidePoint>& corners) {
  std::int64_t area = 0;
  for (std::size_t i = 1; i + 1 < corners.size(); ++i) {
    area += turn(corners[0], corners[i], corners[i + 1]);
  }
  return area;
}

bool isEar(const std::vector<SlidePoint>& corners, std::size_t at) {
  const std::size_t size = corners.size();
  const SlidePoint a = corners[(at + size - 1) % size];
  const SlidePoint b = corners[at];
  const SlidePoint c = corners[(at + 1) % size];
  if (turn(a, b, c) <= 0) return false;
  return std::none_of(corners.begin(), corners.end(), [&](SlidePoint p) {
    if (p == a || p == b || p == c) return false;
    return turn(a, b, p) >= 0 && turn(b, c, p) >= 0 && turn(c, a, p) >= 0;
  });
}

// The first ear from `from` on, going round; the number of corners when there is none, which only
// a polygon that crosses itself comes to.
std::size_t findEar(const std::vector<SlidePoint>& corners, std::size_t from) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const std::size_t at = (from + i) % corners.size();
    if (isEar(corners, at)) return at;
  }
  return corners.size();
}

void removeRepeats(std::vector<SlidePoint>& corners) {
  corners.erase(std::unique(corners.begin(), corners.end()), corners.end());
  while (corners.size() > 1 && corners.front() == corners.back()) corners.pop_back();
}

}  // namespace

bool threeDiffer(std::span<const SlidePoint> corners) {
  if (corners.empty()) return false;
  const auto other = [&](SlidePoint p) { return p != corners[0]; };
  const auto second = std::find_if(corners.begin(), corners.end(), other);
  return std::any_of(second, corners.end(), [&](SlidePoint p) { return other(p) && p != *second; });
}

bool clipLine(SlidePoint& from, SlidePoint& to, SlidePoint high) {
  for (const Side& side : sides(high)) {
    const bool fromIn = side.holds(from);
    if (!fromIn && !side.holds(to)) return false;
    if (!fromIn) from = side.cross(from, to);
    if (!side.holds(to)) to = side.cross(from, to);
  }
  return true;
}

std::vector<SlidePoint> clipPolygon(std::span<const SlidePoint> corners, SlidePoint high) {
  std::vector<SlidePoint> kept(corners.begin(), corners.end());
  for (const Side& side : sides(high)) kept = cutAt(kept, side);
  removeRepeats(kept);
  return kept;
}

std::vector<std::vector<SlidePoint>> cutPolygon(std::vector<SlidePoint> corners, std::size_t most) {
  std::vector<std::vector<SlidePoint>> pieces;
  const auto add = [&](std::vector<SlidePoint> piece) {
    removeRepeats(piece);
    if (threeDiffer(piece)) pieces.push_back(std::move(piece));
  };
  if (corners.size() > most && twiceArea(corners) < 0) std::reverse(corners.begin(), corners.end());
  bool hasEars = true;
  std::size_t ear = 0;
  while (corners.size() > most) {
    const std::size_t size = corners.size();
    if (hasEars) ear = findEar(corners, ear % size);
    hasEars = hasEars && ear < size;
    if (!hasEars) ear = size - 1;  // any corner will do
    add({corners[(ear + size - 1) % size], corners[ear], corners[(ear + 1) % size]});
    corners.erase(corners.begin() + static_cast<std::ptrdiff_t>(ear));
  }
  add(std::move(corners));
  return pieces;
}

}  // namespace slide_store
