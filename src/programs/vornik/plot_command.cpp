// `vornik plot`: a drawing as PDF, SVG or PNG.
#include <iostream>
#include <optional>

#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/plot/plot.h"
#include "programs/vornik/program.h"

namespace vornik {
namespace {

constexpr std::string_view kUsage =
    "usage: vornik plot DRAWING... --output OUT.pdf|.svg|.png [--paper A3|A4x3|WxH] [--scale N]\n"
    "                   [--window X1,Y1,X2,Y2] [--upright] [--width PX] [--monochrome]\n"
    "                   [--background white|black] [--fonts DIR]\n"
    "  Draws model space at its print scale on the smallest sheet that holds it, or with --paper "
    "as\n"
    "  large as fits. Sheets are turned to suit the drawing, or kept --upright. --scale is\n"
    "  millimetres to a drawing unit, --window the area to show, --width the pixels of a PNG.\n"
    "  Shape fonts are looked for beside the drawing and then in the folder of --fonts; one that "
    "is\n"
    "  missing is replaced by the built-in one. Several drawings become the pages of one PDF.\n";
constexpr int kFewestPixels = 16, kMostPixels = 30000;

std::optional<base::Box2> parseWindow(std::string_view text) {
  double corners[4];
  for (int i = 0; i < 4; ++i) {
    const std::size_t comma = text.find(',');
    if ((comma == std::string_view::npos) != (i == 3)) return {};
    const auto number = parseNumber(text.substr(0, comma));
    if (!number) return {};
    corners[i] = *number;
    if (i < 3) text.remove_prefix(comma + 1);
  }
  base::Box2 box;
  box.add(base::Point2{corners[0], corners[1]});
  box.add(base::Point2{corners[2], corners[3]});
  if (!(box.width() > 0 && box.height() > 0)) return {};
  return box;
}

// Fills `plot`; the result is what is wrong, or empty.
std::string readOptions(const Options& options, drafting::PlotOptions& plot) {
  plot.monochrome = options.flag("monochrome");
  plot.keepUpright = options.flag("upright");
  if (const auto* paper = options.value("paper")) {
    plot.paper = drafting::parsePaper(*paper);
    if (!plot.paper)
      return "--paper takes A0 to A4, A4x3 to A4x5, A3x3, A3x4, A2x3, A2x4, A1x3, A0x2 or "
             "WIDTHxHEIGHT in millimetres";
  }
  if (const auto* window = options.value("window")) {
    plot.window = parseWindow(*window);
    if (!plot.window) return "--window takes two corners, X1,Y1,X2,Y2";
  }
  if (const auto* scale = options.value("scale")) {
    plot.scale = parseNumber(*scale).value_or(0);
    if (!(plot.scale > 0 && plot.scale < 1e6)) return "--scale takes a number above 0";
  }
  if (const auto* width = options.value("width")) {
    plot.pixels = base::atoi(*width);
    if (plot.pixels < kFewestPixels || plot.pixels > kMostPixels) {
      return "--width takes 16 to 30000 pixels";
    }
  }
  if (const auto* background = options.value("background")) {
    if (*background != "white" && *background != "black") return "--background is white or black";
    if (*background == "black") plot.background = drafting::Background::Black;
  }
  return {};
}

void note(std::string_view text) { std::cerr << "vornik: " << text << "\n"; }

base::Status plotOne(const std::string& drawing, const std::string& output,
                     drafting::PlotOptions plot) {
  const auto database = drafting::readDrawing(drawing, note);
  if (!database.ok()) return database.status();
  plot.drawingFolder = drafting::folderOfDrawing(drawing);
  return drafting::plotDrawing(**database, output, plot, note);
}

base::Status plotBook(const Words& drawings, const std::string& output,
                      drafting::PlotOptions plot) {
  drafting::PdfBook book;
  for (const std::string& drawing : drawings) {
    const auto database = drafting::readDrawing(drawing, note);
    if (!database.ok()) return database.status();
    plot.drawingFolder = drafting::folderOfDrawing(drawing);
    book.add(**database, plot,
             [&](std::string_view text) { note(drawing + ": " + std::string(text)); });
  }
  return book.save(output);
}

bool isPdf(const std::string& path) {
  return base::equalsNoCase(base::extensionOf(base::wideFromUtf8(path)), L".pdf");
}

}  // namespace

int plotCommand(const Words& words) {
  const Options options(words, "output paper scale window width background fonts",
                        "monochrome upright help");
  if (options.flag("help")) return std::cout << kUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kUsage);
  if (options.plain().empty()) return usageError("a drawing is needed", kUsage);
  const auto* output = options.value("output");
  if (!output) return usageError("--output is needed", kUsage);
  if (options.plain().size() > 1 && !isPdf(*output)) {
    return usageError("several drawings make a PDF only", kUsage);
  }
  drafting::PlotOptions plot;
  const std::string problem = readOptions(options, plot);
  if (!problem.empty()) return usageError(problem, kUsage);
  if (const auto* fonts = options.value("fonts")) {
    drafting::FontLibrary::shared().setFolders({base::pathFromUtf8(*fonts)});
  }
  return report(options.plain().size() == 1 ? plotOne(options.plain()[0], *output, plot)
                                            : plotBook(options.plain(), *output, plot));
}

}  // namespace vornik
