// Which frames come and go as the pointer moves.
#include "controls/bar_hover.h"

#include <gtest/gtest.h>

namespace {

TEST(BarHover, AFrameMovesFromHeaderToHeader) {
  BarHover hover;
  const auto first = hover.moveFolder(2);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->erase, -1);
  EXPECT_EQ(first->draw, 2);
  EXPECT_FALSE(hover.moveFolder(2));
  const auto gone = hover.moveFolder(-1);
  ASSERT_TRUE(gone);
  EXPECT_EQ(gone->erase, 2);
  EXPECT_EQ(gone->draw, -1);
}

TEST(BarHover, AnItemsFrameChangesWhenItIsPressed) {
  BarHover hover;
  hover.moveItem(1, false, false);
  EXPECT_FALSE(hover.moveItem(1, false, false));
  const auto sunken = hover.moveItem(1, true, false);
  ASSERT_TRUE(sunken);
  EXPECT_EQ(sunken->erase, 1);
  EXPECT_EQ(sunken->draw, 1);
  EXPECT_TRUE(sunken->pressed);
}

TEST(BarHover, ThePlainItemTakesNoFrameButTheOldOneGoes) {
  BarHover hover;
  hover.moveItem(1, false, false);
  const auto change = hover.moveItem(2, false, true);
  ASSERT_TRUE(change);
  EXPECT_EQ(change->erase, 1);
  EXPECT_EQ(change->draw, -1);
  EXPECT_EQ(hover.item, -1);
}

TEST(BarHover, TwoBarsShareTheRememberedPress) {
  BarHover one;
  BarHover other;
  one.moveItem(0, false, false);
  other.moveItem(0, true, false);
  EXPECT_TRUE(one.moveItem(0, false, false)) << "the other bar's press is remembered";
  EXPECT_FALSE(one.moveItem(0, false, false));
}

}  // namespace
