// entmod: the groups of a list back into their entity. Groups that aren't listed stay; a group that
// the kind doesn't have counts for nothing; a wrong value changes nothing at all.
#include "embedded/base/text.h"
#include "embedded/drafting/commands/properties.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/lisp/entity_list.h"

namespace drafting::lisp {
namespace {

bool take(const Value& value, double& out) {
  if (!value.isNumber()) return false;
  out = value.number();
  return true;
}
bool take(const Value& value, std::string& out) {
  if (!value.text()) return false;
  out = *value.text();
  return true;
}
bool take(const Value& value, Point3& out) {
  const auto point = toPoint(value);
  if (point) out = *point;
  return point.has_value();
}
bool take(const Value& value, std::int16_t& out) {
  const int* number = value.integer();
  if (!number || *number < -32768 || *number > 32767) return false;
  out = static_cast<std::int16_t>(*number);
  return true;
}

bool takePositive(const Value& value, double& out) {
  double number = 0;
  if (!take(value, number) || !(number > 0)) return false;
  out = number;
  return true;
}

bool takePlace(const Value& value, Point2& flat, double& elevation) {
  const auto point = toPoint(value);
  if (!point) return false;
  flat = {point->x, point->y};
  elevation = point->z;
  return true;
}

bool set(Line& line, int code, const Value& value) {
  if (code == 10) return take(value, line.start);
  if (code == 11) return take(value, line.end);
  return true;
}
bool set(Point& point, int code, const Value& value) {
  return code != 10 || take(value, point.position);
}
bool set(Circle& circle, int code, const Value& value) {
  if (code == 10) return take(value, circle.centre);
  return code != 40 || takePositive(value, circle.radius);
}
bool set(Arc& arc, int code, const Value& value) {
  if (code == 10) return take(value, arc.centre);
  if (code == 40) return takePositive(value, arc.radius);
  if (code == 50) return take(value, arc.startAngle);
  return code != 51 || take(value, arc.endAngle);
}
bool set(TextBase& text, int code, const Value& value) {
  switch (code) {
    case 1: return take(value, text.text);
    case 10: return takePlace(value, text.position, text.elevation);
    case 11: return takePlace(value, text.alignment, text.elevation);
    case 40: return takePositive(value, text.height);
    case 41: return takePositive(value, text.widthFactor);
    case 50: return take(value, text.rotation);
    case 72: return take(value, text.horizontal);
    case 73: return take(value, text.vertical);
    default: return true;
  }
}
bool set(LwPolyline& polyline, int code, const Value& value) {
  if (code == 43) return take(value, polyline.constantWidth);
  if (code != 70) return true;
  const int* flags = value.integer();
  if (flags) polyline.closed = (*flags & 1) != 0;
  return flags != nullptr;
}
bool set(Insert& insert, int code, const Value& value) {
  switch (code) {
    case 10: return take(value, insert.position);
    case 41: return take(value, insert.scale.x);
    case 42: return take(value, insert.scale.y);
    case 43: return take(value, insert.scale.z);
    case 50: return take(value, insert.rotation);
    default: return true;
  }
}
bool set(Object&, int, const Value&) { return true; }

bool setCommon(const Database& database, Entity& entity, int code, const Value& value) {
  if (code == 8) {
    const Handle layer = value.text() ? database.findRecord(Table::Layers, *value.text()) : 0;
    if (layer) entity.layer = layer;
    return layer != 0;
  }
  if (code == 62) {
    std::int16_t colour = 0;
    if (!take(value, colour) || colour < 0 || colour > kColourByLayer) return false;
    entity.colour = colour;
  }
  if (code == 6) {
    const auto linetype = value.text() ? linetypeOf(database, *value.text()) : std::nullopt;
    if (linetype) entity.linetype = *linetype;
    return linetype.has_value();
  }
  return true;
}

// The vertices of a polyline are set only as many as it has.
bool setVertices(LwPolyline& polyline, const Value& list) {
  std::size_t count = 0;
  for (Value rest = list; rest.pair(); rest = rest.rest()) {
    const Value group = rest.first();
    if (!group.first().same(10)) continue;
    const auto point = toPoint(group.rest());
    if (!point || count == polyline.points.size()) return false;
    polyline.points[count++] = {point->x, point->y};
  }
  return true;
}

bool apply(const Database& database, Entity& entity, const Value& list) {
  for (Value rest = list; rest.pair(); rest = rest.rest()) {
    const Value group = rest.first();
    const Value first = group.first();
    const int* code = first.integer();
    if (!code) return false;
    if (!setCommon(database, entity, *code, group.rest())) return false;
    const bool good = visit(entity, [&](auto& one) { return set(one, *code, group.rest()); });
    if (!good) return false;
  }
  return entity.kind != Kind::LwPolyline || setVertices(static_cast<LwPolyline&>(entity), list);
}

}  // namespace

bool changeEntity(Database& database, const Value& list) {
  Handle handle = 0;
  for (Value rest = list; rest.pair(); rest = rest.rest()) {
    const Value name = rest.first().rest();
    if (rest.first().first().same(-1) && name.entity()) handle = name.entity()->handle;
  }
  const auto* old = database.find<Entity>(handle);
  if (!old || !list.items()) return false;
  const auto probe = copyObject(*old);
  if (!apply(database, static_cast<Entity&>(*probe), list)) return false;
  return apply(database, database.edit<Entity>(handle), list);
}

}  // namespace drafting::lisp
