// LINE, POINT, CIRCLE: entities drawn point by point. Arcs and polylines have files of their own.
#include "embedded/drafting/commands/draw.h"

namespace drafting {
namespace {

void line(Session& session) {
  Answer answer = askPoint(session, "\n指定第一点: ", "\nFirst point: ");
  if (!answer.hasValue()) return;
  std::vector<Point3> points{answer.point};
  std::vector<Handle> drawn;
  while (true) {
    answer =
        askPoint(session, "\n指定下一点或 [闭合(C)/放弃(U)]: ", "\nNext point or [Close/Undo]: ",
                 points.back(), points.size() > 2 ? "Close Undo" : "Undo");
    if (answer.isKeyword("Undo")) {
      if (drawn.empty()) continue;
      session.database().erase(drawn.back());
      drawn.pop_back();
      points.pop_back();
      continue;
    }
    const bool closing = answer.isKeyword("Close");
    if (!closing && !answer.hasValue()) return;
    auto entity = std::make_unique<Line>();
    entity->start = points.back();
    entity->end = closing ? points.front() : answer.point;
    points.push_back(entity->end);
    drawn.push_back(drawEntity(session, std::move(entity)));
    if (closing) return;
  }
}

void point(Session& session) {
  const Answer answer = askPoint(session, "\n指定点: ", "\nPoint: ");
  if (!answer.hasValue()) return;
  auto entity = std::make_unique<Point>();
  entity->position = answer.point;
  drawEntity(session, std::move(entity));
}

void drawCircle(Session& session, const Point3& centre, double radius) {
  auto entity = std::make_unique<Circle>();
  entity->centre = centre;
  entity->radius = radius;
  drawEntity(session, std::move(entity));
}

void circleByTwoPoints(Session& session) {
  const Answer a = askPoint(session, "\n指定圆直径的第一个端点: ", "\nFirst end of the diameter: ");
  if (!a.hasValue()) return;
  const Answer b =
      askPoint(session, "\n指定圆直径的第二个端点: ", "\nSecond end of the diameter: ", a.point);
  if (!b.hasValue()) return;
  const double radius = base::distance(flat(a.point), flat(b.point)) / 2;
  if (!(radius > 0)) {
    session.print(session.say("\n两点重合。", "\nThe two points are the same."));
    return;
  }
  drawCircle(session, (a.point + b.point) * 0.5, radius);
}

void circleByThreePoints(Session& session) {
  const auto points = askThreePoints(session, "\n指定圆上的第一个点: ", "\nFirst point: ");
  if (!points) return;
  const auto round = circleThrough((*points)[0], (*points)[1], (*points)[2]);
  if (!round) {
    session.print(session.say("\n三点共线。", "\nThe points lie on a line."));
    return;
  }
  drawCircle(session, {round->centre.x, round->centre.y, 0}, round->radius);
}

Answer askSize(Session& session, std::string_view chinese, std::string_view english,
               const Point3& base, std::string keywords = {}) {
  return session.line.ask({.kind = Ask::Distance,
                           .message = message(session, chinese, english),
                           .keywords = std::move(keywords),
                           .base = base,
                           .needsAnswer = true,
                           .nonNegative = true,
                           .nonZero = true});
}

void circle(Session& session) {
  const Answer centre = askPoint(
      session, "\n指定圆心或 [三点(3P)/两点(2P)]: ", "\nCentre point or [3P/2P]: ", {}, "3P 2P");
  if (centre.isKeyword("2P")) return circleByTwoPoints(session);
  if (centre.isKeyword("3P")) return circleByThreePoints(session);
  if (!centre.hasValue()) return;
  const Answer radius = askSize(
      session, "\n指定半径或 [直径(D)]: ", "\nRadius or [Diameter]: ", centre.point, "Diameter");
  if (radius.isKeyword("Diameter")) {
    const Answer diameter = askSize(session, "\n指定直径: ", "\nDiameter: ", centre.point);
    if (diameter.hasValue()) drawCircle(session, centre.point, diameter.number / 2);
  } else if (radius.hasValue()) {
    drawCircle(session, centre.point, radius.number);
  }
}

}  // namespace

std::optional<RoundShape> circleThrough(Point2 a, Point2 b, Point2 c) {
  const Point2 u = b - a, v = c - a;
  const double cross = 2 * (u.x * v.y - u.y * v.x);
  if (cross == 0) return {};
  const double uu = u.x * u.x + u.y * u.y, vv = v.x * v.x + v.y * v.y;
  const Point2 centre{a.x + (v.y * uu - u.y * vv) / cross, a.y + (u.x * vv - v.x * uu) / cross};
  return RoundShape{centre, base::distance(centre, a), cross > 0};
}

std::optional<std::array<Point2, 3>> askThreePoints(Session& session, std::string_view chinese,
                                                    std::string_view english) {
  const Answer a = askPoint(session, chinese, english);
  if (!a.hasValue()) return {};
  const Answer b = askPoint(session, "\n指定第二个点: ", "\nSecond point: ", a.point);
  if (!b.hasValue()) return {};
  const Answer c = askPoint(session, "\n指定第三个点: ", "\nThird point: ", b.point);
  if (!c.hasValue()) return {};
  return std::array{flat(a.point), flat(b.point), flat(c.point)};
}

void addDrawCommands(CommandTable& table) {
  table.add({.name = "LINE", .run = line});
  table.add({.name = "POINT", .run = point});
  table.add({.name = "CIRCLE", .run = circle});
  table.addAlias("L", "LINE");
  table.addAlias("PO", "POINT");
  table.addAlias("C", "CIRCLE");
  addArcCommand(table);
  addPolylineCommand(table);
}

}  // namespace drafting
