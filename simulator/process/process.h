#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "simulator/process/process_settings.h"

namespace htr60::sim {

inline constexpr std::int64_t kCycleMs = 100;

/// A uniform number in [0, 1), a pure function of its arguments.
double UniformNumber(std::uint64_t seed, std::uint64_t stream, std::uint64_t number);

/// What acts on the diaphragms: pressures or a vessel, noise, drift, temperatures, and their profile in time.
/// Knows cycles, not the instrument.
class Process {
 public:
  /// `pressures` (Pa) and `vesselDistance` (m) hold where the settings do not say otherwise. Noise comes from the seed.
  Process(const ProcessSettings& settings, const std::array<double, 2>& pressures, double vesselDistance,
          std::uint64_t seed);

  /// Puts in what `change` names, from the next cycle on. A running ramp of a named quantity ends.
  void Change(const ProcessChange& change);
  void SetProfile(std::vector<ProfileStep> profile, std::int64_t fromMs);
  void SetSeed(std::uint64_t seed) { seed_ = seed; }

  /// Steps and ramps up to the cycle, and one cycle's drift.
  void Advance(std::int64_t cycle);
  /// The same for all cycles after `from` up to `to`.
  void Advance(std::int64_t from, std::int64_t to);

  /// Pressure on sensor 0 or 1 in Pa with its noise of this cycle.
  double Applied(std::size_t sensor, std::int64_t cycle) const;
  /// Accumulated drift in Pa.
  double Drift(std::size_t sensor) const { return drift_[sensor]; }
  double Value(Quantity quantity) const { return Get(quantity); }
  bool HasVessel() const { return vessel_; }
  bool RunsProfile() const { return !ramps_.empty() || nextStep_ < profile_.size(); }
  double Temperature() const { return Get(Quantity::kTemperature); }
  double Ambient() const { return Get(Quantity::kAmbient); }

  /// Nothing changes by itself until the next step of the profile.
  bool Quiet() const;
  /// The first cycle at which the profile acts again.
  std::optional<std::int64_t> NextStepCycle() const;

 private:
  struct Ramp {
    std::size_t quantity = 0;
    double from = 0;
    double to = 0;
    std::int64_t startMs = 0;
    std::int64_t lengthMs = 0;
  };

  double Get(Quantity quantity) const { return values_[static_cast<std::size_t>(quantity)]; }
  void Begin(const ProfileStep& step);
  void FollowRamps(std::int64_t timeMs);
  void AddDrift(std::int64_t cycles);
  void SetFlags(const ProcessChange& change);
  void EndRamp(std::size_t quantity);
  double Static(std::size_t sensor) const;

  std::array<double, kQuantities> values_{};
  bool vessel_ = false;
  bool reversed_ = false;
  std::array<double, 2> drift_{};
  std::vector<ProfileStep> profile_;
  std::size_t nextStep_ = 0;
  std::vector<Ramp> ramps_;
  std::uint64_t seed_ = 1;
};

}  // namespace htr60::sim
