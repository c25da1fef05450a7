// What a DXF file has of kinds that aren't known: kept through saves as DXF, named before a DWG
// goes without.
#include <gtest/gtest.h>

#include "embedded/drafting/database/packed_groups.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "embedded/drafting/dxf/dxf_text.h"

namespace drafting {
namespace {

constexpr Handle kStyle = 0xF1;

template <class T>
T& add(Database& db) {
  auto entity = std::make_unique<T>();
  entity->layer = db.findRecord(Table::Layers, "0");
  return *db.find<T>(db.append(db.modelSpace(), std::move(entity)));
}

// A drawing as it is read from a file with a multiline, a line and a table style.
std::unique_ptr<Database> drawingWithMore() {
  auto made = Database::makeNew();
  Database& db = *made;
  auto layer = std::make_unique<Layer>();
  layer->name = "主线";
  const Handle line = db.addRecord(Table::Layers, std::move(layer));
  auto& carried = add<GroupEntity>(db);
  carried.name = "MLINE";
  carried.colour = 3;
  carried.layer = line;
  packGroup(carried.groups, 100, "AcDbMline");
  packGroup(carried.groups, 70, "8");
  packGroup(carried.groups, 10, "1.5");
  packGroup(carried.groups, 20, "2.5");
  packGroup(carried.groups, 30, "0.0");
  add<Line>(db);
  auto& root = *db.find<Dictionary>(db.header.handle("NAMED_DICTIONARY"));
  auto style = std::make_unique<GroupObject>();
  style->handle = kStyle;
  style->owner = root.handle;
  style->name = "TABLESTYLE";
  packGroup(style->groups, 100, "AcDbTableStyle");
  packGroup(style->groups, 3, "标题^1");
  db.addObject(std::move(style));
  root.items.emplace_back("STYLES", kStyle);
  return drawingOf(dxfOf(db));
}

const Dictionary& rootOf(const Database& db) {
  return *db.find<Dictionary>(db.header.handle("NAMED_DICTIONARY"));
}

TEST(CarriedGroups, EntityKeepsItsGroupsThroughDxf) {
  const auto db = drawingWithMore();
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(db->modelSpace().count, 2u);
  const auto& carried = firstOf<GroupEntity>(*db);
  EXPECT_EQ(carried.name, "MLINE");
  EXPECT_EQ(carried.colour, 3);
  EXPECT_EQ(db->recordName(carried.layer), "主线");
  EXPECT_EQ(packedValue(carried.groups, 10), "1.5");
  EXPECT_EQ(packedValue(carried.groups, 62), "");
  const auto again = drawingOf(dxfOf(*db));
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(expectSameDrawing(*db, *again, false));
  EXPECT_EQ(dxfLosses(*db), "");
}

TEST(CarriedGroups, ObjectKeepsItsGroupsAndItsPlaceInTheDictionary) {
  const auto db = drawingWithMore();
  ASSERT_NE(db, nullptr);
  const auto* style = db->find<GroupObject>(kStyle);
  ASSERT_NE(style, nullptr);
  EXPECT_EQ(style->name, "TABLESTYLE");
  EXPECT_EQ(packedValue(style->groups, 3), "标题^1");
  EXPECT_EQ(rootOf(*db).items.back(), (std::pair<std::string, Handle>("STYLES", kStyle)));
}

TEST(CarriedGroups, OldFilesKeepThemToo) {
  const auto db = drawingOf(entitiesFile("0|SHAPE|8|L1|62|2|10|1|20|2|0|3DFACE|8|0|10|5"));
  ASSERT_NE(db, nullptr);
  const auto& shape = firstOf<GroupEntity>(*db);
  EXPECT_EQ(shape.colour, 2);
  EXPECT_EQ(packedValue(shape.groups, 62), "") << "common groups aren't kept twice";
  EXPECT_EQ(packedValue(shape.groups, 20), "2");
  EXPECT_EQ(dwgLosses(*db), "1 3DFACE, 1 SHAPE");
}

TEST(CarriedGroups, CodesThatTheFormatDoesNotHaveAreLeftOut) {
  const auto db = drawingOf(entitiesFile("0|MLINE|8|0|70|8|-3|x|9999|y|71|3"));
  ASSERT_NE(db, nullptr);
  const auto& carried = firstOf<GroupEntity>(*db);
  EXPECT_EQ(packedValue(carried.groups, -3), "");
  EXPECT_EQ(packedValue(carried.groups, 71), "3");
  EXPECT_NE(drawingOf(dxfOf(*db)), nullptr);
}

TEST(CarriedGroups, GroupsWithoutMarkerStayHoweverOftenTheDrawingIsSaved) {
  auto db = drawingOf(entitiesFile("0|MLINE|8|0|62|3|70|8|71|3"));
  for (int i = 0; i < 3; ++i) {
    ASSERT_NE(db, nullptr);
    const auto& carried = firstOf<GroupEntity>(*db);
    EXPECT_EQ(packedValue(carried.groups, 70), "8");
    EXPECT_EQ(packedValue(carried.groups, 71), "3");
    EXPECT_EQ(packedValue(carried.groups, 62), "");
    EXPECT_EQ(carried.colour, 3);
    db = drawingOf(dxfOf(*db));
  }
}

TEST(CarriedGroups, DwgGoesWithoutThemAndSaysSo) {
  const auto db = drawingWithMore();
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(dwgLosses(*db), "1 MLINE, 1 TABLESTYLE");
  const auto again = reread(*db);
  ASSERT_NE(again, nullptr);
  ASSERT_EQ(again->modelSpace().count, 1u);
  EXPECT_EQ(again->modelSpace().first->kind, Kind::Line);
  EXPECT_EQ(rootOf(*again).items.size() + 1, rootOf(*db).items.size());
  EXPECT_EQ(dwgLosses(*again), "");
}

TEST(CarriedGroups, ErasingAndUndoingBringsThemBack) {
  const auto db = drawingWithMore();
  ASSERT_NE(db, nullptr);
  const std::string before = dxfOf(*db);
  db->erase(firstOf<GroupEntity>(*db).handle);
  EXPECT_EQ(dwgLosses(*db), "1 TABLESTYLE");
  db->journal().undo();
  EXPECT_EQ(dxfOf(*db), before);
}

TEST(CarriedGroups, DimensionsAreShownByTheirBlock) {
  const auto db = drawingOf(groups(
      "0|SECTION|2|BLOCKS|0|BLOCK|8|0|2|*D1|70|1|0|LINE|8|0|10|1|20|2|11|3|21|4|0|ENDBLK|0|ENDSEC|"
      "0|SECTION|2|ENTITIES|0|DIMENSION|8|0|2|*D1|10|0|20|0|70|32|0|ENDSEC|0|EOF"));
  ASSERT_NE(db, nullptr);
  const DisplayList list = DisplayList::of(*db);
  ASSERT_EQ(list.items().size(), 1u);
  EXPECT_EQ(list.points(list.items()[0])[1], (Point2{3, 4}));
  EXPECT_TRUE(list.notShown().empty());
}

TEST(PackedGroups, ComeBackInOrderAndEndWhereTheyAreCut) {
  std::string packed;
  packGroup(packed, 100, "AcDbMline");
  packGroup(packed, 1, "");
  packGroup(packed, 1071, std::string(70000, 'x'));
  std::string_view rest = packed;
  int code = 0;
  std::string_view value;
  ASSERT_TRUE(takeGroup(rest, code, value));
  EXPECT_EQ(code, 100);
  EXPECT_EQ(value, "AcDbMline");
  ASSERT_TRUE(takeGroup(rest, code, value));
  EXPECT_EQ(value, "");
  ASSERT_TRUE(takeGroup(rest, code, value));
  EXPECT_EQ(code, 1071);
  EXPECT_EQ(value.size(), 70000u);
  EXPECT_FALSE(takeGroup(rest, code, value));
  for (std::size_t size = 0; size < 20; ++size) {
    rest = std::string_view(packed).substr(0, size);
    while (takeGroup(rest, code, value)) {
    }
    EXPECT_LT(rest.size(), 6u);
  }
}

}  // namespace
}  // namespace drafting
