// The control's own paths beside the bare work they stand on: an answer beside the parse of its text, a request
// document, the creation of a control.
#include <benchmark/benchmark.h>
#include <expat.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "bench_control.h"

namespace htr60::bench {

std::size_t allocations = 0;
std::size_t allocatedBytes = 0;

}  // namespace htr60::bench

[[gnu::noinline]] void* operator new(std::size_t size) {
  ++htr60::bench::allocations;
  htr60::bench::allocatedBytes += size;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace htr60::bench {
namespace {

std::string Parameter(const std::string& tag, const std::string& value) {
  return "<Parameter tag=\"" + tag + "\" value=\"" + value + "\"/>";
}

std::string Digits(float value) {
  std::array<char, 9> digits;
  std::snprintf(digits.data(), digits.size(), "%08X", std::bit_cast<std::uint32_t>(value));
  return digits.data();
}

}  // namespace

// A table in use: rising, of all its points, with the square root of X as Y.
std::string TableAnswer() {
  std::string answer = "<Answer>" + Parameter("TRDLinType", "01") + Parameter("TRDNumpoints", "15");
  for (int k = 0; k <= 20; ++k) {
    const std::string number = std::to_string(k + 1);
    const float x = 5.0F * static_cast<float>(k);
    answer += Parameter("TRDX" + number + "Y" + number, Digits(x) + Digits(10 * std::sqrt(x)));
  }
  return answer + Parameter("TRDTableStatus", "01") + "</Answer>";
}

namespace {

std::string IdentificationAnswer() {
  return "<Answer>" + Parameter("TRDPVType", "0000") +
         Parameter("PHYTag", "48545236302D3100000000000000000000000000000000000000000000000000") +
         Parameter("PHYManufacturer", "60BE") +
         Parameter("TRDOrderingCode", "48545236302D44322D53312D4D31000000000000000000000000000000000000") +
         Parameter("PHYFirmware", "312E3039202020202020202020202020") +
         Parameter("PHYDevSerialNumber", "30363030303030310000000000000000") +
         Parameter("PHYGSDIdentNumSelector", "01") + Parameter("PHYWriteProtection", "0999") +
         Parameter("ModemVersion", "0003") + Parameter("SnsHiVersion", "12") + Parameter("SnsLoVersion", "12") +
         "</Answer>";
}

void ParseAlone(benchmark::State& state, const std::string& document) {
  XML_Parser parser = XML_ParserCreate("UTF-8");
  for (auto _ : state) {
    XML_ParserReset(parser, "UTF-8");
    benchmark::DoNotOptimize(XML_Parse(parser, document.data(), static_cast<int>(document.size()), XML_TRUE));
  }
  XML_ParserFree(parser);
}

void ThroughControl(benchmark::State& state, int code, const std::string& document) {
  const BareControl bench;
  bench->Activate("Pressure/Flow", 0);  // fills the closed list that the table's answer sets
  // The form's watcher takes the changes once a turn, as a view does.
  for (auto _ : state) {
    bench->UpdateUI(code, document);
    benchmark::DoNotOptimize(bench->form.TakeChanges());
    bench->TakeHandledCodes();
  }
}

void BM_IdentificationParse(benchmark::State& state) { ParseAlone(state, IdentificationAnswer()); }
void BM_IdentificationUpdateUI(benchmark::State& state) { ThroughControl(state, 100, IdentificationAnswer()); }
void BM_TableParse(benchmark::State& state) { ParseAlone(state, TableAnswer()); }
void BM_TableUpdateUI(benchmark::State& state) { ThroughControl(state, 900, TableAnswer()); }
BENCHMARK(BM_IdentificationParse);
BENCHMARK(BM_IdentificationUpdateUI);
BENCHMARK(BM_TableParse);
BENCHMARK(BM_TableUpdateUI);

void BM_DocXML(benchmark::State& state) {
  std::array<std::string_view, kAttributeCount> values;
  values.fill("None");
  values[0] = "48545236302D3100000000000000000000000000000000000000000000000000";
  const std::size_t before = allocations;
  for (auto _ : state) benchmark::DoNotOptimize(UserCntrl::DocXML(values));
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_DocXML);

void BM_CreateControl(benchmark::State& state) {
  NoBoxes boxes;
  NoTimers timers;
  NoIcons icons;
  const std::size_t before = allocatedBytes;
  for (auto _ : state) {
    benchmark::DoNotOptimize(UserCntrl::Create({.boxes = boxes, .timers = timers, .icons = icons}, PagesOfHtr60()));
  }
  state.counters["bytes"] =
      benchmark::Counter(static_cast<double>(allocatedBytes - before), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_CreateControl)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace htr60::bench
