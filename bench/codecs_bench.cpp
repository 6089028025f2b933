#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "codecs/codecs.h"
#include "codecs/mAllUnits.h"
#include "codecs/unit_tables.h"
#include "plain/plain_codecs.h"

// Each codec beside the plain text procedure that it has to equal.

namespace {

using htr60::Codecs;

const std::vector<std::string>& UsualTexts() {
  static const std::vector<std::string> texts{"1.500",  "-12.345",    "100.000", "0.125",
                                              "99.900", "123456.789", "0.001",   "3.14159265"};
  return texts;
}

const std::vector<std::string>& OddTexts() {
  static const std::vector<std::string> texts{
      "0.1234567890123456789", "0.000001234567890123", "0,123456789",        "1.5E3",
      "0.99999999999999999",   "1234567890.5",         "+2.7182818284590452"};
  return texts;
}

const std::vector<std::string>& HexTexts() {
  static const std::vector<std::string> texts{"3F800000", "C0490FCF", "42C7CCCC", "47F12064", "3DCCCCC0", "80000000"};
  return texts;
}

constexpr std::array<double, 6> kValues{1.5, -12.3456, 99.9000015258789, 123456.789, 0.0004, 5.87747175411144E-39};

template <class Operation>
void Cycle(benchmark::State& state, std::size_t count, Operation operation) {
  std::size_t i = 0;
  for ([[maybe_unused]] const auto turn : state) {
    benchmark::DoNotOptimize(operation(i));
    if (++i == count) i = 0;
  }
}

void FloatToHex(benchmark::State& state, const std::vector<std::string>& texts) {
  Codecs codecs('.');
  Cycle(state, texts.size(), [&](std::size_t i) { return codecs.FloatToHex(texts[i]); });
}

void FloatToHexPlain(benchmark::State& state, const std::vector<std::string>& texts) {
  plain::FloatCodec codec('.');
  Cycle(state, texts.size(), [&](std::size_t i) { return codec.FloatToHex(texts[i]); });
}

void HexToFloat(benchmark::State& state) {
  Cycle(state, HexTexts().size(), [](std::size_t i) { return htr60::HexToFloat(HexTexts()[i]); });
}

void HexToFloatPlain(benchmark::State& state) {
  Cycle(state, HexTexts().size(), [](std::size_t i) { return plain::HexToFloat(HexTexts()[i], '.'); });
}

void FormatValue(benchmark::State& state) {
  const Codecs codecs('.');
  Cycle(state, kValues.size(), [&](std::size_t i) { return codecs.FormatValue(kValues[i]); });
}

void FormatValuePlain(benchmark::State& state) {
  Cycle(state, kValues.size(), [](std::size_t i) { return plain::Format(kValues[i], 3, '.'); });
}

using Chain = std::vector<std::pair<const char*, const char*>>;

/// The rows of the encoder as a chain of comparisons meets them.
const Chain& UnitChain() {
  static const Chain chain = [] {
    Chain rows;
    for (const std::string_view text : htr60::UnitListRows()) {
      rows.emplace_back(text.data(), htr60::UnitTextToCode(text).data());
    }
    return rows;
  }();
  return chain;
}

const std::vector<std::string>& UnitTexts() {
  static const std::vector<std::string> texts = [] {
    const auto rows = htr60::UnitListRows();
    return std::vector<std::string>(rows.begin(), rows.end());
  }();
  return texts;
}

const std::vector<std::string>& UnknownTexts() {
  static const std::vector<std::string> texts{"", "kpa", "no unit", "m³/fortnight", "%%", "Pascal per second"};
  return texts;
}

void UnitTextToCode(benchmark::State& state, const std::vector<std::string>& texts) {
  Cycle(state, texts.size(), [&](std::size_t i) { return htr60::UnitTextToCode(texts[i]); });
}

void UnitTextToCodePlain(benchmark::State& state, const std::vector<std::string>& texts) {
  const Chain& chain = UnitChain();
  Cycle(state, texts.size(), [&](std::size_t i) { return plain::FindInChain(chain, texts[i]); });
}

constexpr std::int32_t CodeAt(std::size_t i) { return static_cast<std::int32_t>(1000 + i * 37 % 526); }

void UnitCodeToText(benchmark::State& state) {
  Cycle(state, 526, [](std::size_t i) { return htr60::UnitCodeToText(CodeAt(i)); });
}

void UnitCodeToTextPlain(benchmark::State& state) {
  Cycle(state, 526, [](std::size_t i) {
    for (const htr60::UnitCodeRow& row : htr60::kUnitCodeRows) {
      if (row.code == CodeAt(i)) return row.text;
    }
    return std::string_view();
  });
}

BENCHMARK_CAPTURE(FloatToHex, usual, UsualTexts());
BENCHMARK_CAPTURE(FloatToHexPlain, usual, UsualTexts());
BENCHMARK_CAPTURE(FloatToHex, odd, OddTexts());
BENCHMARK_CAPTURE(FloatToHexPlain, odd, OddTexts());
BENCHMARK(HexToFloat);
BENCHMARK(HexToFloatPlain);
BENCHMARK(FormatValue);
BENCHMARK(FormatValuePlain);
BENCHMARK_CAPTURE(UnitTextToCode, hit, UnitTexts());
BENCHMARK_CAPTURE(UnitTextToCodePlain, hit, UnitTexts());
BENCHMARK_CAPTURE(UnitTextToCode, miss, UnknownTexts());
BENCHMARK_CAPTURE(UnitTextToCodePlain, miss, UnknownTexts());
BENCHMARK(UnitCodeToText);
BENCHMARK(UnitCodeToTextPlain);

}  // namespace
