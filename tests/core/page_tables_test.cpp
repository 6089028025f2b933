#include <gtest/gtest.h>

#include "automate/driver.h"

namespace htr60 {
namespace {

using automation::Driver;
using Json = nlohmann::json;
using Sent = std::vector<std::string>;

struct RereadCase {
  const char* page;
  const char* subPage;
  const char* read;
};

constexpr const char* kAnySub = "whatever";

constexpr RereadCase kRereads[] = {
    {"Identification", kAnySub, "1"},
    {"TRD Settings", "TRD Settings", "5"},
    {"TRD Settings", "TRD Simulate", "43"},
    {"Primary Value Type", kAnySub, "79"},
    {"Auto Zero Trim", kAnySub, "57"},
    {"Factory Trd Input Scale", kAnySub, "6"},
    {"Trd Input Scale", kAnySub, "6"},
    {"Trd Level Input Scale", kAnySub, "6"},
    {"Trd Output Scale", kAnySub, "7"},
    {"Trd Level Output Scale", kAnySub, "7"},
    {"TRD Temp Unit", kAnySub, "8"},
    {"TRD Table", kAnySub, "9"},
    {"Analog Input 1", "AI Basic Settings", "10"},
    {"Analog Input 2", "AI Scales", "80"},
    {"Analog Input 3", "AI Alarm/Warning", "11"},
    {"Analog Input 1", "AI Fail Safe", "12"},
    {"Analog Input 2", "AI Simulate", "13"},
    {"Analog Input 3", "AI Mode Block", "14"},
    {"Calibration", "Calib Upper/Lower", "15"},
    {"Calibration", "Calib Temp", "18"},
    {"Density Calib", "Calib Temp", "18"},
    {"Calib Lower/Upper", kAnySub, "16"},
    {"Calib Upper", kAnySub, "17"},
    {"Calib Temp", kAnySub, "19"},
    {"Density Calib Temp", kAnySub, "19"},
    {"Char", kAnySub, "20"},
    {"Factory", kAnySub, "40"},
    {"LCD", "Monit1", "29"},
    {"LCD", "Monit2", "30"},
    {"LCD", "Monit3", "31"},
    {"LCD", "Monit4", "32"},
    {"LCD", "Switch", ""},
    {"Factory Sensor", "Factory Sensor", "46"},
    {"Factory Sensor", "Factory Sensor Lo", "46"},
    {"Factory Sensor", "Factory Remote Seal", "47"},
    {"Factory Sensor", "Factory Flange", "48"},
    {"Factory Sensor", "Factory Flange Lo", "48"},
    {"Factory Sensor", "Factory Polynomial", "49"},
    {"Factory Sensor", "Factory Gain/OffSet", "50"},
    {"Factory Sensor", "Factory Backup Restore", "55"},
    {"Cal Without Ref", kAnySub, "56"},
    {"Trd Density Input Scale", kAnySub, "61"},
    {"Trd Density Output Scale", kAnySub, "62"},
    {"Constant", kAnySub, "58"},
    {"Constant_Level", kAnySub, "58"},
    {"Concentration", kAnySub, "59"},
    {"Solid", kAnySub, "60"},
    {"TRD Density Settings", "Settings", "63"},
    {"TRD Density Settings", "Backup Restore", "40"},
    {"TRD Density Settings", "Simulate", "70"},
    {"TRD Density Settings", "Range Code", "71"},
    {"TRD Density", "Settings", ""},
    {"Density Calib", "Measured Type", "66"},
    {"Density Self Calib", "Measured Type", "66"},
    {"Density Calib", "Lower", "64"},
    {"Density Self Calib", "Upper", "64"},
    {"TRD Level Settings", "Settings", "69"},
    {"TRD Level Settings", "Simulate", "72"},
    {"TRD Level Settings", "Sensor Value", ""},
    {"Trd Volume Scale", kAnySub, "67"},
    {"Cal With Ref", "Cal Unit", "77"},
    {"Cal With Ref_", "Hi Press - Sns1", "73"},
    {"Cal With Ref-1", "Lo Press - Sns1", "74"},
    {"Cal With Ref-2", "Hi Press - Sns2", "75"},
    {"Cal With Ref", "Lo Press - Sns2", "76"},
    {"Observe", kAnySub, ""},
};

// A write arms the re-read; the page that is current when it fires decides what is read.
TEST(Reread, FollowsThePageThatIsCurrentThen) {
  Driver d(Driver::Captured());
  d.Init();
  d.Connect();
  d.Advance(2000);
  for (const RereadCase& r : kRereads) {
    SCOPED_TRACE(std::string(r.page) + " / " + r.subPage);
    d.SetMember("CurrentPage", "Identification");
    d.Ok({{"do", "click"}, {"control", "cmdWriteParameter"}, {"force", true}});
    EXPECT_EQ(d.Timer("TimerReadAfterWrite"), (Json{{"enabled", true}, {"interval", 2000}}));
    d.Sent();
    d.SetMember("CurrentPage", r.page);
    d.SetMember("SubPage", r.subPage);
    d.Advance(2000);
    const Json requests = d.Requests();
    EXPECT_EQ(requests.empty() ? "" : requests[0]["code"].get<std::string>(), r.read);
    if (std::string_view(r.page).starts_with("Analog Input ") && !requests.empty()) {
      EXPECT_EQ(requests[0]["attributes"][0], std::string(1, r.page[13]));
    }
    EXPECT_EQ(d.Timer("TimerReadAfterWrite"), (Json{{"enabled", false}, {"interval", 0}}));
    d.Ok({{"do", "activate"}, {"node", "Diagnosis"}});  // ends the monitors' timers
  }
}

TEST(Reread, ADisconnectedDeviceEndsTheTimerAndAFailedReadKeepsIt) {
  Driver d(Driver::Captured());
  d.Init();
  d.Connect();
  d.Advance(2000);
  d.Ok({{"do", "fail"}, {"reads", true}});
  d.Click("cmdWriteParameter");
  d.Advance(2000);
  EXPECT_EQ(d.Timer("TimerReadAfterWrite"), (Json{{"enabled", true}, {"interval", 2000}}));
  d.Ok({{"do", "fail"}, {"reads", false}});
  d.Sent();
  d.Advance(2000);
  EXPECT_EQ(d.Sent(), Sent{"read 1"});
  d.Click("cmdWriteParameter");
  d.Sent();
  d.Answer(9000, "<DTMInfo state='Offline' />");
  d.Advance(2000);
  EXPECT_EQ(d.Sent(), Sent{});
  EXPECT_EQ(d.Timer("TimerReadAfterWrite"), (Json{{"enabled", false}, {"interval", 0}}));
}

TEST(Write, NeedsAConnectionAndIsAnnouncedBeforeTheCall) {
  Driver d(Driver::Captured());
  d.Init();
  d.Advance(2000);
  d.Sent();
  d.Click("cmdWriteParameter");
  EXPECT_EQ(d.Sent(), Sent{});
  EXPECT_EQ(d.Member("BlockSelector"), "");
  d.Connect();
  d.Ok({{"do", "fail"}, {"writes", true}});
  d.Click("cmdWriteParameter");
  EXPECT_EQ(d.Sent(), Sent{});
  EXPECT_EQ(d.Member("BlockSelector"), "None");
  EXPECT_EQ(d.Ok({{"do", "status"}})["panels"][3]["text"], "Writing Xmtr Data...");
  EXPECT_TRUE(d.Timer("TimerReadAfterWrite")["enabled"].get<bool>());
  // Three writes before the timer fires give one re-read.
  d.Ok({{"do", "fail"}, {"writes", false}});
  for (int i = 0; i < 3; ++i) {
    d.Advance(500);
    d.Click("cmdWriteParameter");
  }
  d.Advance(10000);
  EXPECT_EQ(d.Sent(), (Sent{"write 1", "write 1", "write 1", "read 1"}));
}

TEST(Write, OnAnAnalogInputPageTheBlockIsChosenEvenWhereNothingIsSent) {
  Driver d(Driver::Captured());
  d.Init();
  d.Connect();
  d.SetMember("CurrentPage", "Analog Input 2");
  d.SetMember("SubPage", "AI Scales");
  d.Ok({{"do", "click"}, {"control", "cmdWriteParameter"}, {"force", true}});
  EXPECT_EQ(d.Sent(), Sent{});
  EXPECT_EQ(d.Member("BlockSelector"), "2");
}

struct BackCase {
  const char* page;
  const char* to;
  const char* subPage;  // "": kept
  const char* frame;    // "": none
  bool back;
  int write;  // 1 enabled, 0 disabled, -1 unchanged
};

constexpr BackCase kBacks[] = {
    {"Sensor Info", "Identification", "", "frmInfo", false, -1},
    {"Square Root", "TRD Settings", "TRD Settings", "frmTRDSettings", false, -1},
    {"TRD Table", "TRD Settings", "TRD Settings", "frmTRDSettings", false, -1},
    {"Trd Input Scale", "TRD Settings", "TRD Settings", "frmTRDSettings", false, -1},
    {"Trd Output Scale", "TRD Settings", "TRD Settings", "frmTRDSettings", false, -1},
    {"TRD Temp Unit", "TRD Settings", "TRD Settings", "frmTRDSettings", false, -1},
    {"Picture Table", "TRD Table", "", "frmTRDTable", true, -1},
    {"Calib Upper", "Calibration", "", "frmCalib", false, -1},
    {"Calib Graphic", "Calibration", "Calib Upper/Lower", "frmCalib", false, -1},
    {"AI Graphic", "Analog Input 1", "AI Alarm/Warning", "frmAI", false, -1},
    {"Factory Sensor", "Factory Password", "", "frmFactoryPassword", true, -1},
    {"Constant_Level", "Factory Password", "", "frmFactoryPassword", true, -1},
    {"Auto Zero Trim", "Factory Password", "", "frmFactoryPassword", true, -1},
    {"Char", "Factory Password", "", "frmFactoryPassword", true, -1},
    {"Factory Trd Input Scale", "Factory Password", "", "frmFactoryPassword", true, -1},
    {"Factory Password", "Factory", "", "frmfactory", true, -1},
    {"Method Char", "Char", "", "frmChar", true, 1},
    {"Result Char", "Char", "", "frmChar", true, 1},
    {"OffLine TRD Temp", "OffLine Transducer", "", "", false, -1},
    {"Constant", "TRD Density", "", "frmTRDDensity", false, -1},
    {"Concentration", "TRD Density", "", "frmTRDDensity", false, -1},
    {"Solid", "TRD Density", "", "frmTRDDensity", false, -1},
    {"Trd Density Input Scale", "TRD Density", "", "frmTRDDensity", false, -1},
    {"Trd Density Output Scale", "TRD Density", "", "frmTRDDensity", false, -1},
    {"Trd Level Input Scale", "TRD Level Settings", "", "frmTRDLevel", false, 0},
    {"Trd Level Output Scale", "TRD Level Settings", "", "frmTRDLevel", false, 0},
    {"Trd Volume Scale", "TRD Level Settings", "", "frmTRDLevel", false, 0},
    {"Density Calib Temp", "Density Calib Temp", "", "frmDensityCalib", false, -1},
    {"Cal With Ref", "Factory Sensor", "", "frmFactorySensorInfo", false, 0},
    {"Cal Without Ref", "Factory Sensor", "", "frmFactorySensorInfo", false, 0},
    {"Cal With Ref_", "Factory", "", "frmfactory", false, 0},
    {"Cal With Ref-1", "Calibration", "", "frmCalib", false, 0},
    {"Cal With Ref-2", "Density Calib", "", "frmDensityCalib", false, 0},
    {"Observe", "Observe", "", "", false, -1},
};

TEST(Back, LeadsWhereItsTableSaysAndReadsNothing) {
  for (const BackCase& b : kBacks) {
    for (const bool writeBefore : {true, false}) {
      SCOPED_TRACE(b.page);
      Driver d(Driver::Captured());
      d.Init();
      d.Activate(writeBefore ? "Factory" : "Diagnosis");
      d.Sent();
      d.SetMember("CurrentPage", b.page);
      d.SetMember("SubPage", "kept");
      d.Ok({{"do", "click"}, {"control", "cmdBack"}, {"force", true}});
      EXPECT_EQ(d.Member("CurrentPage"), b.to);
      EXPECT_EQ(d.Member("SubPage"), *b.subPage ? b.subPage : "kept");
      if (*b.frame) {
        EXPECT_TRUE(d.Get(b.frame).at("visible").get<bool>());
      } else {
        EXPECT_FALSE(d.Get("frmfactory").at("visible").get<bool>());
      }
      EXPECT_EQ(d.Get("cmdBack").at("enabled"), b.back);
      EXPECT_EQ(d.Get("cmdWriteParameter").at("enabled"), b.write < 0 ? writeBefore : b.write == 1);
      EXPECT_EQ(d.Sent(), Sent{});
    }
  }
}

TEST(Back, ShowsNoCalibrationPageOfADensityDevice) {
  Driver d(Driver::Captured());
  d.AnswerTags(7900, {{"TRDPVType", "0081"}});
  d.SetMember("CurrentPage", "Calib Temp");
  d.Ok({{"do", "click"}, {"control", "cmdBack"}, {"force", true}});
  EXPECT_EQ(d.Member("CurrentPage"), "Calibration");
  EXPECT_FALSE(d.Get("frmCalib").at("visible").get<bool>());
}

struct ListCase {
  const char* list;
  const char* node;  // "": filled at start
  std::size_t rows;
  const char* last;
};

TEST(Lists, AreFilledAtTheirMoment) {
  constexpr ListCase kLists[] = {
      {"cmbWriteProtection", "", 2, "Write Unlocked"},
      {"cmbPVType", "", 4, "Density"},
      {"cmbNrPoints", "", 20, "21"},
      {"cmbTempUnits", "", 3, "°F"},
      {"cmbMeasType", "", 14, "t/m³"},
      {"cmbCharOperation", "", 5, "Enable Curve"},
      {"cmbStatusChar", "", 146, "Uncertain"},
      {"cmbAIConfig", "", 2, "Config 2"},
      {"cmbSimulateEnable", "", 2, "Active"},
      {"cmbPrimaryValueType", "Pressure/Flow", 4, "Density"},
      {"cmbLinearizationType", "Pressure/Flow", 4, "Square Root & Table"},
      {"cmbPVSimulateEnable", "Pressure/Flow", 2, "Disable"},
      {"cmbMeasuredType", "Density/Concentration", 14, "t/m³"},
      {"cmbDensBackupRestore", "Density/Concentration", 6, "Backup Last Calibration"},
      {"cmbDensityRangeCode", "Density/Concentration", 3, "Range 3 (2.0 @ 5.0 g/cm³)"},
      {"cmbLevelCompensation", "Level", 2, "Disable"},
      {"cmbTRDLevelSimStatus", "Level", 146, "Uncertain"},
      {"cmbAIUnitOutScale", "Analog Input 1", 577, "CONC"},
      {"cmbTRDScaleAI", "Analog Input 1", 19, "°C"},
      {"cmbBackupRes(1)", "Factory", 6, "Backup Last Calibration"},
      {"cmbDecimalPointMonit(0)", "LCD Config", 4, "4"},
      {"cmbCalibUnit", "Calibration", 18, "mmHg (0°C)"},
      {"cmbUnitScaleOutput", "", 0, ""},
      {"CmbGSD", "", 0, ""},
  };
  for (const ListCase& l : kLists) {
    SCOPED_TRACE(l.list);
    Driver d(Driver::Captured());
    if (*l.node) {
      EXPECT_EQ(d.Get(l.list).at("items").size(), 0U);
      d.Init();
      d.Activate(l.node);
    }
    const Json items = d.Get(l.list).at("items");
    EXPECT_EQ(items.size(), l.rows);
    if (l.rows > 0) {
      EXPECT_EQ(items.back(), l.last);
    }
  }
}

// Either calibration page fills the temperature lists of both.
TEST(Lists, EitherCalibrationFillsBothTemperatureLists) {
  for (const char* type : {"0000", "0081"}) {
    Driver d(Driver::Captured());
    d.AnswerTags(7900, {{"TRDPVType", type}});
    d.Init();
    d.Activate("Calibration");
    for (const char* list : {"cmbCalibTempUnit", "cmbDensityTemp"}) {
      EXPECT_EQ(d.Get(list).at("items"), Json::array({"K", "°C", "°F"})) << type << " " << list;
    }
  }
}

TEST(Lists, AClosedListTakesItsRowsAlone) {
  Driver d(Driver::Captured());
  d.Init();
  d.Activate("Pressure/Flow");
  d.Ok({{"do", "choose"}, {"control", "cmbLinearizationType"}, {"text", "Square Root"}});
  d.Ok({{"do", "choose"}, {"control", "cmbLinearizationType"}, {"text", "None"}, {"force", true}});
  EXPECT_EQ(d.Text("cmbLinearizationType"), "Square Root");
  d.Ok({{"do", "choose"}, {"control", "cmbPVType"}, {"text", "Mpa"}, {"force", true}});
  EXPECT_EQ(d.Text("cmbPVType"), "Mpa");
}

}  // namespace
}  // namespace htr60
