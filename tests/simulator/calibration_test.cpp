#include "bench.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

double Number(Bench& bench, const std::string& name) { return FloatAt(bench.Digits(name)); }

void Settle(Bench& bench, const json& process) {
  bench.Process(process);
  bench.Advance(2200);
}

TEST(Calibration, LowerAndUpperTrim) {
  Bench bench(json{{"device", {{"gainErrorHi", 0.005}, {"offsetErrorHi", 120}}}});
  EXPECT_NEAR(bench.Value("pv"), 10.220, 1e-4);
  Settle(bench, {{"pressureHi", 10000}});
  bench.Write(14, {F8(0)});
  bench.ExpectVerdict("10");
  Settle(bench, {{"pressureHi", 35000}});
  bench.Write(15, {F8(25)});
  bench.ExpectVerdict("10");
  EXPECT_NEAR(Number(bench, "gain"), 0.9950249, 1e-7);
  EXPECT_NEAR(Number(bench, "offset"), -0.1691542, 1e-7);
  EXPECT_EQ(bench.Digits("calHi"), F8(25));
  Settle(bench, {{"pressureHi", 20000}});
  EXPECT_NEAR(bench.Value("pv"), 10.000, 1e-4);
}

TEST(Calibration, EveryVerdictByOneStep) {
  struct Row {
    const char* name;
    json process;
    std::int64_t wait;
    int write;
    double operand;
    const char* verdict;
  };
  const std::vector<Row> rows{
      {"good", {{"pressureHi", 10000}}, 2200, 14, 0.1, "10"},
      {"process too high", {{"pressureHi", 60000}}, 2200, 14, 0, "16"},
      {"operand too high", {{"pressureHi", 10000}}, 2200, 14, 50, "16"},
      {"points too near", {{"pressureHi", 10200}}, 2200, 15, 0.2, "1A"},
      {"too far off", {{"pressureHi", 10000}}, 2200, 14, 37.4 * 0.15, "1B"},
      {"gain too far off", {{"pressureHi", 30000}}, 2200, 15, 25, "1B"},
      {"moving", {{"pressureHi", 12000}}, 1000, 14, 2, "1C"},
      {"settled again", {{"pressureHi", 12000}}, 2100, 14, 2, "10"},
      {"temperature", {{"temperature", 22}}, 2200, 16, 20, "10"},
      {"temperature too far off", {{"temperature", 35}}, 2200, 16, 20, "1B"},
      {"temperature out of range", {{"temperature", 22}}, 2200, 16, 150, "16"},
      {"sensor 1, lower", {{"pressureHi", 1000}}, 2200, 66, 0, "10"},
      {"sensor 1, upper", {{"pressureHi", 36000}}, 2200, 65, 37, "10"},
      {"sensor 2, upper", {{"pressureLo", 36000}}, 2200, 67, 30, "1B"},
      {"sensor 2, lower", {{"pressureLo", 500}}, 2200, 68, 0, "10"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Bench bench;
    const std::string before = bench.Read(50) + bench.Read(56);
    bench.Process(row.process);
    bench.Advance(row.wait);
    bench.manager->Set({{"device", {{"parameters", {{"operResult", "1C"}}}}}});
    bench.Write(row.write, {F8(row.operand)});
    bench.ExpectVerdict(row.verdict);
    const bool unchanged = bench.Read(50) + bench.Read(56) == before;
    EXPECT_EQ(unchanged, std::string(row.verdict) != "10");
  }
}

TEST(Calibration, WhatForbidsIt) {
  struct Row {
    int write;
    std::vector<std::string> attributes;
    json fault;
    const char* verdict;
  };
  const std::vector<Row> rows{{36, {"0000"}, nullptr, "1A"},
                              {35, {"01"}, nullptr, "1A"},
                              {37, {"None", "None", "00"}, nullptr, "1A"},
                              {37, {"None", "00"}, nullptr, "1C"},
                              {36, {"None"}, {{"kind", "boardFailure"}}, "1C"}};
  for (const auto& row : rows) {
    Bench bench;
    bench.Write(row.write, row.attributes);
    if (!row.fault.is_null()) bench.manager->BeginFault(row.fault);
    bench.Advance(200);
    for (const int write : {14, 15, 65, 66}) {
      bench.Write(write, {F8(10)});
      EXPECT_EQ(bench.Digits("operResult"), row.verdict) << row.write << " " << write;
    }
  }
  Bench bench;
  for (const char* operand : {"", "4120", "7FC00000", "G1200000"}) {
    bench.Write(14, {operand});
    bench.ExpectVerdict("1A");
  }
}

TEST(Calibration, WithoutReference) {
  Bench bench;
  bench.Write(44, {F8(36), F8(0.5), F8(36)});
  bench.ExpectVerdict("10");
  bench.Advance(200);
  // The old points read as the new ones: 10 of 37.4 kPa.
  EXPECT_NEAR(bench.Value("trim"), 0.5 + 10 / 37.4 * 35.5, 1e-4);
  bench.Write(44, {F8(20), F8(0)});
  bench.ExpectVerdict("1B");
  bench.Write(63, {F8(20), F8(19.9)});
  bench.ExpectVerdict("1A");
  bench.Write(64, {F8(50), F8(0)});
  bench.ExpectVerdict("16");
  EXPECT_EQ(bench.Digits("calHi"), F8(36));
  EXPECT_EQ(bench.Digits("calHi.lo"), F8(37.4));
}

json DensityDevice() {
  json settings = OfType("Density");
  settings["device"]["gainErrorHi"] = 0.02;
  settings["device"]["offsetErrorHi"] = 200;
  settings["process"] = {{"vessel", {{"density", 850}, {"level", 1}}}};
  return settings;
}

TEST(Calibration, DensityPoints) {
  Bench bench(DensityDevice());
  bench.Write(52, {F8(0.85)});
  bench.ExpectVerdict("10");
  Settle(bench, {{"vessel", {{"density", 1200}}}});
  bench.Write(53, {F8(1.2)});
  bench.ExpectVerdict("10");
  EXPECT_NEAR(bench.Value("densGain"), 0.96154, 1e-5);
  EXPECT_NEAR(bench.Value("densOffset"), -39.22, 0.01);
  EXPECT_EQ(bench.Digits("densHi"), F8(1.2));
  EXPECT_NEAR(FloatAt(bench.Digits("densPressHi")), bench.Value("press"), 1e-6);
  Settle(bench, {{"vessel", {{"density", 1040}}}});
  EXPECT_NEAR(bench.Value("pv"), 1.040, 1e-4);
}

TEST(Calibration, DensityVerdicts) {
  Bench bench(DensityDevice());
  bench.Write(53, {F8(0.01)});
  bench.ExpectVerdict("1A");
  bench.Write(52, {F8(2.5)});
  bench.ExpectVerdict("16");
  bench.Write(52, {F8(0.6)});
  bench.ExpectVerdict("1B");
  bench.Write(52, {F8(0.85), F8(200)});
  bench.ExpectVerdict("1A");
  // A valid height is stored whatever the point says.
  bench.Write(52, {"12", F8(0.6)});
  bench.ExpectVerdict("1A");
  EXPECT_EQ(bench.Digits("height"), F8(0.6));
  bench.Write(52, {"None", F8(0.5)});
  bench.Process({{"vessel", {{"density", 900}}}});
  bench.Advance(500);
  bench.Write(52, {F8(0.9)});
  bench.ExpectVerdict("1C");
  bench.Write(54, {"09"});
  bench.Advance(2500);
  bench.Write(52, {F8(20)});
  bench.ExpectVerdict("1A");
  Bench pressure;
  pressure.Write(52, {F8(1)});
  pressure.ExpectVerdict("1A");
}

TEST(Calibration, SelfCalibration) {
  const json air = {{"pressureHi", 10000}, {"pressureLo", 10000}};
  json armed = OfType("Density");
  armed["device"]["selfCalibration"] = true;
  armed["device"]["offsetErrorHi"] = 30;
  armed["process"] = air;
  const json water = {{"vessel", {{"density", 998.2041}, {"level", 1}, {"static", 10000}}}};
  Bench bench(armed);
  bench.Write(54, {"05"});
  bench.ExpectVerdict("1A");
  bench.Write(54, {"01"});
  bench.ExpectVerdict("10");
  Settle(bench, water);
  bench.Write(54, {"05"});
  bench.ExpectVerdict("10");
  bench.Advance(200);
  EXPECT_NEAR(bench.Value("pv"), 0, 0.01);
  EXPECT_EQ(bench.Digits("measuredType"), "05");
  bench.Write(54, {"01"});
  bench.ExpectVerdict("16");
  // Not armed, the writes only set the type.
  armed["device"]["selfCalibration"] = false;
  Bench plain(armed);
  plain.Write(54, {"01"});
  plain.Write(54, {"05"});
  plain.ExpectVerdict("10");
  EXPECT_EQ(plain.Value("densOffset"), 0);
  EXPECT_EQ(plain.Digits("measuredType"), "05");
}

TEST(Calibration, Characterization) {
  Bench bench(json{{"device", {{"gainErrorHi", 0.02}, {"offsetErrorHi", 100}}}});
  bench.Write(41, {F8(1.02), F8(0.25)});
  const std::string before = bench.Read(50);
  bench.Write(30, {"0001"});
  bench.ExpectVerdict("10");
  std::string x;
  std::string y;
  const std::vector<double> points{0, 12, 24};
  for (const double point : points) {
    Settle(bench, {{"pressureHi", 10000 + 1000 * point}});
    bench.Read(38);
    const std::string shown = ValueOf(bench.Read(39), "Pressure");
    EXPECT_EQ(shown, ValueOf(bench.Read(38), "PV")) << "before the trim";
    x += shown.substr(0, 8);
    y += F8(point);
  }
  x.append(16, '0');
  y.append(16, '0');
  bench.Write(31, {"03", x, y, "0003"});
  bench.ExpectVerdict("10");
  EXPECT_EQ(ValueOf(bench.Read(38), "CharNumPoints"), "03");
  for (const double point : points) {
    Settle(bench, {{"pressureHi", 10000 + 1000 * point}});
    EXPECT_NEAR(bench.Value("pv"), point, 1e-4);
  }
  bench.Write(31, {"03", y, x, "0002"});
  bench.ExpectVerdict("10");
  EXPECT_EQ(bench.Read(50), before);
  bench.Read(20);
  const std::string trimmed = ValueOf(bench.Read(39), "Pressure");
  EXPECT_NE(trimmed, ValueOf(bench.Read(38), "PV"));
}

TEST(Calibration, CharacterizationVerdicts) {
  const auto floats = [](const std::vector<double>& values) {
    std::string digits;
    for (std::size_t i = 0; i < 5; ++i) digits += F8(i < values.size() ? values[i] : 0);
    return digits;
  };
  struct Row {
    std::vector<std::string> attributes;
    const char* verdict;
  };
  const std::string up = floats({0, 10, 20});
  for (const auto& row : std::vector<Row>{{{"03", up, up, "0000"}, "10"},
                                          {{"03", floats({20, 10, 0}), floats({21, 10, 1}), "0003"}, "10"},
                                          {{"06", up, up, "0000"}, "1A"},
                                          {{"03", up.substr(8), up, "0000"}, "1A"},
                                          {{"03", up, up, "0001"}, "1A"},
                                          {{"03", floats({0, 10, 45}), up, "0000"}, "16"},
                                          {{"03", floats({0, 10, 10}), up, "0000"}, "1C"},
                                          {{"03", up, floats({20, 10, 0}), "0000"}, "1C"},
                                          {{"03", up, floats({0, 10, 24}), "0003"}, "1B"}}) {
    Bench bench;
    const std::string curve = bench.Digits("curveY");
    bench.Write(31, row.attributes);
    EXPECT_EQ(bench.Digits("operResult"), row.verdict) << row.attributes[1] << row.attributes[2];
    const bool good = std::string(row.verdict) == "10";
    EXPECT_EQ(bench.Digits("curveY") == curve, !good);
    EXPECT_EQ(bench.Digits("charOperation"), good ? row.attributes[3] : "0000");
  }
}

TEST(Calibration, BackupAndRestore) {
  Bench bench;
  bench.Write(41, {F8(1.01), F8(0.125)});
  bench.Write(32, {"0C"});
  const std::string before = bench.Read(50) + bench.Read(56);
  Settle(bench, {{"pressureHi", 12000}});
  bench.Write(14, {F8(2.5)});
  bench.ExpectVerdict("10");
  EXPECT_NE(bench.Read(50) + bench.Read(56), before);
  bench.Write(32, {"02"});
  EXPECT_EQ(bench.Read(50) + bench.Read(56), before);
  EXPECT_EQ(bench.Digits("backupRestore"), "02");
  bench.Write(32, {"01"});
  EXPECT_EQ(bench.Digits("gain"), F8(1));
  bench.Write(32, {"07"});
  bench.ExpectVerdict("1A");
  EXPECT_EQ(bench.Digits("backupRestore"), "01");
  // A copy taken in one unit comes back in another.
  bench.Write(32, {"0C"});
  bench.Write(12, {"0472"});
  bench.Write(44, {F8(360), F8(0)});
  bench.Write(32, {"02"});
  EXPECT_NEAR(Number(bench, "calHi"), 374, 1e-4);
}

TEST(Calibration, RestoreOfSensorDataAndDefaults) {
  Bench bench;
  bench.Write(37, {"02", "None", "None", "None", "03", "None", "00000007"});
  bench.Write(40, {"02"});
  bench.Write(32, {"05"});
  EXPECT_EQ(bench.Read(46), Bench().Read(46));
  EXPECT_EQ(bench.Digits("polyVersion"), "01");
  bench.Write(2, {"None", "0A", F8(20), F8(1)});
  bench.Write(41, {F8(1.02)});
  bench.Write(12, {"0471"});
  bench.Write(3, {F8(0.2) + F8(0), "0471"});
  bench.Write(46, {F8(9)});
  bench.Write(32, {"03"});
  bench.ExpectVerdict("10");
  for (const int code : {5, 6, 7, 58}) EXPECT_EQ(bench.Read(code), Bench().Read(code)) << code;
  EXPECT_EQ(bench.Digits("gain"), F8(1.02));
  bench.manager->BeginFault({{"kind", "sensorFailure"}});
  bench.Advance(200);
  bench.Write(32, {"0F"});
  bench.ExpectVerdict("1C");
}

}  // namespace
}  // namespace htr60::sim
