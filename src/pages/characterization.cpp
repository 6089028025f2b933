#include "pages/characterization.h"

#include "codecs/status_tables.h"
#include "pages/pages.h"

namespace htr60::pages::characterization {
namespace {

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
    {id::cmbCharNumPoints, FillMoment::kStart, kNumbers},
    {id::cmbCharOperation, FillMoment::kStart, kOperations},
    {id::cmbStatusChar, FillMoment::kStart, kStatusListRows},
};

}  // namespace

constexpr PageUnit kUnit{
    .answers = kAnswers,
    .rereads = kRereads,
    .backs = kBacks,
    .polls = kPolls,
    .fills = kFills,
    .state = htr60::StateOf<State>(),
};

State& StateOf(UserCntrl& c) { return c.StateOf<State>(kUnit); }

}  // namespace htr60::pages::characterization
