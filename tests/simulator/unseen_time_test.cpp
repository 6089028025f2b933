#include "bench.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

const json kLive = {"raw", "trim", "press", "p.hi", "p.lo", "cap.hi", "cap.lo",    "t",
                    "pv",  "sv1",  "sv2",   "diag", "lcd",  "weight", "operResult"};

/// What the device shows and keeps, to the last bit; a trim that looks back on the last two seconds is part of it.
std::string StateOf(Bench& bench) {
  std::string state = bench.manager->Get(kLive).dump();
  for (const char* block : {"1", "2", "3"}) state += bench.Read(27, {block});
  bench.Write(14, {F8(0)});
  return state + bench.Read(16) + bench.Read(50);
}

struct Case {
  const char* name;
  json settings;
};

json Preset(const char* name, const json& over) { return MergeSettings(PresetObject(name), over); }

json Noisy(const json& over) { return MergeSettings({{"process", {{"noise", 5}}}}, over); }

json Parameters(const json& parameters) { return Noisy({{"device", {{"parameters", parameters}}}}); }

// Long stretches are not run cycle by cycle. Whatever they hold must come out as if they were.
TEST(UnseenTime, ReadingMoreOftenChangesNothing) {
  const json step = {{{"atMs", 600000}, {"rampMs", 1800000}, {"set", {{"pressureHi", 25000}, {"driftHi", 3000}}}},
                     {{"atMs", 3500000}, {"set", {{"noise", 40}}}}};
  const Case cases[] = {
      {"noise", Noisy(json::object())},
      {"noise without seed 1", Noisy({{"timing", {{"seed", 77}}}})},
      {"drift", {{"process", {{"driftHi", 123.4}, {"driftLo", -7}}}}},
      {"noise, drift and a profile", Noisy({{"process", {{"driftLo", 50}, {"profile", step}}}})},
      {"drift and a profile", {{"process", {{"profile", step}}}}},
      {"sensor lag", Noisy({{"device", {{"sensorLagMs", 3000}}}})},
      {"both lags", Noisy({{"device", {{"sensorLagMs", 500}, {"thermalLagMs", 60000}}},
                           {"process", {{"profile", {{{"atMs", 5000}, {"set", {{"temperature", 60}}}}}}}}})},
      {"damping", Parameters({{"ai1.damping", "41200000"}})},
      {"alarm within its hysteresis", Parameters({{"ai1.hi", F8(10.022)}, {"ai1.hyst", F8(0.05)}})},
      {"alarm that seldom comes", Parameters({{"ai1.lo", F8(9.975)}, {"ai1.hyst", F8(10)}})},
      {"out of service", Parameters({{"ai2.target", "80"}})},
      {"manual", Parameters({{"ai1.target", "10"}})},
      {"auto zero", Parameters({{"azEnable", "01"}, {"azRef", F8(10)}, {"azBand", F8(1)}, {"azTime", "00000003"}})},
      {"auto zero at rest",
       {{"device", {{"parameters", {{"azEnable", "01"}, {"azRef", F8(9.96)}, {"azTime", "0000003C"}}}}},
        {"process", {{"profile", {{{"atMs", 1000000}, {"set", {{"pressureHi", 20030}}}}}}}}}},
      {"auto zero without a wait, from the lower value",
       {{"device",
         {{"parameters", {{"azEnable", "01"}, {"azRef", F8(10)}, {"azTime", "00000000"}, {"azSelect", "02"}}}}}}},
      {"simulated block", Parameters({{"ai1.sim", "80" + F8(39.3) + "01"}})},
      {"stuck sensor", Noisy({{"faults", {{{"kind", "stuckSensor"}, {"sensor", "hi"}, {"atMs", 1000}}}}})},
      {"failed sensor", Noisy({{"faults", {{{"kind", "sensorFailure"}, {"atMs", 1000}, {"forMs", 2000000}}}}})},
      {"dead board", Noisy({{"faults", {{{"kind", "boardFailure"}, {"atMs", 1000}}}}})},
      {"brewery", Preset("brewery", json::object())},
      {"tank", Preset("tank", {{"process", {{"noise", 20}}}})},
      {"tank that seldom reaches its upper sensor",
       Preset("tank", {{"process", {{"noise", 3}, {"profile", json::array()}, {"vessel", {{"level", 0.4}}}}},
                       {"device", {{"parameters", {{"deadBand", F8(0.0105)}}}}}})},
  };
  constexpr std::int64_t kMs = 3'600'000 + 1234;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Bench often(c.settings);
    Bench once(c.settings);
    const std::int64_t end = often.now + kMs;
    while (often.now < end) {
      often.Advance(std::min<std::int64_t>(1000, end - often.now));
      often.manager->Get({"pv"});
    }
    once.Advance(kMs);
    EXPECT_EQ(StateOf(once), StateOf(often));
  }
}

TEST(UnseenTime, ItDoesNotMatterHowTheTimeIsCut) {
  const json settings = Noisy({{"device", {{"sensorLagMs", 200}}}, {"process", {{"driftHi", 1}}}});
  std::string first;
  for (const std::int64_t piece : {86'400'000LL, 12'345'678LL, 2'000'000LL}) {
    Bench bench(settings);
    for (std::int64_t left = 86'400'000; left > 0; left -= piece) {
      bench.Advance(std::min(piece, left));
      bench.manager->Get({"pv"});
    }
    const std::string state = StateOf(bench);
    if (first.empty()) first = state;
    EXPECT_EQ(state, first) << piece;
  }
}

}  // namespace
}  // namespace htr60::sim
