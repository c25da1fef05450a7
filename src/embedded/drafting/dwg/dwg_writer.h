// Writes a drawing as DWG R2000.
#pragma once

#include <filesystem>
#include <string>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"

namespace drafting {

// The bytes of the file. Fails, naming the object, if the drawing holds what the format can't: a
// text beyond 65,535 bytes, a file beyond 4 GB.
base::Result<std::string> writeDwg(const Database& database);

// The same, saved atomically under `path`.
base::Status saveDwg(const Database& database, const std::filesystem::path& path);

}  // namespace drafting
