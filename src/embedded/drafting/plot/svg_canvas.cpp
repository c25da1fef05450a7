#include "embedded/drafting/plot/svg_canvas.h"

#include <cmath>

#include "embedded/base/text.h"
#include "embedded/base/utf8.h"
#include "embedded/drafting/plot/number_text.h"

namespace drafting {
namespace {

using base::Point2;

std::string hex(base::Rgb colour) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string out = "#";
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) {
    out += kDigits[part >> 4];
    out += kDigits[part & 15];
  }
  return out;
}

// XML has no way to write controls and lone surrogates.
std::string escaped(std::string_view text) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const base::Decoded decoded = base::decodeUtf8(text, at);
    at += decoded.length;
    const char32_t c = decoded.character;
    if (c == '<')
      out += "&lt;";
    else if (c == '&')
      out += "&amp;";
    else if (c == '>')
      out += "&gt;";
    else if (c < 0x20)
      out += ' ';
    else if (base::isHighSurrogate(c) || base::isLowSurrogate(c) || c >= 0xFFFE)
      out += '?';
    else
      base::appendUtf8(out, c);
  }
  return out;
}

}  // namespace

SvgCanvas::SvgCanvas(double width, double height, base::Rgb background) : height_(height) {
  std::string w, h;
  appendNumber(w, width);
  appendNumber(h, height);
  out_ =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
      "width=\"" +
      w + "mm\" height=\"" + h + "mm\" viewBox=\"0 0 " + w + " " + h +
      "\">\n"
      "<rect width=\"" +
      w + "\" height=\"" + h + "\" fill=\"" + hex(background) +
      "\"/>\n"
      "<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
}

void SvgCanvas::appendPath(std::span<const Point2> points) {
  char letter = 'M';
  for (const Point2 point : points) {
    out_ += letter;
    appendNumber(out_, point.x);
    out_ += ' ';
    appendNumber(out_, height_ - point.y);
    letter = 'L';
  }
}

void SvgCanvas::endPath() {
  if (inPath_) out_ += "\"/>\n";
  inPath_ = false;
}

void SvgCanvas::stroke(std::span<const Point2> points, base::Rgb colour, double width) {
  if (!inPath_ || colour != colour_ || width != width_) {
    endPath();
    out_ += "<path stroke=\"" + hex(colour) + "\" stroke-width=\"";
    appendNumber(out_, width);
    out_ += "\" d=\"";
    inPath_ = true;
    colour_ = colour;
    width_ = width;
  }
  appendPath(points);
  if (points.size() == 1) out_ += 'Z';
}

void SvgCanvas::fill(std::span<const Point2> outline, base::Rgb colour) {
  endPath();
  out_ += "<path stroke=\"none\" fill=\"" + hex(colour) + "\" d=\"";
  appendPath(outline);
  out_ += "Z\"/>\n";
}

void SvgCanvas::words(const base::Words& words) {
  endPath();
  const base::Affine2& p = words.place;
  out_ +=
      "<text stroke=\"none\" fill-opacity=\"0\" font-size=\"1\" xml:space=\"preserve\" "
      "textLength=\"";
  appendFactor(out_, words.advance);
  out_ += "\" lengthAdjust=\"spacingAndGlyphs\" transform=\"matrix(";
  // Letters of the file stand upright when y runs downwards.
  const double factors[] = {p.a, -p.b, -p.c, p.d, p.e, height_ - p.f};
  for (int i = 0; i < 6; ++i) {
    if (i > 0) out_ += ' ';
    appendFactor(out_, factors[i]);
  }
  out_ += ")\">" + escaped(words.text) + "</text>\n";
}

std::string SvgCanvas::finish() {
  endPath();
  out_ += "</g>\n</svg>\n";
  return std::move(out_);
}

}  // namespace drafting
