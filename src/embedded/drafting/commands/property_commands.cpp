// CHPROP and CHANGE: properties of entities, and points of lines, circles and texts.
#include "embedded/base/numbers.h"
#include "embedded/drafting/commands/properties.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/database/visit.h"

namespace drafting {
namespace {

template <class F>
void forAll(Session& session, const Selection& selection, F change) {
  for (const Handle handle : selection) change(session.database().edit<Entity>(handle));
}

class PropertyCommand {
 public:
  PropertyCommand(Session& session, const Selection& selection)
      : session_(session), selection_(selection) {}

  void run() {
    while (true) {
      const Answer answer = session_.line.ask(
          {.kind = Ask::Keyword,
           .message = message(session_,
                              "\n输入要修改的特性 [颜色(C)/图层(LA)/线型(LT)/线型比例(S)/线宽(LW)/"
                              "厚度(T)]: ",
                              "\nProperty [Color/LAyer/LType/ltScale/LWeight/Thickness]: "),
           .keywords = "Color LAyer LType Scale ltScale LWeight Thickness"});
      if (answer.outcome != Outcome::Keyword) return;
      const std::string& keyword = answer.text;
      if (keyword == "Color") colour();
      if (keyword == "LAyer") layer();
      if (keyword == "LType") linetype();
      if (keyword == "Scale" || keyword == "ltScale") scale();
      if (keyword == "LWeight") weight();
      if (keyword == "Thickness") thickness();
    }
  }

 private:
  void colour() {
    const auto colour = askColour(session_, "\n输入新颜色: ", "\nNew colour: ");
    if (!colour) return;
    forAll(session_, selection_, [&](Entity& e) { e.colour = static_cast<std::int16_t>(*colour); });
  }

  void layer() {
    const Handle layer =
        askRecord(session_, Table::Layers, "\n输入新图层名: ", "\nNew layer name: ");
    if (layer) forAll(session_, selection_, [&](Entity& e) { e.layer = layer; });
  }

  void linetype() {
    const auto linetype = askLinetype(session_, "\n输入新线型名: ", "\nNew linetype name: ");
    if (linetype) forAll(session_, selection_, [&](Entity& e) { e.linetype = *linetype; });
  }

  void scale() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Real,
         .message = message(session_, "\n输入新线型比例: ", "\nNew linetype scale: "),
         .nonNegative = true,
         .nonZero = true});
    if (!answer.hasValue()) return;
    forAll(session_, selection_, [&](Entity& e) { e.linetypeScale = answer.number; });
  }

  void weight() {
    const auto weight =
        askLineweight(session_, "\n输入新线宽 (毫米，或 ByLayer、ByBlock、Default): ",
                      "\nNew lineweight (mm, or ByLayer, ByBlock, Default): ");
    if (weight) forAll(session_, selection_, [&](Entity& e) { e.lineweight = *weight; });
  }

  void thickness() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Real, .message = message(session_, "\n指定新厚度: ", "\nNew thickness: ")});
    if (!answer.hasValue()) return;
    forAll(session_, selection_, [&](Entity& entity) {
      visit(entity, [&](auto& one) {
        if constexpr (requires { one.thickness; }) one.thickness = answer.number;
      });
    });
  }

  Session& session_;
  const Selection& selection_;
};

void changeProperties(Session& session) {
  const auto selection = askSelection(session);
  if (selection && !selection->empty()) PropertyCommand(session, *selection).run();
}

// The nearer end of a line, a point of a circle, the place of a text.
bool changePoint(Entity& entity, const Point3& point) {
  if (entity.kind == Kind::Line) {
    auto& line = static_cast<Line&>(entity);
    const bool start =
        base::distance(flat(line.start), flat(point)) < base::distance(flat(line.end), flat(point));
    (start ? line.start : line.end) = point;
  } else if (entity.kind == Kind::Circle) {
    auto& circle = static_cast<Circle&>(entity);
    const double radius = base::distance(flat(circle.centre), flat(point));
    if (radius > 0) circle.radius = radius;
    return radius > 0;
  } else if (entity.kind == Kind::Text || entity.kind == Kind::Attdef) {
    auto& text = static_cast<TextBase&>(entity);
    const bool plain = text.horizontal == 0 && text.vertical == 0;
    const Point2 by = flat(point) - (plain ? text.position : text.alignment);
    text.position = text.position + by;
    text.alignment = text.alignment + by;
  } else {
    return false;
  }
  return true;
}

void change(Session& session) {
  const auto selection = askSelection(session);
  if (!selection || selection->empty()) return;
  const Answer answer = askPoint(
      session, "\n指定修改点或 [特性(P)]: ", "\nChange point or [Properties]: ", {}, "Properties");
  if (answer.isKeyword("Properties")) return PropertyCommand(session, *selection).run();
  if (!answer.hasValue()) return;
  int refused = 0;
  forAll(session, *selection, [&](Entity& e) { refused += changePoint(e, answer.point) ? 0 : 1; });
  if (refused) {
    session.print("\n" + std::to_string(refused) +
                  message(session, " 个对象没有修改点。", " have no change point."));
  }
}

}  // namespace

void addPropertyCommands(CommandTable& table) {
  table.add({.name = "CHPROP", .run = changeProperties});
  table.add({.name = "CHANGE", .run = change});
  table.addAlias("-CH", "CHANGE");
  addLinetypeCommand(table);
}

}  // namespace drafting
