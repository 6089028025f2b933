#include "monitors.h"

namespace htr60::automation {
namespace {

constexpr const char* kBlockItems =
    R"j(["Physical","Transducer","Analog Input 1","Analog Input 2","Analog Input 3","None"])j";

Fills MonitorFills(const Monitor& m) {
  Fills fills = {{"LCDFunctionBlock", "01", {{m.block, "Transducer"}}},
                 {"LCDRelIndex", "001D", {{m.index, "Secondary Value 1"}, {m.userIndex, "29"}}},
                 {"LCDElement", "FF", {{m.element, "Whole Structure"}}},
                 {"LCDMnemonic", Padded("50562531"), {{m.mnemonic, "PV%1"}}},
                 {"LCDDecPoint", "03", {{m.point, "3"}}}};
  if (m.alphaNum != nullptr) fills.push_back({"LCDAlphaNum", "01", {{m.alphaNum, "True"}}});
  return fills;
}

/// The monitor's answer with `value` for `tag`.
void AnswerMonitor(PageDriver& driver, const Monitor& m, std::string_view tag, const std::string& value) {
  Fills fills = MonitorFills(m);
  for (Filled& row : fills) {
    if (row.tag == tag) row.value = value;
  }
  driver.AnswerFills(m.read * 100, fills);
}

TEST(Lcd, TheNodeOpensTheFirstMonitor) {
  PageDriver driver;
  EXPECT_EQ(driver.Items("cmbFunctionBlockMonit1"), "[]");
  driver.Activate("LCD Config");
  EXPECT_EQ(driver.Page(), "LCD / Monit1");
  EXPECT_TRUE(driver.Visible("frmLCD"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 29"});
  EXPECT_EQ(driver.Timer("TimerMonit1"), (Json{{"enabled", true}, {"interval", 5000}}));
  EXPECT_EQ(driver.Items("cmbLCDSwitch"), R"j(["1","2","3"])j");
  EXPECT_EQ(driver.Items("cmbLCDBargraph"), R"j(["False","True"])j");
  driver.Tab("SSTabLCD", 2);
  driver.Activate("LCD Config");
  EXPECT_EQ(driver.Get("SSTabLCD")["index"], 0);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 31", "read 29", "read 29"}));  // the tab's own read, then the node's
}

TEST(Lcd, TabsFillTheirListsOnceReadAndPollAlone) {
  PageDriver driver;
  driver.Activate("LCD Config");
  driver.Requests();
  for (const int tab : {1, 2, 3, 0}) {
    const Monitor& m = kMonitors[tab];
    SCOPED_TRACE(m.subPage);
    EXPECT_EQ(driver.Items(m.block), tab == 0 ? kBlockItems : "[]");  // the node has filled the first
    driver.Tab("SSTabLCD", tab);
    EXPECT_EQ(driver.Page(), "LCD / " + std::string(m.subPage));
    EXPECT_EQ(driver.Traffic(), Strings{"read " + std::to_string(m.read)});
    EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
    for (const Monitor& other : kMonitors) EXPECT_EQ(driver.Timer(other.timer)["enabled"], &other == &m) << other.timer;
    EXPECT_EQ(driver.Timer(m.timer)["interval"], 5000);
    EXPECT_EQ(driver.Items(m.block), kBlockItems);
    EXPECT_EQ(driver.Items(m.point), R"j(["1","2","3","4"])j");
    EXPECT_EQ(m.alphaNum == nullptr ? "" : driver.Items(m.alphaNum), tab == 3 ? "" : R"j(["False","True"])j");
    EXPECT_EQ(driver.Get(m.status)["items"].size(), 146U);
    driver.Choose(m.point, "4");
  }
  for (const int tab : {4, 5}) {
    driver.Tab("SSTabLCD", tab);
    EXPECT_EQ(driver.Page(), tab == 4 ? "LCD / Switch" : "LCD / Bargraph");
    EXPECT_EQ(driver.Traffic(), Strings{tab == 4 ? "read 33" : "read 34"});
    EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
    for (const Monitor& m : kMonitors) EXPECT_EQ(driver.Timer(m.timer)["enabled"], false) << m.timer;
  }
  for (const Monitor& m : kMonitors) {
    driver.Tab("SSTabLCD", m.tab);
    EXPECT_EQ(driver.Text(m.point), "4") << "filled again";
  }
}

TEST(Lcd, TheTimerRunsWhereTheReadFails) {
  PageDriver driver;
  driver.Activate("LCD Config");
  driver.Ok({{"do", "fail"}, {"reads", true}});
  driver.Tab("SSTabLCD", 1);
  EXPECT_EQ(driver.Timer("TimerMonit2")["enabled"], true);
}

TEST(Lcd, AnswersFillTheirFieldsInOrder) {
  for (const Monitor& m : kMonitors) {
    SCOPED_TRACE(m.subPage);
    ExpectFillsInOrder(m.read * 100, MonitorFills(m), [&](PageDriver& driver) { OpenMonitor(driver, m); });
  }
  ExpectFillsInOrder(3300, {{"LCDSwitch", "02", {{"cmbLCDSwitch", "2"}}}});
  ExpectFillsInOrder(3400, {{"LCDBargraph", "01", {{"cmbLCDBargraph", "True"}}}});
}

struct Field {
  const char* tag;
  std::string value;
  const char* Monitor::*control;
  std::string text;
};

TEST(Lcd, FormsOfTheAnswer) {
  const Field kForms[] = {
      {"LCDFunctionBlock", "FF", &Monitor::block, "None"},
      {"LCDFunctionBlock", "0005", &Monitor::block, "Analog Input 3"},
      {"LCDFunctionBlock", "02", &Monitor::block, "Transducer"},  // no block: the list keeps its text
      {"LCDRelIndex", "FFFF", &Monitor::index, "User Index"},
      {"LCDRelIndex", "FFFF", &Monitor::userIndex, "65535"},
      {"LCDRelIndex", "0", &Monitor::userIndex, "0"},
      {"LCDElement", "ff", &Monitor::element, "ff"},
      {"LCDElement", "01", &Monitor::element, "01"},
      {"LCDElement", "", &Monitor::element, ""},
      {"LCDMnemonic", Padded("4120255F2D3A5C7A"), &Monitor::mnemonic, "A %_-:\\z"},
      {"LCDMnemonic", "412B42", &Monitor::mnemonic, "A"},  // "+" is not among the characters shown
      {"LCDMnemonic", Padded(""), &Monitor::mnemonic, ""},
      {"LCDMnemonic", "4142434445464748494A4B4C4D4E4F50", &Monitor::mnemonic, "ABCDEFGHIJKLMNOP"},
      {"LCDDecPoint", "1", &Monitor::point, "1"},
      {"LCDDecPoint", "0002", &Monitor::point, "2"},
      {"LCDDecPoint", "04", &Monitor::point, "3"},  // written, but never shown
  };
  for (const Monitor& m : kMonitors) {
    for (const Field& form : kForms) {
      SCOPED_TRACE(std::string(m.subPage) + " " + form.tag + " " + form.value);
      PageDriver driver;
      OpenMonitor(driver, m);
      driver.AnswerFills(m.read * 100, MonitorFills(m));
      AnswerMonitor(driver, m, form.tag, form.value);
      EXPECT_EQ(driver.Text(m.*form.control), form.text);
    }
  }
}

TEST(Lcd, ANumberThatDoesNotFitEndsTheAnswer) {
  for (const char* tag : {"LCDFunctionBlock", "LCDDecPoint", "LCDAlphaNum"}) {
    SCOPED_TRACE(tag);
    PageDriver driver;
    OpenMonitor(driver, kMonitors[0]);
    AnswerMonitor(driver, kMonitors[0], tag, "1000000001");
    EXPECT_EQ(driver.Text("txtParameter(131)"), std::string_view(tag) == "LCDFunctionBlock" ? "" : "Whole Structure");
    EXPECT_EQ(driver.Text("cmbAlphaNumFieldMonit1"), "");
  }
  PageDriver driver;
  OpenMonitor(driver, kMonitors[0]);
  AnswerMonitor(driver, kMonitors[0], "LCDFunctionBlock", "10001");  // more than 16 bits
  EXPECT_EQ(driver.Text("txtParameter(131)"), "");
}

struct IndexRows {
  const char* block;
  std::string first;   // rows of monitors 1 to 3
  std::string fourth;  // rows of monitor 4
};
const IndexRows kIndexRows[] = {
    {"Transducer",
     R"j(["Sensor Value","Primary Value","Temperature","Secondary Value 1","Secondary Value 2","Press Lin Normal",)j"
     R"j("Press Normal","PV%","User Index"])j",
     R"j(["Target Mode","Mode Block","Cal Point Hi","Cal Point Lo","Sensor Unit","Primary Value Unit",)j"
     R"j("Temperature Unit","Linearization Type","Scale In","Scale Out","Low Flow Cut Off","Flow Lin Sqrt Point",)j"
     R"j("Cal Temperature","Backup Restore","Sensor Value","Primary Value","Temperature","Secondary Value 1",)j"
     R"j("Secondary Value 2","Press Lin Normal","Press Normal","PV%","User Index"])j"},
    {"Analog Input 1", R"j(["Out","User Index"])j",
     R"j(["Target Mode","Out","PV Scale","Out Scale","L Type","Channel","PV FTime","FSafe Type","FSafe Value",)j"
     R"j("Alarm Hys","Hi Hi Lim","Hi Lim","Lo Lim","Lo Lo Lim","Simulate","User Index"])j"},
    {"Analog Input 2", R"j(["Out","User Index"])j", ""},
    {"Analog Input 3", R"j(["Out","User Index"])j", ""},
    {"None", R"j(["Out","User Index"])j", ""},  // a block without rows leaves those that stand
    {"Physical", R"j(["Out","User Index","User Index"])j",
     R"j(["Write Locking","Factory Reset","Ident. Number Select","User Index"])j"},
    {"Physical", R"j(["Out","User Index","User Index","User Index"])j", ""},  // picked again
};

TEST(Lcd, TheBlockFillsTheListOfIndexes) {
  for (const Monitor& m : kMonitors) {
    SCOPED_TRACE(m.subPage);
    PageDriver driver;
    OpenMonitor(driver, m);
    EXPECT_EQ(driver.Items(m.index), "[]");
    std::string rows;
    for (const IndexRows& expected : kIndexRows) {
      driver.Choose(m.block, expected.block);
      if (m.tab < 3 || !expected.fourth.empty()) rows = m.tab < 3 ? expected.first : expected.fourth;
      EXPECT_EQ(driver.Items(m.index), rows) << expected.block;
    }
  }
}

// An answer fills the list by a new block, and adds nothing while the block stays.
TEST(Lcd, AnAnswersBlockFillsTheListOnce) {
  PageDriver driver;
  OpenMonitor(driver, kMonitors[0]);
  for (int answers = 0; answers < 2; ++answers) {
    AnswerMonitor(driver, kMonitors[0], "LCDFunctionBlock", "00");
    EXPECT_EQ(driver.Items("cmbRelativeIndexMonit1"), R"j(["User Index"])j");
  }
}

// What monitor 4 does not know in a block has no name there: the index list keeps its text, here none.
TEST(Lcd, AnIndexWithoutANameLeavesTheList) {
  PageDriver driver;
  OpenMonitor(driver, kMonitors[3]);
  Fills fills = MonitorFills(kMonitors[3]);
  fills[0].value = "00";  // Physical
  fills[1].value = "001B";
  driver.AnswerFills(3200, fills);
  EXPECT_EQ(driver.Text("cmbRelativeIndexMonit4"), "");
  EXPECT_EQ(driver.Text("txtParameter(58)"), "27");
  fills[1].value = "0012";
  driver.AnswerFills(3200, fills);
  EXPECT_EQ(driver.Text("cmbRelativeIndexMonit4"), "Write Locking");
}

TEST(Lcd, TheUserIndexIsShownWhereItIsAsked) {
  for (const Monitor& m : kMonitors) {
    SCOPED_TRACE(m.subPage);
    ScreenDriver driver;
    OpenMonitor(driver, m);
    driver.Choose(m.block, "Analog Input 2");
    EXPECT_EQ(driver.Row(m.userIndex), nullptr);
    driver.Choose(m.index, "User Index");
    EXPECT_TRUE(driver.Visible(m.userIndexLabel));
    EXPECT_EQ(driver.Row(m.userIndex)["name"], "Monitor, User Index");
    driver.Choose(m.index, "Out");
    EXPECT_FALSE(driver.Visible(m.userIndexLabel));
    EXPECT_EQ(driver.Row(m.userIndex), nullptr);
  }
}

TEST(Lcd, WritesItsFieldsAndReadsThemAgain) {
  for (const Monitor& m : kMonitors) {
    SCOPED_TRACE(m.subPage);
    PageDriver driver;
    OpenMonitor(driver, m);
    const std::string write = "write " + std::to_string(m.write) + ": ";
    driver.Click("cmdWriteParameter");  // nothing known yet: the texts are encoded as they stand
    EXPECT_EQ(driver.Traffic(), Strings{write + (m.alphaNum != nullptr ? ", , , , , " : ", , , , ")});
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    for (const Monitor& other : kMonitors) EXPECT_EQ(driver.Timer(other.timer)["enabled"], false);
    driver.Choose(m.block, "Analog Input 3");
    driver.Choose(m.index, "Out");
    driver.Type(m.element, "01");
    driver.Type(m.mnemonic, "Out 3");
    driver.Choose(m.point, "4");
    if (m.alphaNum != nullptr) driver.Choose(m.alphaNum, "True");
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    std::string expected = write + "05, 000A, 01, 4F75742033" + std::string(22, '0') + ", 04";
    if (m.alphaNum != nullptr) expected += ", 01";
    EXPECT_EQ(driver.Traffic(), (Strings{expected, "read " + std::to_string(m.read)}));
    EXPECT_EQ(driver.Timer(m.timer), (Json{{"enabled", true}, {"interval", 5000}}));
  }
}

struct Typed {
  const char* Monitor::*field;
  int attribute;  // from 1
  std::string text;
  std::string digits;
};

TEST(Lcd, FormsOfTheWrite) {
  const std::string sixteen = "4142434445464748494A4B4C4D4E4F50";
  const Typed kTyped[] = {
      {&Monitor::element, 3, "Whole Structure", "FF"},
      {&Monitor::element, 3, "whole Structure", "FF"},
      {&Monitor::element, 3, "Whole structure", "Whole structure"},
      {&Monitor::element, 3, "2", "02"},
      {&Monitor::element, 3, "02", "02"},
      {&Monitor::element, 3, "²", "0²"},
      {&Monitor::element, 3, "123", "123"},
      {&Monitor::element, 3, "", ""},
      {&Monitor::mnemonic, 4, "", ""},
      {&Monitor::mnemonic, 4, "PV%", Padded("505625")},
      {&Monitor::mnemonic, 4, "°C Ω", Padded("B043203F")},
      {&Monitor::mnemonic, 4, "ABCDEFGHIJKLMNO", Padded(sixteen.substr(0, 30))},
      {&Monitor::mnemonic, 4, "ABCDEFGHIJKLMNOP", sixteen},
      {&Monitor::mnemonic, 4, "ABCDEFGHIJKLMNOPQ", sixteen + "51"},
      {&Monitor::mnemonic, 4, "ABCDEFGHIJKLMNOPQRSTUVWX", sixteen + "5152535455565758"},
      {&Monitor::mnemonic, 4, "ABCDEFGHIJKLMNOPQRSTUVWXYZ", sixteen + "5152535455565758"},
      {&Monitor::userIndex, 2, "18", "0012"},
      {&Monitor::userIndex, 2, " 1,000 ", "03E8"},
      {&Monitor::userIndex, 2, "2.5", "0002"},
      {&Monitor::userIndex, 2, "65535", "FFFF"},
      {&Monitor::userIndex, 2, "65536", "10000"},
      {&Monitor::userIndex, 2, "-1", "FFFFFFFF"},
  };
  for (const Monitor& m : kMonitors) {
    PageDriver driver;
    OpenMonitor(driver, m);
    driver.Choose(m.block, "Physical");
    driver.Choose(m.index, "User Index");
    driver.Type(m.userIndex, "0");
    for (const Typed& typed : kTyped) {
      SCOPED_TRACE(std::string(m.subPage) + " " + typed.text);
      driver.Type(m.*typed.field, typed.text);
      driver.Click("cmdWriteParameter");
      const Json requests = driver.Requests();
      ASSERT_EQ(requests.size(), 1U);
      EXPECT_EQ(requests[0]["attributes"][static_cast<std::size_t>(typed.attribute - 1)], typed.digits);
    }
  }
}

TEST(Lcd, AUserIndexThatIsNoNumberSendsNothing) {
  for (const char* text : {"", "x", "3000000000"}) {
    SCOPED_TRACE(text);
    ScreenDriver driver;
    OpenMonitor(driver, kMonitors[1]);
    driver.Choose("cmbFunctionBlockMonit2", "Physical");
    driver.Choose("cmbRelativeIndexMonit2", "User Index");
    driver.Type("txtParameter(51)", text);
    driver.Write();
    EXPECT_EQ(driver.Traffic(), Strings{});
    EXPECT_EQ(driver.Timer("TimerMonit2")["enabled"], false) << "stopped before the failure";
    EXPECT_EQ(driver.Message(), std::string("Nothing sent: User Index: ") +
                                    (std::string_view(text).size() > 1 ? "Too many digits." : "No number."));
    // It does not matter while the parameter is chosen by its name.
    driver.Choose("cmbFunctionBlockMonit2", "Transducer");
    driver.Choose("cmbRelativeIndexMonit2", "PV%");
    driver.Write();
    EXPECT_EQ(driver.Traffic(), Strings{"write 25: 01, 006D, , , , "});
  }
}

TEST(Lcd, SwitchAndBargraphAreNotReadBack) {
  struct Case {
    int tab;
    const char* list;
    const char* text;
    Strings sent;
  };
  const Case kCases[] = {{4, "cmbLCDSwitch", "2", {"read 33", "write 28: 02"}},
                         {5, "cmbLCDBargraph", "False", {"read 34", "write 29: 00"}}};
  for (const Case& test : kCases) {
    SCOPED_TRACE(test.list);
    ScreenDriver driver(Driver::Simulated());
    driver.Activate("LCD Config");
    driver.Advance(100);
    driver.Requests();
    driver.Tab("SSTabLCD", test.tab);
    driver.Advance(100);
    EXPECT_EQ(driver.State(test.list), "as read");
    driver.Choose(test.list, test.text);
    driver.Write();
    EXPECT_EQ(driver.State(test.list), "sent");
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), test.sent);
    EXPECT_EQ(driver.Timer("TimerReadAfterWrite"), (Json{{"enabled", false}, {"interval", 0}}));
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    driver.Advance(10'000);
    EXPECT_EQ(driver.State(test.list), "sent");
    driver.Advance(1);
    EXPECT_EQ(driver.State(test.list), "not read back");
    EXPECT_EQ(driver.Words(test.list), "sent, not read back");
    EXPECT_EQ(driver.Footer(), "1 not read back");
    driver.Tab("SSTabLCD", 0);
    driver.SetList(test.list, "");
    driver.Tab("SSTabLCD", test.tab);
    driver.Advance(100);
    EXPECT_EQ(driver.Text(test.list), test.text);
    EXPECT_EQ(driver.State(test.list), "as read");
  }
}

// ---- with the simulated transmitter

constexpr int kSettled = 3000;  // a write, its re-read and the answer

TEST(LcdCommissioning, TheInstrumentsOwnSettingsAreShown) {
  const Strings kSettings[] = {{"Analog Input 1", "Out", "01", "AI1", "2"},
                               {"Transducer", "Primary Value", "01", "PV", "2"},
                               {"Transducer", "Temperature", "01", "TEMP", "2"},
                               {"Transducer", "Sensor Value", "01", "SENSOR", "2"}};
  PageDriver driver(Driver::Simulated());
  driver.Activate("LCD Config");
  for (const Monitor& m : kMonitors) {
    SCOPED_TRACE(m.subPage);
    driver.Tab("SSTabLCD", m.tab);
    driver.Advance(100);
    EXPECT_EQ((Strings{driver.Text(m.block), driver.Text(m.index), driver.Text(m.element), driver.Text(m.mnemonic),
                       driver.Text(m.point)}),
              kSettings[m.tab]);
    EXPECT_EQ(m.alphaNum == nullptr ? "" : driver.Text(m.alphaNum), m.tab == 3 ? "" : "True");
  }
}

// Every row of every list: what is written reads back as the same row.
TEST(LcdCommissioning, EveryIndexIsReadBackByItsName) {
  for (const Monitor& m : kMonitors) {
    ScreenDriver driver(Driver::Simulated());
    OpenMonitor(driver, m);
    driver.Advance(100);
    for (const char* block : {"Transducer", "Analog Input 1", "Analog Input 2", "Physical"}) {
      driver.Choose(m.block, block);
      const Json rows = driver.Get(m.index)["items"];
      EXPECT_GE(rows.size(), 2U);
      for (const Json& row : rows) {
        SCOPED_TRACE(std::string(m.subPage) + " " + block + " " + row.get<std::string>());
        driver.Choose(m.index, row.get<std::string>());
        driver.Type(m.userIndex, "4660");
        driver.Write();
        driver.Advance(kSettled);
        EXPECT_EQ(driver.State(m.index), "confirmed") << driver.Words(m.index);
        EXPECT_EQ(driver.Text(m.index), row);
      }
    }
    EXPECT_EQ(driver.Text(m.userIndex), "4660");
  }
}

TEST(LcdCommissioning, WhatIsWrittenStandsOnTheDisplay) {
  ScreenDriver driver(Driver::Simulated());
  driver.Activate("LCD Config");
  driver.Advance(100);
  driver.Choose("cmbFunctionBlockMonit1", "Transducer");
  EXPECT_EQ(driver.State("cmbRelativeIndexMonit1"), "not written");  // the other block's index is gone
  driver.Choose("cmbRelativeIndexMonit1", "PV%");
  driver.Type("txtParameter(132)", "LEVEL");
  driver.Choose("cmbDecimalPointMonit(0)", "4");
  driver.Choose("cmbAlphaNumFieldMonit1", "False");
  driver.Write();
  driver.Advance(kSettled);
  for (const char* field :
       {"cmbFunctionBlockMonit1", "cmbRelativeIndexMonit1", "txtParameter(132)", "cmbAlphaNumFieldMonit1"}) {
    EXPECT_EQ(driver.State(field), "confirmed") << field;
  }
  EXPECT_EQ(driver.State("cmbDecimalPointMonit(0)"), "sent");
  driver.Advance(10'000);
  EXPECT_EQ(driver.State("cmbDecimalPointMonit(0)"), "not read back");  // no answer shows a 4
  driver.Tab("SSTabLCD", 4);
  driver.Advance(100);
  driver.Choose("cmbLCDSwitch", "1");
  driver.Write();
  driver.Advance(kSettled);
  // 10 kPa of 37.4
  const auto line = [&] { return driver.Ok({{"do", "simulator"}, {"get", {"lcd"}}})["values"]["lcd"]; };
  EXPECT_EQ(line(), "26.7380 [===       ]");
  driver.Activate("LCD Config");
  driver.Advance(100);
  driver.Choose("cmbAlphaNumFieldMonit1", "True");
  driver.Write();
  driver.Advance(kSettled);
  EXPECT_EQ(line(), "LEVEL 26.7380 [===       ]");
}

}  // namespace
}  // namespace htr60::automation
