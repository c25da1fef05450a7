// Reads LISP text into values: lists, dotted pairs, quotes, numbers, texts with escapes, comments.
#pragma once

#include <string_view>

#include "embedded/base/status.h"
#include "embedded/drafting/lisp/value.h"

namespace drafting::lisp {

class Reader {
 public:
  // Messages are in English or else in Chinese.
  explicit Reader(std::string_view text, bool english = true) : text_(text), english_(english) {}

  bool atEnd();  // nothing but white space and comments is left
  // The next expression; fails on unbalanced brackets, open texts and lists nested too deeply.
  base::Result<Value> next();

 private:
  base::Result<Value> readList(int depth);
  base::Result<Value> readText();
  base::Result<Value> readExpression(int depth);
  Value readAtom();
  void skipBlanks();
  base::Status failure(const char* chinese, const char* english) const {
    return base::Status::failure(english_ ? english : chinese);
  }

  std::string_view text_;
  bool english_;
  std::size_t at_ = 0;
};

}  // namespace drafting::lisp
