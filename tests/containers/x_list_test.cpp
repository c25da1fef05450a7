// The group index, and the lists that own.
#include "containers/x_list.h"

#include <memory>
#include <vector>

#include "containers/elements.h"
#include "containers/p_d_list.h"
#include "containers/p_x_list.h"

namespace {

using test::Tracked;

// Shows the index as positions in the list.
class Grouped : public TqXList<int> {
 public:
  explicit Grouped(int count = 0, int groupSize = 3) : TqXList<int>(0, groupSize, 2) {
    for (int i = 0; i < count; ++i) Append(i);
  }

  // Entries that aren't nodes of this list count as -1.
  std::vector<int> entries() const {
    std::vector<int> positions;
    for (TqLong g = 0; g < m_index.GetLength(); ++g) {
      int position = 0;
      const TqListNode<int>* node = m_head->next;
      for (; node != m_head && node != m_index.GetAt(g); node = node->next) ++position;
      positions.push_back(node == m_head ? -1 : position);
    }
    return positions;
  }
};

using Positions = std::vector<int>;

TEST(XList, TheFirstAppendStartsTheFirstGroup) {
  Grouped list;
  EXPECT_EQ(list.entries(), Positions{});
  list.Append(1);
  EXPECT_EQ(list.entries(), Positions{0});
}

TEST(XList, EveryGroupHasAnEntry) { EXPECT_EQ(Grouped(7).entries(), (Positions{0, 3, 6})); }

TEST(XList, InsertingMovesTheLaterEntries) {
  Grouped list(7);
  list.Insert(1, 9);
  EXPECT_EQ(list.entries(), (Positions{0, 3, 6}));
  EXPECT_EQ(list.GetAt(3), 2);
}

TEST(XList, DeletingTheLastOfAGroupDropsItsEntry) {
  Grouped list(7);
  list.Del(6);
  EXPECT_EQ(list.entries(), (Positions{0, 3}));
}

TEST(XList, MoveToStartsAtTheGroup) {
  Grouped list(9);
  list.MoveTo(-1);
  list.MoveTo(5);
  EXPECT_EQ(list.GetCur(), 5);
  EXPECT_EQ(list.GetCurData(), 5);
  list.MoveTo(-1);
  EXPECT_EQ(list.GetCur(), -1);
  list.MoveTo(9);
  EXPECT_EQ(list.GetCur(), -1);
}

TEST(XList, RotateAndReverseRebuildTheIndex) {
  Grouped list(8);
  list.Rotate(1, 4);
  EXPECT_EQ(list.entries(), (Positions{0, 3, 6}));
  EXPECT_EQ(list.GetCur(), 6);
  list.ReverseList();
  EXPECT_EQ(list.entries(), (Positions{0, 3, 6}));
}

TEST(XList, ACutThatLeavesAPartOfAGroupForgetsItsEntry) {
  Grouped list(7);
  Grouped rest;
  list.SplitAt(5, rest);
  EXPECT_EQ(list.entries(), (Positions{0}));
  // The next group's entry comes to stand in the place of the missing one.
  for (int i = 5; i < 9; ++i) list.Append(i);
  EXPECT_EQ(list.entries(), (Positions{0, 6}));
  list.MoveTo(4);
  EXPECT_EQ(list.GetCur(), 4);
  EXPECT_EQ(list.GetCurData(), 7);
  list.Rotate(0, 0);
  EXPECT_EQ(list.entries(), (Positions{0, 3, 6}));
}

TEST(XList, AGroupSizeOfOneNeverChangesTheIndex) {
  Grouped list(0, 1);
  for (int i = 0; i < 4; ++i) list.Append(i);
  EXPECT_EQ(list.entries(), Positions{});
  list.ReverseList();
  EXPECT_EQ(list.entries(), (Positions{0, 1, 2, 3}));
  list.DelTail();
  list.DelHead();
  list.InsertHead(7);
  list.Append(8);
  for (const int entry : list.entries()) EXPECT_GE(entry, 0);
}

// Cuts, and then growing and shrinking with an index that is short of entries: the cursor's numbers
// go wrong, the contents and the memory never.
template <class List>
void cutAndGrow(List& list, List& rest, unsigned seed) {
  test::Random random(seed);
  for (int step = 0; step < 200000; ++step) {
    switch (random.below(8)) {
      case 0:
        list.Rotate(0, 0);
        list.SplitAt(random.between(0, list.GetLength()), rest);
        break;
      case 1:
        rest.Rotate(0, 0);
        list.Conbine(rest, random.between(0, rest.GetLength()));
        break;
      case 2: rest.Reset(); break;
      case 3:
        if (!list.IsEmpty()) list.Del(random.below(list.GetLength()));
        break;
      case 4: list.Insert(random.between(0, list.GetLength()), step); break;
      case 5: list.MoveTo(random.between(0, list.GetLength())); break;
      default: list.Append(step); break;
    }
    if (list.GetLength() > 40) list.Reset();
    int count = 0;
    for (const int* p = list.GetFirst(); p != nullptr; p = list.GetNext(p)) ++count;
    ASSERT_EQ(count, list.GetLength());
    for (const int* p = list.GetLast(); p != nullptr; p = list.GetPre(p)) --count;
    ASSERT_EQ(count, 0);
    for (const int entry : list.entries()) ASSERT_GE(entry, 0);
  }
}

TEST(XList, AnIndexShortOfEntriesNeverPointsToANodeThatIsGone) {
  for (const int groupSize : {1, 2, 3, 5}) {
    Grouped list(0, groupSize);
    Grouped rest(0, groupSize);
    ASSERT_NO_FATAL_FAILURE(cutAndGrow(list, rest, static_cast<unsigned>(groupSize)));
  }
}

// --- lists of owned objects

template <class List>
class OwningLists : public testing::Test {
 protected:
  ~OwningLists() override {
    list.reset();
    EXPECT_EQ(Tracked::live, 0);
  }
  void fill() {
    for (int key = 1; key <= 3; ++key) list->Append(new Tracked(key));
  }
  std::unique_ptr<List> list = std::make_unique<List>();
};
using Kinds = testing::Types<TqPDList<Tracked>, TqPXList<Tracked>>;
TYPED_TEST_SUITE(OwningLists, Kinds);

TYPED_TEST(OwningLists, FindDataOrAppendMakesNoSecondObject) {
  this->fill();
  const Tracked wanted(2);
  EXPECT_EQ(this->list->FindDataOrAppend(wanted), 1);
  EXPECT_EQ(Tracked::live, 4);
  EXPECT_EQ(this->list->FindDataOrAppend(Tracked(7)), 3);
  EXPECT_EQ(this->list->GetPData(3).key(), 7);
}

TYPED_TEST(OwningLists, ReleasingLeavesAnEmptyPlace) {
  this->fill();
  this->list->Release(1);
  EXPECT_EQ(this->list->GetLength(), 3);
  EXPECT_EQ(this->list->GetDataNum(), 2);
  EXPECT_TRUE(this->list->IsEmptyData(1));
}

TYPED_TEST(OwningLists, TakingOffBeforeDeletingSavesTheObject) {
  this->fill();
  this->list->MoveTo(1);
  const std::unique_ptr<Tracked> taken(this->list->TakeOffCur());
  this->list->DelCur();
  EXPECT_EQ(this->list->GetLength(), 2);
  EXPECT_EQ(taken->key(), 2);
}

TYPED_TEST(OwningLists, SetLengthDeletesTheTail) {
  this->fill();
  this->list->SetLength(1, true);
  EXPECT_EQ(Tracked::live, 1);
  EXPECT_EQ(this->list->GetPData(0).key(), 1);
}

TYPED_TEST(OwningLists, AConstructorMakesEmptyPlaces) {
  const TypeParam places(3);
  EXPECT_EQ(places.GetLength(), 3);
  EXPECT_EQ(places.GetDataNum(), 0);
  EXPECT_EQ(places.GetCur(), -1);
}

int comparePointers(Tracked* const& a, Tracked* const& b) { return b->key() - a->key(); }

TYPED_TEST(OwningLists, SortingByPointersDeletesNothing) {
  this->fill();
  this->list->Sort(comparePointers);
  EXPECT_EQ(Tracked::live, 3);
  EXPECT_EQ(this->list->GetPData(0).key(), 3);
}

TYPED_TEST(OwningLists, AssignmentCutsOffTheLongerRestOnly) {
  this->fill();
  TypeParam other;
  other.Append(new Tracked(9));
  Tracked* const overwritten = this->list->GetAt(0);
  *this->list = other;
  EXPECT_EQ(this->list->GetAt(0), other.GetAt(0));
  EXPECT_EQ(Tracked::live, 2);  // the nine, and the one that nobody points to any more
  delete overwritten;
  for (this->list->MoveToFirst(); !this->list->IsOut(); this->list->MoveToNext())
    this->list->SetCurData(nullptr);
}

}  // namespace
