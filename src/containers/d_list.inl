// TqDList<T>: the operations. Included by its header. Where TqList's operation leaves only the
// links back to be set, it is called and they are set here.
#pragma once

// Puts a sentinel of the larger kind in the place of the one that TqList has made.
template <class T>
void tqWidenSentinel(TqListNode<T>*& head, TqListNode<T>*& tail, TqListNode<T>*& current) {
  tqFreeNode(head);
  head = tail = current = tqNewNode<TqDListNode<T> >();
  head->next = tqPrevious(head) = head;
}

template <class T>
TqDList<T>::TqDList(TqLong n) : TqList<T>(0) {
  tqWidenSentinel(this->m_head, this->m_tail, this->m_current);
  this->ReAllocate(n);
}

template <class T>
TqDList<T>::TqDList(const TqDList& other) : TqList<T>(0) {
  tqWidenSentinel(this->m_head, this->m_tail, this->m_current);
  this->DeepCopy(other);
}

template <class T>
TqDList<T>::TqDList(const TqDynArrayBase<T>& other) : TqList<T>(0) {
  tqWidenSentinel(this->m_head, this->m_tail, this->m_current);
  this->DeepCopy(other);
}

template <class T>
void TqDList<T>::Reset() {
  TqList<T>::Reset();
  tqPrevious(this->m_head) = this->m_head;
}

template <class T>
void TqDList<T>::MoveToPre() {
  this->m_current = tqPrevious(this->m_current);
  --this->m_cursor;
  if (this->m_current == this->m_tail) this->m_cursor = this->m_length - 1;
}

template <class T>
void TqDList<T>::MoveTo(TqLong i) {
  if (i == 0 && this->m_length != 0) {
    this->m_current = this->m_head->next;
    this->m_cursor = 0;
    return;
  }
  if (!this->IsValidIndex(i) || i == this->m_length - 1) {
    TqList<T>::MoveTo(i);
    return;
  }
  while (this->m_cursor > i) TqDList::MoveToPre();
  while (this->m_cursor < i) TqList<T>::MoveToNext();
}

template <class T>
const T* TqDList<T>::GetPre(const T* p) const {
  if (p == 0 || p == &this->m_head->next->data) return 0;
  return &tqPrevious(reinterpret_cast<const TqListNode<T>*>(p))->data;
}

template <class T>
const T& TqDList<T>::GetAt(TqLong i) const {
  const TqListNode<T>* node = this->m_current;
  TqLong at = this->m_cursor;
  for (; at < i; ++at) node = node->next;
  for (; at > i; --at) node = tqPrevious(node);
  return node->data;
}

template <class T>
void TqDList<T>::InsertAfterCur(const T& v) {
  TqDListNode<T>* node = tqNewNode<TqDListNode<T> >();
  node->data = v;
  node->next = this->m_current->next;
  node->previous = this->m_current;
  tqPrevious(node->next) = node;
  this->m_current->next = node;
  if (this->m_current == this->m_tail) this->m_tail = node;
  this->m_current = node;
  ++this->m_length;
  ++this->m_cursor;
}

template <class T>
void TqDList<T>::DelCur() {
  TqListNode<T>* const next = this->m_current->next;
  TqList<T>::DelCur();
  tqPrevious(next) = this->m_current;
}

template <class T>
void TqDList<T>::Sort(int (*compare)(const T&, const T&)) {
  TqListSort::backward<T>(*this, TqAfterByCompare<T>(compare));
}

template <class T>
void TqDList<T>::Sort(bool ascending) {
  if (ascending)
    TqListSort::backward<T>(*this, TqAfterAscending<T>());
  else
    TqListSort::backward<T>(*this, TqAfterDescendingList<T>());
}

template <class T>
void TqDList<T>::DetachAfterCur() {
  TqList<T>::DetachAfterCur();
  tqPrevious(this->m_head) = this->m_current;
}

template <class T>
TqLong TqDList<T>::Conbine(TqList<T>& other, TqLong from) {
  TqListNode<T>* const oldTail = this->m_tail;
  TqList<T>::Conbine(other, from);
  tqPrevious(oldTail->next) = oldTail;
  tqPrevious(this->m_head) = this->m_tail;
  return this->m_length;
}

template <class T>
void TqDList<T>::ReverseList() {
  if (this->m_length < 2) return;
  TqList<T>::ReverseList();
  TqListNode<T>* node = this->m_head;
  do {
    tqPrevious(node->next) = node;
    node = node->next;
  } while (node != this->m_head);
}

template <class T>
void TqDList<T>::Rotate(TqLong from, TqLong to) {
  if (from == to) return;
  TqListNode<T>* const oldFirst = this->m_head->next;
  TqListNode<T>* const oldTail = this->m_tail;
  TqList<T>::Rotate(from, to);
  tqPrevious(oldFirst) = oldTail;
  tqPrevious(this->m_head->next) = this->m_head;
  tqPrevious(this->m_head) = this->m_tail;
}
