// The fonts that the program carries.
#include "embedded/drafting/fonts/built_in_font.h"

#include "embedded/base/text.h"
#include "embedded/drafting/fonts/font_fixture.h"
#include "embedded/drafting/fonts/text_font.h"

namespace drafting {
namespace {

TEST(BuiltInFonts, AreWholeTextFonts) {
  for (const auto& font : {builtInLatin(), builtInBigFont()}) {
    EXPECT_TRUE(font->isTextFont());
    EXPECT_TRUE(font->problems().empty());
  }
  EXPECT_EQ(builtInLatin()->kind(), FontKind::Unifont);
  EXPECT_EQ(builtInLatin()->metrics(), (FontMetrics{21, 7, 0, 0, 0, 0, false}));
  EXPECT_EQ(builtInBigFont()->metrics(), (FontMetrics{104, 13, 0, 0, 0, 0, false}));
}

TEST(BuiltInFonts, FilesAreWhatIsDrawn) {
  EXPECT_EQ(*writeFont(partsOf(*builtInLatin())), builtInLatinFile());
  EXPECT_EQ(*writeFont(partsOf(*builtInBigFont())), builtInBigFontFile());
}

TEST(BuiltInFonts, NamesTellWhereTheyComeFrom) {
  EXPECT_NE(builtInLatin()->name().find("Hershey"), std::string::npos);
  EXPECT_NE(builtInBigFont()->name().find("changed 2026-11-21"), std::string::npos);
  EXPECT_NE(builtInBigFont()->name().find("Arphic Public License"), std::string::npos);
}

TEST(BuiltInFonts, BigFontHasTheCommonCharactersAndFullWidthForms) {
  int found = 0;
  for (int lead = 0xB0; lead <= 0xD7; ++lead) {
    for (int trail = 0xA1; trail <= 0xFE; ++trail) {
      found +=
          builtInBigFont()->find(static_cast<std::uint16_t>(lead << 8 | trail)).empty() ? 0 : 1;
    }
  }
  EXPECT_EQ(found, 3755);
  for (int trail = 0xA1; trail <= 0xFE; ++trail) {
    EXPECT_FALSE(builtInBigFont()->find(static_cast<std::uint16_t>(0xA300 | trail)).empty());
  }
}

TEST(BuiltInFonts, LatinHasAsciiAndALineFeed) {
  for (std::uint16_t c = ' '; c <= '~'; ++c) EXPECT_FALSE(builtInLatin()->find(c).empty()) << c;
  const ShapeStrokes feed = strokesOf(*builtInLatin(), 10);
  EXPECT_TRUE(feed.strokes.empty());
  EXPECT_EQ(feed.run.end, (Point2{0, -35}));
}

// Shapes that other readers take as they are: an explicit pen first, the pen up on the baseline at
// the end, and within the bytes only pen up, pen down and moves.
TEST(BuiltInFonts, ShapesKeepToThePlainCommands) {
  for (const auto& font : {builtInLatin(), builtInBigFont()}) {
    for (const ShapeFont::Shape& shape : font->shapes()) {
      EXPECT_TRUE(shape.name.empty());
      ASSERT_LE(shape.bytes.size(), 500u);
      EXPECT_EQ(shape.bytes.front(), '\x02');
      EXPECT_EQ(shape.bytes.back(), '\0');
      const ShapeStrokes strokes = strokesOf(*font, shape.code);
      if (shape.code == 10) continue;
      EXPECT_EQ(strokes.run.end.y, 0);
      EXPECT_GT(strokes.run.end.x, 0);
      for (const auto& stroke : strokes.strokes) {
        EXPECT_GE(stroke.size(), 2u);
        for (const ShapeVertex& vertex : stroke) EXPECT_EQ(vertex.bulge, 0);
      }
    }
  }
}

TEST(BuiltInFonts, SignStandsInTheBigFontAsInTheLatinOne) {
  const ShapeStrokes latin = strokesOf(*builtInLatin(), 0xB0);
  const ShapeStrokes big = strokesOf(*builtInBigFont(), 0xA1E3);  // the degree sign
  ASSERT_EQ(latin.strokes.size(), big.strokes.size());
  for (std::size_t i = 0; i < latin.strokes[0].size(); ++i) {
    EXPECT_NEAR(latin.strokes[0][i].at.x / 21, big.strokes[0][i].at.x / 104, 0.005);
    EXPECT_NEAR(latin.strokes[0][i].at.y / 21, big.strokes[0][i].at.y / 104, 0.005);
  }
}

}  // namespace
}  // namespace drafting
