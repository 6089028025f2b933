#include "simulator/process/process.h"

#include <algorithm>
#include <utility>

namespace htr60::sim {
namespace {

constexpr double kGravity = 9.80665;
constexpr double kCyclesPerHour = 36000;

std::uint64_t SplitMix64(std::uint64_t x) {
  x += 0x9E3779B97F4A7C15U;
  x = (x ^ (x >> 30U)) * 0xBF58476D1CE4E5B9U;
  x = (x ^ (x >> 27U)) * 0x94D049BB133111EBU;
  return x ^ (x >> 31U);
}

/// Pressures of both sensors in Pa that show a round primary value.
std::pair<double, double> DefaultPressures(int primaryValueType) {
  switch (primaryValueType) {
    case kFlow:
      return {19350, 10000};
    case kLevel:
      return {24709.975, 10000};
    case kDensity:
      return {14903.325, 10000};
    default:
      return {20000, 10000};
  }
}

}  // namespace

double UniformNumber(std::uint64_t seed, std::uint64_t stream, std::uint64_t number) {
  const std::uint64_t mixed = SplitMix64(SplitMix64(SplitMix64(seed) ^ stream) ^ number);
  return static_cast<double>(mixed >> 11U) * 0x1.0p-53;
}

Process::Process(const Settings& settings) : seed_(settings.timing.seed) {
  if (settings.process.profile) profile_ = *settings.process.profile;
  const auto [hi, lo] = DefaultPressures(settings.device.primaryValueType);
  values_ = {hi, lo, 20, 25, 0, 0, 0, 1000, 1, 0, settings.device.height, 0};
  Change(settings.process.start);
}

void Process::EndRamp(std::size_t quantity) {
  std::erase_if(ramps_, [quantity](const Ramp& r) { return r.quantity == quantity; });
}

void Process::SetFlags(const ProcessChange& change) {
  if (change.vessel) vessel_ = *change.vessel;
  if (change.reversed) reversed_ = *change.reversed;
}

void Process::Change(const ProcessChange& change) {
  SetFlags(change);
  for (std::size_t i = 0; i < kQuantities; ++i) {
    if (!change.values[i]) continue;
    EndRamp(i);
    values_[i] = *change.values[i];
  }
}

void Process::SetProfile(std::vector<ProfileStep> profile, std::int64_t fromMs) {
  profile_ = std::move(profile);
  ramps_.clear();
  nextStep_ = 0;
  // Steps whose time is over do not act again.
  while (nextStep_ < profile_.size() && profile_[nextStep_].atMs <= fromMs) ++nextStep_;
}

void Process::Begin(const ProfileStep& step) {
  if (step.rampMs == 0) {
    Change(step.change);
    return;
  }
  SetFlags(step.change);
  for (std::size_t i = 0; i < kQuantities; ++i) {
    if (!step.change.values[i]) continue;
    EndRamp(i);
    ramps_.push_back({i, values_[i], *step.change.values[i], step.atMs, step.rampMs});
  }
}

void Process::Advance(std::int64_t cycle) {
  const std::int64_t now = cycle * kCycleMs;
  const auto follow = [this](std::int64_t time) {
    for (const auto& ramp : ramps_) {
      const auto run = static_cast<double>(std::min(time - ramp.startMs, ramp.lengthMs));
      const double share = run / static_cast<double>(ramp.lengthMs);
      values_[ramp.quantity] = share >= 1 ? ramp.to : ramp.from + (ramp.to - ramp.from) * share;
    }
    std::erase_if(ramps_, [time](const Ramp& r) { return time - r.startMs >= r.lengthMs; });
  };
  for (; nextStep_ < profile_.size() && profile_[nextStep_].atMs <= now; ++nextStep_) {
    follow(profile_[nextStep_].atMs);
    Begin(profile_[nextStep_]);
  }
  follow(now);
  if (cycle == 0) return;
  drift_[0] += Get(Quantity::kDriftHi) / kCyclesPerHour;
  drift_[1] += Get(Quantity::kDriftLo) / kCyclesPerHour;
}

double Process::Static(std::size_t sensor) const {
  if (!vessel_) return Get(sensor == 0 ? Quantity::kPressureHi : Quantity::kPressureLo);
  const bool upper = (sensor == 1) != reversed_;
  const double at = Get(Quantity::kVesselHiAt) + (upper ? Get(Quantity::kVesselDistance) : 0);
  const double column = std::max(0.0, Get(Quantity::kVesselLevel) - at);
  return Get(Quantity::kVesselStatic) + Get(Quantity::kVesselDensity) * kGravity * column;
}

double Process::Applied(std::size_t sensor, std::int64_t cycle) const {
  const double deviation = Get(Quantity::kNoise);
  if (deviation == 0) return Static(sensor);
  double gauss = -6;
  for (std::uint64_t i = 0; i < 12; ++i)
    gauss += UniformNumber(seed_, sensor, static_cast<std::uint64_t>(cycle) * 12 + i);
  return Static(sensor) + deviation * gauss;
}

bool Process::Quiet() const {
  return ramps_.empty() && Get(Quantity::kNoise) == 0 && Get(Quantity::kDriftHi) == 0 && Get(Quantity::kDriftLo) == 0;
}

std::optional<std::int64_t> Process::NextStepCycle() const {
  if (nextStep_ >= profile_.size()) return std::nullopt;
  return (profile_[nextStep_].atMs + kCycleMs - 1) / kCycleMs;
}

}  // namespace htr60::sim
