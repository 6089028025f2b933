#include <gtest/gtest.h>

#include "automate/driver.h"

namespace htr60 {
namespace {

using automation::Driver;
using Json = nlohmann::json;
using Sent = std::vector<std::string>;
using Tags = std::vector<std::pair<std::string, std::string>>;

std::string FirmwareDigits(std::string_view version) {
  std::string digits;
  for (std::size_t i = 0; i < 16; ++i) {
    const char c = i < version.size() ? version[i] : ' ';
    digits += "0123456789ABCDEF"[c / 16];
    digits += "0123456789ABCDEF"[c % 16];
  }
  return digits;
}

Tags Identification(std::string_view firmware) {
  return {{"TRDPVType", "0000"},
          {"PHYTag", "46542D313031000000"},
          {"PHYManufacturer", "60BE"},
          {"PHYOther", "00"},
          {"TRDOrderingCode", "4100422543"},
          {"PHYFirmware", FirmwareDigits(firmware)},
          {"PHYDevSerialNumber", "30363030"},
          {"PHYGSDIdentNumSelector", "01"},
          {"PHYWriteProtection", "0999"},
          {"ModemVersion", "000C"},
          {"SnsHiVersion", "12"},
          {"SnsLoVersion", "A"}};
}

void Send(Driver& d, int code, const Tags& tags) {
  Json pairs = Json::array();
  for (const auto& [tag, value] : tags) pairs.push_back(Json::array({tag, value}));
  d.Ok({{"do", "answer"}, {"code", code}, {"tags", pairs}});
}

TEST(Identification, FillsThePage) {
  Driver d(Driver::Captured());
  Send(d, 100, Identification("1.09"));
  const std::pair<const char*, const char*> kFields[] = {
      {"cmbPVType", "Pressure"},
      {"txtParameter(0)", "FT-101"},
      {"txtParameter(1)", "Lorvane Process Instruments"},
      {"txtParameter(3)", "ABC"},  // padding is passed over, and "%" is not taken
      {"txtParameter(4)", "1.09            "},
      {"txtParameter(5)", "0600"},
      {"txtParameter(6)", "Manufacturer Specific"},
      {"cmbWriteProtection", "Write Unlocked"},
      {"txtParameter(7)", "1.012"},
      {"txtParameter(8)", "1.2"},
      {"txtParameter(9)", "A."},
  };
  for (const auto& [field, text] : kFields) EXPECT_EQ(d.Text(field), text) << field;
}

struct FirmwareCase {
  const char* version;
  int flags;  // how many of FwFlag104 to FwFlag109
  bool userIdent;
  bool deadBand;
  bool agile;
  bool config;
  bool versions;
};

TEST(Identification, TheFirmwareTextDecidesWhatIsShown) {
  constexpr FirmwareCase kCases[] = {
      {"1.03", 0, false, false, false, false, false}, {"1.04", 1, false, false, false, false, false},
      {"1.05", 2, true, true, false, false, false},   {"1.06", 3, true, false, false, false, false},
      {"1.07", 4, true, false, false, true, false},   {"1.08", 5, true, false, true, true, false},
      {"1.09", 6, true, false, true, true, true},     {"1.10", 0, true, false, false, false, false},
      {"1.19", 0, true, false, false, false, false},  {"1.20", 0, false, false, false, false, false},
      {"2.00", 0, true, false, false, false, false},  {"4.19", 0, true, false, false, false, false},
      {"4.20", 0, false, false, false, false, false}, {"5.05", 0, false, false, false, false, false},
      {"11.05", 0, true, false, false, false, false}, {"v1.07", 0, true, false, false, false, false},
  };
  constexpr const char* kFlags[] = {"FwFlag104", "FwFlag105", "FwFlag106", "FwFlag107", "FwFlag108", "FwFlag109"};
  for (const FirmwareCase& f : kCases) {
    SCOPED_TRACE(f.version);
    Driver d(Driver::Captured());
    Send(d, 100, Identification(f.version));
    for (int i = 0; i < 6; ++i) EXPECT_EQ(d.Member(kFlags[i]), i < f.flags ? -1 : 0) << kFlags[i];
    EXPECT_EQ(d.Get("CmbGSD").at("items").size(), f.userIdent ? 3U : 2U);
    EXPECT_EQ(d.Get("txtParameter(176)").at("visible"), f.deadBand);
    EXPECT_EQ(d.Get("cmbAgile").at("visible"), f.agile);
    EXPECT_EQ(d.Get("Frame1").at("visible"), f.config);
    EXPECT_EQ(d.Get("txtParameter(8)").at("visible"), f.versions);
    EXPECT_EQ(d.Text("txtParameter(7)"), f.versions ? "1.012" : "");
  }
}

TEST(Identification, AnOlderFirmwareTakesNoFlagBack) {
  Driver d(Driver::Captured());
  Send(d, 100, Identification("1.08"));
  Send(d, 100, Identification("1.03"));
  EXPECT_EQ(d.Member("FwFlag108"), -1);
  EXPECT_EQ(d.Get("CmbGSD").at("items").size(), 3U);
}

// A tag that is missing, without a value, or wrong ends the answer there.
TEST(Identification, EndsAtTheFirstTagItCannotTake) {
  struct Field {
    const char* tag;
    std::vector<const char*> filledBefore;
    std::vector<const char*> emptyAfter;
  };
  const Field kFields[] = {
      {"TRDPVType", {}, {"cmbPVType", "txtParameter(0)"}},
      {"PHYTag", {"cmbPVType"}, {"txtParameter(0)", "txtParameter(1)"}},
      {"PHYManufacturer", {"txtParameter(0)"}, {"txtParameter(1)", "txtParameter(3)"}},
      {"PHYFirmware", {"txtParameter(3)"}, {"txtParameter(4)", "txtParameter(5)"}},
      {"PHYGSDIdentNumSelector", {"txtParameter(5)"}, {"txtParameter(6)", "cmbWriteProtection"}},
      {"ModemVersion", {"cmbWriteProtection"}, {"txtParameter(7)", "txtParameter(8)"}},
  };
  for (const Field& f : kFields) {
    for (const bool tagged : {false, true}) {
      SCOPED_TRACE(std::string(f.tag) + (tagged ? " without value" : " missing"));
      Driver d(Driver::Captured());
      Json pairs = Json::array();
      for (const auto& [tag, value] : Identification("1.09")) {
        if (tag != f.tag) {
          pairs.push_back(Json::array({tag, value}));
        } else if (tagged) {
          pairs.push_back(Json::array({tag, nullptr}));
          pairs.push_back(Json::array({tag, value}));  // the first counts, though it has no value
        }
      }
      d.Ok({{"do", "answer"}, {"code", 100}, {"tags", pairs}});
      for (const char* field : f.filledBefore) EXPECT_NE(d.Text(field), "") << field;
      for (const char* field : f.emptyAfter) EXPECT_EQ(d.Text(field), "") << field;
    }
  }
}

TEST(Identification, WritesTagAndProtectionAndReadsAgain) {
  Driver d(Driver::Captured());
  d.Init();
  d.Connect();
  d.Advance(2000);
  d.Sent();
  d.Type("txtParameter(0)", "Kessel 3 €");
  d.Choose("cmbWriteProtection", "Write Locked");
  d.Click("cmdWriteParameter");
  const Json write = d.Requests()[0];
  EXPECT_EQ(write["kind"], "write");
  EXPECT_EQ(write["code"], "1");
  // The euro sign counts by its Windows-1252 code.
  EXPECT_EQ(write["attributes"][0], "4B657373656C20332080" + std::string(44, '0'));
  EXPECT_EQ(write["attributes"][1], "0000");
  EXPECT_EQ(write["attributes"][2], "None");
  EXPECT_EQ(d.Member("RequestCode"), "1");
  d.Advance(2000);
  EXPECT_EQ(d.Sent(), Sent{"read 1"});
}

TEST(SensorInfo, DecodesBothSensorsInTheirOrder) {
  Driver d(Driver::Captured());
  const Tags sensors = {{"TRDTransducerType", "006C"},
                        {"TRDTransducerType_Lo", "FFFF"},
                        {"TRDSensorType", "0075"},
                        {"TRDSensorType_Lo", "0076"},
                        {"TRDSensorRangeCode", "02"},
                        {"TRDSensorRangeCode_Lo", "FD"},
                        {"TRDSensorFillFluid", "0003"},
                        {"TRDSensorFillFluid_Lo", "00AA"},
                        {"TRDSensorSerialNumber", "7FFFFFFF"},
                        {"TRDSensorSerialNumber_Lo", "80000000"},
                        {"TRDSensorDiaMtrl", "0013"},
                        {"TRDSensorDiaMtrl_Lo", "00F0"},
                        {"TRDSensorLimitHi_SnsHi", "4215999A"},
                        {"TRDSensorLimitHi_SnsLo", "3F800000"},
                        {"TRDSensorLimitLo_SnsHi", "C215999A"},
                        {"TRDSensorLimitLo_SnsLo", "00000000"}};
  Send(d, 200, sensors);
  const std::pair<const char*, const char*> kFields[] = {
      {"txtParameter(11)", "Gauge"},
      {"txtParameter(205)", "Others Special"},
      {"txtParameter(12)", "Capacitive Sensor"},
      {"txtParameter(149)", "Silicon Piezo Resistive"},
      {"txtParameter(13)", "Range 2 (37.4 kPa)"},
      {"txtParameter(148)", "Special"},
      {"txtParameter(14)", "fluorolube"},
      {"txtParameter(147)", ""},  // an unknown code empties the field
      {"txtParameter(15)", "2147483647"},
      {"txtParameter(146)", "0"},  // the highest bit is never read
      {"txtParameter(16)", "Stainless Steel 316l Sup"},
      {"txtParameter(26)", "Version RS"},
      {"txtParameter(208)", "37.400"},
      {"txtParameter(211)", "1.000"},
      {"txtParameter(207)", "-37.400"},
      {"txtParameter(209)", "0.000"},
  };
  for (const auto& [field, text] : kFields) EXPECT_EQ(d.Text(field), text) << field;
  Send(d, 400,
       {{"TRDFlangeType", "0C"},
        {"TRDFlangeType_Lo", "EC"},
        {"TRDFlangeMaterial", "02"},
        {"TRDFlangeMaterial_Lo", "FB"},
        {"TRDORingMaterial", "0D"},
        {"TRDORingMaterial_Lo", "7F"}});
  EXPECT_EQ(d.Text("txtParameter(25)"), "Level DN80 PN10/16");
  EXPECT_EQ(d.Text("txtParameter(18)"), "Ethyl-Prop");
}

TEST(SensorInfo, StripsReadWithWhateverCodeStands) {
  Driver d(Driver::Captured());
  d.Init();
  d.Click("cmdSensorDetails");
  EXPECT_EQ(d.Sent(), Sent{"read 2"});
  EXPECT_EQ(d.Member("CurrentPage"), "Sensor Info");
  EXPECT_FALSE(d.Get("cmdWriteParameter").at("enabled").get<bool>());
  d.Tab("SSTabInfoSensors", 1);  // the inner strip stood at its first tab: its handler does not run
  EXPECT_EQ(d.Sent(), Sent{"read 0"});
  d.Tab("SSTabInfoSensorLo", 1);
  EXPECT_EQ(d.Sent(), Sent{"read 4"});
  EXPECT_EQ(d.Member("SubPage"), "Flange Info");
  d.Tab("SSTabInfoSensors", 0);
  d.Sent();
  d.Tab("SSTabInfoSensors", 1);  // now the inner strip goes back, and its read is sent twice
  EXPECT_EQ(d.Sent(), (Sent{"read 2", "read 2"}));
  EXPECT_EQ(d.Member("SubPage"), "Sensor Info");
  d.Tab("SSTabInfoSensors", 0);
  d.Tab("SSTabInfoSensor", 1);
  d.Sent();
  // Opening the page puts both strips back, whose handlers read, and then reads itself.
  d.Click("cmdSensorDetails");
  EXPECT_EQ(d.Sent(), (Sent{"read 2", "read 2"}));
}

}  // namespace
}  // namespace htr60
