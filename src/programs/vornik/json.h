// Writing JSON: texts with their escapes, numbers, lists.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vornik {

// Lone surrogates, which carry bytes that a drawing's code page doesn't have, become \uXXXX.
std::string jsonText(std::string_view utf8);
std::string jsonNumber(double value);  // null for infinities and what is no number

template <class T, class F>
std::string jsonList(const std::vector<T>& list, F item) {
  std::string out = "[";
  for (const T& one : list) out += (out.size() > 1 ? "," : "") + item(one);
  return out + "]";
}

}  // namespace vornik
