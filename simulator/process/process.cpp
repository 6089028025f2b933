#include "simulator/process/process.h"

#include <algorithm>
#include <limits>
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

std::uint64_t StreamOf(std::uint64_t seed, std::uint64_t stream) { return SplitMix64(SplitMix64(seed) ^ stream); }

double NumberOfStream(std::uint64_t stream, std::uint64_t number) {
  return static_cast<double>(SplitMix64(stream ^ number) >> 11U) * 0x1.0p-53;
}

bool IsDrift(std::size_t quantity) {
  return quantity == static_cast<std::size_t>(Quantity::kDriftHi) ||
         quantity == static_cast<std::size_t>(Quantity::kDriftLo);
}

}  // namespace

double UniformNumber(std::uint64_t seed, std::uint64_t stream, std::uint64_t number) {
  return NumberOfStream(StreamOf(seed, stream), number);
}

Process::Process(const ProcessSettings& settings, const std::array<double, 2>& pressures, double vesselDistance,
                 std::uint64_t seed)
    : seed_(seed) {
  if (settings.profile) profile_ = *settings.profile;
  values_ = {pressures[0], pressures[1], 20, 25, 0, 0, 0, 1000, 1, 0, vesselDistance, 0};
  Change(settings.start);
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
  for (; nextStep_ < profile_.size() && profile_[nextStep_].atMs <= now; ++nextStep_) {
    FollowRamps(profile_[nextStep_].atMs);
    Begin(profile_[nextStep_]);
  }
  FollowRamps(now);
  if (cycle > 0) AddDrift(1);
}

void Process::Advance(std::int64_t from, std::int64_t to) {
  while (from < to) {
    const std::int64_t step = NextStepCycle().value_or(std::numeric_limits<std::int64_t>::max());
    const bool driftRamps =
        std::any_of(ramps_.begin(), ramps_.end(), [](const Ramp& r) { return IsDrift(r.quantity); });
    // Between two steps the last cycle tells all: a ramp depends on the time alone, and the drift grows evenly.
    const std::int64_t until = std::min(to, step - 1);
    if (driftRamps || until <= from) {
      Advance(++from);
      continue;
    }
    FollowRamps(until * kCycleMs);
    AddDrift(until - from);
    from = until;
  }
}

void Process::FollowRamps(std::int64_t timeMs) {
  for (const auto& ramp : ramps_) {
    const auto run = static_cast<double>(std::min(timeMs - ramp.startMs, ramp.lengthMs));
    const double share = run / static_cast<double>(ramp.lengthMs);
    values_[ramp.quantity] = share >= 1 ? ramp.to : ramp.from + (ramp.to - ramp.from) * share;
  }
  std::erase_if(ramps_, [timeMs](const Ramp& r) { return timeMs - r.startMs >= r.lengthMs; });
}

// Cycle by cycle and not by one product, so that the sum does not depend on who reads when.
void Process::AddDrift(std::int64_t cycles) {
  const double hi = Get(Quantity::kDriftHi) / kCyclesPerHour;
  const double lo = Get(Quantity::kDriftLo) / kCyclesPerHour;
  if (hi == 0 && lo == 0) return;
  for (; cycles > 0; --cycles) {
    drift_[0] += hi;
    drift_[1] += lo;
  }
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
  const std::uint64_t stream = StreamOf(seed_, sensor);
  double gauss = -6;
  for (std::uint64_t i = 0; i < 12; ++i) gauss += NumberOfStream(stream, static_cast<std::uint64_t>(cycle) * 12 + i);
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
