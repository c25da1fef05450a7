#include "embedded/drafting/commands/select.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "embedded/drafting/picking/picker.h"

namespace drafting {
namespace {

bool onLayer(const Database& database, const Entity& entity, bool Layer::*flag) {
  const auto* layer = database.find<Layer>(entity.layer);
  return layer && layer->*flag;
}

// "Select objects:" and its options, one answer at a time.
class SelectPrompt {
 public:
  SelectPrompt(Session& session, const SelectOptions& options)
      : session_(session), options_(options) {}

  std::optional<Selected> run() {
    if (!options_.heading.empty() && !quiet()) session_.print(options_.heading);
    const Chosen shown(session_, chosen_);
    while (!done_) {
      if (!step()) return {};
    }
    Selected out{chosen_, crossing_};
    session_.previousSelection = chosen_;
    return out;
  }

 private:
  // Lets the screen show what is chosen so far.
  class Chosen {
   public:
    Chosen(Session& session, const Selection& chosen)
        : session_(session), outer_(std::exchange(session.chosen, &chosen)) {}
    ~Chosen() { session_.chosen = outer_; }
    Chosen(const Chosen&) = delete;
    Chosen& operator=(const Chosen&) = delete;

   private:
    Session& session_;
    const Selection* outer_;
  };

  bool quiet() const { return session_.line.answersComeFromArguments(); }

  // False if cancelled.
  bool step() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Selection,
         .message = removing_ ? message(session_, "\n删除对象: ", "\nRemove objects: ")
                              : message(session_, "\n选择对象: ", "\nSelect objects: "),
         .keywords =
             "Window Crossing BOX Last Previous ALL Fence WPolygon CPolygon Remove Add Undo "
             "SIngle Multiple AUto"});
    if (answer.cancelled()) return false;
    if (answer.entered()) {
      done_ = true;
    } else if (answer.outcome == Outcome::Keyword) {
      return takeKeyword(answer.text);
    } else if (answer.atPoint && answer.selection.empty()) {
      pickAt(answer.point);
    } else {
      take(answer.selection);
    }
    return true;
  }

  bool takeKeyword(const std::string& keyword) {
    if (keyword == "Remove" || keyword == "Add") {
      removing_ = keyword == "Remove";
    } else if (keyword == "Undo") {
      takeBack();
    } else if (keyword == "SIngle") {
      single_ = true;
    } else if (keyword == "Last") {
      take({lastShown()});
    } else if (keyword == "Previous") {
      take(session_.previousSelection);
    } else if (keyword == "ALL") {
      takeAll();
    } else if (keyword == "Window" || keyword == "Crossing" || keyword == "BOX") {
      askBox(keyword);
    } else if (keyword != "Multiple" && keyword != "AUto") {
      askPolygon(keyword);
    }
    return true;
  }

  // --- by place

  void pickAt(const Point3& point) {
    const Handle hit =
        entityAt(session_.database(), session_.index(), flat(point), pickReach(session_));
    if (hit) return take({hit});
    const Answer opposite = askCorner(session_, "\n指定对角点: ", "\nOpposite corner: ", point);
    if (opposite.hasValue()) takeBox(point, opposite.point, opposite.point.x < point.x);
  }

  void askBox(const std::string& keyword) {
    const Answer first = askPoint(session_, "\n指定第一个角点: ", "\nFirst corner: ");
    if (!first.hasValue()) return;
    const Answer second = askCorner(session_, "\n指定对角点: ", "\nOpposite corner: ", first.point);
    if (!second.hasValue()) return;
    takeBox(first.point, second.point,
            keyword == "Crossing" || (keyword == "BOX" && second.point.x < first.point.x));
  }

  void takeBox(const Point3& first, const Point3& second, bool crossing) {
    takeRegion(Region::box(flat(first), flat(second)), crossing);
  }

  void askPolygon(const std::string& keyword) {
    std::vector<Point2> points;
    const bool fence = keyword == "Fence";
    std::optional<Point3> last;
    while (true) {
      const Answer answer =
          askPoint(session_, "\n指定点或 [放弃(U)]: ", "\nPoint or [Undo]: ", last,
                   points.empty() ? "" : "Undo");
      if (answer.cancelled()) return;
      if (answer.entered()) break;
      if (answer.hasValue()) {
        points.push_back(flat(answer.point));
      } else {
        points.pop_back();
      }
      last = points.empty() ? std::nullopt
                            : std::optional<Point3>({points.back().x, points.back().y, 0});
    }
    if (points.size() < (fence ? 2 : 3)) {
      session_.print(session_.say("\n点太少。", "\nToo few points."));
      return;
    }
    takeRegion(fence ? Region::fence(std::move(points)) : Region::polygon(std::move(points)),
               keyword != "WPolygon");
  }

  void takeRegion(const Region& region, bool crossing) {
    if (crossing) crossing_ = region;
    take(crossing ? entitiesCrossing(session_.database(), session_.index(), region)
                  : entitiesInside(session_.database(), session_.index(), region));
  }

  // --- by order

  // The newest that isn't hidden by its layer.
  Handle lastShown() const {
    const Database& database = session_.database();
    for (const Entity* e = database.modelSpace().last; e; e = e->previous) {
      const bool hidden =
          onLayer(database, *e, &Layer::frozen) || onLayer(database, *e, &Layer::off);
      if (!hidden && !e->invisible) return e->handle;
    }
    return 0;
  }

  // On layers that are off too, as the host does it.
  void takeAll() {
    Selection all;
    const Database& database = session_.database();
    for (const Entity* e = database.modelSpace().first; e; e = e->next) {
      if (!onLayer(database, *e, &Layer::frozen)) all.push_back(e->handle);
    }
    take(all);
  }

  // --- what is chosen

  void take(Selection found) {
    const Database& database = session_.database();
    std::erase_if(found, [&](Handle handle) { return !database.find<Entity>(handle); });
    const std::size_t shown = found.size();
    std::size_t locked = 0;
    if (!options_.lockedToo) {
      locked = std::erase_if(found, [&](Handle handle) {
        return onLayer(database, *database.find<Entity>(handle), &Layer::locked);
      });
    }
    removing_ ? removeAll(found) : addAll(found);
    report(shown, locked);
    if (single_ && !found.empty()) done_ = true;
  }

  void addAll(const Selection& found) {
    for (const Handle handle : found) {
      if (in_.insert(handle).second) chosen_.push_back(handle);
    }
  }

  void removeAll(const Selection& found) {
    for (const Handle handle : found) in_.erase(handle);
    std::erase_if(chosen_, [this](Handle handle) { return !in_.contains(handle); });
  }

  // The entity added last.
  void takeBack() {
    if (chosen_.empty()) return;
    in_.erase(chosen_.back());
    chosen_.pop_back();
  }

  void report(std::size_t shown, std::size_t locked) {
    if (quiet()) return;
    std::string text = "\n" + std::to_string(shown) + message(session_, " 个", " found");
    if (removing_ || chosen_.size() != shown - locked) {
      text += message(session_, "，总计 ", ", ") + std::to_string(chosen_.size()) +
              message(session_, " 个", " total");
    }
    if (locked) {
      text += "\n" + std::to_string(locked) +
              message(session_, " 个在锁定的图层上。", " on a locked layer.");
    }
    session_.print(text);
  }

  Session& session_;
  const SelectOptions& options_;
  Selection chosen_;
  std::unordered_set<Handle> in_;
  std::optional<Region> crossing_;
  bool removing_ = false, single_ = false, done_ = false;
};

}  // namespace

std::optional<Selected> askSelected(Session& session, const SelectOptions& options) {
  return SelectPrompt(session, options).run();
}

std::optional<Selection> askSelection(Session& session, const SelectOptions& options) {
  auto selected = askSelected(session, options);
  if (!selected) return {};
  return std::move(selected->entities);
}

double pickReach(const Session& session) {
  return session.variables.integer("PICKBOX") * session.view.unitsPerPixel();
}

EntityAnswer askEntity(Session& session, const std::string& message, const std::string& keywords) {
  while (true) {
    EntityAnswer result;
    result.answer =
        session.line.ask({.kind = Ask::Entity, .message = message, .keywords = keywords});
    if (!result.answer.hasValue()) return result;
    result.point = result.answer.point;
    result.picked = result.answer.atPoint;
    if (!result.answer.selection.empty()) {
      const Handle named = result.answer.selection.front();
      if (session.database().find<Entity>(named)) result.handle = named;
    } else {
      result.handle =
          entityAt(session.database(), session.index(), flat(result.point), pickReach(session));
    }
    if (result.handle) return result;
    session.print(session.say("\n未选到对象。", "\nNothing is there."));
  }
}

bool mayChange(Session& session, const Entity& entity) {
  if (!onLayer(session.database(), entity, &Layer::locked)) return true;
  session.print(session.say("\n对象在锁定的图层上。", "\nThe object is on a locked layer."));
  return false;
}

}  // namespace drafting
