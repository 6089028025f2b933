#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "simulator/device/device.h"

namespace htr60::sim {

/// What the device says about a calibration request.
enum class Verdict : std::uint8_t {
  kGood = 0x10,
  kOutOfRange = 0x16,  ///< applied process out of range
  kInvalid = 0x1A,     ///< invalid configuration for request
  kExcess = 0x1B,      ///< excess correction
  kFailed = 0x1C,      ///< calibration failed
};

/// Which sensors a request concerns.
using SensorSet = std::array<bool, 2>;

/// Unlocked, nothing simulated, all sensors concerned initialized.
bool MayCalibrate(const Device& device, SensorSet concerned);
/// All sensors concerned answer.
bool Answers(const Device& device, SensorSet concerned);
/// Leaves the verdict and its line in the log.
void Conclude(Device& device, int code, std::string_view what, Verdict verdict);

}  // namespace htr60::sim
