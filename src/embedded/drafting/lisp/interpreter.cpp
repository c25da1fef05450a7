#include "embedded/drafting/lisp/interpreter.h"

#include <algorithm>

#include "embedded/base/text.h"
#include "embedded/drafting/documents/session.h"
#include "embedded/drafting/lisp/reader.h"

namespace drafting::lisp {
namespace {

// Bounds the machine stack that an evaluation takes.
constexpr int kMaxDepth = 1200;
constexpr std::size_t kShownExpression = 120;  // bytes

// The expression as it stands behind a message; a long one is cut between two characters.
std::string shownExpression(const Value& expression) {
  std::string shown = print(expression);
  if (shown.size() <= kShownExpression) return shown;
  std::size_t end = kShownExpression;
  while (end > 0 && (static_cast<unsigned char>(shown[end]) & 0xC0) == 0x80) --end;
  shown.resize(end);
  return shown + "...";
}

}  // namespace

Interpreter::Interpreter(Session& session) : session_(session) {
  defineSpecialForms(*this);
  defineArithmetic(*this);
  defineLists(*this);
  defineTexts(*this);
  defineHostFunctions(*this);
  definePromptFunctions(*this);
  defineSelectionFunctions(*this);
  set("T", Value::t());
  set("PI", base::kPi);
  set("PAUSE", Symbol{"PAUSE"});
}

Outcome Interpreter::evaluateText(std::string_view text) {
  Reader reader(text, session_.language == Language::English);
  Value value;
  while (!reader.atEnd()) {
    auto expression = reader.next();
    if (!expression.ok()) {
      return base::Status::failure(
          std::string(session_.say("; 错误: LISP 语法: ", "; error: LISP syntax: ")) +
          expression.message());
    }
    auto outcome = evaluate(*expression);
    if (!outcome.ok()) return outcome;
    value = *outcome;
  }
  return value;
}

Outcome Interpreter::evaluate(const Value& expression) { return finish(eval(expression)); }

Outcome Interpreter::apply(const Value& function, const std::vector<Value>& arguments) {
  return finish(call(function, arguments));
}

Outcome Interpreter::finish(Value value) {
  if (failed()) return base::Status::failure(takeError());
  return value;
}

Value Interpreter::get(const std::string& name) const {
  const auto found = variables_.find(name);
  return found == variables_.end() ? Value() : found->second;
}

void Interpreter::set(const std::string& name, Value value) { variables_[name] = std::move(value); }

void Interpreter::define(Builtin builtin) {
  builtin.name = base::capitals(builtin.name);
  const std::string name = builtin.name;
  set(name, std::make_shared<const Builtin>(std::move(builtin)));
}

void Interpreter::undefine(std::string_view name) { variables_.erase(base::capitals(name)); }

std::vector<std::string> Interpreter::builtinNames() const {
  std::vector<std::string> names;
  for (const auto& [name, value] : variables_) {
    if (value.builtin()) names.push_back(name);
  }
  return names;
}

Value Interpreter::fail(std::string reason) {
  if (!failed()) {
    error_ = std::string(session_.say("; 错误: ", "; error: ")) + std::move(reason);
  }
  return {};
}

Value Interpreter::failAgain(std::string message) {
  if (!failed()) error_ = std::move(message);
  return {};
}

Value Interpreter::failArgument(const Value& argument, std::string_view wanted) {
  return fail(std::string(session_.say("参数类型错误: ", "bad argument type: ")) +
              std::string(wanted) + " " + print(argument));
}

Value Interpreter::failCancelled() {
  return fail(std::string(session_.say("函数被取消", "function cancelled")));
}

Value Interpreter::eval(const Value& expression) {
  if (const auto* symbol = expression.symbol()) return get(symbol->name);
  if (!expression.pair()) return expression;
  if (failed()) return {};
  if (depth_ >= kMaxDepth) {
    return fail(std::string(session_.say("嵌套太深", "nested too deeply")));
  }
  if (interrupted()) return failCancelled();
  struct Deeper {
    explicit Deeper(int& depth) : depth(depth) { ++depth; }
    ~Deeper() { --depth; }
    int& depth;
  } const deeper(depth_);
  Value value = evalList(expression);
  // The innermost expression that failed is the one shown.
  if (failed() && error_.find('\n') == std::string::npos)
    error_ += "\n" + shownExpression(expression);
  return value;
}

Value Interpreter::evalList(const Value& expression) {
  const Value head = expression.first();
  const Value function = eval(head);
  if (failed()) return {};
  if (!function.isFunction()) {
    return fail(std::string(session_.say("函数未定义: ", "no function definition: ")) +
                print(head));
  }
  const auto written = expression.rest().items();
  if (!written)
    return fail(std::string(session_.say("点对不能求值", "a dotted pair can't be evaluated")));
  if (function.builtin() && function.builtin()->special)
    return function.builtin()->call(*this, *written);
  std::vector<Value> arguments;
  arguments.reserve(written->size());
  for (const Value& argument : *written) {
    arguments.push_back(eval(argument));
    if (failed()) return {};
  }
  return call(function, arguments);
}

Value Interpreter::call(const Value& function, const std::vector<Value>& arguments) {
  if (failed()) return {};
  if (function.builtin()) return function.builtin()->call(*this, arguments);
  if (function.lambda()) return callLambda(*function.lambda(), arguments);
  if (function.symbol()) {
    const Value named = get(function.symbol()->name);
    if (named.isFunction()) return call(named, arguments);
  }
  if (function.pair()) {  // '(lambda (x) ...), quoted
    const Value made = eval(function);
    if (!failed() && made.isFunction()) return call(made, arguments);
  }
  return fail(std::string(session_.say("错误的函数: ", "bad function: ")) + print(function));
}

Value Interpreter::callLambda(const Lambda& function, const std::vector<Value>& arguments) {
  if (arguments.size() != function.parameters.size()) {
    return fail(std::string(
        session_.say(arguments.size() < function.parameters.size() ? "参数太少" : "参数太多",
                     arguments.size() < function.parameters.size() ? "too few arguments"
                                                                   : "too many arguments")));
  }
  std::vector<std::pair<std::string, Value>> hidden;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    hidden.emplace_back(function.parameters[i], get(function.parameters[i]));
    set(function.parameters[i], arguments[i]);
  }
  for (const std::string& local : function.locals) {
    hidden.emplace_back(local, get(local));
    set(local, {});
  }
  Value value;
  for (const Value& expression : function.body) {
    value = eval(expression);
    if (failed()) break;
  }
  for (auto saved = hidden.rbegin(); saved != hidden.rend(); ++saved) {
    set(saved->first, std::move(saved->second));
  }
  return value;
}

Value Interpreter::progn(const Value& body) {
  Value value;
  for (Value rest = body; rest.pair() && !failed(); rest = rest.rest()) value = eval(rest.first());
  return failed() ? Value() : value;
}

}  // namespace drafting::lisp
