// The cursor, growth and searches of the dynamic arrays at their edges.
#include "containers/dyn_array.h"

#include <memory>

#include "containers/dyn_p_array.h"
#include "containers/elements.h"

namespace {

using test::Tracked;
using Numbers = std::vector<double>;

TqDynArray<double> arrayOf(const Numbers& numbers) {
  TqDynArray<double> array;
  for (const double number : numbers) array << number;
  return array;
}

Numbers contents(const TqDynArrayBase<double>& sequence) {
  Numbers numbers;
  for (const double* p = sequence.GetFirst(); p != nullptr; p = sequence.GetNext(p))
    numbers.push_back(*p);
  return numbers;
}

TEST(DynArray, GrowsByItsUnit) {
  TqDynArray<double> array;
  EXPECT_EQ(array.GetSpaceSize(), 0);
  array.Append(1);
  EXPECT_EQ(array.GetSpaceSize(), 11);
  for (int i = 2; i <= 11; ++i) array.Append(i);
  EXPECT_EQ(array.GetSpaceSize(), 11);
  array.Append(12);
  EXPECT_EQ(array.GetSpaceSize(), 22);
}

TEST(DynArray, SetLengthRemovesTheRoomAndTheContents) {
  TqDynArray<double> array;
  array.Append(1);
  ASSERT_EQ(array.GetSpaceSize(), 11);
  array.SetLength(5, false);
  EXPECT_EQ(array.GetSpaceSize(), 5);
  EXPECT_EQ(array.GetLength(), 5);
}

TEST(DynArray, AnIndexPastTheEndGrowsTheArray) {
  TqDynArray<double> array;
  array[7] = 3;
  EXPECT_EQ(array.GetLength(), 8);
  EXPECT_EQ(array.GetCur(), 7);
  EXPECT_EQ(array.GetAt(7), 3);
}

TEST(DynArray, AppendReturnsTheIndexWhereTheCursorIs) {
  TqDynArray<double> array;
  EXPECT_EQ(array.GetCur(), -1);
  EXPECT_EQ(array.Append(5), 0);
  EXPECT_EQ(array.GetCur(), 0);
}

TEST(DynArray, DeletingTheFirstLeavesTheCursorBeforeTheArray) {
  TqDynArray<double> array = arrayOf({1, 2});
  array.Del(0);
  EXPECT_EQ(array.GetCur(), -1);
  array.MoveToNext();
  EXPECT_EQ(array.GetCurData(), 2);
}

// An element that remembers where it stood at first.
struct Marked {
  int key = 0;
  int mark = 0;
  bool operator==(const Marked& other) const { return key == other.key; }
  bool operator<(const Marked& other) const { return key < other.key; }
  bool operator>(const Marked& other) const { return key > other.key; }
};

std::vector<int> marks(const TqDynArray<Marked>& array) {
  std::vector<int> result;
  for (TqLong i = 0; i < array.GetLength(); ++i) result.push_back(array.GetAt(i).mark);
  return result;
}

TEST(DynArray, SortingKeepsTheOrderOfEquals) {
  TqDynArray<Marked> array;
  array << Marked{3, 0} << Marked{1, 1} << Marked{2, 2} << Marked{1, 3};
  array.Sort(true);
  EXPECT_EQ(marks(array), (std::vector<int>{1, 3, 2, 0}));
  array.Sort(false);
  EXPECT_EQ(marks(array), (std::vector<int>{0, 2, 1, 3}));
}

TEST(DynArray, BinarySearchOutsideOfTheRangeFindsNothing) {
  EXPECT_EQ(arrayOf({2, 4}).BFind(1), -1);
  EXPECT_EQ(arrayOf({2, 4}).BFind(5), -1);
  EXPECT_EQ(TqDynArray<double>().BFind(1), -1);
}

TEST(DynArray, BinarySearchLeavesTheCursorOnThePlace) {
  TqDynArray<double> array = arrayOf({1, 3});
  EXPECT_FALSE(array.BFindTo(2));
  EXPECT_EQ(array.GetCur(), 1);
  EXPECT_FALSE(array.BFindTo(5));
  EXPECT_EQ(array.GetCur(), 2);
  EXPECT_FALSE(array.BFindTo(0));
  EXPECT_EQ(array.GetCur(), 0);
  TqDynArray<double> none;
  EXPECT_FALSE(none.BFindTo(1));
  EXPECT_EQ(none.GetCur(), 0);
}

TEST(DynArray, SortIntoPutsADuplicateBehindItsEqual) {
  TqDynArray<double> array = arrayOf({1, 2, 3});
  EXPECT_FALSE(array.SortInto(2, false));
  EXPECT_EQ(contents(array), (Numbers{1, 2, 3}));
  EXPECT_TRUE(array.SortInto(2, true));
  EXPECT_EQ(contents(array), (Numbers{1, 2, 2, 3}));
  EXPECT_EQ(array.GetCur(), 2);
}

TEST(DynArray, ReverseSwapsPairsAndLeavesTheMiddle) {
  TqDynArray<double> array = arrayOf({1, 2, 3, 4});
  array.Reverse(0, -1);
  EXPECT_EQ(contents(array), (Numbers{4, 3, 2, 1}));
  EXPECT_EQ(array.GetCur(), 2);
  array.Reverse(1, 1);
  EXPECT_EQ(contents(array), (Numbers{4, 3, 2, 1}));
}

TEST(DynArray, MoveGoesBeforeTheElementAtTheTarget) {
  TqDynArray<double> array = arrayOf({1, 2, 3, 4});
  EXPECT_FALSE(array.Move(1, 2));
  EXPECT_TRUE(array.Move(0, 3));
  EXPECT_EQ(contents(array), (Numbers{2, 3, 1, 4}));
  EXPECT_EQ(array.GetCur(), 2);
}

TEST(DynArray, AMoveToTheFrontBringsTheElementBefore) {
  TqDynArray<double> array = arrayOf({1, 2, 3, 4});
  EXPECT_TRUE(array.Move(3, 0));
  EXPECT_EQ(contents(array), (Numbers{3, 1, 2, 3}));
}

TEST(DynArray, AMoveToTheFrontThatReallocatesIsExact) {
  TqDynArray<double> array = arrayOf({1, 2, 3, 4});
  ASSERT_TRUE(array.SetSpaceSize(4));
  EXPECT_TRUE(array.Move(3, 0));
  EXPECT_EQ(contents(array), (Numbers{4, 1, 2, 3}));
}

TEST(DynArray, TheOrderOfArraysIsThatOfTheirLengths) {
  EXPECT_FALSE(arrayOf({1, 1}) < arrayOf({2, 2}));
  EXPECT_FALSE(arrayOf({1, 1}) > arrayOf({2, 2}));
  EXPECT_TRUE(arrayOf({9}) < arrayOf({1, 1}));
}

TEST(DynArray, DetachHandsTheStorageOver) {
  TqDynArray<double> array = arrayOf({1, 2});
  double* const detached = array.Detach();
  EXPECT_EQ(array.GetFirst(), nullptr);
  EXPECT_EQ(array.GetSpaceSize(), 0);
  EXPECT_EQ(array.GetCur(), -1);
  EXPECT_EQ(detached[1], 2);
  delete[] detached;
}

TEST(DynArray, AStartOutsideCopiesNothing) {
  TqDynArray<double> out;
  arrayOf({1, 2}).Right(3, out);
  EXPECT_EQ(out.GetLength(), 3);
  EXPECT_EQ(out.GetCur(), 0);
}

TEST(DynArray, ACopyHasTheUnitTenAndNoRoom) {
  TqDynArray<double> array(0, 3);
  array.Append(1);
  const TqDynArray<double> copy(array);
  EXPECT_EQ(copy.GetAllocUnit(), 10);
  EXPECT_EQ(copy.GetSpaceSize(), 1);
  TqDynArray<double> assigned(0, 5);
  assigned = array;
  EXPECT_EQ(assigned.GetAllocUnit(), 5);
}

// --- owned objects

TqDynPArray<Tracked>* owning(const std::vector<int>& keys) {
  auto* array = new TqDynPArray<Tracked>;
  for (const int key : keys) array->Append(key < 0 ? nullptr : new Tracked(key));
  return array;
}

class DynPArray : public testing::Test {
 protected:
  ~DynPArray() override { EXPECT_EQ(Tracked::live, 0); }
};

TEST_F(DynPArray, PlaceInTakesTheFirstEmptySlotOrANewOne) {
  const std::unique_ptr<TqDynPArray<Tracked>> array(owning({1, -1, 3}));
  EXPECT_EQ(array->PlaceIn(new Tracked(2)), 1);
  EXPECT_EQ(array->PlaceIn(new Tracked(4)), 3);
  EXPECT_EQ(array->GetLength(), 4);
}

TEST_F(DynPArray, ReleaseAllKeepsTheSlots) {
  const std::unique_ptr<TqDynPArray<Tracked>> array(owning({1, 2, 3}));
  array->ReleaseAll();
  EXPECT_EQ(array->GetLength(), 3);
  EXPECT_EQ(array->GetDataNum(), 0);
  EXPECT_EQ(array->GetCur(), 3);
  EXPECT_EQ(Tracked::live, 0);
}

TEST_F(DynPArray, TakingOffBeforeDeletingSavesTheObject) {
  const std::unique_ptr<TqDynPArray<Tracked>> array(owning({1, 2}));
  array->MoveToFirst();
  const std::unique_ptr<Tracked> taken(array->TakeOffCur());
  array->DelCur();
  EXPECT_EQ(array->GetLength(), 1);
  EXPECT_EQ(taken->key(), 1);
  EXPECT_EQ(array->TakeOff(7), nullptr);
}

TEST_F(DynPArray, SortExPutsEmptySlotsLast) {
  const std::unique_ptr<TqDynPArray<Tracked>> array(owning({-1, 2, -1, 1}));
  for (const bool ascending : {true, false}) {
    array->SortEx(ascending);
    EXPECT_EQ(array->GetPData(ascending ? 0 : 1).key(), 1);
    EXPECT_TRUE(array->IsEmptyData(2));
    EXPECT_TRUE(array->IsEmptyData(3));
  }
}

TEST_F(DynPArray, ShrinkingDeletesWhatIsCutOff) {
  const std::unique_ptr<TqDynPArray<Tracked>> array(owning({1, 2, 3}));
  const std::unique_ptr<Tracked> saved(array->TakeOff(2));
  array->ReAllocate(1);
  EXPECT_EQ(Tracked::live, 2);
  EXPECT_EQ(saved->key(), 3);
}

TEST_F(DynPArray, FindDelTakesTheFirstOfTwoEqualPointers) {
  const std::unique_ptr<TqDynPArray<Tracked>> array(owning({1, 2}));
  Tracked* const twice = array->GetAt(0);
  array->Append(twice);
  EXPECT_EQ(array->FindDel(twice), 1);
  EXPECT_EQ(array->GetLength(), 2);
  EXPECT_EQ(array->GetAt(1), twice);
  array->MoveToLast();
  array->SetCurData(nullptr);  // the second pointer dangles: nobody may delete it again
}

TEST_F(DynPArray, AssignmentReleasesWhatWasHeld) {
  const std::unique_ptr<TqDynPArray<Tracked>> array(owning({1, 2}));
  const std::unique_ptr<TqDynPArray<Tracked>> other(owning({3}));
  *array = *other;
  EXPECT_EQ(Tracked::live, 1);
  EXPECT_EQ(other->TakeOff(0), array->GetAt(0));
}

#if !defined(NDEBUG) && !defined(_WIN32)
TEST(DynArrayDeathTest, DebugBuildsNameTheBrokenPrecondition) {
  TqDynArray<double> array;
  EXPECT_DEATH(array.GetAt(3), "the index is inside of the array");
  EXPECT_DEATH(array.DelCur(), "the cursor is on the element that is deleted");
  TqDynPArray<Tracked> slots;
  slots.Append(nullptr);
  EXPECT_DEATH(slots.GetPData(0), "the slot holds an object");
}
#endif

}  // namespace
