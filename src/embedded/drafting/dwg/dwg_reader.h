// Reads a drawing from DWG R2000. A damaged file gives what can be had of it, with messages.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"
#include "embedded/drafting/database/read_report.h"

namespace drafting {

// The drawing in `bytes`; `name` is the file's name for messages. Fails if it is no drawing of this
// version, or nothing of it can be read; the message says what to do.
base::Result<std::unique_ptr<Database>> readDwg(std::string_view bytes, ReadReport& report,
                                                std::string_view name = "drawing");

// The same for a file.
base::Result<std::unique_ptr<Database>> openDwg(const std::filesystem::path& path,
                                                ReadReport& report);

}  // namespace drafting
