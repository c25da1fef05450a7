// The containers that own their objects against a plain model: keys, with -1 for an empty slot. The
// number of living objects is compared after every operation.
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "containers/dyn_p_array.h"
#include "containers/elements.h"
#include "containers/p_d_list.h"
#include "containers/p_x_list.h"
#include "containers/sequence_model.h"

namespace {

using test::Tracked;

constexpr int kEmpty = -1;

struct Slots {
  static int key(Tracked* slot) { return slot == nullptr ? kEmpty : slot->key(); }
};

int compareObjects(const Tracked& a, const Tracked& b) { return a.key() / 8 - b.key() / 8; }

template <class Sequence>
class OwningWalk {
 public:
  OwningWalk(bool list, unsigned seed) : model_(list), random_(seed) {
    addSlots();
    addOwnership();
    addSearches();
    addOrder();
    addSizes();
  }

  void run(int steps) {
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
      if (model_.length() > 16) {
        sequence_.Reset();
        model_.keys.clear();
        model_.cursor = -1;
      }
      const auto& [name, operation] = operations_[static_cast<std::size_t>(
          random_.below(static_cast<int>(operations_.size())))];
      operation();
      compare(name + " at step " + std::to_string(step));
    }
  }

 private:
  using Base = TqDynArrayBase<Tracked*>;

  void add(const std::string& name, std::function<void()> operation) {
    operations_.emplace_back(name, std::move(operation));
  }
  Base& base() { return sequence_; }
  bool empty() const { return model_.keys.empty(); }
  int anyIndex() { return random_.below(model_.length()); }
  int anyKey() { return random_.below(16); }
  int slots() const {
    return model_.length() -
           static_cast<int>(std::count(model_.keys.begin(), model_.keys.end(), kEmpty));
  }

  void compare(const std::string& what) {
    ASSERT_EQ(test::keysOf<Slots>(sequence_), model_.keys) << what;
    ASSERT_EQ(sequence_.GetLength(), model_.length()) << what;
    ASSERT_EQ(sequence_.GetCur(), model_.cursor) << what;
    ASSERT_EQ(sequence_.GetDataNum(), slots()) << what;
    ASSERT_EQ(Tracked::live, slots()) << what;
  }

  void append(int key) {
    base().Append(key == kEmpty ? nullptr : new Tracked(key));
    model_.insertAt(model_.length(), key);
  }
  // Takes the empty slots out, for operations that need an object everywhere.
  void dropEmpty() {
    base().FindDel(nullptr);
    std::erase(model_.keys, kEmpty);
    model_.moveOut();
  }
  void sortAscending() {
    dropEmpty();
    base().Sort(true);
    model_.stableSort(std::less<>());
  }

  void addSlots() {
    for (int more = 0; more < 3; ++more) add("Append", [this] { append(anyKey()); });
    add("Append of an empty slot", [this] { append(kEmpty); });
    add("Insert", [this] {
      const int i = random_.between(0, model_.length());
      const int key = anyKey();
      sequence_.Insert(i, new Tracked(key));
      model_.insert(i, key);
    });
    add("PlaceIn", [this] {
      const int key = anyKey();
      const auto slot = std::find(model_.keys.begin(), model_.keys.end(), kEmpty);
      const int i = static_cast<int>(slot - model_.keys.begin());
      EXPECT_EQ(sequence_.PlaceIn(new Tracked(key)), i);
      if (i == model_.length()) model_.keys.push_back(key);
      model_.at(i) = key;
      model_.moveTo(i);
    });
    add("MoveTo and the tests of slots", [this] {
      const int i = random_.between(-1, model_.length());
      sequence_.MoveTo(i);
      model_.moveTo(i);
      const bool none = !model_.valid(i) || model_.at(i) == kEmpty;
      EXPECT_EQ(sequence_.IsEmptyData(i), none);
      EXPECT_EQ(sequence_.IsCurEmpty(), none);
      if (none) return;
      EXPECT_EQ(sequence_.GetPData(i).key(), model_.at(i));
      EXPECT_EQ(sequence_.GetCurPData().key(), model_.at(i));
      EXPECT_EQ(sequence_(i).key(), model_.at(i));
    });
  }

  void take(Tracked* object, int i) {
    const bool none = !model_.valid(i) || model_.at(i) == kEmpty;
    EXPECT_EQ(object == nullptr, none);
    if (!none) {
      EXPECT_EQ(object->key(), model_.at(i));
      model_.at(i) = kEmpty;
    }
    delete object;
  }

  void addOwnership() {
    add("TakeOff", [this] {
      const int i = random_.between(-1, model_.length());
      model_.moveTo(i);
      take(sequence_.TakeOff(i), i);
    });
    add("TakeOffHead", [this] {
      model_.moveToFirst();
      take(sequence_.TakeOffHead(), 0);
    });
    add("TakeOffTail", [this] {
      model_.moveToLast();
      take(sequence_.TakeOffTail(), model_.length() - 1);
    });
    add("TakeOffCur, then DelCur", [this] {
      if (!model_.valid(model_.cursor)) return;
      const int i = model_.cursor;
      take(sequence_.TakeOffCur(), i);
      sequence_.DelCur();
      model_.deleteAt(i);
    });
    add("Release", [this] {
      if (empty()) return;
      const int i = anyIndex();
      sequence_.Release(i);
      model_.at(i) = kEmpty;
      model_.moveTo(i);
    });
    add("ReleaseAll", [this] {
      if (random_.below(4) != 0) return;
      sequence_.ReleaseAll();
      std::fill(model_.keys.begin(), model_.keys.end(), kEmpty);
      model_.moveOut();
    });
    add("Del", [this] {
      if (empty()) return;
      const int i = anyIndex();
      sequence_.Del(i);
      model_.deleteAt(i);
    });
    add("copy", [this] {
      Sequence copy(sequence_);
      EXPECT_EQ(test::keysOf<Slots>(copy), model_.keys);
      EXPECT_TRUE(copy == sequence_);
      // A copy lets go of what isn't its own.
      for (const auto* p = copy.GetFirst(); p != nullptr; p = copy.GetNext(p))
        const_cast<Tracked*&>(*p) = nullptr;
      EXPECT_EQ(copy != sequence_, slots() != 0);
    });
  }

  void addSearches() {
    add("FindData", [this] {
      if (empty()) return;
      const int key = anyKey();
      const int from = anyIndex();
      EXPECT_EQ(sequence_.FindData(Tracked(key), from), model_.find(key, from, -1));
      test::Queue queue;
      EXPECT_EQ(sequence_.FindData(Tracked(key), queue),
                std::count(model_.keys.begin(), model_.keys.end(), key));
    });
    add("FindDel of a pointer", [this] {
      if (empty()) return;
      const int i = anyIndex();
      if (model_.at(i) == kEmpty) return;
      EXPECT_EQ(sequence_.FindDel(base()[i]), 1);
      model_.deleteAt(i);
      Tracked stranger(3);
      EXPECT_EQ(sequence_.FindDel(&stranger), 0);
    });
    add("FindDataDel", [this] {
      const int key = anyKey();
      const auto count = std::count(model_.keys.begin(), model_.keys.end(), key);
      EXPECT_EQ(sequence_.FindDataDel(Tracked(key)), count);
      std::erase(model_.keys, key);
      model_.moveOut();
    });
    if constexpr (requires(Sequence s, Tracked v) { s.FindDataOrAppend(v); }) {
      add("FindDataOrAppend", [this] {
        const int key = anyKey();
        const int found = model_.find(key, 0, -1);
        const Tracked wanted(key);
        if (found < 0) model_.insertAt(model_.length(), key);
        EXPECT_EQ(sequence_.FindDataOrAppend(wanted), found < 0 ? model_.length() - 1 : found);
      });
      add("FindDataOrInsertHead", [this] {
        const int key = anyKey();
        if (model_.find(key, 0, -1) < 0) model_.insertAt(0, key);
        sequence_.FindDataOrInsertHead(Tracked(key));
      });
    }
    if constexpr (requires(Sequence s, Tracked v) { s.FindDataTo(v); }) {
      add("FindDataTo", [this] {
        if (empty()) return;
        const int key = anyKey();
        const int from = anyIndex();
        const int to = random_.between(from, model_.length() - 1);
        const int found = model_.find(key, from, to);
        EXPECT_EQ(sequence_.FindDataTo(Tracked(key), from, to), found >= 0);
        model_.moveTo(found >= 0 ? found : to + 1);
      });
    }
  }

  void addOrder() {
    add("Sort by the objects", [this] {
      dropEmpty();
      const bool ascending = random_.below(2) == 0;
      base().Sort(ascending);
      model_.stableSort([=](int a, int b) { return ascending ? a < b : a > b; });
    });
    add("Sort by a compare function", [this] {
      dropEmpty();
      sequence_.Sort(compareObjects);
      model_.stableSort([](int a, int b) { return a / 8 < b / 8; });
    });
    if constexpr (requires(Sequence s) { s.SortEx(true); }) {
      add("SortEx", [this] {
        const bool ascending = random_.below(2) == 0;
        sequence_.SortEx(ascending);
        model_.stableSort([=](int a, int b) {
          if (a == kEmpty || b == kEmpty) return a != kEmpty && b == kEmpty;
          return ascending ? a < b : a > b;
        });
      });
    }
    add("BFindData", [this] {
      sortAscending();
      const int key = anyKey();
      const int found = sequence_.BFindData(Tracked(key));
      const bool present = model_.find(key, 0, -1) >= 0;
      ASSERT_EQ(found >= 0, present);
      if (present) {
        ASSERT_EQ(model_.at(found), key);
      }
      ASSERT_EQ(sequence_.BFindDataTo(Tracked(key)), present);
      model_.cursor = sequence_.GetCur();
    });
    add("SortInto", [this] {
      sortAscending();
      const int key = anyKey();
      const bool duplicates = random_.below(2) == 0;
      const bool goesIn = duplicates || model_.find(key, 0, -1) < 0;
      auto* object = new Tracked(key);
      ASSERT_EQ(sequence_.SortInto(object, duplicates), goesIn);
      model_.cursor = sequence_.GetCur();
      if (!goesIn) {
        delete object;
        return;
      }
      const auto place = std::upper_bound(model_.keys.begin(), model_.keys.end(), key);
      model_.insertAt(static_cast<int>(place - model_.keys.begin()), key);
    });
    add("Move", [this] {
      if (empty()) return;
      const int from = anyIndex();
      const int to = random_.between(0, model_.length());
      const bool moves = from != to && from != to - 1;
      EXPECT_EQ(sequence_.Move(from, to), moves);
      if (!moves) return;
      const int key = model_.at(from);
      model_.insertAt(to, key);
      model_.deleteAt(from > to ? from + 1 : from);
      model_.moveTo(from > to ? to : to - 1);
    });
  }

  void addSizes() {
    add("SetLength with keep", [this] {
      const int n = random_.below(10);
      const int length = model_.length();
      sequence_.SetLength(n, true);
      model_.keys.resize(static_cast<std::size_t>(n), kEmpty);
      if (model_.isList() && n < length) model_.moveToLast();
    });
    add("IncreaseSize", [this] {
      const int more = random_.below(3);
      sequence_.IncreaseSize(more);
      model_.keys.resize(model_.keys.size() + static_cast<std::size_t>(more), kEmpty);
    });
    add("DecreaseSize", [this] {
      const int less = random_.between(0, std::min(2, model_.length()));
      sequence_.DecreaseSize(less);
      if (!model_.isList())
        model_.keys.resize(model_.keys.size() - static_cast<std::size_t>(less), kEmpty);
    });
    if constexpr (requires(Sequence s) { s.SetSpaceSize(1); }) {
      add("SetLength without keep leaves empty slots", [this] {
        if (random_.below(4) != 0) return;
        const int n = random_.below(10);
        const int length = model_.length();
        sequence_.SetLength(n, false);
        model_.keys.assign(static_cast<std::size_t>(n), kEmpty);
        model_.cursor = length;
      });
      add("SetSpaceSize", [this] {
        const int n = random_.below(20);
        EXPECT_EQ(sequence_.SetSpaceSize(n), n >= model_.length());
      });
    }
    add("Reset", [this] {
      if (random_.below(4) != 0) return;
      sequence_.Reset();
      model_.keys.clear();
      model_.cursor = -1;
    });
  }

  Sequence sequence_;
  test::SequenceModel model_;
  test::Random random_;
  std::vector<std::pair<std::string, std::function<void()>>> operations_;
};

// Groups of three. A copy's index is rebuilt, as its owner has to.
class SmallGroups : public TqPXList<Tracked> {
 public:
  SmallGroups() : TqPXList<Tracked>(0, 3, 2) {}
  SmallGroups(const SmallGroups& other) : TqPXList<Tracked>(other) { Rotate(0, 0); }
};

constexpr int kSteps = 400000;

TEST(Owners, TheArrayAgreesWithTheModel) {
  OwningWalk<TqDynPArray<Tracked>>(false, 1).run(kSteps);
  EXPECT_EQ(Tracked::live, 0);
}
TEST(Owners, TheListAgreesWithTheModel) {
  OwningWalk<TqPDList<Tracked>>(true, 2).run(kSteps);
  EXPECT_EQ(Tracked::live, 0);
}
TEST(Owners, TheGroupedListAgreesWithTheModel) {
  OwningWalk<SmallGroups>(true, 3).run(kSteps);
  EXPECT_EQ(Tracked::live, 0);
}

}  // namespace
