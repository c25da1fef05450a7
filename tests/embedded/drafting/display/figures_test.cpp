// Entities as strokes and areas.
#include "embedded/drafting/display/curves.h"
#include "embedded/drafting/display/picture_fixture.h"

namespace drafting {
namespace {

using Kind = DisplayList::Kind;
using Figures = PictureTest;

TEST_F(Figures, LineIsOneStroke) {
  add(line(1, 2, 3, 4));
  ASSERT_EQ(shown().items().size(), 1u);
  EXPECT_EQ(shown().items()[0].kind, Kind::Stroke);
  EXPECT_EQ(points(), (std::vector<Point2>{{1, 2}, {3, 4}}));
}

TEST_F(Figures, PointIsADot) {
  Point point;
  point.position = {5, 6, 0};
  add(point);
  EXPECT_EQ(points(), (std::vector<Point2>{{5, 6}}));
}

TEST_F(Figures, CircleClosesAndKeepsItsRadius) {
  Circle circle;
  circle.centre = {10, 0, 0};
  circle.radius = 4;
  add(circle);
  const auto path = points();
  ASSERT_EQ(path.size(), 65u);
  expectNear(path.front(), path.back());
  for (const Point2 point : path) EXPECT_NEAR(base::distance(point, {10, 0}), 4, 1e-9);
}

TEST_F(Figures, CurvesTakeAsManyPiecesAsTheToleranceAsks) {
  Circle circle;
  circle.radius = 100;
  add(circle);
  options.tolerance = 0.01;
  const auto path = points();
  const double middle = length((path[0] + path[1]) * 0.5);
  EXPECT_GT(middle, 100 - 0.0101);
  EXPECT_LT(middle, 100 - 0.005);
}

TEST_F(Figures, ArcRunsCounterClockwiseThroughAngleZero) {
  Arc arc;
  arc.radius = 2;
  arc.startAngle = base::radians(270);
  arc.endAngle = base::radians(90);
  add(arc);
  const auto path = points();
  expectNear(path.front(), {0, -2});
  expectNear(path[path.size() / 2], {2, 0}, 0.11);
  expectNear(path.back(), {0, 2});
}

TEST_F(Figures, ArcOfAReversedNormalIsMirrored) {
  Arc arc;
  arc.centre = {10, 0, 0};
  arc.radius = 2;
  arc.startAngle = 0;
  arc.endAngle = base::radians(90);
  arc.normal = {0, 0, -1};
  add(arc);
  expectNear(points().front(), {-12, 0});
  expectNear(points().back(), {-10, 2});
}

TEST_F(Figures, EllipseReachesItsAxes) {
  Ellipse ellipse;
  ellipse.centre = {1, 1, 0};
  ellipse.majorAxis = {0, 4, 0};
  ellipse.ratio = 0.5;
  ellipse.endAngle = 2 * base::kPi;
  add(ellipse);
  expectBox(shown().bounds(), {-1, -3}, {3, 5});
}

TEST_F(Figures, SolidRunsRoundItsCorners) {
  Solid solid;
  solid.corners = {Point2{0, 0}, {2, 0}, {0, 1}, {2, 1}};
  add(solid);
  EXPECT_EQ(shown().items()[0].kind, Kind::Area);
  EXPECT_EQ(points(), (std::vector<Point2>{{0, 0}, {2, 0}, {2, 1}, {0, 1}}));
}

TEST_F(Figures, WidePolylineIsAnAreaWithMitredCorners) {
  add(polyline({{0, 0}, {10, 0}, {10, 10}}, 2));
  ASSERT_EQ(shown().items().size(), 1u);
  EXPECT_EQ(shown().items()[0].kind, Kind::Area);
  const std::vector<Point2> wanted = {{0, 1}, {9, 1}, {9, 10}, {11, 10}, {11, -1}, {0, -1}};
  const auto got = points();
  ASSERT_EQ(got.size(), wanted.size());
  for (std::size_t i = 0; i < got.size(); ++i) expectNear(got[i], wanted[i]);
}

TEST_F(Figures, ClosedWidePolylineIsARing) {
  LwPolyline square = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, 2);
  square.closed = true;
  add(square);
  expectBox(shown().bounds(), {-1, -1}, {11, 11});
  EXPECT_EQ(points().size(), 10u);  // outer and inner edge, each closed
}

TEST_F(Figures, TaperedSegmentRunsFromWidthToWidth) {
  LwPolyline arrow = polyline({{0, 0}, {10, 0}});
  arrow.widths = {{4, 0}, {0, 0}};
  add(arrow);
  EXPECT_EQ(points(), (std::vector<Point2>{{0, 2}, {10, 0}, {10, 0}, {0, -2}}));
}

TEST_F(Figures, PolylineBreaksWhereItsWidthJumps) {
  LwPolyline arrow = polyline({{0, 0}, {10, 0}, {14, 0}});
  arrow.widths = {{0, 0}, {4, 0}, {0, 0}};
  add(arrow);
  const DisplayList list = shown();
  ASSERT_EQ(list.items().size(), 2u);
  EXPECT_EQ(list.items()[0].kind, Kind::Stroke);
  EXPECT_EQ(list.items()[1].kind, Kind::Area);
}

TEST_F(Figures, BulgeOfOneIsAHalfCircleToTheRightOfItsChord) {
  LwPolyline half = polyline({{0, 0}, {2, 0}});
  half.bulges = {1, 0};
  add(half);
  expectBox(shown().bounds(), {0, -1}, {2, 0}, 0.01);
  half.bulges = {-1, 0};
  db = Database::makeNew();
  add(half);
  expectBox(shown().bounds(), {0, 0}, {2, 1}, 0.01);
}

TEST_F(Figures, LargeBulgeIsMoreThanAHalfCircle) {
  LwPolyline polyline_ = polyline({{0, 0}, {2, 0}});
  polyline_.bulges = {std::tan(base::radians(270) / 4), 0};
  add(polyline_);
  const double radius = std::sqrt(2.0);
  expectBox(shown().bounds(), {1 - radius, -1 - radius}, {1 + radius, 0}, 0.02);
}

TEST_F(Figures, ClosedPolylineReturnsToItsStart) {
  LwPolyline triangle = polyline({{0, 0}, {1, 0}, {0, 1}});
  triangle.closed = true;
  add(triangle);
  EXPECT_EQ(points(), (std::vector<Point2>{{0, 0}, {1, 0}, {0, 1}, {0, 0}}));
}

TEST_F(Figures, RepeatedVerticesAndSinglePointsDoNoHarm) {
  add(polyline({{1, 1}, {1, 1}, {1, 1}}, 2));
  add(polyline({{3, 3}}, 2));
  add(polyline({}, 2));
  EXPECT_EQ(points(), (std::vector<Point2>{{3, 3}}));
}

TEST_F(Figures, CoordinatesThatAreNoNumbersAreLeftOut) {
  add(line(0, 0, std::nan(""), 1));
  add(line(0, 0, HUGE_VAL, 1));
  add(line(0, 0, 1e300, 1));
  LwPolyline odd = polyline({{0, 0}, {1, 0}}, HUGE_VAL);
  odd.bulges = {std::nan(""), 0};
  add(odd);
  add(line(0, 0, 1, 1));
  EXPECT_EQ(shown().items().size(), 1u);
  expectBox(shown().bounds(), {0, 0}, {1, 1});
}

TEST_F(Figures, AnglesThatAreNoNumbersDoNoHarm) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double angle : {nan, infinite, -infinite, 1e300}) {
    Arc arc;
    arc.radius = 2;
    arc.startAngle = angle;
    add(arc);
    arc.endAngle = angle;
    add(arc);
    Ellipse ellipse;
    ellipse.majorAxis = {1, 0, 0};
    ellipse.endAngle = angle;
    add(ellipse);
  }
  const DisplayList list = shown();
  ASSERT_EQ(list.chunks().size(), db->modelSpace().count);
  for (const auto& chunk : list.chunks()) {
    EXPECT_TRUE(chunk.box.empty() || std::isfinite(chunk.box.width()));
  }
}

TEST_F(Figures, EntitiesThatAreNotUnderstoodAreCounted) {
  RawEntity raw;
  raw.type = 0x1D;  // a polygon mesh
  add(raw);
  add(raw);
  ASSERT_EQ(shown().notShown().size(), 1u);
  EXPECT_EQ(shown().notShown().begin()->second, 2);
}

TEST(Sweep, EqualAnglesAreAFullTurn) {
  EXPECT_DOUBLE_EQ(sweepOf(1, 1), 2 * base::kPi);
  EXPECT_NEAR(sweepOf(base::radians(350), base::radians(10)), base::radians(20), 1e-12);
}

}  // namespace
}  // namespace drafting
