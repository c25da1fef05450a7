// ARC: through three points, or from its start or its centre with an end, an angle, a chord, a
// direction or a radius.
#include <cmath>

#include "embedded/drafting/commands/draw.h"

namespace drafting {
namespace {

using base::angleOf;
using base::kFullTurn;

double positive(double angle) {
  constexpr double kHair = 1e-12;
  const double rest = base::wrappedAngle(angle);
  return kFullTurn - rest < kHair ? 0 : rest;
}

class ArcCommand {
 public:
  explicit ArcCommand(Session& session) : session_(session) {}

  void run() {
    const Answer first = askPoint(session_, "\n指定圆弧的起点或 [圆心(C)]: ",
                                  "\nStart point of the arc or [Center]: ", {}, "Center");
    if (first.isKeyword("Center")) {
      if (!askCentre()) return;
      const Answer start = askPoint(session_, "\n指定圆弧的起点: ", "\nStart point of the arc: ",
                                    Point3{centre_.x, centre_.y, 0});
      if (!start.hasValue()) return;
      start_ = start.point;
      return endAroundCentre();
    }
    if (!first.hasValue()) return;
    start_ = first.point;
    const Answer second = askPoint(session_, "\n指定第二个点或 [圆心(C)/端点(E)]: ",
                                   "\nSecond point or [Center/End]: ", start_, "Center End");
    if (second.isKeyword("Center")) {
      if (askCentre()) endAroundCentre();
    } else if (second.isKeyword("End")) {
      fromStartToEnd();
    } else if (second.hasValue()) {
      throughSecond(second.point);
    }
  }

 private:
  bool askCentre() {
    const Answer answer = askPoint(session_, "\n指定圆弧的圆心: ", "\nCentre of the arc: ");
    centre_ = flat(answer.point);
    return answer.hasValue();
  }

  Answer askEnd(std::string_view chinese, std::string_view english, std::string keywords = {}) {
    return askPoint(session_, chinese, english, start_, std::move(keywords));
  }

  Answer askValue(Ask kind, std::string_view chinese, std::string_view english) {
    return session_.line.ask({.kind = kind,
                              .message = message(session_, chinese, english),
                              .base = start_,
                              .needsAnswer = true,
                              .nonZero = true});
  }

  void throughSecond(const Point3& second) {
    const Answer end = askEnd("\n指定端点: ", "\nEnd point: ");
    if (!end.hasValue()) return;
    const auto round = circleThrough(flat(start_), flat(second), flat(end.point));
    if (!round) {
      session_.print(session_.say("\n三点共线。", "\nThe points lie on a line."));
      return;
    }
    centre_ = round->centre;
    draw(round->counterClockwise ? flat(start_) : flat(end.point),
         round->counterClockwise ? flat(end.point) : flat(start_));
  }

  // Counter-clockwise from the start; only the direction of the end counts.
  void endAroundCentre() {
    if (flat(start_) == centre_) return fail();
    const Answer end = askEnd("\n指定端点或 [角度(A)/弦长(L)]: ",
                              "\nEnd point or [Angle/chord Length]: ", "Angle Length");
    if (end.hasValue()) return drawTo(angleOf(flat(end.point) - centre_) - startAngle());
    if (end.isKeyword("Angle")) {
      const Answer angle = askValue(Ask::Angle, "\n指定包含角: ", "\nIncluded angle: ");
      if (angle.hasValue()) drawSweep(angle.number);
    } else if (end.isKeyword("Length")) {
      const Answer chord = askValue(Ask::Distance, "\n指定弦长: ", "\nLength of chord: ");
      if (!chord.hasValue()) return;
      const double half = std::abs(chord.number) / (2 * radius());
      if (half > 1) return fail();
      const double sweep = 2 * std::asin(half);
      drawSweep(chord.number < 0 ? kFullTurn - sweep : sweep);  // negative: the long way
    }
  }

  void fromStartToEnd() {
    const Answer end = askEnd("\n指定圆弧的端点: ", "\nEnd point of the arc: ");
    if (!end.hasValue()) return;
    const Point2 from = flat(start_), to = flat(end.point);
    if (from == to) return fail();
    const Answer how = askPoint(session_, "\n指定圆弧的圆心或 [角度(A)/方向(D)/半径(R)]: ",
                                "\nCentre of the arc or [Angle/Direction/Radius]: ", end.point,
                                "Angle Direction Radius");
    if (how.hasValue()) {
      centre_ = flat(how.point);
      return centre_ == from ? fail() : drawTo(angleOf(to - centre_) - startAngle());
    }
    if (how.isKeyword("Angle")) {
      const Answer angle = askValue(Ask::Angle, "\n指定包含角: ", "\nIncluded angle: ");
      if (angle.hasValue()) drawBetween(from, to, angle.number);
    } else if (how.isKeyword("Direction")) {
      const Answer way = askValue(Ask::Angle, "\n指定起点切向: ", "\nDirection at the start: ");
      if (way.hasValue())
        drawBetween(from, to, 2 * std::remainder(angleOf(to - from) - way.number, kFullTurn));
    } else if (how.isKeyword("Radius")) {
      const Answer radius = askValue(Ask::Distance, "\n指定圆弧的半径: ", "\nRadius of the arc: ");
      if (!radius.hasValue()) return;
      const double half = base::distance(from, to) / (2 * std::abs(radius.number));
      if (half > 1) return fail();
      const double sweep = 2 * std::asin(half);
      drawBetween(from, to, radius.number < 0 ? kFullTurn - sweep : sweep);
    }
  }

  double startAngle() const { return angleOf(flat(start_) - centre_); }
  double radius() const { return base::distance(flat(start_), centre_); }

  void drawTo(double sweep) { drawSweep(positive(sweep)); }

  void drawSweep(double sweep) {
    if (!(std::abs(sweep) > 0) || std::abs(sweep) >= kFullTurn) return fail();
    const Point2 end = base::polar(centre_, startAngle() + sweep, radius());
    draw(sweep > 0 ? flat(start_) : end, sweep > 0 ? end : flat(start_));
  }

  void drawBetween(Point2 from, Point2 to, double sweep) {
    const double half = std::abs(std::sin(sweep / 2));
    if (!(half > 1e-12) || std::abs(sweep) >= kFullTurn) return fail();
    const double bulge = std::tan(sweep / 4), chord = base::distance(from, to);
    const Point2 way = (to - from) * (1 / chord);
    centre_ =
        (from + to) * 0.5 + Point2{-way.y, way.x} * (chord * (1 - bulge * bulge) / (4 * bulge));
    draw(sweep > 0 ? from : to, sweep > 0 ? to : from);
  }

  void draw(Point2 from, Point2 to) {
    auto arc = std::make_unique<Arc>();
    arc->centre = {centre_.x, centre_.y, start_.z};
    arc->radius = base::distance(centre_, flat(start_));
    arc->startAngle = positive(angleOf(from - centre_));
    arc->endAngle = positive(angleOf(to - centre_));
    drawEntity(session_, std::move(arc));
  }

  void fail() { session_.print(session_.say("\n无法画出这样的圆弧。", "\nThere is no such arc.")); }

  Session& session_;
  Point3 start_;
  Point2 centre_;
};

}  // namespace

void addArcCommand(CommandTable& table) {
  table.add({.name = "ARC", .run = [](Session& session) { ArcCommand(session).run(); }});
  table.addAlias("A", "ARC");
}

}  // namespace drafting
