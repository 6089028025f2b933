#include "pages/pages.h"

#include <array>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "pages/answered_values.h"
#include "pages/calibration_units.h"
#include "pages/measured_types.h"
#include "pages/transducer_twins.h"
#include "shell/page_steps.h"

namespace htr60::pages::density_calibration {
namespace {

constexpr std::string_view kPage = "Density Calib";
constexpr std::string_view kSelfPage = "Density Self Calib";
constexpr std::string_view kTemperaturePage = "Density Calib Temp";
constexpr int kTypeRead = 66;
constexpr int kPointRead = 64;
constexpr int kLiveRead = 65;
constexpr int kTempUnitRead = 18;
constexpr int kTemperatureRead = 19;
constexpr int kPointInterval = 3000;
constexpr int kTemperatureInterval = 5000;

// ---- layout

/// The fields of one of the two points: what the operator types, and what is measured while he does.
struct DensityPoint {
  TextId point;
  LabelId pointUnit;
  TextId height;
  TextId primaryValue;
  TextId primaryValueStatus;
  TextId pressure;
  TextId pressureStatus;
  LabelId pressureUnit;
  TextId temperature;
  LabelId temperatureUnit;
  std::string_view pressurePointCaption;
  TextId pressurePoint;
  TextId result;
};
constexpr DensityPoint kLower{.point = id::txtParameter(248),
                              .pointUnit = id::lbArray(408),
                              .height = id::txtParameter(261),
                              .primaryValue = id::txtParameter(257),
                              .primaryValueStatus = id::txtParameter(259),
                              .pressure = id::txtParameter(255),
                              .pressureStatus = id::txtParameter(260),
                              .pressureUnit = id::lbArray(409),
                              .temperature = id::txtParameter(256),
                              .temperatureUnit = id::lbArray(410),
                              .pressurePointCaption = "Press Cal point lo",
                              .pressurePoint = id::txtParameter(262),
                              .result = id::txtParameter(258)};
constexpr DensityPoint kUpper{.point = id::txtParameter(268),
                              .pointUnit = id::lbArray(411),
                              .height = id::txtParameter(44),
                              .primaryValue = id::txtParameter(270),
                              .primaryValueStatus = id::txtParameter(269),
                              .pressure = id::txtParameter(267),
                              .pressureStatus = id::txtParameter(266),
                              .pressureUnit = id::lbArray(412),
                              .temperature = id::txtParameter(265),
                              .temperatureUnit = id::lbArray(413),
                              .pressurePointCaption = "Press Cal point Hi",
                              .pressurePoint = id::txtParameter(263),
                              .result = id::txtParameter(271)};

constexpr std::array<LayoutRow, 2> ValueRows(TextId value, LayoutUnit unit, TextId status, HealthItem health) {
  return {{
      {.caption = "Value", .kind = RowKind::kValue, .control = value, .unit = unit, .live = true},
      {.caption = "Status",
       .kind = RowKind::kStatus,
       .control = status,
       .note = "How far the value above it can be trusted.",
       .live = true,
       .health = health},
  }};
}
constexpr auto PrimaryValueRows(const DensityPoint& f) {
  return ValueRows(f.primaryValue, {}, f.primaryValueStatus, HealthItem::kPrimaryValue);
}
constexpr auto PressureRows(const DensityPoint& f) {
  return ValueRows(f.pressure, ControlId{f.pressureUnit}, f.pressureStatus, HealthItem::kNone);
}
constexpr std::array<LayoutRow, 5> CalibrationRows(const DensityPoint& f) {
  return {{
      {.caption = "Temp.",
       .kind = RowKind::kValue,
       .control = f.temperature,
       .unit = ControlId{f.temperatureUnit},
       .live = true},
      {.caption = f.pressurePointCaption,
       .kind = RowKind::kValue,
       .control = f.pressurePoint,
       .note = "The pressure that the device keeps for this point.",
       .live = true},
      {.caption = "Calib Point",
       .kind = RowKind::kNum,
       .control = f.point,
       .unit = ControlId{f.pointUnit},
       .note = "The true density or concentration of what the diaphragms are in now. Written, it becomes the point."},
      {.caption = "Height",
       .kind = RowKind::kNum,
       .control = f.height,
       .unit = "m",
       .note = "Distance of the two diaphragms: one value for both points, written with the point."},
      {.caption = "Calibration Result",
       .kind = RowKind::kStatus,
       .control = f.result,
       .note = "The device's verdict on its last calibration.",
       .live = true,
       .role = RowRole::kVerdict},
  }};
}

constexpr LayoutRow kTypeRows[] = {
    {.caption = "Measured Type",
     .captionControl = id::lbArray(344),
     .kind = RowKind::kList,
     .control = id::cmbCalibMeasuredType,
     .note = "In what the calibration points are given. Scale and unit of the output follow it."},
};
constexpr auto kLowerValue = PrimaryValueRows(kLower);
constexpr auto kLowerPressure = PressureRows(kLower);
constexpr auto kLowerPoint = CalibrationRows(kLower);
constexpr auto kUpperValue = PrimaryValueRows(kUpper);
constexpr auto kUpperPressure = PressureRows(kUpper);
constexpr auto kUpperPoint = CalibrationRows(kUpper);
constexpr LayoutRow kTemperatureRows[] = {
    {.caption = "Temperature Unit",
     .captionControl = id::lbArray(305),
     .kind = RowKind::kList,
     .control = id::cmbDensityTemp,
     .note = "The unit in which the device tells temperatures. It is shown here and not written: Write is disabled."},
    {.caption = "Temp Calibration",
     .captionControl = id::cmdDensityTemp,
     .kind = RowKind::kOpen,
     .control = id::cmdDensityTemp},
};
constexpr LayoutRow kSensorRows[] = {
    {.caption = "Cal With Ref", .captionControl = id::Command4, .kind = RowKind::kOpen, .control = id::Command4},
};
constexpr LayoutGroup kGroups[] = {
    {.tab = 0, .rows = kTypeRows, .box = false},
    {.tab = 1, .caption = "Primary Value (Out)", .rows = kLowerValue},
    {.tab = 1, .caption = "Pressure (EU)", .rows = kLowerPressure},
    {.tab = 1, .caption = "Calibration", .rows = kLowerPoint, .beside = true},
    {.tab = 2, .caption = "Primary Value (Out)", .rows = kUpperValue},
    {.tab = 2, .caption = "Pressure (EU)", .rows = kUpperPressure},
    {.tab = 2, .caption = "Calibration", .rows = kUpperPoint, .beside = true},
    {.tab = 3, .rows = kTemperatureRows, .box = false},
    {.tab = 4, .rows = kSensorRows, .box = false},
};
constexpr LayoutTitle kTitle[] = {{"", "Density Calibration"}};
constexpr int kReads[] = {kTypeRead, kPointRead, kLiveRead, kTempUnitRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmDensityCalib,
     .titles = kTitle,
     .purpose = "Calibrate density at a lower and an upper point.",
     .reads = kReads,
     .strip = id::SSTabDensityCalib,
     .groups = kGroups},
};
// Copies of the live answer and unit labels that no page shows.
constexpr ControlId kWorkingFields[] = {id::txtParameter(281), id::txtParameter(282), id::txtParameter(283),
                                        id::txtParameter(284), id::lbArray(428),      id::lbArray(431),
                                        id::lbArray(434)};

// ---- answers

void OnDensityMeasuredTypeAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbCalibMeasuredType.SetIfAny(DecodeMeasuredType(a.Number("MeasuredType")));
  TakePrimaryValueType(c, a, id::cmbDensityPrimaryValueType, "Density");
}

// One answer fills both tabs. Some of the unit labels stand on other pages, two bear another caption until then.
void OnDensityCalibAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  f.txtParameter(248).SetText(c.codecs.FormatValue(HexToFloat(a.Text("LowerCalibPoint"))));
  f.txtParameter(268).SetText(c.codecs.FormatValue(HexToFloat(a.Text("UpperCalibPoint"))));
  SetCaptions(c, UnitCodeToText(a.Word("CalibUnit")),
              {id::lbArray(408), id::lbArray(411), id::lbArray(421), id::lbArray(428)});
  SetCaptions(c, UnitCodeToText(a.Word("PressEUUnit")), {id::lbArray(412), id::lbArray(409), id::lbArray(431)});
  SetCaptions(c, UnitCodeToText(a.Word("TempUnit")),
              {id::lbArray(413), id::lbArray(410), id::lbArray(415), id::lbArray(434)});
  f.txtParameter(261).SetText(c.codecs.FormatValue(HexToFloat(a.Text("Height"))));
  f.txtParameter(44).SetText(f.txtParameter(261).Text());
}

using Copies = std::initializer_list<TextId>;

void CopyText(UserCntrl& c, TextId from, Copies copies) {
  for (const TextId copy : copies) c.form.At(copy).SetText(c.form.At(from).Text());
}

void TakePressurePoint(UserCntrl& c, const Answer& a, std::string_view tag, TextId field, Copies copies) {
  c.form.At(field).SetText(c.codecs.FormatValue(HexToFloat(a.Text(tag))));
  CopyText(c, field, copies);
}

void TakeLive(UserCntrl& c, const Answer& a, std::string_view tag, TextId value, Copies values, TextId status,
              Copies statuses) {
  c.form.At(status).SetText(TakeValue(c, a.Text(tag), c.form.At(value)));
  CopyText(c, value, values);
  CopyText(c, status, statuses);
}

// The copies go to the other tab, to the sensor trim's page, which reads its own values when it is opened, and to
// fields that no page shows. The tag "PrimayValue" is spelled so.
void OnDensityCalibMonitAnswer(UserCntrl& c, const Answer& a) {
  using id::txtParameter;
  TakePressurePoint(c, a, "PressCalPointLo", txtParameter(262), {txtParameter(277)});
  TakePressurePoint(c, a, "PressCalPointHi", txtParameter(263), {txtParameter(284)});
  TakeLive(c, a, "PrimayValue", txtParameter(257), {txtParameter(270), txtParameter(282)}, txtParameter(259),
           {txtParameter(269), txtParameter(278), txtParameter(283)});
  TakeLive(c, a, "Pressure", txtParameter(255), {txtParameter(267), txtParameter(276), txtParameter(285)},
           txtParameter(260), {txtParameter(266), txtParameter(275), txtParameter(286)});
  TakeLive(c, a, "Temperature", txtParameter(256), {txtParameter(265), txtParameter(274), txtParameter(287)},
           txtParameter(288), {txtParameter(273)});
  c.form.txtParameter(258).SetText(DecodeOperResult(a.Number("OperResult")));
  CopyText(c, txtParameter(258), {txtParameter(271), txtParameter(280), txtParameter(281)});
}

// ---- writes

Operands WriteMeasuredType(UserCntrl& c) { return {EncodeMeasuredType(c.form.cmbCalibMeasuredType.Text())}; }

Operands PointOperands(UserCntrl& c, const DensityPoint& fields) {
  return {c.codecs.FloatToHex(c.form.At(fields.point).Text()), c.codecs.FloatToHex(c.form.At(fields.height).Text())};
}
Operands WriteLower(UserCntrl& c) { return PointOperands(c, kLower); }
Operands WriteUpper(UserCntrl& c) { return PointOperands(c, kUpper); }

Operands WriteTemperatureUnit(UserCntrl& c) { return {UnitTextToCode(c.form.cmbDensityTemp.Text())}; }

Operands WriteTemperature(UserCntrl& c) { return {c.codecs.FloatToHex(c.form.txtParameter(113).Text())}; }

// ---- buttons and tabs

bool IsDensity(UserCntrl& c) { return c.form.cmbPVType.Text() == "Density"; }

void KeepNodeText(UserCntrl& c, std::string_view node) { c.CalibNodeText = node; }

constexpr TabStep PointStep(std::string_view subPage, ButtonState write) {
  return {.page = kPage,
          .subPage = subPage,
          .write = write,
          .read = kPointRead,
          .polls = true,
          .timer = TimerId::TimerMonitCalib,
          .interval = kPointInterval};
}
constexpr TabStep kSteps[] = {
    {.page = kPage, .subPage = "Measured Type", .write = ButtonState::kEnabled, .read = kTypeRead},
    PointStep("Lower", ButtonState::kEnabled),
    PointStep("Upper", ButtonState::kEnabled),
    {.page = kPage, .subPage = "Calib Temp", .write = ButtonState::kDisabled, .read = kTempUnitRead},
    {.page = kPage, .write = ButtonState::kDisabled},
};

// A read goes out on every tab: on the one without a read of its own it has the code "0".
void OnTab(UserCntrl& c, int tab) {
  RunTabReadingLast(c, kSteps[tab]);
  if (kSteps[tab].read == 0) c.Read(0);
}

void OpenTemperature(UserCntrl& c) {
  OpenPage(
      c,
      {.frame = id::frmCalibTemp, .page = kTemperaturePage, .write = ButtonState::kEnabled, .read = kTemperatureRead});
  c.StartTimer(TimerId::TimerReadTemp, kTemperatureInterval);
}

// ---- self calibration

struct SelfStep {
  std::string_view caption;  // empty: no message in front
  std::string_view text;
  std::string_view subPage;
  int read;
};
constexpr SelfStep kSelfSteps[] = {
    {.caption = {}, .text = {}, .subPage = "Measured Type", .read = kTypeRead},
    {.caption = "Self Calibration - Air",
     .text =
         "Please, place the HTR60 in the air at vertical work position and wait approximately 5 minutes for Reading "
         "stabilization. Then, select kg/m³ for measured type. Click at Write Button. After this procedure,return "
         "the measued type to the previous selection.",
     .subPage = "Lower",
     .read = kPointRead},
    {.caption = "Self Calibration - Water",
     .text = "After air calibration,place the HTR60 in work position (vertical) and in water,immersing both "
             "diaphragms,wait approximately 5 minutes for reading stabilization and change the measured type for Brix. "
             "Click at Write Button. After this procedure,return the measued type to the previous selection.",
     .subPage = "Upper",
     .read = kPointRead},
};

// Each step is like a tab of the page, with a message in front; no control of the form invokes it.
void SelfCalibration(UserCntrl& c, int tab) {
  const SelfStep& step = kSelfSteps[tab];
  c.StoreDocument({});
  RunTab(c, {.page = kSelfPage});
  if (!step.caption.empty()) c.ShowBox(step.text, step.caption);
  c.SubPage = step.subPage;
  if (step.read == kPointRead) c.StartTimer(TimerId::TimerMonitCalib, kPointInterval);
  c.Read(step.read);
}

// ---- tables

constexpr NameSet kPages{kPage, kSelfPage};
constexpr AnswerRow kAnswers[] = {
    {kPointRead * 100, OnDensityCalibAnswer},
    {kLiveRead * 100, OnDensityCalibMonitAnswer},
    {kTypeRead * 100, OnDensityMeasuredTypeAnswer},
};
// The page of the self calibration has no write: it is written on the page of the calibration.
constexpr WriteRow kWrites[] = {
    {kPage, "Measured Type", 54, WriteMeasuredType},
    {kPage, "Lower", 52, WriteLower},
    {kPage, "Upper", 53, WriteUpper},
    {kPage, "Calib Temp", 13, WriteTemperatureUnit},
    {kTemperaturePage, kAnySubPage, 16, WriteTemperature},
};
constexpr RereadRow kRereads[] = {
    {kPages, "Measured Type", kTypeRead},
    {kPages, {"Lower", "Upper"}, kPointRead},
};
// The page's name stays: until a tab or node is chosen, the temperature page's write goes on.
constexpr BackRow kBacks[] = {{kTemperaturePage, {.frame = id::frmDensityCalib}}};
constexpr ButtonRow kButtons[] = {{id::cmdDensityTemp, OpenTemperature}};
constexpr TabRow kTabs[] = {{id::SSTabDensityCalib, kSteps, OnTab}};
constexpr OperationRow kOperations[] = {{"SelfCalibration", static_cast<int>(std::size(kSelfSteps)), SelfCalibration}};
constexpr PollRow kPolls[] = {{TimerId::TimerMonitCalib, kLiveRead, PollDocument::kFresh}};
constexpr FillRow kFills[] = {
    {id::cmbCalibMeasuredType, &UserCntrl::FirstVisitDensityCalib, kMeasuredTypes},
    {id::cmbCalibTempUnit, &UserCntrl::FirstVisitDensityCalib, kTemperatureUnits},
    {id::cmbDensityTemp, &UserCntrl::FirstVisitDensityCalib, kTemperatureUnits},
};
constexpr NodeText kNodeTexts[] = {
    {.text = "Calibration", .parent = "Density/Concentration", .picture = "konqueror8", .trees = TreeShape::kDensity},
    ByTextAlone("Calibration."),
};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = kPage,
     .subPage = "Measured Type",
     .frame = id::frmDensityCalib,
     .strip = id::SSTabDensityCalib,
     .read = kTypeRead,
     .firstVisit = &UserCntrl::FirstVisitDensityCalib,
     .when = IsDensity,
     .also = KeepNodeText},
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
    .operations = kOperations,
    .polls = kPolls,
    .fills = kFills,
    .nodes = kNodes,
    .workingFields = kWorkingFields,
};

}  // namespace htr60::pages::density_calibration
