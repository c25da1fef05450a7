// How a splitter's room is shared.
#include "embedded/framework/splitter_layout.h"

#include <gtest/gtest.h>

namespace {

using framework::SplitterEntry;

std::vector<int> shared(std::vector<SplitterEntry> entries, int size, int gap = 7) {
  framework::layoutSplitterAxis(entries, size, gap);
  std::vector<int> result;
  result.reserve(entries.size());
  for (const SplitterEntry& one : entries) result.push_back(one.current);
  return result;
}

TEST(SplitterLayout, TheLastTakesWhatRemains) {
  EXPECT_EQ(shared({{0, 100, 0}, {0, 50, 0}}, 400), (std::vector<int>{100, 293}));
  EXPECT_EQ(shared({{0, 100, 0}}, 400), (std::vector<int>{400}));
}

TEST(SplitterLayout, AnIdealBelowTheMinimumHidesAnEntry) {
  EXPECT_EQ(shared({{20, 10, 0}, {0, 50, 0}}, 400), (std::vector<int>{0, 393}));
}

TEST(SplitterLayout, AnEntryLargerThanTheRoomIsCutAndLeavesTheBarOut) {
  EXPECT_EQ(shared({{0, 500, 0}, {0, 50, 0}}, 400), (std::vector<int>{395, 0}));
}

TEST(SplitterLayout, WithoutRoomForItsMinimumAnEntryGoesToItsNeighbour) {
  EXPECT_EQ(shared({{0, 380, 0}, {20, 50, 0}}, 400), (std::vector<int>{400, 0}));
}

TEST(SplitterLayout, WithoutRoomEverythingIsHidden) {
  EXPECT_EQ(shared({{0, 100, 0}, {0, 50, 0}}, 0), (std::vector<int>{0, 0}));
  EXPECT_EQ(shared({{0, 100, 0}, {0, 50, 0}}, -5), (std::vector<int>{0, 0}));
  EXPECT_TRUE(shared({}, 10).empty());
}

TEST(SplitterLayout, ThreeShareTwoGaps) {
  EXPECT_EQ(shared({{0, 100, 0}, {0, 100, 0}, {0, 1, 0}}, 400), (std::vector<int>{100, 100, 186}));
}

}  // namespace
