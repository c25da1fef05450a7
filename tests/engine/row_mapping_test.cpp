// From row coordinates to those of the drawing.
#include "engine/row_mapping.h"

#include <gtest/gtest.h>

#include "support/transcript.h"

namespace {

TEST(RowMapping, StretchesXScalesAndMoves) {
  const RowPoint mapped = mapRowPoint({10, 5}, 0, 100, {1000, 2000});
  EXPECT_DOUBLE_EQ(mapped.x, 2200);
  EXPECT_DOUBLE_EQ(mapped.y, 2500);
}

TEST(RowMapping, ScaleOfZeroPutsEverythingAtTheInsertionPoint) {
  EXPECT_EQ(mapRowPoint({10, 5}, 0, 0, {7, 8}), (RowPoint{7, 8}));
}

TEST(RowMapping, TurnsByQuarters) {
  const RowPoint expected[] = {{2, 1}, {-1, 2}, {-2, -1}, {1, -2}};
  for (int direction = 0; direction < 4; ++direction) {
    RowPoint point{2, 1};
    RotateByDirection(direction, point);
    EXPECT_NEAR(point.x, expected[direction].x, 1e-12) << direction;
    EXPECT_NEAR(point.y, expected[direction].y, 1e-12) << direction;
  }
  EXPECT_EQ(test::takeTranscript(), L"");
}

TEST(RowMapping, StretchComesBeforeTheTurn) {
  const RowPoint mapped = mapRowPoint({10, 5}, 1, 100, {1000, 2000});
  EXPECT_NEAR(mapped.x, 500, 1e-9);
  EXPECT_NEAR(mapped.y, 3200, 1e-9);
}

TEST(RowMapping, RefusesOtherDirections) {
  for (const int direction : {-1, 4}) {
    RowPoint point{2, 1};
    RotateByDirection(direction, point);
    EXPECT_EQ(point, (RowPoint{2, 1}));
    EXPECT_EQ(test::takeTranscript(), L"\n代表方向的数值必须为\"0 1 2 3\"中的一个.");
  }
}

}  // namespace
