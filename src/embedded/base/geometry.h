// Points, boxes and affine maps of the plane and of space, in drawing units; angles in radians.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace base {

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kFullTurn = 2 * kPi;

inline double radians(double degrees) { return degrees * kPi / 180.0; }
inline double degrees(double radians) { return radians * 180.0 / kPi; }

struct Point2 {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point2&, const Point2&) = default;
  friend Point2 operator+(Point2 a, Point2 b) { return {a.x + b.x, a.y + b.y}; }
  friend Point2 operator-(Point2 a, Point2 b) { return {a.x - b.x, a.y - b.y}; }
  friend Point2 operator*(Point2 a, double s) { return {a.x * s, a.y * s}; }
};

struct Point3 {
  double x = 0;
  double y = 0;
  double z = 0;
  friend bool operator==(const Point3&, const Point3&) = default;
  friend Point3 operator+(Point3 a, Point3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
  friend Point3 operator-(Point3 a, Point3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
  friend Point3 operator*(Point3 a, double s) { return {a.x * s, a.y * s, a.z * s}; }
};

// Seen from above.
inline Point2 flat(const Point3& p) { return {p.x, p.y}; }

inline double dot(Point2 a, Point2 b) { return a.x * b.x + a.y * b.y; }
inline double dot(const Point3& a, const Point3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
// Positive if b stands to the left of a.
inline double cross(Point2 a, Point2 b) { return a.x * b.y - a.y * b.x; }
inline Point3 cross(const Point3& a, const Point3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(Point2 v) { return std::hypot(v.x, v.y); }
inline double length(const Point3& v) { return std::hypot(v.x, v.y, v.z); }
inline double distance(Point2 a, Point2 b) { return length(b - a); }

inline double angleOf(Point2 v) { return std::atan2(v.y, v.x); }
// The same direction from 0 up to a full turn.
inline double wrappedAngle(double angle) {
  const double rest = std::fmod(angle, kFullTurn);
  return rest < 0 ? rest + kFullTurn : rest;
}

// The point at `distance` from `p` in direction `angle`.
inline Point2 polar(Point2 p, double angle, double distance) {
  return {p.x + distance * std::cos(angle), p.y + distance * std::sin(angle)};
}

// Axis-parallel box; empty until the first point is added.
struct Box2 {
  Point2 min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  Point2 max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

  bool empty() const { return min.x > max.x || min.y > max.y; }
  double width() const { return empty() ? 0 : max.x - min.x; }
  double height() const { return empty() ? 0 : max.y - min.y; }
  Point2 centre() const { return (min + max) * 0.5; }
  void add(Point2 p) {
    min = {std::min(min.x, p.x), std::min(min.y, p.y)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y)};
  }
  void add(const Box2& box) {
    if (box.empty()) return;
    add(box.min);
    add(box.max);
  }
};

// Whether two boxes have a point in common; false if one is empty.
inline bool meet(const Box2& a, const Box2& b) {
  return a.min.x <= b.max.x && b.min.x <= a.max.x && a.min.y <= b.max.y && b.min.y <= a.max.y;
}
inline bool holds(const Box2& outer, const Box2& inner) {
  return outer.min.x <= inner.min.x && inner.max.x <= outer.max.x && outer.min.y <= inner.min.y &&
         inner.max.y <= outer.max.y;
}

// Affine map of the plane: (x, y) -> (a x + c y + e, b x + d y + f).
struct Affine2 {
  double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

  Point2 operator()(Point2 p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
  // First `inner`, then this map.
  Affine2 operator*(const Affine2& inner) const {
    return {a * inner.a + c * inner.b,     b * inner.a + d * inner.b,
            a * inner.c + c * inner.d,     b * inner.c + d * inner.d,
            a * inner.e + c * inner.f + e, b * inner.e + d * inner.f + f};
  }
  double determinant() const { return a * d - b * c; }
  // There is one unless the determinant is 0.
  Affine2 inverse() const {
    const double area = determinant();
    return {
        d / area, -b / area, -c / area, a / area, (c * f - d * e) / area, (b * e - a * f) / area};
  }
  // Mean scale factor, for pen widths and text heights.
  double scale() const { return std::sqrt(std::abs(determinant())); }

  static Affine2 translation(Point2 by) { return {1, 0, 0, 1, by.x, by.y}; }
  static Affine2 scaling(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
  static Affine2 rotation(double angle) {
    return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
  }
};

// The box around the image of a box.
inline Box2 mapped(const Affine2& map, const Box2& box) {
  Box2 out;
  for (const Point2 corner :
       {box.min, box.max, Point2{box.min.x, box.max.y}, Point2{box.max.x, box.min.y}}) {
    out.add(map(corner));
  }
  return out;
}

}  // namespace base
