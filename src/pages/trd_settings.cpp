#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/mStatusProfibus.h"
#include "pages/calibration_units.h"
#include "pages/pages.h"
#include "pages/transducer_twins.h"
#include "pages/trd_scales.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::trd_settings {
namespace {

constexpr std::string_view kPage = "TRD Settings";
constexpr char kSettings[] = "TRD Settings";
constexpr char kSimulate[] = "TRD Simulate";
constexpr std::string_view kSquareRootPage = "Square Root";
constexpr std::string_view kTemperaturePage = "TRD Temp Unit";
constexpr int kSettingsRead = 5;
constexpr int kSimulateRead = 43;
constexpr int kSensorValueRead = 45;
constexpr int kTemperatureRead = 8;
constexpr int kSimulateTab = 2;

// ---- layout

constexpr LayoutRow kMeasuringRows[] = {
    {.caption = "Primary Value Type",
     .kind = RowKind::kList,
     .control = id::cmbPrimaryValueType,
     .note = "What the transducer measures, written together with the linearization. A change sets the transducer to "
             "the defaults of the new type."},
    {.caption = "Linearization Type",
     .kind = RowKind::kList,
     .control = id::cmbLinearizationType,
     .note = "The curve from pressure to measured value, which decides what this page shows. Until a table is accepted "
             "the device refuses the choices with one.",
     .role = RowRole::kLinearization},
    {.caption = "Table Points",
     .captionControl = id::cmdTablePoints,
     .kind = RowKind::kOpen,
     .control = id::cmdTablePoints},
};
constexpr LayoutRow kSquareRootRows[] = {
    {.caption = "Flow Lin Sqrt (%)",
     .kind = RowKind::kNum,
     .control = id::txtParameter(37),
     .note = "Below this flow the curve is a straight line to zero. Written also while it is hidden."},
    {.caption = "Low Flow Cut Off (%)",
     .kind = RowKind::kNum,
     .control = id::txtParameter(40),
     .note = "Below this flow the value is zero. Written also while it is hidden."},
    {.caption = "Curve Graphic",
     .captionControl = id::cmdSquareRoot,
     .kind = RowKind::kOpen,
     .control = id::cmdSquareRoot},
};
constexpr LayoutRow kScalesRows[] = {
    {.caption = "Transducer Input Scale",
     .captionControl = id::cmdTRDInScale,
     .kind = RowKind::kOpen,
     .control = id::cmdTRDInScale},
    {.caption = "Transducer Output Scale",
     .captionControl = id::cmdTrdOutScale,
     .kind = RowKind::kOpen,
     .control = id::cmdTrdOutScale},
    {.caption = "Temperature", .captionControl = id::cmdTemp, .kind = RowKind::kOpen, .control = id::cmdTemp},
};
constexpr SimulateFields kSimulateFields{
    .enable = id::cmbPVSimulateEnable, .value = id::txtParameter(59), .status = id::cmbTRDSimStatus};
constexpr auto kSimulateRows = SimulateRows(kSimulateFields);
constexpr auto kSensorValueRows = SensorValueRows({.message = id::lbStatusSensorValue,
                                                   .diag = id::txtParameter(298),
                                                   .deltaPress = id::txtParameter(10),
                                                   .deltaPressUnit = id::lbArray(270),
                                                   .hi = id::txtParameter(61),
                                                   .hiUnit = id::lbArray(489),
                                                   .hiStatus = id::txtParameter(300),
                                                   .lo = id::txtParameter(62),
                                                   .loUnit = id::lbArray(490),
                                                   .primaryValue = id::txtParameter(60),
                                                   .primaryValueUnit = id::lbArray(279),
                                                   .primaryValueStatus = id::txtParameter(299),
                                                   .weight = id::txtParameter(317),
                                                   .temperature = id::txtParameter(17),
                                                   .temperatureUnit = id::lbArray(221)});
constexpr LayoutGroup kSettingsGroups[] = {
    {.tab = 0, .caption = "Measuring Configuration", .rows = kMeasuringRows},
    {.tab = 0, .caption = "Square Root", .frame = id::frmzGroup(12), .rows = kSquareRootRows},
    {.tab = 1, .rows = kScalesRows, .box = false},
    {.tab = kSimulateTab, .caption = "Simulate", .rows = kSimulateRows},
    {.tab = 3, .caption = "Sensor Value", .rows = kSensorValueRows},
};
constexpr LayoutRow kTemperatureRows[] = {
    {.caption = "Temperature Unit",
     .kind = RowKind::kList,
     .control = id::cmbTempUnits,
     .note = "Once written, the device reports the sensors' temperature and its calibration point in it."},
};
constexpr LayoutGroup kTemperatureGroups[] = {{.caption = "Temperature Unit", .rows = kTemperatureRows}};

constexpr LayoutTitle kSettingsTitle[] = {{"", "Pressure/Flow"}};
constexpr LayoutTitle kTemperatureTitle[] = {{"", "Temperature"}};
constexpr LayoutTitle kSquareRootTitle[] = {{"", "Square Root Curve"}};
constexpr int kSettingsReads[] = {kSettingsRead, kSimulateRead, kSensorValueRead};
constexpr int kTemperatureReads[] = {kTemperatureRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmTRDSettings,
     .titles = kSettingsTitle,
     .purpose = "How the measured pressure becomes pressure or flow: type, linearization, scales, simulation, sensor "
                "values.",
     .reads = kSettingsReads,
     .strip = id::SSTabTRDSettings,
     .groups = kSettingsGroups},
    {.frame = id::frmTRDTempUnits,
     .titles = kTemperatureTitle,
     .purpose = "In which unit temperatures are shown.",
     .reads = kTemperatureReads,
     .groups = kTemperatureGroups},
    {.frame = id::frmSquareRoot,
     .titles = kSquareRootTitle,
     .purpose = "What the flow settings mean.",
     .figure = FigureKind::kSquareRoot,
     .figureAlone = true},
};

// ---- answers

void OnTrdSettingsAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbPrimaryValueType.SetIfAny(DecodePVType(a.Number("TRDPVType")));
  const std::string_view type = c.form.cmbPrimaryValueType.Text();
  if (type != "Flow" && type != "Pressure") {
    c.ShowBox("Please, note that HTR60 is not configured to Pressure/Flow measurement.", "Primary Value Type");
  }
  c.form.cmbLinearizationType.SetIfAny(DecodeLinType(a.Number("TRDLinType")));
  c.form.txtParameter(37).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDFlowLinSqrt"))));
  c.form.txtParameter(40).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDLowFlowCutOff"))));
}

void OnTrdTempUnitAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbTempUnits.SetIfAny(UnitCodeToText(a.Word("TRDTempUnit")));
}

void OnTrdSimulateAnswer(UserCntrl& c, const Answer& a) { TakeSimulate(c, a, kSimulateFields); }

// ---- writes

Operands WriteTrdSettings(UserCntrl& c) {
  return {EncodePVType(c.form.cmbPrimaryValueType.Text()), EncodeLinType(c.form.cmbLinearizationType.Text()),
          c.codecs.FloatToHex(c.form.txtParameter(37).Text()), c.codecs.FloatToHex(c.form.txtParameter(40).Text())};
}

Operands WriteTrdTempUnit(UserCntrl& c) { return {UnitTextToCode(c.form.cmbTempUnits.Text())}; }

Operands WriteTrdSimulate(UserCntrl& c) { return SimulateOperands(c, kSimulateFields); }

// ---- buttons, tabs and list

void OpenSquareRoot(UserCntrl& c) { OpenPage(c, {.frame = id::frmSquareRoot, .page = kSquareRootPage}); }

void OpenTemperature(UserCntrl& c) {
  OpenPage(c, {.frame = id::frmTRDTempUnits,
               .page = kTemperaturePage,
               .write = ButtonState::kEnabled,
               .read = kTemperatureRead});
}

constexpr TabStep kTabSteps[] = {
    {.page = kPage, .subPage = kSettings, .write = ButtonState::kEnabled, .read = kSettingsRead},
    {.write = ButtonState::kDisabled},
    {.page = kPage, .subPage = kSimulate, .write = ButtonState::kEnabled, .read = kSimulateRead},
    {.page = kPage,
     .subPage = "Sensor Value",
     .write = ButtonState::kDisabled,
     .read = kSensorValueRead,
     .polls = true,
     .timer = TimerId::TimerSensorValue,
     .interval = 5000},
};

void OnSettingsTab(UserCntrl& c, int tab) {
  // Rows that stand are those of an earlier visit of the tab.
  if (tab == kSimulateTab && c.form.cmbTRDSimStatus.Rows().empty()) c.form.cmbTRDSimStatus.Fill(StatusListRows());
  RunTab(c, kTabSteps[tab]);
}

struct ShownParts {
  std::string_view linearization;
  bool squareRoot;
  bool table;
};
constexpr ShownParts kShownParts[] = {
    {"Square Root & Table", true, true},  {"Square Root", true, false},
    {"User Defined(Table)", false, true}, {"None", false, false},
    {"No Linearization.", false, false},
};

void OnLinearizationType(UserCntrl& c) {
  for (const ShownParts& parts : kShownParts) {
    if (parts.linearization != c.form.cmbLinearizationType.Text()) continue;
    c.form.frmzGroup(12).SetVisible(parts.squareRoot);
    c.form.cmdTablePoints.SetVisible(parts.table);
  }
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {500, OnTrdSettingsAnswer},
    {800, OnTrdTempUnitAnswer},
    {4300, OnTrdSimulateAnswer},
};
constexpr WriteRow kWrites[] = {
    {kPage, kSettings, 2, WriteTrdSettings},
    {kPage, kSimulate, 35, WriteTrdSimulate},
    {kTemperaturePage, kAnySubPage, 5, WriteTrdTempUnit},
};
constexpr RereadRow kRereads[] = {
    {kPage, kSettings, kSettingsRead},
    {kPage, kSimulate, kSimulateRead},
    {kTemperaturePage, kAnySubPage, kTemperatureRead},
};
constexpr BackRow kBacks[] = {{{kSquareRootPage, kTemperaturePage}, trd_scales::kToTrdSettings}};
constexpr ButtonRow kButtons[] = {{id::cmdSquareRoot, OpenSquareRoot}, {id::cmdTemp, OpenTemperature}};
constexpr TabRow kTabs[] = {{id::SSTabTRDSettings, kTabSteps, OnSettingsTab}};
constexpr ListRow kLists[] = {{id::cmbLinearizationType, OnLinearizationType}};
constexpr std::string_view kLinearizations[] = {"No Linearization.", "User Defined(Table)", "Square Root",
                                                "Square Root & Table"};
constexpr std::string_view kEnableDisable[] = {"Enable", "Disable"};
constexpr FillRow kFills[] = {
    {id::cmbTempUnits, kAtStart, kTemperatureUnits},
    {id::cmbPrimaryValueType, &UserCntrl::FirstVisitTrd, kPrimaryValueTypes},
    {id::cmbLinearizationType, &UserCntrl::FirstVisitTrd, kLinearizations},
    {id::cmbPVSimulateEnable, &UserCntrl::FirstVisitTrd, kEnableDisable},
};
constexpr NodeText kNodeTexts[] = {{.text = "Pressure/Flow",
                                    .parent = "Primary Value Type",
                                    .picture = "forward2",
                                    .trees = TreeShape::kPressureFlow}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = kPage,
     .subPage = kSettings,
     .frame = id::frmTRDSettings,
     .strip = id::SSTabTRDSettings,
     .read = kSettingsRead,
     .firstVisit = &UserCntrl::FirstVisitTrd},
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
    .lists = kLists,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::trd_settings
