#include "pages/pages.h"

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "pages/answered_values.h"
#include "pages/calibration_units.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::calibration {
namespace {

constexpr std::string_view kPage = "Calibration";
constexpr std::string_view kPressurePage = "Calib Lower/Upper";
constexpr std::string_view kUpperPage = "Calib Upper";  // nothing opens it, but Back and the re-read know it
constexpr std::string_view kGraphicPage = "Calib Graphic";
constexpr NameSet kTemperaturePages{"Calib Temp", "Density Calib Temp"};  // the density calibration writes the second
constexpr const char* kPressureTab = "Calib Upper/Lower";
constexpr const char* kTemperatureTab = "Calib Temp";
constexpr int kUnitRead = 15;
constexpr int kPressureRead = 16;
constexpr int kUpperRead = 17;
constexpr int kTemperatureUnitRead = 18;
constexpr int kTemperatureRead = 19;
constexpr int kPressureValueRead = 35;
constexpr int kTemperatureValueRead = 36;
constexpr int kPollMs = 5000;

bool IsNoDensity(UserCntrl& c) { return c.form.cmbPVType.Text() != "Density"; }

void KeepNodeText(UserCntrl& c, std::string_view node) { c.CalibNodeText = node; }

// ---- layout

constexpr LayoutRow kUnitRows[] = {
    {.caption = "Calibration Unit",
     .captionControl = id::lbArray(101),
     .kind = RowKind::kList,
     .control = id::cmbCalibUnit,
     .note = "Unit of the calibration points and of the sensor limits. Once written, the device reports them in it."},
    {.caption = "Lower/Upper",
     .captionControl = id::cmdCalibLower,
     .kind = RowKind::kOpen,
     .control = id::cmdCalibLower},
    {.caption = "Graphic",
     .captionControl = id::cmdCalibGraphic,
     .kind = RowKind::kOpen,
     .control = id::cmdCalibGraphic},
};
constexpr LayoutRow kTemperatureUnitRows[] = {
    {.caption = "Temperature Unit",
     .captionControl = id::lbArray(127),
     .kind = RowKind::kList,
     .control = id::cmbCalibTempUnit,
     .note = "Unit of the temperature and of its calibration point."},
    {.caption = "Temp Calibration",
     .captionControl = id::cmdTempCalib,
     .kind = RowKind::kOpen,
     .control = id::cmdTempCalib},
};
constexpr LayoutRow kSensorRows[] = {
    {.caption = "Cal With Ref", .captionControl = id::Command3, .kind = RowKind::kOpen, .control = id::Command3},
};
constexpr LayoutGroup kCalibGroups[] = {
    {.tab = 0, .rows = kUnitRows, .box = false},
    {.tab = 1, .rows = kTemperatureUnitRows, .box = false},
    {.tab = 2, .rows = kSensorRows, .box = false},
};

constexpr LayoutRow kPressureRows[] = {
    {.caption = "Value",
     .captionControl = id::lbArray(102),
     .kind = RowKind::kValue,
     .control = id::txtParameter(93),
     .unit = id::lbArray(104),
     .note = "The pressure that the transmitter measures now.",
     .live = true},
    {.caption = "Status",
     .captionControl = id::lbArray(103),
     .kind = RowKind::kStatus,
     .control = id::txtParameter(307),
     .note = "The status of this pressure.",
     .live = true},
};

/// One of the two points of the pressure.
struct Point {
  LabelId limitCaption;
  TextId limit;
  LabelId limitUnit;
  LabelId caption;
  TextId field;
  LabelId unit;
  ButtonId write;
  int code;
};
constexpr Point kPoints[] = {
    {id::lbArray(111), id::txtParameter(101), id::lbArray(108), id::lbArray(113), id::txtParameter(103),
     id::lbArray(110), id::cmdWriteCalibLower, 14},
    {id::lbArray(124), id::txtParameter(97), id::lbArray(120), id::lbArray(122), id::txtParameter(95), id::lbArray(118),
     id::cmdWriteCalibUpper, 15},
};

constexpr std::array<LayoutRow, 3> RowsOf(const Point& point, std::string_view note) {
  return {{
      {.caption = "Sensor Limit",
       .captionControl = point.limitCaption,
       .kind = RowKind::kValue,
       .control = point.limit,
       .unit = point.limitUnit},
      {.caption = "Calib Point",
       .captionControl = point.caption,
       .kind = RowKind::kNum,
       .control = point.field,
       .unit = point.unit,
       .note = note},
      {.caption = "Write",
       .captionControl = point.write,
       .kind = RowKind::kWrite,
       .control = point.write,
       .note =
           "Sends this point alone. The transmitter calibrates at once and tells in Calibration Result how it went."},
  }};
}
constexpr auto kLowerRows = RowsOf(kPoints[0],
                                   "The true value of the pressure applied as lower point. Written, it calibrates at "
                                   "once: the transmitter judges it, see Calibration Result.");
constexpr auto kUpperRows = RowsOf(kPoints[1],
                                   "The true value of the pressure applied as upper point. Written, it calibrates at "
                                   "once: the transmitter judges it, see Calibration Result.");
constexpr LayoutRow kResultRows[] = {
    {.caption = "Cal Min Span",
     .captionControl = id::lbArray(112),
     .kind = RowKind::kValue,
     .control = id::txtParameter(102),
     .unit = id::lbArray(109),
     .note = "Least distance of the two points."},
    {.caption = "Calibration Result",
     .captionControl = id::lbArray(114),
     .kind = RowKind::kStatus,
     .control = id::txtParameter(43),
     .note = "What the transmitter says of the last calibration: Good, or why it refused it.",
     .role = RowRole::kVerdict},
};
constexpr LayoutGroup kPressureGroups[] = {
    {.caption = "Pressure Value", .rows = kPressureRows},
    {.caption = "Lower", .rows = kLowerRows, .separate = true},
    {.caption = "Upper", .rows = kUpperRows, .beside = true},
    {.rows = kResultRows, .separate = true},
};

constexpr LayoutRow kTemperatureRows[] = {
    {.caption = "Value",
     .captionControl = id::lbArray(129),
     .kind = RowKind::kValue,
     .control = id::txtParameter(98),
     .unit = id::lbArray(131),
     .note = "The temperature that the transmitter measures now.",
     .live = true},
    {.caption = "Status",
     .captionControl = id::lbArray(130),
     .kind = RowKind::kStatus,
     .control = id::txtParameter(309),
     .note = "The status of this temperature.",
     .live = true},
};
constexpr LayoutRow kTemperaturePointRows[] = {
    {.caption = "Max Temp", .kind = RowKind::kValue, .control = id::txtParameter(111), .unit = id::lbArray(125)},
    {.caption = "Min Temp",
     .captionControl = id::lbArray(135),
     .kind = RowKind::kValue,
     .control = id::txtParameter(112),
     .unit = id::lbArray(126)},
    {.caption = "Temp Cal Point",
     .captionControl = id::lbArray(136),
     .kind = RowKind::kNum,
     .control = id::txtParameter(113),
     .unit = id::lbArray(128),
     .note = "The true temperature. Written, it calibrates at once; a point that the transmitter refuses comes back as "
             "it was."},
};
constexpr LayoutGroup kTemperatureGroups[] = {
    {.caption = "Temperature Value", .rows = kTemperatureRows},
    {.rows = kTemperaturePointRows},
};

constexpr LayoutTitle kCalibTitle[] = {{"", "Calibration"}};
constexpr LayoutTitle kPressureTitle[] = {{"", "Lower/Upper Calibration"}};
constexpr LayoutTitle kTemperatureTitle[] = {{"", "Temperature Calibration"}};
constexpr LayoutTitle kGraphicTitle[] = {{"", "Calibration Graphic"}};
constexpr int kCalibReads[] = {kUnitRead, kTemperatureUnitRead};
constexpr int kPressureReads[] = {kPressureRead, kUpperRead, kPressureValueRead};
constexpr int kTemperatureReads[] = {kTemperatureRead, kTemperatureValueRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmCalib,
     .titles = kCalibTitle,
     .purpose = "Units of the calibration, and the way to the trims.",
     .reads = kCalibReads,
     .strip = id::SSTabCalib,
     .groups = kCalibGroups},
    {.frame = id::frmCalibPressLowerUpper,
     .titles = kPressureTitle,
     .purpose = "Apply a pressure, wait until the value stands, type the true pressure, write.",
     .reads = kPressureReads,
     .groups = kPressureGroups},
    {.frame = id::frmCalibTemp,
     .titles = kTemperatureTitle,
     .purpose = "Type the true temperature and write it.",
     .reads = kTemperatureReads,
     .groups = kTemperatureGroups},
    {.frame = id::frmCalibGraphic,
     .titles = kGraphicTitle,
     .purpose = "Where the calibration points lie between the sensor limits.",
     .figure = FigureKind::kCalibration,
     .figureAlone = true,
     .figureReads = kPressureReads},
};

// ---- answers

void OnCalibUnitAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbCalibUnit.SetIfAny(UnitCodeToText(a.Number("TRDUnit")));
  c.form.cmbDensityPrimaryValueType.SetIfAny(DecodePVType(a.Number("TRDPVType")));
}

void TakePressure(UserCntrl& c, const Answer& a) {
  c.form.txtParameter(307).SetText(TakeValue(c, a.Text("TRDPressure"), c.form.txtParameter(93)));
}

// It fills both points, whatever its name.
void OnCalibLowerAnswer(UserCntrl& c, const Answer& a) {
  TakeNumber(c, a, "TRDLowerSnsLimit", id::txtParameter(101));
  TakeNumber(c, a, "TRDMinSpan", id::txtParameter(102));
  TakeNumber(c, a, "TRDLowerCalibPoint", id::txtParameter(103));
  TakePressure(c, a);
  SetCaptions(
      c, UnitCodeToText(a.Number("TRDUnit")),
      {id::lbArray(104), id::lbArray(108), id::lbArray(109), id::lbArray(110), id::lbArray(120), id::lbArray(118)});
  c.form.txtParameter(43).SetText(DecodeOperResult(a.Number("TRDOperResult")));
  TakeNumber(c, a, "TRDUpperSnsLimit", id::txtParameter(97));
  TakeNumber(c, a, "TRDUpperCalibPoint", id::txtParameter(95));
}

void OnCalibUpperAnswer(UserCntrl& c, const Answer& a) {
  TakeNumber(c, a, "TRDUpperSnsLimit", id::txtParameter(97));
  TakeNumber(c, a, "TRDUpperCalibPoint", id::txtParameter(95));
  SetCaptions(c, UnitCodeToText(a.Number("TRDUnit")), {id::lbArray(118), id::lbArray(120)});
}

// The density calibration shows the same unit.
void OnCalibTempUnitAnswer(UserCntrl& c, const Answer& a) {
  const std::string_view unit = UnitCodeToText(a.Word("TRDUnitTemp"));
  c.form.cmbCalibTempUnit.SetIfAny(unit);
  c.form.cmbDensityTemp.SetIfAny(unit);
  SetCaptionsIfAny(c, unit, {id::lbArray(125), id::lbArray(126), id::lbArray(128), id::lbArray(131)});
}

void TakeTemperature(UserCntrl& c, const Answer& a) {
  c.form.txtParameter(309).SetText(TakeValue(c, a.Text("TRDTempVal"), c.form.txtParameter(98)));
}

void OnCalibTempAnswer(UserCntrl& c, const Answer& a) {
  TakeNumber(c, a, "TRDMaxTemp", id::txtParameter(111));
  TakeNumber(c, a, "TRDMinTemp", id::txtParameter(112));
  TakeNumber(c, a, "TRDCalTempPoint", id::txtParameter(113));
  TakeTemperature(c, a);
}

// ---- writes

Operands WritePressureUnit(UserCntrl& c) { return {UnitTextToCode(c.form.cmbCalibUnit.Text())}; }

Operands WriteTemperatureUnit(UserCntrl& c) { return {UnitTextToCode(c.form.cmbCalibTempUnit.Text())}; }

Operands WriteTemperaturePoint(UserCntrl& c) { return {c.codecs.FloatToHex(c.form.txtParameter(113).Text())}; }

void WritePoint(UserCntrl& c, int point) {
  c.SmallWrite(kPoints[point].code, {c.codecs.FloatToHex(c.form.At(kPoints[point].field).Text())});
}

// ---- buttons and tabs

void OpenPressure(UserCntrl& c) {
  OpenPage(c, {.frame = id::frmCalibPressLowerUpper,
               .page = kPressurePage,
               .write = ButtonState::kDisabled,
               .read = kPressureRead});
  c.StartTimer(TimerId::TimerReadPressure, kPollMs);
}

void OpenTemperature(UserCntrl& c) {
  OpenPage(c, {.frame = id::frmCalibTemp,
               .page = kTemperaturePages[0],
               .write = ButtonState::kEnabled,
               .read = kTemperatureRead});
  c.StartTimer(TimerId::TimerReadTemp, kPollMs);
}

void OpenGraphic(UserCntrl& c) { OpenPage(c, {.frame = id::frmCalibGraphic, .page = kGraphicPage}); }

constexpr TabStep kSteps[] = {
    {.page = kPage, .subPage = kPressureTab, .read = kUnitRead},
    {.page = kPage, .subPage = kTemperatureTab, .read = kTemperatureUnitRead},
    {},  // keeps the names, so Write writes the unit of the tab before
};

// No tab stops a timer, and each of them reads: the last one with the code "0".
void OnTab(UserCntrl& c, int tab) {
  const TabStep& step = kSteps[tab];
  if (!step.page.empty()) c.CurrentPage = step.page;
  if (!step.subPage.empty()) c.SubPage = step.subPage;
  c.Read(step.read);
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {kUnitRead * 100, OnCalibUnitAnswer},           {kPressureRead * 100, OnCalibLowerAnswer},
    {kUpperRead * 100, OnCalibUpperAnswer},         {kTemperatureUnitRead * 100, OnCalibTempUnitAnswer},
    {kTemperatureRead * 100, OnCalibTempAnswer},    {kPressureValueRead * 100, TakePressure},
    {kTemperatureValueRead * 100, TakeTemperature},
};
constexpr WriteRow kWrites[] = {
    {kPage, kPressureTab, 12, WritePressureUnit},
    {kPage, kTemperatureTab, 13, WriteTemperatureUnit},
    {kTemperaturePages[0], kAnySubPage, 16, WriteTemperaturePoint},
};
constexpr RereadRow kRereads[] = {
    {kPage, kPressureTab, kUnitRead},
    {{kPage, "Density Calib"}, kTemperatureTab, kTemperatureUnitRead},
    {kPressurePage, kAnySubPage, kPressureRead},
    {kUpperPage, kAnySubPage, kUpperRead},
    {kTemperaturePages, kAnySubPage, kTemperatureRead},
};
// A density device has a calibration page of its own, so none is shown here then.
constexpr BackRow kBacks[] = {
    {{kPressurePage, kUpperPage, kTemperaturePages[0]}, {.page = kPage, .frame = id::frmCalib, .showIf = IsNoDensity}},
    {kGraphicPage, {.page = kPage, .subPage = kPressureTab, .frame = id::frmCalib, .showIf = IsNoDensity}},
};
constexpr ButtonRow kButtons[] = {
    {id::cmdCalibLower, OpenPressure},         {id::cmdTempCalib, OpenTemperature},
    {id::cmdCalibGraphic, OpenGraphic},        {id::cmdWriteCalibLower, {WritePoint, 0}},
    {id::cmdWriteCalibUpper, {WritePoint, 1}},
};
constexpr TabRow kTabs[] = {{id::SSTabCalib, kSteps, OnTab}};
constexpr PollRow kPolls[] = {
    {TimerId::TimerReadPressure, kPressureValueRead, PollDocument::kStored},
    {TimerId::TimerReadTemp, kTemperatureValueRead, PollDocument::kStored},
};
constexpr FillRow kFills[] = {
    {id::cmbCalibUnit, &UserCntrl::FirstVisitCalib, kCalibrationUnits},
    {id::cmbCalibTempUnit, &UserCntrl::FirstVisitCalib, kTemperatureUnits},
    {id::cmbDensityTemp, &UserCntrl::FirstVisitCalib, kTemperatureUnits},
};
constexpr NodeText CalibrationNode(std::string_view parent, TreeShape tree) {
  return {.text = "Calibration", .parent = parent, .picture = "konqueror8", .trees = tree};
}
constexpr NodeText kCalibrationTexts[] = {
    CalibrationNode("Pressure/Flow", TreeShape::kPressureFlow),
    CalibrationNode("Level", TreeShape::kLevel),
    ByTextAlone("Calibration."),
};
constexpr NodeText kBackupText[] = {ByTextAlone("Cal Backup & Restore")};
constexpr NodeRow kNodes[] = {
    {.texts = kCalibrationTexts,
     .page = kPage,
     .subPage = kPressureTab,
     .frame = id::frmCalib,
     .strip = id::SSTabCalib,
     .read = kUnitRead,
     .firstVisit = &UserCntrl::FirstVisitCalib,
     .when = IsNoDensity,
     .also = KeepNodeText},
    {.texts = kBackupText, .page = "Lower/Upper"},
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
    .polls = kPolls,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::calibration
