// The mark of a drag: where it stands, what its lines are, what is painted anew when it goes. Cells
// of the large view end at 103, 166 and 229.
#include "controls/insert_mark.h"

#include "controls/bar_fixture.h"

namespace {

using controls_test::Bar;
using controls_test::edges;
using controls_test::Place;

class Mark : public Bar {
 protected:
  Mark() { fill(3, 3); }
  InsertMark mark(int index) const { return GetInsertMarkRect(layout(), folders_, view_, index); }
};

TEST_F(Mark, StandsAboveTheFirstBetweenTwoAndBelowTheLast) {
  EXPECT_EQ(edges(mark(0).rect), (Place{2, 46, 98, 51}));
  EXPECT_EQ(mark(0).kind, InsertMarkKind::First);
  EXPECT_EQ(edges(mark(1).rect), (Place{2, 98, 98, 107}));
  EXPECT_EQ(mark(1).kind, InsertMarkKind::Between);
  EXPECT_EQ(edges(mark(3).rect), (Place{2, 235, 98, 240}));
  EXPECT_EQ(mark(3).kind, InsertMarkKind::Last);
}

TEST_F(Mark, StandsLowerBetweenSmallItems) {
  view_.small = true;  // the second cell begins at 74
  EXPECT_EQ(edges(mark(1).rect), (Place{2, 69, 98, 78}));
  EXPECT_EQ(edges(mark(0).rect), (Place{2, 46, 98, 51}));
}

TEST_F(Mark, OnlyASingleItemIsNotBehindItself) {
  folders_.AddFolder(L"one", 0);
  view_.currentFolder = 3;
  folders_.InsertItem(3, -1, {0, L"label", 0});
  EXPECT_EQ(mark(0).kind, InsertMarkKind::First);
  EXPECT_EQ(mark(1).kind, InsertMarkKind::Last);
}

// Every row that the lines touch, and no other one, is painted anew when the mark goes.
TEST_F(Mark, ItsAreaHoldsItsLines) {
  for (const int index : {0, 1, 3}) {
    const RECT area = markedArea(mark(index));
    auto top = area.bottom;
    auto bottom = area.top;
    for (const MarkLine& line : markLines(mark(index))) {
      EXPECT_EQ(line.from.y, line.to.y);
      top = std::min(top, line.from.y);
      bottom = std::max(bottom, line.from.y);
    }
    EXPECT_EQ(top, area.top) << index;
    EXPECT_EQ(bottom + 1, area.bottom) << index;
  }
}

std::vector<Place> places(const InsertMark& mark) {
  std::vector<Place> result;
  for (const MarkLine& line : markLines(mark)) {
    result.push_back({static_cast<int>(line.from.x), static_cast<int>(line.from.y),
                      static_cast<int>(line.to.x), static_cast<int>(line.to.y)});
  }
  return result;
}

TEST_F(Mark, WedgesBelowEndARowEarlierAtTheRight) {
  EXPECT_EQ(places(mark(0)), (std::vector<Place>{{2, 46, 98, 46},
                                                 {2, 47, 9, 47},
                                                 {2, 48, 7, 48},
                                                 {2, 49, 5, 49},
                                                 {2, 50, 3, 50},
                                                 {97, 47, 91, 47},
                                                 {97, 48, 93, 48},
                                                 {97, 49, 95, 49}}));
}

TEST_F(Mark, WedgesAboveEndWithALineOfNoLength) {
  EXPECT_EQ(places(mark(3)), (std::vector<Place>{{2, 235, 98, 235},
                                                 {2, 234, 9, 234},
                                                 {2, 233, 7, 233},
                                                 {2, 232, 5, 232},
                                                 {2, 231, 3, 231},
                                                 {97, 234, 91, 234},
                                                 {97, 233, 93, 233},
                                                 {97, 232, 95, 232},
                                                 {97, 231, 97, 231}}));
}

TEST_F(Mark, BetweenItemsItHasBothWedges) { EXPECT_EQ(markLines(mark(1)).size(), 1u + 7u + 8u); }

}  // namespace
