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

constexpr AnswerRow kAnswers[] = {{2900}, {3000}, {3100}, {3200}, {3300}, {3400}, {4100}};
constexpr RereadRow kRereads[] = {
    {"LCD", "Monit1", 29, {StartLive, 0}},
    {"LCD", "Monit2", 30, {StartLive, 1}},
    {"LCD", "Monit3", 31, {StartLive, 2}},
    {"LCD", "Monit4", 32, {StartLive, 3}},
};
constexpr PollRow kPolls[] = {
    {TimerId::TimerMonit1, 41, PollDocument::kOwn, {MonitoredParameter, 0}},
    {TimerId::TimerMonit2, 41, PollDocument::kOwn, {MonitoredParameter, 1}},
    {TimerId::TimerMonit3, 41, PollDocument::kOwn, {MonitoredParameter, 2}},
    {TimerId::TimerMonit4, 41, PollDocument::kOwn, {MonitoredParameter, 3}},
};

constexpr std::string_view kBlocks[] = {"Physical",       "Transducer",     "Analog Input 1",
                                        "Analog Input 2", "Analog Input 3", "None"};
constexpr std::string_view kPoints[] = {"1", "2", "3", "4"};
constexpr std::string_view kFalseTrue[] = {"False", "True"};
constexpr std::string_view kSwitch[] = {"1", "2", "3"};
constexpr FillRow kFills[] = {
    {id::cmbFunctionBlockMonit1, FillMoment::kLcd, kBlocks},
    {id::cmbDecimalPointMonit(0), FillMoment::kLcd, kPoints},
    {id::cmbAlphaNumFieldMonit1, FillMoment::kLcd, kFalseTrue},
    {id::cmbLCDStatusMonit1, FillMoment::kLcd, kStatusListRows},
    {id::cmbLCDSwitch, FillMoment::kLcd, kSwitch},
    {id::cmbLCDBargraph, FillMoment::kLcd, kFalseTrue},
    {id::cmbFunctionBlockMonit2, FillMoment::kMonit2, kBlocks},
    {id::cmbDecimalPointMonit(1), FillMoment::kMonit2, kPoints},
    {id::cmbAlphaNumFieldMonit2, FillMoment::kMonit2, kFalseTrue},
    {id::cmbLCDStatusMonit2, FillMoment::kMonit2, kStatusListRows},
    {id::cmbFunctionBlockMonit3, FillMoment::kMonit3, kBlocks},
    {id::cmbDecimalPointMonit(2), FillMoment::kMonit3, kPoints},
    {id::cmbAlphaNumFieldMonit3, FillMoment::kMonit3, kFalseTrue},
    {id::cmbLCDStatusMonit3, FillMoment::kMonit3, kStatusListRows},
    {id::cmbFunctionBlockMonit4, FillMoment::kMonit4, kBlocks},
    {id::cmbDecimalPointMonit(3), FillMoment::kMonit4, kPoints},
    {id::cmbLCDStatusMonit4, FillMoment::kMonit4, kStatusListRows},
};
constexpr NodeRow kNodes[] = {
    {.texts = {"LCD Config"},
     .page = "LCD",
     .subPage = "Monit1",
     .frame = id::frmLCD,
     .strip = id::SSTabLCD,
     .read = 29,
     .firstVisit = &UserCntrl::FirstVisitLcd,
     .fills = FillMoment::kLcd,
     .polls = true,
     .timer = TimerId::TimerMonit1,
     .interval = kLiveInterval},
};

}  // namespace

constexpr PageUnit kUnit{.answers = kAnswers, .rereads = kRereads, .polls = kPolls, .fills = kFills, .nodes = kNodes};

}  // namespace htr60::pages::lcd
