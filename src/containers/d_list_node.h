// TqDListNode<T>: the node of the lists that are linked both ways.
#pragma once

#include "containers/list_node.h"

template <class T>
struct TqDListNode : TqListNode<T> {
  TqDListNode() : previous(0) {}

  TqListNode<T>* previous;
};

// The link back, of a node that is known to have one.
template <class T>
TqListNode<T>*& tqPrevious(TqListNode<T>* node) {
  return static_cast<TqDListNode<T>*>(node)->previous;
}
template <class T>
TqListNode<T>* tqPrevious(const TqListNode<T>* node) {
  return static_cast<const TqDListNode<T>*>(node)->previous;
}
