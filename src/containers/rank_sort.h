// The family's array sort: every pair is compared once, each element counts how many places it has
// to move, and the counts are then applied cycle by cycle. Stable, quadratic in comparisons, linear
// in moves.
#pragma once

#include "containers/basics.h"

// Sorts `length` elements. `after(a, b)` tells whether a, which stands first, must go after b.
template <class T, class After>
void tqRankSort(T* data, TqLong length, After after) {
  if (length < 2) return;
  TqLong* rank = new TqLong[static_cast<std::size_t>(length)];
  for (TqLong i = 0; i < length; ++i) rank[i] = i;
  for (TqLong i = 0; i < length; ++i) {
    TqLong later = 0;
    for (TqLong j = i + 1; j < length; ++j) {
      const TqLong passes = after(data[i], data[j]) ? 1 : 0;
      later += passes;
      rank[j] -= passes;
    }
    rank[i] += later;
  }
  for (TqLong i = 0; i < length; ++i) {
    if (rank[i] == i) continue;
    T moving;
    moving = data[i];
    for (TqLong k = rank[i]; k != i;) {
      T displaced;
      displaced = data[k];
      data[k] = moving;
      moving = displaced;
      const TqLong next = rank[k];
      rank[k] = k;
      k = next;
    }
    data[i] = moving;
    rank[i] = i;
  }
  delete[] rank;
}
