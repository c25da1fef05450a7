// Reading whole files, and the one way in which documents are saved: at no moment, not even after
// a crash or with a full disk, is there neither the old document nor the new one.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "embedded/base/status.h"

namespace base {

inline constexpr std::uint64_t kLargestDocument = std::uint64_t{1} << 30;

// All bytes of a file. A file larger than `bound` is refused with a message.
Result<std::string> readFile(const std::filesystem::path& path,
                             std::uint64_t bound = kLargestDocument);

// What a save is about to do; a test can let any of it fail.
enum class SaveStep { create, write, flush, keepBackup, replace };

// Called before each step; a status that isn't good makes the step fail with its message.
using SaveHook = Status (*)(SaveStep step);

struct SaveOptions {
  bool keepBackup = true;  // the old document becomes the full name with ".bak" behind it
};

// Writes a temporary file beside `path`, flushes it to the disk, keeps the old document as backup
// and replaces it in one step. On failure the old document is untouched, and the message names the
// file and the reason. A link is followed; the old file's permissions are kept.
Status saveAtomically(const std::filesystem::path& path, std::string_view bytes,
                      SaveOptions options = {});

// The same for a document that is made piece by piece: `produce` hands its bytes to the function it
// is given and stops at the first failure of that, which it returns.
using PieceWriter = std::function<Status(std::string_view)>;
Status saveAtomically(const std::filesystem::path& path,
                      const std::function<Status(const PieceWriter&)>& produce,
                      SaveOptions options = {});

// Installs `hook` (null: none) and returns the one before.
SaveHook setSaveHook(SaveHook hook);

// Renames a file that can't be read as what it should be to NAME.damaged-N, N being the first
// number from 1 that is free, and returns the new path.
Result<std::filesystem::path> moveDamagedAside(const std::filesystem::path& path);

}  // namespace base
