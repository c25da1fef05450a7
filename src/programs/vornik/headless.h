// A session with the module loaded, an install in use and the program's own LISP functions: what
// `run` and `place` feed with input.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

#include "embedded/base/status.h"
#include "embedded/drafting/documents/session.h"

namespace vornik {

// Has the information store kept in the install's folder and pointed at it. Call before the session
// is made. Without an install the user's own information store counts.
base::Status enterInstall(const std::string& folder);

// Where sessions keep their records: in the install that is in use, or with the user's own data.
std::filesystem::path recoveryFolder(const std::string* install);

class Headless {
 public:
  // What the command line prints goes to `transcript` (null: nowhere).
  explicit Headless(std::FILE* transcript);
  ~Headless();

  drafting::Session& session() { return session_; }
  // Feeds the text and runs until it is used up.
  void run(std::string_view script);

 private:
  drafting::Session session_;
};

}  // namespace vornik
