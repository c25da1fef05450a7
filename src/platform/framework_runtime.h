// The runtime's calls that the module makes, with one behaviour on every system: numbers without
// locale, ANSI text in code page 936, files found by the library's spelling of a path.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

// --- numbers ---
// Leading white space, sign, digits; what follows is ignored. 0 for no number; saturates at the
// limits of 32 bits.
std::int32_t wideToInt(const wchar_t* text);
// Reads as C99's wcstod does in the "C" locale; 0 for no number.
double wideToDouble(const wchar_t* text);

// --- ANSI text: code page 936 on every machine ---
// What can't be mapped becomes "?".
std::string ansiFromWide(std::wstring_view text);
std::wstring wideFromAnsi(std::string_view text);

// --- comparing; ASCII letters alone have a case ---
bool equalWithoutCase(std::string_view a, std::string_view b);
bool equalWithoutCase(std::wstring_view a, std::wstring_view b);

// --- files ---
// A backslash and a plain name that no other call has given: for a file in a folder of the caller's
// choice. Empty when none can be made.
std::wstring temporaryName();
// As fopen; null on failure.
std::FILE* openFile(const std::wstring& path, const wchar_t* mode);
bool removeFile(const std::wstring& path);
bool fileExists(const std::wstring& path);  // a file or a folder
