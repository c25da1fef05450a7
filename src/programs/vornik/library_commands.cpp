// `vornik sample`, `vornik convert`, `vornik row`: installs, file forms, data rows.
#include <iostream>

#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/documents/session.h"
#include "engine/row_reader.h"
#include "programs/vornik/json.h"
#include "programs/vornik/program.h"
#include "samples/generator/install.h"

namespace vornik {
namespace {

constexpr std::string_view kSampleUsage =
    "usage: vornik sample DIR\n  Makes a complete install: system and user folder, symbols, "
    "circuits.\n";
constexpr std::string_view kConvertUsage =
    "usage: vornik convert IN OUT\n  Reads a drawing and writes it in the form of OUT's "
    "extension.\n";
constexpr std::string_view kRowUsage =
    "usage: vornik row read [--json] [FILE|-]\n"
    "  Reads data rows, one a line, and prints the lists of each, or its message.\n";

std::string points(const std::vector<RowPoint>& list) {
  return jsonList(list, [](const RowPoint& p) {
    return "[" + base::formatShortest(p.x) + "," + base::formatShortest(p.y) + "]";
  });
}

std::string texts(const std::vector<std::wstring>& list) {
  return jsonList(list,
                  [](const std::wstring& text) { return jsonText(base::utf8FromWide(text)); });
}

std::string numbers(const std::vector<double>& list) {
  return jsonList(list, [](double number) { return base::formatShortest(number); });
}

std::string jsonOf(const RowReading& reading) {
  if (!reading.ok()) return "{\"message\":" + jsonText(base::utf8FromWide(reading.message)) + "}";
  const CircuitRow& row = reading.row;
  const auto colours = jsonList(row.colours, [](int colour) { return std::to_string(colour); });
  return "{\"names\":" + texts(row.names) + ",\"specifications\":" + texts(row.specifications) +
         ",\"points\":" + points(row.points) + ",\"angles\":" + numbers(row.angles) +
         ",\"starts\":" + points(row.starts) + ",\"ends\":" + points(row.ends) +
         ",\"texts\":" + texts(row.texts) + ",\"colours\":" + colours +
         ",\"heights\":" + numbers(row.heights) + ",\"textPoints\":" + points(row.textPoints) +
         ",\"textAngles\":" + numbers(row.textAngles) + "}";
}

std::string plainOf(const RowReading& reading) {
  if (!reading.ok()) return base::utf8FromWide(base::trim(reading.message));
  const CircuitRow& row = reading.row;
  return std::to_string(row.names.size()) + " blocks, " + std::to_string(row.starts.size()) +
         " lines, " + std::to_string(row.texts.size()) + " texts";
}

}  // namespace

int sampleCommand(const Words& words) {
  const Options options(words, "", "help");
  if (options.flag("help")) return std::cout << kSampleUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kSampleUsage);
  if (options.plain().size() != 1) return usageError("one folder is needed", kSampleUsage);
  return report(
      samples::makeInstall(base::pathFromUtf8(options.plain()[0]),
                           [](std::string_view step) { std::cerr << "vornik: " << step << "\n"; }));
}

int convertCommand(const Words& words) {
  const Options options(words, "", "help");
  if (options.flag("help")) return std::cout << kConvertUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kConvertUsage);
  if (options.plain().size() != 2) return usageError("two files are needed", kConvertUsage);
  const auto note = [](std::string_view text) { std::cerr << "vornik: " << text << "\n"; };
  const auto database = drafting::readDrawing(options.plain()[0], note);
  if (!database.ok()) return report(database.status());
  return report(drafting::saveDrawingFile(**database, options.plain()[1], note));
}

int rowCommand(const Words& words) {
  const Options options(words, "", "json help");
  if (options.flag("help")) return std::cout << kRowUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kRowUsage);
  if (options.plain().empty() || options.plain()[0] != "read" || options.plain().size() > 2) {
    return usageError("'read' and at most one file are needed", kRowUsage);
  }
  const auto input = readInput(options.plain().size() == 2 ? options.plain()[1] : "-");
  if (!input.ok()) return report(input.status());
  std::string_view rest = *input;
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const RowReading reading = readRow(base::wideFromUtf8(line));
    std::cout << (options.flag("json") ? jsonOf(reading) : plainOf(reading)) << "\n";
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return kDone;
}

}  // namespace vornik
