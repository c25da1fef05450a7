// Arrays and lists of every element kind against the plain model.
#include "containers/d_list.h"
#include "containers/sequence_walk.h"
#include "containers/x_list.h"

namespace {

using test::CountedValues;
using test::Pointers;
using test::Tracked;
using test::Values;

constexpr int kSteps = 300000;

template <class Kind>
class ArrayWalk : public test::SequenceWalk<Kind, TqDynArray<typename Kind::Element>> {
 public:
  using Walk = test::SequenceWalk<Kind, TqDynArray<typename Kind::Element>>;
  using Element = typename Kind::Element;
  using Walk::model, Walk::random, Walk::sequence;

  explicit ArrayWalk(unsigned seed) : Walk(false, seed) {
    this->add("IncreaseSize", [this] {
      const int length = model.length();
      const int more = random.below(3);
      sequence.IncreaseSize(more);
      model.grow(length + more);
      model.keys.resize(model.keys.size() + static_cast<std::size_t>(more));
      this->fillFrom(length);
    });
    this->add("DecreaseSize", [this] {
      const int less = random.between(0, model.length());
      sequence.DecreaseSize(less);
      model.keys.resize(model.keys.size() - static_cast<std::size_t>(less));
    });
    this->add("SetLength", [this] {
      const int n = random.below(16);
      const bool keep = random.below(2) == 0;
      const int kept = keep || n == model.space ? std::min(model.length(), n) : 0;
      sequence.SetLength(n, keep);
      model.resizeExactly(n);
      this->fillFrom(kept);
    });
    this->add("SetSpaceSize", [this] {
      const int n = random.below(30);
      EXPECT_EQ(sequence.SetSpaceSize(n), n >= model.length());
      if (n >= model.length()) model.space = n;
    });
    this->add("SetAllocUnit", [this] {
      model.unit = random.below(4);
      sequence.SetAllocUnit(model.unit);
      EXPECT_EQ(sequence.GetAllocUnit(), model.unit);
    });
    this->add("Detach and Attach", [this] {
      Element* const elements = sequence.Detach();
      EXPECT_EQ(sequence.GetFirst(), nullptr);
      EXPECT_EQ(sequence.GetCur(), -1);
      EXPECT_EQ(sequence.GetSpaceSize(), 0);
      sequence.Attach(model.space, elements);
      const int length = model.length();
      model.resizeExactly(model.space);
      model.cursor = -1;
      this->fillFrom(length);
    });
  }

 private:
  long liveElements() const override { return model.space; }
  void compareMore(const std::string& what) override {
    ASSERT_EQ(sequence.GetSpaceSize(), model.space) << what;
  }
};

template <class Kind, class List>
class ListWalk : public test::SequenceWalk<Kind, List> {
 public:
  using Walk = test::SequenceWalk<Kind, List>;
  using Walk::model, Walk::random, Walk::sequence;

  explicit ListWalk(unsigned seed) : Walk(true, seed) {
    this->add("InsertAfterCur", [this] {
      const int key = this->anyKey();
      sequence.InsertAfterCur(this->make(key));
      model.insertAt(model.cursor + 1, key);
    });
    this->add("Insert beyond the end", [this] {
      const int key = this->anyKey();
      sequence.Insert(model.length() + 1 + random.below(3), this->make(key));
      model.insertAt(0, key);
    });
    this->add("SetLength", [this] {
      const int n = random.below(16);
      const int length = model.length();
      sequence.SetLength(n, random.below(2) == 0);
      model.keys.resize(static_cast<std::size_t>(n));
      if (n < length) model.moveToLast();
      this->fillFrom(std::min(n, length));
    });
    this->add("DecreaseSize does nothing", [this] { sequence.DecreaseSize(random.below(4)); });
    this->add("GetCurPos", [this] {
      if (!model.valid(model.cursor)) return;
      EXPECT_EQ(&sequence.GetCurPos()->data, &sequence.GetCurData());
    });
    addLinking();
  }

 protected:
  // Grouped lists: what their index needs after a cut, and where rebuilding leaves the cursor.
  virtual void rebuild() {}
  virtual void moveByRebuilding(int /*firstGroup*/) {}

 private:
  void addLinking() {
    this->add("SplitAt and Conbine", [this] {
      const int i = random.between(-1, model.length());
      List other;
      other.Append(this->make(5));
      sequence.SplitAt(i, other);
      model.moveTo(i);
      std::vector<int> tail = {5};
      if (model.valid(i)) {
        tail.insert(tail.end(), model.keys.begin() + i, model.keys.end());
        model.keys.resize(static_cast<std::size_t>(i));
        model.cursor = i - 1;
      }
      ASSERT_EQ(test::keysOf<Kind>(other), tail);
      rebuild();
      const int from = random.between(0, static_cast<int>(tail.size()));
      const int before = model.length();
      model.keys.insert(model.keys.end(), tail.begin() + from, tail.end());
      ASSERT_EQ(sequence.Conbine(other, from), model.length());
      moveByRebuilding(before);
      ASSERT_EQ(test::keysOf<Kind>(other), std::vector<int>(tail.begin(), tail.begin() + from));
    });
    this->add("ReverseList", [this] {
      sequence.ReverseList();
      std::reverse(model.keys.begin(), model.keys.end());
      moveByRebuilding(0);
      // Number and node agree again from the sentinel on.
      sequence.MoveTo(-1);
      model.moveTo(-1);
    });
    this->add("Rotate", [this] {
      if (this->empty()) return;
      const int from = this->anyIndex();
      const int to = this->anyIndex();
      sequence.Rotate(from, to);
      const int n = model.length();
      std::rotate(model.keys.begin(), model.keys.begin() + (from - to + n) % n, model.keys.end());
      if (from != to) model.cursor = 0;
      moveByRebuilding(0);
    });
  }

  long liveElements() const override { return model.length() + 1; }

  // The links back, where there are any.
  void compareMore(const std::string& what) override {
    std::vector<int> keys;
    for (const auto* p = sequence.GetLast(); p != nullptr; p = sequence.GetPre(p))
      keys.insert(keys.begin(), Kind::key(*p));
    ASSERT_EQ(keys, model.keys) << what;
  }
};

// Small groups, and its own rules for the cursor.
template <class Element>
class SmallGroups : public TqXList<Element> {
 public:
  SmallGroups() : TqXList<Element>(0, 3, 2) {}
  SmallGroups(const SmallGroups& other) : TqXList<Element>(other) { this->Rotate(0, 0); }
  using TqXList<Element>::operator=;
  SmallGroups& operator=(const TqDynArray<Element>& other) {
    this->DeepCopy(other);
    return *this;
  }

  // Entry g of the index stands on the element at g * 3, for every group that has one.
  void checkIndex() const {
    ASSERT_EQ(this->m_index.GetLength(), (this->GetLength() + 2) / 3);
    const TqListNode<Element>* node = this->m_head->next;
    for (TqLong i = 0; i < this->GetLength(); ++i, node = node->next)
      if (i % 3 == 0) {
        ASSERT_EQ(this->m_index.GetAt(i / 3), node);
      }
  }
};

template <class Kind>
class GroupedWalk : public ListWalk<Kind, SmallGroups<typename Kind::Element>> {
 public:
  using ListWalk<Kind, SmallGroups<typename Kind::Element>>::ListWalk;

 private:
  void rebuild() override {
    this->sequence.Rotate(0, 0);
    moveByRebuilding(0);
  }
  void moveByRebuilding(int first) override {
    const int last = (this->model.length() - 1) / 3 * 3;
    if (this->model.length() > 0 && last >= first) this->model.cursor = last;
  }
  void compareMore(const std::string& what) override {
    ASSERT_NO_FATAL_FAILURE(this->sequence.checkIndex()) << what;
  }
};

template <class Kind>
class Sequences : public testing::Test {};
using Kinds = testing::Types<Values, CountedValues, Pointers>;
TYPED_TEST_SUITE(Sequences, Kinds);

TYPED_TEST(Sequences, TheDynamicArrayAgreesWithTheModel) { ArrayWalk<TypeParam>(1).run(kSteps); }
TYPED_TEST(Sequences, TheListAgreesWithTheModel) {
  ListWalk<TypeParam, TqList<typename TypeParam::Element>>(2).run(kSteps);
}
TYPED_TEST(Sequences, TheListLinkedBothWaysAgreesWithTheModel) {
  ListWalk<TypeParam, TqDList<typename TypeParam::Element>>(3).run(kSteps);
}
TYPED_TEST(Sequences, TheGroupedListAgreesWithTheModel) { GroupedWalk<TypeParam>(4).run(kSteps); }

}  // namespace
