// The slide from folder to folder and the jump of the selected item.
#include "controls/bar_fixture.h"
#include "controls/folder_slide.h"
#include "controls/item_jump.h"
#include "controls/pause.h"

namespace {

using controls_test::Bar;

class Slide : public Bar {
 protected:
  std::vector<SlideStep> slide(int from, int to) {
    view_.currentFolder = from;
    return folderSlide(layout(), from, to);
  }
};

// What a copy says, in one text.
std::string told(const SlideCopy& copy) {
  return std::string(copy.second ? "opening" : "closing") + " y " + std::to_string(copy.y) +
         " height " + std::to_string(copy.height) + " row " + std::to_string(copy.sourceRow);
}

TEST_F(Slide, UpwardsTheOpeningPageComesFromTheTop) {
  fill(3, 0);  // the first folder's header at 21, its list from 43 to 278
  const auto steps = slide(1, 0);
  ASSERT_EQ(steps.size(), 11u) << "234 rows of 22, rounded up";
  EXPECT_EQ(told(steps[0].copies[0]), "opening y 21 height 0 row 44");
  EXPECT_EQ(told(steps[0].copies[1]), "closing y 22 height 256 row 0");
  EXPECT_EQ(told(steps[1].copies[0]), "opening y 21 height 22 row 44");
  EXPECT_EQ(told(steps[1].copies[1]), "closing y 44 height 234 row 0");
  EXPECT_EQ(told(steps[10].copies[1]), "closing y 242 height 36 row 0");
}

TEST_F(Slide, DownwardsTheNextPageComesFromTheBottom) {
  fill(3, 0);
  const auto steps = slide(1, 2);
  ASSERT_EQ(steps.size(), 10u) << "235 rows of 22, rounded up, less one";
  EXPECT_EQ(told(steps[0].copies[0]), "closing y 44 height 212 row 22");
  EXPECT_EQ(told(steps[0].copies[1]), "opening y 256 height 44 row 0");
  EXPECT_EQ(told(steps[9].copies[0]), "closing y 44 height 14 row 22");
  EXPECT_EQ(told(steps[9].copies[1]), "opening y 58 height 242 row 0");
}

TEST_F(Slide, StepsAreAsManyAsTheHeightsTell) {
  fill(6, 0);
  for (int from = 0; from < 6; ++from) {
    for (int to = 0; to < 6; ++to) {
      const int inside = 300 - 6 * 22 + 1;
      const int header = 22;
      const int rows = to > from ? inside + (to - from - 1) * header - header : inside - 1;
      if (to == from) continue;
      EXPECT_EQ(slide(from, to).size(), static_cast<std::size_t>((rows + header - 1) / header))
          << from << " to " << to;
    }
  }
}

TEST_F(Slide, AListWithoutRoomHasNoSteps) {
  view_.client = {0, 0, 100, 40};
  fill(3, 0);
  EXPECT_TRUE(slide(1, 2).empty());
  EXPECT_TRUE(slide(1, 0).empty());
}

TEST(ItemJump, FourTicksOfTwelveDraw) {
  ItemJump jump;
  std::string cycle;
  for (int i = 0; i < 24; ++i) {
    const auto at = jump.tick();
    cycle += at ? "(" + std::to_string(at->x) + "," + std::to_string(at->y) + ")" : ".";
  }
  const std::string jumps = "(0,0)(1,1)(0,0)........(-1,1)";
  EXPECT_EQ(cycle, jumps + jumps);
}

TEST_F(Bar, OnlyAsManyItemsJumpAsThereAreFolders) {
  fill(5, 6);
  view_.small = true;
  EXPECT_TRUE(restingIcon(layout(), folders_, view_, 4));
  EXPECT_FALSE(restingIcon(layout(), folders_, view_, 5));
  EXPECT_FALSE(restingIcon(layout(), folders_, view_, -1));
}

TEST_F(Bar, AnIconRestsInItsCell) {
  fill(3, 3);
  auto at = restingIcon(layout(), folders_, view_, 1);
  ASSERT_TRUE(at);
  EXPECT_EQ(std::pair(at->x, at->y), (std::pair<decltype(at->x), decltype(at->y)>(34, 111)));
  view_.small = true;
  at = restingIcon(layout(), folders_, view_, 1);
  ASSERT_TRUE(at);
  EXPECT_EQ(std::pair(at->x, at->y), (std::pair<decltype(at->x), decltype(at->y)>(7, 74)));
}

TEST_F(Bar, PartlyHiddenItemsDontJump) {
  fill(5, 4);  // large cells end at 103, 166, 229; the list at 234
  EXPECT_TRUE(restingIcon(layout(), folders_, view_, 2));
  view_.client.bottom = 295;  // the list ends where the cell does
  EXPECT_FALSE(restingIcon(layout(), folders_, view_, 2));
  view_.firstItem = 1;
  EXPECT_FALSE(restingIcon(layout(), folders_, view_, 0)) << "scrolled away";
}

TEST(Pause, CanBeCounted) {
  std::vector<int> pauses;
  setPause([&pauses](int milliseconds) { pauses.push_back(milliseconds); });
  pauseFor(20);
  pauseFor(10);
  setPause({});
  EXPECT_EQ(pauses, (std::vector<int>{20, 10}));
}

}  // namespace
