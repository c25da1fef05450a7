// TEXT: one-line texts at a point, with height, rotation and justification.
#include "embedded/base/text.h"
#include "embedded/drafting/commands/ask.h"

namespace drafting {
namespace {

struct Justification {
  std::string_view keyword;
  std::int16_t horizontal, vertical;
};
constexpr Justification kJustifications[] = {
    {"Left", 0, 0}, {"Center", 1, 0}, {"Right", 2, 0}, {"Middle", 4, 0}, {"TL", 0, 3},
    {"TC", 1, 3},   {"TR", 2, 3},     {"ML", 0, 2},    {"MC", 1, 2},     {"MR", 2, 2},
    {"BL", 0, 1},   {"BC", 1, 1},     {"BR", 2, 1}};

class TextCommand {
 public:
  explicit TextCommand(Session& session) : session_(session) {}

  void run() {
    style_ = session_.database().header.handle("TEXTSTYLE");
    if (!askPoint() || !askHeight() || !askRotation()) return;
    // Typed texts go on line by line until Enter; a list of arguments gives one.
    do {
      const Answer text = session_.line.ask(
          {.kind = Ask::Line, .message = message(session_, "\n输入文字: ", "\nText: ")});
      if (!text.hasValue() || text.text.empty()) return;
      draw(text.text);
    } while (!session_.line.answersComeFromArguments());
  }

 private:
  bool askPoint() {
    while (true) {
      const Answer answer =
          session_.line.ask({.kind = Ask::Point,
                             .message = message(session_, "\n指定文字的起点或 [对正(J)/样式(S)]: ",
                                                "\nStart point of the text or [Justify/Style]: "),
                             .keywords = "Justify Style"});
      if (answer.hasValue()) {
        point_ = answer.point;
        return true;
      }
      if (answer.isKeyword("Justify")) {
        if (!askJustification()) return false;
      } else if (answer.isKeyword("Style")) {
        if (!askStyle()) return false;
      } else {
        return false;
      }
    }
  }

  bool askJustification() {
    const Answer answer =
        session_.line.ask({.kind = Ask::Keyword,
                           .message = "\n[Left/Center/Right/Middle/TL/TC/TR/ML/MC/MR/BL/BC/BR]: ",
                           .keywords = "Left Center Right Middle TL TC TR ML MC MR BL BC BR"});
    for (const Justification& row : kJustifications) {
      if (answer.isKeyword(row.keyword)) justification_ = row;
    }
    return !answer.cancelled();
  }

  bool askStyle() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Word, .message = message(session_, "\n输入样式名: ", "\nStyle name: ")});
    if (answer.hasValue()) {
      const Handle style = session_.database().findRecord(Table::Styles, answer.text);
      if (style) {
        style_ = style;
        session_.database().setVariable("TEXTSTYLE", style);
      } else {
        session_.print(session_.say("\n找不到样式。", "\nThere is no such style."));
      }
    }
    return !answer.cancelled();
  }

  bool askHeight() {
    const auto* style = session_.database().find<TextStyle>(style_);
    height_ = session_.variables.real("TEXTSIZE");
    if (style && style->fixedHeight > 0) {
      height_ = style->fixedHeight;
      return true;
    }
    const Answer answer = session_.line.ask(
        {.kind = Ask::Distance,
         .message = message(session_, "\n指定高度 <", "\nHeight <") + shown(height_) + ">: ",
         .base = point_,
         .nonNegative = true,
         .nonZero = true});
    if (answer.hasValue()) {
      height_ = answer.number;
      session_.variables.put("TEXTSIZE", height_);
    }
    return !answer.cancelled();
  }

  bool askRotation() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Angle,
         .message =
             message(session_, "\n指定文字的旋转角度 <0>: ", "\nRotation angle of the text <0>: "),
         .base = point_});
    if (answer.hasValue()) rotation_ = answer.number;
    return !answer.cancelled();
  }

  void draw(const std::string& text) {
    auto entity = std::make_unique<Text>();
    entity->position = entity->alignment = {point_.x, point_.y};
    entity->elevation = point_.z;
    entity->height = height_;
    entity->rotation = rotation_;
    entity->text = text;
    entity->style = style_;
    entity->horizontal = justification_.horizontal;
    entity->vertical = justification_.vertical;
    if (const auto* style = session_.database().find<TextStyle>(style_)) {
      entity->widthFactor = style->widthFactor;
      entity->oblique = style->oblique;
      entity->generation = style->generation;
    }
    drawEntity(session_, std::move(entity));
    const Point2 next =
        base::polar({point_.x, point_.y}, rotation_ - base::kPi / 2, height_ * 5 / 3);
    point_ = {next.x, next.y, point_.z};
  }

  Session& session_;
  Handle style_ = 0;
  Point3 point_;
  double height_ = 2.5, rotation_ = 0;
  Justification justification_ = kJustifications[0];
};

}  // namespace

void addTextCommands(CommandTable& table) {
  table.add({.name = "TEXT", .run = [](Session& session) { TextCommand(session).run(); }});
  table.addAlias("-TEXT", "TEXT");
  table.addAlias("DTEXT", "TEXT");
  table.addAlias("DT", "TEXT");
}

}  // namespace drafting
