// Element kinds for tests of the containers. Each kind turns a small number into an element and
// back, so that one plain model serves all of them.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "containers/basics.h"
#include "platform/container_elements.h"

namespace test {

// A value whose construction, copying and destruction are counted.
class Tracked {
 public:
  Tracked() { ++live; }
  explicit Tracked(int key) : key_(key) { ++live; }
  Tracked(const Tracked& other) : key_(other.key_) { ++live; }
  Tracked& operator=(const Tracked&) = default;
  virtual ~Tracked() { --live; }
  bool operator==(const Tracked& other) const { return key_ == other.key_; }
  bool operator<(const Tracked& other) const { return key_ < other.key_; }
  bool operator>(const Tracked& other) const { return key_ > other.key_; }
  int key() const { return key_; }

  static inline long live = 0;

 private:
  int key_ = 0;
};

constexpr int kKeys = 64;

// The kinds. `counted` is true where Tracked::live counts the elements.
struct Values {
  using Element = int;
  static constexpr bool counted = false;
  static Element make(int key) { return key; }
  static int key(const Element& element) { return element; }
};

struct CountedValues {
  using Element = Tracked;
  static constexpr bool counted = true;
  static Element make(int key) { return Tracked(key); }
  static int key(const Element& element) { return element.key(); }
};

// Pointers into one array, so that their order is that of the keys.
struct Pointers {
  using Element = const int*;
  static constexpr bool counted = false;
  static Element make(int key) { return &pool()[static_cast<std::size_t>(key)]; }
  static int key(const Element& element) { return static_cast<int>(element - pool().data()); }
  static const std::array<int, kKeys>& pool() {
    static const std::array<int, kKeys> numbers{};
    return numbers;
  }
};

// A compare function that puts many different elements into one class: it shows whether a sort is
// stable.
template <class Kind>
int compareCoarsely(const typename Kind::Element& a, const typename Kind::Element& b) {
  return Kind::key(a) / 8 - Kind::key(b) / 8;
}

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  // 0..limit-1, and first..last.
  int below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
  int between(int first, int last) { return first + below(last - first + 1); }

 private:
  std::mt19937 engine_;
};

class Queue : public TqQuene<TqLong> {
 public:
  void Add(const TqLong& value) override { found.push_back(value); }
  int GetCount() const override { return static_cast<int>(found.size()); }

  std::vector<TqLong> found;
};

template <class Kind, class Sequence>
std::vector<int> keysOf(const Sequence& sequence) {
  std::vector<int> keys;
  for (const auto* p = sequence.GetFirst(); p != nullptr; p = sequence.GetNext(p))
    keys.push_back(Kind::key(*p));
  return keys;
}

}  // namespace test
