// A random walk through the operations that all sequences have, with the model beside it; the walks
// of arrays and lists add theirs. After every operation everything that can be seen is compared.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "containers/array.h"
#include "containers/dyn_array.h"
#include "containers/elements.h"
#include "containers/sequence_model.h"

namespace test {

template <class Kind, class Sequence>
class SequenceWalk {
 public:
  using Element = typename Kind::Element;
  using Base = TqDynArrayBase<Element>;

  SequenceWalk(bool list, unsigned seed) : model(list), random(seed) { addCommonOperations(); }
  virtual ~SequenceWalk() = default;

  void run(int steps) {
    for (int step = 0; step < steps && !::testing::Test::HasFailure(); ++step) {
      // Short sequences meet their edges often.
      if (model.length() > 20) {
        sequence.Reset();
        model.keys.clear();
        model.cursor = -1;
      }
      const auto& [name, operation] =
          operations_[static_cast<std::size_t>(random.below(static_cast<int>(operations_.size())))];
      operation();
      compare(name + " at step " + std::to_string(step));
    }
  }

 protected:
  void add(const std::string& name, std::function<void()> operation) {
    operations_.emplace_back(name, std::move(operation));
  }

  Element make(int key) { return Kind::make(key); }
  int anyKey() { return random.below(kKeys); }
  int anyIndex() { return random.below(model.length()); }
  bool empty() const { return model.keys.empty(); }

  // Writes new elements, which hold nothing that could be compared.
  void fillFrom(int first) {
    for (int i = first; i < model.length(); ++i) {
      const int key = anyKey();
      base()[i] = make(key);
      model.at(i) = key;
      model.moveTo(i);
    }
  }

  // Places in an ascending sequence: the end of a list is -1 for the cursor.
  int placeOf(int index) const { return model.isList() && index == model.length() ? -1 : index; }

  Base& base() { return sequence; }

  // How many counted elements the sequence holds, spare ones and sentinels included.
  virtual long liveElements() const = 0;

  void compare(const std::string& what) {
    ASSERT_EQ(sequence.GetLength(), model.length()) << what;
    ASSERT_EQ(sequence.GetCur(), model.cursor) << what;
    ASSERT_EQ(keysOf<Kind>(sequence), model.keys) << what;
    if (Kind::counted) {
      ASSERT_EQ(Tracked::live, liveElements()) << what;
    }
    compareMore(what);
  }
  virtual void compareMore(const std::string& /*what*/) {}

  Sequence sequence;
  SequenceModel model;
  Random random;

 private:
  void addCommonOperations() {
    addMoves();
    addEdits();
    addCopies();
    addRearrangements();
    addSearches();
    addSorted();
  }
  void addMoves();
  void addEdits();
  void addCopies();
  void addRearrangements();
  void addSearches();
  void addSorted();

  std::vector<std::pair<std::string, std::function<void()>>> operations_;
};

}  // namespace test

#include "containers/sequence_walk.inl"
