// TqPDList<T>: a TqDList<T*> that owns the objects its elements point to; an element may be null.
//
//   TqPDList<Edge> edges;
//   edges.Append(new Edge(4));
//   if (edges.FindDataOrAppend(Edge(4)) == 0) { /* found: no second object was made */ }
//
// The words are those of TqDynPArray, and so is the rule of ownership: the copy constructor and
// assignment copy pointers, not objects. Assignment here releases nothing but what a shorter source
// cuts off: call Reset first, or the objects of the overwritten elements are lost.
// Sorting moves pointers and deletes no object, in every form.
#pragma once

#include "containers/d_list.h"
#include "containers/owning_list.h"

template <class T>
class TqPDList : public TqDList<T*> {
 public:
  // n empty places.
  TqPDList(TqLong n = 0) : TqDList<T*>(0) {
    this->m_head->data = 0;
    if (n >= 1) ReAllocate(n);
  }
  TqPDList(const TqPDList& other) : TqDList<T*>(other) { this->m_head->data = 0; }
  virtual ~TqPDList() { ReleaseAll(); }
  TqPDList& operator=(const TqPDList& other) {
    TqDList<T*>::operator=(other);
    return *this;
  }

  virtual void Reset() {
    tqDeleteObjects(this->m_head);
    TqDList<T*>::Reset();
  }
  // Deletes the object too.
  virtual void DelCur() {
    delete this->m_current->data;
    TqDList<T*>::DelCur();
  }
  virtual bool Move(TqLong from, TqLong to) { return tqMovePointer<T>(*this, from, to); }

  // Sorts by the objects; every element must have one. The inherited form compares pointers.
  using TqDList<T*>::Sort;
  virtual void Sort(bool ascending) { tqSortObjects<T>(*this, ascending); }
  virtual void Sort(int (*compare)(const T&, const T&)) {
    TqListSort::backward<T*>(*this, tqOnObjects(TqAfterByCompare<T>(compare)));
  }

  // The first match from `from` to `to`, both included; false with the cursor behind the range, or
  // at -1 when it reaches the end.
  bool FindDataTo(const T& v, TqLong from = 0, TqLong to = -1);

  // The owning set: IsEmptyData, PlaceIn, TakeOff, FindData and the rest.
#define TQ_OWNER TqPDList
#include "containers/owning_list_members.inl"
#include "containers/owning_set_members.inl"
#undef TQ_OWNER

 protected:
  // Appends empty places up to n.
  virtual void ReAllocate(TqLong n) { TqDList<T*>::ReAllocate(n); }
};

template <class T>
bool TqPDList<T>::FindDataTo(const T& v, TqLong from, TqLong to) {
  if (to < 0 || to >= this->m_length) to = this->m_length - 1;
  for (this->MoveTo(from); !this->IsOut() && this->m_cursor <= to; this->MoveToNext())
    if (TqByObject::equal(this->m_current->data, v)) return true;
  return false;
}
