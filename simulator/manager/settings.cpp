#include "simulator/manager/settings.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "simulator/device/wire.h"
#include "simulator/manager/json_members.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

struct NamedType {
  std::string_view name;
  int code;
};
constexpr std::array<NamedType, 4> kTypes{
    {{"Pressure", kPressure}, {"Flow", kFlow}, {"Level", kLevel}, {"Density", kDensity}}};

constexpr std::array<std::string_view, 2> kModels{"Gauge", "Absolute"};

constexpr std::array kFaultKinds = std::to_array<FaultKindRow>({
    {.name = "noAnswer", .sentence = "Reads are taken and never answered.", .codes = true, .count = true},
    {.name = "slowAnswer",
     .sentence = "Answers come later, and the queue behind them waits.",
     .codes = true,
     .ms = true,
     .count = true},
    {.name = "lateBurst",
     .sentence = "Answers are held and then delivered at one instant, in order.",
     .codes = true,
     .ms = true,
     .count = true},
    {.name = "offline", .sentence = "The link is down until the fault ends."},
    {.name = "shortState",
     .sentence = "The state document comes without its blank, and settles nothing.",
     .count = true},
    {.name = "unaskedAnswer",
     .sentence = "One answer that nobody asked for is delivered, of the first of the codes.",
     .codes = true},
    {.name = "readFails",
     .sentence = "The call of a read itself fails, and nothing is sent.",
     .codes = true,
     .count = true},
    {.name = "writeFails",
     .sentence = "The call of a write itself fails, and nothing is sent.",
     .codes = true,
     .count = true},
    {.name = "missingTag", .sentence = "Tags are left out.", .codes = true, .tags = true, .count = true},
    {.name = "missingValue", .sentence = "Tags come without their value.", .codes = true, .tags = true, .count = true},
    {.name = "malformedXml",
     .sentence = "The document is cut off in the middle of its last value.",
     .codes = true,
     .count = true},
    {.name = "emptyDocument", .sentence = "The answer is the empty text.", .codes = true, .count = true},
    {.name = "noTags", .sentence = "The answer is well-formed and holds no tag.", .codes = true, .count = true},
    {.name = "wrongDigits",
     .sentence = "Values come one digit short, with a \"G\" in the second place, or doubled, in turn.",
     .codes = true,
     .tags = true,
     .count = true},
    {.name = "duplicateTag",
     .sentence = "Each tag comes twice: first with all digits 0, then with its true value.",
     .codes = true,
     .tags = true,
     .count = true},
    {.name = "hugeDocument",
     .sentence = "10000 elements with foreign tags stand before the answer's own.",
     .codes = true,
     .count = true},
    {.name = "unknownCodes",
     .sentence = "Enumerations and units come as a code that has no text.",
     .codes = true,
     .tags = true,
     .count = true},
    {.name = "floatNaN", .sentence = "Every float comes as no number.", .codes = true, .tags = true, .count = true},
    {.name = "floatInfinity", .sentence = "Every float comes as infinity.", .codes = true, .tags = true, .count = true},
    {.name = "floatDenormal",
     .sentence = "Every float comes as the smallest number.",
     .codes = true,
     .tags = true,
     .count = true},
    {.name = "modificationBit",
     .sentence = "The alarm word reports a modified parameter.",
     .codes = true,
     .tags = true,
     .count = true},
    {.name = "sensorDisconnected", .sentence = "The sensor is disconnected and does not answer.", .sensor = true},
    {.name = "sensorFailure", .sentence = "The sensor has failed and does not answer.", .sensor = true},
    {.name = "boardFailure", .sentence = "The sensor electronics are dead."},
    {.name = "stuckSensor", .sentence = "The reading stays as it was when the fault began.", .sensor = true},
});
static_assert(kFaultKinds.size() == static_cast<std::size_t>(FaultKind::kStuckSensor) + 1);

struct QuantityRow {
  std::string_view name;
  Quantity quantity;
  double least;
  double most;
};
constexpr double kPressureBound = 1e9;
constexpr std::array<QuantityRow, 7> kProcessRows{{
    {"pressureHi", Quantity::kPressureHi, -kPressureBound, kPressureBound},
    {"pressureLo", Quantity::kPressureLo, -kPressureBound, kPressureBound},
    {"temperature", Quantity::kTemperature, -273.15, 2000},
    {"ambient", Quantity::kAmbient, -273.15, 2000},
    {"noise", Quantity::kNoise, 0, kPressureBound},
    {"driftHi", Quantity::kDriftHi, -kPressureBound, kPressureBound},
    {"driftLo", Quantity::kDriftLo, -kPressureBound, kPressureBound},
}};
constexpr std::array<QuantityRow, 5> kVesselRows{{
    {"density", Quantity::kVesselDensity, 0, 1e5},
    {"level", Quantity::kVesselLevel, -1e5, 1e5},
    {"hiAt", Quantity::kVesselHiAt, -1e5, 1e5},
    {"distance", Quantity::kVesselDistance, -1e5, 1e5},
    {"static", Quantity::kVesselStatic, -kPressureBound, kPressureBound},
}};

constexpr std::int64_t kMostMs = std::int64_t{1} << 40;

Firmware ParseFirmware(const std::string& text, const std::string& where) {
  // "1.00" to "4.19", digit for digit what stands on the wire.
  const bool form = text.size() == 4 && text[0] >= '1' && text[0] <= '4' && text[1] == '.' && text[2] >= '0' &&
                    text[2] <= '1' && text[3] >= '0' && text[3] <= '9';
  if (!form) throw SettingsError(where + ": a version from 1.00 to 4.19 is expected");
  return {text[0] - '0', (text[2] - '0') * 10 + (text[3] - '0')};
}

void TakeText(JsonMembers& members, std::string_view name, std::string& target, std::size_t most) {
  if (!members.Text(name, target)) return;
  if (target.size() > most) throw SettingsError(members.Where(name) + ": the text is too long");
}

void ParseVessel(const json& value, const std::string& where, ProcessChange& change) {
  if (value.is_null()) {
    change.vessel = false;
    return;
  }
  JsonMembers members(value, where);
  change.vessel = true;
  for (const auto& row : kVesselRows) {
    members.Number(row.name, change.values[static_cast<std::size_t>(row.quantity)], row.least, row.most);
  }
  members.Flag("reversed", change.reversed);
  members.RefuseOthers();
}

void ParseChangeMembers(JsonMembers& members, ProcessChange& change) {
  for (const auto& row : kProcessRows) {
    members.Number(row.name, change.values[static_cast<std::size_t>(row.quantity)], row.least, row.most);
  }
  if (const json* vessel = members.Find("vessel")) ParseVessel(*vessel, members.Where("vessel"), change);
}

ProfileStep ParseStep(const json& value, const std::string& where) {
  ProfileStep step;
  JsonMembers members(value, where);
  if (!members.Whole("atMs", step.atMs, 0, kMostMs)) throw SettingsError(members.Where("atMs") + ": missing");
  members.Whole("rampMs", step.rampMs, 0, kMostMs);
  if (const json* set = members.Find("set")) {
    JsonMembers inner(*set, members.Where("set"));
    ParseChangeMembers(inner, step.change);
    inner.RefuseOthers();
  } else {
    throw SettingsError(members.Where("set") + ": missing");
  }
  members.RefuseOthers();
  return step;
}

void ParsePair(JsonMembers& members, std::string_view hi, std::string_view lo, std::array<double, 2>& target,
               double least, double most) {
  members.Number(hi, target[0], least, most);
  members.Number(lo, target[1], least, most);
}

void ParseParameters(const json& value, const std::string& where, std::map<std::string, std::string>& target) {
  if (!value.is_object()) throw SettingsError(where + ": an object is expected");
  for (const auto& [name, digits] : value.items()) {
    const std::string member = where + "." + name;
    if (!digits.is_string()) throw SettingsError(member + ": a text is expected");
    target[name] = ToCapitals(digits.get<std::string>());
  }
}

}  // namespace

std::span<const FaultKindRow> FaultKinds() { return kFaultKinds; }

void ParseDevice(const json& object, DeviceSettings& device) {
  JsonMembers members(object, "device");
  std::string type;
  if (members.Text("primaryValueType", type)) {
    const auto row = std::find_if(kTypes.begin(), kTypes.end(), [&](const NamedType& t) { return t.name == type; });
    if (row == kTypes.end()) {
      std::vector<std::string_view> names;
      for (const NamedType& known : kTypes) names.push_back(known.name);
      throw SettingsError("device.primaryValueType: " + NoSuchName(type, names));
    }
    device.primaryValueType = row->code;
  }
  if (members.Text("firmware", device.firmware)) {
    device.version = ParseFirmware(device.firmware, "device.firmware");
  }
  TakeText(members, "tag", device.tag, 32);
  TakeText(members, "serialNumber", device.serialNumber, 16);
  TakeText(members, "orderingCode", device.orderingCode, 32);
  members.Whole("manufacturer", device.manufacturer, 0, 0xFFFF);
  members.Flag("writeLocked", device.writeLocked);
  members.Whole("sensorRangeHi", device.sensorRange[0], 1, 7);
  members.Whole("sensorRangeLo", device.sensorRange[1], 1, 7);
  std::string model;
  if (members.Text("sensorModel", model)) {
    const auto* const found = std::find(kModels.begin(), kModels.end(), model);
    if (found == kModels.end()) throw SettingsError("device.sensorModel: " + NoSuchName(model, kModels));
    device.absolute = found != kModels.begin();
  }
  members.Whole("measuredType", device.measuredType, 0, 13);
  members.Whole("densityRange", device.densityRange, 0, 2);
  members.Number("height", device.height, 0.05, 100);
  members.Number("gravity", device.gravity, 1, 20);
  members.Flag("compensation", device.compensation);
  members.Flag("selfCalibration", device.selfCalibration);
  ParsePair(members, "gainErrorHi", "gainErrorLo", device.gainError, -1, 10);
  ParsePair(members, "offsetErrorHi", "offsetErrorLo", device.offsetError, -kPressureBound, kPressureBound);
  ParsePair(members, "ambientEffectHi", "ambientEffectLo", device.ambientEffect, -kPressureBound, kPressureBound);
  members.Number("temperatureError", device.temperatureError, -1000, 1000);
  members.Number("sensorLagMs", device.sensorLagMs, 0, 1e9);
  members.Number("thermalLagMs", device.thermalLagMs, 0, 1e9);
  if (const json* digits = members.Find("parameters")) {
    ParseParameters(*digits, "device.parameters", device.parameters);
  }
  members.RefuseOthers();
}

ProcessSettings ParseProcess(const json& object) {
  ProcessSettings process;
  JsonMembers members(object, "process");
  ParseChangeMembers(members, process.start);
  if (const json* profile = members.Find("profile")) {
    if (!profile->is_array()) throw SettingsError("process.profile: an array is expected");
    auto& steps = process.profile.emplace();
    for (std::size_t i = 0; i < profile->size(); ++i) {
      steps.push_back(ParseStep((*profile)[i], "process.profile[" + std::to_string(i) + "]"));
    }
    std::stable_sort(steps.begin(), steps.end(),
                     [](const ProfileStep& a, const ProfileStep& b) { return a.atMs < b.atMs; });
  }
  members.RefuseOthers();
  return process;
}

void ParseTiming(const json& object, TimingSettings& timing) {
  JsonMembers members(object, "timing");
  members.Whole("answerMs", timing.answerMs, 0, kMostMs);
  members.Whole("jitterMs", timing.jitterMs, 0, kMostMs);
  members.Whole("writeMs", timing.writeMs, 0, kMostMs);
  members.Whole("stateMs", timing.stateMs, 0, kMostMs);
  members.Whole("restartMs", timing.restartMs, 0, kMostMs);
  members.Whole("searchMs", timing.searchMs, 0, kMostMs);
  members.Flag("answerUnknownCodes", timing.answerUnknownCodes);
  members.Flag("announceState", timing.announceState);
  std::int64_t seed = 0;
  if (members.Whole("seed", seed, 0, std::numeric_limits<std::int64_t>::max())) {
    timing.seed = static_cast<std::uint64_t>(seed);
  }
  members.RefuseOthers();
}

FaultSettings ParseFault(const json& object, std::string_view where) {
  FaultSettings fault;
  JsonMembers members(object, std::string(where));
  std::string kind;
  if (!members.Text("kind", kind)) throw SettingsError(members.Where("kind") + ": missing");
  const auto* const row = std::find_if(kFaultKinds.begin(), kFaultKinds.end(),
                                       [&](const FaultKindRow& known) { return known.name == kind; });
  if (row == kFaultKinds.end()) {
    std::vector<std::string_view> names;
    for (const FaultKindRow& known : kFaultKinds) names.push_back(known.name);
    throw SettingsError(members.Where("kind") + ": " + NoSuchName(kind, names));
  }
  fault.kind = static_cast<FaultKind>(row - kFaultKinds.begin());
  if (const json* codes = members.Find("codes")) {
    if (!codes->is_array()) throw SettingsError(members.Where("codes") + ": an array is expected");
    for (const auto& code : *codes) {
      const bool good = code.is_number_integer() && code >= 0 && code <= 100000;
      if (!good) throw SettingsError(members.Where("codes") + ": a code is a whole number");
      fault.codes.push_back(code.get<int>());
    }
  }
  if (const json* tags = members.Find("tags")) {
    if (!tags->is_array()) throw SettingsError(members.Where("tags") + ": an array is expected");
    for (const auto& tag : *tags) {
      if (!tag.is_string()) throw SettingsError(members.Where("tags") + ": a tag is a text");
      fault.tags.push_back(tag.get<std::string>());
    }
  }
  std::string sensor = "both";
  members.Text("sensor", sensor);
  if (sensor != "hi" && sensor != "lo" && sensor != "both") {
    throw SettingsError(members.Where("sensor") + ": hi, lo or both is expected");
  }
  fault.sensors = {sensor != "lo", sensor != "hi"};
  members.Whole("ms", fault.ms, 0, kMostMs);
  members.Whole("count", fault.count, 1, kMostMs);
  members.Whole("atMs", fault.atMs, 0, kMostMs);
  members.Whole("forMs", fault.forMs, 0, kMostMs);
  members.RefuseOthers();
  return fault;
}

std::vector<FaultSettings> ParseFaults(const json& array) {
  if (!array.is_array()) throw SettingsError("faults: an array is expected");
  std::vector<FaultSettings> faults;
  for (std::size_t i = 0; i < array.size(); ++i) {
    faults.push_back(ParseFault(array[i], "faults[" + std::to_string(i) + "]"));
  }
  return faults;
}

Settings Parse(const json& object) {
  Settings settings;
  JsonMembers members(object, "");
  if (const json* device = members.Find("device")) ParseDevice(*device, settings.device);
  if (const json* process = members.Find("process")) settings.process = ParseProcess(*process);
  if (const json* timing = members.Find("timing")) ParseTiming(*timing, settings.timing);
  if (const json* faults = members.Find("faults")) settings.faults = ParseFaults(*faults);
  members.RefuseOthers();
  return settings;
}

}  // namespace htr60::sim
