// TqDynArrayBase<T>: copying, comparing and rearranging. Included by its header.
#pragma once

// Writes `count` elements from `source` on into `out` through its cursor; a null source ends it.
template <class T>
void tqWriteThroughCursor(TqDynArrayBase<T>& out, const TqDynArrayBase<T>& from, const T* source,
                          TqLong count) {
  for (TqLong i = 0; i < count && source != 0; ++i) {
    out.SetCurData(*source);
    out.MoveToNext();
    source = from.GetNext(source);
  }
}

template <class T>
TqDynArrayBase<T>& TqDynArrayBase<T>::operator<<(const TqDynArrayBase& other) {
  const TqLong before = m_length;
  const TqLong count = other.m_length;
  SetLength(before + count, true);
  MoveTo(before);
  tqWriteThroughCursor(*this, other, other.GetFirst(), count);
  return *this;
}

template <class T>
TqDynArrayBase<T>& TqDynArrayBase<T>::operator<<(const TqArray<T>& other) {
  const TqLong before = m_length;
  SetLength(before + other.GetLength(), true);
  MoveTo(before);
  for (TqLong i = 0; i < other.GetLength(); ++i) {
    SetCurData(other.GetAt(i));
    MoveToNext();
  }
  return *this;
}

template <class T>
void TqDynArrayBase<T>::Exchange(TqLong i, TqLong j) {
  // Both are reached before a reference is kept: reaching may move the elements.
  T moving;
  moving = (*this)[i];
  T& second = (*this)[j];
  T& first = (*this)[i];
  first = second;
  second = moving;
}

template <class T>
void TqDynArrayBase<T>::DeepCopy(const TqDynArrayBase& other) {
  TQ_REQUIRE(&other != this, "a sequence isn't copied onto itself");
  SetLength(other.m_length, false);
  MoveToFirst();
  tqWriteThroughCursor(*this, other, other.GetFirst(), other.m_length);
}

template <class T>
void TqDynArrayBase<T>::DeepCopy(const TqArray<T>& other) {
  SetLength(other.GetLength(), false);
  MoveToFirst();
  for (TqLong i = 0; i < other.GetLength(); ++i) {
    SetCurData(other.GetAt(i));
    MoveToNext();
  }
}

template <class T>
void TqDynArrayBase<T>::Left(TqLong n, TqDynArrayBase& out) const {
  TQ_REQUIRE(n <= m_length, "there are not so many elements");
  out.SetLength(n, false);
  out.MoveToFirst();
  tqWriteThroughCursor(out, *this, GetFirst(), n);
}

template <class T>
void TqDynArrayBase<T>::Right(TqLong n, TqDynArrayBase& out) const {
  out.SetLength(n, false);
  out.MoveToFirst();
  tqWriteThroughCursor(out, *this, GetTo(m_length - n), n);
}

template <class T>
void TqDynArrayBase<T>::Mid(TqLong from, TqLong to, TqDynArrayBase& out) const {
  const TqLong count = to - from + 1;
  out.SetLength(count, false);
  out.MoveToFirst();
  tqWriteThroughCursor(out, *this, GetTo(from), count);
}

template <class T>
void TqDynArrayBase<T>::Reverse(TqLong from, TqLong to) {
  if (to == -1) to = m_length - 1;
  const TqLong pairs = (to - from + 1) / 2;
  for (TqLong i = 0; i < pairs; ++i) Exchange(to - i, from + i);
}

template <class T>
bool TqDynArrayBase<T>::operator==(const TqDynArrayBase& other) const {
  if (m_length != other.m_length) return false;
  const T* a = GetFirst();
  const T* b = other.GetFirst();
  for (; a != 0 && b != 0; a = GetNext(a), b = other.GetNext(b))
    if (!(*a == *b)) return false;
  return true;
}
