// What the writer puts into a file, byte by byte.
#include <gtest/gtest.h>

#include <limits>

#include "embedded/base/files.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dxf/dxf_text.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

std::string crlf(std::string_view list) {
  std::string text;
  for (const char c : groups(list)) text += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return text;
}

template <class T>
T& add(Database& db) {
  auto entity = std::make_unique<T>();
  entity->layer = db.findRecord(Table::Layers, "0");
  return *db.find<T>(db.append(db.modelSpace(), std::move(entity)));
}

bool contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

TEST(DxfWriter, FileBeginsWithVersionAndCodePageAndEndsWithEof) {
  const std::string text = dxfOf(*Database::makeNew());
  EXPECT_TRUE(
      text.starts_with(crlf("  0|SECTION|  2|HEADER|  9|$ACADVER|  1|AC1015|  9|"
                            "$ACADMAINTVER| 70|6|  9|$DWGCODEPAGE|  3|ANSI_936")));
  EXPECT_TRUE(text.ends_with(crlf("  0|ENDSEC|  0|EOF")));
}

TEST(DxfWriter, LineHasTheseGroups) {
  const auto db = Database::makeNew();
  Line& line = add<Line>(*db);
  line.start = {1, 2.5, 0};
  line.end = {-3, 1e20, 0.1};
  line.colour = 3;
  line.xdata = {{db->registerApp("TKSY"), *encodeXData({{1000, "XHGG"}, {1070, 5}}, 936)}};
  EXPECT_TRUE(contains(
      dxfOf(*db), crlf("  0|LINE|  5|2A|330|1F|100|AcDbEntity|  8|0| 62|3|100|AcDbLine| 10|1.0| 20|"
                       "2.5| 30|0.0| 11|-3.0| 21|1e+20| 31|0.1|1001|TKSY|1000|XHGG|1070|5|  0|"
                       "ENDSEC")));
}

TEST(DxfWriter, TextsAreBytesOfTheCodePageOrEscapes) {
  const auto db = Database::makeNew();
  add<Text>(*db).text = "主\u00c7\U0001F600";
  EXPECT_TRUE(contains(dxfOf(*db), "\r\n\xD6\xF7\\U+00C7\\U+D83D\\U+DE00\r\n"));
}

TEST(DxfWriter, ControlCharactersAndCaretsStayInOneLine) {
  const auto db = Database::makeNew();
  add<Text>(*db).text = "a\nb^c\td";
  EXPECT_TRUE(contains(dxfOf(*db), "\r\na^Jb^ c^Id\r\n"));
}

TEST(DxfWriter, NumbersThatAreNotFiniteBecomeZero) {
  const auto db = Database::makeNew();
  Circle& circle = add<Circle>(*db);
  circle.radius = std::numeric_limits<double>::quiet_NaN();
  circle.centre.x = std::numeric_limits<double>::infinity();
  const std::string text = dxfOf(*db);
  EXPECT_TRUE(contains(text, crlf("100|AcDbCircle| 10|0.0| 20|0.0| 30|0.0| 40|0.0")));
}

TEST(DxfWriter, LongMultilineTextIsCutBetweenCharacters) {
  const auto db = Database::makeNew();
  MText& text = add<MText>(*db);
  for (int i = 0; i < 400; ++i) text.text += i % 2 == 0 ? "母" : "x";
  const std::string whole = text.text;
  const auto again = drawingOf(dxfOf(*db));
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(firstOf<MText>(*again).text, whole);
}

TEST(DxfWriter, LayerThatIsOffHasANegativeColour) {
  const auto db = Database::makeNew();
  db->find<Layer>(db->findRecord(Table::Layers, "0"))->off = true;
  const std::string text = dxfOf(*db);
  EXPECT_TRUE(contains(text, crlf(" 62|-7")));
  const auto again = drawingOf(text);
  ASSERT_NE(again, nullptr);
  const auto* layer = again->find<Layer>(again->findRecord(Table::Layers, "0"));
  EXPECT_TRUE(layer->off);
  EXPECT_EQ(layer->colour, 7);
}

TEST(DxfWriter, DegreesAreRoundWhereTheAngleIs) {
  const auto db = Database::makeNew();
  add<Insert>(*db).rotation = base::radians(30);
  EXPECT_TRUE(contains(dxfOf(*db), crlf(" 50|30.0")));
}

TEST(DxfWriter, WhatCannotBeHeldIsNamedAndLeftOut) {
  const auto db = Database::makeNew();
  EXPECT_EQ(dxfLosses(*db), "");
  for (int i = 0; i < 2; ++i) add<RawEntity>(*db).type = 0x4E;
  add<RawEntity>(*db).type = 0x15;
  EXPECT_EQ(dxfLosses(*db), "1 DIMENSION, 2 HATCH");
  EXPECT_FALSE(contains(dxfOf(*db), "HATCH"));
}

TEST(DxfWriter, FailureOfTheOutputIsReportedAndNothingMoreIsSent) {
  const auto db = Database::makeNew();
  for (int i = 0; i < 20000; ++i) add<Line>(*db);
  int calls = 0;
  const base::Status status = writeDxf(*db, [&calls](std::string_view) {
    ++calls;
    return base::Status::failure("disk full");
  });
  EXPECT_EQ(status.message(), "disk full");
  EXPECT_EQ(calls, 1);
}

base::Status failWriting(base::SaveStep step) {
  return step == base::SaveStep::flush ? base::Status::failure("no space") : base::Status();
}

TEST(DxfWriter, FailedSaveKeepsTheOldFile) {
  const test::TempFolder folder;
  const auto path = folder.path() / "a.dxf";
  test::writeBytes(path, "old");
  const base::SaveHook before = base::setSaveHook(failWriting);
  EXPECT_FALSE(saveDxf(*Database::makeNew(), path).ok());
  base::setSaveHook(before);
  EXPECT_EQ(test::bytesOf(path), "old");
}

}  // namespace
}  // namespace drafting
