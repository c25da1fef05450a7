// How characters find their shapes in a Latin font and a big font together.
#include "embedded/drafting/fonts/text_font.h"

#include "embedded/drafting/fonts/font_fixture.h"

namespace drafting {
namespace {

class Recorder : public ShapePen {
 public:
  void move(Point2 to) override { points.push_back(to); }
  void line(Point2 to) override { points.push_back(to); }
  void arc(Point2 to, double) override { points.push_back(to); }
  std::vector<Point2> points;
};

struct Drawn {
  std::vector<Point2> points;
  CharacterRun run;
};

Drawn draw(const TextFont& font, char32_t character, Wanted wanted = Wanted::ofTheText,
           std::size_t mostSteps = kMostShapeSteps, Point2 at = {}) {
  Recorder pen;
  const CharacterRun run = drawCharacter(font, character, at, pen, wanted, mostSteps);
  return {pen.points, run};
}

// A stroke as high as the number says, in sixths of the capital height, and an advance of 1.
std::shared_ptr<const ShapeFont> latinWith(FontKind kind,
                                           std::map<std::uint16_t, std::string_view> more,
                                           std::uint8_t modes = 0) {
  return fontWith(kind, more, {6, 2, modes, 0, 0, 0, false});
}

constexpr std::string_view kOne = "14 02 08 06 FF 00", kTwo = "24 02 08 06 FE 00",
                           kThree = "34 02 08 06 FD 00";

double heightOf(const Drawn& drawn) { return drawn.points.empty() ? 0 : drawn.points[1].y * 6; }

std::shared_ptr<const ShapeFont> bigWith(std::map<std::uint16_t, std::string_view> shapes) {
  FontParts parts{FontKind::BigFont, "BIG", {6, 0, 0, 0, 0, 0, false}, {{0x81, 0xFE}}, {}};
  for (const auto& [code, hex] : shapes) parts.shapes[code].bytes = bytesOf(hex);
  return fontOf(*writeFont(parts));
}

TEST(TextFonts, UnitsAreThoseOfTheCapitalHeight) {
  const TextFont font{fontOf(tinyUnifont()), fontOf(tinyBigFont())};
  const Drawn letter = draw(font, U'L');
  EXPECT_EQ(letter.points.front(), (Point2{0, 1}));
  EXPECT_EQ(letter.run.end, (Point2{1, 0}));
  const Drawn middle = draw(font, U'中', Wanted::ofTheText, kMostShapeSteps, {10, 20});
  EXPECT_EQ(middle.points.front(), (Point2{10 + 1 / 16.0, 20 + 5 / 16.0}));
  EXPECT_EQ(middle.run.end, (Point2{10 + 18 / 16.0, 20}));
}

TEST(TextFonts, DoubleByteCharactersAreOfTheBigFont) {
  TextFont font{latinWith(FontKind::Unifont, {{U'中', kOne}, {U'A', kOne}}),
                bigWith({{kMiddle, kTwo}})};
  EXPECT_EQ(heightOf(draw(font, U'中')), 2);
  EXPECT_EQ(heightOf(draw(font, U'A')), 1);
  font.big = nullptr;
  EXPECT_EQ(heightOf(draw(font, U'中')), 1);
}

TEST(TextFonts, LeadByteOutsideTheRangesIsNone) {
  FontParts parts{FontKind::BigFont, "BIG", {6, 0, 0, 0, 0, 0, false}, {{0xE0, 0xFE}}, {}};
  parts.shapes[kMiddle].bytes = bytesOf(kTwo);
  const TextFont font{latinWith(FontKind::Unifont, {{U'中', kOne}}), fontOf(*writeFont(parts))};
  EXPECT_EQ(heightOf(draw(font, U'中')), 1);
}

TEST(TextFonts, ShapesFontGoesByTheBytesOfTheDrawing) {
  TextFont font{latinWith(FontKind::Shapes, {{0xE9, kOne}, {0xE8, kTwo}}), nullptr};
  font.codePage = 1252;
  EXPECT_EQ(heightOf(draw(font, U'é')), 1);
  font.codePage = 1251;
  EXPECT_EQ(heightOf(draw(font, U'и')), 2);
  font.codePage = 936;
  EXPECT_EQ(heightOf(draw(font, 0xDCE9)), 1);  // a byte that the page couldn't decode
}

TEST(TextFonts, SignsHaveNumbersOfTheirOwn) {
  const TextFont shapes{latinWith(FontKind::Shapes, {{256, kOne}, {257, kTwo}, {258, kThree}}),
                        nullptr};
  EXPECT_EQ(heightOf(draw(shapes, 0xB0)), 1);
  EXPECT_EQ(heightOf(draw(shapes, 0xB1)), 2);
  EXPECT_EQ(heightOf(draw(shapes, 0xD8)), 3);
  const TextFont unifont{
      latinWith(FontKind::Unifont, {{0xB0, kOne}, {0xD8, kTwo}, {0x2205, kThree}}), nullptr};
  EXPECT_EQ(heightOf(draw(unifont, 0xB0)), 1);
  EXPECT_EQ(heightOf(draw(unifont, 0xD8)), 3);
}

TEST(TextFonts, SignsOfCodesAreOfTheLatinFontFirst) {
  const TextFont font{latinWith(FontKind::Shapes, {{256, kOne}}), bigWith({{0xA1E3, kTwo}})};
  EXPECT_EQ(heightOf(draw(font, 0xB0, Wanted::asSign)), 1);
  EXPECT_EQ(heightOf(draw(font, 0xB0, Wanted::ofTheText)), 2);
}

TEST(TextFonts, MissingCharacterIsOfTheBuiltInFonts) {
  const TextFont font{fontOf(tinyShapes()), fontOf(tinyBigFont())}, builtIn;
  for (const char32_t c : {U'A', U'电', U'Ω'}) {
    EXPECT_TRUE(hasGlyph(c, font));
    EXPECT_FALSE(draw(font, c).points.empty());
    EXPECT_EQ(draw(font, c).points, draw(builtIn, c).points);
  }
}

TEST(TextFonts, CharacterThatNoFontHasIsABox) {
  for (const auto& [character, advance] : {std::pair{U'龘', 128 / 104.0}, {U'é', 20 / 21.0}}) {
    EXPECT_FALSE(hasGlyph(character));
    const Drawn box = draw({}, character);
    ASSERT_EQ(box.points.size(), 5u);
    EXPECT_EQ(box.points[0], box.points[4]);
    EXPECT_EQ(box.points[2], (Point2{0.9 * advance, 1}));
    EXPECT_NEAR(box.run.end.x, advance, 1e-12);
  }
}

TEST(TextFonts, CharactersBeyondTheFirstPlaneAreBoxes) {
  EXPECT_EQ(draw({}, 0x20000).points.size(), 5u);
  EXPECT_EQ(draw({}, 0xD800).points.size(), 5u);
}

TEST(TextFonts, NothingLeftToSpendGivesBoxes) {
  const Drawn box = draw({}, U'A', Wanted::ofTheText, 0);
  EXPECT_EQ(box.points.size(), 5u);
  EXPECT_EQ(box.run.steps, 1u);
}

TEST(TextFonts, EmptyShapeOfAFontCountsAsThere) {
  const TextFont font{latinWith(FontKind::Unifont, {{U'A', "02 60 00"}}), nullptr};
  EXPECT_TRUE(draw(font, U'A').points.empty());
  EXPECT_EQ(draw(font, U'A').run.end, (Point2{1, 0}));
}

TEST(VerticalTexts, FontForBothWaysMovesAsItIsMade) {
  // To the left and down before, as far down as one step after.
  TextFont font{latinWith(FontKind::Shapes, {{65, "0E 08 FD FA 64 02 0E 08 03 F7 00"}}, 2),
                nullptr};
  font.vertical = true;
  const Drawn drawn = draw(font, U'A');
  EXPECT_EQ(drawn.points.front(), (Point2{0, 0}));
  EXPECT_EQ(drawn.run.end, (Point2{0, -1.5}));
  font.vertical = false;
  EXPECT_EQ(draw(font, U'A').run.end, (Point2{0, 1}));
}

TEST(VerticalTexts, OtherFontsStandCentredBelowEachOther) {
  TextFont font;
  font.vertical = true;
  const Drawn drawn = draw(font, U'I', Wanted::ofTheText, kMostShapeSteps, {5, 10});
  EXPECT_NEAR(drawn.points[0].x, 5, 1e-12);
  EXPECT_NEAR(drawn.points[0].y, 10, 1e-12);
  EXPECT_NEAR(drawn.points[1].y, 9, 1e-12);
  EXPECT_EQ(drawn.run.end, (Point2{5, 8.5}));
}

}  // namespace
}  // namespace drafting
