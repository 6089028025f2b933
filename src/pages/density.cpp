#include "pages/pages.h"

#include "codecs/mEnumeration.h"
#include "codecs/unit_tables.h"
#include "pages/backup_restore.h"
#include "pages/common_notes.h"
#include "pages/measured_types.h"
#include "pages/transducer_twins.h"
#include "pages/trd_scales.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::density {
namespace {

constexpr std::string_view kPage = "TRD Density Settings";
constexpr std::string_view kInputPage = "Trd Density Input Scale";
constexpr std::string_view kOutputPage = "Trd Density Output Scale";
constexpr int kSettingsRead = 63;
constexpr int kBackupRead = 40;
constexpr int kSimulateRead = 70;
constexpr int kRangeRead = 71;
constexpr int kChainRead = 53;
constexpr int kInputRead = 61;
constexpr int kOutputRead = 62;
constexpr int kMeasuredTypeWrite = 54;

// ---- layout

constexpr LayoutRow kSettingsRows[] = {
    {.caption = "Primary Value Type",
     .kind = RowKind::kList,
     .control = id::cmbDensityPrimaryValueType,
     .note = kNewTypeNote},
    {.caption = "Measured Type",
     .kind = RowKind::kList,
     .control = id::cmbMeasuredType,
     .note = "Scale and unit of the output follow the measured type."},
    {.caption = "Linearization Type",
     .kind = RowKind::kList,
     .control = id::cmbDensityLinearizationType,
     .note = kTableLinearizationNote,
     .role = RowRole::kLinearization},
    {.caption = "Position Mounting",
     .kind = RowKind::kList,
     .control = id::cmbPositionMounting,
     .note = "Reverse where the two sensors have changed places."},
};
constexpr LayoutRow kScaleRows[] = {
    {.caption = "Transducer Pressure Scale",
     .captionControl = id::cmdDensTrdInputScale,
     .kind = RowKind::kOpen,
     .control = id::cmdDensTrdInputScale},
    {.caption = "Transducer Density Scale",
     .captionControl = id::cmdDensTrdOutputScale,
     .kind = RowKind::kOpen,
     .control = id::cmdDensTrdOutputScale},
};
constexpr LayoutRow kAdvancedRows[] = {
    {.caption = "Constants", .captionControl = id::cmdConstant, .kind = RowKind::kOpen, .control = id::cmdConstant},
    {.caption = "General Concentration",
     .captionControl = id::cmdConcentration,
     .kind = RowKind::kOpen,
     .control = id::cmdConcentration},
    {.caption = "Solid Percent Coefficients",
     .captionControl = id::cmdSolid,
     .kind = RowKind::kOpen,
     .control = id::cmdSolid},
};
constexpr LayoutRow kCommandRows[] = {BackupRow(id::lbParameter(4), id::cmbDensBackupRestore)};
constexpr LayoutRow kSimulateRows[] = {
    {.caption = "Simulate Enable",
     .kind = RowKind::kList,
     .control = id::cmbPressSimulateEnable,
     .note = "While it is enabled the device calculates with the two values below.",
     .role = RowRole::kSimulate,
     .health = HealthItem::kSimulatePressure},
    {.caption = "Pressure",
     .kind = RowKind::kNum,
     .control = id::txtParameter(136),
     .note = "Stands for the measured differential pressure while simulation is enabled. No unit is reported."},
    {.caption = "Temperature",
     .kind = RowKind::kNum,
     .control = id::txtParameter(338),
     .note = "Stands for the measured temperature while simulation is enabled. No unit is reported."},
};
constexpr LayoutRow kRangeRows[] = {
    {.caption = "Range Code",
     .kind = RowKind::kList,
     .control = id::cmbDensityRangeCode,
     .note = "The densities that the instrument covers. The scales of the second and third Analog Input follow it."},
};
constexpr LayoutRow kSensorRows[] = {
    {.caption = "Delta Press",
     .kind = RowKind::kValue,
     .control = id::txtParameter(323),
     .unit = id::lbArray(503),
     .live = true},
    {.caption = "Hi Press Value",
     .kind = RowKind::kValue,
     .control = id::txtParameter(321),
     .unit = id::lbArray(485),
     .second = id::txtParameter(322),
     .note = kReadingNote,
     .live = true,
     .secondNote = kReadingStatusNote},
    {.caption = "Lo Press Value",
     .kind = RowKind::kValue,
     .control = id::txtParameter(319),
     .unit = id::lbArray(486),
     .note = kReadingWithoutStatusNote,
     .live = true},
};
constexpr LayoutRow kDynamicRows[] = {
    {.caption = "Primary Value",
     .kind = RowKind::kValue,
     .control = id::txtParameter(352),
     .unit = id::lbArray(499),
     .second = id::txtParameter(335),
     .note = kPrimaryValueNote,
     .live = true,
     .health = HealthItem::kPrimaryValue,
     .secondNote = kPrimaryValueStatusNote},
    {.caption = "Specific Weight",
     .kind = RowKind::kValue,
     .control = id::txtParameter(337),
     .unit = id::lbArray(469),
     .note = "In the unit of the measured type.",
     .live = true},
    {.caption = "Temp.",
     .kind = RowKind::kValue,
     .control = id::txtParameter(320),
     .unit = id::lbArray(502),
     .live = true},
};
constexpr LayoutGroup kGroups[] = {
    {.tab = 0, .caption = "Measuring Configuration", .rows = kSettingsRows},
    {.tab = 1, .rows = kScaleRows, .box = false},
    {.tab = 2, .rows = kAdvancedRows, .box = false},
    {.tab = 3, .caption = "Backup Restore", .rows = kCommandRows},
    {.tab = 4, .caption = "Simulate", .rows = kSimulateRows},
    {.tab = 5, .caption = "HTR Range Code", .rows = kRangeRows},
    {.tab = 6, .caption = "Sensor Value", .rows = kSensorRows},
    {.tab = 6, .caption = "Dynamic Values", .rows = kDynamicRows},
};
constexpr LayoutTitle kTitle[] = {{"", "Density/Concentration"}};
constexpr int kReads[] = {kSettingsRead, kBackupRead, kSimulateRead, kRangeRead, kChainRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmTRDDensity,
     .titles = kTitle,
     .purpose = "How pressure and temperature become density or concentration.",
     .reads = kReads,
     .strip = id::SSTabDensity,
     .groups = kGroups},
};

// ---- answers

void OnDensityInputScaleAnswer(UserCntrl& c, const Answer& a) { trd_scales::TakeInputScale(c, a); }

void OnDensityOutputScaleAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  trd_scales::TakeOutputScale(c, a);
  trd_scales::TakeConvertedLimit(c, HexToFloat(a.Text("TRDUpperSnsLimit")), f.txtParameter(201), f.txtParameter(194));
  trd_scales::TakeConvertedLimit(c, HexToFloat(a.Text("TRDLowerSnsLimit")), f.txtParameter(202), f.txtParameter(193));
}

void OnDensitySettingsAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  TakePrimaryValueType(c, a, id::cmbDensityPrimaryValueType, "Density");
  f.cmbMeasuredType.SetIfAny(DecodeMeasuredType(a.Number("MeasuredType")));
  f.cmbPositionMounting.SetIfAny(DecodePositionMounting(a.Number("PositionMounting")));
  f.cmbDensityLinearizationType.SetIfAny(DecodeLinType(a.Number("TRDLinType")));
}

void OnDensitySimulateAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbPressSimulateEnable.SetIfAny(DecodeDebugEnable(a.Number("TRDDebugEnable")));
  c.form.txtParameter(136).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDFloatDebug"))));
  c.form.txtParameter(338).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDTempSimulate"))));
}

void OnRangeCodeAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbDensityRangeCode.SetIfAny(DecodeDensityRange(a.Number("TRDRangeCode")));
}

// ---- writes

Operands WriteSettings(UserCntrl& c) {
  return {EncodePVType(c.form.cmbDensityPrimaryValueType.Text()), EncodeMeasuredType(c.form.cmbMeasuredType.Text()),
          EncodePositionMounting(c.form.cmbPositionMounting.Text()),
          EncodeLinType(c.form.cmbDensityLinearizationType.Text())};
}

Operands WriteBackupRestore(UserCntrl& c) { return BackupOperands(c, id::cmbDensBackupRestore); }

Operands WriteSimulate(UserCntrl& c) {
  return {EncodeEnableFlag(c.form.cmbPressSimulateEnable.Text()), c.codecs.FloatToHex(c.form.txtParameter(136).Text()),
          c.codecs.FloatToHex(c.form.txtParameter(338).Text())};
}

Operands WriteRangeCode(UserCntrl& c) { return {EncodeDensityRange(c.form.cmbDensityRangeCode.Text())}; }

// ---- buttons and tabs

constexpr trd_scales::InputScale kPressureScale{
    .page = kInputPage, .caption = "Transducer Pressure Scale", .limits = false, .read = kInputRead};
// The scale follows from the measured type, which is all that can be written there.
constexpr trd_scales::OutputScale kDensityScale{.page = kOutputPage,
                                                .caption = "Transducer Density Scale",
                                                .unitCaption = "Transducer Density Unit",
                                                .editable = false,
                                                .measureType = true,
                                                .read = kOutputRead};
constexpr trd_scales::OutputGroups kDensityGroups{.units = kDensityUnitListRows, .measureFirst = true};

void OpenPressureScale(UserCntrl& c) { trd_scales::OpenInputScale(c, kPressureScale); }
void OpenDensityScale(UserCntrl& c) { trd_scales::OpenOutputScale(c, kDensityScale, &kDensityGroups); }

void SendMeasuredType(UserCntrl& c) {
  c.CheckOutScaleAfterWrite = kSet;
  c.SmallWrite(kMeasuredTypeWrite, {EncodeMeasuredType(c.form.cmbMeasType.Text())});
}

constexpr TabStep kSteps[] = {
    {.page = kPage, .subPage = "Settings", .write = ButtonState::kEnabled, .read = kSettingsRead},
    {.page = kPage, .write = ButtonState::kDisabled},
    {.page = kPage, .write = ButtonState::kDisabled},
    {.page = kPage, .subPage = "Backup Restore", .write = ButtonState::kEnabled, .read = kBackupRead},
    {.page = kPage, .subPage = "Simulate", .write = ButtonState::kEnabled, .read = kSimulateRead},
    {.page = kPage, .subPage = "Range Code", .write = ButtonState::kEnabled, .read = kRangeRead},
    {.page = kPage,
     .subPage = "Sensor Value",
     .write = ButtonState::kDisabled,
     .read = kChainRead,
     .polls = true,
     .timer = TimerId::TimerDiagnosisTab3,
     .interval = 6000},
};

void OnTab(UserCntrl& c, int tab) {
  const TabStep& step = kSteps[tab];
  RunTab(c, step);
  if (step.polls) c.Read(step.read);  // this tab reads twice when it is opened
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {6100, OnDensityInputScaleAnswer}, {6200, OnDensityOutputScaleAnswer}, {6300, OnDensitySettingsAnswer},
    {7000, OnDensitySimulateAnswer},   {7100, OnRangeCodeAnswer},
};
constexpr WriteRow kWrites[] = {
    {kInputPage, kAnySubPage, 49, trd_scales::InputScaleOperands},
    {kOutputPage, kAnySubPage, 50, trd_scales::OutputScaleOperands},
    {kPage, "Settings", 51, WriteSettings},
    {kPage, "Backup Restore", kBackupWrite, WriteBackupRestore},
    {kPage, "Simulate", 60, WriteSimulate},
    {kPage, "Range Code", 61, WriteRangeCode},
};
constexpr RereadRow kRereads[] = {
    {kInputPage, kAnySubPage, kInputRead},  {kOutputPage, kAnySubPage, kOutputRead}, {kPage, "Settings", kSettingsRead},
    {kPage, "Backup Restore", kBackupRead}, {kPage, "Simulate", kSimulateRead},      {kPage, "Range Code", kRangeRead},
};
constexpr BackRow kBacks[] = {
    // No write or re-read knows this page name: until a tab or a node is chosen, Write sends nothing.
    {{kInputPage, kOutputPage}, {.page = "TRD Density", .frame = id::frmTRDDensity}},
};
constexpr ButtonRow kButtons[] = {
    {id::cmdDensTrdInputScale, OpenPressureScale},
    {id::cmdDensTrdOutputScale, OpenDensityScale},
    {id::CmdWriteMeasType, SendMeasuredType},
};
constexpr TabRow kTabs[] = {{id::SSTabDensity, kSteps, OnTab}};

constexpr std::string_view kMountings[] = {"Reverse", "Direct"};
constexpr std::string_view kDisableEnable[] = {"Disable", "Enable"};
constexpr std::string_view kRanges[] = {"Range 1 (0.5 @ 1.8 g/cm³)", "Range 2 (1.0 @ 2.5 g/cm³)",
                                        "Range 3 (2.0 @ 5.0 g/cm³)"};
constexpr FillRow kFills[] = {
    {id::cmbMeasType, kAtStart, kMeasuredTypes},
    {id::cmbDensityPrimaryValueType, &UserCntrl::FirstVisitDensity, kPrimaryValueTypes},
    {id::cmbDensityLinearizationType, &UserCntrl::FirstVisitDensity, kTableLinearizations},
    {id::cmbMeasuredType, &UserCntrl::FirstVisitDensity, kMeasuredTypes},
    {id::cmbMeasType, &UserCntrl::FirstVisitDensity, kMeasuredTypes},
    {id::cmbPositionMounting, &UserCntrl::FirstVisitDensity, kMountings},
    {id::cmbDensBackupRestore, &UserCntrl::FirstVisitDensity, kBackupRows},
    {id::cmbPressSimulateEnable, &UserCntrl::FirstVisitDensity, kDisableEnable},
    {id::cmbDensityRangeCode, &UserCntrl::FirstVisitDensity, kRanges},
};
constexpr NodeText kNodeTexts[] = {{.text = "Density/Concentration",
                                    .parent = "Primary Value Type",
                                    .picture = "forward2",
                                    .trees = TreeShape::kDensity}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = kPage,
     .subPage = "Settings",
     .frame = id::frmTRDDensity,
     .strip = id::SSTabDensity,
     .read = kSettingsRead,
     .firstVisit = &UserCntrl::FirstVisitDensity},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .backs = kBacks,
    .buttons = kButtons,
    .tabs = kTabs,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::density
