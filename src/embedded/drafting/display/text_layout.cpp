#include "embedded/drafting/display/text_layout.h"

#include <cmath>

#include "embedded/base/text.h"
#include "embedded/base/utf8.h"
#include "embedded/drafting/display/stroke_font.h"

namespace drafting {
namespace {

constexpr double kUnderline = -0.2, kOverline = 1.2;
constexpr double kDescent = 1.0 / 3;  // of the capital height
constexpr char32_t kDegree = 0xB0, kPlusMinus = 0xB1, kDiameter = 0xD8;

int digitOf(char c) { return c >= '0' && c <= '9' ? c - '0' : -1; }

int hexDigitOf(char c) {
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return digitOf(c);
}

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
  explicit LineLayout(std::string_view text) : text_(text) {}

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
    if (decoded.character >= 0x20) put(decoded.character);
  }

  void put(char32_t character) {
    const Glyph& glyph = glyphOf(character);
    for (const auto& stroke : glyph.strokes) {
      auto& out = line_.strokes.emplace_back(stroke);
      for (Point2& point : out) point.x += line_.advance;
    }
    line_.advance += glyph.advance;
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
    put(character);
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
  std::size_t at_ = 0;
  TextLine line_;
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

TextLine layOutLine(std::string_view utf8) { return LineLayout(utf8).run(); }

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
