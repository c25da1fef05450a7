// Parts of lines and circles: places on them, crossings, feet, tangents, and entities' pieces.
#include "embedded/drafting/picking/pieces.h"

#include <gtest/gtest.h>

namespace drafting {
namespace {

constexpr double kTurn = 2 * base::kPi;

void expectPoint(Point2 found, Point2 wanted) {
  EXPECT_NEAR(found.x, wanted.x, 1e-9);
  EXPECT_NEAR(found.y, wanted.y, 1e-9);
}

TEST(Pieces, PlacesOnALine) {
  const Piece line = Piece::line({0, 0}, {10, 0});
  EXPECT_EQ(line.where({5, 3}), 0.5);
  EXPECT_EQ(line.where({-10, 0}), -1);
  expectPoint(line.closest({20, 5}), {10, 0});
  EXPECT_TRUE(holdsPoint(line, {10, 0}));
  EXPECT_FALSE(holdsPoint(line, {10.1, 0}));
}

TEST(Pieces, PlacesOnAnArcRunItsWay) {
  const Piece left = Piece::arc({0, 0}, 1, 0, base::kPi);
  EXPECT_NEAR(left.where({0, 1}), 0.5, 1e-12);
  EXPECT_NEAR(left.where({0, -1}), 1.5, 1e-12);
  const Piece right = Piece::arc({0, 0}, 1, 0, -base::kPi);
  EXPECT_NEAR(right.where({0, -1}), 0.5, 1e-12);
  expectPoint(right.closest({1, 5}), {1, 0});
  EXPECT_TRUE(Piece::arc({0, 0}, 1, 0, kTurn).full());
}

TEST(Pieces, BulgeRunsBetweenItsEnds) {
  for (const double bulge : {0.2, 1.0, 3.0, -0.5, -2.0}) {
    const Piece piece = Piece::bulge({1, 1}, {4, 5}, bulge);
    expectPoint(piece.at(0), {1, 1});
    expectPoint(piece.at(1), {4, 5});
    EXPECT_NEAR(piece.bulgeBetween(0, 1), bulge, 1e-12);
  }
  EXPECT_FALSE(Piece::bulge({1, 1}, {4, 5}, 0).round);
  EXPECT_FALSE(Piece::bulge({1, 1}, {1, 1}, 1).round);
}

TEST(Pieces, CrossingsOfLinesAndCircles) {
  const Piece a = Piece::line({0, 0}, {10, 10}), b = Piece::line({0, 10}, {1, 9});
  ASSERT_EQ(crossings(a, b).size(), 1U);
  expectPoint(crossings(a, b)[0], {5, 5});
  EXPECT_TRUE(crossings(a, Piece::line({1, 0}, {2, 1})).empty()) << "parallel";
  const Piece circle = Piece::arc({0, 0}, 5, 0, kTurn);
  EXPECT_EQ(crossings(circle, a).size(), 2U);
  EXPECT_EQ(crossings(circle, Piece::line({5, -1}, {5, 1})).size(), 1U) << "tangent";
  EXPECT_TRUE(crossings(circle, Piece::line({6, -1}, {6, 1})).empty());
  EXPECT_EQ(crossings(circle, Piece::arc({8, 0}, 5, 0, 1)).size(), 2U);
  EXPECT_EQ(crossings(circle, Piece::arc({10, 0}, 5, 0, 1)).size(), 1U);
  EXPECT_TRUE(crossings(circle, circle).empty());
  EXPECT_TRUE(crossings(circle, Piece::arc({20, 0}, 5, 0, 1)).empty());
}

TEST(Pieces, FeetAndTangents) {
  expectPoint(feet(Piece::line({0, 0}, {1, 0}), {7, 3})[0], {7, 0});
  const Piece circle = Piece::arc({0, 0}, 3, 0, kTurn);
  expectPoint(feet(circle, {5, 0})[0], {3, 0});
  EXPECT_TRUE(feet(circle, {0, 0}).empty());
  ASSERT_EQ(tangentPoints(circle, {5, 0}).size(), 2U);
  expectPoint(tangentPoints(circle, {5, 0})[1], {1.8, 2.4});
  EXPECT_TRUE(tangentPoints(circle, {1, 0}).empty());
}

TEST(Pieces, EntitySeenFromBelowIsMirrored) {
  const auto database = Database::makeNew();
  Arc arc;
  arc.radius = 1;
  arc.startAngle = 0;
  arc.endAngle = base::kPi / 2;
  arc.normal = {0, 0, -1};
  const auto pieces = piecesOf(*database, arc).pieces;
  ASSERT_EQ(pieces.size(), 1U);
  expectPoint(pieces[0].from, {-1, 0});
  expectPoint(pieces[0].to, {0, 1});
}

TEST(Pieces, BlockGivesItsContentAndItsOwnPlace) {
  const auto database = Database::makeNew();
  auto record = std::make_unique<BlockRecord>();
  record->name = "b";
  const Handle block = database->addBlock(std::move(record));
  auto circle = std::make_unique<Circle>();
  circle->radius = 2;
  circle->centre = {1, 0, 0};
  database->append(*database->find<BlockRecord>(block), std::move(circle));
  Insert insert;
  insert.block = block;
  insert.position = {10, 10, 0};
  insert.scale = {3, 3, 3};
  insert.rotation = base::kPi / 2;
  EntityPieces all = piecesOf(*database, insert);
  ASSERT_EQ(all.pieces.size(), 1U);
  expectPoint(all.pieces[0].centre, {10, 13});
  EXPECT_NEAR(all.pieces[0].radius, 6, 1e-12);
  ASSERT_EQ(all.insertions.size(), 1U);
  expectPoint(all.insertions[0], {10, 10});
  insert.scale.y = 1;  // an ellipse comes as short lines
  all = piecesOf(*database, insert);
  EXPECT_GT(all.pieces.size(), 12U);
  EXPECT_FALSE(all.pieces[0].round);
}

TEST(Pieces, SplineIsManyShortLinesFromEndToEnd) {
  const auto db = Database::makeNew();
  Spline spline;
  spline.fitPoints = {{0, 0, 0}, {3, 4, 0}, {7, -1, 0}};
  const auto pieces = piecesOf(*db, spline).pieces;
  ASSERT_GT(pieces.size(), 20u);
  expectPoint(pieces.front().from, {0, 0});
  expectPoint(pieces.back().to, {7, -1});
}

}  // namespace
}  // namespace drafting
