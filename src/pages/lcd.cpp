#include "pages/pages.h"

#include "codecs/status_tables.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::lcd {
namespace {

// The four monitors: what a live read of each asks for, and when its lists are filled.
struct Monitor {
  std::string_view subPage;
  TimerId timer;
  ChoiceId block;
  ChoiceId index;
};
constexpr Monitor kMonitors[] = {
    {"Monit1", TimerId::TimerMonit1, id::cmbFunctionBlockMonit1, id::cmbRelativeIndexMonit1},
    {"Monit2", TimerId::TimerMonit2, id::cmbFunctionBlockMonit2, id::cmbRelativeIndexMonit2},
    {"Monit3", TimerId::TimerMonit3, id::cmbFunctionBlockMonit3, id::cmbRelativeIndexMonit3},
    {"Monit4", TimerId::TimerMonit4, id::cmbFunctionBlockMonit4, id::cmbRelativeIndexMonit4},
};
constexpr int kLiveInterval = 5000;

void StartLive(UserCntrl& c, int monitor) { c.StartTimer(kMonitors[monitor].timer, kLiveInterval); }

// Unlike every other read this one carries names, not codes.
Operands MonitoredParameter(UserCntrl& c, int monitor) {
  return {c.form.At(kMonitors[monitor].block).Text(), c.form.At(kMonitors[monitor].index).Text()};
}

constexpr PageLayout kLayouts[] = {{.frame = id::frmLCD}};

constexpr AnswerRow kAnswers[] = {{2900}, {3000}, {3100}, {3200}, {3300}, {3400}, {4100}};
constexpr RereadRow kRereads[] = {
    {"LCD", "Monit1", 29, {StartLive, 0}},
    {"LCD", "Monit2", 30, {StartLive, 1}},
    {"LCD", "Monit3", 31, {StartLive, 2}},
    {"LCD", "Monit4", 32, {StartLive, 3}},
};
// A write on any page ends them; the re-read of a monitor starts its own again.
constexpr PollRow kPolls[] = {
    {TimerId::TimerMonit1, 41, PollDocument::kOwn, {MonitoredParameter, 0}, true},
    {TimerId::TimerMonit2, 41, PollDocument::kOwn, {MonitoredParameter, 1}, true},
    {TimerId::TimerMonit3, 41, PollDocument::kOwn, {MonitoredParameter, 2}, true},
    {TimerId::TimerMonit4, 41, PollDocument::kOwn, {MonitoredParameter, 3}, true},
};

constexpr std::string_view kBlocks[] = {"Physical",       "Transducer",     "Analog Input 1",
                                        "Analog Input 2", "Analog Input 3", "None"};
constexpr std::string_view kPoints[] = {"1", "2", "3", "4"};
constexpr std::string_view kFalseTrue[] = {"False", "True"};
constexpr std::string_view kSwitch[] = {"1", "2", "3"};
constexpr FillRow kFills[] = {
    {id::cmbFunctionBlockMonit1, &UserCntrl::FirstVisitLcd, kBlocks},
    {id::cmbDecimalPointMonit(0), &UserCntrl::FirstVisitLcd, kPoints},
    {id::cmbAlphaNumFieldMonit1, &UserCntrl::FirstVisitLcd, kFalseTrue},
    {id::cmbLCDStatusMonit1, &UserCntrl::FirstVisitLcd, kStatusListRows},
    {id::cmbLCDSwitch, &UserCntrl::FirstVisitLcd, kSwitch},
    {id::cmbLCDBargraph, &UserCntrl::FirstVisitLcd, kFalseTrue},
    {id::cmbFunctionBlockMonit2, &UserCntrl::FirstVisitMonit2, kBlocks},
    {id::cmbDecimalPointMonit(1), &UserCntrl::FirstVisitMonit2, kPoints},
    {id::cmbAlphaNumFieldMonit2, &UserCntrl::FirstVisitMonit2, kFalseTrue},
    {id::cmbLCDStatusMonit2, &UserCntrl::FirstVisitMonit2, kStatusListRows},
    {id::cmbFunctionBlockMonit3, &UserCntrl::FirstVisitMonit3, kBlocks},
    {id::cmbDecimalPointMonit(2), &UserCntrl::FirstVisitMonit3, kPoints},
    {id::cmbAlphaNumFieldMonit3, &UserCntrl::FirstVisitMonit3, kFalseTrue},
    {id::cmbLCDStatusMonit3, &UserCntrl::FirstVisitMonit3, kStatusListRows},
    {id::cmbFunctionBlockMonit4, &UserCntrl::FirstVisitMonit4, kBlocks},
    {id::cmbDecimalPointMonit(3), &UserCntrl::FirstVisitMonit4, kPoints},
    {id::cmbLCDStatusMonit4, &UserCntrl::FirstVisitMonit4, kStatusListRows},
};
constexpr NodeText kNodeTexts[] = {{.text = "LCD Config", .parent = "Blocks", .picture = "forward2"}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = "LCD",
     .subPage = "Monit1",
     .frame = id::frmLCD,
     .strip = id::SSTabLCD,
     .read = 29,
     .firstVisit = &UserCntrl::FirstVisitLcd,
     .polls = true,
     .timer = TimerId::TimerMonit1,
     .interval = kLiveInterval},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts, .answers = kAnswers, .rereads = kRereads, .polls = kPolls, .fills = kFills, .nodes = kNodes};

}  // namespace htr60::pages::lcd
