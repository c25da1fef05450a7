// Small files put together from groups: what other programs and older releases write, and what the
// reader says when something is wrong.
#include <gtest/gtest.h>

#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "embedded/drafting/dxf/dxf_text.h"

namespace drafting {
namespace {

std::string failureOf(const std::string& text) {
  std::istringstream in(text);
  ReadReport report;
  const auto read = readDxf(in, report, "a.dxf");
  return read.ok() ? "" : read.message();
}

std::string versionFile(const char* version, std::string_view entities) {
  return groups("0|SECTION|2|HEADER|9|$ACADVER|1") + groups(version) + groups("0|ENDSEC") +
         entitiesFile(entities);
}

TEST(DxfReader, FileOfEntitiesAloneBecomesAWholeDrawing) {
  const auto db = drawingOf(entitiesFile("0|LINE|8|WALL|6|DASHED|62|1|10|1|20|2|11|3|21|4.5"));
  ASSERT_NE(db, nullptr);
  const Line& line = firstOf<Line>(*db);
  EXPECT_EQ(line.end, (Point3{3, 4.5, 0}));
  EXPECT_EQ(db->recordName(line.layer), "WALL");
  EXPECT_EQ(db->recordName(line.linetype), "DASHED");
  EXPECT_EQ(line.colour, 1);
  const auto again = reread(*db);
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(expectSameDrawing(*db, *again));
}

TEST(DxfReader, OldTablesFillTheStandardRecords) {
  const auto db = drawingOf(
      groups("0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|2|0|LAYER|2|0|70|0|62|-5|6|CONTINUOUS|0|LAYER|"
             "2|GRID|70|5|62|8|6|DOT|0|ENDTAB|0|ENDSEC") +
      entitiesFile("0|POINT|8|GRID|10|1|20|1"));
  ASSERT_NE(db, nullptr);
  const auto* zero = db->find<Layer>(db->findRecord(Table::Layers, "0"));
  EXPECT_TRUE(zero->off);
  EXPECT_EQ(zero->colour, 5);
  const auto* grid = db->find<Layer>(db->findRecord(Table::Layers, "grid"));
  ASSERT_NE(grid, nullptr);
  EXPECT_TRUE(grid->frozen && grid->locked && !grid->off);
  EXPECT_EQ(db->recordName(grid->linetype), "DOT");
}

TEST(DxfReader, PolylineWithVerticesBecomesOneLwPolyline) {
  const auto db = drawingOf(entitiesFile(
      "0|POLYLINE|8|0|66|1|70|1|40|0.5|41|0.5|10|0|20|0|30|7|0|VERTEX|8|0|10|1|20|2|42|1|0|VERTEX|"
      "8|0|10|3|20|4|0|SEQEND|8|0|0|POINT|8|0"));
  ASSERT_NE(db, nullptr);
  const LwPolyline& line = firstOf<LwPolyline>(*db);
  EXPECT_EQ(line.points, (std::vector<Point2>{{1, 2}, {3, 4}}));
  EXPECT_EQ(line.bulges, (std::vector<double>{1, 0}));
  EXPECT_EQ(line.constantWidth, 0.5);
  EXPECT_TRUE(line.widths.empty() && line.closed);
  EXPECT_EQ(line.elevation, 7);
  EXPECT_EQ(db->modelSpace().count, 2u);
}

TEST(DxfReader, PolylineInSpaceKeepsItsVertices) {
  std::string notes;
  const auto db = drawingOf(entitiesFile("0|POLYLINE|8|0|66|1|70|9|0|VERTEX|8|0|10|1|30|4|70|32|0|"
                                         "VERTEX|8|0|10|2|70|32|0|SEQEND|0|LINE|8|0"),
                            &notes);
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(db->modelSpace().count, 2u);
  EXPECT_EQ(notes, "");
  const Polyline& line = firstOf<Polyline>(*db);
  EXPECT_EQ(line.form, Polyline::Form::Space);
  EXPECT_EQ(line.flags, 1);
  ASSERT_EQ(line.vertices.size(), 2u);
  const auto* vertex = db->find<Vertex>(line.vertices[0]);
  EXPECT_EQ(vertex->position, (Point3{1, 0, 4}));
  EXPECT_EQ(vertex->form, Vertex::Form::Space);
  EXPECT_NE(db->find<SeqEnd>(line.seqEnd), nullptr);
}

TEST(DxfReader, FittedPolylineOfAnOldFileStaysOne) {
  const auto db = drawingOf(entitiesFile(
      "0|POLYLINE|8|0|66|1|70|4|40|2|75|6|0|VERTEX|8|0|10|1|70|16|0|VERTEX|8|0|10|2|70|8|41|3"));
  ASSERT_NE(db, nullptr);
  const Polyline& line = firstOf<Polyline>(*db);
  EXPECT_EQ(line.flags, 4);
  EXPECT_EQ(line.curve, 6);
  ASSERT_EQ(line.vertices.size(), 2u);
  const auto* vertex = db->find<Vertex>(line.vertices[1]);
  EXPECT_EQ(vertex->startWidth, 2) << "the polyline's, since it has none of its own";
  EXPECT_EQ(vertex->endWidth, 3);
  EXPECT_NE(db->find<SeqEnd>(line.seqEnd), nullptr) << "made, since the file has none";
}

TEST(DxfReader, VerticesAndEndsWithoutAPolylineAreLeftOutWithANote) {
  std::string notes;
  const auto db = drawingOf(entitiesFile("0|VERTEX|8|0|10|1|0|LINE|8|0|0|VERTEX|8|0|0|SEQEND|8|0|0|"
                                         "INSERT|8|0|2|B|0|VERTEX|8|0|0|POLYLINE|8|0|0|ATTRIB|8|0"),
                            &notes);
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(db->modelSpace().count, 3u);
  EXPECT_EQ(notes, "left out, being of kinds that aren't known: 1 ATTRIB, 1 SEQEND, 3 VERTEX\n");
}

TEST(DxfReader, InsertMayComeBeforeItsBlock) {
  const auto db = drawingOf(
      groups("0|SECTION|2|BLOCKS|0|BLOCK|8|0|2|OUTER|70|0|10|1|20|1|0|INSERT|8|0|2|inner|10|5|20|5|"
             "0|ENDBLK|8|0|0|BLOCK|8|0|2|INNER|70|0|0|LINE|8|0|0|ENDBLK|0|ENDSEC") +
      entitiesFile("0|INSERT|8|0|2|outer|41|2|66|1|0|ATTRIB|8|0|1|M1|2|TAG|0|SEQEND|8|0"));
  ASSERT_NE(db, nullptr);
  const auto* outer = db->find<BlockRecord>(db->findRecord(Table::Blocks, "OUTER"));
  const auto* inner = db->find<BlockRecord>(db->findRecord(Table::Blocks, "INNER"));
  ASSERT_TRUE(outer && inner);
  EXPECT_EQ(static_cast<const Insert*>(outer->first)->block, inner->handle);
  EXPECT_EQ(inner->count, 1u);
  EXPECT_EQ(outer->base, (Point3{1, 1, 0}));
  const Insert& insert = firstOf<Insert>(*db);
  ASSERT_EQ(insert.attributes.size(), 1u);
  EXPECT_EQ(db->find<Attrib>(insert.attributes[0])->tag, "TAG");
  EXPECT_NE(db->find<SeqEnd>(insert.seqEnd), nullptr);
}

TEST(DxfReader, SolidOfThreeCornersRepeatsTheThird) {
  const auto db = drawingOf(entitiesFile("0|SOLID|8|0|10|0|20|0|30|2|11|1|21|0|12|1|22|1"));
  ASSERT_NE(db, nullptr);
  const Solid& solid = firstOf<Solid>(*db);
  EXPECT_EQ(solid.corners[3], (Point2{1, 1}));
  EXPECT_EQ(solid.elevation, 2);
}

TEST(DxfReader, EscapesAndCaretsAreDecodedBehindTheCodePage) {
  const std::string text = groups("0|SECTION|2|HEADER|9|$DWGCODEPAGE|3|ANSI_936|0|ENDSEC") +
                           entitiesFile("0|TEXT|8|0|1|\\U+56FE^J^ \x81\x5E\\M+5D6F7");
  const auto db = drawingOf(text);
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(db->codePage, 936);
  EXPECT_EQ(firstOf<Text>(*db).text, "图\n^乛主");
}

TEST(DxfReader, NewerVersionIsNamedAndReadAsUtf8) {
  std::string notes;
  const auto db = drawingOf(versionFile("AC1021", "0|TEXT|8|图层|1|主母线"), &notes);
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(notes,
            "line 2: the file is of version 2007 (AC1021); what a drawing of version 2000 can't "
            "hold is left out\n");
  EXPECT_EQ(firstOf<Text>(*db).text, "主母线");
  EXPECT_EQ(db->recordName(firstOf<Text>(*db).layer), "图层");
}

TEST(DxfReader, WhatIsNoDxfIsRefusedWithTheReason) {
  EXPECT_EQ(failureOf(""), "a.dxf: the file is empty");
  EXPECT_EQ(failureOf("hello\nworld\n"),
            "a.dxf: the file is no DXF file: it doesn't begin with a section");
  EXPECT_EQ(failureOf("AC1018xxxx"), "a.dxf: the file is a DWG drawing (AC1018), not a DXF file");
  EXPECT_EQ(failureOf("Some Binary DXF\r\n"),
            "a.dxf: the file is a binary DXF; save it as ASCII DXF");
  EXPECT_EQ(failureOf(versionFile("AC9000", "0|LINE|8|0")),
            "a.dxf: the file is of an unknown version (AC9000); save it as DXF of version 2000 in "
            "the program that it comes from");
}

TEST(DxfReader, ExtendedDataOfEveryCodeComesThrough) {
  const auto db = drawingOf(entitiesFile(
      "0|LINE|8|0|1001|TKSY|1000|XHGG|1002|{|1003|0|1004|00FF7F|1005|1F|1010|1|1020|2|1030|3|1011|"
      "4|1021|5|1031|6|1040|2.5|1041|1|1042|-1|1070|-5|1071|70000|1002|}|1001|OTHER|1000|x"));
  ASSERT_NE(db, nullptr);
  const Line& line = firstOf<Line>(*db);
  ASSERT_EQ(line.xdata.size(), 2u);
  EXPECT_EQ(db->recordName(line.xdata[0].app), "TKSY");
  const auto items = decodeXData(line.xdata[0].items);
  ASSERT_TRUE(items);
  const Handle zero = db->findRecord(Table::Layers, "0");
  const std::vector<XDataItem> expected{{1000, "XHGG"},
                                        {1002, "{"},
                                        {1003, zero},
                                        {1004, std::string("\0\xFF\x7F", 3)},
                                        {1005, Handle{0x1F}},
                                        {1010, Point3{1, 2, 3}},
                                        {1011, Point3{4, 5, 6}},
                                        {1040, 2.5},
                                        {1041, 1.0},
                                        {1042, -1.0},
                                        {1070, -5},
                                        {1071, 70000},
                                        {1002, "}"}};
  EXPECT_EQ(*items, expected);
}

TEST(DxfReader, ExtendedTextThatIsTooLongIsLeftOutWithItsLine) {
  std::string notes;
  const auto db =
      drawingOf(entitiesFile("0|LINE|8|0|1001|TKSY|1000|" + std::string(300, 'x')), &notes);
  ASSERT_NE(db, nullptr);
  EXPECT_TRUE(firstOf<Line>(*db).xdata.empty());
  EXPECT_EQ(notes, "line 6: extended data that don't fit a drawing were left out\n");
}

TEST(DxfReader, WrongGroupCodeEndsTheReadingWithItsLine) {
  std::string notes;
  const auto db = drawingOf(groups("0|SECTION|2|ENTITIES|0|LINE|8|0|0|LINE|8|0|oops|1"), &notes);
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(db->modelSpace().count, 2u);
  EXPECT_EQ(notes,
            "line 13: a group code should stand here, not \"oops\"; read no further\n"
            "line 13: the file isn't closed by EOF\n");
}

TEST(DxfReader, SecondUseOfAHandleGetsANewOne) {
  std::string notes;
  const auto db = drawingOf(entitiesFile("0|LINE|5|50|8|0|0|LINE|5|50|8|0"), &notes);
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(db->modelSpace().count, 2u);
  EXPECT_NE(db->modelSpace().last->handle, 0x50u);
  EXPECT_EQ(notes, "line 12: LINE has the handle of another object; given a new one\n");
}

TEST(DxfReader, SecondRecordOfANameIsLeftOut) {
  std::string notes;
  const auto db = drawingOf(
      groups("0|SECTION|2|TABLES|0|TABLE|2|LAYER|0|LAYER|2|A|62|1|0|LAYER|2|a|62|2|0|ENDTAB|0|"
             "ENDSEC|0|EOF"),
      &notes);
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(db->find<Layer>(db->findRecord(Table::Layers, "A"))->colour, 1);
  EXPECT_EQ(notes, "line 16: a second LAYER \"a\"; left out\n");
}

TEST(DxfReader, CommentsAndLineEndsOfBothSystemsAreReadOver) {
  std::string text = groups("999|made by hand") + entitiesFile("0|LINE|999|note|8|0|10|1|20|2");
  std::string crlf;
  for (const char c : text) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
  for (const std::string& form : {text, crlf}) {
    const auto db = drawingOf(form);
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(firstOf<Line>(*db).start, (Point3{1, 2, 0}));
  }
}

TEST(DxfReader, LineWithoutEndIsCutAndSaid) {
  std::string notes;
  const auto db =
      drawingOf(entitiesFile("0|TEXT|8|0|1|" + std::string(std::size_t{1} << 21, 'x')), &notes);
  ASSERT_NE(db, nullptr);
  EXPECT_EQ(firstOf<Text>(*db).text.size(), std::size_t{1} << 20);
  EXPECT_EQ(notes, "line 10: the line is too long; cut\n");
}

TEST(DxfReader, SplineHasItsPointsOfBothKinds) {
  const auto db = drawingOf(entitiesFile(
      "0|SPLINE|8|0|210|0|220|0|230|-1|70|12|71|2|72|6|73|3|74|2|42|0.5|12|1|22|2|32|3|"
      "40|0|40|0|40|0|40|1|40|1|40|1|41|1|41|0.5|10|1|20|2|30|3|10|4|20|5|30|6|"
      "10|7|20|8|30|9|11|1|21|2|31|3|11|7|21|8|31|9"));
  ASSERT_NE(db, nullptr);
  const auto& spline = firstOf<Spline>(*db);
  EXPECT_TRUE(spline.rational);
  EXPECT_FALSE(spline.closed);
  EXPECT_EQ(spline.otherFlags, 8);
  EXPECT_EQ(spline.normal, (Point3{0, 0, -1}));
  EXPECT_EQ(spline.knots, (std::vector<double>{0, 0, 0, 1, 1, 1}));
  EXPECT_EQ(spline.weights, (std::vector<double>{1, 0.5, 1})) << "a missing one is 1";
  EXPECT_EQ(spline.controls, (std::vector<Point3>{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
  EXPECT_EQ(spline.fitPoints, (std::vector<Point3>{{1, 2, 3}, {7, 8, 9}}));
  EXPECT_EQ(spline.startTangent, (Point3{1, 2, 3}));
  EXPECT_EQ(spline.knotTolerance, 0.5);
  const auto again = drawingOf(dxfOf(*db));
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(expectSameDrawing(*db, *again, false));
  EXPECT_EQ(dwgLosses(*db), "1 SPLINE (fit points)");
}

TEST(DxfReader, SplineThroughFitPointsIsWrittenWithControlPointsAndReadWithoutThem) {
  const auto db = drawingOf(entitiesFile("0|SPLINE|8|0|70|8|71|3|11|0|21|0|11|3|21|4|11|7|21|-1"));
  ASSERT_NE(db, nullptr);
  ASSERT_EQ(firstOf<Spline>(*db).fitPoints.size(), 3u);
  const std::string text = dxfOf(*db);
  EXPECT_NE(text.find(" 73\r\n5\r\n"), std::string::npos);
  const auto again = drawingOf(text);
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(firstOf<Spline>(*again).controls.empty());
  EXPECT_TRUE(expectSameDrawing(*db, *again, false));
  EXPECT_EQ(dwgLosses(*again), "");
}

TEST(DxfReader, SplineWithoutAnythingIsASplineWithoutPicture) {
  const auto db = drawingOf(entitiesFile("0|SPLINE|8|0|20|5|41|x"));
  ASSERT_NE(db, nullptr);
  EXPECT_TRUE(firstOf<Spline>(*db).controls.empty());
  EXPECT_EQ(dwgLosses(*db), "");
}

}  // namespace
}  // namespace drafting
