// The lists' insertion sorts. Each element that has to move is inserted anew and its old
// node deleted, through the virtual operations, so that every kind of list keeps its own books.
#pragma once

#include "containers/list_node.h"

// A pointer that has moved on is forgotten, lest an owning list deletes the object with the old
// node.
template <class T>
inline void tqForget(T& /*value*/) {}
template <class T>
inline void tqForget(T*& pointer) {
  pointer = 0;
}

template <class T>
class TqList;

struct TqListSort {
  // Looks for the place from the front. `after(a, b)`: must a go after b?
  template <class T, class After>
  static void forward(TqList<T>& list, After after) {
    if (list.GetLength() < 2) return;
    list.MoveToFirst();
    for (list.MoveToNext(); list.m_cursor >= 0; list.MoveToNext()) {
      TqListNode<T>* const source = list.m_current;
      const TqLong place = list.m_cursor;
      TqListNode<T>* before = list.m_head;
      list.MoveToFirst();
      while (list.m_cursor < place && !after(list.m_current->data, source->data)) {
        before = list.m_current;
        list.MoveToNext();
      }
      if (list.m_cursor < place) move(list, before, list.m_cursor - 1, source, place);
    }
  }

  // Looks for the place backwards from the element: one comparison for each that stands right.
  template <class T, class After>
  static void backward(TqList<T>& list, After after) {
    if (list.GetLength() < 2) return;
    list.MoveToFirst();
    for (list.MoveToNext(); list.m_cursor >= 0; list.MoveToNext()) {
      TqListNode<T>* const source = list.m_current;
      const TqLong place = list.m_cursor;
      list.MoveToPre();
      if (!after(list.m_current->data, source->data)) {
        list.MoveToNext();
        continue;
      }
      while (list.m_cursor >= 0 && after(list.m_current->data, source->data)) list.MoveToPre();
      move(list, list.m_current, list.m_cursor, source, place);
    }
  }

 private:
  // Inserts the element of `source`, at `place`, behind the node `before`, and deletes the source.
  // The cursor is then at `place`, on the node that stood before the source.
  template <class T>
  static void move(TqList<T>& list, TqListNode<T>* before, TqLong index, TqListNode<T>* source,
                   TqLong place) {
    list.m_current = before;
    list.m_cursor = index;
    list.InsertAfterCur(source->data);
    list.m_current = source;
    list.m_cursor = place + 1;
    tqForget(source->data);
    list.DelCur();
  }
};
