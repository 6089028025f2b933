#include "screen_driver.h"

namespace htr60::automation {
namespace {

void Open(PageDriver& driver) {
  driver.Activate("Calibration");
  driver.Requests();
}

void OpenPressure(PageDriver& driver) {
  Open(driver);
  driver.Click("cmdCalibLower");
  driver.Requests();
}

void OpenTemperature(PageDriver& driver) {
  Open(driver);
  driver.Click("cmdTempCalib");
  driver.Requests();
}

const Fills kPressure = {
    {"TRDLowerSnsLimit", "C2480000", {{"txtParameter(101)", "-50.000"}}},
    {"TRDMinSpan", "3F000000", {{"txtParameter(102)", "0.500"}}},
    {"TRDLowerCalibPoint", "3FA00000", {{"txtParameter(103)", "1.250"}}},
    {"TRDPressure", "4120000040", {{"txtParameter(93)", "10.000"}, {"txtParameter(307)", "Uncertain & Non-specific"}}},
    {"TRDUnit",
     "0472",
     {{"lbArray(104)", "mbar"},
      {"lbArray(108)", "mbar"},
      {"lbArray(109)", "mbar"},
      {"lbArray(110)", "mbar"},
      {"lbArray(120)", "mbar"},
      {"lbArray(118)", "mbar"}}},
    {"TRDOperResult", "1B", {{"txtParameter(43)", "Excess correction"}}},
    {"TRDUpperSnsLimit", "42480000", {{"txtParameter(97)", "50.000"}}},
    {"TRDUpperCalibPoint", "41C80000", {{"txtParameter(95)", "25.000"}}},
};

TEST(Calibration, TheNodeOpensThePageAndFillsAllItsListsOnce) {
  PageDriver driver;
  EXPECT_EQ(driver.Items("cmbCalibUnit"), "[]");
  driver.Activate("Calibration");
  EXPECT_EQ(driver.Page(), "Calibration / Calib Upper/Lower");
  EXPECT_TRUE(driver.Visible("frmCalib"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 15"});
  EXPECT_EQ(driver.Items("cmbCalibUnit"),
            R"j(["Pa","MPa","kPa","bar","mbar","torr","atm","psi","g/cm²","kg/cm²","inH2O (4°C)","inH2O (68°F)",)j"
            R"j("mmH2O (4°C)","mmH2O (68°F)","mH2O","ftH2O (68°F)","inHg (0°C)","mmHg (0°C)"])j");
  EXPECT_EQ(driver.Items("cmbCalibTempUnit"), R"j(["K","°C","°F"])j");
  EXPECT_EQ(driver.Items("cmbDensityTemp"), R"j(["K","°C","°F"])j");
  driver.Choose("cmbCalibUnit", "bar");
  driver.Tab("SSTabCalib", 1);
  driver.Activate("Calibration");
  EXPECT_EQ(driver.Text("cmbCalibUnit"), "bar");
  EXPECT_EQ(driver.Get("SSTabCalib")["index"], 0);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 18", "read 15", "read 15"}));  // the tab's own read, then the node's
}

TEST(Calibration, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(1500,
                     {{"TRDUnit", "0471", {{"cmbCalibUnit", "bar"}}},
                      {"TRDPVType", "0081", {{"cmbDensityPrimaryValueType", "Density"}}}},
                     Open);
  ExpectFillsInOrder(1600, kPressure, OpenPressure);
  ExpectFillsInOrder(1700,
                     {{"TRDUpperSnsLimit", "42480000", {{"txtParameter(97)", "50.000"}}},
                      {"TRDUpperCalibPoint", "41C80000", {{"txtParameter(95)", "25.000"}}},
                      {"TRDUnit", "046D", {{"lbArray(118)", "kPa"}, {"lbArray(120)", "kPa"}, {"lbArray(104)", ""}}}},
                     OpenPressure);
  ExpectFillsInOrder(1800,
                     {{"TRDUnitTemp",
                       "03EA",
                       {{"cmbCalibTempUnit", "°F"},
                        {"cmbDensityTemp", "°F"},
                        {"lbArray(125)", "°F"},
                        {"lbArray(126)", "°F"},
                        {"lbArray(128)", "°F"},
                        {"lbArray(131)", "°F"}}}},
                     Open);
  ExpectFillsInOrder(
      1900,
      {{"TRDMaxTemp", "42C80000", {{"txtParameter(111)", "100.000"}}},
       {"TRDMinTemp", "C1200000", {{"txtParameter(112)", "-10.000"}}},
       {"TRDCalTempPoint", "41A00000", {{"txtParameter(113)", "20.000"}}},
       {"TRDTempVal", "41A4000080", {{"txtParameter(98)", "20.500"}, {"txtParameter(309)", "Good (NC)"}}}},
      OpenTemperature);
  ExpectFillsInOrder(
      3500,
      {{"TRDPressure", "C120000000", {{"txtParameter(93)", "-10.000"}, {"txtParameter(307)", "Bad & Non-specific"}}}},
      OpenPressure);
  ExpectFillsInOrder(3600,
                     {{"TRDTempVal",
                       "41A4000040",
                       {{"txtParameter(98)", "20.500"}, {"txtParameter(309)", "Uncertain & Non-specific"}}}},
                     OpenTemperature);
}

TEST(Calibration, UnknownUnitsLeaveTheListsAndBlankThePressureLabels) {
  PageDriver driver;
  OpenPressure(driver);
  driver.AnswerFills(1600, kPressure);
  driver.AnswerTags(1500, {{"TRDUnit", "0472"}, {"TRDPVType", "0000"}});
  driver.AnswerTags(1500, {{"TRDUnit", "0000"}, {"TRDPVType", "7E"}});
  EXPECT_EQ(driver.Text("cmbCalibUnit"), "mbar");
  EXPECT_EQ(driver.Text("cmbDensityPrimaryValueType"), "Pressure");
  Fills unknown = kPressure;
  unknown[4].value = "0000";
  driver.AnswerFills(1600, unknown);
  for (const auto& [label, text] : kPressure[4].fields) EXPECT_EQ(driver.Text(label), "") << label;
  driver.AnswerTags(1800, {{"TRDUnitTemp", "03E9"}});
  driver.AnswerTags(1800, {{"TRDUnitTemp", "0001"}});
  for (const char* shown : {"cmbCalibTempUnit", "cmbDensityTemp", "lbArray(125)", "lbArray(131)"}) {
    EXPECT_EQ(driver.Text(shown), "°C") << shown;
  }
}

TEST(Calibration, TheVerdictIsShownWithItsShape) {
  struct Case {
    const char* code;
    const char* text;
    const char* mark;
  };
  const Case cases[] = {{"16", "Applied process out of range", "bad"},
                        {"1A", "Invalid configuration for request", "bad"},
                        {"1B", "Excess correction", "bad"},
                        {"1C", "Calibration failed", "bad"},
                        {"10", "Good", ""},
                        {"11", "", ""}};
  ScreenDriver driver;
  OpenPressure(driver);
  for (const Case& c : cases) {
    Fills answer = kPressure;
    answer[5].value = c.code;
    driver.AnswerFills(1600, answer);
    EXPECT_EQ(driver.Text("txtParameter(43)"), c.text);
    EXPECT_EQ(driver.Row("txtParameter(43)")["mark"], c.mark) << c.code;
  }
}

TEST(Calibration, TabsNameTheirPageAndReadButStopNoTimer) {
  struct Case {
    int tab;
    const char* page;
    const char* read;
  };
  const Case cases[] = {{1, "Calibration / Calib Temp", "read 18"},
                        {2, "y / x", "read 0"},
                        {0, "Calibration / Calib Upper/Lower", "read 15"}};
  PageDriver driver;
  OpenPressure(driver);  // its timer runs, and Write is disabled
  for (const Case& c : cases) {
    driver.SetMember("CurrentPage", "y");
    driver.SetMember("SubPage", "x");
    driver.Tab("SSTabCalib", c.tab);
    EXPECT_EQ(driver.Page(), c.page);
    EXPECT_EQ(driver.Traffic(), Strings{c.read});
    EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
    EXPECT_EQ(driver.Timer("TimerReadPressure")["enabled"], true);
    EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
  }
}

TEST(Calibration, UnitsAndTheTemperaturePointAreWrittenByPage) {
  struct Case {
    const char* page;
    const char* subPage;
    Strings traffic;
  };
  const Case cases[] = {
      {"Calibration", "Calib Upper/Lower", {"write 12: 0472", "read 15"}},
      {"Calibration", "Calib Temp", {"write 13: 03E8", "read 18"}},
      {"Calibration", "Sensor", {}},
      {"Calib Temp", "x", {"write 16: 41CC0000", "read 19"}},
      {"Calib Lower/Upper", "Calib Upper/Lower", {}},
      {"Calib Graphic", "Calib Upper/Lower", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.page) + " / " + c.subPage);
    PageDriver driver;
    Open(driver);
    driver.SetList("cmbCalibUnit", "mbar");
    driver.SetList("cmbCalibTempUnit", "K");
    driver.Type("txtParameter(113)", "25.5");
    driver.SetMember("CurrentPage", c.page);
    driver.SetMember("SubPage", c.subPage);
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), c.traffic);
  }
}

TEST(Calibration, OnTheTabSensorTheUnitOfTheTabBeforeIsWritten) {
  PageDriver driver;
  Open(driver);
  driver.Choose("cmbCalibUnit", "psi");
  driver.Choose("cmbCalibTempUnit", "°F");
  driver.Tab("SSTabCalib", 2);
  driver.Click("cmdWriteParameter");
  driver.Tab("SSTabCalib", 1);
  driver.Tab("SSTabCalib", 2);
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), (Strings{"read 0", "write 12: 0475", "read 18", "read 0", "write 13: 03EA"}));
}

TEST(Calibration, PointsAreWrittenWithoutAnyCheck) {
  struct Case {
    const char* button;
    const char* field;
    const char* text;
    const char* write;
  };
  // No text without a "1" in its bits has an exponent of its own: it takes that of the number before it.
  const Case cases[] = {
      {"cmdWriteCalibLower", "txtParameter(103)", "", "write 14: 00000000"},
      {"cmdWriteCalibLower", "txtParameter(103)", "-12.5", "write 14: C1480000"},
      {"cmdWriteCalibUpper", "txtParameter(95)", "9999999", "write 15: 4B18967F"},
      {"cmdWriteCalibUpper", "txtParameter(95)", "", "write 15: 4B000000"},
      {"cmdWriteCalibLower", "txtParameter(103)", "0,5", "write 14: 3F000000"},
  };
  PageDriver driver;
  OpenPressure(driver);
  for (const Case& c : cases) {
    driver.Type(c.field, c.text);
    driver.Click(c.button);
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    EXPECT_EQ(driver.Timer("TimerReadAfterWrite"), (Json{{"enabled", true}, {"interval", 2000}}));
    EXPECT_EQ(driver.Member("RequestCode"), std::string(c.write).substr(6, 2));
    EXPECT_EQ(driver.Traffic(), Strings{c.write});
  }
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), Strings{"read 16"});
  driver.SetMember("ConnectionState", "Disconnected");
  driver.Click("cmdWriteCalibUpper");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), Strings{"write 15: 3F000000"}) << "the re-read alone asks for the connection";
}

TEST(Calibration, TheLivePagesPollUntilBack) {
  struct Case {
    const char* button;
    const char* page;
    const char* frame;
    const char* timer;
    const char* read;
    const char* poll;
    bool write;
  };
  const Case cases[] = {
      {"cmdCalibLower", "Calib Lower/Upper / x", "frmCalibPressLowerUpper", "TimerReadPressure", "read 16", "read 35",
       false},
      {"cmdTempCalib", "Calib Temp / x", "frmCalibTemp", "TimerReadTemp", "read 19", "read 36", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.button);
    PageDriver driver;
    Open(driver);
    driver.SetMember("SubPage", "x");
    driver.Click(c.button);
    EXPECT_EQ(driver.Page(), c.page);
    EXPECT_TRUE(driver.Visible(c.frame));
    EXPECT_FALSE(driver.Visible("frmCalib"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write);
    EXPECT_EQ(driver.Timer(c.timer), (Json{{"enabled", true}, {"interval", 5000}}));
    driver.Advance(10'000);
    EXPECT_EQ(driver.Traffic(), (Strings{c.read, c.poll, c.poll}));
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Page(), "Calibration / x");
    EXPECT_TRUE(driver.Visible("frmCalib"));
    EXPECT_FALSE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write);
    driver.Advance(10'000);
    EXPECT_EQ(driver.Traffic(), Strings{});
  }
}

TEST(Calibration, ThePollSendsWhatTheLastRequestLeft) {
  PageDriver driver;
  OpenPressure(driver);
  driver.Advance(4000);
  driver.Type("txtParameter(103)", "10");
  driver.Click("cmdWriteCalibLower");
  driver.Advance(1000);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 14: 41200000", "read 35: 41200000"}));
  driver.Advance(6000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 16", "read 35"}));
}

TEST(Calibration, NoLiveReadingWhereTheReadFails) {
  PageDriver driver;
  Open(driver);
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Click("cmdCalibLower");
  EXPECT_EQ(driver.Page(), "Calib Lower/Upper / Calib Upper/Lower");
  EXPECT_EQ(driver.Timer("TimerReadPressure")["enabled"], false);
}

TEST(Calibration, TheGraphicReadsAndWritesNothing) {
  PageDriver driver;
  Open(driver);
  driver.SetMember("SubPage", "Calib Temp");
  driver.Click("cmdCalibGraphic");
  EXPECT_EQ(driver.Page(), "Calib Graphic / Calib Temp");
  EXPECT_TRUE(driver.Visible("frmCalibGraphic"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  driver.Click("cmdWriteParameter");
  driver.Advance(5000);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Page(), "Calibration / Calib Upper/Lower");
  EXPECT_TRUE(driver.Visible("frmCalib"));
}

TEST(Calibration, BackShowsADensityDeviceNoPage) {
  for (const char* page : {"Calib Lower/Upper", "Calib Upper", "Calib Temp", "Calib Graphic"}) {
    SCOPED_TRACE(page);
    PageDriver driver;
    OpenPressure(driver);
    driver.SetMember("CurrentPage", page);
    driver.SetList("cmbPVType", "Density");
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Member("CurrentPage"), "Calibration");
    EXPECT_FALSE(driver.Visible("frmCalib"));
  }
}

TEST(Calibration, ThePageNoControlOpensIsReadAgain) {
  PageDriver driver;
  OpenPressure(driver);
  driver.SetMember("CurrentPage", "Calib Upper");
  driver.Click("cmdWriteCalibUpper");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 15: 00000000", "read 17"}));
}

TEST(CalibrationGraphic, SaysWhatWasReadLastWhicheverNodeCameBetween) {
  ScreenDriver driver{Driver::Simulated()};
  driver.Activate("Calibration");
  driver.Click("cmdCalibGraphic");
  EXPECT_EQ(driver.Title(), "Calibration Graphic");
  EXPECT_EQ(driver.DataLine(), "") << "the page reads nothing";
  EXPECT_EQ(driver.Screen()["figure"], (Json{{"sentence", "No values read yet: open Lower/Upper first."},
                                             {"above", Json::array()},
                                             {"remarks", Json::array()}}));
  driver.Click("cmdBack");
  driver.Click("cmdCalibLower");
  driver.Advance(1000);  // answered at once
  driver.Type("txtParameter(95)", "0.2");
  driver.Click("cmdBack");
  driver.Activate("Observe");
  driver.Advance(60'000);
  driver.Activate("Calibration");
  driver.Click("cmdCalibGraphic");
  EXPECT_EQ(driver.Screen()["figure"],
            (Json{{"sentence",
                   "Calibration points between the sensor limits -37.400 and 37.400 kPa: Lower 0.000, Upper 0.2. Live "
                   "value 10.000, Good."},
                  {"above", {"Calibration Result: Good", "As last read 00:00:02"}},
                  {"remarks", {"Check: the points are 0.200 apart, Cal Min Span is 0.374."}}}));
  EXPECT_EQ(driver.Screen()["rows"], Json::array());
}

// ---- with the simulated transmitter

constexpr int kSettled = 5200;  // longer than a write, its re-read and the answer, and than the device's wait

Json Erring() { return Driver::Simulated({{"device", {{"gainErrorHi", 0.005}, {"offsetErrorHi", 120}}}}); }

void SetProcess(PageDriver& driver, const Json& process) {
  driver.Ok({{"do", "simulator"}, {"set", {{"process", process}}}});
}

void Apply(PageDriver& driver, double differential) {
  SetProcess(driver, {{"pressureHi", 10'000 + 1000 * differential}, {"pressureLo", 10'000}});
  driver.Advance(kSettled);
}

void SetDevice(PageDriver& driver, const Json& device) {
  driver.Ok({{"do", "simulator"}, {"set", {{"device", device}}}});
}

std::string Verdict(PageDriver& driver) { return driver.Text("txtParameter(43)"); }

void Trim(PageDriver& driver, const char* field, const char* button, const std::string& text) {
  driver.Type(field, text);
  driver.Click(button);
  driver.Advance(kSettled);
}
void TrimLower(PageDriver& driver, const std::string& text) {
  Trim(driver, "txtParameter(103)", "cmdWriteCalibLower", text);
}
void TrimUpper(PageDriver& driver, const std::string& text) {
  Trim(driver, "txtParameter(95)", "cmdWriteCalibUpper", text);
}

double Shown(PageDriver& driver, const char* field) { return std::stod(driver.Text(field)); }

TEST(CalibrationCourse, LowerAndUpperTrimRemoveTheSensorsErrors) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 10);
  // 1.005 x 20 kPa + 0.12 kPa on one side, 10 kPa on the other.
  EXPECT_NEAR(Shown(driver, "txtParameter(93)"), 10.220, 0.001);
  EXPECT_EQ(driver.Text("txtParameter(307)"), "Good (NC)");
  EXPECT_EQ(driver.Row("txtParameter(93)")["unit"], "kPa");
  Apply(driver, 0.5);
  TrimLower(driver, "0.5");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.State("txtParameter(103)"), "confirmed");
  Apply(driver, 25);
  TrimUpper(driver, "25");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.Footer(), "all confirmed");
  for (const double applied : {0.5, 10.0, 20.0}) {
    Apply(driver, applied);
    EXPECT_NEAR(Shown(driver, "txtParameter(93)"), applied, 0.001);
  }
}

TEST(CalibrationCourse, TheUnitChangesPointsAndLimitsAlike) {
  PageDriver driver{Driver::Simulated()};
  driver.Activate("Calibration");
  driver.Advance(500);
  EXPECT_EQ(driver.Text("cmbCalibUnit"), "kPa");
  driver.Choose("cmbCalibUnit", "mbar");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbCalibUnit"), "mbar");
  driver.Click("cmdCalibLower");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(97)"), "374.000");
  EXPECT_EQ(driver.Text("txtParameter(95)"), "374.000");
  EXPECT_EQ(driver.Text("txtParameter(102)"), "3.740");
  EXPECT_EQ(driver.Text("txtParameter(93)"), "100.000");
  EXPECT_EQ(driver.Text("lbArray(118)"), "mbar");
  TrimLower(driver, "99.5");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.Text("txtParameter(93)"), "99.500");
}

struct Refusal {
  const char* name;
  double applied;
  bool upper;
  const char* point;
  const char* verdict;
  Json device = nullptr;
  Json fault = nullptr;
};

TEST(CalibrationCourse, WhatTheTransmitterRefusesChangesNothing) {
  const Refusal refusals[] = {
      {"process beyond the limit", 50, false, "1", "Applied process out of range"},
      {"point beyond the limit", 10, false, "40", "Applied process out of range"},
      {"upper point near the lower", 0.2, true, "0.2", "Invalid configuration for request"},
      {"lower point near the upper", 37.2, false, "37.2", "Invalid configuration for request"},
      {"offset too large", 0, false, "6", "Excess correction"},
      {"gain too large", 20, true, "23", "Excess correction"},
      {"locked", 10, false, "10.1", "Invalid configuration for request", {{"writeLocked", true}}},
      {"simulating", 10, false, "10.1", "Invalid configuration for request", {{"parameters", {{"simEnable", "FF"}}}}},
      {"no sensor", 10, false, "10.1", "Calibration failed", nullptr, {{"kind", "boardFailure"}}},
  };
  for (const Refusal& refusal : refusals) {
    SCOPED_TRACE(refusal.name);
    ScreenDriver driver{Driver::Simulated()};
    driver.Activate("Calibration");
    driver.Click("cmdCalibLower");
    Apply(driver, refusal.applied);
    if (!refusal.device.is_null()) SetDevice(driver, refusal.device);
    if (!refusal.fault.is_null()) driver.Ok({{"do", "simulator"}, {"fault", refusal.fault}});
    driver.Advance(kSettled);
    const std::string measured = driver.Text("txtParameter(93)");
    const char* field = refusal.upper ? "txtParameter(95)" : "txtParameter(103)";
    const std::string before = driver.Text(field);
    refusal.upper ? TrimUpper(driver, refusal.point) : TrimLower(driver, refusal.point);
    EXPECT_EQ(Verdict(driver), refusal.verdict);
    EXPECT_EQ(driver.Row("txtParameter(43)")["mark"], "bad");
    EXPECT_EQ(driver.Text(field), before);
    EXPECT_EQ(driver.State(field), "differs");
    EXPECT_EQ(driver.Words(field), "device: " + before + ", sent: " + refusal.point);
    EXPECT_EQ(driver.Text("txtParameter(93)"), measured);
  }
}

TEST(CalibrationCourse, APressureThatStillMovesFails) {
  PageDriver driver{Driver::Simulated()};
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 0);
  SetProcess(driver, {{"pressureHi", 12'000}});
  driver.Advance(1000);
  TrimLower(driver, "2");
  EXPECT_EQ(Verdict(driver), "Calibration failed");
  TrimLower(driver, "2");
  EXPECT_EQ(Verdict(driver), "Good");
}

TEST(CalibrationCourse, LockedInTheMiddleTheLowerPointStands) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 1);
  TrimLower(driver, "1");
  ASSERT_EQ(Verdict(driver), "Good");
  SetDevice(driver, {{"writeLocked", true}});
  Apply(driver, 25);
  TrimUpper(driver, "25");
  EXPECT_EQ(Verdict(driver), "Invalid configuration for request");
  EXPECT_EQ(driver.Text("txtParameter(103)"), "1.000");
  EXPECT_EQ(driver.Text("txtParameter(95)"), "37.400");
  // One point alone has set the offset: the gain's error is left, 0.005 x 24 kPa.
  EXPECT_NEAR(Shown(driver, "txtParameter(93)"), 25.12, 0.001);
  SetDevice(driver, {{"writeLocked", false}});
  TrimUpper(driver, "25");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_NEAR(Shown(driver, "txtParameter(93)"), 25, 0.001);
}

TEST(CalibrationCourse, BackBeforeTheWriteLeavesTheDeviceAlone) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 1);
  driver.Type("txtParameter(103)", "1.5");
  EXPECT_EQ(driver.State("txtParameter(103)"), "not written");
  driver.Requests();
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Message(), "Left without writing: 1 field on Lower/Upper Calibration.");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Click("cmdCalibLower");
  driver.Advance(500);
  EXPECT_EQ(driver.Text("txtParameter(103)"), "0.000");
  EXPECT_EQ(driver.State("txtParameter(103)"), "replaced");
}

TEST(CalibrationCourse, BackAfterTheWriteTheVerdictIsThereWhenThePageOpensAgain) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 1);
  driver.Type("txtParameter(103)", "1");
  driver.Requests();
  driver.Click("cmdWriteCalibLower");
  driver.Click("cmdBack");
  driver.Advance(kSettled);
  // The page's own re-read is the one of the page left.
  EXPECT_EQ(driver.Traffic(), (Strings{"write 14: 3F800000", "read 15"}));
  driver.Click("cmdCalibLower");
  driver.Advance(500);
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.Text("txtParameter(103)"), "1.000");
  EXPECT_EQ(driver.Text("txtParameter(93)"), "1.000");
}

TEST(CalibrationCourse, APointTypedAsItStandsIsNoChange) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 0);
  TrimLower(driver, "0");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.Text("txtParameter(103)"), "0.000");
  EXPECT_EQ(driver.State("txtParameter(103)"), "as read");
}

TEST(CalibrationCourse, TheTemperatureIsTrimmedInItsUnit) {
  ScreenDriver driver(Driver::Simulated({{"device", {{"temperatureError", 2.5}}}, {"process", {{"temperature", 22}}}}));
  driver.Activate("Calibration");
  driver.Tab("SSTabCalib", 1);
  driver.Advance(500);
  driver.Choose("cmbCalibTempUnit", "°F");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbDensityTemp"), "°F");
  driver.Click("cmdTempCalib");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(98)"), "76.100");  // 24.5 °C
  EXPECT_EQ(driver.Row("txtParameter(98)")["unit"], "°F");
  driver.Type("txtParameter(113)", "71.6");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.State("txtParameter(113)"), "confirmed");
  EXPECT_EQ(driver.Text("txtParameter(98)"), "71.600");
  EXPECT_EQ(driver.Text("txtParameter(309)"), "Good (NC)");
}

TEST(CalibrationCourse, ARefusedTemperatureComesBackAsItWas) {
  const struct {
    const char* point;
    const char* verdict;
  } cases[] = {{"400", "Applied process out of range"}, {"31", "Excess correction"}};
  for (const auto& c : cases) {
    ScreenDriver driver(Driver::Simulated({{"process", {{"temperature", 20}}}}));
    driver.Activate("Calibration");
    driver.Click("cmdTempCalib");
    driver.Advance(kSettled);
    const std::string before = driver.Text("txtParameter(113)");
    driver.Type("txtParameter(113)", c.point);
    driver.Click("cmdWriteParameter");
    driver.Advance(kSettled);
    EXPECT_EQ(driver.Words("txtParameter(113)"), "device: " + before + ", sent: " + c.point);
    EXPECT_EQ(driver.Text("txtParameter(98)"), "20.000");
    driver.Click("cmdBack");
    driver.Click("cmdCalibLower");
    driver.Advance(500);
    EXPECT_EQ(Verdict(driver), c.verdict) << "this page alone has the verdict";
  }
}

TEST(CalibrationCourse, TheLinkFailsAndTheLiveValueSaysSo) {
  ScreenDriver driver{Driver::Simulated()};
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  driver.Advance(kSettled);
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "noAnswer"}}}});
  driver.Advance(25'000);
  EXPECT_EQ(driver.DataLine().substr(0, 16), "No answer since ");
  EXPECT_EQ(driver.Words("txtParameter(93)"), "stale");
  EXPECT_EQ(driver.Words("txtParameter(43)"), "stale");
}

}  // namespace
}  // namespace htr60::automation
