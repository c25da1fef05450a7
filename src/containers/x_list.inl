// TqXList<T>: the upkeep of the index. Included by its header.
#pragma once

// The first group that begins at or behind the element with this index.
inline TqLong tqFirstGroupFrom(TqLong element, TqLong groupSize) {
  return element == 0 ? 0 : (element - 1) / groupSize + 1;
}

// Sets entry g, or drops it if that would be the sentinel; returns the entry to go on with.
template <class T>
TqLong tqSetEntry(TqDynArray<TqListNode<T>*>& index, TqLong g, TqListNode<T>* node,
                  const TqListNode<T>* sentinel) {
  if (node == sentinel) {
    index.Del(g);
    return g;
  }
  index[g] = node;
  return g + 1;
}

template <class T>
void TqXList<T>::MoveTo(TqLong i) {
  const TqLong g = i / m_groupSize;
  if (m_index.IsValidIndex(g)) {
    this->m_current = m_index.GetAt(g);
    this->m_cursor = g * m_groupSize;
  }
  TqDList<T>::MoveTo(i);
}

template <class T>
void TqXList<T>::InsertAfterCur(const T& v) {
  TqDList<T>::InsertAfterCur(v);
  // Every group that begins behind the new element begins one node earlier now.
  for (TqLong g = tqFirstGroupFrom(this->m_cursor, m_groupSize); g < m_index.GetLength();)
    g = tqSetEntry(m_index, g, tqPrevious(m_index.GetAt(g)), this->m_head);
  if (this->m_length % m_groupSize == 1) m_index.Append(this->m_tail);
}

template <class T>
void TqXList<T>::DelCur() {
  // The last group is about to be empty.
  if (this->m_length % m_groupSize == 1 && !m_index.IsEmpty()) m_index.DelTail();
  const TqLong first = tqFirstGroupFrom(this->m_cursor, m_groupSize);
  for (TqLong g = 0; g < m_index.GetLength();) {
    TqListNode<T>* entry = m_index.GetAt(g);
    if (g >= first) entry = entry->next;
    // Only an index that is short of entries can still have the node that goes.
    if (entry == this->m_current) entry = entry->next;
    g = tqSetEntry(m_index, g, entry, this->m_head);
  }
  TqDList<T>::DelCur();
}

template <class T>
void TqXList<T>::DetachAfterCur() {
  TqDList<T>::DetachAfterCur();
  // Whole groups only: a part of one loses its entry. This is meant.
  const TqLong groups = this->m_length / m_groupSize;
  if (groups < m_index.GetLength()) m_index.ReAllocate(groups);
}

template <class T>
TqLong TqXList<T>::Conbine(TqList<T>& other, TqLong from) {
  TqDList<T>::Conbine(other, from);
  UpdateGroup(m_index.GetLength());
  return this->m_length;
}
