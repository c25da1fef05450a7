// Every command of shapes, and what a hostile font may cost.
#include <cmath>

#include "embedded/drafting/fonts/font_fixture.h"

namespace drafting {
namespace {

constexpr double kExact = 1e-9;

void expectPoint(Point2 found, Point2 wanted, double error = kExact) {
  EXPECT_NEAR(found.x, wanted.x, error);
  EXPECT_NEAR(found.y, wanted.y, error);
}

using Strokes = std::vector<std::vector<Point2>>;

Strokes pointsOf(const ShapeStrokes& shape) {
  Strokes out;
  for (const auto& stroke : shape.strokes) {
    out.emplace_back();
    for (const ShapeVertex& vertex : stroke) out.back().push_back(vertex.at);
  }
  return out;
}

class Shapes : public ::testing::Test {
 protected:
  ShapeStrokes draw(std::string_view hex) {
    return strokesOf(*fontWith(FontKind::Shapes, {{65, hex}}), 65);
  }
  ShapeStrokes drawVertically(std::string_view hex) {
    return strokesOf(*fontWith(FontKind::Shapes, {{65, hex}}), 65, true);
  }
};

TEST_F(Shapes, VectorsStandOnTheGridOfHalfUnits) {
  const Point2 ends[] = {{2, 0},  {2, 1},   {2, 2},   {1, 2},   {0, 2},  {-1, 2}, {-2, 2}, {-2, 1},
                         {-2, 0}, {-2, -1}, {-2, -2}, {-1, -2}, {0, -2}, {1, -2}, {2, -2}, {2, -1}};
  for (int direction = 0; direction < 16; ++direction) {
    const char code[] = {'2', "0123456789ABCDEF"[direction], ' ', '0', '0', '\0'};
    const ShapeStrokes shape = draw(code);
    EXPECT_EQ(shape.run.end, ends[direction]);
    EXPECT_EQ(pointsOf(shape), (Strokes{{{0, 0}, ends[direction]}}));
  }
}

TEST_F(Shapes, VectorOfLengthNoneDrawsNothing) {
  EXPECT_TRUE(draw("0F 00").strokes.empty());
  EXPECT_EQ(draw("10 0F 10 00").strokes.size(), 1u);
}

TEST_F(Shapes, PenStartsDownAndLiftsBetweenStrokes) {
  const ShapeStrokes shape = draw("10 02 10 01 10 14 02 20 00");
  EXPECT_EQ(pointsOf(shape), (Strokes{{{0, 0}, {1, 0}}, {{2, 0}, {3, 0}, {3, 1}}}));
  EXPECT_EQ(shape.run.end, (Point2{5, 1}));
}

TEST_F(Shapes, LiftingEndsTheStrokeAlsoWithoutMoving) {
  EXPECT_EQ(pointsOf(draw("10 02 01 10 00")), (Strokes{{{0, 0}, {1, 0}}, {{1, 0}, {2, 0}}}));
}

TEST_F(Shapes, NothingIsDrawnBehindTheEnd) {
  EXPECT_EQ(draw("10 00 10 00").run.end, (Point2{1, 0}));
}

TEST_F(Shapes, ScaleIsCumulative) {
  EXPECT_EQ(draw("04 03 10 04 02 10 03 06 10 00").run.end, (Point2{3 + 6 + 1, 0}));
  EXPECT_EQ(draw("03 02 08 03 05 00").run.end, (Point2{1.5, 2.5}));
}

TEST_F(Shapes, ScaleOf0IsPassedOver) {
  EXPECT_EQ(draw("03 00 10 04 00 10 00").run.end, (Point2{2, 0}));
}

TEST_F(Shapes, ScaleStaysWithinBounds) {
  std::string hex;
  for (int i = 0; i < 600; ++i) hex += "04 FF ";
  const ShapeStrokes shape = draw(hex + "10 00");
  EXPECT_TRUE(std::isfinite(shape.run.end.x));
  EXPECT_LE(shape.run.end.x, 1e6);
}

TEST_F(Shapes, PopJumpsBackWithoutDrawing) {
  const ShapeStrokes shape = draw("10 05 14 06 10 00");
  EXPECT_EQ(pointsOf(shape), (Strokes{{{0, 0}, {1, 0}, {1, 1}}, {{1, 0}, {2, 0}}}));
}

TEST_F(Shapes, StackLeavesScaleAndPenAlone) {
  const ShapeStrokes shape = draw("05 02 04 02 10 06 10 00");
  EXPECT_TRUE(shape.strokes.empty());
  EXPECT_EQ(shape.run.end, (Point2{2, 0}));
}

TEST_F(Shapes, StackHoldsFourAndItsFaultsAreIgnored) {
  // Of five pushes, at 0 to 4, the last one is lost.
  EXPECT_EQ(draw("05 10 05 10 05 10 05 10 05 06 00").run.end, (Point2{3, 0}));
  EXPECT_EQ(draw("05 10 05 10 05 10 05 10 05 06 06 06 06 06 00").run.end, (Point2{0, 0}));
  EXPECT_EQ(draw("06 10 00").run.end, (Point2{1, 0}));
}

TEST_F(Shapes, MovesAreSigned) {
  EXPECT_EQ(draw("08 7F 80 00").run.end, (Point2{127, -128}));
  EXPECT_EQ(pointsOf(draw("09 03 01 FD 01 00 05 00 00 10 00")),
            (Strokes{{{0, 0}, {3, 1}, {0, 2}, {0, 7}, {1, 7}}}));
}

TEST_F(Shapes, OctantArcOfTheTable) {
  // To (1, 1), a clockwise arc of radius 1 from octant 3 over two octants, one to the right.
  const ShapeStrokes shape = draw("12 0A 01 B2 1E 00");
  ASSERT_EQ(shape.strokes.size(), 1u);
  const auto& stroke = shape.strokes[0];
  expectPoint(stroke[1].at, {1, 1});
  expectPoint(stroke[2].at, {1 + std::sqrt(2), 1});
  EXPECT_NEAR(stroke[2].bulge, -std::tan(base::kPi / 8), kExact);
  expectPoint(stroke[3].at, {2 + std::sqrt(2), 0});
}

TEST_F(Shapes, NoOctantsAreAFullCircle) {
  const ShapeStrokes shape = draw("0A 05 00 00");
  expectPoint(shape.run.end, {0, 0});
  ASSERT_EQ(shape.strokes[0].size(), 5u);
  expectPoint(shape.strokes[0][1].at, {-5, 5});
  expectPoint(shape.strokes[0][2].at, {-10, 0});
  EXPECT_NEAR(shape.strokes[0][1].bulge, std::tan(base::kPi / 8), kExact);
}

TEST_F(Shapes, FractionalArcOfTheTable) {
  const ShapeStrokes shape = draw("0B 38 1C 00 03 12 00");
  expectPoint(shape.run.end, {-1.985, 0.536}, 0.001);
  EXPECT_NEAR(shape.strokes[0].back().bulge, std::tan(base::radians(94.921875 - 54.84375) / 4),
              kExact);
}

TEST_F(Shapes, FractionalArcWithoutOffsetsIsAnOctantArc) {
  for (const char* octants : {"12", "B2", "00", "87", "71"}) {
    const std::string s = octants;
    expectPoint(draw("0B 00 00 00 09 " + s + " 00").run.end, draw("0A 09 " + s + " 00").run.end);
  }
}

TEST_F(Shapes, FractionalArcOfALargeRadius) {
  expectPoint(draw("0B 00 00 02 01 02 00").run.end, {-513, 513});
}

TEST_F(Shapes, ClockwiseFractionsCountClockwise) {
  // From 45 down past 22.5 to 0 less half an octant.
  const Point2 end = draw("0B 80 80 00 0A 92 00").run.end;
  expectPoint(end, {10 * (std::cos(base::radians(-22.5)) - std::cos(base::radians(22.5))),
                    10 * (std::sin(base::radians(-22.5)) - std::sin(base::radians(22.5)))});
}

TEST_F(Shapes, BulgeArcs) {
  const ShapeStrokes half = draw("0C 00 0A 7F 00");
  EXPECT_EQ(half.run.end, (Point2{0, 10}));
  EXPECT_EQ(half.strokes[0][1].bulge, 1);
  EXPECT_EQ(draw("0C 00 0A 81 00").strokes[0][1].bulge, -1);
  EXPECT_EQ(draw("0C 00 0A 80 00").strokes[0][1].bulge, -1);  // -128 counts as -127
  EXPECT_EQ(draw("0C 00 0A 00 00").strokes[0][1].bulge, 0);
}

TEST_F(Shapes, RunOfBulgeArcsEndsWithAPair) {
  const ShapeStrokes shape = draw("0D 00 05 7F 05 00 00 FB 00 81 00 00 14 00");
  EXPECT_EQ(pointsOf(shape), (Strokes{{{0, 0}, {0, 5}, {5, 5}, {0, 5}, {0, 6}}}));
  EXPECT_EQ(shape.strokes[0][1].bulge, 1);
  EXPECT_EQ(shape.strokes[0][2].bulge, 0);
  EXPECT_EQ(shape.strokes[0][3].bulge, -1);
}

TEST_F(Shapes, ScaleHoldsForArcsToo) {
  expectPoint(draw("04 02 0A 05 02 00").run.end, {-10, 10});
  expectPoint(draw("03 02 0C 0A 00 7F 00").run.end, {5, 0});
}

TEST_F(Shapes, VerticalFlagSkipsOneCommandWithItsOperands) {
  const char* skipped[] = {"02",
                           "10",
                           "03 02",
                           "04 02",
                           "05",
                           "08 05 05",
                           "09 05 05 01 01 00 00",
                           "0A 05 02",
                           "07 41",
                           "0C 05 05 10",
                           "0B 38 1C 00 03 12",
                           "0D 05 05 10 01 01 01 00 00"};
  for (const std::string command : skipped) {
    EXPECT_EQ(draw("0E " + command + " 14 00").run.end, (Point2{0, 1})) << command;
    EXPECT_EQ(draw("0E " + command + " 14 00").strokes.size(), 1u) << command;
  }
}

TEST_F(Shapes, VerticalTextObeysTheFlaggedCommand) {
  const char* code = "0E 08 FE FA 14 0E 08 02 05 00";
  EXPECT_EQ(draw(code).run.end, (Point2{0, 1}));
  EXPECT_EQ(drawVertically(code).run.end, (Point2{0, 0}));
}

TEST_F(Shapes, FlagAtTheEndIsHarmless) {
  EXPECT_EQ(draw("10 0E 00").run.end, (Point2{1, 0}));
  EXPECT_EQ(draw("10 0E").run.end, (Point2{1, 0}));
}

TEST_F(Shapes, CommandCutOffEndsTheShape) {
  for (const char* cut : {"10 08 05", "10 0A", "10 0B 01 02 03 04", "10 0C 01 02", "10 03", "10 07",
                          "10 0E 08 01", "10"}) {
    EXPECT_EQ(draw(cut).run.end, (Point2{1, 0})) << cut;
  }
  EXPECT_EQ(draw("10 09 05 05 01").run.end, (Point2{6, 5}));
  EXPECT_EQ(draw("10 0D 05 05 00 01 01").run.end, (Point2{6, 5}));
}

// --- subshapes

TEST(Subshapes, TakeAndGiveBackPositionScaleAndPen) {
  const auto font = fontWith(FontKind::Shapes, {{65, "10 07 42 10 00"}, {66, "04 02 14 02 00"}});
  const ShapeStrokes shape = strokesOf(*font, 65);
  EXPECT_EQ(pointsOf(shape), (Strokes{{{0, 0}, {1, 0}, {1, 2}}}));
  EXPECT_EQ(shape.run.end, (Point2{3, 2}));
}

TEST(Subshapes, UnifontNumbersHaveTheHighByteFirst) {
  const auto font = fontWith(FontKind::Unifont, {{65, "07 01 02 10 00"}, {0x0102, "14 00"}});
  EXPECT_EQ(strokesOf(*font, 65).run.end, (Point2{1, 1}));
}

TEST(Subshapes, MissingOneDrawsNothing) {
  const auto font = fontWith(FontKind::Shapes, {{65, "07 63 10 07 00 10 00"}});
  EXPECT_EQ(strokesOf(*font, 65).run.end, (Point2{2, 0}));
}

TEST(Subshapes, NestEightDeep) {
  std::map<std::uint16_t, std::string_view> shapes;
  const std::string codes[] = {"14 07 02 00", "14 07 03 00", "14 07 04 00", "14 07 05 00",
                               "14 07 06 00", "14 07 07 00", "14 07 08 00", "14 07 09 00",
                               "14 07 0A 00", "14 00"};
  for (std::uint16_t i = 0; i < 10; ++i) {
    shapes.emplace(static_cast<std::uint16_t>(i + 1), codes[i]);
  }
  const auto font = fontWith(FontKind::Shapes, shapes);
  EXPECT_EQ(strokesOf(*font, 1).run.end, (Point2{0, 9}));
  EXPECT_EQ(strokesOf(*font, 2).run.end, (Point2{0, 9}));
}

TEST(Subshapes, CyclesEnd) {
  const auto own = fontWith(FontKind::Shapes, {{65, "10 07 41 00"}});
  EXPECT_EQ(strokesOf(*own, 65).run.end, (Point2{9, 0}));
  const auto two = fontWith(FontKind::Shapes, {{65, "10 07 42 00"}, {66, "14 07 41 00"}});
  EXPECT_EQ(strokesOf(*two, 65).run.end, (Point2{5, 4}));
}

TEST(Subshapes, FontThatAsksForEndlessWorkIsCutOff) {
  std::string many;
  for (int i = 0; i < 900; ++i) many += "07 41 ";
  const auto font = fontWith(FontKind::Shapes, {{65, many + "10 00"}});
  const ShapeStrokes shape = strokesOf(*font, 65);  // 900 to the 9th steps
  EXPECT_TRUE(shape.run.cut);
  EXPECT_EQ(shape.run.steps, kMostShapeSteps);
}

// --- big fonts

FontMetrics extended() { return {20, 0, 0, 0, 0, 10, true}; }

TEST(BigFontSubshapes, OneByteIsAPlainReference) {
  const auto font = fontWith(FontKind::BigFont, {{kMiddle, "07 05 10 00"}, {5, "14 00"}});
  EXPECT_EQ(strokesOf(*font, kMiddle).run.end, (Point2{1, 1}));
}

TEST(BigFontSubshapes, PrimitiveIsFittedIntoItsBox) {
  // Box at (2, -3), 5 of 10 wide, 10 of 20 high; the primitive is a stroke up and one right.
  const auto font =
      fontWith(FontKind::BigFont,
               {{kMiddle, "10 07 00 01 02 02 FD 05 0A 14 00"}, {0x0102, "44 40 00"}}, extended());
  const ShapeStrokes shape = strokesOf(*font, kMiddle);
  EXPECT_EQ(pointsOf(shape),
            (Strokes{{{0, 0}, {1, 0}}, {{3, -3}, {3, -1}, {5, -1}}, {{1, 0}, {1, 1}}}));
  EXPECT_EQ(shape.run.end, (Point2{1, 1}));
}

TEST(BigFontSubshapes, PlainFontHasOneSize) {
  const auto font =
      fontWith(FontKind::BigFont, {{kMiddle, "07 00 01 02 01 01 08 10 00"}, {0x0102, "44 40 00"}},
               {16, 0, 0, 0, 0, 0, false});
  const ShapeStrokes shape = strokesOf(*font, kMiddle);
  EXPECT_EQ(pointsOf(shape)[0], (std::vector<Point2>{{1, 1}, {1, 3}, {3, 3}}));
  EXPECT_EQ(shape.run.end, (Point2{1, 0}));
}

TEST(BigFontSubshapes, CallersScaleHoldsWithinTheBox) {
  const auto font =
      fontWith(FontKind::BigFont,
               {{kMiddle, "04 02 07 00 01 02 01 01 05 14 10 00"}, {0x0102, "40 00"}}, extended());
  const ShapeStrokes shape = strokesOf(*font, kMiddle);
  EXPECT_EQ(pointsOf(shape)[0], (std::vector<Point2>{{2, 2}, {6, 2}}));
  EXPECT_EQ(shape.run.end, (Point2{2, 0}));
}

TEST(BigFontSubshapes, CirclesInANarrowBoxAreEllipses) {
  // Half as wide as high: from (10, 0) of a circle of radius 10 about (0, 0), pressed to 5 by 10.
  const auto font =
      fontWith(FontKind::BigFont,
               {{kMiddle, "07 00 01 02 00 00 05 14 00"}, {0x0102, "0A 0A 00 00"}}, extended());
  const ShapeStrokes shape = strokesOf(*font, kMiddle);
  ASSERT_EQ(shape.strokes.size(), 1u);
  EXPECT_EQ(shape.strokes[0].size(), 65u);
  for (const ShapeVertex& vertex : shape.strokes[0]) {
    EXPECT_EQ(vertex.bulge, 0);
    EXPECT_NEAR(std::hypot((vertex.at.x + 5) / 5, vertex.at.y / 10), 1, kExact);
  }
}

TEST(BigFontSubshapes, BulgesInANarrowBoxAreEllipsesToo) {
  // Half a circle to the right of an upward chord: its utmost point is half as far.
  const auto font =
      fontWith(FontKind::BigFont,
               {{kMiddle, "07 00 01 02 00 00 05 14 00"}, {0x0102, "0C 00 0A 7F 00"}}, extended());
  const ShapeStrokes shape = strokesOf(*font, kMiddle);
  double right = 0;
  for (const ShapeVertex& vertex : shape.strokes[0]) right = std::max(right, vertex.at.x);
  EXPECT_NEAR(right, 2.5, 0.01);
  expectPoint(shape.strokes[0].back().at, {0, 10});
}

TEST(BigFontSubshapes, PenGoesOnFromThePrimitive) {
  const auto font =
      fontWith(FontKind::BigFont, {{kMiddle, "07 00 01 02 00 00 0A 14 10 00"}, {0x0102, "02 00"}},
               extended());
  EXPECT_TRUE(strokesOf(*font, kMiddle).strokes.empty());
}

// --- whole glyphs

TEST(TinyFonts, LetterL) {
  for (const std::string& bytes : {tinyUnifont(), tinyShapes()}) {
    const ShapeStrokes shape = strokesOf(*fontOf(bytes), 'L');
    EXPECT_EQ(pointsOf(shape), (Strokes{{{0, 6}, {0, 0}, {4, 0}}}));
    EXPECT_EQ(shape.run.end, (Point2{6, 0}));
  }
}

TEST(TinyFonts, MiddleIsABoxAndAStroke) {
  const ShapeStrokes shape = strokesOf(*fontOf(tinyBigFont()), kMiddle);
  EXPECT_EQ(pointsOf(shape),
            (Strokes{{{1, 5}, {1, 11}, {15, 11}, {15, 5}, {1, 5}}, {{8, 16}, {8, 0}}}));
  EXPECT_EQ(shape.run.end, (Point2{18, 0}));
}

TEST(TinyFonts, LineFeedMovesDown) {
  const ShapeStrokes shape = strokesOf(*fontOf(tinyUnifont()), 10);
  EXPECT_TRUE(shape.strokes.empty());
  EXPECT_EQ(shape.run.end, (Point2{0, -9}));
}

TEST(TinyFonts, ShapeThatIsNotThereStays) {
  const ShapeStrokes shape = strokesOf(*fontOf(tinyUnifont()), 'M');
  EXPECT_TRUE(shape.strokes.empty());
  EXPECT_EQ(shape.run.end, (Point2{0, 0}));
  EXPECT_EQ(shape.run.steps, 0u);
}

}  // namespace
}  // namespace drafting
