#include <algorithm>
#include <array>
#include <string_view>

#include "page_driver.h"

// The tab "Scales" of the Analog Input pages.
namespace htr60::automation {
namespace {

// 10, -10 in %; the panel's own record of a sensor block repeats it with the sensor's unit.
constexpr const char* kOutScale = "41200000C1200000053E00";
constexpr const char* kOutScaleInKilopascal = "41200000C1200000046D00";
constexpr const char* kPanel[] = {"txtParameter(64)", "txtParameter(63)", "txtParameter(302)", "cmbTRDScaleAI"};

struct Flags {
  bool fw104 = false;
  bool fw107 = false;
};
constexpr Flags kOld{};
constexpr Flags k104{true, false};
constexpr Flags k107{true, true};

void Prepare(PageDriver& driver, int block, const Flags& flags) {
  driver.Activate("Analog Input " + std::to_string(block));
  driver.SetMember("FwFlag104", flags.fw104 ? -1 : 0);
  driver.SetMember("FwFlag107", flags.fw107 ? -1 : 0);
  driver.Tab("SSTabAI", 1);
  driver.Requests();
}

/// What read 80 answers: all tags that any firmware sends.
Fills Answer80(std::string_view type, const char* range, const char* pvUnit, const char* config) {
  return {
      {"TRDPVType", std::string(type), {}},
      {"TrdHTRRange", range, {}},
      {"AIScaleOutput",
       kOutScale,
       {{"txtParameter(129)", "10.000"},
        {"txtParameter(130)", "-10.000"},
        {"cmbAIUnitOutScale", "%"},
        {"lbArray(201)", "%"},
        {"lbArray(162)", "%"}}},
      {"PVUnitScale", pvUnit, {}},
      {"AIConfig", config, {}},
      {"TrdScaleSnsHi", "41A0000040A00000", {}},  // 20, 5
      {"TrdScaleSnsHiUnit", "0471", {}},
      {"TrdScaleSnsLo", "41F0000041200000", {}},  // 30, 10
      {"TrdScaleSnsLoUnit", "0472", {}},
      {"PVScale", "4348000042480000", {}},  // 200, 50
  };
}

constexpr std::string_view kPressure = "0000";
constexpr std::string_view kFlow = "0001";
constexpr std::string_view kLevel = "0002";
constexpr std::string_view kDensity = "0081";

TEST(AnalogInputScales, ThePanelFollowsBlockTypeFirmwareAndConfiguration) {
  struct Case {
    int block;
    std::string_view type;
    const char* range;
    const char* unit;  // PVUnitScale
    const char* config;
    Flags flags;
    std::array<const char*, 4> shown;  // upper, lower, unit, new unit
  };
  const char* const kpa = kOutScaleInKilopascal;
  const Case cases[] = {
      {1, kPressure, "00", "046D", "01", k107, {"200.000", "50.000", "kPa", ""}},
      {1, kDensity, "00", "0449", "01", kOld, {"200.000", "50.000", "kg/m³", ""}},
      {2, kPressure, "00", kpa, "01", kOld, {"", "", "kPa", ""}},
      {3, kPressure, "00", kpa, "01", kOld, {"", "", "kPa", ""}},
      {2, kPressure, "00", kpa, "01", k104, {"20.000", "5.000", "kPa", "bar"}},
      {3, kPressure, "00", kpa, "02", k104, {"30.000", "10.000", "kPa", "mbar"}},
      {2, kPressure, "00", kpa, "01", k107, {"20.000", "5.000", "kPa", "bar"}},
      {2, kPressure, "00", kpa, "02", k107, {"30.000", "10.000", "kPa", "mbar"}},
      {3, kPressure, "00", kpa, "01", k107, {"30.000", "10.000", "kPa", "mbar"}},
      {3, kPressure, "00", kpa, "02", k107, {"110", "-10", "°C", "°C"}},
      {3, kPressure, "00", kpa, "00", k107, {"110", "-10", "°C", "°C"}},  // what is none keeps the empty list
      {2, kPressure, "00", kpa, "00", k107, {"30.000", "10.000", "kPa", "mbar"}},
      {2, kFlow, "00", "046D", "01", k107, {"200.000", "50.000", "kPa", ""}},
      {3, kFlow, "00", "046D", "01", k107, {"110", "-10", "kPa", ""}},
      {2, kLevel, "00", "040A", "01", k107, {"200.000", "50.000", "m³", ""}},
      {3, kLevel, "00", "0449", "01", k107, {"100", "0", "Kg/M3", ""}},
      {3, kLevel, "00", "0000", "01", k107, {"110", "-10", "", ""}},
      {2, kDensity, "00", "0449", "01", k107, {"1800", "500", "Kg/M3", ""}},
      {3, kDensity, "01", "0449", "01", kOld, {"2500", "1000", "Kg/M3", ""}},
      {2, kDensity, "02", "0000", "01", k104, {"5000", "2500", "Kg/M3", ""}},
      {3, kDensity, "03", "0449", "01", k107, {"200.000", "50.000", "kg/m³", ""}},  // a range without a text
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "block " << c.block << ", type " << c.type << ", config " << c.config
                                    << ", firmware " << c.flags.fw104 << c.flags.fw107);
    PageDriver driver;
    Prepare(driver, c.block, c.flags);
    driver.AnswerFills(8000, Answer80(c.type, c.range, c.unit, c.config));
    for (std::size_t i = 0; i < c.shown.size(); ++i) EXPECT_EQ(driver.Text(kPanel[i]), c.shown[i]) << kPanel[i];
    EXPECT_EQ(driver.Text("cmbAIUnitOutScale"), "%");
    EXPECT_EQ(driver.Text("lbArray(162)"), "%");
    const bool writable = c.block > 1 && c.type == kPressure && c.flags.fw107;
    for (const char* field : {"txtParameter(64)", "txtParameter(63)"}) EXPECT_EQ(driver.Enabled(field), writable);
    for (const char* hidden : {"cmbTRDScaleAI", "cmbWritePVScale", "cmbWritePVScaleUnit"}) {
      EXPECT_EQ(driver.Visible(hidden), writable) << hidden;
      EXPECT_EQ(driver.Enabled(hidden), writable) << hidden;
    }
    EXPECT_EQ(driver.Text("cmbAIConfig"),
              writable && std::string(c.config) != "00" ? "Config " + std::string(c.config + 1) : "");
  }
}

TEST(AnalogInputScales, TheTypeOfTheLastAnswerStands) {
  PageDriver driver;
  Prepare(driver, 2, k107);
  driver.AnswerFills(8000, Answer80(kPressure, "00", kOutScaleInKilopascal, "01"));
  EXPECT_EQ(driver.Member("AiPvType"), "Pressure");
  driver.AnswerFills(8000, Answer80("007E", "00", kOutScaleInKilopascal, "01"));
  EXPECT_EQ(driver.Member("AiPvType"), "Pressure");
  EXPECT_EQ(driver.Text("txtParameter(64)"), "20.000");
  driver.AnswerFills(8000, Answer80(kDensity, "00", "0449", "01"));
  EXPECT_EQ(driver.Member("AiPvType"), "Density");
  EXPECT_FALSE(driver.Visible("cmbWritePVScale"));
  EXPECT_EQ(driver.Text("cmbTRDScaleAI"), "bar");  // hidden, and left alone
}

// A unit that another block left in the field counts as one of this block.
TEST(AnalogInputScales, AUnitLeftBehindCountsForALevel) {
  PageDriver driver;
  Prepare(driver, 1, k107);
  driver.AnswerFills(8000, Answer80(kLevel, "00", "03F2", "01"));
  EXPECT_EQ(driver.Text("txtParameter(302)"), "m");
  Prepare(driver, 3, k107);
  driver.AnswerFills(8000, Answer80(kLevel, "00", "0000", "01"));
  EXPECT_EQ(driver.Text("txtParameter(64)"), "100");
  EXPECT_EQ(driver.Text("txtParameter(302)"), "Kg/M3");
}

// A missing tag ends the answer where the tag is taken; tags that the case does not take may be missing.
TEST(AnalogInputScales, TagsAreTakenInTheirOrder) {
  struct Case {
    int block;
    std::string_view type;
    Flags flags;
    std::vector<const char*> taken;
  };
  const Case cases[] = {
      {1, kPressure, k107, {"TRDPVType", "TrdHTRRange", "AIScaleOutput", "PVUnitScale", "PVScale"}},
      {2,
       kPressure,
       k107,
       {"TRDPVType", "TrdHTRRange", "AIScaleOutput", "PVUnitScale", "AIConfig", "TrdScaleSnsHi", "TrdScaleSnsHiUnit"}},
      {3,
       kPressure,
       k104,
       {"TRDPVType", "TrdHTRRange", "AIScaleOutput", "PVUnitScale", "TrdScaleSnsLo", "TrdScaleSnsLoUnit"}},
      {3, kPressure, kOld, {"TRDPVType", "TrdHTRRange", "AIScaleOutput", "PVUnitScale"}},
      {3, kFlow, k107, {"TRDPVType", "TrdHTRRange", "AIScaleOutput", "PVUnitScale"}},
  };
  for (const Case& c : cases) {
    const char* const unit = c.type == kPressure && c.block > 1 ? kOutScaleInKilopascal : "046D";
    const Fills all = Answer80(c.type, "00", unit, "01");
    PageDriver complete;
    Prepare(complete, c.block, c.flags);
    complete.AnswerFills(8000, all);
    for (const Filled& row : all) {
      SCOPED_TRACE(testing::Message() << "block " << c.block << " without " << row.tag);
      const auto at = std::find(c.taken.begin(), c.taken.end(), row.tag);
      PageDriver driver;
      Prepare(driver, c.block, c.flags);
      driver.SetMember("AiPvType", "none");
      driver.Type("txtParameter(64)", "left");
      driver.AnswerFills(8000, all, row.tag);
      const bool whole = at == c.taken.end();
      const bool emptied = whole || at - c.taken.begin() > 3;
      EXPECT_EQ(driver.Member("AiPvType"), at == c.taken.begin() ? "none" : c.type == kFlow ? "Flow" : "Pressure");
      EXPECT_EQ(driver.Text("txtParameter(129)"), at != c.taken.end() && at - c.taken.begin() < 3 ? "" : "10.000");
      EXPECT_EQ(driver.Text("txtParameter(302)"), emptied ? "kPa" : "");
      if (whole) {
        for (const char* control : kPanel) EXPECT_EQ(driver.Text(control), complete.Text(control)) << control;
      } else {
        EXPECT_EQ(driver.Text("txtParameter(64)") == "left", !emptied);
        EXPECT_NE(driver.Text("cmbTRDScaleAI") == "bar", true);
      }
    }
  }
}

TEST(AnalogInputScales, EachButtonWritesItsPart) {
  PageDriver driver;
  Prepare(driver, 2, k107);
  driver.AnswerFills(8000, Answer80(kPressure, "00", kOutScaleInKilopascal, "02"));
  driver.Choose("cmbTRDScaleAI", "bar");
  const struct {
    const char* button;
    const char* write;
  } cases[] = {
      {"cmbWritePVScale", "write 73: 2, 41F0000041200000, Config 2"},
      {"cmbWritePVScaleUnit", "write 74: 2, 0471, Config 2"},
      {"cmdWriteScaleOut", "write 75: 2, 41200000C1200000053E00"},
  };
  for (const auto& c : cases) {
    driver.SetMember("BlockSelector", "None");
    driver.Click(c.button);
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    EXPECT_EQ(driver.Timer("TimerReadAfterWrite"), (Json{{"enabled", true}, {"interval", 2000}}));
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), (Strings{c.write, "read 80: 2"}));
  }
  driver.SetMember("FwFlag107", 0);
  driver.Click("cmbWritePVScale");
  driver.Click("cmbWritePVScaleUnit");
  EXPECT_EQ(driver.Traffic(), (Strings{"write 73: 2, 41F0000041200000, 255", "write 74: 2, 0471, 255"}));
  // A unit without a code leaves the record short, and the text of the configuration goes as it stands.
  driver.SetMember("FwFlag107", -1);
  driver.SetList("cmbAIUnitOutScale", "Kg/M3");
  driver.SetList("cmbAIConfig", "x");
  driver.Click("cmdWriteScaleOut");
  driver.Click("cmbWritePVScaleUnit");
  EXPECT_EQ(driver.Traffic(), (Strings{"write 75: 2, 41200000C120000000", "write 74: 2, 0471, x"}));
}

}  // namespace
}  // namespace htr60::automation
