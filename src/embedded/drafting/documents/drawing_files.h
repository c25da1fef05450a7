// Drawings from and to files by their extension: .dwg and .dxf.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"

namespace drafting {

// What the user should know of a drawing that is opened or saved all the same.
using Note = std::function<void(std::string_view)>;

// `path` is UTF-8, in the notation of either system.
base::Result<std::unique_ptr<Database>> readDrawing(const std::string& path, const Note& note = {});

// Atomically, keeping the old file as backup. What the form of file can't hold goes to `note`
// before anything is written.
base::Status saveDrawingFile(const Database& database, const std::string& path,
                             const Note& note = {});

}  // namespace drafting
