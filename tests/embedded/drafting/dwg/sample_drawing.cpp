#include "embedded/drafting/dwg/sample_drawing.h"

#include <cmath>

#include "embedded/drafting/database/fields.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/object_image.h"

namespace drafting {
namespace {

// Gives every field of an object a value of its own.
struct Filler {
  static constexpr bool kReads = true;
  double next = 1.5;
  Handle style = 0;

  double value() { return next += 0.25; }
  Point2 flatValue() { return {value(), value()}; }
  void subclass(const char*) {}
  void real(const char*, int, double& v) { v = value(); }
  // In whole degrees: those are the same again after a conversion from radians and back.
  double angleValue() { return base::radians(std::floor(value() * 10)); }
  void angle(const char*, int, double& v) { v = angleValue(); }
  void integer(const char*, int, std::int16_t& v) { v = 2; }
  void byte(const char*, int, std::uint8_t& v) { v = 3; }
  void bit(const char*, int, bool& v) { v = true; }
  void text(const char*, int, std::string& v) { v = "主母线 \\P text é"; }
  void longText(const char*, int, std::string& v) { text("", 0, v); }
  void point(const char*, int, Point3& v) { v = {value(), value(), value()}; }
  void flat(const char*, int, Point2& v) { v = flatValue(); }
  void thickness(int, double& v) { v = value(); }
  void extrusion(int, Point3& v) { v = {0, 1, 0}; }
  void normal(int, Point3& v) { v = {1, 0, 0}; }
  void handle(const char*, int group, std::uint8_t, Handle& v) { v = group == 7 ? style : v; }
  void lineEnds(Line& o) { o.start = {1, 2, 3}, o.end = {1, 5, 3.5}; }
  // A file has only one of the two, so that the fit points are another one's.
  void spline(Spline& o) {
    o.degree = 2, o.closed = o.periodic = o.rational = true;
    o.knotTolerance = value(), o.controlTolerance = value();
    o.knots = {0, 0, 0, 0.5, 1, 1, 1}, o.weights = {1, 0.5, 2, 1};
    for (int i = 0; i < 4; ++i) o.controls.push_back({value(), value(), value()});
  }
  void solidCorners(Solid& o) {
    o.elevation = value();
    for (Point2& corner : o.corners) corner = flatValue();
  }
  void lwPolyline(LwPolyline& o) {
    for (int i = 0; i < 5; ++i) {
      o.points.push_back(flatValue());
      o.bulges.push_back(value());
      o.widths.push_back({value(), value()});
    }
    o.elevation = value(), o.thickness = value();
    o.normal = {0, 1, 0}, o.closed = o.continuousPattern = true;
  }
  void planeElevation(int, double& v) { v = value(); }
  void hatchPaths(Hatch& o);
  void hatchLines(Hatch& o);
  void hatchSeeds(Hatch& o) { o.pixelSize = value(), o.seeds = {flatValue(), flatValue()}; }
  void polyline(Polyline& o) {
    o.flags = 1 | 128, o.curve = 0, o.startWidth = value(), o.endWidth = value();
    o.thickness = value(), o.elevation = value(), o.normal = {0, 1, 0};
  }
  void vertex(Vertex& o) {
    o.flags = 2, o.position = {value(), value(), 0};
    o.startWidth = value(), o.endWidth = value(), o.bulge = value(), o.tangent = angleValue();
  }
  void textFields(TextBase& o) {
    o.position = flatValue(), o.alignment = flatValue(), o.elevation = value();
    o.thickness = value(), o.normal = {0, 1, 0}, o.oblique = angleValue(),
    o.rotation = angleValue();
    o.height = value(), o.widthFactor = value(), o.text = "%%c20 图";
    o.generation = 2, o.horizontal = 1, o.vertical = 3;
  }
  void verticalAlignment(int, TextBase&) {}
  void insertScale(Insert& o) { o.scale = {2, -2, 3}; }
  void insertTail(Insert& o) {
    o.isArray = true, o.columns = 3, o.rows = 2, o.columnSpacing = value(), o.rowSpacing = value();
  }
};

// A path of each form: a polyline with bulges, lines and curves, splines with and without weights.
void Filler::hatchPaths(Hatch& o) {
  using Edge = Hatch::Edge;
  Hatch::Path outline, rest;
  outline.flags = 1 | 2 | 4;
  outline.points = {flatValue(), flatValue(), flatValue()};
  outline.bulges = {value(), 0, value()};
  rest.flags = 16;
  Edge line, arc, ellipse, spline;
  line.first = flatValue(), line.second = flatValue();
  arc.form = Edge::Form::Arc, arc.first = flatValue(), arc.size = value();
  arc.startAngle = angleValue(), arc.endAngle = angleValue(), arc.counterClockwise = false;
  ellipse = arc, ellipse.form = Edge::Form::Ellipse, ellipse.second = flatValue();
  ellipse.size = 0.5, ellipse.counterClockwise = true;
  spline.form = Edge::Form::Spline, spline.degree = 2, spline.knots = {0, 0, 0, 1, 1, 1};
  spline.controls = {flatValue(), flatValue(), flatValue()};
  Edge rational = spline;
  rational.rational = rational.periodic = true;
  rational.weights = {1, 0.5, 2};
  rest.edges = {line, arc, ellipse, spline, rational};
  o.paths = {outline, rest};
  o.solid = false;
}

void Filler::hatchLines(Hatch& o) {
  o.angle = angleValue(), o.scale = value(), o.isDouble = true;
  o.lines = {{angleValue(), flatValue(), flatValue(), {}},
             {angleValue(), flatValue(), flatValue(), {value(), -value(), 0}}};
}

template <class T>
std::unique_ptr<T> filled(const Database& db) {
  Filler filler;
  filler.style = db.findRecord(Table::Styles, "Standard");
  auto entity = std::make_unique<T>();
  walk<Filler>(filler, *entity);
  entity->layer = db.findRecord(Table::Layers, "图层 1");
  return entity;
}

// An ellipse that other programs take for one: axes at right angles to the normal, ratio below 1.
template <>
std::unique_ptr<Ellipse> filled<Ellipse>(const Database& db) {
  auto ellipse = std::make_unique<Ellipse>();
  ellipse->layer = db.findRecord(Table::Layers, "图层 1");
  ellipse->centre = {1, 2, 3};
  ellipse->majorAxis = {0, 5, 0};
  ellipse->normal = {0, 0, -1};
  ellipse->ratio = 0.25;
  ellipse->startAngle = 0.5;
  ellipse->endAngle = 2.5;
  return ellipse;
}

template <class T>
std::unique_ptr<T> plain(const Database& db) {
  auto entity = std::make_unique<T>();
  entity->layer = db.findRecord(Table::Layers, "0");
  if constexpr (std::is_same_v<T, Ellipse>) entity->majorAxis = {1, 0, 0};
  if constexpr (std::is_same_v<T, Spline>) {
    entity->fitPoints = {{0, 0, 0}, {10, 5, 0}, {20, 0, 1}};
    entity->startTangent = {0, 1, 0};
  }
  if constexpr (std::is_same_v<T, LwPolyline>) {
    entity->points = {{0, 0}, {10, 0}};
    entity->constantWidth = 0.5;
  }
  return entity;
}

template <class... T>
void appendEach(Database& db, BlockRecord& block) {
  (db.append(block, filled<T>(db)), ...);
  (db.append(block, plain<T>(db)), ...);
}

void addRecords(Database& db) {
  auto layer = std::make_unique<Layer>();
  layer->name = "图层 1";
  layer->colour = 3;
  layer->off = layer->frozenInNew = layer->locked = true;
  layer->plotted = false;
  layer->lineweight = 9;
  layer->linetype = db.findRecord(Table::Linetypes, "Continuous");
  db.addRecord(Table::Layers, std::move(layer));
  auto linetype = std::make_unique<Linetype>();
  linetype->name = "DASHDOT";
  linetype->description = "__ . __";
  linetype->patternLength = 5;
  linetype->dashes = {{3.0}, {-1.0}, {0.0, 0, 0.5, 0.25, 2.0, 0.1, 2, 0x11}, {-1.0}};
  linetype->textArea = "GAS" + std::string(253, '\0');
  db.addRecord(Table::Linetypes, std::move(linetype));
  auto style = std::make_unique<TextStyle>();
  style->name = "仿宋";
  style->vertical = true;
  style->fixedHeight = 3.5;
  style->widthFactor = 0.7;
  style->generation = 4;
  style->font = "gbenor.shx";
  db.addRecord(Table::Styles, std::move(style));
}

Handle addBlock(Database& db, const char* name, bool anonymous) {
  auto block = std::make_unique<BlockRecord>();
  block->name = name;
  block->anonymous = anonymous;
  block->base = {1, 2, 0};
  block->description = "元件";
  block->preview = std::string("\0\1\2", 3);
  return db.addBlock(std::move(block));
}

template <class... V>
void addPolyline(Database& db, std::unique_ptr<Polyline> polyline, const V&... vertices) {
  const Handle handle = db.append(db.modelSpace(), std::move(polyline));
  const auto add = [&](Vertex::Form form, const Vertex& like) {
    auto vertex = plain<Vertex>(db);
    vertex->form = form;
    vertex->flags = like.flags;
    vertex->position = like.position;
    vertex->corners = like.corners;
    db.appendMember(*db.find<Polyline>(handle), std::move(vertex));
  };
  (add(vertices.form, vertices), ...);
}

Vertex vertexOf(Vertex::Form form, std::uint8_t flags, Point3 at,
                std::array<std::int16_t, 4> corners = {}) {
  Vertex vertex;
  vertex.form = form;
  vertex.flags = flags;
  vertex.position = at;
  vertex.corners = corners;
  return vertex;
}

// A polyline of each form.
void addPolylines(Database& db) {
  using Form = Polyline::Form;
  using Part = Vertex::Form;
  const Handle flat = db.append(db.modelSpace(), filled<Polyline>(db));
  for (int i = 0; i < 3; ++i) {
    db.appendMember(*db.find<Polyline>(flat), i < 2 ? filled<Vertex>(db) : plain<Vertex>(db));
  }
  auto space = plain<Polyline>(db);
  space->form = Form::Space, space->flags = 1, space->curve = 2;
  addPolyline(db, std::move(space), vertexOf(Part::Space, 32, {1, 2, 3}),
              vertexOf(Part::Space, 32, {4, 5, 6}));
  auto mesh = plain<Polyline>(db);
  mesh->form = Form::Mesh, mesh->flags = 16 | 32, mesh->counts = {2, 2, 0, 0};
  addPolyline(db, std::move(mesh), vertexOf(Part::Mesh, 64, {0, 0, 0}),
              vertexOf(Part::Mesh, 64, {1, 0, 0}), vertexOf(Part::Mesh, 64, {0, 1, 0}),
              vertexOf(Part::Mesh, 64, {1, 1, 1}));
  auto polyface = plain<Polyline>(db);
  polyface->form = Form::Polyface, polyface->counts = {3, 1, 0, 0};
  addPolyline(db, std::move(polyface), vertexOf(Part::Polyface, 192, {0, 0, 0}),
              vertexOf(Part::Polyface, 192, {1, 0, 0}), vertexOf(Part::Polyface, 192, {0, 1, 0}),
              vertexOf(Part::Face, 128, {}, {1, -2, 3, 0}));
}

void addInserts(Database& db, Handle block) {
  auto insert = plain<Insert>(db);
  insert->block = block;
  insert->scale = {1, 2, 1};
  const Handle handle = db.append(db.modelSpace(), std::move(insert));
  for (const char* tag : {"型号", "CURRENT", "NUMBER"}) {
    auto attribute = filled<Attrib>(db);
    attribute->tag = tag;
    db.appendAttribute(*db.find<Insert>(handle), std::move(attribute));
  }
  for (const Point3 scale : {Point3{1, 1, 1}, Point3{2, 2, 2}, Point3{-1, 1, 1}}) {
    auto other = plain<Insert>(db);
    other->block = block;
    other->scale = scale;
    db.append(db.modelSpace(), std::move(other));
  }
  auto array = filled<Insert>(db);
  array->block = block;
  db.append(db.paperSpace(), std::move(array));
}

void addExtendedData(Database& db) {
  const Handle app = db.registerApp("TKSY"), other = db.registerApp("应用");
  Entity& entity = *db.modelSpace().first;
  db.willChange(entity);
  entity.xdata = {
      {app, *encodeXData({{1000, "XHGG 图"}, {1070, 5}, {1005, entity.handle}}, db.codePage)},
      {other, *encodeXData({{1040, 2.5}, {1010, Point3{1, 2, 3}}}, db.codePage)}};
  entity.colour = 5;
  entity.linetype = db.findRecord(Table::Linetypes, "DASHDOT");
  entity.linetypeScale = 0.5;
  entity.lineweight = 11;
  entity.invisible = true;
  Entity& second = *entity.next;
  db.willChange(second);
  second.linetype = kByBlock;
  second.reactors = {entity.handle};
}

}  // namespace

std::unique_ptr<Database> makeSampleDrawing() {
  auto made = Database::makeNew();
  Database& db = *made;
  addRecords(db);
  BlockRecord& space = db.modelSpace();
  appendEach<Line, Point, Circle, Arc, Ellipse, Solid, LwPolyline, Text, MText, Attdef>(db, space);
  appendEach<Hatch, Spline, Trace>(db, space);
  addPolylines(db);
  const Handle block = addBlock(db, "断路器", false);
  appendEach<Line, Text, Attdef>(db, *db.find<BlockRecord>(block));
  addInserts(db, block);
  const Handle anonymous = addBlock(db, "*U12", true);
  db.append(*db.find<BlockRecord>(anonymous), plain<Line>(db));
  addInserts(db, anonymous);
  addBlock(db, "empty", false);
  addExtendedData(db);
  db.setVariable("LTSCALE", 2.5);
  db.setVariable("INSBASE", Point3{1, 2, 3});
  db.setVariable("MENU", std::string("菜单"));
  db.setVariable("MEASUREMENT", 0);
  db.previews = {{1, std::string(80, '\0')}, {2, "picture"}};
  return made;
}

bool expectSameDrawing(const Database& a, const Database& b, bool withViewportHeaders) {
  const Handle headers = a.table(Table::ViewportHeaders).handle;
  std::size_t different = 0;
  EXPECT_EQ(a.objectCount(), b.objectCount());
  a.forEach([&](const Object& object) {
    if (!withViewportHeaders && object.handle == headers) return;
    const Object* other = b.find(object.handle);
    const bool same =
        other && other->kind == object.kind && encodeImage(*other) == encodeImage(object);
    if (!same) {
      ++different;
      ADD_FAILURE() << "object " << std::hex << object.handle << " of kind " << std::dec
                    << static_cast<int>(object.kind) << (other ? " differs" : " is gone");
    }
    if (!same || !isEntity(object.kind)) return;
    const auto& x = static_cast<const Entity&>(object);
    const auto& y = static_cast<const Entity&>(*other);
    EXPECT_EQ(x.previous ? x.previous->handle : 0, y.previous ? y.previous->handle : 0);
    EXPECT_EQ(x.next ? x.next->handle : 0, y.next ? y.next->handle : 0);
  });
  const auto table = variables();
  for (int i = 0; i < static_cast<int>(table.size()); ++i) {
    const auto& row = table[static_cast<std::size_t>(i)];
    const std::string_view name = row.name;
    if (name == "HANDSEED" || row.type == VariableType::Date) continue;
    if (!withViewportHeaders && name == "VIEWPORT_CONTROL") continue;
    EXPECT_EQ(a.header.at(i), b.header.at(i)) << row.name;
  }
  EXPECT_EQ(a.classes.size(), b.classes.size());
  EXPECT_EQ(a.codePage, b.codePage);
  EXPECT_EQ(a.previews, b.previews);
  EXPECT_EQ(a.modelSpace().count, b.modelSpace().count);
  return different == 0;
}

std::unique_ptr<Database> reread(const Database& database) {
  const auto bytes = writeDwg(database);
  EXPECT_TRUE(bytes.ok()) << bytes.message();
  ReadReport report;
  auto again = readDwg(*bytes, report);
  EXPECT_TRUE(again.ok()) << again.message();
  EXPECT_EQ(report.summary(), "");
  return again.ok() ? std::move(*again) : nullptr;
}

}  // namespace drafting
