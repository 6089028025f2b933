#include "pages/characterization.h"

#include <algorithm>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/status_tables.h"
#include "pages/answered_values.h"
#include "pages/char_points.h"
#include "pages/pages.h"
#include "shell/page_steps.h"
#include "text/failure.h"

namespace htr60::pages::characterization {
namespace {

constexpr std::string_view kPage = "Char";
constexpr std::string_view kMethodPage = "Method Char";
constexpr std::string_view kResultPage = "Result Char";
constexpr int kCurveRead = 20;
constexpr int kPointRead = 38;
constexpr int kLiveRead = 39;
constexpr int kPointsWrite = 31;
constexpr int kLiveInterval = 3000;
constexpr std::string_view kEnterPoints = "Disable and Allow to Enter Points";

// ---- layout

constexpr LayoutRow kOperationRows[] = {
    {.caption = "Char Operation",
     .captionControl = id::lbArray(318),
     .kind = RowKind::kList,
     .control = id::cmbCharOperation,
     .note = "What the instrument does with its curve. \"Disable and Allow to Enter Points\" is not written itself: "
             "with it Write starts the entry of points."},
    {.caption = "Result Characterization",
     .captionControl = id::cmdResultChar,
     .kind = RowKind::kOpen,
     .control = id::cmdResultChar},
};
constexpr LayoutGroup kCharGroups[] = {{.caption = "Characterization", .rows = kOperationRows}};

constexpr LayoutRow kEntryRows[] = {
    {.caption = "Number of Points",
     .captionControl = id::lbParameter(65),
     .kind = RowKind::kList,
     .control = id::cmbCharNumPoints,
     .width = WidthClass::kS,
     .note = "How many points the curve gets; it goes out with the points, after the last one."},
    {.caption = "Measured Pressure",
     .captionControl = id::lbParameter(107),
     .kind = RowKind::kValue,
     .control = id::txtParameter(39),
     .unit = id::lbParameter(40),
     .note = "What the instrument measures now. Send records it beside the applied pressure.",
     .live = true},
};
constexpr LayoutRow kPointRows[] = {
    {.caption = "P1:",
     .captionControl = id::lbParameter(114),
     .kind = RowKind::kNum,
     .control = id::txtParameter(38),
     .unit = id::lbParameter(115),
     .note = "The pressure that is applied to the sensor for this point. Send records it beside the measured pressure.",
     .role = RowRole::kStateless},
    {.caption = "Send",
     .captionControl = id::cmdSend,
     .kind = RowKind::kWrite,
     .control = id::cmdSend,
     .note = "Takes the point. The last point asks what to do with the curve and writes it.",
     .role = RowRole::kStateless},
};

struct PointNames {
  std::string_view x;
  std::string_view y;
};
constexpr PointNames kPointNames[] = {{"X1", "Y1"}, {"X2", "Y2"}, {"X3", "Y3"}, {"X4", "Y4"}, {"X5", "Y5"}};

// X and Y of a point in one line, each with its own label.
constexpr auto PointRows(const CharPoints& points) {
  std::array<LayoutRow, 2 * std::tuple_size_v<CharPoints>> rows{};
  for (std::size_t i = 0; i < points.size(); ++i) {
    rows[2 * i] = {.caption = kPointNames[i].x,
                   .captionControl = points[i].xLabel,
                   .kind = RowKind::kValue,
                   .control = points[i].fields.x};
    rows[2 * i + 1] = {.caption = kPointNames[i].y,
                       .captionControl = points[i].yLabel,
                       .kind = RowKind::kValue,
                       .control = points[i].fields.y,
                       .sameLine = true};
  }
  return rows;
}
constexpr auto kRecordedRows = PointRows(kRecordedPoints);
// The last point sends the number of points with the points, so both groups are sent together.
constexpr LayoutGroup kMethodGroups[] = {
    {.rows = kEntryRows, .box = false, .sentTogether = 1},
    {.caption = "Enter Applied Pressure Point P1",
     .frame = id::frmGroupParameter(32),
     .rows = kPointRows,
     .sentTogether = 1},
    {.caption = "Recorded Points", .rows = kRecordedRows},
};

constexpr LayoutRow kOutRows[] = {
    {.caption = "Value",
     .captionControl = id::lbArray(141),
     .kind = RowKind::kValue,
     .control = id::txtParameter(109),
     .unit = id::lbArray(148),
     .live = true},
    {.caption = "Status",
     .captionControl = id::lbArray(147),
     .kind = RowKind::kListRo,
     .control = id::cmbStatusChar,
     .note = "How far the value beside it can be trusted.",
     .live = true},
};
constexpr LayoutRow kLengthRows[] = {
    {.caption = "Curve lenght",
     .captionControl = id::lbArray(149),
     .kind = RowKind::kText,
     .control = id::txtParameter(110),
     .width = WidthClass::kS,
     .note = "How many points the curve has, in hexadecimal digits as the device sends them."},
};
constexpr auto kCurveRows = [] {
  constexpr auto kPoints = PointRows(kHeldPoints);
  std::array<LayoutRow, kPoints.size() + 1> rows{kLengthRows[0]};
  std::copy(kPoints.begin(), kPoints.end(), rows.begin() + 1);
  return rows;
}();
constexpr LayoutGroup kResultGroups[] = {
    {.caption = "Primary Value (Out)", .rows = kOutRows},
    {.caption = "Curve", .rows = kCurveRows},
};

constexpr LayoutTitle kCharTitle[] = {{"", "Characterization"}};
constexpr LayoutTitle kMethodTitle[] = {{"", "Characterization Points"}};
constexpr LayoutTitle kResultTitle[] = {{"", "Result Characterization"}};
constexpr int kCurveReads[] = {kCurveRead, kLiveRead};
constexpr int kPointReads[] = {kPointRead, kLiveRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmChar,
     .titles = kCharTitle,
     .purpose = "What the instrument does with its characterization curve.",
     .reads = kCurveReads,
     .groups = kCharGroups},
    {.frame = id::frmMethodChar,
     .titles = kMethodTitle,
     .purpose = "Apply a pressure, type it, send it; the last point asks what to do with the curve.",
     .reads = kPointReads,
     .groups = kMethodGroups,
     .figure = FigureKind::kCharacterizationEntry},
    {.frame = id::frmResultChar,
     .titles = kResultTitle,
     .purpose = "The curve that the instrument holds.",
     .reads = kCurveReads,
     .groups = kResultGroups,
     .figure = FigureKind::kCharacterization,
     .numberWidth = 22},  // the points are shown with all their digits
};

// ---- answers

void TakeCurve(UserCntrl& c, std::string_view hex, TextId PointFields::*part) {
  std::array<double, 16> numbers{};
  HexToFloatArray(hex, numbers);
  for (std::size_t i = 0; i < kHeldPoints.size(); ++i) {
    c.form.At(kHeldPoints[i].fields.*part).SetText(c.codecs.NumberToText(numbers[i]));
  }
}

void OnCharAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbCharOperation.SetIfAny(DecodeCharOperation(a.Number("TRDCharOperation")));
  c.form.cmbStatusChar.SetIfAny(TakeValue(c, a.Text("TRDPVOut"), c.form.txtParameter(109)));
  TakeCurve(c, a.Text("TRDCurveX"), &PointFields::x);
  TakeCurve(c, a.Text("TRDCurveY"), &PointFields::y);
  c.form.txtParameter(110).SetText(a.Text("TRDCurveLenght"));  // digits as they stand; the tag is spelled so
  c.form.lbArray(148).SetText(UnitCodeToText(a.Number("TRDUnit")));
}

// The number of points is the device's until the first point is taken, then the operator's.
void OnCharPvAnswer(UserCntrl& c, const Answer& a) {
  TakeValue(c, a.Text("PV"), c.form.txtParameter(39));
  SetCaptions(c, UnitCodeToText(a.Word("PVUnit")), {id::lbParameter(40), id::lbParameter(115)});
  if (StateOf(c).CharPointIndex != 1) return;
  c.form.cmbCharNumPoints.SetText(std::to_string(a.Number("CharNumPoints")));
}

void OnCharPressureAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbStatusChar.SetText(TakeValue(c, a.Text("Pressure"), c.form.txtParameter(109)));
  c.form.txtParameter(39).SetText(c.form.txtParameter(109).Text());
}

// ---- the entry of points

void ShowPoint(UserCntrl& c, const CharPoint& point, bool visible) {
  for (const LabelId label : {point.xLabel, point.yLabel}) c.form.At(label).SetVisible(visible);
  for (const TextId field : {point.fields.x, point.fields.y}) c.form.At(field).SetVisible(visible);
}

void AskForPoint(UserCntrl& c, int number) {
  const std::string name = "P" + std::to_string(number);
  c.form.frmGroupParameter(32).SetText("Enter Applied Pressure Point " + name);
  c.form.lbParameter(114).SetText(name + ":");
}

void StartEntry(UserCntrl& c) {
  // Its two sentences stand side by side without a blank.
  if (!c.AskYesNo("Do you want to proceed with sensor characterization method?"
                  "This method can affect the sensor performance.",
                  "Warning")) {
    return;
  }
  c.HideAllFrames();
  c.CurrentPage = kMethodPage;
  for (const CharPoint& point : kRecordedPoints) ShowPoint(c, point, false);
  State& state = StateOf(c);
  std::fill(state.CharX.begin() + 1, state.CharX.end(), "0");
  std::fill(state.CharY.begin() + 1, state.CharY.end(), "0");
  c.form.frmMethodChar.SetVisible(true);
  AskForPoint(c, 1);
  c.form.txtParameter(38).SetText("");
  c.form.cmdSend.SetEnabled(true);
  c.Read(kPointRead);
  state.CharPointIndex = 1;  // after the read: its answer comes later, and so sets the number of points
}

// Write with the operation that enters points writes nothing: it begins the entry.
Operands WriteOperation(UserCntrl& c) {
  if (c.form.cmbCharOperation.Text() == kEnterPoints) {
    StartEntry(c);
    return Operands::Nothing();
  }
  return {EncodeCharOperation(c.form.cmbCharOperation.Text())};
}

void RecordPoint(UserCntrl& c) {
  State& state = StateOf(c);
  const auto index = static_cast<std::size_t>(state.CharPointIndex);
  if (index >= state.CharX.size()) throw RuntimeFailure("no such point");
  const std::string& measured = state.CharX[index] = c.form.txtParameter(39).Text();
  const std::string& applied = state.CharY[index] = c.form.txtParameter(38).Text();
  if (index == 0) return;
  const CharPoint& point = kRecordedPoints[index - 1];
  c.form.At(point.fields.x).SetText(measured);
  c.form.At(point.fields.y).SetText(applied);
  ShowPoint(c, point, true);
}

// There is no way back here: the curve goes out whatever is answered.
std::string_view AskForOperation(UserCntrl& c) {
  constexpr std::string_view kCaption = "Characterization";
  if (c.AskYesNo("Do you want to enable the curve?", kCaption)) return "0003";
  return c.AskYesNo("Disable and Restore Cal?", kCaption) ? "0002" : "0000";
}

InlineText JoinPoints(UserCntrl& c, const std::array<std::string, 6>& texts) {
  InlineText joined;
  for (std::size_t i = 1; i < texts.size(); ++i) joined.Append(c.codecs.FloatToHex(texts[i]));
  return joined;
}

// A point that was not entered goes out as 0. A write that fails leaves the page's name, and no re-read comes.
void WritePoints(UserCntrl& c) {
  c.form.cmdSend.SetEnabled(false);
  c.form.frmMethodChar.SetVisible(false);
  c.form.frmChar.SetVisible(true);
  c.form.cmdWriteParameter.SetEnabled(true);
  const std::string_view operation = AskForOperation(c);
  const State& state = StateOf(c);
  c.Write(kPointsWrite, {EncodeSendCode(c.form.cmbCharNumPoints.Text()), JoinPoints(c, state.CharX),
                         JoinPoints(c, state.CharY), operation});
  c.CurrentPage = kPage;
  c.ArmReread(1000);
}

void SendPoint(UserCntrl& c) {
  if (c.form.txtParameter(38).Text().empty()) return;
  State& state = StateOf(c);
  RecordPoint(c);
  c.form.txtParameter(38).SetText("");
  // What the list shows now counts, also where the operator has lowered it meanwhile.
  if (c.codecs.ParseLocaleNumber(c.form.cmbCharNumPoints.Text()) > state.CharPointIndex) {
    AskForPoint(c, state.CharPointIndex + 1);
    c.Read(kPointRead);
    ++state.CharPointIndex;
    return;
  }
  WritePoints(c);
}

// ---- buttons

void StartLive(UserCntrl& c) {
  c.StartTimer(TimerId::TimerChar, kLiveInterval);
  c.ReadStored(kCurveRead);
}

void OpenChar(UserCntrl& c) {
  c.form.txtPassword.SetText("");
  c.StopPollingTimers();
  OpenPage(c, {.frame = id::frmChar, .page = kPage, .write = ButtonState::kEnabled});
  StartLive(c);
}

void OpenResult(UserCntrl& c) {
  OpenPage(c, {.frame = id::frmResultChar, .page = kResultPage, .write = ButtonState::kDisabled});
  StartLive(c);
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {kCurveRead * 100, OnCharAnswer}, {kPointRead * 100, OnCharPvAnswer}, {kLiveRead * 100, OnCharPressureAnswer}};
constexpr WriteRow kWrites[] = {{kPage, kAnySubPage, 30, WriteOperation}};
constexpr RereadRow kRereads[] = {{kPage, kAnySubPage, kCurveRead}};
constexpr BackRow kBacks[] = {
    {{kMethodPage, kResultPage},
     {.page = kPage, .frame = id::frmChar, .backEnabled = true, .write = ButtonState::kEnabled}},
};
constexpr ButtonRow kButtons[] = {
    {id::cmdSensorChar, OpenChar}, {id::cmdResultChar, OpenResult}, {id::cmdSend, SendPoint}};
constexpr PollRow kPolls[] = {{TimerId::TimerChar, kLiveRead, PollDocument::kStored}};

constexpr std::string_view kNumbers[] = {"2", "3", "4", "5"};
constexpr std::string_view kOperations[] = {"Disabled", kEnterPoints, "Disable and Restore Cal",
                                            "Enable Curve and Backup Cal", "Enable Curve"};
constexpr FillRow kFills[] = {
    {id::cmbCharNumPoints, kAtStart, kNumbers},
    {id::cmbCharOperation, kAtStart, kOperations},
    {id::cmbStatusChar, kAtStart, kStatusListRows},
};

std::vector<std::string> AsTexts(const std::array<std::string, 6>& texts) { return {texts.begin(), texts.end()}; }

constexpr MemberRow kMembers[] = {
    {"CharPointIndex", [](UserCntrl& c) -> MemberValue { return StateOf(c).CharPointIndex; }},
    {"CharX", [](UserCntrl& c) -> MemberValue { return AsTexts(StateOf(c).CharX); }},
    {"CharY", [](UserCntrl& c) -> MemberValue { return AsTexts(StateOf(c).CharY); }},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .backs = kBacks,
    .buttons = kButtons,
    .polls = kPolls,
    .fills = kFills,
    .state = htr60::StateOf<State>(),
    .members = kMembers,
};

State& StateOf(UserCntrl& c) { return c.StateOf<State>(kUnit); }

}  // namespace htr60::pages::characterization
