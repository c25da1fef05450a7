// Slides of circuits: captured one by one and as a library, and a page of them decoded and drawn
// into a bitmap. A bound that is passed is an error.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

#include "embedded/base/colour_table.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/slide_store/pixel_canvas.h"
#include "embedded/slide_store/slide.h"
#include "embedded/slide_store/slide_painter.h"
#include "process_time.h"
#include "programs/vornik/captured_slide.h"
#include "programs/vornik/headless.h"
#include "samples/generator/definitions.h"
#include "samples/generator/install.h"
#include "support/temp_folder.h"

namespace {

constexpr double kMostCircuit = 0.020, kMostLibrary = 1.0, kMostPage = 0.004;  // seconds
constexpr int kPageColumns = 8, kPageLines = 6;
constexpr int kPageWidth = 1440, kPageHeight = 1080;  // pixels

// The sample install in use, and a session.
class Library {
 public:
  static Library& get() {
    static Library library;
    return library;
  }
  std::vector<std::string> slides() const {
    CZhlkLibStore store;
    std::vector<std::string> out;
    for (int slot = 0; slot < store.GetCount(); ++slot) {
      CString name;
      store.GetNameAt(slot, name);
      out.push_back(vornik::storedSlide(store.Slides(), name.wide()));
    }
    return out;
  }
  const base::Status& status() const { return status_; }

 private:
  Library() : status_(samples::makeInstall(install_.path(), [](std::string_view) {})) {
    if (status_.ok()) status_ = vornik::enterInstall(base::utf8FromPath(install_.path()));
    if (!status_.ok()) return;
    session_ = std::make_unique<drafting::Session>();
    status_ = vornik::captureLibrary([](std::string_view text) {
      std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
    });
  }

  test::TempFolder install_;
  base::Status status_;
  std::unique_ptr<drafting::Session> session_;
};

struct Counter : slide_store::SlideVisitor {
  void line(slide_store::SlidePoint, slide_store::SlidePoint, std::uint8_t) override { ++count; }
  void fill(std::span<const slide_store::SlidePoint>, std::uint8_t) override { ++count; }
  double count = 0;
};

double vectorsOf(const std::string& slide) {
  Counter counter;
  const auto header = slide_store::readSlideHeader(slide);
  if (header.ok()) static_cast<void>(readSlideRecords(slide, *header, counter));
  return counter.count;
}

// Ends with an error where one round takes longer than it may.
void rate(benchmark::State& state, double seconds, double most, double bytes, double vectors) {
  const double each = seconds / static_cast<double>(state.iterations());
  state.counters["ms"] = each * 1e3;
  state.counters["bytes/s"] = bytes / each;
  state.counters["vectors/s"] = vectors / each;
  if (each > most) state.SkipWithError("takes longer than it may");
}

void captureCircuit(benchmark::State& state) {
  if (!Library::get().status().ok()) return state.SkipWithError("no library");
  const std::wstring row = base::wideFromUtf8(dataRow(samples::circuits()[0]));  // 40 blocks
  std::string slide;
  const double start = processSeconds();
  for ([[maybe_unused]] auto _ : state) slide = *vornik::captureSlide(row, L"主回路&01");
  rate(state, processSeconds() - start, kMostCircuit, static_cast<double>(slide.size()),
       vectorsOf(slide));
}
BENCHMARK(captureCircuit)->Unit(benchmark::kMillisecond);

void captureLibrary(benchmark::State& state) {
  if (!Library::get().status().ok()) return state.SkipWithError("no library");
  const double start = processSeconds();
  for ([[maybe_unused]] auto _ : state) {
    if (!vornik::captureLibrary([](std::string_view) {}).ok()) state.SkipWithError("not captured");
  }
  const double seconds = processSeconds() - start;
  double bytes = 0, vectors = 0;
  for (const std::string& slide : Library::get().slides()) {
    bytes += static_cast<double>(slide.size());
    vectors += vectorsOf(slide);
  }
  rate(state, seconds, kMostLibrary, bytes, vectors);
}
BENCHMARK(captureLibrary)->Unit(benchmark::kMillisecond);

// A black page of the library, its cells as in the window's grid.
void drawPage(benchmark::State& state) {
  if (!Library::get().status().ok()) return state.SkipWithError("no library");
  const std::vector<std::string> slides = Library::get().slides();
  slide_store::Pixels page(kPageWidth, kPageHeight, {});
  constexpr int kWidth = kPageWidth / kPageColumns;
  constexpr int kHeight = kPageHeight / kPageLines;
  const double start = processSeconds();
  for ([[maybe_unused]] auto _ : state) {
    std::fill(page.data.begin(), page.data.end(), 0);
    for (int i = 0; i < kPageColumns * kPageLines; ++i) {
      const auto canvas = slide_store::makePixelCanvas(page, i % kPageColumns * kWidth,
                                                       i / kPageColumns * kHeight, kWidth, kHeight);
      static_cast<void>(slide_store::paintSlide(slides[static_cast<std::size_t>(i) % slides.size()],
                                                {{0, 0}, {kWidth - 1.0, kHeight - 1.0}},
                                                {base::screenColour, 1}, *canvas));
    }
    benchmark::DoNotOptimize(page.data.data());
    benchmark::ClobberMemory();
  }
  const double seconds = processSeconds() - start;
  double bytes = 0, vectors = 0;
  for (std::size_t i = 0; i < kPageColumns * kPageLines; ++i) {
    bytes += static_cast<double>(slides[i % slides.size()].size());
    vectors += vectorsOf(slides[i % slides.size()]);
  }
  rate(state, seconds, kMostPage, bytes, vectors);
}
BENCHMARK(drawPage)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
