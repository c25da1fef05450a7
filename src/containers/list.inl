// TqList<T>: the operations. Included by its header.
#pragma once

#include "containers/list_sort.h"

template <class T>
TqListNode<T>* tqNewSentinel() {
  TqListNode<T>* sentinel = tqNewNode<TqListNode<T> >();
  sentinel->next = sentinel;
  return sentinel;
}

template <class T>
TqList<T>::TqList(TqLong n) : m_head(tqNewSentinel<T>()) {
  m_current = m_tail = m_head;
  TqList::ReAllocate(n);
}

template <class T>
TqList<T>::TqList(const TqList& other) : TqDynArrayBase<T>(), m_head(tqNewSentinel<T>()) {
  m_current = m_tail = m_head;
  this->DeepCopy(other);
}

template <class T>
TqList<T>::TqList(const TqDynArrayBase<T>& other)
    : TqDynArrayBase<T>(), m_head(tqNewSentinel<T>()) {
  m_current = m_tail = m_head;
  this->DeepCopy(other);
}

template <class T>
TqList<T>::~TqList() {
  TqList::Reset();
  tqFreeNode(m_head);
}

template <class T>
void TqList<T>::ReAllocate(TqLong n) {
  TqListNode<T>* const current = m_current;
  const TqLong cursor = this->m_cursor;
  while (this->m_length < n) Append(T());
  m_current = current;
  this->m_cursor = cursor;
}

template <class T>
void TqList<T>::SetLength(TqLong n, bool /*keep*/) {
  while (this->m_length > n && this->m_length > 0) this->DelTail();
  this->ReAllocate(n);
}

template <class T>
void TqList<T>::Reset() {
  m_tail->next = 0;
  for (TqListNode<T>* node = m_head == m_tail ? 0 : m_head->next; node != 0;) {
    TqListNode<T>* const next = node->next;
    tqFreeNode(node);
    node = next;
  }
  m_current = m_tail = m_head;
  m_head->next = m_head;
  this->m_length = 0;
  this->m_cursor = -1;
}

template <class T>
void TqList<T>::MoveToFirst() {
  m_current = m_head->next;
  this->m_cursor = m_current == m_head ? -1 : 0;
}

template <class T>
void TqList<T>::MoveToNext() {
  m_current = m_current->next;
  ++this->m_cursor;
  if (m_current == m_head) this->m_cursor = -1;
}

template <class T>
void TqList<T>::MoveToPre() {
  if (this->m_cursor == -1)
    this->MoveToLast();
  else
    this->MoveTo(this->m_cursor - 1);
}

template <class T>
void TqList<T>::MoveToLast() {
  m_current = m_tail;
  this->m_cursor = this->m_length - 1;
}

template <class T>
void TqList<T>::MoveTo(TqLong i) {
  if (!this->IsValidIndex(i)) {
    this->m_cursor = -1;
    m_current = m_head;
    return;
  }
  if (i == this->m_length - 1) {
    this->MoveToLast();
    return;
  }
  if (i < this->m_cursor) TqList::MoveToFirst();
  while (this->m_cursor != i) TqList::MoveToNext();
}

template <class T>
const T* TqList<T>::GetNext(const T* p) const {
  if (p == 0 || p == &m_tail->data) return 0;
  return &reinterpret_cast<const TqListNode<T>*>(p)->next->data;
}

template <class T>
const T* TqList<T>::GetPre(const T* p) const {
  if (p == 0 || p == &m_head->next->data) return 0;
  if (p == &m_current->next->data) return &m_current->data;
  const TqListNode<T>* node = m_head->next;
  for (TqLong i = 0; i < this->m_length; ++i, node = node->next)
    if (p == &node->next->data) return &node->data;
  return 0;
}

template <class T>
const T& TqList<T>::GetAt(TqLong i) const {
  const TqListNode<T>* node = m_current;
  TqLong at = this->m_cursor;
  if (i < at) {
    node = m_head;
    at = -1;
  }
  for (; at < i; ++at) node = node->next;
  return node->data;
}

template <class T>
void TqList<T>::InsertCur(const T& v) {
  this->MoveToPre();
  InsertAfterCur(v);
}

template <class T>
void TqList<T>::Insert(TqLong i, const T& v) {
  this->MoveTo(i - 1);
  InsertAfterCur(v);
}

template <class T>
void TqList<T>::InsertHead(const T& v) {
  this->MoveTo(-1);
  InsertAfterCur(v);
}

template <class T>
TqLong TqList<T>::Append(const T& v) {
  this->MoveToLast();
  InsertAfterCur(v);
  return this->m_length - 1;
}

template <class T>
void TqList<T>::InsertAfterCur(const T& v) {
  TqListNode<T>* node = tqNewNode<TqListNode<T> >();
  node->data = v;
  node->next = m_current->next;
  m_current->next = node;
  if (m_current == m_tail) m_tail = node;
  m_current = node;
  ++this->m_length;
  ++this->m_cursor;
}

template <class T>
void TqList<T>::DelCur() {
  TQ_REQUIRE(m_current != m_head, "the cursor is on the element that is deleted");
  TqListNode<T>* const node = m_current;
  this->MoveToPre();
  TQ_REQUIRE(m_current->next == node, "after ReverseList the cursor is moved before a deletion");
  m_current->next = node->next;
  if (node == m_tail) m_tail = m_current;
  tqFreeNode(node);
  --this->m_length;
}

template <class T>
void TqList<T>::Sort(int (*compare)(const T&, const T&)) {
  TqListSort::forward(*this, TqAfterByCompare<T>(compare));
}

template <class T>
void TqList<T>::Sort(bool ascending) {
  if (ascending)
    TqListSort::forward(*this, TqAfterAscending<T>());
  else
    TqListSort::forward(*this, TqAfterDescendingList<T>());
}

template <class T>
void TqList<T>::DetachAfterCur() {
  m_current->next = m_head;
  m_tail = m_current;
  this->m_length = this->m_cursor + 1;
}

template <class T>
TqLong TqList<T>::Conbine(TqList& other, TqLong from) {
  TQ_REQUIRE(&other != this, "a list isn't joined to itself");
  if (!other.IsValidIndex(from)) return this->m_length;
  other.MoveTo(from);
  TqListNode<T>* const first = other.m_current;
  TqListNode<T>* const last = other.m_tail;
  this->m_length += other.m_length - from;
  other.DetachAfter(from - 1);
  m_tail->next = first;
  m_tail = last;
  m_tail->next = m_head;
  return this->m_length;
}

template <class T>
void TqList<T>::ReverseList() {
  if (this->m_length < 2) return;
  TqListNode<T>* const oldFirst = m_head->next;
  TqListNode<T>* before = m_head;
  for (TqListNode<T>* node = oldFirst; node != m_head;) {
    TqListNode<T>* const next = node->next;
    node->next = before;
    before = node;
    node = next;
  }
  m_head->next = before;
  m_tail = oldFirst;
}

template <class T>
void TqList<T>::Rotate(TqLong from, TqLong to) {
  if (from == to) return;
  TQ_REQUIRE(this->IsValidIndex(from) && this->IsValidIndex(to),
             "elements rotate inside of the list");
  const TqLong n = this->m_length;
  const TqLong newFirst = (from - to + n) % n;
  this->MoveTo((newFirst + n - 1) % n);
  TqListNode<T>* const newLast = m_current;
  this->MoveTo(newFirst);
  m_tail->next = m_head->next;
  m_head->next = m_current;
  this->m_cursor = 0;
  m_tail = newLast;
  m_tail->next = m_head;
}
