// Reading and writing of a large drawing. Every benchmark measures one whole operation on a file,
// as a command does it; the counters are rates, and the process's highest memory so far.
//
// For the memory of one operation alone run one benchmark at a time: --benchmark_filter=NAME. The
// files are made by a first run with --benchmark_filter=none (they stay in the temporary folder).
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdio>
#include <filesystem>

#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dxf/dxf_reader.h"
#include "embedded/drafting/dxf/dxf_writer.h"
#include "large_drawing.h"

namespace bench {
namespace {

using drafting::Database;
using drafting::ReadReport;
using Opener = base::Result<std::unique_ptr<Database>> (*)(const std::filesystem::path&,
                                                           ReadReport&);
using Saver = base::Status (*)(const Database&, const std::filesystem::path&);

std::filesystem::path file(const char* extension) {
  return std::filesystem::temp_directory_path() / (std::string("vornik-bench") + extension);
}

// The highest resident memory of this process, in bytes.
double peakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) * 1024;
}

void report(benchmark::State& state, const std::filesystem::path& path) {
  using benchmark::Counter;
  const auto bytes = static_cast<double>(std::filesystem::file_size(path));
  state.counters["entities/s"] = Counter(kEntities, Counter::kIsIterationInvariantRate);
  state.counters["bytes/s"] = Counter(bytes, Counter::kIsIterationInvariantRate);
  state.counters["peak MB"] = peakMemory() / 1e6;
}

void openFile(benchmark::State& state, Opener open, const char* extension) {
  for (auto _ : state) {
    ReadReport messages;
    auto database = open(file(extension), messages);
    if (!database.ok() || !messages.messages.empty()) return state.SkipWithError("can't be read");
    state.PauseTiming();  // closing a drawing isn't part of opening it
    database->reset();
    state.ResumeTiming();
  }
  report(state, file(extension));
}

void saveFile(benchmark::State& state, Saver save, const char* extension) {
  ReadReport messages;
  const auto database = drafting::openDwg(file(".dwg"), messages);
  const auto path = file(extension).replace_extension(std::string("out") + extension);
  for (auto _ : state) {
    if (!save(**database, path).ok()) return state.SkipWithError("can't be saved");
  }
  report(state, path);
  std::filesystem::remove(path);
  std::filesystem::remove(path.string() + ".bak");
}

bool makeFiles() {
  if (std::filesystem::exists(file(".dwg")) && std::filesystem::exists(file(".dxf"))) return true;
  const auto database = makeLargeDrawing();
  return drafting::saveDwg(*database, file(".dwg")).ok() &&
         drafting::saveDxf(*database, file(".dxf")).ok();
}

BENCHMARK_CAPTURE(openFile, dwg, drafting::openDwg, ".dwg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveFile, dwg, drafting::saveDwg, ".dwg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openFile, dxf, drafting::openDxf, ".dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saveFile, dxf, drafting::saveDxf, ".dxf")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench

int main(int count, char** words) {
  if (!bench::makeFiles()) {
    std::fprintf(stderr, "drawing_bench: the files to measure with can't be made\n");
    return 1;
  }
  benchmark::Initialize(&count, words);
  if (benchmark::ReportUnrecognizedArguments(count, words)) return 2;
  benchmark::RunSpecifiedBenchmarks();
}
