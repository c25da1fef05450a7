// Code pages 936, 1250, 1251 and 1252 from and to UTF-8 and wide text. Decoding reads the generated
// tables; the encoding tables are made from them at first use.
#include <array>
#include <cstdint>
#include <vector>

#include "embedded/base/text.h"
#include "embedded/base/utf8.h"

namespace base {

namespace {

#include "embedded/base/code_pages.inc"

constexpr char16_t kNone = 0xFFFD;
constexpr unsigned kTrailCount = 190;  // 40 to 7E, 80 to FE

// U+DC80 to U+DCFF carry the bytes 80 to FF.
constexpr char32_t kCarried = 0xDC00;
constexpr bool isCarried(char32_t c) { return c >= 0xDC80 && c <= 0xDCFF; }

struct TwoBytes {
  unsigned lead, trail;
};

constexpr TwoBytes bytesOfCell(unsigned cell) {
  const unsigned trail = cell % kTrailCount + 0x40;
  return {cell / kTrailCount + 0x81, trail < 0x7F ? trail : trail + 1};
}

// The user's own characters of page 936 fill the private-use area in three blocks.
constexpr char16_t privateUse(unsigned lead, unsigned trail) {
  if (trail >= 0xA1 && lead >= 0xAA && lead <= 0xAF)
    return static_cast<char16_t>(0xE000 + (lead - 0xAA) * 94 + (trail - 0xA1));
  if (trail >= 0xA1 && lead >= 0xF8)
    return static_cast<char16_t>(0xE234 + (lead - 0xF8) * 94 + (trail - 0xA1));
  if (trail <= 0xA0 && lead >= 0xA1 && lead <= 0xA7)
    return static_cast<char16_t>(0xE4C6 + (lead - 0xA1) * 96 + (trail - (trail < 0x7F ? 64 : 65)));
  return kNone;
}

char16_t characterOfCell(unsigned cell) {
  if (kPage936[cell] != kNone) return kPage936[cell];
  const TwoBytes bytes = bytesOfCell(cell);
  return privateUse(bytes.lead, bytes.trail);
}

const char16_t* singleBytePage(int codePage) {
  switch (codePage) {
    case 1250: return kPage1250;
    case 1251: return kPage1251;
    default: return kPage1252;
  }
}

// Unicode -> bytes of one page: 0 where the page has no such character, else one byte or, as
// lead * 256 + trail, two.
using Encoder = std::vector<std::uint16_t>;

Encoder makeEncoder936() {
  Encoder table(0x10000);
  for (unsigned cell = 0; cell < (0xFF - 0x81) * kTrailCount; ++cell) {
    const TwoBytes bytes = bytesOfCell(cell);
    const char16_t c = characterOfCell(cell);
    if (c != kNone) table[c] = static_cast<std::uint16_t>(bytes.lead << 8 | bytes.trail);
  }
  table[u'€'] = 0x80;
  return table;
}

Encoder makeSingleByteEncoder(const char16_t* page) {
  Encoder table(0x10000);
  for (unsigned i = 0; i < 0x80; ++i)
    if (page[i] != kNone) table[page[i]] = static_cast<std::uint16_t>(0x80 + i);
  return table;
}

const Encoder& encoderOf(int codePage) {
  static const Encoder page936 = makeEncoder936();
  static const Encoder page1250 = makeSingleByteEncoder(kPage1250);
  static const Encoder page1251 = makeSingleByteEncoder(kPage1251);
  static const Encoder page1252 = makeSingleByteEncoder(kPage1252);
  switch (codePage) {
    case 936: return page936;
    case 1250: return page1250;
    case 1251: return page1251;
    default: return page1252;
  }
}

// The character at `at`, which isn't ASCII; a byte without meaning comes back as not valid.
Decoded decode936(std::string_view bytes, std::size_t at) {
  const auto lead = static_cast<unsigned char>(bytes[at]);
  if (lead == 0x80) return {U'€', 1};
  if (lead != 0xFF && at + 1 < bytes.size()) {
    const auto trail = static_cast<unsigned char>(bytes[at + 1]);
    if (trail >= 0x40 && trail != 0x7F && trail != 0xFF) {
      const unsigned column = trail - (trail < 0x7F ? 0x40u : 0x41u);
      const char16_t c = characterOfCell((lead - 0x81u) * kTrailCount + column);
      if (c != kNone) return {c, 2};
    }
  }
  return {lead, 1, false};
}

Decoded decodeBytes(std::string_view bytes, std::size_t at, int codePage) {
  if (codePage == 936) return decode936(bytes, at);
  const auto byte = static_cast<unsigned char>(bytes[at]);
  const char16_t c = singleBytePage(codePage)[byte - 0x80];
  if (c == kNone) return {byte, 1, false};
  return {c, 1};
}

// Appends the bytes of `c`, which isn't ASCII; false if the page doesn't have it.
bool encode(std::string& out, char32_t c, const Encoder& encoder) {
  const std::uint16_t code = c < 0x10000 ? encoder[c] : 0;
  if (code == 0) return false;
  if (code > 0xFF) out += static_cast<char>(code >> 8);
  out += static_cast<char>(code & 0xFF);
  return true;
}

void appendEscape(std::string& out, char32_t c) {
  if (c > 0xFFFF) {
    appendEscape(out, highSurrogate(c));
    c = lowSurrogate(c);
  }
  out += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) out += "0123456789ABCDEF"[c >> shift & 0xF];
}

}  // namespace

void appendUtf8FromCodePage(std::string& out, std::string_view bytes, int codePage) {
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t run = asciiRun(bytes, at);
    out.append(bytes, at, run);
    at += run;
    if (at == bytes.size()) break;
    const Decoded decoded = decodeBytes(bytes, at, codePage);
    appendUtf8(out, decoded.valid ? decoded.character : kCarried + decoded.character);
    at += decoded.length;
  }
}

void appendCodePageFromUtf8(std::string& out, std::string_view utf8, int codePage,
                            Unmappable unmappable) {
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t run = asciiRun(utf8, at);
    out.append(utf8, at, run);
    at += run;
    if (at == utf8.size()) break;
    const Decoded decoded = decodeUtf8(utf8, at);
    at += decoded.length;
    if (isCarried(decoded.character))
      out += static_cast<char>(decoded.character & 0xFF);
    else if (encode(out, decoded.character, encoderOf(codePage)))
      continue;
    else if (unmappable == Unmappable::unicodeEscape)
      appendEscape(out, decoded.character);
    else
      out += '?';
  }
}

std::string utf8FromCodePage(std::string_view bytes, int codePage) {
  std::string out;
  out.reserve(bytes.size());
  appendUtf8FromCodePage(out, bytes, codePage);
  return out;
}

std::string codePageFromUtf8(std::string_view utf8, int codePage, Unmappable unmappable) {
  std::string out;
  out.reserve(utf8.size());
  appendCodePageFromUtf8(out, utf8, codePage, unmappable);
  return out;
}

std::wstring wideFromAnsi(std::string_view ansi) {
  std::wstring out(ansi.size(), L'\0');  // each character takes a byte or two
  wchar_t* end = out.data();
  for (std::size_t at = 0; at < ansi.size();) {
    if (static_cast<unsigned char>(ansi[at]) < 0x80) {
      *end++ = static_cast<wchar_t>(ansi[at++]);
      continue;
    }
    const Decoded decoded = decode936(ansi, at);
    *end++ = decoded.valid ? static_cast<wchar_t>(decoded.character) : L'?';
    at += decoded.length;
  }
  out.resize(static_cast<std::size_t>(end - out.data()));
  return out;
}

std::string ansiFromWide(std::wstring_view wide) {
  std::string out;
  out.reserve(wide.size());
  for (const wchar_t c : wide) {
    const auto character = static_cast<char32_t>(c);
    if (character < 0x80)
      out += static_cast<char>(c);
    else if (!encode(out, character, encoderOf(936)))
      out += '?';
  }
  return out;
}

std::string ansiFromUtf8(std::string_view utf8) { return ansiFromWide(wideFromUtf8(utf8)); }

}  // namespace base
