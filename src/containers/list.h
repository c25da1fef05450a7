// TqList<T>: the cursor interface over a circular chain of nodes with one sentinel, linked forward.
//
//   TqList<int> route;
//   route << 1 << 2 << 3;
//   TqList<int> rest;
//   route.SplitAt(1, rest);      // route: 1; rest: 2, 3; no element was copied
//   for (route.MoveToFirst(); !route.IsOut(); route.MoveToNext()) use(route.GetCurData());
//
// What differs from the arrays, and is meant:
// - The cursor is the index of the current node, or -1 at the sentinel. A walk that runs off the
//   end stands at -1, not at the length: IsOut and IsBegin are true, IsEnd is false. One more
//   MoveToNext starts over at the first element.
// - MoveTo of an invalid index goes to the sentinel, so Insert beyond the length lands at the head.
// - MoveToFirst of an empty list leaves the cursor at -1.
// - SetLength always keeps the elements; a smaller ReAllocate does nothing.
// - After ReverseList the cursor's number and its node disagree until the next MoveTo to an end or
//   over the sentinel; DelCur then breaks the chain.
// - At the sentinel GetCurData is the sentinel's own element, which belongs to nobody.
// - A list owns its nodes and their elements; what an element points to it doesn't own.
// - GetFirst and GetNext hand out the addresses of nodes, good until the element is deleted.
// Costs: appending and stepping forward are constant; MoveToPre, GetPre and DelCur walk from the
// front.
#pragma once

#include "containers/dyn_array_base.h"
#include "containers/list_node.h"

template <class T>
class TqList : public TqDynArrayBase<T> {
 public:
  // n default elements.
  TqList(TqLong n = 0);
  TqList(const TqList& other);
  TqList(const TqDynArrayBase<T>& other);
  virtual ~TqList();
  TqList& operator=(const TqList& other) {
    this->DeepCopy(other);
    return *this;
  }
  TqList& operator=(const TqDynArrayBase<T>& other) {
    this->DeepCopy(other);
    return *this;
  }

  // Deletes from the tail down to n, or appends default elements up to n; `keep` has no effect.
  virtual void SetLength(TqLong n, bool keep);
  virtual void Reset();
  virtual T& GetCurData() { return m_current->data; }
  virtual void SetCurData(const T& v) { m_current->data = v; }

  virtual void MoveToFirst();
  virtual void MoveToNext();
  // From -1 to the tail; otherwise a walk from the front.
  virtual void MoveToPre();
  virtual void MoveToLast();
  virtual void MoveTo(TqLong i);
  virtual const T* GetFirst() const { return this->m_length == 0 ? 0 : &m_head->next->data; }
  virtual const T* GetNext(const T* p) const;
  virtual const T* GetPre(const T* p) const;
  virtual const T* GetLast() const { return this->m_length == 0 ? 0 : &m_tail->data; }
  // Walks from the current node if i isn't before it. Any i passes; one outside of the list gives
  // some element of the ring.
  virtual const T& GetAt(TqLong i) const;

  // The new element takes the cursor's place; at -1 it is appended.
  virtual void InsertCur(const T& v);
  virtual void Insert(TqLong i, const T& v);
  virtual void InsertHead(const T& v);
  virtual TqLong Append(const T& v);
  // The cursor must not be at the sentinel.
  virtual void DelCur();
  // Stable insertion sorts; nodes are made and freed. The cursor ends at -1.
  virtual void Sort(int (*compare)(const T&, const T&));
  virtual void Sort(bool ascending);

  // A new element behind the current one, onto which the cursor moves; at the sentinel, the head.
  virtual void InsertAfterCur(const T& v);
  // Cuts off everything behind the cursor. The nodes aren't freed: Conbine takes them over. Called
  // for any other purpose they stay allocated and belong to nobody, as with Detach and DetachAfter.
  virtual void DetachAfterCur();
  // Moves the nodes of `other` from the index `from` on to the end of this list; returns the new
  // length. Nothing is copied or allocated. The cursor here stays. An invalid `from` changes
  // nothing.
  virtual TqLong Conbine(TqList& other, TqLong from);
  // Reverses by relinking; see above for the cursor.
  virtual void ReverseList();
  // Turns the ring so that the element at `from` comes to `to`, both of them valid indexes (an
  // empty list divides by zero). The cursor ends at 0.
  virtual void Rotate(TqLong from, TqLong to);

  const TqListNode<T>* GetCurPos() const { return m_current; }
  void DetachAfter(TqLong i) {
    this->MoveTo(i);
    DetachAfterCur();
  }
  void Detach() { DetachAfter(-1); }
  // Moves the elements from i, or from the cursor on, to the end of `other`.
  void SplitAt(TqLong i, TqList& other) {
    this->MoveTo(i);
    SplitAtCur(other);
  }
  void SplitAtCur(TqList& other) { other.Conbine(*this, this->m_cursor); }

 protected:
  friend struct TqListSort;

  // Appends default elements up to n; cursor and current node stay.
  virtual void ReAllocate(TqLong n);

  TqListNode<T>* m_current;
  TqListNode<T>* m_head;  // the sentinel
  TqListNode<T>* m_tail;  // the sentinel when empty
};

#include "containers/list.inl"
