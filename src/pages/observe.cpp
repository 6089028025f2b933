#include "pages/pages.h"

#include <cstdint>
#include <string>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/mStatusProfibus.h"
#include "pages/alarm_list.h"
#include "pages/answered_values.h"
#include "pages/common_notes.h"
#include "shell/user_cntrl.h"

// What the device does, from its sensors to the outputs of its blocks. Nothing is written here.
namespace htr60::pages::observe {
namespace {

constexpr int kInterval = 15000;
constexpr int kDeviceRead = 26;
constexpr int kBlockRead = 27;

// The three views share one frame; the node says which block it shows and what the block's input is called.
struct View {
  std::string_view page;
  std::string_view block;
  std::string_view value;
  std::string_view status;
};
constexpr View kViews[] = {
    {"AI 1 View", "1", "PV_VAL", "PV_VAL_ST"},
    {"AI 2 View", "2", "SV1_VAL", "SV1_VAL_ST"},
    {"AI 3 View", "3", "SV2_VAL", "SV2_VAL_ST"},
};

// ---- layout

constexpr LayoutRow Shown(std::string_view caption, ControlId control, LayoutUnit unit = {},
                          std::string_view note = {}) {
  return {.caption = caption, .kind = RowKind::kLabel, .control = control, .unit = unit, .note = note, .live = true};
}

constexpr LayoutRow Large(LayoutRow row) {
  row.large = true;
  return row;
}

/// Stands after the row before it.
constexpr LayoutRow Joined(LayoutRow row) {
  row.sameLine = true;
  return row;
}

constexpr LayoutRow Wide(LayoutRow row, WidthClass width) {
  row.width = width;
  return row;
}

constexpr LayoutUnit kCalibrationUnit = Echo(id::lbDeviceView(4));
constexpr LayoutUnit kTemperatureUnit = Echo(id::lbDeviceView(22));
constexpr LayoutUnit kInputUnit = Echo(id::lbDeviceView(59));
constexpr LayoutUnit kDeviceOutUnit = Echo(id::lbDeviceView(18));
constexpr LayoutUnit kBlockPvUnit = Echo(id::lbDeviceView(31));
constexpr LayoutUnit kBlockOutUnit = Echo(id::lbDeviceView(39));

constexpr LayoutRow kSensorRows[] = {
    Shown("Hi Value", id::lbDeviceView(3), {}, kReadingNote),
    Joined(Shown("Lo Value", id::lbDeviceView(12), {}, kReadingNote)),
    Large(Shown("Hi Press", id::lbDeviceView(48), {}, "Pressure at the first sensor.")),
    Joined(Large(Shown("Lo Press", id::lbDeviceView(49), {}, "Pressure at the second sensor."))),
    Large(Shown("Delta Press", id::lbDeviceView(0), {}, "Difference of the two pressures, before calibration.")),
};
constexpr LayoutRow kCalibrationRows[] = {
    Shown("Trimmed Value", id::lbDeviceView(1), {}, "The difference after calibration."),
    Joined(Large(Shown("Pressure", id::lbDeviceView(2), {}, "What the transducer calculates with."))),
    Shown("Cal Point Hi", id::lbDeviceView(7), kCalibrationUnit),
    Joined(Shown("Cal Point Lo", id::lbDeviceView(5), kCalibrationUnit)),
    Shown("Cal Min Span", id::lbDeviceView(13), kCalibrationUnit),
    Joined(Shown("Calibration Unit", id::lbDeviceView(4))),
};
constexpr LayoutRow kInputScaleRows[] = {
    Shown("Upper [EU (100%)]", id::lbDeviceView(57), kInputUnit),
    Shown("Lower [EU (0%)]", id::lbDeviceView(58), kInputUnit),
    Joined(Shown("Pressure Unit (EU)", id::lbDeviceView(59))),
};
constexpr LayoutRow kPrimaryValueRows[] = {
    {.caption = "Primary Value",
     .kind = RowKind::kLabel,
     .control = id::lbDeviceView(19),
     .secondKind = RowKind::kLabel,
     .second = id::lbDeviceView(55),
     .note = kPrimaryValueNote,
     .live = true,
     .large = true,
     .health = HealthItem::kPrimaryValue,
     .secondNote = "In one word how far the primary value can be trusted."},
};
constexpr LayoutRow BlockRow(std::string_view caption, LabelId output) {
  return Wide(Large(Shown(caption, output, {}, "What the block reads, and behind the colon its output.")),
              WidthClass::kM);
}
constexpr LayoutRow kBlockRows[] = {
    BlockRow("AI 1", id::lbDeviceView(14)),
    BlockRow("AI 2", id::lbDeviceView(11)),
    BlockRow("AI 3", id::lbDeviceView(20)),
};
constexpr LayoutRow kConfigurationRows[] = {
    Shown("Primary Value Type", id::lbDeviceView(42)),
    Shown("Linearization Type", id::lbDeviceView(15)),
    Shown("Zero Filter", id::lbDeviceView(60), {}, "While true, pressures next to zero count as zero."),
};
constexpr LayoutRow kLimitRows[] = {
    Shown("Hi Sensor Upper", id::lbDeviceView(8), kCalibrationUnit),
    Shown("Hi Sensor Lower", id::lbDeviceView(9), kCalibrationUnit),
    Shown("Lo Sensor Upper", id::lbDeviceView(45), kCalibrationUnit),
    Shown("Lo Sensor Lower", id::lbDeviceView(47), kCalibrationUnit),
};
constexpr LayoutRow kTemperatureRows[] = {
    Shown("Temperature", id::lbDeviceView(21), kTemperatureUnit, "That of the sensors."),
    Shown("Status", id::lbDeviceView(56), {}, "In one word how far the temperature can be trusted."),
    Shown("Temperature Unit", id::lbDeviceView(22)),
    Shown("Max Temp", id::lbDeviceView(23), kTemperatureUnit, "Upper limit of the sensors' temperature."),
    Shown("Min Temp", id::lbDeviceView(24), kTemperatureUnit, "Lower limit of the sensors' temperature."),
    Shown("Temp Cal Point", id::lbDeviceView(61), kTemperatureUnit),
};
constexpr LayoutRow kDeviceOutScaleRows[] = {
    Shown("Upper [EU (100%)]", id::lbDeviceView(16), kDeviceOutUnit),
    Shown("Lower [EU (0%)]", id::lbDeviceView(17), kDeviceOutUnit),
    Shown("Unit", id::lbDeviceView(18)),
};
constexpr LayoutGroup kDeviceGroups[] = {
    {.caption = "Sensors", .rows = kSensorRows},
    {.caption = "Calibration", .rows = kCalibrationRows},
    {.caption = "Input Scale", .rows = kInputScaleRows},
    {.caption = "Primary Value", .rows = kPrimaryValueRows},
    {.caption = "Analog Inputs", .rows = kBlockRows},
    {.caption = "Configuration", .rows = kConfigurationRows, .beside = true},
    {.caption = "Sensor Limits", .rows = kLimitRows},
    {.caption = "Temperature", .rows = kTemperatureRows},
    {.caption = "Out Scale", .rows = kDeviceOutScaleRows},
};

constexpr LayoutRow kInputRows[] = {
    {.caption = kViews[0].value,
     .captionControl = id::LabelAIVal,
     .kind = RowKind::kLabel,
     .control = id::lbDeviceView(40),
     .unit = kBlockPvUnit,
     .note = "What the block reads from the transducer.",
     .live = true},
    {.caption = kViews[0].status,
     .captionControl = id::LabelAIStatus,
     .kind = RowKind::kLabel,
     .control = id::lbDeviceView(51),
     .width = WidthClass::kW,
     .note = "How far the value that it reads can be trusted.",
     .live = true},
    Shown("Channel", id::lbDeviceView(28), {}, "Which of the transducer's values the block reads."),
};
constexpr LayoutRow kPvScaleRows[] = {
    Shown("Upper [EU (100%)]", id::lbDeviceView(29), kBlockPvUnit),
    Shown("Lower [EU (0%)]", id::lbDeviceView(30), kBlockPvUnit),
    Shown("PV Unit", id::lbDeviceView(31)),
};
constexpr LayoutRow kOutScaleRows[] = {
    Shown("Upper [EU (100%)]", id::lbDeviceView(37), kBlockOutUnit),
    Shown("Lower [EU (0%)]", id::lbDeviceView(38), kBlockOutUnit),
    Shown("Unit", id::lbDeviceView(39)),
};
constexpr LayoutRow kModeRows[] = {
    Shown("Mode Block", id::lbDeviceView(27), {}, "The mode that the block was told to take."),
    Shown("Damping", id::lbDeviceView(32)),
};
constexpr LayoutRow kSimulateRows[] = {
    {.caption = "Simulate Enable",
     .kind = RowKind::kLabel,
     .control = id::lbDeviceView(10),
     .note = "While it is active, the value and the status below stand for what the block reads.",
     .live = true,
     .role = RowRole::kSimulate,
     .health = HealthItem::kSimulateBlock},
    Shown("Value", id::lbDeviceView(25)),
    Wide(Shown("Status", id::lbDeviceView(26), {}, "The status that the simulated value bears."), WidthClass::kW),
};
constexpr LayoutRow kFailSafeRows[] = {
    Wide(Shown("Fail Safe Type", id::lbDeviceView(34), {}, "What the output does when the input is bad."),
         WidthClass::kM),
    Shown("Fail Safe Value", id::lbDeviceView(35), kBlockOutUnit),
};
constexpr LayoutRow kOutputRows[] = {
    Large(Shown("Value", id::lbDeviceView(36), kBlockOutUnit, "What the block reports to the control system.")),
    {.caption = "Status",
     .kind = RowKind::kLabel,
     .control = id::lbDeviceView(52),
     .width = WidthClass::kW,
     .note = "How far the output can be trusted.",
     .live = true,
     .health = HealthItem::kAiOut},
    {.caption = "Alarm",
     .kind = RowKind::kListBox,
     .control = id::LstAlarmAIView,
     .note = "The limits that the output is beyond now.",
     .live = true,
     .role = RowRole::kVerdict},
};
// The figure stands below the output that it shows.
constexpr LayoutGroup kViewGroups[] = {
    {.caption = "Input", .rows = kInputRows},
    {.caption = "PV Scale", .rows = kPvScaleRows},
    {.caption = "Out Scale", .rows = kOutScaleRows},
    {.caption = "Block", .rows = kModeRows},
    {.caption = "Simulate", .rows = kSimulateRows, .beside = true},
    {.caption = "Fail Safe", .rows = kFailSafeRows},
    {.caption = "Output", .rows = kOutputRows},
};

constexpr LayoutTitle kDeviceTitle[] = {{"", "Observe"}};
constexpr LayoutTitle ViewTitle(int block) {
  const std::string_view page = kViews[block - 1].page;
  return {page, page, block};
}
constexpr LayoutTitle kViewTitles[] = {ViewTitle(1), ViewTitle(2), ViewTitle(3)};
constexpr int kDeviceReads[] = {kDeviceRead};
constexpr int kBlockReads[] = {kBlockRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmDeviceView,
     .titles = kDeviceTitle,
     .purpose = "What the instrument measures now, from the sensors to the three outputs.",
     .reads = kDeviceReads,
     .groups = kDeviceGroups,
     .tight = true,
     .signalFlow = true},
    {.frame = id::frmAIView,
     .titles = kViewTitles,
     .purpose = "What the block reads, does and reports now.",
     .reads = kBlockReads,
     .groups = kViewGroups,
     .figure = FigureKind::kOutputBar,
     .figureBelow = true,
     .tight = true},
};

// ---- answers

// Numbers reach their labels through fields of other pages, which keep them until those pages are read.

void ShowNumber(UserCntrl& c, std::string_view hex, Label& label) {
  label.SetText(c.codecs.FormatValue(HexToFloat(hex)));
}

/// Gives the status byte.
std::int32_t ShowValue(UserCntrl& c, std::string_view hex, Label& label) {
  std::int32_t status = 0;
  c.codecs.HexToFloatStatus(hex, c.form.txtParameter(125), status);
  label.SetText(c.form.txtParameter(125).Text());
  return status;
}

void ShowPair(UserCntrl& c, std::string_view hex, Label& upper, Label& lower) {
  c.codecs.HexToFloatPair(hex, c.form.txtParameter(99), c.form.txtParameter(100));
  upper.SetText(c.form.txtParameter(99).Text());
  lower.SetText(c.form.txtParameter(100).Text());
}

void ShowScale(UserCntrl& c, std::string_view hex, Label& upper, Label& lower, Label& unit) {
  const std::string_view text = TakeScale(c, hex);
  upper.SetText(c.form.txtParameter(129).Text());
  lower.SetText(c.form.txtParameter(130).Text());
  unit.SetText(text);
}

// The output stands behind the channel, which the same answer has set afresh.
void AddOutput(UserCntrl& c, std::string_view hex, Label& label) {
  std::int32_t status = 0;
  c.codecs.HexToFloatStatus(hex, c.form.txtParameter(150), status);
  label.SetText(label.Text() + ": " + c.form.txtParameter(150).Text());
}

// The quality alone, by ranges: good cascade values are called "Good (NC)" too.
std::string_view QualityOf(std::int32_t status) {
  if (status <= 63) return "Bad";
  return status <= 127 ? "Uncertain" : "Good (NC)";
}

std::string_view ShortLinearization(std::string_view type) {
  if (type == "No Linearization.") return "None";
  return type == "Square Root & Table" ? "Sqrt&Table" : type;
}

void OnDeviceViewAnswer(UserCntrl& c, const Answer& a) {
  const auto& view = c.form.lbDeviceView;
  ShowNumber(c, a.Text("SensorValue"), view(0));
  ShowValue(c, a.Text("TrimmedValue"), view(1));
  ShowNumber(c, a.Text("CalPointHi"), view(7));
  ShowNumber(c, a.Text("CalPointLo"), view(5));
  ShowNumber(c, a.Text("CalMinSpan"), view(13));
  view(4).SetText(UnitCodeToText(a.Word("CalUnit")));
  ShowValue(c, a.Text("Pressure"), view(2));
  ShowNumber(c, a.Text("SensorHiLim"), view(8));
  ShowNumber(c, a.Text("SensorLoLim"), view(9));
  ShowNumber(c, a.Text("SensorHiLim_Lo"), view(45));
  ShowNumber(c, a.Text("SensorLoLim_Lo"), view(47));
  ShowNumber(c, a.Text("TRDPress_Hi"), view(48));
  ShowNumber(c, a.Text("TRDPress_Lo"), view(49));
  view(15).SetText(ShortLinearization(DecodeLinType(a.Number("LinType"))));
  ShowScale(c, a.Text("AIOutput"), view(16), view(17), view(18));
  view(14).SetText(DecodeAIChannel(a.Number("AI1Channel")));
  view(11).SetText(DecodeAIChannel(a.Number("AI2Channel")));
  view(20).SetText(DecodeAIChannel(a.Number("AI3Channel")));
  view(55).SetText(QualityOf(ShowValue(c, a.Text("PrimaryValue"), view(19))));
  view(56).SetText(QualityOf(ShowValue(c, a.Text("TempValue"), view(21))));
  view(22).SetText(UnitCodeToText(a.Word("TempUnit")));
  ShowNumber(c, a.Text("TempMax"), view(23));
  ShowNumber(c, a.Text("TempMin"), view(24));
  view(60).SetText(DecodeFalseTrue(a.Number("TRDZeroFilter")));
  ShowPair(c, a.Text("TRDInputScale"), view(57), view(58));
  view(59).SetText(UnitCodeToText(a.Word("TRDPressUnit")));
  ShowNumber(c, a.Text("TRDCap_Hi"), view(3));
  ShowNumber(c, a.Text("TRDCap_Lo"), view(12));
  view(61).SetText(c.codecs.FormatDecimals(HexToFloat(a.Text("TRDCalTempPoint")), 4));
  AddOutput(c, a.Text("AI1Out"), view(14));
  AddOutput(c, a.Text("AI2Out"), view(11));
  AddOutput(c, a.Text("AI3Out"), view(20));
  if (const std::string_view type = DecodePVType(a.Number("TRDPVType")); !type.empty()) view(42).SetText(type);
}

void ShowSimulation(UserCntrl& c, std::string_view hex) {
  std::int32_t status = 0;
  std::int32_t enable = 0;
  double value = 0;
  HexToSimulation(hex, status, value, enable);
  c.form.lbDeviceView(10).SetText(DecodeSimulateActive(enable));
  c.form.lbDeviceView(25).SetText(c.codecs.FormatValue(value));
  c.form.lbDeviceView(26).SetText(StatusByteToText(status));
}

// A sensor's own scale comes with its unit, the transducer's unit alone.
void ShowPvUnit(UserCntrl& c, const Answer& a) {
  const bool sensorScale = c.CurrentPage == kViews[1].page || c.CurrentPage == kViews[2].page;
  if (!sensorScale || c.AiPvType != "Pressure") {
    c.form.lbDeviceView(31).SetText(UnitCodeToText(a.Number("AIPVUnit")));
  } else if (const std::string_view unit = TakeScale(c, a.Text("AIPVUnit")); !unit.empty()) {
    c.form.lbDeviceView(31).SetText(unit);
  }
}

void OnAiViewAnswer(UserCntrl& c, const Answer& a) {
  const auto& view = c.form.lbDeviceView;
  ShowSimulation(c, a.Text("AISimulate"));
  view(51).SetText(StatusByteToText(ShowValue(c, a.Text("AIPrimaryValue"), view(40))));
  view(28).SetText(DecodeAIChannel(a.Number("AIChannel")));
  if (const std::string_view type = DecodePVType(a.Number("TRDPVType")); !type.empty()) c.AiPvType = type;
  ShowPair(c, a.Text("AIPVScale"), view(29), view(30));
  ShowPvUnit(c, a);
  view(27).SetText(DecodeTargetMode(a.Number("AIModeBlock")));
  view(32).SetText(c.codecs.FormatValue(HexToFloat(a.Text("AIDamping"))).Append(" s"));
  view(34).SetText(DecodeFailSafeType(a.Number("AIFailSafeType")));
  ShowNumber(c, a.Text("AIFailSafeVal"), view(35));
  ShowScale(c, a.Text("AIScaleOut"), view(37), view(38), view(39));
  const std::string_view status = StatusByteToText(ShowValue(c, a.Text("AIOut"), view(36)));
  c.form.cmbStatusAIModeBlock.SetText(status);
  view(52).SetText(status);
  TakeAlarms(a.Text("AIAlarm"), c.form.LstAlarmAIView);
}

// ---- nodes and timers

void ShowView(UserCntrl& c, std::string_view node) {
  for (const View& view : kViews) {
    if (view.page != node) continue;
    c.BlockSelector = view.block;
    c.form.LabelAIVal.SetText(view.value);
    c.form.LabelAIStatus.SetText(view.status);
  }
}

Operands BlockOfView(UserCntrl& c) {
  for (const View& view : kViews) {
    if (view.page == c.CurrentPage) c.BlockSelector = view.block;
  }
  return {c.BlockSelector.empty() ? "None" : c.BlockSelector};
}

// ---- tables

constexpr AnswerRow kAnswers[] = {{kDeviceRead * 100, OnDeviceViewAnswer}, {kBlockRead * 100, OnAiViewAnswer}};
constexpr PollRow kPolls[] = {
    {TimerId::TimerDeviceView, kDeviceRead, PollDocument::kStored},
    {TimerId::TimerAIView, kBlockRead, PollDocument::kOwn, BlockOfView},
};
constexpr NodeText kObserveText[] = {{.text = "Observe", .picture = "window_list"}};
constexpr NodeText ViewNode(std::string_view text) { return {.text = text, .parent = "Observe", .picture = "folder1"}; }
constexpr NodeText kViewTexts[] = {ViewNode(kViews[0].page), ViewNode(kViews[1].page), ViewNode(kViews[2].page)};
constexpr NodeRow kNodes[] = {
    {.texts = kObserveText,
     .page = "Observe",
     .frame = id::frmDeviceView,
     .writeEnabled = false,
     .read = kDeviceRead,
     .polls = true,
     .timer = TimerId::TimerDeviceView,
     .interval = kInterval},
    {.texts = kViewTexts,
     .frame = id::frmAIView,
     .writeEnabled = false,
     .read = kBlockRead,
     .polls = true,
     .timer = TimerId::TimerAIView,
     .interval = kInterval,
     .also = ShowView},
};

}  // namespace

constexpr PageUnit kUnit{.layouts = kLayouts, .answers = kAnswers, .polls = kPolls, .nodes = kNodes};

}  // namespace htr60::pages::observe
