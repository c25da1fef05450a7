// TqDynArrayBase<T>: searching. Included by its header. The searches take the sequence and the test
// as parameters, since sequences of owned objects search in the same way by the objects.
#pragma once

// Element tests on values.
struct TqByValue {
  template <class T>
  static bool equal(const T& element, const T& v) {
    return element == v;
  }
  template <class T>
  static bool less(const T& v, const T& element) {
    return v < element;
  }
  template <class T>
  static bool greater(const T& v, const T& element) {
    return v > element;
  }
};

template <class By, class S, class E, class V>
TqLong tqFind(const S& sequence, const E* /*element*/, const V& v, TqLong from, TqLong to) {
  if (to < 0 || to >= sequence.GetLength()) to = sequence.GetLength() - 1;
  const E* p = sequence.GetTo(from);
  for (TqLong i = from; i <= to; ++i) {
    TQ_REQUIRE(p != 0, "a search starts inside of the sequence");
    if (By::equal(*p, v)) return i;
    p = sequence.GetNext(p);
  }
  return -1;
}

template <class By, class S, class E, class V, class Queue>
TqLong tqFindAll(const S& sequence, const E* /*element*/, const V& v, Queue& queue, TqLong from,
                 TqLong to) {
  if (to == -1 || to >= sequence.GetLength()) to = sequence.GetLength() - 1;
  const E* p = sequence.GetTo(from);
  for (TqLong i = from; i <= to; ++i) {
    TQ_REQUIRE(p != 0, "a search starts inside of the sequence");
    if (By::equal(*p, v)) queue.Add(i);
    p = sequence.GetNext(p);
  }
  return queue.GetCount();
}

template <class By, class S, class V>
TqLong tqFindDel(S& sequence, const V& v) {
  TqLong count = 0;
  for (sequence.MoveToFirst(); !sequence.IsOut(); sequence.MoveToNext()) {
    if (!By::equal(sequence.GetCurData(), v)) continue;
    sequence.DelCur();
    ++count;
  }
  return count;
}

template <class By, class S, class V>
TqLong tqBFind(const S& sequence, const V& v, TqLong from, TqLong to) {
  if (to < 0 || to >= sequence.GetLength()) to = sequence.GetLength() - 1;
  if (from > to) return -1;
  if (By::less(v, sequence.GetAt(from)) || By::greater(v, sequence.GetAt(to))) return -1;
  while (from <= to) {
    const TqLong middle = (from + to) / 2;
    if (By::greater(v, sequence.GetAt(middle)))
      from = middle + 1;
    else if (By::less(v, sequence.GetAt(middle)))
      to = middle - 1;
    else
      return middle;
  }
  return -1;
}

template <class By, class S, class V>
bool tqBFindTo(S& sequence, const V& v, TqLong from, TqLong to) {
  if (to < 0 || to >= sequence.GetLength()) to = sequence.GetLength() - 1;
  sequence.MoveTo(sequence.IsEmpty() ? 0 : from);
  if (sequence.IsEmpty() || By::less(v, sequence.GetCurData())) return false;
  sequence.MoveTo(to);
  if (By::greater(v, sequence.GetCurData())) {
    sequence.MoveToNext();
    return false;
  }
  while (from < to) {
    const TqLong middle = (from + to) / 2;
    sequence.MoveTo(middle);
    if (By::greater(v, sequence.GetCurData()))
      from = middle + 1;
    else if (By::less(v, sequence.GetCurData()))
      to = middle - 1;
    else
      return true;
  }
  if (from != to) return false;  // the cursor is on the last middle, which is the place
  sequence.MoveTo(from);
  if (By::greater(v, sequence.GetCurData())) {
    sequence.MoveToNext();
    return false;
  }
  return !By::less(v, sequence.GetCurData());
}

// `v` is what is inserted; `key` is what it is compared by.
template <class By, class S, class E, class V>
bool tqSortInto(S& sequence, const E& v, const V& key, bool duplicates) {
  if (tqBFindTo<By>(sequence, key, 0, -1)) {
    if (!duplicates) return false;
    sequence.MoveToNext();
    while (!sequence.IsOut() && By::equal(sequence.GetCurData(), key)) sequence.MoveToNext();
  }
  sequence.InsertCur(v);
  return true;
}

template <class T>
TqLong TqDynArrayBase<T>::Find(const T& v, TqLong from, TqLong to) const {
  return tqFind<TqByValue>(*this, static_cast<const T*>(0), v, from, to);
}

template <class T>
TqLong TqDynArrayBase<T>::Find(const T& v, TqQuene<TqLong>& queue, TqLong from, TqLong to) const {
  return tqFindAll<TqByValue>(*this, static_cast<const T*>(0), v, queue, from, to);
}

template <class T>
bool TqDynArrayBase<T>::FindTo(const T& v, TqLong from) {
  for (MoveTo(from); !IsOut(); MoveToNext())
    if (GetCurData() == v) return true;
  return false;
}

template <class T>
TqLong TqDynArrayBase<T>::FindDel(const T& v) {
  return tqFindDel<TqByValue>(*this, v);
}

template <class T>
TqLong TqDynArrayBase<T>::BFind(const T& v, TqLong from, TqLong to) const {
  return tqBFind<TqByValue>(*this, v, from, to);
}

template <class T>
bool TqDynArrayBase<T>::BFindTo(const T& v, TqLong from, TqLong to) {
  return tqBFindTo<TqByValue>(*this, v, from, to);
}

template <class T>
bool TqDynArrayBase<T>::SortInto(const T& v, bool duplicates) {
  return tqSortInto<TqByValue>(*this, v, v, duplicates);
}
