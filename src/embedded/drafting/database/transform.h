// Entities under affine maps of space: moved, turned, scaled, mirrored. Handles, chains, the
// attributes of an INSERT and the vertices of a POLYLINE are the caller's, and so is the journal.
#pragma once

#include <optional>

#include "embedded/drafting/database/entities.h"

namespace drafting {

// Affine map of space: p -> origin + x p.x + y p.y + z p.z.
struct Map3 {
  Point3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, origin;

  Point3 operator()(const Point3& p) const { return origin + direction(p); }
  Point3 direction(const Point3& v) const { return x * v.x + y * v.y + z * v.z; }
  Map3 operator*(const Map3& inner) const {
    return {direction(inner.x), direction(inner.y), direction(inner.z), (*this)(inner.origin)};
  }

  static Map3 translation(const Point3& by) { return {.origin = by}; }
  // Around a vertical axis through `about`.
  static Map3 rotation(const Point3& about, double angle);
  // By one factor in all three directions.
  static Map3 scaling(const Point3& about, double factor);
  // At the vertical plane through two different points.
  static Map3 mirror(Point2 from, Point2 to);
};

// Of the points at this height, what the map does to their x and y.
inline base::Affine2 seenFromAbove(const Map3& map, double elevation) {
  const Point3 origin = map({0, 0, elevation});
  return {map.x.x, map.x.y, map.y.x, map.y.y, origin.x, origin.y};
}

// The axes of the object coordinates that belong to a normal (z is the normal, of length 1).
Map3 objectAxes(const Point3& normal);

// Where the content of an INSERT goes: its first cell, from the block's coordinates.
Map3 placeOfInsert(const Insert& insert, const Point3& blockBase);

struct TransformOptions {
  // Mirrored texts stay readable: their justification changes sides instead (MIRRTEXT 0).
  bool readableTexts = false;
  // Of the polyline, as it was, whose flat vertices are mapped.
  Point3 plane = kZAxis;
  double elevation = 0;
};

// False, and nothing changed, if the entity isn't understood or its kind can't hold the result: a
// circle stretched in one direction, a map that isn't invertible.
bool transformEntity(Entity& entity, const Map3& map, const TransformOptions& options = {});

inline bool moveEntity(Entity& entity, const Point3& by, const Point3& plane = kZAxis) {
  return transformEntity(entity, Map3::translation(by), {.plane = plane});
}

}  // namespace drafting
