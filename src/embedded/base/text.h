// Text in its three forms: UTF-8 (std::string), wide (std::wstring; 16 bits a character on Windows,
// 32 elsewhere) and the bytes of a code page. "ANSI" is code page 936 on every machine. None of it
// depends on the locale, and ASCII takes a fast path everywhere.
#pragma once

#include <string>
#include <string_view>

namespace base {

// A malformed byte becomes U+FFFD. Lone surrogates are carried through both ways, so that a wide
// text of any content survives the trip.
std::wstring wideFromUtf8(std::string_view utf8);
std::string utf8FromWide(std::wstring_view wide);

// True if every byte belongs to a well-formed character (carried bytes, see below, count as such).
bool isUtf8(std::string_view bytes);

// Code page 936. What can't be mapped becomes "?", one for each byte or wide character.
std::wstring wideFromAnsi(std::string_view ansi);
std::string ansiFromWide(std::wstring_view wide);
std::string ansiFromUtf8(std::string_view utf8);

// What stands for a character that the code page doesn't have.
enum class Unmappable {
  questionMark,   // "?"
  unicodeEscape,  // "\U+XXXX", drawings' own notation; above U+FFFF as two surrogates
};

// Text of drawings, for code pages 936, 1250, 1251 and 1252; any other number is read as 1252.
// A byte NN that the page can't decode is carried as U+DCNN (in UTF-8 the three-byte form) and
// written back as that byte, so that reading and writing lose nothing.
std::string utf8FromCodePage(std::string_view bytes, int codePage);
std::string codePageFromUtf8(std::string_view utf8, int codePage,
                             Unmappable unmappable = Unmappable::questionMark);

// The same, appended to `out`: for writers that fill one buffer.
void appendUtf8FromCodePage(std::string& out, std::string_view bytes, int codePage);
void appendCodePageFromUtf8(std::string& out, std::string_view utf8, int codePage,
                            Unmappable unmappable = Unmappable::questionMark);

// Appends one character; surrogates get the three-byte form. `character` is at most U+10FFFF.
void appendUtf8(std::string& out, char32_t character);

// Small letter of a Latin, Greek, Cyrillic or full-width capital; anything else is returned as is.
char32_t lowerCase(char32_t character);
std::wstring lowerCase(std::wstring_view text);
std::string lowerCase(std::string_view utf8);

// Capitals of ASCII letters; everything else is returned as is.
constexpr char capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
std::string capitals(std::string_view text);

bool equalsNoCase(std::wstring_view a, std::wstring_view b);
bool equalsNoCase(std::string_view a, std::string_view b);

// ASCII white space only: the wide blank of Chinese texts belongs to the text.
constexpr bool isBlank(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }
std::wstring_view trimLeft(std::wstring_view text);
std::wstring_view trimRight(std::wstring_view text);
std::wstring_view trim(std::wstring_view text);
std::string_view trimLeft(std::string_view text);
std::string_view trimRight(std::string_view text);
std::string_view trim(std::string_view text);

}  // namespace base
