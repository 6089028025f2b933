#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "codecs/codec_names.h"
#include "codecs/enumeration_tables.h"
#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mStatusProfibus.h"
#include "codecs/monit_tables.h"
#include "codecs/unit_tables.h"
#include "plain/plain_codecs.h"

namespace htr60 {
namespace {

std::int32_t CodeOf(std::string_view digits) {
  std::int32_t code = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
  return code;
}

TEST(Units, DecoderKnowsItsCodesOnly) {
  const std::set<std::int32_t> missing{1014, 1015, 1016, 1017, 1021, 1022, 1023, 1095, 1241};
  for (std::int32_t code = 900; code < 1700; ++code) {
    EXPECT_EQ(UnitCodeToText(code).empty(), code < 1000 || code > 1525 || missing.count(code) != 0) << code;
  }
  for (const std::int32_t code : {0, -1, 1000 + 65536, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(UnitCodeToText(code), "") << code;
  }
  const std::vector<std::pair<std::int32_t, const char*>> rows{{1000, "K"},   {1001, "°C"},  {1007, "''"},
                                                               {1024, "km²"}, {1132, "Mpa"}, {1133, "kPa"},
                                                               {1342, "%"},   {1525, "mH2O"}};
  for (const auto& [code, text] : rows) EXPECT_EQ(UnitCodeToText(code), text);
}

TEST(Units, EncoderTakesTheLowestCodeButForItsOwnRows) {
  const std::map<std::string_view, std::string_view> own{
      {"µm", "03F6"},    {"nm", "03F7"},    {"pm", "03F8"},
      {"Å", "03F9"},     {"mile", "03FD"},  {"nautical mile", "03FE"},
      {"m²", "03FF"},    {"STon", "0447"},  {"SGU", "045A"},
      {"kg/m", "045B"},  {"mg/m", "045C"},  {"tex", "045D"},
      {"MN", "0461"},    {"kN", "0462"},    {"mN", "0463"},
      {"MPa", "046C"},   {"Mpa", "046C"},   {"inH2O", "047C"},
      {"mmH2O", "047F"}, {"ftH2O", "0482"}, {"mmHg", "0486"},
      {"MV", "04D9"},    {"GPM", "0553"}};
  std::set<std::string_view> texts;
  for (const std::string_view text : UnitListRows()) {
    texts.insert(text);
    const std::string_view digits = UnitTextToCode(text);
    ASSERT_EQ(digits.size(), 4U) << text;
    if (const auto row = own.find(text); row != own.end()) {
      EXPECT_EQ(digits, row->second) << text;
      continue;
    }
    std::int32_t lowest = 1000;
    while (lowest < 1526 && UnitCodeToText(lowest) != text) ++lowest;
    EXPECT_EQ(CodeOf(digits), lowest) << text;
  }
  // The list has every text that a code has, and these, which no code has.
  for (std::int32_t code = 1000; code < 1526; ++code) texts.erase(UnitCodeToText(code));
  EXPECT_EQ(texts, (std::set<std::string_view>{"GPM", "MN", "MPa", "MV", "SGU", "STon", "kN", "kg/m", "mg/m", "tex"}));
  const std::set<std::string_view> listed(UnitListRows().begin(), UnitListRows().end());
  for (std::int32_t code = 1000; code < 1526; ++code) {
    const std::string_view text = UnitCodeToText(code);
    EXPECT_TRUE(text.empty() || listed.count(text) != 0) << code;
  }
  for (const char* const text : {"", "kpa", " kPa", "kPa ", "m³/", "no such unit of any length", "%%"}) {
    EXPECT_EQ(UnitTextToCode(text), "") << text;
  }
}

TEST(Units, CodesThatChangeWhenWrittenBack) {
  const std::map<std::int32_t, std::int32_t> changes{
      {1057, 1056}, {1124, 1123}, {1135, 1134}, {1146, 1148}, {1149, 1151}, {1152, 1154}, {1157, 1158}, {1192, 1191},
      {1212, 1211}, {1227, 1226}, {1233, 1232}, {1239, 1238}, {1244, 1243}, {1247, 1246}, {1264, 1263}, {1272, 1271},
      {1286, 1285}, {1290, 1289}, {1297, 1296}, {1377, 1376}, {1387, 1386}, {1422, 1274}, {1449, 1448}, {1453, 1452},
      {1457, 1456}, {1461, 1460}, {1464, 1463}, {1468, 1467}, {1472, 1471}, {1476, 1475}, {1480, 1479}, {1484, 1483},
      {1488, 1487}, {1492, 1491}, {1496, 1495}, {1500, 1499}, {1504, 1503}, {1508, 1507}};
  // These are written to codes that decode to other texts, or to none.
  const std::map<std::int32_t, std::int32_t> moved{{1114, 1014}, {1115, 1015}, {1116, 1016}, {1117, 1017},
                                                   {1121, 1021}, {1122, 1022}, {1123, 1023}};
  for (std::int32_t code = 1000; code < 1526; ++code) {
    const std::string_view text = UnitCodeToText(code);
    if (text.empty()) continue;
    std::int32_t expected = code;
    if (const auto row = changes.find(code); row != changes.end()) expected = row->second;
    if (const auto row = moved.find(code); row != moved.end()) expected = row->second;
    EXPECT_EQ(CodeOf(UnitTextToCode(text)), expected) << code << " " << text;
  }
}

TEST(Units, Lists) {
  const auto all = UnitListRows();
  EXPECT_EQ(all.front(), "Pa");
  EXPECT_EQ(all[1], "Mpa");
  EXPECT_EQ(all[10], "mH2O");
  EXPECT_EQ(std::vector<std::string_view>(all.end() - 4, all.end()),
            (std::vector<std::string_view>{"INPM", "GL", "API", "CONC"}));
  EXPECT_EQ(std::count(all.begin(), all.end(), "mA"), 3);
  std::vector<std::string_view> digits;
  for (const std::string_view text : VolumeUnitListRows()) digits.push_back(UnitTextToCode(text));
  EXPECT_EQ(digits,
            (std::vector<std::string_view>{"040A", "040E", "0413", "041B", "0440", "0441", "0444", "0446", "0418"}));
  digits.clear();
  for (const std::string_view text : LengthUnitListRows()) digits.push_back(UnitTextToCode(text));
  EXPECT_EQ(digits, (std::vector<std::string_view>{"03F2", "03F4", "03F5", "03FA", "03FB"}));
  digits.clear();
  for (const std::string_view text : DensityUnitListRows()) digits.push_back(UnitTextToCode(text));
  EXPECT_EQ(digits, (std::vector<std::string_view>{"0449", "044C", "0453", "0592", "0542", "0457", "05F2", "053F",
                                                   "05F1", "05F3", "05F4", "053E", "044E"}));
}

TEST(Statuses, DecoderAndItsRanges) {
  const std::vector<std::pair<std::int32_t, const char*>> rows{
      {0, "Bad & Non-specific"},
      {31, "Bad & Out of Service & Constant"},
      {32, "Bad"},
      {63, "Bad"},
      {64, "Uncertain & Non-specific"},
      {95, "Uncertain & Config. Error"},
      {103, "Uncertain & Sensor Calibration"},
      {104, "Uncertain"},
      {127, "Uncertain"},
      {128, "Good (NC)"},
      {129, "Good (NC) &  Low Limited"},
      {134, "Good (NC) & Active  & High Limited"},
      {146, "Good (NC) & Active Critical Alarm & High Limited"},
      {156, "Good (NC)"},
      {163, "Good (NC) & IFS"},
      {168, "Good (NC)"},
      {192, "Good (C) & Non-specific"},
      {209, "Good (C) & Do Not Selected (NS) & Low Limited"},
      {220, "Good (C) & Reserved"},
      {226, "Good (C) & Initiate Fail Safe(IFS) & High Limited"},
      {228, "Good (NC)"},
      {255, "Good (NC)"},
      {256, "Good (NC)"},
      {-1, "Bad"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(StatusByteToText(value), text) << value;
}

TEST(Statuses, EncoderWritesTheLowestValue) {
  const auto rows = StatusListRows();
  std::multiset<std::string_view> doubled(rows.begin(), rows.end());
  for (const std::string_view text : std::set<std::string_view>(rows.begin(), rows.end())) {
    doubled.erase(doubled.find(text));
  }
  EXPECT_EQ(
      std::set<std::string_view>(doubled.begin(), doubled.end()),
      (std::set<std::string_view>{"Good (C) & Reserved", "Good (NC) & Active Critical Alarm & High Limited",
                                  "Good (NC) & IFS", "Good (NC) & Maintenance Required", "Uncertain & Config. Error",
                                  "Uncertain & Sensor Calibration", "Uncertain & Simulate Value"}));
  ASSERT_GT(rows.size(), 145U);
  EXPECT_EQ(rows.front(), "Bad & Non-specific");
  EXPECT_EQ(rows[32], "Good (NC)");
  EXPECT_EQ(rows[144], "Bad");
  EXPECT_EQ(rows[145], "Uncertain");
  for (const std::string_view text : rows.first(144)) {
    std::int32_t lowest = 0;
    while (lowest < 228 && StatusByteToText(lowest) != text) ++lowest;
    EXPECT_EQ(StatusTextToHex(text).size(), 2U) << text;
    EXPECT_EQ(CodeOf(StatusTextToHex(text)), lowest) << text;
  }
  const std::set<std::string_view> listed(rows.begin(), rows.end());
  for (std::int32_t value = 0; value < 256; ++value) {
    EXPECT_EQ(listed.count(StatusByteToText(value)), 1U) << value;
  }
  const std::vector<std::pair<const char*, const char*>> known{
      {"Uncertain & Config. Error", "5C"},
      {"Good (NC) & Maintenance Required", "A4"},
      {"Good (C) & Reserved", "D0"},
      {"Good (NC) & Active Critical Alarm & High Limited", "8E"},
      {"Bad & Conf Error", "04"},
      {"Bad", ""},
      {"Uncertain", ""},
      {"", ""},
      {"Good (NC) & Low Limited", ""}};
  for (const auto& [text, digits] : known) EXPECT_EQ(StatusTextToHex(text), digits) << text;
}

TEST(Enumerations, CodesAndTextsAgreeBothWays) {
  // Where the written digits are not the code, or the text has none.
  const std::map<std::string_view, std::set<std::int32_t>> odd{{"SimulateEnable", {1}}, {"SensorRange", {253}}};
  std::set<std::string> shownOnly;
  std::set<std::string> twoCodes;
  for (const DecoderName& decoder : DecoderNames()) {
    const std::string name(decoder.name.substr(6));
    const Encoder encode = FindEncoder("Encode" + name);
    if (encode == nullptr) shownOnly.insert(name);
    std::set<std::string_view> texts;
    for (std::int32_t code = -2; code < 65540; ++code) {
      const std::string_view text = decoder.decode(code);
      if (text.empty()) continue;
      if (!texts.insert(text).second) twoCodes.insert(name);
      const auto exceptions = odd.find(name);
      if (encode == nullptr || (exceptions != odd.end() && exceptions->second.count(code) != 0)) continue;
      EXPECT_EQ(CodeOf(encode(text)), code) << name << " " << text;
    }
    for (const std::int32_t code : {256 * 256, std::numeric_limits<std::int32_t>::min()}) {
      EXPECT_EQ(decoder.decode(code), "") << name;
    }
    EXPECT_FALSE(texts.empty()) << name;
  }
  EXPECT_EQ(twoCodes, (std::set<std::string>{"SimulateEnable"}));
  EXPECT_EQ(shownOnly, (std::set<std::string>{"AIChannel", "ActualMode", "DebugEnable", "OperResult", "SensorDiag",
                                              "TableStatus", "TransducerType"}));
  std::set<std::string> writtenOnly;
  for (const EncoderName& encoder : EncoderNames()) {
    const std::string name(encoder.name.substr(6));
    if (FindDecoder("Decode" + name) == nullptr) writtenOnly.insert(name);
  }
  EXPECT_EQ(writtenOnly, (std::set<std::string>{"EnableFlag", "MonitIndex", "NrPoints", "SendCode"}));
}

TEST(Enumerations, FallbacksAndWidths) {
  const std::map<std::string_view, std::string_view> fallbacks{
      {"EncodeSensorRange", "FF"},         {"EncodeSensorType", "FF"},   {"EncodeFillFluid", "00FF"},
      {"EncodeDiaphragmMaterial", "00FF"}, {"EncodeFlangeType", "FF"},   {"EncodeLinType", "00"},
      {"EncodeFlangeMaterial", "FF"},      {"EncodeORingMaterial", "FF"}};
  for (const EncoderName& encoder : EncoderNames()) {
    const auto row = fallbacks.find(encoder.name);
    const std::string_view expected = row == fallbacks.end() ? "" : row->second;
    EXPECT_EQ(encoder.encode(""), expected) << encoder.name;
    EXPECT_EQ(encoder.encode("no such text"), expected) << encoder.name;
  }
  const std::vector<std::tuple<std::string_view, std::string_view, std::string_view>> rows{
      {"EncodeSensorRange", "Special", "FF"},
      {"EncodeSensorRange", "Range 7 (20680.0 kPa)", "07"},
      {"EncodeSensorManufacturer", "Not Initialized", "FF"},
      {"EncodeDecimalPoint", "4", "04"},
      {"EncodeSimulateEnable", "Enable", "FF"},
      {"EncodeEnableFlag", "Enable", "01"},
      {"EncodeSensorInitialized", "Initialized", "AA"},
      {"EncodeSensorType", "Capacitive Sensor", "0075"},
      {"EncodeFillFluid", "fluorolube", "0003"},
      {"EncodePVType", "Density", "0081"},
      {"EncodeMeasuredType", "Density (20°C)", "02"},
      {"EncodeMeasuredType", "density (20°C)", ""},
      {"EncodeLinType", "No Linearization.", "00"},
      {"EncodeWriteProtect", "Write Unlocked", "0999"},
      {"EncodeFactoryReset", "Factory Reset Address", "0A98"},
      {"EncodeSensorModel", "Other/Special", "FFFF"},
      {"EncodeCharOperation", "Enable Curve", "0004"},
      {"EncodeNrPoints", "9", "09"},
      {"EncodeNrPoints", "21", "15"},
      {"EncodeNrPoints", "22", ""},
      {"EncodeSendCode", "5", "05"},
      {"EncodeSendCode", "1", ""},
      {"EncodeMonitIndex", "Lo Lim", "0019"}};
  for (const auto& [name, text, digits] : rows) {
    ASSERT_NE(FindEncoder(name), nullptr) << name;
    EXPECT_EQ(FindEncoder(name)(text), digits) << name << " " << text;
  }
  EXPECT_EQ(DecodeDecimalPoint(4), "");
  EXPECT_EQ(DecodeSensorManufacturer(255), "");
  EXPECT_EQ(DecodeSensorRange(253), "Special");
  EXPECT_EQ(DecodeSimulateEnable(1), "Enable");
  EXPECT_EQ(DecodeSimulateEnable(255), "Enable");
  EXPECT_EQ(DecodeSensorInitialized(171), "");
  EXPECT_EQ(DecodeTransducerType(65535), "Others Special");
  EXPECT_EQ(DecodeTableStatus(0), "Table Not Initialised");
  EXPECT_EQ(DecodeSensorDiag(2), "Sensor Not Initalized");
  EXPECT_EQ(DecodeAgile(256), "");
  EXPECT_EQ(FindDecoder("Agile"), nullptr);
  EXPECT_EQ(FindDecoder("EncodeAgile"), nullptr);
  EXPECT_EQ(FindEncoder("EncodeSensorDiag"), nullptr);
}

TEST(Monitors, IndexesByBlock) {
  struct Row {
    std::int32_t index;
    const char* block;
    const char* name;
    const char* fullName;
  };
  for (const Row& row : {Row{8, "", "Sensor Value", "Sensor Value"},
                         {11, "Transducer", "Cal Point Hi", "Cal Point Hi"},
                         {11, "Physical", "User Index", "PV Scale"},
                         {18, "Analog Input 1", "User Index", "FSafe Value"},
                         {18, "Physical", "User Index", "Write Locking"},
                         {18, "None", "User Index", ""},
                         {18, "Analog Input 4", "User Index", ""},
                         {27, "Analog Input 3", "User Index", "Lo Lo Lim"},
                         {27, "Physical", "User Index", ""},
                         {34, "Analog Input 2", "User Index", "Simulate"},
                         {20, "Transducer", "User Index", "Lo Lim"},
                         {25, "None", "User Index", "Lo Lim"},
                         {22, "Transducer", "User Index", "User Index"},
                         {109, "None", "PV%", "PV%"},
                         {65535, "Transducer", "User Index", "User Index"},
                         {256 + 8, "Transducer", "User Index", "User Index"}}) {
    EXPECT_EQ(DecodeMonitIndex(row.index, row.block), row.name) << row.index << row.block;
    EXPECT_EQ(DecodeMonitIndexFull(row.index, row.block), row.fullName) << row.index << row.block;
  }
  EXPECT_EQ(EncodeMonitIndex("User Index"), "");
  for (std::int32_t index = 0; index < 200; ++index) {
    for (const char* const block : {"Transducer", "Analog Input 2", "Physical", "None"}) {
      const std::string_view name = DecodeMonitIndexFull(index, block);
      if (name.empty() || name == "User Index") continue;
      EXPECT_EQ(CodeOf(EncodeMonitIndex(name)), name == "Lo Lim" ? 25 : index) << name;
      EXPECT_NE(DecodeMonitDataType(name), "NONE") << name;
    }
  }
}

TEST(Monitors, DataTypes) {
  for (const TextPair& row : kMonitIndexCodes) EXPECT_NE(DecodeMonitDataType(row.text), "NONE") << row.text;
  for (const auto& [name, type] : std::vector<std::pair<const char*, const char*>>{{"Total", "FLOATANDSTATUS"},
                                                                                   {"Temperature", "FLOATANDSTATUS"},
                                                                                   {"Cal Temperature", "FLOAT"},
                                                                                   {"PV%", "FLOAT"},
                                                                                   {"PV Scale", "2TFLOAT"},
                                                                                   {"Out Scale", "SCALING"},
                                                                                   {"Scale Out", "2TFLOAT"},
                                                                                   {"L Type", "UNSIGNED8"},
                                                                                   {"Unit Total", "UNSIGNED16"},
                                                                                   {"Mode Total", "UNSIGNED8"},
                                                                                   {"Mode Block", "MODE"},
                                                                                   {"Simulate", "SIMULATIONFLOAT"}}) {
    EXPECT_EQ(DecodeMonitDataType(name), type) << name;
  }
  EXPECT_EQ(DecodeMonitDataType("User Index"), "NONE");
}

}  // namespace
}  // namespace htr60
