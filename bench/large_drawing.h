// The drawing that reading and writing are measured with: 250,000 entities with extended data.
#pragma once

#include <memory>

#include "embedded/drafting/database/database.h"

namespace bench {

inline constexpr int kInserts = 100000, kPolylines = 100000, kTexts = 50000;
inline constexpr int kEntities = kInserts + kPolylines + kTexts;

// 100,000 INSERT of twenty blocks, 100,000 LWPOLYLINE of four points with a constant width, 50,000
// TEXT in Chinese and Latin, on ten layers, all with a text and a number of one application.
std::unique_ptr<drafting::Database> makeLargeDrawing();

}  // namespace bench
