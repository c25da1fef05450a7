// TqDynArrayBase<T>: the abstract sequence with a cursor.
//
// Every sequence of the family, array or list, is walked and edited through one integer cursor that
// lives in the object. Most operations are written once, here, as a move of the cursor followed by
// a virtual call, so that code which takes a TqDynArrayBase<T>& works on all of them:
//
//   double total(TqDynArrayBase<double>& numbers) {
//     double sum = 0;
//     for (numbers.MoveToFirst(); !numbers.IsOut(); numbers.MoveToNext())
//       sum += numbers.GetCurData();
//     return sum;
//   }
//
// - The cursor is a plain number. It may stand before the first element (negative) or past the
//   last; that is a normal state, which loops test with IsOut.
// - Nothing is reported: an index or a cursor outside of the sequence is the caller's error. Debug
//   builds assert it. Whoever can't be sure asks IsValidIndex, GetTo or IsOut.
// - T needs a default constructor, assignment, ==, < and >. Elements are copied by assignment.
// - A value that is passed by reference to an operation that inserts or deletes must not be an
//   element of the same sequence, except where an operation says so.
// - Ranges of searches are from..to, both ends included; `to` of -1 (or any `to` that is no index)
//   stands for the last element. `from` is never repaired.
// - Costs below are for arrays, in elements; on lists MoveTo and GetAt walk.
// - A cursor makes even reading through it a change: an object belongs to one thread.
#pragma once

#include "containers/basics.h"

template <class T>
class TqArray;

template <class T>
class TqDynArrayBase {
 public:
  // --- The virtual operations, in the order of their slots ---

  // Sets the length to n and keeps the elements; may leave spare room. The cursor stays.
  virtual void ReAllocate(TqLong n) = 0;
  virtual ~TqDynArrayBase() {}
  // Sets the length to n with no spare room. Arrays keep their elements only if `keep` is set.
  virtual void SetLength(TqLong n, bool keep) = 0;
  // Empties the sequence.
  virtual void Reset() {
    while (m_length != 0) DelTail();
  }
  // The element at the cursor, which must not be out.
  virtual T& GetCurData() = 0;
  virtual void SetCurData(const T& v) = 0;
  // Moves of the cursor. Arrays check nothing: first is 0, also when empty; last is length - 1.
  virtual void MoveToFirst() { m_cursor = 0; }
  virtual void MoveToNext() { ++m_cursor; }
  virtual void MoveToPre() { --m_cursor; }
  virtual void MoveToLast() { m_cursor = m_length - 1; }
  virtual void MoveTo(TqLong i) { m_cursor = i; }
  // The element at i, which becomes the cursor; an i past the end makes the sequence grow to reach
  // it.
  virtual T& operator[](TqLong i) {
    TQ_REQUIRE(i >= 0, "an index isn't negative");
    if (i >= m_length) ReAllocate(i + 1);
    MoveTo(i);
    return GetCurData();
  }
  // A walk that leaves the cursor alone: null at the ends, for an empty sequence and for null.
  virtual const T* GetFirst() const = 0;
  virtual const T* GetNext(const T* p) const = 0;
  virtual const T* GetPre(const T* p) const = 0;
  virtual const T* GetLast() const = 0;
  // The element at the index i, which must be valid. The cursor stays.
  virtual const T& GetAt(TqLong i) const = 0;
  // Inserts v at the cursor's place; the cursor stays on the new element. O(elements behind it).
  virtual void InsertCur(const T& v) = 0;
  // Inserts v at i (0..length) and leaves the cursor there.
  virtual void Insert(TqLong i, const T& v) {
    MoveTo(i);
    InsertCur(v);
  }
  virtual void InsertHead(const T& v) {
    MoveToFirst();
    InsertCur(v);
  }
  // Returns the new element's index, where the cursor is then.
  virtual TqLong Append(const T& v) {
    MoveTo(m_length);
    InsertCur(v);
    return m_cursor;
  }
  // Deletes the element at the cursor. The cursor then stands before its place (at -1 after the
  // first element), so that MoveToNext reaches the element that followed.
  virtual void DelCur() = 0;
  // Stable sorts. The compare function is positive when its first argument comes after its second.
  // Microsoft's compilers give the slots of overloads in the reverse order of their declarations.
#ifdef _MSC_VER
  virtual void Sort(bool ascending) = 0;
  virtual void Sort(int (*compare)(const T&, const T&)) = 0;
#else
  virtual void Sort(int (*compare)(const T&, const T&)) = 0;
  virtual void Sort(bool ascending) = 0;
#endif
  // Moves the element at `from` to stand before the one that is now at `to`, where the cursor goes
  // with it. False, and nothing happens, if it is already there.
  // In TqDynArray, with from > to and room to spare, the shift has changed what the reference names
  // before it is read: the element at from - 1 arrives and the one at `from` is lost. This is
  // meant; other modules get this result.
  virtual bool Move(TqLong from, TqLong to) {
    if (from == to || from == to - 1) return false;
    MoveTo(from);
    T& moved = GetCurData();
    Insert(to, moved);
    if (from <= to) {
      Del(from);
      MoveTo(to - 1);
    } else {
      Del(from + 1);
      MoveTo(to);
    }
    return true;
  }

  // --- State ---

  TqDynArrayBase() : m_length(0), m_cursor(-1) {}
  // Length and cursor only; the derived classes copy the elements.
  TqDynArrayBase(const TqDynArrayBase& other)
      : m_length(other.m_length), m_cursor(other.m_cursor) {}
  TqDynArrayBase& operator=(const TqDynArrayBase& other) {
    m_length = other.m_length;
    m_cursor = other.m_cursor;
    return *this;
  }

  TqLong GetLength() const { return m_length; }
  TqLong GetMaxIndex() const { return m_length - 1; }
  TqLong GetCur() const { return m_cursor; }
  bool IsEmpty() const { return m_length == 0; }
  bool IsValidIndex(TqLong i) const { return i >= 0 && i < m_length; }
  bool IsBegin() const { return m_cursor < 0; }
  bool IsEnd() const { return m_cursor >= m_length; }
  bool IsOut() const { return m_cursor < 0 || m_cursor >= m_length; }
  // Null if i isn't a valid index. The cursor stays.
  const T* GetTo(TqLong i) const { return IsValidIndex(i) ? &GetAt(i) : 0; }
  const T& operator[](TqLong i) const { return GetAt(i); }

  // --- Size and editing ---

  void IncreaseSize(TqLong n) { ReAllocate(m_length + n); }
  void DecreaseSize(TqLong n) { ReAllocate(m_length - n); }
  TqDynArrayBase& operator<<(const T& v) {
    Append(v);
    return *this;
  }
  // Appends all elements of another sequence (or of this one as it was). The cursor ends out.
  TqDynArrayBase& operator<<(const TqDynArrayBase& other);
  TqDynArrayBase& operator<<(const TqArray<T>& other);
  void Del(TqLong i) {
    MoveTo(i);
    DelCur();
  }
  void DelHead() {
    MoveToFirst();
    DelCur();
  }
  void DelTail() {
    MoveToLast();
    DelCur();
  }
  // Swaps two elements; the cursor ends at i.
  void Exchange(TqLong i, TqLong j);
  // Writes v to every element; the cursor ends out.
  void SetAll(const T& v) {
    for (MoveToFirst(); !IsOut(); MoveToNext()) SetCurData(v);
  }
  // Becomes a copy of another sequence, which must not be this one. The cursor ends out: at the
  // length in arrays, at -1 in lists.
  void DeepCopy(const TqDynArrayBase& other);
  void DeepCopy(const TqArray<T>& other);
  // Copies of the first n, the last n, and the elements from..to, into `out`, whose cursor ends
  // out. A start outside of this sequence copies nothing, but `out` has the length.
  void Left(TqLong n, TqDynArrayBase& out) const;
  void Right(TqLong n, TqDynArrayBase& out) const;
  void Mid(TqLong from, TqLong to, TqDynArrayBase& out) const;
  // Swaps the elements of the stretch from..to end for end; only a `to` of -1 is repaired. The
  // cursor ends on the last index touched, the upper one of the innermost pair.
  void Reverse(TqLong from = 0, TqLong to = -1);

  // --- Comparison ---

  // Same length and equal elements.
  bool operator==(const TqDynArrayBase& other) const;
  bool operator!=(const TqDynArrayBase& other) const { return !(*this == other); }
  // The order of sequences is that of their lengths; elements don't count. This is meant.
  bool operator<(const TqDynArrayBase& other) const { return m_length < other.m_length; }
  bool operator>(const TqDynArrayBase& other) const { return m_length > other.m_length; }

  // --- Searching ---

  // Index of the first match, or -1. The cursor stays.
  TqLong Find(const T& v, TqLong from = 0, TqLong to = -1) const;
  // Adds the index of every match to the queue; returns the queue's count. Of the values of `to`
  // only -1 and those past the end are repaired here: any other negative one searches nothing.
  TqLong Find(const T& v, TqQuene<TqLong>& queue, TqLong from = 0, TqLong to = -1) const;
  // Moves the cursor to the first match at or after `from`; false with the cursor out if none is.
  bool FindTo(const T& v, TqLong from = 0);
  TqLong FindOrAppend(const T& v) {
    const TqLong found = Find(v, 0, -1);
    return found >= 0 ? found : Append(v);
  }
  void FindOrInsertHead(const T& v) {
    if (Find(v, 0, -1) < 0) InsertHead(v);
  }
  // Deletes every element equal to v; returns how many.
  TqLong FindDel(const T& v);
  // Binary search in an ascending sequence: index of any match, or -1. The cursor stays.
  TqLong BFind(const T& v, TqLong from = 0, TqLong to = -1) const;
  // The same with the cursor: true on a match, false on the place where v belongs.
  bool BFindTo(const T& v, TqLong from = 0, TqLong to = -1);
  // Inserts v into an ascending sequence. False, and nothing changes, if v is there and duplicates
  // aren't wanted; a duplicate lands behind its equals.
  bool SortInto(const T& v, bool duplicates);

 protected:
  TqLong m_length;
  TqLong m_cursor;
};

#include "containers/dyn_array_base_edit.inl"
#include "containers/dyn_array_base_find.inl"
