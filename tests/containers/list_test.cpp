// The lists at their edges: the sentinel, splicing, turning, sorting.
#include "containers/list.h"

#include <type_traits>
#include <vector>

#include "containers/d_list.h"
#include "containers/elements.h"

namespace {

using Numbers = std::vector<int>;

Numbers contents(const TqDynArrayBase<int>& sequence) {
  return test::keysOf<test::Values>(sequence);
}

template <class List>
class Lists : public testing::Test {
 protected:
  static List listOf(const Numbers& numbers) {
    List list;
    for (const int number : numbers) list.Append(number);
    return list;
  }
};
using Kinds = testing::Types<TqList<int>, TqDList<int>>;
TYPED_TEST_SUITE(Lists, Kinds);

TYPED_TEST(Lists, ANewListStandsAtItsSentinel) {
  const TypeParam list;
  EXPECT_EQ(list.GetLength(), 0);
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_EQ(list.GetFirst(), nullptr);
}

TYPED_TEST(Lists, TheFirstAppendBecomesTheHead) {
  TypeParam list;
  EXPECT_EQ(list.Append(4), 0);
  EXPECT_EQ(list.GetFirst(), &list.GetCurPos()->data);
}

TYPED_TEST(Lists, AWalkRunsOffToTheSentinelAndStartsOver) {
  TypeParam list = this->listOf({1, 2});
  list.MoveToLast();
  list.MoveToNext();
  EXPECT_EQ(list.GetCur(), -1);
  EXPECT_TRUE(list.IsOut());
  EXPECT_FALSE(list.IsEnd());
  EXPECT_TRUE(list.IsBegin());
  list.MoveToNext();
  EXPECT_EQ(list.GetCur(), 0);
  EXPECT_EQ(list.GetCurData(), 1);
}

TYPED_TEST(Lists, AWalkBackWrapsToTheTail) {
  TypeParam list = this->listOf({1, 2, 3});
  list.MoveToFirst();
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), -1);
  list.MoveToPre();
  EXPECT_EQ(list.GetCur(), 2);
  EXPECT_EQ(list.GetCurData(), 3);
}

TYPED_TEST(Lists, InsertBeyondTheEndLandsAtTheHead) {
  TypeParam list = this->listOf({1, 2, 3});
  list.Insert(5, 9);
  EXPECT_EQ(contents(list), (Numbers{9, 1, 2, 3}));
  list.Insert(4, 8);
  EXPECT_EQ(contents(list), (Numbers{9, 1, 2, 3, 8}));
}

TYPED_TEST(Lists, DeletingTheOnlyElementEmptiesTheList) {
  TypeParam list = this->listOf({1});
  list.MoveToFirst();
  list.DelCur();
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.GetCur(), -1);
}

TYPED_TEST(Lists, ConbineMovesTheNodes) {
  TypeParam list = this->listOf({9});
  TypeParam other = this->listOf({1, 2, 3});
  const int* const second = &other.GetAt(1);
  EXPECT_EQ(list.Conbine(other, 1), 3);
  EXPECT_EQ(contents(list), (Numbers{9, 2, 3}));
  EXPECT_EQ(&list.GetAt(1), second);
  EXPECT_EQ(contents(other), (Numbers{1}));
  EXPECT_EQ(other.GetCur(), 0);
  EXPECT_EQ(list.Conbine(other, 1), 3);
  EXPECT_EQ(contents(other), (Numbers{1}));
}

TYPED_TEST(Lists, SplitAtAppendsTheRest) {
  TypeParam list = this->listOf({1, 2, 3, 4});
  TypeParam other = this->listOf({9});
  list.SplitAt(2, other);
  EXPECT_EQ(contents(list), (Numbers{1, 2}));
  EXPECT_EQ(contents(other), (Numbers{9, 3, 4}));
}

TYPED_TEST(Lists, SplitAtCurTakesTheRestFromTheCursor) {
  TypeParam list = this->listOf({1, 2, 3});
  TypeParam other = this->listOf({9});
  list.MoveTo(1);
  list.SplitAtCur(other);
  EXPECT_EQ(contents(list), (Numbers{1}));
  EXPECT_EQ(contents(other), (Numbers{9, 2, 3}));
}

TYPED_TEST(Lists, DetachedNodesStayWithWhomTheyWereCutOffFor) {
  using Node = std::conditional_t<std::is_same_v<TypeParam, TqDList<int>>, TqDListNode<int>,
                                  TqListNode<int>>;
  TypeParam list = this->listOf({1, 2, 3});
  list.MoveTo(2);
  const auto* third = static_cast<const Node*>(list.GetCurPos());
  list.MoveTo(1);
  const auto* second = static_cast<const Node*>(list.GetCurPos());
  list.DetachAfter(0);
  EXPECT_EQ(contents(list), (Numbers{1}));
  EXPECT_EQ(list.GetCur(), 0);
  EXPECT_EQ(second->data, 2);
  EXPECT_EQ(second->next, third);
  list.Append(4);
  EXPECT_EQ(contents(list), (Numbers{1, 4}));
  delete second;
  delete third;
}

TYPED_TEST(Lists, RotateBringsAnElementToAnIndex) {
  TypeParam list = this->listOf({0, 1, 2, 3, 4});
  list.Rotate(1, 3);
  EXPECT_EQ(contents(list), (Numbers{3, 4, 0, 1, 2}));
  EXPECT_EQ(list.GetCur(), 0);
  EXPECT_EQ(list.GetCurData(), 3);
}

TYPED_TEST(Lists, ReverseOfOneDoesNothing) {
  TypeParam list = this->listOf({1});
  list.ReverseList();
  EXPECT_EQ(contents(list), (Numbers{1}));
}

TYPED_TEST(Lists, AfterReverseTheNumberNoLongerNamesTheNode) {
  TypeParam list = this->listOf({1, 2, 3});
  list.MoveTo(0);
  list.ReverseList();
  EXPECT_EQ(list.GetCur(), 0);
  EXPECT_EQ(list.GetCurData(), 1);
  list.MoveTo(-1);
  list.MoveTo(0);
  EXPECT_EQ(list.GetCurData(), 3);
}

TYPED_TEST(Lists, SetLengthAlwaysKeepsTheElements) {
  TypeParam list = this->listOf({1, 2, 3, 4, 5});
  list.SetLength(2, false);
  EXPECT_EQ(contents(list), (Numbers{1, 2}));
}

TYPED_TEST(Lists, SortingKeepsTheOrderOfEquals) {
  TypeParam list = this->listOf({17, 8, 16, 9});
  list.Sort(test::compareCoarsely<test::Values>);
  EXPECT_EQ(contents(list), (Numbers{8, 9, 17, 16}));
  EXPECT_EQ(list.GetCur(), -1);
}

TYPED_TEST(Lists, MoveIsExactInBothDirections) {
  TypeParam list = this->listOf({1, 2, 3, 4});
  EXPECT_TRUE(list.Move(3, 0));
  EXPECT_EQ(contents(list), (Numbers{4, 1, 2, 3}));
  EXPECT_TRUE(list.Move(0, 3));
  EXPECT_EQ(contents(list), (Numbers{1, 2, 4, 3}));
}

TEST(DList, ASortedListCostsOneComparisonAnElement) {
  static int comparisons;
  comparisons = 0;
  TqDList<int> list;
  for (int i = 0; i < 100; ++i) list.Append(i);
  list.Sort([](const int& a, const int& b) {
    ++comparisons;
    return a - b;
  });
  EXPECT_EQ(comparisons, 99);
}

}  // namespace
