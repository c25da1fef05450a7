#include "programs/vornik/field_dump.h"

#include <charconv>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/database/packed_groups.h"
#include "embedded/drafting/database/xdata.h"
#include "programs/vornik/json.h"

namespace vornik {

using namespace drafting;

namespace {

std::string flatJson(const Point2& p) {
  return "[" + jsonNumber(p.x) + "," + jsonNumber(p.y) + "]";
}

std::string spaceJson(const Point3& p) {
  return "[" + jsonNumber(p.x) + "," + jsonNumber(p.y) + "," + jsonNumber(p.z) + "]";
}

// Degrees as one would write them: what the way there and back leaves in the last digits is cut.
std::string degreesJson(double radians) {
  return std::isfinite(radians) ? base::formatG(base::degrees(radians), 12) : "null";
}

std::string handlesJson(const std::vector<Handle>& handles) {
  return jsonList(handles, [](Handle handle) { return jsonText(base::formatHex(handle)); });
}

// An edge of a hatch: what its form has.
std::string edgeJson(const Hatch::Edge& edge) {
  using Form = Hatch::Edge::Form;
  if (edge.form == Form::Line) {
    return "{\"line\":[" + flatJson(edge.first) + "," + flatJson(edge.second) + "]}";
  }
  if (edge.form == Form::Spline) {
    return "{\"spline\":" + jsonList(edge.controls, flatJson) +
           ",\"degree\":" + std::to_string(edge.degree) +
           ",\"knots\":" + jsonList(edge.knots, jsonNumber) +
           ",\"weights\":" + jsonList(edge.weights, jsonNumber) + "}";
  }
  const bool isArc = edge.form == Form::Arc;
  return (isArc ? "{\"arc\":" : "{\"ellipse\":") + flatJson(edge.first) +
         (isArc ? "" : ",\"majorAxis\":" + flatJson(edge.second)) +
         (isArc ? ",\"radius\":" : ",\"ratio\":") + jsonNumber(edge.size) +
         ",\"startAngle\":" + degreesJson(edge.startAngle) +
         ",\"endAngle\":" + degreesJson(edge.endAngle) +
         ",\"counterClockwise\":" + (edge.counterClockwise ? "true" : "false") + "}";
}

std::string pathJson(const Hatch::Path& path) {
  std::string out = "{\"flags\":" + std::to_string(path.flags);
  if (path.isPolyline()) {
    out += std::string(",\"closed\":") + (path.closed ? "true" : "false") +
           ",\"points\":" + jsonList(path.points, flatJson);
    if (!path.bulges.empty()) out += ",\"bulges\":" + jsonList(path.bulges, jsonNumber);
  } else {
    out += ",\"edges\":" + jsonList(path.edges, edgeJson);
  }
  if (!path.sources.empty()) out += ",\"sources\":" + handlesJson(path.sources);
  return out + "}";
}

std::string patternLineJson(const Hatch::PatternLine& line) {
  return "{\"angle\":" + degreesJson(line.angle) + ",\"base\":" + flatJson(line.base) +
         ",\"offset\":" + flatJson(line.offset) +
         ",\"dashes\":" + jsonList(line.dashes, jsonNumber) + "}";
}

std::string itemJson(const Database& database, const XDataItem& item) {
  struct Value {
    const Database& database;
    int code;
    std::string operator()(const std::string& text) const {
      return jsonText(code == 1004 ? hexBytes(text) : text);
    }
    std::string operator()(Handle handle) const {
      const auto layer = code == 1003 ? database.recordName(handle) : std::string_view();
      return jsonText(layer.empty() ? base::formatHex(handle) : std::string(layer));
    }
    std::string operator()(const Point3& point) const { return spaceJson(point); }
    std::string operator()(double value) const { return jsonNumber(value); }
    std::string operator()(int value) const { return std::to_string(value); }
  };
  return "[" + std::to_string(item.code) + "," +
         std::visit(Value{database, item.code}, item.value) + "]";
}

}  // namespace

std::string hexBytes(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string out;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    out += kDigits[byte >> 4];
    out += kDigits[byte & 15];
  }
  return out;
}

void FieldDump::member(std::string_view name, const std::string& json) {
  out_.append(",").append(jsonText(name)).append(":").append(json);
}

void FieldDump::real(const char* name, int, double value) { member(name, jsonNumber(value)); }
void FieldDump::angle(const char* name, int, double radians) { member(name, degreesJson(radians)); }
void FieldDump::text(const char* name, int, std::string_view value) {
  member(name, jsonText(value));
}
void FieldDump::blob(const char* name, int, std::string_view value) {
  if (!value.empty()) member(name, jsonText(hexBytes(value)));
}
void FieldDump::point(const char* name, int, const Point3& value) {
  member(name, spaceJson(value));
}
void FieldDump::flat(const char* name, int, const Point2& value) { member(name, flatJson(value)); }
void FieldDump::extrusion(int, const Point3& value) {
  if (!(value == kZAxis)) member("normal", spaceJson(value));
}

std::string FieldDump::reference(Handle handle) const {
  const std::string_view name = database_.recordName(handle);
  return jsonText(name.empty() ? base::formatHex(handle) : std::string(name));
}

void FieldDump::handle(const char* name, int, std::uint8_t, Handle value) {
  if (value != 0) member(name, reference(value));
}

void FieldDump::lineEnds(const Line& line) {
  point("start", 10, line.start);
  point("end", 11, line.end);
}

void FieldDump::spline(const Spline& spline) {
  number("degree", spline.degree);
  bit("closed", 70, spline.closed);
  bit("periodic", 70, spline.periodic);
  if (!spline.controls.empty()) {
    member("knots", jsonList(spline.knots, jsonNumber));
    member("controls", jsonList(spline.controls, spaceJson));
  }
  if (!spline.weights.empty()) member("weights", jsonList(spline.weights, jsonNumber));
  if (spline.fitPoints.empty()) return;
  member("fitPoints", jsonList(spline.fitPoints, spaceJson));
  point("startTangent", 12, spline.startTangent);
  point("endTangent", 13, spline.endTangent);
}

void FieldDump::solidCorners(const Solid& solid) {
  const std::vector<Point2> corners(solid.corners.begin(), solid.corners.end());
  member("corners", jsonList(corners, flatJson));
  if (solid.elevation != 0) real("elevation", 0, solid.elevation);
}

void FieldDump::lwPolyline(const LwPolyline& polyline) {
  bit("closed", 0, polyline.closed);
  member("points", jsonList(polyline.points, flatJson));
  if (!polyline.bulges.empty()) member("bulges", jsonList(polyline.bulges, jsonNumber));
  if (!polyline.widths.empty()) {
    member("widths", jsonList(polyline.widths, [](const LwPolyline::Width& width) {
             return flatJson({width.start, width.end});
           }));
  }
  if (polyline.constantWidth != 0) real("width", 0, polyline.constantWidth);
  if (polyline.elevation != 0) real("elevation", 0, polyline.elevation);
  thickness(39, polyline.thickness);
  extrusion(210, polyline.normal);
}

void FieldDump::packedGroups(std::string_view packed) {
  std::vector<std::string> groups;
  int code = 0;
  std::string_view value;
  while (takeGroup(packed, code, value)) {
    groups.push_back("[" + std::to_string(code) + "," + jsonText(std::string(value)) + "]");
  }
  member("groups", jsonList(groups, [](const std::string& group) { return group; }));
}

void FieldDump::hatchPaths(const Hatch& hatch) { member("paths", jsonList(hatch.paths, pathJson)); }

void FieldDump::hatchLines(const Hatch& hatch) {
  if (hatch.solid) return;
  angle("angle", 52, hatch.angle);
  real("scale", 41, hatch.scale);
  bit("double", 77, hatch.isDouble);
  member("lines", jsonList(hatch.lines, patternLineJson));
}

void FieldDump::hatchSeeds(const Hatch& hatch) {
  unlessZero("pixelSize", hatch.pixelSize);
  if (!hatch.seeds.empty()) member("seeds", jsonList(hatch.seeds, flatJson));
}

void FieldDump::polyline(const Polyline& polyline) {
  static constexpr const char* kForms[] = {"flat", "space", "mesh", "polyface"};
  text("form", 0, kForms[static_cast<std::size_t>(polyline.form)]);
  number("flags", polyline.flags);
  number("curve", polyline.curve);
  unlessZero("startWidth", polyline.startWidth);
  unlessZero("endWidth", polyline.endWidth);
  unlessZero("elevation", polyline.elevation);
  thickness(39, polyline.thickness);
  extrusion(210, polyline.normal);
  if (polyline.form == Polyline::Form::Mesh || polyline.form == Polyline::Form::Polyface) {
    const std::vector<std::int16_t> counts(polyline.counts.begin(), polyline.counts.end());
    member("counts", jsonList(counts, [](std::int16_t count) { return std::to_string(count); }));
  }
  member("vertices", handlesJson(polyline.vertices));
}

void FieldDump::vertex(const Vertex& vertex) {
  number("flags", vertex.flags);
  if (vertex.form == Vertex::Form::Face) {
    const std::vector<std::int16_t> corners(vertex.corners.begin(), vertex.corners.end());
    member("corners",
           jsonList(corners, [](std::int16_t corner) { return std::to_string(corner); }));
    return;
  }
  point("position", 10, vertex.position);
  if (vertex.form != Vertex::Form::Flat) return;
  unlessZero("startWidth", vertex.startWidth);
  unlessZero("endWidth", vertex.endWidth);
  unlessZero("bulge", vertex.bulge);
  if (vertex.tangent != 0) angle("tangent", 50, vertex.tangent);
}

void FieldDump::textFields(const TextBase& text) {
  this->text("text", 1, text.text);
  flat("position", 10, text.position);
  real("height", 40, text.height);
  angle("rotation", 50, text.rotation);
  real("widthFactor", 41, text.widthFactor);
  angle("oblique", 51, text.oblique);
  number("generation", text.generation);
  number("horizontal", text.horizontal);
  number("vertical", text.vertical);
  if (text.horizontal != 0 || text.vertical != 0) flat("alignment", 11, text.alignment);
  if (text.elevation != 0) real("elevation", 0, text.elevation);
  thickness(39, text.thickness);
  extrusion(210, text.normal);
}

void FieldDump::insertTail(const Insert& insert) {
  if (!insert.attributes.empty()) member("attributes", handlesJson(insert.attributes));
  if (!insert.isArray) return;
  number("columns", insert.columns);
  number("rows", insert.rows);
  real("columnSpacing", 0, insert.columnSpacing);
  real("rowSpacing", 0, insert.rowSpacing);
}

void FieldDump::raw(const Bits& bits, const std::vector<Reference>& references) {
  member("bits", std::to_string(bits.count));
  member("bytes", jsonText(hexBytes(bits.bytes)));
  member("references", jsonList(references, [](const Reference& reference) {
           return "[" + std::to_string(reference.code) + "," +
                  jsonText(base::formatHex(reference.target)) + "]";
         }));
}

void FieldDump::rawBody(const RawEntity& entity) {
  number("typeNumber", entity.type);
  blob("graphics", 0, entity.graphics);
  raw(entity.body, entity.references);
}

void FieldDump::rawBody(const RawObject& object) {
  number("typeNumber", object.type);
  if (!object.name.empty()) text("name", 2, object.name);
  raw(object.body, object.references);
}

void FieldDump::controlRecords(const Control& control) {
  member("records", handlesJson(control.records));
}

void FieldDump::blockContent(const BlockRecord& block) {
  member("entities", std::to_string(block.count));
}

void FieldDump::layerFlags(const Layer& layer) {
  bit("frozen", 0, layer.frozen);
  bit("off", 0, layer.off);
  bit("frozenInNew", 0, layer.frozenInNew);
  bit("locked", 0, layer.locked);
  bit("plotted", 0, layer.plotted);
  number("lineweight", lineweightOfIndex(layer.lineweight));
}

void FieldDump::dashes(const Linetype& linetype) {
  member("dashes", jsonList(linetype.dashes,
                            [](const Linetype::Dash& dash) { return jsonNumber(dash.length); }));
}

std::string FieldDump::variable(const VariableValue& value) const {
  struct Form {
    const FieldDump& dump;
    std::string operator()(double number) const { return jsonNumber(number); }
    std::string operator()(int number) const { return std::to_string(number); }
    std::string operator()(const std::string& text) const { return jsonText(text); }
    std::string operator()(Handle handle) const {
      return handle == 0 ? "null" : dump.reference(handle);
    }
    std::string operator()(const Point2& point) const { return flatJson(point); }
    std::string operator()(const Point3& point) const { return spaceJson(point); }
  };
  return std::visit(Form{*this}, value);
}

void FieldDump::dimensionValues(const DimStyle& style) {
  const auto names = dimensionVariables();
  for (std::size_t i = 0; i < names.size() && i < style.values.size(); ++i) {
    if (names[i].name) member(names[i].name, variable(style.values[i]));
  }
}

void FieldDump::dictionaryItems(const Dictionary& dictionary) {
  member("items", jsonList(dictionary.items, [](const std::pair<std::string, Handle>& item) {
           return "[" + jsonText(item.first) + "," + jsonText(base::formatHex(item.second)) + "]";
         }));
}

std::string extendedData(const Database& database, const Object& object) {
  std::string out = "{";
  for (const XData& data : object.xdata) {
    const std::string_view app = database.recordName(data.app);
    out += (out.size() > 1 ? "," : "") +
           jsonText(app.empty() ? base::formatHex(data.app) : std::string(app));
    const auto items = decodeXData(data.items);
    out += ":" + (items ? jsonList(*items,
                                   [&](const XDataItem& item) { return itemJson(database, item); })
                        : jsonText(hexBytes(data.items)));
  }
  return out + "}";
}

}  // namespace vornik
