#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace htr60::sim {

/// The quantities of the process that settings and profiles set.
enum class Quantity : std::uint8_t {
  kPressureHi,  ///< Pa
  kPressureLo,
  kTemperature,  ///< °C
  kAmbient,
  kNoise,    ///< Pa, standard deviation
  kDriftHi,  ///< Pa/h
  kDriftLo,
  kVesselDensity,  ///< kg/m³
  kVesselLevel,    ///< m
  kVesselHiAt,
  kVesselDistance,
  kVesselStatic,  ///< Pa
  kCount,
};
inline constexpr std::size_t kQuantities = static_cast<std::size_t>(Quantity::kCount);

/// What one `process` object sets; a member that it does not name stays as it is.
struct ProcessChange {
  std::array<std::optional<double>, kQuantities> values;
  std::optional<bool> vessel;    ///< false: the two pressures act again
  std::optional<bool> reversed;  ///< the diaphragms are exchanged
};

struct ProfileStep {
  std::int64_t atMs = 0;  ///< from creation
  std::int64_t rampMs = 0;
  ProcessChange change;
};

/// Member `process`.
struct ProcessSettings {
  ProcessChange start;
  std::optional<std::vector<ProfileStep>> profile;  ///< in the order of time
};

}  // namespace htr60::sim
