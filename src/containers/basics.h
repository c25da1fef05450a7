// What every header of the family stands on: the index type, the preconditions, the block copy.
// The headers are C++98 and need no library, so that modules of any compiler can include them.
#pragma once

#include <cassert>
#include <cstddef>
#include <new>

// The family's signed 32-bit integer. It is `long` where that has 32 bits, since the exported names
// contain it.
#ifdef _WIN32
typedef long TqLong;
#else
typedef int TqLong;
#endif

// A precondition. Debug builds stop with the sentence; release builds trust the caller.
#define TQ_REQUIRE(condition, sentence) assert((condition) && (sentence))

// A queue of indexes that searches fill. It belongs to another module; the family calls Add(TqLong)
// and GetCount().
template <class T>
class TqQuene;

// Copying of elements inside and between arrays. Where the compiler knows that assignment is a
// plain copy of bytes, the elements go in one block; all others are assigned one by one, in the
// order in which no element is overwritten before it is read.
template <bool plain>
struct TqElements {
  template <class T>
  static void copy(T* to, const T* from, TqLong count) {
    for (TqLong i = 0; i < count; ++i) to[i] = from[i];
  }
  template <class T>
  static void copyUp(T* to, const T* from, TqLong count) {
    for (TqLong i = count; i > 0; --i) to[i - 1] = from[i - 1];
  }
};

#if defined(__GNUC__) || defined(__clang__)
#define TQ_PLAIN_COPY(T) __is_trivially_copyable(T)

template <>
struct TqElements<true> {
  template <class T>
  static void copy(T* to, const T* from, TqLong count) {
    if (count <= 0) return;
    __builtin_memmove(static_cast<void*>(to), static_cast<const void*>(from),
                      static_cast<std::size_t>(count) * sizeof(T));
  }
  template <class T>
  static void copyUp(T* to, const T* from, TqLong count) {
    copy(to, from, count);
  }
};
#else
#define TQ_PLAIN_COPY(T) false
#endif

// Copies `count` elements (none if it is negative) to a place that doesn't overlap or lies below.
template <class T>
inline void tqCopy(T* to, const T* from, TqLong count) {
  TqElements<TQ_PLAIN_COPY(T)>::copy(to, from, count);
}

// The same to a place that lies above and may overlap.
template <class T>
inline void tqCopyUp(T* to, const T* from, TqLong count) {
  TqElements<TQ_PLAIN_COPY(T)>::copyUp(to, from, count);
}

// The order tests that sorting asks: must `a` go after `b`?
template <class T>
struct TqAfterByCompare {
  explicit TqAfterByCompare(int (*compare)(const T&, const T&)) : m_compare(compare) {}
  bool operator()(const T& a, const T& b) const { return m_compare(a, b) > 0; }
  int (*m_compare)(const T&, const T&);
};

// Ascending order of arrays: by the element's `>` alone, also for the descending one.
template <class T>
struct TqAfterAscending {
  bool operator()(const T& a, const T& b) const { return a > b; }
};
template <class T>
struct TqAfterDescending {
  bool operator()(const T& a, const T& b) const { return b > a; }
};

// Descending order of lists, which ask the element's `<`.
template <class T>
struct TqAfterDescendingList {
  bool operator()(const T& a, const T& b) const { return a < b; }
};

// An order of objects applied to the pointers of slots, every one of which holds an object.
template <class After>
struct TqAfterOnObjects {
  explicit TqAfterOnObjects(After after) : m_after(after) {}
  template <class T>
  bool operator()(const T* a, const T* b) const {
    TQ_REQUIRE(a != 0 && b != 0, "an order of objects needs an object in every slot");
    return m_after(*a, *b);
  }
  After m_after;
};
template <class After>
inline TqAfterOnObjects<After> tqOnObjects(After after) {
  return TqAfterOnObjects<After>(after);
}

// The same with null slots, which go behind all objects whatever the order is.
template <class After>
struct TqAfterNullsLast {
  explicit TqAfterNullsLast(After after) : m_after(after) {}
  template <class T>
  bool operator()(const T* a, const T* b) const {
    if (a == 0 || b == 0) return a == 0 && b != 0;
    return m_after(*a, *b);
  }
  After m_after;
};
template <class After>
inline TqAfterNullsLast<After> tqNullsLast(After after) {
  return TqAfterNullsLast<After>(after);
}

template <class T>
inline T* tqNewElements(TqLong count) {
  return new T[static_cast<std::size_t>(count)];
}
