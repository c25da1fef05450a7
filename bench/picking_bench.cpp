// Picking and window selection in a large drawing, and the index that they go by. Ends with an
// error when a question costs more than its bound.
#include <benchmark/benchmark.h>

#include <chrono>

#include "embedded/drafting/picking/picker.h"
#include "embedded/drafting/picking/snaps.h"
#include "large_drawing.h"

namespace {

using namespace drafting;

constexpr double kBound = 0.005;  // seconds for one question

struct Scene {
  std::unique_ptr<Database> database = bench::makeLargeDrawing();
  EntityIndex index{*database};
  Scene() { index.extents(); }
};

Scene& scene() {
  static Scene one;
  return one;
}

// Where the n-th question is asked: all over the drawing.
Point2 place(int n) { return {n * 37 % 490 * 12.125 + 5.3, n * 53 % 190 * 8.75 + 2.9}; }

template <class F>
void measure(benchmark::State& state, F question) {
  Scene& one = scene();
  int n = 0;
  double total = 0;
  for (auto step : state) {
    const auto begin = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(question(one, place(n++)));
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    total += took.count();
  }
  const double mean = total / static_cast<double>(state.iterations());
  if (mean > kBound) state.SkipWithError("slower than 5 ms");
}

void pick(benchmark::State& state) {
  measure(state, [](Scene& s, Point2 at) { return entityAt(*s.database, s.index, at, 1); });
}
void window(benchmark::State& state) {
  measure(state, [](Scene& s, Point2 at) {
    return entitiesInside(*s.database, s.index, Region::box(at, at + Point2{1000, 300})).size();
  });
}
void crossing(benchmark::State& state) {
  measure(state, [](Scene& s, Point2 at) {
    return entitiesCrossing(*s.database, s.index, Region::box(at, at + Point2{1000, 300})).size();
  });
}
void snap(benchmark::State& state) {
  measure(state, [](Scene& s, Point2 at) {
    return snapPoint(*s.database, s.index, {kSnapEnd | kSnapIntersection, at, 3, {}});
  });
}
void pickAfterChange(benchmark::State& state) {
  measure(state, [](Scene& s, Point2 at) {
    s.database->willChange(*s.database->modelSpace().last);
    return entityAt(*s.database, s.index, at, 1);
  });
}
void build(benchmark::State& state) {
  for (auto step : state) {
    EntityIndex index(*scene().database);
    benchmark::DoNotOptimize(index.extents());
  }
}

BENCHMARK(pick);
BENCHMARK(window);
BENCHMARK(crossing);
BENCHMARK(snap);
BENCHMARK(pickAfterChange);
BENCHMARK(build)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
