// The framework's growing arrays, checked: a bad index throws CInvalidArgException* and changes
// nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/framework_text.h"

template <typename Element>
class CCheckedArray {
 public:
  int GetSize() const { return static_cast<int>(elements_.size()); }
  int GetCount() const { return GetSize(); }
  int GetUpperBound() const { return GetSize() - 1; }
  bool IsEmpty() const { return elements_.empty(); }

  Element& ElementAt(int index);
  const Element& GetAt(int index) const;
  void SetAt(int index, const Element& value);
  Element& operator[](int index) { return ElementAt(index); }
  const Element& operator[](int index) const { return GetAt(index); }

  int Add(const Element& value);           // the new element's index
  int Append(const CCheckedArray& other);  // the first new element's index
  void Copy(const CCheckedArray& other);
  void SetAtGrow(int index, const Element& value);  // a gap is filled with default elements
  void InsertAt(int index, const Element& value, int count = 1);  // behind the end fills the gap
  void RemoveAt(int index, int count = 1);
  void RemoveAll();
  void SetSize(int size, int growBy = -1);
  const Element* GetData() const { return elements_.data(); }
  Element* GetData() { return elements_.data(); }

  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

 private:
  std::vector<Element> elements_;
};

extern template class CCheckedArray<CString>;
extern template class CCheckedArray<void*>;
extern template class CCheckedArray<std::uint8_t>;
extern template class CCheckedArray<std::uint32_t>;

using CStringArray = CCheckedArray<CString>;
using CPtrArray = CCheckedArray<void*>;  // owns nothing
using CByteArray = CCheckedArray<std::uint8_t>;
using CUIntArray = CCheckedArray<std::uint32_t>;
