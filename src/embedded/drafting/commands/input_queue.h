// InputQueue: what was typed, read from scripts or sent by modules, in order and not yet taken.
// A line feed is Enter; Esc (27) cancels. Knows where an input ends, not what it means.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace drafting {

class InputQueue {
 public:
  static constexpr char kEscape = 27;

  enum class Ending { Complete, Open, Escaped };
  struct Token {
    Ending ending = Ending::Open;
    bool isExpression = false;  // a LISP expression, brackets balanced
    std::string text;
  };

  void append(std::string_view utf8);
  // What a script file holds: read before anything that waits already.
  void prepend(std::string_view utf8);
  void clear();
  bool empty() const { return next_ == text_.size(); }

  // Takes the next input. `wholeLine`: it ends at Enter only (text prompts), and a bracket is a
  // character like others. Otherwise a blank ends it too, except in an expression, which ends with
  // its last bracket and swallows one blank or Enter behind it. An Open token is left in the queue
  // unless `lastInput`: then no more will come, and what is there counts as complete.
  Token take(bool wholeLine, bool lastInput);

 private:
  Token takeExpression(bool lastInput);
  std::optional<std::size_t> endOfExpression() const;
  void discardTaken();

  std::string text_;
  std::size_t next_ = 0;
};

}  // namespace drafting
