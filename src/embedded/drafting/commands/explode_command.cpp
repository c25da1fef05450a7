// EXPLODE: blocks into their content, polylines into lines and arcs. What the content takes from
// the block (layer 0, ByBlock) it keeps, so that it looks as before; attributes become their
// definitions again.
#include <cmath>

#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/database/transform.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/picking/pieces.h"

namespace drafting {
namespace {

using Parts = std::vector<std::unique_ptr<Entity>>;
constexpr double kFullTurn = 2 * base::kPi;

void copyLook(const Entity& from, Entity& to) {
  to.layer = from.layer;
  to.colour = from.colour;
  to.linetype = from.linetype;
  to.linetypeScale = from.linetypeScale;
  to.lineweight = from.lineweight;
  to.plotStyle = from.plotStyle;
}

double dot(const Point3& a, const Point3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

// The image of a circle or an arc under a map that stretches it: its axes are those of the
// conjugate diameters u and v.
std::unique_ptr<Ellipse> ellipseOf(const Entity& round, const Point3& centre, double radius,
                                   double start, double end, const Point3& normal,
                                   const Map3& map) {
  const Map3 axes = objectAxes(normal);
  const Point3 u = map.direction(axes.x) * radius, v = map.direction(axes.y) * radius;
  double turn = std::atan2(2 * dot(u, v), dot(u, u) - dot(v, v)) / 2;
  Point3 major = u * std::cos(turn) + v * std::sin(turn);
  Point3 minor = v * std::cos(turn) - u * std::sin(turn);
  if (dot(minor, minor) > dot(major, major)) {
    std::swap(major, minor);
    minor = minor * -1;
    turn += base::kPi / 2;
  }
  const double size = std::sqrt(dot(major, major)), other = std::sqrt(dot(minor, minor));
  if (!(size > 0) || !(other > 0)) return nullptr;
  auto ellipse = std::make_unique<Ellipse>();
  copyLook(round, *ellipse);
  ellipse->centre = map(axes(centre));
  ellipse->majorAxis = major;
  ellipse->ratio = other / size;
  const double up = major.x * minor.y - major.y * minor.x;
  const bool whole = end - start >= kFullTurn;
  ellipse->startAngle = whole ? 0 : up < 0 ? turn - end : start - turn;
  ellipse->endAngle = whole ? kFullTurn : up < 0 ? turn - start : end - turn;
  const double lift = ellipse->startAngle < 0 ? kFullTurn : 0;
  ellipse->startAngle += lift;
  ellipse->endAngle += lift;
  return ellipse;
}

// A polyline's segments as lines and arcs; their widths are lost, as the host does it.
Parts segmentsOf(const LwPolyline& polyline) {
  Parts parts;
  const std::size_t count = polyline.points.size();
  for (std::size_t i = 0; i + (polyline.closed ? 0 : 1) < count; ++i) {
    const Piece piece = Piece::bulge(polyline.points[i], polyline.points[(i + 1) % count],
                                     i < polyline.bulges.size() ? polyline.bulges[i] : 0);
    const Map3 axes = objectAxes(polyline.normal);
    if (piece.round) {
      auto arc = std::make_unique<Arc>();
      arc->centre = {piece.centre.x, piece.centre.y, polyline.elevation};
      arc->radius = piece.radius;
      arc->startAngle = piece.sweep > 0 ? piece.start : piece.start + piece.sweep;
      arc->endAngle = piece.sweep > 0 ? piece.start + piece.sweep : piece.start;
      for (double* angle : {&arc->startAngle, &arc->endAngle})
        *angle = std::fmod(*angle + 2 * kFullTurn, kFullTurn);
      arc->normal = polyline.normal;
      arc->thickness = polyline.thickness;
      parts.push_back(std::move(arc));
    } else {
      auto line = std::make_unique<Line>();
      line->start = axes({piece.from.x, piece.from.y, polyline.elevation});
      line->end = axes({piece.to.x, piece.to.y, polyline.elevation});
      line->normal = polyline.normal;
      line->thickness = polyline.thickness;
      parts.push_back(std::move(line));
    }
    copyLook(polyline, *parts.back());
  }
  return parts;
}

class InsertExploder {
 public:
  InsertExploder(const Database& database, const Insert& insert)
      : database_(database), insert_(insert) {
    layerZero_ = database.findRecord(Table::Layers, "0");
  }

  // Nothing if a part can't be had at this scale: then the block stays whole.
  std::optional<Parts> run() {
    const auto* block = database_.find<BlockRecord>(insert_.block);
    if (!block || block->isSpace() || insert_.isArray) return {};
    map_ = placeOfInsert(insert_, block->base);
    for (const Entity* e = block->first; e; e = e->next) {
      if (!add(*e)) return {};
    }
    return std::move(parts_);
  }

 private:
  bool add(const Entity& entity) {
    std::unique_ptr<Object> object = copyObject(entity);
    object->extension = 0;
    object->reactors.clear();
    std::unique_ptr<Entity> copy(static_cast<Entity*>(object.release()));
    if (const Members members = membersOf(*copy); members.list) {
      if (!members.list->empty()) return false;  // they would be left behind
      *members.seqEnd = 0;
    }
    takeLook(*copy);
    if (transformEntity(*copy, map_)) {
      parts_.push_back(std::move(copy));
      return true;
    }
    return addStretched(*copy);
  }

  bool addStretched(const Entity& entity) {
    if (entity.kind == Kind::LwPolyline) {
      for (auto& segment : segmentsOf(static_cast<const LwPolyline&>(entity))) {
        if (transformEntity(*segment, map_)) {
          parts_.push_back(std::move(segment));
        } else if (!addStretched(*segment)) {
          return false;
        }
      }
      return true;
    }
    std::unique_ptr<Entity> ellipse;
    if (entity.kind == Kind::Circle) {
      const auto& circle = static_cast<const Circle&>(entity);
      ellipse = ellipseOf(circle, circle.centre, circle.radius, 0, kFullTurn, circle.normal, map_);
    } else if (entity.kind == Kind::Arc) {
      const auto& arc = static_cast<const Arc&>(entity);
      const double end = arc.endAngle > arc.startAngle ? arc.endAngle : arc.endAngle + kFullTurn;
      ellipse = ellipseOf(arc, arc.centre, arc.radius, arc.startAngle, end, arc.normal, map_);
    }
    if (!ellipse) return false;
    parts_.push_back(std::move(ellipse));
    return true;
  }

  void takeLook(Entity& entity) const {
    const std::uint8_t byBlockWeight = indexOfLineweight(-2);
    if (entity.layer == layerZero_) entity.layer = insert_.layer;
    if (entity.colour == kColourByBlock) entity.colour = insert_.colour;
    if (entity.linetype == kByBlock) entity.linetype = insert_.linetype;
    if (entity.lineweight == byBlockWeight) entity.lineweight = insert_.lineweight;
    if (entity.plotStyle == kByBlock) entity.plotStyle = insert_.plotStyle;
  }

  const Database& database_;
  const Insert& insert_;
  Handle layerZero_ = 0;
  Map3 map_;
  Parts parts_;
};

std::optional<Parts> partsOf(const Database& database, const Entity& entity) {
  if (entity.kind == Kind::Insert)
    return InsertExploder(database, static_cast<const Insert&>(entity)).run();
  if (entity.kind == Kind::LwPolyline) return segmentsOf(static_cast<const LwPolyline&>(entity));
  return {};
}

void explode(Session& session) {
  const auto selection = askSelection(session);
  if (!selection) return;
  Database& database = session.database();
  std::size_t refused = 0;
  for (const Handle handle : *selection) {
    const auto* entity = database.find<Entity>(handle);
    auto parts = partsOf(database, *entity);
    if (!parts) {
      ++refused;
      continue;
    }
    auto& block = *database.find<BlockRecord>(entity->owner);
    for (auto& part : *parts) database.append(block, std::move(part));
    database.erase(handle);
  }
  if (refused) {
    session.print("\n" + std::to_string(refused) +
                  message(session, " 个对象不能分解。", " can't be exploded."));
  }
}

}  // namespace

void addExplodeCommand(CommandTable& table) {
  table.add({.name = "EXPLODE", .run = explode});
  table.addAlias("X", "EXPLODE");
}

}  // namespace drafting
