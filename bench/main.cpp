// Runs the benchmarks so that their ratios repeat: medians of seven repetitions, all mixed in a random order, as the
// speed of a machine drifts. Options given on the command line count instead.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Two benchmarks of one run, and what divides them.
struct Ratio {
  const char* name;
  const char* dividend;
  const char* divisor;
};

constexpr Ratio kRatios[] = {
    {"table answer / its bare parse", "BM_TableUpdateUI", "BM_TableParse"},
    {"identification answer / its bare parse", "BM_IdentificationUpdateUI", "BM_IdentificationParse"},
    {"table answer, presented / not", "BM_TableTurn", "BM_TableUpdateUI"},
    {"table answer, with its screen / without", "BM_TableTurnAndScreen", "BM_TableUpdateUI"},
    {"FloatToHex, usual texts: plain / ours", "FloatToHexPlain/usual", "FloatToHex/usual"},
    {"FloatToHex, odd texts: plain / ours", "FloatToHexPlain/odd", "FloatToHex/odd"},
    {"HexToFloat: plain / ours", "HexToFloatPlain", "HexToFloat"},
    {"FormatValue: plain / ours", "FormatValuePlain", "FormatValue"},
    {"UnitTextToCode, hit: plain / ours", "UnitTextToCodePlain/hit", "UnitTextToCode/hit"},
    {"UnitTextToCode, miss: plain / ours", "UnitTextToCodePlain/miss", "UnitTextToCode/miss"},
    {"UnitCodeToText: plain / ours", "UnitCodeToTextPlain", "UnitCodeToText"},
};

/// The console's report, and after it the ratios whose two benchmarks have run.
class RatioReporter final : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration || run.aggregate_name == "median") {
        nanoseconds_[run.run_name.str()] =
            run.GetAdjustedCPUTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
      }
    }
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    for (const Ratio& ratio : kRatios) {
      const auto dividend = nanoseconds_.find(ratio.dividend);
      const auto divisor = nanoseconds_.find(ratio.divisor);
      if (dividend == nanoseconds_.end() || divisor == nanoseconds_.end()) continue;
      std::printf("%-40s %8.1f ns / %8.1f ns = %7.2f\n", ratio.name, dividend->second, divisor->second,
                  dividend->second / divisor->second);
    }
  }

 private:
  std::map<std::string, double> nanoseconds_;
};

}  // namespace

int main(int count, char** given) {
  std::vector<std::string> arguments{given[0], "--benchmark_enable_random_interleaving=true",
                                     "--benchmark_repetitions=7", "--benchmark_report_aggregates_only=true"};
  arguments.insert(arguments.end(), given + 1, given + count);  // the last of an option counts
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  int left = static_cast<int>(pointers.size());
  benchmark::Initialize(&left, pointers.data());
  if (benchmark::ReportUnrecognizedArguments(left, pointers.data())) return 1;
  const bool ownFormat = std::any_of(arguments.begin(), arguments.end(), [](std::string_view argument) {
    return argument.starts_with("--benchmark_format");
  });
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(ownFormat ? nullptr : &reporter);
  benchmark::Shutdown();
  return 0;
}
