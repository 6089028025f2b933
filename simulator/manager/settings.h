#pragma once

#include <array>
#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/device/device_settings.h"
#include "simulator/process/process_settings.h"

namespace htr60::sim {

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

/// A kind of fault as settings name it, what it does, and which options mean something to it.
struct FaultKindRow {
  std::string_view name;
  std::string_view sentence;
  bool codes = false;
  bool tags = false;
  bool sensor = false;
  bool ms = false;
  bool count = false;
};
/// In the order of `FaultKind`.
std::span<const FaultKindRow> FaultKinds();

/// Names of the ready-made settings in their order.
std::span<const std::string_view> PresetNames();
/// A ready-made settings object; throws `SettingsError` for an unknown name.
nlohmann::json PresetObject(std::string_view name);
/// What they show, a sentence; empty for an unknown name.
std::string_view PresetSentence(std::string_view name);
/// `base` with the members of `over` put in: objects are merged, everything else is replaced.
nlohmann::json MergeSettings(nlohmann::json base, const nlohmann::json& over);

}  // namespace htr60::sim
