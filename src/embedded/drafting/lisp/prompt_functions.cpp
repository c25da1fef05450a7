// LISP's questions to the user: initget and the get functions, entsel; and what they reckon with:
// angles, crossings, snaps.
#include <cmath>

#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/lisp/builtins.h"
#include "embedded/drafting/picking/picker.h"
#include "embedded/drafting/picking/pieces.h"
#include "embedded/drafting/picking/snaps.h"

namespace drafting::lisp {
namespace {

// Optional arguments in their order: a point to start from, a message.
bool takeOptions(Interpreter& lisp, const Arguments& a, Prompt& prompt) {
  for (const Value& value : a) {
    if (value.text()) {
      prompt.message = *value.text();
    } else if (const auto point = toPoint(value)) {
      prompt.base = point;
    } else if (!value.isNil()) {
      lisp.failArgument(value, "point");
      return false;
    }
  }
  return true;
}

// Asks with the keywords of the last initget; a keyword comes as its text, Enter as nil.
template <class F>
Value ask(Interpreter& lisp, const Arguments& a, Ask kind, F valueOf) {
  Prompt prompt{.kind = kind};
  if (!takeOptions(lisp, a, prompt)) return {};
  const Answer answer = lisp.session().line.askArmed(prompt);
  if (answer.cancelled()) return lisp.failCancelled();
  if (answer.outcome == drafting::Outcome::Keyword) return answer.text;
  return answer.entered() ? Value() : valueOf(answer);
}

Value initGet(Interpreter& lisp, const Arguments& a) {
  int flags = 0;
  std::string keywords;
  for (const Value& value : a) {
    if (value.integer()) {
      flags = *value.integer();
    } else if (value.text()) {
      keywords = *value.text();
    } else {
      return lisp.failArgument(value, "fixnump");
    }
  }
  lisp.session().line.armKeywords(std::move(keywords), flags);
  return {};
}

Value getPoint(Interpreter& lisp, const Arguments& a) {
  return ask(lisp, a, Ask::Point, [](const Answer& answer) { return fromPoint(answer.point); });
}

Value getNumber(Interpreter& lisp, const Arguments& a, Ask kind) {
  return ask(lisp, a, kind, [](const Answer& answer) { return Value(answer.number); });
}

// A distance or an angle without a point to start from may be shown by two points.
Value getMeasure(Interpreter& lisp, const Arguments& a, Ask kind) {
  Prompt prompt{.kind = kind};
  if (!takeOptions(lisp, a, prompt)) return {};
  prompt.opensWithPoint = !prompt.base;
  Answer answer = lisp.session().line.askArmed(prompt);
  if (answer.hasValue() && answer.atPoint) {
    Prompt second{.kind = kind,
                  .message = std::string(lisp.session().say("\n指定第二点: ", "\nSecond point: ")),
                  .base = answer.point,
                  .needsAnswer = true};
    answer = lisp.session().line.ask(second);
  }
  if (answer.cancelled()) return lisp.failCancelled();
  if (answer.outcome == drafting::Outcome::Keyword) return answer.text;
  return answer.entered() ? Value() : Value(answer.number);
}

Value getInteger(Interpreter& lisp, const Arguments& a) {
  return ask(lisp, a, Ask::Integer, [](const Answer& answer) { return Value(answer.integer); });
}

Value getKeyword(Interpreter& lisp, const Arguments& a) {
  return ask(lisp, a, Ask::Keyword, [](const Answer&) { return Value(); });
}

// (getstring [blanks] [message]): with a first argument that isn't nil blanks belong to the text.
Value getString(Interpreter& lisp, const Arguments& a) {
  const bool flag = !a.empty() && !(a.size() == 1 && a[0].text());
  Prompt prompt{.kind = flag && a[0].isTrue() ? Ask::Line : Ask::Word};
  if (!a.empty() && a.back().text()) prompt.message = *a.back().text();
  if (a.size() == 2 && !a[1].text()) return lisp.failArgument(a[1], "stringp");
  const Answer answer = lisp.session().line.ask(prompt);
  return answer.cancelled() ? lisp.failCancelled() : Value(answer.text);
}

// (entsel [message]): a list of entity and point; nil if nothing was hit.
Value selectEntity(Interpreter& lisp, const Arguments& a) {
  Session& session = lisp.session();
  Prompt prompt{.kind = Ask::Entity,
                .message = std::string(session.say("\n选择对象: ", "\nSelect object: "))};
  if (!a.empty() && !textOf(lisp, a[0])) return {};
  if (!a.empty()) prompt.message = *a[0].text();
  const Answer answer = session.line.askArmed(prompt);
  if (answer.cancelled()) return lisp.failCancelled();
  if (answer.outcome == drafting::Outcome::Keyword) return answer.text;
  if (answer.entered()) return {};
  const Handle hit = answer.selection.empty() ? entityAt(session.database(), session.index(),
                                                         flat(answer.point), pickReach(session))
                                              : answer.selection.front();
  if (!hit) return {};
  return Value::list({EntityName{hit}, fromPoint(answer.point)});
}

Value angleBetween(Interpreter& lisp, const Arguments& a) {
  const auto from = toPoint(a[0]), to = toPoint(a[1]);
  if (!from || !to) return lisp.failArgument(from ? a[1] : a[0], "point");
  const double angle = std::atan2(to->y - from->y, to->x - from->x);
  return angle < 0 ? angle + 2 * base::kPi : angle;
}

// (inters p1 p2 p3 p4 [onseg]): a last argument of nil goes for the lines, not their parts.
Value intersection(Interpreter& lisp, const Arguments& a) {
  std::vector<Point2> points;
  for (std::size_t i = 0; i < 4; ++i) {
    const auto point = toPoint(a[i]);
    if (!point) return lisp.failArgument(a[i], "point");
    points.push_back(flat(*point));
  }
  const Piece one = Piece::line(points[0], points[1]), other = Piece::line(points[2], points[3]);
  const auto found = crossings(one, other);
  if (found.empty()) return {};
  const bool anywhere = a.size() == 5 && a[4].isNil();
  if (!anywhere && !(holdsPoint(one, found[0]) && holdsPoint(other, found[0]))) return {};
  return fromPoint({found[0].x, found[0].y, 0});
}

Value snap(Interpreter& lisp, const Arguments& a) {
  Session& session = lisp.session();
  const auto point = toPoint(a[0]);
  if (!point) return lisp.failArgument(a[0], "point");
  const auto* names = textOf(lisp, a[1]);
  const auto modes = names ? parseSnapModes(*names) : std::nullopt;
  if (!modes) return lisp.failArgument(a[1], "osnap");
  SnapQuery query{.modes = *modes, .point = flat(*point)};
  query.reach = session.variables.integer("APERTURE") * session.view.unitsPerPixel();
  const auto found = snapPoint(session.database(), session.index(), query);
  return found ? fromPoint({found->x, found->y, 0}) : Value();
}

}  // namespace

void definePromptFunctions(Interpreter& lisp) {
  defineFunction(lisp, "initget", 0, 2, initGet);
  defineFunction(lisp, "getpoint", 0, 2, getPoint);
  defineFunction(lisp, "getcorner", 1, 2, getPoint);
  defineFunction(lisp, "getdist", 0, 2, [](Interpreter& self, const Arguments& a) {
    return getMeasure(self, a, Ask::Distance);
  });
  defineFunction(lisp, "getangle", 0, 2, [](Interpreter& self, const Arguments& a) {
    return getMeasure(self, a, Ask::Angle);
  });
  defineFunction(lisp, "getreal", 0, 1, [](Interpreter& self, const Arguments& a) {
    return getNumber(self, a, Ask::Real);
  });
  defineFunction(lisp, "getint", 0, 1, getInteger);
  defineFunction(lisp, "getkword", 0, 1, getKeyword);
  defineFunction(lisp, "getstring", 0, 2, getString);
  defineFunction(lisp, "entsel", 0, 1, selectEntity);
  defineFunction(lisp, "angle", 2, 2, angleBetween);
  defineFunction(lisp, "inters", 4, 5, intersection);
  defineFunction(lisp, "osnap", 2, 2, snap);
}

}  // namespace drafting::lisp
