// UTF-8 and wide text, letter case, trimming. Code pages are in code_page.cpp.
#include "embedded/base/text.h"

#include <algorithm>

#include "embedded/base/utf8.h"

namespace base {

namespace {

void appendWide(std::wstring& out, char32_t c) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (c > 0xFFFF) {
      out += static_cast<wchar_t>(highSurrogate(c));
      out += static_cast<wchar_t>(lowSurrogate(c));
      return;
    }
  } else if (isLowSurrogate(c) && !out.empty()) {
    // Two three-byte forms that make a pair are one character, as they are in 16 bits.
    const auto high = static_cast<char32_t>(out.back());
    if (isHighSurrogate(high)) {
      out.back() = static_cast<wchar_t>(joinSurrogates(high, c));
      return;
    }
  }
  out += static_cast<wchar_t>(c);
}

template <class Text, class Blank>
Text trimEnds(Text text, bool left, bool right, Blank blank) {
  while (left && !text.empty() && blank(text.front())) text.remove_prefix(1);
  while (right && !text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

constexpr auto kBlankWide = [](wchar_t c) { return isBlank(c); };
constexpr auto kBlankNarrow = [](char c) {
  return isBlank(static_cast<wchar_t>(static_cast<unsigned char>(c)));
};

// Ranges in which capitals and small letters stand at a fixed distance.
struct CaseRange {
  char32_t first, last, distance;
};
constexpr CaseRange kCaseRanges[] = {
    {0xC0, 0xD6, 32},   {0xD8, 0xDE, 32},     {0x388, 0x38A, 37},
    {0x391, 0x3A1, 32}, {0x3A3, 0x3AB, 32},   {0x400, 0x40F, 80},
    {0x410, 0x42F, 32}, {0x2160, 0x216F, 16}, {0xFF21, 0xFF3A, 32}};

// Ranges in which a capital is followed by its small letter; `parity` is that of the capitals.
struct PairRange {
  char32_t first, last, parity;
};
constexpr PairRange kPairRanges[] = {{0x100, 0x12F, 0},   {0x132, 0x137, 0},  {0x139, 0x148, 1},
                                     {0x14A, 0x177, 0},   {0x179, 0x17E, 1},  {0x1CD, 0x1DC, 1},
                                     {0x1DE, 0x1EF, 0},   {0x1F8, 0x21F, 0},  {0x460, 0x481, 0},
                                     {0x48A, 0x4BF, 0},   {0x4C1, 0x4CE, 1},  {0x4D0, 0x52F, 0},
                                     {0x1E00, 0x1E95, 0}, {0x1EA0, 0x1EFF, 0}};

char32_t lowerCaseBeyondAscii(char32_t c) {
  switch (c) {
    case 0x178: return 0xFF;
    case 0x386: return 0x3AC;
    case 0x38C: return 0x3CC;
    case 0x38E: return 0x3CD;
    case 0x38F: return 0x3CE;
    case 0x4C0: return 0x4CF;
    default: break;
  }
  for (const CaseRange& range : kCaseRanges)
    if (c >= range.first && c <= range.last) return c + range.distance;
  for (const PairRange& range : kPairRanges)
    if (c >= range.first && c <= range.last && (c & 1) == range.parity) return c + 1;
  return c;
}

}  // namespace

void appendUtf8(std::string& out, char32_t c) {
  const auto put = [&out](char32_t byte) { out += static_cast<char>(byte); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | c >> 6);
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | c >> 12);
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | c >> 18);
    put(0x80 | (c >> 12 & 0x3F));
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

std::wstring wideFromUtf8(std::string_view utf8) {
  std::wstring out;
  out.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t run = asciiRun(utf8, at);
    out.append(utf8.begin() + static_cast<std::ptrdiff_t>(at),
               utf8.begin() + static_cast<std::ptrdiff_t>(at + run));
    at += run;
    if (at == utf8.size()) break;
    const Decoded decoded = decodeUtf8(utf8, at);
    appendWide(out, decoded.character);
    at += decoded.length;
  }
  return out;
}

std::string utf8FromWide(std::wstring_view wide) {
  std::string out;
  out.reserve(wide.size());
  for (std::size_t at = 0; at < wide.size();) {
    if (static_cast<char32_t>(wide[at]) < 0x80) {
      out += static_cast<char>(wide[at++]);
      continue;
    }
    const Decoded decoded = decodeWide(wide, at);
    appendUtf8(out, decoded.character);
    at += decoded.length;
  }
  return out;
}

bool isUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    at += asciiRun(bytes, at);
    if (at == bytes.size()) break;
    const Decoded decoded = decodeUtf8(bytes, at);
    if (!decoded.valid) return false;
    at += decoded.length;
  }
  return true;
}

char32_t lowerCase(char32_t c) {
  if (c < 0x80) return c >= U'A' && c <= U'Z' ? c + 32 : c;
  return lowerCaseBeyondAscii(c);
}

std::wstring lowerCase(std::wstring_view text) {
  std::wstring out(text);
  for (wchar_t& c : out) c = static_cast<wchar_t>(lowerCase(static_cast<char32_t>(c)));
  return out;
}

std::string lowerCase(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const Decoded decoded = decodeUtf8(utf8, at);
    if (decoded.valid)
      appendUtf8(out, lowerCase(decoded.character));
    else
      out += utf8[at];
    at += decoded.length;
  }
  return out;
}

std::string capitals(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = capital(c);
  return out;
}

bool equalsNoCase(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](wchar_t x, wchar_t y) {
    return x == y || lowerCase(static_cast<char32_t>(x)) == lowerCase(static_cast<char32_t>(y));
  });
}

bool equalsNoCase(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  std::size_t k = 0;
  while (i < a.size() && k < b.size()) {
    const Decoded x = decodeUtf8(a, i);
    const Decoded y = decodeUtf8(b, k);
    const bool same = x.valid && y.valid ? lowerCase(x.character) == lowerCase(y.character)
                                         : x.valid == y.valid && a[i] == b[k];
    if (!same) return false;
    i += x.length;
    k += y.length;
  }
  return i == a.size() && k == b.size();
}

std::wstring_view trimLeft(std::wstring_view text) {
  return trimEnds(text, true, false, kBlankWide);
}
std::wstring_view trimRight(std::wstring_view text) {
  return trimEnds(text, false, true, kBlankWide);
}
std::wstring_view trim(std::wstring_view text) { return trimEnds(text, true, true, kBlankWide); }
std::string_view trimLeft(std::string_view text) {
  return trimEnds(text, true, false, kBlankNarrow);
}
std::string_view trimRight(std::string_view text) {
  return trimEnds(text, false, true, kBlankNarrow);
}
std::string_view trim(std::string_view text) { return trimEnds(text, true, true, kBlankNarrow); }

}  // namespace base
