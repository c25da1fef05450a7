// Boxes, polygons and fences against paths and areas.
#include "embedded/drafting/picking/region.h"

#include <gtest/gtest.h>

#include <array>

namespace drafting {
namespace {

using Path = std::vector<Point2>;

TEST(Regions, BoxContainsItsEdge) {
  const Region box = Region::box({10, 0}, {0, 5});
  EXPECT_TRUE(box.contains({0, 0}));
  EXPECT_TRUE(box.contains({10, 5}));
  EXPECT_FALSE(box.contains({10.001, 5}));
}

TEST(Regions, PathThatOnlyPassesMeetsTheBox) {
  const Region box = Region::box({0, 0}, {10, 10});
  EXPECT_TRUE(box.meetsPath(Path{{-5, 5}, {20, 5}}));
  EXPECT_TRUE(box.meetsPath(Path{{-1, 1}, {1, -1}}));
  EXPECT_FALSE(box.meetsPath(Path{{-2, 1}, {1, -2}}));
  EXPECT_TRUE(box.meetsPath(Path{{3, 3}}));
  EXPECT_FALSE(box.meetsPath(Path{{11, 3}}));
  EXPECT_FALSE(box.containsPath(Path{{-5, 5}, {5, 5}}));
}

TEST(Regions, AreaAroundTheBoxMeetsIt) {
  const Region box = Region::box({4, 4}, {5, 5});
  const Path outline{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  EXPECT_TRUE(box.meetsArea(outline));
  EXPECT_FALSE(box.meetsPath(outline));
  EXPECT_FALSE(Region::box({20, 20}, {21, 21}).meetsArea(outline));
  EXPECT_FALSE(box.meetsArea({}));
}

// A path over the gap of a "U" begins and ends inside and is outside in between.
TEST(Regions, BentPolygonDoesNotContainWhatLeavesIt) {
  const Region u =
      Region::polygon({{0, 0}, {30, 0}, {30, 20}, {20, 20}, {20, 10}, {10, 10}, {10, 20}, {0, 20}});
  EXPECT_TRUE(u.contains({5, 15}));
  EXPECT_FALSE(u.contains({15, 15}));
  EXPECT_TRUE(u.containsPath(Path{{5, 5}, {25, 5}}));
  EXPECT_FALSE(u.containsPath(Path{{5, 15}, {25, 15}}));
  EXPECT_TRUE(u.meetsPath(Path{{15, 15}, {15, 5}}));
  EXPECT_FALSE(u.meetsPath(Path{{15, 15}, {15, 18}}));
}

TEST(Regions, FenceMeetsWhatItCrosses) {
  const Region fence = Region::fence({{0, 0}, {10, 0}, {10, 10}});
  EXPECT_TRUE(fence.meetsPath(Path{{5, -1}, {5, 1}}));
  EXPECT_FALSE(fence.meetsPath(Path{{1, 9}, {2, 5}})) << "the fence isn't closed";
  EXPECT_FALSE(fence.contains({10, 5}));
}

}  // namespace
}  // namespace drafting
