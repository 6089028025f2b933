#include <cmath>

#include "bench.h"
#include "simulator/device/density.h"
#include "simulator/device/units.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

TEST(Physics, ScalesOfPressure) {
  Bench bench;
  bench.Write(3, {F8(20) + F8(0), "046D"});
  bench.Write(42, {F8(200) + F8(0), "0472"});
  bench.Advance(200);
  EXPECT_NEAR(bench.Value("pv"), 100, 1e-4);
  EXPECT_EQ(ValueOf(bench.Read(14, {"1"}), "AIOutput"), F8(100) + "80");
  EXPECT_EQ(bench.Digits("ai1.outScale"), F8(200) + F8(0) + "047200");
  EXPECT_EQ(bench.Digits("ai1.hiHi"), F8(220));
}

TEST(Physics, RootAndCutOffOfFlow) {
  Bench bench(OfType("Flow"));
  EXPECT_NEAR(bench.Value("pv"), 50, 1e-4);
  bench.Process({{"pressureHi", 10093.5}});
  bench.Advance(200);
  EXPECT_EQ(bench.Value("pv"), 0);
  bench.Write(2, {"None", "None", "None", F8(0)});
  bench.Advance(200);
  EXPECT_NEAR(bench.Value("pv"), 2.5, 1e-4);
  bench.Process({{"pressureHi", 9000}});
  bench.Advance(200);
  EXPECT_EQ(bench.Value("pv"), 0);
}

TEST(Physics, LevelWithAndWithoutCompensation) {
  json water = OfType("Level");
  water["process"] = {{"vessel", {{"density", 1000}, {"level", 1.5}, {"distance", 3}}}};
  EXPECT_NEAR(Bench(water).Value("pv"), 1.5, 1e-4);
  EXPECT_NEAR(Bench(water).Value("sv1"), 5, 1e-4);
  json oil = OfType("Level");
  oil["process"] = {{"vessel", {{"density", 850}, {"level", 2}, {"distance", 0.5}}}};
  EXPECT_NEAR(Bench(oil).Value("pv"), 0.425, 1e-4);
  oil["device"]["compensation"] = true;
  Bench compensated(oil);
  EXPECT_NEAR(compensated.Value("pv"), 2, 1e-4);
  EXPECT_NEAR(compensated.Value("sv2"), 850, 1e-3);
  // Below the upper sensor the density stays what it was.
  compensated.Process({{"vessel", {{"level", 0.25}}}});
  compensated.Advance(200);
  EXPECT_NEAR(compensated.Value("sv2"), 850, 1e-3);
  EXPECT_NEAR(compensated.Value("pv"), 0.25, 1e-4);
  compensated.Write(59, {"None", "None", "00"});
  EXPECT_EQ(ValueOf(compensated.Read(80, {"3"}), "PVUnitScale"), "0000");
  EXPECT_EQ(compensated.Digits("ai3.outScale"), F8(110) + F8(-10) + "03E900");
}

TEST(Physics, MeasuredTypesOfDensity) {
  const std::map<int, double> values{{0, 1.040},  {1, 1040},      {2, 1.040},    {4, 5.827},   {5, 10.444},
                                     {6, 10.445}, {0x0A, 64.925}, {0x0B, 4.313}, {0x0D, 1.040}};
  for (const auto& [type, value] : values) {
    json settings = OfType("Density");
    settings["device"]["measuredType"] = type;
    settings["process"] = {{"vessel", {{"density", 1040}, {"level", 2}}}};
    Bench bench(settings);
    EXPECT_NEAR(bench.Value("pv"), value, 0.002) << type;
    EXPECT_EQ(bench.Status("pv"), 0x80U) << type;
  }
}

TEST(Physics, DensityTablesTurnRound) {
  EXPECT_NEAR(WaterDensity(20), 998.2041, 5e-5);
  EXPECT_NEAR(WaterDensity(4), 999.9720, 5e-5);
  EXPECT_NEAR(AlcoholDensity20(0.5), 913.77, 0.01);
  const double light = 913.77;
  EXPECT_NEAR(MeasuredFromDensity(7, light, 20, {}).value, 50, 0.005);
  EXPECT_NEAR(MeasuredFromDensity(8, light, 20, {}).value, 57.89, 0.005);
  EXPECT_EQ(MeasuredFromDensity(7, 1200, 20, {}).held, -1);
  EXPECT_EQ(MeasuredFromDensity(7, 700, 20, {}).held, 1);
  for (int type = 0; type < kMeasuredTypes; ++type) {
    for (const double rho : {850.0, 960.0, 1100.0}) {
      for (const double t : {4.0, 20.0, 55.0}) {
        const double relative = rho / WaterDensity(t);
        const bool alcohol = type == 7 || type == 8;
        if (alcohol && relative > 1) continue;
        const auto back = DensityFromMeasured(type, MeasuredFromDensity(type, rho, t, {}).value, t, relative < 1);
        if (type == kMeasuredSolid || type == kMeasuredConcentration) {
          EXPECT_FALSE(back.has_value());
          continue;
        }
        ASSERT_TRUE(back.has_value()) << type << " " << rho;
        EXPECT_NEAR(*back, rho, 1e-6) << type;
      }
    }
  }
  EXPECT_FALSE(DensityFromMeasured(8, 120, 20, true).has_value());
  // An empty vessel reads a finite number in every type.
  for (int type = 0; type < kMeasuredTypes; ++type) {
    EXPECT_LT(std::abs(MeasuredFromDensity(type, 0, 20, {}).value), 1e9) << type;
  }
}

TEST(Physics, CoefficientsOfConcentrationAndSolid) {
  DensityCoefficients c;
  c.k[0] = 3;
  c.k[1] = 100;
  c.k[6] = 0.5;
  c.k[13] = 2;
  // 3 + 100 x 0.2 + 0.5 x 10 + 2 x 0.2 x 100
  EXPECT_NEAR(MeasuredFromDensity(kMeasuredConcentration, 1200, 30, c).value, 68, 1e-9);
  EXPECT_EQ(MeasuredFromDensity(kMeasuredConcentration, 5200, 30, c).held, 1);
  EXPECT_EQ(MeasuredFromDensity(kMeasuredConcentration, 1200, -5, c).held, -1);
  c.solid = {-100, 100, 0, 0, 0, 0};
  EXPECT_NEAR(MeasuredFromDensity(kMeasuredSolid, 1250, 20, c).value, 25, 1e-9);
  EXPECT_EQ(MeasuredFromDensity(kMeasuredSolid, 900, 20, c).held, -1);
}

TEST(Physics, ReadingsStayBelowNineThousand) {
  for (int range = 1; range <= 7; ++range) {
    for (const double pressure : {-1e9, -5e6, 0.0, 5000.0, 3e6, 1e9}) {
      Bench bench(json{{"device", {{"sensorRangeHi", range}, {"sensorRangeLo", range}}},
                       {"process", {{"pressureHi", pressure}, {"pressureLo", 0}}}});
      EXPECT_GE(bench.Value("cap.hi"), 1875) << range << " " << pressure;
      EXPECT_LE(bench.Value("cap.hi"), 7500) << range << " " << pressure;
      EXPECT_EQ(bench.Value("cap.lo"), 3000);
    }
  }
}

TEST(Physics, SensorFailuresAndTheirStatus) {
  struct Row {
    const char* fault;
    const char* sensor;
    const char* diag;
    unsigned hi, lo, pv, t;
  };
  const std::vector<Row> rows{
      {"sensorDisconnected", "lo", "03", 0x80, 0x08, 0x08, 0x80},
      {"boardFailure", "both", "01", 0x0C, 0x0C, 0x0C, 0x0C},
      {"sensorFailure", "hi", "05", 0x10, 0x80, 0x10, 0x80},
      {"sensorFailure", "lo", "04", 0x80, 0x10, 0x10, 0x80},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.fault) + " " + row.sensor);
    Bench bench;
    const int id = bench.manager->BeginFault({{"kind", row.fault}, {"sensor", row.sensor}});
    bench.Process({{"pressureHi", 30000}, {"pressureLo", 5000}});
    bench.Advance(200);
    EXPECT_EQ(ValueOf(bench.Read(51), "SensorDiag"), row.diag);
    EXPECT_EQ(ValueOf(bench.Read(51), "SensorConnected"), std::string(row.diag) == "03" ? "00" : "01");
    EXPECT_EQ(bench.Status("cap.hi"), row.hi);
    EXPECT_EQ(bench.Status("cap.lo"), row.lo);
    EXPECT_EQ(bench.Value("cap.hi") > 9000, row.hi != 0x80);
    EXPECT_EQ(bench.Value("cap.lo") > 9000, row.lo != 0x80);
    EXPECT_EQ(bench.Status("pv"), row.pv);
    EXPECT_EQ(bench.Status("t"), row.t);
    EXPECT_NEAR(bench.Value("pv"), 10, 1e-4) << "the last good value";
    bench.manager->ClearFault(id);
    bench.Advance(200);
    EXPECT_NEAR(bench.Value("pv"), 25, 1e-4);
    EXPECT_EQ(bench.Status("pv"), 0x80U);
  }
}

TEST(Physics, OtherStatuses) {
  Bench bench;
  bench.manager->BeginFault({{"kind", "stuckSensor"}, {"sensor", "hi"}});
  bench.Process({{"pressureHi", 30000}, {"temperature", 120}});
  bench.Advance(200);
  EXPECT_NEAR(bench.Value("pv"), 10, 1e-4);
  EXPECT_EQ(bench.Status("t"), 0x52U);
  bench.manager->ClearAllFaults();
  bench.Process({{"pressureHi", 40000}, {"temperature", -50}});
  bench.Advance(200);
  EXPECT_EQ(bench.Status("pv"), 0x52U);
  EXPECT_EQ(bench.Status("t"), 0x51U);
  bench.Process({{"pressureHi", 36000}, {"pressureLo", 0}});
  bench.Write(3, {F8(30) + F8(0), "046D"});
  bench.Advance(200);
  EXPECT_EQ(bench.Status("pv"), 0x56U);
  bench.Write(35, {"FF", F8(3) + "44"});
  bench.Advance(200);
  EXPECT_EQ(bench.Value("pv"), 3);
  EXPECT_EQ(bench.Status("pv"), 0x44U);
  bench.Write(37, {"None", "None", "00"});
  bench.Advance(200);
  EXPECT_EQ(bench.Value("diag"), 2);
  bench.Write(35, {"00"});
  bench.Advance(200);
  EXPECT_EQ(bench.Status("pv"), 0x04U);
}

TEST(Physics, SimulatedDensity) {
  Bench bench(OfType("Density"));
  bench.Write(60, {"01", F8(4.903325), F8(4)});
  bench.Advance(200);
  EXPECT_EQ(bench.Status("press"), 0x60U);
  EXPECT_EQ(bench.Value("t"), 4);
  EXPECT_EQ(bench.Status("pv"), 0x60U);
  EXPECT_NEAR(bench.Value("pv"), 1.0, 0.001);
}

TEST(Physics, ZeroFilterAndAutoZeroTrim) {
  Bench bench(json{{"process", {{"pressureHi", 10015}, {"pressureLo", 10000}}}});
  EXPECT_NEAR(bench.Value("press"), 0.015, 1e-6);
  bench.Write(43, {"01"});
  bench.Advance(200);
  EXPECT_EQ(bench.Value("press"), 0);
  EXPECT_NEAR(bench.Value("trim"), 0.015, 1e-6);
  bench.Write(45, {"01", F8(0), F8(0.05), "05", "01"});
  bench.Advance(4000);
  EXPECT_NEAR(bench.Value("trim"), 0.015, 1e-6);
  bench.Advance(1500);
  EXPECT_NEAR(bench.Value("trim"), 0, 1e-6);
  EXPECT_NEAR(FloatAt(bench.Digits("offset")), -0.015, 1e-6);
}

TEST(Physics, DampingTakesItsTime) {
  Bench bench;
  bench.Write(7, {"1", "None", F8(10)});
  bench.Advance(160);  // to a multiple of a cycle
  bench.now = bench.now / 100 * 100;
  bench.Process({{"pressureHi", 30000}});
  const double before = bench.Value("ai1.out");
  bench.Advance(10000);
  const double gone = (bench.Value("ai1.out") - before) / 10;
  EXPECT_NEAR(gone, 1 - std::exp(-1.0), 0.005);
  EXPECT_NEAR(bench.Value("ai2.out"), 30, 1e-4) << "without damping the next cycle follows";
}

TEST(Physics, AlarmsAndHysteresis) {
  Bench bench;
  bench.Write(8, {"1", F8(20), F8(15), F8(-3), F8(2), F8(1)});
  struct Step {
    double kilopascal;
    const char* word;
    unsigned status;
  };
  for (const auto& step : std::vector<Step>{{14.75, "0000", 0x80},
                                            {15.25, "0400", 0x8A},
                                            {20.25, "0600", 0x8E},
                                            {19.25, "0600", 0x8E},
                                            {18.75, "0400", 0x8A},
                                            {14.25, "0400", 0x8A},
                                            {13.75, "0000", 0x80},
                                            {1.75, "1000", 0x89},
                                            {-3.25, "1800", 0x8D},
                                            {3.25, "0000", 0x80}}) {
    bench.Process({{"pressureHi", 10000 + 1000 * step.kilopascal}});
    bench.Advance(200);
    const std::string answer = bench.Read(14, {"1"});
    EXPECT_EQ(ValueOf(answer, "AIAlarm"), std::string(step.word) + step.word + "00000000") << step.kilopascal;
    EXPECT_EQ(ValueOf(answer, "AIOutput").substr(8), NumberDigits(step.status, 2)) << step.kilopascal;
  }
}

TEST(Physics, FailSafe) {
  struct Row {
    const char* type;
    std::string out;
  };
  for (const auto& row : std::vector<Row>{{"00", F8(-3) + "48"}, {"01", F8(10) + "44"}, {"02", F8(10) + "0C"}}) {
    Bench bench;
    bench.Write(9, {"1", row.type, F8(-3)});
    bench.Advance(200);
    bench.manager->BeginFault({{"kind", "boardFailure"}});
    bench.Advance(200);
    EXPECT_EQ(ValueOf(bench.Read(37, {"1"}), "AIOutput"), row.out) << row.type;
  }
}

TEST(Physics, ModesOfABlock) {
  Bench bench;
  bench.Write(11, {"1", F8(7) + "80", "None"});
  bench.Advance(200);
  EXPECT_NEAR(bench.Value("ai1.out"), 10, 1e-4) << "an output is refused in Auto";
  bench.Write(11, {"1", F8(7) + "C4", "10"});
  bench.Advance(200);
  EXPECT_EQ(ValueOf(bench.Read(14, {"1"}), "AIOutput"), F8(7) + "C4");
  EXPECT_EQ(ValueOf(bench.Read(14, {"1"}), "AIActual"), "109808");
  bench.Write(7, {"1", "80", F8(10)});
  bench.Advance(200);
  EXPECT_EQ(ValueOf(bench.Read(14, {"1"}), "AIOutput"), F8(7) + "1C");
  bench.Write(7, {"1", "08"});
  bench.Advance(100);
  EXPECT_NEAR(bench.Value("ai1.out"), 7, 0.2) << "the lag starts at the written value";
  bench.Write(10, {"1", "44" + F8(20) + "01"});
  bench.Write(7, {"1", "None", F8(0)});
  bench.Advance(200);
  EXPECT_EQ(ValueOf(bench.Read(14, {"1"}), "AIOutput"), F8(20) + "44");
}

TEST(Physics, ChannelScalesOfTheSensors) {
  Bench bench;
  bench.Write(73, {"2", F8(20) + F8(0), "Config 1"});
  bench.Advance(200);
  EXPECT_NEAR(bench.Value("ai2.out"), 37.4, 1e-4) << "20 kPa are the upper end";
  bench.Write(74, {"2", "0471", "None"});
  EXPECT_EQ(bench.Digits("snsScale.hi"), F8(0.2) + F8(0));
  bench.Advance(200);
  EXPECT_NEAR(bench.Value("sv1"), 0.2, 1e-6);
  EXPECT_NEAR(bench.Value("ai2.out"), 37.4, 1e-4);
  bench.Write(73, {"1", F8(20) + F8(0), "255"});
  bench.Write(73, {"3", F8(20) + F8(0), "Config 2"});
  EXPECT_EQ(bench.Digits("snsScale.lo"), F8(37.4) + F8(0));
}

TEST(Physics, QuietStretchesAreWorthTheSame) {
  // A ramp after a long calm, once watched and once not.
  const json settings = json::parse(R"({"device":{"sensorLagMs":300,"parameters":{"ai1.damping":"40000000"}},
    "process":{"profile":[{"atMs":3600000,"rampMs":1000,"set":{"pressureHi":30000}}]}})");
  Bench watched(settings);
  Bench left(settings);
  for (int i = 0; i < 36; ++i) {
    watched.Advance(100000);
    watched.manager->Get({"pv"});
  }
  watched.Advance(1500);
  left.Advance(3601500);
  EXPECT_EQ(watched.Read(26), left.Read(26));
  EXPECT_NEAR(left.Value("pv"), 20, 1);
}

TEST(Physics, HiddenErrorsDriftAndNoise) {
  Bench ambient(json{{"device", {{"ambientEffectHi", 10}, {"temperatureError", 2}}}, {"process", {{"ambient", 35}}}});
  EXPECT_NEAR(ambient.Value("p.hi"), 20.1, 1e-6);
  EXPECT_NEAR(ambient.Value("t"), 22, 1e-9);
  Bench drifting(json{{"process", {{"driftHi", 100}}}});
  drifting.Advance(3600000);
  EXPECT_NEAR(drifting.Value("p.hi"), 20.1, 1e-6);
  Bench noisy(json{{"process", {{"noise", 50}}}});
  double sum = 0;
  double squares = 0;
  constexpr int kSamples = 2000;
  for (int i = 0; i < kSamples; ++i) {
    noisy.Advance(100);
    const double d = noisy.Value("p.hi") * 1000 - 20000;
    sum += d;
    squares += d * d;
  }
  EXPECT_NEAR(sum / kSamples, 0, 5);
  EXPECT_NEAR(std::sqrt(squares / kSamples), 50, 3);
}

TEST(Physics, TheDisplayCyclesThroughItsMonitors) {
  Bench bench;
  const auto line = [&] { return bench.manager->Get({"lcd"}).at("lcd").get<std::string>(); };
  EXPECT_EQ(line(), "AI1 10.00 [===       ]");
  bench.Advance(3000);
  EXPECT_EQ(line(), "PV 10.00 [===       ]");
  bench.Advance(3000);
  EXPECT_EQ(line(), "TEMP 20.00 [===       ]");
  bench.Write(29, {"00"});
  bench.Write(28, {"01"});
  EXPECT_EQ(line(), "AI1 10.00");
}

TEST(Physics, PressureUnits) {
  EXPECT_DOUBLE_EQ(ConvertPressure(1, 0x5F5, 0x46D), 9.80665);
  EXPECT_DOUBLE_EQ(ConvertPressure(1, 0x471, 0x472), 1000);
  EXPECT_NEAR(ConvertPressure(1, 0x474, 0x475), 14.69595, 1e-5);
  EXPECT_FALSE(IsUnit(UnitSet::kPressures, 0x46B));
  EXPECT_TRUE(IsUnit(UnitSet::kFlows, 0x545));
  EXPECT_FALSE(IsUnit(UnitSet::kFlows, 0x529));
  EXPECT_DOUBLE_EQ(ToCelsius(FromCelsius(-40, kFahrenheit), kFahrenheit), -40);
}

}  // namespace
}  // namespace htr60::sim
