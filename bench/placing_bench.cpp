// A chain of 10,000 circuits through yczhlhz: whether the last thousand cost what the first did, in
// time and in memory, and what placing costs beside the bare file operations of the symbol search:
// for each block the folder test with its temporary file, the directory file, the index file.
// Circuits and bare operations take turns.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "embedded/base/paths.h"
#include "process_time.h"
#include "programs/vornik/headless.h"
#include "samples/generator/definitions.h"
#include "samples/generator/install.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

constexpr int kCircuits = 10000;
constexpr int kBatch = 1000;
constexpr double kMostGrowth = 1.2;     // last thousand to first
constexpr double kMostOverFiles = 3.0;  // placing to bare file operations

// What the search of one symbol does on the disk, and nothing else.
class BareSearch {
 public:
  explicit BareSearch(const fs::path& library)
      : temporary_((library / "bare.").string()),
        directory_((library / "dwgdir.dab").string()),
        index_((library / "Dqbl0012" / "Dqbl0012.idx").string()) {}

  void run(const std::string& name) {
    const std::string temporary = temporary_ + std::to_string(++count_);  // a new name each time
    std::fclose(std::fopen(temporary.c_str(), "w+b"));
    std::remove(temporary.c_str());
    benchmark::DoNotOptimize(access(directory_.c_str(), F_OK));
    std::array<char, 12> record{};
    std::FILE* file = std::fopen(directory_.c_str(), "r+b");
    while (std::fread(record.data(), record.size(), 1, file) == 1 &&
           name.compare(0, 8, record.data(), std::min<std::size_t>(name.size(), 8)) != 0) {
    }
    std::fclose(file);
    std::array<char, 4096> bytes{};
    file = std::fopen(index_.c_str(), "rb");
    while (std::fread(bytes.data(), 1, bytes.size(), file) == bytes.size()) {
    }
    std::fclose(file);
  }

 private:
  std::string temporary_, directory_, index_;
  int count_ = 0;
};

// The blocks that a circuit of the sample library places, by slot.
std::vector<std::vector<std::string>> blocksBySlot() {
  std::vector<std::vector<std::string>> slots;
  for (const samples::CircuitDefinition& circuit : samples::circuits()) {
    if (circuit.number == "00") continue;
    const std::string row = samples::dataRow(circuit);
    std::vector<std::string>& names = slots.emplace_back();
    for (const samples::SymbolDefinition& symbol : samples::symbols()) {
      const std::string quoted = "\"" + symbol.name + "\"";
      for (std::size_t at = 0; (at = row.find(quoted, at)) != std::string::npos; ++at)
        names.push_back(symbol.name);
    }
  }
  return slots;
}

struct Batch {
  double placing = 0, files = 0;  // seconds
  double memory = 0;              // bytes that came into use
};

class Chain {
 public:
  Chain() : library_(install_.path() / "Dwglib"), files_(library_), blocks_(blocksBySlot()) {}

  base::Status prepare() {
    const base::Status made = samples::makeInstall(install_.path(), [](std::string_view) {});
    return made ? vornik::enterInstall(base::utf8FromPath(install_.path())) : made;
  }

  std::vector<Batch> run() {
    vornik::Headless headless(nullptr);
    drafting::Session& session = headless.session();
    session.line.wait = [&] { return next(session); };
    session.line.type("(yczhlhz)\n0,0\n");
    session.line.run();
    return batches_;
  }

 private:
  // Types the next keyword. Behind each circuit its bare file operations run, so that what disturbs
  // the one disturbs the other.
  bool next(drafting::Session& session) {
    if (placed_ == kCircuits && finished_) return false;
    if (placed_ > 0) {
      batches_.back().placing += processSeconds() - started_;
      const double before = processSeconds();
      for (const std::string& name : blocks_[slotOf(placed_ - 1)]) files_.run(name);
      batches_.back().files += processSeconds() - before;
    }
    if (placed_ % kBatch == 0) endBatch();
    finished_ = placed_ == kCircuits;
    if (finished_) return false;
    session.line.type("(zhlselect " + std::to_string(slotOf(placed_++)) + ")\nS\n");
    started_ = processSeconds();
    return true;
  }

  std::size_t slotOf(int circuit) const {
    return static_cast<std::size_t>(circuit) % blocks_.size();
  }

  void endBatch() {
    if (placed_ > 0) {
      Batch& batch = batches_.back();
      batch.memory = memoryInUse() - memory_;
      std::fprintf(stderr, "%5d circuits: %.0f us and %.0f bytes each, bare files %.0f us\n",
                   placed_, batch.placing / kBatch * 1e6, batch.memory / kBatch,
                   batch.files / kBatch * 1e6);
    }
    if (placed_ < kCircuits) batches_.emplace_back();
    memory_ = memoryInUse();
  }

  static double memoryInUse() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
  }

  test::TempFolder install_;
  fs::path library_;
  BareSearch files_;
  std::vector<std::vector<std::string>> blocks_;
  std::vector<Batch> batches_;
  int placed_ = 0;
  bool finished_ = false;
  double started_ = 0, memory_ = 0;
};

void chainOfCircuits(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    Chain chain;
    const base::Status ready = chain.prepare();
    if (!ready) return state.SkipWithError(ready.message().c_str());
    const std::vector<Batch> batches = chain.run();
    if (batches.size() != kCircuits / kBatch) return state.SkipWithError("the chain is cut short");
    double placing = 0, files = 0;
    for (const Batch& batch : batches) {
      placing += batch.placing;
      files += batch.files;
    }
    const double timeGrowth = batches.back().placing / batches.front().placing;
    const double memoryGrowth = batches.back().memory / batches.front().memory;
    state.counters["first_us"] = batches.front().placing / kBatch * 1e6;
    state.counters["last_us"] = batches.back().placing / kBatch * 1e6;
    state.counters["first_bytes"] = batches.front().memory / kBatch;
    state.counters["last_bytes"] = batches.back().memory / kBatch;
    state.counters["time_growth"] = timeGrowth;
    state.counters["memory_growth"] = memoryGrowth;
    state.counters["over_files"] = placing / files;
    if (timeGrowth > kMostGrowth) state.SkipWithError("time per circuit grows");
    if (memoryGrowth > kMostGrowth) state.SkipWithError("memory per circuit grows");
    if (placing / files > kMostOverFiles) state.SkipWithError("placing costs more than its files");
  }
}
BENCHMARK(chainOfCircuits)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

BENCHMARK_MAIN();
