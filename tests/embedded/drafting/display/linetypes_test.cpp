// Linetypes drawn with their dashes.
#include "embedded/drafting/display/dashes.h"
#include "embedded/drafting/display/picture_fixture.h"

namespace drafting {
namespace {

using Kind = DisplayList::Kind;

class Linetypes : public PictureTest {
 protected:
  Handle linetype(const std::string& name, const std::vector<double>& lengths) {
    auto record = std::make_unique<Linetype>();
    record->name = name;
    for (const double length : lengths) {
      record->dashes.push_back({length});
      record->patternLength += std::abs(length);
    }
    return db->addRecord(Table::Linetypes, std::move(record));
  }
  // Start and end of each dash, by x.
  std::vector<std::pair<double, double>> dashes() const {
    std::vector<std::pair<double, double>> out;
    const DisplayList list = shown();
    for (const auto& item : list.items()) {
      const auto path = list.points(item);
      out.emplace_back(path.front().x, path.back().x);
    }
    return out;
  }
  using Dashes = std::vector<std::pair<double, double>>;
};

TEST_F(Linetypes, LineBeginsAndEndsWithPartsOfTheFirstDash) {
  Line dashed = line(0, 0, 10, 0);
  dashed.linetype = linetype("DASHED", {2, -1});
  add(dashed);
  EXPECT_EQ(dashes(), (Dashes{{0, 1.5}, {2.5, 4.5}, {5.5, 7.5}, {8.5, 10}}));
}

TEST_F(Linetypes, DotsAreSinglePoints) {
  Line dotted = line(0, 0, 7, 0);
  dotted.linetype = linetype("DASHDOT", {2, -1, 0, -1});
  add(dotted);
  EXPECT_EQ(dashes(), (Dashes{{0, 2.5}, {3.5, 3.5}, {4.5, 7}}));
  EXPECT_EQ(points(1).size(), 1u);
}

TEST_F(Linetypes, LineShorterThanThePatternIsWhole) {
  Line dashed = line(0, 0, 2.9, 0);
  dashed.linetype = linetype("DASHED", {2, -1});
  add(dashed);
  EXPECT_EQ(dashes(), (Dashes{{0, 2.9}}));
}

TEST_F(Linetypes, ScalesOfDrawingAndEntityMultiply) {
  Line dashed = line(0, 0, 60, 0);
  dashed.linetype = linetype("DASHED", {2, -1});
  dashed.linetypeScale = 5;
  db->setVariable("LTSCALE", 2.0);
  add(dashed);
  EXPECT_EQ(dashes(), (Dashes{{0, 10}, {20, 40}, {50, 60}}));
}

TEST_F(Linetypes, ComesFromTheLayer) {
  Layer& dashed = layer("DASHED", 1);
  dashed.linetype = linetype("DASHED", {2, -1});
  add(db->modelSpace(), line(0, 0, 6, 0), dashed.handle);
  EXPECT_EQ(dashes().size(), 3u);
}

TEST_F(Linetypes, ByBlockComesFromTheInsertThroughAllBlocks) {
  const Handle dashed = linetype("DASHED", {2, -1});
  BlockRecord& inner = block("INNER");
  BlockRecord& outer = block("OUTER");
  Line byBlock = line(0, 0, 6, 0);
  byBlock.linetype = kByBlock;
  add(inner, byBlock);
  add(inner, line(0, 5, 6, 5));
  Insert nested = insertOf(inner, {0, 0});
  nested.linetype = kByBlock;
  add(outer, nested);
  Insert insert = insertOf(outer, {0, 0});
  insert.linetype = dashed;
  add(insert);
  EXPECT_EQ(dashes(), (Dashes{{0, 1}, {2, 4}, {5, 6}, {0, 6}}));
  db->edit<Insert>(db->lastEntity()).linetype = kContinuous;
  EXPECT_EQ(dashes(), (Dashes{{0, 6}, {0, 6}}));
}

TEST_F(Linetypes, DashesGrowWithTheirBlock) {
  BlockRecord& part = block("PART");
  Line dashed = line(0, 0, 6, 0);
  dashed.linetype = linetype("DASHED", {2, -1});
  add(part, dashed);
  Insert insert = insertOf(part, {0, 0});
  insert.scale = {10, 10, 10};
  add(insert);
  EXPECT_EQ(dashes(), (Dashes{{0, 10}, {20, 40}, {50, 60}}));
}

TEST_F(Linetypes, PolylineBeginsAnewAtEachVertexUnlessItsPatternRunsThrough) {
  LwPolyline corner = polyline({{0, 0}, {4, 0}, {4, 4}});
  corner.linetype = linetype("DASHED", {2, -1});
  add(corner);
  EXPECT_EQ(shown().items().size(), 4u);
  EXPECT_EQ(points(1).back(), (Point2{4, 0}));
  db->edit<LwPolyline>(db->lastEntity()).continuousPattern = true;
  const DisplayList list = shown();
  ASSERT_EQ(list.items().size(), 3u);
  const auto middle = list.points(list.items()[1]);
  EXPECT_EQ(std::vector<Point2>(middle.begin(), middle.end()),
            (std::vector<Point2>{{3, 0}, {4, 0}, {4, 1}}));
}

TEST_F(Linetypes, DashesOfAWidePolylineAreAreas) {
  LwPolyline bus = polyline({{0, 0}, {6, 0}}, 1);
  bus.linetype = linetype("DASHED", {2, -1});
  add(bus);
  const DisplayList list = shown();
  ASSERT_EQ(list.items().size(), 3u);
  for (const auto& item : list.items()) EXPECT_EQ(item.kind, Kind::Area);
  EXPECT_EQ(points(1), (std::vector<Point2>{{2, 0.5}, {4, 0.5}, {4, -0.5}, {2, -0.5}}));
}

TEST_F(Linetypes, CurvesAreCutAlongTheirLength) {
  Circle circle;
  circle.radius = 100;
  circle.linetype = linetype("DASHED", {20, -10});
  add(circle);
  const DisplayList list = shown();
  double drawn = 0;
  for (const auto& item : list.items()) {
    const auto path = list.points(item);
    for (std::size_t i = 1; i < path.size(); ++i) drawn += base::distance(path[i - 1], path[i]);
  }
  EXPECT_NEAR(drawn / (200 * base::kPi), 2.0 / 3, 0.02);
}

TEST_F(Linetypes, TextsAreNotCut) {
  Text word = text("I");
  word.linetype = linetype("DASHED", {0.01, -0.01});
  add(word);
  const std::size_t cut = shown().items().size();
  db->edit<Text>(db->lastEntity()).linetype = kContinuous;
  EXPECT_EQ(shown().items().size(), cut);
}

TEST_F(Linetypes, PatternsThatNobodyCouldDrawAreContinuous) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const std::vector<std::vector<double>> hostile = {
      {0, 0}, {0, -0.0}, {1, 2}, {-1e-300, 0}, {nan, -1}, {1e308, -1e308}, {1e-9, -1e-9}};
  for (const auto& lengths : hostile) {
    db = Database::makeNew();
    Line dashed = line(0, 0, 10, 0);
    dashed.linetype = linetype("ODD", lengths);
    add(dashed);
    EXPECT_EQ(dashes(), (Dashes{{0, 10}})) << lengths[0] << " " << lengths[1];
  }
}

TEST_F(Linetypes, OnlyGapsLeaveALine) {
  Line dashed = line(0, 0, 10, 0);
  dashed.linetype = linetype("GAPS", {-1, -1});
  add(dashed);
  EXPECT_TRUE(dashes().empty());
}

TEST(Dashes, WayOfNoLengthIsWhole) {
  Linetype linetype;
  linetype.dashes = {{1}, {-1}};
  DashPattern pattern;
  pattern.set(linetype, 1);
  const std::vector<Station> way = {{{1, 1}, 0}, {{1, 1}, 0}};
  int count = 0;
  cutIntoDashes(way, pattern, [&](std::span<const Station> dash) {
    ++count;
    EXPECT_EQ(dash.size(), 2u);
  });
  EXPECT_EQ(count, 1);
}

}  // namespace
}  // namespace drafting
