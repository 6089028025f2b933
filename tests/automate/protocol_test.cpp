#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "driver.h"
#include "refused_commands.h"

namespace htr60::automation {
namespace {

/// What the control holds beside its form.
Json MembersAndTimers(Interpreter& interpreter) {
  return Json::array({interpreter.Do({{"do", "members"}}), interpreter.Do({{"do", "timers"}})});
}

TEST(Protocol, RefusedCommandsChangeNothing) {
  Driver driver(Driver::Captured());
  const Json before = MembersAndTimers(driver.Of());
  driver.Of().Control()->form.TakeChanges();
  std::istringstream lines{std::string(kRefusedCommands)};
  int count = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty()) continue;
    SCOPED_TRACE(line);
    driver.Refused(Json::parse(line));
    ASSERT_EQ(MembersAndTimers(driver.Of()), before);
    ASSERT_FALSE(driver.Of().Control()->form.HasChanges());
    ++count;
  }
  EXPECT_GT(count, 100);
  EXPECT_FALSE(driver.Of().Ended());
  EXPECT_EQ(driver.Shown(), Json::array());
  EXPECT_EQ(driver.Requests(), Json::array());
  EXPECT_EQ(driver.Answers(), Json::array());
  EXPECT_EQ(driver.Ok({{"do", "registrations"}})["registrations"], Json::array());
}

TEST(Protocol, NothingButCreateAndQuitWorksWithoutAControl) {
  Driver driver;
  for (const char* name : {"init", "release", "destroy", "advance", "get", "controls", "members", "requests", "shown",
                           "status", "tree", "timers", "simulator", "answers", "registrations", "docXml"}) {
    SCOPED_TRACE(name);
    driver.Refused({{"do", name}});
  }
  driver.Refused({{"do", "codec"}, {"name", "FloatToHex"}, {"args", {"1"}}});
  driver.Ok({{"do", "create"}});
  driver.Ok({{"do", "destroy"}});
  driver.Refused({{"do", "destroy"}});
  EXPECT_FALSE(driver.Of().Ended());
  driver.Ok({{"do", "quit"}});
  EXPECT_TRUE(driver.Of().Ended());
}

TEST(Protocol, CreateReplacesTheControlAndARefusedCreateDoesNot) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Advance(2500);
  driver.Type("txtParameter(0)", "here");
  driver.Refused({{"do", "create"}, {"dtm", "simulator"}, {"timing", {{"answerMs", -5}}}});
  EXPECT_EQ(driver.Text("txtParameter(0)"), "here");
  EXPECT_EQ(driver.Member("CurrentPage"), "Identification");
  driver.Ok({{"do", "create"}});
  EXPECT_EQ(driver.Text("txtParameter(0)"), "");
  EXPECT_EQ(driver.Member("CurrentPage"), "");
  EXPECT_EQ(driver.Requests(), Json::array());
}

TEST(Protocol, StartState) {
  Driver driver(Driver::Captured());
  EXPECT_EQ(driver.Ok({{"do", "status"}})["panels"],
            Json::parse(R"j([{"text":"","picture":null},{"text":""},{"text":""},{"text":""}])j"));
  const Json nodes = driver.Ok({{"do", "tree"}})["nodes"];
  ASSERT_GT(nodes.size(), 4U);
  EXPECT_EQ(nodes[3], Json::parse(R"j({"position":4,"text":"Blocks","parent":1,"picture":"edittrash",
    "selectedPicture":")j" + nodes[3]["selectedPicture"].get<std::string>() +
                                  R"j(","expanded":false,"selected":false})j"));
  const Json timers = driver.Ok({{"do", "timers"}})["timers"];
  EXPECT_EQ(timers["TimerInit"], Json::parse(R"j({"enabled":true,"interval":2000})j"));
  EXPECT_EQ(timers["TimerReadAfterWrite"], Json::parse(R"j({"enabled":false,"interval":600})j"));
  const Json members = driver.Ok({{"do", "members"}})["members"];
  EXPECT_EQ(members["DtmCore"], false);
  EXPECT_EQ(members["FirstVisitAi"], -1);
  EXPECT_EQ(members["FwFlagUserIdent"], 0);
  EXPECT_EQ(members["CurrentPage"], "");
  EXPECT_EQ(members["CharPointIndex"], 0);
  EXPECT_EQ(members["CharX"], Json::array({"", "", "", "", "", ""}));
  EXPECT_EQ(members["CharY"], members["CharX"]);
}

TEST(Protocol, EveryControlAnswersByItsKind) {
  Driver driver(Driver::Captured());
  const Json names = driver.Ok({{"do", "controls"}})["controls"];
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
  const Json controls = driver.Ok({{"do", "get"}, {"controls", names}})["controls"];
  ASSERT_EQ(controls.size(), names.size());
  const std::map<std::string, std::set<std::string>> kMembers = {
      {"text", {"text"}}, {"label", {"text"}},         {"button", {"text"}},   {"frame", {"text"}},
      {"picture", {}},    {"list", {"text", "items"}}, {"listbox", {"items"}}, {"tabs", {"index", "captions"}},
  };
  std::set<std::string> kinds;
  for (const auto& [name, control] : controls.items()) {
    SCOPED_TRACE(name);
    kinds.insert(control.at("kind"));
    std::set<std::string> expected = kMembers.at(control.at("kind"));
    expected.insert({"kind", "visible", "enabled"});
    if (name == "frmzGroup(34)" || name == "frmzGroup(61)") expected.insert("top");
    if (name.starts_with("frmGroupParameter(") && name < "frmGroupParameter(4)" && name.size() == 20) {
      expected.insert("height");
    }
    std::set<std::string> found;
    for (const auto& [member, value] : control.items()) found.insert(member);
    EXPECT_EQ(found, expected);
  }
  EXPECT_EQ(kinds.size(), kMembers.size());
  EXPECT_EQ(controls["frmzGroup(34)"]["top"], 3120);
  EXPECT_EQ(controls["frmGroupParameter(3)"]["height"], 960);
  EXPECT_EQ(controls["cmdSensorDetails"],
            Json::parse(R"j({"kind":"button","visible":true,"enabled":true,"text":"Sensor Details"})j"));
  EXPECT_EQ(controls["cmdBack"]["enabled"], false);
  EXPECT_EQ(controls["cmdTablePoints"]["visible"], false);
  EXPECT_EQ(controls["SSTabCalibWithRef(1)"]["index"], 0);
  EXPECT_EQ(controls["SSTabAI"]["captions"].size(), 7U);
}

TEST(Protocol, TheOperatorsHand) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Type("txtPassword",
              "12\xC2\xB5"
              "4567");
  EXPECT_EQ(driver.Text("txtPassword"),
            "12\xC2\xB5"
            "45");

  driver.Choose("cmbPVType", "Flow");
  EXPECT_EQ(driver.Text("cmbPVType"), "Flow");
  driver.Ok({{"do", "choose"}, {"control", "cmbPVType"}, {"row", 3}});
  EXPECT_EQ(driver.Text("cmbPVType"), "Density");
  driver.Ok({{"do", "choose"}, {"control", "cmbPVType"}, {"text", "Torque"}, {"force", true}});
  EXPECT_EQ(driver.Text("cmbPVType"), "Torque");
  driver.Ok({{"do", "choose"}, {"control", "cmbUnitScaleOutput"}, {"text", "Torque"}, {"force", true}});
  EXPECT_EQ(driver.Text("cmbUnitScaleOutput"), "");

  driver.Tab("SSTabAI", 3);
  EXPECT_EQ(driver.Get("SSTabAI")["index"], 3);

  // A button that cannot be pressed is refused; its handler can be run all the same.
  driver.SetMember("CurrentPage", "Sensor Info");
  driver.Refused({{"do", "click"}, {"control", "cmdBack"}, {"force", false}});
  EXPECT_EQ(driver.Member("CurrentPage"), "Sensor Info");
  driver.Ok({{"do", "click"}, {"control", "cmdBack"}, {"force", true}});
  EXPECT_EQ(driver.Member("CurrentPage"), "Identification");
}

TEST(Protocol, ActivatingANode) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Activate("Device Identification");
  EXPECT_EQ(driver.Member("CurrentPage"), "Identification");
  EXPECT_EQ(driver.Sent(), std::vector<std::string>{"read 1"});
  const Json nodes = driver.Ok({{"do", "tree"}})["nodes"];
  for (const Json& node : nodes) EXPECT_EQ(node["selected"], node["text"] == "Device Identification") << node;

  // No tree holds this node; its handler runs by the text alone and finds nothing to expand.
  driver.Activate("Blocks.");
  EXPECT_EQ(driver.Member("CurrentPage"), "OffLine Blocks");
  EXPECT_EQ(driver.Sent(), std::vector<std::string>{"read 91"});
  EXPECT_EQ(driver.Ok({{"do", "tree"}})["nodes"], nodes);
}

TEST(Protocol, RequestsAndRegistrations) {
  Driver driver(Driver::Captured());
  EXPECT_EQ(driver.Ok({{"do", "init"}, {"invokeId", "a<b"}})["result"], true);
  EXPECT_EQ(driver.Ok({{"do", "release"}})["result"], true);
  EXPECT_EQ(driver.Ok({{"do", "registrations"}})["registrations"], Json::parse(R"j([
    {"operation":"RegisterUI","className":"PrjMainWQ512DTM.MainWQ512DTM","invokeId":"a<b","number":0},
    {"operation":"UnregisterUI","invokeId":"a<b","number":-1}])j"));
  EXPECT_EQ(driver.Ok({{"do", "registrations"}})["registrations"], Json::array());
  EXPECT_EQ(driver.Member("DtmCore"), false);
  EXPECT_EQ(driver.Member("DtmCoreForEvents"), true);

  driver.Ok({{"do", "init"}, {"invokeId", "8"}});
  driver.SetMember("BlockSelector", "<\"&'\n>");
  driver.Activate("Device Identification");
  const Json requests = driver.Requests();
  ASSERT_EQ(requests.size(), 1U);
  EXPECT_EQ(requests[0]["kind"], "read");
  EXPECT_EQ(requests[0]["code"], "1");
  EXPECT_EQ(requests[0]["document"], driver.Member("RequestXml"));
  ASSERT_EQ(requests[0]["attributes"].size(), 24U);
  EXPECT_EQ(requests[0]["attributes"][0], "<\"&'\n>");
  EXPECT_EQ(requests[0]["attributes"][23], "None");

  driver.SetMember("ConnectionState", "Disconnected");
  driver.SetMember("RequestXml", "");
  driver.Activate("Blocks.");
  EXPECT_EQ(driver.Requests(), Json::parse(R"j([{"kind":"read","code":"91","document":"","attributes":[]}])j"));
}

TEST(Protocol, InitWithoutADtmObjectFails) {
  Driver driver(Driver::Captured());
  EXPECT_EQ(driver.Ok({{"do", "init"}, {"invokeId", "9"}, {"dtm", nullptr}})["result"], false);
  EXPECT_EQ(driver.Member("InvokeId"), "9");
  EXPECT_EQ(driver.Member("ParameterAccess"), false);
}

TEST(Protocol, FailingCallsAreNotRecorded) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Ok({{"do", "fail"}, {"reads", true}, {"codes", {"79"}}});
  driver.Activate("Primary Value Type");
  driver.Activate("Device Identification");
  EXPECT_EQ(driver.Sent(), std::vector<std::string>{"read 1"});

  driver.Connect();
  driver.Ok({{"do", "fail"}, {"reads", false}, {"writes", true}});
  driver.Activate("Primary Value Type");
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Sent(), std::vector<std::string>{"read 79"});
  driver.Ok({{"do", "fail"}, {"writes", false}});
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Sent(), std::vector<std::string>{"write 72"});
}

TEST(Protocol, AnswersByTagsAndByDocument) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Ok({{"do", "answer"}, {"code", 7900}, {"tags", Json::array({Json::array({"TRDPVType", "0002"})})}});
  EXPECT_EQ(driver.Text("cmbPVType"), "Level");
  driver.Ok({{"do", "answer"}, {"code", 7900}, {"tags", Json::array({Json::array({"TRDPVType", nullptr})})}});
  EXPECT_EQ(driver.Text("cmbPVType"), "Level");
  driver.Ok({{"do", "answer"}, {"code", 7900}, {"tags", Json::array({Json::array({"a\"<&\t", "\r\n>'"})})}});
  const Json answers = driver.Answers();
  ASSERT_EQ(answers.size(), 3U);
  EXPECT_EQ(
      answers[0],
      Json::parse(R"j({"code":7900,"document":"<Answer><Parameter tag=\"TRDPVType\" value=\"0002\"/></Answer>"})j"));
  EXPECT_EQ(answers[1]["document"], "<Answer><Parameter tag=\"TRDPVType\"/></Answer>");
  EXPECT_EQ(answers[2]["document"],
            "<Answer><Parameter tag=\"a&quot;&lt;&amp;&#9;\" value=\"&#13;&#10;&gt;'\"/></Answer>");
  EXPECT_EQ(driver.Answers(), Json::array());
}

TEST(Protocol, SettingMembers) {
  Driver driver(Driver::Captured());
  driver.SetMember("SubPage", "Monit1");
  driver.SetMember("OfflineAsked", -1);
  EXPECT_EQ(driver.Member("SubPage"), "Monit1");
  EXPECT_EQ(driver.Member("OfflineAsked"), -1);
  driver.SetMember("OfflineAsked", 0);
  EXPECT_EQ(driver.Member("OfflineAsked"), 0);
}

TEST(Protocol, PublicMembers) {
  Driver driver(Driver::Captured());
  Json values = Json::array();
  for (int i = 1; i <= 24; ++i) values.push_back(i == 2 ? "<&>" : "None");
  const std::string document = driver.Ok({{"do", "docXml"}, {"values", values}})["result"];
  EXPECT_EQ(AttributesOf(document), values);
  EXPECT_TRUE(document.starts_with("<ViewData><ControlData Attribute1=\"None\" Attribute2=\"")) << document;
  EXPECT_EQ(driver.Member("RequestXml"), "");

  driver.Ok({{"do", "call"}, {"name", "GetFactor1Unit"}, {"args", {"kPa"}}});
  driver.Ok({{"do", "call"}, {"name", "GetFactor2Unit"}, {"args", {"no unit"}}});
  EXPECT_EQ(driver.Text("txtParameter(197)"), "0.248642");
  EXPECT_EQ(driver.Text("txtParameter(198)"), "1");
}

TEST(Protocol, IconsAreLookedForInTheFolder) {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "htr60 icons";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "connected.ico") << "icon";
  Driver driver(Json{{"iconFolder", folder.string()}});
  driver.Connect();
  Json panels = driver.Ok({{"do", "status"}})["panels"];
  EXPECT_EQ(panels[0], Json::parse(R"j({"text":"Connected","picture":"connected.ico"})j"));
  driver.Answer(9000, "<DTMInfo state='Offline' />");
  panels = driver.Ok({{"do", "status"}})["panels"];
  EXPECT_EQ(panels[0], Json::parse(R"j({"text":"Disconnected","picture":null})j"));
  // An icon that has been found is not read again; one that was missing is looked for anew.
  std::filesystem::remove(folder / "connected.ico");
  std::ofstream(folder / "no connection.ico") << "icon";
  driver.Connect();
  EXPECT_EQ(driver.Ok({{"do", "status"}})["panels"][0]["picture"], "connected.ico");
  driver.Answer(9000, "<DTMInfo state='Offline' />");
  EXPECT_EQ(driver.Ok({{"do", "status"}})["panels"][0]["picture"], "no connection.ico");
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace htr60::automation
