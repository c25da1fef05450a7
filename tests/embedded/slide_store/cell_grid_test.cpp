// The cells of a page of slides.
#include "embedded/slide_store/cell_grid.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <utility>

namespace slide_store {
namespace {

using Rects = std::vector<PixelRect>;

TEST(CellGrid, LinesStandAroundCellsOfEqualSize) {
  // 100 / 3 is 33, 50 / 2 is 25: a pixel is left over at the right.
  EXPECT_EQ(CellGrid({0, 0, 100, 50}, 3, 2).lines(0, 0), (Rects{{0, 0, 1, 50},
                                                                {33, 0, 34, 50},
                                                                {66, 0, 67, 50},
                                                                {99, 0, 100, 50},
                                                                {0, 0, 100, 1},
                                                                {0, 25, 100, 26},
                                                                {0, 49, 100, 50}}));
}

TEST(CellGrid, LinesBeginWhereTold) {
  EXPECT_EQ(CellGrid({10, 20, 30, 40}, 1, 1).lines(10, 20),
            (Rects{{10, 20, 11, 40}, {29, 20, 30, 40}, {10, 20, 30, 21}, {10, 39, 30, 40}}));
}

TEST(CellGrid, CountsBelowOneAreOne) {
  EXPECT_EQ(CellGrid({0, 0, 20, 20}, 0, -3).lines(0, 0),
            CellGrid({0, 0, 20, 20}, 1, 1).lines(0, 0));
  EXPECT_EQ(CellGrid({0, 0, 20, 20}, 0, 0).cellOnPage(0, 0), (PixelRect{0, 0, 20, 20}));
}

TEST(CellGrid, AreaWithoutRoomHasNoLines) {
  EXPECT_TRUE(CellGrid({0, 0, 2, 50}, 3, 2).lines(0, 0).empty());
  EXPECT_TRUE(CellGrid({0, 0, 0, 0}, 1, 1).lines(0, 0).empty());
  EXPECT_TRUE(CellGrid({50, 50, 0, 0}, 1, 1).lines(50, 50).empty());
}

TEST(CellGrid, CellsRunLineByLineOverThePages) {
  const CellGrid grid({10, 20, 110, 70}, 3, 2);
  EXPECT_EQ(grid.cellOnPage(0, 0), (PixelRect{10, 20, 43, 45}));
  EXPECT_EQ(grid.cellOnPage(0, 5), (PixelRect{76, 45, 109, 70}));
  EXPECT_EQ(grid.cellOnPage(1, 6), (PixelRect{10, 20, 43, 45}));
  EXPECT_EQ(grid.cellOnPage(0, 6), std::nullopt);
  EXPECT_EQ(grid.cellOnPage(1, 5), std::nullopt);
  EXPECT_EQ(grid.cellOnPage(0, -1), std::nullopt);
}

TEST(CellGrid, ExtremeNumbersAreNoCells) {
  const CellGrid grid({0, 0, 100, 100}, 3, 2);
  EXPECT_EQ(grid.cellOnPage(INT_MAX, INT_MAX), std::nullopt);
  EXPECT_EQ(grid.cellOnPage(INT_MIN, INT_MIN), std::nullopt);
  EXPECT_EQ(CellGrid({0, 0, 9, 9}, INT_MAX, INT_MAX).cellOnPage(INT_MAX, INT_MAX), std::nullopt);
}

TEST(CellMark, PiecesDoNotOverlapAndStayInside) {
  for (const PixelRect cell : {PixelRect{10, 20, 60, 90}, PixelRect{0, 0, 7, 7},
                               PixelRect{0, 0, 6, 30}, PixelRect{0, 0, 3, 3}}) {
    std::set<std::pair<int, int>> seen;
    for (const PixelRect& piece : markOf(cell)) {
      for (int y = piece.top; y < piece.bottom; ++y) {
        for (int x = piece.left; x < piece.right; ++x) {
          EXPECT_TRUE(seen.emplace(x, y).second) << x << "," << y;
          EXPECT_TRUE(x > cell.left && x < cell.right - 1 && y > cell.top && y < cell.bottom - 1);
        }
      }
    }
    EXPECT_FALSE(seen.empty());
  }
}

TEST(CellMark, CellWithoutInsideHasNone) {
  EXPECT_TRUE(markOf({0, 0, 2, 9}).empty());
  EXPECT_TRUE(markOf({5, 5, 5, 5}).empty());
}

}  // namespace
}  // namespace slide_store
