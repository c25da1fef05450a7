// Entities of every kind under maps, their pictures as the judge; a drawing's content copied into
// another.
#include "embedded/drafting/database/transform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "embedded/drafting/database/clone.h"
#include "embedded/drafting/database/database.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/display/display_list.h"

namespace drafting {
namespace {

const Point3 kBy{10, 20, 30};

template <class T>
T moved(T entity) {
  EXPECT_TRUE(moveEntity(entity, kBy));
  return entity;
}

TEST(Moving, PointsInTheWorldMoveAsTold) {
  Line line;
  line.end = {1, 1, 1};
  const Line after = moved(line);
  EXPECT_EQ(after.start, kBy);
  EXPECT_EQ(after.end, (Point3{11, 21, 31}));
  EXPECT_EQ(moved(Point()).position, kBy);
  EXPECT_EQ(moved(Ellipse()).centre, kBy);
  EXPECT_EQ(moved(MText()).position, kBy);
}

TEST(Moving, FlatEntitiesKeepTheirHeightApart) {
  Solid solid;
  solid.corners = {Point2{0, 0}, Point2{1, 0}, Point2{0, 1}, Point2{1, 1}};
  const Solid after = moved(solid);
  EXPECT_EQ(after.corners[3], (Point2{11, 21}));
  EXPECT_EQ(after.elevation, 30);
  LwPolyline polyline;
  polyline.points = {{0, 0}, {5, 5}};
  EXPECT_EQ(moved(polyline).points[1], (Point2{15, 25}));
  const Text text = moved(Text());
  EXPECT_EQ(text.position, (Point2{10, 20}));
  EXPECT_EQ(text.alignment, (Point2{10, 20}));
  EXPECT_EQ(text.elevation, 30);
}

// Seen from below, object coordinates have x mirrored.
TEST(Moving, MirroredEntitiesMoveInTheirOwnCoordinates) {
  Circle circle;
  circle.normal = {0, 0, -1};
  EXPECT_EQ(moved(circle).centre, (Point3{-10, 20, -30}));
  Insert insert;
  insert.normal = {0, 0, -1};
  EXPECT_EQ(moved(insert).position, (Point3{-10, 20, -30}));
}

TEST(Moving, WhatIsNotUnderstoodStays) {
  RawEntity raw;
  EXPECT_FALSE(moveEntity(raw, kBy));
}

// --- maps

// Angles suit the 64 pieces of a full circle, so that its corners fall on corners.
const Map3 kTurn = Map3::rotation({3, 4, 0}, 7 * base::kPi / 32);
const Map3 kGrow = Map3::scaling({1, 2, 0}, 2.5);
const Map3 kMirror = Map3::mirror({0, 1}, base::polar({0, 1}, 9 * base::kPi / 64, 2));
const Map3 kAll = kMirror * Map3::translation({5, -3, 0}) * kGrow * kTurn;

// A drawing that holds one entity.
class Drawing {
 public:
  explicit Drawing(std::unique_ptr<Entity> entity) : database_(Database::makeNew()) {
    auto block = std::make_unique<BlockRecord>();
    block->name = "symbol";
    block->base = {1, 1, 0};
    const Handle symbol = database_->addBlock(std::move(block));
    auto line = std::make_unique<Line>();
    line->layer = layer();
    line->end = {7, 2, 0};
    database_->append(*database_->find<BlockRecord>(symbol), std::move(line));
    entity->layer = layer();
    if (entity->kind == Kind::Insert) static_cast<Insert&>(*entity).block = symbol;
    entity_ = database_->append(database_->modelSpace(), std::move(entity));
  }

  bool apply(const Map3& map) { return transformEntity(database_->edit<Entity>(entity_), map, {}); }

  // Corners of what is drawn; curves by many points, so that where they begin doesn't matter.
  std::vector<Point2> picture() const {
    const DisplayList list = DisplayList::of(*database_);
    std::vector<Point2> points;
    for (const auto& item : list.items()) {
      if (item.kind == DisplayList::Kind::Label) continue;
      const auto span = list.points(item);
      points.insert(points.end(), span.begin(), span.end());
    }
    return points;
  }

 private:
  Handle layer() const { return database_->findRecord(Table::Layers, "0"); }
  std::unique_ptr<Database> database_;
  Handle entity_ = 0;
};

// How far the picture of the mapped entity is from the mapped picture.
double farthest(std::unique_ptr<Entity> entity, const Map3& map) {
  const bool isHatch = entity->kind == Kind::Hatch;
  Drawing drawing(std::move(entity));
  std::vector<Point2> wanted;
  for (const Point2 p : drawing.picture()) {
    const Point3 to = map({p.x, p.y, 0});
    wanted.push_back({to.x, to.y});
  }
  EXPECT_FALSE(wanted.empty());
  EXPECT_TRUE(drawing.apply(map));
  const std::vector<Point2> found = drawing.picture();
  // Where a hatch's outlines touch, a point may count once more.
  if (!isHatch) {
    EXPECT_EQ(found.size(), wanted.size());
  }
  double worst = 0;
  for (const Point2 want : wanted) {
    double best = 1e9;
    for (const Point2 have : found) best = std::min(best, base::distance(want, have));
    worst = std::max(worst, best);
  }
  return worst;
}

// Nearly a half circle and its chord, the circle in one sense or the other.
Hatch::Path pathOfEdges(bool counterClockwise) {
  const double side = counterClockwise ? 1 : -1;
  Hatch::Edge arc;
  arc.form = Hatch::Edge::Form::Arc;
  arc.first = {10 * side, 3};
  arc.size = 2;
  arc.endAngle = 31.5 * base::kPi / 32;
  arc.counterClockwise = counterClockwise;
  Hatch::Edge chord;
  chord.first = {arc.first.x + 2 * std::cos(arc.endAngle),
                 arc.first.y + side * 2 * std::sin(arc.endAngle)};
  chord.second = {arc.first.x + 2, arc.first.y};
  Hatch::Path path;
  path.edges = {arc, chord};
  return path;
}

std::vector<std::unique_ptr<Entity>> oneOfEach() {
  std::vector<std::unique_ptr<Entity>> all;
  const auto add = [&all](auto entity) {
    all.push_back(std::make_unique<decltype(entity)>(std::move(entity)));
  };
  Line line;
  line.start = {1, 2, 0};
  line.end = {8, 3, 0};
  add(line);
  Point point;
  point.position = {4, 1, 0};
  add(point);
  Circle circle;
  circle.centre = {2, 2, 0};
  circle.radius = 3;
  add(circle);
  Arc arc;
  arc.centre = {2, 2, 0};
  arc.radius = 3;
  arc.startAngle = 0.3;
  arc.endAngle = 2;
  add(arc);
  arc.normal = {0, 0, -1};
  add(arc);
  Ellipse ellipse;
  ellipse.centre = {5, 5, 0};
  ellipse.majorAxis = {4, 1, 0};
  ellipse.ratio = 0.4;
  ellipse.startAngle = 0.5;
  ellipse.endAngle = 3;
  add(ellipse);
  Solid solid;
  solid.corners = {Point2{0, 0}, Point2{3, 0}, Point2{0, 2}, Point2{4, 5}};
  add(solid);
  Trace trace;
  trace.corners = solid.corners;
  add(trace);
  Spline spline;
  spline.fitPoints = {{0, 0, 0}, {3, 4, 0}, {7, -1, 0}};
  spline.startTangent = {1, 3, 0};
  add(spline);
  spline.degree = 2;
  spline.knots = {0, 0, 0, 1, 1, 1};
  spline.controls = {{1, 0, 0}, {4, 2, 0}, {2, 5, 0}};
  spline.weights = {1, 0.5, 1};
  add(spline);
  LwPolyline polyline;
  polyline.points = {{0, 0}, {5, 0}, {5, 5}};
  polyline.bulges = {0.5, -0.2, 0};
  polyline.closed = true;
  add(polyline);
  polyline.widths = {{0.5, 1}, {1, 0.2}, {0, 0}};
  add(polyline);
  Text text;
  text.position = {1, 1};
  text.height = 2;
  text.rotation = 0.4;
  text.oblique = 0.2;
  text.text = "F7";
  add(text);
  text.horizontal = 2;
  text.vertical = 3;
  text.alignment = {6, 2};
  add(text);
  Insert insert;
  insert.position = {3, 1, 0};
  insert.scale = {2, -1.5, 1};
  insert.rotation = 0.6;
  insert.isArray = true;
  insert.columns = 2;
  insert.rows = 3;
  insert.columnSpacing = 4;
  insert.rowSpacing = 5;
  add(insert);
  return all;
}

std::vector<std::unique_ptr<Entity>> hatches() {
  std::vector<std::unique_ptr<Entity>> all;
  const auto add = [&all](const Hatch& hatch) { all.push_back(std::make_unique<Hatch>(hatch)); };
  Hatch hatch;
  hatch.solid = true;
  Hatch::Path bulged;
  bulged.flags = 2;
  bulged.points = {{0, 0}, {6, 0}, {6, 4}};
  // Arcs of so many pieces and a half: rounding doesn't change into how many they are cut.
  const auto bulgeOf = [](double pieces) { return std::tan(pieces * base::kPi / 128); };
  bulged.bulges = {bulgeOf(12.5), 0, -bulgeOf(8.5)};
  hatch.paths = {bulged};
  add(hatch);
  hatch.paths = {pathOfEdges(true), pathOfEdges(false)};
  add(hatch);
  hatch.solid = false;
  bulged.bulges.clear();
  hatch.paths = {bulged};
  hatch.lines = {{0.3, {1.03, 0.21}, {-0.2, 0.7}, {}}};
  add(hatch);
  return all;
}

TEST(Transforms, PictureOfEachKindFollowsTheMap) {
  for (const Map3& map : {kTurn, kGrow, kMirror, kAll}) {
    for (auto& entity : oneOfEach()) {
      const Kind kind = entity->kind;
      EXPECT_LT(farthest(std::move(entity), map), 1e-6) << "kind " << static_cast<int>(kind);
    }
  }
}

// Its vertices are entities of their own, mapped with the plane that they had.
TEST(Transforms, VerticesOfAnOldPolylineFollowTheMap) {
  Polyline polyline;
  polyline.startWidth = 1;
  Vertex vertex;
  vertex.position = {4, 3, 0};
  vertex.bulge = 0.5;
  vertex.startWidth = 2;
  for (const Map3& map : {kTurn, kGrow, kMirror, kAll}) {
    Vertex mapped = vertex;
    ASSERT_TRUE(transformEntity(mapped, map));
    const Point3 wanted = map(vertex.position);
    EXPECT_NEAR(mapped.position.x, wanted.x, 1e-9);
    EXPECT_NEAR(mapped.position.y, wanted.y, 1e-9);
    const bool mirrored = &map == &kMirror || map.x.x * map.y.y - map.x.y * map.y.x < 0;
    EXPECT_EQ(mapped.bulge, mirrored ? -0.5 : 0.5);
    Polyline whole = polyline;
    ASSERT_TRUE(transformEntity(whole, map));
    EXPECT_NEAR(whole.startWidth * 2, mapped.startWidth, 1e-9);
  }
  vertex.form = Vertex::Form::Space;
  ASSERT_TRUE(transformEntity(vertex, Map3::translation(kBy)));
  EXPECT_EQ(vertex.position, (Point3{14, 23, 30}));
  const Map3 stretch{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}, {}};
  EXPECT_FALSE(transformEntity(polyline, stretch)) << "its arcs would be none";
}

TEST(Transforms, PictureOfHatchesFollowsTheMap) {
  for (const Map3& map : {kTurn, kGrow, kMirror, kAll}) {
    for (auto& hatch : hatches()) EXPECT_LT(farthest(std::move(hatch), map), 1e-6);
  }
}

TEST(Transforms, MirroredTwiceIsAsItWas) {
  for (auto& entity : oneOfEach()) {
    Drawing drawing(std::move(entity));
    const auto before = drawing.picture();
    EXPECT_TRUE(drawing.apply(kMirror));
    EXPECT_TRUE(drawing.apply(kMirror));
    const auto after = drawing.picture();
    ASSERT_EQ(before.size(), after.size());
    double worst = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
      worst = std::max(worst, base::distance(before[i], after[i]));
    EXPECT_LT(worst, 1e-6);
  }
}

TEST(Transforms, MirroredArcStillRunsCounterClockwise) {
  Arc arc;
  arc.radius = 1;
  arc.startAngle = 0;
  arc.endAngle = base::kPi / 2;
  ASSERT_TRUE(transformEntity(arc, Map3::mirror({0, 0}, {0, 1})));
  EXPECT_NEAR(arc.startAngle, base::kPi / 2, 1e-12);
  EXPECT_NEAR(arc.endAngle, base::kPi, 1e-12);
  EXPECT_EQ(arc.normal, kZAxis);
}

TEST(Transforms, ReadableTextChangesItsJustification) {
  Text text;
  text.position = {1, 2};
  text.height = 1;
  ASSERT_TRUE(transformEntity(text, Map3::mirror({0, 0}, {0, 1}), {.readableTexts = true}));
  EXPECT_EQ(text.generation, 0);
  EXPECT_EQ(text.horizontal, 2);
  EXPECT_EQ(text.alignment, (Point2{-1, 2}));
  EXPECT_NEAR(text.rotation, 0, 1e-12);
  ASSERT_TRUE(transformEntity(text, Map3::mirror({0, 0}, {0, 1}), {.readableTexts = true}));
  EXPECT_EQ(text.horizontal, 0);
  EXPECT_EQ(text.position, (Point2{1, 2}));

  ASSERT_TRUE(transformEntity(text, Map3::mirror({0, 0}, {1, 0}), {.readableTexts = true}));
  EXPECT_EQ(text.vertical, 3);
  EXPECT_EQ(text.alignment, (Point2{1, -2}));
  ASSERT_TRUE(transformEntity(text, Map3::mirror({0, 0}, {1, 0}), {.readableTexts = true}));
  EXPECT_EQ(text.vertical, 1);
}

TEST(Transforms, MirroredTextIsWrittenBackwardsOrUpsideDown) {
  Text text;
  text.height = 1;
  ASSERT_TRUE(transformEntity(text, Map3::mirror({0, 0}, {0, 1})));
  EXPECT_EQ(text.generation, 2);
  ASSERT_TRUE(transformEntity(text, Map3::mirror({0, 0}, {1, 0})));
  EXPECT_EQ(text.generation, 6);
}

TEST(Transforms, ParagraphStaysReadable) {
  MText text;
  text.attachment = 1;
  text.height = 2;
  ASSERT_TRUE(transformEntity(text, Map3::mirror({0, 0}, {0, 1})));
  EXPECT_EQ(text.attachment, 3);
  EXPECT_NEAR(text.xDirection.x, 1, 1e-12);
  ASSERT_TRUE(transformEntity(text, Map3::mirror({0, 0}, {1, 0}) * Map3::scaling({}, 3)));
  EXPECT_EQ(text.attachment, 9);
  EXPECT_NEAR(text.height, 6, 1e-12);
}

TEST(Transforms, WhatAKindCannotHoldIsRefusedAndChangesNothing) {
  const Map3 wide{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}, {}};
  const Map3 slanted{{1, 0, 0}, {1, 1, 0}, {0, 0, 1}, {}};
  const Map3 flat{{1, 0, 0}, {0, 0, 0}, {0, 0, 1}, {}};
  Circle circle;
  circle.radius = 1;
  EXPECT_FALSE(transformEntity(circle, wide));
  EXPECT_EQ(circle.radius, 1);
  Insert insert;
  EXPECT_TRUE(transformEntity(insert, wide));
  EXPECT_EQ(insert.scale, (Point3{2, 1, 1}));
  EXPECT_FALSE(transformEntity(insert, slanted));
  EXPECT_EQ(insert.scale, (Point3{2, 1, 1}));
  Line line;
  line.end = {1, 1, 0};
  EXPECT_TRUE(transformEntity(line, wide));
  EXPECT_EQ(line.end, (Point3{2, 1, 0}));
  EXPECT_FALSE(transformEntity(line, flat));
  EXPECT_EQ(line.end, (Point3{2, 1, 0}));
}

TEST(Transforms, ContentOfAnInsertStandsWhereItIsDrawn) {
  Insert insert;
  insert.position = {10, 20, 0};
  insert.scale = {2, 3, 1};
  insert.rotation = base::kPi / 2;
  const Point3 at = placeOfInsert(insert, {1, 1, 0})({2, 3, 0});
  EXPECT_NEAR(at.x, 4, 1e-12);
  EXPECT_NEAR(at.y, 22, 1e-12);
}

TEST(CloningMoved, BlocksContentKeepsItsPlaceWithinTheBlock) {
  const auto source = Database::makeNew();
  auto block = std::make_unique<BlockRecord>();
  block->name = "inner";
  const Handle inner = source->addBlock(std::move(block));
  auto line = std::make_unique<Line>();
  line->end = {1, 0, 0};
  line->layer = source->findRecord(Table::Layers, "0");
  source->append(*source->find<BlockRecord>(inner), std::move(line));
  auto insert = std::make_unique<Insert>();
  insert->block = inner;
  insert->layer = source->findRecord(Table::Layers, "0");
  source->append(source->modelSpace(), std::move(insert));

  const auto target = Database::makeNew();
  EXPECT_TRUE(cloneMoved(*target, *source, kBy).empty());
  const auto* placed = dynamic_cast<const Insert*>(target->modelSpace().first);
  ASSERT_NE(placed, nullptr);
  EXPECT_EQ(placed->position, kBy);
  const auto* record = target->find<BlockRecord>(placed->block);
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(dynamic_cast<const Line&>(*record->first).end, (Point3{1, 0, 0}));
}

}  // namespace
}  // namespace drafting
