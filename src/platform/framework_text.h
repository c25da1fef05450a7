// CString: the framework's wide text. Characters are wchar_t, so positions and lengths count what
// the system counts as one wide character.
#pragma once

#include <cstdarg>
#include <string>
#include <string_view>
#include <utility>

class CString {
 public:
  CString() = default;
  CString(const wchar_t* text) : text_(text ? text : L"") {}
  CString(const wchar_t* text, int length) : text_(text, static_cast<std::size_t>(length)) {}
  CString(const std::wstring& text) : text_(text) {}
  CString(std::wstring&& text) : text_(std::move(text)) {}
  explicit CString(wchar_t character, int count = 1)
      : text_(static_cast<std::size_t>(count), character) {}

  operator const wchar_t*() const { return text_.c_str(); }
  const wchar_t* GetString() const { return text_.c_str(); }
  const std::wstring& wide() const { return text_; }

  int GetLength() const { return static_cast<int>(text_.size()); }
  bool IsEmpty() const { return text_.empty(); }
  void Empty() { text_.clear(); }
  // These throw CInvalidArgException* outside the text; reading at GetLength() gives 0.
  wchar_t GetAt(int index) const;
  wchar_t operator[](int index) const { return GetAt(index); }
  void SetAt(int index, wchar_t character);

  CString& operator+=(const CString& other);
  CString& operator+=(const wchar_t* other);
  CString& operator+=(wchar_t character);
  friend CString operator+(CString left, const CString& right) { return left += right; }
  friend CString operator+(CString left, const wchar_t* right) { return left += right; }
  friend CString operator+(CString left, wchar_t right) { return left += right; }
  friend CString operator+(const wchar_t* left, const CString& right) {
    return CString(left) += right;
  }
  friend bool operator==(const CString& a, const CString& b) { return a.text_ == b.text_; }
  friend bool operator==(const CString& a, const wchar_t* b) { return a.text_ == b; }
  friend auto operator<=>(const CString& a, const CString& b) { return a.text_ <=> b.text_; }

  int Compare(const wchar_t* other) const;
  int CompareNoCase(const wchar_t* other) const;
  // First position from start on, or -1.
  int Find(const wchar_t* part, int start = 0) const;
  int Find(wchar_t character, int start = 0) const;
  int ReverseFind(wchar_t character) const;
  int FindOneOf(const wchar_t* characters) const;

  // Parts; positions and counts outside the text are cut to it.
  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  CString Left(int count) const;
  CString Right(int count) const;

  // White space is the ASCII kind, in every locale.
  CString& Trim();
  CString& TrimLeft();
  CString& TrimRight();
  CString& MakeUpper();
  CString& MakeLower();
  int Replace(const wchar_t* from, const wchar_t* to);  // number of replacements
  int Insert(int index, const wchar_t* text);           // new length
  int Delete(int index, int count = 1);                 // new length

  // %s and %c take wide text and characters on every system (%S narrow UTF-8 text), numbers ignore
  // the locale, and a null text prints as "(null)".
  void Format(const wchar_t* format, ...);
  void FormatV(const wchar_t* format, std::va_list arguments);
  void AppendFormat(const wchar_t* format, ...);

 private:
  std::wstring text_;
};
