// From a symbol's short name to its file: legal names, directory files, and the index text of the
// folder that a symbol lies in.
#pragma once

#include <string>
#include <string_view>

// Kinds for CheckFileName.
constexpr int kDrawingKind = 100;
constexpr int kSlideKind = 500;

// 1 when the name, in ANSI, is legal for the kind: 8 bytes at most, or 12 with the kind's
// extension, and no blank, slash, backslash or colon. Otherwise 0 with a message.
int CheckFileName(int kind, std::string_view name);

// Finds the symbol in the library folder's directory file; type is "DWG" or "SLD" in any case. 1
// with the full path, or 0 with an empty one. A name that isn't there gives no message, anything
// else does. Each search tests anew that the folder can be written and reads the directory file
// from its start: there is no cache.
int SearchSymbolFile(const wchar_t* type, const wchar_t* name, std::wstring& path);

// The first two words behind the symbol's name in its folder's index file, joined by "&"; empty
// with a message when the file can't be opened. path is the symbol's full path.
std::wstring ReadSymbolIndex(const std::wstring& path);
