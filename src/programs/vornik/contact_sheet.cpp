// Lays cells of one size out line by line, on landscape sheets of A3 or in one long picture.
#include "programs/vornik/contact_sheet.h"

#include <algorithm>
#include <cmath>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/display/text_layout.h"
#include "embedded/drafting/plot/bitmap_canvas.h"
#include "embedded/drafting/plot/pdf_canvas.h"
#include "embedded/slide_store/slide_painter.h"

namespace vornik {
namespace {

using base::Affine2;
using base::Box2;
using base::Point2;

constexpr double kSheetWidth = 420, kSheetHeight = 297, kMargin = 10;  // millimetres
constexpr double kCaption = 6;  // height of the line of text below a slide
constexpr double kGap = 3;      // between cells
constexpr double kNumberSize = 3.2, kNameSize = 2.8;
constexpr double kPen = 0.18, kTextPen = 0.2, kFramePen = 0.1;
constexpr int kTextColour = 7, kFrameColour = 9;

// One sheet's worth of cells, in millimetres.
struct Layout {
  std::size_t columns = 1, lines = 1;
  double slideWidth = 1, slideHeight = 1;

  explicit Layout(const SheetOptions& options) {
    const double width = kSheetWidth - 2 * kMargin + kGap;
    columns = static_cast<std::size_t>(std::max(options.columns, 1));
    slideWidth = width / static_cast<double>(columns) - kGap;
    slideHeight = slideWidth / options.proportion;
    // Slides higher than the sheet are as high as it.
    const double most = kSheetHeight - 2 * kMargin - kCaption;
    if (slideHeight > most) slideHeight = most;
    const double room = (kSheetHeight - 2 * kMargin + kGap) / cellHeight();
    lines = std::max<std::size_t>(1, static_cast<std::size_t>(room));
  }

  double cellHeight() const { return slideHeight + kCaption + kGap; }
  std::size_t perSheet() const { return columns * lines; }
  std::size_t linesOf(std::size_t slides) const { return slides / columns; }
  // Of the n-th slide, on paper that is `height` high.
  Box2 slideBox(std::size_t n, double height) const {
    const auto column = static_cast<double>(n % columns);
    const auto line = static_cast<double>(linesOf(n));
    const Point2 corner{kMargin + column * (slideWidth + kGap),
                        height - kMargin - line * cellHeight() - slideHeight};
    Box2 box;
    box.add(corner);
    box.add(corner + Point2{slideWidth, slideHeight});
    return box;
  }
};

class SheetPainter {
 public:
  // `scale`: units of the canvas to a millimetre.
  SheetPainter(base::Canvas& canvas, double scale, drafting::Background background)
      : canvas_(canvas), scale_(scale), palette_(background, false) {}

  base::Status paint(const SheetSlide& slide, const Box2& box) {
    frame(box);
    const double end = text(slide.number, box.min.x, box, kNumberSize);
    text(slide.name, end + kNameSize, box, kNameSize);
    if (slide.bytes.empty()) return {};
    slide_store::SlidePaint style;
    style.colours = [this](int index) { return palette_(index); };
    style.penWidth = pen(kPen);
    return slide_store::paintSlide(
        slide.bytes, scaled(slide_store::proportionalBox(slide.bytes, box)), style, canvas_);
  }

 private:
  // Pens never get so thin that the screen can't show them.
  double pen(double millimetres) const {
    return std::max(millimetres * scale_, scale_ == 1 ? 0 : 1.0);
  }
  Box2 scaled(const Box2& box) const { return {box.min * scale_, box.max * scale_}; }

  void frame(const Box2& box) {
    const Box2 b = scaled(box);
    const Point2 corners[] = {b.min, {b.max.x, b.min.y}, b.max, {b.min.x, b.max.y}, b.min};
    canvas_.stroke(corners, palette_(kFrameColour), pen(kFramePen));
  }

  // Below the box, from x on; where the text ends.
  double text(const std::string& text, double x, const Box2& box, double size) {
    const drafting::TextLine line = drafting::layOutLine(text);
    const double y = box.min.y - kCaption + (kCaption - kNumberSize) / 2;
    const Affine2 place{size * scale_, 0, 0, size * scale_, x * scale_, y * scale_};
    for (const auto& stroke : line.strokes) {
      std::vector<Point2> points(stroke.size());
      std::transform(stroke.begin(), stroke.end(), points.begin(), place);
      canvas_.stroke(points, palette_(kTextColour), pen(kTextPen));
    }
    canvas_.words({line.plain, place, line.advance});
    return x + line.advance * size;
  }

  base::Canvas& canvas_;
  double scale_;
  drafting::Palette palette_;
};

base::Status named(const SheetSlide& slide, const base::Status& status) {
  return status.ok() ? status
                     : base::Status::failure("slide " + slide.name + ": " + status.message());
}

base::Result<std::string> pdfOf(const std::vector<SheetSlide>& slides,
                                const SheetOptions& options) {
  const Layout layout(options);
  std::vector<drafting::PdfCanvas> pages;
  for (std::size_t i = 0; i < slides.size() || pages.empty(); ++i) {
    if (i % layout.perSheet() == 0) {
      pages.emplace_back(kSheetWidth, kSheetHeight,
                         drafting::Palette(options.background, false).background());
    }
    if (i == slides.size()) break;
    SheetPainter painter(pages.back(), 1, options.background);
    const base::Status drawn =
        painter.paint(slides[i], layout.slideBox(i % layout.perSheet(), kSheetHeight));
    if (!drawn.ok()) return named(slides[i], drawn);
  }
  return makePdf(std::move(pages));
}

base::Result<std::string> pngOf(const std::vector<SheetSlide>& slides,
                                const SheetOptions& options) {
  const Layout layout(options);
  const auto lines = static_cast<double>(layout.linesOf(slides.size() + layout.columns - 1));
  const double height = std::max(lines * layout.cellHeight() - kGap, 0.0) + 2 * kMargin;
  const double scale = options.pixels / kSheetWidth;
  auto canvas =
      drafting::BitmapCanvas::make(options.pixels, static_cast<int>(std::ceil(height * scale)),
                                   drafting::Palette(options.background, false).background());
  if (!canvas.ok()) return canvas.status();
  SheetPainter painter(**canvas, scale, options.background);
  for (std::size_t i = 0; i < slides.size(); ++i) {
    const base::Status drawn = painter.paint(slides[i], layout.slideBox(i, height));
    if (!drawn.ok()) return named(slides[i], drawn);
  }
  return (*canvas)->finish();
}

}  // namespace

base::Status saveSheet(const std::vector<SheetSlide>& slides, const std::string& path,
                       const SheetOptions& options) {
  const std::wstring name = base::wideFromUtf8(path);
  const std::wstring_view extension = base::extensionOf(name);
  const bool pdf = base::equalsNoCase(extension, L".pdf");
  if (!pdf && !base::equalsNoCase(extension, L".png")) {
    return base::Status::failure(path + ": sheets are .pdf or .png files");
  }
  const auto picture = pdf ? pdfOf(slides, options) : pngOf(slides, options);
  if (!picture.ok()) return base::Status::failure(path + ": " + picture.message());
  return base::saveAtomically(base::resolvePath(name), *picture);
}

}  // namespace vornik
