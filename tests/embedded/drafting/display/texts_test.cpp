// Texts: glyphs, codes, places, paragraphs.
#include "embedded/drafting/display/mtext_layout.h"
#include "embedded/drafting/display/picture_fixture.h"
#include "embedded/drafting/display/text_layout.h"
#include "embedded/drafting/fonts/font_writer.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

TEST(StrokeFont, HasLatinDigitsSignsAndChinese) {
  for (char32_t c = U'!'; c <= U'~'; ++c) {
    EXPECT_TRUE(hasGlyph(c)) << static_cast<unsigned>(c);
    EXPECT_FALSE(glyphOf(c).strokes.empty()) << static_cast<unsigned>(c);
  }
  for (const char32_t c : U"变压器进线电动机照明备用母联络互感电容补偿°±Ω，（）") {
    EXPECT_TRUE(c == 0 || hasGlyph(c)) << static_cast<unsigned>(c);
  }
}

TEST(StrokeFont, CapitalsStandBetweenBaselineAndHeight) {
  for (const char32_t c : {U'H', U'E', U'Z', U'8'}) {
    Box2 box;
    for (const auto& stroke : glyphOf(c).strokes) {
      for (const Point2 point : stroke) box.add(point);
    }
    EXPECT_NEAR(box.min.y, 0, 1e-9);
    EXPECT_NEAR(box.max.y, 1, 1e-9);
    EXPECT_GT(box.min.x, 0);
    EXPECT_LT(box.max.x, glyphOf(c).advance);
  }
}

TEST(StrokeFont, BlankAdvancesWithoutStrokes) {
  EXPECT_TRUE(glyphOf(U' ').strokes.empty());
  EXPECT_GT(glyphOf(U' ').advance, 0.5);
}

TEST(StrokeFont, ChineseCharactersHaveTheirStrokes) {
  EXPECT_EQ(glyphOf(U'一').strokes.size(), 1u);
  EXPECT_EQ(glyphOf(U'十').strokes.size(), 2u);
  EXPECT_EQ(glyphOf(U'电').strokes.size(), 5u);
  EXPECT_GT(glyphOf(U'电').advance, 1);
}

TEST(StrokeFont, MissingCharacterIsABox) {
  ASSERT_FALSE(hasGlyph(U'龘'));
  ASSERT_EQ(glyphOf(U'龘').strokes.size(), 1u);
  EXPECT_EQ(glyphOf(U'龘').strokes[0].front(), glyphOf(U'龘').strokes[0].back());
  EXPECT_EQ(glyphOf(U'龘').advance, glyphOf(U'电').advance);
  EXPECT_EQ(glyphOf(U'\u00e9').strokes.size(), 1u);
  EXPECT_LT(glyphOf(U'\u00e9').advance, 1);
}

TEST(StrokeFont, FullWidthFormsAreTheLatinOnesInTheMiddleOfACell) {
  EXPECT_EQ(glyphOf(U'Ａ').advance, glyphOf(U'电').advance);
  EXPECT_EQ(glyphOf(U'Ａ').strokes.size(), glyphOf(U'A').strokes.size());
}

TEST(TextLine, CodesBecomeTheirCharacters) {
  EXPECT_EQ(layOutLine("%%d%%D%%p%%c%%%").plain, "°°±Ø%");
  EXPECT_EQ(layOutLine("%%065\\U+7535").plain, "A电");
}

TEST(TextLine, UnfinishedCodesStayAsTheyAre) {
  EXPECT_EQ(layOutLine("50%%").plain, "50%%");
  EXPECT_EQ(layOutLine("%%12").plain, "%%12");
  EXPECT_EQ(layOutLine("\\U+75").plain, "\\U+75");
  EXPECT_EQ(layOutLine("%%x").plain, "%%x");
  EXPECT_EQ(layOutLine("%%000").plain, "%%000");
}

TEST(TextLine, UnderlineRunsFromToggleToToggle) {
  const TextLine line = layOutLine("A%%uBC%%uD");
  const auto& rule = line.strokes[glyphOf(U'A').strokes.size() + glyphOf(U'B').strokes.size() +
                                  glyphOf(U'C').strokes.size()];
  EXPECT_EQ(line.plain, "ABCD");
  EXPECT_NEAR(rule[0].x, glyphOf(U'A').advance, 1e-9);
  EXPECT_NEAR(rule[1].x, line.advance - glyphOf(U'D').advance, 1e-9);
  EXPECT_LT(rule[0].y, 0);
}

TEST(TextLine, OverlineLeftOpenRunsToTheEnd) {
  const TextLine line = layOutLine("%%oI");
  EXPECT_NEAR(line.strokes.back()[1].x, line.advance, 1e-9);
  EXPECT_GT(line.strokes.back()[0].y, 1);
}

class Texts : public PictureTest {
 protected:
  // An "I" of height 21 is one stroke 4 to the right of its start, 8 wide, 21 high.
  Text letter() { return text("I", 21); }
};

TEST_F(Texts, StandsOnItsBaseline) {
  Text one = letter();
  one.position = {10, 20};
  add(one);
  EXPECT_EQ(points().size(), 2u);
  expectBox(shown().bounds(), {14, 20}, {14, 41});
}

TEST_F(Texts, WidthFactorRotationAndObliqueAreKept) {
  Text one = letter();
  one.widthFactor = 0.5;
  one.rotation = base::radians(90);
  one.oblique = base::radians(45);
  add(one);
  // Slanted, the top leads the foot by the height; turned, "up" is to the left.
  expectBox(shown().bounds(), {-21, 2}, {0, 23});
}

TEST_F(Texts, JustificationIsRelativeToTheAlignmentPoint) {
  const struct {
    std::int16_t horizontal, vertical;
    Point2 foot;
  } cases[] = {{1, 0, {0, 0}},   {2, 0, {-4, 0}},    {0, 1, {4, 7}},  {0, 2, {4, -10.5}},
               {0, 3, {4, -21}}, {4, 0, {0, -10.5}}, {1, 3, {0, -21}}};
  for (const auto& one : cases) {
    db = Database::makeNew();
    Text aligned = letter();
    aligned.position = {-1000, -1000};
    aligned.alignment = {50, 60};
    aligned.horizontal = one.horizontal;
    aligned.vertical = one.vertical;
    add(aligned);
    expectNear(shown().bounds().min, Point2{50, 60} + one.foot);
  }
}

TEST_F(Texts, FitTextFillsTheWayBetweenItsPoints) {
  Text fit = letter();
  fit.horizontal = 5;
  fit.position = {0, 0};
  fit.alignment = {16, 0};  // twice the letter's width
  add(fit);
  expectBox(shown().bounds(), {8, 0}, {8, 21});
}

TEST_F(Texts, AlignedTextGrowsAndTurnsWithItsPoints) {
  Text aligned = letter();
  aligned.horizontal = 3;
  aligned.alignment = {0, 16};
  add(aligned);
  expectBox(shown().bounds(), {-42, 8}, {0, 8});
}

TEST_F(Texts, BackwardsAndUpsideDownMirror) {
  Text one = letter();
  one.generation = 2 | 4;
  add(one);
  expectBox(shown().bounds(), {-4, -21}, {-4, 0});
}

TEST_F(Texts, TextOfAMirroredBlockIsMirrored) {
  BlockRecord& record = block("A");
  add(record, letter());
  Insert insert = insertOf(record, {0, 0});
  insert.scale = {-1, 1, 1};
  add(insert);
  expectBox(shown().bounds(), {-4, 0}, {-4, 21});
}

TEST_F(Texts, LabelCarriesTextPlaceAndLength) {
  Text one = text("QF1", 2);
  one.position = {10, 20};
  add(one);
  const auto list = shown();
  const auto& label = list.label(list.items().back());
  EXPECT_EQ(label.text, "QF1");
  expectNear(label.place({0, 0}), {10, 20});
  expectNear(label.place({0, 1}), {10, 22});
  EXPECT_NEAR(label.advance, (22 + 18 + 20) / 21.0, 1e-9);
}

TEST_F(Texts, TextWithoutHeightShowsNothing) {
  add(text("ABC", 0));
  EXPECT_EQ(shown().bounds().height(), 0);
}

// A font of one letter, "O": a circle of the capital height, made of one arc.
std::shared_ptr<const ShapeFont> roundFont() {
  FontParts parts;
  parts.metrics.above = 10;
  parts.shapes['O'].bytes = std::string("\x02\x08\x0A\x05\x01\x0A\x05\x00\x02\x08\x02\xFB\x00", 13);
  return *ShapeFont::read(*writeFont(parts), "round.shx");
}

TEST_F(Texts, StylesFontIsFoundBesideTheDrawing) {
  test::TempFolder folder;
  FontParts parts = partsOf(*roundFont());
  test::writeBytes(folder / "Round.SHX", *writeFont(parts));
  const Handle style = db->findRecord(Table::Styles, "Standard");
  db->edit<TextStyle>(style).font = "round";
  Text one = text("OA", 10);
  one.style = style;
  add(one);
  options.drawingFolder = folder.path();
  // The circle stands from 0 to 10; "A" is the built-in font's.
  const DisplayList found = shown();
  EXPECT_NEAR(found.bounds().min.x, 0, 1e-9);
  EXPECT_NEAR(found.bounds().max.y, 10, 1e-9);
  EXPECT_EQ(found.items().size(), 1u + glyphOf(U'A').strokes.size() + 1u);
  EXPECT_TRUE(found.fontNotes().empty());
  options.drawingFolder.clear();
  EXPECT_EQ(shown().fontNotes(),
            std::set<std::string>{"the font round isn't there; the built-in one is taken instead"});
}

TEST_F(Texts, FontForAllTextsOverridesTheStyles) {
  const TextFont font{roundFont(), nullptr};
  options.font = &font;
  add(text("O", 10));
  EXPECT_EQ(points().size(), 65u);
}

TEST_F(Texts, ArcsOfAFontAreAsFineAsTheTolerance) {
  const TextFont font{roundFont(), nullptr};
  options.font = &font;
  add(text("O", 1000));
  for (const double tolerance : {10.0, 1.0, 0.1}) {
    options.tolerance = tolerance;
    for (std::size_t i = 0; i + 1 < points().size(); ++i) {
      const Point2 middle = (points()[i] + points()[i + 1]) * 0.5;
      EXPECT_LE(500 - distance(middle, {500, 500}), tolerance * 1.001);
    }
  }
  EXPECT_GT(points().size(), 120u);
}

TEST_F(Texts, LineThatCostsTooMuchGoesOnInBoxes) {
  // Each letter is 1,900 bytes of moves; a line of 10,000 of them would be 10 million points.
  FontParts parts;
  parts.metrics.above = 10;
  parts.shapes['O'].bytes = std::string(1900, '\x14') + std::string(1, '\0');
  const TextFont font{*ShapeFont::read(*writeFont(parts), "costly.shx"), nullptr};
  const TextLine line = layOutLine(std::string(10'000, 'O'), font);
  std::size_t points = 0;
  for (const auto& stroke : line.strokes) points += stroke.size();
  EXPECT_LT(points, 3'000'000u);
  EXPECT_EQ(line.strokes.size(), 10'000u);
  EXPECT_EQ(line.strokes.back().size(), 5u);
  EXPECT_EQ(line.plain.size(), 10'000u);
}

TEST_F(Texts, VerticalStyleWritesDownwards) {
  const Handle style = db->findRecord(Table::Styles, "Standard");
  db->edit<TextStyle>(style).vertical = true;
  Text one = text("II", 10);
  one.style = style;
  one.position = {100, 50};
  add(one);
  expectBox(shown().bounds(), {100, 25}, {100, 50});
}

TEST(Paragraphs, CodesAreTakenOut) {
  EXPECT_EQ(plainOfMText("{\\fSimSun|b0;\\H2.5x;Main}\\Pcircuit\\~1"), "Main\ncircuit 1");
  EXPECT_EQ(plainOfMText("a\\\\b\\{c\\}"), "a\\b{c}");
  EXPECT_EQ(plainOfMText("\\S1/2; \\S+0.1^-0.2;\\Lu\\l"), "1/2 +0.1/-0.2u");
  EXPECT_EQ(plainOfMText("\\A1;\\C3;x\\"), "x\\");
}

TEST(Paragraphs, LinesAreWrappedAndStacked) {
  MText text;
  text.height = 21;
  text.width = 21 * 3;
  text.text = "III III III";
  const auto lines = layOutParagraph(text);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].line.plain, "III ");
  expectNear(lines[0].place({0, 0}), {0, -21});
  expectNear(lines[1].place({0, 0}), {0, -21 - 35});
}

TEST(Paragraphs, ChineseBreaksBetweenCharacters) {
  MText text;
  text.height = 1;
  text.width = 2.6;  // two characters
  text.text = "变压器进线";
  EXPECT_EQ(layOutParagraph(text).size(), 3u);
}

TEST_F(Texts, ParagraphTakesWidthAndSlantOfItsStyle) {
  const Handle style = db->findRecord(Table::Styles, "Standard");
  db->edit<TextStyle>(style).widthFactor = 0.5;
  db->edit<TextStyle>(style).oblique = base::radians(45);
  MText paragraph;
  paragraph.text = "I";
  paragraph.height = 21;
  paragraph.attachment = 7;
  paragraph.style = style;
  add(paragraph);
  expectBox(shown().bounds(), {2, 0}, {23, 21});
}

TEST(Paragraphs, NarrowStyleWrapsLater) {
  MText text;
  text.height = 21;
  text.width = 21 * 3;
  text.text = "III III III";
  ParagraphStyle style;
  style.widthFactor = 0.25;
  EXPECT_EQ(layOutParagraph(text, style).size(), 1u);
}

TEST(Paragraphs, AttachmentInTheMiddleCentres) {
  MText text;
  text.height = 21;
  text.text = "I";
  text.attachment = 5;
  expectNear(layOutParagraph(text)[0].place({0, 0}), {-4, -10.5});
}

// A paragraph of height 10 without wrapping.
MText paragraphOf(const std::string& content) {
  MText text;
  text.height = 10;
  text.text = content;
  return text;
}

TEST(Paragraphs, HeightsAreFactorsOrLengths) {
  const auto lines = layOutParagraph(paragraphOf("I{\\H2x;I}\\H5;I"));
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_NEAR(lines[0].place.scale(), 10, 1e-9);
  EXPECT_NEAR(lines[1].place.scale(), 20, 1e-9);
  EXPECT_NEAR(lines[2].place.scale(), 5, 1e-9);
  const double advance = lines[0].line.advance;
  expectNear(lines[1].place({0, 0}), {advance * 10, -20});  // on the baseline of the highest
  expectNear(lines[2].place({0, 0}), {advance * 30, -20});
}

TEST(Paragraphs, LinesStandAsFarApartAsTheyAreHigh) {
  const auto lines = layOutParagraph(paragraphOf("I\\P{\\H3x;I}"));
  expectNear(lines[1].place({0, 0}), {0, -10 - 50});
  MText exact = paragraphOf("I\\P{\\H3x;I}");
  exact.spacingKind = 2;
  expectNear(layOutParagraph(exact)[1].place({0, 0}), {0, -10 - 50.0 / 3});
}

TEST(Paragraphs, WidthAndObliqueChangeWithinTheLine) {
  const auto lines = layOutParagraph(paragraphOf("I\\W0.5;I\\Q45;I"));
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_NEAR(lines[1].place.a, 5, 1e-9);
  EXPECT_NEAR(lines[2].place.c, 10, 1e-9);
}

TEST(Paragraphs, ColoursEndWithTheirBraces) {
  const auto lines = layOutParagraph(paragraphOf("a{\\C1;b\\C300;c}d"));
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].colour, -1);
  EXPECT_EQ(lines[1].colour, 1);
  EXPECT_EQ(lines[2].colour, -1);
  EXPECT_EQ(lines[2].line.plain, "cd");
}

TEST_F(Texts, ParagraphsColourIsThatOfItsStrokes) {
  add(paragraphOf("I\\C1;I"));
  const auto found = colours();
  EXPECT_EQ(found.front(), 7);
  EXPECT_EQ(found.back(), 1);
}

TEST(Paragraphs, UnderAndStrikeLinesAreStrokes) {
  const auto plain = layOutParagraph(paragraphOf("I"));
  const auto lines = layOutParagraph(paragraphOf("\\LI\\l\\KI\\k\\OI"));
  ASSERT_EQ(lines.size(), 4u);
  for (const std::size_t withLine : {0u, 3u}) {
    EXPECT_EQ(lines[withLine].line.strokes.size(), plain[0].line.strokes.size() + 1);
  }
  EXPECT_EQ(lines[1].line.strokes.size(), plain[0].line.strokes.size());
  ASSERT_EQ(lines[2].line.strokes.size(), 1u) << "the strike line by itself";
  EXPECT_EQ(lines[2].line.strokes[0],
            (std::vector<Point2>{{0, 0.5}, {lines[1].line.advance, 0.5}}));
  expectNear(lines[2].place({0, 0}), lines[1].place({0, 0}));
  EXPECT_EQ(lines[2].content, "");
}

TEST(Paragraphs, FractionsStandAboveAndBelow) {
  const auto lines = layOutParagraph(paragraphOf("\\S1/22;I"));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_GT(lines[0].place({0, 0}).y, lines[2].place({0, 1}).y);
  EXPECT_EQ(lines[0].line.plain + lines[1].line.plain + lines[2].line.plain, "1/22");
  const auto bar = lines[1].line.strokes.at(0);
  const Point2 left = lines[1].place(bar[0]), right = lines[1].place(bar[1]);
  EXPECT_EQ(left.y, right.y);
  EXPECT_GT(lines[0].place({0, 0}).y, left.y);
  EXPECT_GT(left.y, lines[2].place({0, 1}).y);
  EXPECT_LT(left.x, lines[2].place({0, 0}).x);
  EXPECT_GT(right.x, lines[2].place({lines[2].line.advance, 0}).x);
  EXPECT_EQ(layOutParagraph(paragraphOf("\\S1^22;")).size(), 2u) << "without a bar";
}

TEST(Paragraphs, RunsInOtherShapeFontsAskForThemByName) {
  std::vector<std::string> asked;
  ParagraphStyle style;
  style.fontNamed = [&asked](std::string_view names) {
    asked.emplace_back(names);
    return TextFont{};
  };
  const auto lines = layOutParagraph(paragraphOf("I{\\Fromans,gbcbig;I\\fSimSun|b0;I}I"), style);
  ASSERT_EQ(lines.size(), 3u) << "an outline font stands in the style's";
  EXPECT_EQ(lines[0].line.plain + lines[1].line.plain + lines[2].line.plain, "IIII");
  ASSERT_FALSE(asked.empty());
  for (const std::string& names : asked) EXPECT_EQ(names, "romans,gbcbig");
}

TEST(Paragraphs, AlignmentOfALineOverridesTheAttachment) {
  MText text = paragraphOf("\\pxqc;I\\P\\pql;I\\P\\pqr;I");
  text.width = 100;
  const auto lines = layOutParagraph(text);
  const double advance = lines[0].line.advance * 10;
  EXPECT_NEAR(lines[0].place({0, 0}).x, (100 - advance) / 2, 1e-9);
  EXPECT_NEAR(lines[1].place({0, 0}).x, 0, 1e-9);
  EXPECT_NEAR(lines[2].place({0, 0}).x, 100 - advance, 1e-9);
}

TEST(Paragraphs, WithoutAWidthLinesAreAlignedToTheLongest) {
  const auto lines = layOutParagraph(paragraphOf("III\\P\\pqr;I"));
  EXPECT_NEAR(lines[1].place({0, 0}).x, (lines[0].line.advance - lines[1].line.advance) * 10, 1e-9);
}

TEST(Paragraphs, AReversedNormalMirrors) {
  MText text = paragraphOf("I");
  text.normal = {0, 0, -1};
  expectNear(layOutParagraph(text)[0].place({0, 0}), {0, 10});
}

TEST(Paragraphs, HostileCodesComeToAnEnd) {
  std::string braces(5000, '{');
  EXPECT_EQ(plainOfMText(braces + "a" + std::string(9000, '}')), "a");
  for (const char* odd : {"\\H", "\\Hx;", "\\H1e400x;I", "\\H-5;I", "\\W0;I", "\\Qnan;I", "\\S",
                          "\\S/;", "\\p", "\\pq", "\\C", "^", "\\"}) {
    for (const PlacedLine& line : layOutParagraph(paragraphOf(odd))) {
      EXPECT_TRUE(std::isfinite(line.place.scale())) << odd;
    }
  }
}

}  // namespace
}  // namespace drafting
