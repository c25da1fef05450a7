// Slides and a library that another program wrote.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "embedded/base/files.h"
#include "embedded/slide_store/slide_library.h"
#include "embedded/slide_store/slide_listing.h"
#include "embedded/slide_store/slide_writer.h"

namespace {

using test::listed;

std::string fileBytes(const char* name) {
  const auto bytes = base::readFile(std::filesystem::path(VORNIK_TEST_DATA) / "slides" / name);
  EXPECT_TRUE(bytes.ok()) << bytes.message();
  return *bytes;
}

std::ptrdiff_t linesOf(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n');
}

TEST(RealSlides, SingleSlideHas110WhiteLines) {
  const std::string slide = fileBytes("kss.sld");
  const auto header = slide_store::readSlideHeader(slide);
  ASSERT_TRUE(header.ok());
  EXPECT_EQ(header->highX, 849);
  EXPECT_EQ(header->highY, 827);
  EXPECT_DOUBLE_EQ(header->aspect, 1.0266021);
  test::Listing listing;
  EXPECT_EQ(*readSlideRecords(slide, *header, listing), slide.size());
  EXPECT_EQ(linesOf(listing.text()), 110);
  for (std::size_t at = 0; at < listing.text().size(); at = listing.text().find('\n', at) + 1) {
    EXPECT_EQ(listing.text().substr(at, 7), "7 line ");
  }
}

TEST(RealSlides, LibraryHoldsTwoSlides) {
  slide_store::SlideLibrary library;
  ASSERT_TRUE(library.parse(fileBytes("mylib.slb")).ok());
  EXPECT_EQ(library.names(), (std::vector<std::string>{"SLIDE1", "SLIDE2"}));
  ASSERT_EQ(library.find("slide1")->size(), 69U);
  ASSERT_EQ(library.find("SLIDE2")->size(), 129U);
  const std::string first = listed(*library.find("SLIDE1"));
  EXPECT_EQ(linesOf(first), 6);
  for (const char* colour : {"7 line ", "3 line ", "1 line "}) {
    EXPECT_NE(first.find(colour), std::string::npos);
  }
  EXPECT_EQ(linesOf(listed(*library.find("SLIDE2"))), 10);
  EXPECT_EQ(*library.serialise(), fileBytes("mylib.slb"));
}

// What is written of a real slide draws the same; only the ends of a line may change places.
TEST(RealSlides, CopyDrawsTheSame) {
  class Copier : public slide_store::SlideVisitor {
   public:
    slide_store::SlideWriter writer{849, 827};
    void line(slide_store::SlidePoint from, slide_store::SlidePoint to,
              std::uint8_t colour) override {
      writer.line(from, to, colour);
    }
    void fill(std::span<const slide_store::SlidePoint> corners, std::uint8_t colour) override {
      writer.fill(corners, colour);
    }
  };
  const std::string slide = fileBytes("kss.sld");
  Copier copier;
  ASSERT_TRUE(readSlideRecords(slide, *slide_store::readSlideHeader(slide), copier).ok());
  const std::string copy = copier.writer.finish();
  EXPECT_LT(copy.size(), slide.size());
  // The headers differ in the aspect ratio's last digit, which others cut off.
  EXPECT_NEAR(slide_store::readSlideHeader(copy)->aspect, 1.0266021, 1.1e-7);
  EXPECT_EQ(linesOf(listed(copy)), 110);
}

}  // namespace
