#include <array>
#include <cstddef>
#include <span>
#include <string>

#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "pages/backup_restore.h"
#include "pages/digit_fields.h"
#include "pages/pages.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::factory_sensor {
namespace {

constexpr std::string_view kPage = "Factory Sensor";
constexpr char kHiSensor[] = "Factory Sensor";
constexpr char kLoSensor[] = "Factory Sensor Lo";
constexpr char kHiFlange[] = "Factory Flange";
constexpr char kLoFlange[] = "Factory Flange Lo";
constexpr char kPolynomial[] = "Factory Polynomial";
constexpr char kGainOffset[] = "Factory Gain/OffSet";
constexpr char kBackup[] = "Factory Backup Restore";
constexpr char kRemoteSeal[] = "Factory Remote Seal";  // no control leads there
constexpr int kSensorRead = 46;
constexpr int kRemoteSealRead = 47;
constexpr int kFlangeRead = 48;
constexpr int kPolynomialRead = 49;
constexpr int kGainRead = 50;
constexpr int kBackupRead = 55;
constexpr int kZeroFilterWrite = 43;
constexpr int kDecimals = 6;

/// Controls that both sensors have.
struct SensorFields {
  ChoiceId initialized;
  ChoiceId type;
  ChoiceId range;
  ChoiceId fluid;
  TextId serial;
  ChoiceId diaphragm;
  ChoiceId model;
  ChoiceId flangeType;
  ChoiceId flangeMaterial;
  ChoiceId oRing;
};
constexpr SensorFields kHi{.initialized = id::cmbFSensorInitialized,
                           .type = id::cmbFSensorType,
                           .range = id::cmbFSensorRangeCode,
                           .fluid = id::cmbFSensorFillFluid,
                           .serial = id::txtParameter(140),
                           .diaphragm = id::cmbFSensorDiagMtrl,
                           .model = id::cmbSensorModel,
                           .flangeType = id::cmbFlangeType,
                           .flangeMaterial = id::cmbFlangeMaterial,
                           .oRing = id::cmbORingMaterial};
constexpr SensorFields kLo{.initialized = id::cmbFSensorInitializedLo,
                           .type = id::cmbFSensorTypeLo,
                           .range = id::cmbFSensorRangeCodeLo,
                           .fluid = id::cmbFSensorFillFluidLo,
                           .serial = id::txtParameter(206),
                           .diaphragm = id::cmbFSensorDiagMtrlLo,
                           .model = id::cmbSensorModelLo,
                           .flangeType = id::cmbFlangeTypeLo,
                           .flangeMaterial = id::cmbFlangeMaterialLo,
                           .oRing = id::cmbORingMaterialLo};

/// A coefficient, its caption and its field.
struct Coefficient {
  std::string_view caption;
  TextId field;
};
constexpr std::size_t kCoefficients = 12;  // of the sixteen that the device reports
using Polynomial = std::array<Coefficient, kCoefficients>;
constexpr Polynomial kHiPolynomial{{{"A0", id::txtParameter(152)},
                                    {"A1", id::txtParameter(153)},
                                    {"A2", id::txtParameter(154)},
                                    {"A3", id::txtParameter(155)},
                                    {"A4", id::txtParameter(163)},
                                    {"A5", id::txtParameter(164)},
                                    {"A6", id::txtParameter(162)},
                                    {"A7", id::txtParameter(165)},
                                    {"A8", id::txtParameter(166)},
                                    {"A9", id::txtParameter(167)},
                                    {"A10", id::txtParameter(168)},
                                    {"A11", id::txtParameter(169)}}};
constexpr Polynomial kLoPolynomial{{{"B0", id::txtParameter(340)},
                                    {"B1", id::txtParameter(341)},
                                    {"B2", id::txtParameter(342)},
                                    {"B3", id::txtParameter(343)},
                                    {"B4", id::txtParameter(345)},
                                    {"B5", id::txtParameter(346)},
                                    {"B6", id::txtParameter(344)},
                                    {"B7", id::txtParameter(347)},
                                    {"B8", id::txtParameter(348)},
                                    {"B9", id::txtParameter(349)},
                                    {"B10", id::txtParameter(350)},
                                    {"B11", id::txtParameter(351)}}};

/// Gain and offset of the measuring channels, each with its tag, in the order of answer and write.
struct Correction {
  std::string_view tag;
  std::string_view caption;
  TextId field;
};
constexpr Correction kCorrections[] = {
    {"TRDPressGain", "Gain", id::txtParameter(156)},      {"TRDPressSensorOffset", "OffSet", id::txtParameter(157)},
    {"TRDTempSensorGain", "Gain", id::txtParameter(158)}, {"TRDTempSensorOffSet", "Offset", id::txtParameter(159)},
    {"TRDSns1Gain", "Gain", id::txtParameter(357)},       {"TRDSns1OffSet", "Offset", id::txtParameter(358)},
    {"TRDSns2Gain", "Gain", id::txtParameter(359)},       {"TRDSns2OffSet", "Offset", id::txtParameter(360)},
};

// ---- layout

constexpr LayoutRow ListRowOf(std::string_view caption, ChoiceId list, std::string_view note,
                              RowRole role = RowRole::kNone) {
  return {.caption = caption, .kind = RowKind::kList, .control = list, .note = note, .role = role};
}

constexpr std::array<LayoutRow, 7> SensorRows(const SensorFields& f) {
  return {{
      ListRowOf("Sensor Initialized", f.initialized,
                "Whether the sensor has got its production data. The device reports a sensor that is not initialized.",
                RowRole::kSensorState),
      ListRowOf("Sensor Type", f.type, "On which principle the sensor measures."),
      ListRowOf("Sensor Range Code", f.range,
                "The pressure range that the sensor is built for. A wrong one changes the measurement."),
      ListRowOf("Sensor Fill Fluid", f.fluid, "The fluid behind the diaphragm."),
      {.caption = "Sensor Serial Number",
       .kind = RowKind::kNum,
       .control = f.serial,
       .note = "A whole number. Written together with all other data of this sensor."},
      ListRowOf("Sensor Dia. Mtrl.", f.diaphragm, "What the diaphragm is made of."),
      ListRowOf("Sensor Model", f.model, "Against what the sensor measures."),
  }};
}

constexpr std::array<LayoutRow, 3> FlangeRows(const SensorFields& f) {
  return {{
      ListRowOf("Flange Type", f.flangeType, "How this side is connected to the process. Written with the materials."),
      ListRowOf("Flange Material", f.flangeMaterial, "What the flange of this side is made of."),
      ListRowOf("O'ring Material", f.oRing, "What the seal of this side is made of."),
  }};
}

template <std::size_t N, std::size_t M>
constexpr std::array<LayoutRow, N + M> Below(const LayoutRow (&head)[N], const std::array<LayoutRow, M>& rest) {
  std::array<LayoutRow, N + M> rows{};
  for (std::size_t i = 0; i < N; ++i) rows[i] = head[i];
  for (std::size_t i = 0; i < M; ++i) rows[N + i] = rest[i];
  return rows;
}

constexpr LayoutRow kHiHead[] = {
    ListRowOf("Sensor Manufacturer", id::cmbFSensorManufacturer, "Who made the sensors: one entry for both."),
    ListRowOf("Sensor Connected", id::cmbFSensorConnected, "Whether the sensors are connected: one entry for both.",
              RowRole::kSensorState),
};
constexpr LayoutRow kLoHead[] = {
    {.caption = "Sensor Connected",
     .kind = RowKind::kListRo,
     .control = id::cmbFSensorConnectedLo,
     .width = WidthClass::kM,
     .note = "Repeats the entry of the Hi sensor and is never written."},
};
constexpr auto kHiRows = Below(kHiHead, SensorRows(kHi));
constexpr auto kLoRows = Below(kLoHead, SensorRows(kLo));
constexpr auto kHiFlangeRows = FlangeRows(kHi);
constexpr auto kLoFlangeRows = FlangeRows(kLo);

constexpr LayoutRow kVersionRows[] = {
    {.caption = "Polynomial Version:",
     .kind = RowKind::kEdit,
     .control = id::txtParameter(2),
     .width = WidthClass::kS,
     .note = "Two digits, one gets a zero before it. Written together with all coefficients."},
};
constexpr std::array<LayoutRow, kCoefficients> RowsOf(const Polynomial& polynomial) {
  std::array<LayoutRow, kCoefficients> rows{};
  for (std::size_t i = 0; i < kCoefficients; ++i) {
    rows[i] = {.caption = polynomial[i].caption,
               .kind = RowKind::kNum,
               .control = polynomial[i].field,
               .note = "Turns the sensor's reading into pressure. Written together with all coefficients."};
  }
  return rows;
}
constexpr auto kHiPolynomialRows = RowsOf(kHiPolynomial);
constexpr auto kLoPolynomialRows = RowsOf(kLoPolynomial);

constexpr auto kCorrectionRows = [] {
  std::array<LayoutRow, std::size(kCorrections)> rows{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i] = {.caption = kCorrections[i].caption,
               .kind = RowKind::kNum,
               .control = kCorrections[i].field,
               .note = i % 2 == 0 ? "The measured value is multiplied by it. Written together with this tab."
                                  : "Is added to the measured value. Written together with this tab."};
  }
  return rows;
}();
constexpr std::span<const LayoutRow> Channel(std::size_t channel) {
  return std::span(kCorrectionRows).subspan(2 * channel, 2);
}

constexpr LayoutRow kBackupPanelRows[] = {
    BackupRow(id::lbParameter(2), id::cmbBackupRes(0)),
    {.caption = "Write",
     .captionControl = id::cmdWriteBackupRestore,
     .kind = RowKind::kWrite,
     .control = id::cmdWriteBackupRestore,
     .note = "Sends the command without a question."},
};
constexpr LayoutRow kZeroFilterRows[] = {
    {.caption = "Zero Filter",
     .captionControl = id::lbArray(22),
     .kind = RowKind::kList,
     .control = id::cmbDeadBandBypass,
     .width = WidthClass::kS,
     .note = "While it is True a pressure close to zero counts as zero."},
    {.caption = "Write",
     .captionControl = id::cmdWriteZeroFilter,
     .kind = RowKind::kWrite,
     .control = id::cmdWriteZeroFilter,
     .note = "Sends the zero filter alone."},
};
constexpr LayoutRow kCalibrationRows[] = {
    {.caption = "Cal With Ref",
     .captionControl = id::cmdCalWithRef,
     .kind = RowKind::kOpen,
     .control = id::cmdCalWithRef},
    {.caption = "Cal Without Ref",
     .captionControl = id::cmdCalWithoutRef,
     .kind = RowKind::kOpen,
     .control = id::cmdCalWithoutRef},
};
constexpr LayoutGroup kGroups[] = {
    {.tab = 0, .innerTab = 0, .rows = kHiRows},
    {.tab = 0, .innerTab = 1, .rows = kHiFlangeRows},
    {.tab = 1, .innerTab = 0, .rows = kLoRows},
    {.tab = 1, .innerTab = 1, .rows = kLoFlangeRows},
    {.tab = 2, .rows = kVersionRows},
    {.tab = 2, .caption = "Sensor 1", .rows = kHiPolynomialRows, .columns = 2, .separate = true},
    {.tab = 2, .caption = "Sensor 2", .rows = kLoPolynomialRows, .columns = 2, .beside = true},
    {.tab = 3, .caption = "Delta P", .rows = Channel(0)},
    {.tab = 3, .caption = "Temp Sensor", .rows = Channel(1), .beside = true},
    {.tab = 3, .caption = "Hi Sensor", .rows = Channel(2), .separate = true},
    {.tab = 3, .caption = "Lo Sensor", .rows = Channel(3), .beside = true},
    {.tab = 4, .caption = "Backup Restore", .rows = kBackupPanelRows},
    {.tab = 4, .caption = "Zero Filter", .rows = kZeroFilterRows},
    {.tab = 5, .rows = kCalibrationRows, .box = false},
};
constexpr LayoutInnerStrip kInnerStrips[] = {{0, id::SSTabSensorHiFactory}, {1, id::SSTabSensorLoFactory}};
constexpr LayoutTitle kTitle[] = {{"", "Factory Sensor"}};
constexpr int kReads[] = {kSensorRead, kFlangeRead, kPolynomialRead, kGainRead, kBackupRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmFactorySensorInfo,
     .titles = kTitle,
     .purpose = "Production data of both sensors: a wrong value here changes the measurement.",
     .reads = kReads,
     .strip = id::SSTabFactorySensorInfo,
     .innerStrips = kInnerStrips,
     .groups = kGroups},
};

// ---- answers

/// A tag that a list shows while it knows its code.
struct DecodedList {
  std::string_view tag;
  ChoiceId list;
  std::string_view (*decode)(std::int32_t);
};

void TakeLists(UserCntrl& c, const Answer& a, std::span<const DecodedList> lists) {
  for (const DecodedList& l : lists) c.form.At(l.list).SetIfAny(l.decode(a.Number(l.tag)));
}

// One flag for both sensors: the two lists always show the same.
constexpr DecodedList kSensorLists[] = {
    {"SensorManufacturer", id::cmbFSensorManufacturer, DecodeSensorManufacturer},
    {"SensorConnected", id::cmbFSensorConnected, DecodeSensorConnected},
    {"SensorConnected", id::cmbFSensorConnectedLo, DecodeSensorConnected},
    {"SensorInitialized", kHi.initialized, DecodeSensorInitialized},
    {"SensorInitialized_Lo", kLo.initialized, DecodeSensorInitialized},
    {"TRDSensorType", kHi.type, DecodeSensorType},
    {"TRDSensorType_Lo", kLo.type, DecodeSensorType},
    {"TRDSensorRangeCode", kHi.range, DecodeSensorRange},
    {"TRDSensorRangeCode_Lo", kLo.range, DecodeSensorRange},
    {"TRDSensorFillFluid", kHi.fluid, DecodeFillFluid},
    {"TRDSensorFillFluid_Lo", kLo.fluid, DecodeFillFluid},
};
constexpr DecodedList kSensorListsAfterSerial[] = {
    {"TRDSensorDiaMtrl", kHi.diaphragm, DecodeDiaphragmMaterial},
    {"TRDSensorDiaMtrl_Lo", kLo.diaphragm, DecodeDiaphragmMaterial},
    {"TRDSensorModel", kHi.model, DecodeSensorModel},
    {"TRDSensorModel_Lo", kLo.model, DecodeSensorModel},
};
// Other than in the sensor information no underscore stands before "Lo" here.
constexpr DecodedList kFlangeLists[] = {
    {"TRDFlangeType", kHi.flangeType, DecodeFlangeType},
    {"TRDFlangeTypeLo", kLo.flangeType, DecodeFlangeType},
    {"TRDFlangeMaterial", kHi.flangeMaterial, DecodeFlangeMaterial},
    {"TRDFlangeMaterialLo", kLo.flangeMaterial, DecodeFlangeMaterial},
    {"TRDORingMaterial", kHi.oRing, DecodeORingMaterial},
    {"TRDORingMaterialLo", kLo.oRing, DecodeORingMaterial},
};
constexpr DecodedList kBackupLists[] = {
    {"BackupRestore", id::cmbBackupRes(0), DecodeBackupRestore},
    {"TRDDeadBandBypass", id::cmbDeadBandBypass, DecodeFalseTrue},
};

// The sensor limits that end this answer are shown by other pages.
void OnSensorAnswer(UserCntrl& c, const Answer& a) {
  TakeLists(c, a, kSensorLists);
  c.form.At(kHi.serial).SetText(SerialNumberText(a.Text("TRDSensorSerialNumber")));
  c.form.At(kLo.serial).SetText(SerialNumberText(a.Text("TRDSensorSerialNumber_Lo")));
  TakeLists(c, a, kSensorListsAfterSerial);
}

void OnFlangeAnswer(UserCntrl& c, const Answer& a) { TakeLists(c, a, kFlangeLists); }

void TakePolynomial(UserCntrl& c, std::string_view hex, const Polynomial& polynomial) {
  std::array<double, 16> values{};
  HexToFloatArray(hex, values);
  for (std::size_t i = 0; i < kCoefficients; ++i) {
    c.form.At(polynomial[i].field).SetText(c.codecs.FormatDecimals(values[i], kDecimals));
  }
}

void OnPolynomialAnswer(UserCntrl& c, const Answer& a) {
  c.form.txtParameter(2).SetText(a.Text("PolyVersion"));
  TakePolynomial(c, a.Text("CoeffPol"), kHiPolynomial);
  TakePolynomial(c, a.Text("CoeffPolSns2"), kLoPolynomial);
}

void OnGainAnswer(UserCntrl& c, const Answer& a) {
  for (const Correction& g : kCorrections) {
    c.form.At(g.field).SetText(c.codecs.FormatDecimals(HexToFloat(a.Text(g.tag)), kDecimals));
  }
}

void OnBackupAnswer(UserCntrl& c, const Answer& a) { TakeLists(c, a, kBackupLists); }

// ---- writes

void AddSensor(Operands& operands, UserCntrl& c, const SensorFields& f) {
  operands.Add(EncodeSensorInitialized(c.form.At(f.initialized).Text()));
  operands.Add(EncodeSensorType(c.form.At(f.type).Text()));
  operands.Add(EncodeSensorRange(c.form.At(f.range).Text()));
  operands.Add(EncodeFillFluid(c.form.At(f.fluid).Text()));
  operands.Add(SerialNumberDigits(c, f.serial));
  operands.Add(EncodeDiaphragmMaterial(c.form.At(f.diaphragm).Text()));
  operands.Add(EncodeSensorModel(c.form.At(f.model).Text()));
}

Operands WriteHiSensor(UserCntrl& c) {
  Operands operands{EncodeSensorManufacturer(c.form.cmbFSensorManufacturer.Text()),
                    EncodeSensorConnected(c.form.cmbFSensorConnected.Text())};
  AddSensor(operands, c, kHi);
  return operands;
}

Operands WriteLoSensor(UserCntrl& c) {
  Operands operands;
  AddSensor(operands, c, kLo);
  return operands;
}

Operands FlangeOperands(UserCntrl& c, const SensorFields& f) {
  return {EncodeFlangeType(c.form.At(f.flangeType).Text()), EncodeFlangeMaterial(c.form.At(f.flangeMaterial).Text()),
          EncodeORingMaterial(c.form.At(f.oRing).Text())};
}
Operands WriteHiFlange(UserCntrl& c) { return FlangeOperands(c, kHi); }
Operands WriteLoFlange(UserCntrl& c) { return FlangeOperands(c, kLo); }

InlineText PolynomialDigits(UserCntrl& c, const Polynomial& polynomial) {
  InlineText digits;
  for (const Coefficient& k : polynomial) digits.Append(c.codecs.FloatToHex(c.form.At(k.field).Text()).View());
  return digits;
}

Operands WritePolynomial(UserCntrl& c) {
  constexpr std::size_t kVersionDigits = 2;
  return {WithLeadingZeros(c.form.txtParameter(2).Text(), kVersionDigits), PolynomialDigits(c, kHiPolynomial),
          PolynomialDigits(c, kLoPolynomial)};
}

Operands WriteGain(UserCntrl& c) {
  Operands operands;
  for (const Correction& g : kCorrections) operands.Add(c.codecs.FloatToHex(c.form.At(g.field).Text()));
  return operands;
}

// ---- buttons and tabs

void OpenFactorySensor(UserCntrl& c) {
  c.form.txtPassword.SetText("");
  c.FirstVisit(&UserCntrl::FirstVisitSensor);
  c.StopPollingTimers();
  OpenPage(c, {.frame = id::frmFactorySensorInfo, .page = kPage, .subPage = kHiSensor, .write = ButtonState::kEnabled});
  c.form.SSTabFactorySensorInfo.SetIndex(0);
  c.Read(kSensorRead);
}

void SendBackup(UserCntrl& c) { c.SmallWrite(kBackupWrite, BackupOperands(c, id::cmbBackupRes(0))); }

void SendZeroFilter(UserCntrl& c) {
  c.SmallWrite(kZeroFilterWrite, {EncodeFalseTrue(c.form.cmbDeadBandBypass.Text())});
}

constexpr TabStep Step(std::string_view subPage, int read, ButtonState write = ButtonState::kEnabled) {
  return {.subPage = subPage, .write = write, .read = read};
}
constexpr TabStep kSteps[] = {
    Step(kHiSensor, kSensorRead),
    Step(kLoSensor, 0),
    Step(kPolynomial, kPolynomialRead),
    Step(kGainOffset, kGainRead),
    Step(kBackup, kBackupRead, ButtonState::kDisabled),
    Step({}, 0, ButtonState::kDisabled),
};
constexpr TabStep kHiSteps[] = {Step(kHiSensor, kSensorRead), Step(kHiFlange, kFlangeRead)};
constexpr TabStep kLoSteps[] = {Step(kLoSensor, kSensorRead), Step(kLoFlange, kFlangeRead)};

// These strips stop no timer.
void Begin(UserCntrl& c, const TabStep& step) {
  c.RequestCode = std::to_string(step.read);
  c.CurrentPage = kPage;
  if (!step.subPage.empty()) c.SubPage = step.subPage;
  c.form.cmdWriteParameter.SetEnabled(step.write == ButtonState::kEnabled);
}

// A read goes out from every tab, with "0" where it has no code. The inner strip's handler, which leaves its code, runs
// only where that strip was not at its first tab.
void OnTab(UserCntrl& c, int tab) {
  Begin(c, kSteps[tab]);
  if (tab == 0) c.form.SSTabSensorHiFactory.SetIndex(0);
  if (tab == 1) c.form.SSTabSensorLoFactory.SetIndex(0);
  c.ReadFresh();
}

void OnHiTab(UserCntrl& c, int tab) {
  Begin(c, kHiSteps[tab]);
  c.ReadFresh();
}

void OnLoTab(UserCntrl& c, int tab) {
  Begin(c, kLoSteps[tab]);
  c.ReadFresh();
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {kSensorRead * 100, OnSensorAnswer},         {kRemoteSealRead * 100},         {kFlangeRead * 100, OnFlangeAnswer},
    {kPolynomialRead * 100, OnPolynomialAnswer}, {kGainRead * 100, OnGainAnswer}, {kBackupRead * 100, OnBackupAnswer},
};
constexpr WriteRow kWrites[] = {
    {kPage, kHiSensor, 37, WriteHiSensor}, {kPage, kLoSensor, 70, WriteLoSensor},
    {kPage, kRemoteSeal, 38, {}},          {kPage, kHiFlange, 39, WriteHiFlange},
    {kPage, kLoFlange, 71, WriteLoFlange}, {kPage, kPolynomial, 40, WritePolynomial},
    {kPage, kGainOffset, 41, WriteGain},
};
constexpr RereadRow kRereads[] = {
    {kPage, {kHiSensor, kLoSensor}, kSensorRead},
    {kPage, kRemoteSeal, kRemoteSealRead},
    {kPage, {kHiFlange, kLoFlange}, kFlangeRead},
    {kPage, kPolynomial, kPolynomialRead},
    {kPage, kGainOffset, kGainRead},
    {kPage, kBackup, kBackupRead},
};
constexpr ButtonRow kButtons[] = {
    {id::cmdSensorFactory, OpenFactorySensor},
    {id::cmdWriteBackupRestore, SendBackup},
    {id::cmdWriteZeroFilter, SendZeroFilter},
};
constexpr TabRow kTabs[] = {
    {id::SSTabFactorySensorInfo, kSteps, OnTab},
    {id::SSTabSensorHiFactory, kHiSteps, OnHiTab},
    {id::SSTabSensorLoFactory, kLoSteps, OnLoTab},
};

constexpr std::string_view kFlangeTypes[] = {
    "Conventional",    "Coplanar",        "Remote Seal",        "Level 3in 150lb",     "Level 4in 150lb",
    "Level 3in 300lb", "Level 4in 300lb", "Level DN80 PN25/40", "Level DN100 PN25/40", "Level DN100 PN10/16",
    "Level 2in 150lb", "Level 2in 300lb", "Level DN50 PN10/16", "Level DN50 PN25/40",  "Level DN80 PN10/16",
};
constexpr std::string_view kFlangeMaterials[] = {"Carbon Steel", "Undefined", "316 Stainless Steel"};
constexpr std::string_view kORings[] = {"PTFE", "Viton", "Buna-N", "Ethyl-Prop"};
constexpr std::string_view kTrueFalse[] = {"True", "False"};
constexpr std::string_view kMakers[] = {"Lorvane", "Yantai Auto Instruments", "Metlan", "Bashi"};
constexpr std::string_view kConnected[] = {"Connected", "Disconnected"};
constexpr std::string_view kInitialized[] = {"Initialized"};
constexpr std::string_view kTypes[] = {"Capacitive Sensor", "Silicon Piezo Resistive"};
constexpr std::string_view kRanges[] = {
    "Range 1 (7.5 kPa)",    "Range 2 (37.4 kPa)",   "Range 3 (147.1 kPa)",   "Range 4 (690.0 kPa)",
    "Range 5 (2068.0 kPa)", "Range 6 (6890.0 kPa)", "Range 7 (20680.0 kPa)",
};
constexpr std::string_view kFluids[] = {"Silicone oil", "Inert", "fluorolube", "Reserved"};
constexpr std::string_view kDiaphragms[] = {
    "Stainless Steel 316", "Gold Monel",    "Stainless Steel 316l Sup", "Hastelloy C276",
    "Monel 400",           "Hast C276/SST", "Gold Plated SST",          "Version RS",
};
constexpr std::string_view kModels[] = {"Gauge", "Absolute", "Other/Special"};

constexpr FillRow AtSensor(ChoiceId list, std::span<const std::string_view> rows) {
  return {list, &UserCntrl::FirstVisitSensor, rows};
}
constexpr FillRow kFills[] = {
    AtSensor(id::cmbFlangeType, kFlangeTypes),
    AtSensor(id::cmbFlangeTypeLo, kFlangeTypes),
    AtSensor(id::cmbFlangeMaterial, kFlangeMaterials),
    AtSensor(id::cmbFlangeMaterialLo, kFlangeMaterials),
    AtSensor(id::cmbORingMaterial, kORings),
    AtSensor(id::cmbORingMaterialLo, kORings),
    AtSensor(id::cmbBackupRes(0), kAllBackupRows),
    AtSensor(id::cmbBackupRes(1), kAllBackupRows),
    AtSensor(id::cmbDeadBandBypass, kTrueFalse),
    AtSensor(id::cmbFSensorManufacturer, kMakers),
    AtSensor(id::cmbFSensorConnected, kConnected),
    AtSensor(id::cmbFSensorConnectedLo, kConnected),
    AtSensor(id::cmbFSensorInitialized, kInitialized),
    AtSensor(id::cmbFSensorInitializedLo, kInitialized),
    AtSensor(id::cmbFSensorType, kTypes),
    AtSensor(id::cmbFSensorTypeLo, kTypes),
    AtSensor(id::cmbFSensorRangeCode, kRanges),
    AtSensor(id::cmbFSensorRangeCodeLo, kRanges),
    AtSensor(id::cmbFSensorFillFluid, kFluids),
    AtSensor(id::cmbFSensorFillFluidLo, kFluids),
    AtSensor(id::cmbFSensorDiagMtrl, kDiaphragms),
    AtSensor(id::cmbFSensorDiagMtrlLo, kDiaphragms),
    AtSensor(id::cmbSensorModel, kModels),
    AtSensor(id::cmbSensorModelLo, kModels),
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .buttons = kButtons,
    .tabs = kTabs,
    .fills = kFills,
};

}  // namespace htr60::pages::factory_sensor
