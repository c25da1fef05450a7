// Tables to glyphs. The files below glyphs/ tell where the tables come from and how they are coded.
#include "embedded/drafting/display/stroke_font.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <unordered_map>

namespace drafting {
namespace {

struct Row {
  char16_t code;
  std::uint8_t advance;
  const char* strokes;
};

constexpr Row kLatin[] = {
#include "embedded/drafting/display/glyphs/latin.inc"
};
constexpr Row kSigns[] = {
#include "embedded/drafting/display/glyphs/signs.inc"
};
constexpr Row kChinese[] = {
#include "embedded/drafting/display/glyphs/chinese.inc"
};

// How a table's grid becomes units of the capital height.
struct Grid {
  double baseline, height;
};
constexpr Grid kLatinGrid{8, 21};
constexpr Grid kChineseGrid{6.5, 52};  // a character stands a little below the line and fills 1.2
constexpr std::uint8_t kChineseAdvance = 64;

constexpr char32_t kFirstWide = 0x1100;  // characters from here on are as wide as Chinese ones
constexpr double kWideAdvance = 64 / 52.0;
constexpr double kNarrowAdvance = 20 / 21.0;

// Full-width forms of ASCII: the Latin glyph in the middle of a Chinese cell.
constexpr char32_t kFirstFullWidth = 0xFF01, kLastFullWidth = 0xFF5E;

const Row* findRow(char32_t code) {
  const auto find = [code](const auto& table) -> const Row* {
    const auto* row = std::lower_bound(std::begin(table), std::end(table), code,
                                       [](const Row& r, char32_t c) { return r.code < c; });
    return row != std::end(table) && row->code == code ? row : nullptr;
  };
  if (const Row* row = find(kLatin)) return row;
  if (const Row* row = find(kSigns)) return row;
  return find(kChinese);
}

bool isFullWidth(char32_t c) { return c >= kFirstFullWidth && c <= kLastFullWidth; }

Glyph decode(const Row& row) {
  const Grid grid = row.advance == kChineseAdvance ? kChineseGrid : kLatinGrid;
  const auto coordinate = [](char c) { return static_cast<double>(c - '0'); };
  Glyph glyph;
  glyph.advance = row.advance / grid.height;
  const std::string_view text = row.strokes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    if (text[i] == ' ') ++i;
    if (i == 0 || text[i - 1] == ' ') glyph.strokes.emplace_back();
    glyph.strokes.back().push_back({coordinate(text[i]) / grid.height,
                                    (coordinate(text[i + 1]) - grid.baseline) / grid.height});
  }
  return glyph;
}

Glyph centredIn(Glyph glyph, double advance) {
  const double shift = (advance - glyph.advance) / 2;
  for (auto& stroke : glyph.strokes) {
    for (base::Point2& point : stroke) point.x += shift;
  }
  glyph.advance = advance;
  return glyph;
}

Glyph box(double advance) {
  const double left = 0.1 * advance, right = 0.9 * advance;
  return {advance, {{{left, 0}, {right, 0}, {right, 1}, {left, 1}, {left, 0}}}};
}

Glyph make(char32_t character) {
  if (const Row* row = findRow(character)) return decode(*row);
  return centredIn(decode(*findRow(character - kFirstFullWidth + U'!')), kWideAdvance);
}

}  // namespace

const Glyph& glyphOf(char32_t character) {
  static const Glyph narrowBox = box(kNarrowAdvance), wideBox = box(kWideAdvance);
  static std::unordered_map<char32_t, Glyph> known;
  const auto found = known.find(character);
  if (found != known.end()) return found->second;
  if (!hasGlyph(character)) return character >= kFirstWide ? wideBox : narrowBox;
  return known.emplace(character, make(character)).first->second;
}

bool hasGlyph(char32_t character) { return findRow(character) || isFullWidth(character); }

}  // namespace drafting
