#include <string>

#include "codecs/mEnumeration.h"
#include "pages/backup_restore.h"
#include "pages/digit_fields.h"
#include "pages/pages.h"
#include "pages/trd_scales.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::factory {
namespace {

constexpr std::string_view kPage = "Factory";
constexpr std::string_view kMenuPage = "Factory Password";
constexpr std::string_view kInputScalePage = "Factory Trd Input Scale";
constexpr char kBackup[] = "Backup Restore";
constexpr char kIdent[] = "GSD";
constexpr char kReset[] = "Factory Reset";
constexpr char kProtect[] = "Write Protect";
constexpr int kRead = 40;
constexpr int kProtectRead = 44;

// Keeps the operator from the production settings by mistake. It is compared here: the device knows nothing of it.
constexpr std::string_view kAccessCode = "QK475";

// ---- layout

constexpr LayoutRow kBackupRow[] = {BackupRow(id::lbParameter(121), id::cmbBackupRes(1))};
constexpr LayoutRow kIdentRows[] = {
    {.caption = "GSD Identification Number",
     .captionControl = id::lbParameter(5),
     .kind = RowKind::kList,
     .control = id::CmbGSD,
     .note =
         "As which device the instrument answers its master: by the profile's number, its maker's, or the one below. "
         "Written together with the other fields of this tab."},
    {.caption = "Agile",
     .captionControl = id::lbParameter(6),
     .kind = RowKind::kList,
     .control = id::cmbAgile,
     .note = "Known to firmware 1.08 and 1.09. Written together with the other fields of this tab."},
};
constexpr LayoutRow kUserIdentRows[] = {
    {.caption = "Please enter the Identifier Number  of the Profibus-PA device", .kind = RowKind::kFixed},
    {.caption = "whose cyclic configuration is already  downloaded on the", .kind = RowKind::kFixed},
    {.caption = "Profibus-DP master.", .kind = RowKind::kFixed},
    {.caption = "IDENT_NUMBER",
     .kind = RowKind::kEdit,
     .control = id::txtParameter(177),
     .unit = "(hexadecimal)",
     .width = WidthClass::kS,
     .note = "Four hexadecimal digits, shorter ones get zeros before them. Read and written from firmware 1.05 on."},
};
constexpr LayoutRow kResetRows[] = {
    {.caption = "Factory Reset",
     .kind = RowKind::kList,
     .control = id::cmbFactoryReset,
     .note = "A command: the device carries it out when it is written, without a question. The device leaves the link "
             "for a while; \"Factory Reset Address\" takes its station address.",
     .role = RowRole::kCommand},
};
constexpr LayoutRow kProtectRows[] = {
    {.caption = "Write Protect",
     .kind = RowKind::kList,
     .control = id::cmbWriteProtect,
     .note =
         "A locked device refuses every other write. What is written is not read back: click the tab again, or look "
         "at the identification page."},
};
constexpr LayoutRow kCalibrationRows[] = {
    {.caption = "Cal With Ref",
     .captionControl = id::cmdCalibWithRef,
     .kind = RowKind::kOpen,
     .control = id::cmdCalibWithRef},
};
constexpr LayoutRow kDoorRows[] = {
    {.caption = "Please, enter the password and click on the botton",
     .captionControl = id::lbParameter(3),
     .kind = RowKind::kEdit,
     .control = id::txtPassword,
     .width = WidthClass::kS,
     .note = "The access code of the factory menu. It is asked for at every visit.",
     .captionAbove = true,
     .role = RowRole::kAccessCode,
     .enterPresses = id::cmdFactory},
    {.caption = "Factory",
     .captionControl = id::cmdFactory,
     .kind = RowKind::kOpen,
     .control = id::cmdFactory,
     .sameLine = true},
};
constexpr LayoutGroup kGroups[] = {
    {.tab = 0, .caption = "Backup Restore", .rows = kBackupRow},
    {.tab = 1, .rows = kIdentRows},
    {.tab = 1, .caption = "User Identifier Number", .frame = id::frmGroupParameter(16), .rows = kUserIdentRows},
    {.tab = 2, .caption = "Reset", .rows = kResetRows},
    {.tab = 3, .caption = "Write Protect", .rows = kProtectRows},
    {.tab = 4, .rows = kCalibrationRows, .box = false},
    {.tab = 5, .rows = kDoorRows, .box = false},
};

constexpr LayoutRow MenuRow(std::string_view caption, ButtonId button) {
  return {.caption = caption, .captionControl = button, .kind = RowKind::kOpen, .control = button};
}
constexpr LayoutRow kMenuRows[] = {
    MenuRow("Characterization", id::cmdSensorChar),
    MenuRow("Factory Sensor ", id::cmdSensorFactory),
    MenuRow("Transducer Input Scale", id::cmdFactoryTrdInputScale),
    MenuRow("Auto Zero Trim", id::cmdAutoZeroTrim),
    MenuRow("Constants", id::Command5),
};
constexpr LayoutGroup kMenuGroups[] = {{.rows = kMenuRows, .box = false}};

constexpr LayoutTitle kTitle[] = {{"", "Factory"}};
constexpr LayoutTitle kMenuTitle[] = {{"", "Factory Menu"}};
constexpr int kReads[] = {kRead, kProtectRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmfactory,
     .titles = kTitle,
     .purpose = "Service settings: backup, ident number, reset, write protection, sensor calibration, and the door to "
                "the factory menu.",
     .reads = kReads,
     .strip = id::SSTabFactory,
     .groups = kGroups},
    {.frame = id::frmFactoryPassword,
     .titles = kMenuTitle,
     .purpose = "Production settings; a wrong value here changes the measurement.",
     .groups = kMenuGroups},
};

// ---- answers

// The density page's backup list is filled here too: both pages read this answer.
void OnFactoryAnswer(UserCntrl& c, const Answer& a) {
  const std::string_view backup = DecodeBackupRestore(a.Number("BackupRestore"));
  c.form.cmbDensBackupRestore.SetIfAny(backup);
  c.form.cmbBackupRes(1).SetIfAny(backup);
  c.form.CmbGSD.SetIfAny(DecodeIdentNumber(a.Number("GSDIdentNumber")));
  c.form.cmbFactoryReset.SetIfAny(DecodeFactoryReset(a.Number("FactoryReset")));
  if (c.FwFlagUserIdent != kClear) c.form.txtParameter(177).SetText(a.Text("USERIdentNumber"));
  if (c.FwFlag108 == kClear) return c.form.cmbAgile.SetText("Enabled");
  c.form.cmbAgile.SetIfAny(DecodeAgile(a.Number("Agile")));
}

void OnWriteProtectAnswer(UserCntrl& c, const Answer& a) {
  c.form.cmbWriteProtect.SetIfAny(DecodeWriteProtect(a.Number("WriteProtect")));
}

// ---- writes

Operands WriteBackupRestore(UserCntrl& c) { return BackupOperands(c, id::cmbBackupRes(1)); }

Operands WriteIdent(UserCntrl& c) {
  constexpr std::size_t kIdentDigits = 4;
  Form& f = c.form;
  if (f.cmbAgile.Text().empty()) f.cmbAgile.SetText("Disabled");
  const bool user = c.FwFlagUserIdent != kClear;
  return {EncodeIdentNumber(f.CmbGSD.Text()),
          user ? WithLeadingZeros(f.txtParameter(177).Text(), kIdentDigits) : InlineText("None"),
          EncodeAgile(f.cmbAgile.Text())};
}

Operands WriteReset(UserCntrl& c) { return {EncodeFactoryReset(c.form.cmbFactoryReset.Text())}; }

Operands WriteProtection(UserCntrl& c) { return {EncodeWriteProtect(c.form.cmbWriteProtect.Text())}; }

// ---- buttons and tabs

void OpenMenu(UserCntrl& c) {
  if (c.form.txtPassword.Text() != kAccessCode) {
    c.ShowBox("Password is wrong.", "Passord", BoxIcon::kStop);  // the caption is spelled so
    return;
  }
  c.form.txtPassword.SetText("");
  OpenPage(c, {.frame = id::frmFactoryPassword, .page = kMenuPage});
}

// The group of the scale keeps the caption of the page that it was opened by before.
void OpenInputScale(UserCntrl& c) {
  c.form.txtParameter(99).SetEnabled(true);
  c.form.txtParameter(100).SetEnabled(true);
  c.form.cmbPressureUnit.SetEnabled(true);
  trd_scales::OpenInputScale(c, {.page = kInputScalePage});
}

constexpr TabStep kSteps[] = {
    {.page = kPage, .subPage = kBackup, .write = ButtonState::kEnabled, .read = kRead},
    {.page = kPage, .subPage = kIdent, .write = ButtonState::kEnabled, .read = kRead},
    {.page = kPage, .subPage = kReset, .write = ButtonState::kEnabled, .read = kRead},
    {.page = kPage, .subPage = kProtect, .write = ButtonState::kEnabled, .read = kProtectRead},
    {.page = kPage, .write = ButtonState::kDisabled, .read = kRead},
    {.page = kPage, .write = ButtonState::kDisabled, .read = kRead},
};

// ---- tables

constexpr AnswerRow kAnswers[] = {{kRead * 100, OnFactoryAnswer}, {kProtectRead * 100, OnWriteProtectAnswer}};
constexpr WriteRow kWrites[] = {
    {kPage, kBackup, kBackupWrite, WriteBackupRestore},
    {kPage, kIdent, 33, WriteIdent},
    {kPage, kReset, 34, WriteReset},
    {kPage, kProtect, 36, WriteProtection},
};
// The protection is not read back: every tab reads the common answer after a write.
constexpr RereadRow kRereads[] = {{kPage, kAnySubPage, kRead}};
constexpr BackRow kBacks[] = {
    {{"Factory Sensor", "Auto Zero Trim", "Char", kInputScalePage},
     {.page = kMenuPage, .frame = id::frmFactoryPassword, .backEnabled = true}},
    {kMenuPage, {.page = kPage, .frame = id::frmfactory, .backEnabled = true}},
};
constexpr ButtonRow kButtons[] = {{id::cmdFactory, OpenMenu}, {id::cmdFactoryTrdInputScale, OpenInputScale}};
constexpr TabRow kTabs[] = {{id::SSTabFactory, kSteps}};

constexpr std::string_view kAgile[] = {"Disabled", "Enabled"};
constexpr std::string_view kResets[] = {"No Function", "Factory Reset Parameters", "Warm Startup",
                                        "Factory Reset Address"};
constexpr std::string_view kProtection[] = {"Write Locked", "Write Unlocked"};
constexpr FillRow kFills[] = {
    {id::cmbBackupRes(0), &UserCntrl::FirstVisitFactory, kBackupRows},
    {id::cmbBackupRes(1), &UserCntrl::FirstVisitFactory, kBackupRows},
    {id::cmbDensBackupRestore, &UserCntrl::FirstVisitFactory, kBackupRows},
    {id::cmbAgile, &UserCntrl::FirstVisitFactory, kAgile},
    {id::cmbFactoryReset, &UserCntrl::FirstVisitFactory, kResets},
    {id::cmbWriteProtect, &UserCntrl::FirstVisitFactory, kProtection},
};
constexpr NodeText kNodeTexts[] = {{.text = kPage, .parent = "Blocks", .picture = "konqueror8"}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = kPage,
     .subPage = kBackup,
     .frame = id::frmfactory,
     .strip = id::SSTabFactory,
     .read = kRead,
     .firstVisit = &UserCntrl::FirstVisitFactory},
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

}  // namespace htr60::pages::factory
