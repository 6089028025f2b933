#pragma once

#include <array>
#include <cstddef>

#include "simulator/device/density.h"
#include "simulator/device/lag.h"

namespace htr60::sim {

// Status bytes that the measuring chain sets.
inline constexpr unsigned kStatusGood = 0x80;
inline constexpr unsigned kBadConfiguration = 0x04;
inline constexpr unsigned kBadNotConnected = 0x08;
inline constexpr unsigned kBadDevice = 0x0C;
inline constexpr unsigned kBadSensor = 0x10;
inline constexpr unsigned kSensorLow = 0x51;
inline constexpr unsigned kSensorHigh = 0x52;
inline constexpr unsigned kRangeLow = 0x55;
inline constexpr unsigned kRangeHigh = 0x56;
inline constexpr unsigned kSimulated = 0x60;
constexpr bool IsBad(unsigned status) { return status < 0x40; }

inline constexpr double kNoReading = 9999;  ///< of a sensor that does not answer

struct SensorConfig {
  double url = 0;        ///< Pa, of the range code in the device
  double urlFitted = 0;  ///< Pa, of the fitted sensor
  std::array<double, 12> poly{};
  double gain = 1, offset = 0;            ///< Pa
  double gainError = 0, offsetError = 0;  ///< hidden: share, Pa
  double ambientEffect = 0;               ///< hidden: Pa/K
  double limHi = 0, limLo = 0;            ///< Pa
  bool initialized = true;
};

/// The parameters that the chain works with, in SI units but where told otherwise.
struct ChainConfig {
  int type = 0;
  std::array<SensorConfig, 2> sensors;
  Lag sensorLag, thermalLag;
  double temperatureError = 0;
  bool connected = true;
  double gain = 1, offset = 0, gainTemp = 1, offsetTemp = 0;
  bool curveOn = false;
  std::size_t curvePoints = 0;
  std::array<double, 16> curveX{}, curveY{};
  bool zeroFilter = false;
  double inPascal = 1000;           ///< Pa per input unit
  double inUpper = 1, inLower = 0;  ///< input unit
  unsigned linType = 0;
  std::size_t tablePoints = 0;
  std::array<double, 21> tableX{}, tableY{};
  double sqrtPoint = 10, cutOff = 5;  ///< %
  double outUpper = 1, outLower = 0, volUpper = 1, volLower = 0;
  bool compensation = false;
  double deadBand = 0, gravity = 9.80665, height = 0.5;
  bool direct = true;
  double pressCoeff = 0, zeroTemp = 20, dilatation = 0, heightTemp = 20;  ///< temperatures in °C
  int measuredType = 0;
  DensityCoefficients coefficients;
  double densGain = 1, densOffset = 0;  ///< offset in kg/m³
  bool simulated = false;
  double simValue = 0;  ///< output unit
  unsigned simStatus = kStatusGood;
  bool debug = false;
  double debugPressure = 0, debugTemp = 20;  ///< Pa, °C
  double tempMin = -40, tempMax = 100;       ///< °C
};

/// Faults of the sensors that are active now.
struct SensorFaults {
  std::array<bool, 2> disconnected{}, failed{}, stuck{};
  bool board = false;
  bool operator==(const SensorFaults&) const = default;
};

/// What the process does to the sensors in one cycle.
struct ChainInput {
  std::array<double, 2> pressure{}, drift{};  ///< Pa
  double temperature = 20, ambient = 25;      ///< °C
};

struct LiveSensor {
  double reading = 0;    ///< x, in shares of the fitted range
  double cap = 3000;     ///< sensor reading, no unit
  double untrimmed = 0;  ///< Pa, before the trim
  double p = 0;          ///< Pa
  unsigned status = kStatusGood;
  bool operator==(const LiveSensor&) const = default;
};

/// The quantities of one cycle, pressures in Pa, temperatures in °C, densities in kg/m³.
struct Live {
  std::array<LiveSensor, 2> sensors;
  double raw = 0, curve = 0, trim = 0, press = 0;
  unsigned dpStatus = kStatusGood;  ///< of raw and trim
  unsigned pressStatus = kStatusGood;
  double tRaw = 20, t = 20;
  unsigned tStatus = kStatusGood;
  double pressNormal = 0, linNormal = 0, pvPercent = 0;  ///< %
  double pv = 0;                                         ///< output unit
  unsigned pvStatus = kStatusGood;
  unsigned baseStatus = kStatusGood;  ///< of what does not depend on the output scale
  double volume = 0;                  ///< volume unit
  unsigned volumeStatus = kStatusGood;
  double densityDp = 0;  ///< Pa, after mounting and pressure coefficient
  double rhoR = 0, rho = 0, rho20 = 0;
  double compensatedRho = 1000;
  double weight = 0;  ///< g/cm³; Density: as pv
  unsigned diag = 0;
  bool operator==(const Live&) const = default;
};

/// Sensors, differential pressure and primary value: one call per cycle of 100 ms.
/// Knows no parameter by name and no wire form.
class Chain {
 public:
  /// `steady` leaves out the lags: the state that an unchanging process ends in.
  void Cycle(const ChainConfig& config, const ChainInput& input, const SensorFaults& faults, bool steady);
  /// A cycle whose values nobody sees: only the lags follow.
  void FollowLags(const ChainConfig& config, const ChainInput& input);
  const Live& Now() const { return live_; }
  /// The last cycle kept the fluid's density of an earlier one.
  bool KeepsDensity() const { return keepsDensity_; }

 private:
  void Sensors(const ChainConfig& c, const ChainInput& input, const SensorFaults& faults, bool steady);
  void Temperature(const ChainConfig& c, const ChainInput& input, const SensorFaults& faults, bool steady);
  void Diagnosis(const ChainConfig& c, const SensorFaults& faults);
  void Differential(const ChainConfig& c);
  void Linear(const ChainConfig& c);
  void Density(const ChainConfig& c);
  void PrimaryStatus(const ChainConfig& c, int held);
  unsigned LimitStatus(const ChainConfig& c) const;

  Live live_;
  std::array<double, 2> lagged_{};
  double laggedTemperature_ = 20;
  double lastGoodPv_ = 0;
  bool started_ = false;
  bool keepsDensity_ = false;
};

/// Straight lines through the points; outside, the end values hold or the end lines go on.
double Interpolate(const double* x, const double* y, std::size_t points, double at, bool extend);

}  // namespace htr60::sim
