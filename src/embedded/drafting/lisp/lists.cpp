// Lists, symbols and functions as values: building, taking apart, searching, mapping.
#include <algorithm>

#include "embedded/drafting/lisp/builtins.h"

namespace drafting::lisp {
namespace {

// The elements of a list argument; sets the error for anything else.
Arguments itemsOf(Interpreter& lisp, const Value& value) {
  auto items = value.items();
  if (!items) lisp.failArgument(value, "listp");
  return items.value_or(Arguments{});
}

// car, cdr and their combinations: "add" for cadr means cdr, then car (read from the right).
void defineAccessor(Interpreter& lisp, const std::string& path) {
  defineFunction(lisp, ("c" + path + "r").c_str(), 1, 1,
                 [path](Interpreter& self, const Arguments& a) -> Value {
                   Value value = a[0];
                   for (auto step = path.rbegin(); step != path.rend(); ++step) {
                     if (!value.isList()) return self.failArgument(value, "listp");
                     value = *step == 'a' ? value.first() : value.rest();
                   }
                   return value;
                 });
}

Value append(Interpreter& lisp, const Arguments& a) {
  Arguments all;
  for (const Value& list : a) {
    for (Value& item : itemsOf(lisp, list)) all.push_back(std::move(item));
  }
  return lisp.failed() ? Value() : Value::list(all);
}

Value reverse(Interpreter& lisp, const Arguments& a) {
  Arguments items = itemsOf(lisp, a[0]);
  std::reverse(items.begin(), items.end());
  return Value::list(items);
}

Value nth(Interpreter& lisp, const Arguments& a) {
  const int* n = integerOf(lisp, a[0]);
  const Arguments items = itemsOf(lisp, a[1]);
  if (!n || *n < 0 || static_cast<std::size_t>(*n) >= items.size()) return {};
  return items[static_cast<std::size_t>(*n)];
}

Value member(Interpreter& lisp, const Arguments& a) {
  if (!a[1].isList()) return lisp.failArgument(a[1], "listp");
  Value rest = a[1];
  while (rest.pair() && !equal(rest.first(), a[0])) rest = rest.rest();
  return rest.pair() ? rest : Value();
}

Value assoc(Interpreter& lisp, const Arguments& a) {
  if (!a[1].isList()) return lisp.failArgument(a[1], "listp");
  for (Value rest = a[1]; rest.pair(); rest = rest.rest()) {
    if (rest.first().pair() && equal(rest.first().first(), a[0])) return rest.first();
  }
  return {};
}

Value substitute(Interpreter& lisp, const Arguments& a) {
  Arguments items = itemsOf(lisp, a[2]);
  for (Value& item : items) {
    if (equal(item, a[1])) item = a[0];
  }
  return Value::list(items);
}

Value mapcar(Interpreter& lisp, const Arguments& a) {
  std::vector<Arguments> columns;
  std::size_t rows = kAnyNumber;
  for (std::size_t i = 1; i < a.size(); ++i) {
    columns.push_back(itemsOf(lisp, a[i]));
    rows = std::min(rows, columns.back().size());
  }
  Arguments results;
  for (std::size_t row = 0; row < rows && !lisp.failed(); ++row) {
    Arguments call;
    for (const Arguments& column : columns) call.push_back(column[row]);
    results.push_back(lisp.call(a[0], call));
  }
  return lisp.failed() ? Value() : Value::list(results);
}

Value setFunction(Interpreter& lisp, const Arguments& a) {
  const auto* symbol = a[0].symbol();
  if (!symbol) return lisp.failArgument(a[0], "symbolp");
  lisp.set(symbol->name, a[1]);
  return a[1];
}

Value typeOf(Interpreter&, const Arguments& a) {
  return a[0].isNil() ? Value() : Value(Symbol{std::string(typeName(a[0]))});
}

}  // namespace

void defineLists(Interpreter& lisp) {
  for (const char* path : {"a", "d", "aa", "ad", "da", "dd", "add", "ddd", "aad", "dda"}) {
    defineAccessor(lisp, path);
  }
  defineFunction(lisp, "cons", 2, 2,
                 [](Interpreter&, const Arguments& a) { return Value::cons(a[0], a[1]); });
  defineFunction(lisp, "list", 0, kAnyNumber,
                 [](Interpreter&, const Arguments& a) { return Value::list(a); });
  defineFunction(lisp, "append", 0, kAnyNumber, append);
  defineFunction(lisp, "reverse", 1, 1, reverse);
  defineFunction(lisp, "length", 1, 1, [](Interpreter& self, const Arguments& a) {
    return Value(static_cast<int>(itemsOf(self, a[0]).size()));
  });
  defineFunction(lisp, "last", 1, 1, [](Interpreter& self, const Arguments& a) {
    const Arguments items = itemsOf(self, a[0]);
    return items.empty() ? Value() : items.back();
  });
  defineFunction(lisp, "nth", 2, 2, nth);
  defineFunction(lisp, "member", 2, 2, member);
  defineFunction(lisp, "assoc", 2, 2, assoc);
  defineFunction(lisp, "subst", 3, 3, substitute);
  defineFunction(lisp, "mapcar", 2, kAnyNumber, mapcar);
  defineFunction(lisp, "apply", 2, 2, [](Interpreter& self, const Arguments& a) {
    const Arguments items = itemsOf(self, a[1]);
    return self.call(a[0], items);
  });
  defineFunction(lisp, "eval", 1, 1,
                 [](Interpreter& self, const Arguments& a) { return self.eval(a[0]); });
  defineFunction(lisp, "set", 2, 2, setFunction);
  defineFunction(lisp, "type", 1, 1, typeOf);
  defineFunction(lisp, "not", 1, 1,
                 [](Interpreter&, const Arguments& a) { return Value::truth(a[0].isNil()); });
  defineFunction(lisp, "null", 1, 1,
                 [](Interpreter&, const Arguments& a) { return Value::truth(a[0].isNil()); });
  defineFunction(lisp, "atom", 1, 1,
                 [](Interpreter&, const Arguments& a) { return Value::truth(!a[0].pair()); });
  defineFunction(lisp, "listp", 1, 1,
                 [](Interpreter&, const Arguments& a) { return Value::truth(a[0].isList()); });
  defineFunction(lisp, "boundp", 1, 1, [](Interpreter& self, const Arguments& a) {
    return Value::truth(a[0].symbol() && self.get(a[0].symbol()->name).isTrue());
  });
  defineFunction(lisp, "eq", 2, 2,
                 [](Interpreter&, const Arguments& a) { return Value::truth(a[0].same(a[1])); });
  defineFunction(lisp, "equal", 2, 3, [](Interpreter& self, const Arguments& a) {
    return Value::truth(equal(a[0], a[1], a.size() == 3 ? numberOf(self, a[2]) : 0));
  });
}

}  // namespace drafting::lisp
