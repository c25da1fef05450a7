#include <chrono>

#include "embedded/drafting/database/drawing_fixture.h"

namespace drafting {
namespace {

using Tables = DrawingTest;
using Chains = DrawingTest;
using Erasing = DrawingTest;
using Lookups = DrawingTest;

TEST_F(Tables, NewDrawingHasItsStandardRecords) {
  EXPECT_EQ(db->findRecord(Table::Layers, "0"), 0x10u);
  EXPECT_EQ(db->findRecord(Table::Blocks, "*MODEL_SPACE"), db->modelSpace().handle);
  EXPECT_EQ(db->findRecord(Table::Blocks, "*paper_space"), db->paperSpace().handle);
  EXPECT_NE(db->findRecord(Table::Linetypes, "bylayer"), 0u);
  EXPECT_NE(db->findRecord(Table::Linetypes, "ByBlock"), 0u);
  const auto* style = db->find<TextStyle>(db->findRecord(Table::Styles, "STANDARD"));
  ASSERT_NE(style, nullptr);
  EXPECT_EQ(style->font, "txt");
  EXPECT_EQ(style->bigFont, "gbcbig");
  EXPECT_EQ(db->codePage, 936);
  EXPECT_EQ(db->lastEntity(), 0u);
  EXPECT_FALSE(db->journal().changedSinceSave());
}

TEST_F(Tables, NamesCompareWithoutCaseAlsoBeyondAscii) {
  const Handle layer = addLayer("Ж-图层a");
  EXPECT_EQ(db->findRecord(Table::Layers, "ж-图层A"), layer);
  EXPECT_EQ(db->recordName(layer), "Ж-图层a");
  EXPECT_EQ(db->findRecord(Table::Styles, "ж-图层A"), 0u);
}

TEST_F(Tables, RenamingABlockRenamesItsHead) {
  const Handle block = addBlock("old");
  db->rename(block, "new");
  EXPECT_EQ(db->findRecord(Table::Blocks, "old"), 0u);
  EXPECT_EQ(db->findRecord(Table::Blocks, "NEW"), block);
  EXPECT_EQ(db->find<Block>(db->find<BlockRecord>(block)->begin)->name, "new");
}

TEST_F(Tables, RegisteringAnAppTwiceGivesOneRecord) {
  const Handle app = db->registerApp("TKSY");
  EXPECT_EQ(db->registerApp("tksy"), app);
}

TEST_F(Chains, EntitiesStandInTheOrderOfAppending) {
  const Handle a = addLine(1), b = addLine(2), c = addLine(3);
  EXPECT_EQ(modelChain(), (std::vector<Handle>{a, b, c}));
  EXPECT_EQ(db->lastEntity(), c);
  EXPECT_EQ(db->nextHandle(), c + 1);
}

TEST_F(Chains, AFreeHandleIsKept) {
  auto line = std::make_unique<Line>();
  line->handle = 0x5000;
  line->layer = zero();
  EXPECT_EQ(db->append(db->modelSpace(), std::move(line)), 0x5000u);
  EXPECT_EQ(addLine(1), 0x5001u);
}

TEST_F(Chains, AnAttributeDefinitionMarksItsBlock) {
  const Handle block = addBlock("b");
  auto definition = std::make_unique<Attdef>();
  definition->layer = zero();
  db->append(*db->find<BlockRecord>(block), std::move(definition));
  EXPECT_TRUE(db->find<BlockRecord>(block)->hasAttdefs);
}

TEST_F(Chains, AttributesAreLinkedAndClosed) {
  const Handle insert = addInsert(addBlock("b"), 2);
  const auto& attributes = db->find<Insert>(insert)->attributes;
  ASSERT_EQ(attributes.size(), 2u);
  const auto* first = db->find<Attrib>(attributes[0]);
  EXPECT_EQ(first->owner, insert);
  EXPECT_EQ(first->next, db->find<Attrib>(attributes[1]));
  EXPECT_NE(db->find<SeqEnd>(db->find<Insert>(insert)->seqEnd), nullptr);
}

TEST_F(Erasing, TheNeighboursCloseUp) {
  const Handle a = addLine(1), b = addLine(2), c = addLine(3);
  db->erase(b);
  EXPECT_EQ(modelChain(), (std::vector<Handle>{a, c}));
  db->erase(c);
  EXPECT_EQ(db->lastEntity(), a);
  db->erase(a);
  EXPECT_EQ(db->lastEntity(), 0u);
  EXPECT_EQ(db->find(a), nullptr);
  db->erase(a);  // nothing there: nothing happens
}

TEST_F(Erasing, AnInsertTakesItsAttributesAlong) {
  const Handle insert = addInsert(addBlock("b"), 3);
  const auto attributes = db->find<Insert>(insert)->attributes;
  const Handle end = db->find<Insert>(insert)->seqEnd;
  db->erase(insert);
  for (const Handle attribute : attributes) EXPECT_EQ(db->find(attribute), nullptr);
  EXPECT_EQ(db->find(end), nullptr);
}

TEST_F(Erasing, OneAttributeLeavesTheOthers) {
  const Handle insert = addInsert(addBlock("b"), 3);
  const auto attributes = db->find<Insert>(insert)->attributes;
  db->erase(attributes[1]);
  EXPECT_EQ(db->find<Insert>(insert)->attributes,
            (std::vector<Handle>{attributes[0], attributes[2]}));
  EXPECT_EQ(db->find<Attrib>(attributes[0])->next, db->find<Attrib>(attributes[2]));
}

TEST_F(Erasing, ABlockGoesWithItsContentAndName) {
  const Handle block = addBlock("b");
  const Handle line = addLineTo(*db->find<BlockRecord>(block), 1);
  db->erase(block);
  EXPECT_EQ(db->find(line), nullptr);
  EXPECT_EQ(db->findRecord(Table::Blocks, "b"), 0u);
  EXPECT_TRUE(db->table(Table::Blocks).records.empty());
}

TEST_F(Erasing, TablesAndSpacesStay) {
  db->erase(db->table(Table::Layers).handle);
  db->erase(db->modelSpace().handle);
  db->erase(db->paperSpace().handle);
  EXPECT_NE(db->findRecord(Table::Blocks, "*Model_Space"), 0u);
  EXPECT_NE(db->findRecord(Table::Layers, "0"), 0u);
}

TEST_F(Erasing, AnItemLeavesItsDictionary) {
  const Handle layouts = db->header.handle("LAYOUT_DICTIONARY");
  const auto items = db->find<Dictionary>(layouts)->items;
  db->erase(items[0].second);
  EXPECT_EQ(db->find<Dictionary>(layouts)->items.size(), items.size() - 1);
}

TEST_F(Lookups, ByLayerFollowsEveryChange) {
  const Handle layer = addLayer("L");
  const Handle a = addLine(1), b = addLine(2);
  EXPECT_EQ(db->entitiesOnLayer(Kind::Line, zero()), (std::vector<Handle>{a, b}));
  db->edit<Line>(a).layer = layer;
  EXPECT_EQ(db->entitiesOnLayer(Kind::Line, zero()), std::vector<Handle>{b});
  EXPECT_EQ(db->entitiesOnLayer(Kind::Line, layer), std::vector<Handle>{a});
  EXPECT_TRUE(db->entitiesOnLayer(Kind::Point, layer).empty());
  db->erase(a);
  EXPECT_TRUE(db->entitiesOnLayer(Kind::Line, layer).empty());
  db->journal().undo();
  EXPECT_TRUE(db->entitiesOnLayer(Kind::Line, layer).empty());  // all in one nameless step
  db->journal().redo();
}

TEST_F(Lookups, ByAppInCreationOrderAlsoAfterUndo) {
  const Handle app = db->registerApp("TKSY");
  const Handle a = addLine(1), b = addLine(2);
  db->edit<Line>(b).xdata = {{app, std::string("\x46\1\0", 3)}};
  db->edit<Line>(a).xdata = {{app, std::string("\x46\1\0", 3)}};
  EXPECT_EQ(db->entitiesWithApp(app), (std::vector<Handle>{a, b}));
  db->journal().begin("ERASE");
  db->erase(a);
  db->journal().end();
  EXPECT_EQ(db->entitiesWithApp(app), std::vector<Handle>{b});
  db->journal().undo();
  EXPECT_EQ(db->entitiesWithApp(app), (std::vector<Handle>{a, b}));
}

TEST_F(Lookups, BlockContentDoesNotCount) {
  const Handle block = addBlock("b");
  addLineTo(*db->find<BlockRecord>(block), 1);
  const Handle inPaper = addLineTo(db->paperSpace(), 2);
  EXPECT_EQ(db->entitiesOnLayer(Kind::Line, zero()), std::vector<Handle>{inPaper});
}

TEST(HandleTable, HandlesFarApartTakeMemoryByObjectsOnly) {
  HandleTable table;
  for (Handle handle = 1; handle != 0; handle <<= 1) {
    std::unique_ptr<Object> line = std::make_unique<Line>();
    line->handle = handle;
    EXPECT_TRUE(table.insert(line));
  }
  EXPECT_EQ(table.size(), 64u);
  EXPECT_EQ(table.find(Handle{1} << 63)->handle, Handle{1} << 63);
  EXPECT_EQ(table.find(3), nullptr);
  Handle last = 0;
  table.forEach([&](const Object& o) {
    EXPECT_GT(o.handle, last);
    last = o.handle;
  });
  EXPECT_NE(table.remove(Handle{1} << 63), nullptr);
  EXPECT_EQ(table.find(Handle{1} << 63), nullptr);
}

TEST(HandleTable, ATakenHandleAndNullAreRefused) {
  HandleTable table;
  std::unique_ptr<Object> line = std::make_unique<Line>();
  EXPECT_FALSE(table.insert(line));
  line->handle = 7;
  EXPECT_TRUE(table.insert(line));
  std::unique_ptr<Object> other = std::make_unique<Line>();
  other->handle = 7;
  EXPECT_FALSE(table.insert(other));
  EXPECT_NE(other, nullptr);
}

}  // namespace
}  // namespace drafting
