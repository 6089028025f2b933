#include "pages/characterization.h"

#include "codecs/status_tables.h"
#include "pages/pages.h"

namespace htr60::pages::characterization {
namespace {

constexpr PageLayout kLayouts[] = {{.frame = id::frmChar}, {.frame = id::frmMethodChar}, {.frame = id::frmResultChar}};

constexpr AnswerRow kAnswers[] = {{2000}, {3800}, {3900}};
constexpr RereadRow kRereads[] = {{"Char", kAnySubPage, 20}};
constexpr BackRow kBacks[] = {
    {{"Method Char", "Result Char"},
     {.page = "Char", .frame = id::frmChar, .backEnabled = true, .write = ButtonState::kEnabled}},
};
constexpr PollRow kPolls[] = {{TimerId::TimerChar, 39, PollDocument::kStored}};

constexpr std::string_view kNumbers[] = {"2", "3", "4", "5"};
constexpr std::string_view kOperations[] = {"Disabled", "Disable and Allow to Enter Points", "Disable and Restore Cal",
                                            "Enable Curve and Backup Cal", "Enable Curve"};
constexpr FillRow kFills[] = {
    {id::cmbCharNumPoints, kAtStart, kNumbers},
    {id::cmbCharOperation, kAtStart, kOperations},
    {id::cmbStatusChar, kAtStart, kStatusListRows},
};

std::vector<std::string> AsTexts(const std::array<std::string, 6>& texts) { return {texts.begin(), texts.end()}; }

constexpr MemberRow kMembers[] = {
    {"CharPointIndex", [](UserCntrl& c) -> MemberValue { return StateOf(c).CharPointIndex; }},
    {"CharX", [](UserCntrl& c) -> MemberValue { return AsTexts(StateOf(c).CharX); }},
    {"CharY", [](UserCntrl& c) -> MemberValue { return AsTexts(StateOf(c).CharY); }},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .rereads = kRereads,
    .backs = kBacks,
    .polls = kPolls,
    .fills = kFills,
    .state = htr60::StateOf<State>(),
    .members = kMembers,
};

State& StateOf(UserCntrl& c) { return c.StateOf<State>(kUnit); }

}  // namespace htr60::pages::characterization
