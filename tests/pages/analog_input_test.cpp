#include <algorithm>

#include "page_driver.h"

namespace htr60::automation {
namespace {

constexpr const char* kPercentScale = "42C8000000000000053E00";  // 100, 0, %

void OpenSecond(PageDriver& driver) {
  driver.Activate("Analog Input 2");
  driver.Requests();
}

std::string WriteOf(PageDriver& driver) {
  driver.Requests();
  driver.Click("cmdWriteParameter");
  const Strings traffic = driver.Traffic();
  return traffic.size() == 1 ? traffic[0] : std::to_string(traffic.size()) + " requests";
}

TEST(AnalogInput, TabsNameTheirSubPageAndReadTheirBlock) {
  struct Case {
    int tab;
    const char* subPage;
    int write;  // -1: unchanged
    const char* read;
  };
  const Case cases[] = {{1, "AI Scales", 0, "80"},   {2, "AI Alarm/Warning", 1, "11"}, {3, "AI Fail Safe", 1, "12"},
                        {4, "AI Simulate", 1, "13"}, {5, "AI Mode Block", 1, "14"},    {6, "x", -1, "0"},
                        {1, "AI Scales", 0, "80"},   {0, "AI Basic Settings", 1, "10"}};
  for (const char* block : {"1", "2", "3"}) {
    PageDriver driver;
    const std::string page = std::string("Analog Input ") + block;
    driver.Activate(page);
    EXPECT_EQ(driver.Traffic(), Strings{std::string("read 10: ") + block});
    for (const Case& c : cases) {
      SCOPED_TRACE(page + ", tab " + std::to_string(c.tab));
      driver.SetMember("SubPage", "x");
      const bool before = driver.Enabled("cmdWriteParameter");
      driver.Tab("SSTabAI", c.tab);
      EXPECT_EQ(driver.Page(), page + " / " + c.subPage);
      EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write < 0 ? before : c.write == 1);
      EXPECT_EQ(driver.Traffic(), Strings{std::string("read ") + c.read + ": " + block});
      EXPECT_EQ(driver.Member("RequestCode"), c.read);
      EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
      const Json timer = driver.Timer("TimerAIOut");
      EXPECT_EQ(timer["enabled"], c.tab == 5);
      EXPECT_TRUE(c.tab != 5 || timer["interval"] == 15000);
    }
  }
}

TEST(AnalogInput, AnotherPageHasNoBlock) {
  PageDriver driver;
  OpenSecond(driver);
  driver.SetMember("CurrentPage", "x");
  driver.Tab("SSTabAI", 2);
  EXPECT_EQ(driver.Traffic(), Strings{"read 11"});
  EXPECT_EQ(driver.Member("BlockSelector"), "None");
}

TEST(AnalogInput, TheOutputIsReadEveryFifteenSecondsOnItsTab) {
  PageDriver driver;
  OpenSecond(driver);
  driver.Tab("SSTabAI", 5);
  driver.SetMember("BlockSelector", "1");
  driver.Advance(30000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 14: 2", "read 37: 2", "read 37: 2"}));
  EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
  driver.Tab("SSTabAI", 6);
  driver.Requests();
  driver.Advance(30000);
  EXPECT_EQ(driver.Traffic(), Strings{});
  // The timer comes before the read, so it runs also where the first read fails.
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Tab("SSTabAI", 5);
  EXPECT_EQ(driver.Timer("TimerAIOut")["enabled"], true);
}

// ---- answers

const Fills kBasic = {
    {"AITarget", "10", {{"cmbAITarget(0)", "Man"}}},       {"AIActual", "089808", {{"txtParameter(303)", "Auto"}}},
    {"AIChannel", "011D", {{"txtParameter(318)", "SV1"}}}, {"AIDamping", "40200000", {{"txtParameter(119)", "2.500"}}},
    {"AIConfig", "02", {{"cmbAIConfig", "Config 2"}}},
};
const Filled kUnit = {"AIUnit",
                      kPercentScale,
                      {{"txtParameter(129)", "100.000"},
                       {"txtParameter(130)", "0.000"},
                       {"txtParameter(304)", "%"},
                       {"lbArray(201)", "%"},
                       {"lbArray(162)", "%"}}};
const Fills kAlarm = {
    {"AIUpperLimAlarm", "42DC0000", {{"txtParameter(120)", "110.000"}}},
    {"AIUpperLimWarning", "42C80000", {{"txtParameter(121)", "100.000"}}},
    {"AILowerLimAlarm", "C1200000", {{"txtParameter(122)", "-10.000"}}},
    {"AILowerLimWarning", "00000000", {{"txtParameter(123)", "0.000"}}},
    {"AILimHysteresis", "3F000000", {{"txtParameter(124)", "0.500"}}},
    kUnit,
};
const Fills kFailSafe = {
    {"AIUnit",
     kPercentScale,
     {{"txtParameter(129)", "100.000"}, {"txtParameter(130)", "0.000"}, {"txtParameter(305)", "%"}}},
    {"AIFailSafeType", "02", {{"cmbAIFailSafeType", "Use Wrong Value"}}},
    {"AIFailSafeValue", "C1480000", {{"txtParameter(171)", "-12.500"}}},
};
const Fills kSimulate = {
    {"AISimulate",
     "443FC0000001",
     {{"cmbSimulateEnable", "Active"},
      {"txtParameter(172)", "1.500"},
      {"cmbAIStatusSim", "Uncertain & Last Usable Value"}}},
};
const Filled kOutput = {
    "AIOutput",
    "4148000080",
    {{"txtParameter(125)", "12.500"}, {"cmbStatusAIModeBlock", "Good (NC)"}},
};
const Fills kMode = {
    {"AITarget", "80", {{"cmbAITarget(1)", "Out of Service"}}},
    kUnit,
    {"AIActual", "109808", {{"txtParameter(306)", "Man"}}},
    kOutput,
};

TEST(AnalogInput, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(1000, kBasic, OpenSecond);
  ExpectFillsInOrder(1100, kAlarm, OpenSecond);
  ExpectFillsInOrder(1200, kFailSafe, OpenSecond);
  ExpectFillsInOrder(1300, kSimulate, OpenSecond);
  ExpectFillsInOrder(1400, kMode, OpenSecond);
  ExpectFillsInOrder(3700, {kOutput}, OpenSecond);
}

TEST(AnalogInput, AnswersLeaveWhatIsNotTheirs) {
  PageDriver driver;
  driver.AnswerFills(1200, kFailSafe);
  for (const char* other : {"txtParameter(304)", "lbArray(201)", "lbArray(162)"}) {
    EXPECT_EQ(driver.Text(other), "") << other;
  }
  driver.AnswerFills(1000, kBasic);
  driver.AnswerFills(1400, kMode);
  EXPECT_EQ(driver.Text("cmbAITarget(0)"), "Man");
  EXPECT_EQ(driver.Text("cmbAITarget(1)"), "Out of Service");
  EXPECT_EQ(driver.Text("txtParameter(303)"), "Auto");
}

TEST(AnalogInput, UnknownCodesLeaveTheFieldsButOneActualMode) {
  struct Case {
    int code;
    Fills fills;
    std::vector<std::pair<const char*, const char*>> values;  // by tag
    std::vector<const char*> emptied;
  };
  const char* const noUnit = "41200000C120000007D000";  // 10, -10
  const Case cases[] = {
      {1000, kBasic, {{"AITarget", "FE"}, {"AIActual", "FE9808"}, {"AIChannel", "FFFE"}, {"AIConfig", "00"}}, {}},
      {1100, kAlarm, {{"AIUnit", noUnit}}, {}},
      {1200, kFailSafe, {{"AIUnit", noUnit}, {"AIFailSafeType", "03"}}, {}},
      {1300, kSimulate, {{"AISimulate", "443FC00000FE"}}, {}},
      {1400, kMode, {{"AITarget", "00"}, {"AIUnit", noUnit}, {"AIActual", "009808"}}, {"txtParameter(306)"}},
  };
  for (const Case& c : cases) {
    PageDriver driver;
    OpenSecond(driver);
    driver.AnswerFills(c.code, c.fills);
    Fills unknown = c.fills;
    for (Filled& row : unknown) {
      for (const auto& [tag, value] : c.values) {
        if (row.tag == tag) row.value = value;
      }
    }
    driver.AnswerFills(c.code, unknown);
    for (const Filled& row : c.fills) {
      for (const auto& [control, text] : row.fields) {
        if (control == "txtParameter(129)" || control == "txtParameter(130)") continue;
        const bool emptied = std::find(c.emptied.begin(), c.emptied.end(), control) != c.emptied.end();
        EXPECT_EQ(driver.Text(control), emptied ? "" : text) << c.code << ' ' << control;
      }
    }
    if (c.code != 1000 && c.code != 1300) {
      EXPECT_EQ(driver.Text("txtParameter(129)"), "10.000") << c.code;
      EXPECT_EQ(driver.Text("txtParameter(130)"), "-10.000") << c.code;
    }
  }
}

TEST(AnalogInput, TheAlarmWordFillsTheListOfItsTab) {
  struct Case {
    const char* word;
    const char* rows;
  };
  const Case cases[] = {
      {"0000000000000000", R"j(["No Alarm"])j"},
      {"0200FFFFFFFFFFFF", R"j(["Upper Limit Alarm "])j"},
      {"1E00000000000000",
       R"j(["Upper Limit Alarm ","Upper Limit Warning ","Lower Limit Alarm ","Lower Limit Warning "])j"},
      {"1800000000000000", R"j(["Lower Limit Alarm ","Lower Limit Warning "])j"},
      {"0001000000000000", R"j([])j"},            // neither none nor one that has a text
      {"8000000000000000", R"j(["No Alarm"])j"},  // does not fit the word, which stays 0
      {"8200000000000000", R"j(["No Alarm"])j"},
      {"04G0000000000000", R"j(["No Alarm"])j"},
      {"0400", R"j(["Upper Limit Warning "])j"},
  };
  PageDriver driver;
  Fills alarm = kAlarm;
  alarm.push_back({"AICurrAlarm", "", {}});
  Fills mode = kMode;
  mode.push_back({"AIAlarm", "", {}});
  for (const Case& c : cases) {
    SCOPED_TRACE(c.word);
    driver.AnswerTags(3700, {{"AIOutput", "4148000080"}, {"AIAlarm", "0800000000000000"}});
    EXPECT_EQ(driver.Items("ListAICurrentStateAlarm"), R"j(["Lower Limit Alarm "])j");
    alarm.back().value = c.word;
    mode.back().value = c.word;
    driver.AnswerFills(1100, alarm);
    EXPECT_EQ(driver.Items("ListAIAlarm"), c.rows);
    EXPECT_EQ(driver.Items("ListAICurrentStateAlarm"), R"j(["Lower Limit Alarm "])j");
    driver.AnswerFills(1400, mode);
    EXPECT_EQ(driver.Items("ListAICurrentStateAlarm"), c.rows);
  }
  // Without its tag the list keeps its rows.
  driver.AnswerFills(1400, mode, "AIAlarm");
  EXPECT_EQ(driver.Items("ListAICurrentStateAlarm"), R"j(["Upper Limit Warning "])j");
}

// ---- writes

TEST(AnalogInput, WritesTakeTheFieldsOfTheirTab) {
  PageDriver driver;
  OpenSecond(driver);
  driver.AnswerFills(1000, kBasic);
  EXPECT_EQ(WriteOf(driver), "write 7: 2, 10, 40200000, 02");
  driver.Tab("SSTabAI", 2);
  driver.AnswerFills(1100, kAlarm);
  EXPECT_EQ(WriteOf(driver), "write 8: 2, 42DC0000, 42C80000, C1200000, 00000000, 3F000000");
  driver.Tab("SSTabAI", 3);
  driver.AnswerFills(1200, kFailSafe);
  EXPECT_EQ(WriteOf(driver), "write 9: 2, 02, C1480000");
  driver.Tab("SSTabAI", 4);
  driver.AnswerFills(1300, kSimulate);
  EXPECT_EQ(WriteOf(driver), "write 10: 2, 443FC0000001");
  driver.Tab("SSTabAI", 5);
  driver.AnswerFills(1400, kMode);
  EXPECT_EQ(WriteOf(driver), "write 11: 2, 4148000080, 80");
  driver.Tab("SSTabAI", 1);
  driver.Requests();
  driver.SetMember("BlockSelector", "None");
  driver.Force("cmdWriteParameter");  // the tab has its own buttons, yet the block is chosen
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_EQ(driver.Member("BlockSelector"), "2");
}

TEST(AnalogInput, AFirmwareWithoutConfigurationWritesAnEmptyOne) {
  PageDriver driver;
  driver.Activate("Analog Input 3");
  driver.AnswerFills(1000, kBasic, "AIConfig");
  EXPECT_EQ(WriteOf(driver), "write 7: 3, 10, 40200000, ");
}

TEST(AnalogInput, AnOutputSetByHandBearsItsOwnStatus) {
  struct Case {
    const char* target;
    const char* status;
    const char* write;
  };
  const Case cases[] = {
      {"Man", "Good (NC)", "write 11: 1, 4148000063, 10"},
      {"Man", "Bad", "write 11: 1, 4148000063, 10"},
      {"Auto", "Good (NC)", "write 11: 1, 4148000080, 08"},
      {"Out of Service", "Bad", "write 11: 1, 41480000, 80"},  // a row without digits
  };
  PageDriver driver;
  driver.Activate("Analog Input 1");
  driver.AnswerFills(1000, kBasic);  // "Man" of the first tab is another list
  driver.Tab("SSTabAI", 5);
  driver.AnswerFills(1400, kMode);
  for (const Case& c : cases) {
    driver.Choose("cmbAITarget(1)", c.target);
    driver.Choose("cmbStatusAIModeBlock", c.status);
    EXPECT_EQ(WriteOf(driver), c.write);
  }
}

TEST(AnalogInput, EachWriteIsReadAgain) {
  const struct {
    int tab;
    int code;
    const Fills& fills;
    const char* read;
  } cases[] = {{0, 1000, kBasic, "read 10: 3"},
               {2, 1100, kAlarm, "read 11: 3"},
               {3, 1200, kFailSafe, "read 12: 3"},
               {4, 1300, kSimulate, "read 13: 3"},
               {5, 1400, kMode, "read 14: 3"}};
  PageDriver driver;
  driver.Activate("Analog Input 3");
  for (const auto& c : cases) {
    driver.Tab("SSTabAI", c.tab);
    driver.AnswerFills(c.code, c.fills);
    driver.Requests();
    driver.Click("cmdWriteParameter");
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic().back(), c.read);
  }
}

TEST(AnalogInput, TheConfigurationIsWrittenForAllBlocks) {
  PageDriver driver;
  driver.AnswerTags(100, {{"TRDPVType", "0000"},
                          {"PHYTag", ""},
                          {"PHYManufacturer", ""},
                          {"TRDOrderingCode", ""},
                          {"PHYFirmware", "312E3037202020202020202020202020"}});
  OpenSecond(driver);
  EXPECT_TRUE(driver.Visible("cmdWriteAIConfig"));
  driver.Choose("cmbAIConfig", "Config 2");
  driver.Click("cmdWriteAIConfig");
  EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 76: 02", "read 10: 2"}));
}

// ---- graphic

TEST(AnalogInput, TheGraphicKeepsThePageAndItsTimer) {
  PageDriver driver;
  driver.Activate("Analog Input 3");
  driver.Tab("SSTabAI", 5);
  driver.Requests();
  driver.Force("cmdAIGraphic");
  EXPECT_EQ(driver.Page(), "Analog Input 3 / AI Graphic");
  EXPECT_TRUE(driver.Visible("frmAITOTGraphic"));
  EXPECT_FALSE(driver.Visible("frmAI"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  driver.Advance(15000);
  EXPECT_EQ(driver.Traffic(), Strings{"read 37: 3"});
  driver.Click("cmdBack");  // no way back stands under this page
  EXPECT_EQ(driver.Page(), "Analog Input 3 / AI Graphic");
  driver.Activate("Analog Input 1");
  EXPECT_TRUE(driver.Visible("frmAITOTGraphic"));  // the common hide leaves it
  EXPECT_EQ(driver.Ok({{"do", "screen"}})["frame"], "frmAI");
}

}  // namespace
}  // namespace htr60::automation
