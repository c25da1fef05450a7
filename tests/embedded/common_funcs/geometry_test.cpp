// Points by direction and distance.
#include <gtest/gtest.h>

#include <numbers>

#include "platform/common_funcs.h"

namespace {

TEST(Polar, GoesTheDistanceInTheDirectionAndKeepsZ) {
  const AcGePoint3d up = arx_polar({10, 20, 7}, std::numbers::pi / 2, 5);
  EXPECT_NEAR(up.x, 10, 1e-12);
  EXPECT_NEAR(up.y, 25, 1e-12);
  EXPECT_EQ(up.z, 7);
  const AcGePoint3d back = arx_polar({10, 20, 0}, 0, -3);
  EXPECT_EQ(back.x, 7);
  EXPECT_EQ(back.y, 20);
}

}  // namespace
