#include "embedded/drafting/lisp/value.h"

#include <cmath>
#include <deque>

#include "embedded/base/numbers.h"
#include "embedded/drafting/documents/session.h"

namespace drafting::lisp {
namespace {

constexpr int kPrintDepth = 200;

std::string printReal(double number) {
  std::string text = base::formatG(number);
  if (text.find_first_of(".en") == std::string::npos) text += ".0";
  return text;
}

std::string printText(const std::string& text) {
  std::string out = "\"";
  for (const char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      case 27: out += "\\e"; break;
      default: out += c;
    }
  }
  return out + '"';
}

std::string printHex(std::uint64_t number) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string out;
  do {
    out.insert(out.begin(), kDigits[number & 15]);
    number >>= 4;
  } while (number);
  return out;
}

std::string printValue(const Value& value, bool readable, int depth) {
  if (value.isNil()) return "nil";
  if (const int* number = value.integer()) return std::to_string(*number);
  if (const double* number = value.real()) return printReal(*number);
  if (const auto* text = value.text()) return readable ? printText(*text) : *text;
  if (const auto* symbol = value.symbol()) return symbol->name;
  if (const auto* function = value.builtin()) return "#<SUBR " + function->name + ">";
  if (const auto* function = value.lambda()) return "#<USUBR " + function->name + ">";
  if (const auto* entity = value.entity()) return "<Entity name: " + printHex(entity->handle) + ">";
  if (const auto* set = value.selectionSet()) {
    return "<Selection set: " + printHex(static_cast<std::uint64_t>(set->id)) + ">";
  }
  if (depth > kPrintDepth) return "...";
  std::string out = "(";
  const Value* rest = &value;
  for (; rest->pair(); rest = &rest->pair()->rest) {
    if (out.size() > 1) out += ' ';
    out += printValue(rest->pair()->first, readable, depth + 1);
  }
  if (!rest->isNil()) out += " . " + printValue(*rest, readable, depth + 1);
  return out + ')';
}

}  // namespace

// Taking the list apart pair by pair keeps the destructors from nesting as deep as it is long or
// nested. Pairs that another list shares stay as they are.
Pair::~Pair() {
  if (!first.holdsPairAlone() && !rest.holdsPairAlone()) return;
  std::deque<Value> doomed;
  const auto take = [&doomed](const Pair& pair) {
    if (pair.first.holdsPairAlone()) doomed.push_back(std::move(pair.first));
    if (pair.rest.holdsPairAlone()) doomed.push_back(std::move(pair.rest));
  };
  take(*this);
  while (!doomed.empty()) {
    const Value last = std::move(doomed.back());
    doomed.pop_back();
    take(*last.pair());
  }
}

bool Value::holdsPairAlone() const {
  const auto* shared = std::get_if<PairPointer>(&data_);
  return shared && shared->use_count() == 1;
}

Value Value::cons(Value first, Value rest) {
  return Value(std::make_shared<const Pair>(std::move(first), std::move(rest)));
}

Value Value::list(const std::vector<Value>& items, Value rest) {
  for (auto item = items.rbegin(); item != items.rend(); ++item)
    rest = cons(*item, std::move(rest));
  return rest;
}

Value Value::first() const { return pair() ? pair()->first : Value(); }
Value Value::rest() const { return pair() ? pair()->rest : Value(); }

bool Value::same(const Value& other) const {
  if (isNil() && other.isNil()) return true;
  if (text() && other.text()) return *text() == *other.text();
  if (symbol() && other.symbol()) return *symbol() == *other.symbol();
  return data_ == other.data_;
}

std::optional<std::vector<Value>> Value::items() const {
  std::vector<Value> out;
  const Value* rest = this;
  for (; rest->pair(); rest = &rest->pair()->rest) out.push_back(rest->pair()->first);
  if (!rest->isNil()) return {};
  return out;
}

bool equal(const Value& a, const Value& b, double tolerance) {
  std::vector<std::pair<const Value*, const Value*>> open{{&a, &b}};
  while (!open.empty()) {
    const auto [left, right] = open.back();
    open.pop_back();
    if (left->pair() && right->pair()) {
      open.emplace_back(&left->pair()->rest, &right->pair()->rest);
      open.emplace_back(&left->pair()->first, &right->pair()->first);
    } else if (left->isNumber() && right->isNumber()) {
      if (!(std::abs(left->number() - right->number()) <= tolerance)) return false;
    } else if (!left->same(*right)) {
      return false;
    }
  }
  return true;
}

std::string print(const Value& value, bool readable) { return printValue(value, readable, 0); }

std::string_view typeName(const Value& value) {
  if (value.isNil()) return "nil";
  if (value.integer()) return "INT";
  if (value.real()) return "REAL";
  if (value.text()) return "STR";
  if (value.symbol()) return "SYM";
  if (value.pair()) return "LIST";
  if (value.builtin()) return "SUBR";
  if (value.lambda()) return "USUBR";
  return value.entity() ? "ENAME" : "PICKSET";
}

std::optional<Point3> toPoint(const Value& value) {
  const auto items = value.items();
  if (!items || items->size() < 2 || items->size() > 3) return {};
  for (const Value& item : *items) {
    if (!item.isNumber()) return {};
  }
  return Point3{(*items)[0].number(), (*items)[1].number(),
                items->size() == 3 ? (*items)[2].number() : 0};
}

Value fromPoint(const Point3& point) { return Value::list({point.x, point.y, point.z}); }

std::optional<Argument> toArgument(const Value& value) {
  if (const int* number = value.integer()) return *number;
  if (const double* number = value.real()) return *number;
  if (const auto* text = value.text()) return *text;
  if (const auto* entity = value.entity()) return Selection{entity->handle};
  if (const auto* set = value.selectionSet()) {
    const Selection* found = Session::active().selection(set->id);

    return found ? *found : Selection{};
  }
  if (const auto point = toPoint(value)) return *point;
  const Value head = value.first();
  if (const auto* entity = head.entity()) {  // as entsel gives it
    const auto point = toPoint(value.rest().first());
    if (point && value.rest().rest().isNil()) return PickedEntity{entity->handle, *point};
  }
  if (value.symbol() && value.symbol()->name == "PAUSE") return Pause{};
  return {};
}

}  // namespace drafting::lisp
