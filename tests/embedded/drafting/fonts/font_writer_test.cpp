// Compiling shapes, and the bytes of whole fonts.
#include <random>

#include "embedded/drafting/fonts/font_fixture.h"

namespace drafting {
namespace {

FontParts tiny(FontKind kind) {
  FontParts parts{kind, "TINY", {6, 2, 0, 0, 0, 0, false}, {}, {}};
  parts.shapes[10] = {"", bytesOf("02 08 00 f7 00")};
  parts.shapes['L'] = {"", bytesOf("02 64 01 6c 40 02 20 00")};
  return parts;
}

TEST(FontWriter, UnifontByteForByte) {
  EXPECT_EQ(*writeFont(tiny(FontKind::Unifont)), tinyUnifont());
}

TEST(FontWriter, ShapesByteForByte) { EXPECT_EQ(*writeFont(tiny(FontKind::Shapes)), tinyShapes()); }

TEST(FontWriter, CompiledBigFontByteForByte) {
  FontParts parts{FontKind::BigFont, "TINYBIG", {16, 0, 0, 0, 0, 0, false}, {{0x81, 0xFE}}, {}};
  parts.shapes[kMiddle].bytes =
      compileShape({{{1, 5}, {1, 11}, {15, 11}, {15, 5}, {1, 5}}, {{8, 16}, {8, 0}}}, {18, 0});
  EXPECT_EQ(*writeFont(parts), tinyBigFont());
}

TEST(FontWriter, WhatIsReadIsWrittenAgain) {
  for (const std::string& bytes : {tinyUnifont(), tinyShapes(), tinyBigFont()}) {
    EXPECT_EQ(*writeFont(partsOf(*fontOf(bytes))), bytes);
  }
  const auto extended =
      fontWith(FontKind::BigFont, {{kMiddle, "10 00"}, {5, "14 00"}}, {20, 0, 2, 0, 0, 18, true});
  EXPECT_EQ(fontOf(*writeFont(partsOf(*extended)))->metrics(), extended->metrics());
}

TEST(FontWriter, NamesOfShapesAreKept) {
  FontParts parts;
  parts.kind = FontKind::Shapes;
  parts.shapes[130] = {"BOX", bytesOf("14 00")};
  parts.shapes[131] = {"LINE", bytesOf("10 00")};
  EXPECT_EQ(partsOf(*fontOf(*writeFont(parts))).shapes[131].name, "LINE");
}

TEST(FontWriter, WhatDoesNotFitIsRefused) {
  FontParts parts = tiny(FontKind::Unifont);
  parts.shapes['M'].bytes = std::string(2000, '\x10');
  EXPECT_TRUE(writeFont(parts).ok());
  parts.shapes['M'].bytes += '\0';
  EXPECT_EQ(writeFont(parts).message(), "shape 77 has more than 2000 bytes");
  parts.shapes['M'].bytes.clear();
  EXPECT_EQ(writeFont(parts).message(), "shape 77 has no bytes");
  parts.shapes.erase('M');
  parts.shapes[0].bytes = "x";
  EXPECT_EQ(writeFont(parts).message(), "shape 0 is the font record");
  parts.shapes.erase(0);
  parts.name = std::string(70000, 'x');
  EXPECT_EQ(writeFont(parts).message(), "a name is too long");
  parts.metrics.above = 0;
  EXPECT_EQ(writeFont(parts).message(), "the font has no height");
}

TEST(CompiledShapes, LongMovesAreCut) {
  EXPECT_EQ(compileShape({}, {200, 0}), bytesOf("02 09 64 00 64 00 00 00 00"));
  EXPECT_EQ(compileShape({{{0, 0}, {0, -128}}}, {0, -128}),
            bytesOf("02 01 09 00 C0 00 C0 00 00 02 00"));
}

TEST(CompiledShapes, PointsWithoutALineDrawNothing) {
  EXPECT_EQ(compileShape({{{5, 5}}, {}}, {3, 0}), bytesOf("02 08 03 00 00"));
}

TEST(CompiledShapes, RandomStrokesComeBack) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> coordinate(-300, 300), many(2, 8);
  for (int i = 0; i < 200; ++i) {
    std::vector<GridStroke> strokes(static_cast<std::size_t>(many(random)));
    for (GridStroke& stroke : strokes) {
      stroke.resize(static_cast<std::size_t>(many(random)));
      for (GridPoint& p : stroke) p = {coordinate(random), coordinate(random)};
    }
    const GridPoint end{coordinate(random), coordinate(random)};
    FontParts parts = tiny(FontKind::Unifont);
    parts.shapes['A'].bytes = compileShape(strokes, end);
    const ShapeStrokes drawn = strokesOf(*fontOf(*writeFont(parts)), 'A');
    ASSERT_EQ(drawn.strokes.size(), strokes.size());
    EXPECT_EQ(drawn.run.end, (Point2{double(end.x), double(end.y)}));
    for (std::size_t k = 0; k < strokes.size(); ++k) {
      // Every corner is there, in order; cut moves add points between.
      std::size_t next = 0;
      for (const ShapeVertex& vertex : drawn.strokes[k]) {
        if (next < strokes[k].size() &&
            vertex.at == Point2{double(strokes[k][next].x), double(strokes[k][next].y)}) {
          ++next;
        }
      }
      EXPECT_EQ(next, strokes[k].size());
    }
  }
}

}  // namespace
}  // namespace drafting
