// ZOOM, PAN, REGEN: what part of the drawing is shown. Nothing of it is a step of undo, so that
// they may run within other commands.
#include "embedded/base/text.h"
#include "embedded/drafting/commands/answer_parser.h"
#include "embedded/drafting/commands/ask.h"

namespace drafting {
namespace {

constexpr double kMargin = 1.02;  // around the extents

void showCorners(Session& session, const Point3& a, const Point3& b) {
  base::Box2 box;
  box.add(flat(a));
  box.add(flat(b));
  if (box.width() > 0 || box.height() > 0) {
    session.view.showBox(box);
  } else {
    session.print(session.say("\n窗口没有大小。", "\nThe window has no extent."));
  }
}

void askWindow(Session& session) {
  const Answer first = askPoint(session, "\n指定第一个角点: ", "\nFirst corner: ");
  if (!first.hasValue()) return;
  const Answer second = askCorner(session, "\n指定对角点: ", "\nOpposite corner: ", first.point);
  if (second.hasValue()) showCorners(session, first.point, second.point);
}

// "2x" is a factor of the view, "2" one of the drawing's limits as they are first shown.
std::optional<double> factorOf(const Session& session, std::string_view typed) {
  const bool ofView = !typed.empty() && (typed.back() == 'x' || typed.back() == 'X');
  if (ofView) typed.remove_suffix(1);
  const auto factor = parseReal(typed);
  if (!factor || !(*factor > 0)) return {};
  constexpr double kWhole = 297;
  return (ofView ? session.view.height() : kWhole) / *factor;
}

void askCentre(Session& session) {
  const Answer centre = askPoint(session, "\n指定中心点: ", "\nCentre point: ");
  if (centre.cancelled()) return;
  const Point2 at = centre.hasValue() ? flat(centre.point) : session.view.centre();
  while (true) {
    const Answer height = session.line.ask(
        {.kind = Ask::Word,
         .message = message(session, "\n输入比例或高度 <", "\nMagnification or height <") +
                    shown(session.view.height()) + ">: "});
    if (height.cancelled()) return;
    double value = session.view.height();
    if (height.hasValue()) {
      const bool ofView = base::capitals(height.text).ends_with('X');
      const auto number = ofView ? factorOf(session, height.text) : parseReal(height.text);
      value = number.value_or(0);
    }
    if (session.view.show(at, value)) return;
    session.print(session.say("\n需要正数。", "\nA positive number is needed."));
  }
}

void showExtents(Session& session) { session.view.showBox(session.index().extents(), kMargin); }

void zoomBy(Session& session, const std::string& keyword) {
  if (keyword == "All" || keyword == "Extents") {
    showExtents(session);
  } else if (keyword == "Center") {
    askCentre(session);
  } else if (keyword == "Previous") {
    if (!session.view.showPrevious())
      session.print(session.say("\n没有上一个视图。", "\nThere is no previous view."));
  } else {
    askWindow(session);
  }
}

void zoom(Session& session) {
  while (true) {
    const Answer answer = session.line.ask(
        {.kind = Ask::Word,
         .message = message(
             session,
             "\n指定窗口角点，输入比例因子 (nX) 或 [全部(A)/中心(C)/范围(E)/上一个(P)/窗口(W)]: ",
             "\nCorner of window, scale factor (nX) or [All/Center/Extents/Previous/Window]: "),
         .keywords = "All Center Extents Previous Window"});
    if (answer.outcome == Outcome::Keyword) return zoomBy(session, answer.text);
    if (!answer.hasValue()) return;
    const auto corner = parsePoint(answer.text, session.variables.point("LASTPOINT"));
    if (corner) {
      const Answer second = askCorner(session, "\n指定对角点: ", "\nOpposite corner: ", *corner);
      if (second.hasValue()) showCorners(session, *corner, second.point);
      return;
    }
    const auto height = factorOf(session, answer.text);
    if (height && session.view.show(session.view.centre(), *height)) return;
    session.print(session.say("\n需要比例因子或点。", "\nA scale factor or a point is needed."));
  }
}

void pan(Session& session) {
  const Answer base = askPoint(session, "\n指定基点或位移: ", "\nBase point or displacement: ");
  if (!base.hasValue()) return;
  const Answer second = askPoint(session, "\n指定第二点: ", "\nSecond point: ", base.point);
  if (second.cancelled()) return;
  const Point2 by = second.hasValue() ? flat(second.point - base.point) : flat(base.point);
  session.view.show(session.view.centre() - by, session.view.height());
}

}  // namespace

void addViewCommands(CommandTable& table) {
  table.add({.name = "ZOOM", .run = zoom, .recordsItself = true, .transparent = true});
  table.add({.name = "PAN", .run = pan, .recordsItself = true, .transparent = true});
  // Pictures are made from the drawing whenever they are shown: there is nothing to renew.
  table.add({.name = "REGEN", .run = [](Session&) {}, .recordsItself = true, .transparent = true});
  table.addAlias("Z", "ZOOM");
  table.addAlias("P", "PAN");
  table.addAlias("-PAN", "PAN");
  table.addAlias("RE", "REGEN");
  table.addAlias("REDRAW", "REGEN");
}

}  // namespace drafting
