// Reads a drawing from DWG R2000. A damaged file gives what can be had of it, with messages.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"

namespace drafting {

struct ReadMessage {
  std::size_t offset = 0;  // in the file; 0 where no place can be named
  std::string text;
};

// What a reader met that wasn't as it should be. Empty: the file is sound and wholly understood or
// carried through.
struct ReadReport {
  static constexpr std::size_t kLimit = 100;

  std::vector<ReadMessage> messages;  // at most kLimit of them
  std::size_t more = 0;               // messages beyond that

  void add(std::size_t offset, std::string text);
  std::string summary() const;  // a line each, with the offset in hexadecimal
};

// The drawing in `bytes`; `name` is the file's name for messages. Fails if it is no drawing of this
// version, or nothing of it can be read; the message says what to do.
base::Result<std::unique_ptr<Database>> readDwg(std::string_view bytes, ReadReport& report,
                                                std::string_view name = "drawing");

// The same for a file.
base::Result<std::unique_ptr<Database>> openDwg(const std::filesystem::path& path,
                                                ReadReport& report);

}  // namespace drafting
