#include "monitors.h"

namespace htr60::automation {
namespace {

constexpr int kLow = 960;
constexpr int kHigh = 1575;

void AnswerValue(PageDriver& driver, const std::string& hex) { driver.AnswerTags(4100, {{"ParamValue", hex}}); }

int HeightOf(PageDriver& driver, const Monitor& m) { return driver.Get(m.group)["height"]; }

TEST(LcdLive, EveryFiveSecondsTheParameterIsReadByItsNames) {
  for (const Monitor& m : kMonitors) {
    SCOPED_TRACE(m.subPage);
    PageDriver driver;
    OpenMonitor(driver, m);
    driver.Advance(4999);
    EXPECT_EQ(driver.Traffic(), Strings{});
    driver.Advance(1);
    EXPECT_EQ(driver.Traffic(), Strings{"read 41: , "});  // nothing chosen: the texts as they stand
    EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
    driver.Choose(m.block, "Analog Input 2");
    driver.Choose(m.index, "Out");
    driver.Advance(10'000);
    EXPECT_EQ(driver.Traffic(), Strings(2, "read 41: Analog Input 2, Out"));
    driver.Activate("Identification");
    driver.Requests();
    driver.Advance(20'000);
    EXPECT_EQ(driver.Traffic(), Strings{});
  }
}

struct Shown {
  const char* index;
  const char* element;
  std::string hex;
  std::string value;
  int height;
  std::string status;                                      // "": the list is left alone
  std::vector<std::pair<std::string, std::string>> other;  // texts in further fields
};

const std::string kPair = "41480000C0200000";    // 12.5, -2.5
const std::string kScale = kPair + "046D02";     // kPa
const std::string kSimulation = "51420D000001";  // low limited, 35.25, active

const Shown kShown[] = {
    {"Sensor Value", "01", "3FC00000", "1.500", kLow, "", {}},
    {"PV%", "FF", "", "0.000", kLow, "", {}},
    {"Target Mode", "01", "0A", "0A", kLow, "", {}},
    {"Linearization Type", "", "f0", "f0", kLow, "", {}},
    {"Channel", "01", "0112", "0112", kLow, "", {}},
    {"Mode Block", "02", "089808", "089808", kLow, "", {}},
    {"Out", "01", "41A4000080", "20.500", kHigh, "Good (NC)", {}},
    {"Primary Value", "Whole Structure", "C1A4000040", "-20.500", kHigh, "Uncertain & Non-specific", {}},
    {"Temperature", "02", "41A40000", "20.500", kHigh, "Bad & Non-specific", {}},  // a record without its status
    {"Scale In", "01", kPair, "12.500", kLow, "", {{"txtParameter(100)", "-2.500"}, {"txtParameter(99)", ""}}},
    {"PV Scale", "1", kPair, "12.500", kLow, "", {{"txtParameter(100)", "-2.500"}, {"txtParameter(99)", ""}}},
    {"Scale Out", "02", kPair, "-2.500", kLow, "", {{"txtParameter(99)", "12.500"}, {"txtParameter(100)", ""}}},
    {"Scale Out", "2", kPair, "-2.500", kLow, "", {{"txtParameter(99)", "12.500"}, {"txtParameter(100)", ""}}},
    {"Scale In", "Whole Structure", kPair, "?", kLow, "", {{"txtParameter(99)", ""}, {"txtParameter(100)", ""}}},
    {"Scale In", "03", kPair, "?", kLow, "", {{"txtParameter(99)", ""}, {"txtParameter(100)", ""}}},
    {"Out Scale", "1", kScale, "12.500", kLow, "", {{"txtParameter(130)", "-2.500"}, {"txtParameter(129)", ""}}},
    {"Out Scale", "02", kScale, "-2.500", kLow, "", {{"txtParameter(129)", "12.500"}, {"txtParameter(130)", ""}}},
    {"Out Scale",
     "Whole Structure",
     kScale,
     "kPa",
     kLow,
     "",
     {{"txtParameter(129)", "12.500"}, {"txtParameter(130)", "-2.500"}}},
    {"Out Scale", "001", kPair + "000000", "", kLow, "", {{"txtParameter(129)", "12.500"}}},
    {"Simulate", "1", kSimulation, "Active", kLow, "", {}},
    {"Simulate", "01", "80000000000A", "", kLow, "", {}},  // no text for that code
    {"Simulate", "02", kSimulation, "35.250", kLow, "", {}},
    {"Simulate",
     "Whole Structure",
     kSimulation,
     "35.250",
     kHigh,
     "Uncertain & Sens Conv. N Accurate & Low Limited",
     {}},
    {"Simulate", "", "4C00000000", "0.000", kHigh, "Uncertain & Initial Value", {}},
};

// The list of indexes may show any name, for an answer of a foreign block sets it: the type follows the name alone.
TEST(LcdLive, TheValueIsShownByItsType) {
  for (const Monitor& m : kMonitors) {
    for (const Shown& shown : kShown) {
      SCOPED_TRACE(std::string(m.subPage) + " " + shown.index + " " + shown.element);
      PageDriver driver;
      OpenMonitor(driver, m);
      // The status of a simulation on monitor 2 goes to the list of monitor 1.
      const bool elsewhere = m.tab == 1 && std::string_view(shown.index) == "Simulate";
      for (const Monitor& any : kMonitors) driver.SetList(any.status, "before");
      driver.SetList(m.index, "User Index");
      AnswerValue(driver, "00");
      EXPECT_FALSE(driver.Visible(m.group));
      driver.SetList(m.index, shown.index);
      driver.Type(m.element, shown.element);
      driver.Type(m.value, "?");
      AnswerValue(driver, shown.hex);
      EXPECT_EQ(driver.Text(m.value), shown.value);
      EXPECT_TRUE(driver.Visible(m.group));
      EXPECT_EQ(HeightOf(driver, m), shown.height);
      for (const Monitor& any : kMonitors) {
        const bool set = !shown.status.empty() && (elsewhere ? any.tab == 0 : &any == &m);
        EXPECT_EQ(driver.Text(any.status), set ? shown.status : "before") << any.status;
      }
      for (const auto& [field, text] : shown.other) EXPECT_EQ(driver.Text(field), text) << field;
    }
  }
}

TEST(LcdLive, AParameterOfNoKnownTypeHidesItsGroup) {
  PageDriver driver;
  OpenMonitor(driver, kMonitors[0]);
  for (const char* index : {"", "User Index", "sensor value", "Fail Total "}) {
    SCOPED_TRACE(index);
    driver.SetList("cmbRelativeIndexMonit1", "Out");
    AnswerValue(driver, "41A4000080");
    EXPECT_TRUE(driver.Visible("frmGroupParameter(0)"));
    driver.SetList("cmbRelativeIndexMonit1", index);
    AnswerValue(driver, "3F80000040");
    EXPECT_FALSE(driver.Visible("frmGroupParameter(0)"));
    EXPECT_EQ(driver.Text("txtParameter(46)"), "20.500");
    EXPECT_EQ(driver.Text("cmbLCDStatusMonit1"), "Good (NC)");
    EXPECT_EQ(HeightOf(driver, kMonitors[0]), kHigh);
  }
}

// The read is on its way while the operator picks something else, or leaves for another tab.
TEST(LcdLive, ListsAndTabCountAsTheyStandAtTheAnswer) {
  PageDriver driver;
  OpenMonitor(driver, kMonitors[0]);
  driver.SetList("cmbRelativeIndexMonit1", "Out");
  driver.Advance(5000);
  driver.SetList("cmbRelativeIndexMonit1", "Mode Block");
  AnswerValue(driver, "41A4000080");
  EXPECT_EQ(driver.Text("txtParameter(46)"), "41A4000080");
  driver.Tab("SSTabLCD", 2);
  driver.SetList("cmbRelativeIndexMonit3", "Out");
  AnswerValue(driver, "3F80000040");
  EXPECT_EQ(driver.Text("txtParameter(46)"), "41A4000080");
  EXPECT_EQ(driver.Text("txtParameter(48)"), "1.000");
  for (const char* subPage : {"Switch", "monit3", ""}) {
    driver.SetMember("SubPage", subPage);
    AnswerValue(driver, "4000000040");
    EXPECT_EQ(driver.Text("txtParameter(48)"), "1.000") << subPage;
  }
  driver.SetMember("SubPage", "Monit3");
  driver.Answer(4100, "<Answer></Answer>");
  EXPECT_EQ(driver.Text("txtParameter(48)"), "1.000");
}

TEST(LcdLive, AWriteStopsThePollUntilItsReRead) {
  PageDriver driver;
  OpenMonitor(driver, kMonitors[2]);
  driver.Advance(4000);
  driver.Click("cmdWriteParameter");
  driver.Requests();
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), Strings{"read 31"});
  driver.Advance(4999);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Advance(1);
  EXPECT_EQ(driver.Traffic(), Strings{"read 41: , "});
}

// ---- what is shown

TEST(LcdLive, TheStatusStandsOnlyInAHighGroup) {
  for (const Monitor& m : kMonitors) {
    SCOPED_TRACE(m.subPage);
    ScreenDriver driver;
    OpenMonitor(driver, m);
    EXPECT_EQ(driver.Row(m.value)["name"], "Live Value, Value");
    EXPECT_EQ(driver.Row(m.status), nullptr) << "nothing read yet";
    driver.SetList(m.index, "Out");
    AnswerValue(driver, "41A400000C");
    EXPECT_EQ(driver.Row(m.status)["name"], "Live Value, Status");
    EXPECT_EQ(driver.Row(m.status)["mark"], "bad");
    EXPECT_EQ(driver.Row(m.status)["kind"], "list-ro");
    driver.SetList(m.index, "Mode Block");
    AnswerValue(driver, "089808");
    EXPECT_EQ(driver.Row(m.value)["text"], "089808");
    EXPECT_EQ(driver.Row(m.status), nullptr) << "an old status beside a new value";
    driver.SetList(m.index, "User Index");
    AnswerValue(driver, "00");
    EXPECT_EQ(driver.Row(m.value), nullptr);
    ASSERT_EQ(driver.Screen()["groups"].size(), 1U);
    EXPECT_EQ(driver.Screen()["groups"][0]["caption"], "Monitor");
  }
}

TEST(LcdLive, TheDataLineTellsOfThePollAndOfItsSilence) {
  ScreenDriver driver(Driver::Simulated());
  driver.Activate("LCD Config");
  driver.Advance(5100);
  EXPECT_TRUE(driver.DataLine().ends_with(", every 5 s")) << driver.DataLine();
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "noAnswer"}, {"codes", {41}}}}});
  driver.Advance(4900 + 15'000);
  EXPECT_TRUE(driver.DataLine().starts_with("No answer since ")) << driver.DataLine();
  EXPECT_EQ(driver.Words("txtParameter(46)"), "stale");
  driver.Tab("SSTabLCD", 4);
  driver.Advance(100);
  EXPECT_FALSE(driver.DataLine().ends_with(" s")) << driver.DataLine();
}

// ---- with the simulated transmitter: 20 and 10 kPa on a range of 37.4, all parameters of monitor 4

struct Live {
  const char* block;
  const char* index;
  const char* element;
  const char* value;
  const char* status;  // "": not shown
};

constexpr Live kLive[] = {
    {"Transducer", "Target Mode", "01", "08", ""},
    {"Transducer", "Mode Block", "01", "089808", ""},
    {"Transducer", "Cal Point Hi", "01", "37.400", ""},
    {"Transducer", "Cal Point Lo", "01", "0.000", ""},
    {"Transducer", "Sensor Unit", "01", "046D", ""},
    {"Transducer", "Primary Value Unit", "01", "046D", ""},
    {"Transducer", "Temperature Unit", "01", "03E9", ""},
    {"Transducer", "Linearization Type", "01", "00", ""},
    {"Transducer", "Scale In", "01", "37.400", ""},
    {"Transducer", "Scale In", "02", "0.000", ""},
    {"Transducer", "Scale Out", "01", "37.400", ""},
    {"Transducer", "Low Flow Cut Off", "01", "5.000", ""},
    {"Transducer", "Flow Lin Sqrt Point", "01", "10.000", ""},
    {"Transducer", "Cal Temperature", "01", "20.000", ""},
    {"Transducer", "Backup Restore", "01", "00", ""},
    {"Transducer", "Sensor Value", "01", "10.000", ""},
    {"Transducer", "Primary Value", "01", "10.000", "Good (NC)"},
    {"Transducer", "Temperature", "01", "20.000", "Good (NC)"},
    {"Transducer", "Press Normal", "01", "26.738", ""},
    {"Transducer", "Press Lin Normal", "01", "26.738", ""},
    {"Transducer", "PV%", "01", "26.738", ""},
    {"Analog Input 1", "Target Mode", "01", "08", ""},
    {"Analog Input 2", "Target Mode", "01", "10", ""},
    {"Analog Input 1", "Out", "01", "12.500", "Good (NC)"},  // as simulated
    {"Analog Input 3", "Out", "01", "10.000", "Good (NC)"},  // the pressure of the second sensor
    {"Analog Input 1", "PV Scale", "02", "0.000", ""},
    {"Analog Input 1", "Out Scale", "01", "37.400", ""},
    {"Analog Input 1", "Out Scale", "FF", "kPa", ""},
    {"Analog Input 1", "L Type", "01", "00", ""},
    {"Analog Input 1", "Channel", "01", "0112", ""},
    {"Analog Input 2", "Channel", "01", "011D", ""},
    {"Analog Input 3", "Channel", "01", "011F", ""},
    {"Analog Input 1", "PV FTime", "01", "0.000", ""},
    {"Analog Input 1", "FSafe Type", "01", "01", ""},
    {"Analog Input 1", "FSafe Value", "01", "0.000", ""},
    {"Analog Input 1", "Alarm Hys", "01", "0.187", ""},
    {"Analog Input 1", "Hi Hi Lim", "01", "41.140", ""},
    {"Analog Input 1", "Hi Lim", "01", "39.270", ""},
    {"Analog Input 1", "Lo Lim", "01", "-1.870", ""},
    {"Analog Input 1", "Lo Lo Lim", "01", "-3.740", ""},
    {"Analog Input 1", "Simulate", "01", "Active", ""},
    {"Analog Input 1", "Simulate", "02", "12.500", ""},
    {"Analog Input 1", "Simulate", "FF", "12.500", "Good (NC)"},
    {"Analog Input 2", "Simulate", "01", "Disable", ""},
    {"Physical", "Write Locking", "01", "0999", ""},
    {"Physical", "Factory Reset", "01", "0000", ""},
    {"Physical", "Ident. Number Select", "01", "01", ""},
};

TEST(LcdLive, EveryParameterOfTheInstrumentIsShown) {
  ScreenDriver driver(
      Driver::Simulated({{"device", {{"parameters", {{"ai1.sim", "804148000001"}, {"ai2.target", "10"}}}}}}));
  const Monitor& m = kMonitors[3];
  OpenMonitor(driver, m);
  driver.Advance(100);
  for (const Live& live : kLive) {
    SCOPED_TRACE(std::string(live.block) + " " + live.index + " " + live.element);
    if (driver.Text(m.block) != live.block) driver.Choose(m.block, live.block);
    driver.Choose(m.index, live.index);
    driver.Type(m.element, std::string_view(live.element) == "FF" ? "Whole Structure" : live.element);
    driver.Advance(5000);
    EXPECT_EQ(driver.Row(m.value)["text"], live.value);
    const Json status = driver.Row(m.status);
    EXPECT_EQ(status.is_null() ? "" : status["text"].get<std::string>(), live.status);
  }
}

}  // namespace
}  // namespace htr60::automation
