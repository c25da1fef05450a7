// The plain array and the table.
#include "containers/array.h"

#include <algorithm>
#include <vector>

#include "containers/array_2d.h"
#include "containers/elements.h"

namespace {

using test::Tracked;

std::vector<int> keys(const TqArray<Tracked>& array) {
  std::vector<int> result;
  for (TqLong i = 0; i < array.GetLength(); ++i) result.push_back(array[i].key());
  return result;
}

TEST(Array, AppendAllocatesExactlyOneElement) {
  TqArray<Tracked> array;
  EXPECT_EQ(array.GetDataBuffer(), nullptr);
  EXPECT_EQ(array.Append(Tracked(1)), 0);
  EXPECT_EQ(Tracked::live, 1);
}

TEST(Array, ReverseActsOnlyBetweenValidEnds) {
  TqArray<int> array(3);
  for (int i = 0; i < 3; ++i) array[i] = i;
  array.Reverse(2, 1);
  EXPECT_EQ(array[1], 1);
  array.Reverse(0, 3);
  EXPECT_EQ(array[0], 0);
  array.Reverse();
  EXPECT_EQ(array[0], 2);
}

TEST(Array, AnOwnElementCanBeInserted) {
  TqArray<Tracked> array;
  array.Append(Tracked(1));
  array.Append(Tracked(2));
  array.InsertHead(array[1]);
  EXPECT_EQ(keys(array), (std::vector<int>{2, 1, 2}));
}

int compareCoarsely(const Tracked& a, const Tracked& b) { return a.key() / 8 - b.key() / 8; }

// Every operation against a vector.
TEST(Array, AgreesWithTheModel) {
  TqArray<Tracked> array;
  std::vector<int> model;
  test::Random random(7);
  for (int step = 0; step < 300000; ++step) {
    const int n = static_cast<int>(model.size());
    const int key = random.below(test::kKeys);
    const int i = n == 0 ? 0 : random.below(n);
    switch (n > 12 ? 11 : random.below(12)) {
      case 0: array.Insert(i, Tracked(key)), model.insert(model.begin() + i, key); break;
      case 1: {
        ASSERT_EQ(array.Append(Tracked(key)), n);
        model.push_back(key);
      } break;
      case 2: array.InsertHead(Tracked(key)), model.insert(model.begin(), key); break;
      case 3:
        if (n > 0) array.Del(i), model.erase(model.begin() + i);
        break;
      case 4: ASSERT_EQ(array.FindDel(Tracked(key)), std::erase(model, key)); break;
      case 5: {
        const auto found = std::find(model.begin(), model.end(), key) - model.begin();
        ASSERT_EQ(array.Find(Tracked(key)), found == n ? -1 : found);
        test::Queue queue;
        ASSERT_EQ(array.Find(Tracked(key), queue, 0, -7),
                  std::count(model.begin(), model.end(), key));
        ASSERT_EQ(array.FindOrAppend(Tracked(key)), found);
        if (found == n) model.push_back(key);
        break;
      }
      case 6:
        array.FindOrInsertHead(Tracked(key));
        if (std::find(model.begin(), model.end(), key) == model.end())
          model.insert(model.begin(), key);
        break;
      case 7:
        array.Sort(compareCoarsely);
        std::stable_sort(model.begin(), model.end(), [](int a, int b) { return a / 8 < b / 8; });
        break;
      case 8:
        if (n > 0) array.Reverse(i, -1), std::reverse(model.begin() + i, model.end());
        break;
      case 9: {
        std::sort(model.begin(), model.end());
        for (int k = 0; k < n; ++k) array.SetAt(k, Tracked(model[static_cast<std::size_t>(k)]));
        const int found = array.BFind(Tracked(key));
        ASSERT_EQ(found >= 0, std::binary_search(model.begin(), model.end(), key));
        if (found >= 0) {
          ASSERT_EQ(array.GetAt(found).key(), key);
        }
        break;
      }
      case 10: {
        const TqArray<Tracked> copy(array);
        ASSERT_TRUE(copy == array);
        array.ReAllocate(n / 2, true);
        model.resize(static_cast<std::size_t>(n) / 2);
        ASSERT_EQ(copy != array, n > 0);
        ASSERT_EQ(copy > array, n > 0);
        array = copy;
        array.ReAllocate(n / 2, true);
        break;
      }
      default: array.Reset(), model.clear(); break;
    }
    ASSERT_EQ(keys(array), model) << step;
    ASSERT_EQ(Tracked::live, array.GetLength());
  }
}

TEST(Table, HasRowsOfColumns) {
  Tq2dArray<Tracked> table(2, 3);
  EXPECT_EQ(table.GetLength(), 2);
  EXPECT_EQ(table[1].GetLength(), 3);
  EXPECT_EQ(Tracked::live, 6);
}

TEST(Table, KeepsTheUpperLeftPart) {
  Tq2dArray<Tracked> table(2, 3);
  for (int row = 0; row < 2; ++row)
    for (int column = 0; column < 3; ++column) table[row][column] = Tracked(row * 10 + column + 1);
  table.ReAllocate(3, 2, true);
  EXPECT_EQ(keys(table[0]), (std::vector<int>{1, 2}));
  EXPECT_EQ(keys(table[1]), (std::vector<int>{11, 12}));
  EXPECT_EQ(keys(table[2]), (std::vector<int>{0, 0}));
}

TEST(Table, CopiesRowByRow) {
  Tq2dArray<Tracked> table(2, 2);
  table.SetAll(Tracked(5));
  const Tq2dArray<Tracked> copy(table);
  table[0][0] = Tracked(6);
  EXPECT_EQ(copy[0][0].key(), 5);
  EXPECT_EQ(copy[1][1].key(), 5);
  Tq2dArray<Tracked> assigned;
  assigned = copy;
  EXPECT_TRUE(assigned == copy);
}

}  // namespace
