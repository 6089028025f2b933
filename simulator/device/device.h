#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/device/block.h"
#include "simulator/device/bounded_queue.h"
#include "simulator/device/chain.h"
#include "simulator/device/device_settings.h"
#include "simulator/device/parameters.h"
#include "simulator/process/process.h"

namespace htr60::sim {

/// What a trim keeps beside its parameters: the reference value in Pa of the differential pressure, sensor 1, sensor 2;
/// density in kg/m³.
struct TrimState {
  std::array<double, 3> reference{};
  double densGain = 1;
  double densOffset = 0;
  double densReference = 0;
  bool operator==(const TrimState&) const = default;
};

/// A copy of the calibration, with the units that it was taken in.
struct CalibrationCopy {
  std::map<std::string, std::string> digits;
  TrimState trim;
  std::string sensorUnit, tempUnit, inUnit;
  int measuredType = 0;
};

/// Why the device leaves the link for a while.
enum class Absence : std::uint8_t { kRestart, kSearch };

/// Latest values over which a calibration judges whether the process has settled.
class History {
 public:
  static constexpr std::size_t kCycles = 20;  ///< 2 s
  void Push(double value);
  void Fill(double value);
  /// Highest less lowest of the latest values.
  double Movement() const;

 private:
  std::array<double, kCycles> values_{};
  std::size_t next_ = 0;
};

/// The instrument: parameters, measuring chain, blocks, calibration. Knows no codes and no XML.
/// Time is in milliseconds since creation. Copyable, so that a change can be tried.
class Device {
 public:
  /// The seed is that of the noise.
  Device(const DeviceSettings& settings, const ProcessSettings& process, std::uint64_t seed);

  /// Runs all cycles that are due. A change afterwards counts from the next cycle.
  void CatchUp(std::int64_t nowMs);
  std::int64_t NowMs() const { return nowMs_; }

  const ParameterStore& Parameters() const { return p_; }
  const std::string& Digits(std::string_view name) const { return p_.Digits(name); }
  double Number(std::string_view name, std::size_t position = 0) const { return p_.Number(name, position); }
  std::uint64_t Code(std::string_view name) const { return p_.Code(name); }
  /// For changes; the chain takes them over with the next cycle.
  ParameterStore& Change();
  void Put(std::string_view name, std::string digits) { Change().Set(name, std::move(digits)); }

  const Live& Now() const { return chain_.Now(); }
  const Block& BlockAt(int block) const { return blocks_[static_cast<std::size_t>(block - 1)]; }
  void WriteOut(int block, double out, unsigned status);
  /// Value and status on the channel of a block, in the unit of its PV scale.
  BlockInput Channel(int block) const;

  const DeviceSettings& GetSettings() const { return settings_; }
  const Firmware& Version() const { return settings_.version; }
  /// Takes over changed settings of the device (hidden errors, lags, arming, firmware).
  void SetDeviceSettings(const DeviceSettings& device);
  void SetProcess(const ProcessSettings& process);
  const Process& GetProcess() const { return process_; }
  void SetSeed(std::uint64_t seed);
  void SetFaults(const SensorFaults& faults);
  const SensorFaults& Faults() const { return faults_; }
  /// All lags and filters at their steady state at this moment.
  void Settle();

  bool Locked() const { return Code("writeLock") == 0; }
  bool IsType(int primaryValueType) const { return Code("pvType") == static_cast<std::uint64_t>(primaryValueType); }
  /// Upper range limit in Pa of sensor 0 or 1; the differential pressure has that of sensor 0.
  double UpperRangeLimit(std::size_t sensor) const;
  int FittedRange(std::size_t sensor) const { return settings_.sensorRange[sensor]; }

  // Calibration.
  TrimState& Trim();
  const TrimState& Trim() const { return trim_; }
  const History& DifferentialHistory() const { return histories_[0]; }
  const History& SensorHistory(std::size_t sensor) const { return histories_[1 + sensor]; }
  const History& TemperatureHistory() const { return histories_[3]; }
  const History& DensityHistory() const { return histories_[4]; }
  CalibrationCopy TakeCalibration() const;
  void PutCalibration(const CalibrationCopy& copy);
  void BackUpFactory() { factoryCopy_ = TakeCalibration(); }
  void BackUpLast() { lastCopy_ = TakeCalibration(); }
  void RestoreFactory() { PutCalibration(CalibrationCopy(factoryCopy_)); }
  void RestoreLast() { PutCalibration(CalibrationCopy(lastCopy_)); }
  void BackUpSensorData();
  void RestoreSensorData();

  // Side effects of changes.
  void SetPrimaryValueType(int type);
  void SetMeasuredType(int type);
  void SetDensityRange(int range);
  /// After a new range code or model of a sensor.
  void RangeChanged(std::size_t sensor);
  void ModelChanged(std::size_t sensor);
  void RestoreTransducerDefaults();
  void ResetParameters();
  void WarmStart();
  void LeaveLink(Absence absence) { absence_ = absence; }
  /// The absence that the last changes have caused; reading it clears it.
  std::optional<Absence> TakeAbsence();

  /// The condition of the auto zero trim has to hold for its whole time again.
  void RestartAutoZero() { autoZeroCycles_ = 0; }

  bool tableAccepted = false;  ///< a linearization table has been accepted once
  bool enteringCurve = false;  ///< read 39 shows the pressure before the trim
  bool airCalibrated = false;  ///< the self calibration has its lower point
  void Log(std::string line);
  BoundedQueue<std::string>::Taken TakeLog() { return log_.Take(); }

 private:
  /// What a block measures, with the Pa of its unit where it is a pressure.
  struct ChannelConfig {
    ChannelSource source = ChannelSource::kPv;
    double pascal = 1;
  };

  /// The auto zero trim, pressures in Pa.
  struct AutoZeroConfig {
    bool on = false;
    double reference = 0, band = 0, target = 0;
    std::int64_t timeMs = 0;
  };

  void RunCycle(std::int64_t cycle, bool steady);
  void PassOver(std::int64_t last);
  bool SkipUnseen(std::int64_t last);
  bool Forgets() const;
  void AdvanceUnseen(std::int64_t last);
  bool RunUntilKnown(std::int64_t last);
  ChainInput InputAt(std::int64_t cycle) const;
  ChannelConfig ChannelOfBlock(int block) const;
  BlockInput Measure(const ChannelConfig& channel) const;
  void RunBlocks(std::array<Block, 3>& blocks, bool steady) const;
  bool IsNearZero() const;
  void AutoZero();
  void BuildConfig();
  void BuildSensors();
  void BuildCurves();
  void BuildDensity();
  void BuildBlocks();
  void BuildAutoZero();
  void Touch();

  DeviceSettings settings_;
  ParameterStore start_;
  ParameterStore p_;
  Process process_;
  Chain chain_;
  ChainConfig config_;
  std::array<BlockConfig, 3> blockConfigs_;
  std::array<ChannelConfig, 3> channels_;
  std::array<Block, 3> blocks_;
  SensorFaults faults_;
  TrimState trim_;
  CalibrationCopy factoryCopy_, lastCopy_;
  std::map<std::string, std::string> sensorData_;
  std::array<History, 5> histories_;
  std::optional<Absence> absence_;
  std::int64_t nowMs_ = 0;
  std::int64_t cycle_ = 0;
  std::int64_t autoZeroCycles_ = 0;
  int quietCycles_ = 0;
  std::int64_t unskippable_ = 0;  ///< up to this cycle skipping has been tried in vain
  bool dirty_ = true;
  AutoZeroConfig autoZero_;
  BoundedQueue<std::string> log_{20'000, 64'000'000};
};

}  // namespace htr60::sim
