// Transcript: what the command line printed, as lines; and the box below it in which one types:
// former inputs, completion of command names, and where a blank ends an input.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "embedded/drafting/commands/prompt.h"

namespace desktop {

class Transcript {
 public:
  void print(std::string_view utf8);
  // The lines that were completed since the last call, each with its line feed.
  std::string takeLines();
  const std::string& current() const { return current_; }  // the line that isn't complete: a prompt

 private:
  std::string complete_, current_;
};

class InputHistory {
 public:
  void add(std::string input);
  // The input before (after) the one that is shown, `typed` being what stands in the box now; null
  // where there is none.
  const std::string* older(const std::string& typed);
  const std::string* newer();
  void reset() { shown_ = inputs_.size(); }

 private:
  static constexpr std::size_t kMost = 200;
  std::vector<std::string> inputs_;
  std::size_t shown_ = 0;
  std::string draft_;  // what was being typed when one went back
};

// Whether a blank behind `typed` ends the input, as it does at the prompt, or belongs to it: in a
// text, in a LISP expression.
bool blankEnds(std::string_view typed, const drafting::Prompt* prompt);

// The name among `names` (sorted) that begins with `typed`, the next one behind `shown` if that is
// one of them; empty if there is none.
std::string complete(const std::vector<std::string>& names, std::string_view typed,
                     std::string_view shown);

}  // namespace desktop
