#include "programs/desktop/macros.h"

#include "embedded/base/text.h"

namespace desktop {

namespace {

constexpr std::string_view kCancel = "^C";

// The length of the expression that the text begins with; all of it if its end is missing.
std::size_t expressionLength(std::string_view text) {
  int depth = 0;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted && c == '\\') {
      ++i;
    } else if (c == '"') {
      quoted = !quoted;
    } else if (!quoted && c == '(') {
      ++depth;
    } else if (!quoted && c == ')' && --depth == 0) {
      return i + 1;
    }
  }
  return text.size();
}

}  // namespace

std::deque<std::string> macroSteps(std::string_view macro) {
  while (macro.starts_with(kCancel)) macro.remove_prefix(kCancel.size());
  std::deque<std::string> steps;
  while (!macro.empty()) {
    if (macro.front() == ' ' && !steps.empty()) {
      macro.remove_prefix(1);
      continue;
    }
    const std::size_t length = macro.front() == '(' ? expressionLength(macro) : macro.size();
    std::string step(macro.substr(0, length));
    if (!step.ends_with('\n')) step += '\n';
    steps.push_back(std::move(step));
    macro.remove_prefix(length);
  }
  return steps;
}

void Macros::start(std::string_view macro) {
  const drafting::Prompt* prompt = session_.line.waitingPrompt();
  const bool busy = prompt && (prompt->kind != drafting::Ask::Command || session_.line.hasInput());
  if (busy && !macro.starts_with(kCancel)) {  // it answers what is being asked
    for (const std::string& step : macroSteps(macro)) session_.line.type(step);
    return;
  }
  for (std::string& step : macroSteps(macro)) steps_.push_back(std::move(step));
  if (busy) {
    session_.line.cancel();
  } else {
    ready();
  }
}

void Macros::ready() {
  if (steps_.empty()) return;
  session_.line.type(steps_.front());
  steps_.pop_front();
}

}  // namespace desktop
