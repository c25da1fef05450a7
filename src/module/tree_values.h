// Values of the library's trees as texts and numbers. A node that is missing, or whose value is
// shorter than two units, holds no value for most readers: an empty text counts as none.
#pragma once

#include <cstdint>
#include <string>

#include "platform/quill_data.h"

// The longest text a tree value holds: lengths are signed 16-bit and count the terminator.
constexpr std::size_t kLongestTreeText = 32766;

inline bool hasValue(const CQuillDpNode* node) { return node && node->length >= 2; }

inline std::wstring valueOr(const CQuillDpNode* node, const wchar_t* fallback) {
  return hasValue(node) ? node->text() : std::wstring(fallback);
}

// Stores a text with its terminator. The caller has seen to it that the text fits; a longer one is
// left out.
void storeText(CQuillDpData& tree, const std::wstring& key, const std::wstring& text);
void storeNumber(CQuillDpData& tree, const std::wstring& key, std::int32_t number);
