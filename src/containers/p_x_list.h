// TqPXList<T>: a TqXList<T*> that owns the objects its elements point to; an element may be null.
//
//   TqPXList<Node> nodes(0, 50);
//   nodes.Append(new Node(1));
//   Node* mine = nodes.TakeOff(0);     // no longer owned; the element stays, empty
//
// All that TqPDList says holds here, and all that TqXList says of its index and of copies.
#pragma once

#include "containers/owning_list.h"
#include "containers/x_list.h"

template <class T>
class TqPXList : public TqXList<T*> {
 public:
  // n empty places, groups of `groupSize`, and an index that grows by `unit`.
  TqPXList(TqLong n = 0, TqLong groupSize = 25, TqLong unit = 100)
      : TqXList<T*>(0, groupSize, unit) {
    this->m_head->data = 0;
    if (n >= 1) ReAllocate(n);
  }
  TqPXList(const TqPXList& other) : TqXList<T*>(other) { this->m_head->data = 0; }
  virtual ~TqPXList() { ReleaseAll(); }
  TqPXList& operator=(const TqPXList& other) {
    TqXList<T*>::operator=(other);
    return *this;
  }

  virtual void Reset() {
    tqDeleteObjects(this->m_head);
    TqXList<T*>::Reset();
  }
  // Deletes the object too.
  virtual void DelCur() {
    delete this->m_current->data;
    TqXList<T*>::DelCur();
  }
  virtual bool Move(TqLong from, TqLong to) { return tqMovePointer<T>(*this, from, to); }

  // Sorts by the objects; every element must have one. The inherited form compares pointers.
  using TqXList<T*>::Sort;
  virtual void Sort(bool ascending) { tqSortObjects<T>(*this, ascending); }
  virtual void Sort(int (*compare)(const T&, const T&)) {
    TqListSort::backward<T*>(*this, tqOnObjects(TqAfterByCompare<T>(compare)));
  }

  // The owning set: IsEmptyData, PlaceIn, TakeOff, FindData and the rest.
#define TQ_OWNER TqPXList
#include "containers/owning_list_members.inl"
#include "containers/owning_set_members.inl"
#undef TQ_OWNER

 protected:
  // Appends empty places up to n.
  virtual void ReAllocate(TqLong n) { TqXList<T*>::ReAllocate(n); }
  // Hides the base's SetAll, which would write one pointer to all elements. Does nothing.
  void SetAll(const T* /*object*/) {}
};
