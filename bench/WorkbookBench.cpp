// The cost of building, calculating and editing the workbook of a large estimate.
//
// Each edit alternates between two values, so that every run has work to do. The argument is the number of
// rows of each table that the user fills, all of them in use.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <iostream>
#include <memory>

#include "bench/BenchBook.h"
#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXETableOperations.h"

namespace {

/// Counts the formulas that a calculation runs.
class EvaluationCount : public KVXECalculationObserver {
 public:
  EvaluationCount() { KVXECalculationMgr::getGlobal().setObserver(this); }
  ~EvaluationCount() override { KVXECalculationMgr::getGlobal().setObserver(nullptr); }
  void onBeginEvaluation(KVXECell*) override { ++evaluated; }
  double evaluated = 0;
};

/// The book that the benchmarks work on; it lives from one to the next of the same size.
struct Shared {
  std::unique_ptr<BenchBook> book;
  unsigned int rows = 0;
  size_t bytes = 0;  ///< heap that the settled book takes, its graph included
  double cells = 0;
  double straightSeconds = 0;  ///< of the model calls that its rows make

  void close() {
    book.reset();
    KVXECalculationMgr::getGlobal().resetGraph();
    rows = 0;
  }
} shared;

size_t heapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

double timeStraightLine(unsigned int rows) {
  constexpr int Runs = 50;
  StraightLine calls(rows);
  calls.run();
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < Runs; ++i) calls.run();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count() / Runs;
}

BenchBook& bookOf(unsigned int rows) {
  if (shared.rows == rows) return *shared.book;
  shared.close();
  const size_t before = heapBytes();
  shared.book = std::make_unique<BenchBook>(rows);
  shared.book->settle();
  shared.rows = rows;
  shared.bytes = heapBytes() - before;
  shared.cells = static_cast<double>(shared.book->countCells());
  shared.straightSeconds = timeStraightLine(rows);
  return *shared.book;
}

unsigned int rowsOf(const benchmark::State& state) {
  return static_cast<unsigned int>(state.range(0));
}

void build(benchmark::State& state) {
  shared.close();
  for (auto _ : state) {
    auto book = std::make_unique<BenchBook>(rowsOf(state));
    state.PauseTiming();
    book.reset();
    state.ResumeTiming();
  }
}

/// The time of one run for each cell of the book, and as a multiple of the bare model calls.
void reportShares(benchmark::State& state) {
  using benchmark::Counter;
  const auto inverse = Counter::kIsIterationInvariantRate | Counter::kInvert;
  state.counters["s_per_cell"] = Counter(shared.cells, inverse);
  state.counters["straight_lines"] = Counter(shared.straightSeconds, inverse);
}

void full(benchmark::State& state) {
  BenchBook& book = bookOf(rowsOf(state));
  for (auto _ : state) KVXECalculationMgr::getGlobal().fullCalculate();
  reportShares(state);
  state.counters["cells"] = shared.cells;
  state.counters["edges"] = static_cast<double>(KVXECalculationMgr::getGlobal().getEdgeCount());
  state.counters["edges_per_cell"] = state.counters["edges"] / shared.cells;
  state.counters["MB"] = static_cast<double>(shared.bytes) / 1e6;
  state.counters["bytes_per_cell"] = static_cast<double>(shared.bytes) / shared.cells;
  book.settle();
}

void straightLine(benchmark::State& state) {
  bookOf(rowsOf(state));
  StraightLine calls(rowsOf(state));
  for (auto _ : state) calls.run();
  reportShares(state);
  state.counters["calls"] = static_cast<double>(calls.countCalls());
}

/// What a change of the device costs: all tabs anew, and all calculated.
void changeDevice(benchmark::State& state) {
  BenchBook& book = bookOf(rowsOf(state));
  for (auto _ : state) {
    book.rebuild();
    book.settle();
  }
  reportShares(state);
}

/// Times an edit of the cell between two values and counts what it evaluates.
void alternate(benchmark::State& state, KVXECell* cell, float a, float b) {
  BenchBook& book = bookOf(rowsOf(state));
  book.settle();
  bool isA = false;
  for (auto _ : state) book.edit(cell, (isA = !isA) ? a : b);
  reportShares(state);
  const EvaluationCount count;
  book.edit(cell, (isA = !isA) ? a : b);
  state.counters["evaluated"] = count.evaluated;
  state.counters["edges"] = static_cast<double>(KVXECalculationMgr::getGlobal().getEdgeCount());
}

void editRow(benchmark::State& state) {
  alternate(state, bookOf(rowsOf(state)).getToggleRate(7), 0.2f, 0.3f);
}
void editClock(benchmark::State& state) {
  alternate(state, bookOf(rowsOf(state)).getClockFrequency(3), 200.0f, 250.0f);
}
void editVoltage(benchmark::State& state) {
  alternate(state, bookOf(rowsOf(state)).getVccint(), 0.79f, 0.8f);
}
void editAmbient(benchmark::State& state) {
  alternate(state, bookOf(rowsOf(state)).getAmbient(), 30.0f, 50.0f);
}

void insertRow(benchmark::State& state) {
  BenchBook& book = bookOf(rowsOf(state));
  book.settle();
  KVXECalculationMgr& calculation = KVXECalculationMgr::getGlobal();
  for (auto _ : state) {
    const KVXETableOperations::Scope operation;
    book.getLogicTable()->insertRow(100);
    calculation.incrCalculate();
    state.PauseTiming();
    book.getLogicTable()->deleteRow(100);
    calculation.incrCalculate();
    state.ResumeTiming();
  }
  reportShares(state);
  book.settle();
}

#define KVX_BENCH(function) BENCHMARK(function)->Arg(500)->Unit(benchmark::kMillisecond)
KVX_BENCH(build)->Iterations(20);
KVX_BENCH(full);
KVX_BENCH(straightLine);
KVX_BENCH(changeDevice);
KVX_BENCH(editRow)->Arg(5000);
KVX_BENCH(editClock);
KVX_BENCH(editVoltage);
KVX_BENCH(editAmbient)->Arg(5000);
KVX_BENCH(insertRow)->Iterations(500);

}  // namespace

int main(int argc, char** argv) {
  std::cout.setf(std::ios::fixed);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  shared.close();
  return 0;
}
