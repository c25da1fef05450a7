// Compiles the tables of glyphs/, whose README.md tells where they come from and how they are
// coded.
#include "embedded/drafting/fonts/built_in_font.h"

#include <cassert>
#include <cmath>
#include <iterator>
#include <string_view>

#include "embedded/base/text.h"
#include "embedded/drafting/fonts/font_writer.h"

namespace drafting {
namespace {

struct Row {
  char16_t code;
  std::uint8_t advance;
  const char* strokes;
};

constexpr Row kLatin[] = {
#include "embedded/drafting/fonts/glyphs/latin.inc"
};
constexpr Row kSigns[] = {
#include "embedded/drafting/fonts/glyphs/signs.inc"
};
constexpr Row kChinese[] = {
#include "embedded/drafting/fonts/glyphs/chinese.inc"
};

constexpr int kLatinBaseline = 8, kLatinAbove = 21, kLatinBelow = 7, kLatinLineFeed = -35;
// The Chinese grid has its baseline between two rows; the font's units are half as large.
constexpr int kChineseFactor = 2, kChineseBaseline = 13, kChineseAbove = 104, kChineseBelow = 13;
constexpr int kChineseAdvance = 64;  // of the table; tells rows of the Chinese grid
constexpr char16_t kLineFeed = 10, kDiameter = 0xD8, kEmptySet = 0x2205;
constexpr char32_t kFirstFullWidth = 0xFF01, kLastFullWidth = 0xFF5E, kFirstOfAscii = U'!';
constexpr LeadRange kLeadBytes{0x81, 0xFE};

constexpr std::string_view kLatinName = "VORNIK LATIN, from the Hershey Fonts";
constexpr std::string_view kBigFontName =
    "VORNIK CHINESE, changed 2026-11-21 from AR PL fonts (C) 1999 Arphic Technology Co., Ltd., "
    "under the Arphic Public License";

struct Drawing {
  std::vector<GridStroke> strokes;
  int advance = 0;
};

Drawing decoded(const Row& row) {
  Drawing out;
  out.advance = row.advance;
  const std::string_view text = row.strokes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    if (text[i] == ' ') ++i;
    if (i == 0 || text[i - 1] == ' ') out.strokes.emplace_back();
    out.strokes.back().push_back({text[i] - '0', text[i + 1] - '0'});
  }
  return out;
}

template <class F>
Drawing mapped(Drawing drawing, int advance, F map) {
  drawing.advance = advance;
  for (GridStroke& stroke : drawing.strokes) {
    for (GridPoint& point : stroke) point = map(point);
  }
  return drawing;
}

Drawing inLatinUnits(const Row& row) {
  return mapped(decoded(row), row.advance, [](GridPoint p) {
    return GridPoint{p.x, p.y - kLatinBaseline};
  });
}

bool isOfChineseGrid(const Row& row) { return row.advance == kChineseAdvance; }

// A Latin row comes out as it stands beside the Latin font.
Drawing inChineseUnits(const Row& row) {
  if (isOfChineseGrid(row)) {
    return mapped(decoded(row), row.advance * kChineseFactor, [](GridPoint p) {
      return GridPoint{p.x * kChineseFactor, p.y * kChineseFactor - kChineseBaseline};
    });
  }
  const auto scaled = [](int n) {
    return static_cast<int>(std::lround(double{kChineseAbove} * n / kLatinAbove));
  };
  return mapped(inLatinUnits(row), scaled(row.advance), [&](GridPoint p) {
    return GridPoint{scaled(p.x), scaled(p.y)};
  });
}

// A full-width form is the Latin letter in the middle of a Chinese cell.
Drawing inFullWidth(const Row& row) {
  constexpr int kCell = kChineseAdvance * kChineseFactor;
  const Drawing drawing = inChineseUnits(row);
  const int shift = (kCell - drawing.advance) / 2;
  return mapped(drawing, kCell, [&](GridPoint p) { return GridPoint{p.x + shift, p.y}; });
}

FontParts::Shape shapeOf(const Drawing& drawing) {
  return {"", compileShape(drawing.strokes, {drawing.advance, 0})};
}

FontParts latinParts() {
  FontParts parts{FontKind::Unifont, std::string(kLatinName), {}, {}, {}};
  parts.metrics.above = kLatinAbove;
  parts.metrics.below = kLatinBelow;
  for (const Row& row : kLatin) parts.shapes[row.code] = shapeOf(inLatinUnits(row));
  for (const Row& row : kSigns) {
    if (!isOfChineseGrid(row)) parts.shapes[row.code] = shapeOf(inLatinUnits(row));
  }
  parts.shapes[kEmptySet] = parts.shapes[kDiameter];  // other programs look for it here
  parts.shapes[kLineFeed].bytes = compileShape({}, {0, kLatinLineFeed});
  return parts;
}

// Only what has two bytes in the code page can stand in a big font.
void putDoubleByte(FontParts& parts, char32_t character, const Drawing& drawing) {
  std::string utf8;
  base::appendUtf8(utf8, character);
  const std::string code = base::ansiFromUtf8(utf8);
  if (code.size() != 2) return;
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(code[i]); };
  parts.shapes[static_cast<std::uint16_t>(byte(0) << 8 | byte(1))] = shapeOf(drawing);
}

FontParts bigFontParts() {
  FontParts parts{FontKind::BigFont, std::string(kBigFontName), {}, {kLeadBytes}, {}};
  parts.metrics.above = kChineseAbove;
  parts.metrics.below = kChineseBelow;
  for (const Row& row : kChinese) putDoubleByte(parts, row.code, inChineseUnits(row));
  for (const Row& row : kSigns) putDoubleByte(parts, row.code, inChineseUnits(row));
  for (char32_t c = kFirstFullWidth; c <= kLastFullWidth; ++c) {
    const std::size_t place = c - kFirstFullWidth + kFirstOfAscii - kLatin[0].code;
    putDoubleByte(parts, c, inFullWidth(kLatin[place]));
  }
  return parts;
}

std::string compiled(const FontParts& parts) {
  base::Result<std::string> file = writeFont(parts);
  assert(file.ok());
  return std::move(*file);
}

std::shared_ptr<const ShapeFont> readBack(const std::string& file, std::string_view name) {
  const auto font = ShapeFont::read(file, name);
  assert(font.ok() && (*font)->isTextFont() && (*font)->problems().empty());
  return *font;
}

}  // namespace

const std::string& builtInLatinFile() {
  static const std::string file = compiled(latinParts());
  return file;
}

const std::string& builtInBigFontFile() {
  static const std::string file = compiled(bigFontParts());
  return file;
}

const std::shared_ptr<const ShapeFont>& builtInLatin() {
  static const auto font = readBack(builtInLatinFile(), "built-in Latin font");
  return font;
}

const std::shared_ptr<const ShapeFont>& builtInBigFont() {
  static const auto font = readBack(builtInBigFontFile(), "built-in Chinese font");
  return font;
}

}  // namespace drafting
