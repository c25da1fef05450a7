// Page content: the operators of drawing and of invisible text.
#include "embedded/drafting/plot/pdf_canvas.h"

#include <cmath>

#include "embedded/base/utf8.h"
#include "embedded/drafting/plot/number_text.h"

namespace drafting {
namespace {

using base::Point2;

constexpr double kPointsPerMillimetre = 72 / 25.4;

void appendPoint(std::string& out, Point2 point) {
  appendNumber(out, point.x);
  out += ' ';
  appendNumber(out, point.y);
}

void appendRgb(std::string& out, base::Rgb colour) {
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) {
    appendNumber(out, part / 255.0);
    out += ' ';
  }
}

void appendUnit(std::string& hex, char32_t unit) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  for (int shift = 12; shift >= 0; shift -= 4) hex += kDigits[unit >> shift & 15];
}

// The text as UTF-16 in hexadecimal digits, and its width in the font's own measure: half an em for
// ASCII, one for everything else.
struct FontText {
  std::string hex;
  double width = 0;
};

FontText fontText(std::string_view utf8) {
  FontText out;
  for (std::size_t at = 0; at < utf8.size();) {
    const base::Decoded decoded = base::decodeUtf8(utf8, at);
    at += decoded.length;
    const char32_t c = decoded.character;
    if (c >= 0x10000) appendUnit(out.hex, base::highSurrogate(c));
    appendUnit(out.hex, c >= 0x10000 ? base::lowSurrogate(c) : c);
    out.width += c < 0x80 ? 0.5 : c < 0x10000 ? 1 : 2;
  }
  return out;
}

}  // namespace

PdfCanvas::PdfCanvas(double width, double height, base::Rgb background)
    : width_(width), height_(height) {
  // Round ends and joints; millimetres from here on.
  out_ = "1 J 1 j ";
  appendFactor(out_, kPointsPerMillimetre);
  out_ += " 0 0 ";
  appendFactor(out_, kPointsPerMillimetre);
  out_ += " 0 0 cm\n";
  if (background == base::Rgb{255, 255, 255}) return;
  fill(std::vector<Point2>{{0, 0}, {width, 0}, {width, height}, {0, height}}, background);
}

void PdfCanvas::appendPath(std::span<const Point2> points) {
  const char* command = " m\n";
  for (const Point2 point : points) {
    appendPoint(out_, point);
    out_ += command;
    command = " l\n";
  }
}

void PdfCanvas::endPath() {
  if (inPath_) out_ += "S\n";
  inPath_ = false;
}

void PdfCanvas::setColour(base::Rgb colour, base::Rgb& current, const char* command) {
  if (colour == current) return;
  endPath();
  appendRgb(out_, colour);
  out_ += command;
  current = colour;
}

void PdfCanvas::stroke(std::span<const Point2> points, base::Rgb colour, double width) {
  setColour(colour, strokeColour_, "RG\n");
  if (width != penWidth_) {
    endPath();
    appendNumber(out_, width);
    out_ += " w\n";
    penWidth_ = width;
  }
  appendPath(points);
  if (points.size() == 1) {
    appendPoint(out_, points[0]);
    out_ += " l\n";
  }
  inPath_ = true;
}

void PdfCanvas::fill(std::span<const Point2> outline, base::Rgb colour) {
  endPath();
  setColour(colour, fillColour_, "rg\n");
  appendPath(outline);
  out_ += "f\n";
}

void PdfCanvas::words(const base::Words& words) {
  constexpr double kNarrowest = 0.01, kWidest = 100000;  // per cent
  endPath();
  const FontText text = fontText(words.text);
  const double stretch = text.width > 0 ? words.advance / text.width * 100 : 100;
  const base::Affine2& p = words.place;
  out_ += "BT 3 Tr /F1 1 Tf ";
  appendNumber(out_, std::clamp(stretch, kNarrowest, kWidest));
  out_ += " Tz ";
  for (const double factor : {p.a, p.b, p.c, p.d, p.e, p.f}) {
    appendFactor(out_, factor);
    out_ += ' ';
  }
  out_ += "Tm <" + text.hex + "> Tj ET\n";
}

std::string PdfCanvas::finish() {
  endPath();
  return std::move(out_);
}

}  // namespace drafting
