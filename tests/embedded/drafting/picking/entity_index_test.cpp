// The index of what is seen follows every change of the drawing.
#include "embedded/drafting/picking/entity_index.h"

#include <gtest/gtest.h>

#include "embedded/drafting/picking/picker.h"

namespace drafting {
namespace {

class Indexed : public testing::Test {
 protected:
  std::unique_ptr<Line> line(Point2 from, Point2 to) {
    auto made = std::make_unique<Line>();
    made->layer = database->findRecord(Table::Layers, "0");
    made->start = {from.x, from.y, 0};
    made->end = {to.x, to.y, 0};
    return made;
  }
  Handle draw(Point2 from, Point2 to) {
    return database->append(database->modelSpace(), line(from, to));
  }
  Handle block(const char* name) {
    auto record = std::make_unique<BlockRecord>();
    record->name = name;
    return database->addBlock(std::move(record));
  }
  Handle insert(Handle block, Handle into = 0) {
    auto made = std::make_unique<Insert>();
    made->layer = database->findRecord(Table::Layers, "0");
    made->block = block;
    auto& owner = into ? *database->find<BlockRecord>(into) : database->modelSpace();
    return database->append(owner, std::move(made));
  }
  Handle at(Point2 point) { return entityAt(*database, index, point, 0.1); }

  std::unique_ptr<Database> database = Database::makeNew();
  EntityIndex index{*database};
};

TEST_F(Indexed, EmptyDrawingShowsNothing) {
  EXPECT_TRUE(index.extents().empty());
  EXPECT_EQ(at({0, 0}), 0U);
}

TEST_F(Indexed, EntitiesComeMoveAndGo) {
  const Handle first = draw({0, 0}, {10, 0});
  EXPECT_EQ(at({5, 0}), first);
  const Handle second = draw({5, -5}, {5, 5});
  EXPECT_EQ(at({5, 0}), second) << "the newest is on top";
  database->edit<Line>(second).start = {50, 0, 0};
  database->edit<Line>(second).end = {50, 9, 0};
  EXPECT_EQ(at({5, 0}), first);
  EXPECT_EQ(at({50, 5}), second);
  database->erase(first);
  EXPECT_EQ(at({5, 0}), 0U);
  EXPECT_EQ(index.extents().min, (Point2{50, 0}));
}

TEST_F(Indexed, UndoAndRedoAreFollowed) {
  database->journal().begin("a");
  const Handle handle = draw({0, 0}, {10, 0});
  database->journal().end();
  EXPECT_EQ(at({5, 0}), handle);
  database->journal().undo();
  EXPECT_EQ(at({5, 0}), 0U);
  database->journal().redo();
  EXPECT_EQ(at({5, 0}), handle);
}

TEST_F(Indexed, ChangedBlockMovesItsInsertsNestedOnesToo) {
  const Handle inner = block("inner"), outer = block("outer");
  const Handle content =
      database->append(*database->find<BlockRecord>(inner), line({0, 0}, {1, 0}));
  insert(inner, outer);
  const Handle placed = insert(outer);
  EXPECT_EQ(at({0.5, 0}), placed);
  database->edit<Line>(content).start = {100, 5, 0};
  database->edit<Line>(content).end = {110, 5, 0};
  EXPECT_EQ(at({0.5, 0}), 0U);
  EXPECT_EQ(at({105, 5}), placed);
  database->edit<BlockRecord>(outer).base = {100, 0, 0};
  EXPECT_EQ(at({5, 5}), placed);
}

TEST_F(Indexed, LayersThatHideAreFollowed) {
  auto record = std::make_unique<Layer>();
  record->name = "A";
  const Handle layer = database->addRecord(Table::Layers, std::move(record));
  const Handle handle = draw({0, 0}, {10, 0});
  database->edit<Entity>(handle).layer = layer;
  EXPECT_EQ(at({5, 0}), handle);
  database->edit<Layer>(layer).frozen = true;
  EXPECT_EQ(at({5, 0}), 0U);
  database->edit<Layer>(layer).frozen = false;
  EXPECT_EQ(at({5, 0}), handle);
  database->edit<Layer>(layer).off = true;
  EXPECT_EQ(at({5, 0}), 0U);
}

TEST_F(Indexed, WindowTakesWhatIsInsideCrossingWhatReachesIn) {
  const Handle in = draw({1, 1}, {2, 2}), across = draw({0, 5}, {50, 5});
  draw({40, 40}, {50, 50});
  const Region region = Region::box({-1, -1}, {10, 10});
  EXPECT_EQ(entitiesInside(*database, index, region), std::vector<Handle>{in});
  EXPECT_EQ(entitiesCrossing(*database, index, region), (std::vector<Handle>{in, across}));
}

// A line whose box the window touches but not the line itself.
TEST_F(Indexed, CrossingGoesByStrokesNotByBoxes) {
  draw({0, 0}, {100, 100});
  EXPECT_TRUE(entitiesCrossing(*database, index, Region::box({60, 10}, {90, 40})).empty());
  EXPECT_EQ(at({70, 30}), 0U);
}

}  // namespace
}  // namespace drafting
