#pragma once

#include <array>
#include <map>
#include <stdexcept>
#include <string>

namespace htr60::sim {

/// A settings object or command that cannot be taken; `what()` names the member. Nothing has been changed.
class SettingsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Codes of the primary value types.
inline constexpr int kPressure = 0x0000;
inline constexpr int kFlow = 0x0001;
inline constexpr int kLevel = 0x0002;
inline constexpr int kDensity = 0x0081;

struct Firmware {
  int major = 1;
  int minor = 9;
  bool AtLeast(int otherMajor, int otherMinor) const {
    return major > otherMajor || (major == otherMajor && minor >= otherMinor);
  }
};

/// Member `device`. Pairs are sensor 1, sensor 2.
struct DeviceSettings {
  int primaryValueType = kPressure;
  Firmware version;
  std::string firmware = "1.09";
  std::string tag = "HTR60-1";
  std::string serialNumber = "06000001";
  std::string orderingCode = "HTR60-D2-S1-M1";
  int manufacturer = 24766;
  bool writeLocked = false;
  std::array<int, 2> sensorRange{2, 2};
  bool absolute = false;
  int measuredType = 0;
  int densityRange = 0;
  double height = 0.5;
  double gravity = 9.80665;
  bool compensation = false;
  bool selfCalibration = false;
  std::array<double, 2> gainError{};      ///< 0.01 = 1 %
  std::array<double, 2> offsetError{};    ///< Pa
  std::array<double, 2> ambientEffect{};  ///< Pa/K
  double temperatureError = 0;            ///< K
  double sensorLagMs = 0;
  double thermalLagMs = 0;
  std::map<std::string, std::string> parameters;  ///< start digits by parameter name
};

}  // namespace htr60::sim
