#include "embedded/drafting/lisp/entity_list.h"

#include "embedded/base/numbers.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/xdata.h"

namespace drafting::lisp {
namespace {

using Items = std::vector<Value>;

Value group(int code, Value value) { return Value::cons(code, std::move(value)); }
Value group(int code, const Point3& point) { return Value::cons(code, fromPoint(point)); }

void addText(const TextBase& text, Items& items) {
  items.push_back(group(10, Point3{text.position.x, text.position.y, text.elevation}));
  items.push_back(group(40, text.height));
  items.push_back(group(1, text.text));
  items.push_back(group(50, text.rotation));
  items.push_back(group(72, static_cast<int>(text.horizontal)));
  items.push_back(group(73, static_cast<int>(text.vertical)));
}

void addPolyline(const LwPolyline& polyline, Items& items) {
  items.push_back(group(90, static_cast<int>(polyline.points.size())));
  items.push_back(group(70, polyline.closed ? 1 : 0));
  items.push_back(group(43, polyline.constantWidth));
  for (const Point2 point : polyline.points) {
    items.push_back(group(10, Value::list({point.x, point.y})));
  }
}

void addGeometry(const Database& database, const Entity& entity, Items& items) {
  if (const auto* line = dynamic_cast<const Line*>(&entity)) {
    items.push_back(group(10, line->start));
    items.push_back(group(11, line->end));
  } else if (const auto* point = dynamic_cast<const Point*>(&entity)) {
    items.push_back(group(10, point->position));
  } else if (const auto* circle = dynamic_cast<const Circle*>(&entity)) {
    items.push_back(group(10, circle->centre));
    items.push_back(group(40, circle->radius));
  } else if (const auto* arc = dynamic_cast<const Arc*>(&entity)) {
    items.push_back(group(10, arc->centre));
    items.push_back(group(40, arc->radius));
    items.push_back(group(50, arc->startAngle));
    items.push_back(group(51, arc->endAngle));
  } else if (const auto* text = dynamic_cast<const TextBase*>(&entity)) {
    addText(*text, items);
  } else if (const auto* polyline = dynamic_cast<const LwPolyline*>(&entity)) {
    addPolyline(*polyline, items);
  } else if (const auto* ellipse = dynamic_cast<const Ellipse*>(&entity)) {
    items.push_back(group(10, ellipse->centre));
    items.push_back(group(11, ellipse->majorAxis));
    items.push_back(group(40, ellipse->ratio));
    items.push_back(group(41, ellipse->startAngle));
    items.push_back(group(42, ellipse->endAngle));
  } else if (const auto* solid = dynamic_cast<const Solid*>(&entity)) {
    int code = 10;
    for (const Point2 corner : solid->corners)
      items.push_back(group(code++, Point3{corner.x, corner.y, solid->elevation}));
  } else if (const auto* paragraph = dynamic_cast<const MText*>(&entity)) {
    items.push_back(group(1, paragraph->text));
    items.push_back(group(10, paragraph->position));
    items.push_back(group(11, paragraph->xDirection));
    items.push_back(group(40, paragraph->height));
    items.push_back(group(41, paragraph->width));
    items.push_back(group(71, static_cast<int>(paragraph->attachment)));
  } else if (const auto* insert = dynamic_cast<const Insert*>(&entity)) {
    items.push_back(group(2, std::string(database.recordName(insert->block))));
    items.push_back(group(10, insert->position));
    items.push_back(group(41, insert->scale.x));
    items.push_back(group(42, insert->scale.y));
    items.push_back(group(43, insert->scale.z));
    items.push_back(group(50, insert->rotation));
  }
}

Value itemValue(const XDataItem& item) {
  if (const auto* text = std::get_if<std::string>(&item.value)) return *text;
  if (const int* whole = std::get_if<int>(&item.value)) return *whole;
  if (const double* real = std::get_if<double>(&item.value)) return *real;
  if (const auto* point = std::get_if<Point3>(&item.value)) return fromPoint(*point);
  return base::formatHex(std::get<Handle>(item.value));
}

// (-3 ("APP" (1000 . "text") ...) ...)
void addXData(const Database& database, const Entity& entity, Items& items) {
  Items apps;
  for (const XData& data : entity.xdata) {
    Items values{std::string(database.recordName(data.app))};
    for (const XDataItem& item : decodeXData(data.items).value_or(std::vector<XDataItem>{})) {
      values.push_back(group(item.code, itemValue(item)));
    }
    apps.push_back(Value::list(values));
  }
  if (!apps.empty()) items.push_back(Value::cons(-3, Value::list(apps)));
}

}  // namespace

Value makeEntityList(const Database& database, Handle handle) {
  const auto* entity = database.find<Entity>(handle);
  if (!entity) return {};
  Items items;
  items.push_back(group(-1, EntityName{handle}));
  items.push_back(group(0, std::string(typeName(database, *entity))));
  items.push_back(group(5, base::formatHex(handle)));
  items.push_back(group(8, std::string(database.recordName(entity->layer))));
  if (entity->colour != kColourByLayer)
    items.push_back(group(62, static_cast<int>(entity->colour)));
  addGeometry(database, *entity, items);
  addXData(database, *entity, items);
  return Value::list(items);
}

}  // namespace drafting::lisp
