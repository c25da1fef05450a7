// Writes a drawing as DWG R2000.
#pragma once

#include <filesystem>
#include <string>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"

namespace drafting {

// What a DWG file of the drawing would lack, as "2 SPLINE, 1 TABLESTYLE": entities and objects that
// came from a DXF file and are of kinds that aren't known. Empty if nothing is lost.
std::string dwgLosses(const Database& database);

// The bytes of the file. Fails, naming the object, if the drawing holds what the format can't: a
// text beyond 65,535 bytes, a file beyond 4 GB.
base::Result<std::string> writeDwg(const Database& database);

// The same, saved atomically under `path`.
base::Status saveDwg(const Database& database, const std::filesystem::path& path);

}  // namespace drafting
