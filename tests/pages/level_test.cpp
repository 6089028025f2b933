#include "page_driver.h"

namespace htr60::automation {
namespace {

void OpenSettings(PageDriver& driver) {
  driver.Activate("Level");
  driver.Requests();
}

void WithDeadBand(PageDriver& driver) {
  OpenSettings(driver);
  driver.SetMember("FwFlag105", -1);
}

const Fills kSettings = {
    {"TRDPVType", "0002", {{"cmbLevelPrimaryValueType", "Level"}}},
    {"TRDCompensation", "01", {{"cmbLevelCompensation", "Enable"}}},
    {"TRDLinType", "01", {{"cmbLevelLinearizationType", "User Defined(Table)"}}},
    {"Gravity", "411D0000", {{"txtParameter(161)", "9.8125000"}}},
    {"Height", "3F000000", {{"txtParameter(160)", "0.5000000"}}},
};
const Filled kDeadBand[] = {
    {"DeadBandComp", "3E800000", {{"txtParameter(176)", "0.2500000"}}},
    {"SnsHiUnit", "046D", {{"lbArray(348)", "kPa"}}},
};

Fills AllSettings() {
  Fills all = kSettings;
  all.insert(all.end(), std::begin(kDeadBand), std::end(kDeadBand));
  return all;
}

TEST(Level, TheNodeOpensThePageAndFillsItsListsOnce) {
  PageDriver driver;
  EXPECT_EQ(driver.Items("cmbLevelCompensation"), "[]");
  driver.Activate("Level");
  EXPECT_EQ(driver.Page(), "TRD Level Settings / Settings");
  EXPECT_TRUE(driver.Visible("frmTRDLevel"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 69"});
  EXPECT_EQ(driver.Items("cmbLevelPrimaryValueType"), R"j(["Pressure","Flow","Level","Density"])j");
  EXPECT_EQ(driver.Items("cmbLevelLinearizationType"), R"j(["No Linearization.","User Defined(Table)"])j");
  EXPECT_EQ(driver.Items("cmbLevelCompensation"), R"j(["Enable","Disable"])j");
  EXPECT_EQ(driver.Items("cmbLevelSimulate"), R"j(["Enable","Disable"])j");
  EXPECT_EQ(driver.Get("cmbTRDLevelSimStatus")["items"], driver.Codec("FillStatusList", Json::array()));
  driver.Choose("cmbLevelCompensation", "Enable");
  driver.Activate("Level");
  EXPECT_EQ(driver.Text("cmbLevelCompensation"), "Enable");
}

TEST(Level, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(6900, kSettings, OpenSettings);
  ExpectFillsInOrder(6900, AllSettings(), WithDeadBand);
  ExpectFillsInOrder(7200,
                     {{"TRDSimulateEnable", "FF", {{"cmbLevelSimulate", "Enable"}}},
                      {"TRDSimulateValue",
                       "3FC0000040",
                       {{"txtParameter(272)", "1.500"}, {"cmbTRDLevelSimStatus", "Uncertain & Non-specific"}}}},
                     OpenSettings);
  ExpectFillsInOrder(
      6700,
      {{"TRDInputScale", "412000003F000000", {{"txtParameter(99)", "10.000"}, {"txtParameter(100)", "0.500"}}},
       {"TRDPressUnit", "040A", {{"cmbPressureUnit", "m³"}}}},
      OpenSettings);
}

TEST(Level, TheDeadBandIsTakenByItsFirmwareFlagAlone) {
  PageDriver driver;
  OpenSettings(driver);
  driver.AnswerFills(6900, AllSettings());
  EXPECT_EQ(driver.Text("txtParameter(160)"), "0.5000000");
  EXPECT_EQ(driver.Text("txtParameter(176)"), "");
  EXPECT_EQ(driver.Text("lbArray(348)"), "");
  driver.SetMember("FwFlag105", -1);
  driver.AnswerFills(6900, AllSettings());
  EXPECT_EQ(driver.Text("lbArray(348)"), "kPa");
  // The caption takes the empty text of an unknown unit too.
  Fills unknown = AllSettings();
  unknown.back().value = "0000";
  driver.AnswerFills(6900, unknown);
  EXPECT_EQ(driver.Text("lbArray(348)"), "");
}

TEST(Level, AnotherTypeIsToldAndTheRestStillFills) {
  PageDriver driver;
  OpenSettings(driver);
  Fills pressure = kSettings;
  pressure[0].value = "0000";
  driver.AnswerFills(6900, pressure);
  const Json shown = driver.Shown();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0]["text"], "Please, note that HTR60 is not configured to Level measurement.");
  EXPECT_EQ(shown[0]["caption"], "Primary Value Type");
  EXPECT_EQ(shown[0]["icon"], "information");
  EXPECT_EQ(driver.Text("txtParameter(160)"), "0.5000000");
  driver.AnswerFills(6900, kSettings);
  EXPECT_TRUE(driver.Shown().empty());
  for (Filled& row : pressure) {
    if (row.tag.starts_with("TRD")) row.value = "7E";
  }
  driver.AnswerFills(6900, pressure);
  EXPECT_TRUE(driver.Shown().empty());  // a code without a text leaves the list, and what it holds counts
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(driver.Text(kSettings[i].fields[0].first), kSettings[i].fields[0].second);
  }
}

TEST(Level, WritesFollowTheFirmware) {
  struct Case {
    const char* digits;
    const char* write;
    bool shown;
  };
  // Exactly these texts count: 1.10 is written as a device before 1.05.
  const Case cases[] = {
      {"312E3034202020202020202020202020", "write 59: 0002, 01, 01, 411D0000, 3F000000", false},
      {"312E3035202020202020202020202020", "write 59: 0002, 01, 01, 411D0000, 3F000000, 3E800000", true},
      {"312E3037202020202020202020202020", "write 59: 0002, 01, 01, 411D0000, 3F000000, 3E800000", false},
      {"312E3130202020202020202020202020", "write 59: 0002, 01, 01, 411D0000, 3F000000", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.digits);
    PageDriver driver;
    driver.AnswerTags(100, {{"TRDPVType", "0002"},
                            {"PHYTag", ""},
                            {"PHYManufacturer", ""},
                            {"TRDOrderingCode", ""},
                            {"PHYFirmware", c.digits}});
    EXPECT_EQ(driver.Visible("txtParameter(176)"), c.shown);
    OpenSettings(driver);
    driver.Choose("cmbLevelPrimaryValueType", "Level");
    driver.Choose("cmbLevelLinearizationType", "User Defined(Table)");
    driver.Choose("cmbLevelCompensation", "Enable");
    driver.Type("txtParameter(161)", "9.8125");
    driver.Type("txtParameter(160)", "0.5");
    driver.Type("txtParameter(176)", "0.25");
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), (Strings{c.write, "read 69"}));
  }
}

TEST(Level, SimulationWritesValueAndStatusInOne) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Tab("SSTabTRDLevel", 2);
  driver.Choose("cmbLevelSimulate", "Enable");
  driver.Type("txtParameter(272)", "1.5");
  driver.Choose("cmbTRDLevelSimStatus", "Good (NC)");
  driver.Click("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 72", "write 62: FF, 3FC0000080", "read 72"}));
  driver.Choose("cmbLevelSimulate", "Disable");
  driver.Choose("cmbTRDLevelSimStatus", "Bad");  // a row without digits
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{"write 62: 00, 3FC00000"});
}

TEST(Level, TabsNameTheirPageAndRead) {
  struct Case {
    int tab;
    const char* page;
    bool write;
    Strings traffic;
  };
  const Case cases[] = {
      {1, "TRD Level Settings / x", false, {}},
      {2, "TRD Level Settings / Simulate", true, {"read 72"}},
      {3, "TRD Level Settings / Sensor Value", false, {"read 45"}},
      {0, "TRD Level Settings / Settings", true, {"read 69"}},
  };
  PageDriver driver;
  OpenSettings(driver);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.tab);
    driver.SetMember("CurrentPage", "y");
    driver.SetMember("SubPage", "x");
    driver.Tab("SSTabTRDLevel", c.tab);
    EXPECT_EQ(driver.Page(), c.page);
    EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write);
    EXPECT_EQ(driver.Traffic(), c.traffic);
    EXPECT_EQ(driver.Member("RequestCode"), c.traffic.empty() ? "0" : c.traffic[0].substr(5));
    EXPECT_EQ(driver.Timer("TimerSensorValue")["enabled"], c.tab == 3);
  }
}

TEST(Level, SensorValuesAreReadAgainEveryFiveSeconds) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Tab("SSTabTRDLevel", 3);
  driver.SetMember("RequestXml", "stale");
  driver.Advance(10000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 45", "read 45", "read 45"}));
  EXPECT_EQ(driver.Member("RequestXml").get<std::string>().substr(0, 9), "<ViewData");  // a fresh one each time
  driver.Activate("Level");
  driver.Requests();
  driver.Advance(10000);
  EXPECT_EQ(driver.Traffic(), Strings{});
  // Here the timer comes before the read, so it runs also where the first read fails.
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Tab("SSTabTRDLevel", 3);
  EXPECT_EQ(driver.Timer("TimerSensorValue"), (Json{{"enabled", true}, {"interval", 5000}}));
}

TEST(LevelScales, EachButtonArrangesItsFrame) {
  PageDriver driver;
  driver.Activate("Density/Concentration");
  driver.Click("cmdDensTrdOutputScale");
  driver.Activate("Level");
  driver.Requests();
  driver.Click("cmdTRDLevelOutputScale");
  EXPECT_EQ(driver.Page(), "Trd Level Output Scale / Settings");
  EXPECT_EQ(driver.Traffic(), Strings{"read 7"});
  EXPECT_EQ(driver.Items("cmbUnitScaleOutput"), R"j(["m","cm","mm","ft","in"])j");
  for (const char* hidden : {"frmzGroup(34)", "frmzGroup(61)", "frmTRDLevel"}) {
    EXPECT_FALSE(driver.Visible(hidden)) << hidden;
  }
  for (const char* shown : {"frmTRDOutputScale", "Command1", "Command2"}) EXPECT_TRUE(driver.Visible(shown)) << shown;
  for (const char* field : {"txtParameter(92)", "txtParameter(81)", "cmbUnitScaleOutput", "cmdBack"}) {
    EXPECT_TRUE(driver.Enabled(field)) << field;
  }
  EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Get("frmzGroup(34)")["top"], 3120);
  EXPECT_EQ(driver.Get("frmzGroup(61)")["top"], 4560);
  EXPECT_EQ(driver.Text("frmzGroup(14)"), "Transducer Level Scale");
  EXPECT_EQ(driver.Text("frmzGroup(33)"), "Transducer Level Unit");

  struct Input {
    const char* button;
    const char* page;
    const char* caption;
    const char* unitCaption;
    std::size_t units;
    bool limits;
    const char* read;
  };
  for (const Input& input : {Input{"cmdTRVScaleVolume", "Trd Volume Scale", "Transducer Volume Scale",
                                   "Volume Unit (EU)", 9, false, "read 67"},
                             Input{"cmdTRDLevelInputScale", "Trd Level Input Scale", "Transducer Pressure Scale",
                                   "Pressure Unit (EU)", 17, true, "read 6"}}) {
    SCOPED_TRACE(input.button);
    driver.Click("cmdBack");
    driver.Click(input.button);
    EXPECT_EQ(driver.Member("CurrentPage"), input.page);
    EXPECT_EQ(driver.Text("frmzGroup(13)"), input.caption);
    EXPECT_EQ(driver.Text("lbArray(107)"), input.unitCaption);
    EXPECT_EQ(driver.Get("cmbPressureUnit")["items"].size(), input.units);
    EXPECT_EQ(driver.Visible("frmzGroup(8)"), input.limits);
    EXPECT_TRUE(driver.Visible("frmTRDInputScale"));
    EXPECT_FALSE(driver.Visible("frmTRDOutputScale"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
    EXPECT_EQ(driver.Traffic(), Strings{input.read});
  }
}

TEST(LevelScales, AllThreeWriteAndReadBack) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Click("cmdTRVScaleVolume");
  EXPECT_EQ(driver.Items("cmbPressureUnit"), R"j(["m³","L","ft³","bbl","kg","g","t","lb","gallon"])j");
  driver.Type("txtParameter(99)", "10");
  driver.Type("txtParameter(100)", "0.5");
  driver.Choose("cmbPressureUnit", "m³");
  driver.Click("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 67", "write 57: 412000003F000000, 040A", "read 67"}));
  driver.Click("cmdBack");
  driver.Click("cmdTRDLevelInputScale");
  driver.Choose("cmbPressureUnit", "bar");
  driver.Click("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 6", "write 3: 412000003F000000, 0471", "read 6"}));
  driver.Click("cmdBack");
  driver.Click("cmdTRDLevelOutputScale");
  driver.Type("txtParameter(92)", "3");
  driver.Type("txtParameter(81)", "0");
  driver.Choose("cmbUnitScaleOutput", "m");
  driver.Click("Command1");
  driver.Advance(2000);
  driver.Click("Command2");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 7", "write 4: 4040000000000000, 03F2", "read 7",
                                       "write 42: 4040000000000000, 03F2", "read 7"}));
}

TEST(LevelScales, BackKeepsTheSubPageAndReadsNothing) {
  for (const char* button : {"cmdTRDLevelInputScale", "cmdTRDLevelOutputScale", "cmdTRVScaleVolume"}) {
    SCOPED_TRACE(button);
    PageDriver driver;
    OpenSettings(driver);
    driver.SetMember("SubPage", "x");
    driver.Click(button);
    driver.Requests();
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Page(), "TRD Level Settings / x");
    EXPECT_TRUE(driver.Visible("frmTRDLevel"));
    EXPECT_FALSE(driver.Enabled("cmdBack"));
    EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
    EXPECT_EQ(driver.Traffic(), Strings{});
  }
}

// No read asks for this answer; where a host sends it the limits are converted and the flag is consumed.
TEST(LevelScales, TheUnaskedOutputScaleAnswerConvertsTheLimits) {
  const Fills scale = {
      {"MeasuredType", "05", {{"cmbMeasType", "Brix"}}},
      {"TRDOutScale", "4040000000000000", {{"txtParameter(92)", "3.000"}, {"txtParameter(81)", "0.000"}}},
      {"TRDOutUnit", "03F2", {{"cmbUnitScaleOutput", "m"}, {"lbArray(313)", "m"}, {"lbArray(314)", "m"}}},
      {"TRDSensorUnit", "046D", {{"txtParameter(199)", "kPa"}, {"txtParameter(200)", "4.02184667111751"}}},
      {"TRDUpperSnsLimit", "42C80000", {{"txtParameter(201)", "100.000"}, {"txtParameter(194)", "402.184667111751"}}},
      {"TRDLowerSnsLimit", "C2C80000", {{"txtParameter(202)", "-100.000"}, {"txtParameter(193)", "-402.184667111751"}}},
  };
  const auto open = [](PageDriver& driver) {
    OpenSettings(driver);
    driver.Click("cmdTRDLevelOutputScale");
    driver.Answer(6800, "<Answer></Answer>");  // sets four texts to 1 before it misses its first tag
  };
  ExpectFillsInOrder(6800, scale, open);
  PageDriver driver;
  driver.Activate("Pressure/Flow");
  driver.Choose("cmbPrimaryValueType", "Pressure");
  open(driver);
  driver.SetMember("CheckOutScaleAfterWrite", -1);
  driver.AnswerFills(6800, scale, "TRDLowerSnsLimit");
  EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), -1);
  driver.AnswerFills(6800, scale);
  EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), 0);
  EXPECT_EQ(driver.Timer("TimerWriteCopyTrdOut"), (Json{{"enabled", true}, {"interval", 100}}));
}

// ---- with the simulated transmitter

constexpr int kSettled = 5000;  // longer than a write, its re-read and the answer

double Shown(PageDriver& driver, const char* field) {
  driver.Advance(kSettled);
  return std::stod(driver.Text(field));
}

TEST(LevelCommissioning, TheScaleGivesTheLevelInItsUnit) {
  PageDriver driver(
      Driver::Simulated({{"device", {{"primaryValueType", "Level"}}},
                         {"process", {{"vessel", {{"density", 1000}, {"level", 1.5}, {"distance", 3}}}}}}));
  driver.Activate("Level");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbLevelPrimaryValueType"), "Level");
  EXPECT_EQ(driver.Text("cmbLevelCompensation"), "Disable");
  driver.Click("cmdTRDLevelOutputScale");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(92)"), "3.000");
  EXPECT_EQ(driver.Text("cmbUnitScaleOutput"), "m");
  driver.Type("txtParameter(92)", "300");
  driver.Choose("cmbUnitScaleOutput", "cm");
  driver.Click("Command1");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(92)"), "300.000");
  EXPECT_EQ(driver.Text("cmbUnitScaleOutput"), "cm");
  driver.Click("cmdBack");
  driver.Tab("SSTabTRDLevel", 3);
  EXPECT_NEAR(Shown(driver, "txtParameter(316)"), 150.0, 0.01);
  EXPECT_EQ(driver.Text("lbArray(190)"), "cm");
  EXPECT_EQ(driver.Text("txtParameter(210)"), "Good (NC)");
  EXPECT_EQ(driver.Text("txtParameter(143)"), "None");
  driver.Tab("SSTabTRDLevel", 2);
  driver.Advance(kSettled);
  driver.Choose("cmbLevelSimulate", "Enable");
  driver.Type("txtParameter(272)", "12.5");
  driver.Choose("cmbTRDLevelSimStatus", "Uncertain & Non-specific");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbLevelSimulate"), "Enable");
  driver.Tab("SSTabTRDLevel", 3);
  EXPECT_NEAR(Shown(driver, "txtParameter(316)"), 12.5, 0.001);
  EXPECT_EQ(driver.Text("txtParameter(210)"), "Uncertain & Non-specific");
}

TEST(LevelCommissioning, CompensationTakesTheDensityFromTheSecondSensor) {
  PageDriver driver(
      Driver::Simulated({{"device", {{"primaryValueType", "Level"}}},
                         {"process", {{"vessel", {{"density", 850}, {"level", 2}, {"distance", 0.5}}}}}}));
  driver.Activate("Level");
  driver.Tab("SSTabTRDLevel", 3);
  EXPECT_NEAR(Shown(driver, "txtParameter(316)"), 0.425, 0.001);
  driver.Tab("SSTabTRDLevel", 0);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(160)"), "0.5000000");
  driver.Choose("cmbLevelCompensation", "Enable");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbLevelCompensation"), "Enable");
  driver.Tab("SSTabTRDLevel", 3);
  EXPECT_NEAR(Shown(driver, "txtParameter(316)"), 2.0, 0.001);
  EXPECT_NEAR(Shown(driver, "txtParameter(139)"), 0.85, 0.001);
}

}  // namespace
}  // namespace htr60::automation
