#include <algorithm>
#include <nlohmann/json.hpp>

#include "codecs/mAllUnits.h"
#include "simulator/manager/json_members.h"
#include "simulator/manager/manager.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

/// What of the device can be changed while it runs; the rest is another device.
constexpr std::array<std::string_view, 13> kChangeable{
    "gainErrorHi",     "gainErrorLo",      "offsetErrorHi", "offsetErrorLo", "ambientEffectHi",
    "ambientEffectLo", "temperatureError", "sensorLagMs",   "thermalLagMs",  "selfCalibration",
    "firmware",        "writeLocked",      "parameters"};

void CheckChangeable(const json& device) {
  if (!device.is_object()) throw SettingsError("device: an object is expected");
  for (const auto& [name, value] : device.items()) {
    if (std::find(kChangeable.begin(), kChangeable.end(), name) == kChangeable.end()) {
      throw SettingsError("device." + name + ": cannot be changed while the device runs");
    }
  }
}

void ChangeDevice(const json& object, Settings& settings, Device& device) {
  CheckChangeable(object);
  DeviceSettings changed = settings.device;
  changed.parameters.clear();
  ParseDevice(object, changed);
  const auto onSite = std::exchange(changed.parameters, settings.device.parameters);
  device.SetDeviceSettings(changed);
  if (object.contains("writeLocked")) device.Put("writeLock", changed.writeLocked ? "0000" : "0999");
  SetOnSite(device, onSite);
  settings.device = changed;
}

json ToJson(const Quantified& quantity) {
  const auto code = static_cast<std::int32_t>(NumberOf(quantity.unit));
  return {{"value", quantity.value}, {"unit", UnitCodeToText(code)}, {"status", quantity.status}};
}

}  // namespace

void Manager::Set(const json& object) {
  JsonMembers members(object, "set");
  const json* device = members.Find("device");
  const json* process = members.Find("process");
  const json* timing = members.Find("timing");
  const json* faults = members.Find("faults");
  members.RefuseOthers();
  const std::int64_t at = Elapsed();
  device_.CatchUp(at);
  // Everything is tried on copies, so that a refused member leaves no trace.
  Settings settings = settings_;
  Device changed = device_;
  std::vector<FaultSettings> begun;
  if (device != nullptr) ChangeDevice(*device, settings, changed);
  if (process != nullptr) changed.SetProcess(ParseProcess(*process));
  if (timing != nullptr) {
    ParseTiming(*timing, settings.timing);
    changed.SetSeed(settings.timing.seed);
  }
  if (faults != nullptr) begun = ParseFaults(*faults);
  const bool another = settings.device.firmware != settings_.device.firmware;
  settings_ = std::move(settings);
  device_ = std::move(changed);
  for (const auto& fault : begun) AddFault(fault, at);
  const auto absence = device_.TakeAbsence();
  if (another || absence == Absence::kRestart) LeaveLink(at, settings_.timing.restartMs);
  if (absence == Absence::kSearch) LeaveLink(at, settings_.timing.searchMs);
}

int Manager::BeginFault(const json& fault) { return AddFault(ParseFault(fault, "fault"), Elapsed()); }

int Manager::AddFault(const FaultSettings& settings, std::int64_t at) {
  ForgetEndedFaults();
  const int id = ++lastFault_;
  Fault fault;
  fault.id = id;
  fault.settings = settings;
  fault.left = settings.count;
  faults_.push_back(std::move(fault));
  if (settings.atMs && *settings.atMs > 0) {
    Schedule(
        at + *settings.atMs, [this, id](std::int64_t due) { StartFault(id, due); }, id);
  } else {
    StartFault(id, at);
  }
  return id;
}

Fault* Manager::FindFault(int id) {
  const auto fault = std::find_if(faults_.begin(), faults_.end(), [id](const Fault& f) { return f.id == id; });
  return fault == faults_.end() ? nullptr : &*fault;
}

bool Manager::HasFault(int id) const {
  return std::any_of(faults_.begin(), faults_.end(), [id](const Fault& f) { return f.id == id && !f.over; });
}

void Manager::StartFault(int id, std::int64_t at) {
  Fault* fault = FindFault(id);
  if (fault == nullptr || fault->over) return;
  fault->active = true;
  if (fault->settings.forMs) {
    Schedule(
        at + *fault->settings.forMs, [this, id](std::int64_t due) { EndFault(id, due); }, id);
  }
  if (fault->settings.kind == FaultKind::kUnaskedAnswer) {
    const int code = fault->settings.codes.empty() ? 1 : fault->settings.codes.front();
    Schedule(at, [this, code](std::int64_t due) { Send(code, {}, due); });
  }
  UpdateLink(at);
  UpdateSensors(at);
}

void Manager::EndFault(int id, std::int64_t at) {
  Fault* fault = FindFault(id);
  if (fault == nullptr) return;
  fault->active = false;
  fault->over = true;
  // Answers that it still holds come at once, before those that are asked for from now on.
  const bool holds = std::any_of(held_.begin(), held_.end(), [id](const Held& h) { return h.fault == id; });
  if (holds) Schedule(at, [this, id](std::int64_t) { Release(id); });
  UpdateLink(at);
  UpdateSensors(at);
}

void Manager::ForgetEndedFaults() {
  const auto isDone = [this](const Fault& fault) {
    // While it holds answers its time may still end and let them go.
    return fault.over &&
           std::none_of(held_.begin(), held_.end(), [&](const Held& held) { return held.fault == fault.id; });
  };
  for (;;) {
    const auto done = std::find_if(faults_.begin(), faults_.end(), isDone);
    if (done == faults_.end()) return;
    ForgetFault(done->id);
  }
}

void Manager::ForgetFault(int id) {
  std::erase_if(faults_, [id](const Fault& fault) { return fault.id == id; });
  std::erase_if(items_, [id](const auto& entry) { return entry.second.fault == id; });
}

void Manager::ClearFault(int id) {
  if (!HasBegunFault(id)) throw SettingsError("clear: there is no such fault");
  EndFault(id, Elapsed());
  ForgetFault(id);
}

void Manager::ClearAllFaults() {
  while (!faults_.empty()) ClearFault(faults_.front().id);
}

void Manager::UpdateSensors(std::int64_t at) {
  const SensorFaults faults = FaultsOfSensors(faults_);
  if (faults == device_.Faults()) return;
  device_.CatchUp(at);
  device_.SetFaults(faults);
}

void Manager::UpdateLink(std::int64_t at) {
  const bool down = offline_ || absences_ > 0 || std::any_of(faults_.begin(), faults_.end(), [](const Fault& f) {
                      return f.active && f.settings.kind == FaultKind::kOffline;
                    });
  if (online_ == !down) return;
  online_ = !down;
  if (!settings_.timing.announceState) return;
  Schedule(at + settings_.timing.stateMs, [this](std::int64_t due) { AnswerDue(90, {}, due); });
}

void Manager::LeaveLink(std::int64_t at, std::int64_t length) {
  ++absences_;
  UpdateLink(at);
  Schedule(at + length, [this](std::int64_t due) {
    --absences_;
    UpdateLink(due);
  });
}

void Manager::SetOffline(bool offline) {
  offline_ = offline;
  UpdateLink(Elapsed());
}

double Manager::ProcessValue(Quantity quantity) {
  device_.CatchUp(Elapsed());
  return device_.GetProcess().Value(quantity);
}

double Manager::SensorLimitKilopascal(std::size_t sensor) const {
  return RangeLimitKilopascal(0, settings_.device.sensorRange.at(sensor));
}

json Manager::Get(const json& names) {
  if (!names.is_array()) throw SettingsError("get: an array of names is expected");
  device_.CatchUp(Elapsed());
  json values = json::object();
  for (const auto& entry : names) {
    if (!entry.is_string()) throw SettingsError("get: a name is a text");
    const auto name = entry.get<std::string>();
    if (name == "link") {
      values[name] = online_ ? "Online" : "Offline";
    } else if (name == "lcd") {
      values[name] = DisplayLine(device_);
    } else if (const auto quantity = LiveQuantity(device_, name)) {
      values[name] = ToJson(*quantity);
    } else if (device_.Parameters().Has(name)) {
      values[name] = device_.Digits(name);
    } else {
      throw SettingsError("get: there is no parameter or live quantity \"" + name + '"');
    }
  }
  return values;
}

}  // namespace htr60::sim
