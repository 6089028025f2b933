#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

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

/// Member `timing`, milliseconds.
struct TimingSettings {
  std::int64_t answerMs = 50;
  std::int64_t jitterMs = 0;
  std::int64_t writeMs = 50;
  std::int64_t stateMs = 50;
  std::int64_t restartMs = 5000;
  std::int64_t searchMs = 15000;
  bool answerUnknownCodes = true;
  bool announceState = true;
  std::uint64_t seed = 1;
};

enum class FaultKind : std::uint8_t {
  kNoAnswer,            ///< reads are taken and never answered
  kSlowAnswer,          ///< answers come later, and the queue after them waits
  kLateBurst,           ///< answers are held and then delivered at one instant, in order
  kOffline,             ///< the link is down until the fault ends
  kShortState,          ///< the state document comes without its blank
  kUnaskedAnswer,       ///< one answer that nobody asked for
  kReadFails,           ///< the read call itself fails
  kWriteFails,          ///< the write call itself fails
  kMissingTag,          ///< tags are left out
  kMissingValue,        ///< tags come without the value attribute
  kMalformedXml,        ///< the document is cut off in the value of its last tag
  kEmptyDocument,       ///< the answer is the empty text
  kNoTags,              ///< the answer is well-formed and holds no tag
  kWrongDigits,         ///< values one digit short, with a "G", or doubled, in turn
  kDuplicateTag,        ///< each tag comes twice, first with zeros
  kHugeDocument,        ///< 10000 foreign elements stand before the answer's own
  kUnknownCodes,        ///< enumerations and units have no text
  kFloatNaN,            ///< every float is not a number
  kFloatInfinity,       ///< every float is infinite
  kFloatDenormal,       ///< every float is the smallest denormal
  kModificationBit,     ///< the first alarm word carries 8000
  kSensorDisconnected,  ///< the sensor does not answer
  kSensorFailure,       ///< the sensor does not answer
  kBoardFailure,        ///< the sensor electronics are dead
  kStuckSensor,         ///< the reading stays as it was when the fault began
};

struct FaultSettings {
  FaultKind kind = FaultKind::kNoAnswer;
  std::vector<int> codes;         ///< empty: all
  std::vector<std::string> tags;  ///< empty: all
  std::array<bool, 2> sensors{true, true};
  std::optional<std::int64_t> ms;
  std::optional<std::int64_t> count;  ///< answers; none: without end
  std::optional<std::int64_t> atMs;   ///< start after its beginning; none: at once
  std::optional<std::int64_t> forMs;  ///< none: until cleared
};

struct Settings {
  DeviceSettings device;
  ProcessSettings process;
  TimingSettings timing;
  std::vector<FaultSettings> faults;
};

/// The one settings object with the optional members `device`, `process`, `timing` and `faults`.
/// Throws `SettingsError`.
Settings Parse(const nlohmann::json& object);

// Parts of the object, for changes while the simulator runs. All throw `SettingsError`.
void ParseDevice(const nlohmann::json& object, DeviceSettings& device);
void ParseTiming(const nlohmann::json& object, TimingSettings& timing);
ProcessSettings ParseProcess(const nlohmann::json& object);
FaultSettings ParseFault(const nlohmann::json& object, std::string_view where);
std::vector<FaultSettings> ParseFaults(const nlohmann::json& array);

/// Names of the ready-made settings in their order.
std::span<const std::string_view> PresetNames();
/// A ready-made settings object; throws `SettingsError` for an unknown name.
nlohmann::json PresetObject(std::string_view name);
/// `base` with the members of `over` put in: objects are merged, everything else is replaced.
nlohmann::json MergeSettings(nlohmann::json base, const nlohmann::json& over);

}  // namespace htr60::sim
