// How a label's edit box grows, in a bar of 100 by 300.
#include "controls/label_edit_box.h"

#include "controls/bar_fixture.h"

namespace {

using controls_test::edges;
using controls_test::Place;

const RECT kBar{0, 0, 100, 300};

SIZE text(int cx, int cy) {
  SIZE size;
  size.cx = cx;
  size.cy = cy;
  return size;
}

Place wrapped(const RECT& box, int cx, int cy) {
  const auto grown = wrappedBox(box, kBar, text(cx, cy));
  return grown ? edges(*grown) : Place{};
}

TEST(LabelEditBox, OnOneLineTheRightEdgeFollowsTheText) {
  const RECT box{20, 50, 60, 66};
  EXPECT_EQ(edges(lineBox(box, kBar, 50)), (Place{20, 50, 70, 66}));
  EXPECT_EQ(edges(lineBox(box, kBar, 10)), (Place{20, 50, 30, 66})) << "also to the left";
}

TEST(LabelEditBox, OnOneLineItStopsOnePixelBeforeTheBarsEdge) {
  EXPECT_EQ(edges(lineBox({20, 50, 60, 66}, kBar, 79)), (Place{20, 50, 99, 66}));
  EXPECT_EQ(edges(lineBox({20, 50, 60, 66}, kBar, 500)), (Place{20, 50, 99, 66}));
}

TEST(LabelEditBox, WrappedItGrowsToTheRightFirst) {
  EXPECT_EQ(wrapped({20, 50, 60, 66}, 70, 24), (Place{20, 50, 90, 66}));
  EXPECT_EQ(wrapped({20, 50, 60, 66}, 200, 24), (Place{20, 50, 100, 66}));
}

TEST(LabelEditBox, WrappedItGrowsDownWhenItIsWideEnough) {
  EXPECT_EQ(wrapped({20, 50, 60, 66}, 40, 24), (Place{20, 50, 60, 74}));
}

TEST(LabelEditBox, GrowingDownIsComparedFromTheBoxesBottom) {
  EXPECT_EQ(wrapped({20, 260, 60, 275}, 40, 24), (Place{20, 260, 60, 284}));
  EXPECT_EQ(wrapped({20, 260, 60, 276}, 40, 24), (Place{20, 260, 60, 300}));
}

TEST(LabelEditBox, WrappedItNeverShrinks) {
  EXPECT_EQ(wrapped({20, 50, 60, 74}, 10, 12), Place{});
  EXPECT_EQ(wrapped({20, 50, 60, 74}, 40, 24), Place{});
}

}  // namespace
