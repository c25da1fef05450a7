// The container family beside the standard containers on the same work, and, where the family's
// algorithm is laid down (additive growth, rank sort, exact-fit arrays), beside plain code of that
// same algorithm. Figures are nanoseconds an element or operation; docs/benchmarks.md has the
// ratios.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <list>
#include <memory>
#include <random>
#include <vector>

#include "containers/array.h"
#include "containers/d_list.h"
#include "containers/dyn_array.h"
#include "containers/x_list.h"

namespace {

using benchmark::State;

constexpr int kAppended = 100000;
constexpr int kSorted = 2000;
constexpr int kSearched = 10000;

std::vector<double> shuffled(int count) {
  std::vector<double> numbers(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) numbers[static_cast<std::size_t>(i)] = i;
  std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
  return numbers;
}

template <class Sequence>
void fill(Sequence& sequence, int count) {
  for (const double number : shuffled(count)) sequence.Append(number);
}

void count(State& state, int items) { state.SetItemsProcessed(state.iterations() * items); }

// --- append

void appendFamilyArray(State& state) {
  for (auto _ : state) {
    TqDynArray<double> array;
    for (int i = 0; i < kAppended; ++i) array.Append(i);
    benchmark::DoNotOptimize(array.GetFirst());
  }
  count(state, kAppended);
}
BENCHMARK(appendFamilyArray)->Name("append/TqDynArray");

// Additive growth by ten, written by hand.
void appendSameAlgorithm(State& state) {
  for (auto _ : state) {
    std::unique_ptr<double[]> data;
    int space = 0;
    for (int length = 0; length < kAppended; ++length) {
      if (length + 1 > space) {
        space = length + 1 + 10;
        std::unique_ptr<double[]> grown(new double[static_cast<std::size_t>(space)]);
        if (data) std::memcpy(grown.get(), data.get(), static_cast<std::size_t>(length) * 8);
        data = std::move(grown);
      }
      data[static_cast<std::size_t>(length)] = length;
    }
    benchmark::DoNotOptimize(data.get());
  }
  count(state, kAppended);
}
BENCHMARK(appendSameAlgorithm)->Name("append/same algorithm");

void appendVector(State& state) {
  for (auto _ : state) {
    std::vector<double> array;
    for (int i = 0; i < kAppended; ++i) array.push_back(i);
    benchmark::DoNotOptimize(array.data());
  }
  count(state, kAppended);
}
BENCHMARK(appendVector)->Name("append/std::vector");

template <class List>
void appendFamilyList(State& state) {
  for (auto _ : state) {
    List list;
    for (int i = 0; i < kAppended; ++i) list.Append(i);
    benchmark::DoNotOptimize(list.GetFirst());
  }
  count(state, kAppended);
}
BENCHMARK(appendFamilyList<TqList<double>>)->Name("append/TqList");
BENCHMARK(appendFamilyList<TqDList<double>>)->Name("append/TqDList");

void appendStdList(State& state) {
  for (auto _ : state) {
    std::list<double> list;
    for (int i = 0; i < kAppended; ++i) list.push_back(i);
    benchmark::DoNotOptimize(&list.front());
  }
  count(state, kAppended);
}
BENCHMARK(appendStdList)->Name("append/std::list");

// --- forward walk

template <class Sequence>
void walkFamily(State& state) {
  Sequence sequence;
  fill(sequence, kAppended);
  for (auto _ : state) {
    double sum = 0;
    for (const double* p = sequence.GetFirst(); p != nullptr; p = sequence.GetNext(p)) sum += *p;
    benchmark::DoNotOptimize(sum);
  }
  count(state, kAppended);
}
BENCHMARK(walkFamily<TqDynArray<double>>)->Name("walk/TqDynArray");
BENCHMARK(walkFamily<TqList<double>>)->Name("walk/TqList");

template <class Container>
void walkStandard(State& state) {
  const std::vector<double> numbers = shuffled(kAppended);
  const Container container(numbers.begin(), numbers.end());
  for (auto _ : state) {
    double sum = 0;
    for (const double number : container) sum += number;
    benchmark::DoNotOptimize(sum);
  }
  count(state, kAppended);
}
BENCHMARK(walkStandard<std::vector<double>>)->Name("walk/std::vector");
BENCHMARK(walkStandard<std::list<double>>)->Name("walk/std::list");

// --- indexed read

void indexFamily(State& state) {
  TqDynArray<double> filled;
  fill(filled, kAppended);
  const TqDynArray<double>& array = filled;
  for (auto _ : state) {
    double sum = 0;
    for (TqLong i = 0; i < kAppended; ++i) sum += array[i];
    benchmark::DoNotOptimize(sum);
  }
  count(state, kAppended);
}
BENCHMARK(indexFamily)->Name("index/TqDynArray");

void indexVector(State& state) {
  const std::vector<double> array = shuffled(kAppended);
  for (auto _ : state) {
    double sum = 0;
    for (std::size_t i = 0; i < array.size(); ++i) sum += array[i];
    benchmark::DoNotOptimize(sum);
  }
  count(state, kAppended);
}
BENCHMARK(indexVector)->Name("index/std::vector");

// --- sort

template <class Sequence>
void sortFamily(State& state) {
  const std::vector<double> numbers = shuffled(kSorted);
  Sequence sequence;
  for (auto _ : state) {
    state.PauseTiming();
    sequence.Reset();
    for (const double number : numbers) sequence.Append(number);
    state.ResumeTiming();
    sequence.Sort(true);
  }
  count(state, kSorted);
}
BENCHMARK(sortFamily<TqDynArray<double>>)->Name("sort/TqDynArray");
BENCHMARK(sortFamily<TqDList<double>>)->Name("sort/TqDList");

// The rank sort, written by hand.
void sortSameAlgorithm(State& state) {
  const std::vector<double> numbers = shuffled(kSorted);
  std::vector<double> data;
  std::vector<double> sorted(numbers.size());
  for (auto _ : state) {
    state.PauseTiming();
    data = numbers;
    state.ResumeTiming();
    std::vector<int> rank(data.size());
    for (std::size_t i = 0; i < data.size(); ++i) {
      int later = static_cast<int>(i);
      for (std::size_t j = i + 1; j < data.size(); ++j) {
        const int passes = data[i] > data[j] ? 1 : 0;
        later += passes;
        rank[j] -= passes;
      }
      rank[i] += later;
    }
    for (std::size_t i = 0; i < data.size(); ++i)
      sorted[static_cast<std::size_t>(rank[i])] = data[i];
    benchmark::DoNotOptimize(sorted.data());
  }
  count(state, kSorted);
}
BENCHMARK(sortSameAlgorithm)->Name("sort/same algorithm");

void sortStandard(State& state) {
  const std::vector<double> numbers = shuffled(kSorted);
  std::vector<double> data;
  for (auto _ : state) {
    state.PauseTiming();
    data = numbers;
    state.ResumeTiming();
    std::stable_sort(data.begin(), data.end());
  }
  count(state, kSorted);
}
BENCHMARK(sortStandard)->Name("sort/std::stable_sort");

// --- find

template <class Sequence>
void findFamily(State& state) {
  Sequence sequence;
  fill(sequence, kSearched);
  for (auto _ : state) benchmark::DoNotOptimize(sequence.Find(-1.0));
  count(state, kSearched);
}
BENCHMARK(findFamily<TqDynArray<double>>)->Name("find/TqDynArray");
BENCHMARK(findFamily<TqArray<double>>)->Name("find/TqArray");
BENCHMARK(findFamily<TqList<double>>)->Name("find/TqList");

template <class Container>
void findStandard(State& state) {
  const std::vector<double> numbers = shuffled(kSearched);
  const Container container(numbers.begin(), numbers.end());
  for (auto _ : state)
    benchmark::DoNotOptimize(std::find(container.begin(), container.end(), -1.0));
  count(state, kSearched);
}
BENCHMARK(findStandard<std::vector<double>>)->Name("find/std::vector");
BENCHMARK(findStandard<std::list<double>>)->Name("find/std::list");

// --- insert and delete in the middle

void insertFamily(State& state) {
  TqDynArray<double> array;
  fill(array, kSearched);
  for (auto _ : state) {
    array.Insert(kSearched / 2, 1.0);
    array.Del(kSearched / 2);
  }
  count(state, 2);
}
BENCHMARK(insertFamily)->Name("insert and delete/TqDynArray");

void insertVector(State& state) {
  std::vector<double> array = shuffled(kSearched);
  for (auto _ : state) {
    array.insert(array.begin() + kSearched / 2, 1.0);
    array.erase(array.begin() + kSearched / 2);
  }
  count(state, 2);
}
BENCHMARK(insertVector)->Name("insert and delete/std::vector");

void insertFamilyExact(State& state) {
  TqArray<double> array;
  for (const double number : shuffled(kSearched)) array.Append(number);
  for (auto _ : state) {
    array.Insert(kSearched / 2, 1.0);
    array.Del(kSearched / 2);
  }
  count(state, 2);
}
BENCHMARK(insertFamilyExact)->Name("insert and delete/TqArray");

// A new array of exactly the right length each time, written by hand.
void insertSameAlgorithm(State& state) {
  constexpr std::size_t half = kSearched / 2;
  const std::vector<double> numbers = shuffled(kSearched);
  auto data = std::make_unique<double[]>(numbers.size());
  std::copy(numbers.begin(), numbers.end(), data.get());
  for (auto _ : state) {
    std::unique_ptr<double[]> longer(new double[kSearched + 1]);
    std::memcpy(longer.get(), data.get(), half * 8);
    longer[half] = 1;
    std::memcpy(longer.get() + half + 1, data.get() + half, half * 8);
    data = std::move(longer);
    std::unique_ptr<double[]> shorter(new double[kSearched]);
    std::memcpy(shorter.get(), data.get(), half * 8);
    std::memcpy(shorter.get() + half, data.get() + half + 1, half * 8);
    data = std::move(shorter);
    benchmark::DoNotOptimize(data.get());
  }
  count(state, 2);
}
BENCHMARK(insertSameAlgorithm)->Name("insert and delete/same algorithm as TqArray");

// --- list splice: a half goes over to another list and comes back

template <class List>
void spliceFamily(State& state) {
  List list;
  fill(list, kSearched);
  List other;
  for (auto _ : state) {
    list.SplitAt(kSearched - 2, other);
    list.Conbine(other, 0);
  }
  count(state, 2);
}
BENCHMARK(spliceFamily<TqDList<double>>)->Name("splice/TqDList");

void spliceStandard(State& state) {
  const std::vector<double> numbers = shuffled(kSearched);
  std::list<double> list(numbers.begin(), numbers.end());
  std::list<double> other;
  for (auto _ : state) {
    other.splice(other.end(), list, std::prev(list.end(), 2), list.end());
    list.splice(list.end(), other);
  }
  count(state, 2);
}
BENCHMARK(spliceStandard)->Name("splice/std::list");

// --- jumps to random places

template <class List>
void jumpFamily(State& state) {
  List list;
  fill(list, kSearched);
  std::mt19937 random(1);
  for (auto _ : state) {
    list.MoveTo(static_cast<TqLong>(random() % kSearched));
    benchmark::DoNotOptimize(list.GetCurData());
  }
  count(state, 1);
}
BENCHMARK(jumpFamily<TqXList<double>>)->Name("jump/TqXList");
BENCHMARK(jumpFamily<TqDList<double>>)->Name("jump/TqDList");

void jumpStandard(State& state) {
  const std::vector<double> numbers = shuffled(kSearched);
  const std::list<double> list(numbers.begin(), numbers.end());
  std::mt19937 random(1);
  for (auto _ : state) {
    const auto target = static_cast<std::ptrdiff_t>(random() % kSearched);
    benchmark::DoNotOptimize(*(target < kSearched / 2 ? std::next(list.begin(), target)
                                                      : std::prev(list.end(), kSearched - target)));
  }
  count(state, 1);
}
BENCHMARK(jumpStandard)->Name("jump/std::list from the nearer end");

}  // namespace

int main(int argc, char** argv) {
  // The allocator learns from the first large block that is freed to keep such blocks; whoever came
  // first would pay for that.
  {
    const std::vector<char> large(16 << 20);
    benchmark::DoNotOptimize(large.data());
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
