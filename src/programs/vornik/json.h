// Writing JSON: texts with their escapes, lists.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vornik {

std::string jsonText(std::string_view utf8);

template <class T, class F>
std::string jsonList(const std::vector<T>& list, F item) {
  std::string out = "[";
  for (const T& one : list) out += (out.size() > 1 ? "," : "") + item(one);
  return out + "]";
}

}  // namespace vornik
