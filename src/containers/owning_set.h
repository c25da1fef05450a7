// What the three sequences of owned objects share: the operations on slots that are null or hold an
// object. Free functions, since a common base class would add to the exported interface; each takes
// the sequence by its own type, so that the virtual operations of that type do the work.
#pragma once

#include "containers/dyn_array_base.h"

// Element tests on the objects of slots. Null slots never match.
struct TqByObject {
  template <class T>
  static bool equal(const T* slot, const T& v) {
    return slot != 0 && *slot == v;
  }
  template <class T>
  static bool less(const T& v, const T* slot) {
    TQ_REQUIRE(slot != 0, "a binary search needs an object in every slot");
    return v < *slot;
  }
  template <class T>
  static bool greater(const T& v, const T* slot) {
    TQ_REQUIRE(slot != 0, "a binary search needs an object in every slot");
    return v > *slot;
  }
};

template <class T>
T& tqObjectOf(T* slot) {
  TQ_REQUIRE(slot != 0, "the slot holds an object");
  return *slot;
}

// Names the type of a slot for the searches.
template <class T>
struct TqSlot {
  static T* const* none() { return 0; }
};

template <class S>
bool tqIsEmptyData(const S& slots, TqLong i) {
  return !slots.IsValidIndex(i) || slots.GetAt(i) == 0;
}

template <class S>
bool tqIsCurEmpty(const S& slots) {
  // Reading the slot needs the virtual operation, which isn't const though it changes nothing.
  return slots.IsOut() || const_cast<S&>(slots).GetCurData() == 0;
}

template <class T>
TqLong tqGetDataNum(const TqDynArrayBase<T*>& slots) {
  TqLong count = 0;
  for (T* const* p = slots.GetFirst(); p != 0; p = slots.GetNext(p))
    if (*p != 0) ++count;
  return count;
}

// The first empty slot; one behind the end counts as empty. The cursor ends there.
template <class T>
TqLong tqPlaceIn(TqDynArrayBase<T*>& slots, T* object) {
  TqLong i = 0;
  for (T* const* p = slots.GetFirst(); p != 0 && *p != 0; p = slots.GetNext(p)) ++i;
  slots[i] = object;
  return i;
}

template <class S>
void tqReleaseCur(S& slots) {
  if (slots.IsOut() || slots.GetCurData() == 0) return;
  delete slots.GetCurData();
  slots.GetCurData() = 0;
}

template <class S>
void tqReleaseAll(S& slots) {
  for (slots.MoveToFirst(); !slots.IsOut(); slots.MoveToNext()) slots.ReleaseCur();
}

template <class T>
T* tqTakeOffCur(TqDynArrayBase<T*>& slots) {
  if (slots.IsOut()) return 0;
  T* object = slots.GetCurData();
  slots.GetCurData() = 0;
  return object;
}

// Deletes the first slot that holds this pointer, and the object.
template <class T>
TqLong tqFindDelPointer(TqDynArrayBase<T*>& slots, T* object) {
  const TqLong found = slots.Find(object, 0, -1);
  if (found < 0) return 0;
  slots.Del(found);
  return 1;
}

// Moves a pointer: its old slot is nulled before it is deleted, so that no object dies, and nothing
// can change what is moved.
template <class T>
bool tqMovePointer(TqDynArrayBase<T*>& slots, TqLong from, TqLong to) {
  if (from == to || from == to - 1) return false;
  slots.MoveTo(from);
  T* object = slots.GetCurData();
  slots.GetCurData() = 0;
  slots.Insert(to, object);
  if (from <= to) {
    slots.Del(from);
    slots.MoveTo(to - 1);
  } else {
    slots.Del(from + 1);
    slots.MoveTo(to);
  }
  return true;
}

// Same length, and slot by slot both null or equal objects.
template <class T>
bool tqSameObjects(const TqDynArrayBase<T*>& a, const TqDynArrayBase<T*>& b) {
  if (a.GetLength() != b.GetLength()) return false;
  T* const* p = a.GetFirst();
  T* const* q = b.GetFirst();
  for (; p != 0 && q != 0; p = a.GetNext(p), q = b.GetNext(q)) {
    if (*p == 0 && *q == 0) continue;
    if (*p == 0 || *q == 0 || !(**p == **q)) return false;
  }
  return true;
}
