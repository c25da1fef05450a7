// Cutting of polygons keeps their area, whatever their shape.
#include "embedded/slide_store/polygon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>

namespace {

using slide_store::cutPolygon;
using slide_store::SlidePoint;

long long twiceArea(const std::vector<SlidePoint>& corners) {
  long long area = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const SlidePoint a = corners[i];
    const SlidePoint b = corners[(i + 1) % corners.size()];
    area += static_cast<long long>(a.x) * b.y - static_cast<long long>(a.y) * b.x;
  }
  return std::llabs(area);
}

// A star around the origin: simple, and convex hardly ever.
std::vector<SlidePoint> star(std::size_t corners, std::mt19937& random) {
  std::uniform_int_distribution<int> radius(200, 1000);
  std::vector<SlidePoint> star;
  for (std::size_t i = 0; i < corners; ++i) {
    const double angle = 6.283185307 * static_cast<double>(i) / static_cast<double>(corners);
    const double r = radius(random);
    star.push_back({static_cast<int>(r * std::cos(angle)), static_cast<int>(r * std::sin(angle))});
  }
  return star;
}

TEST(Polygon, PiecesCoverTheWhole) {
  std::mt19937 random(7);
  for (std::size_t corners = 3; corners < 60; ++corners) {
    std::vector<SlidePoint> whole = star(corners, random);
    if (corners % 2) std::reverse(whole.begin(), whole.end());
    long long area = 0;
    for (const auto& piece : cutPolygon(whole, 10)) {
      EXPECT_GE(piece.size(), 3U);
      EXPECT_LE(piece.size(), 10U);
      area += twiceArea(piece);
    }
    EXPECT_EQ(area, twiceArea(whole)) << corners;
  }
}

TEST(Polygon, UpToTheLimitItStaysWhole) {
  std::mt19937 random(7);
  const std::vector<SlidePoint> whole = star(10, random);
  const auto pieces = cutPolygon(whole, 10);
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_EQ(pieces[0], whole);
}

TEST(Polygon, WithoutAreaThereIsNothing) {
  EXPECT_TRUE(cutPolygon({}, 10).empty());
  EXPECT_TRUE(cutPolygon({{1, 1}, {2, 2}}, 10).empty());
  EXPECT_TRUE(cutPolygon({{1, 1}, {2, 2}, {1, 1}, {2, 2}}, 10).empty());
}

TEST(Polygon, OneThatCrossesItselfIsCutToo) {
  std::mt19937 random(3);
  std::uniform_int_distribution<int> anywhere(0, 1000);
  for (int round = 0; round < 200; ++round) {
    std::vector<SlidePoint> tangle(40);
    for (SlidePoint& p : tangle) p = {anywhere(random), anywhere(random)};
    const auto pieces = cutPolygon(tangle, 10);
    EXPECT_FALSE(pieces.empty());
    for (const auto& piece : pieces) EXPECT_LE(piece.size(), 10U);
  }
}

}  // namespace
