// TqXList<T>: a TqDList with an index that points to the first node of every group of elements, so
// that MoveTo jumps near its target and walks at most a group.
//
//   TqXList<Part*> parts(0, 50);       // groups of 50
//   for (TqLong i = 0; i < count; ++i) parts.Append(part[i]);
//   parts.MoveTo(count / 2);           // at most 49 steps
//
// - Each insert and delete goes over the index from the group it happens in, one step an entry.
// - The group size is at least 1; 0 divides by zero. With groups of 1 the index neither grows nor
//   shrinks after construction.
// - After a cut (DetachAfter, SplitAt, being the source of Conbine) that leaves a partial last
//   group, the index is one entry short. The contents stay right, but when the list has grown
//   again MoveTo may arrive with a wrong cursor number until ReverseList, Rotate or Reset rebuild
//   the index. This is meant; other modules get this result. An entry is never left on a node that
//   is gone.
// - A copy takes over the entries as they are: they point to the source's nodes. It is sound only
//   after Reset, ReverseList or Rotate, and until then only while the source lives.
// - After Rotate, ReverseList and Conbine the cursor is where the rebuilding leaves it: on the
//   first element of the last group that was added.
#pragma once

#include "containers/d_list.h"
#include "containers/dyn_array.h"

template <class T>
class TqXList : public TqDList<T> {
 public:
  // n default elements, groups of `groupSize`, and an index that grows by `unit`.
  TqXList(TqLong n = 0, TqLong groupSize = 25, TqLong unit = 100)
      : TqDList<T>(n), m_index(0, unit), m_groupSize(groupSize) {
    UpdateGroup(0);
  }
  TqXList(const TqXList& other)
      : TqDList<T>(other), m_index(other.m_index), m_groupSize(other.m_groupSize) {}
  virtual ~TqXList() {}
  TqXList& operator=(const TqXList& other) {
    TqDList<T>::operator=(other);
    m_index = other.m_index;
    m_groupSize = other.m_groupSize;
    return *this;
  }

  virtual void Reset() {
    m_index.Reset();
    TqDList<T>::Reset();
  }
  virtual void MoveTo(TqLong i);
  virtual void DelCur();
  virtual void InsertAfterCur(const T& v);
  virtual void DetachAfterCur();
  virtual TqLong Conbine(TqList<T>& other, TqLong from);
  virtual void ReverseList() {
    m_index.Reset();
    TqDList<T>::ReverseList();
    UpdateGroup(0);
  }
  virtual void Rotate(TqLong from, TqLong to) {
    m_index.Reset();
    TqDList<T>::Rotate(from, to);
    UpdateGroup(0);
  }

 protected:
  // Appends entries for the groups from g on; moves the cursor.
  void UpdateGroup(TqLong g) {
    for (TqLong i = g * m_groupSize; i < this->m_length; i += m_groupSize) {
      TqDList<T>::MoveTo(i);
      m_index.Append(this->m_current);
    }
  }

  TqDynArray<TqListNode<T>*> m_index;  // entry g is the node at g * m_groupSize
  TqLong m_groupSize;
};

#include "containers/x_list.inl"
