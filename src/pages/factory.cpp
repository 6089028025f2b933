#include "pages/pages.h"

#include "pages/backup_rows.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::factory {
namespace {

constexpr AnswerRow kAnswers[] = {{4000}, {4400}};
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
    {id::cmbBackupRes(0), FillMoment::kFactory, kBackupRows},
    {id::cmbBackupRes(1), FillMoment::kFactory, kBackupRows},
    {id::cmbDensBackupRestore, FillMoment::kFactory, kBackupRows},
    {id::cmbAgile, FillMoment::kFactory, kAgile},
    {id::cmbFactoryReset, FillMoment::kFactory, kResets},
    {id::cmbWriteProtect, FillMoment::kFactory, kProtection},
};
constexpr NodeRow kNodes[] = {
    {.texts = {"Factory"},
     .page = "Factory",
     .subPage = "Backup Restore",
     .frame = id::frmfactory,
     .strip = id::SSTabFactory,
     .read = 40,
     .firstVisit = &UserCntrl::FirstVisitFactory,
     .fills = FillMoment::kFactory},
};

}  // namespace

constexpr PageUnit kUnit{
    .answers = kAnswers, .rereads = kRereads, .backs = kBacks, .fills = kFills, .nodes = kNodes};

}  // namespace htr60::pages::factory
