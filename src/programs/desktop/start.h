// What the desktop starts with: its command line, the folder of its own data, and the library that
// the module works on.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/documents/session.h"

namespace desktop {

// drafting [--install DIR] [--script FILE] [DRAWING]
struct StartOptions {
  std::optional<std::string> install, script, drawing;  // UTF-8
  std::string problem;                                  // empty, or what is wrong
};
StartOptions parseOptions(const std::vector<std::string>& words);

// The user's own folder: the list of recent files, the sample library, records for recovery.
std::filesystem::path userFolder();

// Where an install is, and where it keeps what belongs to the work on it.
struct Library {
  std::filesystem::path folder;   // empty: there is none
  std::filesystem::path records;  // for recovery
};

// Points the information store and the fonts at the library to be used: the one named, with an
// information store of its own; else the one chosen before; else the sample library in the user's
// folder, which is made at the first start. `progress` hears of the steps of making it. Call with a
// session and before the module is loaded.
base::Result<Library> enterLibrary(const StartOptions& options,
                                   const std::function<void(std::string_view)>& progress);

// A wide command line's words are UTF-8 from here on.
std::vector<std::string> utf8Words(int count, const wchar_t* const* words);

}  // namespace desktop
