// Colour indexes on screen and paper.
#include "embedded/drafting/display/palette.h"

#include <gtest/gtest.h>

namespace drafting {
namespace {

using base::Rgb;

std::string hex(Rgb c) {
  char text[8];
  std::snprintf(text, sizeof text, "%02x%02x%02x", c.red, c.green, c.blue);
  return text;
}

TEST(Palette, NamedColoursAreExactOnBlack) {
  const Palette palette(Background::Black, false);
  const char* wanted[] = {"ff0000", "ffff00", "00ff00", "00ffff", "0000ff",
                          "ff00ff", "ffffff", "808080", "c0c0c0"};
  for (int i = 1; i <= 9; ++i) EXPECT_EQ(hex(palette(i)), wanted[i - 1]) << i;
}

TEST(Palette, HuesRunRoundTheCircle) {
  EXPECT_EQ(hex(screenColour(10)), "ff0000");
  EXPECT_EQ(hex(screenColour(11)), "ff7f7f");
  EXPECT_EQ(hex(screenColour(30)), "ff7f00");
  EXPECT_EQ(hex(screenColour(90)), "00ff00");
  EXPECT_EQ(hex(screenColour(170)), "0000ff");
  EXPECT_EQ(hex(screenColour(174)), "00007f");
  EXPECT_EQ(hex(screenColour(250)), "333333");
  EXPECT_EQ(hex(screenColour(255)), "ffffff");
}

TEST(Palette, SevenStandsOutAgainstTheBackground) {
  EXPECT_EQ(hex(Palette(Background::White, false)(7)), "000000");
  EXPECT_EQ(hex(Palette(Background::Black, false)(7)), "ffffff");
  EXPECT_EQ(hex(Palette(Background::White, false)(0)), "000000");
}

TEST(Palette, BrightColoursAreDarkenedOnPaperOnly) {
  const Rgb yellow = Palette(Background::White, false)(2);
  EXPECT_EQ(yellow.red, yellow.green);
  EXPECT_EQ(yellow.blue, 0);
  EXPECT_LT(yellow.red, 140);
  EXPECT_EQ(hex(Palette(Background::White, false)(1)), "ff0000");
  EXPECT_LT(Palette(Background::White, false)(255).red, 140);
}

TEST(Palette, MonochromeHasOneColour) {
  for (int i = 0; i <= 256; ++i) {
    EXPECT_EQ(hex(Palette(Background::White, true)(i)), "000000");
    EXPECT_EQ(hex(Palette(Background::Black, true)(i)), "ffffff");
  }
}

}  // namespace
}  // namespace drafting
