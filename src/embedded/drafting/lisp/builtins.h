// Small helpers that the builtin files share: checked access to arguments.
#pragma once

#include "embedded/drafting/documents/session.h"
#include "embedded/drafting/lisp/interpreter.h"

namespace drafting::lisp {

using Arguments = std::vector<Value>;

inline constexpr std::size_t kAnyNumber = ~std::size_t{0};

// Defines a function that takes `least` to `most` evaluated arguments.
template <class Function>
void defineFunction(Interpreter& lisp, const char* name, std::size_t least, std::size_t most,
                    Function function) {
  auto checked = [least, most, function](Interpreter& self, const Arguments& arguments) -> Value {
    if (arguments.size() < least) {
      return self.fail(std::string(self.session().say("参数太少", "too few arguments")));
    }
    if (arguments.size() > most) {
      return self.fail(std::string(self.session().say("参数太多", "too many arguments")));
    }
    return function(self, arguments);
  };
  lisp.define({name, false, checked});
}

template <class Function>
void defineSpecial(Interpreter& lisp, const char* name, Function function) {
  lisp.define({name, true, function});
}

inline const std::string* textOf(Interpreter& lisp, const Value& value) {
  if (!value.text()) lisp.failArgument(value, "stringp");
  return value.text();
}

inline const int* integerOf(Interpreter& lisp, const Value& value) {
  if (!value.integer()) lisp.failArgument(value, "fixnump");
  return value.integer();
}

// Real and whole numbers alike; sets the interpreter's error and gives 0 for anything else.
inline double numberOf(Interpreter& lisp, const Value& value) {
  if (!value.isNumber()) lisp.failArgument(value, "numberp");
  return value.number();
}

}  // namespace drafting::lisp
