// Hatches as areas and lines, with islands and every form of boundary.
#include "embedded/drafting/display/hatching.h"
#include "embedded/drafting/display/picture_fixture.h"
#include "embedded/drafting/display/splines.h"

namespace drafting {
namespace {

using Kind = DisplayList::Kind;
using Edge = Hatch::Edge;

Hatch::Path square(double from, double to) {
  Hatch::Path path;
  path.flags = 2;
  path.points = {{from, from}, {to, from}, {to, to}, {from, to}};
  return path;
}

Hatch::Path ofEdges(std::vector<Edge> edges) {
  Hatch::Path path;
  path.edges = std::move(edges);
  return path;
}

Edge lineEdge(Point2 from, Point2 to) {
  Edge edge;
  edge.first = from;
  edge.second = to;
  return edge;
}

double areaOf(std::span<const Point2> path) {
  double area = 0;
  for (std::size_t i = 0; i < path.size(); ++i) {
    const Point2 a = path[i], b = path[(i + 1) % path.size()];
    area += (a.x * b.y - b.x * a.y) / 2;
  }
  return area;
}

class Hatches : public PictureTest {
 protected:
  static Hatch solid(std::vector<Hatch::Path> paths) {
    Hatch hatch;
    hatch.solid = true;
    hatch.paths = std::move(paths);
    return hatch;
  }
  // Horizontal lines at a distance.
  static Hatch lines(std::vector<Hatch::Path> paths, double distance = 1, double angle = 0,
                     std::vector<double> dashes = {}) {
    Hatch hatch;
    hatch.paths = std::move(paths);
    const Point2 offset{-distance * std::sin(angle), distance * std::cos(angle)};
    hatch.lines = {{angle, {0, 0}, offset, std::move(dashes)}};
    return hatch;
  }
  double area() const {
    const DisplayList list = shown();
    double sum = 0;
    for (const auto& item : list.items()) {
      if (item.kind == Kind::Area) sum += areaOf(list.points(item));
    }
    return sum;
  }
  double lengthOfLines() const {
    const DisplayList list = shown();
    double sum = 0;
    for (const auto& item : list.items()) {
      const auto path = list.points(item);
      EXPECT_EQ(item.kind, Kind::Stroke);
      for (std::size_t i = 1; i < path.size(); ++i) sum += base::distance(path[i - 1], path[i]);
    }
    return sum;
  }
};

TEST_F(Hatches, SolidIsItsOutline) {
  add(solid({square(0, 10)}));
  ASSERT_EQ(shown().items().size(), 1u);
  EXPECT_EQ(shown().items()[0].kind, Kind::Area);
  EXPECT_EQ(area(), 100);
}

TEST_F(Hatches, IslandsAreLeftOutAndTheirIslandsFilled) {
  add(solid({square(0, 10), square(2, 8), square(4, 6)}));
  EXPECT_EQ(area(), 100 - 36 + 4);
}

TEST_F(Hatches, TheDirectionOfAPathDoesNotMatter) {
  Hatch::Path outer = square(0, 10);
  std::reverse(outer.points.begin(), outer.points.end());
  add(solid({outer, square(2, 8)}));
  EXPECT_EQ(area(), 64);
}

TEST_F(Hatches, OutermostStyleStopsAtTheFirstIsland) {
  Hatch hatch = solid({square(0, 10), square(2, 8), square(4, 6)});
  hatch.style = 1;
  add(hatch);
  EXPECT_EQ(area(), 64);
}

TEST_F(Hatches, IgnoringStyleFillsIslandsToo) {
  Hatch hatch = solid({square(0, 10), square(2, 8), square(4, 6)});
  hatch.style = 2;
  add(hatch);
  EXPECT_EQ(area(), 100);
}

TEST_F(Hatches, AreasSideBySideAreBothFilled) {
  add(solid({square(0, 2), square(5, 7)}));
  EXPECT_EQ(area(), 8);
}

TEST_F(Hatches, PolylinePathsHaveBulges) {
  Hatch::Path round;
  round.flags = 2;
  round.points = {{-2, 0}, {2, 0}};
  round.bulges = {1, 1};
  add(solid({round}));
  EXPECT_NEAR(area(), 4 * base::kPi, 0.05);
  expectBox(shown().bounds(), {-2, -2}, {2, 2}, 1e-9);
}

TEST_F(Hatches, ArcsRunEitherWay) {
  Edge arc;
  arc.form = Edge::Form::Arc;
  arc.size = 2;
  arc.endAngle = base::kPi;
  add(solid({ofEdges({arc, lineEdge({-2, 0}, {2, 0})})}));
  EXPECT_NEAR(area(), 2 * base::kPi, 0.02);
  expectBox(shown().bounds(), {-2, 0}, {2, 2}, 1e-9);
  // Clockwise its angles are counted clockwise too: the lower half.
  db = Database::makeNew();
  arc.counterClockwise = false;
  add(solid({ofEdges({arc, lineEdge({-2, 0}, {2, 0})})}));
  expectBox(shown().bounds(), {-2, -2}, {2, 0}, 1e-9);
}

TEST_F(Hatches, EllipsesHaveTheirAxes) {
  Edge ellipse;
  ellipse.form = Edge::Form::Ellipse;
  ellipse.first = {1, 1};
  ellipse.second = {0, 4};
  ellipse.size = 0.5;
  ellipse.endAngle = 2 * base::kPi;
  add(solid({ofEdges({ellipse})}));
  expectBox(shown().bounds(), {-1, -3}, {3, 5}, 1e-9);
  EXPECT_NEAR(area(), 8 * base::kPi, 0.05);
}

TEST_F(Hatches, SplinesAreCurves) {
  Edge spline;
  spline.form = Edge::Form::Spline;
  spline.degree = 2;
  spline.knots = {0, 0, 0, 1, 1, 1};
  spline.controls = {{0, 0}, {1, 2}, {2, 0}};
  add(solid({ofEdges({spline, lineEdge({2, 0}, {0, 0})})}));
  EXPECT_NEAR(area(), 4.0 / 3, 0.02);  // of the parabola over its chord
  expectBox(shown().bounds(), {0, 0}, {2, 1}, 1e-9);
}

TEST_F(Hatches, ARationalSplineIsAPartOfACircle) {
  Edge spline;
  spline.form = Edge::Form::Spline;
  spline.degree = 2;
  spline.rational = true;
  spline.knots = {0, 0, 0, 1, 1, 1};
  spline.controls = {{1, 0}, {1, 1}, {0, 1}};
  spline.weights = {1, std::sqrt(0.5), 1};
  for (const Point2 point : splinePath({2, spline.knots, spline.controls, spline.weights})) {
    EXPECT_NEAR(length(point), 1, 1e-9);
  }
}

TEST_F(Hatches, LinesRunFromEdgeToEdge) {
  add(lines({square(0, 10)}, 1));
  EXPECT_NEAR(lengthOfLines(), 100, 1e-9);
  expectBox(shown().bounds(), {0, 0}, {10, 9}, 1e-9);
}

TEST_F(Hatches, LinesLeaveIslandsOut) {
  add(lines({square(0, 10), square(2, 8)}, 0.5));
  EXPECT_NEAR(lengthOfLines() * 0.5, 64, 1e-9);
}

TEST_F(Hatches, SlantedLinesFillTheArea) {
  add(lines({square(0, 10)}, 0.1, base::radians(45)));
  EXPECT_NEAR(lengthOfLines() * 0.1, 100, 1);
}

TEST_F(Hatches, DashesStandInLineWithTheBasePoint) {
  Hatch hatch = lines({square(0, 10)}, 20, 0, {2, -2});
  hatch.lines[0].base = {1, 5};
  add(hatch);
  const DisplayList list = shown();
  std::vector<double> starts;
  for (const auto& item : list.items()) starts.push_back(list.points(item).front().x);
  EXPECT_EQ(starts, (std::vector<double>{1, 5, 9}));
  EXPECT_NEAR(lengthOfLines(), 5, 1e-9);
}

TEST_F(Hatches, ADashOfNoLengthIsADot) {
  Hatch hatch = lines({square(0, 10)}, 20, 0, {0, -4});
  hatch.lines[0].base = {1, 5};
  add(hatch);
  ASSERT_EQ(shown().items().size(), 3u);
  EXPECT_EQ(points(0), (std::vector<Point2>{{1, 5}}));
}

TEST_F(Hatches, LinesTooCloseToTellApartAreAnArea) {
  add(lines({square(0, 10)}, 1e-7));
  EXPECT_EQ(area(), 100);
}

TEST_F(Hatches, HostileBoundariesAndPatternsComeToAnEnd) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Hatch::Path huge = square(-1e40, 1e40), odd = square(0, 1);
  odd.points[1].x = nan;
  Edge spline;
  spline.form = Edge::Form::Spline;
  spline.degree = 1000000;
  spline.controls = {{0, 0}, {1, 0}, {0, 1}};
  spline.knots = {3, 2, 1};
  add(solid({odd, ofEdges({spline}), ofEdges({}), square(1, 1)}));
  add(lines({huge}, 1e-3, 0, {1e-300, -1e-300}));
  add(lines({square(0, 10)}, 1, 0, {nan, 1, -1}));
  add(lines({square(1e20, 2e20)}, 1e18, 0.3, {1e-3, -1e-3}));
  Hatch still = lines({square(0, 10)});
  still.lines[0].offset = {0, 0};
  add(still);
  const DisplayList list = shown();
  EXPECT_GT(list.items().size(), 0u);
}

TEST_F(Hatches, AReversedNormalMirrorsTheHatch) {
  Hatch hatch = solid({square(1, 2)});
  hatch.normal = {0, 0, -1};
  add(hatch);
  expectBox(shown().bounds(), {-2, 1}, {-1, 2});
}

}  // namespace
}  // namespace drafting
