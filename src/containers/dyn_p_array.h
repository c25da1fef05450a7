// TqDynPArray<T>: a TqDynArray<T*> that owns the objects its slots point to. A slot may be null.
//
//   TqDynPArray<Shape> shapes;
//   shapes.Append(new Shape(1));       // owned from now on
//   Shape* mine = shapes.TakeOff(0);   // owned no longer; the slot stays, empty
//   shapes.PlaceIn(mine);              // back into the first empty slot
//
// - Objects are deleted with `delete`; T has a virtual destructor.
// - The copy constructor and assignment copy pointers, not objects: afterwards both arrays would
//   delete them, so one of the two must let go (TakeOff). Assignment first releases what this array
//   held.
// - SetCurData and operator[] write a slot and delete nothing.
// - Attach and Detach are the array's: they neither delete nor copy objects.
#pragma once

#include "containers/dyn_array.h"
#include "containers/owning_set.h"

template <class T>
class TqDynPArray : public TqDynArray<T*> {
 public:
  TqDynPArray(TqLong space = 0, TqLong unit = 10) : TqDynArray<T*>(space, unit) {}
  TqDynPArray(const TqDynPArray& other) : TqDynArray<T*>(other) {}
  virtual ~TqDynPArray() { ReleaseAll(); }
  TqDynPArray& operator=(const TqDynPArray& other) {
    ReleaseAll();
    this->DeepCopy(other);
    return *this;
  }

  // New slots are null; objects in slots that are cut off are deleted.
  virtual void ReAllocate(TqLong n);
  // With `keep` as ReAllocate, with no room left. Without it all objects are deleted and the slots
  // are null until the caller writes them.
  virtual void SetLength(TqLong n, bool keep);
  // Deletes all objects; length 0, cursor -1. The storage of the slots stays.
  virtual void Reset();
  // Deletes the object at the cursor and its slot.
  virtual void DelCur();
  // Moves the pointer; unlike the array of values it is exact in both directions.
  virtual bool Move(TqLong from, TqLong to) { return tqMovePointer<T>(*this, from, to); }

  // Deletes the object at the cursor; the slot stays and is null.
  virtual void ReleaseCur() { tqReleaseCur(*this); }
  // Hands the object at the cursor to the caller; the slot stays and is null. Null if the cursor is
  // out.
  virtual T* TakeOffCur() { return tqTakeOffCur<T>(*this); }

  // Rank sorts by the objects; every slot must hold one. The inherited form that compares pointers
  // stays as it is.
  using TqDynArray<T*>::Sort;
  virtual void Sort(bool ascending);
  virtual void Sort(int (*compare)(const T&, const T&)) {
    tqRankSort(this->m_data, this->m_length, tqOnObjects(TqAfterByCompare<T>(compare)));
  }
  // The same with null slots allowed: they end up behind all objects, in either direction.
  void SortEx(bool ascending);

  void Release(TqLong i) {
    this->MoveTo(i);
    ReleaseCur();
  }
  // Deletes all objects; the slots stay. The cursor ends at the length.
  void ReleaseAll() { tqReleaseAll(*this); }

  // The owning set: IsEmptyData, PlaceIn, TakeOff, FindData and the rest.
#define TQ_OWNER TqDynPArray
#include "containers/owning_set_members.inl"
#undef TQ_OWNER
};

template <class T>
void TqDynPArray<T>::ReAllocate(TqLong n) {
  const TqLong before = this->m_length;
  if (n == before) return;
  for (TqLong i = n; i < before; ++i) delete this->m_data[i];
  TqDynArray<T*>::ReAllocate(n);
  for (TqLong i = before; i < n; ++i) this->m_data[i] = 0;
}

template <class T>
void TqDynPArray<T>::SetLength(TqLong n, bool keep) {
  const TqLong before = this->m_length;
  if (keep) {
    if (n == before) return;
    for (TqLong i = n; i < before; ++i) delete this->m_data[i];
    TqDynArray<T*>::SetLength(n, true);
    for (TqLong i = before; i < n; ++i) this->m_data[i] = 0;
    return;
  }
  ReleaseAll();
  TqDynArray<T*>::SetLength(n, false);
  for (TqLong i = 0; i < n; ++i) this->m_data[i] = 0;
}

template <class T>
void TqDynPArray<T>::Reset() {
  ReleaseAll();
  TqDynArray<T*>::Reset();
}

template <class T>
void TqDynPArray<T>::DelCur() {
  ReleaseCur();
  if (this->m_cursor >= this->m_length - 1) {
    TqDynArray<T*>::DelCur();
    return;
  }
  // The array's own way moves the last pointer down and then cuts its slot off, which would delete
  // the object: it waits outside.
  T* last = this->m_data[this->m_length - 1];
  this->m_data[this->m_length - 1] = 0;
  TqDynArray<T*>::DelCur();
  this->m_data[this->m_length - 1] = last;
}

template <class T>
void TqDynPArray<T>::Sort(bool ascending) {
  if (ascending)
    tqRankSort(this->m_data, this->m_length, tqOnObjects(TqAfterAscending<T>()));
  else
    tqRankSort(this->m_data, this->m_length, tqOnObjects(TqAfterDescending<T>()));
}

template <class T>
void TqDynPArray<T>::SortEx(bool ascending) {
  if (ascending)
    tqRankSort(this->m_data, this->m_length, tqNullsLast(TqAfterAscending<T>()));
  else
    tqRankSort(this->m_data, this->m_length, tqNullsLast(TqAfterDescending<T>()));
}
