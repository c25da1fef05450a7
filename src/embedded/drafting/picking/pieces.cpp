#include "embedded/drafting/picking/pieces.h"

#include <algorithm>
#include <cmath>

#include "embedded/drafting/database/old_polylines.h"
#include "embedded/drafting/database/transform.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/display/curves.h"
#include "embedded/drafting/display/splines.h"

namespace drafting {
namespace {

using base::angleOf;
using base::kFullTurn;
using base::wrappedAngle;

constexpr double kHair = 1e-9;
constexpr int kDeepestNesting = 16;
constexpr std::size_t kMostPieces = 100000;

std::vector<Point2> lineAndLine(const Piece& a, const Piece& b) {
  const Point2 u = a.to - a.from, v = b.to - b.from;
  const double area = cross(u, v);
  if (std::abs(area) <= kHair * base::length(u) * base::length(v)) return {};
  return {a.from + u * (cross(b.from - a.from, v) / area)};
}

std::vector<Point2> lineAndCircle(const Piece& line, const Piece& circle) {
  const Point2 way = line.to - line.from;
  const double size = base::length(way);
  if (!(size > 0)) return {};
  const Point2 unit = way * (1 / size);
  const Point2 foot = line.from + unit * dot(circle.centre - line.from, unit);
  const double off = base::distance(foot, circle.centre);
  if (off > circle.radius * (1 + kHair)) return {};
  const double half = std::sqrt(std::max(0.0, circle.radius * circle.radius - off * off));
  if (half <= kHair * circle.radius) return {foot};
  return {foot - unit * half, foot + unit * half};
}

std::vector<Point2> circleAndCircle(const Piece& a, const Piece& b) {
  const Point2 way = b.centre - a.centre;
  const double apart = base::length(way);
  if (!(apart > kHair * (a.radius + b.radius))) return {};
  const double along = (apart * apart + a.radius * a.radius - b.radius * b.radius) / (2 * apart);
  const double square = a.radius * a.radius - along * along;
  if (square < -kHair * a.radius * a.radius) return {};
  const Point2 unit = way * (1 / apart);
  const Point2 foot = a.centre + unit * along;
  const double half = std::sqrt(std::max(0.0, square));
  if (half <= kHair * a.radius) return {foot};
  const Point2 aside{-unit.y * half, unit.x * half};
  return {foot - aside, foot + aside};
}

class Collector {
 public:
  explicit Collector(const Database& database) : database_(database) {}
  EntityPieces result;

  void add(const Entity& entity, const Map3& map, int depth) {
    visit(entity, [&](const auto& one) { take(one, map, depth); });
  }

 private:
  bool roomy() const { return result.pieces.size() < kMostPieces; }

  // From an entity's object coordinates at a height to the plane of the drawing.
  static base::Affine2 plane(const Map3& map, const Point3& normal, double elevation) {
    return seenFromAbove(map * objectAxes(normal), elevation);
  }

  void put(const Piece& piece) {
    if (roomy() && std::isfinite(piece.from.x + piece.from.y + piece.to.x + piece.to.y))
      result.pieces.push_back(piece);
  }

  void putPath(const Path& path, const base::Affine2& map) {
    for (std::size_t i = 1; i < path.size(); ++i) put(Piece::line(map(path[i - 1]), map(path[i])));
  }

  void putArc(Point2 centre, double radius, double start, double sweep, const base::Affine2& map) {
    const Point2 x{map.a, map.b}, y{map.c, map.d};
    const double size = base::length(x), other = base::length(y);
    const bool similar = std::abs(size - other) <= kHair * (size + other) &&
                         std::abs(dot(x, y)) <= kHair * size * other;
    if (!similar) return putPath(arcPath(centre, radius, start, sweep, 0), map);
    const Point2 at = map(centre);
    const double begin = angleOf(map(base::polar(centre, start, radius)) - at);
    put(Piece::arc(at, radius * size, begin, map.determinant() < 0 ? -sweep : sweep));
  }

  void take(const Line& line, const Map3& map, int) {
    put(Piece::line(flat(map(line.start)), flat(map(line.end))));
  }
  void take(const Point& point, const Map3& map, int) {
    result.nodes.push_back(flat(map(point.position)));
  }
  void take(const Circle& circle, const Map3& map, int) {
    putArc(flat(circle.centre), circle.radius, 0, kFullTurn,
           plane(map, circle.normal, circle.centre.z));
  }
  void take(const Arc& arc, const Map3& map, int) {
    putArc(flat(arc.centre), arc.radius, arc.startAngle, sweepOf(arc.startAngle, arc.endAngle),
           plane(map, arc.normal, arc.centre.z));
  }
  void take(const Ellipse& ellipse, const Map3& map, int) {
    const Map3 axes = objectAxes(ellipse.normal);
    const Point3 n = axes.z, m = ellipse.majorAxis;
    const Point3 minor =
        Point3{n.y * m.z - n.z * m.y, n.z * m.x - n.x * m.z, n.x * m.y - n.y * m.x} * ellipse.ratio;
    const Map3 all = map * Map3{m, minor, n, ellipse.centre};
    putPath(arcPath({}, 1, ellipse.startAngle, sweepOf(ellipse.startAngle, ellipse.endAngle), 0),
            plane(all, kZAxis, 0));
  }
  void take(const Spline& spline, const Map3& map, int) {
    Spline seen = spline;
    if (transformEntity(seen, map)) putPath(splinePath(seen), {});
  }
  void take(const Solid& solid, const Map3& map, int) {
    const auto& c = solid.corners;
    putPath({c[0], c[1], c[3], c[2], c[0]}, plane(map, solid.normal, solid.elevation));
  }
  void take(const LwPolyline& polyline, const Map3& map, int) {
    const base::Affine2 to = plane(map, polyline.normal, polyline.elevation);
    const std::size_t count = polyline.points.size();
    for (std::size_t i = 0; i + (polyline.closed ? 0 : 1) < count; ++i) {
      const Piece piece = Piece::bulge(polyline.points[i], polyline.points[(i + 1) % count],
                                       i < polyline.bulges.size() ? polyline.bulges[i] : 0);
      if (piece.round) {
        putArc(piece.centre, piece.radius, piece.start, piece.sweep, to);
      } else {
        put(Piece::line(to(piece.from), to(piece.to)));
      }
    }
  }
  void take(const Polyline& polyline, const Map3& map, int depth) {
    if (polyline.form == Polyline::Form::Flat)
      return take(flatPolyline(database_, polyline), map, depth);
    for (const Path& path : spacePaths(database_, polyline)) putPath(path, seenFromAbove(map, 0));
  }
  void take(const TextBase& text, const Map3& map, int) {
    const bool plain = text.horizontal == 0 && text.vertical == 0;
    result.insertions.push_back(
        plane(map, text.normal, text.elevation)(plain ? text.position : text.alignment));
  }
  void take(const MText& text, const Map3& map, int) {
    result.insertions.push_back(flat(map(text.position)));
  }
  void take(const Insert& insert, const Map3& map, int depth) {
    result.insertions.push_back(flat(map(objectAxes(insert.normal)(insert.position))));
    for (const Handle handle : insert.attributes) {
      if (const auto* attribute = database_.find<Attrib>(handle)) take(*attribute, map, depth);
    }
    const auto* block = database_.find<BlockRecord>(insert.block);
    if (!block || block->isSpace() || depth >= kDeepestNesting) return;
    const Map3 inner = map * placeOfInsert(insert, block->base);
    const auto insertions = result.insertions.size();
    for (const Entity* e = block->first; e && roomy(); e = e->next) {
      if (e->kind != Kind::Attdef) add(*e, inner, depth + 1);
    }
    result.insertions.resize(insertions);  // those of nested ones are nobody's aim
  }
  void take(const Object&, const Map3&, int) {}

  const Database& database_;
};

}  // namespace

Piece Piece::line(Point2 from, Point2 to) {
  Piece piece;
  piece.from = from;
  piece.to = to;
  return piece;
}

Piece Piece::arc(Point2 centre, double radius, double start, double sweep) {
  Piece piece;
  piece.round = true;
  piece.centre = centre;
  piece.radius = radius;
  piece.start = start;
  piece.sweep = sweep;
  piece.from = base::polar(centre, start, radius);
  piece.to = piece.full() ? piece.from : base::polar(centre, start + sweep, radius);
  return piece;
}

Piece Piece::bulge(Point2 from, Point2 to, double bulge) {
  const double chord = base::distance(from, to);
  if (bulge == 0 || !(chord > 0) || !std::isfinite(bulge)) return line(from, to);
  const double sweep = 4 * std::atan(bulge);
  const Point2 middle = (from + to) * 0.5, way = (to - from) * (1 / chord);
  const double aside = chord * (1 - bulge * bulge) / (4 * bulge);
  const Point2 centre = middle + Point2{-way.y, way.x} * aside;
  Piece piece = arc(centre, base::distance(centre, from), angleOf(from - centre), sweep);
  piece.from = from;
  piece.to = to;
  return piece;
}

bool Piece::full() const { return round && std::abs(sweep) >= kFullTurn - kHair; }

double Piece::length() const { return round ? std::abs(sweep) * radius : base::distance(from, to); }

Point2 Piece::at(double t) const {
  if (!round) return from + (to - from) * t;
  return base::polar(centre, start + sweep * t, radius);
}

double Piece::where(Point2 point) const {
  if (!round) {
    const Point2 way = to - from;
    const double square = dot(way, way);
    return square > 0 ? dot(point - from, way) / square : 0;
  }
  const double turned = angleOf(point - centre) - start;
  double on = wrappedAngle(sweep < 0 ? -turned : turned);
  if (kFullTurn - on < kHair) on = 0;
  return on / std::abs(sweep);
}

Point2 Piece::closest(Point2 point) const {
  if (!round) return at(std::clamp(where(point), 0.0, 1.0));
  if (point == centre) return from;
  const double t = where(point);
  if (t <= 1) return at(t);
  return base::distance(point, from) <= base::distance(point, to) ? from : to;
}

double Piece::bulgeBetween(double t, double u) const {
  return round ? std::tan(sweep * (u - t) / 4) : 0;
}

std::vector<Point2> crossings(const Piece& a, const Piece& b) {
  if (a.round && b.round) return circleAndCircle(a, b);
  if (a.round) return lineAndCircle(b, a);
  return b.round ? lineAndCircle(a, b) : lineAndLine(a, b);
}

bool holdsPoint(const Piece& piece, Point2 point) {
  if (piece.full()) return true;
  const double t = piece.where(point), slack = kHair * (1 + 1 / std::max(piece.length(), kHair));
  return t >= -slack && t <= 1 + slack;
}

std::vector<Point2> feet(const Piece& piece, Point2 from) {
  if (!piece.round) return {piece.at(piece.where(from))};
  const double apart = base::distance(piece.centre, from);
  if (!(apart > 0)) return {};
  const Point2 way = (from - piece.centre) * (piece.radius / apart);
  return {piece.centre + way, piece.centre - way};
}

std::vector<Point2> tangentPoints(const Piece& piece, Point2 from) {
  const double apart = base::distance(piece.centre, from);
  if (!piece.round || apart <= piece.radius) return {};
  const double towards = angleOf(from - piece.centre), half = std::acos(piece.radius / apart);
  return {base::polar(piece.centre, towards - half, piece.radius),
          base::polar(piece.centre, towards + half, piece.radius)};
}

EntityPieces piecesOf(const Database& database, const Entity& entity) {
  Collector collector(database);
  collector.add(entity, {}, 0);
  return std::move(collector.result);
}

}  // namespace drafting
