#include <gtest/gtest.h>

#include "automate/driver.h"
#include "pages/pages.h"
#include "shell/user_cntrl.h"

namespace htr60 {
namespace {

using automation::Driver;
using Json = nlohmann::json;
using Sent = std::vector<std::string>;

TEST(Start, TheFormStandsAsDesigned) {
  Driver d(Driver::Captured());
  const Json names = d.Ok({{"do", "controls"}})["controls"];
  std::vector<std::string> visibleFrames;
  for (const std::string name : names) {
    if (name.starts_with("frm") && !name.starts_with("frmz") && !name.starts_with("frmGroup") &&
        name != "frmTreeView" && d.Get(name).at("visible").get<bool>()) {
      visibleFrames.push_back(name);
    }
  }
  EXPECT_EQ(visibleFrames, std::vector<std::string>{"frmInfo"});
  EXPECT_EQ(names.size(), kControlCount);
  EXPECT_FALSE(d.Get("cmdBack").at("enabled").get<bool>());
  EXPECT_FALSE(d.Get("cmdSave").at("enabled").get<bool>());
  EXPECT_TRUE(d.Get("cmdWriteParameter").at("enabled").get<bool>());
  EXPECT_EQ(d.Get("SSTabFactory").at("captions").at(4), " Hi/Lo Sensor Cal");
  EXPECT_EQ(d.Get("SSTabDensity").at("captions").at(6), "Others");
  EXPECT_EQ(d.Get("frmzGroup(61)").at("top"), 4560);
  EXPECT_EQ(d.Get("frmGroupParameter(2)").at("height"), 960);
  EXPECT_EQ(d.Text("lbArray(520)"), "Hi Sensor Limit");
  for (const char* hidden :
       {"txtParameter(7)", "lbArray(348)", "cmbTRDScaleAI", "PictMessageTable", "txtParameter(200)"}) {
    EXPECT_FALSE(d.Get(hidden).at("visible").get<bool>()) << hidden;
  }
  EXPECT_EQ(d.Timer("TimerInit"), (Json{{"enabled", true}, {"interval", 2000}}));
  EXPECT_EQ(d.Timer("TimerCalibRef"), (Json{{"enabled", false}, {"interval", 3000}}));
}

TEST(Start, ReadsStateThenIdentificationAfterTwoSeconds) {
  Driver d(Driver::Captured());
  d.Init();
  EXPECT_EQ(d.Ok({{"do", "registrations"}})["registrations"],
            Json::array({{{"operation", "RegisterUI"},
                          {"className", "PrjMainWQ512DTM.MainWQ512DTM"},
                          {"invokeId", "7"},
                          {"number", 0}}}));
  d.Advance(1999);
  EXPECT_EQ(d.Sent(), Sent{});
  EXPECT_EQ(d.Member("CurrentPage"), "");
  d.Advance(1);
  const Json requests = d.Requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0]["code"], "90");
  EXPECT_EQ(requests[1]["code"], "1");
  EXPECT_EQ(requests[0]["attributes"], Json(std::vector<std::string>(24, "None")));
  EXPECT_EQ(d.Member("CurrentPage"), "Identification");
  // The first two reads leave the traffic panel alone.
  EXPECT_EQ(d.Ok({{"do", "status"}})["panels"][3]["text"], "");
  d.Advance(100000);
  EXPECT_EQ(d.Sent(), Sent{});
}

TEST(Start, WithoutAFrameTheFirstReadFailsAndNothingElseHappens) {
  Driver d(Driver::Captured());
  d.Advance(2000);
  EXPECT_EQ(d.Member("RequestCode"), "90");
  EXPECT_EQ(d.Member("CurrentPage"), "");
  d.Init();
  d.Advance(60000);
  EXPECT_EQ(d.Sent(), Sent{});
  d.Activate("Device Identification");
  EXPECT_EQ(d.Sent(), Sent{"read 1"});
}

TEST(Start, AMissingDtmGivesFalseAndKeepsTheInvokeId) {
  Driver d(Driver::Captured());
  EXPECT_EQ(d.Ok({{"do", "init"}, {"invokeId", "9"}, {"dtm", nullptr}})["result"], false);
  EXPECT_EQ(d.Member("InvokeId"), "9");
  EXPECT_EQ(d.Member("ParameterAccess"), false);
}

TEST(Release, DropsTheChannelButNotTheSecondReference) {
  Driver d(Driver::Captured());
  EXPECT_EQ(d.Ok({{"do", "release"}})["result"], true);
  d.Init();
  d.Ok({{"do", "registrations"}});
  EXPECT_EQ(d.Ok({{"do", "release"}})["result"], true);
  EXPECT_EQ(d.Ok({{"do", "registrations"}})["registrations"],
            Json::array({{{"operation", "UnregisterUI"}, {"invokeId", "7"}, {"number", -1}}}));
  EXPECT_EQ(d.Member("DtmCore"), false);
  EXPECT_EQ(d.Member("DtmCoreForEvents"), true);
  d.Activate("Observe");
  EXPECT_EQ(d.Sent(), Sent{});
  EXPECT_EQ(d.Member("CurrentPage"), "Observe");  // set before the read failed
}

TEST(Connection, IsLearnedFromTheFirstCharactersAlone) {
  struct Case {
    const char* document;
    const char* state;
  };
  constexpr Case kCases[] = {
      {"<DTMInfo state='Online'/>", ""},  // one character short of a verdict
      {"<DTMInfo state='", ""},
      {"anything else", ""},
      {"<DTMInfo state='Online' />", "Connected"},
      {"<DTMInfo state='Online'/>", "Connected"},
      {"<DTMInfo state='Online'/>  ", "Disconnected"},
      {"<DTMInfo state='Online' /><junk", "Connected"},
      {"<DTMInfo state='Offline' />", "Disconnected"},
      {"<Answer></Answer>", "Disconnected"},
  };
  Driver d(Driver::Captured());
  d.Init();
  for (const Case& c : kCases) {
    d.Answer(9000, c.document);
    EXPECT_EQ(d.Member("ConnectionState"), c.state) << c.document;
    const Json panel = d.Ok({{"do", "status"}})["panels"][0];
    EXPECT_EQ(panel["text"], *c.state == 'C' ? "Connected" : "Disconnected") << c.document;
  }
}

TEST(Connection, EveryAnswerClearsTheTrafficPanel) {
  Driver d(Driver::Captured());
  d.Init();
  d.Activate("Device Identification");
  EXPECT_EQ(d.Ok({{"do", "status"}})["panels"][3]["text"], "Reading Xmtr Data...");
  d.Answer(4242, "no document at all");
  EXPECT_EQ(d.Ok({{"do", "status"}})["panels"][3]["text"], "");
}

TEST(Document, EscapesValuesAndKeepsAllPositions) {
  Driver d(Driver::Captured());
  Json values = Json(std::vector<std::string>(24, "None"));
  values[0] = "a<b>&\"'\t";
  values[23] = "";
  const std::string document = d.Ok({{"do", "docXml"}, {"values", values}})["result"];
  EXPECT_TRUE(
      document.starts_with("<ViewData><ControlData Attribute1=\"a&lt;b&gt;&amp;&quot;'&#9;\" Attribute2=\"None\""))
      << document;
  EXPECT_TRUE(document.ends_with(" Attribute24=\"\"/></ViewData>")) << document;
}

}  // namespace
}  // namespace htr60
