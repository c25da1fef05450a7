// Writes fonts and what we draw of them, for comparing with another reader: list_fonts FOLDER puts
// the program's own fonts and one of each layout with every command into FOLDER, and beside each
// file a line of JSON for each shape: its code, the size that is the font's units, where the
// pen ends, its strokes as polylines.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <initializer_list>

#include "embedded/base/numbers.h"
#include "embedded/drafting/display/curves.h"
#include "embedded/drafting/fonts/built_in_font.h"
#include "embedded/drafting/fonts/font_writer.h"
#include "embedded/drafting/fonts/shape_drawing.h"

namespace {

using drafting::FontKind;
using drafting::FontParts;
using drafting::Point2;

std::string shown(Point2 p) {
  return "[" + base::formatF(p.x, 6) + "," + base::formatF(p.y, 6) + "]";
}

std::string shown(const drafting::Path& path) {
  std::string out;
  for (const Point2 point : path) out += (out.empty() ? "" : ",") + shown(point);
  return "[" + out + "]";
}

// Arcs as chords that are never far from them.
drafting::Path polylineOf(const std::vector<drafting::ShapeVertex>& stroke) {
  constexpr double kTolerance = 0.001;
  drafting::Path path{stroke.front().at};
  for (std::size_t i = 1; i < stroke.size(); ++i) {
    drafting::appendBulge(path, stroke[i - 1].at, stroke[i].at, stroke[i].bulge, kTolerance);
  }
  return path;
}

bool put(const std::filesystem::path& path, const std::string& file) {
  std::ofstream(path, std::ios::binary) << file;
  const auto font = drafting::ShapeFont::read(file, path.string());
  if (!font.ok()) return false;
  std::ofstream listing(path.string() + ".txt");
  // The other reader takes a text's height for both together.
  const int size = (*font)->metrics().above + (*font)->metrics().below;
  for (const auto& shape : (*font)->shapes()) {
    const auto drawn = drafting::strokesOf(**font, shape.code);
    std::string strokes;
    for (const auto& stroke : drawn.strokes) {
      strokes += (strokes.empty() ? "" : ",") + shown(polylineOf(stroke));
    }
    listing << "{\"code\":" << shape.code << ",\"size\":" << size
            << ",\"end\":" << shown(drawn.run.end) << ",\"strokes\":[" << strokes << "]}\n";
  }
  return listing.good() && (*font)->problems().empty();
}

std::string bytesOf(std::initializer_list<int> bytes) {
  std::string out;
  for (const int byte : bytes) out += static_cast<char>(byte);
  return out;
}

// A glyph for each command. All begin with an explicit pen, end with the pen up on the baseline,
// and leave out what the other reader is known to take otherwise.
FontParts everyCommand(FontKind kind, std::uint16_t first) {
  FontParts parts{kind, "EVERY", {}, {}, {}};
  parts.metrics.above = 20;
  parts.metrics.below = 5;
  parts.metrics.modes = 2;
  if (kind == FontKind::BigFont) parts.leadRanges = {{0x81, 0xFE}};
  std::uint16_t code = first;
  const auto add = [&](std::initializer_list<int> bytes) {
    parts.shapes[code++].bytes = bytesOf({2, 0x14, 1}) + bytesOf(bytes) + bytesOf({2, 8, 10, 0, 0});
  };
  for (int direction = 0; direction < 16; ++direction) add({0x40 | direction, 0x20 | direction});
  add({3, 2, 0x54, 4, 2, 0x50});
  add({4, 3, 0x54, 3, 3, 0x50});
  add({5, 0x54, 6, 0x50, 2, 8, 0, 3, 1, 0x30});
  add({8, 0x7F, 0x81, 8, 0x80, 0x40});
  add({9, 5, 5, 0xFB, 5, 0xFB, 0xFB, 0, 0, 0x10});
  for (const int octants : {0x02, 0x12, 0x24, 0x37, 0x82, 0xB2, 0xF5}) add({10, 6, octants});
  add({11, 56, 28, 0, 3, 0x12});
  add({11, 0, 128, 0, 9, 0x23});
  add({12, 10, 0, 64});
  add({12, 0, 10, 0x81});
  add({13, 5, 0, 127, 0, 5, 0, 5, 5, 0x90, 0, 0, 0x10});
  add({14, 8, 5, 5, 0x54});
  add({14, 9, 5, 5, 5, 5, 0, 0, 0x54});
  return parts;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  const std::filesystem::path folder = arguments[1];
  bool good = put(folder / "english.wzk", drafting::builtInLatinFile()) &&
              put(folder / "chinese.wzk", drafting::builtInBigFontFile());
  auto latin = drafting::partsOf(*drafting::builtInLatin());
  latin.kind = FontKind::Shapes;
  std::erase_if(latin.shapes, [](const auto& shape) { return shape.first > 255; });
  const struct {
    const char* name;
    FontParts parts;
  } made[] = {{"latin.shapes.shx", latin},
              {"every.shapes.shx", everyCommand(FontKind::Shapes, 65)},
              {"every.unifont.shx", everyCommand(FontKind::Unifont, 0x4E00)},
              {"every.bigfont.shx", everyCommand(FontKind::BigFont, 0xB0A1)}};
  for (const auto& one : made) {
    const auto file = writeFont(one.parts);
    good = file.ok() && put(folder / one.name, *file) && good;
  }
  return good ? 0 : 1;
}
