// The time that this process has had, the system's work for it included: other programs' load
// doesn't count.
#pragma once

#include <ctime>

inline double processSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }
