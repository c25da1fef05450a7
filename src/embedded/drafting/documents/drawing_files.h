// Drawings from and to files by their extension: .dwg and .dxf.
#pragma once

#include <filesystem>
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

// Where a drawing's fonts are looked for first; empty for the path of a drawing never saved.
std::filesystem::path folderOfDrawing(const std::string& path);

// What the form of file that `path` names can't hold of the drawing, as "2 DIMENSION, 1 SPLINE".
// Empty if nothing would be lost.
std::string drawingLosses(const Database& database, const std::string& path);

// Whether a drawing is saved although the file can't hold all of it.
enum class Losses { Refused, Accepted };

// Atomically, keeping the old file as backup. Losses are refused before anything is written, or
// told to `note`.
base::Status saveDrawingFile(const Database& database, const std::string& path,
                             Losses losses = Losses::Refused, const Note& note = {});

}  // namespace drafting
