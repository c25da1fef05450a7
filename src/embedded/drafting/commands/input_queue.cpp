#include "embedded/drafting/commands/input_queue.h"

namespace drafting {
namespace {

constexpr std::size_t kDiscardAbove = 1 << 16;

bool endsInput(char c, bool wholeLine) {
  return c == '\n' || (!wholeLine && (c == ' ' || c == '\t'));
}

}  // namespace

void InputQueue::append(std::string_view utf8) {
  for (const char c : utf8) {
    if (c != '\r' && c != '\0') text_ += c;
  }
}

void InputQueue::prepend(std::string_view utf8) {
  InputQueue script;
  script.append(utf8);
  if (!script.text_.empty() && script.text_.back() != '\n') script.text_ += '\n';
  text_ = script.text_ + text_.substr(next_);
  next_ = 0;
}

void InputQueue::clear() {
  text_.clear();
  next_ = 0;
}

InputQueue::Token InputQueue::take(bool wholeLine, bool lastInput) {
  discardTaken();
  if (!wholeLine && !empty() && text_[next_] == '(') return takeExpression(lastInput);
  std::size_t end = next_;
  while (end < text_.size() && !endsInput(text_[end], wholeLine) && text_[end] != kEscape) ++end;
  Token token;
  if (end == text_.size()) {
    if (!lastInput || end == next_) return token;
    token.ending = Ending::Complete;
  } else {
    token.ending = text_[end] == kEscape ? Ending::Escaped : Ending::Complete;
  }
  token.text = text_.substr(next_, end - next_);
  next_ = end == text_.size() ? end : end + 1;
  return token;
}

InputQueue::Token InputQueue::takeExpression(bool lastInput) {
  Token token;
  const auto end = endOfExpression();
  if (!end && !lastInput) return token;
  const std::size_t stop = end.value_or(text_.size());
  token.text = text_.substr(next_, stop - next_);
  next_ = stop;
  token.isExpression = true;
  token.ending = Ending::Complete;
  if (token.text.find(kEscape) != std::string::npos) {
    token.ending = Ending::Escaped;
    return token;
  }
  if (!empty() && endsInput(text_[next_], false)) ++next_;
  return token;
}

// Position behind the bracket (or the Esc) that ends the expression at the front.
std::optional<std::size_t> InputQueue::endOfExpression() const {
  int depth = 0;
  bool inText = false, inComment = false;
  for (std::size_t i = next_; i < text_.size(); ++i) {
    const char c = text_[i];
    if (c == kEscape) return i + 1;
    if (inComment) {
      inComment = c != '\n';
    } else if (inText) {
      if (c == '\\')
        ++i;
      else if (c == '"')
        inText = false;
    } else if (c == '"') {
      inText = true;
    } else if (c == ';') {
      inComment = true;
    } else if (c == '(') {
      ++depth;
    } else if (c == ')' && --depth == 0) {
      return i + 1;
    }
  }
  return {};
}

void InputQueue::discardTaken() {
  if (next_ < kDiscardAbove && next_ < text_.size()) return;
  text_.erase(0, next_);
  next_ = 0;
}

}  // namespace drafting
