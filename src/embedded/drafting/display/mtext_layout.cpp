#include "embedded/drafting/display/mtext_layout.h"

#include <algorithm>
#include <cmath>

#include "embedded/base/utf8.h"

namespace drafting {
namespace {

constexpr double kLineStep = 5.0 / 3;  // between baselines, in text heights
constexpr char32_t kFirstWide = 0x2E80;

class CodeStripper {
 public:
  explicit CodeStripper(std::string_view text) : text_(text) {}

  std::string run() {
    while (at_ < text_.size()) {
      const char c = text_[at_++];
      if (c == '\\' && at_ < text_.size())
        takeCode(text_[at_++]);
      else if (c != '{' && c != '}')
        out_ += c;
    }
    return std::move(out_);
  }

 private:
  void takeCode(char code) {
    switch (code) {
      case 'P': out_ += '\n'; break;
      case '~': out_ += ' '; break;
      case '\\':
      case '{':
      case '}': out_ += code; break;
      case 'L':
      case 'l':
      case 'O':
      case 'o':
      case 'K':
      case 'k': break;
      case 'S': out_ += stacked(argument()); break;
      case 'U': out_ += "\\U"; break;  // the character's number is read with the line
      default: argument();
    }
  }

  std::string_view argument() {
    const std::size_t end = std::min(text_.find(';', at_), text_.size());
    const std::string_view found = text_.substr(at_, end - at_);
    at_ = std::min(end + 1, text_.size());
    return found;
  }

  // A fraction is shown in one line.
  static std::string stacked(std::string_view text) {
    std::string line(text);
    std::replace(line.begin(), line.end(), '^', '/');
    std::replace(line.begin(), line.end(), '#', '/');
    return line;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::string out_;
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
  return out;
}

// Breaks paragraphs into lines of a width in text heights; 0 leaves them whole.
class Wrapper {
 public:
  Wrapper(double width, const TextFont& font) : width_(width), font_(font) {}

  void add(std::string_view text) {
    std::string line;
    double filled = 0;
    for (const std::string& piece : pieces(text)) {
      const double advance = advanceOf(piece);
      if (!line.empty() && width_ > 0 && filled + advance > width_) {
        lines_.push_back(std::move(line));
        line.clear();
        filled = 0;
      }
      line += piece;
      filled += advance;
    }
    lines_.push_back(std::move(line));
  }
  std::vector<std::string> lines() { return std::move(lines_); }

 private:
  // A font that costs too much isn't measured any more.
  double advanceOf(const std::string& piece) {
    constexpr std::size_t kMostSteps = 4'000'000;
    if (!(width_ > 0) || steps_ > kMostSteps) return 0;
    const TextLine line = layOutLine(piece, font_);
    steps_ += line.steps;
    return line.advance;
  }

  double width_;
  const TextFont& font_;
  std::size_t steps_ = 0;
  std::vector<std::string> lines_;
};

std::vector<std::string> linesOf(const MText& text, const ParagraphStyle& style) {
  const double unit = text.height * style.widthFactor;
  const std::string plain = plainOfMText(text.text);
  Wrapper wrapper(unit > 0 ? text.width / unit : 0, style.font);
  std::string_view rest = plain;
  while (true) {
    const std::size_t end = rest.find('\n');
    wrapper.add(rest.substr(0, end));
    if (end == std::string_view::npos) return wrapper.lines();
    rest.remove_prefix(end + 1);
  }
}

}  // namespace

std::string plainOfMText(std::string_view text) { return CodeStripper(text).run(); }

std::vector<PlacedLine> layOutParagraph(const MText& text, const ParagraphStyle& style) {
  const std::vector<std::string> lines = linesOf(text, style);
  const double step = kLineStep * (text.spacingFactor > 0 ? text.spacingFactor : 1);
  const double whole = 1 + step * static_cast<double>(lines.size() - 1);
  const int attachment = std::clamp<int>(text.attachment, 1, 9) - 1;  // by rows from the top left
  const double top = attachment / 3 == 0 ? 0 : attachment / 3 == 1 ? whole / 2 : whole;
  const Affine2 place = Affine2::translation({text.position.x, text.position.y}) *
                        Affine2::rotation(std::atan2(text.xDirection.y, text.xDirection.x)) *
                        Affine2{text.height * style.widthFactor,
                                0,
                                text.height * std::tan(style.oblique),
                                text.height,
                                0,
                                0};
  const double tolerance = text.height > 0 ? style.tolerance / text.height : 0;
  std::vector<PlacedLine> out;
  double y = top - 1;
  for (const std::string& line : lines) {
    PlacedLine placed{layOutLine(line, style.font, tolerance), {}};
    const double x = -placed.line.advance * (attachment % 3) / 2;
    placed.place = place * Affine2::translation({x, y});
    out.push_back(std::move(placed));
    y -= step;
  }
  return out;
}

}  // namespace drafting
