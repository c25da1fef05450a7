// `vornik run` and `vornik place`: the command line fed by a script, and by circuits named on the
// program's command line.
#include <iostream>
#include <memory>

#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/drafting/documents/lost_drawings.h"
#include "programs/vornik/headless.h"
#include "programs/vornik/program.h"

namespace vornik {
namespace {

constexpr std::string_view kRunUsage =
    "usage: vornik run [--install DIR] [--drawing IN] [--output OUT.dwg|OUT.dxf]\n"
    "                  [--transcript FILE] [--lossy] SCRIPT|-\n"
    "       vornik run --recover [--install DIR] [--output OUT] [--transcript FILE] [SCRIPT|-]\n"
    "  Feeds a script (commands, LISP, points, keywords) to the command line. A line feed is "
    "Enter.\n"
    "  --recover goes on with the drawing of the last run that was killed, with all that it had\n"
    "  done but for the command that was running.\n"
    "  What OUT can't hold of the drawing is listed and nothing written, unless --lossy is "
    "given.\n";

constexpr std::string_view kPlaceUsage =
    "usage: vornik place --install DIR --circuits 1,2,5-8 [--at X,Y] [--scale N] --output OUT\n"
    "  Places circuits of the library in a chain, through the placing command itself.\n";

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File openForWriting(const std::string& path) {
#ifdef _WIN32
  return File(_wfopen(base::pathFromUtf8(path).c_str(), L"wb"));
#else
  return File(std::fopen(path.c_str(), "wb"));
#endif
}

struct Run {
  std::string script;
  const std::string* drawing = nullptr;  // null: a new one
  const std::string* output = nullptr;   // null: nothing is saved but what the script saves
  std::FILE* transcript = nullptr;
  std::filesystem::path records = {};  // empty: none is kept
  bool recover = false;
  drafting::Losses losses = drafting::Losses::Refused;
};

void tell(std::string_view text) { std::cerr << "vornik: " << text << "\n"; }

base::Status openRecovered(drafting::Session& session, const std::filesystem::path& records) {
  const auto lost = drafting::findLostDrawings(records);
  if (lost.empty()) {
    return base::Status::failure(base::utf8FromPath(records) + ": there is nothing to recover");
  }
  if (lost.size() > 1) {
    tell(std::to_string(lost.size() - 1) + " more drawings are waiting to be recovered");
  }
  return session.recoverDrawing(lost.front());
}

base::Status openFirst(drafting::Session& session, const Run& run) {
  if (run.recover) return openRecovered(session, run.records);
  if (!run.drawing) return {};
  return session.openDrawing(*run.drawing);
}

// Saves where that is asked, and tells what had to stay behind.
base::Status saveResult(drafting::Session& session, const Run& run) {
  if (!run.output) return {};
  base::Status status = session.saveDrawing(*run.output, run.losses);
  const std::string lost = drafting::drawingLosses(session.database(), *run.output);
  if (status && !lost.empty()) tell(*run.output + " lacks " + lost);
  return status;
}

int runScript(const Run& run) {
  Headless headless(run.transcript);
  drafting::Session& session = headless.session();
  if (const base::Status status = openFirst(session, run); !status) return report(status);
  if (!run.recover && !run.records.empty()) session.recovery.start(run.records);
  headless.run(run.script);
  const base::Status status = saveResult(session, run);
  if (run.recover && session.database().journal().changedSinceSave()) {
    tell("the recovered drawing isn't saved yet; it can be recovered again");
    session.recovery.leave();
  }
  return report(status);
}

// "1,2,5-8" as 1-based numbers; empty if the text is something else.
std::vector<int> parseNumbers(std::string_view text) {
  constexpr int kMost = 100000;
  std::vector<int> numbers;
  while (true) {
    const std::size_t comma = text.find(',');
    const std::string_view part = text.substr(0, comma);
    const std::size_t dash = part.find('-');
    const int first = base::atoi(part);
    const int last = dash == std::string_view::npos ? first : base::atoi(part.substr(dash + 1));
    if (first < 1 || last < first || last > kMost) return {};
    for (int n = first; n <= last; ++n) numbers.push_back(n);
    if (comma == std::string_view::npos) return numbers;
    text.remove_prefix(comma + 1);
  }
}

}  // namespace

int runCommand(const Words& words) {
  const Options options(words, "install drawing output transcript", "recover lossy help");
  if (options.flag("help")) return std::cout << kRunUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kRunUsage);
  const bool recover = options.flag("recover");
  if (recover && options.value("drawing")) {
    return usageError("--recover brings its own drawing", kRunUsage);
  }
  if (options.plain().size() > 1 || (options.plain().empty() && !recover)) {
    return usageError("one script is needed", kRunUsage);
  }
  const auto script = options.plain().empty() ? base::Result<std::string>(std::string())
                                              : readInput(options.plain()[0]);
  if (!script.ok()) return report(script.status());
  if (const auto* install = options.value("install")) {
    const base::Status status = enterInstall(*install);
    if (!status) return report(status);
  }
  File file;
  std::FILE* transcript = stdout;
  if (const auto* path = options.value("transcript")) {
    file = openForWriting(*path);
    if (!file) return report(base::Status::failure(*path + ": can't be written"));
    transcript = file.get();
  }
  return runScript({*script, options.value("drawing"), options.value("output"), transcript,
                    recoveryFolder(options.value("install")), recover, lossesOf(options)});
}

int placeCommand(const Words& words) {
  const Options options(words, "install circuits at scale output", "help");
  if (options.flag("help")) return std::cout << kPlaceUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kPlaceUsage);
  const auto* circuits = options.value("circuits");
  if (!circuits || !options.value("install") || !options.value("output")) {
    return usageError("--install, --circuits and --output are needed", kPlaceUsage);
  }
  const std::vector<int> numbers = parseNumbers(*circuits);
  if (numbers.empty()) return usageError("--circuits takes numbers as in 1,2,5-8", kPlaceUsage);
  const base::Status status = enterInstall(*options.value("install"));
  if (!status) return report(status);
  std::string script;
  if (const auto* scale = options.value("scale")) script += "SETVAR DIMSCALE " + *scale + "\n";
  script +=
      "(zhlmsgmk 1)\n(yczhlhz)\n" + (options.value("at") ? *options.value("at") : "0,0") + "\n";
  for (const int number : numbers) script += "(zhlselect " + std::to_string(number - 1) + ")\nS\n";
  script += "\n\n(zhlmsgmk 0)\n";
  return runScript({.script = script, .output = options.value("output")});
}

}  // namespace vornik
