// The host's command-line functions for modules: output, acedCommand, prompts, system variables.
#include <cmath>
#include <cstdarg>

#include "embedded/base/numbers.h"
#include "embedded/drafting/commands/answer_parser.h"
#include "embedded/drafting/host/host_state.h"
#include "platform/framework_text.h"

using drafting::Session;

int acutPrintf(const wchar_t* format, ...) {
  std::va_list values;
  va_start(values, format);
  CString text;
  text.FormatV(format, values);
  va_end(values);
  Session::active().print(base::utf8FromWide(text.wide()));
  return RTNORM;
}

namespace {

drafting::Selection namedEntities(const Session& session, int type, const std::intptr_t* name) {
  if (type == RTENAME) return {drafting::entityOf(name)};
  const auto* set = session.selection(name[0]);
  return set && name[1] == drafting::kSelectionMark ? *set : drafting::Selection{};
}

// The argument list of acedCommand; false on a type that isn't one.
bool readArguments(const Session& session, int type, std::va_list values,
                   std::vector<drafting::Argument>& arguments) {
  for (; type != RTNONE && type != 0; type = va_arg(values, int)) {
    switch (type) {
      case RTSTR: arguments.emplace_back(drafting::utf8(va_arg(values, const wchar_t*))); break;
      case RTREAL: arguments.emplace_back(va_arg(values, double)); break;
      // Passed as a whole int, of which the type has 16 bits.
      case RTSHORT:
        arguments.emplace_back(int{static_cast<std::int16_t>(va_arg(values, int))});
        break;
      case RTLONG: arguments.emplace_back(va_arg(values, int)); break;
      case RTPOINT:
      case RT3DPOINT: {
        const auto* p = va_arg(values, const double*);
        arguments.emplace_back(drafting::Point3{p[0], p[1], type == RTPOINT ? 0 : p[2]});
        break;
      }
      case RTENAME:
      case RTPICKS:
        arguments.emplace_back(namedEntities(session, type, va_arg(values, const std::intptr_t*)));
        break;
      default: return false;
    }
  }
  return true;
}

bool fillVariable(const drafting::VariableValue& from, resbuf& link) {
  if (const int* whole = std::get_if<int>(&from)) {
    const bool fits = *whole >= -32768 && *whole <= 32767;
    link.restype = static_cast<std::int16_t>(fits ? RTSHORT : RTLONG);
    if (fits) {
      link.resval.rint = static_cast<std::int16_t>(*whole);
    } else {
      link.resval.rlong = *whole;
    }
  } else if (const double* real = std::get_if<double>(&from)) {
    link.restype = RTREAL;
    link.resval.rreal = *real;
  } else if (const auto* text = std::get_if<std::string>(&from)) {
    link.restype = RTSTR;
    link.resval.rstring = acutNewString(base::wideFromUtf8(*text).c_str());
  } else if (const auto* flat = std::get_if<drafting::Point2>(&from)) {
    link.restype = RTPOINT;
    link.resval.rpoint[0] = flat->x;
    link.resval.rpoint[1] = flat->y;
    link.resval.rpoint[2] = 0;
  } else if (const auto* point = std::get_if<drafting::Point3>(&from)) {
    link.restype = RT3DPOINT;
    link.resval.rpoint[0] = point->x;
    link.resval.rpoint[1] = point->y;
    link.resval.rpoint[2] = point->z;
  } else {
    return false;
  }
  return true;
}

std::optional<drafting::VariableValue> variableOf(const resbuf& link) {
  switch (link.restype) {
    case RTSHORT: return link.resval.rint;
    case RTLONG: return static_cast<int>(link.resval.rlong);
    case RTREAL: return link.resval.rreal;
    case RTSTR: return drafting::utf8(link.resval.rstring);
    case RTPOINT: return drafting::Point2{link.resval.rpoint[0], link.resval.rpoint[1]};
    case RT3DPOINT:
      return drafting::Point3{link.resval.rpoint[0], link.resval.rpoint[1], link.resval.rpoint[2]};
    default: return {};
  }
}

}  // namespace

int acedCommand(int type, ...) {
  Session& session = Session::active();
  if (session.faults.fails("acedCommand")) return RTERROR;
  std::vector<drafting::Argument> arguments;
  std::va_list values;
  va_start(values, type);
  const bool readable = readArguments(session, type, values, arguments);
  va_end(values);
  if (!readable) return RTERROR;
  return session.line.command(arguments) ? RTNORM : RTCAN;
}

int acedInitGet(int flags, const wchar_t* keywords) {
  Session::active().line.armKeywords(drafting::utf8(keywords), flags);
  return RTNORM;
}

int acedGetKword(const wchar_t* prompt, wchar_t* keyword) {
  Session& session = Session::active();
  if (session.faults.fails("acedGetKword")) return RTERROR;
  const drafting::Answer answer =
      session.line.askArmed({.kind = drafting::Ask::Keyword, .message = drafting::utf8(prompt)});
  keyword[0] = 0;
  if (answer.cancelled()) return RTCAN;
  if (answer.entered()) return RTNONE;
  drafting::copyText(keyword, answer.text);
  return RTNORM;
}

int acedGetVar(const wchar_t* name, resbuf* value) {
  Session& session = Session::active();
  if (!name || !value || session.faults.fails("acedGetVar")) return RTERROR;
  const auto found = session.variables.get(drafting::utf8(name));
  return found && fillVariable(*found, *value) ? RTNORM : RTERROR;
}

int acedSetVar(const wchar_t* name, const resbuf* value) {
  Session& session = Session::active();
  if (!name || !value || session.faults.fails("acedSetVar")) return RTERROR;
  const auto given = variableOf(*value);
  return given && session.variables.set(drafting::utf8(name), *given).ok() ? RTNORM : RTERROR;
}

int acdbDisToF(const wchar_t* text, int unit, ads_real* value) {
  if (!text || unit != 2 || Session::active().faults.fails("acdbDisToF")) return RTERROR;
  const auto number = drafting::parseReal(drafting::utf8(text));
  if (!number) return RTERROR;
  *value = *number;
  return RTNORM;
}

void acutPolar(const ads_point from, double angle, double distance, ads_point to) {
  const base::Point2 point = base::polar({from[0], from[1]}, angle, distance);
  const double z = from[2];
  to[0] = point.x;
  to[1] = point.y;
  to[2] = z;
}
