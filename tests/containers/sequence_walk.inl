// The common operations of the random walk, each with what the model says of it.
#pragma once

namespace test {

template <class Kind, class Sequence>
void SequenceWalk<Kind, Sequence>::addMoves() {
  add("MoveToFirst", [this] {
    sequence.MoveToFirst();
    model.moveToFirst();
  });
  add("MoveToLast", [this] {
    sequence.MoveToLast();
    model.moveToLast();
  });
  add("MoveToNext", [this] {
    sequence.MoveToNext();
    model.moveToNext();
  });
  add("MoveToPre", [this] {
    sequence.MoveToPre();
    model.moveToPre();
  });
  add("MoveTo", [this] {
    const int i = random.between(-2, model.length() + 1);
    sequence.MoveTo(i);
    model.moveTo(i);
    EXPECT_EQ(sequence.IsOut(), !model.valid(model.cursor));
    EXPECT_EQ(sequence.IsBegin(), model.cursor < 0);
    EXPECT_EQ(sequence.IsEnd(), model.cursor >= model.length());
    EXPECT_EQ(sequence.IsEmpty(), empty());
    EXPECT_EQ(sequence.GetMaxIndex(), model.length() - 1);
  });
  add("GetAt, GetTo, GetPre, GetLast, GetCurData", [this] {
    const int i = random.between(-1, model.length());
    const Element* element = sequence.GetTo(i);
    ASSERT_EQ(element != nullptr, model.valid(i));
    EXPECT_EQ(sequence.GetLast() != nullptr, !empty());
    if (element == nullptr) return;
    EXPECT_EQ(Kind::key(*element), model.at(i));
    EXPECT_EQ(&sequence.GetAt(i), element);
    const Element* before = sequence.GetPre(element);
    ASSERT_EQ(before != nullptr, i > 0);
    if (before != nullptr) {
      EXPECT_EQ(Kind::key(*before), model.at(i - 1));
    }
    if (model.valid(model.cursor)) {
      EXPECT_EQ(Kind::key(sequence.GetCurData()), model.at(model.cursor));
    }
  });
}

template <class Kind, class Sequence>
void SequenceWalk<Kind, Sequence>::addEdits() {
  for (int more = 0; more < 3; ++more)
    add("Append", [this] {
      const int key = anyKey();
      model.insertAt(model.length(), key);
      EXPECT_EQ(sequence.Append(make(key)), model.cursor);
    });
  add("InsertHead", [this] {
    const int key = anyKey();
    base().InsertHead(make(key));
    model.insertAt(0, key);
  });
  add("Insert", [this] {
    const int i = random.between(0, model.length());
    const int key = anyKey();
    sequence.Insert(i, make(key));
    model.insert(i, key);
  });
  add("InsertCur", [this] {
    if (!model.valid(model.cursor) && !model.isList()) return;
    const int key = anyKey();
    sequence.InsertCur(make(key));
    model.insertCur(key);
  });
  add("SetCurData", [this] {
    if (!model.valid(model.cursor)) return;
    const int key = anyKey();
    sequence.SetCurData(make(key));
    model.at(model.cursor) = key;
  });
  add("operator[]", [this] {
    const int i = random.between(0, model.length() + 2);
    const int length = model.length();
    base()[i];
    if (i >= length) {
      model.grow(i + 1);
      model.keys.resize(static_cast<std::size_t>(i) + 1);
    }
    model.moveTo(i);
    fillFrom(length);
  });
  add("Del", [this] {
    if (empty()) return;
    const int i = anyIndex();
    sequence.Del(i);
    model.deleteAt(i);
  });
  add("DelHead", [this] {
    if (empty()) return;
    sequence.DelHead();
    model.deleteAt(0);
  });
  add("DelTail", [this] {
    if (empty()) return;
    sequence.DelTail();
    model.deleteAt(model.length() - 1);
  });
  add("Reset", [this] {
    sequence.Reset();
    model.keys.clear();
    model.cursor = -1;
  });
  add("SetAll", [this] {
    const int key = anyKey();
    base().SetAll(make(key));
    std::fill(model.keys.begin(), model.keys.end(), key);
    model.moveOut();
  });
}

template <class Kind, class Sequence>
void SequenceWalk<Kind, Sequence>::addCopies() {
  add("copy, assignment and comparison", [this] {
    Sequence copy(sequence);
    EXPECT_EQ(keysOf<Kind>(copy), model.keys);
    EXPECT_TRUE(copy == sequence);
    copy.Append(make(1));
    EXPECT_TRUE(copy != sequence);
    EXPECT_TRUE(copy > sequence);
    EXPECT_TRUE(sequence < copy);
    const TqDynArray<Element> array(sequence);
    EXPECT_EQ(keysOf<Kind>(array), model.keys);
    EXPECT_EQ(array.GetSpaceSize(), model.length());
    sequence = array;
    model.assign(model.keys);
  });
  add("DeepCopy of an array", [this] {
    const TqArray<Element> array(sequence);
    ASSERT_EQ(array.GetLength(), model.length());
    for (int i = 0; i < model.length(); ++i) EXPECT_EQ(Kind::key(array[i]), model.at(i));
    base().DeepCopy(array);
    model.assign(model.keys);
  });
  add("operator<< of sequences", [this] {
    if (model.length() > 8) return;
    const TqDynArray<Element> other(sequence);
    const TqArray<Element> plain(sequence);
    base() << other;
    const std::vector<int> keys = model.keys;
    model.keys.insert(model.keys.end(), keys.begin(), keys.end());
    model.assign(model.keys);
    base() << plain;
    model.keys.insert(model.keys.end(), keys.begin(), keys.end());
    model.assign(model.keys);
  });
  add("Left, Right, Mid", [this] {
    const int n = random.between(0, model.length());
    TqDynArray<Element> out;
    sequence.Left(n, out);
    EXPECT_EQ(keysOf<Kind>(out), std::vector<int>(model.keys.begin(), model.keys.begin() + n));
    sequence.Right(n, out);
    EXPECT_EQ(keysOf<Kind>(out), std::vector<int>(model.keys.end() - n, model.keys.end()));
    EXPECT_EQ(out.GetCur(), n);
    if (empty()) return;
    const int from = anyIndex();
    const int to = random.between(from, model.length() - 1);
    sequence.Mid(from, to, out);
    EXPECT_EQ(keysOf<Kind>(out),
              std::vector<int>(model.keys.begin() + from, model.keys.begin() + to + 1));
  });
}

template <class Kind, class Sequence>
void SequenceWalk<Kind, Sequence>::addRearrangements() {
  add("Exchange", [this] {
    if (empty()) return;
    const int i = anyIndex();
    const int j = anyIndex();
    sequence.Exchange(i, j);
    std::swap(model.at(i), model.at(j));
    model.moveTo(i);
  });
  add("Reverse", [this] {
    if (empty()) return;
    const int from = anyIndex();
    const int to = random.between(from, model.length() - 1);
    sequence.Reverse(from, to == model.length() - 1 ? -1 : to);
    std::reverse(model.keys.begin() + from, model.keys.begin() + to + 1);
    const int pairs = (to - from + 1) / 2;
    if (pairs > 0) model.moveTo(to - pairs + 1);
  });
  add("Move", [this] {
    if (empty()) return;
    const int from = anyIndex();
    const int to = random.between(0, model.length());
    const bool moves = from != to && from != to - 1;
    EXPECT_EQ(sequence.Move(from, to), moves);
    if (!moves) return;
    // The array's quirk: without growth a move to the front brings the element before.
    const bool shifted = !model.isList() && from > to && model.length() < model.space;
    const int key = model.at(shifted ? from - 1 : from);
    model.insertAt(to, key);
    model.deleteAt(from > to ? from + 1 : from);
    model.moveTo(from > to ? to : to - 1);
  });
}

template <class Kind, class Sequence>
void SequenceWalk<Kind, Sequence>::addSearches() {
  add("Find", [this] {
    const int key = anyKey();
    const int from = random.below(model.length() + 1);
    const int to = random.between(-1, model.length() + 1);
    if (from >= model.length()) return;
    EXPECT_EQ(sequence.TqDynArrayBase<Element>::Find(make(key), from, to),
              model.find(key, from, to));
    Queue queue;
    const int last = to == -1 || to >= model.length() ? model.length() - 1 : to;
    const TqLong count = base().Find(make(key), queue, from, to);
    EXPECT_EQ(count, queue.GetCount());
    std::vector<TqLong> found;
    for (int i = from; i <= last; ++i)
      if (model.at(i) == key) found.push_back(i);
    EXPECT_EQ(queue.found, found);
  });
  add("FindTo", [this] {
    const int key = anyKey();
    const int from = random.below(model.length() + 1);
    const int found = from < model.length() ? model.find(key, from, -1) : -1;
    EXPECT_EQ(sequence.FindTo(make(key), from), found >= 0);
    if (found >= 0)
      model.moveTo(found);
    else
      model.moveOut();
  });
  add("FindOrAppend", [this] {
    const int key = anyKey();
    const int found = model.find(key, 0, -1);
    if (found < 0) model.insertAt(model.length(), key);
    EXPECT_EQ(sequence.FindOrAppend(make(key)), found < 0 ? model.length() - 1 : found);
  });
  add("FindOrInsertHead", [this] {
    const int key = anyKey();
    sequence.FindOrInsertHead(make(key));
    if (model.find(key, 0, -1) < 0) model.insertAt(0, key);
  });
  add("FindDel", [this] {
    const int key = anyKey();
    const auto count = std::count(model.keys.begin(), model.keys.end(), key);
    EXPECT_EQ(base().FindDel(make(key)), count);
    std::erase(model.keys, key);
    model.moveOut();
  });
}

template <class Kind, class Sequence>
void SequenceWalk<Kind, Sequence>::addSorted() {
  add("Sort by the elements", [this] {
    const bool ascending = random.below(2) == 0;
    base().Sort(ascending);
    model.stableSort([=](int a, int b) { return ascending ? a < b : a > b; });
  });
  add("Sort by a compare function", [this] {
    base().Sort(compareCoarsely<Kind>);
    model.stableSort([](int a, int b) { return a / 8 < b / 8; });
  });
  add("BFind and BFindTo", [this] {
    base().Sort(true);
    model.stableSort(std::less<>());
    const int key = anyKey();
    const int found = sequence.BFind(make(key));
    const bool present = model.find(key, 0, -1) >= 0;
    ASSERT_EQ(found >= 0, present);
    if (present) {
      ASSERT_EQ(model.at(found), key);
    }
    ASSERT_EQ(sequence.BFindTo(make(key)), present);
    const auto place = std::lower_bound(model.keys.begin(), model.keys.end(), key);
    if (present) {
      ASSERT_EQ(Kind::key(sequence.GetCurData()), key);
    } else {
      ASSERT_EQ(sequence.GetCur(), placeOf(static_cast<int>(place - model.keys.begin())));
    }
    model.cursor = sequence.GetCur();
  });
  add("SortInto", [this] {
    base().Sort(true);
    model.stableSort(std::less<>());
    const int key = anyKey();
    const bool duplicates = random.below(2) == 0;
    const bool goesIn = duplicates || model.find(key, 0, -1) < 0;
    ASSERT_EQ(base().SortInto(make(key), duplicates), goesIn);
    model.cursor = sequence.GetCur();
    if (!goesIn) return;
    const auto place = std::upper_bound(model.keys.begin(), model.keys.end(), key);
    model.insertAt(static_cast<int>(place - model.keys.begin()), key);
  });
}

}  // namespace test
