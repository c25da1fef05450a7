// PLINE: segments straight and round with their widths, until Enter or Close.
#include <algorithm>
#include <cmath>

#include "embedded/drafting/commands/draw.h"

namespace drafting {
namespace {

using base::angleOf;
double half(double angle) { return std::remainder(angle, 2 * base::kPi) / 2; }

class PolylineCommand {
 public:
  explicit PolylineCommand(Session& session) : session_(session) {
    start_ = end_ = session.variables.real("PLINEWID");
  }

  void run() {
    const Answer first = askPoint(session_, "\n指定起点: ", "\nStart point: ");
    if (!first.hasValue()) return;
    polyline_->elevation = first.point.z;
    append(flat(first.point));
    while (goesOn_) step();
    finish();
  }

 private:
  Answer askNext() {
    if (arc_) {
      return ask(
          "\n指定圆弧的端点或 [角度(A)/圆心(CE)/闭合(CL)/方向(D)/半宽(H)/直线(L)/第二点(S)/"
          "放弃(U)/宽度(W)]: ",
          "\nEndpoint of arc or [Angle/CEnter/CLose/Direction/Halfwidth/Line/Second/Undo/"
          "Width]: ",
          "Angle CEnter CLose Direction Halfwidth Line Second Undo Width");
    }
    return ask("\n指定下一个点或 [圆弧(A)/闭合(C)/半宽(H)/长度(L)/放弃(U)/宽度(W)]: ",
               "\nNext point or [Arc/Close/Halfwidth/Length/Undo/Width]: ",
               "Arc Close Halfwidth Length Undo Width");
  }

  Answer ask(std::string_view chinese, std::string_view english, std::string keywords = {}) {
    return askPoint(session_, chinese, english, lastPoint(), std::move(keywords));
  }

  void step() {
    const Answer answer = askNext();
    if (answer.hasValue()) {
      addSegment(flat(answer.point), arc_ ? tangentBulge(flat(answer.point), direction()) : 0);
    } else if (answer.outcome != Outcome::Keyword) {
      goesOn_ = false;
    } else if (answer.text == "Close" || answer.text == "CLose") {
      close();
    } else if (answer.text == "Width") {
      askWidths(1);
    } else if (answer.text == "Halfwidth") {
      askWidths(2);
    } else if (answer.text == "Undo") {
      removeLast();
    } else if (answer.text == "Length") {
      byLength();
    } else if (answer.text == "Arc" || answer.text == "Line") {
      arc_ = answer.text == "Arc";
    } else {
      roundStep(answer.text);
    }
  }

  void roundStep(const std::string& keyword) {
    if (keyword == "Angle") byAngle();
    if (keyword == "CEnter") byCentre();
    if (keyword == "Direction") byDirection();
    if (keyword == "Second") bySecond();
  }

  // --- ways to the next point

  void byLength() {
    const Answer length =
        session_.line.ask({.kind = Ask::Distance,
                           .message = message(session_, "\n指定直线的长度: ", "\nLength of line: "),
                           .base = lastPoint()});
    if (length.hasValue()) addSegment(base::polar(last(), direction(), length.number), 0);
  }

  void byAngle() {
    const Answer angle =
        session_.line.ask({.kind = Ask::Angle,
                           .message = message(session_, "\n指定包含角: ", "\nIncluded angle: "),
                           .base = lastPoint(),
                           .nonZero = true});
    if (!angle.hasValue()) return;
    const Answer end = ask("\n指定圆弧的端点: ", "\nEndpoint of arc: ");
    if (end.hasValue()) addSegment(flat(end.point), std::tan(half(angle.number) / 2));
  }

  // Counter-clockwise; only the direction of the end counts.
  void byCentre() {
    const Answer centre = ask("\n指定圆弧的圆心: ", "\nCentre point of arc: ");
    if (!centre.hasValue()) return;
    const Answer end = ask("\n指定圆弧的端点: ", "\nEndpoint of arc: ");
    const Point2 from = last() - flat(centre.point), to = flat(end.point) - flat(centre.point);
    if (!end.hasValue() || base::length(from) == 0 || base::length(to) == 0) return;
    double sweep = angleOf(to) - angleOf(from);
    if (sweep <= 0) sweep += 2 * base::kPi;
    addSegment(base::polar(flat(centre.point), angleOf(to), base::length(from)),
               std::tan(sweep / 4));
  }

  void byDirection() {
    const Answer way = session_.line.ask(
        {.kind = Ask::Angle,
         .message = message(session_, "\n指定起点切向: ", "\nTangent direction at the start: "),
         .base = lastPoint()});
    if (!way.hasValue()) return;
    const Answer end = ask("\n指定圆弧的端点: ", "\nEndpoint of arc: ");
    if (end.hasValue()) addSegment(flat(end.point), tangentBulge(flat(end.point), way.number));
  }

  void bySecond() {
    const Answer second = ask("\n指定圆弧的第二点: ", "\nSecond point on arc: ");
    if (!second.hasValue()) return;
    const Answer end = ask("\n指定圆弧的端点: ", "\nEndpoint of arc: ");
    if (!end.hasValue()) return;
    const Point2 a = last(), b = flat(second.point), c = flat(end.point);
    const auto round = circleThrough(a, b, c);
    if (!round) {
      session_.print(session_.say("\n三点共线。", "\nThe points lie on a line."));
      return;
    }
    double sweep = angleOf(c - round->centre) - angleOf(a - round->centre);
    if (round->counterClockwise && sweep <= 0) sweep += 2 * base::kPi;
    if (!round->counterClockwise && sweep >= 0) sweep -= 2 * base::kPi;
    addSegment(c, std::tan(sweep / 4));
  }

  void close() {
    if (polyline_->points.size() > 1) {
      if (arc_) polyline_->bulges.back() = tangentBulge(polyline_->points.front(), direction());
      polyline_->widths.back() = {start_, end_};
      closed_ = true;
    }
    goesOn_ = false;
  }

  // --- widths

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
         .base = lastPoint(),
         .nonNegative = true});
    if (answer.hasValue()) width = answer.number * factor;
    goesOn_ = !answer.cancelled();
    return goesOn_;
  }

  // --- the polyline so far

  Point2 last() const { return polyline_->points.back(); }
  Point3 lastPoint() const { return {last().x, last().y, polyline_->elevation}; }

  // The direction in which the last segment arrived.
  double direction() const {
    const auto& points = polyline_->points;
    if (points.size() < 2) return 0;
    const std::size_t i = points.size() - 2;
    return angleOf(points[i + 1] - points[i]) + 2 * std::atan(polyline_->bulges[i]);
  }

  // Of an arc that leaves in that direction.
  double tangentBulge(Point2 point, double from) const {
    return std::tan(half(angleOf(point - last()) - from));
  }

  // The widths asked for belong to the segment that starts at the point before.
  void addSegment(Point2 point, double bulge) {
    polyline_->widths.back() = {start_, end_};
    polyline_->bulges.back() = bulge;
    start_ = end_;
    append(point);
  }

  void append(Point2 point) {
    polyline_->points.push_back(point);
    polyline_->widths.push_back({start_, end_});
    polyline_->bulges.push_back(0);
  }

  void removeLast() {
    if (polyline_->points.size() < 2) return;
    polyline_->points.pop_back();
    polyline_->widths.pop_back();
    polyline_->bulges.pop_back();
    polyline_->bulges.back() = 0;
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
  bool arc_ = false, closed_ = false, goesOn_ = true;
};

}  // namespace

void addPolylineCommand(CommandTable& table) {
  table.add({.name = "PLINE", .run = [](Session& session) { PolylineCommand(session).run(); }});
  table.addAlias("PL", "PLINE");
}

}  // namespace drafting
