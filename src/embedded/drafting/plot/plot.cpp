// From options to a page: its size, the map from the drawing, the canvas of the file's form.
#include "embedded/drafting/plot/plot.h"

#include <array>
#include <cmath>
#include <utility>

#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/plot/bitmap_canvas.h"
#include "embedded/drafting/plot/pdf_canvas.h"
#include "embedded/drafting/plot/svg_canvas.h"

namespace drafting {
namespace {

// Sheets by area, upright; the elongated ones hold a row of circuits.
struct Sheet {
  std::string_view name;
  Paper paper;
};
constexpr std::array<Sheet, 14> kSheets{{{"A4", {210, 297}},
                                         {"A3", {297, 420}},
                                         {"A4x3", {297, 630}},
                                         {"A2", {420, 594}},
                                         {"A4x4", {297, 841}},
                                         {"A4x5", {297, 1051}},
                                         {"A3x3", {420, 891}},
                                         {"A1", {594, 841}},
                                         {"A3x4", {420, 1189}},
                                         {"A2x3", {594, 1261}},
                                         {"A0", {841, 1189}},
                                         {"A2x4", {594, 1682}},
                                         {"A1x3", {841, 1783}},
                                         {"A0x2", {1189, 1682}}}};
constexpr double kMargin = 10;  // millimetres
constexpr double kThinnestOnPaper = 0.13, kThinnestInPixels = 1;
constexpr double kCurveError = 0.01;       // millimetres on the sheet
constexpr double kSmallest = 1e-6;         // a drawing of no extent is shown this large
constexpr double kMostEnlarged = 4;        // against the print scale
constexpr double kNarrowestPicture = 200;  // millimetres that a PNG's width stands for at least
constexpr int kMostPixels = 30000;         // a side
constexpr double kMostPixelsInAll = 200'000'000;  // four bytes each

enum class Form { Pdf, Svg, Png, Unknown };

Form formOf(const std::string& path) {
  const std::wstring name = base::wideFromUtf8(path);
  const auto extension = base::extensionOf(name);
  if (base::equalsNoCase(extension, L".pdf")) return Form::Pdf;
  if (base::equalsNoCase(extension, L".svg")) return Form::Svg;
  return base::equalsNoCase(extension, L".png") ? Form::Png : Form::Unknown;
}

// Size of the page in the canvas's units, and the way there.
struct Page {
  double width = 0, height = 0;
  double unitsPerMillimetre = 1;
  Affine2 map;
  double scale = 1;  // of the map
};

Box2 extentsOf(const DisplayList& list, const PlotOptions& options) {
  if (options.window) return *options.window;
  return list.bounds().empty() ? Box2{{0, 0}, {420, 297}} : list.bounds();
}

void placeInMiddle(Page& page, const Box2& box, double scale) {
  const Point2 middle = box.centre();
  page.scale = scale;
  page.map = {
      scale, 0, 0, scale, page.width / 2 - middle.x * scale, page.height / 2 - middle.y * scale};
}

double fittingScale(const Page& page, const Box2& box, double margin) {
  const double width = std::max(box.width(), kSmallest), height = std::max(box.height(), kSmallest);
  return std::min(std::max(page.width - 2 * margin, page.width / 2) / width,
                  std::max(page.height - 2 * margin, page.height / 2) / height);
}

bool isTurned(const Box2& box, const PlotOptions& options, Paper paper) {
  return !options.keepUpright && !paper.fixed &&
         (box.width() > box.height()) != (paper.width > paper.height);
}

// A scale of 0 is the one that fits.
Page pageOnPaper(const Box2& box, const PlotOptions& options, Paper paper, double scale) {
  if (isTurned(box, options, paper)) std::swap(paper.width, paper.height);
  Page page{paper.width, paper.height, 1, {}, 1};
  placeInMiddle(page, box, scale > 0 ? scale : fittingScale(page, box, kMargin));
  return page;
}

// The smallest sheet that takes the drawing at that scale; if none does, the one that shows it
// largest.
Page pageOnSmallestSheet(const Box2& box, const PlotOptions& options, double scale) {
  Page largest;
  largest.scale = 0;
  for (const Sheet& sheet : kSheets) {
    const Page page = pageOnPaper(box, options, sheet.paper, 0);
    if (page.scale >= scale) return pageOnPaper(box, options, sheet.paper, scale);
    if (page.scale > largest.scale) largest = page;
  }
  if (options.scale > 0) placeInMiddle(largest, box, options.scale);
  return largest;
}

// Without wishes the print scale, save for a drawing that would be lost on the smallest sheet.
Page pageAtPrintScale(const Box2& box, const PlotOptions& options, double printScale) {
  const Page smallest = pageOnPaper(box, options, kSheets[0].paper, 0);
  return smallest.scale > kMostEnlarged * printScale
             ? smallest
             : pageOnSmallestSheet(box, options, printScale);
}

// Millimetres to a drawing unit at the drawing's own print scale.
double printScale(const Database& database) {
  const double unitsPerMillimetre = database.header.real("DIMSCALE");
  return unitsPerMillimetre > 0 && std::isfinite(unitsPerMillimetre) ? 1 / unitsPerMillimetre : 1;
}

Page sheetOf(const Box2& box, const PlotOptions& options, double printScale) {
  if (options.paper) return pageOnPaper(box, options, *options.paper, options.scale);
  return options.scale > 0 ? pageOnSmallestSheet(box, options, options.scale)
                           : pageAtPrintScale(box, options, printScale);
}

// A bitmap as wide as asked and as high as the sheet needs, or else the drawing.
Page pageOfPixels(const Box2& box, const PlotOptions& options, double printScale) {
  Page page;
  page.width = options.pixels;
  if (options.paper || options.scale > 0) {
    const Page sheet = sheetOf(box, options, printScale);
    page.unitsPerMillimetre = page.width / sheet.width;
    page.height = std::max(1.0, std::round(sheet.height * page.unitsPerMillimetre));
    placeInMiddle(page, box, sheet.scale * page.unitsPerMillimetre);
    return page;
  }
  const double margin = page.width * 0.02;
  const double fitting = (page.width - 2 * margin) / std::max(box.width(), kSmallest);
  page.height = std::max(1.0, std::round(box.height() * fitting + 2 * margin));
  // Pens as at the print scale, but not wider than they would be on a small sheet.
  page.unitsPerMillimetre = std::min(fitting / printScale, page.width / kNarrowestPicture);
  placeInMiddle(page, box, fitting);
  return page;
}

bool isTooLarge(const Page& bitmap) {
  return std::max(bitmap.width, bitmap.height) > kMostPixels ||
         bitmap.width * bitmap.height > kMostPixelsInAll;
}

PaintStyle styleOf(const Page& page, const PlotOptions& options, double thinnest) {
  PaintStyle style;
  style.palette = Palette(options.background, options.monochrome);
  style.unitsPerMillimetre = options.lineweights ? page.unitsPerMillimetre : 0;
  style.thinnest = thinnest;
  return style;
}

PdfCanvas pdfPage(const DisplayList& list, const Page& page, const PlotOptions& options) {
  const PaintStyle style = styleOf(page, options, kThinnestOnPaper);
  PdfCanvas canvas(page.width, page.height, style.palette.background());
  paint(list, page.map, style, canvas);
  return canvas;
}

std::string svgOf(const DisplayList& list, const Page& page, const PlotOptions& options) {
  const PaintStyle style = styleOf(page, options, kThinnestOnPaper);
  SvgCanvas canvas(page.width, page.height, style.palette.background());
  paint(list, page.map, style, canvas);
  return canvas.finish();
}

base::Result<std::string> pngOf(const DisplayList& list, const Page& page,
                                const PlotOptions& options) {
  const PaintStyle style = styleOf(page, options, kThinnestInPixels);
  auto canvas = BitmapCanvas::make(static_cast<int>(page.width), static_cast<int>(page.height),
                                   style.palette.background());
  if (!canvas.ok()) return canvas.status();
  paint(list, page.map, style, **canvas);
  return (*canvas)->finish();
}

base::Result<std::string> pictureOf(const DisplayList& list, const Page& page, Form form,
                                    const PlotOptions& options) {
  if (form == Form::Svg) return svgOf(list, page, options);
  if (form == Form::Png) return pngOf(list, page, options);
  std::vector<PdfCanvas> pages;
  pages.push_back(pdfPage(list, page, options));
  return makePdf(std::move(pages));
}

void tellWhatIsMissing(const DisplayList& list, const std::function<void(std::string_view)>& note) {
  if (list.items().empty()) note("the drawing shows nothing");
  for (const auto& [kind, count] : list.notShown()) {
    note(std::to_string(count) + " of kind " + (kind.empty() ? "unknown" : kind) +
         " are not shown");
  }
  for (const std::string& sentence : list.fontNotes()) note(sentence);
  if (list.cut()) note("the drawing is too large to be shown whole");
}

DisplayOptions displayFor(const PlotOptions& options) {
  DisplayOptions display;
  display.forPlot = true;
  display.drawingFolder = options.drawingFolder;
  return display;
}

Page pageFor(const Database& database, Form form, const PlotOptions& options) {
  const Box2 box = extentsOf(DisplayList::of(database, displayFor(options)), options);
  const double scale = printScale(database);
  return form == Form::Png ? pageOfPixels(box, options, scale) : sheetOf(box, options, scale);
}

// The picture, with curves as fine as the page asks for.
DisplayList listFor(const Database& database, const Page& page, const PlotOptions& options,
                    const std::function<void(std::string_view)>& note) {
  DisplayOptions display = displayFor(options);
  display.tolerance = kCurveError * page.unitsPerMillimetre / page.scale;
  DisplayList list = DisplayList::of(database, display);
  if (note) tellWhatIsMissing(list, note);
  return list;
}

}  // namespace

std::optional<Paper> parsePaper(std::string_view text) {
  constexpr double kLeast = 10, kMost = 14400 / 72.0 * 25.4;  // readers of PDF take no larger page
  for (const Sheet& sheet : kSheets) {
    if (base::equalsNoCase(sheet.name, text)) return sheet.paper;
  }
  const std::size_t cross = text.find_first_of("xX");
  if (cross == std::string_view::npos) return {};
  const auto width = base::parseDouble(text.substr(0, cross));
  const auto height = base::parseDouble(text.substr(cross + 1));
  if (width.length != cross || height.length != text.size() - cross - 1) return {};
  const auto possible = [](double size) { return size >= kLeast && size <= kMost; };
  if (!possible(width.value) || !possible(height.value)) return {};
  return Paper{width.value, height.value, true};
}

base::Status plotDrawing(const Database& database, const std::string& path,
                         const PlotOptions& options,
                         const std::function<void(std::string_view)>& note) {
  const Form form = formOf(path);
  if (form == Form::Unknown) {
    return base::Status::failure(path + ": plots are .pdf, .svg or .png files");
  }
  const Page page = pageFor(database, form, options);
  if (form == Form::Png && isTooLarge(page)) {
    return base::Status::failure(path + ": the picture would have " + base::formatF(page.width, 0) +
                                 " by " + base::formatF(page.height, 0) +
                                 " pixels, which is too many");
  }
  const DisplayList list = listFor(database, page, options, note);
  const auto picture = pictureOf(list, page, form, options);
  if (!picture.ok()) return base::Status::failure(path + ": " + picture.message());
  return base::saveAtomically(base::resolvePath(base::wideFromUtf8(path)), *picture);
}

PdfBook::PdfBook() = default;
PdfBook::~PdfBook() = default;

void PdfBook::add(const Database& database, const PlotOptions& options,
                  const std::function<void(std::string_view)>& note) {
  const Page page = pageFor(database, Form::Pdf, options);
  pages_.push_back(pdfPage(listFor(database, page, options, note), page, options));
}

base::Status PdfBook::save(const std::string& path) {
  return base::saveAtomically(base::resolvePath(base::wideFromUtf8(path)),
                              makePdf(std::exchange(pages_, {})));
}

}  // namespace drafting
