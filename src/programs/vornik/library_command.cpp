// `vornik library`: an install's library of circuits: listed, shown, checked, printed, taken out
// and put in.
#include <algorithm>
#include <iostream>

#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/slide_store/slide.h"
#include "embedded/slide_store/slide_library.h"
#include "engine/row_reader.h"
#include "platform/framework_runtime.h"
#include "programs/vornik/auxiliary_groups.h"
#include "programs/vornik/captured_slide.h"
#include "programs/vornik/contact_sheet.h"
#include "programs/vornik/headless.h"
#include "programs/vornik/library_check.h"
#include "programs/vornik/library_transfer.h"
#include "programs/vornik/program.h"
#include "programs/vornik/row_text.h"
#include "store/circuit_record.h"

namespace vornik {
namespace {

constexpr std::string_view kUsage =
    "usage: vornik library list|show N|verify|sheet OUT|export DIR|import DIR|model N CELL TEXT|\n"
    "                      groups --install DIR\n"
    "  list                one line a slot: number, name, blocks, lines, texts, bytes of the "
    "slide\n"
    "  show N              the circuit numbered N, block by block\n"
    "  verify [--repair]   what is wrong with rows, symbols, slides and names; --repair captures\n"
    "                      missing and stale slides anew and removes those of no circuit\n"
    "  sheet OUT.pdf|.png  every slide with its number and name [--columns N] [--width PX]\n"
    "                      [--background white|black]; with --slides FILE.slb those of that file\n"
    "  export DIR          circuits.txt and a slide file for each circuit\n"
    "  import DIR          the same way back: circuits of the same name are replaced\n"
    "  model N CELL TEXT   the model of one block: CELL is its place in the row (7) or in the\n"
    "                      lattice (C3: column L, C or R, line 1 to 14)\n"
    "  groups              the auxiliary symbols, group by group; --mend kept|samples gives a "
    "library\n"
    "                      without groups those of the last save but one, or the sample ones\n";

void note(std::string_view text) { std::cerr << "vornik: " << text << "\n"; }

std::string utf8(const CString& text) { return base::utf8FromWide(text.wide()); }

// "5" and "05" are slot 4; -1 for what isn't a number above 0.
int slotOf(const std::string& number) {
  const int value = base::atoi(number);
  const bool digits = number.find_first_not_of("0123456789") == std::string::npos;
  return digits && value > 0 ? value - 1 : -1;
}

// The circuit of that number, or why there is none.
base::Status findCircuit(CZhlkLibStore& store, const std::string& number, CString& name,
                         CString& row) {
  const CString wanted = CZhlkLibStore::CircuitName(slotOf(number));
  for (int slot = 0; slot < store.GetCount(); ++slot) {
    if (store.GetNameAt(slot, name) && name == wanted && store.GetRowAt(slot, row)) return {};
  }
  return base::Status::failure("there is no circuit " + number);
}

int listCircuits() {
  CZhlkLibStore store;
  for (int slot = 0; slot < store.GetCount(); ++slot) {
    CString name;
    CString row;
    std::cout << utf8(CZhlkLibStore::NumberText(slot)) << "\t";
    if (!store.GetNameAt(slot, name) || name.IsEmpty()) {
      std::cout << "-\n";
      continue;
    }
    std::cout << utf8(name) << "\t";
    if (!store.GetRowAt(slot, row)) row.Empty();
    const LibraryRowReading reading = readLibraryRow(row.wide());
    std::cout << reading.row.names.size() << " blocks\t" << reading.row.starts.size() << " lines\t"
              << reading.row.texts.size() << " texts\t" << store.Slides().GetSlideSize(name)
              << " bytes" << (reading.ok() ? "" : "\tcan't be read") << "\n";
  }
  return kDone;
}

void showSlide(const std::string& bytes) {
  const auto header = slide_store::readSlideHeader(bytes);
  if (bytes.empty()) {
    std::cout << "no slide\n";
  } else if (!header.ok()) {
    std::cout << "slide: " << header.message() << "\n";
  } else {
    std::cout << "slide: " << header->highX + 1 << " by " << header->highY + 1 << " dots, "
              << bytes.size() << " bytes\n";
  }
}

int showCircuit(const std::string& number) {
  CZhlkLibStore store;
  CString name;
  CString row;
  const base::Status found = findCircuit(store, number, name, row);
  if (!found.ok()) return report(found);
  std::cout << utf8(name) << "\n";
  const LibraryRowReading reading = readLibraryRow(row.wide());
  const CircuitRow& circuit = reading.row;
  for (std::size_t i = 0; i < circuit.names.size() && i < circuit.points.size(); ++i) {
    std::cout << "block " << i + 1 << "\t" << base::utf8FromWide(circuit.names[i]) << "\t"
              << base::formatShortest(circuit.points[i].x) << ","
              << base::formatShortest(circuit.points[i].y) << "\t"
              << base::utf8FromWide(circuit.specifications[i]) << "\n";
  }
  std::cout << circuit.starts.size() << " lines\n";
  for (const std::wstring& text : circuit.texts) {
    std::cout << "text\t" << base::utf8FromWide(text) << "\n";
  }
  showSlide(storedSlide(store.Slides(), name.wide()));
  if (reading.ok()) return kDone;
  return report(
      base::Status::failure(utf8(name) + ": " + base::utf8FromWide(base::trim(reading.message))));
}

int verifyLibrary(bool repair) {
  if (repair) checkLibrary(true);
  const std::vector<Finding> findings = checkLibrary(false);
  for (const Finding& finding : findings) std::cout << textOf(finding) << "\n";
  if (findings.empty()) return kDone;
  return report(base::Status::failure(std::to_string(findings.size()) +
                                      (findings.size() == 1 ? " problem" : " problems")));
}

// All slides of any slide library, numbered in their order.
base::Result<std::vector<SheetSlide>> slidesOf(const std::string& file) {
  auto bytes = base::readFile(base::pathFromUtf8(file));
  if (!bytes.ok()) return bytes.status();
  slide_store::SlideLibrary library;
  const base::Status read = library.parse(std::move(*bytes));
  if (!read.ok()) return base::Status::failure(file + ": " + read.message());
  std::vector<SheetSlide> slides;
  for (const std::string& name : library.names()) {
    slides.push_back({base::formatInt(static_cast<int>(slides.size()) + 1, 2),
                      base::utf8FromWide(wideFromAnsi(name)), std::string(*library.find(name))});
  }
  return slides;
}

// Cells of the first slide's proportion.
base::Status saveSheetOf(const std::string& file, const std::string& path, SheetOptions options) {
  const auto slides = slidesOf(file);
  if (!slides.ok()) return slides.status();
  const auto header = slides->empty() ? base::Status::failure("no slide")
                                      : slide_store::readSlideHeader(slides->front().bytes);
  if (header.ok()) options.proportion = std::clamp(header->aspect, 0.1, 10.0);
  return saveSheet(*slides, path, options);
}

int makeSheet(const std::string& path, const std::string* file, const SheetOptions& options) {
  if (file) return report(saveSheetOf(*file, path, options));
  CZhlkLibStore store;
  std::vector<SheetSlide> slides;
  for (int slot = 0; slot < store.GetCount(); ++slot) {
    CString name;
    if (!store.GetNameAt(slot, name) || name.IsEmpty()) continue;
    slides.push_back({utf8(CZhlkLibStore::NumberText(slot)), utf8(name),
                      storedSlide(store.Slides(), name.wide())});
  }
  return report(saveSheet(slides, path, options));
}

// What is wrong with setting the model; empty when it is done in `row`.
std::string putModel(std::wstring& row, const std::string& cell, const std::wstring& model) {
  const std::string problem = problemOfModel(model);
  if (!problem.empty()) return "the model " + problem;
  const auto block = blockAt(row, cell);
  if (!block) return "no block stands at " + cell;
  const std::wstring symbol = tokensOf(row).blocks[*block * kBlockFields].value();
  if (!model.empty() && (symbol == kEmptyCell || symbol == L"ZHL1000")) {
    return cell + " is empty and takes no model";
  }
  row = *withModel(row, *block, model);
  return {};
}

int setModel(const Words& words) {
  CZhlkLibStore store;
  CString name;
  CString row;
  const base::Status found = findCircuit(store, words[1], name, row);
  if (!found.ok()) return report(found);
  std::wstring changed = row.wide();
  const std::string problem = putModel(changed, words[2], base::wideFromUtf8(words[3]));
  if (!problem.empty()) return report(base::Status::failure(utf8(name) + ": " + problem));
  for (int slot = 0; slot < store.GetCount(); ++slot) {
    CString other;
    if (!store.GetNameAt(slot, other) || !(other == name)) continue;
    if (!store.SetRowAt(slot, changed)) {
      return report(base::Status::failure(utf8(name) + ": the row can't be stored"));
    }
  }
  store.Save();
  return kDone;
}

// Fills `sheet`; the result is what is wrong, or empty.
std::string readSheetOptions(const Options& options, SheetOptions& sheet) {
  if (const auto* columns = options.value("columns")) {
    sheet.columns = base::atoi(*columns);
    if (sheet.columns < 1 || sheet.columns > 40) return "--columns takes 1 to 40";
  }
  if (const auto* width = options.value("width")) {
    sheet.pixels = base::atoi(*width);
    if (sheet.pixels < 100 || sheet.pixels > 20000) return "--width takes 100 to 20000 pixels";
  }
  if (const auto* background = options.value("background")) {
    if (*background != "white" && *background != "black") return "--background is white or black";
    if (*background == "black") sheet.background = drafting::Background::Black;
  }
  return {};
}

// How many words an action takes, itself among them; 0 for none of that name.
std::size_t wordsOf(const std::string& action) {
  if (action == "list" || action == "verify" || action == "groups") return 1;
  if (action == "show" || action == "sheet" || action == "export" || action == "import") return 2;
  return action == "model" ? 4 : 0;
}

int run(const Words& words, const Options& options, const SheetOptions& sheet) {
  const std::string& action = words[0];
  if (action == "list") return listCircuits();
  if (action == "show") return showCircuit(words[1]);
  if (action == "verify") return verifyLibrary(options.flag("repair"));
  if (action == "sheet") return makeSheet(words[1], options.value("slides"), sheet);
  if (action == "export") return report(exportLibrary(base::pathFromUtf8(words[1])));
  if (action == "import") return report(importLibrary(base::pathFromUtf8(words[1]), note));
  if (action == "groups") return auxiliaryGroups(options.value("mend"));
  return setModel(words);
}

}  // namespace

int libraryCommand(const Words& words) {
  const Options options(words, "install columns width background slides mend", "repair help");
  if (options.flag("help")) return std::cout << kUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kUsage);
  const Words& plain = options.plain();
  if (plain.empty() || wordsOf(plain[0]) == 0) return usageError("what to do?", kUsage);
  if (plain.size() != wordsOf(plain[0])) {
    return usageError(
        "'" + plain[0] + "' takes " + std::to_string(wordsOf(plain[0]) - 1) + " arguments", kUsage);
  }
  const auto* install = options.value("install");
  if (!install) return usageError("--install is needed", kUsage);
  SheetOptions sheet;
  const std::string problem = readSheetOptions(options, sheet);
  if (!problem.empty()) return usageError(problem, kUsage);
  const base::Status entered = enterInstall(*install);
  if (!entered.ok()) return report(entered);
  drafting::Session session;  // captures print on its command line
  return run(plain, options, sheet);
}

}  // namespace vornik
