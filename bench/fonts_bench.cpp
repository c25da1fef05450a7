// Shape fonts: making the built-in ones, reading a file, laying out texts. The counters are rates
// of characters, strokes' points and bytes.
#include <benchmark/benchmark.h>

#include "embedded/drafting/display/text_layout.h"
#include "embedded/drafting/fonts/built_in_font.h"

namespace {

using benchmark::Counter;
using drafting::ShapeFont;

// What the first text of a process costs; once, since the fonts are kept.
void makeBuiltInFonts(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(drafting::builtInLatin().get());
    benchmark::DoNotOptimize(drafting::builtInBigFont().get());
  }
}
BENCHMARK(makeBuiltInFonts)->Iterations(1)->Unit(benchmark::kMillisecond);

constexpr int kRepeats = 50;

// A text of a switchgear drawing, again and again.
std::string repeated(std::string_view text) {
  std::string out;
  for (int i = 0; i < kRepeats; ++i) out += text;
  return out;
}

void layOut(benchmark::State& state, std::string_view text, double characters) {
  const std::string line = repeated(text);
  drafting::layOutLine(line);  // makes the fonts
  double points = 0;
  for (auto _ : state) {
    const auto laidOut = drafting::layOutLine(line);
    benchmark::DoNotOptimize(laidOut.advance);
    points = 0;
    for (const auto& stroke : laidOut.strokes) points += static_cast<double>(stroke.size());
  }
  state.counters["characters/s"] =
      Counter(characters * kRepeats, Counter::kIsIterationInvariantRate);
  state.counters["points/s"] = Counter(points, Counter::kIsIterationInvariantRate);
}

void layOutLatin(benchmark::State& state) { layOut(state, "QF1 CVS630N 630A 50kA, Dyn11 ", 29); }
void layOutChinese(benchmark::State& state) { layOut(state, "变压器进线柜电动机照明备用母联", 15); }
BENCHMARK(layOutLatin);
BENCHMARK(layOutChinese);

void readFont(benchmark::State& state, const std::string& file) {
  for (auto _ : state) {
    const auto font = ShapeFont::read(file, "bench");
    if (!font.ok()) return state.SkipWithError("can't be read");
    benchmark::DoNotOptimize(font->get());
  }
  state.counters["bytes/s"] =
      Counter(static_cast<double>(file.size()), Counter::kIsIterationInvariantRate);
}

void readLatin(benchmark::State& state) { readFont(state, drafting::builtInLatinFile()); }
void readChinese(benchmark::State& state) { readFont(state, drafting::builtInBigFontFile()); }
BENCHMARK(readLatin);
BENCHMARK(readChinese);

}  // namespace

BENCHMARK_MAIN();
