// Presses, drags and scrolling, decided without windows.
#include "controls/press_state.h"

#include <gtest/gtest.h>

namespace {

TEST(HeldButton, ChangesItsLookOnlyWhenThePointerLeavesOrReturns) {
  HeldButton button;
  EXPECT_TRUE(button.pressed());
  EXPECT_FALSE(button.moved(true));
  EXPECT_TRUE(button.moved(false));
  EXPECT_FALSE(button.moved(false));
  EXPECT_FALSE(button.pressed());
  EXPECT_TRUE(button.moved(true));
}

TEST(FolderPress, OpensTheFolderUnderTheRelease) {
  EXPECT_EQ(folderToOpen(BarHit::Folder, 2, 1), 2);
  EXPECT_EQ(folderToOpen(BarHit::Folder, 1, 1), std::nullopt);
  EXPECT_EQ(folderToOpen(BarHit::Item, 2, 1), std::nullopt);
  EXPECT_EQ(folderToOpen(BarHit::Nothing, 2, 1), std::nullopt);
}

TEST(ItemPress, ReleaseOnTheItemIsAClick) {
  ItemPress press(2, true);
  EXPECT_EQ(press.moved(BarHit::Item, 2), ItemPressChange::None);
  EXPECT_TRUE(press.clicked(BarHit::Item, 2));
  EXPECT_FALSE(press.clicked(BarHit::Item, 1));
  EXPECT_FALSE(press.clicked(BarHit::Nothing, 2));
}

TEST(ItemPress, CrossingANeighbourIsNoDrag) {
  ItemPress press(2, true);
  EXPECT_EQ(press.moved(BarHit::Item, 1), ItemPressChange::Rise);
  EXPECT_EQ(press.moved(BarHit::Item, 0), ItemPressChange::None);
  EXPECT_FALSE(press.dragging());
  EXPECT_FALSE(press.drawn());
  EXPECT_EQ(press.moved(BarHit::Item, 2), ItemPressChange::Sink);
  EXPECT_TRUE(press.drawn());
}

TEST(ItemPress, LeavingTheItemsStartsADrag) {
  ItemPress press(2, true);
  press.moved(BarHit::Item, 1);
  EXPECT_EQ(press.moved(BarHit::Nothing, 5), ItemPressChange::StartDrag);
  EXPECT_TRUE(press.drawn()) << "the frame comes back with the drag";
  EXPECT_EQ(press.moved(BarHit::Item, 2), ItemPressChange::None);
  EXPECT_FALSE(press.clicked(BarHit::Item, 2));
}

TEST(ItemPress, WithoutTheFlagNothingIsDragged) {
  ItemPress press(2, false);
  EXPECT_EQ(press.moved(BarHit::Folder, 0), ItemPressChange::None);
  EXPECT_FALSE(press.dragging());
  EXPECT_TRUE(press.clicked(BarHit::Item, 2));
}

// Three items, the last one's cell ending at 229, the list at 278.
DragPoint at(BarHit hit, int index, int y) { return {hit, index, y, 229, 278, 3}; }

TEST(Drag, AnItemIsTheGapBeforeIt) {
  EXPECT_EQ(dragGap(at(BarHit::Item, 1, 120)), 1);
  EXPECT_EQ(dragGap(at(BarHit::Item, 2, 250)), 2);
}

TEST(Drag, BelowTheLastItemAppends) {
  EXPECT_EQ(dragGap(at(BarHit::Nothing, 3, 230)), 3);
  EXPECT_EQ(dragGap(at(BarHit::Nothing, 3, 277)), 3);
  EXPECT_EQ(dragGap(at(BarHit::DownArrow, -1, 260)), 3) << "an arrow tells no index";
}

TEST(Drag, ElsewhereThereIsNoGap) {
  EXPECT_EQ(dragGap(at(BarHit::Nothing, 3, 229)), std::nullopt);
  EXPECT_EQ(dragGap(at(BarHit::Nothing, 3, 278)), std::nullopt);
  EXPECT_EQ(dragGap(at(BarHit::Folder, 2, 290)), std::nullopt);
}

TEST(Drag, TheOwnPlaceIsNoDropButRightBehindIs) {
  EXPECT_EQ(dropGap(at(BarHit::Item, 1, 120), 1), std::nullopt);
  EXPECT_EQ(dropGap(at(BarHit::Item, 2, 180), 1), 2);
  EXPECT_EQ(dropGap(at(BarHit::Nothing, 3, 240), 1), 3);
}

TEST(Scrolling, StopsAtBothEnds) {
  EXPECT_EQ(scrolled(BarHit::DownArrow, 0, 279, 278), 1);
  EXPECT_EQ(scrolled(BarHit::DownArrow, 1, 278, 278), std::nullopt);
  EXPECT_EQ(scrolled(BarHit::UpArrow, 2, 0, 278), 1);
  EXPECT_EQ(scrolled(BarHit::UpArrow, 0, 0, 278), std::nullopt);
  EXPECT_EQ(scrolled(BarHit::Item, 1, 900, 278), std::nullopt);
}

}  // namespace
