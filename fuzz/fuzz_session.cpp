// Any text typed on the command line, LISP included: the host keeps going, no undo group stays open
// but those that were typed, and everything can be taken back.
#include <cstdint>
#include <cstdlib>

#include "embedded/base/text.h"
#include "embedded/drafting/documents/session.h"

namespace {

constexpr int kMostSteps = 20000;
constexpr std::size_t kMostEntities = 2000;

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  drafting::Session session;
  // Nothing that leads out of the session; loops end as if Esc were pressed.
  for (const char* name : {"load", "command"}) session.lisp.undefine(name);
  int steps = 0;
  session.lisp.interrupted = [&steps] { return ++steps > kMostSteps; };
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const char* file :
       {"/", "\\", "SAVE", "OPEN", "ARX", "SCRIPT", "INSERT", "PLOT", "PRINT", "WBLOCK"}) {
    if (base::lowerCase(text).find(base::lowerCase(file)) != std::string::npos) return 0;
  }
  // Copies of everything, again and again, end as if Esc were pressed.
  session.line.output = [&session](std::string_view) {
    if (session.database().modelSpace().count > kMostEntities) session.line.cancel();
  };
  session.line.type(text);
  session.line.run();
  require(!session.line.insideCommand() && !session.line.answersComeFromArguments());
  drafting::Journal& journal = session.database().journal();
  while (journal.depth() > 0) journal.end();
  while (journal.undo()) {
  }
  require(session.database().modelSpace().first == nullptr);
  return 0;
}
