// Tests that crash: each must end the program at once, and be seen as a failure.
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

TEST(Crash, WritesThroughANullPointer) {
  volatile int* volatile nowhere = nullptr;
  *nowhere = 1;
}

TEST(Crash, ReadsOutsideOfAVector) {
  const std::vector<int> numbers(3);
  volatile std::size_t index = 5;
  EXPECT_EQ(numbers[index], 0);
}

TEST(Crash, OverflowsAnInteger) {
  volatile int large = 2147483647;
  const int larger = large + 1;
  EXPECT_LT(larger, 0);
}

TEST(Crash, Aborts) { std::abort(); }
