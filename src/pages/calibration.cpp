#include "pages/pages.h"

#include "pages/calibration_units.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::calibration {
namespace {

bool IsNoDensity(UserCntrl& c) { return c.form.cmbPVType.Text() != "Density"; }

void KeepNodeText(UserCntrl& c, std::string_view node) { c.CalibNodeText = node; }

constexpr AnswerRow kAnswers[] = {{1500}, {1600}, {1700}, {1800}, {1900}, {3500}, {3600}};
constexpr RereadRow kRereads[] = {
    {"Calibration", "Calib Upper/Lower", 15},
    {{"Calibration", "Density Calib"}, "Calib Temp", 18},
    {"Calib Lower/Upper", kAnySubPage, 16},
    {"Calib Upper", kAnySubPage, 17},
    {{"Calib Temp", "Density Calib Temp"}, kAnySubPage, 19},
};
// A density device has a calibration page of its own, so none is shown here then.
constexpr BackRow kBacks[] = {
    {{"Calib Lower/Upper", "Calib Upper", "Calib Temp"},
     {.page = "Calibration", .frame = id::frmCalib, .showIf = IsNoDensity}},
    {"Calib Graphic",
     {.page = "Calibration", .subPage = "Calib Upper/Lower", .frame = id::frmCalib, .showIf = IsNoDensity}},
};
constexpr PollRow kPolls[] = {
    {TimerId::TimerReadPressure, 35, PollDocument::kStored},
    {TimerId::TimerReadTemp, 36, PollDocument::kStored},
};
constexpr FillRow kFills[] = {
    {id::cmbCalibUnit, FillMoment::kCalib, kCalibrationUnits},
    {id::cmbCalibTempUnit, FillMoment::kCalib, kTemperatureUnits},
};
constexpr NodeRow kNodes[] = {
    {.texts = {"Calibration", "Calibration."},
     .page = "Calibration",
     .subPage = "Calib Upper/Lower",
     .frame = id::frmCalib,
     .strip = id::SSTabCalib,
     .read = 15,
     .firstVisit = &UserCntrl::FirstVisitCalib,
     .fills = FillMoment::kCalib,
     .when = IsNoDensity,
     .also = KeepNodeText},
    {.texts = {"Cal Backup & Restore"}, .page = "Lower/Upper"},
};

}  // namespace

constexpr PageUnit kUnit{
    .answers = kAnswers,
    .rereads = kRereads,
    .backs = kBacks,
    .polls = kPolls,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::calibration
