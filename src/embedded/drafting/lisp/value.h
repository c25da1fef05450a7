// Values of the host's LISP: nil, integers (32 bits), reals, texts, symbols, pairs, functions,
// entity names and selection sets. Values are immutable and share their structure; lists can't be
// cyclic.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "embedded/drafting/commands/prompt.h"

namespace drafting::lisp {

class Value;
class Interpreter;

struct Pair;
using PairPointer = std::shared_ptr<const Pair>;

struct Symbol {
  std::string name;  // capitals
  friend bool operator==(const Symbol&, const Symbol&) = default;
};

struct EntityName {
  Handle handle = 0;
  friend bool operator==(EntityName, EntityName) = default;
};

struct SelectionSetName {
  std::int64_t id = 0;
  friend bool operator==(SelectionSetName, SelectionSetName) = default;
};

// What (princ) without argument gives: nothing is printed for it, and it counts as nil.
struct Void {
  friend bool operator==(Void, Void) { return true; }
};

// A function of the host or of a module: takes evaluated arguments, or (special forms) the
// arguments as written.
struct Builtin {
  std::string name;
  bool special = false;
  std::function<Value(Interpreter&, const std::vector<Value>&)> call;
};
using BuiltinPointer = std::shared_ptr<const Builtin>;

// A function made by defun or lambda.
struct Lambda;
using LambdaPointer = std::shared_ptr<const Lambda>;

class Value {
 public:
  Value() = default;  // nil
  Value(int number) : data_(number) {}
  Value(double number) : data_(number) {}
  Value(std::string text) : data_(std::make_shared<const std::string>(std::move(text))) {}
  Value(Symbol symbol) : data_(std::make_shared<const Symbol>(std::move(symbol))) {}
  Value(PairPointer pair) : data_(std::move(pair)) {}
  Value(BuiltinPointer function) : data_(std::move(function)) {}
  Value(LambdaPointer function) : data_(std::move(function)) {}
  Value(EntityName name) : data_(name) {}
  Value(SelectionSetName set) : data_(set) {}
  Value(Void nothing) : data_(nothing) {}

  static Value t() { return Symbol{"T"}; }
  static Value truth(bool yes) { return yes ? t() : Value(); }
  static Value cons(Value first, Value rest);
  static Value list(const std::vector<Value>& items, Value rest = {});

  bool isVoid() const { return std::holds_alternative<Void>(data_); }
  bool isNil() const { return std::holds_alternative<std::monostate>(data_) || isVoid(); }
  bool isTrue() const { return !isNil(); }
  const int* integer() const { return std::get_if<int>(&data_); }
  const double* real() const { return std::get_if<double>(&data_); }
  bool isNumber() const { return integer() || real(); }
  double number() const { return integer() ? *integer() : real() ? *real() : 0; }
  const std::string* text() const { return pointee<const std::string>(); }
  const Symbol* symbol() const { return pointee<const Symbol>(); }
  const Pair* pair() const { return pointee<const Pair>(); }
  bool holdsPairAlone() const;  // a pair that no other value shares
  const Lambda* lambda() const { return pointee<const Lambda>(); }
  const Builtin* builtin() const { return pointee<const Builtin>(); }
  const EntityName* entity() const { return std::get_if<EntityName>(&data_); }
  const SelectionSetName* selectionSet() const { return std::get_if<SelectionSetName>(&data_); }
  bool isFunction() const { return lambda() || builtin(); }
  bool isList() const { return isNil() || pair(); }

  // The same object (numbers and texts by value): what EQ tests.
  bool same(const Value& other) const;
  // Elements of a proper list; nothing if this is none.
  std::optional<std::vector<Value>> items() const;
  Value first() const;  // car and cdr; nil of anything that is no pair
  Value rest() const;

 private:
  template <class T>
  T* pointee() const {
    const auto* shared = std::get_if<std::shared_ptr<T>>(&data_);
    return shared ? shared->get() : nullptr;
  }

  std::variant<std::monostate, int, double, std::shared_ptr<const std::string>,
               std::shared_ptr<const Symbol>, PairPointer, BuiltinPointer, LambdaPointer,
               EntityName, SelectionSetName, Void>
      data_;
};

struct Pair {
  Pair(Value first, Value rest) : first(std::move(first)), rest(std::move(rest)) {}
  ~Pair();  // without recursion, however long and deep the list is
  Pair(const Pair&) = delete;
  Pair& operator=(const Pair&) = delete;
  mutable Value first, rest;  // changed by the destructor alone
};

struct Lambda {
  std::string name;  // empty for a lambda
  std::vector<std::string> parameters, locals;
  std::vector<Value> body;
};

bool equal(const Value& a, const Value& b, double tolerance = 0);
// As PRIN1 writes it; `readable` false: as PRINC does, texts without quotes.
std::string print(const Value& value, bool readable = true);
std::string_view typeName(const Value& value);  // as TYPE gives it, "nil" for nil

// What the value answers to a prompt: numbers, texts, points (lists of two or three numbers),
// entities and selection sets; nothing for nil and the rest.
std::optional<Argument> toArgument(const Value& value);
std::optional<Point3> toPoint(const Value& value);
Value fromPoint(const Point3& point);

}  // namespace drafting::lisp
