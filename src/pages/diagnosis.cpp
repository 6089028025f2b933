#include "pages/pages.h"

#include <array>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "pages/answered_values.h"
#include "pages/common_notes.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

// The state of the two sensors and the measuring chain; what its middle tab shows is filled with the sensor values.
namespace htr60::pages::diagnosis {
namespace {

constexpr int kSensorRead = 51;
constexpr int kValuesRead = 53;
constexpr int kOutputsRead = 54;
constexpr int kSensorListsRead = 46;
constexpr int kInterval = 6000;

// ---- layout

constexpr LayoutRow Value(std::string_view caption, TextId control, LabelId unit, std::string_view note = {}) {
  return {.caption = caption, .kind = RowKind::kValue, .control = control, .unit = unit, .note = note, .live = true};
}

constexpr LayoutRow Status(TextId control, std::string_view note, HealthItem health = HealthItem::kNone) {
  return {
      .caption = "Status", .kind = RowKind::kStatus, .control = control, .note = note, .live = true, .health = health};
}

/// A caption that is a label of its own.
constexpr LayoutRow Captioned(LabelId caption, LayoutRow row) {
  row.captionControl = caption;
  return row;
}

constexpr LayoutRow kSensorRows[] = {
    {.caption = "Sensor Diag",
     .captionControl = id::lbArray(278),
     .kind = RowKind::kStatus,
     .control = id::txtParameter(145),
     .note = kSensorDiagNote,
     .role = RowRole::kVerdict,
     .health = HealthItem::kSensorDiag},
    {.caption = "Sensor Connected",
     .captionControl = id::lbArray(261),
     .kind = RowKind::kText,
     .control = id::txtParameter(142),
     .note = "Whether the sensors answer."},
    {.caption = "Sensor Initialized",
     .captionControl = id::lbArray(260),
     .kind = RowKind::kText,
     .control = id::txtParameter(141),
     .note = "Not initialized while one of the sensors is not."},
};
constexpr LayoutRow kDeltaRows[] = {
    Captioned(id::lbArray(277), Value("Delta Press", id::txtParameter(175), id::lbArray(284))),
};
constexpr LayoutRow kHiRows[] = {
    Value("Value", id::txtParameter(173), id::lbArray(487), kReadingNote),
    Status(id::txtParameter(310), kReadingStatusNote),
};
constexpr LayoutRow kLoRows[] = {
    Value("Value", id::txtParameter(170), id::lbArray(488), kReadingNote),
    Status(id::txtParameter(311), kReadingStatusNote),
};
constexpr LayoutRow kChainRows[] = {
    Captioned(id::lbArray(259), Value("Delta Press", id::txtParameter(65), id::lbArray(280))),
    Captioned(id::lbArray(184), Value("Specific Weight", id::txtParameter(138), id::lbArray(471),
                                      "In the unit of the measured type of a density device, else in g/cm³.")),
};
constexpr LayoutRow kPrimaryValueRows[] = {
    Value("Value", id::txtParameter(174), id::lbArray(281), kPrimaryValueNote),
    Status(id::txtParameter(312), kPrimaryValueStatusNote, HealthItem::kPrimaryValue),
};

/// The output of a block: its tags, its fields, and what it tells of the health.
struct Output {
  std::string_view tag;
  std::string_view unitTag;
  TextId value;
  TextId status;
  LabelId unit;
  HealthItem health;
};
constexpr Output kOutputs[] = {
    {"AI1Out", "AI1OutUnit", id::txtParameter(150), id::txtParameter(313), id::lbArray(282), HealthItem::kAiOut1},
    {"AI2Out", "AI2OutUnit", id::txtParameter(151), id::txtParameter(314), id::lbArray(283), HealthItem::kAiOut2},
    {"AI3Out", "AI3OutUnit", id::txtParameter(137), id::txtParameter(315), id::lbArray(183), HealthItem::kAiOut3},
};
constexpr std::array<LayoutRow, 2> OutputRows(const Output& output) {
  return {{
      Value("Value", output.value, output.unit, "What the block reports to the control system."),
      Status(output.status, "How far the output can be trusted.", output.health),
  }};
}
constexpr auto kOutput1Rows = OutputRows(kOutputs[0]);
constexpr auto kOutput2Rows = OutputRows(kOutputs[1]);
constexpr auto kOutput3Rows = OutputRows(kOutputs[2]);

constexpr LayoutGroup kGroups[] = {
    {.tab = 0, .caption = "Sensor", .rows = kSensorRows},
    {.tab = 1, .caption = "Sensor Value", .rows = kDeltaRows},
    {.tab = 1, .caption = "Hi Press Value", .rows = kHiRows},
    {.tab = 1, .caption = "Lo Press Value", .rows = kLoRows},
    {.tab = 2, .rows = kChainRows, .box = false},
    {.tab = 2, .caption = "Primary Value", .rows = kPrimaryValueRows},
    {.tab = 2, .caption = "AI 1 Out", .rows = kOutput1Rows},
    {.tab = 2, .caption = "AI 2 Out", .rows = kOutput2Rows},
    {.tab = 2, .caption = "AI 3 Out", .rows = kOutput3Rows},
};
constexpr LayoutTitle kTitle[] = {{"", "Diagnosis"}};
constexpr int kReads[] = {kSensorRead, kValuesRead, kOutputsRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmDiagnosis,
     .titles = kTitle,
     .purpose = "State of the sensors and live values of the measuring chain.",
     .reads = kReads,
     .strip = id::SSTabDiagnosis,
     .groups = kGroups},
};

// ---- answers

void OnDiagnosisSensorAnswer(UserCntrl& c, const Answer& a) {
  c.form.txtParameter(145).SetText(DecodeSensorDiag(a.Number("SensorDiag")));
  c.form.txtParameter(142).SetText(DecodeSensorConnected(a.Number("SensorConnected")));
  c.form.txtParameter(141).SetText(DecodeSensorInitialized(a.Number("SensorInitialized")));
}

// No read asks for it; a host may send it.
void OnDiagnosisEmptyAnswer(UserCntrl&, const Answer&) {}

void OnDiagnosisOutputsAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  f.txtParameter(65).SetText(c.codecs.FormatValue(HexToFloat(a.Text("SensorValue"))));
  TakeValue(c, a.Text("SpecificHeight"), f.txtParameter(138));
  f.txtParameter(312).SetText(TakeValue(c, a.Text("PrimaryValue"), f.txtParameter(174)));
  for (const Output& output : kOutputs) {
    f.At(output.status).SetText(TakeValue(c, a.Text(output.tag), f.At(output.value)));
  }
  f.lbArray(280).SetText(UnitCodeToText(a.Word("SensorValueUnit")));
  f.lbArray(281).SetText(UnitCodeToText(a.Word("PrimaryValueUnit")));
  for (const Output& output : kOutputs) f.At(output.unit).SetText(TakeScale(c, a.Text(output.unitTag)));
  if (DecodePVType(a.Number("TRDPVType")) != "Density") return f.lbArray(471).SetText("g/cm³");
  if (const std::string_view type = DecodeMeasuredType(a.Number("MeasuredType")); !type.empty()) {
    f.lbArray(471).SetText(type);
  }
}

// ---- tabs

constexpr TabStep kSteps[] = {
    {.read = kSensorRead},
    {.read = kValuesRead, .polls = true, .timer = TimerId::TimerDiagnosisTab3, .interval = kInterval},
    {.read = kOutputsRead, .polls = true, .timer = TimerId::TimerDiagnosisTab4, .interval = kInterval},
};

void OnTab(UserCntrl& c, int tab) { RunTabReadingLast(c, kSteps[tab]); }

// A further tab click of the sensor pages, for which the form has no strip.
constexpr TabStep kSensorSteps[] = {
    {.subPage = "Sensor Value",
     .write = ButtonState::kDisabled,
     .read = kValuesRead,
     .polls = true,
     .timer = TimerId::TimerDiagnosisTab3,
     .interval = kInterval},
    {.subPage = "Sensor Info", .write = ButtonState::kDisabled, .read = kSensorListsRead},
};

void SensorTab(UserCntrl& c, int tab) {
  if (tab == 1) c.FirstVisit(&UserCntrl::FirstVisitSensor);
  RunTabReadingLast(c, kSensorSteps[tab]);
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {kSensorRead * 100, OnDiagnosisSensorAnswer},
    {5200, OnDiagnosisEmptyAnswer},
    {kOutputsRead * 100, OnDiagnosisOutputsAnswer},
};
constexpr TabRow kTabs[] = {{id::SSTabDiagnosis, kSteps, OnTab}};
constexpr OperationRow kOperations[] = {{"SensorTab", std::size(kSensorSteps), SensorTab}};
constexpr PollRow kPolls[] = {{TimerId::TimerDiagnosisTab4, kOutputsRead, PollDocument::kStored}};
constexpr NodeText kNodeTexts[] = {{.text = "Diagnosis", .picture = "window_list"}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = "Diagnosis",
     .frame = id::frmDiagnosis,
     .strip = id::SSTabDiagnosis,
     .writeEnabled = false,
     .read = kSensorRead},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .tabs = kTabs,
    .operations = kOperations,
    .polls = kPolls,
    .nodes = kNodes,
};

}  // namespace htr60::pages::diagnosis
