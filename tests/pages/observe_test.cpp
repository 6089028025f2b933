#include <malloc.h>

#include <algorithm>

#include "figures/figure.h"
#include "page_driver.h"

namespace htr60::automation {
namespace {

const Fills kDevice = {
    {"SensorValue", "41280000", {{"lbDeviceView(0)", "10.500"}}},
    {"TrimmedValue", "4130000080", {{"lbDeviceView(1)", "11.000"}}},
    {"CalPointHi", "42480000", {{"lbDeviceView(7)", "50.000"}}},
    {"CalPointLo", "C1200000", {{"lbDeviceView(5)", "-10.000"}}},
    {"CalMinSpan", "3F000000", {{"lbDeviceView(13)", "0.500"}}},
    {"CalUnit", "046D", {{"lbDeviceView(4)", "kPa"}}},
    {"Pressure", "4138000080", {{"lbDeviceView(2)", "11.500"}}},
    {"SensorHiLim", "42160000", {{"lbDeviceView(8)", "37.500"}}},
    {"SensorLoLim", "C2160000", {{"lbDeviceView(9)", "-37.500"}}},
    {"SensorHiLim_Lo", "42180000", {{"lbDeviceView(45)", "38.000"}}},
    {"SensorLoLim_Lo", "C2180000", {{"lbDeviceView(47)", "-38.000"}}},
    {"TRDPress_Hi", "43000000", {{"lbDeviceView(48)", "128.000"}}},
    {"TRDPress_Lo", "42F00000", {{"lbDeviceView(49)", "120.000"}}},
    {"LinType", "F0", {{"lbDeviceView(15)", "Sqrt&Table"}}},
    {"AIOutput",
     "42C800004000000004710200",
     {{"lbDeviceView(16)", "100.000"},
      {"lbDeviceView(17)", "2.000"},
      {"lbDeviceView(18)", "bar"},
      {"txtParameter(129)", "100.000"},
      {"txtParameter(130)", "2.000"}}},
    {"AI1Channel", "0112", {}},
    {"AI2Channel", "011D", {}},
    {"AI3Channel", "0000", {}},
    {"PrimaryValue", "4140000080", {{"lbDeviceView(19)", "12.000"}, {"lbDeviceView(55)", "Good (NC)"}}},
    {"TempValue",
     "41A400007F",
     {{"lbDeviceView(21)", "20.500"}, {"lbDeviceView(56)", "Uncertain"}, {"txtParameter(125)", "20.500"}}},
    {"TempUnit", "03E9", {{"lbDeviceView(22)", "°C"}}},
    {"TempMax", "42A00000", {{"lbDeviceView(23)", "80.000"}}},
    {"TempMin", "C1A00000", {{"lbDeviceView(24)", "-20.000"}}},
    {"TRDZeroFilter", "01", {{"lbDeviceView(60)", "True"}}},
    {"TRDInputScale",
     "42C6000040400000",
     {{"lbDeviceView(57)", "99.000"},
      {"lbDeviceView(58)", "3.000"},
      {"txtParameter(99)", "99.000"},
      {"txtParameter(100)", "3.000"}}},
    {"TRDPressUnit", "0475", {{"lbDeviceView(59)", "psi"}}},
    {"TRDCap_Hi", "453B8000", {{"lbDeviceView(3)", "3000.000"}}},
    {"TRDCap_Lo", "457A0000", {{"lbDeviceView(12)", "4000.000"}}},
    {"TRDCalTempPoint", "41C88000", {{"lbDeviceView(61)", "25.0625"}}},
    {"AI1Out", "4148000080", {{"txtParameter(150)", "12.500"}}},
    {"AI2Out", "4158000080", {{"txtParameter(150)", "13.500"}}},
    {"AI3Out", "4168000080", {{"txtParameter(150)", "14.500"}}},
    {"TRDPVType", "0081", {{"lbDeviceView(42)", "Density"}}},
};

const Fills kBlock = {
    {"AISimulate",
     "104128000001",
     {{"lbDeviceView(10)", "Active"}, {"lbDeviceView(25)", "10.500"}, {"lbDeviceView(26)", "Bad & Sensor Failure"}}},
    {"AIPrimaryValue",
     "4130000044",
     {{"lbDeviceView(40)", "11.000"}, {"lbDeviceView(51)", "Uncertain & Last Usable Value"}}},
    {"AIChannel", "011D", {{"lbDeviceView(28)", "SV1"}}},
    {"TRDPVType", "0001", {}},
    {"AIPVScale", "42C6000040400000", {{"lbDeviceView(29)", "99.000"}, {"lbDeviceView(30)", "3.000"}}},
    {"AIPVUnit", "046D", {{"lbDeviceView(31)", "kPa"}}},
    {"AIModeBlock", "10", {{"lbDeviceView(27)", "Man"}}},
    {"AIDamping", "3FC00000", {{"lbDeviceView(32)", "1.500 s"}}},
    {"AIFailSafeType", "01", {{"lbDeviceView(34)", "Last Usable Value"}}},
    {"AIFailSafeVal", "C1200000", {{"lbDeviceView(35)", "-10.000"}}},
    {"AIScaleOut",
     "42C800004000000004710200",
     {{"lbDeviceView(37)", "100.000"}, {"lbDeviceView(38)", "2.000"}, {"lbDeviceView(39)", "bar"}}},
    {"AIOut",
     "4148000080",
     {{"lbDeviceView(36)", "12.500"}, {"lbDeviceView(52)", "Good (NC)"}, {"cmbStatusAIModeBlock", "Good (NC)"}}},
};

Fills With(Fills fills, const std::string& tag, const std::string& value) {
  const auto row = std::find_if(fills.begin(), fills.end(), [&](const Filled& f) { return f.tag == tag; });
  if (row == fills.end()) {
    fills.push_back({tag, value, {}});
  } else {
    row->value = value;
  }
  return fills;
}

// Fields that several tags go through hold the last one's text: what they hold on the way is no matter.
Fills WithoutFields(Fills fills, std::initializer_list<const char*> fields) {
  for (Filled& row : fills) {
    std::erase_if(row.fields, [&](const auto& field) {
      return std::find(fields.begin(), fields.end(), field.first) != fields.end();
    });
  }
  return fills;
}

TEST(Observe, TheAnswerFillsItsLabelsInOrder) {
  ExpectFillsInOrder(2600, WithoutFields(kDevice, {"txtParameter(125)", "txtParameter(150)"}));
}

TEST(Observe, TheOutputStandsBehindItsChannel) {
  PageDriver driver;
  for (int i = 0; i < 2; ++i) {  // the second answer does not add to the first
    driver.AnswerFills(2600, kDevice);
    EXPECT_EQ(driver.Text("lbDeviceView(14)"), "PV: 12.500");
    EXPECT_EQ(driver.Text("lbDeviceView(11)"), "SV1: 13.500");
    EXPECT_EQ(driver.Text("lbDeviceView(20)"), "Disconnected: 14.500");
    EXPECT_EQ(driver.Text("txtParameter(150)"), "14.500");
  }
  driver.AnswerFills(2600, With(kDevice, "AI2Channel", "0113"), "AI3Out");
  EXPECT_EQ(driver.Text("lbDeviceView(11)"), ": 13.500") << "a channel without a name";
  EXPECT_EQ(driver.Text("lbDeviceView(20)"), "Disconnected") << "the answer ended before the output";
}

TEST(Observe, StatusesAreOneWord) {
  struct Case {
    const char* status;
    const char* word;
  };
  PageDriver driver;
  for (const Case& c : {Case{"00", "Bad"}, Case{"10", "Bad"}, Case{"3F", "Bad"}, Case{"40", "Uncertain"},
                        Case{"44", "Uncertain"}, Case{"7F", "Uncertain"}, Case{"80", "Good (NC)"},
                        Case{"C0", "Good (NC)"}, Case{"FF", "Good (NC)"}, Case{"", "Bad"}}) {
    const std::string value = std::string("41400000") + c.status;
    driver.AnswerFills(2600, With(With(kDevice, "PrimaryValue", value), "TempValue", value));
    EXPECT_EQ(driver.Text("lbDeviceView(55)"), c.word) << c.status;
    EXPECT_EQ(driver.Text("lbDeviceView(56)"), c.word) << c.status;
  }
}

TEST(Observe, LinearizationsAreShort) {
  struct Case {
    const char* code;
    const char* text;
  };
  PageDriver driver;
  for (const Case& c : {Case{"00", "None"}, Case{"01", "User Defined(Table)"}, Case{"0A", "Square Root"},
                        Case{"F0", "Sqrt&Table"}, Case{"FB", "None"}, Case{"7E", ""}}) {
    driver.AnswerFills(2600, With(kDevice, "LinType", c.code));
    EXPECT_EQ(driver.Text("lbDeviceView(15)"), c.text) << c.code;
  }
}

TEST(Observe, CodesWithoutATextEmptyAllLabelsButTheType) {
  PageDriver driver;
  driver.AnswerFills(2600, kDevice);
  Fills odd = kDevice;
  for (const char* tag : {"CalUnit", "TempUnit", "TRDPressUnit", "TRDPVType"}) odd = With(odd, tag, "7FFE");
  odd = With(With(odd, "TRDZeroFilter", "7E"), "AIOutput", "42C80000400000007FFE0200");
  driver.AnswerFills(2600, odd);
  for (const int label : {4, 18, 22, 59, 60}) {
    EXPECT_EQ(driver.Text("lbDeviceView(" + std::to_string(label) + ")"), "") << label;
  }
  EXPECT_EQ(driver.Text("lbDeviceView(42)"), "Density");
  EXPECT_EQ(driver.Text("lbDeviceView(61)"), "25.0625") << "the answer went on";
}

// ---- the views of the blocks

TEST(BlockView, TheAnswerFillsItsLabelsInOrder) { ExpectFillsInOrder(2700, kBlock); }

TEST(BlockView, FieldsOfOtherPagesAreUsedOnTheWay) {
  PageDriver driver;
  driver.AnswerFills(2700, kBlock);
  const std::pair<const char*, const char*> fields[] = {{"txtParameter(125)", "12.500"},
                                                        {"txtParameter(99)", "99.000"},
                                                        {"txtParameter(100)", "3.000"},
                                                        {"txtParameter(129)", "100.000"},
                                                        {"txtParameter(130)", "2.000"}};
  for (const auto& [field, text] : fields) EXPECT_EQ(driver.Text(field), text) << field;
  EXPECT_EQ(driver.Member("AiPvType"), "Flow");
  driver.AnswerFills(2700, With(kBlock, "TRDPVType", "7FFE"));
  EXPECT_EQ(driver.Member("AiPvType"), "Flow") << "a code without a text changes nothing";
}

TEST(BlockView, TheUnitComesAloneOrWithItsScale) {
  struct Case {
    const char* node;
    const char* type;
    const char* unit;
    const char* shown;
    bool ends;  // the value is no number of 32 bits
  };
  constexpr const char* kScale = "4248000041200000046D0200";
  PageDriver driver;
  for (const Case& c :
       {Case{"AI 1 View", "0000", "0471", "bar", false}, Case{"AI 1 View", "0000", kScale, "before", true},
        Case{"AI 2 View", "0000", kScale, "kPa", false}, Case{"AI 3 View", "0000", kScale, "kPa", false},
        Case{"AI 2 View", "0000", "424800004120000007FE0200", "before", false},
        Case{"AI 3 View", "0002", "03F2", "m", false}, Case{"AI 2 View", "0002", "07FE", "", false},
        Case{"AI 2 View", "0002", kScale, "before", true}}) {
    SCOPED_TRACE(std::string(c.node) + " " + c.type + " " + c.unit);
    driver.Activate(c.node);
    driver.Of().Control()->form.lbDeviceView(31).SetText("before");
    driver.Of().Control()->form.lbDeviceView(27).SetText("");
    driver.AnswerFills(2700, With(With(kBlock, "TRDPVType", c.type), "AIPVUnit", c.unit));
    EXPECT_EQ(driver.Text("lbDeviceView(31)"), c.shown);
    EXPECT_EQ(driver.Text("lbDeviceView(27)"), c.ends ? "" : "Man");
  }
}

TEST(BlockView, AlarmsAreListed) {
  struct Case {
    const char* word;
    const char* rows;
  };
  PageDriver driver;
  for (const Case& c :
       {Case{"0200", R"(["Upper Limit Alarm "])"}, Case{"0000", R"(["No Alarm"])"},
        Case{"0600", R"(["Upper Limit Alarm ","Upper Limit Warning "])"},
        Case{"1E00", R"(["Upper Limit Alarm ","Upper Limit Warning ","Lower Limit Alarm ","Lower Limit Warning "])"},
        Case{"8200", R"(["No Alarm"])"},  // cannot be read
        Case{"0100", "[]"}}) {
    driver.AnswerFills(2700, With(kBlock, "AIAlarm", std::string(c.word) + "000000000000"));
    EXPECT_EQ(driver.Items("LstAlarmAIView"), c.rows) << c.word;
  }
}

TEST(BlockView, NamesItsInputAndReadsItsBlock) {
  struct Case {
    const char* node;
    const char* block;
    const char* value;
  };
  for (const Case& c :
       {Case{"AI 1 View", "1", "PV_VAL"}, Case{"AI 2 View", "2", "SV1_VAL"}, Case{"AI 3 View", "3", "SV2_VAL"}}) {
    SCOPED_TRACE(c.node);
    PageDriver driver;
    driver.Activate(c.node);
    driver.SetMember("BlockSelector", "None");
    driver.Advance(30000);
    const std::string read = std::string("read 27: ") + c.block;
    EXPECT_EQ(driver.Traffic(), (Strings{read, read, read}));
    EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
    const Json screen = driver.Ok({{"do", "screen"}});
    EXPECT_EQ(screen["title"], c.node);
    EXPECT_EQ(screen["rows"][0]["caption"], c.value);
    EXPECT_EQ(screen["rows"][1]["caption"], std::string(c.value) + "_ST");
    EXPECT_EQ(screen["dataLine"], "Not read since opened");
  }
}

TEST(BlockView, ShowsUnitsAndVerdicts) {
  PageDriver driver;
  driver.Activate("AI 2 View");
  driver.AnswerFills(2700, With(kBlock, "AIAlarm", "0600000000000000"));
  const Json rows = driver.Ok({{"do", "screen"}})["rows"];
  struct Case {
    const char* control;
    const char* name;
    const char* mark;
  };
  for (const Case& c :
       {Case{"lbDeviceView(40)", "Input, SV1_VAL, kPa", ""}, Case{"lbDeviceView(51)", "Input, SV1_VAL_ST", "uncertain"},
        Case{"lbDeviceView(10)", "Simulate, Simulate Enable", "uncertain"},
        Case{"lbDeviceView(26)", "Simulate, Status", "bad"}, Case{"lbDeviceView(36)", "Output, Value, bar", ""},
        Case{"lbDeviceView(52)", "Output, Status", ""}, Case{"LstAlarmAIView", "Output, Alarm", "bad"}}) {
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Json& r) { return r["control"] == c.control; });
    ASSERT_NE(row, rows.end()) << c.control;
    EXPECT_EQ((*row)["name"], c.name);
    EXPECT_EQ((*row)["mark"], c.mark) << c.control;
  }
}

TEST(BlockView, TheOutputStandsOnItsScale) {
  struct Case {
    const char* scale;  // upper, lower, unit
    const char* output;
    Strings remarks;
    const char* sentence;
  };
  PageDriver driver;
  driver.Activate("AI 1 View");
  const auto figure = [&] { return driver.Ok({{"do", "screen"}})["figure"]; };
  EXPECT_EQ(figure()["sentence"], "No output scale read yet.");
  const Case cases[] = {
      {"42C80000400000000471", "4148000080", {}, "Output on its scale from 2.000 to 100.000 bar: 12.500 bar, Good."},
      {"4000000042C800000471",
       "4148000040",
       {},
       "Output on its scale from 100.000 to 2.000 bar: 12.500 bar, Uncertain."},
      {"42C80000400000000471",
       "3F80000080",
       {"Check: the output lies beyond Lower [EU (0%)]."},
       "Output on its scale from 2.000 to 100.000 bar: 1.000 bar, Good."},
      {"42C80000400000000471",
       "43C8000080",
       {"Check: the output lies beyond Upper [EU (100%)]."},
       "Output on its scale from 2.000 to 100.000 bar: 400.000 bar, Good."},
      {"4000000042C800000471",
       "43C8000080",
       {"Check: the output lies beyond Lower [EU (0%)]."},
       "Output on its scale from 100.000 to 2.000 bar: 400.000 bar, Good."},
      {"42C8000042C800000471",
       "4148000000",
       {"Check: upper and lower value are equal."},
       "Output on its scale from 100.000 to 100.000 bar: 12.500 bar, Bad."},
  };
  for (const Case& c : cases) {
    driver.AnswerFills(2700, With(With(kBlock, "AIScaleOut", c.scale), "AIOut", c.output));
    EXPECT_EQ(figure()["sentence"], c.sentence);
    EXPECT_EQ(figure()["remarks"], Json(c.remarks));
  }
  // The next block's page shows the labels of this one until its own answer has come; the figure does not.
  driver.Activate("AI 2 View");
  EXPECT_EQ(driver.Text("lbDeviceView(36)"), "12.500");
  EXPECT_EQ(figure()["sentence"], "No output scale read yet.");
}

TEST(BlockView, ThePointerStandsOnTheBarOrJustBeyondIt) {
  struct Case {
    const char* lower;
    const char* upper;
    const char* output;
    double pointer;
  };
  PageDriver driver;
  Form& form = driver.Of().Control()->form;
  for (const Case& c : {Case{"0", "100", "25", 25}, Case{"100", "0", "25", 25}, Case{"0", "100", "105", 105},
                        Case{"0", "100", "1E30", 110}, Case{"100", "0", "1E30", 110}, Case{"-50", "50", "-80", -60}}) {
    form.lbDeviceView(38).SetText(c.lower);
    form.lbDeviceView(37).SetText(c.upper);
    form.lbDeviceView(36).SetText(c.output);
    const Figure figure = ComputeFigure(FigureKind::kOutputBar, {.form = form,
                                                                 .decimalSeparator = '.',
                                                                 .known = [](ControlId) { return true; },
                                                                 .unwritten = [](ControlId) { return false; },
                                                                 .focus = {}});
    ASSERT_EQ(figure.markers.size(), 1U) << c.output;
    EXPECT_NEAR(figure.markers[0].at.x, c.pointer, 1e-9) << c.output;
    EXPECT_LT(std::min(figure.x.from, figure.x.to), c.pointer);
    EXPECT_GT(std::max(figure.x.from, figure.x.to), c.pointer);
    EXPECT_EQ(figure.x.from < figure.x.to, std::stod(c.lower) < std::stod(c.upper)) << "it runs from the lower value";
  }
}

// ---- polling

TEST(Observe, PollsWithTheDocumentOfTheLastRead) {
  PageDriver driver;
  driver.Activate("AI 2 View");
  driver.Activate("Observe");
  EXPECT_EQ(driver.Timer("TimerAIView")["enabled"], false);
  driver.Requests();
  driver.Advance(14999);
  EXPECT_TRUE(driver.Requests().empty());
  driver.SetMember("RequestXml", "stored");
  driver.Advance(1);
  const Json sent = driver.Requests();
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0]["code"], "26");
  EXPECT_EQ(sent[0]["document"], "stored");
  EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
  driver.Activate("Diagnosis");
  driver.Requests();
  driver.Advance(60000);
  EXPECT_TRUE(driver.Requests().empty()) << "any other page ends it";
}

// The heap in use; 0 where a sanitizer has its own.
std::size_t HeapInUse() { return mallinfo2().uordblks; }

TEST(Observe, AMonthOfPollingKeepsNothing) {
  constexpr int kDay = 24 * 60 * 60 * 1000;
  constexpr std::size_t kReadsADay = 24 * 60 * 4;
  struct Case {
    const char* node;
    int days;
  };
  for (const Case& c : {Case{"Observe", 30}, Case{"AI 2 View", 7}}) {
    SCOPED_TRACE(c.node);
    PageDriver driver(Driver::Simulated({{"process", {{"noise", 5}}}}));
    driver.Activate(c.node);
    driver.Advance(60000);
    const auto oneDay = [&] {
      driver.Requests();
      driver.Answers();
      driver.Advance(kDay);
      EXPECT_EQ(driver.Requests().size(), kReadsADay);
      EXPECT_EQ(driver.Answers().size(), kReadsADay);
    };
    oneDay();  // what grows once has grown
    oneDay();
    const std::size_t before = HeapInUse();
    const int days = before > 0 ? c.days : 3;  // where nothing can be measured the counts alone need no month
    for (int day = 2; day < days; ++day) oneDay();
    EXPECT_LE(HeapInUse(), before + 16 * 1024) << "bytes more than after two days";
  }
}

TEST(Observe, ASlowDeviceMakesNoBurst) {
  PageDriver driver(Driver::Simulated());
  driver.Activate("Observe");
  driver.Advance(100);
  driver.Requests();
  driver.Answers();
  const Json fault = driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "slowAnswer"}, {"ms", 300000}}}});
  for (int minute = 0; minute < 10; ++minute) {
    driver.Advance(60000);
    const std::string line = driver.Ok({{"do", "screen"}})["dataLine"];
    EXPECT_EQ(line.starts_with("No answer since"), minute < 5) << minute << line;
    EXPECT_EQ(driver.Sent(), (Strings{"read 26", "read 26", "read 26", "read 26"})) << minute;
  }
  const std::size_t answered = driver.Answers().size();
  EXPECT_LE(answered, 21U) << "half of them are still on their way";
  driver.Ok({{"do", "simulator"}, {"clear", fault.at("id")}});
  std::size_t late = 0;
  for (int minute = 0; minute < 90; ++minute) {
    driver.Advance(60000);
    EXPECT_EQ(driver.Sent(), (Strings{"read 26", "read 26", "read 26", "read 26"})) << minute;
    late += driver.Answers().size();
  }
  EXPECT_EQ(answered + late, 400U) << "every read has its one answer";
  EXPECT_EQ(driver.Ok({{"do", "screen"}})["dataLine"], "Read 01:40:02, every 15 s");
}

}  // namespace
}  // namespace htr60::automation
