// Turns typed text into answers: keywords with their abbreviations, points absolute, relative and
// polar, distances, angles, numbers. No state and no input of its own.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "embedded/drafting/commands/prompt.h"

namespace drafting {

// The keyword of `list` that `typed` means, as the list spells it. The capitals of a keyword are
// the shortest form taken ("Close" takes "c", "cl"; "LType" needs "lt"); a keyword without capitals
// must be typed in full. Case doesn't count.
std::optional<std::string> matchKeyword(std::string_view list, std::string_view typed);

// "3,4", "3,4,5", "@1,0", "@5<90", "5<90"; `last` is what "@" starts from.
std::optional<Point3> parsePoint(std::string_view typed, const Point3& last);

// A point that was shown on the screen comes as this sign and its coordinates: no key types it.
inline constexpr char kPickSign = 1;
std::string pickText(const Point3& point);

// A whole decimal number, locale-free; nothing else may follow.
std::optional<double> parseReal(std::string_view typed);
std::optional<int> parseInteger(std::string_view typed);

// The answer that `typed` gives to `prompt`, or nothing if it is refused. `typed` isn't empty.
std::optional<Answer> parseAnswer(const Prompt& prompt, std::string_view typed, const Point3& last);
// The same for an argument that carries a value.
std::optional<Answer> answerFromArgument(const Prompt& prompt, const Argument& argument,
                                         const Point3& last);

}  // namespace drafting
