// Macros: what menu entries and buttons type. "^C" in front cancels what is running. Each LISP
// expression of a macro, and what stands behind the last one, is an input of its own that comes
// only when the command line is at its own prompt again: so an expression that asks for something
// doesn't take the next one for the answer, and the last one runs also when one before was
// cancelled.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "embedded/drafting/documents/session.h"

namespace desktop {

class Macros {
 public:
  explicit Macros(drafting::Session& session) : session_(session) {}

  void start(std::string_view macro);
  // To be called whenever the command line is ready for the next command.
  void ready();

 private:
  drafting::Session& session_;
  std::deque<std::string> steps_;
};

// The inputs of a macro, without its "^C".
std::deque<std::string> macroSteps(std::string_view macro);

}  // namespace desktop
