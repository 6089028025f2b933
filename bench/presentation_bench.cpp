// What the presentation adds to the control: to an answer, to a turn in which nothing changed, to the memory.
#include <benchmark/benchmark.h>

#include "bench_control.h"
#include "presentation/presentation.h"

namespace htr60::bench {
namespace {

using presentation::Presentation;

struct PresentedTable {
  BareControl control;
  Presentation presented{
      *control, {.now = [] { return std::int64_t{0}; }, .timeOfDay = [](std::int64_t) { return std::string(); }}};

  PresentedTable() {
    presented.Activate("Pressure/Flow", 0);
    presented.Press(id::cmdTablePoints);
    presented.Turn();
    control->UpdateUI(900, TableAnswer());
    presented.Turn();
  }
};

void BM_TableTurn(benchmark::State& state) {
  PresentedTable table;
  const std::string document = TableAnswer();
  for (auto _ : state) {
    table.control->UpdateUI(900, document);
    table.presented.Turn();
  }
}
BENCHMARK(BM_TableTurn);

void BM_TableTurnAndScreen(benchmark::State& state) {
  PresentedTable table;
  const std::string document = TableAnswer();
  for (auto _ : state) {
    table.control->UpdateUI(900, document);
    table.presented.Turn();
    benchmark::DoNotOptimize(table.presented.Show());
  }
}
BENCHMARK(BM_TableTurnAndScreen);

void BM_IdleTurn(benchmark::State& state) {
  PresentedTable table;
  table.presented.Show();
  for (auto _ : state) table.presented.Turn();
}
BENCHMARK(BM_IdleTurn);

void BM_CreatePresentation(benchmark::State& state) {
  const BareControl control;
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::size_t before = allocatedBytes;
    Presentation presented{
        *control, {.now = [] { return std::int64_t{0}; }, .timeOfDay = [](std::int64_t) { return std::string(); }}};
    bytes += allocatedBytes - before;
  }
  state.counters["bytes"] = benchmark::Counter(static_cast<double>(bytes), benchmark::Counter::kAvgIterations);
  state.counters["sizeof"] = static_cast<double>(sizeof(Presentation));
}
BENCHMARK(BM_CreatePresentation)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace htr60::bench
