// SVG and PDF: numbers, paths, texts, the file around them.
#include <gtest/gtest.h>
#include <zlib.h>

#include "embedded/drafting/plot/number_text.h"
#include "embedded/drafting/plot/pdf_canvas.h"
#include "embedded/drafting/plot/svg_canvas.h"

namespace drafting {
namespace {

using base::Point2;
using base::Rgb;
using ::testing::Test;

constexpr Rgb kWhite{255, 255, 255}, kBlack{0, 0, 0}, kRed{255, 0, 0};
using Points = std::vector<Point2>;

bool has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

int countOf(const std::string& text, std::string_view part) {
  int count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(NumberText, HasNoMoreDigitsThanItNeeds) {
  const auto number = [](double value) {
    std::string out;
    appendNumber(out, value);
    return out;
  };
  EXPECT_EQ(number(0), "0");
  EXPECT_EQ(number(12), "12");
  EXPECT_EQ(number(-0.5), "-0.5");
  EXPECT_EQ(number(1.23456), "1.235");
  EXPECT_EQ(number(-0.0001), "0");
  EXPECT_EQ(number(10.01), "10.01");
  EXPECT_EQ(number(1e300), "1000000000");
  EXPECT_EQ(number(std::nan("")), "0");
}

TEST(Svg, StrokesOfOnePenShareAPath) {
  SvgCanvas canvas(100, 50, kWhite);
  canvas.stroke(Points{{0, 0}, {10, 0}}, kBlack, 0.25);
  canvas.stroke(Points{{0, 5}, {10, 5}}, kBlack, 0.25);
  canvas.stroke(Points{{0, 6}, {10, 6}}, kRed, 0.25);
  const std::string svg = canvas.finish();
  EXPECT_TRUE(has(svg, "width=\"100mm\" height=\"50mm\" viewBox=\"0 0 100 50\""));
  EXPECT_TRUE(
      has(svg, "<path stroke=\"#000000\" stroke-width=\"0.25\" d=\"M0 50L10 50M0 45L10 45\"/>"));
  EXPECT_TRUE(has(svg, "stroke=\"#ff0000\""));
}

TEST(Svg, TextIsInvisibleEscapedAndAsLongAsItsStrokes) {
  SvgCanvas canvas(100, 50, kWhite);
  canvas.words({"a<b>&\x01", base::Affine2{2, 0, 0, 2, 10, 20}, 4.5});
  const std::string svg = canvas.finish();
  EXPECT_TRUE(has(svg, "fill-opacity=\"0\""));
  EXPECT_TRUE(has(svg, "textLength=\"4.5\""));
  EXPECT_TRUE(has(svg, "matrix(2 0 0 2 10 30)\">a&lt;b&gt;&amp; </text>"));
}

TEST(Svg, CharactersThatXmlCannotHoldAreReplaced) {
  SvgCanvas canvas(10, 10, kWhite);
  canvas.words({"x\xED\xB0\x81y", base::Affine2{}, 1});
  EXPECT_TRUE(has(canvas.finish(), ">x?y</text>"));
}

TEST(Pdf, StrokesOfOnePenShareAPath) {
  PdfCanvas canvas(100, 50, kWhite);
  canvas.stroke(Points{{0, 0}, {10, 0}}, kBlack, 0.25);
  canvas.stroke(Points{{0, 5}, {10, 5}}, kBlack, 0.25);
  const std::string page = canvas.finish();
  EXPECT_TRUE(has(page, "0.25 w\n0 0 m\n10 0 l\n0 5 m\n10 5 l\nS\n"));
}

TEST(Pdf, PenAndFillColoursAreKeptApart) {
  PdfCanvas canvas(100, 50, kWhite);
  canvas.stroke(Points{{0, 0}, {10, 0}}, kRed, 0.25);
  canvas.fill(Points{{0, 0}, {1, 0}, {1, 1}}, kRed);
  canvas.stroke(Points{{0, 1}, {10, 1}}, kRed, 0.25);
  const std::string page = canvas.finish();
  EXPECT_EQ(countOf(page, "1 0 0 RG\n"), 1);
  EXPECT_EQ(countOf(page, "1 0 0 rg\n"), 1);
  EXPECT_TRUE(has(page, "0 0 m\n1 0 l\n1 1 l\nf\n"));
  EXPECT_EQ(countOf(page, "S\n"), 2);
}

TEST(Pdf, DotIsALineOfNoLength) {
  PdfCanvas canvas(100, 50, kWhite);
  canvas.stroke(Points{{3, 4}}, kBlack, 0.25);
  EXPECT_TRUE(has(canvas.finish(), "3 4 m\n3 4 l\nS\n"));
}

TEST(Pdf, TextIsInvisibleAndStretchedToItsStrokes) {
  PdfCanvas canvas(100, 50, kWhite);
  canvas.words({"A电\xF0\xA0\x80\x80", base::Affine2{2, 0, 0, 2, 10, 20}, 7});
  // Half an em, one, and two for the two halves of the rare character.
  EXPECT_TRUE(has(canvas.finish(),
                  "BT 3 Tr /F1 1 Tf 200 Tz 2 0 0 2 10 20 Tm "
                  "<00417535D840DC00> Tj ET\n"));
}

TEST(Pdf, BlackBackgroundIsFilled) {
  PdfCanvas canvas(100, 50, kBlack);
  EXPECT_TRUE(has(canvas.finish(), "0 0 m\n100 0 l\n100 50 l\n0 50 l\nf\n"));
}

// Every number of the cross-reference table leads to the object of that number.
TEST(Pdf, CrossReferencesLeadToTheirObjects) {
  std::vector<PdfCanvas> pages;
  pages.emplace_back(100, 50, kWhite);
  pages.emplace_back(210, 297, kWhite);
  const std::string file = makePdf(std::move(pages));
  EXPECT_EQ(file.substr(0, 8), "%PDF-1.5");
  const auto start = std::stoul(file.substr(file.rfind("startxref\n") + 10));
  ASSERT_EQ(file.substr(start, 10), "xref\n0 11\n");
  for (std::size_t i = 1; i <= 10; ++i) {
    const auto offset = std::stoul(file.substr(start + 10 + 20 * i, 10));
    const std::string wanted = std::to_string(i) + " 0 obj\n";
    EXPECT_EQ(file.substr(offset, wanted.size()), wanted);
  }
  EXPECT_TRUE(has(file, "/Count 2"));
  EXPECT_TRUE(has(file, "/MediaBox [ 0 0 595.276 841.89 ]"));
}

TEST(Pdf, ContentUnpacksToWhatWasDrawn) {
  PdfCanvas one(100, 50, kWhite), same(100, 50, kWhite);
  one.stroke(Points{{0, 0}, {10, 0}}, kBlack, 0.25);
  same.stroke(Points{{0, 0}, {10, 0}}, kBlack, 0.25);
  const std::string wanted = same.finish();
  const std::string file = makePdf({one});
  const auto header = file.rfind("<< /Length ");
  const auto length = std::stoul(file.substr(header + 11));
  const auto data = file.find("stream\n", header) + 7;
  std::string content(1000, '\0');
  uLongf size = 1000;
  ASSERT_EQ(
      uncompress(reinterpret_cast<Bytef*>(content.data()), &size,
                 reinterpret_cast<const Bytef*>(file.data() + data), static_cast<uLong>(length)),
      Z_OK);
  EXPECT_EQ(content.substr(0, size), wanted);
}

}  // namespace
}  // namespace drafting
