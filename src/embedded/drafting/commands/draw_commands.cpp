// LINE, PLINE, POINT, CIRCLE, ARC: entities drawn point by point.
#include <cmath>

#include "embedded/drafting/commands/ask.h"

namespace drafting {
namespace {

Point2 flat(const Point3& point) { return {point.x, point.y}; }

Answer askPoint(Session& session, std::string_view chinese, std::string_view english,
                std::string keywords = {}) {
  return session.line.ask({.kind = Ask::Point,
                           .message = message(session, chinese, english),
                           .keywords = std::move(keywords)});
}

void line(Session& session) {
  Answer answer = askPoint(session, "\n指定第一点: ", "\nFirst point: ");
  if (!answer.hasValue()) return;
  std::vector<Point3> points{answer.point};
  std::vector<Handle> drawn;
  while (true) {
    answer = askPoint(session, "\n指定下一点或 [闭合(C)/放弃(U)]: ",
                      "\nNext point or [Close/Undo]: ", points.size() > 2 ? "Close Undo" : "Undo");
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

// PLINE: the points and the width of each segment, until Enter or Close.
class PolylineCommand {
 public:
  explicit PolylineCommand(Session& session) : session_(session) {
    start_ = end_ = session.variables.real("PLINEWID");
  }

  void run() {
    const Answer first = askPoint(session_, "\n指定起点: ", "\nStart point: ");
    if (!first.hasValue()) return;
    add(first.point);
    while (goesOn_) step();
    finish();
  }

 private:
  void step() {
    const Answer answer =
        askPoint(session_, "\n指定下一个点或 [圆弧(A)/闭合(C)/半宽(H)/放弃(U)/宽度(W)]: ",
                 "\nNext point or [Arc/Close/Halfwidth/Undo/Width]: ",
                 "Arc Line Close Halfwidth Undo Width");
    if (answer.hasValue()) {
      add(answer.point);
    } else if (answer.isKeyword("Width")) {
      askWidths(1);
    } else if (answer.isKeyword("Halfwidth")) {
      askWidths(2);
    } else if (answer.isKeyword("Arc") || answer.isKeyword("Line")) {
      arc_ = answer.isKeyword("Arc");
    } else if (answer.isKeyword("Undo")) {
      removeLast();
    } else {
      closed_ = answer.isKeyword("Close") && polyline_->points.size() > 1;
      goesOn_ = false;
    }
  }

  // `factor` times the answer is the width.
  void askWidths(double factor) {
    if (!askWidth("\n指定起点宽度 <", "\nStarting width <", factor, start_)) return;
    end_ = start_;
    askWidth("\n指定端点宽度 <", "\nEnding width <", factor, end_);
  }

  bool askWidth(std::string_view chinese, std::string_view english, double factor, double& width) {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Distance,
         .message = message(session_, chinese, english) + shown(width / factor) + ">: ",
         .base = Point3{last().x, last().y, 0},
         .nonNegative = true});
    if (answer.hasValue()) width = answer.number * factor;
    goesOn_ = !answer.cancelled();
    return goesOn_;
  }

  Point2 last() const { return polyline_->points.back(); }

  // The widths asked for belong to the segment that starts at the point before.
  void add(const Point3& point) {
    if (!polyline_->points.empty()) {
      polyline_->widths.back() = {start_, end_};
      polyline_->bulges.back() = arc_ ? bulgeTo(flat(point)) : 0;
      direction_ = arc_ ? direction_ + 4 * std::atan(polyline_->bulges.back())
                        : std::atan2(point.y - last().y, point.x - last().x);
      start_ = end_;
    } else {
      polyline_->elevation = point.z;
    }
    polyline_->points.push_back(flat(point));
    polyline_->widths.push_back({start_, end_});
    polyline_->bulges.push_back(0);
  }

  // An arc leaves in the direction in which the last segment arrived.
  double bulgeTo(Point2 point) const {
    const double chord = std::atan2(point.y - last().y, point.x - last().x);
    return std::tan(std::remainder(chord - direction_, 2 * base::kPi) / 2);
  }

  void removeLast() {
    if (polyline_->points.size() < 2) return;
    polyline_->points.pop_back();
    polyline_->widths.pop_back();
    polyline_->bulges.pop_back();
  }

  void finish() {
    session_.variables.put("PLINEWID", end_);
    if (polyline_->points.size() < 2) return;
    simplifyWidths();
    polyline_->closed = closed_;
    drawEntity(session_, std::move(polyline_));
  }

  // One width throughout is stored as the constant width, straight segments without bulges.
  void simplifyWidths() {
    const LwPolyline::Width first = polyline_->widths.front();
    bool constant = first.start == first.end, straight = true;
    for (std::size_t i = 0; i + (closed_ ? 0 : 1) < polyline_->points.size(); ++i) {
      constant = constant && polyline_->widths[i].start == first.start &&
                 polyline_->widths[i].end == first.start;
      straight = straight && polyline_->bulges[i] == 0;
    }
    if (constant) {
      polyline_->constantWidth = first.start;
      polyline_->widths.clear();
    }
    if (straight) polyline_->bulges.clear();
  }

  Session& session_;
  std::unique_ptr<LwPolyline> polyline_ = std::make_unique<LwPolyline>();
  double start_ = 0, end_ = 0;
  double direction_ = 0;
  bool arc_ = false, closed_ = false, goesOn_ = true;
};

void point(Session& session) {
  const Answer answer = askPoint(session, "\n指定点: ", "\nPoint: ");
  if (!answer.hasValue()) return;
  auto entity = std::make_unique<Point>();
  entity->position = answer.point;
  drawEntity(session, std::move(entity));
}

void circle(Session& session) {
  const Answer centre = askPoint(session, "\n指定圆心: ", "\nCentre point: ");
  if (!centre.hasValue()) return;
  const Answer radius = session.line.ask(
      {.kind = Ask::Distance,
       .message = message(session, "\n指定半径或 [直径(D)]: ", "\nRadius or [Diameter]: "),
       .keywords = "Diameter",
       .base = centre.point,
       .needsAnswer = true,
       .nonNegative = true,
       .nonZero = true});
  double length = radius.number;
  if (radius.isKeyword("Diameter")) {
    const Answer diameter =
        session.line.ask({.kind = Ask::Distance,
                          .message = message(session, "\n指定直径: ", "\nDiameter: "),
                          .base = centre.point,
                          .needsAnswer = true,
                          .nonNegative = true,
                          .nonZero = true});
    if (!diameter.hasValue()) return;
    length = diameter.number / 2;
  } else if (!radius.hasValue()) {
    return;
  }
  auto entity = std::make_unique<Circle>();
  entity->centre = centre.point;
  entity->radius = length;
  drawEntity(session, std::move(entity));
}

// The arc through three points; null if they lie on a line.
std::unique_ptr<Arc> arcThrough(Point2 a, Point2 b, Point2 c) {
  const Point2 u = b - a, v = c - a;
  const double cross = 2 * (u.x * v.y - u.y * v.x);
  if (cross == 0) return nullptr;
  const double uu = u.x * u.x + u.y * u.y, vv = v.x * v.x + v.y * v.y;
  const Point2 centre{a.x + (v.y * uu - u.y * vv) / cross, a.y + (u.x * vv - v.x * uu) / cross};
  auto arc = std::make_unique<Arc>();
  arc->centre = {centre.x, centre.y, 0};
  arc->radius = base::distance(centre, a);
  const double first = std::atan2(a.y - centre.y, a.x - centre.x);
  const double last = std::atan2(c.y - centre.y, c.x - centre.x);
  arc->startAngle = cross > 0 ? first : last;
  arc->endAngle = cross > 0 ? last : first;
  for (double* angle : {&arc->startAngle, &arc->endAngle}) {
    if (*angle < 0) *angle += 2 * base::kPi;
  }
  return arc;
}

void arc(Session& session) {
  const Answer a = askPoint(session, "\n指定圆弧的起点: ", "\nStart point of the arc: ");
  if (!a.hasValue()) return;
  const Answer b = askPoint(session, "\n指定第二个点: ", "\nSecond point: ");
  if (!b.hasValue()) return;
  const Answer c = askPoint(session, "\n指定端点: ", "\nEnd point: ");
  if (!c.hasValue()) return;
  auto entity = arcThrough(flat(a.point), flat(b.point), flat(c.point));
  if (!entity) {
    session.print(session.say("\n三点共线。", "\nThe points lie on a line."));
    return;
  }
  drawEntity(session, std::move(entity));
}

}  // namespace

void addDrawCommands(CommandTable& table) {
  table.add({.name = "LINE", .run = line});
  table.add({.name = "PLINE", .run = [](Session& session) { PolylineCommand(session).run(); }});
  table.add({.name = "POINT", .run = point});
  table.add({.name = "CIRCLE", .run = circle});
  table.add({.name = "ARC", .run = arc});
  table.addAlias("L", "LINE");
  table.addAlias("PL", "PLINE");
  table.addAlias("PO", "POINT");
  table.addAlias("C", "CIRCLE");
  table.addAlias("A", "ARC");
}

}  // namespace drafting
