// What the two lists of owned objects share beside the owning set.
#pragma once

#include "containers/list.h"
#include "containers/owning_set.h"

// Deletes the objects of all elements of the ring; the pointers stay as they are.
template <class T>
void tqDeleteObjects(TqListNode<T*>* sentinel) {
  for (TqListNode<T*>* node = sentinel->next; node != sentinel; node = node->next)
    delete node->data;
}

template <class T>
void tqSortObjects(TqList<T*>& list, bool ascending) {
  if (ascending)
    TqListSort::backward<T*>(list, tqOnObjects(TqAfterAscending<T>()));
  else
    TqListSort::backward<T*>(list, tqOnObjects(TqAfterDescendingList<T>()));
}

// The index of the first object that equals v, or of a copy that is made and appended.
template <class T, class List>
TqLong tqFindDataOrAppend(List& list, const T& v) {
  const TqLong found = list.FindData(v, 0, list.GetLength() - 1);
  return found >= 0 ? found : list.Append(new T(v));
}

template <class T, class List>
void tqFindDataOrInsertHead(List& list, const T& v) {
  if (list.FindData(v, 0, list.GetLength() - 1) < 0) list.InsertHead(new T(v));
}
