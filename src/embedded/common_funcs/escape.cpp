// Writes and reads the escapes.
#include "embedded/common_funcs/escape.h"

namespace common_funcs {

namespace {

constexpr std::wstring_view kDigits = L"0123456789ABCDEF";

bool mustEscape(wchar_t c) {
  const auto code = static_cast<char32_t>(c);  // wide characters have a sign on some systems
  return c == L'%' || code == 0x7F || code < 0x20;
}

int digitValue(wchar_t c) {
  if (c >= L'a' && c <= L'f') c = static_cast<wchar_t>(c - L'a' + L'A');
  const std::size_t at = kDigits.find(c);
  return at == std::wstring_view::npos ? -1 : static_cast<int>(at);
}

// The character that "%XX" at the position stands for, or -1.
int escapedAt(std::wstring_view text, std::size_t i) {
  if (text[i] != L'%' || i + 2 >= text.size()) return -1;
  const int high = digitValue(text[i + 1]);
  const int low = digitValue(text[i + 2]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

}  // namespace

std::wstring escape(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (const wchar_t c : text) {
    if (!mustEscape(c)) {
      out += c;
      continue;
    }
    out += {L'%', kDigits[static_cast<std::size_t>(c) / 16],
            kDigits[static_cast<std::size_t>(c) % 16]};
  }
  return out;
}

std::wstring unescape(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int escaped = escapedAt(text, i);
    out += escaped < 0 ? text[i] : static_cast<wchar_t>(escaped);
    if (escaped >= 0) i += 2;
  }
  return out;
}

}  // namespace common_funcs
