// Splits and joins name lists.
#include "module/name_list.h"

int splitNames(const std::wstring& text, wchar_t separator, CStringArray& names) {
  std::size_t begin = 0;
  std::size_t end = text.find(separator);
  if (end == std::wstring::npos) return 0;
  for (; end != std::wstring::npos; end = text.find(separator, begin)) {
    names.Add(text.substr(begin, end - begin));
    begin = end + 1;
  }
  if (begin < text.size()) names.Add(text.substr(begin));
  return 1;
}

std::wstring joinNames(const CStringArray& names, wchar_t separator) {
  std::wstring text;
  for (const CString& name : names) {
    text += name.wide();
    text += separator;
  }
  return text;
}
