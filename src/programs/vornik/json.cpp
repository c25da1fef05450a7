#include "programs/vornik/json.h"

namespace vornik {

std::string jsonText(std::string_view utf8) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string out = "\"";
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (byte < 0x20) {
      out += "\\u00";
      out += kDigits[byte >> 4];
      out += kDigits[byte & 15];
    } else {
      out += c;
    }
  }
  return out + '"';
}

}  // namespace vornik
