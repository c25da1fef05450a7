// CString without its formatting.
#include "embedded/base/text.h"

#include <algorithm>
#include <compare>

#include "platform/framework_exceptions.h"
#include "platform/framework_text.h"

namespace {

int positionOf(std::size_t found) {
  return found == std::wstring::npos ? -1 : static_cast<int>(found);
}

wchar_t upper(wchar_t c) { return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c; }
wchar_t lower(wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; }

}  // namespace

wchar_t CString::GetAt(int index) const {
  if (index < 0 || index > GetLength()) AfxThrowInvalidArgException();
  return text_[static_cast<std::size_t>(index)];
}

void CString::SetAt(int index, wchar_t character) {
  if (index < 0 || index >= GetLength()) AfxThrowInvalidArgException();
  text_[static_cast<std::size_t>(index)] = character;
}

CString& CString::operator+=(const CString& other) {
  text_ += other.text_;
  return *this;
}

CString& CString::operator+=(const wchar_t* other) {
  if (other) text_ += other;
  return *this;
}

CString& CString::operator+=(wchar_t character) {
  text_ += character;
  return *this;
}

int CString::Compare(const wchar_t* other) const { return text_.compare(other ? other : L""); }

int CString::CompareNoCase(const wchar_t* other) const {
  std::wstring_view right = other ? other : L"";
  const auto order = std::lexicographical_compare_three_way(
      text_.begin(), text_.end(), right.begin(), right.end(),
      [](wchar_t a, wchar_t b) { return lower(a) <=> lower(b); });
  return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0;
}

int CString::Find(const wchar_t* part, int start) const {
  if (!part || start < 0 || start > GetLength()) return -1;
  return positionOf(text_.find(part, static_cast<std::size_t>(start)));
}

int CString::Find(wchar_t character, int start) const {
  if (start < 0 || start > GetLength()) return -1;
  return positionOf(text_.find(character, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(wchar_t character) const { return positionOf(text_.rfind(character)); }

int CString::FindOneOf(const wchar_t* characters) const {
  return characters ? positionOf(text_.find_first_of(characters)) : -1;
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
  first = std::clamp(first, 0, GetLength());
  count = std::clamp(count, 0, GetLength() - first);
  return text_.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(count));
}

CString CString::Left(int count) const { return Mid(0, count); }

CString CString::Right(int count) const {
  count = std::clamp(count, 0, GetLength());
  return Mid(GetLength() - count, count);
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }

CString& CString::TrimLeft() {
  text_.erase(0, text_.size() - base::trimLeft(text_).size());
  return *this;
}

CString& CString::TrimRight() {
  text_.resize(base::trimRight(text_).size());
  return *this;
}

CString& CString::MakeUpper() {
  std::transform(text_.begin(), text_.end(), text_.begin(), upper);
  return *this;
}

CString& CString::MakeLower() {
  std::transform(text_.begin(), text_.end(), text_.begin(), lower);
  return *this;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
  const std::wstring_view part = from ? from : L"";
  const std::wstring_view other = to ? to : L"";
  if (part.empty()) return 0;
  int count = 0;
  std::size_t position = 0;
  while ((position = text_.find(part, position)) != std::wstring::npos) {
    text_.replace(position, part.size(), other);
    position += other.size();
    ++count;
  }
  return count;
}

int CString::Insert(int index, const wchar_t* text) {
  index = std::clamp(index, 0, GetLength());
  if (text) text_.insert(static_cast<std::size_t>(index), text);
  return GetLength();
}

int CString::Delete(int index, int count) {
  index = std::clamp(index, 0, GetLength());
  count = std::clamp(count, 0, GetLength() - index);
  text_.erase(static_cast<std::size_t>(index), static_cast<std::size_t>(count));
  return GetLength();
}
