// Boxes by place, against a plain list of them.
#include "embedded/base/box_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace base {
namespace {

Box2 box(double left, double low, double right, double high) {
  Box2 b;
  b.add(Point2{left, low});
  b.add(Point2{right, high});
  return b;
}

std::vector<BoxIndex::Key> found(const BoxIndex& index, const Box2& area) {
  std::vector<BoxIndex::Key> out;
  index.visit(area, [&out](BoxIndex::Key handle, const Box2&) { out.push_back(handle); });
  std::sort(out.begin(), out.end());
  return out;
}

TEST(BoxIndex, FindsWhatTouchesTheArea) {
  BoxIndex index;
  index.put(1, box(0, 0, 10, 10));
  index.put(2, box(20, 20, 20, 20));
  index.put(3, box(-1e9, -1e9, 1e9, 1e9));
  EXPECT_EQ(found(index, box(10, 10, 15, 15)), (std::vector<BoxIndex::Key>{1, 3}));
  EXPECT_EQ(found(index, box(20, 20, 20, 20)), (std::vector<BoxIndex::Key>{2, 3}));
  EXPECT_EQ(found(index, box(2e9, 0, 3e9, 1)), std::vector<BoxIndex::Key>{});
  EXPECT_EQ(found(index, {}), std::vector<BoxIndex::Key>{});
}

TEST(BoxIndex, MovedAndRemovedBoxesAreFollowed) {
  BoxIndex index;
  index.put(1, box(0, 0, 1, 1));
  index.put(1, box(100, 100, 101, 101));
  EXPECT_EQ(index.size(), 1U);
  EXPECT_TRUE(found(index, box(0, 0, 2, 2)).empty());
  EXPECT_EQ(index.bounds().min, (Point2{100, 100}));
  index.put(1, {});
  EXPECT_EQ(index.size(), 0U);
  EXPECT_TRUE(index.bounds().empty());
  index.remove(7);
}

TEST(BoxIndex, FarAndHugeBoxesAreFoundToo) {
  BoxIndex index;
  index.put(1, box(1e40, 1e40, 1e40 + 1, 1e40 + 1));
  index.put(2, box(-1e49, -1e49, 1e49, 1e49));
  EXPECT_EQ(found(index, box(1e39, 1e39, 1e41, 1e41)), (std::vector<BoxIndex::Key>{1, 2}));
}

TEST(BoxIndex, AgreesWithAPlainList) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(-1000, 1000), exponent(-3, 3);
  BoxIndex index;
  std::vector<Box2> all(500);
  const auto any = [&] {
    const Point2 at{place(random), place(random)};
    const double width = std::pow(10, exponent(random)), height = std::pow(10, exponent(random));
    return box(at.x, at.y, at.x + width, at.y + height);
  };
  for (int round = 0; round < 2000; ++round) {
    const auto i = static_cast<std::size_t>(random() % all.size());
    all[i] = random() % 4 == 0 ? Box2{} : any();
    index.put(i + 1, all[i]);
    if (round % 10) continue;
    const Box2 area = any();
    std::vector<BoxIndex::Key> wanted;
    for (std::size_t k = 0; k < all.size(); ++k) {
      if (!all[k].empty() && meet(all[k], area)) wanted.push_back(k + 1);
    }
    ASSERT_EQ(found(index, area), wanted) << "round " << round;
  }
}

}  // namespace
}  // namespace base
