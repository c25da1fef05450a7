// From characters to shapes. A big font is looked up by the two bytes of a character in code page
// 936, a unifont by its Unicode code, a shapes font by its byte in the drawing's code page.
#include "embedded/drafting/fonts/text_font.h"

#include <utility>

#include "embedded/base/text.h"
#include "embedded/drafting/fonts/built_in_font.h"

namespace drafting {
namespace {

constexpr int kDoubleBytePage = 936;
constexpr char32_t kFirstWide = 0x1100;  // characters from here on are as wide as Chinese ones
constexpr double kWideAdvance = 128 / 104.0, kNarrowAdvance = 20 / 21.0;
constexpr double kVerticalStep = 1.5;  // from character to character, where the font has none

// Signs that have numbers of their own.
struct Sign {
  char32_t character;
  std::uint16_t unicode, shape;
};
constexpr Sign kSigns[] = {{0xB0, 0xB0, 256}, {0xB1, 0xB1, 257}, {0xD8, 0x2205, 258}};

const Sign* signOf(char32_t character) {
  for (const Sign& sign : kSigns) {
    if (sign.character == character) return &sign;
  }
  return nullptr;
}

struct Choice {
  const ShapeFont* font = nullptr;
  std::uint16_t code = 0;
};

// The character's bytes; none if the page doesn't have it.
std::string encoded(char32_t character, int codePage) {
  std::string utf8;
  base::appendUtf8(utf8, character);
  std::string bytes = base::codePageFromUtf8(utf8, codePage);
  if (bytes == "?" && character != U'?') bytes.clear();
  return bytes;
}

Choice chooseIn(const ShapeFont& font, std::uint16_t code) {
  return font.find(code).empty() ? Choice{} : Choice{&font, code};
}

Choice chooseOfBigFont(const ShapeFont& font, char32_t character) {
  if (character < 0x80) return {};
  const std::string bytes = encoded(character, kDoubleBytePage);
  if (bytes.size() != 2) return {};
  const auto lead = static_cast<std::uint8_t>(bytes[0]);
  if (!font.isLeadByte(lead)) return {};
  return chooseIn(font,
                  static_cast<std::uint16_t>(lead << 8 | static_cast<std::uint8_t>(bytes[1])));
}

Choice chooseOfUnifont(const ShapeFont& font, char32_t character) {
  if (const Sign* sign = signOf(character)) {
    if (const Choice choice = chooseIn(font, sign->unicode); choice.font) return choice;
  }
  return character <= 0xFFFF ? chooseIn(font, static_cast<std::uint16_t>(character)) : Choice{};
}

Choice chooseOfShapes(const ShapeFont& font, char32_t character, int codePage) {
  if (const Sign* sign = signOf(character)) {
    if (const Choice choice = chooseIn(font, sign->shape); choice.font) return choice;
  }
  if (character < 0x80) return chooseIn(font, static_cast<std::uint16_t>(character));
  const std::string bytes = encoded(character, codePage);
  return bytes.size() == 1 ? chooseIn(font, static_cast<std::uint8_t>(bytes[0])) : Choice{};
}

Choice chooseOf(const ShapeFont* font, char32_t character, int codePage) {
  if (!font) return {};
  switch (font->kind()) {
    case FontKind::BigFont: return chooseOfBigFont(*font, character);
    case FontKind::Unifont: return chooseOfUnifont(*font, character);
    case FontKind::Shapes: return chooseOfShapes(*font, character, codePage);
  }
  return {};
}

Choice chooseOfPair(const ShapeFont* latin, const ShapeFont* big, char32_t character, int codePage,
                    Wanted wanted) {
  if (wanted == Wanted::asSign) std::swap(latin, big);
  const Choice choice = chooseOf(big, character, codePage);
  return choice.font ? choice : chooseOf(latin, character, codePage);
}

Choice choose(const TextFont& font, char32_t character, Wanted wanted) {
  const Choice own =
      chooseOfPair(font.latin.get(), font.big.get(), character, font.codePage, wanted);
  if (own.font) return own;
  return chooseOfPair(builtInLatin().get(), builtInBigFont().get(), character, font.codePage,
                      wanted);
}

// Brings a font's units to those of the capital height, and to a place.
class PlacedPen : public ShapePen {
 public:
  PlacedPen(ShapePen& pen, Point2 at, double scale) : pen_(pen), at_(at), scale_(scale) {}
  void move(Point2 to) override { pen_.move(at_ + to * scale_); }
  void line(Point2 to) override { pen_.line(at_ + to * scale_); }
  void arc(Point2 to, double bulge) override { pen_.arc(at_ + to * scale_, bulge); }

 private:
  ShapePen& pen_;
  Point2 at_;
  double scale_;
};

class NoPen : public ShapePen {
 public:
  void move(Point2) override {}
  void line(Point2) override {}
  void arc(Point2, double) override {}
};

void drawBox(Point2 at, double advance, ShapePen& pen) {
  const double left = at.x + 0.1 * advance, right = at.x + 0.9 * advance;
  pen.move({left, at.y});
  pen.line({right, at.y});
  pen.line({right, at.y + 1});
  pen.line({left, at.y + 1});
  pen.line({left, at.y});
}

// One character's drawing: its shape, or the box.
class Glyph {
 public:
  Glyph(Choice choice, char32_t character, std::size_t mostSteps)
      : choice_(choice),
        boxAdvance_(character >= kFirstWide ? kWideAdvance : kNarrowAdvance),
        mostSteps_(mostSteps) {}

  bool isVertical() const { return choice_.font && choice_.font->isVertical(); }

  // The end is relative to `at`.
  CharacterRun draw(Point2 at, ShapePen& pen, bool vertically) const {
    if (!choice_.font) {
      drawBox(at, boxAdvance_, pen);
      return {{boxAdvance_, 0}, 1};
    }
    const double scale = 1.0 / choice_.font->metrics().above;
    PlacedPen placed(pen, at, scale);
    const ShapeRun run = drawShape(*choice_.font, choice_.code, placed, vertically, mostSteps_);
    return {run.end * scale, run.steps};
  }

  // In a column, of a font that knows only lines: centred below the pen.
  CharacterRun drawBelow(Point2 at, ShapePen& pen) const {
    NoPen none;
    const double advance = draw({}, none, false).end.x;
    const CharacterRun run = draw(at - Point2{advance / 2, 1}, pen, false);
    return {{0, -kVerticalStep}, 2 * run.steps};
  }

 private:
  Choice choice_;
  double boxAdvance_;
  std::size_t mostSteps_;
};

}  // namespace

CharacterRun drawCharacter(const TextFont& font, char32_t character, Point2 at, ShapePen& pen,
                           Wanted wanted, std::size_t mostSteps) {
  const Choice choice = mostSteps > 0 ? choose(font, character, wanted) : Choice{};
  const Glyph glyph(choice, character, mostSteps);
  CharacterRun run = font.vertical && !glyph.isVertical() ? glyph.drawBelow(at, pen)
                                                          : glyph.draw(at, pen, font.vertical);
  run.end = at + run.end;
  return run;
}

bool hasGlyph(char32_t character, const TextFont& font) {
  return choose(font, character, Wanted::ofTheText).font != nullptr;
}

}  // namespace drafting
