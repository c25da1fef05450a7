// LISP's way to the drawing and the command line: command, variables, entities, output, files.
#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/lisp/builtins.h"
#include "embedded/drafting/lisp/entity_list.h"

namespace drafting::lisp {
namespace {

Value command(Interpreter& lisp, const Arguments& a) {
  std::vector<Argument> arguments;
  for (const Value& value : a) {
    const auto argument = toArgument(value);
    if (!argument) return lisp.failArgument(value, "command");
    arguments.push_back(*argument);
  }
  lisp.session().line.command(arguments);
  return {};
}

Value getVariable(Interpreter& lisp, const Arguments& a) {
  const auto* name = textOf(lisp, a[0]);
  if (!name) return {};
  const auto value = lisp.session().variables.get(*name);
  if (!value) return {};
  if (const int* whole = std::get_if<int>(&*value)) return *whole;
  if (const double* real = std::get_if<double>(&*value)) return *real;
  if (const auto* text = std::get_if<std::string>(&*value)) return *text;
  if (const auto* flat = std::get_if<Point2>(&*value)) return Value::list({flat->x, flat->y});
  const auto* point = std::get_if<Point3>(&*value);
  return point ? fromPoint(*point) : Value();
}

Value setVariable(Interpreter& lisp, const Arguments& a) {
  const auto* name = textOf(lisp, a[0]);
  if (!name) return {};
  VariableValue value;
  if (const int* whole = a[1].integer()) {
    value = *whole;
  } else if (const double* real = a[1].real()) {
    value = *real;
  } else if (const auto* text = a[1].text()) {
    value = *text;
  } else if (const auto point = toPoint(a[1])) {
    value = *point;
  } else {
    return lisp.failArgument(a[1], "setvar");
  }
  const base::Status status = lisp.session().variables.set(*name, value);
  return status.ok() ? a[1] : lisp.fail(status.message());
}

Value princ(Interpreter& lisp, const Arguments& a, bool readable) {
  if (a.empty()) return Void{};
  lisp.session().print(print(a[0], readable));
  return a[0];
}

Value printLine(Interpreter& lisp, const Arguments& a) {
  if (a.empty()) return Void{};
  lisp.session().print("\n" + print(a[0]) + " ");
  return a[0];
}

Value lastEntity(Interpreter& lisp, const Arguments&) {
  const Handle handle = lisp.session().database().lastEntity();
  return handle ? Value(EntityName{handle}) : Value();
}

Value nextEntity(Interpreter& lisp, const Arguments& a) {
  const Database& database = lisp.session().database();
  if (a.empty()) {
    const Entity* first = database.modelSpace().first;
    return first ? Value(EntityName{first->handle}) : Value();
  }
  const auto* name = a[0].entity();
  if (!name) return lisp.failArgument(a[0], "lentityp");
  const auto* entity = database.find<Entity>(name->handle);
  return entity && entity->next ? Value(EntityName{entity->next->handle}) : Value();
}

Value entityList(Interpreter& lisp, const Arguments& a) {
  const auto* name = a[0].entity();
  if (!name) return lisp.failArgument(a[0], "lentityp");
  return makeEntityList(lisp.session().database(), name->handle);
}

Value entityOfHandle(Interpreter& lisp, const Arguments& a) {
  const auto* text = textOf(lisp, a[0]);
  if (!text) return {};
  Handle handle = 0;
  for (const char c : *text) {
    const char* digits = "0123456789ABCDEF";
    const char* digit =
        std::char_traits<char>::find(digits, 16, c >= 'a' ? static_cast<char>(c - 32) : c);
    if (!digit || handle >> 60) return {};
    handle = handle << 4 | static_cast<Handle>(digit - digits);
  }
  return lisp.session().database().find<Entity>(handle) ? Value(EntityName{handle}) : Value();
}

Value changeEntityList(Interpreter& lisp, const Arguments& a) {
  if (!a[0].pair()) return lisp.failArgument(a[0], "listp");
  return changeEntity(lisp.session().database(), a[0]) ? a[0] : Value();
}

Value eraseEntity(Interpreter& lisp, const Arguments& a) {
  const auto* name = a[0].entity();
  if (!name) return lisp.failArgument(a[0], "lentityp");
  Database& database = lisp.session().database();
  const auto* entity = database.find<Entity>(name->handle);
  if (!entity || entity->owner != database.modelSpace().handle) return {};
  database.erase(name->handle);
  return a[0];
}

Value load(Interpreter& lisp, const Arguments& a) {
  const auto* name = textOf(lisp, a[0]);
  if (!name) return {};
  std::string path = *name;
  if (path.find('.', path.find_last_of("/\\") + 1) == std::string::npos) path += ".lsp";
  const auto text = base::readFile(base::resolvePath(base::wideFromUtf8(path)));
  if (!text.ok()) return a.size() == 2 ? a[1] : lisp.fail(text.message());
  const Outcome outcome =
      lisp.evaluateText(base::isUtf8(*text) ? *text : base::utf8FromCodePage(*text, 936));
  return outcome.ok() ? *outcome : lisp.failAgain(outcome.message());
}

Value polar(Interpreter& lisp, const Arguments& a) {
  const auto from = toPoint(a[0]);
  if (!from) return lisp.failArgument(a[0], "point");
  const Point2 to = base::polar({from->x, from->y}, numberOf(lisp, a[1]), numberOf(lisp, a[2]));
  return fromPoint({to.x, to.y, from->z});
}

Value distanceBetween(Interpreter& lisp, const Arguments& a) {
  const auto from = toPoint(a[0]), to = toPoint(a[1]);
  if (!from || !to) return lisp.failArgument(from ? a[1] : a[0], "point");
  return std::hypot(to->x - from->x, to->y - from->y, to->z - from->z);
}

}  // namespace

void defineHostFunctions(Interpreter& lisp) {
  defineFunction(lisp, "command", 0, kAnyNumber, command);
  defineFunction(lisp, "getvar", 1, 1, getVariable);
  defineFunction(lisp, "setvar", 2, 2, setVariable);
  defineFunction(lisp, "princ", 0, 1,
                 [](Interpreter& self, const Arguments& a) { return princ(self, a, false); });
  defineFunction(lisp, "prin1", 0, 1,
                 [](Interpreter& self, const Arguments& a) { return princ(self, a, true); });
  defineFunction(lisp, "print", 0, 1, printLine);
  defineFunction(lisp, "terpri", 0, 0, [](Interpreter& self, const Arguments&) {
    self.session().print("\n");
    return Value();
  });
  defineFunction(lisp, "entlast", 0, 0, lastEntity);
  defineFunction(lisp, "entnext", 0, 1, nextEntity);
  defineFunction(lisp, "entget", 1, 2, entityList);
  defineFunction(lisp, "handent", 1, 1, entityOfHandle);
  defineFunction(lisp, "entmod", 1, 1, changeEntityList);
  defineFunction(lisp, "entdel", 1, 1, eraseEntity);
  defineFunction(lisp, "load", 1, 2, load);
  defineFunction(lisp, "polar", 3, 3, polar);
  defineFunction(lisp, "distance", 2, 2, distanceBetween);
}

}  // namespace drafting::lisp
