// The palette as the module reads it.
#include <gtest/gtest.h>

#include "platform/common_funcs.h"

namespace {

TEST(ColourData, HoldsRedGreenAndBlueOfEachIndex) {
  const auto colour = [](int index) {
    const std::uint8_t* at = lpszRGBData + 3 * index;
    return std::vector<int>{at[0], at[1], at[2]};
  };
  EXPECT_EQ(colour(1), (std::vector<int>{255, 0, 0}));
  EXPECT_EQ(colour(3), (std::vector<int>{0, 255, 0}));
  EXPECT_EQ(colour(5), (std::vector<int>{0, 0, 255}));
  EXPECT_EQ(colour(255), (std::vector<int>{255, 255, 255}));
}

}  // namespace
