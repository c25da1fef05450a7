// Codes: \P new line, \~ blank that doesn't break, \\ \{ \} the signs themselves, { } a part whose
// looks end with it, \L \O \K under-, over- and strike line on (small: off), \H height (with x:
// times the present one), \W width, \Q oblique angle, \C colour, \S fraction, \p paragraph (q:
// alignment), \F shape fonts, \f \T \A passed over. Codes with values end with a semicolon. ^I is a
// tabulator, ^J a new line.
#include "embedded/drafting/display/mtext_runs.h"

#include <algorithm>
#include <cmath>

#include "embedded/base/geometry.h"
#include "embedded/base/numbers.h"

namespace drafting {
namespace {

class RunReader {
 public:
  RunReader(std::string_view text, double height) : text_(text), height_(height) {}

  std::vector<RunLine> read() {
    lines_.emplace_back();
    while (at_ < text_.size()) take(text_[at_++]);
    endRun();
    return std::move(lines_);
  }

 private:
  static constexpr std::size_t kDeepest = 200;  // braces

  void take(char c) {
    if (c == '\\' && at_ < text_.size()) return takeCode(text_[at_++]);
    if (c == '^' && at_ < text_.size()) return takeCaret(text_[at_]);
    if (c == '{') {
      if (outer_.size() < kDeepest) outer_.push_back(look_);
    } else if (c == '}') {
      if (!outer_.empty()) setLook(outer_.back()), outer_.pop_back();
    } else if (c == '\n') {
      newLine();
    } else if (c == '\t') {
      run_ += kTab;
    } else if (c != '\r') {
      run_ += c;
    }
  }

  void takeCaret(char next) {
    ++at_;
    if (next == 'I') {
      run_ += kTab;
    } else if (next == 'J') {
      newLine();
    } else {
      run_ += '^';
      if (next != ' ') --at_;
    }
  }

  void takeCode(char code) {
    RunLook look = look_;
    switch (code) {
      case 'P': return newLine();
      case '~': run_ += ' '; return;
      case '\\':
      case '{':
      case '}': run_ += code; return;
      case 'U':
      case 'M': run_ += {'\\', code}; return;  // a character's number is read with the line
      case 'S': return addFraction(argument());
      case 'L': look.underline = true; break;
      case 'l': look.underline = false; break;
      case 'O': look.overline = true; break;
      case 'o': look.overline = false; break;
      case 'K': look.strike = true; break;
      case 'k': look.strike = false; break;
      case 'H': look.height = heightOf(argument()); break;
      case 'W': look.width = positive(argument(), look.width); break;
      case 'Q': look.oblique = obliqueOf(argument()); break;
      case 'C':
      case 'c': look.colour = colourOf(argument(), code); break;
      case 'F': look.font = argument(); break;
      case 'f': argument(), look.font.clear(); break;  // an outline font: the style's stands for it
      case 'p': return paragraph(argument());
      default: argument(); return;
    }
    setLook(look);
  }

  std::string_view argument() {
    const std::size_t end = std::min(text_.find(';', at_), text_.size());
    const std::string_view found = text_.substr(at_, end - at_);
    at_ = std::min(end + 1, text_.size());
    return found;
  }

  static double positive(std::string_view text, double otherwise) {
    const double value = base::parseDouble(text).value;
    return value > 0 && std::isfinite(value) ? value : otherwise;
  }
  double heightOf(std::string_view text) const {
    const bool isFactor = !text.empty() && (text.back() == 'x' || text.back() == 'X');
    const double value = positive(text, 0);
    if (!(value > 0)) return look_.height;
    const double height = isFactor ? value * look_.height : height_ > 0 ? value / height_ : 1;
    return std::clamp(height, 1e-6, 1e6);
  }
  static double obliqueOf(std::string_view text) {
    constexpr double kMost = 85;
    const double value = base::parseDouble(text).value;
    return std::isfinite(value) ? base::radians(std::clamp(value, -kMost, kMost)) : 0;
  }
  // A small c is a colour by its parts, which no index stands for.
  static std::int16_t colourOf(std::string_view text, char code) {
    const int index = base::atoi(text);
    return code == 'C' && index >= 1 && index <= 255 ? static_cast<std::int16_t>(index) : -1;
  }

  void paragraph(std::string_view settings) {
    const std::size_t q = settings.find('q');
    if (q == std::string_view::npos || q + 1 >= settings.size()) return;
    const char alignment = settings[q + 1];
    alignment_ = alignment == 'l' || alignment == 'c' || alignment == 'r' ? alignment : '\0';
    lines_.back().alignment = alignment_;
  }

  void addFraction(std::string_view text) {
    endRun();
    const std::size_t sign = text.find_first_of("/^#");
    TextRun fraction{look_, std::string(text.substr(0, sign)), true, false, {}};
    if (sign != std::string_view::npos) {
      fraction.hasBar = text[sign] != '^';
      fraction.below = text.substr(sign + 1);
    }
    lines_.back().runs.push_back(std::move(fraction));
  }

  void setLook(const RunLook& look) {
    if (look == look_) return;
    endRun();
    look_ = look;
  }
  void endRun() {
    if (!run_.empty()) lines_.back().runs.push_back({look_, std::move(run_), false, false, {}});
    run_.clear();
  }
  void newLine() {
    endRun();
    lines_.emplace_back();
    lines_.back().alignment = alignment_;
  }

  static constexpr const char* kTab = "    ";

  std::string_view text_;
  double height_;
  std::size_t at_ = 0;
  RunLook look_;
  std::vector<RunLook> outer_;  // looks around the braces that are open
  char alignment_ = 0;
  std::string run_;
  std::vector<RunLine> lines_;
};

}  // namespace

std::vector<RunLine> readRuns(std::string_view text, double height) {
  return RunReader(text, height).read();
}

}  // namespace drafting
