#include "embedded/drafting/database/moving.h"

#include <cmath>

#include "embedded/drafting/database/visit.h"

namespace drafting {
namespace {

double dot(const Point3& a, const Point3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Point3 cross(const Point3& a, const Point3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// The way in the coordinates of an entity with that normal.
Point3 inObject(const Point3& by, const Point3& normal) {
  const double size = std::sqrt(dot(normal, normal));
  if (!(size > 0) || (normal.x == 0 && normal.y == 0 && normal.z > 0)) return by;
  constexpr double kNearZ = 1.0 / 64;
  const Point3 n = normal * (1 / size);
  const bool near = std::abs(n.x) < kNearZ && std::abs(n.y) < kNearZ;
  Point3 x = cross(near ? Point3{0, 1, 0} : Point3{0, 0, 1}, n);
  x = x * (1 / std::sqrt(dot(x, x)));
  return {dot(by, x), dot(by, cross(n, x)), dot(by, n)};
}

class Mover {
 public:
  explicit Mover(const Point3& by) : by_(by) {}
  bool moved = true;

  void move(Line& line) {
    line.start = line.start + by_;
    line.end = line.end + by_;
  }
  void move(Point& point) { point.position = point.position + by_; }
  void move(Circle& circle) { circle.centre = circle.centre + inObject(by_, circle.normal); }
  void move(Arc& arc) { arc.centre = arc.centre + inObject(by_, arc.normal); }
  void move(Ellipse& ellipse) { ellipse.centre = ellipse.centre + by_; }
  void move(Solid& solid) {
    const Point3 way = inObject(by_, solid.normal);
    for (Point2& corner : solid.corners) corner = corner + Point2{way.x, way.y};
    solid.elevation += way.z;
  }
  void move(LwPolyline& polyline) {
    const Point3 way = inObject(by_, polyline.normal);
    for (Point2& point : polyline.points) point = point + Point2{way.x, way.y};
    polyline.elevation += way.z;
  }
  void move(TextBase& text) {
    const Point3 way = inObject(by_, text.normal);
    text.position = text.position + Point2{way.x, way.y};
    text.alignment = text.alignment + Point2{way.x, way.y};
    text.elevation += way.z;
  }
  void move(MText& text) { text.position = text.position + by_; }
  void move(Insert& insert) { insert.position = insert.position + inObject(by_, insert.normal); }
  void move(RawEntity&) { moved = false; }
  void move(Object&) {}  // heads and ends have no place

 private:
  Point3 by_;
};

}  // namespace

bool moveEntity(Entity& entity, const Point3& by) {
  Mover mover(by);
  visit(entity, [&](auto& one) { mover.move(one); });
  return mover.moved;
}

}  // namespace drafting
