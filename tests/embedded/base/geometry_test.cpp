#include "embedded/base/geometry.h"

#include <gtest/gtest.h>

namespace {

using base::Affine2;
using base::Box2;
using base::Point2;

void expectNear(Point2 actual, Point2 expected) {
  EXPECT_NEAR(actual.x, expected.x, 1e-12);
  EXPECT_NEAR(actual.y, expected.y, 1e-12);
}

TEST(Angles, DegreesAndRadiansAreInverse) {
  EXPECT_DOUBLE_EQ(base::radians(180), base::kPi);
  EXPECT_DOUBLE_EQ(base::degrees(base::radians(33)), 33);
}

TEST(Polar, GoesFromAPointInADirection) {
  expectNear(base::polar({1, 2}, base::radians(90), 5), {1, 7});
}

TEST(Box2, IsEmptyUntilTheFirstPoint) {
  Box2 box;
  EXPECT_TRUE(box.empty());
  EXPECT_EQ(box.width(), 0);
  EXPECT_EQ(box.height(), 0);
  box.add(Point2{3, 4});
  EXPECT_FALSE(box.empty());
  EXPECT_EQ(box.centre(), (Point2{3, 4}));
}

TEST(Box2, GrowsByPointsAndBoxes) {
  Box2 box;
  box.add(Point2{0, 0});
  Box2 other;
  other.add(Point2{-2, 5});
  box.add(other);
  EXPECT_EQ(box.min, (Point2{-2, 0}));
  EXPECT_EQ(box.max, (Point2{0, 5}));
}

TEST(Box2, AnEmptyBoxAddsNothing) {
  Box2 box;
  box.add(Point2{1, 1});
  box.add(Box2());
  EXPECT_EQ(box.width(), 0);
  EXPECT_EQ(box.centre(), (Point2{1, 1}));
}

TEST(Affine2, ProductAppliesTheInnerMapFirst) {
  const Affine2 turnThenMove = Affine2::translation({10, 0}) * Affine2::rotation(base::radians(90));
  expectNear(turnThenMove({1, 0}), {10, 1});
  const Affine2 moveThenTurn = Affine2::rotation(base::radians(90)) * Affine2::translation({10, 0});
  expectNear(moveThenTurn({1, 0}), {0, 11});
}

TEST(Affine2, ScaleIsTheSameForMirroredMaps) {
  EXPECT_DOUBLE_EQ(Affine2::scaling(-2, 2).scale(), 2);
  EXPECT_DOUBLE_EQ(Affine2::scaling(-2, 2).determinant(), -4);
}

}  // namespace
