#include "page_driver.h"

namespace htr60::automation {
namespace {

const Fills kSensor = {
    {"SensorDiag", "04", {{"txtParameter(145)", "Low Capacitance Failure"}}},
    {"SensorConnected", "00", {{"txtParameter(142)", "Disconnected"}}},
    {"SensorInitialized", "AA", {{"txtParameter(141)", "Initialized"}}},
};

const Fills kOutputs = {
    {"SensorValue", "41280000", {{"txtParameter(65)", "10.500"}}},
    {"SpecificHeight", "3FA0000080", {{"txtParameter(138)", "1.250"}}},
    {"PrimaryValue",
     "4130000044",
     {{"txtParameter(174)", "11.000"}, {"txtParameter(312)", "Uncertain & Last Usable Value"}}},
    {"AI1Out", "4148000080", {{"txtParameter(150)", "12.500"}, {"txtParameter(313)", "Good (NC)"}}},
    {"AI2Out", "415800000C", {{"txtParameter(151)", "13.500"}, {"txtParameter(314)", "Bad & Device Failure"}}},
    {"AI3Out", "4168000010", {{"txtParameter(137)", "14.500"}, {"txtParameter(315)", "Bad & Sensor Failure"}}},
    {"SensorValueUnit", "046D", {{"lbArray(280)", "kPa"}}},
    {"PrimaryValueUnit", "0471", {{"lbArray(281)", "bar"}}},
    {"AI1OutUnit", "42C800004000000004750200", {{"lbArray(282)", "psi"}}},
    {"AI2OutUnit", "42C600004040000003F20200", {{"lbArray(283)", "m"}}},
    {"AI3OutUnit", "42C400004080000003E90200", {{"lbArray(183)", "°C"}}},
    {"TRDPVType", "0081", {}},
    {"MeasuredType", "05", {{"lbArray(471)", "Brix"}}},
};

Fills With(Fills fills, std::size_t row, const char* value) {
  fills[row].value = value;
  return fills;
}

TEST(Diagnosis, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(5100, kSensor);
  ExpectFillsInOrder(5400, kOutputs);
}

TEST(Diagnosis, TheScalesOfTheOutputsGoThroughFieldsOfTheBlockPage) {
  PageDriver driver;
  driver.AnswerFills(5400, kOutputs);
  EXPECT_EQ(driver.Text("txtParameter(129)"), "98.000") << "of the last of the three";
  EXPECT_EQ(driver.Text("txtParameter(130)"), "4.000");
}

TEST(Diagnosis, CodesWithoutATextEmptyTheFields) {
  PageDriver driver;
  driver.AnswerFills(5100, kSensor);
  driver.AnswerFills(5100, With(With(With(kSensor, 0, "7E"), 1, "7E"), 2, "01"));
  for (const char* field : {"txtParameter(145)", "txtParameter(142)", "txtParameter(141)"}) {
    EXPECT_EQ(driver.Text(field), "") << field;
  }
  driver.AnswerFills(5400, kOutputs);
  driver.AnswerFills(5400, With(With(With(kOutputs, 6, "0000"), 7, "0000"), 8, "42C80000400000009000"));
  for (const char* unit : {"lbArray(280)", "lbArray(281)", "lbArray(282)"}) EXPECT_EQ(driver.Text(unit), "") << unit;
  EXPECT_EQ(driver.Text("lbArray(283)"), "m");
}

TEST(Diagnosis, TheUnitOfTheWeightFollowsTheType) {
  struct Case {
    const char* type;
    const char* measured;
    const char* unit;
  };
  PageDriver driver;
  for (const Case& c : {Case{"0081", "05", "Brix"}, Case{"0000", "05", "g/cm³"}, Case{"0081", "0A", "lb/ft³"},
                        Case{"0081", "7E", "lb/ft³"}, Case{"7FFE", "0A", "g/cm³"}, Case{"0002", "", "g/cm³"}}) {
    driver.AnswerFills(5400, With(With(kOutputs, 11, c.type), 12, c.measured));
    EXPECT_EQ(driver.Text("lbArray(471)"), c.unit) << c.type << c.measured;
  }
  // The type is judged last: without it the caption stays.
  driver.AnswerFills(5400, kOutputs, "TRDPVType");
  EXPECT_EQ(driver.Text("lbArray(471)"), "g/cm³");
}

TEST(Diagnosis, AnAnswerThatNobodyReadsChangesNothing) {
  PageDriver driver;
  driver.AnswerFills(5400, kOutputs);
  const Json names = driver.Ok({{"do", "controls"}})["controls"];
  const Json before = driver.Ok({{"do", "get"}, {"controls", names}});
  driver.AnswerFills(5200, With(kOutputs, 0, "42280000"));
  EXPECT_EQ(driver.Ok({{"do", "get"}, {"controls", names}}), before);
}

// ---- tabs and timers

struct TabCase {
  int tab;
  Strings reads;  // in twelve seconds, the first at once
  const char* timer;
};

TEST(Diagnosis, EachTabReadsAndPollsItsOwn) {
  PageDriver driver;
  driver.Activate("Diagnosis");
  EXPECT_EQ(driver.Traffic(), (Strings{"read 51"}));
  driver.SetMember("SubPage", "kept");
  for (const TabCase& c :
       {TabCase{1, {"read 53", "read 53", "read 53"}, "TimerDiagnosisTab3"},
        TabCase{2, {"read 54", "read 54", "read 54"}, "TimerDiagnosisTab4"}, TabCase{0, {"read 51"}, nullptr}}) {
    SCOPED_TRACE(c.tab);
    driver.Tab("SSTabDiagnosis", c.tab);
    EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
    for (const char* timer : {"TimerDiagnosisTab3", "TimerDiagnosisTab4"}) {
      const bool runs = c.timer != nullptr && std::string_view(c.timer) == timer;
      EXPECT_EQ(driver.Timer(timer)["enabled"], runs) << timer;
      if (!runs) continue;
      EXPECT_EQ(driver.Timer(timer)["interval"], 6000);
    }
    driver.Advance(12000);
    EXPECT_EQ(driver.Traffic(), c.reads);
    EXPECT_EQ(driver.Page(), "Diagnosis / kept");
    EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
  }
  driver.Tab("SSTabDiagnosis", 2);
  driver.Activate("Observe");
  EXPECT_EQ(driver.Timer("TimerDiagnosisTab4")["enabled"], false);
}

// The document is stored afresh by the click, and the timers send it as it stands.
TEST(Diagnosis, TheTimersSendTheStoredDocument) {
  PageDriver driver;
  driver.Activate("AI 2 View");
  driver.Activate("Diagnosis");
  driver.Tab("SSTabDiagnosis", 2);
  EXPECT_EQ(driver.Requests().back()["attributes"][0], "None");
  driver.SetMember("RequestXml", "stored");
  driver.Advance(6000);
  EXPECT_EQ(driver.Requests().back()["document"], "stored");
  driver.Tab("SSTabDiagnosis", 1);
  driver.Requests();
  driver.SetMember("RequestXml", "again");
  driver.Advance(6000);
  EXPECT_EQ(driver.Requests().back()["document"], "again");
}

TEST(Diagnosis, ATabStartsItsTimerEvenIfItsReadFails) {
  PageDriver driver;
  driver.Activate("Diagnosis");
  driver.Ok({{"do", "fail"}, {"reads", true}});
  driver.Tab("SSTabDiagnosis", 2);
  EXPECT_EQ(driver.Timer("TimerDiagnosisTab4"), (Json{{"enabled", true}, {"interval", 6000}}));
  driver.Ok({{"do", "fail"}, {"reads", false}});
  driver.Requests();
  driver.Advance(6000);
  EXPECT_EQ(driver.Sent(), Strings{"read 54"});
}

TEST(Diagnosis, OpeningPutsTheFirstTabInFront) {
  PageDriver driver;
  driver.Activate("Diagnosis");
  driver.Tab("SSTabDiagnosis", 2);
  driver.Activate("Device Identification");
  driver.Requests();
  driver.Activate("Diagnosis");
  EXPECT_EQ(driver.Get("SSTabDiagnosis")["index"], 0);
  EXPECT_EQ(driver.Sent(), (Strings{"read 51", "read 51"})) << "the strip's own read, then the node's";
}

TEST(Diagnosis, ShowsVerdictsAndTheirShapes) {
  PageDriver driver;
  driver.Activate("Diagnosis");
  driver.AnswerFills(5100, With(kSensor, 2, "00"));
  const auto marks = [&] {
    Json found = Json::object();
    const Json rows = driver.Ok({{"do", "screen"}})["rows"];
    for (const Json& row : rows) {
      found[row["name"].get<std::string>()] = row["kind"].get<std::string>() + ":" + row["mark"].get<std::string>();
    }
    return found;
  };
  EXPECT_EQ(marks(), (Json{{"Sensor, Sensor Diag", "status:bad"},
                           {"Sensor, Sensor Connected", "text:uncertain"},
                           {"Sensor, Sensor Initialized", "text:uncertain"}}));
  driver.AnswerFills(5100, With(With(kSensor, 0, "00"), 1, "01"));
  EXPECT_EQ(marks(), (Json{{"Sensor, Sensor Diag", "status:"},
                           {"Sensor, Sensor Connected", "text:"},
                           {"Sensor, Sensor Initialized", "text:"}}));
  driver.Tab("SSTabDiagnosis", 2);
  driver.AnswerFills(5400, kOutputs);
  EXPECT_EQ(marks(), (Json{{"Delta Press, kPa", "value:"},
                           {"Specific Weight, Brix", "value:"},
                           {"Primary Value, Value, bar", "value:"},
                           {"Primary Value, Status", "status:uncertain"},
                           {"AI 1 Out, Value, psi", "value:"},
                           {"AI 1 Out, Status", "status:"},
                           {"AI 2 Out, Value, m", "value:"},
                           {"AI 2 Out, Status", "status:bad"},
                           {"AI 3 Out, Value, °C", "value:"},
                           {"AI 3 Out, Status", "status:bad"}}));
}

TEST(Diagnosis, TellsOfTheTransmittersFaults) {
  PageDriver driver(Driver::Simulated());
  driver.Activate("Diagnosis");
  driver.Advance(100);
  EXPECT_EQ(driver.Text("txtParameter(145)"), "None");
  EXPECT_EQ(driver.Text("txtParameter(142)"), "Connected");
  driver.Tab("SSTabDiagnosis", 1);
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "boardFailure"}}}});
  driver.Advance(6100);
  EXPECT_EQ(driver.Text("txtParameter(173)"), "9999.000");
  EXPECT_EQ(driver.Text("txtParameter(310)"), "Bad & Device Failure");
  driver.Tab("SSTabDiagnosis", 2);
  driver.Advance(100);
  EXPECT_EQ(driver.Text("txtParameter(312)"), "Bad & Device Failure");
  driver.Tab("SSTabDiagnosis", 0);
  driver.Advance(100);
  EXPECT_EQ(driver.Text("txtParameter(145)"), "Sensor Failure");
}

// ---- the operation that no strip invokes

TEST(SensorTab, StopsPollingAndReads) {
  struct Case {
    int index;
    const char* page;
    Strings reads;
    bool polls;
  };
  for (const Case& c : {Case{0, "Level / Sensor Value", {"read 53", "read 53"}, true},
                        Case{1, "Level / Sensor Info", {"read 46"}, false}}) {
    SCOPED_TRACE(c.index);
    PageDriver driver;
    driver.Activate("Level");
    driver.Tab("SSTabTRDLevel", 3);
    driver.SetMember("CurrentPage", "Level");
    driver.SetMember("RequestXml", "stored");
    driver.Ok({{"do", "click"}, {"control", "cmdWriteParameter"}, {"force", true}});
    driver.Of().Control()->form.cmdWriteParameter.SetEnabled(true);
    driver.Requests();
    driver.Ok({{"do", "operation"}, {"name", "SensorTab"}, {"index", c.index}});
    EXPECT_EQ(driver.Page(), c.page);
    EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
    EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
    EXPECT_EQ(driver.Timer("TimerSensorValue")["enabled"], false);
    EXPECT_EQ(driver.Timer("TimerDiagnosisTab3")["enabled"], c.polls);
    driver.Advance(6000);
    EXPECT_EQ(driver.Traffic(), c.reads);
  }
}

TEST(SensorTab, FillsTheSensorListsOnce) {
  PageDriver driver;
  driver.Ok({{"do", "operation"}, {"name", "SensorTab"}, {"index", 0}});
  EXPECT_EQ(driver.Items("cmbFlangeMaterial"), "[]");
  EXPECT_EQ(driver.Member("FirstVisitSensor"), -1);
  driver.Ok({{"do", "operation"}, {"name", "SensorTab"}, {"index", 1}});
  EXPECT_EQ(driver.Items("cmbFlangeMaterial"), R"(["Carbon Steel","Undefined","316 Stainless Steel"])");
  EXPECT_EQ(driver.Member("FirstVisitSensor"), 0);
  driver.SetList("cmbFlangeMaterial", "Undefined");
  driver.Ok({{"do", "operation"}, {"name", "SensorTab"}, {"index", 1}});
  EXPECT_EQ(driver.Text("cmbFlangeMaterial"), "Undefined") << "filling would empty it";
}

TEST(SensorTab, IsRefusedByAnotherNameOrIndex) {
  PageDriver driver;
  driver.Refused({{"do", "operation"}, {"name", "sensortab"}, {"index", 0}});
  driver.Refused({{"do", "operation"}, {"name", "SensorTab"}, {"index", 2}});
  driver.Refused({{"do", "operation"}, {"name", "SensorTab"}, {"index", -1}});
  EXPECT_TRUE(driver.Requests().empty());
}

}  // namespace
}  // namespace htr60::automation
