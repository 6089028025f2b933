#include "screen_driver.h"

namespace htr60::automation {
namespace {

struct Way {
  const char* button;
  const char* page;
  const char* back;
  const char* frame;
};
constexpr Way kWays[] = {
    {"cmdCalWithRef", "Cal With Ref", "Factory Sensor", "frmFactorySensorInfo"},
    {"cmdCalibWithRef", "Cal With Ref_", "Factory", "frmfactory"},
    {"Command3", "Cal With Ref-1", "Calibration", "frmCalib"},
    {"Command4", "Cal With Ref-2", "Density Calib", "frmDensityCalib"},
};

struct Panel {
  const char* subPage;
  int tab;
  int inner;
  int code;  // of the read; the write's is 8 less
  const char* limit;
  const char* point;
  const char* value;
  const char* status;
  const char* result;
  Strings units;
};
const Panel kPanels[] = {
    {"Hi Press - Sns1",
     1,
     0,
     73,
     "txtParameter(273)",
     "txtParameter(277)",
     "txtParameter(279)",
     "txtParameter(278)",
     "txtParameter(361)",
     {"lbArray(417)", "lbArray(415)", "lbArray(421)"}},
    {"Lo Press - Sns1",
     1,
     1,
     74,
     "txtParameter(274)",
     "txtParameter(280)",
     "txtParameter(275)",
     "txtParameter(276)",
     "txtParameter(362)",
     {"lbArray(507)", "lbArray(426)", "lbArray(420)"}},
    {"Hi Press - Sns2",
     2,
     0,
     75,
     "txtParameter(285)",
     "txtParameter(288)",
     "txtParameter(286)",
     "txtParameter(287)",
     "txtParameter(363)",
     {"lbArray(511)", "lbArray(439)", "lbArray(438)"}},
    {"Lo Press - Sns2",
     2,
     1,
     76,
     "txtParameter(356)",
     "txtParameter(353)",
     "txtParameter(355)",
     "txtParameter(354)",
     "txtParameter(364)",
     {"lbArray(521)", "lbArray(519)", "lbArray(514)"}},
};

void Open(PageDriver& driver) {
  driver.Activate("Calibration");
  driver.Click("Command3");
  driver.Requests();
}

void Show(PageDriver& driver, const Panel& panel) {
  driver.Tab("SSTabCalibWithRef(0)", panel.tab);
  driver.Tab("SSTabCalibWithRef(" + std::to_string(panel.tab) + ")", panel.inner);
}

std::string Read(int code) { return "read " + std::to_string(code); }

Json PollTimer(bool enabled) { return {{"enabled", enabled}, {"interval", 3000}}; }

TEST(CalWithRef, FourWaysLeadInAndBack) {
  for (const Way& way : kWays) {
    SCOPED_TRACE(way.page);
    PageDriver driver;
    driver.Activate("Observe");  // disables Write
    driver.Requests();
    driver.Click(way.button);
    EXPECT_EQ(driver.Page(), std::string(way.page) + " / Cal Unit");
    EXPECT_TRUE(driver.Visible("frmCalWithRef"));
    EXPECT_FALSE(driver.Visible("frmDeviceView"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
    EXPECT_EQ(driver.Traffic(), Strings{"read 77"});
    EXPECT_EQ(driver.Timer("TimerCalibRef")["enabled"], false);
    EXPECT_EQ(driver.Timer("TimerDeviceView")["enabled"], true) << "a timer that runs goes on";
    EXPECT_EQ(driver.Get("cmbCalUnit")["items"].size(), 18U);
    driver.Tab("SSTabCalibWithRef(0)", 2);
    driver.Requests();
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Member("CurrentPage"), way.back);
    EXPECT_TRUE(driver.Visible(way.frame));
    EXPECT_FALSE(driver.Visible("frmCalWithRef"));
    EXPECT_FALSE(driver.Enabled("cmdBack"));
    EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
    EXPECT_EQ(driver.Timer("TimerCalibRef")["enabled"], false);
    driver.Advance(20'000);
    EXPECT_EQ(driver.Traffic(), Strings{});
  }
}

TEST(CalWithRef, ItOpensOnTheUnitWhateverTabWasInFront) {
  PageDriver driver;
  Open(driver);
  driver.Choose("cmbCalUnit", "psi");
  Show(driver, kPanels[1]);
  driver.Click("cmdBack");
  driver.Requests();
  driver.Click("Command3");
  EXPECT_EQ(driver.Get("SSTabCalibWithRef(0)")["index"], 0);
  EXPECT_EQ(driver.Get("SSTabCalibWithRef(1)")["index"], 0);
  EXPECT_EQ(driver.Page(), "Cal With Ref-1 / Cal Unit");
  EXPECT_EQ(driver.Traffic(), (Strings{"read 73", "read 77"})) << "the inner strip's own read goes out first";
  EXPECT_EQ(driver.Timer("TimerCalibRef")["enabled"], false);
  EXPECT_EQ(driver.Text("cmbCalUnit"), "psi") << "filled once";
}

TEST(CalWithRef, TabsNameTheirPanelReadAndPoll) {
  PageDriver driver;
  Open(driver);
  for (const Panel& panel : kPanels) {
    SCOPED_TRACE(panel.subPage);
    driver.SetMember("SubPage", "x");
    driver.Ok({{"do", "set"}, {"member", "RequestXml"}, {"value", "x"}});
    Show(driver, panel);
    EXPECT_EQ(driver.Page(), std::string("Cal With Ref-1 / ") + panel.subPage);
    // The strip of the first sensor goes back to "Upper" first, and its own read goes out.
    EXPECT_EQ(driver.Traffic(), panel.code == 75 ? Strings({"read 73", "read 75"}) : Strings{Read(panel.code)});
    EXPECT_EQ(driver.Timer("TimerCalibRef"), PollTimer(true));
    EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
    driver.Advance(6000);
    EXPECT_EQ(driver.Traffic(), (Strings{"read 78", "read 78"}));
  }
  // Both inner strips go back to "Upper"; the second one was at "Lower" and reads its panel.
  driver.Tab("SSTabCalibWithRef(0)", 1);
  EXPECT_EQ(driver.Get("SSTabCalibWithRef(2)")["index"], 0);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 75", "read 73"}));
  EXPECT_EQ(driver.Member("SubPage"), "Hi Press - Sns1");
  driver.Ok({{"do", "set"}, {"member", "RequestXml"}, {"value", "x"}});
  driver.Tab("SSTabCalibWithRef(0)", 0);
  EXPECT_EQ(driver.Page(), "Cal With Ref-1 / Cal Unit");
  EXPECT_EQ(driver.Member("RequestCode"), "0");
  EXPECT_NE(driver.Member("RequestXml"), "x");
  EXPECT_EQ(driver.Timer("TimerCalibRef"), PollTimer(false));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  driver.Advance(10'000);
  EXPECT_EQ(driver.Traffic(), Strings{});
}

TEST(CalWithRef, TheTimerRunsAlsoWhereTheReadFails) {
  PageDriver driver;
  Open(driver);
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Tab("SSTabCalibWithRef(0)", 1);
  EXPECT_EQ(driver.Member("SubPage"), "Hi Press - Sns1");
  EXPECT_EQ(driver.Timer("TimerCalibRef"), PollTimer(true));
}

TEST(CalWithRef, EachPanelTakesItsAnswerInOrder) {
  for (const Panel& panel : kPanels) {
    SCOPED_TRACE(panel.subPage);
    std::vector<std::pair<std::string, std::string>> units;
    for (const std::string& label : panel.units) units.emplace_back(label, "mbar");
    ExpectFillsInOrder(
        panel.code * 100,
        {{"SensorLimit", "43BB0000", {{panel.limit, "374.000"}}},
         {"CalPoint", "42C80000", {{panel.point, "100.000"}}},
         {"SensorVal", "42C9000040", {{panel.value, "100.500"}, {panel.status, "Uncertain & Non-specific"}}},
         {"CalUnit", "0472", units},
         {"TRDOperResult", "16", {{panel.result, "Applied process out of range"}}}},
        Open);
  }
}

TEST(CalWithRef, TheLiveAnswerFillsBothPanelsOfEachSensorAndAllResults) {
  ExpectFillsInOrder(7800,
                     {{"SensorValHi",
                       "42C9000040",
                       {{"txtParameter(279)", "100.500"},
                        {"txtParameter(278)", "Uncertain & Non-specific"},
                        {"txtParameter(276)", "Uncertain & Non-specific"},
                        {"txtParameter(275)", "100.500"}}},
                      {"SensorValLo",
                       "C120000080",
                       {{"txtParameter(286)", "-10.000"},
                        {"txtParameter(287)", "Good (NC)"},
                        {"txtParameter(354)", "Good (NC)"},
                        {"txtParameter(355)", "-10.000"}}},
                      {"TRDOperResult",
                       "1C",
                       {{"txtParameter(361)", "Calibration failed"},
                        {"txtParameter(362)", "Calibration failed"},
                        {"txtParameter(363)", "Calibration failed"},
                        {"txtParameter(364)", "Calibration failed"}}}},
                     Open);
  ExpectFillsInOrder(7700, {{"CalUnit", "0471", {{"cmbCalUnit", "bar"}}}}, Open);
}

TEST(CalWithRef, UnknownCodesLeaveTheListAndEmptyLabelsAndResult) {
  PageDriver driver;
  Open(driver);
  driver.AnswerTags(7700, {{"CalUnit", "0471"}});
  driver.AnswerTags(7700, {{"CalUnit", "0000"}});
  EXPECT_EQ(driver.Text("cmbCalUnit"), "bar");
  const auto answer = [&](const char* unit, const char* result) {
    driver.AnswerTags(7300, {{"SensorLimit", "0"},
                             {"CalPoint", "0"},
                             {"SensorVal", "0000000080"},
                             {"CalUnit", unit},
                             {"TRDOperResult", result}});
  };
  answer("0471", "10");
  EXPECT_EQ(driver.Text("lbArray(417)"), "bar");
  EXPECT_EQ(driver.Text("txtParameter(361)"), "Good");
  answer("0000", "00");
  EXPECT_EQ(driver.Text("lbArray(417)"), "");
  EXPECT_EQ(driver.Text("txtParameter(361)"), "");
}

TEST(CalWithRef, WriteGoesByTheSubPageOnEveryWay) {
  for (const Way& way : kWays) {
    SCOPED_TRACE(way.page);
    PageDriver driver;
    driver.Click(way.button);
    driver.Choose("cmbCalUnit", "kPa");
    driver.Requests();
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), (Strings{"write 69: 046D", "read 77"}));
    for (const Panel& panel : kPanels) {
      SCOPED_TRACE(panel.subPage);
      Show(driver, panel);
      driver.Advance(1500);
      driver.Type(panel.point, "12.5");
      driver.Requests();
      driver.Click("cmdWriteParameter");
      EXPECT_EQ(driver.Timer("TimerCalibRef"), PollTimer(true));
      driver.Advance(3000);
      const std::string written = std::to_string(panel.code - 8) + ": 41480000";
      // Stopped and started, the live reading begins its wait anew, and sends what the re-read left.
      EXPECT_EQ(driver.Traffic(), (Strings{"write " + written, Read(panel.code), "read 78"}));
    }
    driver.SetMember("SubPage", "Lower");
    driver.Click("cmdWriteParameter");
    EXPECT_EQ(driver.Timer("TimerCalibRef")["enabled"], false) << "stopped before the sub-page is looked at";
    driver.Advance(5000);
    EXPECT_EQ(driver.Traffic(), Strings{});
  }
}

TEST(CalWithRef, TheLimitKeepsItsCaptionAndEachFieldItsUnit) {
  ScreenDriver driver;
  Open(driver);
  const char* captions[] = {"Hi Sensor Limit", "Lo Sensor Limit", "Hi Sensor Limit", "Hi Sensor Limit"};
  for (int i = 0; i < 4; ++i) {
    const Panel& panel = kPanels[i];
    Show(driver, panel);
    driver.AnswerTags(panel.code * 100, {{"SensorLimit", "0"},
                                         {"CalPoint", "0"},
                                         {"SensorVal", "0000000080"},
                                         {"CalUnit", "0475"},
                                         {"TRDOperResult", "1B"}});
    Strings controls;
    const Json rows = driver.Screen()["rows"];
    for (const Json& row : rows) controls.push_back(row["control"]);
    EXPECT_EQ(controls, (Strings{panel.limit, panel.value, panel.status, panel.point, panel.result}));
    const std::string group = panel.tab == 1 ? "Hi Press Sensor Val" : "Lo Press Sensor Val";
    EXPECT_EQ(driver.Row(panel.limit)["caption"], captions[i]);
    EXPECT_EQ(driver.Row(panel.value)["name"], group + ", Value, psi");
    EXPECT_EQ(driver.Row(panel.status)["name"], group + ", Status");
    EXPECT_EQ(driver.Row(panel.point)["name"], "Cal Point, psi");
    EXPECT_EQ(driver.Row(panel.result)["mark"], "bad");
  }
}

// ---- without reference

const Fills kPoints = {
    {"CalPointHi", "41C80000", {{"txtParameter(196)", "25.000"}}},
    {"CalPointLo", "3F800000", {{"txtParameter(195)", "1.000"}}},
    {"CalUnit",
     "0472",
     {{"lbArray(308)", "mbar"},
      {"lbArray(309)", "mbar"},
      {"lbArray(116)", "mbar"},
      {"lbArray(123)", "mbar"},
      {"lbArray(397)", "mbar"},
      {"lbArray(414)", "mbar"}}},
    {"CalPointHiSns1", "42000000", {{"txtParameter(94)", "32.000"}}},
    {"CalPointLoSns1", "40000000", {{"txtParameter(96)", "2.000"}}},
    {"CalPointHiSns2", "42040000", {{"txtParameter(264)", "33.000"}}},
    {"CalPointLoSns2", "40400000", {{"txtParameter(308)", "3.000"}}},
};

TEST(CalWithoutRef, ItOpensReadsAndLeadsBack) {
  PageDriver driver;
  driver.SetMember("SubPage", "x");
  driver.Click("cmdCalWithoutRef");
  EXPECT_EQ(driver.Page(), "Cal Without Ref / x");
  EXPECT_TRUE(driver.Visible("frmCalWithoutRef"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
  driver.Advance(20'000);
  EXPECT_EQ(driver.Traffic(), Strings{"read 56"});
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Page(), "Factory Sensor / x");
  EXPECT_TRUE(driver.Visible("frmFactorySensorInfo"));
  EXPECT_FALSE(driver.Enabled("cmdBack"));
}

TEST(CalWithoutRef, TheAnswerFillsInOrder) {
  ExpectFillsInOrder(5600, kPoints, [](PageDriver& driver) { driver.Click("cmdCalWithoutRef"); });
}

TEST(CalWithoutRef, EveryWriteCarriesTheDifferentialHighPointTwice) {
  struct Case {
    const char* button;
    const char* write;
  };
  const Case cases[] = {
      {"cmdWriteCalPoint", "write 44: 41C80000, 3F800000, 41C80000, 41C80000"},
      {"cmdWriteCalPointSns1", "write 63: 42000000, 40000000, 41C80000, 41C80000"},
      {"cmdWriteCalPointSns2", "write 64: 42040000, 40400000, 41C80000, 41C80000"},
  };
  PageDriver driver;
  driver.Click("cmdCalWithoutRef");
  driver.AnswerFills(5600, kPoints);
  driver.Requests();
  for (const Case& c : cases) {
    driver.Click(c.button);
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    EXPECT_EQ(driver.Timer("TimerReadAfterWrite"), (Json{{"enabled", true}, {"interval", 2000}}));
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), (Strings{c.write, "read 56"}));
  }
  // Empty, the high point has no exponent but that of the number converted before it: 2.
  driver.Type("txtParameter(196)", "");
  driver.SetMember("ConnectionState", "Disconnected");
  driver.Click("cmdWriteCalPointSns1");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), Strings{"write 63: 42000000, 40000000, 40000000, 40000000"});
}

// ---- with the simulated transmitter

constexpr int kSettled = 5200;

void Apply(PageDriver& driver, const char* side, double kilopascal) {
  driver.Ok({{"do", "simulator"}, {"set", {{"process", {{side, 1000 * kilopascal}}}}}});
  driver.Advance(kSettled);
}

void Trim(PageDriver& driver, const Panel& panel, const std::string& text) {
  Show(driver, panel);
  driver.Advance(500);
  driver.Type(panel.point, text);
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
}

double Shown(PageDriver& driver, const char* field) { return std::stod(driver.Text(field)); }

TEST(CalWithRefCourse, EachSensorIsTrimmedToItsReference) {
  struct Case {
    const char* error;
    const char* gain;
    const char* side;
    int panel;
  };
  for (const Case& c :
       {Case{"offsetErrorHi", "gainErrorHi", "pressureHi", 0}, Case{"offsetErrorLo", "gainErrorLo", "pressureLo", 2}}) {
    SCOPED_TRACE(c.side);
    ScreenDriver driver(Driver::Simulated({{"device", {{c.error, 250}, {c.gain, 0.01}}}}));
    driver.Activate("Calibration");
    driver.Tab("SSTabCalib", 2);
    driver.Click("Command3");
    driver.Advance(500);
    EXPECT_EQ(driver.Text("cmbCalUnit"), "kPa");
    const Panel& upper = kPanels[c.panel];
    const Panel& lower = kPanels[c.panel + 1];
    Show(driver, lower);
    Apply(driver, c.side, 5);
    EXPECT_NEAR(Shown(driver, lower.value), 1.01 * 5 + 0.25, 0.001);
    Trim(driver, lower, "5");
    EXPECT_EQ(driver.Text(lower.result), "Good");
    EXPECT_EQ(driver.State(lower.point), "confirmed");
    EXPECT_NEAR(Shown(driver, lower.value), 5, 0.001);
    Apply(driver, c.side, 30);
    EXPECT_NEAR(Shown(driver, lower.value), 30.25, 0.001) << "the gain's error is left";
    Trim(driver, upper, "30");
    EXPECT_EQ(driver.Text(upper.result), "Good");
    for (const double applied : {5.0, 18.0, 30.0}) {
      Apply(driver, c.side, applied);
      EXPECT_NEAR(Shown(driver, upper.value), applied, 0.001);
      EXPECT_EQ(driver.Text(lower.value), driver.Text(upper.value));
    }
    // The other sensor is what it was.
    const Panel& other = kPanels[2 - c.panel];
    Show(driver, other);
    driver.Advance(500);
    EXPECT_EQ(driver.Text(other.point), "37.400");
  }
}

TEST(CalWithRefCourse, RefusalsAreTold) {
  struct Case {
    const char* name;
    double applied;
    int panel;
    const char* point;
    const char* verdict;
    bool locked;
  };
  const Case cases[] = {
      {"process beyond the limit", 60, 0, "30", "Applied process out of range", false},
      {"point beyond the limit", 30, 0, "38", "Applied process out of range", false},
      {"points too near", 0.2, 0, "0.2", "Invalid configuration for request", false},
      {"gain too large", 30, 0, "26", "Excess correction", false},
      {"offset too large", 0, 1, "5", "Excess correction", false},
      {"locked", 30, 0, "30.1", "Invalid configuration for request", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ScreenDriver driver{Driver::Simulated()};
    Open(driver);
    const Panel& panel = kPanels[c.panel];
    Show(driver, panel);
    Apply(driver, "pressureHi", c.applied);
    if (c.locked) driver.Ok({{"do", "simulator"}, {"set", {{"device", {{"writeLocked", true}}}}}});
    const std::string before = driver.Text(panel.point);
    const std::string measured = driver.Text(panel.value);
    Trim(driver, panel, c.point);
    EXPECT_EQ(driver.Text(panel.result), c.verdict);
    EXPECT_EQ(driver.Row(panel.result)["mark"], "bad");
    EXPECT_EQ(driver.Words(panel.point), "device: " + before + ", sent: " + c.point);
    EXPECT_EQ(driver.Text(panel.value), measured);
    // The verdict is the device's one: every panel shows it.
    driver.Tab("SSTabCalibWithRef(0)", 2);
    driver.Advance(500);
    EXPECT_EQ(driver.Text("txtParameter(363)"), c.verdict);
  }
}

TEST(CalWithRefCourse, BackInTheMiddleKeepsWhatWasTrimmed) {
  ScreenDriver driver(Driver::Simulated({{"device", {{"offsetErrorHi", 250}}}}));
  Open(driver);
  Apply(driver, "pressureHi", 5);
  Trim(driver, kPanels[1], "5");
  ASSERT_EQ(driver.Text("txtParameter(362)"), "Good");
  driver.Tab("SSTabCalibWithRef(1)", 0);
  driver.Advance(500);
  driver.Type("txtParameter(277)", "20");
  driver.Requests();
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Message(), "Left without writing: 1 field on Cal With Ref, Hi Press Cal Sensor.");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Click("Command3");
  Show(driver, kPanels[1]);
  driver.Advance(500);
  EXPECT_EQ(driver.Text("txtParameter(280)"), "5.000");
  EXPECT_EQ(driver.Text("txtParameter(275)"), "5.000");
}

TEST(CalWithRefCourse, TheUnitIsThatOfAllPoints) {
  ScreenDriver driver{Driver::Simulated()};
  Open(driver);
  driver.Advance(500);
  driver.Choose("cmbCalUnit", "mbar");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.State("cmbCalUnit"), "confirmed");
  Show(driver, kPanels[3]);
  driver.Advance(500);
  EXPECT_EQ(driver.Text("txtParameter(356)"), "-374.000");
  EXPECT_EQ(driver.Row("txtParameter(353)")["unit"], "mbar");
  driver.Click("cmdBack");
  driver.Click("cmdCalWithoutRef");
  driver.Advance(500);
  EXPECT_EQ(driver.Text("txtParameter(264)"), "374.000");
  EXPECT_EQ(driver.Row("txtParameter(264)")["unit"], "mbar");
}

TEST(CalWithoutRefCourse, TheOldPointsReadAsTheNewOnes) {
  ScreenDriver driver{Driver::Simulated()};
  driver.Click("cmdCalWithoutRef");
  driver.Advance(500);
  EXPECT_EQ(driver.Text("txtParameter(94)"), "37.400");
  driver.Type("txtParameter(94)", "38.5");
  driver.Type("txtParameter(96)", "0.5");
  driver.Click("cmdWriteCalPointSns1");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Footer(), "2 differs") << "38.5 is beyond the sensor's limit";
  driver.Type("txtParameter(94)", "36.5");
  driver.Type("txtParameter(96)", "0.5");
  driver.Click("cmdWriteCalPointSns1");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Footer(), "all confirmed");
  EXPECT_EQ(driver.Text("txtParameter(196)"), "37.400") << "the differential pressure's point only travels along";
  driver.Click("Command3");
  Show(driver, kPanels[0]);
  driver.Advance(500);
  // 0 to 37.4 kPa read as 0.5 to 36.5 kPa; 20 kPa are applied.
  EXPECT_NEAR(Shown(driver, "txtParameter(279)"), 0.5 + 20 / 37.4 * 36, 0.001);
  EXPECT_EQ(driver.Text("txtParameter(361)"), "Good");
}

TEST(CalWithoutRefCourse, RefusalsChangeNothing) {
  struct Case {
    const char* high;
    const char* low;
    bool locked;
    const char* verdict;
  };
  const Case cases[] = {{"40", "0", false, "Applied process out of range"},
                        {"20", "19.9", false, "Invalid configuration for request"},
                        {"", "0.1", false, "Invalid configuration for request"},
                        {"20", "0.1", false, "Excess correction"},
                        {"37", "4.5", false, "Excess correction"},
                        {"37", "0.1", true, "Invalid configuration for request"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.high);
    ScreenDriver driver{Driver::Simulated()};
    driver.Click("cmdCalWithoutRef");
    driver.Advance(500);
    if (c.locked) driver.Ok({{"do", "simulator"}, {"set", {{"device", {{"writeLocked", true}}}}}});
    driver.Type("txtParameter(196)", c.high);
    driver.Type("txtParameter(195)", c.low);
    driver.Click("cmdWriteCalPoint");
    driver.Advance(kSettled);
    EXPECT_EQ(driver.Text("txtParameter(196)"), "37.400");
    EXPECT_EQ(driver.Text("txtParameter(195)"), "0.000");
    EXPECT_EQ(driver.State("txtParameter(196)"), "differs");
    driver.Activate("Calibration");
    driver.Click("cmdCalibLower");
    driver.Advance(500);
    EXPECT_EQ(driver.Text("txtParameter(43)"), c.verdict);
    EXPECT_EQ(driver.Text("txtParameter(93)"), "10.000");
  }
}

}  // namespace
}  // namespace htr60::automation
