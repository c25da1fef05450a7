// Drawings of sessions that ended without saying so, brought back from their records.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "embedded/base/file_lock.h"
#include "embedded/base/status.h"
#include "embedded/drafting/documents/document.h"

namespace drafting {

// Records below `root` that no running session holds, newest first. What holds nothing is removed.
std::vector<std::filesystem::path> findLostDrawings(const std::filesystem::path& root);

struct LostDrawing {
  std::unique_ptr<Document> document;
  std::filesystem::path folder;
  base::FileLock lock;             // the record is this process's from now on
  std::size_t events = 0;          // done again on the autosaved drawing
  std::vector<std::string> notes;  // on what couldn't be read
};

// The drawing with all that its record holds, and with its undo steps since the autosave. Starts
// from the newest generation that can be read.
base::Result<LostDrawing> readLostDrawing(const std::filesystem::path& folder);

}  // namespace drafting
