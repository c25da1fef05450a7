// The checked arrays, for the element types that the framework offers.
#include <algorithm>

#include "platform/framework_arrays.h"
#include "platform/framework_exceptions.h"

namespace {

// The index as a position below size; throws for one outside.
std::size_t positionIn(int index, int size) {
  if (index < 0 || index >= size) AfxThrowInvalidArgException();
  return static_cast<std::size_t>(index);
}

}  // namespace

template <typename Element>
Element& CCheckedArray<Element>::ElementAt(int index) {
  return elements_[positionIn(index, GetSize())];
}

template <typename Element>
const Element& CCheckedArray<Element>::GetAt(int index) const {
  return elements_[positionIn(index, GetSize())];
}

template <typename Element>
void CCheckedArray<Element>::SetAt(int index, const Element& value) {
  ElementAt(index) = value;
}

template <typename Element>
int CCheckedArray<Element>::Add(const Element& value) {
  elements_.push_back(value);
  return GetUpperBound();
}

template <typename Element>
int CCheckedArray<Element>::Append(const CCheckedArray& other) {
  const int first = GetSize();
  const std::vector<Element> added = other.elements_;  // other may be this array
  elements_.insert(elements_.end(), added.begin(), added.end());
  return first;
}

template <typename Element>
void CCheckedArray<Element>::Copy(const CCheckedArray& other) {
  elements_ = other.elements_;
}

template <typename Element>
void CCheckedArray<Element>::SetAtGrow(int index, const Element& value) {
  if (index < 0) AfxThrowInvalidArgException();
  // The value may stand in this array. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const Element kept = value;
  if (index >= GetSize()) SetSize(index + 1);
  SetAt(index, kept);
}

template <typename Element>
void CCheckedArray<Element>::InsertAt(int index, const Element& value, int count) {
  if (index < 0 || count < 0) AfxThrowInvalidArgException();
  // As above. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const Element kept = value;
  if (index > GetSize()) SetSize(index);
  elements_.insert(elements_.begin() + index, static_cast<std::size_t>(count), kept);
}

template <typename Element>
void CCheckedArray<Element>::RemoveAt(int index, int count) {
  if (index < 0 || count < 0 || index > GetSize() - count) AfxThrowInvalidArgException();
  elements_.erase(elements_.begin() + index, elements_.begin() + index + count);
}

template <typename Element>
void CCheckedArray<Element>::RemoveAll() {
  elements_.clear();
}

template <typename Element>
void CCheckedArray<Element>::SetSize(int size, int growBy) {
  static_cast<void>(growBy);  // the array grows by itself
  if (size < 0) AfxThrowInvalidArgException();
  elements_.resize(static_cast<std::size_t>(size));
}

template class CCheckedArray<CString>;
template class CCheckedArray<void*>;
template class CCheckedArray<std::uint8_t>;
template class CCheckedArray<std::uint32_t>;
