// A chain of 1,000 circuits as a PDF: time, size of the file and memory of the process. A bound
// that is passed is an error.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <optional>

#include "embedded/base/paths.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/plot/plot.h"
#include "process_time.h"
#include "programs/vornik/headless.h"
#include "samples/generator/install.h"
#include "support/temp_folder.h"

namespace {

constexpr int kCircuits = 1000, kSlots = 25;
constexpr double kMostSeconds = 2, kMostFile = 5e6, kMostMemory = 300e6;

double peakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) * 1024;
}

base::Status placeChain(const test::TempFolder& folder, const std::string& drawing) {
  base::Status status = samples::makeInstall(folder.path(), [](std::string_view) {});
  if (status) status = vornik::enterInstall(base::utf8FromPath(folder.path()));
  if (!status) return status;
  vornik::Headless headless(nullptr);
  std::string script = "(zhlmsgmk 1)\n(yczhlhz)\n0,0\n";
  for (int i = 0; i < kCircuits; ++i) {
    script += "(zhlselect " + std::to_string(i % kSlots) + ")\nS\n";
  }
  headless.run(script + "\n\n");
  return headless.session().saveDrawing(drawing);
}

// What `vornik plot` does: the file is read, and its picture written.
void plotChain(benchmark::State& state) {
  const test::TempFolder folder;
  const std::string drawing = base::utf8FromPath(folder / "chain.dwg");
  const std::filesystem::path plot = folder / "chain.pdf";
  if (!placeChain(folder, drawing).ok()) return state.SkipWithError("nothing was placed");
  const double start = processSeconds();
  for ([[maybe_unused]] auto _ : state) {
    const auto database = drafting::readDrawing(drawing);
    if (!database.ok() ||
        !drafting::plotDrawing(**database, base::utf8FromPath(plot), drafting::PlotOptions{})
             .ok()) {
      return state.SkipWithError("not plotted");
    }
  }
  const double seconds = (processSeconds() - start) / static_cast<double>(state.iterations());
  const auto size = static_cast<double>(std::filesystem::file_size(plot));
  state.counters["s"] = seconds;
  state.counters["MB"] = size / 1e6;
  state.counters["peak MB"] = peakMemory() / 1e6;
  if (seconds > kMostSeconds || size > kMostFile || peakMemory() > kMostMemory) {
    state.SkipWithError("a bound is passed");
  }
}
BENCHMARK(plotChain)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

BENCHMARK_MAIN();
