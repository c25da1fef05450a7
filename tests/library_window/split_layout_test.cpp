// How two columns, and more, share the splitter's width.
#include "library_window/split_layout.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Sizes = std::vector<int>;

Sizes laidOut(std::vector<PaneExtent> panes, int available, int gap = 4) {
  layOutPanes(panes, available, gap);
  Sizes sizes;
  for (const PaneExtent& pane : panes) sizes.push_back(pane.current);
  return sizes;
}

PaneExtent ideal(int size) { return {0, size, 0}; }

TEST(SplitLayout, BarTakesWhatTheGridAndTheGapLeave) {
  EXPECT_EQ(laidOut({ideal(480), ideal(120)}, 600), (Sizes{480, 116}));
}

TEST(SplitLayout, HiddenBarLeavesTheGridAllButTwoPixels) {
  EXPECT_EQ(laidOut({ideal(600), ideal(0)}, 600), (Sizes{598, 0}));
}

TEST(SplitLayout, SecondColumnIsCutToTheRoomLeft) {
  EXPECT_EQ(laidOut({ideal(500), ideal(5000)}, 600), (Sizes{500, 96}));
}

TEST(SplitLayout, GridWiderThanTheRoomIsCut) {
  EXPECT_EQ(laidOut({ideal(900), ideal(120)}, 600), (Sizes{598, 0}));
}

TEST(SplitLayout, LastPixelsUpToTheGapGoToThePaneBefore) {
  EXPECT_EQ(laidOut({ideal(597), ideal(120)}, 600), (Sizes{598, 0}));
  EXPECT_EQ(laidOut({ideal(596), ideal(120)}, 600), (Sizes{598, 0}));
  EXPECT_EQ(laidOut({ideal(595), ideal(120)}, 600), (Sizes{595, 1}));
}

TEST(SplitLayout, NoRoomLeavesNothing) {
  EXPECT_EQ(laidOut({ideal(10), ideal(10)}, 0), (Sizes{0, 0}));
  EXPECT_EQ(laidOut({ideal(10), ideal(10)}, -50), (Sizes{0, 0}));
  EXPECT_EQ(laidOut({ideal(10), ideal(10)}, 2), (Sizes{2, 0}));
  EXPECT_EQ(laidOut({ideal(10), ideal(10)}, 3), (Sizes{1, 0}));
}

TEST(SplitLayout, EmptyFirstPaneStillTakesTheGap) {
  EXPECT_EQ(laidOut({ideal(0), ideal(120)}, 600), (Sizes{0, 596}));
}

TEST(SplitLayout, IdealBelowTheLeastIsNothing) {
  EXPECT_EQ(laidOut({{50, 20, 0}, ideal(0)}, 600), (Sizes{0, 596}));
}

TEST(SplitLayout, LaterPaneBelowItsLeastGivesItsRoomBack) {
  EXPECT_EQ(laidOut({ideal(560), {50, 50, 0}}, 600), (Sizes{598, 0}));
  EXPECT_EQ(laidOut({ideal(300), {50, 260, 0}, {50, 0, 0}}, 600), (Sizes{300, 294, 0}));
}

TEST(SplitLayout, OnePaneTakesAll) {
  EXPECT_EQ(laidOut({ideal(7)}, 300), (Sizes{300}));
  EXPECT_EQ(laidOut({}, 300), Sizes{});
}

}  // namespace
