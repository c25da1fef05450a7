// A flat entity lives in the plane of its normal. Its map is reckoned there: from the old object
// coordinates to those of the new normal, which keeps its side of the plane, so that a mirror image
// in the drawing's plane keeps its normal and turns the other way round.
#include "embedded/drafting/database/transform.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "embedded/drafting/database/visit.h"

namespace drafting {
namespace {

constexpr double kSame = 1e-9;  // relative
using base::kFullTurn;
using base::wrappedAngle;

// From the plane of an old normal to that of the new one.
struct PlaneMap {
  base::Affine2 map;
  Point3 normal;
  double elevation = 0;
  double scale = 1;  // of lengths along x
  bool flips = false;
  bool uniform = true;  // turns, scales and mirrors only

  Point2 direction(Point2 v) const {
    return {map.a * v.x + map.c * v.y, map.b * v.x + map.d * v.y};
  }
  // The angle of a line that stood at `old`.
  double angle(double old) const {
    if (map.a == 1 && map.b == 0 && map.c == 0 && map.d == 1) return old;
    const Point2 v = direction({std::cos(old), std::sin(old)});
    return wrappedAngle(angleOf(v));
  }
};

std::optional<PlaneMap> planeMap(const Map3& map, const Point3& normal, double elevation) {
  const Map3 before = objectAxes(normal);
  const Point3 x = map.direction(before.x), y = map.direction(before.y);
  Point3 up = cross(x, y);
  const double area = length(up);
  if (!(area > 0) || !std::isfinite(area)) return {};
  up = up * (1 / area);
  PlaneMap out;
  out.flips = dot(up, map.direction(before.z)) < 0;
  out.normal = out.flips ? up * -1 : up;
  const Map3 after = objectAxes(out.normal);
  const Point3 origin = map(before.z * elevation);
  out.map = {dot(x, after.x), dot(x, after.y),      dot(y, after.x),
             dot(y, after.y), dot(origin, after.x), dot(origin, after.y)};
  out.elevation = dot(origin, after.z);
  out.scale = length(x);
  const double other = length(y);
  out.uniform = std::abs(out.scale - other) <= kSame * (out.scale + other) &&
                std::abs(dot(x, y)) <= kSame * out.scale * other;
  return out;
}

class Transformer {
 public:
  Transformer(const Map3& map, const TransformOptions& options) : map_(map), options_(options) {}

  bool apply(Line& line) {
    if (!applyExtrusion(line)) return false;
    line.start = map_(line.start);
    line.end = map_(line.end);
    return true;
  }

  bool apply(Point& point) {
    if (!applyExtrusion(point)) return false;
    point.position = map_(point.position);
    return true;
  }

  bool apply(Circle& circle) { return applyRound(circle).has_value(); }

  bool apply(Arc& arc) {
    const auto plane = applyRound(arc);
    if (!plane) return false;
    const double start = plane->angle(arc.startAngle), end = plane->angle(arc.endAngle);
    arc.startAngle = plane->flips ? end : start;
    arc.endAngle = plane->flips ? start : end;
    return true;
  }

  bool apply(Ellipse& ellipse) {
    const auto plane = planeMap(map_, ellipse.normal, 0);
    if (!plane || !plane->uniform) return false;
    ellipse.centre = map_(ellipse.centre);
    ellipse.majorAxis = map_.direction(ellipse.majorAxis);
    ellipse.normal = plane->normal;
    if (plane->flips) {
      const double start = ellipse.startAngle;
      ellipse.startAngle = wrappedAngle(kFullTurn - ellipse.endAngle);
      ellipse.endAngle = wrappedAngle(kFullTurn - start);
      if (ellipse.endAngle <= ellipse.startAngle) ellipse.endAngle += kFullTurn;
    }
    return true;
  }

  bool apply(Spline& spline) {
    const auto plane = planeMap(map_, spline.normal, 0);
    if (!plane) return false;
    for (Point3& point : spline.controls) point = map_(point);
    for (Point3& point : spline.fitPoints) point = map_(point);
    spline.startTangent = map_.direction(spline.startTangent);
    spline.endTangent = map_.direction(spline.endTangent);
    spline.normal = plane->normal;
    return true;
  }

  bool apply(Solid& solid) {
    const auto plane = planeMap(map_, solid.normal, solid.elevation);
    if (!plane) return false;
    for (Point2& corner : solid.corners) corner = plane->map(corner);
    solid.elevation = plane->elevation;
    solid.thickness *= plane->scale;
    solid.normal = plane->normal;
    return true;
  }

  bool apply(LwPolyline& polyline) {
    const auto plane = planeMap(map_, polyline.normal, polyline.elevation);
    const bool bent = std::any_of(polyline.bulges.begin(), polyline.bulges.end(),
                                  [](double bulge) { return bulge != 0; });
    if (!plane || (bent && !plane->uniform)) return false;
    for (Point2& point : polyline.points) point = plane->map(point);
    for (double& bulge : polyline.bulges) bulge = plane->flips ? -bulge : bulge;
    for (auto& width : polyline.widths) {
      width = {width.start * plane->scale, width.end * plane->scale};
    }
    polyline.constantWidth *= plane->scale;
    polyline.elevation = plane->elevation;
    polyline.thickness *= plane->scale;
    polyline.normal = plane->normal;
    return true;
  }

  // The vertices have the places.
  bool apply(Polyline& polyline) {
    if (polyline.form != Polyline::Form::Flat) return true;
    const auto plane = planeMap(map_, polyline.normal, polyline.elevation);
    if (!plane || !plane->uniform) return false;
    for (double* size : {&polyline.startWidth, &polyline.endWidth, &polyline.thickness}) {
      *size *= plane->scale;
    }
    polyline.elevation = plane->elevation;
    polyline.normal = plane->normal;
    return true;
  }

  bool apply(Vertex& vertex) {
    if (vertex.form == Vertex::Form::Face) return true;
    if (vertex.form != Vertex::Form::Flat) {
      vertex.position = map_(vertex.position);
      return true;
    }
    const auto plane = planeMap(map_, options_.plane, options_.elevation);
    if (!plane || !plane->uniform) return false;
    const Point2 at = plane->map({vertex.position.x, vertex.position.y});
    vertex.position = {at.x, at.y, vertex.position.z};
    vertex.startWidth *= plane->scale;
    vertex.endWidth *= plane->scale;
    vertex.tangent = plane->angle(vertex.tangent);
    if (plane->flips) vertex.bulge = -vertex.bulge;
    return true;
  }

  bool apply(Hatch& hatch) {
    const auto plane = planeMap(map_, hatch.normal, hatch.elevation);
    if (!plane || !plane->uniform) return false;
    for (Hatch::Path& path : hatch.paths) mapPath(path, *plane);
    for (Hatch::PatternLine& line : hatch.lines) {
      line.angle = plane->angle(line.angle);
      line.base = plane->map(line.base);
      line.offset = plane->direction(line.offset);
      for (double& dash : line.dashes) dash *= plane->scale;
    }
    for (Point2& seed : hatch.seeds) seed = plane->map(seed);
    hatch.angle = plane->angle(hatch.angle);
    hatch.scale *= plane->scale;
    hatch.elevation = plane->elevation;
    hatch.normal = plane->normal;
    return true;
  }

  // A text that is stretched keeps its angle between upright and baseline: its height follows the
  // uprights, its width factor the baseline.
  bool apply(TextBase& text) {
    const auto plane = planeMap(map_, text.normal, text.elevation);
    if (!plane) return false;
    const Point2 along{std::cos(text.rotation), std::sin(text.rotation)};
    const double length = base::length(plane->direction(along));
    const double upright = base::length(plane->direction({-along.y, along.x}));
    text.position = plane->map(text.position);
    text.alignment = plane->map(text.alignment);
    text.height *= upright;
    if (!plane->uniform) text.widthFactor *= length / upright;
    turnText(text, *plane);
    text.elevation = plane->elevation;
    text.thickness *= plane->scale;
    text.normal = plane->normal;
    return true;
  }

  // Paragraphs are never shown mirrored.
  bool apply(MText& text) {
    const auto plane = planeMap(map_, text.normal, 0);
    if (!plane || !plane->uniform) return false;
    text.position = map_(text.position);
    Point3 along = map_.direction(text.xDirection);
    const double size = length(along);
    if (size > 0) along = along * (length(text.xDirection) / size);
    if (plane->flips) {
      const bool back = dot(along, text.xDirection) < 0;
      if (back) along = along * -1;
      const int row = (text.attachment - 1) / 3, column = (text.attachment - 1) % 3;
      text.attachment =
          static_cast<std::int16_t>(back ? row * 3 + (2 - column) + 1 : (2 - row) * 3 + column + 1);
    }
    text.xDirection = along;
    text.normal = plane->normal;
    for (double* extent : {&text.width, &text.height, &text.drawnHeight, &text.drawnWidth}) {
      *extent *= plane->scale;
    }
    return true;
  }

  bool apply(Insert& insert) {
    const auto plane = planeMap(map_, insert.normal, insert.position.z);
    if (!plane) return false;
    const Point2 along{std::cos(insert.rotation), std::sin(insert.rotation)};
    const Point2 x = plane->direction(along), y = plane->direction({-along.y, along.x});
    const double width = base::length(x), height = base::length(y);
    if (std::abs(x.x * y.x + x.y * y.y) > kSame * width * height) return false;  // slanted
    const Point2 at = plane->map({insert.position.x, insert.position.y});
    const double side = plane->flips ? -1 : 1;
    insert.position = {at.x, at.y, plane->elevation};
    insert.rotation = plane->angle(insert.rotation);
    insert.scale = {insert.scale.x * width, insert.scale.y * height * side,
                    insert.scale.z * length(map_.direction(objectAxes(insert.normal).z))};
    insert.columnSpacing *= width;
    insert.rowSpacing *= height * side;
    insert.normal = plane->normal;
    return true;
  }

  bool apply(Block&) { return true; }  // heads and ends have no place
  bool apply(EndBlock&) { return true; }
  bool apply(SeqEnd&) { return true; }
  bool apply(Object&) { return false; }

 private:
  template <class T>
  bool applyExtrusion(T& entity) {
    const auto plane = planeMap(map_, entity.normal, 0);
    if (!plane) return false;
    entity.normal = plane->normal;
    entity.thickness *= plane->scale;
    return true;
  }

  template <class T>
  std::optional<PlaneMap> applyRound(T& round) {
    const auto plane = planeMap(map_, round.normal, round.centre.z);
    if (!plane || !plane->uniform) return {};
    const Point2 centre = plane->map({round.centre.x, round.centre.y});
    round.centre = {centre.x, centre.y, plane->elevation};
    round.radius *= plane->scale;
    round.thickness *= plane->scale;
    round.normal = plane->normal;
    return plane;
  }

  static void mapPath(Hatch::Path& path, const PlaneMap& plane) {
    for (Point2& point : path.points) point = plane.map(point);
    for (double& bulge : path.bulges) bulge = plane.flips ? -bulge : bulge;
    for (Hatch::Edge& edge : path.edges) mapEdge(edge, plane);
  }

  // Angles are counted in the edge's own sense, those of ellipses from the major axis: a mirror
  // image of them changes its sense alone.
  static void mapEdge(Hatch::Edge& edge, const PlaneMap& plane) {
    using Form = Hatch::Edge::Form;
    edge.first = plane.map(edge.first);
    if (edge.form == Form::Line) edge.second = plane.map(edge.second);
    if (edge.form == Form::Ellipse) edge.second = plane.direction(edge.second);
    for (Point2& control : edge.controls) control = plane.map(control);
    const bool wasCounterClockwise = edge.counterClockwise;
    if (plane.flips) edge.counterClockwise = !edge.counterClockwise;
    if (edge.form != Form::Arc) return;
    const double sweep = edge.endAngle - edge.startAngle;
    const double start = plane.angle(wasCounterClockwise ? edge.startAngle : -edge.startAngle);
    edge.startAngle = wrappedAngle(edge.counterClockwise ? start : -start);
    edge.endAngle = edge.startAngle + sweep;
    edge.size *= plane.scale;
  }

  // A mirrored text runs the old way as far as it can: written backwards or upside down, or, if it
  // is to stay readable, hung from its other side.
  void turnText(TextBase& text, const PlaneMap& plane) const {
    constexpr std::int16_t kBackwards = 2, kUpsideDown = 4;
    const double turned = plane.angle(text.rotation);
    const bool back = std::cos(turned - text.rotation) < -kSame;
    text.rotation = plane.flips && back ? wrappedAngle(turned - base::kPi) : turned;
    if (!plane.flips) return;
    if (!options_.readableTexts) {
      text.generation =
          static_cast<std::int16_t>(text.generation ^ (back ? kBackwards : kUpsideDown));
    } else if (back) {
      hangFromOtherEnd(text);
    } else {
      hangFromOtherSide(text);
    }
  }

  static void hangFromOtherEnd(TextBase& text) {
    constexpr std::int16_t kLeft = 0, kRight = 2, kAligned = 3, kFit = 5;
    if (text.horizontal == kAligned || text.horizontal == kFit) {
      std::swap(text.position, text.alignment);
    } else if (text.horizontal == kLeft) {
      if (text.vertical == 0) text.alignment = text.position;
      text.horizontal = kRight;
    } else if (text.horizontal == kRight) {
      text.horizontal = kLeft;
      if (text.vertical == 0) text.position = text.alignment;
    }
  }

  static void hangFromOtherSide(TextBase& text) {
    constexpr std::int16_t kBaseline = 0, kBottom = 1, kTop = 3;
    if (text.horizontal > 2) return;  // on its middle or between two points
    if (text.vertical == kTop) {
      text.vertical = kBottom;
    } else if (text.vertical == kBaseline || text.vertical == kBottom) {
      if (text.horizontal == 0 && text.vertical == kBaseline) text.alignment = text.position;
      text.vertical = kTop;
    }
  }

  const Map3& map_;
  const TransformOptions& options_;
};

}  // namespace

Map3 Map3::rotation(const Point3& about, double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  const Map3 turn{{c, s, 0}, {-s, c, 0}, {0, 0, 1}, {}};
  return translation(about) * turn * translation(about * -1);
}

Map3 Map3::scaling(const Point3& about, double factor) {
  return {{factor, 0, 0}, {0, factor, 0}, {0, 0, factor}, about * (1 - factor)};
}

Map3 Map3::mirror(Point2 from, Point2 to) {
  const Point2 way = to - from;
  const double square = way.x * way.x + way.y * way.y;
  const double c = (way.x * way.x - way.y * way.y) / square, s = 2 * way.x * way.y / square;
  const Map3 flip{{c, s, 0}, {s, -c, 0}, {0, 0, 1}, {}};
  const Point3 at{from.x, from.y, 0};
  return translation(at) * flip * translation(at * -1);
}

Map3 objectAxes(const Point3& normal) {
  const double size = length(normal);
  if (!(size > 0) || (normal.x == 0 && normal.y == 0 && normal.z > 0)) return {};
  constexpr double kNearZ = 1.0 / 64;
  const Point3 n = normal * (1 / size);
  const bool steep = std::abs(n.x) < kNearZ && std::abs(n.y) < kNearZ;
  Point3 x = cross(steep ? Point3{0, 1, 0} : Point3{0, 0, 1}, n);
  x = x * (1 / length(x));
  return {x, cross(n, x), n, {}};
}

Map3 placeOfInsert(const Insert& insert, const Point3& blockBase) {
  const Map3 turn = Map3::rotation({}, insert.rotation);
  const Map3 scale{{insert.scale.x, 0, 0}, {0, insert.scale.y, 0}, {0, 0, insert.scale.z}, {}};
  return objectAxes(insert.normal) * Map3::translation(insert.position) * turn * scale *
         Map3::translation(blockBase * -1);
}

bool transformEntity(Entity& entity, const Map3& map, const TransformOptions& options) {
  Transformer transformer(map, options);
  return visit(entity, [&](auto& one) { return transformer.apply(one); });
}

}  // namespace drafting
