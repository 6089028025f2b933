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

// The pages end in the number of their block.
void SelectBlock(UserCntrl& c) {
  if (kPages.Has(c.CurrentPage)) c.BlockSelector = c.CurrentPage.back();
}

void SelectNodesBlock(UserCntrl& c, std::string_view node) { c.BlockSelector = node.substr(node.size() - 1); }

Operands BlockOfPage(UserCntrl& c) {
  SelectBlock(c);
  return {c.BlockSelector.empty() ? "None" : c.BlockSelector};
}

constexpr PageLayout kLayouts[] = {
    {.frame = id::frmAI},
    {.frame = id::frmAITOTGraphic, .staysShown = true},
};

constexpr AnswerRow kAnswers[] = {{1000}, {1100}, {1200}, {1300}, {1400}, {3700}, {8000}};
// The block is chosen on every tab, also on the one whose own buttons write.
constexpr PageStepRow kBlockSteps[] = {{kPages, SelectBlock}};
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
    {id::cmbSimulateEnable, kAtStart, kSimulate},
    {id::cmbAIConfig, kAtStart, kConfigs},
    {id::cmbAITarget(0), &UserCntrl::FirstVisitAi, kModes},
    {id::cmbAITarget(1), &UserCntrl::FirstVisitAi, kModes},
    {id::cmbAIUnitOutScale, &UserCntrl::FirstVisitAi, kUnitListRows},
    {id::cmbAIFailSafeType, &UserCntrl::FirstVisitAi, kFailSafes},
    {id::cmbTRDScaleAI, &UserCntrl::FirstVisitAi, kScaleUnits},
    {id::cmbAIStatusSim, &UserCntrl::FirstVisitAi, kStatusListRows},
    {id::cmbStatusAIModeBlock, &UserCntrl::FirstVisitAi, kStatusListRows},
};
constexpr NodeText BlockNode(std::string_view text) {
  return {.text = text, .parent = "Blocks", .picture = "forward2"};
}
constexpr NodeText kNodeTexts[] = {BlockNode(kPages[0]), BlockNode(kPages[1]), BlockNode(kPages[2])};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .subPage = "AI Basic Settings",
     .frame = id::frmAI,
     .strip = id::SSTabAI,
     .read = 10,
     .firstVisit = &UserCntrl::FirstVisitAi,
     .also = SelectNodesBlock},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .beforeWrites = kBlockSteps,
    .rereads = kRereads,
    .beforeRereads = kBlockSteps,
    .backs = kBacks,
    .polls = kPolls,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::analog_input
