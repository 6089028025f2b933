#include "screen_driver.h"

namespace htr60::automation {
namespace {

/// Walks the pages by keys.
class KeyDriver : public ScreenDriver {
 public:
  explicit KeyDriver(const char* type = "Level")
      : ScreenDriver({{"dtm", "simulator"}, {"device", {{"primaryValueType", type}}}}) {}

  /// "a+o" is Alt and o, "c+Tab", "s+F6"; h is held down.
  Json Key(std::string name) {
    Json command = {{"do", "key"}};
    while (name.size() > 2 && name[1] == '+') {
      const char with = name[0];
      command[with == 'a' ? "alt" : with == 'c' ? "control" : with == 's' ? "shift" : "held"] = true;
      name.erase(0, 2);
    }
    command["key"] = name;
    return Ok(command);
  }
  /// Where the focus is after these keys.
  std::string Keys(const Strings& names) {
    for (const std::string& name : names) Key(name);
    return At();
  }
  std::string At() { return Ok({{"do", "focused"}})["focus"]; }
  Json List() { return Ok({{"do", "focused"}})["list"]; }
  void Focus(const char* control) { Ok({{"do", "focus"}, {"control", control}}); }
  void Open(const char* node) {
    Activate(node);
    Advance(100);
  }
};

TEST(TabKey, GoesRoundTreeStripRowsAndActions) {
  KeyDriver d;
  d.Open("Level");
  const Strings kRound{"tree",
                       "SSTabTRDLevel",
                       "cmbLevelPrimaryValueType",
                       "cmbLevelCompensation",
                       "cmbLevelLinearizationType",
                       "txtParameter(161)",
                       "txtParameter(160)",
                       "cmdWriteParameter"};
  for (std::size_t i = 1; i <= kRound.size(); ++i) EXPECT_EQ(d.Keys({"Tab"}), kRound[i % kRound.size()]);
  for (std::size_t i = kRound.size(); i-- > 0;) EXPECT_EQ(d.Keys({"s+Tab"}), kRound[i]);
  // With something to put back the line of the states and Revert stand behind the frame's own buttons.
  d.Type("txtParameter(161)", "1");
  EXPECT_EQ(d.Keys({"s+Tab"}), "revert");
  EXPECT_EQ(d.Keys({"s+Tab"}), "footer");
  EXPECT_EQ(d.Keys({"s+Tab"}), "cmdWriteParameter");
}

TEST(TabKey, PassesWhatIsDisabledAndGoesThroughARowBeforeTheNext) {
  KeyDriver d("Flow");
  d.Open("Pressure/Flow");
  d.Choose("cmbLinearizationType", "User Defined(Table)");
  d.Click("cmdTablePoints");
  d.Advance(100);
  d.Choose("cmbNrPoints", "2");
  d.Focus("txtParameter(21)");
  EXPECT_EQ(d.Keys({"Tab"}), "txtParameter(36)");
  EXPECT_EQ(d.Keys({"Tab"}), "txtParameter(22)");
  EXPECT_EQ(d.Keys({"Tab"}), "txtParameter(52)");
  EXPECT_EQ(d.Get("txtParameter(27)")["enabled"], false);
  EXPECT_EQ(d.Keys({"Tab"}), "cmdWriteParameter");
}

TEST(BarKeys, ABarTakesTheFocusAndGivesItBack) {
  KeyDriver d;
  d.Open("Level");
  d.Focus("txtParameter(161)");
  d.Type("txtParameter(161)", "1");
  d.Ok({{"do", "close"}});
  EXPECT_EQ(d.At(), "bar(0)");
  EXPECT_EQ(d.Keys({"Tab"}), "bar(1)");
  EXPECT_EQ(d.Keys({"Tab"}), "SSTabTRDLevel");
  EXPECT_EQ(d.Keys({"s+Tab", "s+Tab"}), "bar(0)");
  const Json stayed = d.Key("Enter");
  EXPECT_EQ(stayed.count("closes"), 0U);
  EXPECT_EQ(d.At(), "txtParameter(161)");
  EXPECT_EQ(d.Screen()["bar"], nullptr);
  d.Ok({{"do", "close"}});
  EXPECT_EQ(d.At(), "bar(0)");
  d.Key("Tab");
  EXPECT_EQ(d.Key(" ")["closes"], true);
}

TEST(BarKeys, AFocusThatWasMovedStaysWhenTheBarGoes) {
  KeyDriver d;
  d.Open("Level");
  d.Type("txtParameter(161)", "1");
  d.Ok({{"do", "close"}});
  d.Focus("txtParameter(160)");
  d.Ok({{"do", "bar"}, {"button", 0}});
  EXPECT_EQ(d.At(), "txtParameter(160)");
}

TEST(F6Key, GoesRoundTheRegions) {
  KeyDriver d;
  d.Open("Level");
  for (const char* at : {"SSTabTRDLevel", "cmdWriteParameter", "tree"}) EXPECT_EQ(d.Keys({"F6"}), at);
  for (const char* at : {"cmdWriteParameter", "SSTabTRDLevel", "tree"}) EXPECT_EQ(d.Keys({"s+F6"}), at);
}

TEST(OpenButtons, LeadToTheFirstFieldAndBackToThemselves) {
  KeyDriver d;
  d.Open("Level");
  d.Tab("SSTabTRDLevel", 1);
  EXPECT_EQ(d.Keys({"F6", "Tab"}), "cmdTRDLevelInputScale");
  EXPECT_EQ(d.Keys({"h+Enter"}), "cmdTRDLevelInputScale") << "held down from elsewhere";
  d.Key("Enter");
  EXPECT_EQ(d.Row(d.At())["kind"], "num");
  EXPECT_EQ(d.Row(d.At())["enabled"], true);
  EXPECT_EQ(d.Title(), "Transducer Pressure Scale");
  EXPECT_EQ(d.Keys({"a+Left"}), "cmdTRDLevelInputScale");
  EXPECT_EQ(d.Title(), "Level");
  EXPECT_EQ(d.Keys({"a+Left"}), "cmdTRDLevelInputScale") << "Back is disabled here";
  EXPECT_EQ(d.Title(), "Level");
}

TEST(OpenButtons, APageWithoutAFieldToTypeIntoBeginsAtItsStrip) {
  KeyDriver d;
  d.Open("Device Identification");
  d.Click("cmdSensorDetails");
  const Json tabs = d.Screen()["tabs"];
  ASSERT_FALSE(tabs.empty());
  EXPECT_EQ(d.At(), tabs[0]["control"]);
  d.Click("cmdBack");
  EXPECT_EQ(d.At(), "cmdSensorDetails");
}

TEST(Nodes, KeepTheFocusInTheTree) {
  KeyDriver d;
  d.Open("Level");
  EXPECT_EQ(d.At(), "tree");
  d.Tab("SSTabTRDLevel", 1);
  d.Click("cmdTRDLevelInputScale");
  d.Activate("Primary Value Type");
  EXPECT_EQ(d.At(), "tree") << "the page with the field has gone";
  d.Open("Level");
  d.Focus("txtParameter(161)");
  d.Requests();
  EXPECT_EQ(d.Keys({"F5"}), "txtParameter(161)") << "the same page again";
  EXPECT_EQ(d.Traffic(), Strings{"read 69"});
  d.Key("h+F5");
  EXPECT_EQ(d.Traffic(), Strings{});
}

TEST(Letters, PressOpenButtonsAndEnterGroups) {
  KeyDriver d("Flow");
  d.Open("Pressure/Flow");
  EXPECT_EQ(d.Keys({"a+m"}), d.Screen()["rows"][0]["control"]) << "the first field of the group";
  EXPECT_EQ(d.Key("a+q")["taken"], false) << "a letter that nothing bears";
  d.Requests();
  d.Key("h+a+w");
  EXPECT_EQ(d.Traffic(), Strings{}) << "held down";
  d.Tab("SSTabTRDSettings", 1);
  d.Key("a+" + d.Button("cmdTrdOutScale")["mnemonic"].get<std::string>());
  EXPECT_EQ(d.Title(), "Transducer Output Scale");
}

TEST(WriteButtons, ArePressedBySpaceAndLetterNeverByEnter) {
  KeyDriver d;
  d.Open("Level");
  d.Type("txtParameter(161)", "9.8");
  d.Requests();
  EXPECT_EQ(d.Keys({"F6", "F6"}), "cmdWriteParameter");
  for (const char* key : {"Enter", "s+Enter", "c+Enter", "h+Space", "h+Enter"}) d.Key(key);
  EXPECT_EQ(d.Traffic(), Strings{});
  EXPECT_EQ(d.State("txtParameter(161)"), "not written");
  d.Key("Space");
  ASSERT_EQ(d.Traffic().size(), 1U);
  EXPECT_EQ(d.State("txtParameter(161)"), "sent");
  d.Advance(3000);
  d.Focus("txtParameter(161)");
  d.Type("txtParameter(161)", "9.7");
  d.Requests();
  EXPECT_EQ(d.Keys({"a+w"}), "txtParameter(161)") << "the focus stays in the field";
  ASSERT_EQ(d.Traffic().size(), 1U);
}

TEST(Revert, NeverLeadsToAButtonThatWrites) {
  KeyDriver d;
  d.Open("Level");
  d.Type("txtParameter(161)", "1");
  EXPECT_EQ(d.Keys({"s+Tab"}), "revert");
  EXPECT_EQ(d.Keys({"Space"}), "SSTabTRDLevel") << "it is disabled now, and a second Space writes nothing";
  EXPECT_EQ(d.State("txtParameter(161)"), "as read");
}

TEST(SelectedText, IsTypedOverAndSelectedAnewByAnAnswerUntilItIsEdited) {
  KeyDriver d("Flow");
  d.Open("Pressure/Flow");
  d.Tab("SSTabTRDSettings", 1);
  d.Click("cmdTrdOutScale");
  const std::string field = d.At();
  EXPECT_EQ(d.Text(field), "") << "its answer is still to come";
  d.Advance(100);
  EXPECT_NE(d.Text(field), "");
  d.Keys({"2", "0"});
  EXPECT_EQ(d.Text(field), "20");
  // Edited: what the program sets meanwhile is not typed over.
  d.Keys({"a+Left"});
  d.Click("cmdTrdOutScale");
  d.Keys({"2"});
  d.Advance(100);
  const std::string answered = d.Text(field);
  EXPECT_NE(answered, "2");
  d.Keys({"0"});
  EXPECT_EQ(d.Text(field), answered + "0");
}

TEST(EscKey, PutsTheTextBackThatTheFieldHadWhenTheFocusCame) {
  KeyDriver d;
  d.Open("Level");
  const std::string gravity = d.Text("txtParameter(161)");
  d.Requests();
  d.Focus("txtParameter(160)");
  EXPECT_EQ(d.Keys({"s+Tab"}), "txtParameter(161)");
  d.Keys({"1", "2"});
  EXPECT_EQ(d.Text("txtParameter(161)"), "12");
  d.Key("Escape");
  EXPECT_EQ(d.Text("txtParameter(161)"), gravity);
  EXPECT_EQ(d.State("txtParameter(161)"), "as read");
  d.Keys({"7", "Enter", "s+Tab", "8", "Escape"});
  EXPECT_EQ(d.Text("txtParameter(161)"), "7") << "the text at the last arrival, edited before or not";
  const std::string compensation = d.Text("cmbLevelCompensation");
  d.Focus("cmbLevelCompensation");
  d.Keys({"F4", compensation == "Enable" ? "Down" : "Up", "Home", "End", "Enter"});
  d.Keys({"F4", "Home", "Enter", "Escape"});
  EXPECT_EQ(d.Text("cmbLevelCompensation"), compensation);
  EXPECT_EQ(d.Traffic(), Strings{}) << "nothing was sent by any of this";
}

TEST(EnterKey, GoesToTheNextFieldAndStaysAtTheLast) {
  KeyDriver d;
  d.Open("Level");
  d.Focus("cmbLevelLinearizationType");
  EXPECT_EQ(d.Keys({"Enter"}), "txtParameter(161)");
  EXPECT_EQ(d.Keys({"h+Enter"}), "txtParameter(161)");
  EXPECT_EQ(d.Keys({"Enter", "Enter", "Enter"}), "txtParameter(160)");
}

TEST(Tabs, MoveOnRoundAndOnTheStripToItsEnds) {
  KeyDriver d;
  d.Open("Level");
  const auto front = [&] { return d.Screen()["tabs"][0]["index"].get<int>(); };
  const int count = static_cast<int>(d.Screen()["tabs"][0]["captions"].size());
  d.Focus("txtParameter(161)");
  EXPECT_EQ(d.Keys({"c+Tab"}), "SSTabTRDLevel") << "its field went out of sight";
  EXPECT_EQ(front(), 1);
  d.Key("h+c+Tab");
  EXPECT_EQ(front(), 1);
  d.Keys({"c+PageUp", "c+PageUp"});
  EXPECT_EQ(front(), count - 1);
  d.Key("Right");
  EXPECT_EQ(front(), count - 1) << "no further on the strip";
  d.Key("c+PageDown");
  EXPECT_EQ(front(), 0);
  d.Key("Left");
  EXPECT_EQ(front(), 0);
  d.Key("Right");
  EXPECT_EQ(front(), 1);
}

TEST(Focus, LeavesAFieldThatIsDisabled) {
  KeyDriver d("Flow");
  d.Open("Pressure/Flow");
  d.Choose("cmbLinearizationType", "User Defined(Table)");
  d.Click("cmdTablePoints");
  d.Advance(100);
  d.Choose("cmbNrPoints", "3");
  d.Focus("txtParameter(27)");
  EXPECT_EQ(d.At(), "txtParameter(27)");
  d.Choose("cmbNrPoints", "2");
  EXPECT_EQ(d.At(), "cmbNrPoints") << "the first stop of a page without strips";
}

TEST(Footer, EachPressLeadsToTheNextFieldTabByTab) {
  KeyDriver d;
  d.Open("Level");
  d.Type("txtParameter(161)", "1");
  d.Tab("SSTabTRDLevel", 2);
  d.Type("txtParameter(272)", "2");
  const auto step = [&] {
    while (d.At() != "footer") d.Key("s+Tab");
    return d.Keys({"Space"});
  };
  for (const auto& [field, tab] : {std::pair("txtParameter(161)", 0), std::pair("txtParameter(272)", 2)}) {
    EXPECT_EQ(step(), field);
    EXPECT_EQ(d.Screen()["tabs"][0]["index"].get<int>(), tab);
  }
}

TEST(Lists, OpenMoveTakeAndCloseByKeys) {
  KeyDriver d;
  d.Open("Primary Value Type");
  d.Focus("cmbPVType");
  EXPECT_EQ(d.List(), nullptr);
  for (const char* key : {"F4", "a+Down", "a+Up", "Space"}) {
    d.Key(key);
    EXPECT_EQ(d.List()["control"], "cmbPVType") << key;
    EXPECT_EQ(d.List()["line"], "Level");
    EXPECT_EQ(d.List()["search"], nullptr) << "four rows need no search";
    EXPECT_EQ(d.Keys({"Tab"}), "cmbPVType");
    d.Key(std::string(key) == "F4" ? "F4" : "Escape");
    EXPECT_EQ(d.List(), nullptr) << key;
  }
  d.Keys({"f"});
  EXPECT_EQ(d.List()["line"], "Flow");
  EXPECT_EQ(d.Text("cmbPVType"), "Level") << "a letter picks nothing";
  d.Keys({"Down", "Down"});
  EXPECT_EQ(d.List()["line"], "Density");
  d.Key("h+Enter");
  EXPECT_NE(d.List(), nullptr);
  d.Key("Enter");
  EXPECT_EQ(d.List(), nullptr);
  EXPECT_EQ(d.Text("cmbPVType"), "Density");
  EXPECT_EQ(d.State("cmbPVType"), "not written");
  d.Key("F4");
  d.Activate("Level");
  EXPECT_EQ(d.List(), nullptr) << "its field has gone";
}

TEST(CopyAndHelp, GoToTheView) {
  KeyDriver d;
  d.Open("Level");
  d.Focus("txtParameter(161)");
  EXPECT_EQ(d.Key("c+c")["copied"], d.Text("txtParameter(161)"));
  const Json help = d.Key("F1")["help"];
  EXPECT_EQ(help["title"], "Level");
  ASSERT_EQ(help["lines"].size(), 2U);
  EXPECT_EQ(help["lines"][0], d.Screen()["purpose"]);
  EXPECT_FALSE(d.Key("h+F1").contains("help"));
}

TEST(KeyCommand, RefusesWhatIsNoKey) {
  ScreenDriver d;
  for (const char* key : {"", "F2", "ab", "enter"}) d.Refused({{"do", "key"}, {"key", key}});
  d.Refused({{"do", "key"}});
  d.Refused({{"do", "focused"}, {"control", "cmdBack"}});
}

}  // namespace
}  // namespace htr60::automation
