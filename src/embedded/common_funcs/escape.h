// Escapes of the text files of this folder: control characters and "%" are written as "%" and two
// hexadecimal digits, so that a value fits into one line.
#pragma once

#include <string>
#include <string_view>

namespace common_funcs {

std::wstring escape(std::wstring_view text);

// A "%" without two digits behind it stands for itself, as in a line written by hand.
std::wstring unescape(std::wstring_view text);

}  // namespace common_funcs
