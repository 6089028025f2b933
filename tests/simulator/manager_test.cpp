#include "bench.h"
#include "text/failure.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

TEST(Manager, AnswersComeLaterAndInOrder) {
  Bench bench(json{{"timing", {{"jitterMs", 200}}}});
  const std::vector<int> codes{1, 7, 90, 5, 6, 8, 10};
  for (const int code : codes) bench.Ask(code);
  EXPECT_TRUE(bench.receiver->answers.empty());
  bench.Advance(49);
  EXPECT_TRUE(bench.receiver->answers.empty());
  bench.Advance(250);
  ASSERT_EQ(bench.receiver->answers.size(), codes.size());
  for (std::size_t i = 0; i < codes.size(); ++i) EXPECT_EQ(bench.receiver->answers[i].first, codes[i] * 100);
}

TEST(Manager, ValuesAreThoseOfTheDueMoment) {
  Bench bench;
  bench.Ask(79);
  std::string result;
  bench.manager->WriteRequest("72", RequestOf({"0001"}), result);
  bench.Ask(79);
  bench.Advance(100);
  ASSERT_EQ(bench.receiver->answers.size(), 2U);
  EXPECT_EQ(ValueOf(bench.receiver->answers[0].second, "TRDPVType"), "0000");
  EXPECT_EQ(ValueOf(bench.receiver->answers[1].second, "TRDPVType"), "0001");
}

TEST(Manager, AnswersGoToTheReceiverOfTheMoment) {
  Bench bench;
  bool flag = false;
  bench.Ask(1);
  bench.manager->UnregisterUI("other", -1, flag);
  bench.manager->UnregisterUI("7", -1, flag);
  bench.Advance(1000);
  EXPECT_TRUE(bench.receiver->answers.empty());
  bench.Ask(1);
  bench.manager->RegisterUI("PrjMainWQ512DTM.MainWQ512DTM", "8", bench.receiver, 0, flag);
  bench.Advance(1000);
  EXPECT_EQ(bench.receiver->answers.size(), 1U);
}

TEST(Manager, RequestsBeyondTheQueueAreLost) {
  for (const json& settings : {json{{"timing", {{"answerMs", 100000}}}}, json{{"faults", {{{"kind", "lateBurst"}}}}}}) {
    SCOPED_TRACE(settings);
    Bench bench(settings);
    for (int i = 0; i < 4998; ++i) bench.Ask(52);
    bench.Advance(100);
    for (int i = 0; i < 2; ++i) bench.Ask(52);
    bench.Log();
    bench.Ask(7);
    std::string result;
    bench.manager->WriteRequest("36", RequestOf({"0000"}), result);
    EXPECT_EQ(result, "0");
    EXPECT_EQ(bench.Log(),
              (json{"100 ms read 7: lost, 5000 requests wait", "100 ms write 36: lost, 5000 requests wait"}));
    bench.Advance(200000);
    EXPECT_EQ(bench.receiver->answers.size(), 5000U);
    EXPECT_EQ(bench.Digits("writeLock"), "0999");
    bench.manager->ClearAllFaults();
    bench.Ask(7);
    bench.Advance(200000);
    EXPECT_EQ(bench.receiver->answers.size(), 5001U);
  }
}

TEST(Manager, TheLogKeepsItsNewestLines) {
  Bench bench(json{{"timing", {{"writeMs", 0}}}});
  std::string result;
  for (int i = 0; i < 20002; ++i) {
    bench.manager->WriteRequest("5", RequestOf({i % 2 == 0 ? "03E8" : "0000"}), result);
    bench.Advance(1);
  }
  const auto log = bench.manager->TakeLog();
  EXPECT_EQ(log.dropped, 2U);
  ASSERT_EQ(log.entries.size(), 20000U);
  EXPECT_TRUE(log.entries.front().starts_with("2 ms write 5")) << log.entries.front();
  EXPECT_EQ(bench.manager->TakeLog().dropped, 0U);
}

TEST(Manager, RequestsThatFail) {
  Bench bench;
  std::string result;
  for (const char* code : {"", "x", "7x", "-1", "1.5", "99999999999"}) {
    EXPECT_THROW(bench.manager->ReadRequest(code, RequestOf({}), result), RuntimeFailure) << code;
    EXPECT_THROW(bench.manager->WriteRequest(code, RequestOf({}), result), RuntimeFailure) << code;
  }
  const std::string whole = RequestOf({});
  std::string lacking = whole;
  lacking.replace(lacking.find("Attribute24"), 11, "Attribute25");
  for (const std::string& document : {std::string(), std::string("<ViewData/>"), lacking, whole.substr(0, 60)}) {
    EXPECT_THROW(bench.manager->WriteRequest("36", document, result), RuntimeFailure) << document;
    bench.receiver->answers.clear();
    bench.manager->ReadRequest("79", document, result);  // a read takes anything
    bench.Advance(60);
    EXPECT_EQ(bench.receiver->answers.size(), 1U);
  }
  bench.manager->ReadRequest("10", "<!DOCTYPE a><ViewData><ControlData Attribute1='2'/></ViewData>", result);
  bench.Advance(60);
  EXPECT_EQ(ValueOf(bench.receiver->answers.back().second, "AIChannel"), "0112");
}

TEST(Manager, LinkIsAnnouncedAndLosesRequests) {
  Bench bench;
  bench.Ask(1);
  bench.manager->SetOffline(true);
  EXPECT_EQ(bench.Read(90), "<DTMInfo state='Offline' />");
  EXPECT_EQ(bench.Read(91), "<DTMInfo state='Offline' />");
  EXPECT_EQ(bench.Read(1), "(none)");
  bench.manager->SetOffline(false);
  bench.receiver->answers.clear();
  bench.Advance(60);
  ASSERT_EQ(bench.receiver->answers.size(), 1U);
  EXPECT_EQ(bench.receiver->answers[0].first, 9000);
  EXPECT_EQ(bench.receiver->answers[0].second, "<DTMInfo state='Online' />");
  EXPECT_NE(bench.Read(1), "(none)");
}

TEST(Manager, AnswersMayNestAndLeadToRequests) {
  Bench bench;
  bench.Ask(1);
  bench.Ask(7);
  int depth = 0;
  bench.receiver->onAnswer = [&] {
    if (++depth > 3) return;
    bench.Ask(79);
    bench.Advance(200);  // an open message box lets the clock go on
  };
  bench.Advance(500);
  std::vector<std::int32_t> codes;
  for (const auto& answer : bench.receiver->answers) codes.push_back(answer.first);
  EXPECT_EQ(codes, (std::vector<std::int32_t>{100, 700, 7900, 7900, 7900}));
}

TEST(Manager, TheHostMayLetGoInsideAnAnswer) {
  auto bench = std::make_unique<Bench>();
  bench->Ask(1);
  bool flag = false;
  const auto receiver = bench->receiver;
  receiver->onAnswer = [&] {
    bench->manager->UnregisterUI("7", -1, flag);
    bench->receiver.reset();
  };
  const auto manager = bench->manager;
  EXPECT_TRUE(manager->RunOne(bench->now + 100));
  EXPECT_FALSE(manager->RunOne(bench->now + 100));
}

TEST(Manager, HookTellsOfNewItems) {
  Bench bench;
  int calls = 0;
  bench.manager->onScheduleChanged = [&] { ++calls; };
  EXPECT_FALSE(bench.manager->NextDue().has_value());
  bench.Ask(1);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(bench.manager->NextDue(), bench.now + 50);
}

std::vector<std::string> Story(bool readOften) {
  Bench bench(json::parse(R"({"device":{"primaryValueType":"Level","compensation":true,"sensorLagMs":800},
    "process":{"noise":20,"driftHi":500,"vessel":{"density":900,"level":2}},"timing":{"jitterMs":30,"seed":5}})"));
  std::vector<std::string> documents;
  bench.Write(7, {"1", "None", F8(4)});
  for (int i = 0; i < 20; ++i) {
    if (i == 7) bench.Process({{"vessel", {{"level", 2.5}}}});
    for (int k = 0; readOften && k < 5; ++k) bench.manager->Get({"pv", "lcd"});
    documents.push_back(bench.Read(26));
    bench.Advance(777);
  }
  return documents;
}

TEST(Manager, SameStorySameDocuments) {
  const auto once = Story(false);
  EXPECT_EQ(once, Story(false));
  EXPECT_EQ(once, Story(true)) << "reading changes nothing";
  EXPECT_NE(once.front(), once.back());
}

TEST(Manager, GetAndSetRefuseWhatTheyDoNotKnow) {
  Bench bench;
  EXPECT_THROW(bench.manager->Get({"nonsense"}), SettingsError);
  EXPECT_EQ(bench.manager->Get({"link"}).at("link"), "Online");
  EXPECT_EQ(bench.manager->Get({"pv"}).at("pv").at("unit"), "kPa");
  const std::vector<json> refused{
      {{"device", {{"tag", "X"}}}},
      {{"device", {{"parameters", {{"gravity", "41"}}}}}},
      {{"device", {{"parameters", {{"gravity", F8(100)}}}}}},
      {{"device", {{"parameters", {{"cutOff", F8(7)}, {"nonsense", "00"}}}}}},
      {{"device", {{"parameters", {{"cutOff", F8(7)}}}}}, {"process", {{"noise", -1}}}},
      {{"process", {{"pressureHi", 5}, {"pressure", 5}}}},
      {{"timing", {{"answerMs", "x"}}}},
      {{"nonsense", 1}},
  };
  const std::string before = bench.Read(26) + bench.Read(5);
  for (const auto& object : refused) {
    EXPECT_THROW(bench.manager->Set(object), SettingsError) << object.dump();
    EXPECT_EQ(bench.Read(26) + bench.Read(5), before) << object.dump();
  }
}

TEST(Manager, OnSiteChangesHaveSideEffectsAndNoLock) {
  Bench bench(json{{"device", {{"writeLocked", true}}}});
  bench.manager->Set({{"device",
                       {{"parameters",
                         {{"pvType", "0002"},
                          {"linType", "00"},
                          {"ai2.damping", F8(3)},
                          {"inUnit", "0471"},
                          {"inScale", F8(0.2) + F8(0)}}}}}});
  EXPECT_EQ(bench.Digits("outUnit"), "03F2");
  EXPECT_EQ(bench.Digits("ai2.damping"), F8(3));
  EXPECT_EQ(bench.Digits("inUnit"), "0471");
  EXPECT_EQ(bench.Digits("inScale"), F8(0.2) + F8(0));
}

TEST(Manager, AnotherFirmwareIsAnotherDevice) {
  Bench bench;
  bench.manager->Set({{"device", {{"firmware", "1.03"}}}});
  EXPECT_FALSE(bench.manager->Online());
  bench.Advance(5100);
  const std::string answer = bench.Read(1);
  EXPECT_EQ(ValueOf(answer, "PHYFirmware"), TextDigits("1.03", 16, ' '));
  EXPECT_EQ(ValueOf(answer, "ModemVersion"), "(missing)");
}

struct Case {
  const char* settings;
  const char* member;
};

TEST(Settings, ErrorsNameTheMember) {
  const std::vector<Case> cases{
      {R"({"devise":{}})", "devise"},
      {R"({"device":[]})", "device"},
      {R"({"device":{"firmware":"1.9"}})", "device.firmware"},
      {R"({"device":{"firmware":"4.20"}})", "device.firmware"},
      {R"({"device":{"firmware":"0.99"}})", "device.firmware"},
      {R"({"device":{"primaryValueType":"pressure"}})", "device.primaryValueType"},
      {R"({"device":{"sensorRangeHi":8}})", "device.sensorRangeHi"},
      {R"({"device":{"sensorRangeHi":2.5}})", "device.sensorRangeHi"},
      {R"({"device":{"tag":"123456789012345678901234567890123"}})", "device.tag"},
      {R"({"device":{"writeLocked":1}})", "device.writeLocked"},
      {R"({"process":{"noise":-1}})", "process.noise"},
      {R"({"process":{"vessel":{"rho":1}}})", "process.vessel.rho"},
      {R"({"process":{"profile":[{"atMs":0,"set":{"noise":"x"}}]}})", "process.profile[0].set.noise"},
      {R"({"process":{"profile":[{"set":{}}]}})", "process.profile[0].atMs"},
      {R"({"timing":{"answerMs":-1}})", "timing.answerMs"},
      {R"({"timing":{"seed":18446744073709551615}})", "timing.seed"},
      {R"({"faults":[{"kind":"offline"},{"kind":"nothing"}]})", "faults[1].kind"},
      {R"({"faults":[{"kind":"offline","sensor":"x"}]})", "faults[0].sensor"},
      {R"({"faults":[{"kind":"missingTag","tags":[1]}]})", "faults[0].tags"},
      {R"({"faults":{}})", "faults"},
  };
  for (const auto& c : cases) {
    try {
      Parse(json::parse(c.settings));
      ADD_FAILURE() << c.settings;
    } catch (const SettingsError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with(std::string(c.member) + ":")) << error.what();
    }
  }
  EXPECT_THROW(Bench(json{{"device", {{"parameters", {{"gravity", "41"}}}}}}), SettingsError);
  EXPECT_THROW(Bench(json{{"device", {{"parameters", {{"weight", "41"}}}}}}), SettingsError);
  EXPECT_EQ(Bench(json::parse(R"({"device":{"parameters":{"gravity":"411ce80a"}}})")).Digits("gravity"), "411CE80A");
}

TEST(Settings, ErrorsTellTheNamesThatThereAre) {
  const std::string longName(100, 'x');
  const struct {
    std::string settings;
    std::string sentence;
  } kCases[] = {
      {R"({"device":{"primaryValueType":"Levl"}})",
       R"(device.primaryValueType: there is no "Levl"; there are Pressure, Flow, Level, Density)"},
      {R"({"device":{"sensorModel":"Gouge"}})",
       R"(device.sensorModel: there is no "Gouge"; there are Gauge, Absolute)"},
      {R"({"devise":{}})", R"(devise: there is no "devise"; there are device, faults, process, timing)"},
      {R"({")" + longName + R"(":{}})",
       longName + ": there is no such name; there are device, faults, process, timing"},
      {R"({"device":{"height":1000}})", "device.height: the number goes from 0.05 to 100.0"},
      {R"({"device":{"sensorRangeHi":8}})", "device.sensorRangeHi: the number goes from 1 to 7"},
  };
  for (const auto& one : kCases) {
    try {
      Parse(json::parse(one.settings));
      ADD_FAILURE() << one.settings;
    } catch (const SettingsError& error) {
      EXPECT_EQ(error.what(), one.sentence);
    }
  }
}

TEST(Settings, PresetsRunAndHold) {
  const std::map<std::string, std::pair<std::int64_t, double>> pv{
      {"pressure", {1000, 10}}, {"flow", {1000, 50}},    {"level", {1000, 1.5}},
      {"density", {1000, 1.0}}, {"tank", {600000, 3.0}}, {"trim-course", {61000, 25.0 + 0.02 * 35 + 0.3}}};
  for (const auto name : PresetNames()) {
    SCOPED_TRACE(name);
    Bench bench(PresetObject(name));
    EXPECT_NE(bench.Read(26), "(none)");
    const auto row = pv.find(std::string(name));
    if (row == pv.end()) continue;
    bench.Advance(row->second.first);
    EXPECT_NEAR(bench.Value("pv"), row->second.second, 0.001);
  }
  EXPECT_THROW(PresetObject("none"), SettingsError);
  const json merged = MergeSettings(PresetObject("tank"), {{"process", {{"vessel", {{"level", 1}}}}}});
  EXPECT_EQ(merged.at("process").at("vessel").at("level"), 1);
  EXPECT_EQ(merged.at("process").at("vessel").at("density"), 850);
}

}  // namespace
}  // namespace htr60::sim
