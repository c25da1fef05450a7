// Writing of slides: exact bytes, the choice of records, clipping.
#include "embedded/slide_store/slide_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "embedded/slide_store/slide_listing.h"

namespace {

using slide_store::SlidePoint;
using slide_store::SlideWriter;
using test::listed;
using test::slideWith;

TEST(SlideWriter, WritesThePublishedBytes) {
  SlideWriter writer(239, 639);
  writer.line({120, 600}, {120, 500}, 3);
  writer.line({120, 600}, {120, 540}, 3);
  writer.line({100, 550}, {140, 570}, 3);
  writer.fill(std::array{SlidePoint{10, 20}, SlidePoint{50, 20}, SlidePoint{30, 44}}, 1);
  EXPECT_EQ(writer.finish(), slideWith(test::kExampleRecords));
}

TEST(SlideWriter, EmptySlideHas33Bytes) {
  EXPECT_EQ(SlideWriter(239, 639).finish(), slideWith("00 fc"));
}

TEST(SlideWriter, TakesTheShortestRecordThatFits) {
  SlideWriter writer(3000, 3000);
  writer.line({1000, 1000}, {2000, 2000}, 1);  // vector
  writer.line({1127, 872}, {1000, 1000}, 1);   // an end in common, the other one 127, -128 away
  writer.line({1255, 872}, {1127, 872}, 1);    // 128 away: a vector, from the end in common
  writer.line({1127, 873}, {1000, 744}, 1);    // both ends within -128 .. 127
  writer.line({1128, 900}, {872, 900}, 1);     // one end 128 away
  const std::string slide = writer.finish();
  EXPECT_EQ(listed(slide),
            "1 line 1000,1000 2000,2000\n1 line 1000,1000 1127,872\n1 line 1127,872 1255,872\n"
            "1 line 1127,873 1000,744\n1 line 1128,900 872,900\n");
  EXPECT_EQ(slide.size(), 31U + 2 + 8 + 3 + 8 + 5 + 8 + 2);
}

TEST(SlideWriter, ColourIsWrittenWhenItChanges) {
  SlideWriter writer(100, 100);
  for (const std::uint8_t colour : std::initializer_list<std::uint8_t>{0, 0, 255, 0})
    writer.line({1, 1}, {1, 2}, colour);
  const std::string slide = writer.finish();
  EXPECT_EQ(slide.size(), 31U + 3 * 2 + 8 + 3 * 3 + 2);
  EXPECT_EQ(listed(slide), "0 line 1,1 1,2\n0 line 1,1 1,2\n255 line 1,2 1,1\n0 line 1,1 1,2\n");
}

TEST(SlideWriter, LinesAreClippedToThePicture) {
  SlideWriter writer(100, 50);
  writer.line({-100, 25}, {200, 25}, 1);
  writer.line({-10, -10}, {200, 200}, 1);
  writer.line({0, 51}, {100, 51}, 2);    // above
  writer.line({-10, 5}, {5, -10}, 2);    // past the corner
  writer.line({100, 50}, {101, 51}, 1);  // one dot is left
  EXPECT_EQ(listed(writer.finish()),
            "1 line 0,25 100,25\n1 line 0,0 50,50\n1 line 100,50 100,50\n");
}

TEST(SlideWriter, FillsAreClippedToThePicture) {
  SlideWriter writer(100, 50);
  writer.fill(
      std::array{SlidePoint{-10, 10}, SlidePoint{20, 10}, SlidePoint{20, 60}, SlidePoint{-10, 60}},
      4);
  writer.fill(std::array{SlidePoint{-10, 10}, SlidePoint{-20, 10}, SlidePoint{-20, 60}}, 5);
  EXPECT_EQ(listed(writer.finish()), "4 fill 0,10 20,10 20,50 0,50\n");
}

TEST(SlideWriter, LargePolygonsAreCutIntoRuns) {
  // A comb of eleven corners, which isn't convex.
  const std::vector<SlidePoint> comb = {{0, 0},   {50, 0},  {50, 40}, {40, 40}, {40, 10}, {30, 10},
                                        {30, 40}, {20, 40}, {20, 10}, {10, 10}, {0, 40}};
  SlideWriter writer(100, 100);
  writer.fill(comb, 1);
  const std::string text = listed(writer.finish());
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
}

TEST(SlideWriter, HighDotsAreBounded) {
  const std::string large = SlideWriter(100000, 0).finish();
  const auto header = slide_store::readSlideHeader(large);
  EXPECT_EQ(header->highX, 32767);
  EXPECT_EQ(header->highY, 1);
  EXPECT_NEAR(header->aspect, 429.4967295, 1e-9);  // all that the field holds
}

}  // namespace
