// TqDList<T>: the list that is linked both ways. It adds no names to TqList: MoveToPre and DelCur
// take one step, MoveTo and GetAt walk from where the cursor stands, and Sort looks backwards, so
// that a sorted list costs one comparison for each element.
//
//   TqDList<int> stops;
//   stops << 3 << 1 << 2;
//   stops.Sort(true);
//   for (stops.MoveToLast(); !stops.IsOut(); stops.MoveToPre()) use(stops.GetCurData());
//
// Conbine and the splits must be given a list that is linked both ways too: nodes are taken over as
// they are.
#pragma once

#include "containers/d_list_node.h"
#include "containers/list.h"

template <class T>
class TqDList : public TqList<T> {
 public:
  TqDList(TqLong n = 0);
  TqDList(const TqDList& other);
  TqDList(const TqDynArrayBase<T>& other);
  TqDList& operator=(const TqDList& other) {
    this->DeepCopy(other);
    return *this;
  }
  TqDList& operator=(const TqDynArrayBase<T>& other) {
    this->DeepCopy(other);
    return *this;
  }

  virtual void Reset();
  virtual void MoveToPre();
  virtual void MoveTo(TqLong i);
  virtual const T* GetPre(const T* p) const;
  virtual const T& GetAt(TqLong i) const;
  virtual void DelCur();
  virtual void Sort(int (*compare)(const T&, const T&));
  virtual void Sort(bool ascending);
  virtual void InsertAfterCur(const T& v);
  virtual void DetachAfterCur();
  virtual TqLong Conbine(TqList<T>& other, TqLong from);
  virtual void ReverseList();
  virtual void Rotate(TqLong from, TqLong to);
};

#include "containers/d_list.inl"
