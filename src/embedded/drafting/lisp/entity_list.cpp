#include "embedded/drafting/lisp/entity_list.h"

#include "embedded/base/numbers.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/database/xdata.h"

namespace drafting::lisp {
namespace {

using Items = std::vector<Value>;

Value group(int code, Value value) { return Value::cons(code, std::move(value)); }
Value group(int code, const Point3& point) { return Value::cons(code, fromPoint(point)); }

// The groups of an entity's geometry, by its kind; nothing for kinds that aren't here.
class Geometry {
 public:
  Geometry(const Database& database, Items& items) : database_(database), items_(items) {}

  void operator()(const Line& line) {
    add(10, line.start);
    add(11, line.end);
  }
  void operator()(const Point& point) { add(10, point.position); }
  void operator()(const Circle& circle) {
    add(10, circle.centre);
    add(40, circle.radius);
  }
  void operator()(const Arc& arc) {
    add(10, arc.centre);
    add(40, arc.radius);
    add(50, arc.startAngle);
    add(51, arc.endAngle);
  }
  void operator()(const Ellipse& ellipse) {
    add(10, ellipse.centre);
    add(11, ellipse.majorAxis);
    add(40, ellipse.ratio);
    add(41, ellipse.startAngle);
    add(42, ellipse.endAngle);
  }
  void operator()(const Spline& spline) {
    add(71, spline.degree);
    for (const double knot : spline.knots) add(40, knot);
    for (const double weight : spline.weights) add(41, weight);
    for (const Point3& control : spline.controls) add(10, control);
    for (const Point3& point : spline.fitPoints) add(11, point);
  }
  void operator()(const Solid& solid) {
    int code = 10;
    for (const Point2 corner : solid.corners)
      add(code++, Point3{corner.x, corner.y, solid.elevation});
  }
  void operator()(const TextBase& text) {
    add(10, Point3{text.position.x, text.position.y, text.elevation});
    add(40, text.height);
    add(1, text.text);
    add(50, text.rotation);
    add(72, static_cast<int>(text.horizontal));
    add(73, static_cast<int>(text.vertical));
  }
  void operator()(const LwPolyline& polyline) {
    add(90, static_cast<int>(polyline.points.size()));
    add(70, polyline.closed ? 1 : 0);
    add(43, polyline.constantWidth);
    for (const Point2 point : polyline.points) {
      add(10, Value::list({point.x, point.y}));
    }
  }
  void operator()(const MText& text) {
    add(1, text.text);
    add(10, text.position);
    add(11, text.xDirection);
    add(40, text.height);
    add(41, text.width);
    add(71, static_cast<int>(text.attachment));
  }
  void operator()(const Insert& insert) {
    add(2, std::string(database_.recordName(insert.block)));
    add(10, insert.position);
    add(41, insert.scale.x);
    add(42, insert.scale.y);
    add(43, insert.scale.z);
    add(50, insert.rotation);
  }
  void operator()(const Object&) {}

 private:
  template <class T>
  void add(int code, const T& value) {
    items_.push_back(group(code, value));
  }

  const Database& database_;
  Items& items_;
};

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
  visit(*entity, Geometry(database, items));
  addXData(database, *entity, items);
  return Value::list(items);
}

}  // namespace drafting::lisp
