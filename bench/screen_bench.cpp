// A drawing of 5,000 circuits, as the module places them in a chain: reading its DXF file, and
// looking at it through a window of 1,440 by 900 pixels at every zoom, from all of it to a few
// symbols. Ends with an error when a bound is passed.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "embedded/base/paths.h"
#include "embedded/drafting/display/screen_bitmap.h"
#include "embedded/drafting/display/screen_picture.h"
#include "embedded/drafting/dxf/dxf_reader.h"
#include "embedded/drafting/dxf/dxf_writer.h"
#include "programs/vornik/headless.h"
#include "samples/generator/definitions.h"
#include "samples/generator/install.h"
#include "support/temp_folder.h"

namespace {

using namespace drafting;

constexpr int kCircuits = 5000, kWidth = 1440, kHeight = 900;
constexpr double kMostSecondsToRead = 1, kMostSecondsToRedraw = 0.03;

class Circuits {
 public:
  base::Status prepare() {
    const auto quiet = [](std::string_view) {};
    base::Status status = samples::makeInstall(folder_.path(), quiet);
    if (status) status = vornik::enterInstall(base::utf8FromPath(folder_.path()));
    if (status) place();
    return status ? saveDxf(*database_, file()) : status;
  }
  std::filesystem::path file() const { return folder_.path() / "circuits.dxf"; }
  const Database& database() const { return *database_; }

 private:
  void place() {
    const std::size_t slots = samples::circuits().size() - 1;
    std::string script = "(zhlmsgmk 1)\n(yczhlhz)\n0,0\n";
    for (std::size_t i = 0; i < kCircuits; ++i) {
      script += "(zhlselect " + std::to_string(i % slots) + ")\nS\n";
    }
    vornik::Headless headless(nullptr);
    headless.run(script + "\n\n(zhlmsgmk 0)\n");
    database_ = std::move(headless.session().document().database);
    headless.session().document().database = Database::makeNew();
  }

  test::TempFolder folder_;
  std::unique_ptr<Database> database_;
};

Circuits& circuits() {
  static Circuits made;
  return made;
}

double secondsSince(std::clock_t start) {
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void readDxfFile(benchmark::State& state) {
  double longest = 0;
  for (auto _ : state) {
    const std::clock_t start = std::clock();
    ReadReport report;
    auto read = openDxf(circuits().file(), report);
    longest = std::max(longest, secondsSince(start));
    if (!read.ok()) return state.SkipWithError(read.message().c_str());
    state.counters["entities"] = static_cast<double>((*read)->modelSpace().count);
    state.counters["objects"] = static_cast<double>((*read)->objectCount());
    state.PauseTiming();
    read->reset();
    state.ResumeTiming();
  }
  state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(circuits().file()));
  if (longest > kMostSecondsToRead) state.SkipWithError("reading takes too long");
}
BENCHMARK(readDxfFile)->Unit(benchmark::kMillisecond);

void makePicture(benchmark::State& state) {
  for (auto _ : state) {
    ScreenPicture picture;
    picture.rebuild(circuits().database());
    benchmark::DoNotOptimize(picture.entityCount());
  }
}
BENCHMARK(makePicture)->Unit(benchmark::kMillisecond);

void followOneChange(benchmark::State& state) {
  ScreenPicture picture;
  picture.rebuild(circuits().database());
  const std::vector<Handle> last = {circuits().database().lastEntity()};
  for (auto _ : state) picture.update(circuits().database(), last);
}
BENCHMARK(followOneChange)->Unit(benchmark::kMicrosecond);

// One redraw; the argument is how many times the drawing is wider than the window.
void redraw(benchmark::State& state) {
  static ScreenPicture picture;
  if (picture.entityCount() == 0) picture.rebuild(circuits().database());
  const Box2& all = picture.bounds();
  const double scale = kWidth / all.width() * static_cast<double>(state.range(0));
  const Point2 middle = all.centre();
  ScreenBitmap bitmap(kWidth, kHeight);
  Box2 window;
  window.add(Point2{0, 0});
  window.add(Point2{kWidth, kHeight});
  double longest = 0, pan = 0;
  for (auto _ : state) {
    const std::clock_t start = std::clock();
    pan = pan > 50 ? 0 : pan + 7;  // pixels
    const Affine2 map{scale,
                      0,
                      0,
                      scale,
                      kWidth / 2.0 - middle.x * scale + pan,
                      kHeight / 2.0 - middle.y * scale};
    bitmap.clear({0, 0, 0});
    picture.draw(map, window, {Palette(Background::Black, false), 1 / 0.28, 1}, bitmap);
    longest = std::max(longest, secondsSince(start));
  }
  state.counters["longest_ms"] = longest * 1000;
  if (longest > kMostSecondsToRedraw) state.SkipWithError("redrawing takes too long");
}
BENCHMARK(redraw)->RangeMultiplier(4)->Range(1, 4096)->Unit(benchmark::kMillisecond);

void entitiesInWindow(benchmark::State& state) {
  ScreenPicture picture;
  picture.rebuild(circuits().database());
  const Point2 middle = picture.bounds().centre();
  Box2 box;
  box.add(middle);
  box.add(middle + Point2{200, 200});
  for (auto _ : state) benchmark::DoNotOptimize(picture.entitiesIn(box).size());
}
BENCHMARK(entitiesInWindow)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int count, char** words) {
  if (const base::Status status = circuits().prepare(); !status) {
    std::fprintf(stderr, "screen_bench: %s\n", status.message().c_str());
    return 1;
  }
  benchmark::Initialize(&count, words);
  if (benchmark::ReportUnrecognizedArguments(count, words)) return 2;
  benchmark::RunSpecifiedBenchmarks();
}
