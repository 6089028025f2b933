#include <string>
#include <vector>

#include "driver.h"

namespace htr60::automation {
namespace {

using Strings = std::vector<std::string>;

TEST(VirtualTime, TheFirstReadsComeTwoSecondsAfterCreation) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Advance(1999);
  EXPECT_EQ(driver.Sent(), Strings{});
  driver.Advance(1);
  EXPECT_EQ(driver.Sent(), (Strings{"read 90", "read 1"}));
  EXPECT_EQ(driver.Timer("TimerInit")["enabled"], false);
  EXPECT_EQ(driver.Member("CurrentPage"), "Identification");
  driver.Advance(100000);
  EXPECT_EQ(driver.Sent(), Strings{});
}

TEST(VirtualTime, APollingTimerFiresForAsLongAsItRuns) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Advance(2000);
  driver.Activate("Observe");
  driver.Sent();
  driver.Advance(44999);
  EXPECT_EQ(driver.Sent(), (Strings{"read 26", "read 26"}));
  driver.Advance(0);
  EXPECT_EQ(driver.Sent(), Strings{});
  driver.Advance(1);
  EXPECT_EQ(driver.Sent(), Strings{"read 26"});
  driver.Activate("Device Identification");
  driver.Sent();
  driver.Advance(60000);
  EXPECT_EQ(driver.Sent(), Strings{});
}

TEST(VirtualTime, AnotherWriteBeginsTheWaitForTheReReadAnew) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Advance(2000);
  driver.Connect();
  driver.Activate("Primary Value Type");
  driver.Choose("cmbPVType", "Flow");
  driver.Click("cmdWriteParameter");
  driver.Advance(1500);
  driver.Click("cmdWriteParameter");
  driver.Sent();
  driver.Advance(1999);
  EXPECT_EQ(driver.Sent(), Strings{});
  driver.Advance(1);
  EXPECT_EQ(driver.Sent(), Strings{"read 79"});
  EXPECT_EQ(driver.Timer("TimerReadAfterWrite"), Json::parse(R"j({"enabled":false,"interval":0})j"));
}

TEST(VirtualTime, TheSimulatorAnswersAsTimePassesAndNeverInsideARequest) {
  Driver driver(Driver::Simulated({{"timing", {{"answerMs", 0}, {"announceState", false}}}}));
  driver.Init();
  driver.Activate("Device Identification");
  EXPECT_EQ(driver.Answers(), Json::array());
  EXPECT_EQ(driver.Ok({{"do", "status"}})["panels"][3]["text"], "Reading Xmtr Data...");
  driver.Advance(0);
  EXPECT_EQ(driver.AnsweredCodes(), std::vector<int>{100});
  EXPECT_EQ(driver.Ok({{"do", "status"}})["panels"][3]["text"], "");
}

TEST(VirtualTime, StartUpOnTheSimulator) {
  Driver driver(Driver::Simulated({{"timing", {{"answerMs", 50}}}}));
  driver.Init();
  driver.Advance(2049);
  EXPECT_EQ(driver.Sent(), (Strings{"read 90", "read 1"}));
  EXPECT_EQ(driver.Member("ConnectionState"), "");
  driver.Advance(1);
  EXPECT_EQ(driver.Member("ConnectionState"), "Connected");
  EXPECT_EQ(driver.Text("txtParameter(0)"), "HTR60-1");
  EXPECT_EQ(driver.Member("FwFlag109"), -1);
  const Json answers = driver.Answers();
  ASSERT_EQ(answers.size(), 2U);
  EXPECT_EQ(answers[0], Json::parse(R"j({"code":9000,"document":"<DTMInfo state='Online' />"})j"));
  EXPECT_EQ(answers[1]["code"], 100);
  EXPECT_TRUE(answers[1]["document"].get<std::string>().starts_with("<Answer><Parameter tag=\"TRDPVType\""));
}

TEST(VirtualTime, AtOneInstantAnswersComeBeforeTimers) {
  // The state answer and the re-read are due at the same time; the timer's test needs the state.
  Driver driver(Driver::Simulated({{"timing", {{"answerMs", 2000}}}}));
  driver.Init();
  driver.SetMember("ConnectionState", "Connected");
  driver.Activate("Primary Value Type");
  driver.Advance(2000);
  driver.Activate("Primary Value Type");  // read 79 is due at 4000
  driver.Choose("cmbPVType", "Flow");
  driver.Click("cmdWriteParameter");  // its re-read, too
  driver.SetMember("ConnectionState", "Disconnected");
  driver.Sent();
  driver.AnsweredCodes();
  driver.Advance(2000);
  // Read 90 of the start went out at 2000, before the read of the page: its answer connects first.
  EXPECT_EQ(driver.Member("ConnectionState"), "Connected");
  EXPECT_EQ(driver.Sent(), Strings{"read 79"});
}

TEST(VirtualTime, AtOneInstantTimersComeInTheOrderOfTheirArming) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Connect();
  driver.Advance(1000);
  driver.Activate("Primary Value Type");
  driver.Choose("cmbPVType", "Flow");
  driver.Advance(1000);  // the two reads of the start
  driver.Activate("Observe");
  driver.Sent();
  driver.Advance(13000);
  driver.SetMember("CurrentPage", "Primary Value Type");
  driver.Ok({{"do", "click"}, {"control", "cmdWriteParameter"}, {"force", true}});
  driver.Sent();
  driver.Advance(2000);
  EXPECT_EQ(driver.Sent(), (Strings{"read 26", "read 79"}));
}

TEST(VirtualTime, TheClockMovesBy366DaysAtMost) {
  constexpr std::int64_t kMost = 366LL * 86'400'000;
  Driver driver(Driver::Simulated({{"process", {{"noise", 5}}}}));
  driver.Init();
  driver.Refused({{"do", "advance"}, {"ms", kMost + 1}});
  driver.Refused({{"do", "advance"}, {"ms", std::int64_t{1} << 52}});
  driver.Refused({{"do", "advance"}, {"ms", -1}});
  EXPECT_EQ(driver.Sent(), Strings{});  // nothing has changed
  driver.Ok({{"do", "advance"}, {"ms", kMost}});
  EXPECT_EQ(driver.Sent(), (Strings{"read 90", "read 1"}));
  const Json pv = driver.Ok({{"do", "simulator"}, {"get", {"pv"}}})["values"]["pv"];
  EXPECT_NEAR(pv["value"].get<double>(), 10, 0.05);  // kPa, with noise of 7 Pa
}

TEST(Simulator, CommandsReachTheTransmitter) {
  Driver driver(Driver::Simulated());
  driver.Init();
  driver.Advance(3000);
  driver.Ok({{"do", "simulator"}, {"set", {{"process", {{"pressureHi", 25000}}}}}});
  driver.Advance(1000);
  const Json values = driver.Ok({{"do", "simulator"}, {"get", {"pv", "operResult"}}})["values"];
  EXPECT_EQ(values.at("pv").at("value"), 15);  // against the 10 kPa on the other sensor
  EXPECT_EQ(values.at("operResult"), "10");

  const Json fault = {{"kind", "readFails"}};
  const Json id = driver.Ok({{"do", "simulator"}, {"fault", fault}})["id"];
  ASSERT_TRUE(id.is_number_integer());
  driver.Sent();
  driver.Activate("Device Identification");
  EXPECT_EQ(driver.Sent(), Strings{});
  driver.Ok({{"do", "simulator"}, {"clear", id}});
  driver.Activate("Device Identification");
  EXPECT_EQ(driver.Sent(), Strings{"read 1"});
  driver.Ok({{"do", "simulator"}, {"fault", fault}});
  driver.Ok({{"do", "simulator"}, {"clear", "all"}});
  driver.Activate("Device Identification");
  EXPECT_EQ(driver.Sent(), Strings{"read 1"});
  EXPECT_TRUE(driver.Ok({{"do", "simulator"}, {"log", true}})["log"].is_array());
}

TEST(Simulator, ARefusedCommandHasNoPartOfItsEffect) {
  Driver driver(Driver::Simulated());
  driver.Init();
  driver.Advance(3000);
  const Json set = {{"process", {{"pressureHi", 30000}}}};
  driver.Refused({{"do", "simulator"}, {"set", set}, {"fault", {{"kind", "no such fault"}}}});
  driver.Refused({{"do", "simulator"}, {"set", set}, {"get", {"no such value"}}});
  driver.Refused({{"do", "simulator"}, {"set", set}, {"clear", 77}});
  driver.Refused({{"do", "simulator"}, {"set", {{"process", {{"pressure", 1}}}}}, {"clear", "all"}});
  driver.Advance(1000);
  const Json pv = driver.Ok({{"do", "simulator"}, {"get", {"pv"}}})["values"]["pv"];
  EXPECT_EQ(pv.at("value"), 10);
}

TEST(Simulator, EveryPresetStartsAndTakesSettingsOnTop) {
  for (const std::string_view preset : sim::PresetNames()) {
    SCOPED_TRACE(preset);
    Driver driver(Driver::Simulated({{"preset", preset}, {"device", {{"tag", "ON-TOP"}}}}));
    driver.Init();
    driver.Advance(3000);
    EXPECT_EQ(driver.Text("txtParameter(0)"), "ON-TOP");
  }
}

}  // namespace
}  // namespace htr60::automation
