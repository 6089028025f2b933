#include "pages/pages.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "codecs/status_tables.h"
#include "codecs/unit_tables.h"
#include "pages/calibration_units.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::analog_input {
namespace {

constexpr NameSet kPages{"Analog Input 1", "Analog Input 2", "Analog Input 3"};

void SelectBlock(UserCntrl& c) { c.SelectBlockOfPage(); }

void SelectNodesBlock(UserCntrl& c, std::string_view node) { c.BlockSelector = node.substr(node.size() - 1); }

Operands BlockOfPage(UserCntrl& c) {
  c.SelectBlockOfPage();
  return {c.BlockSelector.empty() ? "None" : c.BlockSelector};
}

constexpr AnswerRow kAnswers[] = {{1000}, {1100}, {1200}, {1300}, {1400}, {3700}, {8000}};
// The block is chosen on every tab, also on the one whose own buttons write.
constexpr BeforeWriteRow kBeforeWrites[] = {{kPages, SelectBlock}};
constexpr RereadRow kRereads[] = {
    {kPages, "AI Basic Settings", 10}, {kPages, "AI Scales", 80},   {kPages, "AI Alarm/Warning", 11},
    {kPages, "AI Fail Safe", 12},      {kPages, "AI Simulate", 13}, {kPages, "AI Mode Block", 14},
};
// Always the first block, whichever the graphic was opened from.
constexpr BackRow kBacks[] = {
    {"AI Graphic", {.page = "Analog Input 1", .subPage = "AI Alarm/Warning", .frame = id::frmAI}},
};
constexpr PollRow kPolls[] = {{TimerId::TimerAIOut, 37, PollDocument::kOwn, BlockOfPage}};

constexpr std::string_view kModes[] = {"Auto", "Man", "Out of Service"};
constexpr std::string_view kFailSafes[] = {"FSafe_Value", "Last Usable Value", "Use Wrong Value"};
// The pressure units and, for a block that reports the temperature, its unit.
constexpr auto kScaleUnits = [] {
  std::array<std::string_view, std::size(kCalibrationUnits) + 1> rows{};
  std::copy(std::begin(kCalibrationUnits), std::end(kCalibrationUnits), rows.begin());
  rows.back() = "°C";
  return rows;
}();
constexpr std::string_view kSimulate[] = {"Disable", "Active"};
constexpr std::string_view kConfigs[] = {"Config 1", "Config 2"};
constexpr FillRow kFills[] = {
    {id::cmbSimulateEnable, FillMoment::kStart, kSimulate},
    {id::cmbAIConfig, FillMoment::kStart, kConfigs},
    {id::cmbAITarget(0), FillMoment::kAi, kModes},
    {id::cmbAITarget(1), FillMoment::kAi, kModes},
    {id::cmbAIUnitOutScale, FillMoment::kAi, kUnitListRows},
    {id::cmbAIFailSafeType, FillMoment::kAi, kFailSafes},
    {id::cmbTRDScaleAI, FillMoment::kAi, kScaleUnits},
    {id::cmbAIStatusSim, FillMoment::kAi, kStatusListRows},
    {id::cmbStatusAIModeBlock, FillMoment::kAi, kStatusListRows},
};
constexpr NodeRow kNodes[] = {
    {.texts = kPages,
     .subPage = "AI Basic Settings",
     .frame = id::frmAI,
     .strip = id::SSTabAI,
     .read = 10,
     .firstVisit = &UserCntrl::FirstVisitAi,
     .fills = FillMoment::kAi,
     .also = SelectNodesBlock},
};

}  // namespace

constexpr PageUnit kUnit{
    .answers = kAnswers,
    .beforeWrites = kBeforeWrites,
    .rereads = kRereads,
    .backs = kBacks,
    .polls = kPolls,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::analog_input
