#include "pages/analog_input.h"

#include <utility>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/mStatusProfibus.h"
#include "codecs/status_tables.h"
#include "pages/alarm_list.h"
#include "pages/answered_values.h"
#include "shell/page_steps.h"

namespace htr60::pages::analog_input {
namespace {

constexpr int kBasicRead = 10;
constexpr int kAlarmRead = 11;
constexpr int kFailSafeRead = 12;
constexpr int kSimulateRead = 13;
constexpr int kModeRead = 14;
constexpr int kOutputRead = 37;
constexpr int kOutputInterval = 15000;

// ---- layout

constexpr std::string_view kUpperCaption = "Upper [EU (100%)]";
constexpr std::string_view kLowerCaption = "Lower [EU (0%)]";

constexpr LayoutRow kBasicRows[] = {
    {.caption = "Target Mode",
     .kind = RowKind::kList,
     .control = id::cmbAITarget(0),
     .note = "Auto calculates the output, Man takes the one written on the tab Mode Block, Out of Service holds it."},
    {.caption = "Actual Mode",
     .kind = RowKind::kText,
     .control = id::txtParameter(303),
     .note = "The mode in which the block works now."},
    {.caption = "Channel",
     .kind = RowKind::kText,
     .control = id::txtParameter(318),
     .note = "The value of the transducer that the block takes."},
    {.caption = "Damping",
     .kind = RowKind::kNum,
     .control = id::txtParameter(119),
     .unit = "s",
     .note = "Time constant of the output's filter; 0 is none."},
};
constexpr LayoutRow kConfigRows[] = {
    {.caption = "AI Config",
     .captionControl = id::lbArray(349),
     .kind = RowKind::kList,
     .control = id::cmbAIConfig,
     .note = "What blocks 2 and 3 of a pressure device report: Config 1 the Hi and the Lo sensor, Config 2 the Lo "
             "sensor and the temperature. One setting for the three blocks, which Write of the page sends too."},
    {.caption = "Write",
     .kind = RowKind::kWrite,
     .control = id::cmdWriteAIConfig,
     .note = "Sends AI Config alone, for the three blocks."},
};
constexpr LayoutRow kPvScaleRows[] = {
    {.caption = kUpperCaption,
     .kind = RowKind::kNum,
     .control = id::txtParameter(64),
     .note = "Value of the channel that becomes the upper value of the output. It can be written where the block "
             "reports a sensor's pressure, with firmware 1.07 to 1.09."},
    {.caption = kLowerCaption,
     .kind = RowKind::kNum,
     .control = id::txtParameter(63),
     .note = "Value of the channel that becomes the lower value of the output."},
    {.caption = "Write",
     .kind = RowKind::kWrite,
     .control = id::cmbWritePVScale,
     .note = "Sends the two values of this group to the block, and AI Config along."},
};
constexpr LayoutRow kPvUnitRows[] = {
    {.caption = "PV Unit",
     .kind = RowKind::kText,
     .control = id::txtParameter(302),
     .note = "Unit of the channel's value, as read."},
    {.caption = "New PV Unit",
     .kind = RowKind::kList,
     .control = id::cmbTRDScaleAI,
     .note = "Unit to be written; the device converts the scale."},
    {.caption = "Write",
     .kind = RowKind::kWrite,
     .control = id::cmbWritePVScaleUnit,
     .note = "Sends the new unit to the block, and AI Config along."},
};
constexpr LayoutRow kOutScaleRows[] = {
    {.caption = kUpperCaption,
     .kind = RowKind::kNum,
     .control = id::txtParameter(129),
     .unit = id::lbArray(201),
     .note = "Output at the upper value of the channel. Limits and fail safe value keep their numbers."},
    {.caption = kLowerCaption,
     .kind = RowKind::kNum,
     .control = id::txtParameter(130),
     .unit = id::lbArray(162),
     .note = "Output at the lower value of the channel."},
    {.caption = "Unit",
     .kind = RowKind::kList,
     .control = id::cmbAIUnitOutScale,
     .note = "Unit of the output to be written; the values above are not converted."},
    {.caption = "Write",
     .kind = RowKind::kWrite,
     .control = id::cmdWriteScaleOut,
     .note = "Sends the output's two values and its unit together."},
};

constexpr LayoutRow Limit(std::string_view caption, TextId field, std::string_view note) {
  return {
      .caption = caption, .kind = RowKind::kNum, .control = field, .unit = Echo(id::txtParameter(304)), .note = note};
}

constexpr LayoutRow kLimitRows[] = {
    {.caption = "Unit",
     .kind = RowKind::kText,
     .control = id::txtParameter(304),
     .note = "Unit of the output and of its limits."},
    Limit("Upper Limit Alarm", id::txtParameter(120), "The output raises the upper alarm from here on."),
    Limit("Upper Limit Warning", id::txtParameter(121), "The output raises the upper warning from here on."),
    Limit("Lower Limit Warning", id::txtParameter(123), "The output raises the lower warning from here down."),
    Limit("Lower Limit Alarm", id::txtParameter(122), "The output raises the lower alarm from here down."),
    Limit("Hysteresis", id::txtParameter(124), "How far the output must come back before an alarm goes."),
};

constexpr LayoutRow AlarmRow(std::string_view caption, ListBoxId list, bool live) {
  return {.caption = caption,
          .kind = RowKind::kListBox,
          .control = list,
          .note = "What the block reports of its output and its limits.",
          .live = live,
          .role = RowRole::kVerdict};
}

constexpr LayoutRow kAlarmRows[] = {AlarmRow("Current Alarm", id::ListAIAlarm, false)};
constexpr LayoutRow kFailSafeRows[] = {
    {.caption = "Fail Safe Type",
     .kind = RowKind::kList,
     .control = id::cmbAIFailSafeType,
     .note = "What the output shows while the channel's value is bad: the value below, the last good value, or the "
             "wrong one."},
    {.caption = "Fail Safe Value",
     .kind = RowKind::kNum,
     .control = id::txtParameter(171),
     .unit = ControlId{id::txtParameter(305)},
     .note = "The output while the channel's value is bad, with FSafe_Value."},
};
constexpr LayoutRow kSimulateRows[] = {
    {.caption = "Simulate Enable",
     .kind = RowKind::kList,
     .control = id::cmbSimulateEnable,
     .note = "While it is active, value and status below replace those of the channel.",
     .role = RowRole::kSimulate,
     .health = HealthItem::kSimulateBlock},
    {.caption = "Value",
     .kind = RowKind::kNum,
     .control = id::txtParameter(172),
     .note = "Value that the block takes instead of the channel's, in the unit of the channel."},
    {.caption = "Status",
     .kind = RowKind::kList,
     .control = id::cmbAIStatusSim,
     .width = WidthClass::kW,
     .note = "Status of that value."},
};
constexpr LayoutRow kModeRows[] = {
    {.caption = "Target Mode",
     .kind = RowKind::kList,
     .control = id::cmbAITarget(1),
     .note = "Auto calculates the output, Man takes the one written below, Out of Service holds it."},
    {.caption = "Actual Mode",
     .kind = RowKind::kText,
     .control = id::txtParameter(306),
     .note = "The mode in which the block worked when the tab was read."},
};
constexpr LayoutRow kOutputRows[] = {
    {.caption = "Value",
     .kind = RowKind::kNum,
     .control = id::txtParameter(125),
     .unit = Echo(id::lbArray(162)),
     .note = "Output of the block. It can be written with target mode Man; every 15 s the device's replaces what is "
             "being typed.",
     .live = true},
    {.caption = "Status",
     .kind = RowKind::kList,
     .control = id::cmbStatusAIModeBlock,
     .width = WidthClass::kW,
     .note = "Status of the output. With target mode Man the device gets a fixed status whatever the list shows.",
     .live = true},
};
constexpr LayoutRow kStateAlarmRows[] = {AlarmRow("Current State Alarm", id::ListAICurrentStateAlarm, true)};
constexpr LayoutRow kGraphicRows[] = {
    {.caption = "Graphic", .captionControl = id::cmdAIGraphic, .kind = RowKind::kOpen, .control = id::cmdAIGraphic},
};
constexpr LayoutGroup kGroups[] = {
    {.tab = 0, .caption = "Basic Settings", .rows = kBasicRows},
    {.tab = 0, .frame = id::Frame1, .rows = kConfigRows},
    {.tab = 1, .caption = "PV Scale", .rows = kPvScaleRows},
    {.tab = 1, .caption = "PV Unit", .rows = kPvUnitRows},
    {.tab = 1, .caption = "Out Scale", .rows = kOutScaleRows, .beside = true},
    {.tab = 2, .caption = "Limits", .rows = kLimitRows},
    {.tab = 2, .caption = "Current Alarm", .rows = kAlarmRows, .beside = true},
    {.tab = 3, .caption = "Fail Safe", .rows = kFailSafeRows},
    {.tab = 4, .caption = "Simulate", .rows = kSimulateRows},
    {.tab = 5, .caption = "Mode", .rows = kModeRows},
    {.tab = 5, .caption = "Output", .rows = kOutputRows},
    {.tab = 5, .caption = "Current State Alarm", .rows = kStateAlarmRows, .beside = true},
    {.tab = 6, .rows = kGraphicRows, .box = false},
};
constexpr LayoutTitle kTitles[] = {{kPages[0], kPages[0], 1}, {kPages[1], kPages[1], 2}, {kPages[2], kPages[2], 3}};
constexpr LayoutTitle kGraphicTitle[] = {{"", "Analog Input Graphic"}};
constexpr int kReads[] = {kBasicRead, kScalesRead, kAlarmRead, kFailSafeRead, kSimulateRead, kModeRead, kOutputRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmAI,
     .titles = kTitles,
     .purpose = "How the block turns the transducer's value into its output, with alarms, fail safe, simulation and "
                "mode. The three blocks share these controls.",
     .reads = kReads,
     .strip = id::SSTabAI,
     .groups = kGroups},
    {.frame = id::frmAITOTGraphic,
     .staysShown = true,
     .titles = kGraphicTitle,
     .purpose = "How the block scales, where its limits lie, where its output stands.",
     .figure = FigureKind::kAnalogInput,
     .figureAlone = true},
};

// ---- answers

void SetIfAny(TextField& field, std::string_view text) {
  if (!text.empty()) field.SetText(text);
}

std::string_view ActualMode(const Answer& a) {
  std::int32_t actual = 0;
  std::int32_t permitted = 0;
  std::int32_t normal = 0;
  HexToThreeBytes(a.Text("AIActual"), actual, permitted, normal);
  return DecodeActualMode(actual);
}

/// The unit of the output, where the tabs of limits and mode show it.
void TakeUnit(UserCntrl& c, const Answer& a) {
  const std::string_view unit = TakeScale(c, a.Text("AIUnit"));
  SetIfAny(c.form.txtParameter(304), unit);
  SetOutputUnit(c, unit);
}

void OnBasicAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  f.cmbAITarget(0).SetIfAny(DecodeTargetMode(a.Number("AITarget")));
  SetIfAny(f.txtParameter(303), ActualMode(a));
  SetIfAny(f.txtParameter(318), DecodeAIChannel(a.Number("AIChannel")));
  f.txtParameter(119).SetText(c.codecs.FormatValue(HexToFloat(a.Text("AIDamping"))));
  f.cmbAIConfig.SetIfAny(DecodeAIConfig(a.Number("AIConfig")));
}

struct LimitTag {
  std::string_view tag;
  TextId field;
};
constexpr LimitTag kLimits[] = {
    {"AIUpperLimAlarm", id::txtParameter(120)}, {"AIUpperLimWarning", id::txtParameter(121)},
    {"AILowerLimAlarm", id::txtParameter(122)}, {"AILowerLimWarning", id::txtParameter(123)},
    {"AILimHysteresis", id::txtParameter(124)},
};

void OnAlarmAnswer(UserCntrl& c, const Answer& a) {
  for (const LimitTag& limit : kLimits) {
    c.form.At(limit.field).SetText(c.codecs.FormatValue(HexToFloat(a.Text(limit.tag))));
  }
  TakeUnit(c, a);
  TakeAlarms(a.Text("AICurrAlarm"), c.form.ListAIAlarm);
}

void OnFailSafeAnswer(UserCntrl& c, const Answer& a) {
  SetIfAny(c.form.txtParameter(305), TakeScale(c, a.Text("AIUnit")));
  c.form.cmbAIFailSafeType.SetIfAny(DecodeFailSafeType(a.Number("AIFailSafeType")));
  c.form.txtParameter(171).SetText(c.codecs.FormatValue(HexToFloat(a.Text("AIFailSafeValue"))));
}

void OnSimulateAnswer(UserCntrl& c, const Answer& a) {
  std::int32_t status = 0;
  double value = 0;
  std::int32_t enable = 0;
  HexToSimulation(a.Text("AISimulate"), status, value, enable);
  c.form.cmbSimulateEnable.SetIfAny(DecodeSimulateActive(enable));
  c.form.txtParameter(172).SetText(c.codecs.FormatValue(value));
  c.form.cmbAIStatusSim.SetText(StatusByteToText(status));
}

void OnOutputAnswer(UserCntrl& c, const Answer& a) {
  std::int32_t status = 0;
  c.codecs.HexToFloatStatus(a.Text("AIOutput"), c.form.txtParameter(125), status);
  c.form.cmbStatusAIModeBlock.SetText(StatusByteToText(status));
  TakeAlarms(a.Text("AIAlarm"), c.form.ListAICurrentStateAlarm);
}

void OnModeAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbAITarget(1).SetIfAny(DecodeTargetMode(a.Number("AITarget")));
  TakeUnit(c, a);
  c.form.txtParameter(306).SetText(ActualMode(a));  // takes the empty text too, other than on the first tab
  OnOutputAnswer(c, a);
}

// ---- writes

Operands WriteBasic(UserCntrl& c) {
  Form& f = c.form;
  return {Block(c), EncodeTargetMode(f.cmbAITarget(0).Text()), c.codecs.FloatToHex(f.txtParameter(119).Text()),
          EncodeAIConfig(f.cmbAIConfig.Text())};
}

Operands WriteAlarms(UserCntrl& c) {
  Form& f = c.form;
  return {Block(c),
          c.codecs.FloatToHex(f.txtParameter(120).Text()),
          c.codecs.FloatToHex(f.txtParameter(121).Text()),
          c.codecs.FloatToHex(f.txtParameter(122).Text()),
          c.codecs.FloatToHex(f.txtParameter(123).Text()),
          c.codecs.FloatToHex(f.txtParameter(124).Text())};
}

Operands WriteFailSafe(UserCntrl& c) {
  return {Block(c), EncodeFailSafeType(c.form.cmbAIFailSafeType.Text()),
          c.codecs.FloatToHex(c.form.txtParameter(171).Text())};
}

Operands WriteSimulate(UserCntrl& c) {
  Form& f = c.form;
  return {Block(c), Join({StatusTextToHex(f.cmbAIStatusSim.Text()), c.codecs.FloatToHex(f.txtParameter(172).Text()),
                          EncodeSimulateActive(f.cmbSimulateEnable.Text())})};
}

// An output set by hand bears a status of its own.
std::string_view OutputStatus(const UserCntrl& c) {
  return c.form.cmbAITarget(1).Text() == "Man" ? "63" : StatusTextToHex(c.form.cmbStatusAIModeBlock.Text());
}

Operands WriteMode(UserCntrl& c) {
  return {Block(c), Join({c.codecs.FloatToHex(c.form.txtParameter(125).Text()), OutputStatus(c)}),
          EncodeTargetMode(c.form.cmbAITarget(1).Text())};
}

// ---- buttons, tabs, timer

// One setting for all blocks: the request names none.
void WriteConfig(UserCntrl& c) {
  SelectBlock(c);
  c.SmallWrite(76, {EncodeAIConfig(c.form.cmbAIConfig.Text())});
}

// The current page stays: the way back is the tree.
void OpenGraphic(UserCntrl& c) {
  c.HideAllFrames();
  c.form.frmAITOTGraphic.SetVisible(true);
  c.form.cmdBack.SetEnabled(true);
  c.SubPage = "AI Graphic";
}

void SelectPagesBlock(UserCntrl& c) {
  c.BlockSelector = "None";
  SelectBlock(c);
}

constexpr TabStep kSteps[] = {
    {.subPage = "AI Basic Settings", .write = ButtonState::kEnabled, .read = kBasicRead},
    {.subPage = "AI Scales", .write = ButtonState::kDisabled, .read = kScalesRead},
    {.subPage = "AI Alarm/Warning", .write = ButtonState::kEnabled, .read = kAlarmRead},
    {.subPage = "AI Fail Safe", .write = ButtonState::kEnabled, .read = kFailSafeRead},
    {.subPage = "AI Simulate", .write = ButtonState::kEnabled, .read = kSimulateRead},
    {.subPage = "AI Mode Block",
     .write = ButtonState::kEnabled,
     .read = kModeRead,
     .polls = true,
     .timer = TimerId::TimerAIOut,
     .interval = kOutputInterval},
    {},
};

// The read goes out last, so the timer runs also where it fails; the tab of the graphic sends the code 0.
void OnTab(UserCntrl& c, int tab) {
  TabStep step = kSteps[tab];
  const int read = std::exchange(step.read, 0);
  RunTab(c, step);
  SelectPagesBlock(c);
  c.ReadBlock(read);
}

Operands BlockOfPage(UserCntrl& c) {
  SelectPagesBlock(c);
  return {Block(c)};
}

void SelectNodesBlock(UserCntrl& c, std::string_view node) { c.BlockSelector = node.substr(node.size() - 1); }

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {kBasicRead * 100, OnBasicAnswer},       {kAlarmRead * 100, OnAlarmAnswer}, {kFailSafeRead * 100, OnFailSafeAnswer},
    {kSimulateRead * 100, OnSimulateAnswer}, {kModeRead * 100, OnModeAnswer},   {kOutputRead * 100, OnOutputAnswer},
};
constexpr WriteRow kWrites[] = {
    {kPages, "AI Basic Settings", 7, WriteBasic}, {kPages, "AI Alarm/Warning", 8, WriteAlarms},
    {kPages, "AI Fail Safe", 9, WriteFailSafe},   {kPages, "AI Simulate", 10, WriteSimulate},
    {kPages, "AI Mode Block", 11, WriteMode},
};
// The block is chosen on every tab, also on the one whose own buttons write.
constexpr PageStepRow kBlockSteps[] = {{kPages, SelectBlock}};
constexpr RereadRow kRereads[] = {
    {kPages, "AI Basic Settings", kBasicRead}, {kPages, "AI Scales", kScalesRead},
    {kPages, "AI Alarm/Warning", kAlarmRead},  {kPages, "AI Fail Safe", kFailSafeRead},
    {kPages, "AI Simulate", kSimulateRead},    {kPages, "AI Mode Block", kModeRead},
};
// Always the first block, whichever the graphic was opened from.
constexpr BackRow kBacks[] = {
    {"AI Graphic", {.page = "Analog Input 1", .subPage = "AI Alarm/Warning", .frame = id::frmAI}},
};
constexpr ButtonRow kButtons[] = {
    {id::cmdWriteAIConfig, WriteConfig},
    {id::cmdAIGraphic, OpenGraphic},
};
constexpr TabRow kTabs[] = {{id::SSTabAI, kSteps, OnTab}};
constexpr PollRow kPolls[] = {{TimerId::TimerAIOut, kOutputRead, PollDocument::kOwn, BlockOfPage}};

constexpr std::string_view kModes[] = {"Auto", "Man", "Out of Service"};
constexpr std::string_view kFailSafes[] = {"FSafe_Value", "Last Usable Value", "Use Wrong Value"};
constexpr std::string_view kSimulate[] = {"Disable", "Active"};
constexpr std::string_view kConfigs[] = {"Config 1", "Config 2"};
constexpr FillRow kFills[] = {
    {id::cmbSimulateEnable, kAtStart, kSimulate},
    {id::cmbAIConfig, kAtStart, kConfigs},
    {id::cmbAITarget(0), &UserCntrl::FirstVisitAi, kModes},
    {id::cmbAITarget(1), &UserCntrl::FirstVisitAi, kModes},
    {id::cmbAIFailSafeType, &UserCntrl::FirstVisitAi, kFailSafes},
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
     .read = kBasicRead,
     .firstVisit = &UserCntrl::FirstVisitAi,
     .also = SelectNodesBlock},
};

}  // namespace

void SetOutputUnit(UserCntrl& c, std::string_view unit) {
  if (unit.empty()) return;
  c.form.lbArray(201).SetText(unit);
  c.form.lbArray(162).SetText(unit);
}

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .beforeWrites = kBlockSteps,
    .rereads = kRereads,
    .beforeRereads = kBlockSteps,
    .backs = kBacks,
    .buttons = kButtons,
    .tabs = kTabs,
    .polls = kPolls,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::analog_input
