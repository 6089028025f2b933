#include <string>

#include "codecs/mEnumeration.h"
#include "pages/pages.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::auto_zero_trim {
namespace {

constexpr std::string_view kPage = "Auto Zero Trim";
constexpr int kRead = 57;
constexpr int kWrite = 45;

// ---- layout

constexpr LayoutRow kRows[] = {
    {.caption = "AZTrim Enable",
     .captionControl = id::lbArray(342),
     .kind = RowKind::kList,
     .control = id::cmbAZTrimEnable,
     .width = WidthClass::kS,
     .note = "While it is True the device corrects its zero by itself."},
    {.caption = "AZTrim Reference",
     .captionControl = id::lbArray(317),
     .kind = RowKind::kNum,
     .control = id::txtParameter(214),
     .note = "The pressure about which the device looks for its zero. No unit is reported."},
    {.caption = "AZTrim Noise Band",
     .captionControl = id::lbArray(316),
     .kind = RowKind::kNum,
     .control = id::txtParameter(204),
     .note = "How far the pressure may be from the reference. No unit is reported."},
    {.caption = "AZTrim Time Action",
     .captionControl = id::lbArray(315),
     .kind = RowKind::kNum,
     .control = id::txtParameter(203),
     .note = "How long the pressure must stay in the noise band: a whole number."},
    {.caption = "AZTrim Selection",
     .captionControl = id::lbArray(343),
     .kind = RowKind::kList,
     .control = id::CmbAZTrimSelection,
     .note = "What the zero is corrected to: the reference, or the lower value of the input scale (LRV)."},
};
constexpr LayoutGroup kGroups[] = {{.caption = "Auto Zero Trim", .rows = kRows}};
constexpr LayoutTitle kTitle[] = {{"", "Auto Zero Trim"}};
constexpr int kReads[] = {kRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmAutoZeroTrim,
     .titles = kTitle,
     .purpose = "Under which conditions the instrument corrects its zero by itself.",
     .reads = kReads,
     .groups = kGroups},
};

// ---- answer and write

void OnAutoZeroTrimAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbAZTrimEnable.SetIfAny(DecodeAzTrimEnable(a.Number("TRDAzTrimEnable")));
  c.form.txtParameter(214).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDAzTrimReference"))));
  c.form.txtParameter(204).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDAzTrimNoiseBand"))));
  c.form.txtParameter(203).SetText(std::to_string(a.Number("TRDAzTrimTimeAction")));
  c.form.CmbAZTrimSelection.SetIfAny(DecodeAzTrimSelection(a.Number("TRDAzTrimSelection")));
}

// The device reports the time in eight digits and takes as many as the number needs, also an odd count of them.
Operands WriteAutoZeroTrim(UserCntrl& c) {
  constexpr int kLeastDigits = 2;
  return {EncodeAzTrimEnable(c.form.cmbAZTrimEnable.Text()), c.codecs.FloatToHex(c.form.txtParameter(214).Text()),
          c.codecs.FloatToHex(c.form.txtParameter(204).Text()),
          Codecs::IntToHex(c.codecs.TextToInt32(c.form.txtParameter(203).Text()), kLeastDigits),
          EncodeAzTrimSelection(c.form.CmbAZTrimSelection.Text())};
}

// ---- button

void OpenAutoZeroTrim(UserCntrl& c) {
  c.StopPollingTimers();
  OpenPage(c, {.frame = id::frmAutoZeroTrim, .page = kPage, .write = ButtonState::kEnabled, .read = kRead});
}

// ---- tables

constexpr AnswerRow kAnswers[] = {{kRead * 100, OnAutoZeroTrimAnswer}};
constexpr WriteRow kWrites[] = {{kPage, kAnySubPage, kWrite, WriteAutoZeroTrim}};
constexpr RereadRow kRereads[] = {{kPage, kAnySubPage, kRead}};
constexpr ButtonRow kButtons[] = {{id::cmdAutoZeroTrim, OpenAutoZeroTrim}};

constexpr std::string_view kTrueFalse[] = {"True", "False"};
constexpr std::string_view kSelections[] = {"Using Zero Trim", "Using LRV"};
constexpr FillRow kFills[] = {
    {id::cmbAZTrimEnable, kAtStart, kTrueFalse},
    {id::CmbAZTrimSelection, kAtStart, kSelections},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .buttons = kButtons,
    .fills = kFills,
};

}  // namespace htr60::pages::auto_zero_trim
