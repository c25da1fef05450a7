// JSON of texts, numbers and objects.
#include "programs/vornik/field_dump.h"

#include "embedded/drafting/database/fields.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/display/picture_fixture.h"
#include "programs/vornik/json.h"

namespace vornik {
namespace {

using namespace drafting;

TEST(Json, TextsAreEscaped) {
  EXPECT_EQ(jsonText("a\"b\\c\nd\x01"), "\"a\\\"b\\\\c\\nd\\u0001\"");
  EXPECT_EQ(jsonText("断路器"), "\"断路器\"");
}

TEST(Json, CarriedBytesAndMalformedOnesStayReadable) {
  EXPECT_EQ(jsonText("x\xED\xB2\x81"), "\"x\\udc81\"");
  EXPECT_EQ(jsonText("\xFF"), "\"\xEF\xBF\xBD\"");
}

TEST(Json, NumbersAreShortAndNeverInfinite) {
  EXPECT_EQ(jsonNumber(0.1), "0.1");
  EXPECT_EQ(jsonNumber(HUGE_VAL), "null");
}

class ObjectDump : public PictureTest {
 protected:
  template <class T>
  std::string membersOf(const T& object) {
    FieldDump dump(*db);
    walk<FieldDump>(dump, object);
    return dump.members();
  }
};

TEST_F(ObjectDump, LinesShowTheirEnds) {
  EXPECT_EQ(membersOf(line(1, 2, 3.5, 4)), ",\"start\":[1,2,0],\"end\":[3.5,4,0]");
}

TEST_F(ObjectDump, AnglesAreDegrees) {
  Arc arc;
  arc.radius = 2;
  arc.startAngle = base::radians(270);
  arc.endAngle = base::radians(90);
  EXPECT_EQ(membersOf(arc), ",\"centre\":[0,0,0],\"radius\":2,\"startAngle\":270,\"endAngle\":90");
}

TEST_F(ObjectDump, PolylinesShowWidthsAndBulgesWhereTheyHaveThem) {
  EXPECT_EQ(membersOf(polyline({{0, 0}, {1, 0}})), ",\"closed\":false,\"points\":[[0,0],[1,0]]");
  LwPolyline wide = polyline({{0, 0}, {1, 0}}, 0.3);
  wide.bulges = {1, 0};
  wide.widths = {{1, 2}, {0, 0}};
  EXPECT_EQ(membersOf(wide),
            ",\"closed\":false,\"points\":[[0,0],[1,0]],\"bulges\":[1,0],\"widths\":[[1,2],[0,0]],"
            "\"width\":0.3");
}

TEST_F(ObjectDump, InsertsNameTheirBlock) {
  Insert insert = insertOf(block("ZHL1003"), {1, 2});
  EXPECT_EQ(membersOf(insert),
            ",\"position\":[1,2,0],\"scale\":[1,1,1],\"rotation\":0,\"block\":\"ZHL1003\"");
  insert.isArray = true;
  insert.columns = 2;
  EXPECT_NE(membersOf(insert).find("\"columns\":2,\"rows\":1"), std::string::npos);
}

TEST_F(ObjectDump, CarriedThroughEntitiesShowTheirBytes) {
  RawEntity raw;
  raw.type = 500;
  raw.body = {"\xAB\xC0", 12};
  raw.references = {{5, 0x1F}};
  EXPECT_EQ(membersOf(raw),
            ",\"typeNumber\":500,\"bits\":12,\"bytes\":\"ABC0\",\"references\":[[5,\"1F\"]]");
}

TEST_F(ObjectDump, ExtendedDataOfAllKindsIsShown) {
  Line tagged = line(0, 0, 1, 1);
  const std::vector<XDataItem> items = {{1000, std::string("电")},
                                        {1002, std::string("{")},
                                        {1003, zero()},
                                        {1004, std::string("\x01\xFF")},
                                        {1005, Handle{0x2A}},
                                        {1010, Point3{1, 2, 3}},
                                        {1040, 0.5},
                                        {1070, -7},
                                        {1071, 70000},
                                        {1002, std::string("}")}};
  const auto coded = encodeXData(items, 936);
  ASSERT_TRUE(coded);
  tagged.xdata = {{db->registerApp("APP"), *coded}, {0x999, "\xFF"}};
  EXPECT_EQ(extendedData(*db, tagged),
            "{\"APP\":[[1000,\"电\"],[1002,\"{\"],[1003,\"0\"],[1004,\"01FF\"],[1005,\"2A\"],"
            "[1010,[1,2,3]],[1040,0.5],[1070,-7],[1071,70000],[1002,\"}\"]],\"999\":\"FF\"}");
}

}  // namespace
}  // namespace vornik
