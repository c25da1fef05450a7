// Tq2dArray<T>: a rectangular table, an array of rows of which each has storage of its own.
//
//   Tq2dArray<double> table(2, 3);
//   table.SetAll(0);
//   table[1][2] = 5;            // row 1, column 2
//   table.ReAllocate(3, 2, true);
//
// Copying and assignment are the outer array's, row by row. Through the base the rows can be given
// different lengths; nothing here repairs that.
#pragma once

#include "containers/array.h"

template <class T>
class Tq2dArray : public TqArray<TqArray<T> > {
 public:
  Tq2dArray(TqLong rows = 0, TqLong columns = 0) { ReAllocate(rows, columns, false); }

  // A kept table is cut or extended at the bottom and at the right; new elements are default ones.
  void ReAllocate(TqLong rows, TqLong columns, bool keep) {
    TqArray<TqArray<T> >::ReAllocate(rows, keep);
    for (TqLong row = 0; row < this->m_length; ++row) this->m_data[row].ReAllocate(columns, keep);
  }
  void SetAll(const T& v) {
    for (TqLong row = 0; row < this->m_length; ++row) this->m_data[row].SetAll(v);
  }
};
