// What the presentation does for the operator beyond the control: putting back, closing, marks of the tree, what is
// told to assistive technology, menus and tooltips.
#include <algorithm>

#include "automate/virtual_host.h"
#include "presentation/field_help.h"
#include "screen_driver.h"

namespace htr60::automation {
namespace {

using presentation::CutOff;
using presentation::FieldAct;
using presentation::FieldMenuItem;
using presentation::ScreenRow;

class HelpDriver : public ScreenDriver {
 public:
  using ScreenDriver::ScreenDriver;
  bool Close() { return Ok({{"do", "close"}})["closes"]; }
  bool AnswerBar(int button) { return Ok({{"do", "bar"}, {"button", button}})["closes"]; }
  Json Bar() { return Screen().at("bar"); }
  Json Nodes() { return Screen().at("nodes"); }
  Json Announced() { return Ok({{"do", "announced"}})["texts"]; }
};

Json LevelDevice() { return {{"dtm", "simulator"}, {"device", {{"primaryValueType", "Level"}}}}; }

constexpr const char* kGravity = "txtParameter(161)";
constexpr const char* kConstantGravity = "txtParameter(218)";
constexpr const char* kTag = "txtParameter(0)";

// ---- put back

TEST(PutBack, GivesTheOperatorsTextAsIfTyped) {
  HelpDriver d;
  d.AnswerTags(7900, {{"TRDPVType", "0081"}});
  d.Activate("Density/Concentration");
  d.Tab("SSTabDensity", 2);
  d.Click("cmdConstant");
  const auto answer = [&](const char* gravity) {
    d.AnswerTags(5800, {{"Gravity", gravity}, {"Height", "3F000000"}, {"LinearDilatation", "00000000"}});
  };
  answer("3F800000");
  d.Type(kConstantGravity, "12.7");
  d.Refused({{"do", "putBack"}, {"control", kConstantGravity}});
  answer("411CF5C3");
  ASSERT_EQ(d.State(kConstantGravity), "replaced");
  d.Ok({{"do", "putBack"}, {"control", kConstantGravity}});
  EXPECT_EQ(d.Text(kConstantGravity), "12.7");
  EXPECT_EQ(d.State(kConstantGravity), "not written");
  EXPECT_EQ(d.Nodes()["notWritten"], Json::array({"Density/Concentration"}));
  d.Refused({{"do", "putBack"}, {"control", kConstantGravity}});
}

// ---- closing

TEST(Closing, AsksOnceWhileTextsAreNotWritten) {
  HelpDriver d(LevelDevice());
  EXPECT_TRUE(d.Close()) << "nothing was typed";
  d.Type(kTag, "A");
  d.Activate("Level");
  d.Advance(100);
  d.Type(kGravity, "9.7");
  EXPECT_FALSE(d.Close());
  EXPECT_EQ(d.Bar(), (Json{{"text", "2 not written"}, {"buttons", {"Stay", "Close without writing"}}}))
      << "those of all pages count";
  EXPECT_TRUE(d.Close()) << "closing again closes";
  EXPECT_FALSE(d.AnswerBar(0));
  EXPECT_EQ(d.Bar(), nullptr);
  EXPECT_FALSE(d.Close()) << "who stays is asked again";
  EXPECT_TRUE(d.AnswerBar(1));
}

TEST(Closing, TheBarGoesWithTheLastTextNotWritten) {
  HelpDriver d(LevelDevice());
  d.Activate("Level");
  d.Advance(100);
  d.Type(kGravity, "9.7");
  EXPECT_FALSE(d.Close());
  d.Ok({{"do", "revert"}});
  EXPECT_EQ(d.Bar(), nullptr);
  d.Type(kGravity, "9.7");
  EXPECT_EQ(d.Bar(), nullptr) << "and does not come back by itself";
  d.Refused({{"do", "bar"}, {"button", 0}});
  EXPECT_FALSE(d.Close());
  d.Refused({{"do", "bar"}, {"button", 2}});
}

// ---- the tree

TEST(MarksOfTheTree, FollowActivationAndEdits) {
  HelpDriver d(LevelDevice());
  EXPECT_EQ(d.Nodes(), (Json{{"open", ""}, {"notWritten", Json::array()}}));
  d.Type(kTag, "A");
  EXPECT_EQ(d.Nodes()["notWritten"], Json::array({"Device Identification"})) << "the page of the start";
  d.Activate("Level");
  d.Advance(100);
  d.Tab("SSTabTRDLevel", 1);
  d.Click("cmdTRDLevelInputScale");
  d.Advance(100);
  const Json rows = d.Screen()["rows"];
  const auto typed = std::find_if(rows.begin(), rows.end(), [](const Json& row) { return row["kind"] == "num"; });
  ASSERT_NE(typed, rows.end());
  d.Type(typed->at("control").get<std::string>(), "1");
  EXPECT_EQ(d.Nodes(), (Json{{"open", "Level"}, {"notWritten", {"Device Identification", "Level"}}}))
      << "a page that a button opened counts for the node";
  d.Ok({{"do", "revert"}});
  EXPECT_EQ(d.Nodes()["notWritten"], Json::array({"Device Identification"}));
}

// ---- health

TEST(HealthOfTheInstrument, LeadsToWhereItWasRead) {
  HelpDriver d(LevelDevice());
  d.Refused({{"do", "openHealth"}});
  d.Activate("Level");
  d.Tab("SSTabTRDLevel", 3);
  d.Advance(6000);
  ASSERT_NE(d.Health(), "not read");
  d.Activate("Device Identification");
  d.Ok({{"do", "openHealth"}});
  EXPECT_EQ(d.Title(), "Level");
  EXPECT_EQ(d.Nodes()["open"], "Level");
}

TEST(HealthOfTheInstrument, TellsWhenItWasRead) {
  VirtualHost host({.decimalSeparator = '.', .iconFolder = {}, .simulator = {}});
  host.Control().Init("7", "", host.Dtm());
  EXPECT_EQ(host.Presented().HealthTip(), "");
  const auto read = [&] {
    host.Control().UpdateUI(4500, "<A><P tag='SensorDiag' value='0000'/></A>");
    host.Presented().Turn();
  };
  host.Advance(2500);
  read();
  EXPECT_EQ(host.Presented().HealthTip(), "Read 00:00:02 on Device Identification.");
  host.Presented().Activate("Level", 0);
  host.Advance(5000);
  read();
  EXPECT_EQ(host.Presented().HealthTip(), "Read 00:00:07 on Level.");
}

// ---- what is announced

TEST(Announced, ConnectionMessagesAndWarningsButNoPolling) {
  HelpDriver d;
  EXPECT_EQ(d.Announced(), Json::array({"Connected"}));
  d.Activate("Level");
  d.Advance(1000);
  EXPECT_EQ(d.Announced(), Json::array()) << "reading is no news";
  d.Type(kGravity, "9.7");
  d.Activate("Device Identification");
  EXPECT_EQ(d.Announced(), Json::array({"Left without writing: 1 field on Level, Settings."}));
  d.Answer(9000, "<DTMInfo state='Disconnected' />");
  const Json down = d.Announced();
  EXPECT_EQ(down, Json::array({"Disconnected"}));
  d.Answer(9000, "<DTMInfo state='Disconnected' />");
  EXPECT_EQ(d.Announced(), Json::array()) << "the same again";
}

TEST(Announced, TheWaitingPanelAndTheBar) {
  HelpDriver d({{"dtm", "simulator"}, {"device", {{"primaryValueType", "Flow"}, {"parameters", {{"linType", "01"}}}}}});
  d.Activate("Pressure/Flow");
  d.Advance(100);
  d.Announced();
  d.Click("cmdTablePoints");
  EXPECT_EQ(d.Announced(), Json::array({"Please Wait! Reanding Points..."}));
  d.Advance(100);
  d.Choose("cmbNrPoints", "3");
  EXPECT_FALSE(d.Close());
  EXPECT_EQ(d.Announced(), Json::array({"1 not written"}));
}

// ---- menus and tooltips

ScreenRow RowOf(RowKind kind, const char* text, RowRole role = RowRole::kNone, const char* words = "") {
  ScreenRow row;
  row.kind = kind;
  row.role = role;
  row.text = text;
  row.words = words;
  return row;
}

TEST(HelpOfAField, TellsWhatCannotBeSeen) {
  ScreenRow number = RowOf(RowKind::kNum, "12,5", RowRole::kNone, "not written");
  number.hint = "No number";
  ScreenRow bad = RowOf(RowKind::kStatus, "Bad");
  bad.mark = presentation::Mark::kBad;
  const ScreenRow code = RowOf(RowKind::kEdit, "***", RowRole::kAccessCode, "not written");
  const struct {
    const ScreenRow& row;
    CutOff cutOff;
    const char* toolTip;
    const char* description;
  } kCases[] = {
      {number, {}, "A note.", "not written; No number; A note."},
      {number, {.text = true}, "12,5\nA note.", "not written; No number; A note."},
      {number, {.words = true}, "not written\nNo number\nA note.", "not written; No number; A note."},
      {bad, {.text = true}, "Bad\nA note.", "bad; A note."},
      {code, {.text = true, .words = true}, "", "not written; A note."},
  };
  for (const auto& one : kCases) {
    EXPECT_EQ(ToolTipOf(one.row, "A note.", one.cutOff), one.toolTip);
    EXPECT_EQ(DescriptionOf(one.row, "A note."), one.description);
  }
  EXPECT_EQ(DescriptionOf(bad, ""), "bad");
}

TEST(HelpOfAField, MenusOfferWhatCanBeDone) {
  const FieldMenuItem copy{FieldAct::kCopy, "Copy", true};
  const FieldMenuItem paste{FieldAct::kPaste, "Paste", true};
  const FieldMenuItem back{FieldAct::kPutBack, "Put back 12.7", true};
  const ScreenRow number = RowOf(RowKind::kNum, "1");
  const ScreenRow list = RowOf(RowKind::kList, "Flow");
  const ScreenRow status = RowOf(RowKind::kStatus, "Good");
  const ScreenRow code = RowOf(RowKind::kEdit, "***", RowRole::kAccessCode);
  EXPECT_EQ(MenuOf(number, std::nullopt), (std::vector<FieldMenuItem>{copy, paste}));
  EXPECT_EQ(MenuOf(number, "12.7"), (std::vector<FieldMenuItem>{copy, paste, back}));
  EXPECT_EQ(MenuOf(list, "12.7"), (std::vector<FieldMenuItem>{copy, back}));
  EXPECT_EQ(MenuOf(status, std::nullopt), (std::vector<FieldMenuItem>{copy}));
  EXPECT_EQ(MenuOf(code, std::nullopt), (std::vector<FieldMenuItem>{paste}));
}

}  // namespace
}  // namespace htr60::automation
