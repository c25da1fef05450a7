// The sample groups of auxiliary symbols in an auxiliary library, and what can be done about one
// without groups, whose bar would be empty and has no entry that adds a group.
#pragma once

#include <filesystem>

#include "embedded/base/status.h"
#include "embedded/drafting/documents/session.h"

namespace samples {

// The groups of a new install in the directories that the definitions name, and their store. What
// stands there is written over.
base::Status makeAuxiliaryLibrary(const std::filesystem::path& library);

enum class AuxiliaryState { usable, missing, damaged, empty };

struct AuxiliaryFindings {
  AuxiliaryState state;
  bool kept;  // the generation before the last save is there and has groups
};
// `library` is the folder of the store zhlFzgn.qdp.
AuxiliaryFindings examineAuxiliary(const std::filesystem::path& library);

// Both keep what stands in the store's place beside it, and every directory as it is. A program
// calls them before the module reads the store, and has a session, which prints what was kept.
base::Status restoreKeptAuxiliary(const std::filesystem::path& library);
base::Status addSampleGroups(const std::filesystem::path& library);  // in directories that are free

// Asks by message boxes whether to do the one or the other; does nothing when there are groups.
// True when there are groups in the end.
bool offerAuxiliary(const std::filesystem::path& library, drafting::Language language,
                    void* owner = nullptr);

}  // namespace samples
