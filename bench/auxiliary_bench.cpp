// Filling the auxiliary library's bar from a store of 20 groups with 100 symbols each, without
// windows: store and slide libraries are read, names looked up, folders and items made. Ends with
// an error when the bound is passed; window_bench does the same with icons.
#include <benchmark/benchmark.h>

#include <chrono>

#include "auxiliary/auxiliary_library.h"
#include "controls/windowless_bar.h"
#include "large_auxiliary.h"
#include "support/install.h"

namespace {

void fillingTheBar(benchmark::State& state) {
  const test::Install install;
  const base::Status made = makeLargeAuxiliary(install.library());
  if (!made) return state.SkipWithError(made.message().c_str());
  const auto start = std::chrono::steady_clock::now();
  for (auto _ : state) {
    WindowlessBar bar;
    AuxiliaryLibrary library(bar);
    library.LoadStore();
    if (bar.folderCount() != kLargeGroups || bar.iconCount(0) != kLargeItems) {
      return state.SkipWithError("the bar isn't full");
    }
  }
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  if (taken.count() > static_cast<double>(state.iterations())) {
    return state.SkipWithError("more than a second");
  }
  state.SetItemsProcessed(state.iterations() * kLargeGroups * kLargeItems);
}
BENCHMARK(fillingTheBar)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
