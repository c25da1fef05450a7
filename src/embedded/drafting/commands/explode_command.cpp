// EXPLODE: blocks into their content, polylines into lines and arcs, paragraphs into lines of text.
// What the content takes from the block (layer 0, ByBlock) it keeps, so that it looks as before;
// attributes become their definitions again.
#include <cmath>

#include "embedded/drafting/commands/entity_copies.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/database/old_polylines.h"
#include "embedded/drafting/database/transform.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/display/style_fonts.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/picking/pieces.h"

namespace drafting {
namespace {

// An entity that comes of it, with its attributes or vertices.
struct Part {
  std::unique_ptr<Entity> entity;
  std::vector<std::unique_ptr<Entity>> members;
};
using Parts = std::vector<Part>;
using base::kFullTurn;

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
  ellipse->copyLook(round);
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
      arc->startAngle = base::wrappedAngle(piece.start + std::min(piece.sweep, 0.0));
      arc->endAngle = base::wrappedAngle(piece.start + std::max(piece.sweep, 0.0));
      arc->normal = polyline.normal;
      arc->thickness = polyline.thickness;
      parts.push_back({std::move(arc), {}});
    } else {
      auto line = std::make_unique<Line>();
      line->start = axes({piece.from.x, piece.from.y, polyline.elevation});
      line->end = axes({piece.to.x, piece.to.y, polyline.elevation});
      line->normal = polyline.normal;
      line->thickness = polyline.thickness;
      parts.push_back({std::move(line), {}});
    }
    parts.back().entity->copyLook(polyline);
  }
  return parts;
}

// Lines between the vertices of a polyline in space; nothing of a surface.
std::optional<Parts> sidesOf(const Database& database, const Polyline& polyline) {
  if (polyline.form != Polyline::Form::Space) return {};
  constexpr int kClosed = 1;
  std::vector<Point3> corners;
  for (const Vertex* vertex : shownVertices(database, polyline))
    corners.push_back(vertex->position);
  if ((polyline.flags & kClosed) && !corners.empty()) corners.push_back(corners.front());
  Parts parts;
  for (std::size_t i = 1; i < corners.size(); ++i) {
    auto line = std::make_unique<Line>();
    line->copyLook(polyline);
    line->start = corners[i - 1];
    line->end = corners[i];
    parts.push_back({std::move(line), {}});
  }
  return parts;
}

// The lines of a paragraph as TEXT, and the strokes through and between them.
class ParagraphExploder {
 public:
  ParagraphExploder(const Session& session, const MText& text) : text_(text) {
    const FontSource source{FontLibrary::shared(), folderOfDrawing(session.document().path)};
    const Database& database = session.database();
    style_ =
        paragraphStyle(database, text.style, fontOfStyle(database, text.style, source), source);
  }

  std::optional<Parts> run() {
    if (text_.normal.x != 0 || text_.normal.y != 0 || !(text_.normal.z > 0)) return {};
    for (const PlacedLine& placed : layOutParagraph(text_, style_)) {
      if (placed.content.find_first_not_of(' ') != std::string::npos) addText(placed);
      if (placed.content.empty()) addStrokes(placed);
    }
    return std::move(parts_);
  }

 private:
  void add(std::unique_ptr<Entity> entity, std::int16_t colour) {
    entity->copyLook(text_);
    if (colour > 0) entity->colour = colour;
    parts_.push_back({std::move(entity), {}});
  }

  void addText(const PlacedLine& placed) {
    const Point2 along{placed.place.a, placed.place.b}, up{placed.place.c, placed.place.d};
    const double width = base::length(along), height = width > 0 ? cross(along, up) / width : 0;
    if (!(height > 0)) return;
    auto line = std::make_unique<Text>();
    line->text = placed.content;
    line->style = text_.style;
    line->position = placed.place({0, 0});
    line->elevation = text_.position.z;
    line->height = height;
    line->widthFactor = width / height;
    line->rotation = base::wrappedAngle(angleOf(along));
    line->oblique = std::atan2(dot(along, up) / width, height);
    add(std::move(line), placed.colour);
  }

  void addStrokes(const PlacedLine& placed) {
    for (const auto& stroke : placed.line.strokes) {
      const Point2 from = placed.place(stroke.front()), to = placed.place(stroke.back());
      auto line = std::make_unique<Line>();
      line->start = {from.x, from.y, text_.position.z};
      line->end = {to.x, to.y, text_.position.z};
      add(std::move(line), placed.colour);
    }
  }

  const MText& text_;
  ParagraphStyle style_;
  Parts parts_;
};

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
    Part part{plainCopy(entity), {}};
    takeLook(*part.entity);
    if (!transformEntity(*part.entity, map_)) return addStretched(*part.entity);
    const TransformOptions ofMembers = memberOptions(entity, {});
    for (const Handle handle : memberHandles(entity)) {
      const auto* member = database_.find<Entity>(handle);
      if (!member || member->kind == Kind::SeqEnd) continue;
      auto copy = plainCopy(*member);
      takeLook(*copy);
      if (!transformEntity(*copy, map_, ofMembers)) return false;
      part.members.push_back(std::move(copy));
    }
    parts_.push_back(std::move(part));
    return true;
  }

  bool addStretched(const Entity& entity) {
    if (entity.kind == Kind::LwPolyline) {
      for (auto& segment : segmentsOf(static_cast<const LwPolyline&>(entity))) {
        if (transformEntity(*segment.entity, map_)) {
          parts_.push_back(std::move(segment));
        } else if (!addStretched(*segment.entity)) {
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
    parts_.push_back({std::move(ellipse), {}});
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

std::optional<Parts> partsOf(const Session& session, const Entity& entity) {
  const Database& database = session.database();
  switch (entity.kind) {
    case Kind::Insert: return InsertExploder(database, static_cast<const Insert&>(entity)).run();
    case Kind::LwPolyline: return segmentsOf(static_cast<const LwPolyline&>(entity));
    case Kind::Polyline: {
      const auto& polyline = static_cast<const Polyline&>(entity);
      if (polyline.form != Polyline::Form::Flat) return sidesOf(database, polyline);
      return segmentsOf(flatPolyline(database, polyline));
    }
    case Kind::MText: return ParagraphExploder(session, static_cast<const MText&>(entity)).run();
    default: return {};
  }
}

void explode(Session& session) {
  const auto selection = askSelection(session);
  if (!selection) return;
  Database& database = session.database();
  std::size_t refused = 0;
  for (const Handle handle : *selection) {
    const auto* entity = database.find<Entity>(handle);
    auto parts = partsOf(session, *entity);
    if (!parts) {
      ++refused;
      continue;
    }
    auto& block = *database.find<BlockRecord>(entity->owner);
    for (Part& part : *parts) {
      const Handle made = database.append(block, std::move(part.entity));
      for (auto& member : part.members)
        database.appendMember(*database.find<Entity>(made), std::move(member));
    }
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
