// Reading of slides: both levels and byte orders, every kind of record, fills, damage.
#include "embedded/slide_store/slide.h"

#include <gtest/gtest.h>

#include "embedded/slide_store/slide_listing.h"

namespace {

using slide_store::readSlideHeader;
using test::bytesOf;
using test::kExampleListing;
using test::kExampleRecords;
using test::listed;
using test::slideWith;

const std::string kHighFirstRecords =
    "ff 03 00 78 02 58 00 78 01 f4 fe 00 c4 fb ec 0a 14 1e ff 01 fd 00 00 03 ff fe "
    "fd 00 00 0a 00 14 fd 00 00 32 00 14 fd 00 00 1e 00 2c fd 00 00 03 ff fe fc 00";
const std::string kHighFirst =
    bytesOf(
        "41 75 74 6f 43 41 44 20 53 6c 69 64 65 0d 0a 1a 00 56 02 00 ef 02 7f 3b 12 39 00 00 02 "
        "12 34") +
    bytesOf(kHighFirstRecords);

const std::string kTitle = bytesOf("41 75 74 6f 43 41 44 20 53 6c 69 64 65 0d 0a 1a 00 56");
const std::string kLevel1Low =
    kTitle + bytesOf("01 ef 00 7f 02 e3 36 09 97 f9 ef d7 3f 02 00 00") + bytesOf(kExampleRecords);
const std::string kLevel1High = kTitle +
                                bytesOf("01 00 ef 02 7f 3f d7 ef f9 97 09 36 e3 00 02 00") +
                                bytesOf(kHighFirstRecords);

void expectExample(const std::string& slide, int level, bool highFirst) {
  const auto header = readSlideHeader(slide);
  ASSERT_TRUE(header.ok()) << header.message();
  EXPECT_EQ(header->level, level);
  EXPECT_EQ(header->highFirst, highFirst);
  EXPECT_EQ(header->highX, 239);
  EXPECT_EQ(header->highY, 639);
  EXPECT_NEAR(header->aspect, 239.0 / 639.0, 1e-7);
  EXPECT_EQ(listed(slide), kExampleListing);
  test::Listing listing;
  EXPECT_EQ(*readSlideRecords(slide, *header, listing), slide.size());
}

TEST(Slide, ReadsLevel2InBothByteOrders) {
  expectExample(slideWith(kExampleRecords), 2, false);
  expectExample(kHighFirst, 2, true);
}

TEST(Slide, FindsTheByteOrderOfLevel1ByTrying) {
  expectExample(kLevel1Low, 1, false);
  expectExample(kLevel1High, 1, true);
}

TEST(Slide, Level1ThatEndsInNeitherByteOrderIsRefused) {
  EXPECT_EQ(listed(kLevel1Low.substr(0, kLevel1Low.size() - 2)),
            "byte 34: the records end in neither byte order");
}

TEST(Slide, TypeAndHardwareFillAreNotLookedAt) {
  std::string slide = slideWith(kExampleRecords);
  slide[17] = 0x38;
  slide[27] = 0;
  EXPECT_EQ(listed(slide), kExampleListing);
}

TEST(Slide, EmptySlideIsTheEndRecordAlone) { EXPECT_EQ(listed(slideWith("00 fc")), ""); }

TEST(Slide, BytesBehindTheEndRecordDoNotCount) {
  const std::string slide = slideWith("00 fc 01 02 03");
  test::Listing listing;
  EXPECT_EQ(*readSlideRecords(slide, *readSlideHeader(slide), listing), slide.size() - 3);
}

TEST(Slide, RelativeRecordsStartAtZeroWithoutALastPoint) {
  EXPECT_EQ(listed(slideWith("05 fe 06 01 fb 01 01 01 00 fc")), "0 line 0,0 5,6\n0 line 6,7 6,7\n");
}

TEST(Slide, LastPointIsTheFromPointButForCommonEndpoints) {
  EXPECT_EQ(listed(slideWith("0a 00 0a 00 14 00 14 00 e7 fe 01 01 fb 02 03 04 00 fc")),
            "0 line 10,10 20,20\n0 line 10,10 -15,11\n0 line -14,13 -12,15\n");
}

TEST(Slide, RelativeRecordsStayWithin16Bits) {
  std::string records = "ff 7f 00 80 00 00 00 00 ";
  for (int i = 0; i < 300; ++i) records += "7f fe 80 ";
  const std::string text = listed(slideWith(records + "00 fc"));
  EXPECT_TRUE(text.ends_with("0 line 32767,-32768 32767,-32768\n"));
}

TEST(Slide, FillOfStyleBClosesWithItsLastCornerNegated) {
  EXPECT_EQ(listed(slideWith("00 fd 04 00 fe ff 00 fd 01 00 02 00 00 fd 05 00 02 00 "
                             "00 fd 03 00 09 00 00 fd 03 00 f7 ff 00 fc")),
            "0 fill 1,2 5,2 3,9\n");
}

TEST(Slide, StyleBOnTheLowestRowIsClosedByItsCount) {
  // The last corner's y is 0, whose negative is 0; the next run follows at once.
  const std::string run =
      "00 fd 04 00 fe ff 00 fd 01 00 02 00 00 fd 05 00 02 00 00 fd 03 00 00 00 00 fd 03 00 00 00 ";
  EXPECT_EQ(listed(slideWith(run + run + "00 fc")), "0 fill 1,2 5,2 3,0\n0 fill 1,2 5,2 3,0\n");
}

TEST(Slide, FillsDoNotMoveTheLastPoint) {
  EXPECT_EQ(listed(slideWith("0a 00 0a 00 14 00 14 00 00 fd 03 00 fe ff 00 fd 01 00 02 00 "
                             "00 fd 05 00 02 00 00 fd 03 00 09 00 00 fd 00 00 f7 ff 01 fe 01 "
                             "00 fc")),
            "0 line 10,10 20,20\n0 fill 1,2 5,2 3,9\n0 line 10,10 11,11\n");
}

TEST(Slide, AnotherRecordClosesARun) {
  EXPECT_EQ(listed(slideWith("02 ff 00 fd 03 00 fe ff 00 fd 01 00 02 00 00 fd 05 00 02 00 "
                             "00 fd 03 00 09 00 07 ff 00 00 00 00 01 00 01 00 00 fc")),
            "2 fill 1,2 5,2 3,9\n7 line 0,0 1,1\n");
}

TEST(Slide, RunsWithoutThreeDifferentCornersDrawNothing) {
  const std::string mark = "00 fd 03 00 fe ff ";
  const std::string a = "00 fd 01 00 02 00 ";
  const std::string b = "00 fd 05 00 02 00 ";
  EXPECT_EQ(listed(slideWith(mark + a + b + a + mark + "00 fc")), "");
  EXPECT_EQ(listed(slideWith(mark + a + a + mark + "00 fc")), "");
  // An empty run doesn't cost the one behind it.
  EXPECT_EQ(listed(slideWith(mark + mark + a + b + "00 fd 03 00 09 00 " + mark + "00 fc")),
            "0 fill 1,2 5,2 3,9\n");
}

TEST(Slide, CornersOutsideARunAreSkipped) {
  EXPECT_EQ(listed(slideWith("00 fd 01 00 02 00 00 fd 05 00 02 00 00 fd 03 00 09 00 00 fc")), "");
}

TEST(Slide, WhatStandsBeforeDamageIsDrawn) {
  const std::string line = "05 ff 01 00 02 00 03 00 04 00 ";
  EXPECT_EQ(listed(slideWith(line)),
            "5 line 1,2 3,4\nbyte 41: the slide ends without an end record");
  EXPECT_EQ(listed(slideWith(line + "00 90")), "5 line 1,2 3,4\nbyte 41: is no slide record");
  EXPECT_EQ(listed(slideWith(line + "01 00 02 00")),
            "5 line 1,2 3,4\nbyte 41: the slide ends without an end record");
}

TEST(Slide, WhatIsNoSlideIsRefused) {
  EXPECT_EQ(listed(""), "byte 0: is no slide");
  EXPECT_EQ(listed(kTitle), "byte 18: the slide ends in its header");
  EXPECT_EQ(listed(kTitle + "\x03"), "byte 18: is no level of slides");
  EXPECT_EQ(listed(kTitle + "\x01 short"), "byte 25: the slide ends in its header");
  EXPECT_EQ(listed(kTitle + "\x02 short"), "byte 25: the slide ends in its header");
  std::string slide = slideWith(kExampleRecords);
  slide[29] = 0x35;
  EXPECT_EQ(listed(slide), "byte 29: is no byte order's test number");
}

TEST(Slide, EveryCutIsRefusedWithoutHarm) {
  const std::string whole = slideWith(kExampleRecords);
  for (const std::string& slide : {whole, kHighFirst, kLevel1Low, kLevel1High}) {
    for (std::size_t size = 0; size < slide.size(); ++size) {
      EXPECT_NE(listed(slide.substr(0, size)).find("byte "), std::string::npos);
    }
  }
}

}  // namespace
