#include "bench.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

// One writable parameter: where it is written, where it is shown, digits that are taken and digits that are not.
struct Writable {
  const char* type;
  int write;
  std::vector<std::string> attributes;  ///< taken
  int read;
  const char* block;
  const char* tag;
  std::string shown;
  std::string refused;  ///< in the place of the attribute that the tag shows
  std::size_t place;    ///< of that attribute, from 1
};

std::vector<Writable> Writables() {
  const std::string none = "None";
  const std::string twelve = F8(0) + F8(2.5) + F8(0.25) + std::string(72, '0');
  return {
      {"Pressure", 1, {TextDigits("TANK 7", 32)}, 1, "None", "PHYTag", TextDigits("TANK 7", 32), "41", 1},
      {"Pressure", 2, {none, "0A"}, 5, "None", "TRDLinType", "0A", "FB", 2},
      {"Pressure", 2, {none, none, F8(20)}, 5, "None", "TRDFlowLinSqrt", F8(20), F8(101), 3},
      {"Pressure", 2, {none, none, none, F8(7)}, 5, "None", "TRDLowFlowCutOff", F8(7), F8(-1), 4},
      {"Pressure", 3, {F8(20) + F8(0), "046D"}, 6, "None", "TRDInputScale", F8(20) + F8(0), F8(50) + F8(0), 1},
      {"Pressure", 3, {F8(2) + F8(0), "0472"}, 6, "None", "TRDPressUnit", "046D", "0545", 2},
      {"Pressure", 4, {F8(200) + F8(0), "0472"}, 7, "None", "TRDOutUnit", "0472", "0545", 2},
      {"Flow", 4, {F8(200) + F8(0), "0547"}, 7, "None", "TRDOutUnit", "0547", "046D", 2},
      {"Level", 4, {F8(300) + F8(0), "03F4"}, 7, "None", "TRDOutScale", F8(300) + F8(0), F8(1) + F8(1), 1},
      {"Pressure", 5, {"03EA"}, 8, "None", "TRDTempUnit", "03EA", "03EB", 1},
      {"Pressure", 13, {"03E8"}, 18, "None", "TRDUnitTemp", "03E8", "046D", 1},
      {"Pressure", 7, {"2", "80"}, 10, "2", "AITarget", "80", "20", 2},
      {"Pressure", 7, {"3", none, F8(12)}, 10, "3", "AIDamping", F8(12), F8(121), 3},
      {"Pressure", 7, {"1", none, none, "02"}, 10, "1", "AIConfig", "02", "03", 4},
      {"Pressure", 8, {"1", F8(30), F8(20), F8(1), F8(2), F8(0.5)}, 11, "1", "AIUpperLimAlarm", F8(30), F8(19), 2},
      {"Pressure", 8, {"1", F8(30), F8(20), F8(1), F8(2), F8(0.5)}, 11, "1", "AILimHysteresis", F8(0.5), F8(30), 6},
      {"Pressure", 9, {"1", "02", F8(5)}, 12, "1", "AIFailSafeType", "02", "03", 2},
      {"Pressure", 9, {"1", "02", F8(5)}, 12, "1", "AIFailSafeValue", F8(5), "7FC00000", 3},
      {"Pressure", 10, {"2", "80" + F8(5) + "01"}, 13, "2", "AISimulate", "80" + F8(5) + "01", "80" + F8(5) + "02", 2},
      {"Pressure", 11, {"1", F8(5) + "80", "10"}, 14, "1", "AIOutput", F8(5) + "80", F8(5), 2},
      {"Pressure", 12, {"0471"}, 15, "None", "TRDUnit", "0471", "0545", 1},
      {"Pressure", 69, {"0475"}, 77, "None", "CalUnit", "0475", "", 1},
      {"Pressure", 25, {"04"}, 30, "None", "LCDFunctionBlock", "04", "02", 1},
      {"Pressure", 26, {none, "001d"}, 31, "None", "LCDRelIndex", "001D", "1D", 2},
      {"Pressure", 24, {none, none, none, "4F5554"}, 29, "None", "LCDMnemonic", TextDigits("OUT", 16), "4F5", 4},
      {"Pressure", 27, {none, none, none, none, "04"}, 32, "None", "LCDDecPoint", "04", "05", 5},
      {"Pressure", 28, {"02"}, 33, "None", "LCDSwitch", "02", "04", 1},
      {"Pressure", 29, {"00"}, 34, "None", "LCDBargraph", "00", "02", 1},
      {"Pressure", 33, {"80"}, 40, "None", "GSDIdentNumber", "80", "81", 1},
      {"Pressure", 33, {none, "1A2b"}, 40, "None", "USERIdentNumber", "1A2B", "1G2B", 2},
      {"Pressure", 33, {none, none, "00"}, 40, "None", "Agile", "00", "02", 3},
      {"Pressure", 35, {"FF", F8(3) + "80"}, 43, "None", "TRDSimulateEnable", "FF", "02", 1},
      {"Level", 62, {"00", F8(3) + "80"}, 72, "None", "TRDSimulateValue", F8(3) + "80", F8(3), 2},
      {"Pressure", 36, {"0000"}, 44, "None", "WriteProtect", "0000", "0001", 1},
      {"Pressure", 37, {"02"}, 46, "None", "SensorManufacturer", "02", "04", 1},
      {"Pressure", 37, {none, none, none, "0076"}, 46, "None", "TRDSensorType", "0076", "00FF", 4},
      {"Pressure", 37, {none, none, none, none, "03"}, 46, "None", "TRDSensorRangeCode", "03", "FF", 5},
      {"Pressure",
       37,
       {none, none, none, none, none, none, "7FFFFFFF"},
       46,
       "None",
       "TRDSensorSerialNumber",
       "7FFFFFFF",
       "80000000",
       7},
      {"Pressure", 70, {none, none, none, "0002"}, 46, "None", "TRDSensorFillFluid_Lo", "0002", "00FF", 4},
      {"Pressure",
       70,
       {none, none, none, none, none, none, "006D"},
       46,
       "None",
       "TRDSensorModel_Lo",
       "006D",
       "006E",
       7},
      {"Pressure", 39, {"EC"}, 48, "None", "TRDFlangeType", "EC", "FF", 1},
      {"Pressure", 71, {none, none, "0A"}, 4, "None", "TRDORingMaterial_Lo", "0A", "FF", 3},
      {"Pressure", 40, {none, twelve}, 49, "None", "CoeffPol", twelve + std::string(32, '0'), twelve + "0", 2},
      {"Pressure", 41, {F8(1.05)}, 50, "None", "TRDPressGain", F8(1.05), F8(2.5), 1},
      {"Pressure",
       41,
       {none, none, none, none, none, none, none, F8(-2)},
       50,
       "None",
       "TRDSns2OffSet",
       F8(-2),
       F8(40),
       8},
      {"Pressure", 43, {"01"}, 55, "None", "TRDDeadBandBypass", "01", "02", 1},
      {"Pressure", 45, {none, F8(1)}, 57, "None", "TRDAzTrimReference", F8(1), F8(40), 2},
      {"Pressure", 45, {none, none, none, "12c"}, 57, "None", "TRDAzTrimTimeAction", "0000012C", "00015181", 4},
      {"Level", 46, {none, F8(2.5)}, 58, "None", "Height", F8(2.5), F8(0.01), 2},
      {"Density", 46, {none, none, F8(0.001)}, 58, "None", "LinearDilatation", F8(0.001), F8(0.0011), 3},
      {"Density", 47, {F8(7)}, 59, "None", "K0", F8(7), "7G000000", 1},
      {"Density", 48, {none, none, none, none, none, none, F8(50), F8(5)}, 60, "None", "LimLo", F8(5), F8(60), 8},
      {"Density", 49, {F8(20) + F8(0), "046D"}, 61, "None", "TRDInputScale", F8(20) + F8(0), F8(0.1) + F8(0), 1},
      {"Density", 51, {none, "06"}, 63, "None", "MeasuredType", "06", "0E", 2},
      {"Density", 51, {none, none, "00"}, 63, "None", "PositionMounting", "00", "02", 3},
      {"Density", 54, {"06"}, 62, "None", "TRDOutUnit", "0542", "0E", 1},
      {"Level", 57, {F8(50) + F8(0), "040E"}, 67, "None", "TRDPressUnit", "040E", "03F2", 2},
      {"Level", 59, {none, none, "01"}, 69, "None", "TRDCompensation", "01", "02", 3},
      {"Level", 59, {none, none, none, none, none, F8(1)}, 69, "None", "DeadBandComp", F8(1), F8(50), 6},
      {"Density", 60, {"01", F8(3), F8(25)}, 70, "None", "TRDFloatDebug", F8(3), "123", 2},
      {"Density", 61, {"01"}, 71, "None", "TRDRangeCode", "01", "03", 1},
      {"Pressure", 72, {"0002"}, 79, "None", "TRDPVType", "0002", "0003", 1},
      {"Pressure", 73, {"2", F8(10) + F8(0), "255"}, 80, "2", "TrdScaleSnsHi", F8(10) + F8(0), F8(1) + F8(1), 2},
      {"Pressure", 74, {"3", "0471", ""}, 80, "3", "TrdScaleSnsLoUnit", "0471", "03E9", 2},
      {"Pressure",
       75,
       {"1", F8(50) + F8(0) + "053E00"},
       80,
       "1",
       "AIScaleOutput",
       F8(50) + F8(0) + "053E00",
       F8(50) + F8(0) + "00",
       2},
      {"Pressure", 76, {"02"}, 80, "2", "AIConfig", "02", "00", 1},
  };
}

TEST(Writes, TakenDigitsComeBackAndRefusedOnesLeaveThem) {
  for (const auto& row : Writables()) {
    SCOPED_TRACE(std::string(row.type) + " write " + std::to_string(row.write) + " " + row.tag);
    Bench bench(OfType(row.type));
    const std::string before = ValueOf(bench.Read(row.read, {row.block}), row.tag);
    auto wrong = row.attributes;
    wrong[row.place - 1] = row.refused;
    bench.Log();
    bench.Write(row.write, wrong);
    EXPECT_EQ(ValueOf(bench.Read(row.read, {row.block}), row.tag).substr(0, 8), before.substr(0, 8));
    EXPECT_NE(bench.Log().dump().find("refused"), std::string::npos);
    bench.Write(row.write, row.attributes);
    if (row.write == 3 && row.place == 2) {
      // 2 mbar are below the minimum span: scale and unit are judged together.
      EXPECT_EQ(ValueOf(bench.Read(row.read, {row.block}), row.tag), before);
      continue;
    }
    EXPECT_EQ(ValueOf(bench.Read(row.read, {row.block}), row.tag), row.shown);
    EXPECT_NE(bench.Log().dump().find("accepted"), std::string::npos);
  }
}

TEST(Writes, LockedDeviceKeepsEverything) {
  for (const auto& row : Writables()) {
    if (row.write == 36) continue;
    SCOPED_TRACE("write " + std::to_string(row.write));
    json settings = OfType(row.type);
    settings["device"]["writeLocked"] = true;
    Bench bench(settings);
    const std::string before = bench.Read(row.read, {row.block});
    bench.Write(row.write, row.attributes);
    EXPECT_EQ(bench.Read(row.read, {row.block}), before);
    EXPECT_EQ(bench.Read(44), Bench(settings).Read(44));
  }
}

TEST(Writes, UnlockingTakesTheTagOfTheSameWrite) {
  Bench bench(json{{"device", {{"writeLocked", true}}}});
  const std::string tag = TextDigits("A", 32);
  bench.Write(1, {tag, "0000"});
  EXPECT_NE(bench.Digits("tag"), tag);
  bench.Write(1, {tag, "0999"});
  EXPECT_EQ(bench.Digits("tag"), tag);
  EXPECT_EQ(bench.Digits("writeLock"), "0999");
  bench.Write(1, {TextDigits("B", 32), "0000"});
  EXPECT_EQ(bench.Digits("tag"), TextDigits("B", 32));
  bench.Write(36, {"0999"});
  EXPECT_EQ(bench.Digits("writeLock"), "0999");
}

TEST(Writes, NeighboursOfARefusedAttributeAreStored) {
  Bench bench;
  bench.Log();
  bench.Write(2, {"0005", "0A", F8(200), F8(7)});
  EXPECT_EQ(bench.Digits("pvType"), "0000");
  EXPECT_EQ(bench.Digits("linType"), "0A");
  EXPECT_EQ(bench.Digits("sqrtPoint"), F8(10));
  EXPECT_EQ(bench.Digits("cutOff"), F8(7));
  EXPECT_EQ(bench.Log().size(), 4U);
  // No block, no write.
  bench.Write(7, {"4", "80", F8(3)});
  bench.Write(7, {"None", "80", F8(3)});
  for (const char* block : {"ai1", "ai2", "ai3"}) EXPECT_EQ(bench.Digits(std::string(block) + ".target"), "08");
}

TEST(Writes, WholeWritesThatAreNeverTaken) {
  Bench density(OfType("Density"));
  const std::string before = density.Read(62);
  density.Write(4, {F8(1) + F8(0), "046D"});
  density.Write(42, {F8(1) + F8(0), "046D"});
  density.Write(50, {F8(1) + F8(0), "044C"});
  EXPECT_EQ(density.Read(62), before);
  Bench old(json{{"device", {{"firmware", "1.06"}}}});
  old.Write(76, {"02"});
  old.Write(7, {"2", "80", F8(2), "02"});
  old.Write(33, {"80"});
  EXPECT_EQ(old.Digits("aiConfig"), "01");
  EXPECT_EQ(old.Digits("ai2.target"), "80");
  EXPECT_EQ(old.Digits("identSelector"), "80");
  Bench older(json{{"device", {{"firmware", "1.04"}}}});
  older.Write(33, {"80", "1234"});
  EXPECT_EQ(older.Digits("identSelector"), "01");
  EXPECT_EQ(older.Digits("userIdent"), "0000");
}

// Settings pages as the control writes them back: the write, and what it takes from which read.
struct Page {
  const char* type;
  int read;
  int write;
  const char* block;
  std::vector<std::string> tags;  ///< after the block, where there is one
};

TEST(Writes, AnUnchangedPageChangesNothing) {
  const std::vector<Page> pages{
      {"Pressure", 1, 1, nullptr, {"PHYTag", "PHYWriteProtection"}},
      {"Flow", 5, 2, nullptr, {"TRDPVType", "TRDLinType", "TRDFlowLinSqrt", "TRDLowFlowCutOff"}},
      {"Pressure", 6, 3, nullptr, {"TRDInputScale", "TRDPressUnit"}},
      {"Pressure", 7, 4, nullptr, {"TRDOutScale", "TRDOutUnit"}},
      {"Pressure", 7, 42, nullptr, {"TRDOutScale", "TRDOutUnit"}},
      {"Pressure", 8, 5, nullptr, {"TRDTempUnit"}},
      {"Pressure", 10, 7, "2", {"AITarget", "AIDamping", "AIConfig"}},
      {"Level",
       11,
       8,
       "3",
       {"AIUpperLimAlarm", "AIUpperLimWarning", "AILowerLimAlarm", "AILowerLimWarning", "AILimHysteresis"}},
      {"Pressure", 12, 9, "1", {"AIFailSafeType", "AIFailSafeValue"}},
      {"Pressure", 13, 10, "1", {"AISimulate"}},
      {"Pressure", 15, 12, nullptr, {"TRDUnit"}},
      {"Pressure",
       30,
       25,
       nullptr,
       {"LCDFunctionBlock", "LCDRelIndex", "LCDElement", "LCDMnemonic", "LCDDecPoint", "LCDAlphaNum"}},
      {"Pressure", 40, 33, nullptr, {"GSDIdentNumber", "USERIdentNumber", "Agile"}},
      {"Pressure", 43, 35, nullptr, {"TRDSimulateEnable", "TRDSimulateValue"}},
      {"Pressure",
       46,
       37,
       nullptr,
       {"SensorManufacturer", "SensorConnected", "SensorInitialized", "TRDSensorType", "TRDSensorRangeCode",
        "TRDSensorFillFluid", "TRDSensorSerialNumber", "TRDSensorDiaMtrl", "TRDSensorModel"}},
      {"Pressure",
       50,
       41,
       nullptr,
       {"TRDPressGain", "TRDPressSensorOffset", "TRDTempSensorGain", "TRDTempSensorOffSet", "TRDSns1Gain",
        "TRDSns1OffSet", "TRDSns2Gain", "TRDSns2OffSet"}},
      {"Pressure", 55, 43, nullptr, {"TRDDeadBandBypass"}},
      {"Pressure",
       57,
       45,
       nullptr,
       {"TRDAzTrimEnable", "TRDAzTrimReference", "TRDAzTrimNoiseBand", "TRDAzTrimTimeAction", "TRDAzTrimSelection"}},
      {"Density",
       58,
       46,
       nullptr,
       {"Gravity", "Height", "LinearDilatation", "PressureCoeff", "ZeroAdjustTemp", "heighMeasTemp"}},
      {"Density", 63, 51, nullptr, {"TRDPVType", "MeasuredType", "PositionMounting", "TRDLinType"}},
      {"Density", 66, 54, nullptr, {"MeasuredType"}},
      {"Level", 67, 57, nullptr, {"TRDInputScale", "TRDPressUnit"}},
      {"Level", 69, 59, nullptr, {"TRDPVType", "TRDLinType", "TRDCompensation", "Gravity", "Height", "DeadBandComp"}},
      {"Density", 70, 60, nullptr, {"TRDDebugEnable", "TRDFloatDebug", "TRDTempSimulate"}},
      {"Density", 71, 61, nullptr, {"TRDRangeCode"}},
      {"Pressure", 80, 75, "2", {"AIScaleOutput"}},
      {"Pressure", 79, 72, nullptr, {"TRDPVType"}},
  };
  for (const auto& page : pages) {
    SCOPED_TRACE(std::string(page.type) + " write " + std::to_string(page.write));
    Bench bench(OfType(page.type));
    const std::vector<std::string> operands =
        page.block != nullptr ? std::vector<std::string>{page.block} : std::vector<std::string>{};
    const std::string before = bench.Read(page.read, operands);
    std::vector<std::string> attributes = operands;
    for (const auto& tag : page.tags) attributes.push_back(ValueOf(before, tag));
    std::vector<std::string> all;
    for (const int code : {5, 6, 7, 9, 50, 56, 58}) all.push_back(bench.Read(code));
    bench.Log();
    bench.Write(page.write, attributes);
    const json log = bench.Log();
    EXPECT_EQ(log.size(), page.tags.size());
    EXPECT_EQ(log.dump().find("refused"), std::string::npos) << log.dump();
    EXPECT_EQ(bench.Read(page.read, operands), before);
    std::vector<std::string> after;
    for (const int code : {5, 6, 7, 9, 50, 56, 58}) after.push_back(bench.Read(code));
    EXPECT_EQ(after, all);
  }
}

std::vector<std::string> Table(const std::vector<std::pair<double, double>>& points, const std::string& enable) {
  std::vector<std::string> attributes{NumberDigits(points.size(), 2)};
  for (std::size_t i = 0; i < 11; ++i) {
    std::string digits;
    for (std::size_t k = 2 * i; k < 2 * i + 2 && k < points.size(); ++k)
      digits += PairDigits(points[k].first, points[k].second);
    attributes.push_back(digits);
  }
  attributes.push_back(enable);
  return attributes;
}

TEST(Writes, LinearizationTable) {
  Bench bench(OfType("Flow"));
  bench.Write(6, Table({{0, 0}, {50, 50}, {40, 60}}, "Yes"));
  EXPECT_EQ(bench.Digits("tableStatus"), "02");
  EXPECT_EQ(bench.Digits("linType"), "0A");
  bench.Write(2, {"None", "F0"});
  EXPECT_EQ(bench.Digits("linType"), "0A") << "no table has been accepted";
  bench.Write(6, Table({{0, 0}, {50, 25}, {100, 100}}, "No"));
  EXPECT_EQ(bench.Digits("tableStatus"), "01");
  EXPECT_EQ(bench.Digits("linType"), "0A");
  bench.Write(6, Table({{0, 0}, {50, 25}, {100, 100}}, "Yes"));
  EXPECT_EQ(bench.Digits("linType"), "F0");
  const std::string stored = bench.Digits("point[2]");
  bench.Write(6, Table({{0, 0}, {40, 30}, {100, 20}}, "Yes"));
  EXPECT_EQ(bench.Digits("tableStatus"), "03");
  EXPECT_EQ(bench.Digits("point[2]"), stored);
  EXPECT_EQ(bench.Digits("linType"), "F0");
  auto shortOne = Table({{0, 0}, {50, 25}, {100, 100}}, "Yes");
  shortOne[0] = "05";
  bench.Write(6, shortOne);
  EXPECT_EQ(bench.Digits("tablePoints"), "03");
  EXPECT_EQ(bench.Digits("tableStatus"), "03");
  // 9.35 kPa are 25 %, by the root 50 %, by the table 25 %.
  bench.Advance(200);
  EXPECT_NEAR(bench.Value("pv"), 25, 1e-4);
}

TEST(Writes, TypeChangesAndBackEndWithTheDefaults) {
  for (const char* type : kTypeNames) {
    for (const char* code : {"0000", "0001", "0002", "0081"}) {
      SCOPED_TRACE(std::string(type) + " to " + code);
      Bench bench(OfType(type));
      const std::string own = bench.Digits("pvType");
      bench.Write(2, {"None", "00"});
      bench.Write(41, {F8(1.02), F8(0.5)});
      const std::vector<int> codes{7, 11, 12, 13, 61, 50, 56};
      std::vector<std::string> before;
      for (const int read : codes) before.push_back(bench.Read(read, {"2"}));
      const std::string linear = Bench(OfType(type)).Digits("linType");
      bench.Write(3, {F8(20) + F8(1), "046D"});
      bench.Write(72, {code});
      bench.Write(72, {own});
      if (own == code) bench.Write(3, {ValueOf(before[4], "TRDInputScale"), "046D"});
      std::vector<std::string> after;
      for (const int read : codes) after.push_back(bench.Read(read, {"2"}));
      EXPECT_EQ(after, before);
      EXPECT_EQ(bench.Digits("linType"), own == code ? "00" : linear);
    }
  }
}

TEST(Writes, UnitsThereAndBack) {
  const std::vector<std::string> names{"limHi.hi", "limLo.lo", "minSpan", "calHi",   "calLo.lo", "azBand",
                                       "deadBand", "tempMax",  "tempMin", "calTemp", "curveX"};
  for (const char* unit : {"046A", "046C", "0471", "0475", "0479", "047F", "05F5"}) {
    Bench bench;
    const auto value = [&](const std::string& name) { return FloatAt(bench.Digits(name), name == "curveX" ? 8 : 0); };
    std::vector<double> before;
    for (const auto& name : names) before.push_back(value(name));
    bench.Write(12, {unit});
    bench.Write(5, {"03EA"});
    EXPECT_EQ(bench.Digits("tempMax"), F8(212));
    EXPECT_EQ(bench.Digits("inUnit"), "046D");
    bench.Write(12, {"046D"});
    bench.Write(5, {"03E9"});
    for (std::size_t i = 0; i < names.size(); ++i) {
      EXPECT_NEAR(value(names[i]), before[i], std::abs(before[i]) * 0x1p-23) << names[i] << " " << unit;
    }
  }
}

TEST(Writes, RangeBringsLimitsAndCalibrationWithIt) {
  Bench bench;
  bench.Write(41, {F8(1.02), F8(0.5), "None", "None", F8(1.03), "None", F8(1.04)});
  bench.Write(37, {"None", "None", "None", "None", "03"});
  const std::string two = bench.Read(2);
  EXPECT_EQ(ValueOf(two, "TRDSensorLimitHi_SnsHi"), F8(147.1));
  EXPECT_EQ(ValueOf(two, "TRDSensorLimitHi_SnsLo"), F8(37.4));
  EXPECT_EQ(bench.Digits("minSpan"), F8(1.471));
  EXPECT_EQ(bench.Digits("calHi.hi"), F8(147.1));
  EXPECT_EQ(bench.Digits("calHi"), F8(147.1));
  EXPECT_EQ(bench.Digits("gain"), F8(1));
  EXPECT_EQ(bench.Digits("gain.hi"), F8(1));
  EXPECT_EQ(bench.Digits("gain.lo"), F8(1.04));
  bench.Write(70, {"None", "None", "None", "None", "None", "None", "006D"});
  EXPECT_EQ(bench.Digits("transducerType.lo"), "006D");
  EXPECT_EQ(bench.Digits("limLo.lo"), F8(0));
}

TEST(Writes, MeasuredTypeAndRangeMoveTheDensityScales) {
  Bench bench(OfType("Density"));
  bench.Write(61, {"01"});
  EXPECT_EQ(bench.Digits("outScale"), F8(2.5) + F8(1.0));
  EXPECT_EQ(ValueOf(bench.Read(27, {"3"}), "AIPVScale"), F8(2500) + F8(1000));
  bench.Write(54, {"01"});
  EXPECT_EQ(bench.Digits("outScale"), F8(2500) + F8(1000));
  EXPECT_EQ(bench.Digits("densHi"), F8(1800));
  EXPECT_EQ(bench.Digits("ai1.outScale"), F8(2500) + F8(1000) + "044900");
  bench.Write(54, {"09"});
  EXPECT_EQ(bench.Digits("outUnit"), "053F");
  bench.Write(48, {"None", "None", "None", "None", "None", "None", F8(80), F8(10)});
  EXPECT_EQ(bench.Digits("outScale"), F8(80) + F8(10));
}

TEST(Writes, FactoryResetAndWarmStart) {
  Bench bench;
  bench.Write(1, {TextDigits("X", 32)});
  bench.Write(41, {F8(1.02)});
  bench.Write(37, {"02"});
  bench.Write(34, {"0001"});
  EXPECT_FALSE(bench.manager->Online());
  EXPECT_EQ(bench.Read(1), "(none)");
  bench.Advance(5100);
  EXPECT_TRUE(bench.manager->Online());
  EXPECT_EQ(bench.Digits("tag"), TextDigits("HTR60-1", 32));
  EXPECT_EQ(bench.Digits("gain"), F8(1));
  EXPECT_EQ(bench.Digits("sensorMaker"), "02");
  EXPECT_EQ(bench.Digits("factoryReset"), "0000");
  bench.Write(35, {"01"});
  bench.Write(1, {TextDigits("X", 32)});
  bench.Write(34, {"09CA"});
  EXPECT_EQ(bench.Digits("simEnable"), "00");
  EXPECT_EQ(bench.Digits("tag"), TextDigits("X", 32));
  bench.Advance(5100);
  bench.Write(34, {"0A98"});
  bench.Advance(14000);
  EXPECT_FALSE(bench.manager->Online());
  bench.Advance(1100);
  EXPECT_TRUE(bench.manager->Online());
}

}  // namespace
}  // namespace htr60::sim
