// Splines: by control points with and without weights, and the smooth curve through fit points.
#include "embedded/drafting/display/splines.h"

#include "embedded/drafting/display/picture_fixture.h"

namespace drafting {
namespace {

// How far the nearest point of the path is.
double away(const Path& path, Point2 point) {
  double nearest = 1e9;
  for (const Point2 on : path) nearest = std::min(nearest, base::distance(on, point));
  return nearest;
}

// The direction from a point of the path to the next.
Point2 wayAt(const Path& path, std::size_t i) {
  const Point2 way = path[i + 1] - path[i];
  return way * (1 / length(way));
}

Spline through(std::vector<Point3> points) {
  Spline spline;
  spline.fitPoints = std::move(points);
  return spline;
}

TEST(Splines, WeightsMakeAQuarterOfACircle) {
  Spline quarter;
  quarter.degree = 2;
  quarter.rational = true;
  quarter.knots = {0, 0, 0, 1, 1, 1};
  quarter.controls = {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  quarter.weights = {1, std::sqrt(0.5), 1};
  const Path path = splinePath(quarter);
  ASSERT_GT(path.size(), 8u);
  for (const Point2 point : path) EXPECT_NEAR(length(point), 1, 1e-12);
}

TEST(Splines, CurveRunsThroughItsFitPoints) {
  const Spline spline = through({{0, 0, 0}, {3, 4, 0}, {7, -1, 0}, {12, 2, 0}});
  const Path path = splinePath(spline);
  for (const Point3& point : spline.fitPoints) EXPECT_LT(away(path, flat(point)), 1e-12);
}

// At a fit point the curve goes on in its direction and with its bend.
TEST(Splines, CurveIsSmoothAtItsFitPoints) {
  const Path path = splinePath(through({{0, 0, 0}, {3, 4, 0}, {7, -1, 0}}));
  const std::size_t joint = (path.size() - 1) / 2;
  const auto turn = [&path](std::size_t i) {
    return cross(wayAt(path, i - 1), wayAt(path, i)) / base::distance(path[i], path[i + 1]);
  };
  EXPECT_NEAR(turn(joint), (turn(joint - 1) + turn(joint + 1)) / 2, 0.05 * std::abs(turn(joint)));
}

TEST(Splines, EndsFollowTheTangents) {
  Spline spline = through({{0, 0, 0}, {10, 0, 0}});
  spline.startTangent = {0, 2, 0};
  spline.endTangent = {0, -1, 0};
  const Path path = splinePath(spline);
  EXPECT_GT(wayAt(path, 0).y, 0.9);
  EXPECT_LT(wayAt(path, path.size() - 2).y, -0.9);
  EXPECT_NEAR(path[path.size() / 2].y, 2.5, 1e-12) << "a cubic with speeds of one";
}

TEST(Splines, WithoutTangentsTwoPointsAreALine) {
  for (const Point2 point : splinePath(through({{0, 0, 0}, {10, 5, 0}}))) {
    EXPECT_NEAR(point.y, point.x / 2, 1e-12);
  }
}

TEST(Splines, RepeatedPointsCountOnce) {
  const Path path = splinePath(through({{0, 0, 0}, {0, 0, 0}, {4, 0, 0}, {4, 0, 0}}));
  EXPECT_EQ(path, splinePath(through({{0, 0, 0}, {4, 0, 0}})));
  EXPECT_EQ(splinePath(through({{1, 2, 3}, {1, 2, 3}})), Path{(Point2{1, 2})});
  EXPECT_TRUE(splinePath(Spline()).empty());
}

TEST(Splines, ControlPointsGoBeforeFitPoints) {
  Spline spline = through({{50, 50, 0}, {60, 60, 0}});
  spline.degree = 1;
  spline.knots = {0, 0, 1, 1};
  spline.controls = {{0, 0, 0}, {2, 1, 0}};
  EXPECT_EQ(splinePath(spline).front(), (Point2{0, 0}));
  EXPECT_EQ(splinePath(spline).back(), (Point2{2, 1}));
}

TEST_F(PictureTest, SplineIsAStrokeAndATraceAnArea) {
  add(through({{0, 0, 0}, {3, 4, 0}, {7, -1, 0}}));
  ASSERT_EQ(shown().items().size(), 1u);
  EXPECT_EQ(shown().items()[0].kind, DisplayList::Kind::Stroke);
  Trace trace;
  trace.corners = {Point2{0, 0}, Point2{0, 1}, Point2{5, 0}, Point2{5, 1}};
  add(trace);
  ASSERT_EQ(shown().items().size(), 2u);
  EXPECT_EQ(shown().items()[1].kind, DisplayList::Kind::Area);
}

}  // namespace
}  // namespace drafting
