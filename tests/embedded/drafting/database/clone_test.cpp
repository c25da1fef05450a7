// Drawings taken into another as a block: what comes along by name, what stays behind.
#include "embedded/drafting/database/clone.h"

#include "embedded/drafting/database/drawing_fixture.h"

namespace drafting {
namespace {

// `db` is the drawing that is taken, `target` the one that takes it.
class CloneTest : public DrawingTest {
 protected:
  const BlockRecord& clone(std::string_view name) {
    result = cloneAsBlock(*target, *db, name);
    return *target->find<BlockRecord>(result.block);
  }
  template <class T>
  const T& first(const BlockRecord& block) const {
    return dynamic_cast<const T&>(*block.first);
  }
  std::string nameIn(const Database& database, Handle record) const {
    return std::string(database.recordName(record));
  }

  std::unique_ptr<Database> target = Database::makeNew();
  CloneResult result;
};

TEST_F(CloneTest, TakesTheContentAndTheBasePoint) {
  addLine(1);
  addLine(2);
  db->setVariable("INSBASE", Point3{7, 8, 0});
  const BlockRecord& block = clone("图块");
  EXPECT_EQ(target->findRecord(Table::Blocks, "图块"), block.handle);
  EXPECT_EQ(block.base, (Point3{7, 8, 0}));
  EXPECT_EQ(block.count, 2u);
  EXPECT_EQ(first<Line>(block).start.x, 1);
  EXPECT_TRUE(result.leftBehind.empty());
  EXPECT_EQ(target->modelSpace().count, 0u);
}

TEST_F(CloneTest, LeavesTheSourceAsItWas) {
  addLine(1);
  const std::string before = snapshot();
  clone("A");
  EXPECT_EQ(snapshot(), before);
}

TEST_F(CloneTest, UndoTakesAllOfItBack) {
  db->edit<Line>(addLine(1)).layer = addLayer("new");
  const std::size_t objects = target->objectCount();
  target->journal().begin("INSERT");
  clone("A");
  target->journal().end();
  ASSERT_TRUE(target->journal().undo());
  EXPECT_EQ(target->objectCount(), objects);
  EXPECT_EQ(target->findRecord(Table::Blocks, "A"), 0u);
  EXPECT_EQ(target->findRecord(Table::Layers, "new"), 0u);
  ASSERT_TRUE(target->journal().redo());
  EXPECT_NE(target->findRecord(Table::Blocks, "A"), 0u);
}

TEST_F(CloneTest, LayersGoByNameAndTheTargetsCounts) {
  const Handle line = addLine(1);
  const Handle layer = addLayer("Shared");
  db->edit<Layer>(layer).colour = 5;
  db->edit<Line>(line).layer = layer;
  auto own = std::make_unique<Layer>();
  own->name = "SHARED";
  own->colour = 2;
  const Handle there = target->addRecord(Table::Layers, std::move(own));
  EXPECT_EQ(first<Line>(clone("A")).layer, there);
  EXPECT_EQ(target->find<Layer>(there)->colour, 2);
}

TEST_F(CloneTest, LayersAndLinetypesThatAreMissingAreCopied) {
  auto linetype = std::make_unique<Linetype>();
  linetype->name = "DASHED";
  const Handle dashed = db->addRecord(Table::Linetypes, std::move(linetype));
  const Handle layer = addLayer("new");
  db->edit<Layer>(layer).linetype = dashed;
  db->edit<Layer>(layer).colour = 5;
  db->edit<Line>(addLine(1)).layer = layer;
  const auto* copy = target->find<Layer>(first<Line>(clone("A")).layer);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->name, "new");
  EXPECT_EQ(copy->colour, 5);
  EXPECT_EQ(nameIn(*target, copy->linetype), "DASHED");
}

TEST_F(CloneTest, ExtendedDataComesWithItsApplicationAndWithoutItsHandles) {
  const Handle line = addLine(1);
  const Handle app = db->registerApp("APP");
  const std::vector<XDataItem> items = {{1000, std::string("回路")}, {1005, line}};
  db->edit<Line>(line).xdata.push_back({app, *encodeXData(items, db->codePage)});
  const Line& copy = first<Line>(clone("A"));
  const XData* data = findXData(copy, target->findRecord(Table::AppIds, "APP"));
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(*decodeXData(data->items),
            (std::vector<XDataItem>{{1000, std::string("回路")}, {1005, Handle{0}}}));
}

TEST_F(CloneTest, NestedBlocksComeOnceWithTheirAttributes) {
  const Handle inner = addBlock("inner");
  addLineTo(*db->find<BlockRecord>(inner), 3);
  addInsert(inner, 2);
  addInsert(inner);
  const BlockRecord& block = clone("outer");
  const auto& insert = first<Insert>(block);
  EXPECT_EQ(nameIn(*target, insert.block), "inner");
  EXPECT_EQ(insert.attributes.size(), 2u);
  EXPECT_NE(insert.seqEnd, 0u);
  EXPECT_EQ(dynamic_cast<const Insert&>(*block.last).block, insert.block);
  EXPECT_EQ(target->find<BlockRecord>(insert.block)->count, 1u);
}

TEST_F(CloneTest, NestedBlockThatTheTargetHasIsTheTargets) {
  addInsert(addBlock("inner"));
  std::swap(db, target);
  const Handle there = addBlock("INNER");
  std::swap(db, target);
  EXPECT_EQ(first<Insert>(clone("outer")).block, there);
}

TEST_F(CloneTest, BlockNamedLikeTheNewOneIsNotTheNewOne) {
  const Handle inner = addBlock("a01");
  addLineTo(*db->find<BlockRecord>(inner), 3);
  addInsert(inner);
  const BlockRecord& block = clone("A01");
  const auto& insert = first<Insert>(block);
  EXPECT_NE(insert.block, block.handle);
  EXPECT_EQ(nameIn(*target, insert.block), "a01$0");
  EXPECT_EQ(target->find<BlockRecord>(insert.block)->count, 1u);
}

TEST_F(CloneTest, NamelessBlocksGetNumbersOfTheirOwn) {
  addInsert(addBlock("*U1"));
  std::swap(db, target);
  const Handle there = addBlock("*U1");
  std::swap(db, target);
  const auto& insert = first<Insert>(clone("A"));
  EXPECT_NE(insert.block, there);
  EXPECT_EQ(nameIn(*target, insert.block), "*U2");
}

TEST_F(CloneTest, BlockWithinItselfEnds) {
  const Handle loop = addBlock("loop");
  auto insert = std::make_unique<Insert>();
  insert->layer = zero();
  insert->block = loop;
  db->append(*db->find<BlockRecord>(loop), std::move(insert));
  addInsert(loop);
  const auto* copy = target->find<BlockRecord>(first<Insert>(clone("A")).block);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(first<Insert>(*copy).block, 0u);
}

TEST_F(CloneTest, UnknownEntitiesStayBehindAndAreCounted) {
  for (int i = 0; i < 2; ++i) {
    auto raw = std::make_unique<RawEntity>();
    raw->layer = zero();
    raw->type = 500;
    db->append(db->modelSpace(), std::move(raw));
  }
  EXPECT_EQ(clone("A").count, 0u);
  ASSERT_EQ(result.leftBehind.size(), 1u);
  EXPECT_NE(result.leftBehind.front().find("2 entities"), std::string::npos);
}

}  // namespace
}  // namespace drafting
