#include "embedded/drafting/commands/wildcards.h"

#include <string>

#include "embedded/base/text.h"

namespace drafting {
namespace {

std::size_t characterLength(std::string_view text, std::size_t at) {
  std::size_t end = at + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  return end - at;
}

// Goes back to the last star only, so that the cost is at most the product of the lengths.
bool matchesOne(std::string_view text, std::string_view pattern) {
  std::size_t at = 0, in = 0;
  std::size_t star = std::string_view::npos, resume = 0;
  while (at < text.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      resume = at;
      continue;
    }
    const bool escaped = in + 1 < pattern.size() && pattern[in] == '`';
    const std::size_t sign = escaped ? in + 1 : in;
    const std::size_t length = characterLength(text, at);
    bool same = false;
    if (sign < pattern.size()) {
      const char c = pattern[sign];
      same = !escaped && c == '?' ? true
             : !escaped && c == '#'
                 ? text[at] >= '0' && text[at] <= '9'
                 : text.substr(at, length) == pattern.substr(sign, characterLength(pattern, sign));
    }
    if (same) {
      const bool wild = !escaped && (pattern[sign] == '?' || pattern[sign] == '#');
      in = sign + (wild ? 1 : length);
      at += length;
    } else if (star != std::string_view::npos) {
      in = star + 1;
      at = resume += characterLength(text, resume);
    } else {
      return false;
    }
  }
  while (in < pattern.size() && pattern[in] == '*') ++in;
  return in == pattern.size();
}

}  // namespace

bool matchesPattern(std::string_view text, std::string_view pattern) {
  const std::string name = base::lowerCase(text), all = base::lowerCase(pattern);
  std::string_view rest = all;
  while (true) {
    const std::size_t comma = rest.find(',');
    if (matchesOne(name, rest.substr(0, comma))) return true;
    if (comma == std::string_view::npos) return false;
    rest.remove_prefix(comma + 1);
  }
}

bool isPattern(std::string_view text) {
  return text.find_first_of("*?#,`") != std::string_view::npos;
}

}  // namespace drafting
