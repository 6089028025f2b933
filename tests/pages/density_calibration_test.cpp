#include <cmath>
#include <string>
#include <tuple>
#include <utility>

#include "screen_driver.h"

namespace htr60::automation {
namespace {

class DensityCalib : public ScreenDriver {
 public:
  /// The page of a device that has told of its type.
  DensityCalib() {
    SetList("cmbPVType", "Density");
    Activate("Calibration");
    Requests();
  }
};

void OpenPage(PageDriver& driver) {
  driver.SetList("cmbPVType", "Density");
  driver.Activate("Calibration");
  driver.Requests();
}

const Fills kPoints = {
    {"LowerCalibPoint", "3F000000", {{"txtParameter(248)", "0.500"}}},
    {"UpperCalibPoint", "3FC00000", {{"txtParameter(268)", "1.500"}}},
    {"CalibUnit",
     "044C",
     {{"lbArray(408)", "g/cm³"}, {"lbArray(411)", "g/cm³"}, {"lbArray(421)", "g/cm³"}, {"lbArray(428)", "g/cm³"}}},
    {"PressEUUnit", "046D", {{"lbArray(412)", "kPa"}, {"lbArray(409)", "kPa"}, {"lbArray(431)", "kPa"}}},
    {"TempUnit",
     "03E9",
     {{"lbArray(413)", "°C"}, {"lbArray(410)", "°C"}, {"lbArray(415)", "°C"}, {"lbArray(434)", "°C"}}},
    {"Height", "3E800000", {{"txtParameter(261)", "0.250"}, {"txtParameter(44)", "0.250"}}},
};

const Fills kLive = {
    {"PressCalPointLo", "40200000", {{"txtParameter(262)", "2.500"}, {"txtParameter(277)", "2.500"}}},
    {"PressCalPointHi", "41000000", {{"txtParameter(263)", "8.000"}, {"txtParameter(284)", "8.000"}}},
    {"PrimayValue",
     "3FA0000080",
     {{"txtParameter(257)", "1.250"},
      {"txtParameter(270)", "1.250"},
      {"txtParameter(282)", "1.250"},
      {"txtParameter(259)", "Good (NC)"},
      {"txtParameter(269)", "Good (NC)"},
      {"txtParameter(278)", "Good (NC)"},
      {"txtParameter(283)", "Good (NC)"}}},
    {"Pressure",
     "40A0000040",
     {{"txtParameter(255)", "5.000"},
      {"txtParameter(267)", "5.000"},
      {"txtParameter(276)", "5.000"},
      {"txtParameter(285)", "5.000"},
      {"txtParameter(260)", "Uncertain & Non-specific"},
      {"txtParameter(266)", "Uncertain & Non-specific"},
      {"txtParameter(275)", "Uncertain & Non-specific"},
      {"txtParameter(286)", "Uncertain & Non-specific"}}},
    {"Temperature",
     "41A0000008",
     {{"txtParameter(256)", "20.000"},
      {"txtParameter(265)", "20.000"},
      {"txtParameter(274)", "20.000"},
      {"txtParameter(287)", "20.000"},
      {"txtParameter(288)", "Bad & Not Connect"},
      {"txtParameter(273)", "Bad & Not Connect"}}},
    {"OperResult",
     "1B",
     {{"txtParameter(258)", "Excess correction"},
      {"txtParameter(271)", "Excess correction"},
      {"txtParameter(280)", "Excess correction"},
      {"txtParameter(281)", "Excess correction"}}},
};

TEST(DensityCalibration, TheNodeOpensItForADensityDeviceAndFillsItsListsOnce) {
  ScreenDriver driver;
  driver.Activate("Calibration");
  EXPECT_FALSE(driver.Visible("frmDensityCalib"));
  driver.SetList("cmbPVType", "Density");
  driver.Requests();
  driver.Activate("Calibration");
  EXPECT_EQ(driver.Page(), "Density Calib / Measured Type");
  EXPECT_TRUE(driver.Visible("frmDensityCalib"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 66"});
  EXPECT_EQ(driver.Get("cmbCalibMeasuredType")["items"].size(), 14U);
  EXPECT_EQ(driver.Items("cmbDensityTemp"), R"j(["K","°C","°F"])j");
  EXPECT_EQ(driver.Title(), "Density Calibration");
  EXPECT_EQ(driver.Timer("TimerMonitCalib")["enabled"], false);
}

TEST(DensityCalibration, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(6600,
                     {{"MeasuredType", "0D", {{"cmbCalibMeasuredType", "t/m³"}}},
                      {"TRDPVType", "0081", {{"cmbDensityPrimaryValueType", "Density"}}}},
                     OpenPage);
  ExpectFillsInOrder(6400, kPoints, OpenPage);
  ExpectFillsInOrder(6500, kLive, OpenPage);
}

TEST(DensityCalibration, UnknownCodesEmptyTheCaptionsAndTheVerdict) {
  DensityCalib driver;
  EXPECT_EQ(driver.Text("lbArray(431)"), "Cal Point");
  EXPECT_EQ(driver.Text("lbArray(434)"), "Hi Sensor Limit");
  Fills points = kPoints;
  for (std::size_t i = 2; i < 5; ++i) points[i].value = "0000";
  driver.AnswerFills(6400, points);
  Fills live = kLive;
  live.back().value = "11";
  driver.AnswerFills(6500, kLive);
  driver.AnswerFills(6500, live);
  for (const char* empty : {"lbArray(408)", "lbArray(409)", "lbArray(410)", "lbArray(431)", "lbArray(434)",
                            "txtParameter(258)", "txtParameter(271)"}) {
    EXPECT_EQ(driver.Text(empty), "") << empty;
  }
}

TEST(DensityCalibration, AnotherTypeIsToldOnEveryAnswer) {
  DensityCalib driver;
  driver.AnswerTags(6600, {{"MeasuredType", "05"}, {"TRDPVType", "0002"}});
  driver.AnswerTags(6600, {{"MeasuredType", "7E"}, {"TRDPVType", "7E7E"}});  // the lists stay as they were
  EXPECT_EQ(driver.Text("cmbCalibMeasuredType"), "Brix");
  const Json boxes = driver.Shown();
  ASSERT_EQ(boxes.size(), 2U);
  for (const Json& box : boxes) {
    EXPECT_EQ(box["text"], "Please, note that HTR60 is not configured to Density measurement.");
    EXPECT_EQ(box["caption"], "Primary Value Type");
    EXPECT_EQ(box["icon"], "information");
    EXPECT_EQ(box["buttons"], Json{"OK"});
  }
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  driver.AnswerTags(6600, {{"MeasuredType", "05"}, {"TRDPVType", "0081"}});
  EXPECT_TRUE(driver.Shown().empty());
}

TEST(DensityCalibration, TabsNameTheirPageAndRead) {
  struct Case {
    int tab;
    const char* page;
    bool write;
    const char* read;
    bool live;
  };
  const Case cases[] = {
      {1, "Density Calib / Lower", true, "read 64", true},          {2, "Density Calib / Upper", true, "read 64", true},
      {3, "Density Calib / Calib Temp", false, "read 18", false},   {4, "Density Calib / x", false, "read 0", false},
      {0, "Density Calib / Measured Type", true, "read 66", false},
  };
  DensityCalib driver;
  for (const bool fails : {false, true}) {
    driver.Ok({{"do", "fail"}, {"reads", fails}, {"writes", false}});
    for (const Case& c : cases) {
      SCOPED_TRACE(c.tab);
      driver.SetMember("CurrentPage", "y");
      driver.SetMember("SubPage", "x");
      driver.Tab("SSTabDensityCalib", c.tab);
      EXPECT_EQ(driver.Page(), c.page);
      EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write);
      EXPECT_EQ(driver.Timer("TimerMonitCalib")["enabled"], c.live);  // also where the read fails
      EXPECT_EQ(driver.Traffic(), fails ? Strings{} : Strings{c.read});
    }
  }
}

TEST(DensityCalibration, ThePointTabsReadOnUntilTheyAreLeft) {
  DensityCalib driver;
  driver.Tab("SSTabDensityCalib", 1);
  driver.Advance(2000);
  driver.Tab("SSTabDensityCalib", 2);
  driver.Requests();
  driver.Advance(2999);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Advance(3001);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 65", "read 65"}));
  driver.Tab("SSTabDensityCalib", 4);
  driver.Requests();
  driver.Advance(20'000);
  EXPECT_EQ(driver.Traffic(), Strings{});
}

TEST(DensityCalibration, EachTabWritesItsOwnAndReadsItBack) {
  struct Case {
    int tab;
    const char* write;
    const char* reread;
  };
  const Case cases[] = {{1, "write 52: 3F400000, 3E800000", "read 64"},
                        {2, "write 53: 3FC00000, 3F000000", "read 64"},
                        {0, "write 54: 06", "read 66"}};
  DensityCalib driver;
  driver.Choose("cmbCalibMeasuredType", "Plato");
  driver.Type("txtParameter(248)", "0.75");
  driver.Type("txtParameter(261)", "0.25");
  driver.Type("txtParameter(268)", "1.5");
  driver.Type("txtParameter(44)", "0.5");
  for (const Case& c : cases) {
    driver.Tab("SSTabDensityCalib", c.tab);
    driver.Requests();
    driver.Write();
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), (Strings{c.write, c.reread}));
  }
  // The tab with the temperature unit disables the button; a script's press writes all the same.
  driver.Tab("SSTabDensityCalib", 3);
  driver.Choose("cmbDensityTemp", "°F");
  driver.Requests();
  driver.Refused({{"do", "click"}, {"control", "cmdWriteParameter"}});
  driver.Force("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 13: 03EA", "read 18"}));
  driver.Tab("SSTabDensityCalib", 1);
  driver.Type("txtParameter(261)", "99999999999");
  driver.Requests();
  driver.Write();
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_EQ(driver.Message(), "Nothing sent: Height: Too many digits.");
}

TEST(DensityCalibration, TheTemperaturesPageKeepsItsNameOnTheWayBack) {
  DensityCalib driver;
  driver.Tab("SSTabDensityCalib", 3);
  driver.Requests();
  driver.Click("cmdDensityTemp");
  EXPECT_EQ(driver.Page(), "Density Calib Temp / Calib Temp");
  EXPECT_TRUE(driver.Visible("frmCalibTemp"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  driver.Advance(5000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 19", "read 36"}));
  driver.Type("txtParameter(113)", "20.5");
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Member("CurrentPage"), "Density Calib Temp");
  EXPECT_TRUE(driver.Visible("frmDensityCalib"));
  EXPECT_FALSE(driver.Enabled("cmdBack"));
  driver.Write();
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 16: 41A40000", "read 19"}));
  driver.Tab("SSTabDensityCalib", 0);
  EXPECT_EQ(driver.Page(), "Density Calib / Measured Type");
}

TEST(DensityCalibration, TheTemperaturesTimerWaitsForItsRead) {
  DensityCalib driver;
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Click("cmdDensityTemp");
  EXPECT_TRUE(driver.Visible("frmCalibTemp"));
  EXPECT_EQ(driver.Timer("TimerReadTemp")["enabled"], false);
}

// ---- self calibration

void SelfCalibrate(PageDriver& driver, int index) {
  driver.Ok({{"do", "operation"}, {"name", "SelfCalibration"}, {"index", index}});
}

TEST(SelfCalibration, TellsWhatToDoAndReads) {
  struct Case {
    int index;
    const char* caption;
    const char* text;
    const char* page;
    const char* read;
  };
  const Case cases[] = {
      {0, "", "", "Density Self Calib / Measured Type", "read 66"},
      {1, "Self Calibration - Air",
       "Please, place the HTR60 in the air at vertical work position and wait approximately 5 minutes for Reading "
       "stabilization. Then, select kg/m³ for measured type. Click at Write Button. After this procedure,return the "
       "measued type to the previous selection.",
       "Density Self Calib / Lower", "read 64"},
      {2, "Self Calibration - Water",
       "After air calibration,place the HTR60 in work position (vertical) and in water,immersing both diaphragms,wait "
       "approximately 5 minutes for reading stabilization and change the measured type for Brix. Click at Write "
       "Button. After this procedure,return the measued type to the previous selection.",
       "Density Self Calib / Upper", "read 64"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.index);
    DensityCalib driver;
    driver.Tab("SSTabDensityCalib", 1);
    driver.SetMember("SubPage", "before");
    driver.Requests();
    const Json during = Json::array({{{"do", "members"}}, {{"do", "advance"}, {"ms", 4000}}, {{"do", "requests"}}});
    driver.Ok({{"do", "boxes"}, {"answers", Json::array({{{"answer", "OK"}, {"during", during}}})}});
    SelfCalibrate(driver, c.index);
    EXPECT_EQ(driver.Page(), c.page);
    EXPECT_EQ(driver.Traffic(), Strings{c.read});
    const bool message = c.index > 0;
    const Json boxes = driver.Shown();
    ASSERT_EQ(boxes.size(), message ? 1U : 0U);
    EXPECT_EQ(driver.Timer("TimerMonitCalib")["enabled"], message);
    // The page has no write of its own.
    driver.Force("cmdWriteParameter");
    EXPECT_EQ(driver.Traffic(), Strings{});
    if (!message) continue;
    EXPECT_EQ(boxes[0]["caption"], c.caption);
    EXPECT_EQ(boxes[0]["text"], c.text);
    EXPECT_EQ(boxes[0]["icon"], "information");
    EXPECT_EQ(boxes[0]["buttons"], Json{"OK"});
    // While the message stands, nothing is read and the sub-page is the one before.
    const Json& open = boxes[0]["during"];
    EXPECT_EQ(open[0]["members"]["CurrentPage"], "Density Self Calib");
    EXPECT_EQ(open[0]["members"]["SubPage"], "before");
    EXPECT_EQ(open[0]["members"]["RequestCode"], "0");
    EXPECT_TRUE(open[2]["requests"].empty());
    driver.Advance(3000);
    EXPECT_EQ(driver.Traffic(), Strings{"read 65"});
  }
}

// ---- what the operator sees

TEST(DensityCalibrationScreen, MarksTheVerdictAndCountsThePrimaryValue) {
  DensityCalib driver;
  for (const auto& [tab, result, status] : {std::tuple{1, "txtParameter(258)", "txtParameter(259)"},
                                            std::tuple{2, "txtParameter(271)", "txtParameter(269)"}}) {
    driver.Tab("SSTabDensityCalib", tab);
    driver.AnswerFills(6400, kPoints);
    driver.AnswerFills(6500, kLive);
    EXPECT_EQ(driver.Row(result)["mark"], "bad");
    EXPECT_EQ(driver.Row(result)["name"], "Calibration, Calibration Result");
    EXPECT_EQ(driver.Row(status)["name"], "Primary Value (Out), Status");
    EXPECT_EQ(driver.Health(), "Good");
    Fills live = kLive;
    live[2].value = "3FA000000C";
    live.back().value = "10";
    driver.AnswerFills(6500, live);
    EXPECT_EQ(driver.Row(result)["text"], "Good");
    EXPECT_EQ(driver.Row(result)["mark"], "");
    EXPECT_EQ(driver.Health(), "Failure: Primary Value");
  }
  EXPECT_EQ(driver.Row("txtParameter(268)")["unit"], "g/cm³");
  EXPECT_EQ(driver.Row("txtParameter(267)")["unit"], "kPa");
  EXPECT_EQ(driver.Row("txtParameter(265)")["unit"], "°C");
  EXPECT_EQ(driver.Row("txtParameter(44)")["unit"], "m");
  EXPECT_TRUE(driver.DataLine().ends_with(", every 3 s"));
}

// ---- with the simulated transmitter

class DensityBench : public ScreenDriver {
 public:
  explicit DensityBench(Json device = Json::object()) : ScreenDriver(SettingsOf(std::move(device))) {
    Advance(2000);
    Activate("Calibration");
    Advance(500);
  }
  static Json SettingsOf(Json device) {
    device["primaryValueType"] = "Density";
    return Simulated({{"device", device}, {"process", {{"vessel", {{"density", 1000}, {"level", 1}}}}}});
  }
  void Fluid(double density, double level = 1) {
    const Json vessel{{"density", density}, {"level", level}};
    Ok({{"do", "simulator"}, {"set", {{"process", {{"vessel", vessel}}}}}});
    Advance(5000);
  }
  /// Writes a point on its tab, and gives the verdict that the tab shows.
  std::string Calibrate(int tab, const char* point) {
    const bool upper = tab == 2;
    Tab("SSTabDensityCalib", tab);
    Advance(4000);
    Type(upper ? "txtParameter(268)" : "txtParameter(248)", point);
    Write();
    Advance(6000);
    return Text(upper ? "txtParameter(271)" : "txtParameter(258)");
  }
  std::string Measure(const char* type) {
    Activate("Calibration");
    Advance(1000);
    Choose("cmbCalibMeasuredType", type);
    Write();
    Advance(3000);
    Tab("SSTabDensityCalib", 1);
    Advance(4000);
    return Text("txtParameter(258)");
  }
  double Value() { return std::stod(Text("txtParameter(257)")); }
};

TEST(DensityCalibrationDevice, TwoPointsMakeItMeasureTrue) {
  DensityBench bench(Json{{"gainErrorHi", 0.02}, {"offsetErrorHi", 200}});
  bench.Fluid(850);
  EXPECT_EQ(bench.Calibrate(1, "0.85"), "Good");
  EXPECT_EQ(bench.State("txtParameter(248)"), "confirmed");
  EXPECT_NEAR(std::stod(bench.Text("txtParameter(262)")), 850 * 9.80665 * 0.5e-3 + 0.02 * 850 * 9.80665e-3 + 0.2,
              0.001);
  bench.Fluid(1200);
  EXPECT_EQ(bench.Calibrate(2, "1.2"), "Good");
  bench.Fluid(1040);
  bench.Tab("SSTabDensityCalib", 1);
  bench.Advance(4000);
  EXPECT_NEAR(bench.Value(), 1.04, 0.0006);
  EXPECT_EQ(bench.Text("txtParameter(259)"), "Good (NC)");
  EXPECT_EQ(bench.Text("txtParameter(270)"), bench.Text("txtParameter(257)"));
  EXPECT_EQ(bench.Text("lbArray(408)"), "g/cm³");
}

TEST(DensityCalibrationDevice, RefusesByItsVerdictAndKeepsItsPoints) {
  struct Case {
    int tab;
    double density;
    const char* point;
    const char* verdict;
  };
  const Case cases[] = {
      {1, 1000, "0.7", "Excess correction"},
      {1, 1000, "2.5", "Applied process out of range"},
      {2, 1000, "0.01", "Invalid configuration for request"},  // too near to the lower point, which is none yet
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.point);
    DensityBench bench;
    bench.Fluid(c.density);
    EXPECT_EQ(bench.Calibrate(c.tab, c.point), c.verdict);
    const bool upper = c.tab == 2;
    EXPECT_EQ(bench.Text(upper ? "txtParameter(268)" : "txtParameter(248)"), upper ? "1.800" : "0.500");
    EXPECT_EQ(bench.State(upper ? "txtParameter(268)" : "txtParameter(248)"), "differs");
  }
  DensityBench bench;
  bench.Ok({{"do", "simulator"}, {"set", {{"device", {{"writeLocked", true}}}}}});
  EXPECT_EQ(bench.Calibrate(1, "1"), "Invalid configuration for request");
}

TEST(DensityCalibrationDevice, TheHeightIsOneValueForBothTabs) {
  DensityBench bench;
  bench.Tab("SSTabDensityCalib", 1);
  bench.Advance(1000);
  bench.Type("txtParameter(261)", "0.25");
  bench.Calibrate(1, "0.5");
  EXPECT_EQ(bench.Text("txtParameter(44)"), "0.250");
  EXPECT_EQ(bench.Text("txtParameter(261)"), "0.250");
}

TEST(DensityCalibrationDevice, CalibratesItselfInAirAndWater) {
  // 2 % and 20 Pa too much, armed: in air by kg/m³, then in water by Brix.
  DensityBench bench(Json{{"gainErrorHi", 0.02}, {"offsetErrorHi", 20}, {"selfCalibration", true}});
  bench.Fluid(1000, 0);
  SelfCalibrate(bench, 1);
  EXPECT_EQ(bench.Measure("Density (kg/m³)"), "Good");
  EXPECT_EQ(bench.Text("txtParameter(248)"), "1.204");  // dry air at 20 °C
  EXPECT_NEAR(bench.Value(), 1.204, 0.001);
  bench.Fluid(998.2041, 1);
  SelfCalibrate(bench, 2);
  EXPECT_EQ(bench.Measure("Brix"), "Good");
  EXPECT_NEAR(bench.Value(), 0.0, 0.01);
  EXPECT_EQ(bench.Shown().size(), 2U);

  // Water first is no way.
  DensityBench water(Json{{"selfCalibration", true}});
  water.Fluid(998.2041, 1);
  EXPECT_EQ(water.Measure("Brix"), "Invalid configuration for request");
  EXPECT_EQ(water.Measure("Density (kg/m³)"), "Applied process out of range");
  // Without the setting a change of the measured type never calibrates.
  DensityBench plain;
  plain.Fluid(1000, 0);
  plain.Measure("Density (kg/m³)");
  EXPECT_NEAR(plain.Value(), 0.0, 0.001);
}

}  // namespace
}  // namespace htr60::automation
