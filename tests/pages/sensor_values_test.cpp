#include "page_driver.h"

namespace htr60::automation {
namespace {

// 9000.001 is the nearest single above the limit that still shows its three decimals.
constexpr const char* kAtLimit = "460CA00080";
constexpr const char* kAboveLimit = "460CA00180";
constexpr const char* kHealthy = "453B800080";  // 3000

const Fills kSensor = {
    {"SensorDiag",
     "04",
     {{"txtParameter(298)", "Low Capacitance Failure"}, {"txtParameter(143)", "Low Capacitance Failure"}}},
    {"SensorValue", "41200000", {{"txtParameter(10)", "10.000"}, {"txtParameter(144)", "10.000"}}},
    {"TRDSensorUnit",
     "046D",
     {{"lbArray(270)", "kPa"},
      {"lbArray(187)", "kPa"},
      {"lbArray(489)", "kPa"},
      {"lbArray(490)", "kPa"},
      {"lbArray(495)", "kPa"},
      {"lbArray(496)", "kPa"}}},
    {"PrimaryValue",
     "3FC0000080",
     {{"txtParameter(60)", "1.500"},
      {"txtParameter(299)", "Good (NC)"},
      {"txtParameter(316)", "1.500"},
      {"txtParameter(210)", "Good (NC)"}}},
    {"TRDPrimaryValueUnit", "03F2", {{"lbArray(279)", "m"}, {"lbArray(190)", "m"}}},
    {"CapHiValue",
     "453B80000C",
     {{"txtParameter(61)", "3000.000"},
      {"txtParameter(300)", "Bad & Device Failure"},
      {"txtParameter(334)", "3000.000"},
      {"txtParameter(333)", "Bad & Device Failure"}}},
    {"CapLoValue", "457A000010", {{"txtParameter(62)", "4000.000"}, {"txtParameter(336)", "4000.000"}}},
    {"SpecificHeight", "3F80000080", {{"txtParameter(317)", "1.000"}, {"txtParameter(139)", "1.000"}}},
    {"TempUnit", "03E9", {{"lbArray(221)", "°C"}, {"lbArray(498)", "°C"}}},
    {"Temp", "41A4000080", {{"txtParameter(17)", "20.500"}, {"txtParameter(301)", "20.500"}}},
};

// The status of the Lo value stands in the temperature's field until the temperature comes: told apart below.
const Fills kChain = {
    {"SensorValue", "41200000", {{"txtParameter(175)", "10.000"}, {"txtParameter(323)", "10.000"}}},
    {"CapHiValue",
     "453B80000C",
     {{"txtParameter(173)", "3000.000"},
      {"txtParameter(310)", "Bad & Device Failure"},
      {"txtParameter(321)", "3000.000"},
      {"txtParameter(322)", "Bad & Device Failure"}}},
    {"CapLoValue",
     "457A000010",
     {{"txtParameter(170)", "4000.000"},
      {"txtParameter(311)", "Bad & Sensor Failure"},
      {"txtParameter(319)", "4000.000"}}},
    {"SensorValueUnit",
     "046D",
     {{"lbArray(284)", "kPa"},
      {"lbArray(485)", "kPa"},
      {"lbArray(486)", "kPa"},
      {"lbArray(487)", "kPa"},
      {"lbArray(488)", "kPa"},
      {"lbArray(503)", "kPa"}}},
    {"SpecificHeight", "3F80000080", {{"txtParameter(337)", "1.000"}}},
    {"TempUnit", "03E9", {{"lbArray(502)", "°C"}}},
    {"Temp", "41A4000080", {}},
    {"PrimaryValue", "3FC0000080", {{"txtParameter(352)", "1.500"}, {"txtParameter(335)", "Good (NC)"}}},
    {"TRDOutUnit", "044C", {{"lbArray(499)", "g/cm³"}}},
    {"MeasuredType", "05", {{"lbArray(469)", "Brix"}}},
};

Fills Readings(const char* high, const char* low) {
  Fills fills = kSensor;
  fills[5].value = high;
  fills[6].value = low;
  return fills;
}

TEST(SensorValues, AnswersFillBothPagesInOrder) {
  ExpectFillsInOrder(4500, kSensor);
  ExpectFillsInOrder(5300, kChain);
}

TEST(SensorValues, TheWarningNeedsAReadingAboveTheLimit) {
  struct Case {
    const char* high;
    const char* low;
    bool warns;
  };
  PageDriver driver;
  const char* const labels[] = {"lbStatusSensorValue", "lbArray(26)"};
  for (const char* label : labels) {
    EXPECT_FALSE(driver.Visible(label)) << label;
    EXPECT_EQ(driver.Text(label), "Sensor electronic board failure or disconnected");
  }
  for (const Case& c : {Case{kAboveLimit, kHealthy, true}, Case{kAtLimit, kAtLimit, false},
                        Case{kHealthy, kAboveLimit, true}, Case{kHealthy, kHealthy, false}}) {
    driver.AnswerFills(4500, Readings(c.high, c.low));
    for (const char* label : labels) EXPECT_EQ(driver.Visible(label), c.warns) << c.high << " " << c.low << label;
  }
  EXPECT_EQ(driver.Text("txtParameter(61)"), "3000.000");
  // It is judged after the Lo value: without one it stays as it was.
  driver.AnswerFills(4500, Readings(kAboveLimit, kHealthy));
  driver.AnswerFills(4500, Readings(kHealthy, kHealthy), "CapLoValue");
  EXPECT_TRUE(driver.Visible("lbArray(26)"));
}

TEST(SensorValues, TheWarningHoldsInTheOtherLocale) {
  PageDriver driver(Json{{"decimalSeparator", ","}});
  driver.AnswerFills(4500, Readings(kHealthy, kAboveLimit));
  EXPECT_EQ(driver.Text("txtParameter(62)"), "9000,001");
  EXPECT_TRUE(driver.Visible("lbStatusSensorValue"));
  driver.AnswerFills(4500, Readings(kAtLimit, kAtLimit));
  EXPECT_FALSE(driver.Visible("lbStatusSensorValue"));
}

TEST(SensorValues, CodesWithoutATextLeaveSomeAndEmptyOthers) {
  PageDriver driver;
  driver.AnswerFills(4500, kSensor);
  driver.AnswerFills(5300, kChain);
  Fills sensor = kSensor;
  Fills chain = kChain;
  sensor[0].value = "7E";
  for (const std::size_t unit : {2U, 4U, 8U}) sensor[unit].value = "0000";
  for (const std::size_t unit : {3U, 5U, 8U}) chain[unit].value = "0000";
  chain[9].value = "7E";
  driver.AnswerFills(4500, sensor);
  driver.AnswerFills(5300, chain);
  for (const char* emptied :
       {"lbArray(270)", "lbArray(496)", "lbArray(279)", "lbArray(190)", "lbArray(284)", "lbArray(503)"}) {
    EXPECT_EQ(driver.Text(emptied), "") << emptied;
  }
  const std::pair<const char*, const char*> kept[] = {{"txtParameter(143)", "Low Capacitance Failure"},
                                                      {"lbArray(221)", "°C"},
                                                      {"lbArray(498)", "°C"},
                                                      {"lbArray(502)", "°C"},
                                                      {"lbArray(499)", "g/cm³"},
                                                      {"lbArray(469)", "Brix"}};
  for (const auto& [control, text] : kept) EXPECT_EQ(driver.Text(control), text) << control;
}

TEST(SensorValues, TheTemperatureReplacesTheStatusOfTheLoValue) {
  PageDriver driver;
  driver.AnswerFills(5300, kChain, "Temp");
  EXPECT_EQ(driver.Text("txtParameter(320)"), "Bad & Sensor Failure");
  driver.AnswerFills(5300, kChain);
  EXPECT_EQ(driver.Text("txtParameter(320)"), "20.500");
}

TEST(SensorValues, PollingSendsItsOwnOrTheStoredDocument) {
  struct Case {
    const char* node;
    const char* strip;
    int tab;
    int interval;
    const char* read;
    bool fresh;
  };
  for (const Case& c : {Case{"Level", "SSTabTRDLevel", 3, 5000, "45", true},
                        Case{"Pressure/Flow", "SSTabTRDSettings", 3, 5000, "45", true},
                        Case{"Density/Concentration", "SSTabDensity", 6, 6000, "53", false}}) {
    SCOPED_TRACE(c.node);
    PageDriver driver;
    driver.Activate(c.node);
    driver.Tab(c.strip, c.tab);
    driver.Requests();
    driver.SetMember("RequestXml", "stored");
    driver.Advance(c.interval);
    const Json sent = driver.Requests();
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_EQ(sent[0]["code"], c.read);
    EXPECT_EQ(sent[0]["document"] != "stored", c.fresh);
    EXPECT_EQ(driver.Member("RequestCode"), c.read);
    EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
  }
}

TEST(SensorValues, ABoardFailureOfTheTransmitterIsToldAndPasses) {
  PageDriver driver(Driver::Simulated({{"device", {{"primaryValueType", "Level"}}}}));
  driver.Activate("Level");
  driver.Tab("SSTabTRDLevel", 3);
  driver.Advance(6000);
  EXPECT_FALSE(driver.Visible("lbArray(26)"));
  EXPECT_EQ(driver.Text("txtParameter(143)"), "None");
  const Json fault = driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "boardFailure"}}}});
  driver.Advance(6000);
  EXPECT_TRUE(driver.Visible("lbArray(26)"));
  EXPECT_EQ(driver.Text("txtParameter(334)"), "9999.000");
  EXPECT_EQ(driver.Text("txtParameter(333)"), "Bad & Device Failure");
  EXPECT_EQ(driver.Text("txtParameter(143)"), "Sensor Failure");
  driver.Ok({{"do", "simulator"}, {"clear", fault.at("id")}});
  driver.Advance(6000);
  EXPECT_FALSE(driver.Visible("lbArray(26)"));
}

}  // namespace
}  // namespace htr60::automation
