// COLOR and SETVAR: settings of the drawing and the session.
#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/commands/answer_parser.h"
#include "embedded/drafting/commands/ask.h"

namespace drafting {
namespace {

void colour(Session& session) {
  const Answer answer = session.line.ask(
      {.kind = Ask::Word,
       .message = message(session, "\n输入默认对象颜色 <", "\nDefault object colour <") +
                  session.variables.text("CECOLOR") + ">: "});
  if (!answer.hasValue()) return;
  const base::Status status = session.variables.set("CECOLOR", answer.text);
  if (!status) session.printProblem(status);
}

std::string shownValue(const VariableValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return "\"" + *text + "\"";
  if (const int* whole = std::get_if<int>(&value)) return std::to_string(*whole);
  if (const double* real = std::get_if<double>(&value)) return base::formatG(*real);
  if (const auto* flat = std::get_if<Point2>(&value)) {
    return base::formatG(flat->x) + "," + base::formatG(flat->y);
  }
  const auto* point = std::get_if<Point3>(&value);
  if (!point) return "";
  return base::formatG(point->x) + "," + base::formatG(point->y) + "," + base::formatG(point->z);
}

// What was typed, as a value of the type that the variable has.
std::optional<VariableValue> typedValue(const std::string& typed, const VariableValue& like,
                                        const Point3& last) {
  const auto wrapped = [](auto value) -> std::optional<VariableValue> {
    if (!value) return {};
    return VariableValue(*value);
  };
  if (std::holds_alternative<int>(like)) return wrapped(parseInteger(typed));
  if (std::holds_alternative<double>(like)) return wrapped(parseReal(typed));
  if (std::holds_alternative<std::string>(like)) return typed == "." ? std::string() : typed;
  return wrapped(parsePoint(typed, last));
}

void setVariable(Session& session) {
  const Answer name = session.line.ask(
      {.kind = Ask::Word, .message = message(session, "\n输入变量名: ", "\nVariable name: ")});
  if (!name.hasValue()) return;
  const auto old = session.variables.get(name.text);
  if (!old) {
    session.print("\n" + message(session, "没有此系统变量: ", "There is no such variable: ") +
                  name.text);
    return;
  }
  const Answer value = session.line.ask(
      {.kind = Ask::Line, .message = "\n" + name.text + " <" + shownValue(*old) + ">: "});
  if (!value.hasValue()) return;
  const auto typed =
      typedValue(std::string(base::trim(value.text)), *old, session.variables.point("LASTPOINT"));
  const base::Status status =
      typed
          ? session.variables.set(name.text, *typed)
          : base::Status::failure(message(session, "值的类型不对", "The value has the wrong type"));
  if (!status) session.printProblem(status);
}

}  // namespace

void addSettingCommands(CommandTable& table) {
  table.add({.name = "COLOR", .run = colour});
  table.add({.name = "SETVAR", .run = setVariable});
  table.addAlias("COLOUR", "COLOR");
  table.addAlias("COL", "COLOR");
}

}  // namespace drafting
