#include <string>
#include <vector>

#include "driver.h"

namespace htr60::automation {
namespace {

using Strings = std::vector<std::string>;

// A disconnected control shows a box at every activation, and then goes on.
class Boxes : public testing::Test {
 protected:
  Boxes() : driver(Driver::Captured()) {
    driver.Init();
    driver.Advance(2000);
    driver.Answer(9000, "<DTMInfo state='Offline' />");
    driver.Sent();
    driver.Answers();
  }
  void Queue(const char* answers) { driver.Ok({{"do", "boxes"}, {"answers", Json::parse(answers)}}); }

  Driver driver;
};

TEST_F(Boxes, ABoxWithoutAQueuedAnswerGetsItsFirstButton) {
  driver.Activate("Observe");
  EXPECT_EQ(driver.Shown(), Json::parse(R"j([{"text":"Device is Disconnected!","caption":"Information",
    "icon":"information","buttons":["OK"],"answer":"OK"}])j"));
  EXPECT_EQ(driver.Shown(), Json::array());
  EXPECT_EQ(driver.Sent(), Strings{"read 91"});
}

TEST_F(Boxes, AnswersThatAreNoButtonAndClosingAreUsedUp) {
  Queue(R"j(["Perhaps","Close",{"answer":"OK","during":[{"do":"advance","ms":5}]}])j");
  for (int i = 0; i < 4; ++i) driver.Activate("Observe");
  const Json shown = driver.Shown();
  ASSERT_EQ(shown.size(), 4U);
  for (const Json& box : shown) EXPECT_EQ(box["answer"], "OK");
  EXPECT_FALSE(shown[1].contains("during"));
  EXPECT_EQ(shown[2]["during"], Json::parse(R"j([{"ok":true}])j"));
  EXPECT_FALSE(shown[3].contains("during"));
}

TEST_F(Boxes, CommandsRunWhileTheBoxIsOpen) {
  Queue(R"j([{"answer":"OK","during":[
    {"do":"answer","code":9000,"document":"<DTMInfo state='Online' />"},
    {"do":"requests"}, {"do":"get","controls":["frmInfo"]}, {"do":"timers"}, {"do":"members"}]}])j");
  driver.Activate("Device Identification");
  const Json during = driver.Shown()[0]["during"];
  ASSERT_EQ(during.size(), 5U);
  EXPECT_EQ(during[0], Json::parse(R"j({"ok":true})j"));
  EXPECT_EQ(during[1]["requests"], Json::array());  // read 91 goes out when the box is closed
  EXPECT_EQ(during[2]["controls"]["frmInfo"]["visible"], false);
  EXPECT_EQ(during[3]["timers"]["TimerInit"]["enabled"], false);
  EXPECT_EQ(during[4]["members"]["ConnectionState"], "Connected");
  EXPECT_EQ(driver.Sent(), Strings{"read 91"});
  EXPECT_EQ(driver.AnsweredCodes(), std::vector<int>{9000});
}

TEST_F(Boxes, ABoxMayOpenWhileAnotherIsOpen) {
  Queue(R"j([{"answer":"OK","during":[
    {"do":"answer","code":500,"tags":[["TRDPVType","0002"],["TRDLinType","00"]]},{"do":"advance","ms":1}]},
    {"answer":"OK","during":[{"do":"get","controls":["cmbPrimaryValueType"]}]}])j");
  driver.Activate("Observe");
  const Json shown = driver.Shown();
  ASSERT_EQ(shown.size(), 2U);  // in the order in which they opened
  EXPECT_EQ(shown[0]["caption"], "Information");
  EXPECT_EQ(shown[0]["during"], Json::parse(R"j([{"ok":true},{"ok":true}])j"));
  EXPECT_EQ(shown[1]["caption"], "Primary Value Type");
  EXPECT_EQ(shown[1]["during"][0]["controls"]["cmbPrimaryValueType"]["text"], "Level");
  EXPECT_EQ(driver.Sent(), Strings{"read 91"});
}

TEST_F(Boxes, TimeGoesOnWhileABoxIsOpen) {
  Driver simulated(Driver::Simulated());
  simulated.Init();
  simulated.Advance(3000);
  simulated.Ok({{"do", "simulator"}, {"fault", {{"kind", "offline"}}}});
  simulated.Advance(1000);
  EXPECT_EQ(simulated.Member("ConnectionState"), "Disconnected");
  simulated.Ok({{"do", "boxes"}, {"answers", Json::parse(R"j([{"answer":"OK","during":[
    {"do":"advance","ms":60000},{"do":"advance","ms":9007199254740992},{"do":"members"}]}])j")}});
  simulated.Activate("Observe");
  const Json during = simulated.Shown()[0]["during"];
  EXPECT_EQ(during[0]["ok"], true);
  EXPECT_EQ(during[1]["ok"], false);  // no clock goes that far
  EXPECT_EQ(during[2]["members"]["ConnectionState"], "Disconnected");
}

TEST(BoxInAnAdvance, TheInnerMayGoFurtherThanTheOuter) {
  Driver driver(Driver::Simulated({{"device", {{"primaryValueType", "Level"}}}}));
  driver.Init();
  driver.Advance(3000);
  driver.Activate("Observe");  // polls at 18000, 33000 and so on
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "unaskedAnswer"}, {"codes", {5}}}}});  // its handler shows a box
  driver.Ok(
      {{"do", "boxes"}, {"answers", Json::parse(R"j([{"answer":"OK","during":[{"do":"advance","ms":20000}]}])j")}});
  driver.Advance(1000);
  ASSERT_EQ(driver.Shown().size(), 1U);
  EXPECT_EQ(driver.Sent().back(), "read 26");
  driver.Advance(9999);  // from 23000, where the inner one ended
  EXPECT_EQ(driver.Sent(), Strings{});
  driver.Advance(1);
  EXPECT_EQ(driver.Sent(), Strings{"read 26"});
}

// Each box's `during` brings an answer whose handler opens the next one.
TEST_F(Boxes, NoBoxOpensWhileEightAreOpen) {
  const Json opens = Json::parse(R"j({"do":"answer","code":500,"tags":[["TRDPVType","0002"],["TRDLinType","00"]]})j");
  const Json last = Json::array({opens, {{"do", "advance"}, {"ms", 1}}, {{"do", "release"}}, {{"do", "timers"}}});
  Json answers = Json::array();
  for (int i = 0; i < 7; ++i) answers.push_back({{"answer", "OK"}, {"during", Json::array({opens})}});
  answers.push_back({{"answer", "OK"}, {"during", last}});
  for (int i = 0; i < 9; ++i) answers.push_back("OK");
  driver.Ok({{"do", "boxes"}, {"answers", answers}});
  driver.Activate("Observe");
  const Json shown = driver.Shown();
  ASSERT_EQ(shown.size(), 8U);
  for (int i = 0; i < 7; ++i) EXPECT_EQ(shown[i]["during"], Json::parse(R"j([{"ok":true}])j")) << i;
  const Json& during = shown[7]["during"];
  ASSERT_EQ(during.size(), 4U);
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(during[i], Json::parse(R"j({"ok":false,"error":"eight message boxes are open"})j"));
  EXPECT_TRUE(during[3]["ok"]);
  EXPECT_EQ(driver.AnsweredCodes(), std::vector<int>(7, 500));
  EXPECT_EQ(driver.Member("ParameterAccess"), true);
}

TEST(BoxInAnAdvance, WhatFallsDueWhileEightAreOpenWaitsInItsOrder) {
  Json faults = Json::array();
  for (const int code : {5, 5, 5, 5, 5, 5, 5, 5, 63, 5}) {
    faults.push_back({{"kind", "unaskedAnswer"}, {"codes", {code}}, {"atMs", 5000}});
  }
  Driver driver(Driver::Simulated({{"device", {{"primaryValueType", "Level"}}}, {"faults", faults}}));
  driver.Init();
  driver.Advance(3000);
  driver.AnsweredCodes();
  const Json further = Json::parse(R"j({"answer":"OK","during":[{"do":"advance","ms":0}]})j");
  driver.Ok({{"do", "boxes"}, {"answers", Json(20, further)}});
  driver.Advance(2000);
  const Json shown = driver.Shown();
  ASSERT_GE(shown.size(), 9U);
  EXPECT_FALSE(shown[7]["during"][0]["ok"]);  // the eighth
  EXPECT_EQ(shown[6]["during"], Json::parse(R"j([{"ok":true}])j"));
  // The ninth answer came when the eighth box had closed, and none was lost.
  EXPECT_EQ(driver.AnsweredCodes(), (std::vector<int>{500, 500, 500, 500, 500, 500, 500, 500, 6300, 500}));
}

TEST_F(Boxes, ALongQueueOfNestedAnswersDoesNotExhaustTheStack) {
  const Json nests = Json::parse(R"j({"answer":"OK","during":[
    {"do":"answer","code":500,"tags":[["TRDPVType","0002"],["TRDLinType","00"]]}]})j");
  driver.Ok({{"do", "boxes"}, {"answers", Json(20000, nests)}});
  driver.Activate("Observe");
  EXPECT_EQ(driver.Shown().size(), 8U);
}

TEST_F(Boxes, AReleaseWhileTheBoxIsOpenLeavesTheHandlerWithoutAChannel) {
  Queue(R"j([{"answer":"OK","during":[{"do":"release"},{"do":"members"}]}])j");
  driver.Activate("Device Identification");
  const Json during = driver.Shown()[0]["during"];
  EXPECT_EQ(during[0]["result"], true);
  EXPECT_EQ(during[1]["members"]["ParameterAccess"], false);
  EXPECT_EQ(driver.Sent(), Strings{});
  EXPECT_EQ(driver.Member("OfflineAsked"), -1);
}

TEST_F(Boxes, AnswersAndTimersAfterTheRelease) {
  Driver late(Driver::Simulated());
  late.Init();
  late.Activate("Observe");
  late.Ok({{"do", "release"}});
  late.Advance(40000);
  EXPECT_EQ(late.AnsweredCodes(), std::vector<int>{});  // nobody is registered any more
  EXPECT_EQ(late.Sent(), Strings{"read 26"});
  late.Answer(9000, "<DTMInfo state='Online' />");
  EXPECT_EQ(late.Member("ConnectionState"), "Connected");
  late.Ok({{"do", "destroy"}});
  late.Refused({{"do", "advance"}, {"ms", 1}});
}

}  // namespace
}  // namespace htr60::automation
