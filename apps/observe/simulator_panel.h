#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/manager/manager.h"

namespace htr60::observe {

/// A quantity of the process as it is set by hand.
struct ProcessRow {
  sim::Quantity quantity{};
  std::string_view member{};  ///< of `process`, or of its vessel
  std::string_view caption{};
  std::string_view unit{};
  double perUnit = 1;  ///< in the settings' unit
  double least = 0;    ///< of what can be typed
  double most = 0;
  double from = 0;  ///< of the slider; both 0: a share of the sensor's range
  double to = 0;
  int decimals = 3;
  bool vessel = false;  ///< acts while a vessel gives the pressures, else while none does
  bool pressure = false;
  std::string_view note{};
};
std::span<const ProcessRow> ProcessRows();

/// What the operator has filled in for a fault, as text; what its kind has no use for is passed over.
struct FaultWish {
  std::size_t kind = 0;  ///< among `sim::FaultKinds`
  std::string codes{};   ///< "5, 45"; empty: all
  std::string tags{};    ///< "TRDOutUnit, TRDOutScale"; empty: all
  int sensor = 0;        ///< 0: both, 1, 2
  int milliseconds = 0;  ///< 0: as the kind has it
  int count = 0;         ///< 0: without end
  int seconds = 0;       ///< 0: until it is ended
};

/// A fault that acts or waits.
struct PresentFault {
  int id = 0;
  std::string text;  ///< "sensorFailure, sensor 1, for 30 s"
  bool waits = false;
};

/// What a person before the simulated transmitter does to process, link and faults. All acts at once.
class SimulatorPanel {
 public:
  explicit SimulatorPanel(sim::Manager& manager) : manager_(manager) {}

  double Value(const ProcessRow& row) const { return manager_.ProcessValue(row.quantity) / row.perUnit; }
  void Set(const ProcessRow& row, double value);
  /// False where it has no effect now: a pressure while a vessel gives both.
  bool Acts(const ProcessRow& row) const;
  double SliderFrom(const ProcessRow& row) const;
  double SliderTo(const ProcessRow& row) const;

  /// From the present value to `target` in a straight line, in place of a profile that runs.
  void Ramp(const ProcessRow& row, double target, int seconds);
  void StopProfile();
  bool RunsProfile() const { return manager_.RunsProfile(); }

  /// Empty, or why the fault cannot begin: a sentence.
  std::string Begin(const FaultWish& wish);
  void End(int id) { manager_.ClearFault(id); }
  void EndAll() { manager_.ClearAllFaults(); }
  std::vector<PresentFault> Faults() const;

  bool LinkOff() const { return manager_.IsSetOffline(); }
  void SetLinkOff(bool off) { manager_.SetOffline(off); }

 private:
  sim::Manager& manager_;
};

/// "1 fault", "link off, 2 faults"; empty where nothing is put on.
std::string ActiveWords(const sim::Manager& manager);

}  // namespace htr60::observe
