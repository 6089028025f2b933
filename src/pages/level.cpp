#include "pages/pages.h"

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/status_tables.h"
#include "codecs/unit_tables.h"
#include "pages/common_notes.h"
#include "pages/transducer_twins.h"
#include "pages/trd_scales.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::level {
namespace {

constexpr std::string_view kPage = "TRD Level Settings";
constexpr std::string_view kInputPage = "Trd Level Input Scale";
constexpr std::string_view kOutputPage = "Trd Level Output Scale";
constexpr std::string_view kVolumePage = "Trd Volume Scale";
constexpr int kSettingsRead = 69;
constexpr int kSimulateRead = 72;
constexpr int kSensorRead = 45;
constexpr int kVolumeRead = 67;
constexpr int kDecimals = 7;

// ---- layout

constexpr LayoutRow kSettingsRows[] = {
    {.caption = "Primary Value Type",
     .kind = RowKind::kList,
     .control = id::cmbLevelPrimaryValueType,
     .note = kNewTypeNote},
    {.caption = "Compensation",
     .kind = RowKind::kList,
     .control = id::cmbLevelCompensation,
     .note = "Takes the fluid's density from the second sensor."},
    {.caption = "Linearization Type",
     .kind = RowKind::kList,
     .control = id::cmbLevelLinearizationType,
     .note = kTableLinearizationNote,
     .role = RowRole::kLinearization},
    {.caption = "Gravity",
     .kind = RowKind::kNum,
     .control = id::txtParameter(161),
     .unit = "m/s²",
     .note = "Acceleration of gravity at the measuring place."},
    {.caption = "Height",
     .kind = RowKind::kNum,
     .control = id::txtParameter(160),
     .unit = "m",
     .note = "Distance of the two sensors."},
    {.caption = "DeadBand Comp",
     .captionControl = id::lbArray(347),
     .kind = RowKind::kNum,
     .control = id::txtParameter(176),
     .unit = id::lbArray(348),
     .note = "Up to this pressure at the second sensor the compensation keeps the last density. Shown with firmware "
             "1.05 alone."},
};
constexpr LayoutRow kScaleRows[] = {
    {.caption = "Transducer Pressure Scale",
     .captionControl = id::cmdTRDLevelInputScale,
     .kind = RowKind::kOpen,
     .control = id::cmdTRDLevelInputScale},
    {.caption = "Transducer Level Scale",
     .captionControl = id::cmdTRDLevelOutputScale,
     .kind = RowKind::kOpen,
     .control = id::cmdTRDLevelOutputScale},
    {.caption = "Transducer Volume/Mass Scale",
     .captionControl = id::cmdTRVScaleVolume,
     .kind = RowKind::kOpen,
     .control = id::cmdTRVScaleVolume},
};
constexpr SimulateFields kSimulateFields{
    .enable = id::cmbLevelSimulate, .value = id::txtParameter(272), .status = id::cmbTRDLevelSimStatus};
constexpr auto kSimulateRows = SimulateRows(kSimulateFields);
constexpr auto kSensorRows = SensorValueRows({.message = id::lbArray(26),
                                              .diag = id::txtParameter(143),
                                              .deltaPress = id::txtParameter(144),
                                              .deltaPressUnit = id::lbArray(187),
                                              .hi = id::txtParameter(334),
                                              .hiUnit = id::lbArray(495),
                                              .hiStatus = id::txtParameter(333),
                                              .lo = id::txtParameter(336),
                                              .loUnit = id::lbArray(496),
                                              .primaryValue = id::txtParameter(316),
                                              .primaryValueUnit = id::lbArray(190),
                                              .primaryValueStatus = id::txtParameter(210),
                                              .weight = id::txtParameter(139),
                                              .temperature = id::txtParameter(301),
                                              .temperatureUnit = id::lbArray(498)});
constexpr LayoutGroup kGroups[] = {
    {.tab = 0, .caption = "Measuring Configuration", .rows = kSettingsRows},
    {.tab = 1, .rows = kScaleRows, .box = false},
    {.tab = 2, .caption = "Simulate", .rows = kSimulateRows},
    {.tab = 3, .caption = "Sensor Value", .rows = kSensorRows},
};
constexpr LayoutTitle kTitle[] = {{"", "Level"}};
constexpr int kReads[] = {kSettingsRead, kSimulateRead, kSensorRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmTRDLevel,
     .titles = kTitle,
     .purpose = "How pressure becomes level: compensation, gravity, height, scales, simulation, sensor values.",
     .reads = kReads,
     .strip = id::SSTabTRDLevel,
     .groups = kGroups,
     .numberWidth = 18},
};

// ---- answers

void OnVolumeScaleAnswer(UserCntrl& c, const Answer& a) { trd_scales::TakeInputScale(c, a); }

// No read asks for it; a host may send it.
void OnLevelOutputScaleAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  trd_scales::TakeOutputScale(c, a);
  trd_scales::TakeConvertedLimit(c, HexToFloat(a.Text("TRDUpperSnsLimit")), f.txtParameter(201), f.txtParameter(194));
  trd_scales::TakeConvertedLimit(c, HexToFloat(a.Text("TRDLowerSnsLimit")), f.txtParameter(202), f.txtParameter(193));
  trd_scales::CheckOutputScale(c);
}

void OnLevelSettingsAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  TakePrimaryValueType(c, a, id::cmbLevelPrimaryValueType, "Level");
  f.cmbLevelCompensation.SetIfAny(DecodeCompensation(a.Number("TRDCompensation")));
  f.cmbLevelLinearizationType.SetIfAny(DecodeLinType(a.Number("TRDLinType")));
  f.txtParameter(161).SetText(c.codecs.FormatDecimals(HexToFloat(a.Text("Gravity")), kDecimals));
  f.txtParameter(160).SetText(c.codecs.FormatDecimals(HexToFloat(a.Text("Height")), kDecimals));
  if (c.FwFlag105 == kClear) return;
  // Firmware 1.06 to 1.09 sends the value too, though its field is shown with 1.05 alone.
  f.txtParameter(176).SetText(c.codecs.FormatDecimals(HexToFloat(a.Text("DeadBandComp")), kDecimals));
  f.lbArray(348).SetText(UnitCodeToText(a.Word("SnsHiUnit")));
}

void OnLevelSimulateAnswer(UserCntrl& c, const Answer& a) { TakeSimulate(c, a, kSimulateFields); }

// ---- writes

Operands WriteSettings(UserCntrl& c) {
  Operands operands{
      EncodePVType(c.form.cmbLevelPrimaryValueType.Text()), EncodeLinType(c.form.cmbLevelLinearizationType.Text()),
      EncodeCompensation(c.form.cmbLevelCompensation.Text()), c.codecs.FloatToHex(c.form.txtParameter(161).Text()),
      c.codecs.FloatToHex(c.form.txtParameter(160).Text())};
  if (c.FwFlag105 != kClear) operands.Add(c.codecs.FloatToHex(c.form.txtParameter(176).Text()));
  return operands;
}

Operands WriteSimulate(UserCntrl& c) { return SimulateOperands(c, kSimulateFields); }

// ---- buttons and tabs

constexpr trd_scales::InputScale kPressureScale{.page = kInputPage, .caption = "Transducer Pressure Scale"};
constexpr trd_scales::InputScale kVolumeScale{.page = kVolumePage,
                                              .caption = "Transducer Volume Scale",
                                              .unitCaption = "Volume Unit (EU)",
                                              .units = kVolumeUnitListRows,
                                              .limits = false,
                                              .read = kVolumeRead};
constexpr trd_scales::OutputScale kLevelScale{
    .page = kOutputPage, .caption = "Transducer Level Scale", .unitCaption = "Transducer Level Unit"};
constexpr trd_scales::OutputGroups kLevelGroups{.units = kLengthUnitListRows};

void OpenPressureScale(UserCntrl& c) { trd_scales::OpenInputScale(c, kPressureScale); }
void OpenLevelScale(UserCntrl& c) { trd_scales::OpenOutputScale(c, kLevelScale, &kLevelGroups); }
void OpenVolumeScale(UserCntrl& c) { trd_scales::OpenInputScale(c, kVolumeScale); }

constexpr TabStep kSteps[] = {
    {.page = kPage, .subPage = "Settings", .write = ButtonState::kEnabled, .read = kSettingsRead},
    {.page = kPage, .write = ButtonState::kDisabled},
    {.page = kPage, .subPage = "Simulate", .write = ButtonState::kEnabled, .read = kSimulateRead},
    {.page = kPage,
     .subPage = "Sensor Value",
     .write = ButtonState::kDisabled,
     .read = kSensorRead,
     .polls = true,
     .timer = TimerId::TimerSensorValue,
     .interval = 5000},
};

void OnTab(UserCntrl& c, int tab) { RunTabReadingLast(c, kSteps[tab]); }

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {6700, OnVolumeScaleAnswer},
    {6800, OnLevelOutputScaleAnswer},
    {6900, OnLevelSettingsAnswer},
    {7200, OnLevelSimulateAnswer},
};
constexpr WriteRow kWrites[] = {
    {kPage, "Settings", 59, WriteSettings},
    {kPage, "Simulate", 62, WriteSimulate},
    {kVolumePage, kAnySubPage, 57, trd_scales::InputScaleOperands},
};
constexpr RereadRow kRereads[] = {
    {kPage, "Settings", kSettingsRead},
    {kPage, "Simulate", kSimulateRead},
    {kVolumePage, kAnySubPage, kVolumeRead},
};
constexpr BackRow kBacks[] = {
    {{kInputPage, kOutputPage, kVolumePage},
     {.page = kPage, .frame = id::frmTRDLevel, .write = ButtonState::kDisabled}},
};
constexpr ButtonRow kButtons[] = {
    {id::cmdTRDLevelInputScale, OpenPressureScale},
    {id::cmdTRDLevelOutputScale, OpenLevelScale},
    {id::cmdTRVScaleVolume, OpenVolumeScale},
};
constexpr TabRow kTabs[] = {{id::SSTabTRDLevel, kSteps, OnTab}};

constexpr std::string_view kEnableDisable[] = {"Enable", "Disable"};
constexpr FillRow kFills[] = {
    {id::cmbLevelPrimaryValueType, &UserCntrl::FirstVisitLevel, kPrimaryValueTypes},
    {id::cmbLevelLinearizationType, &UserCntrl::FirstVisitLevel, kTableLinearizations},
    {id::cmbLevelCompensation, &UserCntrl::FirstVisitLevel, kEnableDisable},
    {id::cmbLevelSimulate, &UserCntrl::FirstVisitLevel, kEnableDisable},
    {id::cmbTRDLevelSimStatus, &UserCntrl::FirstVisitLevel, kStatusListRows},
};
constexpr NodeText kNodeTexts[] = {
    {.text = "Level", .parent = "Primary Value Type", .picture = "forward2", .trees = TreeShape::kLevel}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = kPage,
     .subPage = "Settings",
     .frame = id::frmTRDLevel,
     .strip = id::SSTabTRDLevel,
     .read = kSettingsRead,
     .firstVisit = &UserCntrl::FirstVisitLevel},
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

}  // namespace htr60::pages::level
