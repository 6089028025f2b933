#include "calibration_driver.h"

namespace htr60::automation {
namespace {

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
                     OpenCalibration);
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
                     OpenCalibration);
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
    OpenCalibration(driver);
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
  OpenCalibration(driver);
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
    OpenCalibration(driver);
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
  OpenCalibration(driver);
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Click("cmdCalibLower");
  EXPECT_EQ(driver.Page(), "Calib Lower/Upper / Calib Upper/Lower");
  EXPECT_EQ(driver.Timer("TimerReadPressure")["enabled"], false);
}

TEST(Calibration, TheGraphicReadsAndWritesNothing) {
  PageDriver driver;
  OpenCalibration(driver);
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

}  // namespace
}  // namespace htr60::automation
