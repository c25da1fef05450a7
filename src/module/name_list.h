// Lists of names kept as one text: each name followed by a separator of one character.
#pragma once

#include <string>

#include "platform/framework_arrays.h"

// Appends the names to the array. A text without any separator is no list: 0, and the array stays
// as it was. Names may be empty; a last name needs no separator behind it. 1 otherwise.
int splitNames(const std::wstring& text, wchar_t separator, CStringArray& names);

// Every name with the separator behind it; an empty text for an empty array.
std::wstring joinNames(const CStringArray& names, wchar_t separator);
