// Forms that take their arguments as written: quote, setq, defun, lambda, conditions and loops.
#include <algorithm>

#include "embedded/drafting/lisp/builtins.h"

namespace drafting::lisp {
namespace {

Value tooFew(Interpreter& lisp) {
  return lisp.fail(std::string(lisp.session().say("参数太少", "too few arguments")));
}

Value quote(Interpreter& lisp, const Arguments& written) {
  return written.size() == 1 ? written[0] : tooFew(lisp);
}

Value setq(Interpreter& lisp, const Arguments& written) {
  if (written.size() % 2 != 0) return tooFew(lisp);
  Value value;
  for (std::size_t i = 0; i < written.size(); i += 2) {
    const auto* symbol = written[i].symbol();
    if (!symbol) return lisp.failArgument(written[i], "symbolp");
    if (symbol->name == "T") {
      return lisp.fail(std::string(lisp.session().say("不能给 T 赋值", "T can't be assigned")));
    }
    value = lisp.eval(written[i + 1]);
    if (lisp.failed()) return {};
    lisp.set(symbol->name, value);
  }
  return value;
}

// Parameters and, behind a slash, locals.
bool readParameters(Interpreter& lisp, const Value& list, Lambda& function) {
  const auto items = list.items();
  if (!items) {
    lisp.failArgument(list, "listp");
    return false;
  }
  bool locals = false;
  for (const Value& item : *items) {
    const auto* symbol = item.symbol();
    if (!symbol) {
      lisp.failArgument(item, "symbolp");
      return false;
    }
    if (symbol->name == "/") {
      locals = true;
    } else {
      (locals ? function.locals : function.parameters).push_back(symbol->name);
    }
  }
  return true;
}

Value makeLambda(Interpreter& lisp, const Arguments& written, std::size_t parameters,
                 std::string name) {
  if (written.size() <= parameters) return tooFew(lisp);
  auto function = std::make_shared<Lambda>();
  function->name = std::move(name);
  if (!readParameters(lisp, written[parameters], *function)) return {};
  function->body.assign(written.begin() + static_cast<std::ptrdiff_t>(parameters) + 1,
                        written.end());
  return LambdaPointer(std::move(function));
}

Value lambda(Interpreter& lisp, const Arguments& written) {
  return makeLambda(lisp, written, 0, "");
}

Value defun(Interpreter& lisp, const Arguments& written) {
  if (written.size() < 2) return tooFew(lisp);
  const auto* name = written[0].symbol();
  if (!name) return lisp.failArgument(written[0], "symbolp");
  const Value function = makeLambda(lisp, written, 1, name->name);
  if (lisp.failed()) return {};
  lisp.set(name->name, function);
  return *name;
}

Value ifForm(Interpreter& lisp, const Arguments& written) {
  if (written.size() < 2 || written.size() > 3) return tooFew(lisp);
  const bool yes = lisp.eval(written[0]).isTrue();
  if (lisp.failed()) return {};
  if (yes) return lisp.eval(written[1]);
  return written.size() == 3 ? lisp.eval(written[2]) : Value();
}

Value cond(Interpreter& lisp, const Arguments& written) {
  for (const Value& clause : written) {
    const Value test = lisp.eval(clause.first());
    if (lisp.failed()) return {};
    if (test.isTrue()) return clause.rest().pair() ? lisp.progn(clause.rest()) : test;
  }
  return {};
}

Value whileForm(Interpreter& lisp, const Arguments& written) {
  if (written.empty()) return tooFew(lisp);
  Value value;
  while (true) {
    if (lisp.interrupted()) return lisp.failCancelled();
    const bool goOn = lisp.eval(written[0]).isTrue();
    if (lisp.failed() || !goOn) return lisp.failed() ? Value() : value;
    for (std::size_t i = 1; i < written.size() && !lisp.failed(); ++i)
      value = lisp.eval(written[i]);
  }
}

Value repeat(Interpreter& lisp, const Arguments& written) {
  if (written.empty()) return tooFew(lisp);
  const Value times = lisp.eval(written[0]);
  if (lisp.failed()) return {};
  const int* count = integerOf(lisp, times);
  if (!count) return {};
  Value value;
  for (int n = 0; n < *count && !lisp.failed(); ++n) {
    if (lisp.interrupted()) return lisp.failCancelled();
    for (std::size_t i = 1; i < written.size() && !lisp.failed(); ++i)
      value = lisp.eval(written[i]);
  }
  return lisp.failed() ? Value() : value;
}

Value foreachForm(Interpreter& lisp, const Arguments& written) {
  if (written.size() < 2) return tooFew(lisp);
  const auto* symbol = written[0].symbol();
  if (!symbol) return lisp.failArgument(written[0], "symbolp");
  const Value list = lisp.eval(written[1]);
  if (lisp.failed()) return {};
  const auto items = list.items();
  if (!items) return lisp.failArgument(list, "listp");
  const Value hidden = lisp.get(symbol->name);
  Value value;
  for (const Value& item : *items) {
    lisp.set(symbol->name, item);
    for (std::size_t i = 2; i < written.size() && !lisp.failed(); ++i)
      value = lisp.eval(written[i]);
    if (lisp.failed()) break;
  }
  lisp.set(symbol->name, hidden);
  return lisp.failed() ? Value() : value;
}

Value progn(Interpreter& lisp, const Arguments& written) {
  return lisp.progn(Value::list(written));
}

Value andForm(Interpreter& lisp, const Arguments& written) {
  for (const Value& test : written) {
    if (lisp.eval(test).isNil()) return {};
  }
  return lisp.failed() ? Value() : Value::t();
}

Value orForm(Interpreter& lisp, const Arguments& written) {
  for (const Value& test : written) {
    const bool yes = lisp.eval(test).isTrue();
    if (lisp.failed()) return {};
    if (yes) return Value::t();
  }
  return {};
}

}  // namespace

void defineSpecialForms(Interpreter& lisp) {
  defineSpecial(lisp, "quote", quote);
  defineSpecial(lisp, "function", quote);
  defineSpecial(lisp, "setq", setq);
  defineSpecial(lisp, "defun", defun);
  defineSpecial(lisp, "lambda", lambda);
  defineSpecial(lisp, "if", ifForm);
  defineSpecial(lisp, "cond", cond);
  defineSpecial(lisp, "while", whileForm);
  defineSpecial(lisp, "repeat", repeat);
  defineSpecial(lisp, "foreach", foreachForm);
  defineSpecial(lisp, "progn", progn);
  defineSpecial(lisp, "and", andForm);
  defineSpecial(lisp, "or", orForm);
}

}  // namespace drafting::lisp
