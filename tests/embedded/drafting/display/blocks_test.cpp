// INSERTs: place, colours, layers, attributes, nesting.
#include "embedded/drafting/display/picture_fixture.h"

namespace drafting {
namespace {

class Blocks : public PictureTest {
 protected:
  // A block with one line from (0, 0) to (1, 0).
  BlockRecord& dash(const std::string& name, std::int16_t colour = kColourByLayer) {
    BlockRecord& record = block(name);
    add(record, line(0, 0, 1, 0)).colour = colour;
    return record;
  }
};

TEST_F(Blocks, ContentIsScaledThenRotatedThenMoved) {
  Insert insert = insertOf(dash("A"), {10, 20});
  insert.scale = {3, 3, 3};
  insert.rotation = base::radians(90);
  add(insert);
  expectNear(points()[0], {10, 20});
  expectNear(points()[1], {10, 23});
}

TEST_F(Blocks, NegativeScaleMirrors) {
  Insert insert = insertOf(dash("A"), {10, 0});
  insert.scale = {-2, 1, 1};
  add(insert);
  expectNear(points()[1], {8, 0});
}

TEST_F(Blocks, ReversedNormalMirrorsThePlaceToo) {
  Insert insert = insertOf(dash("A"), {10, 0});
  insert.normal = {0, 0, -1};
  add(insert);
  expectNear(points()[0], {-10, 0});
  expectNear(points()[1], {-11, 0});
}

TEST_F(Blocks, BasePointStandsAtTheInsertionPoint) {
  BlockRecord& record = dash("A");
  db->edit<BlockRecord>(record.handle).base = {1, 0, 0};
  add(insertOf(record, {5, 5}));
  expectNear(points()[0], {4, 5});
  expectNear(points()[1], {5, 5});
}

TEST_F(Blocks, NestedBlocksMultiply) {
  BlockRecord& inner = dash("INNER");
  BlockRecord& outer = block("OUTER");
  Insert half = insertOf(inner, {1, 0});
  half.scale = {0.5, 0.5, 0.5};
  add(outer, half);
  Insert insert = insertOf(outer, {10, 0});
  insert.scale = {4, 4, 4};
  add(insert);
  expectNear(points()[0], {14, 0});
  expectNear(points()[1], {16, 0});
}

TEST_F(Blocks, ArrayShowsEachCell) {
  Insert array = insertOf(dash("A"), {0, 0});
  array.isArray = true;
  array.columns = 3;
  array.rows = 2;
  array.columnSpacing = 10;
  array.rowSpacing = 5;
  add(array);
  EXPECT_EQ(shown().items().size(), 6u);
  expectBox(shown().bounds(), {0, 0}, {21, 5});
}

TEST_F(Blocks, BlockThatContainsItselfEnds) {
  BlockRecord& record = dash("A");
  add(record, insertOf(record, {1, 0}));
  add(insertOf(record, {0, 0}));
  EXPECT_EQ(shown().items().size(), 32u);
}

TEST_F(Blocks, HugeArraysStopAtTheLimitAndSaySo) {
  BlockRecord& inner = dash("A");
  BlockRecord& outer = block("B");
  for (BlockRecord* record : {&inner, &outer}) {
    Insert array = insertOf(*record, {0, 0});
    array.isArray = true;
    array.columns = array.rows = 32767;
    add(record == &inner ? outer : db->modelSpace(), array);
  }
  options.limit = 10000;
  EXPECT_TRUE(shown().cut());
  EXPECT_LE(shown().items().size(), 10000u);
}

TEST_F(Blocks, ColoursComeFromEntityLayerOrBlock) {
  Layer& red = layer("RED", 1);
  BlockRecord& record = block("A");
  add(record, line(0, 0, 1, 0));                          // layer 0, by layer
  add(record, line(0, 0, 1, 0), red.handle);              // layer RED, by layer
  add(record, line(0, 0, 1, 0)).colour = kColourByBlock;  // by block
  add(record, line(0, 0, 1, 0)).colour = 5;               // its own
  Layer& green = layer("GREEN", 3);
  Insert insert = insertOf(record, {0, 0});
  insert.colour = 6;
  add(db->modelSpace(), insert, green.handle);
  EXPECT_EQ(colours(), (std::vector<int>{3, 1, 6, 5}));
}

TEST_F(Blocks, ByBlockOutsideOfBlocksIsTheForeground) {
  add(line(0, 0, 1, 0)).colour = kColourByBlock;
  EXPECT_EQ(colours(), (std::vector<int>{7}));
}

TEST_F(Blocks, LineweightsComeFromEntityLayerOrBlock) {
  Layer& thick = layer("THICK", 1);
  thick.lineweight = indexOfLineweight(70);
  BlockRecord& record = block("A");
  add(record, line(0, 0, 1, 0)).lineweight = indexOfLineweight(-2);
  add(record, line(0, 0, 1, 0)).lineweight = indexOfLineweight(-1);
  add(record, line(0, 0, 1, 0)).lineweight = indexOfLineweight(-3);
  Insert insert = insertOf(record, {0, 0});
  insert.lineweight = indexOfLineweight(50);
  add(db->modelSpace(), insert, thick.handle);
  std::vector<int> weights;
  const DisplayList list = shown();
  for (const auto& item : list.items()) weights.push_back(item.lineweight);
  EXPECT_EQ(weights, (std::vector<int>{50, 70, 25}));
}

TEST_F(Blocks, FrozenAndOffLayersAreNotShown) {
  Layer& frozen = layer("FROZEN", 1);
  frozen.frozen = true;
  Layer& off = layer("OFF", 2);
  off.off = true;
  add(db->modelSpace(), line(0, 0, 1, 0), frozen.handle);
  add(db->modelSpace(), line(0, 0, 1, 0), off.handle);
  EXPECT_TRUE(shown().items().empty());
}

TEST_F(Blocks, InsertOnALayerThatIsOffShowsItsOtherLayers) {
  Layer& off = layer("OFF", 2);
  off.off = true;
  Layer& red = layer("RED", 1);
  BlockRecord& record = dash("A");
  add(record, line(0, 0, 1, 0), red.handle);
  add(db->modelSpace(), insertOf(record, {0, 0}), off.handle);
  EXPECT_EQ(colours(), (std::vector<int>{1}));
}

TEST_F(Blocks, InsertOnAFrozenLayerShowsNothing) {
  Layer& frozen = layer("FROZEN", 2);
  frozen.frozen = true;
  Layer& red = layer("RED", 1);
  BlockRecord& record = block("A");
  add(record, line(0, 0, 1, 0), red.handle);
  add(db->modelSpace(), insertOf(record, {0, 0}), frozen.handle);
  EXPECT_TRUE(shown().items().empty());
}

TEST_F(Blocks, LayersThatAreNotPlottedShowOnScreenOnly) {
  Layer& hidden = layer("DEFPOINTS", 7);
  hidden.plotted = false;
  add(db->modelSpace(), line(0, 0, 1, 0), hidden.handle);
  EXPECT_EQ(shown().items().size(), 1u);
  options.forPlot = true;
  EXPECT_TRUE(shown().items().empty());
}

TEST_F(Blocks, InvisibleEntitiesAreNotShown) {
  add(line(0, 0, 1, 0)).invisible = true;
  EXPECT_TRUE(shown().items().empty());
}

TEST_F(Blocks, VisibleAttributesAreShownWhereTheyStand) {
  BlockRecord& record = block("A");
  Insert& insert = add(insertOf(record, {100, 0}));
  for (const bool visible : {true, false}) {
    auto attribute = std::make_unique<Attrib>();
    attribute->layer = zero();
    attribute->tag = "SCALE";
    attribute->text = "I";
    attribute->height = 21;
    attribute->position = {5, 7};
    attribute->flags = visible ? 0 : kAttributeInvisible;
    db->appendAttribute(insert, std::move(attribute));
  }
  const auto list = shown();
  ASSERT_EQ(list.items().size(), 2u);  // the stroke of the letter, and its label
  expectBox(list.bounds(), {9, 7}, {9, 28});
}

TEST_F(Blocks, AttributeDefinitionsShowTheirTagOnlyOutsideOfBlocks) {
  Attdef definition;
  definition.tag = "I";
  definition.text = "IIII";
  definition.height = 2.5;
  add(definition);
  BlockRecord& record = block("A");
  add(record, definition);
  add(insertOf(record, {0, 0}));
  const auto list = shown();
  ASSERT_EQ(list.items().size(), 2u);
  EXPECT_EQ(list.label(list.items()[1]).text, "I");
}

TEST_F(Blocks, ConstantAttributeDefinitionsShowTheirTextInBlocks) {
  Attdef definition;
  definition.tag = "TAG";
  definition.text = "I";
  definition.height = 2.5;
  definition.flags = kAttributeConstant;
  BlockRecord& record = block("A");
  add(record, definition);
  add(insertOf(record, {0, 0}));
  const auto list = shown();
  ASSERT_EQ(list.items().size(), 2u);
  EXPECT_EQ(list.label(list.items()[1]).text, "I");
}

TEST_F(Blocks, PaperSpaceIsNotPartOfThePicture) {
  add(db->paperSpace(), line(0, 0, 1, 0));
  EXPECT_TRUE(shown().items().empty());
}

}  // namespace
}  // namespace drafting
