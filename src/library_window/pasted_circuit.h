// A copied circuit under its new number.
#pragma once

#include <optional>
#include <string>

#include "platform/framework_text.h"

// The row with its first field, up to the first blank, replaced by the slot's number; none when
// there is no blank.
std::optional<CString> rowForSlot(const std::wstring& row, int slot);
