#include "pages/pages.h"

#include "codecs/mEnumeration.h"
#include "pages/backup_rows.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::factory {
namespace {

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

constexpr PageLayout kLayouts[] = {{.frame = id::frmfactory}, {.frame = id::frmFactoryPassword}};

constexpr AnswerRow kAnswers[] = {{4000, OnFactoryAnswer}, {4400}};
constexpr RereadRow kRereads[] = {{"Factory", kAnySubPage, 40}};
constexpr BackRow kBacks[] = {
    {{"Factory Sensor", "Auto Zero Trim", "Char", "Factory Trd Input Scale"},
     {.page = "Factory Password", .frame = id::frmFactoryPassword, .backEnabled = true}},
    {"Factory Password", {.page = "Factory", .frame = id::frmfactory, .backEnabled = true}},
};

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
constexpr NodeText kNodeTexts[] = {{.text = "Factory", .parent = "Blocks", .picture = "konqueror8"}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = "Factory",
     .subPage = "Backup Restore",
     .frame = id::frmfactory,
     .strip = id::SSTabFactory,
     .read = 40,
     .firstVisit = &UserCntrl::FirstVisitFactory},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts, .answers = kAnswers, .rereads = kRereads, .backs = kBacks, .fills = kFills, .nodes = kNodes};

}  // namespace htr60::pages::factory
