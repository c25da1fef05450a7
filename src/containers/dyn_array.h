// TqDynArray<T>: the contiguous array of the family, with spare room that grows by a fixed unit.
//
//   TqDynArray<double> lengths;              // no space yet, unit 10
//   lengths << 3.5 << 1.25;                  // the first one makes space for 11
//   lengths.Sort(true);
//   for (const double* p = lengths.GetFirst(); p != 0; p = lengths.GetNext(p)) use(*p);
//
// - ReAllocate leaves room, SetLength removes it; after a copy the capacity is the length.
// - Growth is additive: n appends copy about n * n / (2 * unit) elements. Set the unit, or call
//   SetSpaceSize first, where many are to come.
// - Elements that ReAllocate or operator[] expose hold what their default construction gave them,
//   or an old value from room kept earlier.
#pragma once

#include "containers/dyn_array_base.h"
#include "containers/rank_sort.h"

template <class T>
class TqDynArray : public TqDynArrayBase<T> {
 public:
  // Space above 0 is allocated at once; the length is 0 all the same.
  TqDynArray(TqLong space = 0, TqLong unit = 10)
      : m_data(space > 0 ? tqNewElements<T>(space) : 0),
        m_space(space > 0 ? space : 0),
        m_unit(unit) {}
  // Copies: as long as the source, with the unit 10.
  TqDynArray(const TqDynArray& other) : TqDynArrayBase<T>(), m_data(0), m_space(0), m_unit(10) {
    this->DeepCopy(other);
  }
  TqDynArray(const TqDynArrayBase<T>& other)
      : TqDynArrayBase<T>(), m_data(0), m_space(0), m_unit(10) {
    this->DeepCopy(other);
  }
  virtual ~TqDynArray() { delete[] m_data; }
  // The unit stays. A source that is this array itself isn't allowed.
  TqDynArray& operator=(const TqDynArray& other) {
    this->DeepCopy(other);
    return *this;
  }
  TqDynArray& operator=(const TqDynArrayBase<T>& other) {
    this->DeepCopy(other);
    return *this;
  }

  // Beyond the space: new space of n + unit elements. The storage never shrinks. The cursor stays.
  virtual void ReAllocate(TqLong n);
  // Space and length become exactly n (nothing is allocated below 1). The cursor stays.
  virtual void SetLength(TqLong n, bool keep);
  // Length 0, cursor -1; the storage stays.
  virtual void Reset() {
    this->m_length = 0;
    this->m_cursor = -1;
  }

  virtual T& GetCurData() {
    TQ_REQUIRE(this->m_cursor >= 0 && this->m_cursor < m_space,
               "the cursor is inside of the array");
    return m_data[this->m_cursor];
  }
  virtual void SetCurData(const T& v) {
    TQ_REQUIRE(this->m_cursor >= 0 && this->m_cursor < m_space,
               "the cursor is inside of the array");
    m_data[this->m_cursor] = v;
  }
  virtual const T* GetFirst() const { return this->m_length == 0 ? 0 : m_data; }
  virtual const T* GetNext(const T* p) const {
    return p == 0 || p == m_data + this->m_length - 1 ? 0 : p + 1;
  }
  virtual const T* GetPre(const T* p) const { return p == 0 || p == m_data ? 0 : p - 1; }
  virtual const T* GetLast() const { return this->m_length == 0 ? 0 : m_data + this->m_length - 1; }
  virtual const T& GetAt(TqLong i) const {
    TQ_REQUIRE(i >= 0 && i < m_space, "the index is inside of the array");
    return m_data[i];
  }

  // v is read after the elements have moved up: one that is an element at or behind the cursor then
  // names its predecessor. This is meant (see Move). When the array has to grow, the value is the
  // one that v had before.
  virtual void InsertCur(const T& v);
  virtual void DelCur();

  // Rank sorts: stable, n * n / 2 comparisons, at most n moves. The cursor stays.
  virtual void Sort(int (*compare)(const T&, const T&)) {
    tqRankSort(m_data, this->m_length, TqAfterByCompare<T>(compare));
  }
  virtual void Sort(bool ascending) {
    if (ascending)
      tqRankSort(m_data, this->m_length, TqAfterAscending<T>());
    else
      tqRankSort(m_data, this->m_length, TqAfterDescending<T>());
  }

  // Capacity in elements, and the room that each growth adds.
  TqLong GetSpaceSize() const { return m_space; }
  TqLong GetAllocUnit() const { return m_unit; }
  void SetAllocUnit(TqLong unit) { m_unit = unit; }
  // Sets the capacity and keeps the elements; false, and nothing happens, below the length.
  bool SetSpaceSize(TqLong n);
  // Takes over an array of n elements made with new[]; the old one is deleted. The cursor stays.
  void Attach(TqLong n, T* p) {
    delete[] m_data;
    m_data = p;
    this->m_length = n;
    m_space = n;
  }
  // Hands the array to the caller, who deletes it with delete[]. This one is then empty.
  T* Detach() {
    T* detached = m_data;
    m_data = 0;
    m_space = 0;
    this->m_length = 0;
    this->m_cursor = -1;
    return detached;
  }

 protected:
  T* m_data;
  TqLong m_space;
  TqLong m_unit;
};

template <class T>
void TqDynArray<T>::ReAllocate(TqLong n) {
  if (n > m_space) {
    const TqLong space = n + m_unit;
    T* grown = tqNewElements<T>(space);
    tqCopy(grown, m_data, this->m_length);
    delete[] m_data;
    m_data = grown;
    m_space = space;
  }
  this->m_length = n;
}

template <class T>
void TqDynArray<T>::SetLength(TqLong n, bool keep) {
  if (n != m_space) {
    T* exact = n > 0 ? tqNewElements<T>(n) : 0;
    if (keep && exact != 0) tqCopy(exact, m_data, n < this->m_length ? n : this->m_length);
    delete[] m_data;
    m_data = exact;
    m_space = n;
  }
  this->m_length = n;
}

template <class T>
void TqDynArray<T>::InsertCur(const T& v) {
  TQ_REQUIRE(this->m_cursor >= 0 && this->m_cursor <= this->m_length,
             "an element is inserted inside of the array or at its end");
  if (this->m_length < m_space) {
    this->ReAllocate(this->m_length + 1);
    tqCopyUp(m_data + this->m_cursor + 1, m_data + this->m_cursor,
             this->m_length - 1 - this->m_cursor);
    m_data[this->m_cursor] = v;
    return;
  }
  // Growing deletes the storage that v may stand in.
  T value;
  value = v;
  this->ReAllocate(this->m_length + 1);
  tqCopyUp(m_data + this->m_cursor + 1, m_data + this->m_cursor,
           this->m_length - 1 - this->m_cursor);
  m_data[this->m_cursor] = value;
}

template <class T>
void TqDynArray<T>::DelCur() {
  TQ_REQUIRE(this->m_cursor >= 0 && this->m_cursor < this->m_length,
             "the cursor is on the element that is deleted");
  T* gap = m_data + this->m_cursor;
  tqCopy(gap, gap + 1, this->m_length - 1 - this->m_cursor);
  this->ReAllocate(this->m_length - 1);
  --this->m_cursor;
}

template <class T>
bool TqDynArray<T>::SetSpaceSize(TqLong n) {
  if (n < this->m_length) return false;
  if (n == m_space) return true;
  const TqLong length = this->m_length;
  this->SetLength(n, true);
  this->m_length = length;
  return true;
}
