// TqArray<T>: a plain array outside of the cursor hierarchy, always exactly as long as its
// contents.
//
//   TqArray<int> columns(3);
//   columns.SetAll(0);
//   columns.Append(7);          // reallocates: there is no spare room
//
// - Every insert and delete allocates anew and copies all elements: O(length). For arrays that are
//   filled once and read often.
// - A reference to an own element stays good until the old storage goes, so a value that is
//   inserted may be an element of the same array.
// - Indexes are never checked, and nothing grows by itself.
#pragma once

#include "containers/dyn_array_base.h"
#include "containers/rank_sort.h"

template <class T>
class TqArray {
 public:
  TqArray(TqLong n = 0) : m_data(n > 0 ? tqNewElements<T>(n) : 0), m_length(n > 0 ? n : 0) {}
  TqArray(const TqDynArrayBase<T>& other);
  TqArray(const TqArray& other) : m_data(0), m_length(0) { *this = other; }
  virtual ~TqArray() { delete[] m_data; }
  TqArray& operator=(const TqArray& other);

  TqLong GetLength() const { return m_length; }
  TqLong GetMaxIndex() const { return m_length - 1; }
  bool IsEmpty() const { return m_length == 0; }
  bool IsValidIndex(TqLong i) const { return i >= 0 && i < m_length; }
  // The elements; null when there are none.
  const T* GetDataBuffer() const { return m_data; }
  const T& GetAt(TqLong i) const {
    TQ_REQUIRE(IsValidIndex(i), "the index is inside of the array");
    return m_data[i];
  }
  T& operator[](TqLong i) {
    TQ_REQUIRE(IsValidIndex(i), "the index is inside of the array");
    return m_data[i];
  }
  const T& operator[](TqLong i) const { return GetAt(i); }
  void SetAt(TqLong i, const T& v) { (*this)[i] = v; }

  // Exactly n elements; those that both lengths have are kept if `keep` is set. An n of 0 or less
  // deletes all; an n equal to the length does nothing.
  void ReAllocate(TqLong n, bool keep);
  void Reset() { ReAllocate(0, false); }
  void SetAll(const T& v) {
    for (TqLong i = 0; i < m_length; ++i) m_data[i] = v;
  }
  // Inserts v at i (0..length).
  void Insert(TqLong i, const T& v);
  void InsertHead(const T& v) { Insert(0, v); }
  // Returns the new element's index.
  TqLong Append(const T& v) {
    Insert(m_length, v);
    return m_length - 1;
  }
  void Del(TqLong i);
  void DelHead() { Del(0); }
  void DelTail() { Del(m_length - 1); }

  // As the searches of TqDynArrayBase, without a cursor. The queue form repairs any `to` that is
  // negative or past the end.
  TqLong Find(const T& v, TqLong from = 0, TqLong to = -1) const;
  TqLong Find(const T& v, TqQuene<TqLong>& queue, TqLong from = 0, TqLong to = -1) const;
  TqLong FindDel(const T& v);
  TqLong FindOrAppend(const T& v) {
    const TqLong found = Find(v, 0, -1);
    return found >= 0 ? found : Append(v);
  }
  void FindOrInsertHead(const T& v) {
    if (Find(v, 0, -1) < 0) InsertHead(v);
  }
  TqLong BFind(const T& v, TqLong from = 0, TqLong to = -1) const {
    return tqBFind<TqByValue>(*this, v, from, to);
  }
  // Acts only when both ends are valid indexes; a `to` of -1 is the last one.
  void Reverse(TqLong from = 0, TqLong to = -1);
  // The family's rank sort: stable, n * n / 2 comparisons.
  void Sort(int (*compare)(const T&, const T&)) {
    tqRankSort(m_data, m_length, TqAfterByCompare<T>(compare));
  }

  bool operator==(const TqArray& other) const;
  bool operator!=(const TqArray& other) const { return !(*this == other); }
  // The order of arrays is that of their lengths, as in the whole family.
  bool operator<(const TqArray& other) const { return m_length < other.m_length; }
  bool operator>(const TqArray& other) const { return m_length > other.m_length; }

 protected:
  T* m_data;
  TqLong m_length;
};

template <class T>
TqArray<T>::TqArray(const TqDynArrayBase<T>& other) : m_data(0), m_length(0) {
  ReAllocate(other.GetLength(), false);
  T* to = m_data;
  for (const T* p = other.GetFirst(); p != 0; p = other.GetNext(p)) *to++ = *p;
}

template <class T>
TqArray<T>& TqArray<T>::operator=(const TqArray& other) {
  ReAllocate(other.m_length, true);
  tqCopy(m_data, other.m_data, m_length);
  return *this;
}

template <class T>
void TqArray<T>::ReAllocate(TqLong n, bool keep) {
  if (n == m_length) return;
  T* exact = n > 0 ? tqNewElements<T>(n) : 0;
  if (keep && exact != 0) tqCopy(exact, m_data, n < m_length ? n : m_length);
  m_length = n > 0 ? n : 0;
  delete[] m_data;
  m_data = exact;
}

template <class T>
void TqArray<T>::Insert(TqLong i, const T& v) {
  TQ_REQUIRE(i >= 0 && i <= m_length, "an element is inserted inside of the array or at its end");
  T* longer = tqNewElements<T>(m_length + 1);
  tqCopy(longer, m_data, i);
  longer[i] = v;
  tqCopy(longer + i + 1, m_data + i, m_length - i);
  ++m_length;
  delete[] m_data;
  m_data = longer;
}

template <class T>
void TqArray<T>::Del(TqLong i) {
  TQ_REQUIRE(IsValidIndex(i), "the index is inside of the array");
  T* shorter = m_length > 1 ? tqNewElements<T>(m_length - 1) : 0;
  if (shorter != 0) {
    tqCopy(shorter, m_data, i);
    tqCopy(shorter + i, m_data + i + 1, m_length - 1 - i);
  }
  --m_length;
  delete[] m_data;
  m_data = shorter;
}

// The queue is a parameter of its own: its class is complete only where the search is used.
template <class T, class Queue>
TqLong tqCollect(const TqArray<T>& array, const T& v, Queue& queue, TqLong from, TqLong to) {
  for (TqLong i = from; i <= to; ++i)
    if (array.GetAt(i) == v) queue.Add(i);
  return queue.GetCount();
}

template <class T>
TqLong TqArray<T>::Find(const T& v, TqLong from, TqLong to) const {
  if (to < 0 || to >= m_length) to = m_length - 1;
  for (TqLong i = from; i <= to; ++i)
    if (GetAt(i) == v) return i;
  return -1;
}

template <class T>
TqLong TqArray<T>::Find(const T& v, TqQuene<TqLong>& queue, TqLong from, TqLong to) const {
  if (to < 0 || to >= m_length) to = m_length - 1;
  return tqCollect(*this, v, queue, from, to);
}

template <class T>
TqLong TqArray<T>::FindDel(const T& v) {
  TqLong count = 0;
  for (TqLong i = 0; i < m_length;) {
    if (m_data[i] == v) {
      Del(i);
      ++count;
    } else {
      ++i;
    }
  }
  return count;
}

template <class T>
void TqArray<T>::Reverse(TqLong from, TqLong to) {
  if (to == -1) to = m_length - 1;
  if (!IsValidIndex(from) || !IsValidIndex(to)) return;
  for (; from < to; ++from, --to) {
    T moving;
    moving = m_data[from];
    m_data[from] = m_data[to];
    m_data[to] = moving;
  }
}

template <class T>
bool TqArray<T>::operator==(const TqArray& other) const {
  if (m_length != other.m_length) return false;
  for (TqLong i = 0; i < m_length; ++i)
    if (!(m_data[i] == other.m_data[i])) return false;
  return true;
}
