#include "pages/trd_scales.h"

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "pages/pages.h"
#include "shell/page_steps.h"
#include "text/failure.h"

namespace htr60::pages::trd_scales {
namespace {

constexpr std::string_view kInputPage = "Trd Input Scale";
constexpr std::string_view kLevelInputPage = "Trd Level Input Scale";
constexpr std::string_view kFactoryInputPage = "Factory Trd Input Scale";
constexpr std::string_view kOutputPage = "Trd Output Scale";
constexpr std::string_view kLevelOutputPage = "Trd Level Output Scale";
constexpr int kInputRead = 6;
constexpr int kOutputRead = 7;
constexpr int kOutputWrite = 4;
constexpr int kOutputUnitWrite = 42;

// Tops of the two lower groups of the output frame.
constexpr int kUpperTop = 3120;
constexpr int kLowerTop = 4560;

constexpr std::string_view kFlowUnits[] = {
    "g/s",    "g/min", "g/h",  "kg/s",  "kg/min",  "kg/h",  "kg/d",  "t/min", "t/h",     "t/d",   "lb/s",
    "lb/min", "lb/h",  "lb/d", "m³/s",  "m³/min",  "m³/h",  "m³/d",  "L/s",   "L/min",   "L/h",   "CFS",
    "CFM",    "CFH",   "CFD",  "gal/s", "gal/min", "gal/h", "gal/d", "bbl/s", "bbl/min", "bbl/h", "bbl/d",
};

// ---- layout

constexpr LayoutRow kInputRows[] = {
    {.caption = "Upper [EU (100%)]",
     .kind = RowKind::kNum,
     .control = id::txtParameter(99),
     .note = "What counts as 100 %. Written together with the lower value and the unit."},
    {.caption = "Lower [EU (0%)]",
     .kind = RowKind::kNum,
     .control = id::txtParameter(100),
     .note = "What counts as 0 %. Written together with the upper value and the unit."},
    {.caption = kPressureCaption,
     .captionControl = id::lbArray(107),
     .kind = RowKind::kList,
     .control = id::cmbPressureUnit,
     .note = "Unit of the two values above, which are not converted. Written together with them."},
};
constexpr LayoutRow kInputLimitRows[] = {
    {.caption = "Upper Sensor Limit",
     .kind = RowKind::kValue,
     .control = id::txtParameter(135),
     .unit = id::lbArray(465)},
    {.caption = "Lower Sensor Limit",
     .kind = RowKind::kValue,
     .control = id::txtParameter(126),
     .unit = id::lbArray(466)},
};
constexpr LayoutGroup kInputGroups[] = {
    {.caption = "Transducer Input Scale", .frame = id::frmzGroup(13), .rows = kInputRows},
    {.caption = "Sensor Limits", .frame = id::frmzGroup(8), .rows = kInputLimitRows},
};

constexpr LayoutRow kOutputRows[] = {
    {.caption = "Upper [EU (100%)]",
     .kind = RowKind::kNum,
     .control = id::txtParameter(92),
     .note = "Measured value at 100 %. On a density device it follows the measured type and cannot be written."},
    {.caption = "Lower [EU (0%)]",
     .kind = RowKind::kNum,
     .control = id::txtParameter(81),
     .note = "Measured value at 0 %. On a density device it follows the measured type and cannot be written."},
    {.caption = "Write",
     .captionControl = id::Command1,
     .kind = RowKind::kWrite,
     .control = id::Command1,
     .note = "Sends the scale and the unit, as the other button does."},
};
constexpr LayoutRow kOutputUnitRows[] = {
    {.caption = "Output Unit (EU)",
     .kind = RowKind::kList,
     .control = id::cmbUnitScaleOutput,
     .note = "Unit of the measured value and of the scale, whose numbers are not converted. On a density device it "
             "follows the measured type and cannot be written."},
    {.caption = "Write",
     .captionControl = id::Command2,
     .kind = RowKind::kWrite,
     .control = id::Command2,
     .note = "Sends the scale and the unit, as the other button does."},
};
constexpr LayoutRow kOutputLimitRows[] = {
    {.caption = "Upper Sensor Limit",
     .kind = RowKind::kValue,
     .control = id::txtParameter(194),
     .unit = id::lbArray(313)},
    {.caption = "Lower Sensor Limit",
     .kind = RowKind::kValue,
     .control = id::txtParameter(193),
     .unit = id::lbArray(314)},
};
constexpr LayoutRow kMeasureTypeRows[] = {
    {.caption = "Measure Type",
     .kind = RowKind::kList,
     .control = id::cmbMeasType,
     .note = "As which density or concentration the device reports what it measures. Scale and unit of the output "
             "follow it."},
    {.caption = "Write",
     .captionControl = id::CmdWriteMeasType,
     .kind = RowKind::kWrite,
     .control = id::CmdWriteMeasType,
     .note = "Sends the measure type alone; scale and unit follow it."},
};
constexpr LayoutGroup kOutputGroups[] = {
    {.caption = "Transducer Output Scale", .frame = id::frmzGroup(14), .rows = kOutputRows, .sentTogether = 1},
    {.caption = "Transducer Output Unit", .frame = id::frmzGroup(33), .rows = kOutputUnitRows, .sentTogether = 1},
    {.caption = "Sensor Limits", .frame = id::frmzGroup(34), .rows = kOutputLimitRows, .byTop = true},
    {.caption = "Measure Type", .frame = id::frmzGroup(61), .rows = kMeasureTypeRows, .byTop = true},
};

constexpr LayoutTitle kInputTitles[] = {
    {kInputPage, "Transducer Input Scale"},
    {kFactoryInputPage, "Transducer Input Scale"},
    {kLevelInputPage, "Transducer Pressure Scale"},
    {"Trd Density Input Scale", "Transducer Pressure Scale"},
    {"Trd Volume Scale", "Transducer Volume/Mass Scale"},
};
constexpr LayoutTitle kOutputTitles[] = {
    {kOutputPage, "Transducer Output Scale"},
    {kLevelOutputPage, "Transducer Level Scale"},
    {"Trd Density Output Scale", "Transducer Density Scale"},
};
constexpr int kInputReads[] = {kInputRead, 61, 67};
constexpr int kOutputReads[] = {kOutputRead, 62, 68};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmTRDInputScale,
     .titles = kInputTitles,
     .purpose = "Which pressure, volume or mass counts as 0 % and as 100 %.",
     .reads = kInputReads,
     .groups = kInputGroups},
    {.frame = id::frmTRDOutputScale,
     .titles = kOutputTitles,
     .purpose = "Which measured value the transducer reports at 0 % and at 100 %, and in which unit.",
     .reads = kOutputReads,
     .groups = kOutputGroups},
};
constexpr ControlId kWorkingFields[] = {id::txtParameter(197), id::txtParameter(198), id::txtParameter(199),
                                        id::txtParameter(200), id::txtParameter(201), id::txtParameter(202)};

// ---- answers

void OnTrdInputScaleAnswer(UserCntrl& c, const Answer& a) {
  const std::string_view unit = TakeInputScale(c, a);
  if (!unit.empty()) {
    c.form.lbArray(465).SetText(unit);
    c.form.lbArray(466).SetText(unit);
  }
  c.form.txtParameter(135).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDUpperSnsLimit"))));
  c.form.txtParameter(126).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDLowerSnsLimit"))));
}

// The limits keep their numbers in sensor units beside the caption of the output unit: only the answers for density
// and level convert them.
void TakeRawLimit(UserCntrl& c, const Answer& a, std::string_view tag, TextField& working, TextField& shown) {
  const FormattedNumber limit = c.codecs.FormatValue(HexToFloat(a.Text(tag)));
  working.SetText(limit);
  shown.SetText(limit);
}

struct UnitMessage {
  std::string_view page;
  std::string_view type;  // empty: any
  std::string_view text;
  std::string_view caption;
};
constexpr UnitMessage kUnitMessages[] = {
    {kOutputPage, "Pressure", "Please, select Pressure Uni.t", "Pressure Unit"},
    {kOutputPage, "Flow", "Please, select Flow Unit.", "Flow Unit"},
    {kLevelOutputPage, "", "Please, select Level Unit.", "Level Unit"},
};

void AskForUnit(UserCntrl& c) {
  if (!c.form.cmbUnitScaleOutput.Text().empty()) return;
  for (const UnitMessage& m : kUnitMessages) {
    if (m.page != c.CurrentPage || (!m.type.empty() && m.type != c.form.cmbPrimaryValueType.Text())) continue;
    c.ShowBox(m.text, m.caption);
    return;
  }
}

// The one answer that tells of its failure: mostly a unit that the list does not hold.
void OnTrdOutputScaleAnswer(UserCntrl& c, const Answer& a) {
  bool failed = false;
  try {
    TakeOutputScale(c, a);
    TakeRawLimit(c, a, "TRDUpperSnsLimit", c.form.txtParameter(201), c.form.txtParameter(194));
    TakeRawLimit(c, a, "TRDLowerSnsLimit", c.form.txtParameter(202), c.form.txtParameter(193));
    CheckOutputScale(c);
  } catch (const RuntimeFailure&) {
    failed = true;
  }
  if (failed) AskForUnit(c);
}

// ---- writes

Operands ScaleOperands(UserCntrl& c, const TextField& upper, const TextField& lower, const ChoiceList& unit) {
  return {Join({c.codecs.FloatToHex(upper.Text()), c.codecs.FloatToHex(lower.Text())}), UnitTextToCode(unit.Text())};
}

Operands WriteOutputScale(UserCntrl& c) {
  c.CheckOutScaleAfterWrite = kSet;
  return OutputScaleOperands(c);
}

// ---- buttons

void OpenTrdInputScale(UserCntrl& c) { OpenInputScale(c, {.page = kInputPage, .caption = "Transducer Input Scale"}); }

// Any other type than these two leaves the list and the groups as they stand.
void OpenTrdOutputScale(UserCntrl& c) {
  static constexpr OutputGroups kPressure{.units = kCalibrationUnits, .limits = true};
  static constexpr OutputGroups kFlow{.units = kFlowUnits};
  const std::string_view type = c.form.cmbPrimaryValueType.Text();
  const OutputGroups* groups = type == "Pressure" ? &kPressure : type == "Flow" ? &kFlow : nullptr;
  OpenOutputScale(
      c, {.page = kOutputPage, .caption = "Transducer Output Scale", .unitCaption = "Transducer Output Unit"}, groups);
}

void SendOutputScale(UserCntrl& c, int code) { c.SmallWrite(code, WriteOutputScale(c)); }

// ---- tables

constexpr AnswerRow kAnswers[] = {{600, OnTrdInputScaleAnswer}, {700, OnTrdOutputScaleAnswer, AskForUnit}};
constexpr WriteRow kWrites[] = {
    {{kInputPage, kLevelInputPage, kFactoryInputPage}, kAnySubPage, 3, InputScaleOperands},
    {{kOutputPage, kLevelOutputPage}, kAnySubPage, kOutputWrite, WriteOutputScale},
};
constexpr RereadRow kRereads[] = {
    {{kInputPage, kLevelInputPage, kFactoryInputPage}, kAnySubPage, kInputRead},
    {{kOutputPage, kLevelOutputPage}, kAnySubPage, kOutputRead},
};
constexpr BackRow kBacks[] = {{{kInputPage, kOutputPage}, kToTrdSettings}};
constexpr ButtonRow kButtons[] = {
    {id::cmdTRDInScale, OpenTrdInputScale},
    {id::cmdTrdOutScale, OpenTrdOutputScale},
    {id::Command1, {SendOutputScale, kOutputWrite}},
    {id::Command2, {SendOutputScale, kOutputUnitWrite}},
};

}  // namespace

void OpenInputScale(UserCntrl& c, const InputScale& scale) {
  c.form.cmbPressureUnit.Fill(scale.units);
  c.form.lbArray(107).SetText(scale.unitCaption);
  if (!scale.caption.empty()) c.form.frmzGroup(13).SetText(scale.caption);
  c.form.frmzGroup(8).SetVisible(scale.limits);
  OpenPage(c, {.frame = id::frmTRDInputScale, .page = scale.page, .write = ButtonState::kEnabled, .read = scale.read});
}

std::string_view TakeInputScale(UserCntrl& c, const Answer& a) {
  c.codecs.HexToFloatPair(a.Text("TRDInputScale"), c.form.txtParameter(99), c.form.txtParameter(100));
  const std::string_view unit = UnitCodeToText(a.Word("TRDPressUnit"));
  c.form.cmbPressureUnit.SetIfAny(unit);
  return unit;
}

Operands InputScaleOperands(UserCntrl& c) {
  return ScaleOperands(c, c.form.txtParameter(99), c.form.txtParameter(100), c.form.cmbPressureUnit);
}

void ArrangeOutputScale(UserCntrl& c, const OutputGroups& groups) {
  c.form.cmbUnitScaleOutput.Fill(groups.units);
  c.form.frmzGroup(34).SetVisible(groups.limits);
  c.form.frmzGroup(34).SetTop(groups.measureFirst ? kLowerTop : kUpperTop);
  c.form.frmzGroup(61).SetTop(groups.measureFirst ? kUpperTop : kLowerTop);
}

void OpenOutputScale(UserCntrl& c, const OutputScale& scale, const OutputGroups* groups) {
  if (groups != nullptr) ArrangeOutputScale(c, *groups);
  c.form.Command1.SetVisible(scale.editable);
  c.form.Command2.SetVisible(scale.editable);
  c.form.txtParameter(92).SetEnabled(scale.editable);
  c.form.txtParameter(81).SetEnabled(scale.editable);
  c.form.cmbUnitScaleOutput.SetEnabled(scale.editable);
  c.form.frmzGroup(14).SetText(scale.caption);
  c.form.frmzGroup(33).SetText(scale.unitCaption);
  c.form.frmzGroup(61).SetVisible(scale.measureType);
  OpenPage(c,
           {.frame = id::frmTRDOutputScale, .page = scale.page, .write = ButtonState::kDisabled, .read = scale.read});
}

void TakeOutputScale(UserCntrl& c, const Answer& a) {
  c.form.txtParameter(197).SetText("1");
  c.form.txtParameter(198).SetText("1");
  c.form.txtParameter(194).SetText("1");
  c.form.txtParameter(193).SetText("1");
  c.form.cmbMeasType.SetIfAny(DecodeMeasuredType(a.Number("MeasuredType")));
  c.codecs.HexToFloatPair(a.Text("TRDOutScale"), c.form.txtParameter(92), c.form.txtParameter(81));
  c.form.cmbUnitScaleOutput.SetIfAny(UnitCodeToText(a.Word("TRDOutUnit")));
  const std::string& outputUnit = c.form.cmbUnitScaleOutput.Text();
  c.GetFactor2Unit(outputUnit);
  c.form.lbArray(313).SetText(outputUnit);
  c.form.lbArray(314).SetText(outputUnit);
  c.form.txtParameter(199).SetText(UnitCodeToText(a.Word("TRDSensorUnit")));
  c.GetFactor1Unit(c.form.txtParameter(199).Text());
  const double outputFactor = c.codecs.ParseLocaleNumber(c.form.txtParameter(198).Text());
  const double sensorFactor = c.codecs.ParseLocaleNumber(c.form.txtParameter(197).Text());
  c.form.txtParameter(200).SetText(c.codecs.NumberToText(outputFactor / sensorFactor));
}

void TakeConvertedLimit(UserCntrl& c, double limit, TextField& raw, TextField& shown) {
  raw.SetText(c.codecs.FormatValue(limit));
  const double ratio = c.codecs.ParseLocaleNumber(c.form.txtParameter(200).Text());
  shown.SetText(c.codecs.NumberToText(ratio * c.codecs.ParseLocaleNumber(raw.Text())));
}

// The timer has no work and is never stopped: only its state is to be seen.
void CheckOutputScale(UserCntrl& c) {
  if (c.CheckOutScaleAfterWrite == kClear) return;
  c.CheckOutScaleAfterWrite = kClear;
  const std::string_view linearization = c.form.cmbLinearizationType.Text();
  if (c.form.cmbPrimaryValueType.Text() != "Pressure" || linearization == "Square Root" ||
      linearization == "Square Root & Table") {
    return;
  }
  c.StartTimer(TimerId::TimerWriteCopyTrdOut, 100);
}

Operands OutputScaleOperands(UserCntrl& c) {
  return ScaleOperands(c, c.form.txtParameter(92), c.form.txtParameter(81), c.form.cmbUnitScaleOutput);
}

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .backs = kBacks,
    .buttons = kButtons,
    .workingFields = kWorkingFields,
};

}  // namespace htr60::pages::trd_scales
