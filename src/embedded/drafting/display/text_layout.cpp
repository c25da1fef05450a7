#include "embedded/drafting/display/text_layout.h"

#include <algorithm>
#include <cmath>

#include "embedded/base/text.h"
#include "embedded/base/utf8.h"
#include "embedded/drafting/display/curves.h"

namespace drafting {
namespace {

constexpr double kUnderline = -0.2, kOverline = 1.2;
constexpr double kDescent = 1.0 / 3;           // of the capital height
constexpr std::size_t kMostSteps = 4'000'000;  // of a line, its points included
constexpr char32_t kDegree = 0xB0, kPlusMinus = 0xB1, kDiameter = 0xD8;

int digitOf(char c) { return c >= '0' && c <= '9' ? c - '0' : -1; }

int hexDigitOf(char c) {
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return digitOf(c);
}

// Collects strokes as polylines.
class PolylinePen : public ShapePen {
 public:
  PolylinePen(std::vector<Path>& strokes, double tolerance)
      : strokes_(strokes), tolerance_(tolerance) {}
  void move(Point2 to) override {
    constexpr std::size_t kUsualPoints = 8;
    Path& path = strokes_.emplace_back();
    path.reserve(kUsualPoints);
    add(path, to);
  }
  void line(Point2 to) override { add(strokes_.back(), to); }
  void arc(Point2 to, double bulge) override {
    Path& path = strokes_.back();
    const std::size_t before = path.size();
    appendBulge(path, path.back(), to, bulge, tolerance_);
    points_ += path.size() - before;
  }
  std::size_t points() const { return points_; }

 private:
  void add(Path& path, Point2 point) {
    path.push_back(point);
    ++points_;
  }
  std::vector<Path>& strokes_;
  double tolerance_;
  std::size_t points_ = 0;
};

// A line drawn under or over a stretch of the text.
class Rule {
 public:
  explicit Rule(double y) : y_(y) {}
  void toggle(TextLine& line) {
    if (on_)
      end(line);
    else
      start_ = line.advance;
    on_ = !on_;
  }
  void finish(TextLine& line) {
    if (on_) end(line);
  }

 private:
  void end(TextLine& line) const {
    if (line.advance > start_) line.strokes.push_back({{start_, y_}, {line.advance, y_}});
  }
  double y_;
  double start_ = 0;
  bool on_ = false;
};

class LineLayout {
 public:
  LineLayout(std::string_view text, const TextFont& font, double tolerance)
      : text_(text), font_(font), pen_(line_.strokes, tolerance) {}

  TextLine run() {
    while (at_ < text_.size()) {
      if (!takeCode()) takeCharacter();
    }
    underline_.finish(line_);
    overline_.finish(line_);
    return std::move(line_);
  }

 private:
  char ahead(std::size_t i) const { return at_ + i < text_.size() ? text_[at_ + i] : '\0'; }

  void takeCharacter() {
    const base::Decoded decoded = base::decodeUtf8(text_, at_);
    at_ += decoded.length;
    if (decoded.character >= 0x20) put(decoded.character, Wanted::ofTheText);
  }

  void put(char32_t character, Wanted wanted) {
    const std::size_t spent = line_.steps + pen_.points();
    const std::size_t left = spent < kMostSteps ? kMostSteps - spent : 0;
    const CharacterRun run =
        drawCharacter(font_, character, place_, pen_, wanted, std::min(left, kMostShapeSteps));
    place_ = run.end;
    line_.advance = run.end.x;
    line_.steps += run.steps;
    base::appendUtf8(line_.plain, character);
  }

  bool takeCode() {
    if (ahead(0) == '%' && ahead(1) == '%') return takePercentCode();
    return ahead(0) == '\\' && (ahead(1) == 'U' || ahead(1) == 'u') && ahead(2) == '+' &&
           takeUnicode();
  }

  bool takePercentCode() {
    switch (ahead(2)) {
      case 'd':
      case 'D': return putCode(kDegree, 3);
      case 'p':
      case 'P': return putCode(kPlusMinus, 3);
      case 'c':
      case 'C': return putCode(kDiameter, 3);
      case '%': return putCode('%', 3);
      case 'u':
      case 'U': return toggle(underline_);
      case 'o':
      case 'O': return toggle(overline_);
      default: return takeNumber();
    }
  }

  bool putCode(char32_t character, std::size_t length) {
    at_ += length;
    put(character, Wanted::asSign);
    return true;
  }

  bool toggle(Rule& rule) {
    at_ += 3;
    rule.toggle(line_);
    return true;
  }

  bool takeNumber() {
    int number = 0;
    for (std::size_t i = 2; i < 5; ++i) {
      const int digit = digitOf(ahead(i));
      if (digit < 0) return false;
      number = number * 10 + digit;
    }
    return number >= 0x20 && putCode(static_cast<char32_t>(number), 5);
  }

  bool takeUnicode() {
    char32_t character = 0;
    for (std::size_t i = 3; i < 7; ++i) {
      const int digit = hexDigitOf(ahead(i));
      if (digit < 0) return false;
      character = character * 16 + static_cast<char32_t>(digit);
    }
    return putCode(character, 7);
  }

  std::string_view text_;
  const TextFont& font_;
  std::size_t at_ = 0;
  Point2 place_;  // where the next character stands
  TextLine line_;
  PolylinePen pen_;
  Rule underline_{kUnderline}, overline_{kOverline};
};

// The point of the line, in its units, that stands at the insertion point.
Point2 anchorOf(const TextBase& text, double advance) {
  constexpr double kHeights[] = {0, -kDescent, 0.5, 1};
  Point2 anchor;
  if (text.horizontal == 1 || text.horizontal == 4) anchor.x = advance / 2;
  if (text.horizontal == 2) anchor.x = advance;
  if (text.horizontal == 4)
    anchor.y = 0.5;
  else if (text.vertical >= 0 && text.vertical <= 3)
    anchor.y = kHeights[text.vertical];
  return anchor;
}

}  // namespace

TextLine layOutLine(std::string_view utf8, const TextFont& font, double tolerance) {
  return LineLayout(utf8, font, tolerance).run();
}

Glyph glyphOf(char32_t character, const TextFont& font) {
  Glyph glyph;
  PolylinePen pen(glyph.strokes, 0);
  glyph.advance = drawCharacter(font, character, {}, pen).end.x;
  return glyph;
}

Affine2 placeOfText(const TextBase& text, double advance) {
  constexpr int kBackwards = 2, kUpsideDown = 4, kAligned = 3, kFit = 5;
  double height = text.height, width = text.widthFactor, rotation = text.rotation;
  const bool stretched = text.horizontal == kAligned || text.horizontal == kFit;
  Point2 from = text.horizontal == 0 && text.vertical == 0 ? text.position : text.alignment;
  if (stretched && advance > 0 && height > 0) {
    from = text.position;
    const Point2 along = text.alignment - text.position;
    rotation = std::atan2(along.y, along.x);
    if (text.horizontal == kAligned)
      height = length(along) / (advance * width);
    else
      width = length(along) / (advance * height);
  }
  const Affine2 slant{height * width, 0, height * std::tan(text.oblique), height, 0, 0};
  const Affine2 mirror = Affine2::scaling((text.generation & kBackwards) ? -1 : 1,
                                          (text.generation & kUpsideDown) ? -1 : 1);
  const Point2 anchor = anchorOf(text, advance);
  return Affine2::translation(from) * Affine2::rotation(rotation) * mirror * slant *
         Affine2::translation({-anchor.x, -anchor.y});
}

}  // namespace drafting
