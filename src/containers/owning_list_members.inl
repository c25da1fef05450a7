// The members that both lists of owned objects have beside the owning set, for the bodies of their
// classes. No #pragma once: both include it.

  // Deletes the object at the cursor; the element stays and is null.
  void ReleaseCur() { tqReleaseCur(*this); }
  void Release(TqLong i) {
    this->MoveTo(i);
    ReleaseCur();
  }
  // Deletes all objects; the elements stay. The cursor ends at -1.
  void ReleaseAll() { tqReleaseAll(*this); }
  // Hands the object at the cursor to the caller; the element stays and is null. Null if the cursor
  // is out.
  T* TakeOffCur() { return tqTakeOffCur<T>(*this); }
  // Index of the first object that equals v; if there is none, a copy of v is appended.
  TqLong FindDataOrAppend(const T& v) { return tqFindDataOrAppend(*this, v); }
  void FindDataOrInsertHead(const T& v) { tqFindDataOrInsertHead(*this, v); }

