// The library window's numbers: panes, tool bar strip, pages, grids, and its stored place.
#include "library_window/frame_layout.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/shapes.h"

namespace {

using test::edges;
using test::extent;
using test::Place;

TEST(PaneSizes, BarTakes120OfTheWidth) {
  const PaneSizes sizes = CalcPaneSizes({600, 401}, false);
  EXPECT_EQ(extent(sizes.grid), (Place{480, 200}));
  EXPECT_EQ(extent(sizes.bar), (Place{120, 200}));
}

TEST(PaneSizes, NarrowWindowLeavesTheGridNothing) {
  EXPECT_EQ(extent(CalcPaneSizes({119, 10}, false).grid), (Place{0, 5}));
}

TEST(PaneSizes, HiddenBarLeavesAllToTheGrid) {
  const PaneSizes sizes = CalcPaneSizes({600, 401}, true);
  EXPECT_EQ(extent(sizes.grid), (Place{600, 401}));
  EXPECT_EQ(extent(sizes.bar), (Place{0, 0}));
}

TEST(FrameLayout, BarMovesTheRightEdge) {
  EXPECT_EQ(edges(withBarToggled({10, 20, 400, 300}, true)), (Place{10, 20, 280, 300}));
  EXPECT_EQ(edges(withBarToggled({10, 20, 280, 300}, false)), (Place{10, 20, 400, 300}));
}

TEST(FrameLayout, ToolBarIsAStripAtTheDocksRightEnd) {
  EXPECT_EQ(edges(toolBarStrip({0, 0, 700, 26})), (Place{448, -2, 700, 28}));
}

TEST(FrameLayout, WindowIsNeverNarrowerThanTheStrip) {
  EXPECT_EQ(extent(leastWindowSize({100, 100, 340, 300}, {0, 0, 232, 173})), (Place{260, 277}));
}

TEST(FrameLayout, StoredPlaceIsPlaceAndSize) {
  EXPECT_EQ(edges(storedWindow(300, 40, 240, 200)), (Place{300, 40, 540, 240}));
  EXPECT_EQ(edges(storedWindow(2147483647, -5, 2147483647, -2147483647)),
            (Place{2147483647, -5, 2147483647, -2147483648}));
}

TEST(ReachableWindow, StaysWhereItsCaptionIsSeen) {
  const RECT screen{0, 0, 1280, 1024};
  for (const RECT& window : {RECT{300, 40, 540, 240}, RECT{-192, 0, 48, 200},
                             RECT{1232, 1008, 1500, 1300}, RECT{-100, 50, 2000, 3000}}) {
    EXPECT_EQ(edges(reachableWindow(window, screen)), edges(window));
  }
}

TEST(ReachableWindow, ComesBackFromOffTheScreen) {
  const RECT screen{0, 0, 1280, 1024};
  EXPECT_EQ(edges(reachableWindow({-193, 0, 47, 200}, screen)), (Place{0, 0, 240, 200}));
  EXPECT_EQ(edges(reachableWindow({300, -5, 540, 240}, screen)), (Place{300, 0, 540, 245}));
  EXPECT_EQ(edges(reachableWindow({3000, 5000, 3240, 5200}, screen)),
            (Place{1040, 824, 1280, 1024}));
  EXPECT_EQ(edges(reachableWindow({-32000, -32000, -31840, -31976}, screen)),
            (Place{0, 0, 160, 24}));
}

TEST(ReachableWindow, NonsenseBecomesAWindowOnTheScreen) {
  const RECT screen{0, 0, 1280, 1024};
  EXPECT_EQ(edges(reachableWindow({-2147483647, -2147483647, 2147483647, 2147483647}, screen)),
            (Place{0, 0, 1280, 1024}));
  EXPECT_EQ(edges(reachableWindow({500, 500, 100, 100}, screen)), (Place{500, 500, 500, 500}));
}

TEST(Pages, Page1HasNoPrevious) {
  EXPECT_FALSE(hasPreviousPage(1));
  EXPECT_TRUE(hasPreviousPage(2));
}

TEST(Pages, FullPageHasNoNext) {
  EXPECT_FALSE(hasNextPage(1, 3, 6, 18));
  EXPECT_TRUE(hasNextPage(1, 3, 6, 19));
  EXPECT_FALSE(hasNextPage(2, 3, 6, 36));
  EXPECT_FALSE(hasNextPage(1, 3, 6, -1));
}

TEST(Pages, PageFollowsTheSlot) {
  EXPECT_EQ(pageOfSlot(20, 1, 3), 7);
  EXPECT_EQ(pageOfSlot(17, 3, 6), 1);
  EXPECT_EQ(pageOfSlot(18, 3, 6), 2);
}

TEST(Pages, TurningStaysWithinItsNumbers) {
  constexpr std::int32_t kLast = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kFirst = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(pageAfter(3, 1), 4);
  EXPECT_EQ(pageAfter(1, -1), 0);
  EXPECT_EQ(pageAfter(kLast, 1), kLast);
  EXPECT_EQ(pageAfter(kFirst, -1), kFirst);
}

TEST(Pages, CountsOf0CountAs1) {
  EXPECT_EQ(pageOfSlot(4, 0, 6), 5);
  EXPECT_TRUE(hasNextPage(1, 0, 0, 2));
}

TEST(GridList, ShowsTheItemOfAsManyRows) {
  for (int rows = 1; rows <= 4; ++rows) EXPECT_EQ(shownGridItem(rows), rows - 1);
  EXPECT_EQ(shownGridItem(0), kNoGridItem);
  EXPECT_EQ(shownGridItem(5), kNoGridItem);
}

TEST(GridList, ComparesRowsAloneAndTakesTheLastItemOtherwise) {
  EXPECT_EQ(comparedGridItem(1), 0);
  EXPECT_EQ(comparedGridItem(3), 2);
  EXPECT_EQ(comparedGridItem(4), 3);
  EXPECT_EQ(comparedGridItem(0), 3);
  EXPECT_EQ(comparedGridItem(77), 3);
}

TEST(GridList, ItemsStandForTheirTexts) {
  EXPECT_EQ(gridOfItem(0), (Grid{1, 3}));
  EXPECT_EQ(gridOfItem(1), (Grid{2, 6}));
  EXPECT_EQ(gridOfItem(2), (Grid{3, 9}));
  EXPECT_EQ(gridOfItem(3), (Grid{4, 12}));
  EXPECT_EQ(gridOfItem(-1), (Grid{1, 3}));
  EXPECT_EQ(gridOfItem(4), (Grid{1, 3}));
}

}  // namespace
