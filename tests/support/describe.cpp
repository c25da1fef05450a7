#include "support/describe.h"

#include <cmath>

#include "embedded/base/numbers.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/xdata.h"

namespace test {
namespace {

using namespace drafting;

std::string shown(double number) {
  return std::abs(number) < 1e-6 ? "0" : base::formatG(number, 10);
}
std::string shown(Point2 p) { return shown(p.x) + "," + shown(p.y); }
std::string shown(const Point3& p) {
  return shown(p.x) + "," + shown(p.y) + (p.z == 0 ? "" : "," + shown(p.z));
}
std::string degrees(double radians) { return shown(radians * 180 / base::kPi); }

std::string shown(const LwPolyline& polyline) {
  std::string out;
  for (std::size_t i = 0; i < polyline.points.size(); ++i) {
    out += " " + shown(polyline.points[i]);
    if (i < polyline.widths.size() &&
        (polyline.widths[i].start != 0 || polyline.widths[i].end != 0))
      out += " w" + shown(polyline.widths[i].start) + ":" + shown(polyline.widths[i].end);
    if (i < polyline.bulges.size() && polyline.bulges[i] != 0)
      out += " b" + shown(polyline.bulges[i]);
  }
  if (polyline.constantWidth != 0) out += " width " + shown(polyline.constantWidth);
  return out + (polyline.closed ? " closed" : "");
}

std::string shown(const TextBase& text) {
  std::string out = " " + shown(text.position) + " " + shown(text.height);
  if (text.rotation != 0) out += " turned " + degrees(text.rotation);
  if (text.horizontal || text.vertical) {
    out += " aligned " + std::to_string(text.horizontal) + "/" + std::to_string(text.vertical) +
           " " + shown(text.alignment);
  }
  return out + " \"" + text.text + "\"";
}

std::string shown(const Database& database, const Insert& insert) {
  std::string out =
      " " + std::string(database.recordName(insert.block)) + " " + shown(insert.position);
  if (!(insert.scale == Point3{1, 1, 1})) {
    out += " scale " + shown(insert.scale.x) + "," + shown(insert.scale.y) + "," +
           shown(insert.scale.z);
  }
  if (insert.rotation != 0) out += " turned " + degrees(insert.rotation);
  for (const Handle handle : insert.attributes) {
    if (const auto* attribute = database.find<Attrib>(handle))
      out += " [" + attribute->tag + "=" + attribute->text + "]";
  }
  return out;
}

std::string geometry(const Database& database, const Entity& entity) {
  if (const auto* line = dynamic_cast<const Line*>(&entity))
    return " " + shown(line->start) + " " + shown(line->end);
  if (const auto* point = dynamic_cast<const Point*>(&entity)) return " " + shown(point->position);
  if (const auto* circle = dynamic_cast<const Circle*>(&entity))
    return " " + shown(circle->centre) + " " + shown(circle->radius);
  if (const auto* arc = dynamic_cast<const Arc*>(&entity)) {
    return " " + shown(arc->centre) + " " + shown(arc->radius) + " from " +
           degrees(arc->startAngle) + " to " + degrees(arc->endAngle);
  }
  if (const auto* polyline = dynamic_cast<const LwPolyline*>(&entity)) return shown(*polyline);
  if (const auto* text = dynamic_cast<const TextBase*>(&entity)) return shown(*text);
  if (const auto* insert = dynamic_cast<const Insert*>(&entity)) return shown(database, *insert);
  return "";
}

std::string shown(const XDataItem& item) {
  std::string out = " " + std::to_string(item.code) + ":";
  if (const auto* text = std::get_if<std::string>(&item.value)) return out + *text;
  if (const int* whole = std::get_if<int>(&item.value)) return out + std::to_string(*whole);
  if (const double* real = std::get_if<double>(&item.value)) return out + shown(*real);
  if (const auto* point = std::get_if<Point3>(&item.value)) return out + shown(*point);
  return out + "handle";
}

}  // namespace

std::string describe(const Database& database, const Entity& entity) {
  std::string out(typeName(database, entity));
  out += geometry(database, entity);
  const std::string layer(database.recordName(entity.layer));
  if (layer != "0") out += " on " + layer;
  if (entity.colour != kColourByLayer) out += " colour " + std::to_string(entity.colour);
  for (const XData& data : entity.xdata) {
    out += " {" + std::string(database.recordName(data.app));
    for (const XDataItem& item : decodeXData(data.items).value_or(std::vector<XDataItem>{}))
      out += shown(item);
    out += "}";
  }
  return out;
}

std::vector<std::string> describeModelSpace(const Database& database) {
  std::vector<std::string> lines;
  for (const Entity* entity = database.modelSpace().first; entity; entity = entity->next)
    lines.push_back(describe(database, *entity));
  return lines;
}

}  // namespace test
