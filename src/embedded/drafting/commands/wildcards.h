// Patterns of names as commands and filters take them: "*" any text, "?" one character, "#" a
// digit, "`" before a sign that means itself, "," between alternatives. Case doesn't count.
#pragma once

#include <string_view>

namespace drafting {

bool matchesPattern(std::string_view text, std::string_view pattern);

// Whether the pattern may mean more than one name.
bool isPattern(std::string_view text);

}  // namespace drafting
