// TqListNode<T>: an element of a list and the link to the next one. The element stands first, so
// that a pointer to a node is also a pointer to its element: the walk by GetFirst and GetNext of
// the lists rests on it.
#pragma once

#include "containers/basics.h"

template <class T>
struct TqListNode {
  TqListNode() : next(0) {}

  T data;
  TqListNode* next;
};

// Nodes are made and freed one by one. They are freed by their base, which knows all that there is
// to destroy; so the storage is handled apart from the class.
template <class Node>
Node* tqNewNode() {
  return ::new (::operator new(sizeof(Node))) Node;
}

template <class T>
void tqFreeNode(TqListNode<T>* node) {
  node->~TqListNode<T>();
  ::operator delete(node);
}
