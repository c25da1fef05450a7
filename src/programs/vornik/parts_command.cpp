// `vornik bom`: the parts list of a drawing or of an install's library, as a file or as a table in
// the drawing, and what two drawings' lists differ in.
#include <iostream>

#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "programs/vornik/headless.h"
#include "programs/vornik/parts_compare.h"
#include "programs/vornik/parts_table.h"
#include "programs/vornik/program.h"

namespace vornik {
namespace {

constexpr std::string_view kUsage =
    "usage: vornik bom DRAWING|--install DIR [--by both|symbol|model] [--output OUT.csv]\n"
    "       vornik bom DRAWING --compare OLDER [--by both|symbol|model] [--output OUT.csv]\n"
    "       vornik bom DRAWING --table OUT.dwg|OUT.dxf [--at X,Y] [--by both|symbol|model]\n"
    "  Counts the models of a drawing's blocks, or of all circuits of an install's library, by\n"
    "  symbol and model, or by one of them. --compare tells which counts aren't those of an older\n"
    "  drawing. --table adds the list to the drawing, right of what it shows or at a point, in "
    "the\n"
    "  drawing's print scale, and saves it as OUT.\n";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";  // spreadsheets need it to read Chinese

void note(std::string_view text) { std::cerr << "vornik: " << text << "\n"; }

struct Request {
  PartsBy by = PartsBy::SymbolAndModel;
  std::optional<base::Point2> at;
};

// Fills `request`; the result is what is wrong, or empty.
std::string readRequest(const Options& options, Request& request) {
  if (options.plain().size() != (options.value("install") ? 0u : 1u)) {
    return "one drawing or --install is needed";
  }
  const bool compares = options.value("compare"), draws = options.value("table");
  if (options.value("install") && (compares || draws)) {
    return "--compare and --table take a drawing, not --install";
  }
  if (draws && (compares || options.value("output"))) {
    return "--table stands alone: it saves the drawing";
  }
  if (options.value("at") && !draws) return "--at belongs to --table";
  if (const auto* by = options.value("by")) {
    if (*by != "both" && *by != "symbol" && *by != "model") return "--by is both, symbol or model";
    if (*by == "symbol") request.by = PartsBy::Symbol;
    if (*by == "model") request.by = PartsBy::Model;
  }
  if (const auto* at = options.value("at")) {
    request.at = parsePoint(*at);
    if (!request.at) return "--at takes a point, X,Y";
  }
  return {};
}

base::Result<std::vector<Part>> partsFrom(const std::string& drawing) {
  const auto database = drafting::readDrawing(drawing, note);
  if (!database.ok()) return database.status();
  return partsOfDrawing(**database, note);
}

base::Result<std::vector<Part>> partsFrom(const Options& options) {
  const auto* install = options.value("install");
  if (!install) return partsFrom(options.plain()[0]);
  const base::Status status = enterInstall(*install);
  if (!status) return status;
  const Headless headless(nullptr);
  return partsOfLibrary(note);
}

base::Result<std::string> csvOf(const Options& options, const Request& request) {
  auto parts = partsFrom(options);
  if (!parts.ok()) return parts.status();
  std::vector<Part> list = partsBy(request.by, std::move(*parts));
  const auto* older = options.value("compare");
  if (!older) return partsAsCsv(list);
  auto before = partsFrom(*older);
  if (!before.ok()) return before.status();
  return changesAsCsv(compareParts(partsBy(request.by, std::move(*before)), list));
}

base::Status drawTable(const Options& options, const Request& request) {
  const auto database = drafting::readDrawing(options.plain()[0], note);
  if (!database.ok()) return database.status();
  const double printScale = (*database)->header.real("DIMSCALE");
  const double scale = printScale > 0 ? printScale : 1;
  const base::Point2 corner = request.at ? *request.at : placeForTable(**database, scale);
  drawPartsTable(**database, partsBy(request.by, partsOfDrawing(**database, note)), corner, scale);
  return drafting::saveDrawingFile(**database, *options.value("table"), drafting::Losses::Refused,
                                   note);
}

}  // namespace

int bomCommand(const Words& words) {
  const Options options(words, "install output by compare table at", "help");
  if (options.flag("help")) return std::cout << kUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kUsage);
  Request request;
  const std::string problem = readRequest(options, request);
  if (!problem.empty()) return usageError(problem, kUsage);
  if (options.value("table")) return report(drawTable(options, request));
  const auto csv = csvOf(options, request);
  if (!csv.ok()) return report(csv.status());
  if (const auto* output = options.value("output")) {
    return report(base::saveAtomically(base::pathFromUtf8(*output), std::string(kUtf8Mark) + *csv));
  }
  std::cout << *csv;
  return kDone;
}

}  // namespace vornik
