// COLOR, ORTHO, OSNAP, SETVAR, and variables by their own names: settings of the drawing and the
// session.
#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/commands/answer_parser.h"
#include "embedded/drafting/commands/ask.h"
#include "embedded/drafting/picking/snaps.h"

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
  if (name.hasValue()) askVariable(session, name.text);
}

void ortho(Session& session) {
  const bool on = session.variables.integer("ORTHOMODE") != 0;
  const Answer answer = session.line.ask(
      {.kind = Ask::Keyword,
       .message = message(session, "\n输入模式 [开(ON)/关(OFF)] <", "\nMode [ON/OFF] <") +
                  (on ? "ON" : "OFF") + ">: ",
       .keywords = "ON OFF"});
  if (answer.outcome == Outcome::Keyword)
    session.variables.put("ORTHOMODE", answer.text == "ON" ? 1 : 0);
}

void snapModes(Session& session) {
  const Answer answer = session.line.ask(
      {.kind = Ask::Word,
       .message = message(session, "\n输入对象捕捉模式列表: ", "\nList of object snap modes: ")});
  if (answer.cancelled()) return;
  const auto modes = answer.entered() ? std::optional<int>(0) : parseSnapModes(answer.text);
  if (!modes) {
    session.print(session.say("\n无效的捕捉模式。", "\nThat is no object snap mode."));
    return;
  }
  session.variables.put("OSMODE", *modes);
}

}  // namespace

void askVariable(Session& session, const std::string& name) {
  const auto old = session.variables.get(name);
  if (!old) {
    session.print("\n" + message(session, "没有此系统变量: ", "There is no such variable: ") +
                  name);
    return;
  }
  const Answer value = session.line.ask(
      {.kind = Ask::Line, .message = "\n" + name + " <" + shownValue(*old) + ">: "});
  if (!value.hasValue()) return;
  const auto typed =
      typedValue(std::string(base::trim(value.text)), *old, session.variables.point("LASTPOINT"));
  const base::Status status =
      typed
          ? session.variables.set(name, *typed)
          : base::Status::failure(message(session, "值的类型不对", "The value has the wrong type"));
  if (!status) session.printProblem(status);
}

void addSettingCommands(CommandTable& table) {
  table.add({.name = "COLOR", .run = colour});
  table.add({.name = "SETVAR", .run = setVariable, .transparent = true});
  table.add({.name = "ORTHO", .run = ortho, .transparent = true});
  table.add({.name = "OSNAP", .run = snapModes, .transparent = true});
  table.addAlias("-OSNAP", "OSNAP");
  table.addAlias("OS", "OSNAP");
  table.addAlias("COLOUR", "COLOR");
  table.addAlias("COL", "COLOR");
}

}  // namespace drafting
