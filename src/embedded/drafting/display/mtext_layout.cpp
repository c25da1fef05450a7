// Lengths here are in heights of the paragraph, until the parts get their places.
#include "embedded/drafting/display/mtext_layout.h"

#include <algorithm>
#include <cmath>

#include "embedded/base/utf8.h"
#include "embedded/drafting/display/mtext_runs.h"

namespace drafting {
namespace {

constexpr double kLineStep = 5.0 / 3;  // between baselines, in text heights
constexpr char32_t kFirstWide = 0x2E80;
constexpr double kSmall = 0.7, kBarHeight = 0.5, kBarGap = 0.1;  // of fractions

// A run, or what of one stands on a line.
struct Part {
  TextRun run;
  double advance = 0;
};

struct PartLine {
  char alignment = 0;
  std::vector<Part> parts;
  double advance() const {
    double sum = 0;
    for (const Part& part : parts) sum += part.advance;
    return sum;
  }
  // Of its highest part; an empty line's is the paragraph's.
  double height() const {
    double highest = 0;
    for (const Part& part : parts) highest = std::max(highest, part.run.look.height);
    return parts.empty() ? 1 : highest;
  }
};

// Where a line may end: behind each wide character, and at a blank.
std::vector<std::string> pieces(std::string_view text) {
  std::vector<std::string> out(1);
  for (std::size_t at = 0; at < text.size();) {
    const base::Decoded decoded = base::decodeUtf8(text, at);
    out.back().append(text.substr(at, decoded.length));
    at += decoded.length;
    if (decoded.character == ' ' || decoded.character >= kFirstWide) out.emplace_back();
  }
  if (out.size() > 1 && out.back().empty()) out.pop_back();
  return out;
}

// Breaks lines of runs into lines of a width; 0 leaves them whole.
class Wrapper {
 public:
  Wrapper(double width, const ParagraphStyle& style) : width_(width), style_(style) {}

  void add(const RunLine& line) {
    lines_.push_back({line.alignment, {}});
    filled_ = 0;
    for (const TextRun& run : line.runs) {
      if (run.isFraction) {
        addPiece(run, run.text);
      } else {
        for (const std::string& piece : pieces(run.text)) addPiece(run, piece);
      }
    }
  }
  std::vector<PartLine> lines() { return std::move(lines_); }

 private:
  void addPiece(const TextRun& run, const std::string& piece) {
    TextRun cut = run;
    cut.text = piece;
    const double advance = advanceOf(cut);
    if (filled_ > 0 && width_ > 0 && filled_ + advance > width_) {
      lines_.push_back({lines_.back().alignment, {}});
      filled_ = 0;
    }
    filled_ += advance;
    std::vector<Part>& parts = lines_.back().parts;
    const bool goesOn = !parts.empty() && !run.isFraction && !parts.back().run.isFraction &&
                        parts.back().run.look == run.look;
    if (goesOn) {
      parts.back().run.text += piece;
      parts.back().advance += advance;
    } else {
      parts.push_back({std::move(cut), advance});
    }
  }

  // A font that costs too much isn't measured any more.
  double advanceOf(const TextRun& run) {
    constexpr std::size_t kMostSteps = 4'000'000;
    if (steps_ > kMostSteps) return 0;
    const double scale = run.look.height * run.look.width * style_.widthFactor;
    const TextFont font = style_.fontOf(run.look.font);
    if (!run.isFraction) return measure(run.text, font) * scale;
    const double advance = std::max(measure(run.text, font), measure(run.below, font));
    return (advance * kSmall + 2 * kBarGap) * scale;
  }
  double measure(const std::string& text, const TextFont& font) {
    const TextLine line = layOutLine(text, font);
    steps_ += line.steps;
    return line.advance;
  }

  double width_;
  const ParagraphStyle& style_;
  std::size_t steps_ = 0;
  double filled_ = 0;
  std::vector<PartLine> lines_;
};

class Placer {
 public:
  Placer(const MText& text, const ParagraphStyle& style)
      : style_(style),
        tolerance_(text.height > 0 ? style.tolerance / text.height : 0),
        place_(Affine2::translation({text.position.x, text.position.y}) *
               Affine2::rotation(std::atan2(text.xDirection.y, text.xDirection.x)) *
               Affine2::scaling(text.height, text.normal.z < 0 ? -text.height : text.height)) {}

  // From the line's left end.
  void put(const PartLine& line, double x, double y) {
    for (const Part& part : line.parts) {
      const RunLook& look = part.run.look;
      const double height = look.height, width = height * look.width * style_.widthFactor;
      const Affine2 slant{width, 0, height * std::tan(style_.oblique + look.oblique), height, 0, 0};
      const Affine2 place = place_ * Affine2::translation({x, y}) * slant;
      if (part.run.isFraction) {
        putFraction(part, place, width);
      } else {
        putRun(part.run, place);
      }
      x += part.advance;
    }
  }
  std::vector<PlacedLine> placed() { return std::move(placed_); }

 private:
  TextLine lineOf(const std::string& text, const RunLook& look) const {
    return layOutLine(text, style_.fontOf(look.font), tolerance_);
  }

  void putRun(const TextRun& run, const Affine2& place) {
    std::string text = run.text;
    if (run.look.underline) text.insert(0, "%%u");
    if (run.look.overline) text.insert(0, "%%o");
    TextLine line = lineOf(text, run.look);
    const double advance = line.advance;
    placed_.push_back({std::move(line), place, run.look.colour, std::move(text)});
    if (run.look.strike) putStroke({0, 0.5}, {advance, 0.5}, "", place, run.look);
  }

  void putFraction(const Part& part, const Affine2& place, double width) {
    const RunLook& look = part.run.look;
    TextLine above = lineOf(part.run.text, look), below = lineOf(part.run.below, look);
    const double size = width > 0 ? part.advance / width : 0;  // both and the gaps beside them
    const Affine2 shrunk = Affine2::scaling(kSmall, kSmall);
    const Point2 over{(size - above.advance * kSmall) / 2, kBarHeight + kBarGap};
    const Point2 under{(size - below.advance * kSmall) / 2, kBarHeight - kBarGap - kSmall};
    placed_.push_back({std::move(above), place * Affine2::translation(over) * shrunk, look.colour,
                       part.run.text});
    if (part.run.hasBar) putStroke({0, kBarHeight}, {size, kBarHeight}, "/", place, look);
    placed_.push_back({std::move(below), place * Affine2::translation(under) * shrunk, look.colour,
                       part.run.below});
  }

  void putStroke(Point2 from, Point2 to, std::string plain, const Affine2& place,
                 const RunLook& look) {
    TextLine line;
    line.strokes.push_back({from, to});
    line.plain = std::move(plain);
    placed_.push_back({std::move(line), place, look.colour, {}});
  }

  const ParagraphStyle& style_;
  double tolerance_;
  Affine2 place_;
  std::vector<PlacedLine> placed_;
};

// How much of the room beside a line lies left of it.
double shareOf(char alignment, int attachment) {
  switch (alignment) {
    case 'l': return 0;
    case 'c': return 0.5;
    case 'r': return 1;
    default: return (attachment % 3) / 2.0;
  }
}

// Without a width of its own a paragraph is as wide as its longest line.
double widthOf(const MText& text, const std::vector<PartLine>& lines) {
  if (text.width > 0 && text.height > 0) return text.width / text.height;
  double longest = 0;
  for (const PartLine& line : lines) longest = std::max(longest, line.advance());
  return longest;
}

}  // namespace

std::string plainOfMText(std::string_view text) {
  std::string plain;
  bool isFirst = true;
  for (const RunLine& line : readRuns(text, 1)) {
    if (!isFirst) plain += '\n';
    isFirst = false;
    for (const TextRun& run : line.runs) {
      plain += run.text;
      if (run.isFraction) plain += "/" + run.below;
    }
  }
  return plain;
}

std::vector<PlacedLine> layOutParagraph(const MText& text, const ParagraphStyle& style) {
  constexpr std::int16_t kExact = 2;  // lines keep their distance, however high they are
  Wrapper wrapper(text.height > 0 ? text.width / text.height : 0, style);
  for (const RunLine& line : readRuns(text.text, text.height)) wrapper.add(line);
  const std::vector<PartLine> lines = wrapper.lines();
  const double step = kLineStep * (text.spacingFactor > 0 ? text.spacingFactor : 1);
  const auto stepTo = [&](const PartLine& line) {
    return text.spacingKind == kExact ? step : step * line.height();
  };
  double whole = lines.front().height();
  for (std::size_t i = 1; i < lines.size(); ++i) whole += stepTo(lines[i]);
  const int attachment = std::clamp<int>(text.attachment, 1, 9) - 1;  // by rows from the top left
  const double top = attachment / 3 == 0 ? 0 : attachment / 3 == 1 ? whole / 2 : whole;
  const double width = widthOf(text, lines), left = -width * (attachment % 3) / 2;
  Placer placer(text, style);
  double y = top - lines.front().height();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) y -= stepTo(lines[i]);
    const double room = width - lines[i].advance();
    placer.put(lines[i], left + room * shareOf(lines[i].alignment, attachment), y);
  }
  return placer.placed();
}

}  // namespace drafting
