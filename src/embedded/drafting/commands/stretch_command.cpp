// STRETCH: what of the selected entities lies in the last crossing window moves along.
#include <cmath>

#include "embedded/drafting/commands/entity_copies.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/picking/pieces.h"

namespace drafting {
namespace {

bool flatNormal(const Point3& normal) { return normal.x == 0 && normal.y == 0 && normal.z > 0; }

bool isSolid(const Entity& entity) {
  return entity.kind == Kind::Solid || entity.kind == Kind::Trace;
}

class Stretcher {
 public:
  Stretcher(Database& database, const Region& region, const Point3& by)
      : database_(database), region_(region), by_(by) {}

  void stretch(Handle handle) {
    auto* entity = database_.find<Entity>(handle);
    if (entity->kind == Kind::Line) {
      stretchLine(static_cast<Line&>(*entity));
    } else if (entity->kind == Kind::LwPolyline &&
               flatNormal(static_cast<LwPolyline&>(*entity).normal)) {
      stretchPolyline(static_cast<LwPolyline&>(*entity));
    } else if (entity->kind == Kind::Arc && flatNormal(static_cast<Arc&>(*entity).normal)) {
      stretchArc(static_cast<Arc&>(*entity));
    } else if (isSolid(*entity) && flatNormal(static_cast<Solid&>(*entity).normal)) {
      stretchSolid(static_cast<Solid&>(*entity));
    } else if (placeWithin(*entity)) {
      transformWithParts(database_, handle, Map3::translation(by_));
    }
  }

 private:
  bool within(Point2 point) const { return region_.contains(point); }
  Point2 moved(Point2 point) const { return within(point) ? point + flat(by_) : point; }

  void stretchLine(Line& line) {
    const bool start = within(flat(line.start)), end = within(flat(line.end));
    if (!start && !end) return;
    database_.willChange(line);
    if (start) line.start = line.start + by_;
    if (end) line.end = line.end + by_;
  }

  void stretchPolyline(LwPolyline& polyline) {
    database_.willChange(polyline);
    for (Point2& point : polyline.points) point = moved(point);
  }

  void stretchSolid(Solid& solid) {
    database_.willChange(solid);
    for (Point2& corner : solid.corners) corner = moved(corner);
  }

  // The arc between the moved ends keeps its form.
  void stretchArc(Arc& arc) {
    double sweep = arc.endAngle - arc.startAngle;
    if (sweep <= 0) sweep += 2 * base::kPi;
    const Piece old = Piece::arc(flat(arc.centre), arc.radius, arc.startAngle, sweep);
    const Point2 from = moved(old.from), to = moved(old.to);
    if ((from == old.from && to == old.to) || from == to) return;
    const Piece piece = Piece::bulge(from, to, std::tan(sweep / 4));
    database_.willChange(arc);
    arc.centre = {piece.centre.x, piece.centre.y, arc.centre.z};
    arc.radius = piece.radius;
    arc.startAngle = base::wrappedAngle(piece.start);
    arc.endAngle = base::wrappedAngle(piece.start + sweep);
  }

  // Whole entities go with the point that they are placed by: a circle with its centre.
  bool placeWithin(const Entity& entity) const {
    const EntityPieces all = piecesOf(database_, entity);
    if (!all.insertions.empty()) return within(all.insertions.front());
    if (!all.nodes.empty()) return within(all.nodes.front());
    if (entity.kind == Kind::Ellipse)
      return within(flat(static_cast<const Ellipse&>(entity).centre));
    return !all.pieces.empty() &&
           within(all.pieces.front().round ? all.pieces.front().centre : all.pieces.front().from);
  }

  Database& database_;
  const Region& region_;
  Point3 by_;
};

void stretch(Session& session) {
  const auto selected = askSelected(
      session, {.heading = message(session, "\n以窗交窗口或窗交多边形选择要拉伸的对象...",
                                   "\nSelect by crossing window or crossing polygon...")});
  if (!selected || selected->entities.empty()) return;
  if (!selected->crossing) {
    session.print(session.say("\n必须以窗交窗口选择。", "\nA crossing window is needed."));
    return;
  }
  const Answer base = askPoint(session, "\n指定基点或位移: ", "\nBase point or displacement: ");
  if (!base.hasValue()) return;
  const Answer second =
      askPoint(session, "\n指定位移的第二点或 <用第一点作位移>: ",
               "\nSecond point of displacement or <use first point>: ", base.point);
  if (second.cancelled()) return;
  const Point3 by = second.hasValue() ? second.point - base.point : base.point;
  Stretcher stretcher(session.database(), *selected->crossing, by);
  for (const Handle handle : selected->entities) stretcher.stretch(handle);
}

}  // namespace

void addStretchCommand(CommandTable& table) {
  table.add({.name = "STRETCH", .run = stretch});
  table.addAlias("S", "STRETCH");
}

}  // namespace drafting
