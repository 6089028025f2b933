#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "automate/driver.h"

namespace htr60 {
namespace {

using automation::Driver;
using Json = nlohmann::json;
using Sent = std::vector<std::string>;

/// "Blocks > Factory", in the tree's order.
std::vector<std::string> TreeTexts(Driver& d) {
  std::vector<std::string> texts;
  const Json nodes = d.Ok({{"do", "tree"}})["nodes"];
  for (const Json& node : nodes) {
    const auto parent = node["parent"].get<std::size_t>();
    const std::string above = parent == 0 ? "" : nodes.at(parent - 1)["text"].get<std::string>() + " > ";
    texts.push_back(above + node["text"].get<std::string>());
  }
  return texts;
}

TEST(Tree, FollowsThePrimaryValueType) {
  Driver d(Driver::Captured());
  const std::vector<std::string> base = TreeTexts(d);
  EXPECT_EQ(base.at(5), "Blocks > Analog Input 1");
  EXPECT_EQ(base.back(), "Observe > AI 3 View");

  struct Step {
    const char* code;
    const char* node;  // at position 6
    bool rebuilt;
  };
  // Pressure and Flow share one tree; an unknown code decides on what the list shows.
  constexpr Step kSteps[] = {
      {"00FF", "Blocks > Analog Input 1", false},
      {"0000", "Primary Value Type > Pressure/Flow", true},
      {"0001", "Primary Value Type > Pressure/Flow", false},
      {"0002", "Primary Value Type > Level", true},
      {"7777", "Primary Value Type > Level", false},
      {"0002", "Primary Value Type > Level", false},
      {"0081", "Primary Value Type > Density/Concentration", true},
      {"0000", "Primary Value Type > Pressure/Flow", true},
  };
  for (const Step& step : kSteps) {
    d.Ok({{"do", "activate"}, {"node", "Observe"}});
    d.AnswerTags(7900, {{"TRDPVType", step.code}});
    const std::vector<std::string> texts = TreeTexts(d);
    EXPECT_EQ(texts.at(5), step.node) << step.code;
    EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), texts.size());
    // A type adds its own node and, under it, its calibration; all else stands as in the base tree.
    std::vector<std::string> rest = texts;
    if (step.node != base.at(5)) {
      EXPECT_EQ(std::erase(rest, step.node), 1U);
      const std::string_view type =
          std::string_view(step.node).substr(std::string_view("Primary Value Type > ").size());
      EXPECT_EQ(std::erase(rest, std::string(type) + " > Calibration"), 1U);
    }
    EXPECT_EQ(rest, base);
    // A rebuild loses the selection.
    EXPECT_EQ(d.Ok({{"do", "tree"}})["nodes"][1]["selected"], !step.rebuilt) << step.code;
  }
  const std::vector<std::string> texts = TreeTexts(d);
  const auto at = std::find(texts.begin(), texts.end(), "Pressure/Flow > Calibration") - texts.begin();
  const Json node = d.Ok({{"do", "tree"}})["nodes"].at(static_cast<std::size_t>(at));
  EXPECT_EQ(node["picture"], "konqueror8");
  EXPECT_EQ(node["selectedPicture"], "Biblio");
}

TEST(Tree, AParentStandsBeforeItsChildrenAndEveryNodeLeadsToAPage) {
  for (const char* type : {"00FF", "0000", "0002", "0081"}) {
    Driver d(Driver::Captured());
    d.Init();
    d.AnswerTags(7900, {{"TRDPVType", type}});
    const Json nodes = d.Ok({{"do", "tree"}})["nodes"];
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      SCOPED_TRACE(nodes[i]["text"]);
      EXPECT_LE(nodes[i]["parent"].get<std::size_t>(), i);
      d.SetMember("CurrentPage", "Before");
      d.Activate(nodes[i]["text"].get<std::string>());
      EXPECT_NE(d.Member("CurrentPage"), "Before");
    }
  }
}

TEST(Tree, AnUnknownTypeIsStoredWithTheOldText) {
  Driver d(Driver::Captured());
  d.AnswerTags(7900, {{"TRDPVType", "0002"}});
  d.SetMember("PreviousPVType", "");
  d.AnswerTags(7900, {{"TRDPVType", "0077"}});
  EXPECT_EQ(d.Member("PreviousPVType"), "Level");
}

struct NodeCase {
  const char* node;
  const char* page;
  const char* subPage;  // "": unchanged
  const char* frame;    // "": none
  bool write;
  const char* read;  // "": none
  const char* timer;
  int interval;
  const char* block;  // what Attribute1 carries
};

constexpr NodeCase kNodes[] = {
    {"Identification", "Identification", "", "frmInfo", true, "1", "", 0, "None"},
    {"OnLine Parameterize", "Identification", "", "frmInfo", true, "1", "", 0, "None"},
    {"Blocks", "Identification", "", "frmInfo", true, "1", "", 0, "None"},
    {"Primary Value Type", "Primary Value Type", "", "frmPrimaryValueType", true, "79", "", 0, "None"},
    {"Pressure/Flow", "TRD Settings", "TRD Settings", "frmTRDSettings", true, "5", "", 0, "None"},
    {"Density/Concentration", "TRD Density Settings", "Settings", "frmTRDDensity", true, "63", "", 0, "None"},
    {"Level", "TRD Level Settings", "Settings", "frmTRDLevel", true, "69", "", 0, "None"},
    {"Factory", "Factory", "Backup Restore", "frmfactory", true, "40", "", 0, "None"},
    {"Analog Input 2", "Analog Input 2", "AI Basic Settings", "frmAI", true, "10", "", 0, "2"},
    {"LCD Config", "LCD", "Monit1", "frmLCD", true, "29", "TimerMonit1", 5000, "None"},
    {"Calibration", "Calibration", "Calib Upper/Lower", "frmCalib", true, "15", "", 0, "None"},
    {"Calibration.", "Calibration", "Calib Upper/Lower", "frmCalib", true, "15", "", 0, "None"},
    {"Cal Backup & Restore", "Lower/Upper", "", "", true, "", "", 0, ""},
    {"Observe", "Observe", "", "frmDeviceView", false, "26", "TimerDeviceView", 15000, "None"},
    {"AI 3 View", "AI 3 View", "", "frmAIView", false, "27", "TimerAIView", 15000, "3"},
    {"Diagnosis", "Diagnosis", "", "frmDiagnosis", false, "51", "", 0, "None"},
    {"Transducer.", "OffLine Transducer", "", "", false, "91", "", 0, "None"},
    {"Sensor Trim", "Before", "", "", false, "", "", 0, ""},  // a text that nothing knows
};

TEST(NodeActivation, DoesWhatItsRowSays) {
  for (const NodeCase& n : kNodes) {
    SCOPED_TRACE(n.node);
    Driver d(Driver::Captured());
    d.Init();
    d.SetMember("CurrentPage", "Before");
    d.SetMember("SubPage", "Sub before");
    d.Activate(n.node);
    EXPECT_EQ(d.Member("CurrentPage"), n.page);
    EXPECT_EQ(d.Member("SubPage"), *n.subPage ? n.subPage : "Sub before");
    if (*n.frame) {
      EXPECT_TRUE(d.Get(n.frame).at("visible").get<bool>());
    }
    if (std::string_view(n.page) != "Identification") {
      EXPECT_FALSE(d.Get("frmInfo").at("visible").get<bool>());
    }
    if (std::string_view(n.page) != "Before") {
      EXPECT_EQ(d.Get("cmdWriteParameter").at("enabled"), n.write);
    }
    const Json requests = d.Requests();
    ASSERT_EQ(requests.size(), *n.read ? 1U : 0U);
    if (*n.read) {
      EXPECT_EQ(requests[0]["code"], n.read);
      EXPECT_EQ(requests[0]["attributes"][0], n.block);
      EXPECT_EQ(d.Ok({{"do", "status"}})["panels"][3]["text"], "Reading Xmtr Data...");
    }
    if (*n.timer) {
      EXPECT_EQ(d.Timer(n.timer), (Json{{"enabled", true}, {"interval", n.interval}}));
    }
  }
}

TEST(NodeActivation, CalibrationOfADensityDeviceHasAPageOfItsOwn) {
  Driver d(Driver::Captured());
  d.Init();
  d.AnswerTags(7900, {{"TRDPVType", "0081"}});
  d.Activate("Calibration");
  EXPECT_EQ(d.Member("CurrentPage"), "Density Calib");
  EXPECT_EQ(d.Member("SubPage"), "Measured Type");
  EXPECT_EQ(d.Member("CalibNodeText"), "Calibration");
  EXPECT_EQ(d.Sent(), Sent{"read 66"});
}

TEST(NodeActivation, TheBlockOfAnEarlierPageIsCarriedAlong) {
  Driver d(Driver::Captured());
  d.Init();
  d.Activate("Analog Input 3");
  d.Activate("Device Identification");
  EXPECT_EQ(d.Requests()[1]["attributes"][0], "3");
}

TEST(NodeActivation, EndsAllPollingAndListsAreFilledOnce) {
  Driver d(Driver::Captured());
  d.Init();
  d.Advance(2000);
  d.Sent();
  d.Activate("LCD Config");
  EXPECT_EQ(d.Get("cmbLCDSwitch").at("items").size(), 3U);
  d.Ok({{"do", "choose"}, {"control", "cmbLCDSwitch"}, {"text", "2"}});
  d.Advance(5000);
  const Json requests = d.Requests();
  EXPECT_EQ(requests[1]["code"], "41");
  d.Activate("Diagnosis");
  d.Advance(60000);
  EXPECT_EQ(d.Sent(), Sent{"read 51"});
  d.Activate("LCD Config");
  EXPECT_EQ(d.Text("cmbLCDSwitch"), "2");
}

TEST(Disconnected, ANodeShowsTheMessageAndThenAsksOnceForTheState) {
  Driver d(Driver::Captured());
  d.Init();
  d.Answer(9000, "<DTMInfo state='Offline' />");
  d.Ok({{"do", "boxes"},
        {"answers", Json::array({{{"answer", "OK"}, {"during", Json::array({{{"do", "requests"}}})}}})}});
  d.Activate("Observe");
  const Json boxes = d.Shown();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0]["text"], "Device is Disconnected!");
  EXPECT_EQ(boxes[0]["caption"], "Information");
  EXPECT_EQ(boxes[0]["icon"], "information");
  EXPECT_EQ(boxes[0]["during"][0]["requests"], Json::array());  // the read goes out only after the box
  const Json requests = d.Requests();
  ASSERT_EQ(requests.size(), 1U);
  EXPECT_EQ(requests[0]["code"], "91");
  EXPECT_EQ(requests[0]["document"], "");  // the stored document, still empty
  const Json blocks = d.Ok({{"do", "tree"}})["nodes"][3];
  EXPECT_EQ(blocks["selected"], true);
  EXPECT_EQ(blocks["expanded"], true);
  EXPECT_TRUE(d.Get("cmdSave").at("enabled").get<bool>());
  EXPECT_FALSE(d.Get("cmdWriteParameter").at("enabled").get<bool>());
  EXPECT_FALSE(d.Get("frmInfo").at("visible").get<bool>());
  EXPECT_EQ(d.Member("CurrentPage"), "");

  d.Activate("Observe");
  EXPECT_EQ(d.Shown().size(), 1U);
  EXPECT_EQ(d.Sent(), Sent{});
  d.Activate("Blocks.");
  EXPECT_EQ(d.Shown().size(), 0U);
  EXPECT_EQ(d.Member("CurrentPage"), "OffLine Blocks");
}

}  // namespace
}  // namespace htr60
