// Parts lists of drawings made by hand.
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/display/picture_fixture.h"
#include "programs/vornik/parts_compare.h"
#include "programs/vornik/parts_table.h"

namespace vornik {
namespace {

using namespace drafting;

class PartsOfDrawing : public PictureTest {
 protected:
  void place(const std::string& symbol, const std::string& model, Point2 at,
             const std::string& index = "") {
    Handle record = db->findRecord(Table::Blocks, symbol);
    if (record == 0) record = block(symbol).handle;
    Insert insert;
    insert.block = record;
    insert.position = {at.x, at.y, 0};
    tag(insert, "XHGG", model);
    tag(insert, "TKSY", index);
    add(insert);
  }
  void tag(Insert& insert, const char* app, const std::string& text) {
    if (text.empty()) return;
    insert.xdata.push_back({db->registerApp(app), *encodeXData({{1000, text}}, 936)});
  }
  std::vector<Part> parts() {
    notes.clear();
    return partsOfDrawing(*db, [this](std::string_view text) { notes.emplace_back(text); });
  }

  std::vector<std::string> notes;
};

TEST_F(PartsOfDrawing, AreCountedBySymbolAndModel) {
  place("Fah", "", {0, 0});
  place("ZHL1003", "CM1-100 63A", {0, -10}, "塑壳断路器&QF");
  place("ZHL1003", "CM1-100 32A", {0, -20});
  place("Fah", "", {100, 0});
  place("ZHL1003", "CM1-100 63A", {100, -10});
  place("ZHL1003", "CM1-100 63A", {100, -20});
  const auto list = parts();
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0].model, "CM1-100 32A");
  EXPECT_EQ(list[1].name, "塑壳断路器");
  EXPECT_EQ(list[1].letters, "QF");
  EXPECT_EQ(list[1].count, 3);
  EXPECT_EQ(list[1].circuits, (std::vector<std::string>{"1", "2"}));
  EXPECT_EQ(list[1].places.size(), 3u);
  EXPECT_TRUE(notes.empty());
}

TEST_F(PartsOfDrawing, BlocksWithoutModelAreLeftOut) {
  place("ZHL1036", "", {0, 0}, "出线箭头&OUT");
  EXPECT_TRUE(parts().empty());
  EXPECT_TRUE(notes.empty());
}

TEST_F(PartsOfDrawing, EmptyCellsThatCarryAModelAreReportedAndNotCounted) {
  place("Fah", "", {0, 0});
  for (const char* cell : {"F002", "ZHL1000", "f002"}) place(cell, "CJ20-63", {0, -42.5});
  EXPECT_TRUE(parts().empty());
  ASSERT_EQ(notes.size(), 3u);
  EXPECT_EQ(notes[0],
            "the empty cell F002 at (0, -42.5) of circuit 1 carries the model CJ20-63; it isn't "
            "counted");
}

TEST_F(PartsOfDrawing, WhatStandsBeforeTheFirstCircuitHasNone) {
  place("ZHL1022", "Y132M-4", {5, 5});
  const auto list = parts();
  ASSERT_EQ(list.size(), 1u);
  EXPECT_TRUE(list[0].circuits.empty());
}

TEST(PartsAsCsv, FieldsAreQuotedWhereTheyNeedIt) {
  Part part;
  part.symbol = "A";
  part.name = "with \"quotes\"";
  part.model = "3X25+1X16, 0.6/1kV";
  part.count = 1;
  part.circuits = {"1", "3"};
  part.places = {{1.5, -2}};
  EXPECT_EQ(partsAsCsv({part}),
            "symbol,name,letters,model,count,circuits,places\r\n"
            "A,\"with \"\"quotes\"\"\",,\"3X25+1X16, 0.6/1kV\",1,1; 3,\"(1.5, -2)\"\r\n");
}

Part part(const char* symbol, const char* model, int count, std::vector<std::string> circuits) {
  Part part;
  part.symbol = symbol;
  part.name = std::string("name of ") + symbol;
  part.model = model;
  part.count = count;
  part.circuits = std::move(circuits);
  return part;
}

TEST(PartsBy, ModelSumsOverSymbolsAndListsWhatDiffers) {
  const std::vector<Part> all{part("A", "M1", 2, {"1", "2"}), part("A", "M2", 1, {"2"}),
                              part("B", "M1", 3, {"2", "4"})};
  const auto byModel = partsBy(PartsBy::Model, all);
  ASSERT_EQ(byModel.size(), 2u);
  EXPECT_EQ(byModel[0].model, "M1");
  EXPECT_EQ(byModel[0].symbol, "A; B");
  EXPECT_EQ(byModel[0].count, 5);
  EXPECT_EQ(byModel[0].circuits, (std::vector<std::string>{"1", "2", "4"}));
  const auto bySymbol = partsBy(PartsBy::Symbol, all);
  ASSERT_EQ(bySymbol.size(), 2u);
  EXPECT_EQ(bySymbol[0].model, "M1; M2");
  EXPECT_EQ(bySymbol[0].name, "name of A");
  EXPECT_EQ(bySymbol[1].count, 3);
  EXPECT_EQ(partsBy(PartsBy::SymbolAndModel, all).size(), 3u);
}

TEST(CompareParts, TellsWhatCameWentAndChanged) {
  const auto changes = compareParts(
      {part("A", "M1", 2, {"1", "2"}), part("A", "M2", 1, {"2"}), part("C", "M", 1, {})},
      {part("A", "M1", 3, {"1", "2", "3"}), part("B", "M3", 1, {"3"}), part("C", "M", 1, {"9"})});
  EXPECT_EQ(changesAsCsv(changes),
            "symbol,name,letters,model,before,after,difference,circuits before,circuits after\r\n"
            "A,name of A,,M1,2,3,+1,1; 2,1; 2; 3\r\n"
            "A,name of A,,M2,1,0,-1,2,\r\n"
            "B,name of B,,M3,0,1,+1,,3\r\n");
}

TEST(CompareParts, EqualListsHaveNoChanges) {
  const std::vector<Part> list{part("A", "M1", 2, {"1"})};
  EXPECT_TRUE(compareParts(list, list).empty());
}

class PartsTable : public PictureTest {
 protected:
  template <class T>
  std::vector<const T*> drawn() const {
    std::vector<const T*> found;
    for (const Entity* e = db->modelSpace().first; e; e = e->next) {
      if (const auto* one = dynamic_cast<const T*>(e)) found.push_back(one);
    }
    return found;
  }
  std::vector<std::string> circuits(int count) const {
    std::vector<std::string> all;
    for (int i = 1; i <= count; ++i) all.push_back(std::to_string(i));
    return all;
  }
};

TEST_F(PartsTable, HasAHeadingAndALineForEachPartWithinItsFrame) {
  drawPartsTable(*db, {part("A", "M1", 2, {"1"}), part("B", "M2", 1, {"2"})}, {100, 50}, 2);
  EXPECT_EQ(drawn<Line>().size(), 4u + 7u);
  const auto texts = drawn<Text>();
  ASSERT_EQ(texts.size(), 6u + 2 * 5u) << "cells without text have none";
  EXPECT_EQ(texts[0]->text, "序号");
  EXPECT_EQ(texts[6]->text, "1");
  const base::Box2 box = DisplayList::of(*db).bounds();
  EXPECT_DOUBLE_EQ(box.width(), 200 * 2);
  EXPECT_DOUBLE_EQ(box.height(), 3 * 8 * 2);
  EXPECT_DOUBLE_EQ(texts[0]->height, 7);
  for (const Text* text : texts) EXPECT_EQ(db->recordName(text->layer), kPartsLayer);
  EXPECT_TRUE(db->journal().undo());
  EXPECT_TRUE(drawn<Entity>().empty()) << "one step";
}

TEST_F(PartsTable, LongTextsAreNarrowedAndCircuitsTakeMoreLines) {
  drawPartsTable(
      *db, {part("A", "a model whose description is far longer than its column", 40, circuits(40))},
      {0, 0}, 1);
  std::size_t lines = 0;
  for (const Text* text : drawn<Text>()) {
    if (text->text.rfind("a model", 0) == 0) {
      EXPECT_LT(text->widthFactor, 0.9);
    }
    lines += text->text.find(',') != std::string::npos;
  }
  EXPECT_GT(lines, 2u);
  const base::Box2 box = DisplayList::of(*db).bounds();
  EXPECT_DOUBLE_EQ(box.width(), 200) << "no text leaves the frame";
  EXPECT_GT(box.height(), 16 + 2 * 5.5);
}

TEST_F(PartsTable, StandsRightOfTheDrawing) {
  Line line;
  line.start = {0, 0, 0};
  line.end = {100, 40, 0};
  add(line);
  const Point2 place = placeForTable(*db, 2);
  EXPECT_EQ(place.x, 140);
  EXPECT_EQ(place.y, 40);
}

}  // namespace
}  // namespace vornik
