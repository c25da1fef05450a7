#include "embedded/drafting/lisp/reader.h"

#include <charconv>

#include "embedded/base/text.h"

namespace drafting::lisp {
namespace {

constexpr int kMaxDepth = 500;

bool isBlank(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f'; }

bool endsAtom(char c) {
  return isBlank(c) || c == '(' || c == ')' || c == '"' || c == '\'' || c == ';';
}

template <class Number>
bool parseWhole(std::string_view text, Number& out) {
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), out);
  return error == std::errc() && end == text.data() + text.size();
}

bool looksNumeric(std::string_view text) {
  return text.substr(0, 3).find_first_of("0123456789") != std::string_view::npos &&
         text.find_first_not_of("0123456789+-.eE") == std::string_view::npos;
}

}  // namespace

void Reader::skipBlanks() {
  while (at_ < text_.size()) {
    if (isBlank(text_[at_])) {
      ++at_;
    } else if (text_.substr(at_, 2) == ";|") {
      const std::size_t end = text_.find("|;", at_ + 2);
      at_ = end == std::string_view::npos ? text_.size() : end + 2;
    } else if (text_[at_] == ';') {
      while (at_ < text_.size() && text_[at_] != '\n') ++at_;
    } else {
      return;
    }
  }
}

bool Reader::atEnd() {
  skipBlanks();
  return at_ == text_.size();
}

base::Result<Value> Reader::next() { return readExpression(0); }

base::Result<Value> Reader::readExpression(int depth) {
  skipBlanks();
  if (depth > kMaxDepth) return failure("表嵌套太深", "lists are nested too deeply");
  if (at_ == text_.size()) return failure("表达式不完整", "the expression ends too early");
  switch (text_[at_]) {
    case '(': ++at_; return readList(depth + 1);
    case ')': ++at_; return failure("多出一个 )", "there is a ) too many");
    case '"': ++at_; return readText();
    case '\'': {
      ++at_;
      auto quoted = readExpression(depth + 1);
      if (!quoted.ok()) return quoted;
      return Value::list({Symbol{"QUOTE"}, *quoted});
    }
    default: return readAtom();
  }
}

base::Result<Value> Reader::readList(int depth) {
  std::vector<Value> items;
  while (true) {
    skipBlanks();
    if (at_ == text_.size()) return failure("缺少 )", "a ) is missing");
    if (text_[at_] == ')') {
      ++at_;
      return Value::list(items);
    }
    const bool dot = text_[at_] == '.' && at_ + 1 < text_.size() && isBlank(text_[at_ + 1]);
    if (dot) ++at_;
    auto item = readExpression(depth);
    if (!item.ok()) return item;
    if (!dot) {
      items.push_back(std::move(*item));
      continue;
    }
    skipBlanks();
    if (items.empty() || at_ == text_.size() || text_[at_] != ')')
      return failure("点的位置不对", "a dot is misplaced");
    ++at_;
    return Value::list(items, std::move(*item));
  }
}

base::Result<Value> Reader::readText() {
  std::string out;
  while (at_ < text_.size() && text_[at_] != '"') {
    char c = text_[at_++];
    if (c == '\\' && at_ < text_.size()) {
      c = text_[at_++];
      switch (c) {
        case 'n': c = '\n'; break;
        case 'r': c = '\r'; break;
        case 't': c = '\t'; break;
        case 'e': c = 27; break;
        default: break;
      }
    }
    out += c;
  }
  if (at_ == text_.size()) return failure("字符串没有结束", "a text isn't closed");
  ++at_;
  return Value(std::move(out));
}

Value Reader::readAtom() {
  const std::size_t start = at_;
  while (at_ < text_.size() && !endsAtom(text_[at_])) ++at_;
  const std::string_view atom = text_.substr(start, at_ - start);
  int integer = 0;
  double real = 0;
  if (looksNumeric(atom)) {
    if (parseWhole(atom, integer)) return integer;
    if (parseWhole(atom, real)) return real;
  }
  std::string name(atom);
  for (char& c : name) c = base::capital(c);
  if (name == "NIL") return {};
  return Symbol{std::move(name)};
}

}  // namespace drafting::lisp
