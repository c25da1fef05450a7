// Coordinates as text of page files: at most three decimals, no exponent, the same on all systems.
#pragma once

#include <string>

namespace drafting {

void appendNumber(std::string& out, double value);
// With up to six decimals, for the factors of maps.
void appendFactor(std::string& out, double value);

}  // namespace drafting
