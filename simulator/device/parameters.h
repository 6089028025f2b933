#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "simulator/device/device_settings.h"
#include "simulator/device/wire.h"

namespace htr60::sim {

/// Every parameter of the device in wire form, by its name. Twins end in ".hi" and ".lo" (sensor 1, sensor 2), those of
/// a block begin with "ai1." to "ai3.", those of a monitor with "lcd[1]." to "lcd[4].", arrays bear their index
/// ("point[1]" to "point[21]", "k[0]" to "k[17]", "solid[0]" to "solid[5]").
class ParameterStore {
 public:
  void Add(std::string name, Form form, std::string digits);

  bool Has(std::string_view name) const { return entries_.find(name) != entries_.end(); }
  /// The parameter must exist, here and below.
  Form FormOf(std::string_view name) const { return entries_.at(std::string(name)).form; }
  const std::string& Digits(std::string_view name) const;
  void Set(std::string_view name, std::string digits);

  /// Float at a digit position of the parameter.
  double Number(std::string_view name, std::size_t position = 0) const { return FloatAt(Digits(name), position); }
  void SetNumber(std::string_view name, double value) { Set(name, FloatDigits(value)); }
  /// All digits as one number.
  std::uint64_t Code(std::string_view name) const { return NumberOf(Digits(name)); }
  /// The same as an index up to `most`; start values may hold anything, so a larger one counts as 0.
  int Index(std::string_view name, int most) const;

  bool operator==(const ParameterStore&) const = default;

 private:
  struct Entry {
    Form form = Form::kE2;
    std::string digits;
    bool operator==(const Entry&) const = default;
  };
  std::map<std::string, Entry, std::less<>> entries_;
};

/// What the names of twins end in: sensor 1, sensor 2.
inline constexpr std::array<std::string_view, 2> kSides{".hi", ".lo"};
/// "gain.hi" of "gain" and ".hi".
inline std::string SideName(std::string_view name, std::string_view side) { return std::string(name).append(side); }
/// "ai2.damping" of block 2.
std::string BlockName(int block, std::string_view rest);

/// All parameters as the settings say at start. Throws `SettingsError` for a start value of an unknown name or of
/// other than its form's digits.
ParameterStore StartParameters(const DeviceSettings& settings);

/// Upper range limit in kPa of a range code; codes without one take the limit of the fitted sensor (range 1 to 7).
double RangeLimitKilopascal(std::uint64_t rangeCode, int fittedRange);

/// Limits of the sensor (and the minimum span for sensor 0) by its range and model, in `sensorUnit`.
void PutSensorLimits(ParameterStore& p, std::size_t sensor, int fittedRange);
/// Calibration points of the sensor's range: +URL and 0. `suffix` is "", ".hi" or ".lo".
void PutCalibrationPoints(ParameterStore& p, std::string_view suffix, double limitKilopascal);

/// What a change to the primary value type brings with it.
void PutTypeDefaults(ParameterStore& p, int primaryValueType);
/// `outScale` and `outUnit` of a Density device by its measured type and density range.
void PutMeasuredScale(ParameterStore& p);
/// Output scale, alarm limits and hysteresis of an Analog Input block by its PV scale.
void PutBlockDefaults(ParameterStore& p, int block);
/// Alarm limits and hysteresis of a block by its output scale.
void PutAlarmLimits(ParameterStore& p, int block);

/// PV scale of an Analog Input block; a block without a unit has 0000.
struct PvScale {
  double upper = 0;
  double lower = 0;
  std::string unit;
};
PvScale PvScaleOf(const ParameterStore& p, int block);
/// What a block measures.
enum class ChannelSource {
  kPv,
  kSensorHi,
  kSensorLo,
  kPress,
  kVolume,
  kCompensatedDensity,
  kTemperature,
  kTrueDensity,
  kDensity20
};
ChannelSource ChannelOf(const ParameterStore& p, int block);

// What a change of a unit brings with it, the unit itself included.
void ConvertSensorUnit(ParameterStore& p, std::string_view unit);
void ConvertTemperatureUnit(ParameterStore& p, std::string_view unit);
void ConvertInputUnit(ParameterStore& p, std::string_view unit);

}  // namespace htr60::sim
