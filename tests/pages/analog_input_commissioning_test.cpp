#include <cmath>

#include "page_driver.h"

// The Analog Input pages against the simulated transmitter: what is written there is what the block then does.
namespace htr60::automation {
namespace {

/// A wait that is longer than a write, its re-read and the answer.
constexpr int kSettled = 5000;

class AnalogInputCommissioning : public testing::Test {
 protected:
  PageDriver driver{Driver::Simulated()};

  void Open(int block, int tab) {
    driver.Activate("Analog Input " + std::to_string(block));
    driver.Advance(kSettled);
    Show(tab);
  }
  void Show(int tab) {
    driver.Tab("SSTabAI", tab == 0 ? 1 : 0);
    driver.Tab("SSTabAI", tab);
    driver.Advance(kSettled);
  }
  void Write(std::string_view button = "cmdWriteParameter") {
    driver.Click(button);
    driver.Advance(kSettled);
  }
  /// The difference of the two pressures in kPa; 10 at the start.
  void Press(double kilopascal) {
    driver.Ok({{"do", "simulator"}, {"set", {{"process", {{"pressureHi", 10000 + 1000 * kilopascal}}}}}});
    driver.Advance(1000);
  }
  std::string Output() {
    Show(5);
    return driver.Text("txtParameter(125)") + ", " + driver.Text("cmbStatusAIModeBlock");
  }
  std::string Alarms() {
    Show(5);
    const std::string now = driver.Items("ListAICurrentStateAlarm");
    Show(2);
    EXPECT_EQ(driver.Items("ListAIAlarm"), now);
    return now;
  }
  void Types(const std::vector<std::pair<const char*, const char*>>& texts) {
    for (const auto& [field, text] : texts) driver.Type(field, text);
  }
  std::string Of(const char* control, const char* member) {
    const Json screen = driver.Ok({{"do", "screen"}});
    for (const Json& row : screen.at("rows")) {
      if (row.at("control") == control) return row.at(member);
    }
    return "not to be seen";
  }
  Json Figure() { return driver.Ok({{"do", "screen"}})["figure"]; }
};

TEST_F(AnalogInputCommissioning, LimitsRaiseAlarmsThatTheHysteresisHolds) {
  Open(1, 2);
  EXPECT_EQ(driver.Text("txtParameter(120)"), "41.140");  // 110 % of the output's span
  EXPECT_EQ(driver.Text("txtParameter(304)"), "kPa");
  Types({{"txtParameter(120)", "20"},
         {"txtParameter(121)", "15"},
         {"txtParameter(123)", "2"},
         {"txtParameter(122)", "-3"},
         {"txtParameter(124)", "1"}});
  Write();
  EXPECT_EQ(driver.Text("txtParameter(120)"), "20.000");
  EXPECT_EQ(Of("txtParameter(122)", "state"), "confirmed");
  struct Step {
    double kilopascal;
    const char* alarms;
    const char* output;
  };
  const Step steps[] = {
      {14.75, R"j(["No Alarm"])j", "14.750, Good (NC)"},
      {15.25, R"j(["Upper Limit Warning "])j", "15.250, Good (NC) & Active Advisory Alarm & High Limited"},
      {20.5, R"j(["Upper Limit Alarm ","Upper Limit Warning "])j",
       "20.500, Good (NC) & Active Critical Alarm & High Limited"},
      {14.25, R"j(["Upper Limit Warning "])j", "14.250, Good (NC) & Active Advisory Alarm & High Limited"},
      {13.75, R"j(["No Alarm"])j", "13.750, Good (NC)"},
      {-3.5, R"j(["Lower Limit Alarm ","Lower Limit Warning "])j",
       "-3.500, Good (NC) & Active Critical Alarm & Low Limited"},
      {3.5, R"j(["No Alarm"])j", "3.500, Good (NC)"},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.kilopascal);
    Press(step.kilopascal);
    EXPECT_EQ(Alarms(), step.alarms);
    const bool quiet = std::string_view(step.alarms).find("No Alarm") != std::string_view::npos;
    EXPECT_EQ(Of("ListAIAlarm", "mark"), quiet ? "" : "bad");
    EXPECT_EQ(Output(), step.output);
  }
}

TEST_F(AnalogInputCommissioning, LimitsOutOfOrderAreRefused) {
  Open(1, 2);
  driver.Type("txtParameter(121)", "50");
  Write();
  EXPECT_EQ(driver.Text("txtParameter(121)"), "39.270");
  EXPECT_EQ(Of("txtParameter(121)", "words"), "device: 39.270, sent: 50");
}

TEST_F(AnalogInputCommissioning, TheFailSafeStandsInForABadValue) {
  struct Case {
    const char* type;
    const char* output;
  };
  const Case cases[] = {
      {"FSafe_Value", "-3.000, Uncertain & Substitute"},
      {"Last Usable Value", "10.000, Uncertain & Last Usable Value"},
      {"Use Wrong Value", "10.000, Bad & Device Failure"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.type);
    Open(1, 3);
    driver.Choose("cmbAIFailSafeType", c.type);
    driver.Type("txtParameter(171)", "-3");
    Write();
    EXPECT_EQ(driver.Text("cmbAIFailSafeType"), c.type);
    EXPECT_EQ(driver.Text("txtParameter(305)"), "kPa");
    EXPECT_EQ(Output(), "10.000, Good (NC)");
    driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "boardFailure"}}}});
    driver.Advance(1000);
    EXPECT_EQ(Output(), c.output);
    driver.Ok({{"do", "simulator"}, {"clear", "all"}});
    driver.Advance(1000);
  }
}

TEST_F(AnalogInputCommissioning, TheSimulationReplacesValueAndStatus) {
  Open(3, 4);
  EXPECT_EQ(driver.Text("cmbSimulateEnable"), "Disable");
  EXPECT_EQ(Of("cmbSimulateEnable", "mark"), "");
  driver.Choose("cmbSimulateEnable", "Active");
  driver.Type("txtParameter(172)", "30");
  driver.Choose("cmbAIStatusSim", "Uncertain & Last Usable Value");
  Write();
  EXPECT_EQ(driver.Text("txtParameter(172)"), "30.000");
  EXPECT_EQ(Of("cmbSimulateEnable", "mark"), "uncertain");
  EXPECT_EQ(Output(), "30.000, Uncertain & Last Usable Value");
  Show(4);
  driver.Choose("cmbSimulateEnable", "Disable");
  Write();
  EXPECT_EQ(Output(), "10.000, Good (NC)");
  Open(1, 4);
  EXPECT_EQ(driver.Text("cmbSimulateEnable"), "Disable");
}

TEST_F(AnalogInputCommissioning, TheModeDecidesWhoSetsTheOutput) {
  Open(1, 5);
  EXPECT_EQ(driver.Text("txtParameter(306)"), "Auto");
  driver.Type("txtParameter(125)", "7");
  Write();
  EXPECT_EQ(driver.Text("txtParameter(125)"), "10.000");  // in Auto it is the block's
  driver.Choose("cmbAITarget(1)", "Man");
  driver.Type("txtParameter(125)", "7");
  Write();
  EXPECT_EQ(driver.Text("txtParameter(306)"), "Man");
  EXPECT_EQ(Output(), "7.000, Uncertain & Simulate Value");
  Show(0);
  EXPECT_EQ(driver.Text("cmbAITarget(0)"), "Man");
  driver.Choose("cmbAITarget(0)", "Out of Service");
  Write();
  EXPECT_EQ(driver.Text("txtParameter(303)"), "Out of Service");
  EXPECT_EQ(Output().substr(0, 11), "7.000, Bad ");
  Show(0);
  driver.Choose("cmbAITarget(0)", "Auto");
  driver.Type("txtParameter(119)", "10");
  Write();
  // The filter starts at 7 when the block takes over, 5 s before the step, and has 10 s after it.
  Press(20);
  driver.Advance(9000);
  const double before = 10 - 3 * std::exp(-0.5);
  EXPECT_NEAR(std::stod(Output()), 20 - (20 - before) * std::exp(-1), 0.1);
}

TEST_F(AnalogInputCommissioning, ASecondBlockScalesItsSensor) {
  Open(2, 1);
  EXPECT_EQ(driver.Text("txtParameter(64)"), "37.400");
  EXPECT_EQ(driver.Text("txtParameter(302)"), "kPa");
  EXPECT_EQ(Output(), "20.000, Good (NC)");
  Show(1);
  driver.Type("txtParameter(64)", "25");
  Write("cmbWritePVScale");
  EXPECT_EQ(driver.Text("txtParameter(64)"), "25.000");
  EXPECT_EQ(Of("txtParameter(64)", "state"), "confirmed");
  EXPECT_EQ(Output(), "29.920, Good (NC)");  // 20 of 25 in 37.4
  Show(1);
  driver.Choose("cmbTRDScaleAI", "bar");
  Write("cmbWritePVScaleUnit");
  EXPECT_EQ(driver.Text("txtParameter(64)"), "0.250");
  EXPECT_EQ(driver.Text("cmbTRDScaleAI"), "bar");
  driver.Type("txtParameter(129)", "100");
  driver.Choose("cmbAIUnitOutScale", "%");
  Write("cmdWriteScaleOut");
  EXPECT_EQ(driver.Text("lbArray(201)"), "%");
  EXPECT_EQ(Output().substr(0, 6), "80.000");
  Show(0);
  driver.Choose("cmbAIConfig", "Config 2");
  Write("cmdWriteAIConfig");
  EXPECT_EQ(driver.Text("cmbAIConfig"), "Config 2");
  EXPECT_EQ(Output().substr(0, 6), "10.000");  // the other sensor
  Open(3, 1);
  EXPECT_EQ(driver.Text("txtParameter(64)"), "110");
  EXPECT_EQ(driver.Text("cmbTRDScaleAI"), "°C");
}

// ---- the graphic

TEST_F(AnalogInputCommissioning, TheGraphicDrawsWhatThisBlockHasAnswered) {
  const char* const scales = "No scales read yet: open Scales first.";
  const char* const limits = "No limits read yet: open Alarm/Warning first.";
  const char* const output = "No output read yet: open Mode Block first.";
  Open(1, 6);
  driver.Click("cmdAIGraphic");
  const Json screen = driver.Ok({{"do", "screen"}});
  EXPECT_EQ(screen["title"], "Analog Input Graphic");
  EXPECT_EQ(screen["dataLine"], "");
  EXPECT_EQ(screen["figure"]["sentence"], std::string(scales) + " " + limits + " " + output);

  Open(1, 1);
  for (const int tab : {2, 5, 6}) Show(tab);
  driver.Click("cmdAIGraphic");
  EXPECT_EQ(Figure()["sentence"],
            "PV 0.000 to 37.400 kPa gives output 0.000 to 37.400 kPa. Limits: Upper Limit Alarm 41.140, Upper Limit "
            "Warning 39.270, Lower Limit Warning -1.870, Lower Limit Alarm -3.740. Output 10.000, Good.");
  EXPECT_EQ(Figure()["above"], Json::array({"Current Alarm: No Alarm"}));
  EXPECT_EQ(Figure()["remarks"], Json::array());

  // The next block shares the fields and has answered none of this.
  Open(2, 6);
  driver.Click("cmdAIGraphic");
  EXPECT_EQ(Figure()["above"], Json::array({limits, output}));
  EXPECT_EQ(Figure()["sentence"].get<std::string>().substr(0, 9), "No scales");
}

TEST_F(AnalogInputCommissioning, TheGraphicJudgesWhatIsTyped) {
  Open(1, 1);
  driver.Type("txtParameter(129)", "0");
  Show(2);
  driver.Type("txtParameter(121)", "50");
  driver.Type("txtParameter(124)", "1,5");
  driver.Tab("SSTabAI", 6);
  driver.Click("cmdAIGraphic");
  // The tab of the limits has read the output's scale anew; what was typed over the limits stands.
  EXPECT_EQ(Figure()["remarks"],
            Json::array({"Hysteresis: no number.", "Check: Upper Limit Warning lies above Upper Limit Alarm."}));
}

}  // namespace
}  // namespace htr60::automation
