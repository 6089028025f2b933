#include "pages/pages.h"

#include <array>
#include <string>

#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "pages/digit_fields.h"
#include "pages/primary_value_type.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::identification {
namespace {

constexpr std::string_view kPage = "Identification";
constexpr std::string_view kSensorPage = "Sensor Info";
constexpr int kIdentificationRead = 1;
constexpr int kSensorRead = 2;
constexpr int kFlangeRead = 4;

// ---- layout

constexpr LayoutRow kIdentificationRows[] = {
    {.caption = "Physical Block Tag",
     .kind = RowKind::kEdit,
     .control = id::txtParameter(0),
     .width = WidthClass::kW,
     .note = "The name of this measuring point, up to 32 characters.",
     .identity = IdentityItem::kTag},
    {.caption = "Manufacturer ID",
     .kind = RowKind::kText,
     .control = id::txtParameter(1),
     .identity = IdentityItem::kManufacturer},
    {.caption = "Ordering Code", .kind = RowKind::kText, .control = id::txtParameter(3)},
    {.caption = "Firmware Version",
     .kind = RowKind::kText,
     .control = id::txtParameter(4),
     .identity = IdentityItem::kFirmware},
    {.caption = "Device SN",
     .kind = RowKind::kText,
     .control = id::txtParameter(5),
     .identity = IdentityItem::kSerialNumber},
    {.caption = "GSD Ident. Num Sel", .kind = RowKind::kText, .control = id::txtParameter(6)},
    {.caption = "Modem Version",
     .captionControl = id::lbArray(7),
     .kind = RowKind::kText,
     .control = id::txtParameter(7),
     .note = "Reported by firmware 1.09."},
    {.caption = "Sensor Hi Version",
     .captionControl = id::lbArray(8),
     .kind = RowKind::kText,
     .control = id::txtParameter(8),
     .note = "Reported by firmware 1.09."},
    {.caption = "Sensor Lo Version",
     .captionControl = id::lbArray(9),
     .kind = RowKind::kText,
     .control = id::txtParameter(9),
     .note = "Reported by firmware 1.09."},
    {.caption = "Write Protection",
     .kind = RowKind::kList,
     .control = id::cmbWriteProtection,
     .note = "A locked device refuses every other write.",
     .identity = IdentityItem::kWriteProtection},
};
constexpr LayoutRow kDetailsRows[] = {
    {.caption = "Sensor Details",
     .captionControl = id::cmdSensorDetails,
     .kind = RowKind::kOpen,
     .control = id::cmdSensorDetails},
};
constexpr LayoutGroup kIdentificationGroups[] = {
    {.caption = "Identification", .rows = kIdentificationRows},
    {.rows = kDetailsRows, .box = false},
};

constexpr LayoutRow kHiSensorRows[] = {
    {.caption = "Sensor Model", .kind = RowKind::kText, .control = id::txtParameter(11)},
    {.caption = "Sensor Type", .kind = RowKind::kText, .control = id::txtParameter(12)},
    {.caption = "Sensor Range Code", .kind = RowKind::kText, .control = id::txtParameter(13)},
    {.caption = "Sensor Fill Fluid", .kind = RowKind::kText, .control = id::txtParameter(14)},
    {.caption = "Sensor Serial Number", .kind = RowKind::kValue, .control = id::txtParameter(15)},
    {.caption = "Sensor Dia. Mtrl.", .kind = RowKind::kText, .control = id::txtParameter(16)},
    {.caption = "Upper Sensor Limit", .kind = RowKind::kValue, .control = id::txtParameter(208)},
    {.caption = "Lower Sensor Limit", .kind = RowKind::kValue, .control = id::txtParameter(207)},
};
constexpr LayoutRow kLoSensorRows[] = {
    {.caption = "Sensor Model", .kind = RowKind::kText, .control = id::txtParameter(205)},
    {.caption = "Sensor Type", .kind = RowKind::kText, .control = id::txtParameter(149)},
    {.caption = "Sensor Range Code", .kind = RowKind::kText, .control = id::txtParameter(148)},
    {.caption = "Sensor Fill Fluid", .kind = RowKind::kText, .control = id::txtParameter(147)},
    {.caption = "Sensor Serial Number", .kind = RowKind::kValue, .control = id::txtParameter(146)},
    {.caption = "Sensor Dia. Mtrl.", .kind = RowKind::kText, .control = id::txtParameter(26)},
    {.caption = "Upper Sensor Limit", .kind = RowKind::kValue, .control = id::txtParameter(211)},
    {.caption = "Lower Sensor Limit", .kind = RowKind::kValue, .control = id::txtParameter(209)},
};
constexpr LayoutRow kHiFlangeRows[] = {
    {.caption = "Flange Type", .kind = RowKind::kText, .control = id::txtParameter(20)},
    {.caption = "Flange Material", .kind = RowKind::kText, .control = id::txtParameter(19)},
    {.caption = "O'ring Material", .kind = RowKind::kText, .control = id::txtParameter(18)},
};
constexpr LayoutRow kLoFlangeRows[] = {
    {.caption = "Flange Type", .kind = RowKind::kText, .control = id::txtParameter(25)},
    {.caption = "Flange Material", .kind = RowKind::kText, .control = id::txtParameter(24)},
    {.caption = "O'ring Material", .kind = RowKind::kText, .control = id::txtParameter(23)},
};
constexpr LayoutGroup kSensorGroups[] = {
    {.tab = 0, .innerTab = 0, .rows = kHiSensorRows},
    {.tab = 0, .innerTab = 1, .rows = kHiFlangeRows},
    {.tab = 1, .innerTab = 0, .rows = kLoSensorRows},
    {.tab = 1, .innerTab = 1, .rows = kLoFlangeRows},
};
constexpr LayoutInnerStrip kSensorStrips[] = {{0, id::SSTabInfoSensor}, {1, id::SSTabInfoSensorLo}};

constexpr LayoutTitle kIdentificationTitle[] = {{"", "Device Identification"}};
constexpr LayoutTitle kSensorTitle[] = {{"", "Sensor Details"}};
constexpr int kIdentificationReads[] = {kIdentificationRead};
constexpr int kSensorReads[] = {kSensorRead, kFlangeRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmInfo,
     .titles = kIdentificationTitle,
     .purpose = "Who the instrument is; its tag and its write protection can be set here.",
     .reads = kIdentificationReads,
     .groups = kIdentificationGroups},
    {.frame = id::frmInfoSensor,
     .titles = kSensorTitle,
     .purpose = "What each of the two sensors is made of, and what it can measure. Read-only throughout.",
     .reads = kSensorReads,
     .strip = id::SSTabInfoSensors,
     .innerStrips = kSensorStrips,
     .groups = kSensorGroups},
};

// ---- answers

// Each version's text as the device sends it, padded with blanks to 16 bytes. Compared to the digit, so a later version
// sets none of these flags.
struct FirmwareRow {
  std::string_view digits;
  Flag UserCntrl::*flag;
};
constexpr FirmwareRow kFirmware[] = {
    {"312E3034202020202020202020202020", &UserCntrl::FwFlag104},
    {"312E3035202020202020202020202020", &UserCntrl::FwFlag105},
    {"312E3036202020202020202020202020", &UserCntrl::FwFlag106},
    {"312E3037202020202020202020202020", &UserCntrl::FwFlag107},
    {"312E3038202020202020202020202020", &UserCntrl::FwFlag108},
    {"312E3039202020202020202020202020", &UserCntrl::FwFlag109},
};

void SetFirmwareFlags(UserCntrl& c, std::string_view digits) {
  std::size_t version = 0;
  while (version < std::size(kFirmware) && kFirmware[version].digits != digits) ++version;
  if (version == std::size(kFirmware)) return;
  for (std::size_t i = 0; i <= version; ++i) c.*kFirmware[i].flag = kSet;
  if (kFirmware[version].flag == &UserCntrl::FwFlag105) {  // 1.05 alone shows the field; later ones only send it
    c.form.lbArray(347).SetVisible(true);
    c.form.lbArray(348).SetVisible(true);
    c.form.txtParameter(176).SetVisible(true);
  }
  if (kFirmware[version].flag == &UserCntrl::FwFlag109) {
    c.form.lbArray(7).SetVisible(true);
    c.form.lbArray(8).SetVisible(true);
    c.form.lbArray(9).SetVisible(true);
    c.form.txtParameter(7).SetVisible(true);
    c.form.txtParameter(8).SetVisible(true);
    c.form.txtParameter(9).SetVisible(true);
  }
}

// Whether the text contains a version from 1.05 to 1.19 or from 2.00 to 4.19; "11.05" counts too.
bool NamesUserIdentVersion(std::string_view firmware) {
  for (std::size_t i = 0; i + 4 <= firmware.size(); ++i) {
    const char major = firmware[i];
    const char tens = firmware[i + 2];
    const char ones = firmware[i + 3];
    if (major < '1' || major > '4' || firmware[i + 1] != '.' || ones < '0' || ones > '9') continue;
    if (tens == '1' || (tens == '0' && (major > '1' || ones >= '5'))) return true;
  }
  return false;
}

void FillIdentNumbers(UserCntrl& c) {
  static constexpr std::array<std::string_view, 3> kRows = {"Profile Specific", "Manufacturer Specific",
                                                            "User Ident Number"};
  c.form.CmbGSD.Fill(std::span(kRows).first(c.FwFlagUserIdent != kClear ? 3 : 2));
}

void ShowFirmwareFeatures(UserCntrl& c) {
  if (c.FwFlag108 != kClear) {
    c.form.cmbAgile.SetVisible(true);
    c.form.lbParameter(6).SetVisible(true);
  }
  if (c.FwFlag107 != kClear) {
    c.form.Frame1.SetVisible(true);
    c.form.lbArray(349).SetVisible(true);
    c.form.cmbAIConfig.SetVisible(true);
    c.form.cmdWriteAIConfig.SetVisible(true);
  }
}

std::string ManufacturerText(std::int32_t number) {
  return number == 24766 ? "Lorvane Process Instruments" : std::to_string(number);
}

// Two raw characters of a sensor version, as "first.second".
std::string SensorVersionText(std::string_view raw) {
  return std::string(raw.substr(0, 1)) + "." + std::string(raw.size() > 1 ? raw.substr(1, 1) : "");
}

void OnIdentificationAnswer(UserCntrl& c, const Answer& a) {
  primary_value_type::ApplyPrimaryValueType(c, a.Number("TRDPVType"));
  c.form.txtParameter(0).SetText(HexToTextField(a.Text("PHYTag")));
  c.form.txtParameter(1).SetText(ManufacturerText(a.Word("PHYManufacturer")));
  c.form.txtParameter(3).SetText(HexToTextFieldStrict(a.Text("TRDOrderingCode")));
  c.form.txtParameter(4).SetText(HexToTextField(a.Text("PHYFirmware")));
  SetFirmwareFlags(c, a.Text("PHYFirmware"));
  if (NamesUserIdentVersion(c.form.txtParameter(4).Text())) c.FwFlagUserIdent = kSet;
  FillIdentNumbers(c);
  ShowFirmwareFeatures(c);
  c.form.txtParameter(5).SetText(HexToTextField(a.Text("PHYDevSerialNumber")));
  c.form.txtParameter(6).SetText(DecodeIdentNumber(a.Number("PHYGSDIdentNumSelector")));
  c.form.cmbWriteProtection.SetIfAny(DecodeWriteProtect(a.Number("PHYWriteProtection")));
  if (c.FwFlag109 == kClear) return;
  c.form.txtParameter(7).SetText("1.0" + std::to_string(a.Word("ModemVersion")));
  c.form.txtParameter(8).SetText(SensorVersionText(a.Text("SnsHiVersion")));
  c.form.txtParameter(9).SetText(SensorVersionText(a.Text("SnsLoVersion")));
}

// An enumeration of one sensor; an unknown code empties the field.
struct DecodedField {
  std::string_view tag;
  TextId field;
  std::string_view (*decode)(std::int32_t);
};

void FillDecoded(UserCntrl& c, const Answer& a, std::span<const DecodedField> fields) {
  for (const DecodedField& f : fields) c.form.At(f.field).SetText(f.decode(a.Number(f.tag)));
}

constexpr DecodedField kSensorHead[] = {
    {"TRDTransducerType", id::txtParameter(11), DecodeTransducerType},
    {"TRDTransducerType_Lo", id::txtParameter(205), DecodeTransducerType},
    {"TRDSensorType", id::txtParameter(12), DecodeSensorType},
    {"TRDSensorType_Lo", id::txtParameter(149), DecodeSensorType},
    {"TRDSensorRangeCode", id::txtParameter(13), DecodeSensorRange},
    {"TRDSensorRangeCode_Lo", id::txtParameter(148), DecodeSensorRange},
    {"TRDSensorFillFluid", id::txtParameter(14), DecodeFillFluid},
    {"TRDSensorFillFluid_Lo", id::txtParameter(147), DecodeFillFluid},
};
constexpr DecodedField kSensorDiaphragms[] = {
    {"TRDSensorDiaMtrl", id::txtParameter(16), DecodeDiaphragmMaterial},
    {"TRDSensorDiaMtrl_Lo", id::txtParameter(26), DecodeDiaphragmMaterial},
};
constexpr DecodedField kFlange[] = {
    {"TRDFlangeType", id::txtParameter(20), DecodeFlangeType},
    {"TRDFlangeType_Lo", id::txtParameter(25), DecodeFlangeType},
    {"TRDFlangeMaterial", id::txtParameter(19), DecodeFlangeMaterial},
    {"TRDFlangeMaterial_Lo", id::txtParameter(24), DecodeFlangeMaterial},
    {"TRDORingMaterial", id::txtParameter(18), DecodeORingMaterial},
    {"TRDORingMaterial_Lo", id::txtParameter(23), DecodeORingMaterial},
};

void OnSensorInfoAnswer(UserCntrl& c, const Answer& a) {
  FillDecoded(c, a, kSensorHead);
  c.form.txtParameter(15).SetText(SerialNumberText(a.Text("TRDSensorSerialNumber")));
  c.form.txtParameter(146).SetText(SerialNumberText(a.Text("TRDSensorSerialNumber_Lo")));
  FillDecoded(c, a, kSensorDiaphragms);
  c.form.txtParameter(208).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDSensorLimitHi_SnsHi"))));
  c.form.txtParameter(211).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDSensorLimitHi_SnsLo"))));
  c.form.txtParameter(207).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDSensorLimitLo_SnsHi"))));
  c.form.txtParameter(209).SetText(c.codecs.FormatValue(HexToFloat(a.Text("TRDSensorLimitLo_SnsLo"))));
}

// No field of the form belongs to the remote seal: the values are read as numbers and not shown.
void OnRemoteSealInfoAnswer(UserCntrl&, const Answer& a) {
  for (const char* tag : {"TRDRemoteSealType", "TRDRemoteSealFluid", "TRDRemoteSealIsoMtrl", "TRDRemoteSealNumber"}) {
    a.Number(tag);
  }
}

void OnFlangeInfoAnswer(UserCntrl& c, const Answer& a) { FillDecoded(c, a, kFlange); }

// ---- write

Operands WriteIdentification(UserCntrl& c) {
  return {TextToHex32(c.form.txtParameter(0).Text()), EncodeWriteProtect(c.form.cmbWriteProtection.Text())};
}

// ---- buttons and tabs

void OpenSensorDetails(UserCntrl& c) {
  c.HideAllFrames();
  c.form.frmInfoSensor.SetVisible(true);
  c.form.SSTabInfoSensor.SetIndex(0);
  c.form.SSTabInfoSensors.SetIndex(0);
  c.form.cmdBack.SetEnabled(true);
  c.CurrentPage = kSensorPage;
  c.form.cmdWriteParameter.SetEnabled(false);
  c.Read(kSensorRead);
}

// These strips stop no timer. The read goes out with whatever code stands: "0" where a tab has none.
void OnInnerTab(UserCntrl& c, int tab) {
  c.RequestCode = "0";
  if (tab == 0 || tab == 1) {
    c.CurrentPage = kSensorPage;
    c.SubPage = tab == 0 ? kSensorPage : "Flange Info";
    c.RequestCode = std::to_string(tab == 0 ? kSensorRead : kFlangeRead);
  }
  c.ReadFresh();
}

// The inner strip's handler runs only where that strip was not at its first tab, so this read may go out as "0".
void OnOuterTab(UserCntrl& c, int tab) {
  c.RequestCode = "0";
  if (tab == 0) c.form.SSTabInfoSensor.SetIndex(0);
  if (tab == 1) c.form.SSTabInfoSensorLo.SetIndex(0);
  c.ReadFresh();
}

// ---- tables

constexpr AnswerRow kAnswers[] = {
    {100, OnIdentificationAnswer},
    {200, OnSensorInfoAnswer},
    {300, OnRemoteSealInfoAnswer},
    {400, OnFlangeInfoAnswer},
};
constexpr WriteRow kWrites[] = {{kPage, kAnySubPage, 1, WriteIdentification}};
constexpr RereadRow kRereads[] = {{kPage, kAnySubPage, kIdentificationRead}};
constexpr BackRow kBacks[] = {{kSensorPage, {.page = kPage, .frame = id::frmInfo}}};
constexpr ButtonRow kButtons[] = {{id::cmdSensorDetails, OpenSensorDetails}};
constexpr TabRow kTabs[] = {
    {.strip = id::SSTabInfoSensors, .run = OnOuterTab},
    {.strip = id::SSTabInfoSensor, .run = OnInnerTab},
    {.strip = id::SSTabInfoSensorLo, .run = OnInnerTab},
};
constexpr std::string_view kProtection[] = {"Write Locked", "Write Unlocked"};
constexpr FillRow kFills[] = {{id::cmbWriteProtection, kAtStart, kProtection}};
constexpr NodeText kNodeTexts[] = {
    ByTextAlone("Identification"),
    {.text = "OnLine Parameterize", .picture = "window_list"},
    {.text = "Blocks", .parent = "OnLine Parameterize", .picture = "edittrash"},
    {.text = "Device Identification", .parent = "OnLine Parameterize", .picture = "folder1"},
};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts, .page = kPage, .frame = id::frmInfo, .read = kIdentificationRead},
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
    .start = {.frame = id::frmInfo, .read = kIdentificationRead, .page = kPage},
};

}  // namespace htr60::pages::identification
