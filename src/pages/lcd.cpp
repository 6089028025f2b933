#include "pages/pages.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/mStatusProfibus.h"
#include "codecs/status_tables.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"
#include "text/numbers.h"
#include "text/utf8.h"

// The instrument's own display: its four monitors with the live value of each, its switch and its bargraph.
namespace htr60::pages::lcd {
namespace {

constexpr std::string_view kPage = "LCD";
constexpr int kSwitchRead = 33;
constexpr int kBargraphRead = 34;
constexpr int kLiveRead = 41;
constexpr int kLiveInterval = 5000;
constexpr int kLowGroup = 960;    // a value alone
constexpr int kHighGroup = 1575;  // with a status below it
constexpr std::string_view kUserIndex = "User Index";
constexpr std::string_view kWholeStructure = "Whole Structure";

struct Monitor {
  std::string_view subPage;
  int read;
  TimerId timer;
  FirstVisitFlag firstVisit;  // none: the lists of the first are filled by the node
  std::string_view (*decodeIndex)(std::int32_t index, std::string_view block) noexcept;
  ChoiceId block;
  ChoiceId index;
  LabelId userIndexLabel;
  TextId userIndex;
  TextId element;
  TextId mnemonic;
  ChoiceId point;
  ChoiceId alphaNum;  // the last has none
  FrameId liveGroup;
  TextId value;
  ChoiceId status;
  ChoiceId simulationStatus;
};
constexpr Monitor kMonitors[] = {
    {.subPage = "Monit1",
     .read = 29,
     .timer = TimerId::TimerMonit1,
     .firstVisit = nullptr,
     .decodeIndex = DecodeMonitIndex,
     .block = id::cmbFunctionBlockMonit1,
     .index = id::cmbRelativeIndexMonit1,
     .userIndexLabel = id::lbArray(74),
     .userIndex = id::txtParameter(50),
     .element = id::txtParameter(131),
     .mnemonic = id::txtParameter(132),
     .point = id::cmbDecimalPointMonit(0),
     .alphaNum = id::cmbAlphaNumFieldMonit1,
     .liveGroup = id::frmGroupParameter(0),
     .value = id::txtParameter(46),
     .status = id::cmbLCDStatusMonit1,
     .simulationStatus = id::cmbLCDStatusMonit1},
    {.subPage = "Monit2",
     .read = 30,
     .timer = TimerId::TimerMonit2,
     .firstVisit = &UserCntrl::FirstVisitMonit2,
     .decodeIndex = DecodeMonitIndex,
     .block = id::cmbFunctionBlockMonit2,
     .index = id::cmbRelativeIndexMonit2,
     .userIndexLabel = id::lbArray(76),
     .userIndex = id::txtParameter(51),
     .element = id::txtParameter(128),
     .mnemonic = id::txtParameter(127),
     .point = id::cmbDecimalPointMonit(1),
     .alphaNum = id::cmbAlphaNumFieldMonit2,
     .liveGroup = id::frmGroupParameter(1),
     .value = id::txtParameter(47),
     .status = id::cmbLCDStatusMonit2,
     // The status of a simulation record goes to the first monitor's list: scripts look for it there.
     .simulationStatus = id::cmbLCDStatusMonit1},
    {.subPage = "Monit3",
     .read = 31,
     .timer = TimerId::TimerMonit3,
     .firstVisit = &UserCntrl::FirstVisitMonit3,
     .decodeIndex = DecodeMonitIndex,
     .block = id::cmbFunctionBlockMonit3,
     .index = id::cmbRelativeIndexMonit3,
     .userIndexLabel = id::lbArray(77),
     .userIndex = id::txtParameter(57),
     .element = id::txtParameter(133),
     .mnemonic = id::txtParameter(134),
     .point = id::cmbDecimalPointMonit(2),
     .alphaNum = id::cmbAlphaNumFieldMonit3,
     .liveGroup = id::frmGroupParameter(2),
     .value = id::txtParameter(48),
     .status = id::cmbLCDStatusMonit3,
     .simulationStatus = id::cmbLCDStatusMonit3},
    {.subPage = "Monit4",
     .read = 32,
     .timer = TimerId::TimerMonit4,
     .firstVisit = &UserCntrl::FirstVisitMonit4,
     .decodeIndex = DecodeMonitIndexFull,
     .block = id::cmbFunctionBlockMonit4,
     .index = id::cmbRelativeIndexMonit4,
     .userIndexLabel = id::lbArray(78),
     .userIndex = id::txtParameter(58),
     .element = id::txtParameter(42),
     .mnemonic = id::txtParameter(41),
     .point = id::cmbDecimalPointMonit(3),
     .alphaNum = {},
     .liveGroup = id::frmGroupParameter(3),
     .value = id::txtParameter(49),
     .status = id::cmbLCDStatusMonit4,
     .simulationStatus = id::cmbLCDStatusMonit4},
};

// ---- layout

constexpr std::array<LayoutRow, 7> MonitorRows(const Monitor& m) {
  return {{
      {.caption = "Function Block",
       .kind = RowKind::kList,
       .control = m.block,
       .note = "The block whose parameter the display shows. Another block offers other parameters in the list below."},
      {.caption = "Relative Index",
       .kind = RowKind::kList,
       .control = m.index,
       .note = "The parameter of that block which the display shows. With User Index its number is typed in."},
      {.caption = kUserIndex,
       .captionControl = m.userIndexLabel,
       .kind = RowKind::kNum,
       .control = m.userIndex,
       .width = WidthClass::kS,
       .note = "The parameter's relative index in its block, a whole number, written while the list above reads User "
               "Index. A number that the list knows by name comes back as the name."},
      {.caption = "Element",
       .kind = RowKind::kEdit,
       .control = m.element,
       .note = "Which part of the parameter is shown: two digits from 01 on, or Whole Structure. A single digit is "
               "written with a zero in front."},
      {.caption = "Mnemonic",
       .kind = RowKind::kEdit,
       .control = m.mnemonic,
       .note = "The name that the display shows for the value. The instrument keeps 16 characters."},
      {.caption = "Decimal Point",
       .kind = RowKind::kList,
       .control = m.point,
       .width = WidthClass::kS,
       .note = "How many decimals the display shows. A 4 is written, but no answer of the instrument shows it here."},
      {.caption = "Alphanumeric Field",
       .kind = RowKind::kList,
       .control = m.alphaNum,
       .width = WidthClass::kS,
       .note = "Whether the display's alphanumeric field shows the mnemonic."},
  }};
}

constexpr std::array<LayoutRow, 2> LiveRows(const Monitor& m) {
  return {{
      {.caption = "Value",
       .kind = RowKind::kText,
       .control = m.value,
       .note = "The present value of the parameter that the lists above name, also before they are written. Codes and "
               "modes stand as hexadecimal digits.",
       .live = true},
      {.caption = "Status",
       .kind = RowKind::kListRo,
       .control = m.status,
       .note = "The status that comes with the value. Shown for parameters that have one.",
       .fromHeight = kHighGroup,
       .live = true},
  }};
}

constexpr auto kMonitor1Rows = MonitorRows(kMonitors[0]);
constexpr auto kMonitor2Rows = MonitorRows(kMonitors[1]);
constexpr auto kMonitor3Rows = MonitorRows(kMonitors[2]);
constexpr auto kMonitor4Rows = MonitorRows(kMonitors[3]);
constexpr auto kLive1Rows = LiveRows(kMonitors[0]);
constexpr auto kLive2Rows = LiveRows(kMonitors[1]);
constexpr auto kLive3Rows = LiveRows(kMonitors[2]);
constexpr auto kLive4Rows = LiveRows(kMonitors[3]);
constexpr LayoutRow kSwitchRows[] = {
    {.caption = "LCD Switch",
     .kind = RowKind::kList,
     .control = id::cmbLCDSwitch,
     .width = WidthClass::kS,
     .note = "How many of the monitors 1 to 3 the display shows in turn. Not read again after a write."},
};
constexpr LayoutRow kBargraphRows[] = {
    {.caption = "LCD Bargraph",
     .kind = RowKind::kList,
     .control = id::cmbLCDBargraph,
     .width = WidthClass::kS,
     .note = "Whether the display shows the primary value in percent as a bar. Not read again after a write."},
};

constexpr LayoutGroup MonitorGroup(int tab, std::span<const LayoutRow> rows) {
  return {.tab = tab, .caption = "Monitor", .rows = rows};
}
constexpr LayoutGroup LiveGroup(int tab, std::span<const LayoutRow> rows) {
  return {.tab = tab, .caption = "Live Value", .frame = kMonitors[tab].liveGroup, .rows = rows};
}
constexpr LayoutGroup kGroups[] = {
    MonitorGroup(0, kMonitor1Rows),
    LiveGroup(0, kLive1Rows),
    MonitorGroup(1, kMonitor2Rows),
    LiveGroup(1, kLive2Rows),
    MonitorGroup(2, kMonitor3Rows),
    LiveGroup(2, kLive3Rows),
    MonitorGroup(3, std::span(kMonitor4Rows).first(kMonitor4Rows.size() - 1)),  // without the alphanumeric field
    LiveGroup(3, kLive4Rows),
    {.tab = 4, .caption = "LCD Switch", .rows = kSwitchRows},
    {.tab = 5, .caption = "LCD Bargraph", .rows = kBargraphRows},
};
constexpr LayoutTitle kTitle[] = {{"", "LCD Config"}};
constexpr int kReads[] = {kMonitors[0].read, kMonitors[1].read, kMonitors[2].read, kMonitors[3].read,
                          kSwitchRead,       kBargraphRead,     kLiveRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmLCD,
     .titles = kTitle,
     .purpose =
         "What the instrument's own display shows. The monitor tabs also show the chosen parameter's live value, "
         "every 5 s.",
     .reads = kReads,
     .strip = id::SSTabLCD,
     .groups = kGroups},
};

// ---- lists

struct BlockRows {
  std::string_view block;
  std::span<const std::string_view> rows;
  bool adds = false;  // to the rows that stand there
};

constexpr std::string_view kTransducerRows[] = {
    "Sensor Value",     "Primary Value", "Temperature", "Secondary Value 1", "Secondary Value 2",
    "Press Lin Normal", "Press Normal",  "PV%",         kUserIndex};
constexpr std::string_view kAnalogInputRows[] = {"Out", kUserIndex};
constexpr std::string_view kUserIndexRow[] = {kUserIndex};
constexpr BlockRows kRowsOfBlocks[] = {
    {"Transducer", kTransducerRows},      {"Analog Input 1", kAnalogInputRows}, {"Analog Input 2", kAnalogInputRows},
    {"Analog Input 3", kAnalogInputRows}, {"Physical", kUserIndexRow, true},  // chosen again it adds its row again
};

constexpr std::string_view kAllTransducerRows[] = {"Target Mode",       "Mode Block",
                                                   "Cal Point Hi",      "Cal Point Lo",
                                                   "Sensor Unit",       "Primary Value Unit",
                                                   "Temperature Unit",  "Linearization Type",
                                                   "Scale In",          "Scale Out",
                                                   "Low Flow Cut Off",  "Flow Lin Sqrt Point",
                                                   "Cal Temperature",   "Backup Restore",
                                                   "Sensor Value",      "Primary Value",
                                                   "Temperature",       "Secondary Value 1",
                                                   "Secondary Value 2", "Press Lin Normal",
                                                   "Press Normal",      "PV%",
                                                   kUserIndex};
constexpr std::string_view kAllAnalogInputRows[] = {
    "Target Mode", "Out",       "PV Scale",  "Out Scale", "L Type", "Channel",   "PV FTime", "FSafe Type",
    "FSafe Value", "Alarm Hys", "Hi Hi Lim", "Hi Lim",    "Lo Lim", "Lo Lo Lim", "Simulate", kUserIndex};
constexpr std::string_view kAllPhysicalRows[] = {"Write Locking", "Factory Reset", "Ident. Number Select", kUserIndex};
constexpr BlockRows kAllRowsOfBlocks[] = {
    {"Transducer", kAllTransducerRows},      {"Analog Input 1", kAllAnalogInputRows},
    {"Analog Input 2", kAllAnalogInputRows}, {"Analog Input 3", kAllAnalogInputRows},
    {"Physical", kAllPhysicalRows},
};
constexpr std::span<const BlockRows> kIndexRows[] = {kRowsOfBlocks, kRowsOfBlocks, kRowsOfBlocks, kAllRowsOfBlocks};

void OnBlock(UserCntrl& c, int monitor) {
  const Monitor& m = kMonitors[monitor];
  const std::string_view block = c.form.At(m.block).Text();
  ChoiceList& list = c.form.At(m.index);
  for (const BlockRows& of : kIndexRows[monitor]) {
    if (of.block != block) continue;
    if (!of.adds) list.Clear();
    for (const std::string_view row : of.rows) list.AddRow(row);
  }
}

void OnIndex(UserCntrl& c, int monitor) {
  const Monitor& m = kMonitors[monitor];
  const bool typed = c.form.At(m.index).Text() == kUserIndex;
  c.form.At(m.userIndex).SetVisible(typed);
  c.form.At(m.userIndexLabel).SetVisible(typed);
}

// ---- answers and writes

// A new block fills the list of indexes before the index is set.
void OnMonitorAnswer(UserCntrl& c, int monitor, const Answer& a) {
  const Monitor& m = kMonitors[monitor];
  Form& f = c.form;
  f.At(m.block).SetIfAny(DecodeMonitBlock(HexNumber16(a.Text("LCDFunctionBlock"))));
  const std::int32_t index = a.Word("LCDRelIndex");
  f.At(m.index).SetIfAny(m.decodeIndex(index, f.At(m.block).Text()));
  f.At(m.userIndex).SetText(c.codecs.NumberToText(index));
  const std::string_view element = a.Text("LCDElement");
  f.At(m.element).SetText(element == "FF" ? kWholeStructure : element);
  f.At(m.mnemonic).SetText(HexToTextField(a.Text("LCDMnemonic")));
  f.At(m.point).SetIfAny(DecodeDecimalPoint(a.Number("LCDDecPoint")));
  if (m.alphaNum) f.At(m.alphaNum).SetIfAny(DecodeAlphaNumField(HexNumber16(a.Text("LCDAlphaNum"))));
}

void OnSwitchAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbLCDSwitch.SetIfAny(DecodeLcdSwitch(a.Number("LCDSwitch")));
}

void OnBargraphAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbLCDBargraph.SetIfAny(DecodeLcdBargraph(a.Number("LCDBargraph")));
}

InlineText IndexDigits(UserCntrl& c, const Monitor& m) {
  const std::string_view index = c.form.At(m.index).Text();
  if (index != kUserIndex) return EncodeMonitIndex(index);
  return Codecs::IntToHex(c.codecs.TextToInt32(c.form.At(m.userIndex).Text()), 4);
}

InlineText ElementDigits(std::string_view element) {
  if (element == kWholeStructure || element == "whole Structure") return "FF";
  const bool single = HasCharacters(element, 1) && !HasCharacters(element, 2);
  return Join({single ? "0" : "", element});
}

Operands WriteMonitor(UserCntrl& c, int monitor) {
  const Monitor& m = kMonitors[monitor];
  Form& f = c.form;
  Operands operands{EncodeMonitBlock(f.At(m.block).Text()), IndexDigits(c, m), ElementDigits(f.At(m.element).Text()),
                    MnemonicToHex(f.At(m.mnemonic).Text()), EncodeDecimalPoint(f.At(m.point).Text())};
  if (m.alphaNum) operands.Add(EncodeAlphaNumField(f.At(m.alphaNum).Text()));
  return operands;
}

Operands WriteSwitch(UserCntrl& c) { return {EncodeLcdSwitch(c.form.cmbLCDSwitch.Text())}; }

Operands WriteBargraph(UserCntrl& c) { return {EncodeLcdBargraph(c.form.cmbLCDBargraph.Text())}; }

// ---- live values

void StartLive(UserCntrl& c, int monitor) { c.StartTimer(kMonitors[monitor].timer, kLiveInterval); }

// Unlike every other read this one carries names, not codes.
Operands MonitoredParameter(UserCntrl& c, int monitor) {
  return {c.form.At(kMonitors[monitor].block).Text(), c.form.At(kMonitors[monitor].index).Text()};
}

enum class Element { kFirst, kSecond, kOther };

Element ElementOf(std::string_view text) {
  if (text == "01" || text == "1") return Element::kFirst;
  return text == "02" || text == "2" ? Element::kSecond : Element::kOther;
}

// Each shows a value of one type and gives the height of its group.

int ShowFloat(UserCntrl& c, const Monitor& m, std::string_view hex, Element /*element*/) {
  c.form.At(m.value).SetText(c.codecs.FormatValue(HexToFloat(hex)));
  return kLowGroup;
}

int ShowDigits(UserCntrl& c, const Monitor& m, std::string_view hex, Element /*element*/) {
  c.form.At(m.value).SetText(hex);
  return kLowGroup;
}

int ShowFloatAndStatus(UserCntrl& c, const Monitor& m, std::string_view hex, Element /*element*/) {
  std::int32_t status = 0;
  c.codecs.HexToFloatStatus(hex, c.form.At(m.value), status);
  c.form.At(m.status).SetText(StatusByteToText(status));
  return kHighGroup;
}

// The float that is not asked for goes to a field that is not seen from here.
int ShowPair(UserCntrl& c, const Monitor& m, std::string_view hex, Element element) {
  TextField& value = c.form.At(m.value);
  if (element == Element::kFirst) c.codecs.HexToFloatPair(hex, value, c.form.txtParameter(100));
  if (element == Element::kSecond) c.codecs.HexToFloatPair(hex, c.form.txtParameter(99), value);
  return kLowGroup;
}

int ShowScale(UserCntrl& c, const Monitor& m, std::string_view hex, Element element) {
  TextField& value = c.form.At(m.value);
  std::int16_t unit = 0;
  c.codecs.HexToScale(hex, element == Element::kFirst ? value : c.form.txtParameter(129),
                      element == Element::kSecond ? value : c.form.txtParameter(130), unit);
  if (element == Element::kOther) value.SetText(UnitCodeToText(unit));
  return kLowGroup;
}

int ShowSimulation(UserCntrl& c, const Monitor& m, std::string_view hex, Element element) {
  TextField& value = c.form.At(m.value);
  std::int32_t status = 0;
  std::int32_t enabled = 0;
  double number = 0;
  HexToSimulation(hex, status, number, enabled);
  if (element == Element::kFirst) {
    value.SetText(DecodeSimulateActive(enabled));
    return kLowGroup;
  }
  value.SetText(c.codecs.FormatValue(number));
  if (element == Element::kSecond) return kLowGroup;
  c.form.At(m.simulationStatus).SetText(StatusByteToText(status));
  return kHighGroup;
}

struct LiveType {
  std::string_view name;
  int (*show)(UserCntrl& c, const Monitor& m, std::string_view hex, Element element);
};
constexpr LiveType kLiveTypes[] = {
    {"FLOAT", ShowFloat},       {"UNSIGNED8", ShowDigits},
    {"UNSIGNED16", ShowDigits}, {"FLOATANDSTATUS", ShowFloatAndStatus},
    {"2TFLOAT", ShowPair},      {"MODE", ShowDigits},
    {"SCALING", ShowScale},     {"SIMULATIONFLOAT", ShowSimulation},
};

// Lists and element count as they stand now, not as they stood when the read went out.
void OnMonitorValueAnswer(UserCntrl& c, const Answer& a) {
  const std::string_view hex = a.Text("ParamValue");
  for (const Monitor& m : kMonitors) {
    if (m.subPage != c.SubPage) continue;
    const std::string_view name = DecodeMonitDataType(c.form.At(m.index).Text());
    const auto* const type = std::find_if(std::begin(kLiveTypes), std::end(kLiveTypes),
                                          [&](const LiveType& candidate) { return candidate.name == name; });
    Frame& group = c.form.At(m.liveGroup);
    if (type == std::end(kLiveTypes)) {
      group.SetVisible(false);
    } else {
      group.SetHeight(type->show(c, m, hex, ElementOf(c.form.At(m.element).Text())));
      group.SetVisible(true);
    }
  }
}

// ---- tabs

constexpr TabStep MonitorStep(const Monitor& m) {
  return {.page = kPage,
          .subPage = m.subPage,
          .write = ButtonState::kEnabled,
          .read = m.read,
          .polls = true,
          .timer = m.timer,
          .interval = kLiveInterval};
}
constexpr TabStep kSteps[] = {
    MonitorStep(kMonitors[0]),
    MonitorStep(kMonitors[1]),
    MonitorStep(kMonitors[2]),
    MonitorStep(kMonitors[3]),
    {.page = kPage, .subPage = "Switch", .write = ButtonState::kEnabled, .read = kSwitchRead},
    {.page = kPage, .subPage = "Bargraph", .write = ButtonState::kEnabled, .read = kBargraphRead},
};

void OnTab(UserCntrl& c, int tab) {
  if (tab < static_cast<int>(std::size(kMonitors)) && kMonitors[tab].firstVisit != nullptr) {
    c.FirstVisit(kMonitors[tab].firstVisit);
  }
  RunTabReadingLast(c, kSteps[tab]);
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {kMonitors[0].read * 100, {OnMonitorAnswer, 0}},
    {kMonitors[1].read * 100, {OnMonitorAnswer, 1}},
    {kMonitors[2].read * 100, {OnMonitorAnswer, 2}},
    {kMonitors[3].read * 100, {OnMonitorAnswer, 3}},
    {kSwitchRead * 100, OnSwitchAnswer},
    {kBargraphRead * 100, OnBargraphAnswer},
    {kLiveRead * 100, OnMonitorValueAnswer},
};
constexpr WriteRow kWrites[] = {
    {kPage, "Monit1", 24, {WriteMonitor, 0}}, {kPage, "Monit2", 25, {WriteMonitor, 1}},
    {kPage, "Monit3", 26, {WriteMonitor, 2}}, {kPage, "Monit4", 27, {WriteMonitor, 3}},
    {kPage, "Switch", 28, WriteSwitch},       {kPage, "Bargraph", 29, WriteBargraph},
};
// Switch and bargraph are not read back: nobody sees the device's verdict until their tab is opened again.
constexpr RereadRow kRereads[] = {
    {kPage, "Monit1", kMonitors[0].read, {StartLive, 0}},
    {kPage, "Monit2", kMonitors[1].read, {StartLive, 1}},
    {kPage, "Monit3", kMonitors[2].read, {StartLive, 2}},
    {kPage, "Monit4", kMonitors[3].read, {StartLive, 3}},
};
constexpr TabRow kTabs[] = {{id::SSTabLCD, kSteps, OnTab}};
constexpr ListRow kLists[] = {
    {id::cmbFunctionBlockMonit1, {OnBlock, 0}}, {id::cmbFunctionBlockMonit2, {OnBlock, 1}},
    {id::cmbFunctionBlockMonit3, {OnBlock, 2}}, {id::cmbFunctionBlockMonit4, {OnBlock, 3}},
    {id::cmbRelativeIndexMonit1, {OnIndex, 0}}, {id::cmbRelativeIndexMonit2, {OnIndex, 1}},
    {id::cmbRelativeIndexMonit3, {OnIndex, 2}}, {id::cmbRelativeIndexMonit4, {OnIndex, 3}},
};
// A write on any page ends them; the re-read of a monitor starts its own again.
constexpr PollRow kPolls[] = {
    {TimerId::TimerMonit1, kLiveRead, PollDocument::kOwn, {MonitoredParameter, 0}, true},
    {TimerId::TimerMonit2, kLiveRead, PollDocument::kOwn, {MonitoredParameter, 1}, true},
    {TimerId::TimerMonit3, kLiveRead, PollDocument::kOwn, {MonitoredParameter, 2}, true},
    {TimerId::TimerMonit4, kLiveRead, PollDocument::kOwn, {MonitoredParameter, 3}, true},
};

constexpr std::string_view kBlocks[] = {"Physical",       "Transducer",     "Analog Input 1",
                                        "Analog Input 2", "Analog Input 3", "None"};
constexpr std::string_view kPoints[] = {"1", "2", "3", "4"};
constexpr std::string_view kFalseTrue[] = {"False", "True"};
constexpr std::string_view kSwitch[] = {"1", "2", "3"};
constexpr FillRow kFills[] = {
    {id::cmbFunctionBlockMonit1, &UserCntrl::FirstVisitLcd, kBlocks},
    {id::cmbDecimalPointMonit(0), &UserCntrl::FirstVisitLcd, kPoints},
    {id::cmbAlphaNumFieldMonit1, &UserCntrl::FirstVisitLcd, kFalseTrue},
    {id::cmbLCDStatusMonit1, &UserCntrl::FirstVisitLcd, kStatusListRows},
    {id::cmbLCDSwitch, &UserCntrl::FirstVisitLcd, kSwitch},
    {id::cmbLCDBargraph, &UserCntrl::FirstVisitLcd, kFalseTrue},
    {id::cmbFunctionBlockMonit2, &UserCntrl::FirstVisitMonit2, kBlocks},
    {id::cmbDecimalPointMonit(1), &UserCntrl::FirstVisitMonit2, kPoints},
    {id::cmbAlphaNumFieldMonit2, &UserCntrl::FirstVisitMonit2, kFalseTrue},
    {id::cmbLCDStatusMonit2, &UserCntrl::FirstVisitMonit2, kStatusListRows},
    {id::cmbFunctionBlockMonit3, &UserCntrl::FirstVisitMonit3, kBlocks},
    {id::cmbDecimalPointMonit(2), &UserCntrl::FirstVisitMonit3, kPoints},
    {id::cmbAlphaNumFieldMonit3, &UserCntrl::FirstVisitMonit3, kFalseTrue},
    {id::cmbLCDStatusMonit3, &UserCntrl::FirstVisitMonit3, kStatusListRows},
    {id::cmbFunctionBlockMonit4, &UserCntrl::FirstVisitMonit4, kBlocks},
    {id::cmbDecimalPointMonit(3), &UserCntrl::FirstVisitMonit4, kPoints},
    {id::cmbLCDStatusMonit4, &UserCntrl::FirstVisitMonit4, kStatusListRows},
};
constexpr NodeText kNodeTexts[] = {{.text = "LCD Config", .parent = "Blocks", .picture = "forward2"}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = kPage,
     .subPage = kMonitors[0].subPage,
     .frame = id::frmLCD,
     .strip = id::SSTabLCD,
     .read = kMonitors[0].read,
     .firstVisit = &UserCntrl::FirstVisitLcd,
     .polls = true,
     .timer = kMonitors[0].timer,
     .interval = kLiveInterval},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .tabs = kTabs,
    .lists = kLists,
    .polls = kPolls,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::lcd
