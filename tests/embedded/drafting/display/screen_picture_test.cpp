// Pictures behind a moving window, and the pixels they are drawn with.
#include "embedded/drafting/display/screen_picture.h"

#include "embedded/drafting/display/picture_fixture.h"
#include "embedded/drafting/display/screen_bitmap.h"

namespace drafting {
namespace {

constexpr base::Rgb kWhite{255, 255, 255}, kRed{255, 0, 0};

// Counts what is drawn.
struct CountingCanvas : base::Canvas {
  void stroke(std::span<const Point2>, base::Rgb, double) override { ++strokes; }
  void fill(std::span<const Point2>, base::Rgb) override { ++fills; }
  int strokes = 0, fills = 0;
};

class Screen : public PictureTest {
 protected:
  static Box2 box(double x1, double y1, double x2, double y2) {
    Box2 box;
    box.add(Point2{x1, y1});
    box.add(Point2{x2, y2});
    return box;
  }
  int drawn(const Affine2& map, const Box2& window) const {
    CountingCanvas canvas;
    picture.draw(map, window, {}, canvas);
    return canvas.strokes + canvas.fills;
  }
  // A thousand lines of 1 by 1, ten apart.
  void addField() {
    for (int i = 0; i < 1000; ++i) {
      const int column = i % 40, row = i / 40;
      const double x = column * 10.0, y = row * 10.0;
      add(line(x, y, x + 1, y + 1));
    }
  }
  ScreenPicture picture;
};

TEST_F(Screen, DrawsOnlyWhatTheWindowShows) {
  addField();
  picture.rebuild(*db);
  EXPECT_EQ(picture.entityCount(), 1000u);
  const Affine2 map = Affine2::scaling(10, 10);
  EXPECT_EQ(drawn(map, box(0, 0, 4000, 2500)), 1000);
  EXPECT_EQ(drawn(map, box(95, 95, 125, 125)), 1);
  EXPECT_EQ(drawn(map, box(112, 112, 195, 195)), 0);
}

TEST_F(Screen, EntitiesInABoxComeInDrawingOrder) {
  addField();
  picture.rebuild(*db);
  const std::vector<Handle> found = picture.entitiesIn(box(0, 0, 20.5, 0.5));
  ASSERT_EQ(found.size(), 3u);
  EXPECT_TRUE(std::is_sorted(found.begin(), found.end()));
  EXPECT_TRUE(picture.entitiesIn(box(2, 2, 9, 9)).empty());
  EXPECT_TRUE(picture.entitiesIn({}).empty());
}

TEST_F(Screen, FollowsChangesEntityByEntity) {
  addField();
  picture.rebuild(*db);
  const Handle first = db->modelSpace().first->handle, last = db->lastEntity();
  db->edit<Line>(first).end = {2000, 2000, 0};  // beyond the picture so far
  db->erase(last);
  add(line(5, 5, 6, 6));
  const std::vector<Handle> changed = {first, last, db->lastEntity(), 0, 999999};
  picture.update(*db, changed);
  EXPECT_EQ(picture.entityCount(), 1000u);
  EXPECT_EQ(picture.entitiesIn(box(1500, 1500, 1600, 1600)), std::vector<Handle>{first});
  EXPECT_EQ(picture.entitiesIn(box(5.1, 5.9, 5.2, 5.95)),
            (std::vector<Handle>{first, db->lastEntity()}));
  EXPECT_EQ(picture.entitiesIn(box(390.2, 240.2, 390.4, 240.4)), std::vector<Handle>{first});
  EXPECT_EQ(picture.bounds().max, (Point2{2000, 2000}));
}

TEST_F(Screen, ManyChangesOfOneEntityDoNotPileUp) {
  const Handle handle = (addField(), db->lastEntity());
  picture.rebuild(*db);
  for (int i = 0; i < 5000; ++i) {
    db->edit<Line>(handle).end = {i * 1.0, 0, 0};
    picture.update(*db, std::vector<Handle>{handle});
  }
  EXPECT_EQ(picture.entityCount(), 1000u);
  EXPECT_EQ(drawn(Affine2::scaling(100, 100), box(500000, -10, 500100, 10)), 0);
  EXPECT_EQ(picture.entitiesIn(box(4990, 0, 4998, 300)), std::vector<Handle>{handle});
}

TEST_F(Screen, FarAwayAnEntityIsADot) {
  add(text("ABCDEFGH", 2.5));
  picture.rebuild(*db);
  EXPECT_GT(drawn(Affine2::scaling(10, 10), box(-10, -10, 1000, 1000)), 8);
  EXPECT_EQ(drawn(Affine2::scaling(0.01, 0.01), box(-10, -10, 1000, 1000)), 1);
}

TEST_F(Screen, OddMapsAndWindowsDrawNothing) {
  addField();
  picture.rebuild(*db);
  EXPECT_EQ(drawn(Affine2::scaling(0, 0), box(0, 0, 10, 10)), 0);
  EXPECT_EQ(drawn(Affine2::scaling(1, 1), {}), 0);
  ScreenPicture empty;
  empty.rebuild(*Database::makeNew());
  CountingCanvas canvas;
  empty.draw({}, box(0, 0, 10, 10), {}, canvas);
  EXPECT_EQ(canvas.strokes, 0);
}

class Pixels : public ::testing::Test {
 protected:
  int redOnes() const {
    int count = 0;
    for (int y = 0; y < bitmap.height(); ++y) {
      for (int x = 0; x < bitmap.width(); ++x) count += bitmap.at(x, y) == kRed ? 1 : 0;
    }
    return count;
  }
  void stroke(std::vector<Point2> points, double width = 1) { bitmap.stroke(points, kRed, width); }
  void SetUp() override { bitmap.clear(kWhite); }
  ScreenBitmap bitmap{20, 10};
};

TEST_F(Pixels, LineRunsFromEndToEnd) {
  stroke({{2.5, 3.5}, {9.5, 3.5}});
  EXPECT_EQ(redOnes(), 8);
  EXPECT_EQ(bitmap.at(2, 6), kRed);  // rows are counted from the top
  EXPECT_EQ(bitmap.at(9, 6), kRed);
  EXPECT_EQ(bitmap.at(10, 6), kWhite);
}

TEST_F(Pixels, SinglePointIsAPixel) {
  stroke({{0, 0}});
  EXPECT_EQ(redOnes(), 1);
  EXPECT_EQ(bitmap.at(0, 9), kRed);
}

TEST_F(Pixels, LinesAreCutAtTheBorder) {
  stroke({{-1e12, 5.5}, {1e12, 5.5}});
  EXPECT_EQ(redOnes(), 20);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  stroke({{nan, 1}, {2, nan}, {infinite, 3}, {-infinite, 3}, {500, 500}});
  EXPECT_EQ(redOnes(), 20);
}

TEST_F(Pixels, AreaIsFilledToItsBorder) {
  const std::vector<Point2> square = {{2, 2}, {7.9, 2}, {7.9, 7.9}, {2, 7.9}};
  bitmap.fill(square, kRed);
  EXPECT_EQ(redOnes(), 36);
}

TEST_F(Pixels, AreaLeavesItsIslandOut) {
  const std::vector<Point2> ring = {{1, 1}, {8.9, 1}, {8.9, 8.9}, {1, 8.9}, {1, 1},
                                    {3, 3}, {3, 6.9}, {6.9, 6.9}, {6.9, 3}, {3, 3}};
  bitmap.fill(ring, kRed);
  EXPECT_EQ(bitmap.at(5, 5), kWhite);
  EXPECT_EQ(bitmap.at(1, 5), kRed);
}

TEST_F(Pixels, WideLineIsAnArea) {
  stroke({{4, 5}, {10, 5}}, 4);
  EXPECT_EQ(bitmap.at(7, 3), kRed);
  EXPECT_EQ(bitmap.at(7, 6), kRed);
  EXPECT_EQ(bitmap.at(7, 9), kWhite);
}

TEST_F(Pixels, HostileAreasComeToAnEnd) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  bitmap.fill(std::vector<Point2>{{-1e300, -1e300}, {1e300, 0}, {0, 1e300}}, kRed);
  bitmap.fill(std::vector<Point2>{{nan, 0}, {10, nan}, {nan, nan}}, kRed);
  bitmap.fill({}, kRed);
  EXPECT_GE(redOnes(), 0);
}

}  // namespace
}  // namespace drafting
