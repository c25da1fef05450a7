// Whether a new name is free.
#pragma once

#include <string>

#include "platform/framework_arrays.h"

// True when an entry other than the one at `index` is that text, with case.
inline bool hasOther(const CStringArray& names, int index, const std::wstring& text) {
  for (int i = 0; i < names.GetSize(); ++i) {
    if (i != index && names.GetAt(i).wide() == text) return true;
  }
  return false;
}
