// MOVE, COPY, ROTATE, MIRROR, SCALE: selected entities under a map.
#include <cmath>

#include "embedded/drafting/commands/entity_copies.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/database/transform.h"

namespace drafting {
namespace {

TransformOptions optionsOf(const Session& session) {
  return {.readableTexts = session.variables.integer("MIRRTEXT") == 0};
}

// Maps the entities in place; tells how many can't be.
void transformAll(Session& session, const Selection& selection, const Map3& map) {
  std::size_t refused = 0;
  for (const Handle handle : selection) {
    if (!transformWithParts(session.database(), handle, map, optionsOf(session))) ++refused;
  }
  if (refused) {
    session.print("\n" + std::to_string(refused) +
                  message(session, " 个对象无法变换。", " can't be changed so."));
  }
}

Selection copiesOf(Session& session, const Selection& selection) {
  Selection copies;
  for (const Handle handle : selection) {
    if (const Handle copy = copyEntity(session.database(), handle)) copies.push_back(copy);
  }
  return copies;
}

void copyAll(Session& session, const Selection& selection, const Map3& map) {
  const Selection copies = copiesOf(session, selection);
  if (copies.size() < selection.size()) {
    session.print("\n" + std::to_string(selection.size() - copies.size()) +
                  message(session, " 个对象无法复制。", " can't be copied."));
  }
  transformAll(session, copies, map);
}

std::optional<Selection> askSome(Session& session, bool lockedToo = false) {
  auto selection = askSelection(session, {.lockedToo = lockedToo});
  if (selection && selection->empty()) return {};
  return selection;
}

// The displacement of MOVE and COPY: between two points, or the first one itself if the second is
// left out.
std::optional<Point3> askSecond(Session& session, const Point3& base) {
  const Answer second = askPoint(session, "\n指定位移的第二点或 <用第一点作位移>: ",
                                 "\nSecond point of displacement or <use first point>: ", base);
  if (second.cancelled()) return {};
  return second.hasValue() ? second.point - base : base;
}

void move(Session& session) {
  const auto selection = askSome(session);
  if (!selection) return;
  const Answer base = askPoint(session, "\n指定基点或位移: ", "\nBase point or displacement: ");
  if (!base.hasValue()) return;
  const auto by = askSecond(session, base.point);
  if (by) transformAll(session, *selection, Map3::translation(*by));
}

void copyMany(Session& session, const Selection& selection) {
  const Answer base = askPoint(session, "\n指定基点: ", "\nBase point: ");
  if (!base.hasValue()) return;
  while (true) {
    const Answer second =
        askPoint(session, "\n指定位移的第二点: ", "\nSecond point of displacement: ", base.point);
    if (!second.hasValue()) return;
    copyAll(session, selection, Map3::translation(second.point - base.point));
  }
}

void copy(Session& session) {
  const auto selection = askSome(session, true);
  if (!selection) return;
  const Answer base = askPoint(session, "\n指定基点或位移或 [重复(M)]: ",
                               "\nBase point or displacement or [Multiple]: ", {}, "Multiple");
  if (base.isKeyword("Multiple")) return copyMany(session, *selection);
  if (!base.hasValue()) return;
  const auto by = askSecond(session, base.point);
  if (by) copyAll(session, *selection, Map3::translation(*by));
}

// An angle: typed, or between two points as seen from the first.
std::optional<double> askReferenceAngle(Session& session, const Point3& base) {
  const Answer from = session.line.ask(
      {.kind = Ask::Angle,
       .message = message(session, "\n指定参照角 <0>: ", "\nReference angle <0>: "),
       .base = base});
  if (from.cancelled()) return {};
  const Answer to =
      session.line.ask({.kind = Ask::Angle,
                        .message = message(session, "\n指定新角度: ", "\nNew angle: "),
                        .base = base,
                        .needsAnswer = true});
  if (!to.hasValue()) return {};
  return to.number - from.number;
}

void rotate(Session& session) {
  const auto selection = askSome(session);
  if (!selection) return;
  const Answer base = askPoint(session, "\n指定基点: ", "\nBase point: ");
  if (!base.hasValue()) return;
  const Answer answer = session.line.ask(
      {.kind = Ask::Angle,
       .message =
           message(session, "\n指定旋转角度或 [参照(R)]: ", "\nRotation angle or [Reference]: "),
       .keywords = "Reference",
       .base = base.point,
       .needsAnswer = true});
  std::optional<double> angle;
  if (answer.hasValue()) angle = answer.number;
  if (answer.isKeyword("Reference")) angle = askReferenceAngle(session, base.point);
  if (angle) transformAll(session, *selection, Map3::rotation(base.point, *angle));
}

void mirror(Session& session) {
  const auto selection = askSome(session);
  if (!selection) return;
  const Answer first =
      askPoint(session, "\n指定镜像线的第一点: ", "\nFirst point of mirror line: ");
  if (!first.hasValue()) return;
  const Answer second =
      askPoint(session, "\n指定镜像线的第二点: ", "\nSecond point of mirror line: ", first.point);
  if (!second.hasValue()) return;
  if (flat(first.point) == flat(second.point)) {
    session.print(session.say("\n镜像线的两点重合。", "\nThe two points are the same."));
    return;
  }
  const Answer erases =
      session.line.ask({.kind = Ask::Keyword,
                        .message = message(session, "\n是否删除源对象? [是(Y)/否(N)] <N>: ",
                                           "\nDelete source objects? [Yes/No] <N>: "),
                        .keywords = "Yes No"});
  if (erases.cancelled()) return;
  const Map3 map = Map3::mirror(flat(first.point), flat(second.point));
  erases.isKeyword("Yes") ? transformAll(session, *selection, map)
                          : copyAll(session, *selection, map);
}

Answer askLength(Session& session, std::string_view chinese, std::string_view english,
                 const Point3& base, bool needsAnswer, std::string keywords = {}) {
  return session.line.ask({.kind = Ask::Distance,
                           .message = message(session, chinese, english),
                           .keywords = std::move(keywords),
                           .base = base,
                           .needsAnswer = needsAnswer,
                           .nonNegative = true,
                           .nonZero = true});
}

std::optional<double> askReferenceScale(Session& session, const Point3& base) {
  const Answer from =
      askLength(session, "\n指定参照长度 <1>: ", "\nReference length <1>: ", base, false);
  if (from.cancelled()) return {};
  const Answer to = askLength(session, "\n指定新长度: ", "\nNew length: ", base, true);
  if (!to.hasValue()) return {};
  return to.number / (from.hasValue() ? from.number : 1);
}

void scale(Session& session) {
  const auto selection = askSome(session);
  if (!selection) return;
  const Answer base = askPoint(session, "\n指定基点: ", "\nBase point: ");
  if (!base.hasValue()) return;
  const Answer answer = askLength(session, "\n指定比例因子或 [参照(R)]: ",
                                  "\nScale factor or [Reference]: ", base.point, true, "Reference");
  std::optional<double> factor;
  if (answer.hasValue()) factor = answer.number;
  if (answer.isKeyword("Reference")) factor = askReferenceScale(session, base.point);
  if (factor) transformAll(session, *selection, Map3::scaling(base.point, *factor));
}

}  // namespace

void addTransformCommands(CommandTable& table) {
  table.add({.name = "MOVE", .run = move});
  table.add({.name = "COPY", .run = copy});
  table.add({.name = "ROTATE", .run = rotate});
  table.add({.name = "MIRROR", .run = mirror});
  table.add({.name = "SCALE", .run = scale});
  table.addAlias("M", "MOVE");
  table.addAlias("CO", "COPY");
  table.addAlias("CP", "COPY");
  table.addAlias("RO", "ROTATE");
  table.addAlias("MI", "MIRROR");
  table.addAlias("SC", "SCALE");
}

}  // namespace drafting
