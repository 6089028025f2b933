#include "pages/pages.h"

#include <array>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "pages/answered_values.h"
#include "pages/calibration_units.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::calibration_reference {
namespace {

// One frame under four names, for the four ways that lead to it.
constexpr NameSet kPages{"Cal With Ref", "Cal With Ref_", "Cal With Ref-1", "Cal With Ref-2"};
constexpr std::string_view kWithoutPage = "Cal Without Ref";
constexpr const char* kUnitTab = "Cal Unit";
constexpr int kUnitRead = 77;
constexpr int kLiveRead = 78;
constexpr int kWithoutRead = 56;
constexpr int kPollMs = 3000;

/// A calibration point of one sensor: "Hi" and "Lo" of its sub-page are the point, not the sensor.
struct Panel {
  const char* subPage;
  int read;
  int write;
  std::string_view group;
  std::string_view limitName;
  LabelId limitCaption;
  TextId limit;
  LabelId limitUnit;
  TextId value;
  LabelId valueUnit;
  TextId status;
  TextId point;
  LabelId pointUnit;
  TextId result;
};
// The upper and the lower point of the first sensor, then those of the second. The last limit is a lower one, whatever
// its caption says.
constexpr Panel kPanels[] = {
    {"Hi Press - Sns1", 73, 65, "Hi Press Sensor Val", "Hi Sensor Limit", id::lbArray(416), id::txtParameter(273),
     id::lbArray(417), id::txtParameter(279), id::lbArray(415), id::txtParameter(278), id::txtParameter(277),
     id::lbArray(421), id::txtParameter(361)},
    {"Lo Press - Sns1", 74, 66, "Hi Press Sensor Val", "Lo Sensor Limit", id::lbArray(506), id::txtParameter(274),
     id::lbArray(507), id::txtParameter(275), id::lbArray(426), id::txtParameter(276), id::txtParameter(280),
     id::lbArray(420), id::txtParameter(362)},
    {"Hi Press - Sns2", 75, 67, "Lo Press Sensor Val", "Hi Sensor Limit", id::lbArray(510), id::txtParameter(285),
     id::lbArray(511), id::txtParameter(286), id::lbArray(439), id::txtParameter(287), id::txtParameter(288),
     id::lbArray(438), id::txtParameter(363)},
    {"Lo Press - Sns2", 76, 68, "Lo Press Sensor Val", "Hi Sensor Limit", id::lbArray(520), id::txtParameter(356),
     id::lbArray(521), id::txtParameter(355), id::lbArray(519), id::txtParameter(354), id::txtParameter(353),
     id::lbArray(514), id::txtParameter(364)},
};
constexpr int kPanelsOfSensor = 2;

/// Two points that are set without a pressure. All three writes carry the high point of the first group behind them.
struct PointPair {
  std::string_view group;
  TextId high;
  LabelId highUnit;
  TextId low;
  LabelId lowUnit;
  ButtonId button;
  int write;
  std::string_view note;
};
constexpr PointPair kPairs[] = {
    {"Delta P", id::txtParameter(196), id::lbArray(309), id::txtParameter(195), id::lbArray(308), id::cmdWriteCalPoint,
     44, "Calibration point of the differential pressure. Written together with the other one, no pressure applied."},
    {"Hi Press Sensor", id::txtParameter(94), id::lbArray(116), id::txtParameter(96), id::lbArray(123),
     id::cmdWriteCalPointSns1, 63,
     "Calibration point of this sensor. Written together with the other one and the Delta P high point."},
    {"Lo Press Sensor", id::txtParameter(264), id::lbArray(397), id::txtParameter(308), id::lbArray(414),
     id::cmdWriteCalPointSns2, 64,
     "Calibration point of this sensor. Written together with the other one and the Delta P high point."},
};

// ---- layout

constexpr LayoutRow kUnitRows[] = {
    {.caption = "Cal Unit",
     .captionControl = id::lbArray(529),
     .kind = RowKind::kList,
     .control = id::cmbCalUnit,
     .note = "Unit of the calibration points and of the sensor limits. Once written, the device reports them in it."},
};

constexpr std::size_t kPanelRows = 5;
constexpr std::array<LayoutRow, kPanelRows> RowsOf(const Panel& panel) {
  return {{
      {.caption = panel.limitName,
       .captionControl = panel.limitCaption,
       .kind = RowKind::kValue,
       .control = panel.limit,
       .unit = panel.limitUnit,
       .note = "Shown, not enforced: the transmitter judges the point."},
      {.caption = "Value",
       .kind = RowKind::kValue,
       .control = panel.value,
       .unit = panel.valueUnit,
       .note = "The pressure that this sensor measures now.",
       .live = true},
      {.caption = "Status",
       .kind = RowKind::kStatus,
       .control = panel.status,
       .note = "The status of this pressure.",
       .live = true},
      {.caption = "Cal Point",
       .kind = RowKind::kNum,
       .control = panel.point,
       .unit = panel.pointUnit,
       .note = "The true value of the reference pressure applied to this sensor. Written, it calibrates at once."},
      {.caption = "Calibration Result",
       .kind = RowKind::kStatus,
       .control = panel.result,
       .note = "What the transmitter says of the last calibration: Good, or why it refused it.",
       .live = true,
       .role = RowRole::kVerdict},
  }};
}
constexpr std::array<LayoutRow, kPanelRows> kRowsOfPanels[] = {RowsOf(kPanels[0]), RowsOf(kPanels[1]),
                                                               RowsOf(kPanels[2]), RowsOf(kPanels[3])};

// The unit's tab, then for each panel the limit, the live value in a box of its own, and what is written.
constexpr auto kReferenceGroups = [] {
  std::array<LayoutGroup, 1 + 3 * std::size(kPanels)> groups{};
  groups[0].tab = 0;
  groups[0].rows = kUnitRows;
  for (std::size_t i = 0; i < std::size(kPanels); ++i) {
    const std::span<const LayoutRow> rows(kRowsOfPanels[i]);
    const std::span<const LayoutRow> parts[] = {rows.first(1), rows.subspan(1, 2), rows.subspan(3)};
    for (std::size_t part = 0; part < std::size(parts); ++part) {
      LayoutGroup& group = groups[1 + 3 * i + part];
      group.tab = 1 + static_cast<int>(i) / kPanelsOfSensor;
      group.innerTab = static_cast<int>(i) % kPanelsOfSensor;
      group.rows = parts[part];
      if (part == 1) group.caption = kPanels[i].group;
    }
  }
  return groups;
}();

constexpr std::array<LayoutRow, 3> RowsOf(const PointPair& pair) {
  return {{
      {.caption = "Cal Point Hi",
       .kind = RowKind::kNum,
       .control = pair.high,
       .unit = pair.highUnit,
       .note = pair.note},
      {.caption = "Cal Point Lo", .kind = RowKind::kNum, .control = pair.low, .unit = pair.lowUnit, .note = pair.note},
      {.caption = "Write",
       .captionControl = pair.button,
       .kind = RowKind::kWrite,
       .control = pair.button,
       .note = "Sends the two points of this group together, and the Delta P high point along."},
  }};
}
constexpr std::array<LayoutRow, 3> kRowsOfPairs[] = {RowsOf(kPairs[0]), RowsOf(kPairs[1]), RowsOf(kPairs[2])};
constexpr LayoutGroup kWithoutGroups[] = {
    {.caption = kPairs[0].group, .rows = kRowsOfPairs[0]},
    {.caption = kPairs[1].group, .rows = kRowsOfPairs[1], .beside = true},
    {.caption = kPairs[2].group, .rows = kRowsOfPairs[2], .beside = true},
};

constexpr LayoutTitle kReferenceTitle[] = {{"", "Cal With Ref"}};
constexpr LayoutTitle kWithoutTitle[] = {{"", "Cal Without Ref"}};
constexpr int kReferenceReads[] = {kUnitRead,       kPanels[0].read, kPanels[1].read,
                                   kPanels[2].read, kPanels[3].read, kLiveRead};
constexpr int kWithoutReads[] = {kWithoutRead};
constexpr LayoutInnerStrip kInnerStrips[] = {{1, id::SSTabCalibWithRef(1)}, {2, id::SSTabCalibWithRef(2)}};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmCalWithRef,
     .titles = kReferenceTitle,
     .purpose = "Trim each pressure sensor against a reference pressure.",
     .reads = kReferenceReads,
     .strip = id::SSTabCalibWithRef(0),
     .innerStrips = kInnerStrips,
     .groups = kReferenceGroups},
    {.frame = id::frmCalWithoutRef,
     .titles = kWithoutTitle,
     .purpose = "Set calibration points directly, for the pair and for each sensor, without a pressure applied.",
     .reads = kWithoutReads,
     .groups = kWithoutGroups},
};

// ---- answers

void OnCalRefUnitAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbCalUnit.SetIfAny(UnitCodeToText(a.Number("CalUnit")));
}

void OnPanelAnswer(UserCntrl& c, int panel, const Answer& a) {
  const Panel& p = kPanels[panel];
  TakeNumber(c, a, "SensorLimit", p.limit);
  TakeNumber(c, a, "CalPoint", p.point);
  c.form.At(p.status).SetText(TakeValue(c, a.Text("SensorVal"), c.form.At(p.value)));
  SetCaptions(c, UnitCodeToText(a.Number("CalUnit")), {p.limitUnit, p.valueUnit, p.pointUnit});
  c.form.At(p.result).SetText(DecodeOperResult(a.Number("TRDOperResult")));
}

// Both panels of a sensor show its live value.
void TakeSensorValue(UserCntrl& c, std::string_view hex, const Panel& upper, const Panel& lower) {
  const std::string_view status = TakeValue(c, hex, c.form.At(upper.value));
  c.form.At(upper.status).SetText(status);
  c.form.At(lower.status).SetText(status);
  c.form.At(lower.value).SetText(c.form.At(upper.value).Text());
}

void OnCalRefLiveAnswer(UserCntrl& c, const Answer& a) {
  TakeSensorValue(c, a.Text("SensorValHi"), kPanels[0], kPanels[1]);
  TakeSensorValue(c, a.Text("SensorValLo"), kPanels[2], kPanels[3]);
  const std::string_view result = DecodeOperResult(a.Number("TRDOperResult"));
  for (const Panel& panel : kPanels) c.form.At(panel.result).SetText(result);
}

void OnCalWithoutRefAnswer(UserCntrl& c, const Answer& a) {
  TakeNumber(c, a, "CalPointHi", kPairs[0].high);
  TakeNumber(c, a, "CalPointLo", kPairs[0].low);
  const std::string_view unit = UnitCodeToText(a.Word("CalUnit"));
  for (const PointPair& pair : kPairs) SetCaptions(c, unit, {pair.lowUnit, pair.highUnit});
  TakeNumber(c, a, "CalPointHiSns1", kPairs[1].high);
  TakeNumber(c, a, "CalPointLoSns1", kPairs[1].low);
  TakeNumber(c, a, "CalPointHiSns2", kPairs[2].high);
  TakeNumber(c, a, "CalPointLoSns2", kPairs[2].low);
}

// ---- writes

Operands WriteUnit(UserCntrl& c) { return {UnitTextToCode(c.form.cmbCalUnit.Text())}; }

// The live reading, which every write here ends, goes on up to the re-read, so that the operator sees the result come.
Operands WritePoint(UserCntrl& c, int panel) {
  Operands operands{c.codecs.FloatToHex(c.form.At(kPanels[panel].point).Text())};
  c.form.At(TimerId::TimerCalibRef).SetEnabled(true);
  return operands;
}

void WritePair(UserCntrl& c, int pair) {
  const auto digits = [&c](TextId field) { return c.codecs.FloatToHex(c.form.At(field).Text()); };
  const PointPair& p = kPairs[pair];
  c.SmallWrite(p.write, {digits(p.high), digits(p.low), digits(kPairs[0].high), digits(kPairs[0].high)});
}

void StopPolling(UserCntrl& c) { c.StopPollingTimers(); }

// ---- buttons and tabs

// The strip turns to its first tab before the page has its name: what its handlers read goes out under the old one.
void OpenReference(UserCntrl& c, int way) {
  c.HideAllFrames();
  c.form.cmdBack.SetEnabled(true);
  c.form.frmCalWithRef.SetVisible(true);
  c.form.SSTabCalibWithRef(0).SetIndex(0);
  c.CurrentPage = kPages[static_cast<std::size_t>(way)];
  c.SubPage = kUnitTab;
  c.form.cmdWriteParameter.SetEnabled(true);
  c.FirstVisit(&UserCntrl::FirstVisitCalRef);
  c.Read(kUnitRead);
}

void OpenWithout(UserCntrl& c) {
  OpenPage(
      c, {.frame = id::frmCalWithoutRef, .page = kWithoutPage, .write = ButtonState::kDisabled, .read = kWithoutRead});
}

void BeginTab(UserCntrl& c) {
  c.RequestCode = "0";
  c.StoreDocument({});
  c.StopPollingTimers();
  c.StartTimer(TimerId::TimerCalibRef, kPollMs);
  c.form.cmdWriteParameter.SetEnabled(true);
}

void ShowPanel(UserCntrl& c, int sensor, int point) {
  const Panel& panel = kPanels[kPanelsOfSensor * sensor + point];
  c.SubPage = panel.subPage;
  c.Read(panel.read);
}

void OnSensorTab(UserCntrl& c, int tab) {
  BeginTab(c);
  c.form.SSTabCalibWithRef(1).SetIndex(0);
  c.form.SSTabCalibWithRef(2).SetIndex(0);
  if (tab > 0) return ShowPanel(c, tab - 1, 0);
  c.SubPage = kUnitTab;
  c.StopPollingTimers();
}

void OnPointTab(UserCntrl& c, int sensor, int tab) {
  BeginTab(c);
  ShowPanel(c, sensor, tab);
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {kWithoutRead * 100, OnCalWithoutRefAnswer}, {kPanels[0].read * 100, {OnPanelAnswer, 0}},
    {kPanels[1].read * 100, {OnPanelAnswer, 1}}, {kPanels[2].read * 100, {OnPanelAnswer, 2}},
    {kPanels[3].read * 100, {OnPanelAnswer, 3}}, {kUnitRead * 100, OnCalRefUnitAnswer},
    {kLiveRead * 100, OnCalRefLiveAnswer},
};
constexpr WriteRow kWrites[] = {
    {kPages, kPanels[0].subPage, kPanels[0].write, {WritePoint, 0}},
    {kPages, kPanels[1].subPage, kPanels[1].write, {WritePoint, 1}},
    {kPages, kPanels[2].subPage, kPanels[2].write, {WritePoint, 2}},
    {kPages, kPanels[3].subPage, kPanels[3].write, {WritePoint, 3}},
    {kPages, kUnitTab, 69, WriteUnit},
};
constexpr PageStepRow kBeforeWrites[] = {{kPages, StopPolling}};
constexpr RereadRow kRereads[] = {
    {kPages, kUnitTab, kUnitRead},
    {kPages, kPanels[0].subPage, kPanels[0].read},
    {kPages, kPanels[1].subPage, kPanels[1].read},
    {kPages, kPanels[2].subPage, kPanels[2].read},
    {kPages, kPanels[3].subPage, kPanels[3].read},
    {kWithoutPage, kAnySubPage, kWithoutRead},
};
constexpr BackRow kBacks[] = {
    {{kPages[0], kWithoutPage},
     {.page = "Factory Sensor", .frame = id::frmFactorySensorInfo, .write = ButtonState::kDisabled}},
    {kPages[1], {.page = "Factory", .frame = id::frmfactory, .write = ButtonState::kDisabled}},
    {kPages[2], {.page = "Calibration", .frame = id::frmCalib, .write = ButtonState::kDisabled}},
    {kPages[3], {.page = "Density Calib", .frame = id::frmDensityCalib, .write = ButtonState::kDisabled}},
};
// The pages that lead here place the four buttons.
constexpr ButtonRow kButtons[] = {
    {id::cmdCalWithRef, {OpenReference, 0}}, {id::cmdCalibWithRef, {OpenReference, 1}},
    {id::Command3, {OpenReference, 2}},      {id::Command4, {OpenReference, 3}},
    {id::cmdCalWithoutRef, OpenWithout},     {kPairs[0].button, {WritePair, 0}},
    {kPairs[1].button, {WritePair, 1}},      {kPairs[2].button, {WritePair, 2}},
};
constexpr TabRow kTabs[] = {
    {.strip = id::SSTabCalibWithRef(0), .run = OnSensorTab},
    {.strip = id::SSTabCalibWithRef(1), .run = {OnPointTab, 0}},
    {.strip = id::SSTabCalibWithRef(2), .run = {OnPointTab, 1}},
};
constexpr PollRow kPolls[] = {{TimerId::TimerCalibRef, kLiveRead, PollDocument::kStored}};
constexpr FillRow kFills[] = {{id::cmbCalUnit, &UserCntrl::FirstVisitCalRef, kCalibrationUnits}};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .beforeWrites = kBeforeWrites,
    .rereads = kRereads,
    .backs = kBacks,
    .buttons = kButtons,
    .tabs = kTabs,
    .polls = kPolls,
    .fills = kFills,
};

}  // namespace htr60::pages::calibration_reference
