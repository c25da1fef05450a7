// An auxiliary library of 20 groups with 100 symbols each, for benchmarks: store and slides without
// the drawings, which nothing measured here reads.
#pragma once

#include <filesystem>

#include "embedded/base/status.h"

inline constexpr int kLargeGroups = 20;
inline constexpr int kLargeItems = 100;  // of a group

// Replaces what stands in the library's folder.
base::Status makeLargeAuxiliary(const std::filesystem::path& library);
