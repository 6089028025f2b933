#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "automate/driver.h"
#include "codecs/mAllUnits.h"
#include "codecs/mStatusProfibus.h"
#include "core/bare_control.h"
#include "form/control_names.h"

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

// The rows whose read nobody would guess from the page's name, and the pages that are read by several names.
constexpr RereadCase kRereads[] = {
    {"Factory Trd Input Scale", kAnySub, "6"},
    {"Constant_Level", kAnySub, "58"},
    {"Density Calib", "Calib Temp", "18"},
    {"Density Calib Temp", kAnySub, "19"},
    {"Density Self Calib", "Upper", "64"},
    {"Calib Lower/Upper", kAnySub, "16"},
    {"Calib Upper", kAnySub, "17"},
    {"Factory Sensor", "Factory Sensor Lo", "46"},
    {"Factory Sensor", "Factory Flange Lo", "48"},
    {"TRD Density Settings", "Backup Restore", "40"},
    {"Analog Input 3", "AI Mode Block", "14"},
    {"Cal With Ref_", "Hi Press - Sns1", "73"},
    {"Cal With Ref-1", "Lo Press - Sns1", "74"},
    {"LCD", "Switch", ""},
    {"TRD Density", "Settings", ""},
    {"TRD Level Settings", "Sensor Value", ""},
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

// Names that stay, blocks and frames that are not the page's own, buttons that change on the way.
constexpr BackCase kBacks[] = {
    {"AI Graphic", "Analog Input 1", "AI Alarm/Warning", "frmAI", false, -1},
    {"Density Calib Temp", "Density Calib Temp", "", "frmDensityCalib", false, -1},
    {"OffLine TRD Temp", "OffLine Transducer", "", "", false, -1},
    {"Calib Graphic", "Calibration", "Calib Upper/Lower", "frmCalib", false, -1},
    {"Trd Input Scale", "TRD Settings", "TRD Settings", "frmTRDSettings", false, -1},
    {"Trd Level Input Scale", "TRD Level Settings", "", "frmTRDLevel", false, 0},
    {"Constant_Level", "Factory Password", "", "frmFactoryPassword", true, -1},
    {"Factory Password", "Factory", "", "frmfactory", true, -1},
    {"Picture Table", "TRD Table", "", "frmTRDTable", true, -1},
    {"Method Char", "Char", "", "frmChar", true, 1},
    {"Cal With Ref", "Factory Sensor", "", "frmFactorySensorInfo", false, 0},
    {"Cal With Ref_", "Factory", "", "frmfactory", false, 0},
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

template <class Rows, class Visit>
void ForEachRow(Rows PageUnit::*rows, const Visit& visit) {
  for (const PageUnit* unit : PagesOfHtr60().units) {
    for (const auto& row : unit->*rows) visit(row);
  }
}

std::vector<std::string_view> NamesOf(const NameSet& set) {
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < set.Count(); ++i) names.push_back(set[i]);
  return names;
}

TEST(Tables, WhatIsWrittenIsReadAgain) {
  std::set<std::string> unread;
  ForEachRow(&PageUnit::writes, [&](const WriteRow& write) {
    for (const std::string_view page : NamesOf(write.pages)) {
      const auto subs = write.subPages.Any() ? std::vector<std::string_view>{kAnySub} : NamesOf(write.subPages.Set());
      for (const std::string_view sub : subs) {
        bool read = false;
        ForEachRow(&PageUnit::rereads, [&](const RereadRow& reread) {
          read = read || (reread.pages.Has(page) && reread.subPages.Has(sub) && reread.read > 0);
        });
        if (!read) unread.insert(std::string(page) + " / " + std::string(sub));
      }
    }
  });
  // The device's verdict on these two is seen when their tab is opened again.
  EXPECT_EQ(unread, (std::set<std::string>{"LCD / Bargraph", "LCD / Switch"}));
}

TEST(Tables, AWayBackLeadsToAFrameThatIsAPage) {
  std::set<std::string> nowhere;
  ForEachRow(&PageUnit::backs, [&](const BackRow& back) {
    for (const std::string_view page : NamesOf(back.pages)) {
      if (!back.to.frame) {
        nowhere.insert(std::string(page));
        continue;
      }
      const BareControl control;
      control->form.At(back.to.frame).SetVisible(true);
      EXPECT_EQ(control->form.FrameShownLast(), back.to.frame) << page;
    }
  });
  EXPECT_EQ(nowhere, (std::set<std::string>{"OffLine TRD Input", "OffLine TRD Output", "OffLine TRD Temp"}));
}

// Back from a page that a button has opened leaves that page's frame and its name. One page keeps the name of the page
// before it, and the common hide leaves its frame: from there the tree leads on.
TEST(Tables, APageThatAButtonOpensHasAWayBack) {
  std::set<std::string> opened;
  std::set<std::string> kept;
  ForEachRow(&PageUnit::buttons, [&](const ButtonRow& row) {
    const BareControl control;
    control->Click(row.button);
    if (!control->form.cmdBack.Enabled()) return;
    const std::string page = control->CurrentPage;
    opened.insert(page);
    SCOPED_TRACE(page);
    const FrameId frame = control->form.FrameShownLast();
    EXPECT_TRUE(control->form.At(frame).Visible());
    control->Click(id::cmdBack);
    if (frame == id::frmAITOTGraphic) {
      EXPECT_TRUE(control->form.At(frame).Visible());
      return;
    }
    EXPECT_FALSE(control->form.At(frame).Visible());
    if (control->CurrentPage == page) kept.insert(page);
  });
  EXPECT_EQ(opened.count("Trd Input Scale") + opened.count("TRD Table"), 2U);
  // Back keeps the name of the temperature's page, so its write goes on until a tab or node is chosen.
  EXPECT_EQ(kept, (std::set<std::string>{"Density Calib Temp"}));
}

TEST(Tables, AListHoldsARowOnce) {
  ForEachRow(&PageUnit::fills, [&](const FillRow& fill) {
    EXPECT_FALSE(fill.rows.empty()) << NameOf(fill.list);
    const std::set<std::string_view> rows(fill.rows.begin(), fill.rows.end());
    // The lists of all units and all statuses stand as they are in the device's tables.
    const bool ofTheDevice = fill.rows.data() == UnitListRows().data() || fill.rows.data() == StatusListRows().data();
    EXPECT_EQ(rows.size() < fill.rows.size(), ofTheDevice) << NameOf(fill.list);
  });
}

struct ListCase {
  const char* list;
  const char* node;  // "": filled at start
  const char* last;  // "": no rows
};

TEST(Lists, AreFilledAtTheirMoment) {
  constexpr ListCase kLists[] = {
      {"cmbWriteProtection", "", "Write Unlocked"},
      {"cmbPVType", "", "Density"},
      {"cmbNrPoints", "", "21"},
      {"cmbTempUnits", "", "°F"},
      {"cmbMeasType", "", "t/m³"},
      {"cmbCharOperation", "", "Enable Curve"},
      {"cmbStatusChar", "", "Uncertain"},
      {"cmbAIConfig", "", "Config 2"},
      {"cmbSimulateEnable", "", "Active"},
      {"cmbPrimaryValueType", "Pressure/Flow", "Density"},
      {"cmbLinearizationType", "Pressure/Flow", "Square Root & Table"},
      {"cmbPVSimulateEnable", "Pressure/Flow", "Disable"},
      {"cmbMeasuredType", "Density/Concentration", "t/m³"},
      {"cmbDensBackupRestore", "Density/Concentration", "Backup Last Calibration"},
      {"cmbDensityRangeCode", "Density/Concentration", "Range 3 (2.0 @ 5.0 g/cm³)"},
      {"cmbLevelCompensation", "Level", "Disable"},
      {"cmbTRDLevelSimStatus", "Level", "Uncertain"},
      {"cmbAIUnitOutScale", "Analog Input 1", "CONC"},
      {"cmbTRDScaleAI", "Analog Input 1", "°C"},
      {"cmbBackupRes(1)", "Factory", "Backup Last Calibration"},
      {"cmbDecimalPointMonit(0)", "LCD Config", "4"},
      {"cmbCalibUnit", "Calibration", "mmHg (0°C)"},
      {"cmbUnitScaleOutput", "", ""},
      {"CmbGSD", "", ""},
  };
  for (const ListCase& l : kLists) {
    SCOPED_TRACE(l.list);
    Driver d(Driver::Captured());
    if (*l.node) {
      EXPECT_TRUE(d.Get(l.list).at("items").empty());
      d.Init();
      d.Activate(l.node);
    }
    const Json items = d.Get(l.list).at("items");
    EXPECT_EQ(items.empty() ? "" : items.back(), l.last);
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
