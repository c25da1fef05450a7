// Drawings from and to files by their extension: .dwg and .dxf.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"

namespace drafting {

// `path` is UTF-8, in the notation of either system. Problems that don't keep the drawing from
// being opened go to `note`.
base::Result<std::unique_ptr<Database>> readDrawing(
    const std::string& path, const std::function<void(std::string_view)>& note = {});

// Atomically, keeping the old file as backup.
base::Status saveDrawingFile(const Database& database, const std::string& path);

}  // namespace drafting
