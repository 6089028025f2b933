#include "observe/simulator_panel.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <nlohmann/json.hpp>

namespace htr60::observe {
namespace {

using nlohmann::json;
using sim::Quantity;

constexpr double kKilo = 1000;

constexpr std::array kRows = std::to_array<ProcessRow>({
    {.quantity = Quantity::kPressureHi,
     .member = "pressureHi",
     .caption = "Pressure at sensor 1",
     .unit = "kPa",
     .perUnit = kKilo,
     .least = -100'000,
     .most = 100'000,
     .pressure = true,
     .note = "Acts on the first diaphragm."},
    {.quantity = Quantity::kPressureLo,
     .member = "pressureLo",
     .caption = "Pressure at sensor 2",
     .unit = "kPa",
     .perUnit = kKilo,
     .least = -100'000,
     .most = 100'000,
     .pressure = true,
     .note = "Acts on the second diaphragm."},
    {.quantity = Quantity::kVesselLevel,
     .member = "level",
     .caption = "Level in the vessel",
     .unit = "m",
     .least = 0,
     .most = 1000,
     .from = 0,
     .to = 5,
     .vessel = true,
     .note = "Above the foot of the vessel."},
    {.quantity = Quantity::kVesselDensity,
     .member = "density",
     .caption = "Density in the vessel",
     .unit = "kg/m³",
     .least = 0,
     .most = 20'000,
     .from = 500,
     .to = 2000,
     .decimals = 1,
     .vessel = true,
     .note = "Of the fluid in the vessel."},
    {.quantity = Quantity::kTemperature,
     .member = "temperature",
     .caption = "Temperature",
     .unit = "°C",
     .least = -273,
     .most = 2000,
     .from = -40,
     .to = 120,
     .decimals = 1,
     .note = "Of the process at the sensors."},
    {.quantity = Quantity::kAmbient,
     .member = "ambient",
     .caption = "Ambient temperature",
     .unit = "°C",
     .least = -273,
     .most = 2000,
     .from = -40,
     .to = 85,
     .decimals = 1,
     .note = "Moves the sensors by their hidden effect, where they have one."},
    {.quantity = Quantity::kNoise,
     .member = "noise",
     .caption = "Noise",
     .unit = "Pa",
     .least = 0,
     .most = 1e6,
     .from = 0,
     .to = 500,
     .decimals = 1,
     .note = "Standard deviation of the pressures."},
});

std::vector<std::string> Listed(std::string_view text) {
  std::vector<std::string> words(1);
  for (const char c : text) {
    const bool between = c == ',' || c == ';' || c == ' ' || c == '\t';
    if (between && !words.back().empty()) words.emplace_back();
    if (!between) words.back() += c;
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

std::string_view SensorWord(int sensor) { return sensor == 1 ? "hi" : sensor == 2 ? "lo" : "both"; }

std::string TextOf(const sim::FaultSettings& fault) {
  const sim::FaultKindRow& kind = sim::FaultKinds()[static_cast<std::size_t>(fault.kind)];
  std::string text(kind.name);
  if (kind.sensor && fault.sensors[0] != fault.sensors[1]) text += fault.sensors[0] ? ", sensor 1" : ", sensor 2";
  const char* before = ", reads ";
  for (const int code : fault.codes) text += std::exchange(before, " ") + std::to_string(code);
  before = ", ";
  for (const std::string& tag : fault.tags) text += std::exchange(before, " ") + tag;
  if (fault.ms) text += ", " + std::to_string(*fault.ms) + " ms";
  if (fault.count) text += ", " + std::to_string(*fault.count) + " times";
  if (fault.forMs) text += ", for " + std::to_string(*fault.forMs / 1000) + " s";
  return text;
}

json ChangeOf(const ProcessRow& row, double value) {
  const json member = {{std::string(row.member), value * row.perUnit}};
  return row.vessel ? json{{"vessel", member}} : member;
}

}  // namespace

std::span<const ProcessRow> ProcessRows() { return kRows; }

void SimulatorPanel::Set(const ProcessRow& row, double value) {
  manager_.Set({{"process", ChangeOf(row, std::clamp(value, row.least, row.most))}});
}

bool SimulatorPanel::Acts(const ProcessRow& row) const {
  if (!row.pressure && !row.vessel) return true;
  return row.vessel == manager_.HasVessel();
}

double SimulatorPanel::SliderFrom(const ProcessRow& row) const {
  if (!row.pressure) return row.from;
  return -manager_.SensorLimitKilopascal(row.quantity == Quantity::kPressureHi ? 0 : 1);
}

// A little beyond the range, so that its end can be overrun.
double SimulatorPanel::SliderTo(const ProcessRow& row) const { return row.pressure ? -1.25 * SliderFrom(row) : row.to; }

void SimulatorPanel::Ramp(const ProcessRow& row, double target, int seconds) {
  const json step = {{"atMs", manager_.SinceCreation() + 1},
                     {"rampMs", std::int64_t{seconds} * 1000},
                     {"set", ChangeOf(row, std::clamp(target, row.least, row.most))}};
  manager_.Set({{"process", {{"profile", json::array({step})}}}});
}

void SimulatorPanel::StopProfile() { manager_.Set({{"process", {{"profile", json::array()}}}}); }

std::string SimulatorPanel::Begin(const FaultWish& wish) {
  const sim::FaultKindRow& kind = sim::FaultKinds()[wish.kind];
  json fault = {{"kind", std::string(kind.name)}};
  if (kind.codes) {
    for (const std::string& word : Listed(wish.codes)) {
      int code = 0;
      const auto end = std::from_chars(word.data(), word.data() + word.size(), code);
      if (end.ec != std::errc() || end.ptr != word.data() + word.size()) return "Reads: \"" + word + "\" is no number.";
      fault["codes"].push_back(code);
    }
  }
  if (kind.tags) {
    for (const std::string& tag : Listed(wish.tags)) fault["tags"].push_back(tag);
  }
  if (kind.sensor) fault["sensor"] = std::string(SensorWord(wish.sensor));
  if (kind.ms && wish.milliseconds > 0) fault["ms"] = wish.milliseconds;
  if (kind.count && wish.count > 0) fault["count"] = wish.count;
  if (wish.seconds > 0) fault["forMs"] = std::int64_t{wish.seconds} * 1000;
  try {
    manager_.BeginFault(fault);
  } catch (const sim::SettingsError& error) {
    return std::string(error.what()) + ".";
  }
  return {};
}

std::vector<PresentFault> SimulatorPanel::Faults() const {
  std::vector<PresentFault> present;
  for (const sim::Fault& fault : manager_.Faults()) {
    if (!fault.over) present.push_back({fault.id, TextOf(fault.settings), !fault.active});
  }
  return present;
}

std::string ActiveWords(const sim::Manager& manager) {
  const auto faults = manager.Faults();
  const auto acting = std::count_if(faults.begin(), faults.end(), [](const sim::Fault& fault) { return fault.active; });
  std::string words = manager.IsSetOffline() ? "link off" : "";
  if (acting == 0) return words;
  if (!words.empty()) words += ", ";
  return words + std::to_string(acting) + (acting == 1 ? " fault" : " faults");
}

}  // namespace htr60::observe
