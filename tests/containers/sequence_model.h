// The plain reference of the sequences: a vector of keys and a cursor that obeys the rules of
// arrays or of lists.
#pragma once

#include <algorithm>
#include <vector>

namespace test {

class SequenceModel {
 public:
  explicit SequenceModel(bool list) : list_(list) {}

  std::vector<int> keys;
  int cursor = -1;
  int space = 0;  // arrays only
  int unit = 10;

  bool isList() const { return list_; }
  int length() const { return static_cast<int>(keys.size()); }
  bool valid(int i) const { return i >= 0 && i < length(); }
  int& at(int i) { return keys[static_cast<std::size_t>(i)]; }

  void moveToFirst() { cursor = list_ && keys.empty() ? -1 : 0; }
  void moveToLast() { cursor = length() - 1; }
  void moveTo(int i) { cursor = list_ && !valid(i) ? -1 : i; }
  void moveToNext() {
    ++cursor;
    if (list_ && cursor >= length()) cursor = -1;
  }
  void moveToPre() {
    if (list_ && cursor == -1)
      moveToLast();
    else
      --cursor;
  }
  // Where a walk over the whole sequence leaves the cursor.
  void moveOut() { cursor = list_ ? -1 : length(); }

  // Arrays: more elements than space make new space with the unit on top.
  void grow(int length) {
    if (length > space) space = length + unit;
  }
  void resizeExactly(int n) {
    keys.resize(static_cast<std::size_t>(n));
    space = n;
  }
  // The element takes the index i, and the cursor goes there.
  void insertAt(int i, int key) {
    grow(length() + 1);
    keys.insert(keys.begin() + i, key);
    cursor = i;
  }
  void insertCur(int key) { insertAt(list_ && cursor == -1 ? length() : cursor, key); }
  void insert(int i, int key) { insertAt(list_ && !valid(i - 1) ? 0 : i, key); }
  void deleteAt(int i) {
    keys.erase(keys.begin() + i);
    cursor = i - 1;
  }
  void assign(const std::vector<int>& other) {
    keys = other;
    space = length();
    moveOut();
  }
  int find(int key, int from, int to) const {
    if (to < 0 || to >= length()) to = length() - 1;
    for (int i = from; i <= to; ++i)
      if (keys[static_cast<std::size_t>(i)] == key) return i;
    return -1;
  }
  template <class Less>
  void stableSort(Less less) {
    std::stable_sort(keys.begin(), keys.end(), less);
    if (list_ && length() > 1) cursor = -1;
  }

 private:
  bool list_;
};

}  // namespace test
