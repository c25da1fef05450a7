// Writes a drawing as DXF R2000 (AC1015), ASCII: header, classes, tables, blocks, entities, objects
// and the preview. Handles, texts, extended data and everything else that the format has a place
// for come out as they are in the drawing.
#pragma once

#include <filesystem>
#include <string>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"
#include "embedded/drafting/dxf/group_sink.h"

namespace drafting {

// What a DXF file of the drawing would lack, as "2 DIMENSION, 1 HATCH": entities and objects of
// kinds that the database only carries through. Empty if nothing is lost.
std::string dxfLosses(const Database& database);

base::Status writeDxf(const Database& database, GroupSink::Output output);

// Atomically, keeping the old file as backup.
base::Status saveDxf(const Database& database, const std::filesystem::path& path);

}  // namespace drafting
