// Moving entities of every kind, and copying a drawing's content into another.
#include "embedded/drafting/database/moving.h"

#include <gtest/gtest.h>

#include "embedded/drafting/database/clone.h"
#include "embedded/drafting/database/database.h"

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
