#include "programs/desktop/transcript.h"

#include <algorithm>
#include <utility>

#include "embedded/base/text.h"

namespace desktop {

void Transcript::print(std::string_view utf8) {
  for (std::size_t end = utf8.find('\n'); end != utf8.npos; end = utf8.find('\n')) {
    complete_ += current_;
    complete_.append(utf8.substr(0, end + 1));
    current_.clear();
    utf8.remove_prefix(end + 1);
  }
  current_ += utf8;
}

std::string Transcript::takeLines() { return std::exchange(complete_, {}); }

void InputHistory::add(std::string input) {
  if (!input.empty() && (inputs_.empty() || inputs_.back() != input)) {
    inputs_.push_back(std::move(input));
    if (inputs_.size() > kMost) inputs_.erase(inputs_.begin());
  }
  reset();
}

const std::string* InputHistory::older(const std::string& typed) {
  if (shown_ == 0) return nullptr;
  if (shown_ == inputs_.size()) draft_ = typed;
  return &inputs_[--shown_];
}

const std::string* InputHistory::newer() {
  if (shown_ == inputs_.size()) return nullptr;
  return ++shown_ == inputs_.size() ? &draft_ : &inputs_[shown_];
}

bool blankEnds(std::string_view typed, const drafting::Prompt* prompt) {
  if (prompt && prompt->kind == drafting::Ask::Line) return false;
  return typed.find_first_of("(\"") == typed.npos;
}

std::string complete(const std::vector<std::string>& names, std::string_view typed,
                     std::string_view shown) {
  const std::string wanted = base::capitals(typed);
  const std::string current = base::capitals(shown);
  std::string first;
  bool passed = false;
  for (const std::string& name : names) {
    if (!name.starts_with(wanted)) continue;
    if (passed) return name;
    if (first.empty()) first = name;
    passed = name == current;
  }
  return first;
}

}  // namespace desktop
