// Numbers: whole ones are 32 bits and wrap; one real argument makes the result real.
#include <cmath>

#include "embedded/base/numbers.h"
#include "embedded/drafting/lisp/builtins.h"

namespace drafting::lisp {
namespace {

int wrap(std::int64_t number) { return static_cast<int>(static_cast<std::uint32_t>(number)); }

Value divisionByZero(Interpreter& lisp) {
  return lisp.fail(std::string(lisp.session().say("除数为零", "divide by zero")));
}

// Folds the arguments from the left with `whole` while all are whole, else with `real`.
template <class Whole, class Real>
Value fold(Interpreter& lisp, const Arguments& arguments, Whole whole, Real real) {
  if (arguments.empty()) return 0;
  Value sum = arguments[0];
  numberOf(lisp, sum);
  for (std::size_t i = 1; i < arguments.size() && !lisp.failed(); ++i) {
    const Value& next = arguments[i];
    numberOf(lisp, next);
    if (lisp.failed()) return {};
    sum = sum.integer() && next.integer() ? whole(lisp, *sum.integer(), *next.integer())
                                          : real(lisp, sum.number(), next.number());
  }
  return lisp.failed() ? Value() : sum;
}

Value add(Interpreter& lisp, const Arguments& arguments) {
  return fold(
      lisp, arguments,
      [](Interpreter&, int a, int b) -> Value { return wrap(std::int64_t{a} + b); },
      [](Interpreter&, double a, double b) -> Value { return a + b; });
}

Value subtract(Interpreter& lisp, const Arguments& arguments) {
  if (arguments.size() == 1) return subtract(lisp, {Value(0), arguments[0]});
  return fold(
      lisp, arguments,
      [](Interpreter&, int a, int b) -> Value { return wrap(std::int64_t{a} - b); },
      [](Interpreter&, double a, double b) -> Value { return a - b; });
}

Value multiply(Interpreter& lisp, const Arguments& arguments) {
  return fold(
      lisp, arguments,
      [](Interpreter&, int a, int b) -> Value { return wrap(std::int64_t{a} * b); },
      [](Interpreter&, double a, double b) -> Value { return a * b; });
}

Value divide(Interpreter& lisp, const Arguments& arguments) {
  return fold(
      lisp, arguments,
      [](Interpreter& self, int a, int b) -> Value {
        return b == 0 ? divisionByZero(self) : Value(wrap(std::int64_t{a} / b));
      },
      [](Interpreter& self, double a, double b) -> Value {
        return b == 0 ? divisionByZero(self) : Value(a / b);
      });
}

Value remainder(Interpreter& lisp, const Arguments& arguments) {
  return fold(
      lisp, arguments,
      [](Interpreter& self, int a, int b) -> Value {
        return b == 0 ? divisionByZero(self) : Value(wrap(std::int64_t{a} % b));
      },
      [](Interpreter& self, double a, double b) -> Value {
        return b == 0 ? divisionByZero(self) : Value(std::fmod(a, b));
      });
}

// Compares numbers or texts pairwise along the list.
template <class Test>
void defineComparison(Interpreter& lisp, const char* name, Test test) {
  defineFunction(lisp, name, 1, kAnyNumber, [test](Interpreter& self, const Arguments& a) -> Value {
    for (std::size_t i = 1; i < a.size(); ++i) {
      if (a[i - 1].text() && a[i].text()) {
        if (!test(a[i - 1].text()->compare(*a[i].text()), 0)) return {};
        continue;
      }
      const double left = numberOf(self, a[i - 1]);
      const double right = numberOf(self, a[i]);
      if (self.failed() || !test(left, right)) return {};
    }
    return Value::t();
  });
}

template <class Real>
void defineReal(Interpreter& lisp, const char* name, Real real) {
  defineFunction(lisp, name, 1, 1, [real](Interpreter& self, const Arguments& a) -> Value {
    const double x = numberOf(self, a[0]);
    return self.failed() ? Value() : Value(static_cast<double>(real(x)));
  });
}

Value squareRoot(Interpreter& lisp, const Arguments& a) {
  const double x = numberOf(lisp, a[0]);
  if (x < 0)
    return lisp.fail(
        std::string(lisp.session().say("负数的平方根", "square root of a negative number")));
  return std::sqrt(x);
}

Value arcTangent(Interpreter& lisp, const Arguments& a) {
  const double y = numberOf(lisp, a[0]);
  return a.size() == 2 ? std::atan2(y, numberOf(lisp, a[1])) : std::atan(y);
}

Value fix(Interpreter& lisp, const Arguments& a) {
  const double x = numberOf(lisp, a[0]);
  if (a[0].integer() || lisp.failed()) return a[0];
  return std::abs(x) < 2147483648.0 ? Value(static_cast<int>(x)) : Value(x);
}

Value extreme(Interpreter& lisp, const Arguments& a, double sign) {
  const Value* best = &a[0];
  bool real = false;
  for (const Value& value : a) {
    const double number = numberOf(lisp, value);
    real = real || value.real();
    if (number * sign > best->number() * sign) best = &value;
  }
  if (lisp.failed()) return {};
  return real ? Value(best->number()) : *best;
}

}  // namespace

void defineArithmetic(Interpreter& lisp) {
  defineFunction(lisp, "+", 0, kAnyNumber, add);
  defineFunction(lisp, "-", 1, kAnyNumber, subtract);
  defineFunction(lisp, "*", 0, kAnyNumber, multiply);
  defineFunction(lisp, "/", 1, kAnyNumber, divide);
  defineFunction(lisp, "rem", 2, kAnyNumber, remainder);
  defineFunction(lisp, "1+", 1, 1, [](Interpreter& self, const Arguments& a) {
    return add(self, {a[0], Value(1)});
  });
  defineFunction(lisp, "1-", 1, 1, [](Interpreter& self, const Arguments& a) {
    return add(self, {a[0], Value(-1)});
  });
  defineComparison(lisp, "=", [](double a, double b) { return a == b; });
  defineComparison(lisp, "/=", [](double a, double b) { return a != b; });
  defineComparison(lisp, "<", [](double a, double b) { return a < b; });
  defineComparison(lisp, ">", [](double a, double b) { return a > b; });
  defineComparison(lisp, "<=", [](double a, double b) { return a <= b; });
  defineComparison(lisp, ">=", [](double a, double b) { return a >= b; });
  defineFunction(lisp, "sqrt", 1, 1, squareRoot);
  defineReal(lisp, "sin", [](double x) { return std::sin(x); });
  defineReal(lisp, "cos", [](double x) { return std::cos(x); });
  defineReal(lisp, "exp", [](double x) { return std::exp(x); });
  defineReal(lisp, "float", [](double x) { return x; });
  defineFunction(lisp, "atan", 1, 2, arcTangent);
  defineFunction(lisp, "fix", 1, 1, fix);
  defineFunction(lisp, "abs", 1, 1, [](Interpreter& self, const Arguments& a) -> Value {
    const double x = numberOf(self, a[0]);
    return a[0].integer() ? Value(wrap(std::abs(std::int64_t{*a[0].integer()})))
                          : Value(std::abs(x));
  });
  defineFunction(lisp, "max", 1, kAnyNumber,
                 [](Interpreter& self, const Arguments& a) { return extreme(self, a, 1); });
  defineFunction(lisp, "min", 1, kAnyNumber,
                 [](Interpreter& self, const Arguments& a) { return extreme(self, a, -1); });
  defineFunction(lisp, "numberp", 1, 1,
                 [](Interpreter&, const Arguments& a) { return Value::truth(a[0].isNumber()); });
  defineFunction(lisp, "zerop", 1, 1, [](Interpreter& self, const Arguments& a) {
    return Value::truth(numberOf(self, a[0]) == 0);
  });
  defineFunction(lisp, "minusp", 1, 1, [](Interpreter& self, const Arguments& a) {
    return Value::truth(numberOf(self, a[0]) < 0);
  });
}

}  // namespace drafting::lisp
