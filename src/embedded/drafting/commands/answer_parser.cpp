#include "embedded/drafting/commands/answer_parser.h"

#include <array>
#include <cctype>
#include <charconv>
#include <cmath>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"

namespace drafting {
namespace {

bool isCapital(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '?'; }

// Length of the shortest form of a keyword: its leading capitals, or the whole of it.
std::size_t shortestForm(std::string_view keyword) {
  std::size_t n = 0;
  while (n < keyword.size() && isCapital(keyword[n])) ++n;
  return n == 0 ? keyword.size() : n;
}

bool isPrefixNoCase(std::string_view prefix, std::string_view text) {
  return prefix.size() <= text.size() && base::equalsNoCase(prefix, text.substr(0, prefix.size()));
}

// Splits at `separator` into at most three numbers; 0 if one of them is none.
std::size_t parseCoordinates(std::string_view typed, std::array<double, 3>& out) {
  std::size_t count = 0;
  while (true) {
    const std::size_t comma = typed.find(',');
    const auto number = parseReal(typed.substr(0, comma));
    if (!number || count == out.size()) return 0;
    out[count++] = *number;
    if (comma == std::string_view::npos) return count;
    typed.remove_prefix(comma + 1);
  }
}

Answer value(double number) {
  Answer answer;
  answer.outcome = Outcome::Value;
  answer.number = number;
  answer.integer = std::abs(number) < 2147483647.0 ? static_cast<int>(std::lround(number)) : 0;
  return answer;
}

Answer value(Point3 point) {
  Answer answer;
  answer.outcome = Outcome::Value;
  answer.point = point;
  return answer;
}

Answer valueAt(Point3 point) {
  Answer answer = value(point);
  answer.atPoint = true;
  return answer;
}

Answer value(std::string text) {
  Answer answer;
  answer.outcome = Outcome::Value;
  answer.text = std::move(text);
  return answer;
}

std::optional<Answer> checked(const Prompt& prompt, double number) {
  if (!std::isfinite(number)) return {};
  if (prompt.nonNegative && number < 0) return {};
  if (prompt.nonZero && number == 0) return {};
  return value(number);
}

// A point given where a distance or an angle is asked, measured from the prompt's base.
std::optional<Answer> measured(const Prompt& prompt, const Point3& point) {
  if (prompt.opensWithPoint) return valueAt(point);
  if (!prompt.base) return {};
  const Point3 v = point - *prompt.base;
  if (prompt.kind == Ask::Angle) return value(std::atan2(v.y, v.x));
  return checked(prompt, std::hypot(v.x, v.y));
}

}  // namespace

std::optional<std::string> matchKeyword(std::string_view list, std::string_view typed) {
  if (typed.empty()) return {};
  if (typed.front() == '_') typed.remove_prefix(1);
  while (!list.empty()) {
    const std::size_t blank = list.find(' ');
    const std::string_view keyword = list.substr(0, blank);
    list.remove_prefix(blank == std::string_view::npos ? list.size() : blank + 1);
    if (keyword.empty() || typed.size() < shortestForm(keyword)) continue;
    if (isPrefixNoCase(typed, keyword)) return std::string(keyword);
  }
  return {};
}

std::optional<double> parseReal(std::string_view typed) {
  if (!typed.empty() && typed.front() == '+') typed.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  if (error != std::errc() || end != typed.data() + typed.size() || !std::isfinite(number))
    return {};
  return number;
}

std::optional<int> parseInteger(std::string_view typed) {
  if (!typed.empty() && typed.front() == '+') typed.remove_prefix(1);
  int number = 0;
  const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  if (error != std::errc() || end != typed.data() + typed.size()) return {};
  return number;
}

std::optional<Point3> parsePoint(std::string_view typed, const Point3& last) {
  Point3 origin;
  if (!typed.empty() && typed.front() == '@') {
    origin = last;
    typed.remove_prefix(1);
    if (typed.empty()) return last;
  } else if (!typed.empty() && typed.front() == '*') {
    typed.remove_prefix(1);
  }
  if (const std::size_t less = typed.find('<'); less != std::string_view::npos) {
    const auto distance = parseReal(typed.substr(0, less));
    const auto angle = parseReal(typed.substr(less + 1));
    if (!distance || !angle) return {};
    const double a = base::radians(*angle);
    return origin + Point3{*distance * std::cos(a), *distance * std::sin(a), 0};
  }
  std::array<double, 3> c{};
  if (parseCoordinates(typed, c) < 2) return {};
  return origin + Point3{c[0], c[1], c[2]};
}

std::string pickText(const Point3& point) {
  return kPickSign + base::formatShortest(point.x) + "," + base::formatShortest(point.y) + "," +
         base::formatShortest(point.z);
}

std::optional<Answer> parseAnswer(const Prompt& prompt, std::string_view typed,
                                  const Point3& last) {
  if (!typed.empty() && typed.front() == kPickSign) {
    Prompt points = prompt;  // a pick is no text and no keyword
    points.keywords.clear();
    if (prompt.kind == Ask::Word || prompt.kind == Ask::Line || prompt.kind == Ask::Command)
      return {};
    auto answer = parseAnswer(points, typed.substr(1), last);
    if (answer) answer->picked = true;
    return answer;
  }
  if (const auto keyword = matchKeyword(prompt.keywords, typed)) {
    Answer answer = value(*keyword);
    answer.outcome = Outcome::Keyword;
    return answer;
  }
  switch (prompt.kind) {
    case Ask::Command:
    case Ask::Word:
    case Ask::Line: return value(std::string(typed));
    case Ask::Point:
      if (const auto point = parsePoint(typed, last)) return value(*point);
      return {};
    case Ask::Distance:
    case Ask::Angle:
      if (const auto number = parseReal(typed)) {
        return checked(prompt, prompt.kind == Ask::Angle ? base::radians(*number) : *number);
      }
      if (const auto point = parsePoint(typed, last)) return measured(prompt, *point);
      return {};
    case Ask::Real:
      if (const auto number = parseReal(typed)) return checked(prompt, *number);
      return {};
    case Ask::Integer:
      if (const auto number = parseInteger(typed)) return checked(prompt, *number);
      return {};
    case Ask::Selection:
    case Ask::Entity:
      if (const auto point = parsePoint(typed, last)) return valueAt(*point);
      return {};
    case Ask::Keyword: return {};
  }
  return {};
}

std::optional<Answer> answerFromArgument(const Prompt& prompt, const Argument& argument,
                                         const Point3& last) {
  if (const auto* text = std::get_if<std::string>(&argument)) {
    return parseAnswer(prompt, *text, last);
  }
  if (const auto* point = std::get_if<Point3>(&argument)) {
    if (prompt.kind == Ask::Point) return value(*point);
    if (prompt.kind == Ask::Selection || prompt.kind == Ask::Entity) return valueAt(*point);
    if (prompt.kind == Ask::Distance || prompt.kind == Ask::Angle) return measured(prompt, *point);
    return {};
  }
  if (const auto* selection = std::get_if<Selection>(&argument)) {
    if (prompt.kind != Ask::Selection && prompt.kind != Ask::Entity) return {};
    if (prompt.kind == Ask::Entity && selection->size() != 1) return {};
    Answer answer = value(0.0);
    answer.selection = *selection;
    return answer;
  }
  if (const auto* entity = std::get_if<PickedEntity>(&argument)) {
    if (prompt.kind != Ask::Selection && prompt.kind != Ask::Entity) return {};
    Answer answer = value(entity->point);
    answer.selection = {entity->handle};
    answer.atPoint = prompt.kind == Ask::Entity;
    return answer;
  }
  const auto* real = std::get_if<double>(&argument);
  const auto* integer = std::get_if<int>(&argument);
  if (!real && !integer) return {};
  const double number = real ? *real : *integer;
  switch (prompt.kind) {
    case Ask::Word:
    case Ask::Line: return value(base::formatG(number));
    case Ask::Angle: return checked(prompt, base::radians(number));
    case Ask::Distance:
    case Ask::Real: return checked(prompt, number);
    case Ask::Integer:
      if (number != std::floor(number)) return {};
      return checked(prompt, number);
    default: return {};
  }
}

}  // namespace drafting
