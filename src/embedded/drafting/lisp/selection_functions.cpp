// LISP's selection sets: ssget in its forms, and the sets it gives.
#include <algorithm>

#include "embedded/base/text.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/commands/selection_filter.h"
#include "embedded/drafting/commands/wildcards.h"
#include "embedded/drafting/lisp/builtins.h"
#include "embedded/drafting/lisp/entity_list.h"
#include "embedded/drafting/picking/picker.h"

namespace drafting::lisp {
namespace {

// What of a filter list the look-ups of the drawing answer: (0 . "POINT"), (8 . "layer"),
// (-3 ("APP")), each without wildcards. Nothing of a list with operators.
SelectionFilter quickFilter(const Value& list) {
  SelectionFilter filter;
  for (Value rest = list; rest.pair(); rest = rest.rest()) {
    const Value pair = rest.first();
    const Value code = pair.first();
    if (code.same(-4)) return {};
    const Value value = code.same(-3) ? pair.rest().first().first() : pair.rest();
    if (!value.text() || isPattern(*value.text())) continue;
    if (code.same(-3)) filter.app = *value.text();
    if (code.same(0)) filter.type = *value.text();
    if (code.same(8)) filter.layer = *value.text();
  }
  return filter;
}

bool matchesValue(const Value& wanted, const Value& found) {
  if (wanted.text()) return found.text() && matchesPattern(*found.text(), *wanted.text());
  return equal(wanted, found, 1e-9);
}

bool hasApp(const Value& entity, const Value& wanted) {
  for (Value rest = entity; rest.pair(); rest = rest.rest()) {
    if (!rest.first().first().same(-3)) continue;
    for (Value app = rest.first().rest(); app.pair(); app = app.rest()) {
      if (matchesValue(wanted, app.first().first())) return true;
    }
  }
  return false;
}

bool hasGroup(const Value& entity, const Value& wanted) {
  const Value code = wanted.first();
  if (code.same(-3)) return hasApp(entity, wanted.rest().first().first());
  bool present = false;
  for (Value rest = entity; rest.pair(); rest = rest.rest()) {
    if (!rest.first().first().same(code)) continue;
    if (matchesValue(wanted.rest(), rest.first().rest())) return true;
    present = true;
  }
  if (present) return false;
  // Groups that stand for what goes without saying.
  if (code.same(62)) return matchesValue(wanted.rest(), static_cast<int>(kColourByLayer));
  return code.same(6) && matchesValue(wanted.rest(), std::string("ByLayer"));
}

// Tests of a filter list, with the operators of (-4 . "<OR") and the like.
class FilterTest {
 public:
  explicit FilterTest(const Value& entity) : entity_(entity) {}

  bool passes(const Value& list) {
    Value rest = list;
    return all(rest, "");
  }
  bool malformed() const { return malformed_; }

 private:
  bool all(Value& rest, std::string_view end) {
    const auto [hits, count] = group(rest, end);
    return hits == count;
  }

  // How many of the tests up to the operator `end` are met.
  std::pair<int, int> group(Value& rest, std::string_view end) {
    int hits = 0, count = 0;
    while (rest.pair()) {
      const Value pair = rest.first();
      rest = rest.rest();
      bool met = false;
      if (pair.first().same(-4)) {
        const std::string name = pair.rest().text() ? base::capitals(*pair.rest().text()) : "";
        if (name == end) return {hits, count};
        met = operate(name, rest);
      } else {
        met = hasGroup(entity_, pair);
      }
      hits += met ? 1 : 0;
      ++count;
    }
    malformed_ = malformed_ || !end.empty();
    return {hits, count};
  }

  bool operate(const std::string& name, Value& rest) {
    if (++depth_ > kDeepest) {
      malformed_ = true;
      return false;
    }
    bool met = false;
    if (name == "<AND") {
      met = all(rest, "AND>");
    } else if (name == "<OR") {
      met = group(rest, "OR>").first > 0;
    } else if (name == "<XOR") {
      met = group(rest, "XOR>").first == 1;
    } else if (name == "<NOT") {
      met = group(rest, "NOT>").first == 0;
    } else {
      malformed_ = true;
    }
    --depth_;
    return met;
  }

  static constexpr int kDeepest = 100;
  const Value& entity_;
  int depth_ = 0;
  bool malformed_ = false;
};

Value keep(Session& session, Selection found) {
  if (found.empty()) return {};
  return SelectionSetName{session.keepSelection(std::move(found))};
}

Value badFilter(Interpreter& lisp, const Value& filter) {
  return lisp.failArgument(filter, "ssget");
}

// False if the filter is malformed.
bool filterOut(const Database& database, const Value& filter, Selection& selection) {
  if (filter.isNil()) return true;
  bool good = true;
  std::erase_if(selection, [&](Handle handle) {
    const Value entity = makeEntityList(database, handle);
    FilterTest test(entity);
    const bool passes = test.passes(filter);
    good = good && !test.malformed();
    return !passes;
  });
  return good;
}

std::optional<std::vector<Point2>> pointsOf(const Value& list) {
  std::vector<Point2> points;
  for (Value rest = list; rest.pair(); rest = rest.rest()) {
    const auto point = toPoint(rest.first());
    if (!point) return {};
    points.push_back({point->x, point->y});
  }
  return points;
}

// (ssget "W" p1 p2), "C"; (ssget "F" points), "WP", "CP".
std::optional<Selection> byRegion(Session& session, const std::string& mode, const Arguments& a,
                                  std::size_t& used) {
  const bool box = mode == "W" || mode == "C";
  std::vector<Point2> points;
  if (box) {
    const auto first = a.size() > 2 ? toPoint(a[1]) : std::nullopt;
    const auto second = a.size() > 2 ? toPoint(a[2]) : std::nullopt;
    if (!first || !second) return {};
    points = {{first->x, first->y}, {second->x, second->y}};
    used = 3;
  } else {
    const auto list = a.size() > 1 ? pointsOf(a[1]) : std::nullopt;
    if (!list || list->size() < (mode == "F" ? 2U : 3U)) return {};
    points = *list;
    used = 2;
  }
  const Region region = box           ? Region::box(points[0], points[1])
                        : mode == "F" ? Region::fence(points)
                                      : Region::polygon(points);
  const bool inside = mode == "W" || mode == "WP";
  return inside ? entitiesInside(session.database(), session.index(), region)
                : entitiesCrossing(session.database(), session.index(), region);
}

Selection allThawed(const Database& database) {
  Selection found = selectAll(database, {});
  std::erase_if(found, [&](Handle handle) {
    const auto* layer = database.find<Layer>(database.find<Entity>(handle)->layer);
    return layer && (layer->frozen || layer->locked);
  });
  return found;
}

Value unknownMode(Interpreter& lisp) {
  return lisp.fail(std::string(lisp.session().say("ssget: 未知的选择方式", "ssget: unknown mode")));
}

// What the mode selects; `used` is how many arguments it took.
std::optional<Selection> byMode(Session& session, const std::string& mode, const Arguments& a,
                                std::size_t& used) {
  const Database& database = session.database();
  if (mode == "X") {
    if (a.size() > 1 && !a[1].isList()) return {};
    return selectAll(database, a.size() > 1 ? quickFilter(a[1]) : SelectionFilter{});
  }
  if (mode == "A") return allThawed(database);
  if (mode == "L") {
    return database.lastEntity() ? Selection{database.lastEntity()} : Selection{};
  }
  if (mode == "P") {
    Selection previous = session.previousSelection;
    std::erase_if(previous, [&](Handle h) { return !database.find<Entity>(h); });
    return previous;
  }
  return byRegion(session, mode, a, used);
}

// The user is asked; a filter may stand alone.
Value askUser(Interpreter& lisp, const Value& filter) {
  Session& session = lisp.session();
  auto selection = askSelection(session, {.lockedToo = true});
  if (!selection) return lisp.failCancelled();
  if (!filterOut(session.database(), filter, *selection)) return badFilter(lisp, filter);
  return keep(session, std::move(*selection));
}

Value atPoint(Interpreter& lisp, const Point3& point) {
  Session& session = lisp.session();
  const Handle hit =
      entityAt(session.database(), session.index(), {point.x, point.y}, pickReach(session));
  return hit ? keep(session, {hit}) : Value();
}

Value selectSet(Interpreter& lisp, const Arguments& a) {
  static constexpr std::string_view kModes[] = {"X", "A", "L", "P", "W", "C", "F", "WP", "CP"};
  Session& session = lisp.session();
  if (a.empty()) return askUser(lisp, {});
  if (const auto point = toPoint(a[0])) return atPoint(lisp, *point);
  if (a[0].pair() || a[0].isNil()) return askUser(lisp, a[0]);
  const std::string mode = a[0].text() ? base::capitals(*a[0].text()) : "";
  if (std::find(std::begin(kModes), std::end(kModes), mode) == std::end(kModes))
    return unknownMode(lisp);
  std::size_t used = 1;
  auto found = byMode(session, mode, a, used);
  if (!found) return lisp.failArgument(a.size() > 1 ? a[1] : a[0], "ssget");
  const Value filter = a.size() > used ? a[used] : Value();
  if (!filterOut(session.database(), filter, *found)) return badFilter(lisp, filter);
  return keep(session, std::move(*found));
}

Selection* setOf(Interpreter& lisp, const Value& value) {
  const auto* name = value.selectionSet();
  Selection* set = name ? lisp.session().editSelection(name->id) : nullptr;
  if (!set) lisp.failArgument(value, "lselsetp");
  return set;
}

const EntityName* entityOf(Interpreter& lisp, const Value& value) {
  if (!value.entity()) lisp.failArgument(value, "lentityp");
  return value.entity();
}

Value setLength(Interpreter& lisp, const Arguments& a) {
  const Selection* set = setOf(lisp, a[0]);
  return set ? Value(static_cast<int>(set->size())) : Value();
}

Value setEntity(Interpreter& lisp, const Arguments& a) {
  const Selection* set = setOf(lisp, a[0]);
  const int* index = set ? integerOf(lisp, a[1]) : nullptr;
  if (!index || *index < 0 || static_cast<std::size_t>(*index) >= set->size()) return {};
  return EntityName{(*set)[static_cast<std::size_t>(*index)]};
}

// (ssadd), (ssadd entity), (ssadd entity set).
Value addToSet(Interpreter& lisp, const Arguments& a) {
  Session& session = lisp.session();
  if (a.empty()) return SelectionSetName{session.keepSelection({})};
  const EntityName* entity = entityOf(lisp, a[0]);
  if (!entity) return {};
  if (a.size() == 1) return SelectionSetName{session.keepSelection({entity->handle})};
  Selection* set = setOf(lisp, a[1]);
  if (!set) return {};
  if (std::find(set->begin(), set->end(), entity->handle) == set->end())
    set->push_back(entity->handle);
  return a[1];
}

Value removeFromSet(Interpreter& lisp, const Arguments& a) {
  const EntityName* entity = entityOf(lisp, a[0]);
  Selection* set = entity ? setOf(lisp, a[1]) : nullptr;
  if (!set) return {};
  const Handle handle = entity->handle;
  return std::erase(*set, handle) ? a[1] : Value();
}

Value isInSet(Interpreter& lisp, const Arguments& a) {
  const EntityName* entity = entityOf(lisp, a[0]);
  const Selection* set = entity ? setOf(lisp, a[1]) : nullptr;
  if (!set || std::find(set->begin(), set->end(), entity->handle) == set->end()) return {};
  return a[0];
}

}  // namespace

void defineSelectionFunctions(Interpreter& lisp) {
  defineFunction(lisp, "ssget", 0, 4, selectSet);
  defineFunction(lisp, "sslength", 1, 1, setLength);
  defineFunction(lisp, "ssname", 2, 2, setEntity);
  defineFunction(lisp, "ssadd", 0, 2, addToSet);
  defineFunction(lisp, "ssdel", 2, 2, removeFromSet);
  defineFunction(lisp, "ssmemb", 2, 2, isInSet);
}

}  // namespace drafting::lisp
