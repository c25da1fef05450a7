// The page's arithmetic: slots, boxes, hits, and the preview's box.
#include "library_window/grid_layout.h"

#include <gtest/gtest.h>

#include "library_window/pasted_circuit.h"
#include "support/shapes.h"

namespace {

using test::edges;
using test::place;
using test::Place;

TEST(GridLayout, CellsAreWholePixelsAndTheRestIsLeftOver) {
  const GridLayout grid({605, 301}, 3, 6, 1);
  EXPECT_EQ(grid.cell().cx, 100);
  EXPECT_EQ(grid.cell().cy, 100);
  EXPECT_EQ(grid.cellsPerPage(), 18);
}

TEST(GridLayout, SlotsOfAPageStandInReadingOrder) {
  const GridLayout grid({600, 300}, 3, 6, 2);
  EXPECT_EQ(grid.firstSlot(), 18);
  EXPECT_EQ(place(grid.boxOf(18)), (Place{0, 0}));
  EXPECT_EQ(place(grid.boxOf(23)), (Place{500, 0}));
  EXPECT_EQ(place(grid.boxOf(24)), (Place{0, 100}));
  EXPECT_EQ(place(grid.boxOf(35)), (Place{500, 200}));
}

TEST(GridLayout, FirstCellOfTheSecondRowOnPage2) {
  EXPECT_EQ(GridLayout({600, 300}, 3, 6, 2).slotAt({0, 100}), 24);
  EXPECT_EQ(GridLayout({600, 300}, 3, 6, 2).slotAt({99, 199}), 24);
}

TEST(GridLayout, BoxesAndHitsAgreeOverAWholePage) {
  const GridLayout grid({1200, 800}, 4, 12, 3);
  for (std::int64_t slot = grid.firstSlot(); slot < grid.firstSlot() + 48; ++slot) {
    const POINT box = grid.boxOf(slot);
    EXPECT_EQ(grid.slotAt(box), slot);
    EXPECT_EQ(grid.slotAt({box.x + grid.cell().cx - 1, box.y + grid.cell().cy - 1}), slot);
  }
}

TEST(GridLayout, LeftOverStripLeadsToTheNextRowAndPage) {
  const GridLayout grid({605, 302}, 3, 6, 1);
  EXPECT_EQ(grid.slotAt({600, 0}), 6);
  EXPECT_EQ(grid.slotAt({604, 299}), 18);
  EXPECT_EQ(grid.slotAt({0, 300}), 18);
}

TEST(GridLayout, InsideOfACellLeavesItsGridLines) {
  const GridLayout grid({600, 300}, 3, 6, 1);
  EXPECT_EQ(edges(grid.insideOf({0, 0})), (Place{1, 1, 99, 99}));
  EXPECT_EQ(edges(grid.insideOf({250, 199})), (Place{201, 101, 299, 199}));
}

TEST(GridLayout, CountsOf0CountAs1) {
  const GridLayout grid({600, 300}, 0, -3, 0);
  EXPECT_EQ(grid.cellsPerPage(), 1);
  EXPECT_EQ(grid.firstSlot(), 0);
  EXPECT_EQ(grid.slotAt({599, 299}), 0);
}

TEST(GridLayout, WindowSmallerThanItsGridHasCellsOfAPixel) {
  const GridLayout grid({3, 0}, 4, 12, 1);
  EXPECT_EQ(grid.cell().cx, 1);
  EXPECT_EQ(grid.cell().cy, 1);
  EXPECT_EQ(grid.slotAt({2, 1}), 14);
}

TEST(GridLayout, HugeStoredNumbersStayWithinASlotsRange) {
  const GridLayout grid({600, 300}, 2147483647, 2147483647, 2147483647);
  EXPECT_EQ(grid.slotAt({599, 299}), 2147483647);
  EXPECT_EQ(GridLayout({600, 300}, 3, 6, 1).slotAt({-700, 0}), 0);
}

TEST(PreviewBox, StandsUprightInTheMiddle) {
  EXPECT_EQ(edges(previewBox({1000, 400})), (Place{425, 0, 575, 400}));
}

TEST(PreviewBox, RunsOutOfANarrowWindow) {
  EXPECT_EQ(edges(previewBox({100, 400})), (Place{-25, 0, 125, 400}));
}

TEST(PreviewBox, BothProductsAreCutTowards0) {
  EXPECT_EQ(edges(previewBox({101, 335})), (Place{-11, 0, 114, 335}));
}

TEST(PastedCircuit, FirstFieldIsTheSlotsNumber) {
  EXPECT_EQ(rowForSlot(L"(\"03\" \"A01\" \"\" 0 0 0)", 11)->wide(), L"(\"12\" \"A01\" \"\" 0 0 0)");
  EXPECT_EQ(rowForSlot(L"x y", 8)->wide(), L"(\"09\" y");
  EXPECT_EQ(rowForSlot(L" y", 9)->wide(), L"(\"10\" y");
}

TEST(PastedCircuit, RowWithoutABlankIsNoCircuit) {
  EXPECT_FALSE(rowForSlot(L"(\"03\")", 0));
  EXPECT_FALSE(rowForSlot(L"", 0));
}

}  // namespace
