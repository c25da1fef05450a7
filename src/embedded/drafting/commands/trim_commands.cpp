// TRIM and EXTEND: lines, arcs, circles and polylines up to edges.
#include <algorithm>

#include "embedded/drafting/commands/curve_parts.h"
#include "embedded/drafting/commands/entity_copies.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/database/visit.h"

namespace drafting {
namespace {

class TrimCommand {
 public:
  TrimCommand(Session& session, bool extends) : session_(session), extends_(extends) {}

  void run() {
    const auto edges = askSelection(
        session_,
        {.lockedToo = true,
         .heading = extends_
                        ? message(session_, "\n选择边界的边 <全部>...", "\nBoundary edges <all>...")
                        : message(session_, "\n选择剪切边 <全部>...", "\nCutting edges <all>...")});
    if (!edges) return;
    edges_ = *edges;
    while (step()) {
    }
  }

 private:
  struct Change {
    std::unique_ptr<Entity> before;
    Handle handle = 0;
    std::vector<Handle> made;
  };

  Database& database() { return session_.database(); }

  bool step() {
    const EntityAnswer picked = askEntity(
        session_,
        extends_
            ? message(session_,
                      "\n选择要延伸的对象或 [放弃(U)]: ", "\nObject to extend or [Undo]: ")
            : message(session_, "\n选择要修剪的对象或 [放弃(U)]: ", "\nObject to trim or [Undo]: "),
        "Undo");
    if (picked.answer.isKeyword("Undo")) {
      takeBack();
      return true;
    }
    if (!picked.handle) return false;
    if (!picked.picked) {
      session_.print(session_.say("\n需要用点来选择。", "\nIt must be picked by a point."));
      return true;
    }
    change(picked.handle, flat(picked.point));
    return true;
  }

  void change(Handle handle, Point2 point) {
    const auto* entity = database().find<Entity>(handle);
    if (!mayChange(session_, *entity)) return;
    const auto parts = CurveParts::of(database(), *entity);
    if (!parts) {
      session_.print(extends_ ? session_.say("\n不能延伸该对象。", "\nIt can't be extended.")
                              : session_.say("\n不能修剪该对象。", "\nIt can't be trimmed."));
      return;
    }
    std::vector<std::unique_ptr<Entity>> kept;
    const bool done =
        extends_ ? extend(*parts, handle, point, kept) : trim(*parts, handle, point, kept);
    if (done) replace(handle, std::move(kept));
  }

  // Pieces of the edges but for those of the entity itself.
  std::vector<Piece> edgePieces(Handle without, const Box2& area) {
    std::vector<Handle> handles = edges_;
    if (handles.empty()) {
      session_.index().visit(area, [&](Handle handle, const Box2&) { handles.push_back(handle); });
      std::sort(handles.begin(), handles.end());
    }
    std::vector<Piece> pieces;
    for (const Handle handle : handles) {
      const auto* entity = database().find<Entity>(handle);
      if (!entity || handle == without) continue;
      const auto own = piecesOf(database(), *entity).pieces;
      pieces.insert(pieces.end(), own.begin(), own.end());
    }
    return pieces;
  }

  bool trim(const CurveParts& parts, Handle handle, Point2 point,
            std::vector<std::unique_ptr<Entity>>& kept) {
    const Box2 area = session_.index().picture(*database().find<Entity>(handle)).bounds();
    const std::vector<double> cuts = parts.cuts(edgePieces(handle, area));
    const double at = parts.closest(point);
    const auto above = std::upper_bound(cuts.begin(), cuts.end(), at);
    if (cuts.empty() || (parts.closed() && cuts.size() < 2)) return refuse();
    if (parts.closed()) {
      const double next = above == cuts.end() ? cuts.front() : *above;
      const double before = above == cuts.begin() ? cuts.back() : *std::prev(above);
      kept.push_back(parts.part(next, before));
      return true;
    }
    if (above != cuts.begin()) kept.push_back(parts.part(0, *std::prev(above)));
    if (above != cuts.end()) kept.push_back(parts.part(*above, parts.end()));
    std::erase(kept, nullptr);
    return !kept.empty() || refuse();
  }

  bool extend(const CurveParts& parts, Handle handle, Point2 point,
              std::vector<std::unique_ptr<Entity>>& kept) {
    const bool atStart = parts.closest(point) < parts.end() / 2;
    const auto to = parts.reach(edgePieces(handle, session_.index().extents()), atStart);
    if (!to) return refuse();
    kept.push_back(parts.lengthened(*to, atStart));
    return true;
  }

  bool refuse() {
    session_.print(extends_
                       ? session_.say("\n对象不与边界相交。", "\nNo edge lies in this direction.")
                       : session_.say("\n对象不与剪切边相交。", "\nNo edge crosses the object."));
    return false;
  }

  // The first part takes the entity's handle, unless it is of another kind: undo goes by handles.
  void replace(Handle handle, std::vector<std::unique_ptr<Entity>> parts) {
    auto* block = database().find<BlockRecord>(database().find<Entity>(handle)->owner);
    Change change;
    change.before.reset(
        static_cast<Entity*>(copyObject(*database().find<Entity>(handle)).release()));
    change.handle = handle;
    database().erase(handle);
    parts.front()->handle = parts.front()->kind == change.before->kind ? handle : 0;
    for (auto& part : parts) change.made.push_back(database().append(*block, std::move(part)));
    changes_.push_back(std::move(change));
  }

  void takeBack() {
    if (changes_.empty()) {
      session_.print(session_.say("\n没有可放弃的操作。", "\nThere is nothing to undo."));
      return;
    }
    Change change = std::move(changes_.back());
    changes_.pop_back();
    for (const Handle handle : change.made) database().erase(handle);
    change.before->handle = change.handle;
    database().append(database().modelSpace(), std::move(change.before));
  }

  Session& session_;
  bool extends_;
  Selection edges_;  // empty: all that is shown
  std::vector<Change> changes_;
};

}  // namespace

void addTrimCommands(CommandTable& table) {
  table.add({.name = "TRIM", .run = [](Session& s) { TrimCommand(s, false).run(); }});
  table.add({.name = "EXTEND", .run = [](Session& s) { TrimCommand(s, true).run(); }});
  table.addAlias("TR", "TRIM");
  table.addAlias("EX", "EXTEND");
}

}  // namespace drafting
