#include "bench.h"
#include "core/xml_documents.h"
#include "simulator/device/reads.h"
#include "simulator/manager/request_document.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

TEST(Documents, WireExamplesToTheByte) {
  Bench pressure;
  EXPECT_EQ(pressure.Read(90), "<DTMInfo state='Online' />");
  EXPECT_EQ(
      pressure.Read(1),
      "<Answer><Parameter tag=\"TRDPVType\" value=\"0000\"/><Parameter tag=\"PHYTag\" "
      "value=\"48545236302D3100000000000000000000000000000000000000000000000000\"/><Parameter tag=\"PHYManufacturer\" "
      "value=\"60BE\"/><Parameter tag=\"TRDOrderingCode\" "
      "value=\"48545236302D44322D53312D4D31000000000000000000000000000000000000\"/><Parameter tag=\"PHYFirmware\" "
      "value=\"312E3039202020202020202020202020\"/><Parameter tag=\"PHYDevSerialNumber\" "
      "value=\"30363030303030310000000000000000\"/><Parameter tag=\"PHYGSDIdentNumSelector\" value=\"01\"/><Parameter "
      "tag=\"PHYWriteProtection\" value=\"0999\"/><Parameter tag=\"ModemVersion\" value=\"0003\"/><Parameter "
      "tag=\"SnsHiVersion\" value=\"12\"/><Parameter tag=\"SnsLoVersion\" value=\"12\"/></Answer>");
  EXPECT_EQ(
      pressure.Read(7),
      "<Answer><Parameter tag=\"MeasuredType\" value=\"00\"/><Parameter tag=\"TRDOutScale\" "
      "value=\"4215999A00000000\"/><Parameter tag=\"TRDOutUnit\" value=\"046D\"/><Parameter tag=\"TRDSensorUnit\" "
      "value=\"046D\"/><Parameter tag=\"TRDUpperSnsLimit\" value=\"4215999A\"/><Parameter "
      "tag=\"TRDLowerSnsLimit\" value=\"C215999A\"/></Answer>");
  EXPECT_EQ(Bench(OfType("Density")).Read(66),
            "<Answer><Parameter tag=\"MeasuredType\" value=\"00\"/><Parameter tag=\"TRDPVType\" "
            "value=\"0081\"/></Answer>");
}

TEST(Documents, RequestsAreWellFormed) {
  for (const XmlDocument& d : XmlDocuments("ViewData", R"(<ControlData Attribute1="1F"/>)")) {
    const auto attributes = ParseRequest(d.text);
    ASSERT_EQ(attributes.has_value(), TakenElsewhere(d.verdict)) << d.name;
    if (attributes) {
      EXPECT_EQ(attributes->front(), "1F") << d.name;
    }
  }
}

TEST(Documents, TableExampleToTheByte) {
  Bench bench;
  std::vector<std::string> table{"03", "00000000000000004248000041CC0000", "42C8000042C800001111111111111111"};
  while (table.size() < 11) table.emplace_back(32, '1');
  table.emplace_back("");
  table.emplace_back("Yes");
  bench.Write(6, table);
  std::string expected =
      "<Answer><Parameter tag=\"TRDLinType\" value=\"01\"/><Parameter tag=\"TRDNumpoints\" value=\"03\"/>";
  for (int k = 1; k <= 21; ++k) {
    std::string value = "0000000000000000";
    if (k == 2) value = "4248000041CC0000";
    if (k == 3) value = "42C8000042C80000";
    const std::string n = std::to_string(k);
    expected += "<Parameter tag=\"TRDX" + n + "Y" + n + "\" value=\"" + value + "\"/>";
  }
  EXPECT_EQ(bench.Read(9), expected + "<Parameter tag=\"TRDTableStatus\" value=\"01\"/></Answer>");
}

TEST(Documents, EveryReadHasItsTagsInOrderAndItsDigits) {
  for (const char* type : kTypeNames) {
    for (const char* firmware : {"1.00", "1.04", "1.05", "1.06", "1.07", "1.08", "1.09", "1.10", "2.00", "4.19"}) {
      json settings = OfType(type);
      settings["device"]["firmware"] = firmware;
      Bench bench(settings);
      const int version = (firmware[0] - '0') * 100 + (firmware[2] - '0') * 10 + (firmware[3] - '0');
      for (const int code : ReadCodes()) {
        for (const char* block : {"1", "2", "3"}) {
          SCOPED_TRACE(std::string(type) + " " + firmware + " read " + std::to_string(code) + " block " + block);
          const auto tags = TagsOf(bench.Read(code, {block}));
          std::vector<ReadRow> rows;
          const auto all = ReadRows(code).value();
          for (const auto& row : all) {
            if (row.since <= version) rows.push_back(row);
          }
          ASSERT_EQ(tags.size(), rows.size());
          for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ(tags[i].name, rows[i].tag);
            EXPECT_TRUE(IsHexadecimal(tags[i].value)) << tags[i].value;
            const bool scale = (rows[i].tag == "AIPVUnit" || rows[i].tag == "PVUnitScale") && *block != '1' &&
                               std::string(type) == "Pressure";
            EXPECT_EQ(tags[i].value.size(), DigitsOf(scale ? Form::kR22 : rows[i].form)) << rows[i].tag;
          }
        }
      }
    }
  }
}

// What stands on the wire by the tables of the instrument's manual, written down here a second time.
struct Expected {
  const char* type;
  int code;
  const char* block;
  const char* tag;
  std::string value;
};

TEST(Documents, DefaultValues) {
  const std::vector<Expected> rows{
      {"Flow", 5, "None", "TRDLinType", "0A"},
      {"Flow", 7, "None", "TRDOutUnit", "0545"},
      {"Flow", 7, "None", "TRDOutScale", F8(100) + F8(0)},
      {"Level", 7, "None", "TRDOutScale", F8(3) + F8(0)},
      {"Level", 6, "None", "TRDInputScale", F8(29.41995) + F8(0)},
      {"Level", 67, "None", "TRDPressUnit", "040A"},
      {"Density", 7, "None", "TRDOutScale", F8(1.8) + F8(0.5)},
      {"Pressure", 11, "1", "AIUpperLimAlarm", F8(41.14)},
      {"Pressure", 11, "1", "AIUpperLimWarning", F8(39.27)},
      {"Pressure", 11, "1", "AILowerLimAlarm", F8(-3.74)},
      {"Pressure", 11, "1", "AILowerLimWarning", F8(-1.87)},
      {"Pressure", 11, "1", "AILimHysteresis", F8(0.187)},
      {"Pressure", 11, "2", "AIUnit", F8(37.4) + F8(0) + "046D00"},
      {"Flow", 27, "3", "AIPVScale", F8(110) + F8(-10)},
      {"Flow", 27, "3", "AIPVUnit", "03E9"},
      {"Level", 80, "3", "PVUnitScale", "0000"},
      {"Level", 80, "3", "AIScaleOutput", F8(110) + F8(-10) + "03E900"},
      {"Level", 80, "2", "PVUnitScale", "040A"},
      {"Density", 27, "2", "AIScaleOut", F8(1800) + F8(500) + "044900"},
      {"Pressure", 10, "3", "AIChannel", "011F"},
      {"Pressure", 10, "None", "AIChannel", "0112"},
      {"Pressure", 10, "1", "AIActual", "089808"},
      {"Pressure", 45, "None", "CapHiValue", "456E853980"},
      {"Pressure", 45, "None", "CapLoValue", "4551F48180"},
      {"Pressure", 26, "None", "PrimaryValue", F8(10) + "80"},
      {"Flow", 26, "None", "SensorValue", F8(9.35)},
      {"Density", 26, "None", "PrimaryValue", F8(1.0) + "80"},
      {"Pressure", 29, "None", "LCDMnemonic", "41493100000000000000000000000000"},
      {"Pressure", 30, "None", "LCDRelIndex", "0012"},
      {"Pressure", 49, "None", "CoeffPol", F8(0) + F8(2.5) + std::string(112, '0')},
      {"Pressure", 58, "None", "Gravity", "411CE80A"},
      {"Pressure", 58, "None", "LinearDilatation", "37800000"},
      {"Pressure", 59, "None", "K1", F8(100)},
      {"Pressure", 46, "None", "TRDSensorSerialNumber_Lo", "0000303A"},
      {"Pressure", 75, "None", "SensorVal", F8(10) + "80"},
      {"Pressure", 57, "None", "TRDAzTrimTimeAction", "0000003C"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.type) + " read " + std::to_string(row.code) + " " + row.tag);
    EXPECT_EQ(ValueOf(Bench(OfType(row.type)).Read(row.code, {row.block}), row.tag), row.value);
  }
}

TEST(Documents, MonitoredParameters) {
  struct Row {
    const char* block;
    const char* name;
    std::string value;
  };
  const std::vector<Row> rows{
      {"Transducer", "Primary Value", F8(10) + "80"},
      {"Transducer", "Target Mode", "08"},
      {"Physical", "Mode Block", "089808"},
      {"Analog Input 1", "Mode Block", "089808"},
      {"Analog Input 2", "Out", F8(20) + "80"},
      {"Analog Input 3", "Out", F8(10) + "80"},
      {"Analog Input 2", "PV Scale", F8(37.4) + F8(0)},
      {"Physical", "Write Locking", "0999"},
      {"Physical", "Out", "0000000000"},
      {"Transducer", "Hi Lim", "00000000"},
      {"Analog Input 1", "Scale In", "0000000000000000"},
      {"Transducer", "User Index", "00"},
      {"None", "Out", "00"},
      {"", "", "00"},
  };
  Bench bench;
  for (const auto& row : rows) {
    EXPECT_EQ(ValueOf(bench.Read(41, {row.block, row.name}), "ParamValue"), row.value) << row.block << " " << row.name;
  }
}

TEST(Documents, UnknownCodesClearTheTrafficPanel) {
  Bench bench;
  for (const int code : {0, 21, 42, 52, 89, 999}) EXPECT_EQ(bench.Read(code), "<Answer></Answer>") << code;
  EXPECT_EQ(Bench(json{{"timing", {{"answerUnknownCodes", false}}}}).Read(21), "(none)");
}

TEST(Documents, ConfigurationTwoMovesTheSensorChannels) {
  Bench bench;
  bench.Write(76, {"02"});
  EXPECT_EQ(ValueOf(bench.Read(27, {"2"}), "AIPrimaryValue"), F8(10) + "80");
  EXPECT_EQ(ValueOf(bench.Read(80, {"3"}), "PVUnitScale"), F8(110) + F8(-10) + "03E900");
  EXPECT_EQ(ValueOf(bench.Read(80, {"3"}), "AIConfig"), "02");
}

}  // namespace
}  // namespace htr60::sim
