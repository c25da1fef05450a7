// The members that all sequences of owned objects have, for the bodies of their classes: T is the
// class of the objects, TQ_OWNER the class that is being declared. No #pragma once: every owner
// includes it.

  // True for an invalid index too.
  bool IsEmptyData(TqLong i) const { return tqIsEmptyData(*this, i); }
  bool IsCurEmpty() const { return tqIsCurEmpty(*this); }
  // Number of slots with an object. O(length).
  TqLong GetDataNum() const { return tqGetDataNum<T>(*this); }
  // The object at i; grows and moves the cursor as operator[] does. The slot must not be null.
  T& operator()(TqLong i) { return tqObjectOf((*this)[i]); }
  const T& GetPData(TqLong i) const { return tqObjectOf(this->GetAt(i)); }
  T& GetCurPData() { return tqObjectOf(this->GetCurData()); }
  // Takes an object into the first empty slot, a new one at the end if there is none; returns the
  // index, where the cursor is then.
  TqLong PlaceIn(T* object) { return tqPlaceIn<T>(*this, object); }
  // Moves the cursor and takes off; null for an index outside.
  T* TakeOff(TqLong i) {
    this->MoveTo(i);
    return TakeOffCur();
  }
  T* TakeOffHead() {
    this->MoveToFirst();
    return TakeOffCur();
  }
  T* TakeOffTail() {
    this->MoveToLast();
    return TakeOffCur();
  }
  // Deletes the first slot that holds this pointer, and the object: 1, or 0 if there is none.
  TqLong FindDel(T* object) { return tqFindDelPointer<T>(*this, object); }
  // Searches by objects; null slots never match. Ranges as in the base.
  TqLong FindData(const T& v, TqLong from = 0, TqLong to = -1) const {
    return tqFind<TqByObject>(*this, TqSlot<T>::none(), v, from, to);
  }
  TqLong FindData(const T& v, TqQuene<TqLong>& queue, TqLong from = 0, TqLong to = -1) const {
    return tqFindAll<TqByObject>(*this, TqSlot<T>::none(), v, queue, from, to);
  }
  // Deletes every slot whose object equals v, which must not be one of them; returns how many.
  TqLong FindDataDel(const T& v) { return tqFindDel<TqByObject>(*this, v); }
  // Binary searches by objects; every slot must hold one.
  TqLong BFindData(const T& v, TqLong from = 0, TqLong to = -1) const {
    return tqBFind<TqByObject>(*this, v, from, to);
  }
  bool BFindDataTo(const T& v, TqLong from = 0, TqLong to = -1) {
    return tqBFindTo<TqByObject>(*this, v, from, to);
  }
  // On false the object stays the caller's.
  bool SortInto(T* object, bool duplicates) {
    return tqSortInto<TqByObject>(*this, object, *object, duplicates);
  }
  bool operator==(const TQ_OWNER& other) const { return tqSameObjects<T>(*this, other); }
  bool operator!=(const TQ_OWNER& other) const { return !(*this == other); }
