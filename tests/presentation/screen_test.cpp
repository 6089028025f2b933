#include "screen_driver.h"

namespace htr60::automation {
namespace {

Json Simulated(Json more = Json::object()) {
  more["dtm"] = "simulator";
  return more;
}

std::vector<std::string> NamesOf(const Json& screen) {
  std::vector<std::string> names;
  for (const Json& row : screen.at("rows")) names.push_back(row.at("name"));
  return names;
}

TEST(Screen, NamesGroupCaptionAndUnit) {
  ScreenDriver d(Simulated({{"device", {{"primaryValueType", "Level"}}}}));
  d.Activate("Level");
  d.Tab("SSTabTRDLevel", 3);
  d.Advance(100);
  EXPECT_EQ(NamesOf(d.Screen()),
            (std::vector<std::string>{
                "Sensor Value, Sensor Diag", "Sensor Value, Delta Press, kPa", "Sensor Value, Hi Value, kPa",
                "Sensor Value, Hi Value, Status", "Sensor Value, Lo Value, kPa", "Sensor Value, Primary Value, m",
                "Sensor Value, Primary Value, Status", "Sensor Value, Specific Weight", "Sensor Value, Temp., °C"}));
  const Json diag = d.Row("txtParameter(143)");
  EXPECT_EQ(diag["kind"], "status");
  EXPECT_EQ(diag["caption"], "Sensor Diag");
  EXPECT_EQ(diag["state"], "") << "only read";
  EXPECT_EQ(d.Row("lbArray(26)"), nullptr) << "the message is hidden";
}

TEST(Screen, TablePointsHaveNamesOfTheirOwn) {
  ScreenDriver d(Simulated({{"device", {{"primaryValueType", "Flow"}, {"parameters", {{"linType", "01"}}}}}}));
  d.Activate("Pressure/Flow");
  d.Advance(100);
  d.Click("cmdTablePoints");
  const Json waiting = d.Screen()["rows"][0];
  EXPECT_EQ(waiting["kind"], "msg") << "the waiting panel is the first while it is shown";
  EXPECT_EQ(waiting["text"], "Please Wait! Reanding Points...");
  d.Advance(100);
  EXPECT_EQ(d.Screen()["rows"][0]["name"], "Table, Number of Points");
  EXPECT_EQ(d.Row("txtParameter(27)")["name"], "X03");
  EXPECT_EQ(d.Row("txtParameter(53)")["name"], "Y03");
  EXPECT_EQ(d.Row("txtParameter(27)")["caption"], "X03:");
  EXPECT_EQ(d.Row("txtParameter(27)")["enabled"], false);
  EXPECT_EQ(d.Row("txtParameter(27)")["state"], "") << "disabled above the number of points";
  const Json figure = d.Screen()["figure"];
  EXPECT_EQ(figure["above"][0], "Table Status: " + d.Text("txtParameter(45)"));
  d.Type("txtParameter(21)", "200");
  EXPECT_EQ(d.Screen()["figure"]["above"][1], "Not written yet: the status belongs to the curve in the device.");
  EXPECT_NE(d.Screen()["figure"]["remarks"][0].get<std::string>().find("Check:"), std::string::npos);
}

TEST(Screen, LettersAreChosenInReadingOrderHiddenOnesIncluded) {
  ScreenDriver d(Simulated());
  d.Activate("Pressure/Flow");
  d.Advance(100);
  const auto letters = [&] {
    std::string all;
    const Json screen = d.Screen();
    for (const char* list : {"groups", "buttons"}) {
      for (const Json& item : screen[list]) all += item["mnemonic"].get<std::string>();
    }
    return all;
  };
  // Measuring Configuration, (Table Points), (Square Root, Curve Graphic), then Back, Save, Write.
  EXPECT_EQ(letters(), "MBSW");
  d.Choose("cmbLinearizationType", "Square Root & Table");
  EXPECT_EQ(letters(), "MRTCBSW") << "what is shown has the letter that it had while it was hidden";
}

TEST(Screen, TheTitleIsThatOfThePageAndTheFrameItsName) {
  ScreenDriver d(Simulated());
  EXPECT_EQ(d.Screen()["frame"], "frmInfo");
  EXPECT_EQ(d.Title(), "Device Identification");
  d.Activate("Pressure/Flow");
  d.Tab("SSTabTRDSettings", 1);
  EXPECT_EQ(d.Screen()["tabs"][0]["index"], 1);
  d.Click("cmdTRDInScale");
  EXPECT_EQ(d.Title(), "Transducer Input Scale");
  d.Click("cmdBack");
  EXPECT_EQ(d.Title(), "Pressure/Flow");
}

TEST(Screen, BothStripsOfAPageStandInFront) {
  ScreenDriver d;
  d.Click("cmdSensorDetails");
  d.Tab("SSTabInfoSensors", 1);
  d.Tab("SSTabInfoSensorLo", 1);
  const Json tabs = d.Screen()["tabs"];
  ASSERT_EQ(tabs.size(), 2U);
  EXPECT_EQ(tabs[0]["control"], "SSTabInfoSensors");
  EXPECT_EQ(tabs[1]["control"], "SSTabInfoSensorLo");
  EXPECT_EQ(tabs[1]["captions"], Json::array({"Sensor", "Flange"}));
  EXPECT_EQ(d.Screen()["rows"][0]["control"], "txtParameter(25)");
}

// ---- the data line

TEST(DataLineOfAPage, TellsHowOldTheValuesAre) {
  ScreenDriver d;
  EXPECT_EQ(d.DataLine(), "Not read since opened");
  d.Advance(9'899);
  d.Activate("Level");
  EXPECT_EQ(d.DataLine(), "Not read since opened");
  d.Advance(9'999);
  EXPECT_EQ(d.DataLine(), "Not read since opened");
  d.Advance(1);
  EXPECT_EQ(d.DataLine(), "No answer since 00:00:11");
  d.AnswerTags(6900, {{"TRDPVType", "0002"}});
  EXPECT_EQ(d.DataLine(), "Read 00:00:21");
  d.Tab("SSTabTRDLevel", 1);
  d.Click("cmdTRDLevelInputScale");
  EXPECT_EQ(d.DataLine(), "Not read since opened");
  d.Advance(5'000);
  d.Click("cmdBack");
  EXPECT_EQ(d.DataLine(), "As read 00:00:21");
  d.Tab("SSTabTRDLevel", 3);
  d.AnswerTags(4500, {{"SensorDiag", "0000"}});
  EXPECT_EQ(d.DataLine(), "Read 00:00:26, every 5 s");
}

TEST(DataLineOfAPage, ATimerMissesThreeAnswersAndItsValuesGoStale) {
  ScreenDriver d(Simulated({{"device", {{"primaryValueType", "Level"}}}}));
  d.Activate("Level");
  d.Tab("SSTabTRDLevel", 3);
  d.Advance(1000);
  EXPECT_EQ(d.Words("txtParameter(316)"), "");
  d.Ok({{"do", "simulator"}, {"fault", {{"kind", "noAnswer"}}}});
  d.Advance(4000);  // the read that is not answered
  d.Advance(14'900);
  EXPECT_EQ(d.DataLine().substr(0, 5), "Read ");
  d.Advance(200);
  EXPECT_EQ(d.DataLine().substr(0, 16), "No answer since ");
  EXPECT_EQ(d.Words("txtParameter(316)"), "stale");
  d.Ok({{"do", "simulator"}, {"clear", "all"}});
  d.Advance(6000);
  EXPECT_EQ(d.Words("txtParameter(316)"), "");
}

TEST(DataLineOfAPage, ATimeOfDayBeginsAnewAfterADay) {
  ScreenDriver d;
  d.Advance(86'400'000 - 2'100);
  d.Advance(3'661'000);
  d.Activate("Primary Value Type");
  d.AnswerTags(7900, {{"TRDPVType", "0000"}});
  EXPECT_EQ(d.DataLine(), "Read 01:01:01");
}

// ---- messages

TEST(Messages, LeavingWithTextsNotWrittenIsTold) {
  ScreenDriver d;
  d.Activate("Level");
  d.Type("txtParameter(161)", "9.8");
  d.Activate("Primary Value Type");
  EXPECT_EQ(d.Message(), "Left without writing: 1 field on Level, Settings.");
  d.Advance(9'999);
  EXPECT_NE(d.Message(), "");
  d.Advance(1);
  EXPECT_EQ(d.Message(), "");

  d.Activate("Level");
  d.Type("txtParameter(160)", "2");
  d.Tab("SSTabTRDLevel", 2);
  EXPECT_EQ(d.Message(), "") << "another tab is no other page";
  d.Type("txtParameter(272)", "2");
  d.Activate("Primary Value Type");
  EXPECT_EQ(d.Message(), "Left without writing: 3 fields on Level, Settings and Simulate.");
  d.Choose("cmbPVType", "Flow");
  d.Write();
  EXPECT_EQ(d.Message(), "") << "the next press of Write ends it";
}

TEST(Messages, NothingSentSaysWhy) {
  ScreenDriver unknown(Driver::Captured());
  unknown.Answer(9000, "<DTMInfo state='Offline' />");
  unknown.Click("cmdWriteParameter");
  EXPECT_EQ(unknown.Message(), "Nothing sent: the device is disconnected.");

  ScreenDriver d;
  d.Activate("Density/Concentration");
  d.Tab("SSTabDensity", 2);
  d.Click("cmdConstant");
  d.Type("txtParameter(218)", "99999999999");
  d.Write();
  EXPECT_EQ(d.Message(), "Nothing sent: Gravity: Too many digits.");
  EXPECT_EQ(d.State("txtParameter(218)"), "not written");
  EXPECT_EQ(d.Hint("txtParameter(218)"), "Too many digits");
  d.Click("cmdBack");
  d.Ok({{"do", "click"}, {"control", "cmdWriteParameter"}});
  EXPECT_EQ(d.Message(), "Nothing sent: this page writes nothing here.");
}

// ---- the page area

TEST(PageArea, SaysWhyItIsEmptyAndOffersTheNodeAgain) {
  ScreenDriver d;
  d.Answer(9000, "<DTMInfo state='Offline' />");
  d.Activate("Level");
  Json screen = d.Screen();
  EXPECT_EQ(screen["frame"], nullptr);
  EXPECT_EQ(screen["title"], "");
  EXPECT_EQ(screen["message"], "Level: not read, the device is disconnected.");
  EXPECT_EQ(screen["buttons"][0]["control"], "cmdBack");
  EXPECT_EQ(screen["strip"][0], "DISCONNECTED");
  d.Refused({{"do", "reopen"}});
  d.Connect();
  screen = d.Screen();
  EXPECT_EQ(screen["buttons"][0]["caption"], "Open Level");
  EXPECT_EQ(screen["buttons"][0]["control"], "");
  d.Requests();
  d.Ok({{"do", "reopen"}});
  EXPECT_EQ(d.Traffic(), Strings{"read 69"});
  EXPECT_EQ(d.Title(), "Level");
  d.Refused({{"do", "reopen"}});
  d.Activate("Transducer.");
  EXPECT_EQ(d.Message(), "OffLine Transducer: nothing to show.");
  d.Activate("No such node");
  EXPECT_EQ(d.Message(), "No such node: nothing to show.");
}

TEST(PageArea, WithoutAnActivationAsksForOne) {
  ScreenDriver d;
  d.SetMember("CurrentPage", "Observe");
  d.Ok({{"do", "click"}, {"control", "cmdBack"}, {"force", true}});
  EXPECT_EQ(d.Message(), "No page is open. Choose a node in the tree.");
}

// ---- strip and health

TEST(Strip, ShowsWhatTheProgramSetLast) {
  ScreenDriver d(Simulated({{"preset", "tank"}}));
  d.Advance(1000);
  EXPECT_EQ(d.Screen()["strip"], Json::array({"SIMULATED: tank", "HTR60-1", "Lorvane Process Instruments", "06000001",
                                              "1.09", "Level", "Write Unlocked"}));
  d.Activate("Device Identification");
  d.Type("txtParameter(0)", "typed");
  d.Choose("cmbWriteProtection", "Write Locked");
  EXPECT_EQ(d.Screen()["strip"][1], "HTR60-1");
  EXPECT_EQ(d.Screen()["strip"][6], "Write Unlocked");
  ScreenDriver captured;
  EXPECT_EQ(captured.Screen()["strip"],
            Json::array({"not read", "not read", "not read", "not read", "not read", "not read"}));
}

TEST(HealthWord, IsTheWorstOfWhatWasRead) {
  ScreenDriver d;
  EXPECT_EQ(d.Health(), "not read");
  EXPECT_EQ(d.Screen()["health"]["state"], "not read");
  const auto sensors = [&](const char* diag, const char* primaryValue, const char* capacitance) {
    d.AnswerTags(4500, {{"SensorDiag", diag},
                        {"SensorValue", "3F800000"},
                        {"TRDSensorUnit", "046D"},
                        {"PrimaryValue", primaryValue},
                        {"TRDPrimaryValueUnit", "046D"},
                        {"CapHiValue", capacitance},
                        {"CapLoValue", "3F80000080"}});
  };
  sensors("0000", "3F80000080", "3F80000080");
  EXPECT_EQ(d.Health(), "Good");
  sensors("0000", "3F80000040", "3F80000080");
  EXPECT_EQ(d.Health(), "Out of specification: Primary Value");
  sensors("0000", "3F80000000", "461C400080");
  EXPECT_EQ(d.Health(), "Failure: Primary Value, Sensor electronics");
  EXPECT_EQ(d.Screen()["health"]["state"], "failure");
  sensors("0000", "3F80000080", "3F80000080");
  EXPECT_EQ(d.Health(), "Good");
}

// ---- putting back

TEST(Revert, PutsTheTextsOfTheVisibleTabBack) {
  ScreenDriver d(Simulated({{"device", {{"primaryValueType", "Level"}}}}));
  d.Activate("Level");
  d.Advance(100);
  const std::string gravity = d.Text("txtParameter(161)");
  const std::string compensation = d.Text("cmbLevelCompensation");
  d.Type("txtParameter(161)", "1");
  d.Choose("cmbLevelCompensation", compensation == "Enable" ? "Disable" : "Enable");
  EXPECT_EQ(d.Screen()["revertable"], 2);
  EXPECT_EQ(d.Footer(), "2 not written");
  d.Tab("SSTabTRDLevel", 2);
  EXPECT_EQ(d.Screen()["revertable"], 0);
  EXPECT_EQ(d.Footer(), "2 not written") << "the whole page is counted";
  d.Tab("SSTabTRDLevel", 0);
  d.Type("txtParameter(161)", "2");
  EXPECT_EQ(d.Ok({{"do", "revert"}})["fields"], 2);
  EXPECT_EQ(d.Text("txtParameter(161)"), gravity);
  EXPECT_EQ(d.Text("cmbLevelCompensation"), compensation);
  EXPECT_EQ(d.State("txtParameter(161)"), "as read");
  EXPECT_EQ(d.Ok({{"do", "revert"}})["fields"], 0);
}

TEST(ForcedCommands, AreNoEdits) {
  ScreenDriver d;
  d.Activate("Level");
  d.AnswerTags(6900, {{"TRDPVType", "0002"},
                      {"TRDCompensation", "00"},
                      {"TRDLinType", "00"},
                      {"Gravity", "3F800000"},
                      {"Height", "3F800000"}});
  d.Ok({{"do", "choose"}, {"control", "cmbLevelCompensation"}, {"text", "Other"}, {"force", true}});
  EXPECT_EQ(d.State("cmbLevelCompensation"), "as read");
  d.Ok({{"do", "click"}, {"control", "cmdTRDLevelInputScale"}, {"force", true}});
  EXPECT_EQ(d.Title(), "Transducer Pressure Scale");
  EXPECT_EQ(d.DataLine(), "Not read since opened") << "a page opened so is opened";
}

TEST(PressesInABox, TakeTheTextsThatWereEditedWhenTheyBegan) {
  ScreenDriver d;
  d.AnswerTags(7900, {{"TRDPVType", "0000"}});
  d.Activate("Pressure/Flow");
  d.Choose("cmbLinearizationType", "User Defined(Table)");
  d.Click("cmdTablePoints");
  d.Ok({{"do", "set"}, {"member", "ConnectionState"}, {"value", "Connected"}});
  Json tags = Json::array({Json::array({"TRDLinType", "01"}), Json::array({"TRDNumpoints", "02"}),
                           Json::array({"TRDX1Y1", "0000000000000000"})});
  const Json answer = {{"do", "answer"}, {"code", 900}, {"tags", tags}};
  d.Ok(answer);
  d.Type("txtParameter(21)", "5");
  d.Ok({{"do", "boxes"}, {"answers", Json::array({{{"answer", "Yes"}, {"during", Json::array({answer})}}})}});
  d.Write();
  EXPECT_EQ(d.State("txtParameter(21)"), "sent") << "its text is in the write, though an answer has replaced it";
  d.Advance(4000);
  d.Ok(answer);
  EXPECT_EQ(d.Words("txtParameter(21)"), "device: 0.000, sent: 5");
}

// ---- what comes in between

class BetweenTest : public testing::Test {
 protected:
  BetweenTest() {
    d_.Activate("Level");
    d_.Advance(100);
  }
  static constexpr const char* kGravity = "txtParameter(161)";
  static constexpr const char* kHeight = "txtParameter(160)";
  ScreenDriver d_{Simulated({{"device", {{"primaryValueType", "Level"}}}})};
};

TEST_F(BetweenTest, AnAnswerReplacesWhatIsTypedAndItCanBePutBack) {
  const std::string gravity = d_.Text(kGravity);
  d_.Type(kGravity, "3");
  d_.Ok({{"do", "operation"}, {"name", "SensorTab"}, {"index", 0}});  // another read, of other fields
  d_.Advance(100);
  EXPECT_EQ(d_.State(kGravity), "not written");
  d_.Activate("Level");
  d_.Advance(100);
  EXPECT_EQ(d_.Text(kGravity), gravity);
  EXPECT_EQ(d_.Words(kGravity), "replaced by the device, was: 3");
  EXPECT_EQ(d_.Footer(), "1 replaced");
  d_.Ok({{"do", "putBack"}, {"control", kGravity}});
  EXPECT_EQ(d_.Text(kGravity), "3");
  EXPECT_EQ(d_.Footer(), "1 not written");
}

TEST_F(BetweenTest, ALostLinkKeepsWhatIsTypedAndSaysThatNothingWasSent) {
  d_.Type(kGravity, "3");
  d_.Ok({{"do", "simulator"}, {"fault", {{"kind", "offline"}}}});
  d_.Advance(5'000);
  const Json screen = d_.Screen();
  EXPECT_EQ(screen["strip"][1], "DISCONNECTED");
  d_.Write();
  EXPECT_EQ(d_.Message(), "Nothing sent: the device is disconnected.");
  EXPECT_EQ(d_.State(kGravity), "not written");
  d_.Ok({{"do", "simulator"}, {"clear", "all"}});
  d_.Advance(5'000);
  EXPECT_EQ(d_.State(kGravity), "not written") << "what was typed is not lost";
  d_.Write();
  d_.Advance(10'000);
  EXPECT_EQ(d_.State(kGravity), "confirmed");
  EXPECT_EQ(d_.Footer(), "all confirmed");
}

TEST_F(BetweenTest, ALinkLostAfterTheWriteLeavesItUnread) {
  d_.Type(kGravity, "3");
  d_.Write();
  d_.Ok({{"do", "simulator"}, {"fault", {{"kind", "offline"}}}});
  d_.Advance(30'000);
  EXPECT_EQ(d_.State(kGravity), "not read back");
  EXPECT_EQ(d_.Footer(), "1 not read back");
}

TEST_F(BetweenTest, AnEditAfterTheWriteIsAnEdit) {
  d_.Type(kGravity, "3");
  d_.Type(kHeight, "2");
  d_.Write();
  d_.Type(kHeight, "4");
  EXPECT_EQ(d_.Footer(), "1 not written, 1 sent");
  d_.Advance(10'000);
  EXPECT_EQ(d_.State(kGravity), "confirmed");
  EXPECT_EQ(d_.Words(kHeight), "replaced by the device, was: 4");
  EXPECT_EQ(d_.Footer(), "1 replaced, 1 confirmed");
}

}  // namespace
}  // namespace htr60::automation
