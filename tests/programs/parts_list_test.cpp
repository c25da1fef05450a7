// Parts lists of drawings made by hand.
#include "programs/vornik/parts_list.h"

#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/display/picture_fixture.h"

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

}  // namespace
}  // namespace vornik
