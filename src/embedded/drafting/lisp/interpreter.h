// Interpreter: evaluates the host's LISP. Variables are dynamic: a function's parameters and locals
// hide the outer values while it runs. An error ends the evaluation with a message that names the
// expression; nothing is thrown.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/lisp/value.h"

namespace drafting {
class Session;
}

namespace drafting::lisp {

using Outcome = base::Result<Value>;

class Interpreter {
 public:
  explicit Interpreter(Session& session);

  // Evaluates every expression of the text; the value of the last one.
  Outcome evaluateText(std::string_view text);
  Outcome evaluate(const Value& expression);
  Outcome apply(const Value& function, const std::vector<Value>& arguments);

  Value get(const std::string& name) const;
  void set(const std::string& name, Value value);
  void define(Builtin builtin);
  void undefine(std::string_view name);
  std::vector<std::string> builtinNames() const;  // in no order

  // Asked at every call; true ends the evaluation as cancelled (Esc).
  std::function<bool()> interrupted = [] { return false; };

  // --- for builtins
  Session& session() { return session_; }
  Value eval(const Value& expression);  // nil after a failure: look at failed()
  Value call(const Value& function, const std::vector<Value>& arguments);
  Value progn(const Value& body);        // a list of expressions
  Value fail(std::string reason);        // the result is nil
  Value failAgain(std::string message);  // with the whole message of an inner evaluation
  Value failCancelled();                 // the user has cancelled it
  Value failArgument(const Value& argument, std::string_view wanted);
  bool failed() const { return !error_.empty(); }
  std::string takeError() { return std::exchange(error_, {}); }

 private:
  Value evalList(const Value& expression);
  Value callLambda(const Lambda& function, const std::vector<Value>& arguments);
  Outcome finish(Value value);

  Session& session_;
  std::unordered_map<std::string, Value> variables_;
  std::string error_;
  int depth_ = 0;
};

// The builtin functions, by theme.
void defineSpecialForms(Interpreter& lisp);
void defineArithmetic(Interpreter& lisp);
void defineLists(Interpreter& lisp);
void defineTexts(Interpreter& lisp);
void defineHostFunctions(Interpreter& lisp);
void definePromptFunctions(Interpreter& lisp);
void defineSelectionFunctions(Interpreter& lisp);

}  // namespace drafting::lisp
