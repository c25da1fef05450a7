// Reads a drawing from an ASCII DXF file: wholly what the writer here writes, and from files of
// other programs and releases what a drawing of R2000 can hold. The file is read as a stream; a
// damaged one gives what can be had of it, with messages that name the lines.
#pragma once

#include <filesystem>
#include <istream>
#include <memory>
#include <string_view>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"
#include "embedded/drafting/database/read_report.h"

namespace drafting {

// `name` is the file's name for messages. Fails if the stream holds no DXF.
base::Result<std::unique_ptr<Database>> readDxf(std::istream& in, ReadReport& report,
                                                std::string_view name = "drawing");

base::Result<std::unique_ptr<Database>> openDxf(const std::filesystem::path& path,
                                                ReadReport& report);

}  // namespace drafting
