#include <array>
#include <nlohmann/json.hpp>
#include <utility>

#include "simulator/manager/json_members.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

constexpr std::array<std::string_view, 8> kNames{"pressure", "flow",    "level",       "density",
                                                 "tank",     "brewery", "trim-course", "trouble"};

json OfType(const char* type) { return {{"device", {{"primaryValueType", type}}}}; }

json Tank() {
  json settings = OfType("Level");
  settings["device"]["compensation"] = true;
  settings["process"] = {
      {"vessel", {{"density", 850}, {"level", 0.2}}},
      {"profile", {{{"atMs", 0}, {"rampMs", 600000}, {"set", {{"vessel", {{"level", 3}}}}}}}},
  };
  return settings;
}

json Brewery() {
  json settings = OfType("Density");
  settings["device"]["measuredType"] = 6;
  settings["process"] = {
      {"vessel", {{"density", 1050}, {"level", 1}}},
      {"noise", 2},
      {"profile", {{{"atMs", 0}, {"rampMs", 3600000}, {"set", {{"vessel", {{"density", 1010}}}}}}}},
  };
  return settings;
}

/// Zero and 25 kPa in turn, a minute each, long enough to trim both points by hand.
json TrimCourse() {
  constexpr int kTurns = 60;
  json settings = OfType("Pressure");
  settings["device"]["gainErrorHi"] = 0.02;
  settings["device"]["offsetErrorHi"] = 300;
  json profile = json::array();
  for (int turn = 0; turn < kTurns; ++turn) {
    const int pressure = turn % 2 == 0 ? 10000 : 35000;
    profile.push_back({{"atMs", turn * 60000}, {"set", {{"pressureHi", pressure}}}});
  }
  settings["process"] = {{"pressureHi", 10000}, {"pressureLo", 10000}, {"profile", profile}};
  return settings;
}

json Trouble() {
  json settings = OfType("Pressure");
  settings["faults"] = {
      {{"kind", "sensorFailure"}, {"sensor", "hi"}, {"atMs", 60000}, {"forMs", 30000}},
      {{"kind", "boardFailure"}, {"atMs", 120000}, {"forMs", 30000}},
      {{"kind", "offline"}, {"atMs", 180000}, {"forMs", 30000}},
      {{"kind", "slowAnswer"}, {"ms", 5000}, {"atMs", 240000}, {"forMs", 30000}},
      {{"kind", "lateBurst"}, {"ms", 15000}, {"atMs", 300000}, {"forMs", 30000}},
      {{"kind", "sensorDisconnected"}, {"sensor", "lo"}, {"atMs", 360000}, {"forMs", 30000}},
  };
  return settings;
}

}  // namespace

std::span<const std::string_view> PresetNames() { return kNames; }

json PresetObject(std::string_view name) {
  if (name == "pressure") return OfType("Pressure");
  if (name == "flow") return OfType("Flow");
  if (name == "level") return OfType("Level");
  if (name == "density") return OfType("Density");
  if (name == "tank") return Tank();
  if (name == "brewery") return Brewery();
  if (name == "trim-course") return TrimCourse();
  if (name == "trouble") return Trouble();
  throw SettingsError("preset: " + NoSuchName(name, kNames));
}

std::string_view PresetSentence(std::string_view name) {
  constexpr std::pair<std::string_view, std::string_view> kSentences[] = {
      {"pressure", "Pressure with its defaults."},
      {"flow", "Flow with its defaults."},
      {"level", "Level with its defaults."},
      {"density", "Density with its defaults."},
      {"tank", "Level with compensation: a vessel of 850 kg/m³ that fills from 0.2 to 3 m in ten minutes."},
      {"brewery",
       "Density in degrees Plato: a wort whose density falls from 1050 to 1010 kg/m³ in an hour, with noise."},
      {"trim-course",
       "Pressure with a hidden error of sensor 1 that a calibration has to find, and two pressures in turn."},
      {"trouble", "One fault a minute: sensor, electronics, link, late answers."},
  };
  for (const auto& [known, sentence] : kSentences) {
    if (known == name) return sentence;
  }
  return {};
}

json MergeSettings(json base, const json& over) {
  if (!base.is_object() || !over.is_object()) return over;
  for (const auto& [name, value] : over.items()) {
    base[name] = base.contains(name) ? MergeSettings(base[name], value) : value;
  }
  return base;
}

}  // namespace htr60::sim
