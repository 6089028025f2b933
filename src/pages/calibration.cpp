#include "pages/pages.h"

#include "pages/calibration_units.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::calibration {
namespace {

bool IsNoDensity(UserCntrl& c) { return c.form.cmbPVType.Text() != "Density"; }

void KeepNodeText(UserCntrl& c, std::string_view node) { c.CalibNodeText = node; }

constexpr PageLayout kLayouts[] = {{.frame = id::frmCalib},
                                   {.frame = id::frmCalibPressLowerUpper},
                                   {.frame = id::frmCalibTemp},
                                   {.frame = id::frmCalibGraphic}};

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
    {id::cmbCalibUnit, &UserCntrl::FirstVisitCalib, kCalibrationUnits},
    {id::cmbCalibTempUnit, &UserCntrl::FirstVisitCalib, kTemperatureUnits},
    {id::cmbDensityTemp, &UserCntrl::FirstVisitCalib, kTemperatureUnits},
};
constexpr NodeText CalibrationNode(std::string_view parent, TreeShape tree) {
  return {.text = "Calibration", .parent = parent, .picture = "konqueror8", .trees = tree};
}
constexpr NodeText kCalibrationTexts[] = {
    CalibrationNode("Pressure/Flow", TreeShape::kPressureFlow),
    CalibrationNode("Level", TreeShape::kLevel),
    ByTextAlone("Calibration."),
};
constexpr NodeText kBackupText[] = {ByTextAlone("Cal Backup & Restore")};
constexpr NodeRow kNodes[] = {
    {.texts = kCalibrationTexts,
     .page = "Calibration",
     .subPage = "Calib Upper/Lower",
     .frame = id::frmCalib,
     .strip = id::SSTabCalib,
     .read = 15,
     .firstVisit = &UserCntrl::FirstVisitCalib,
     .when = IsNoDensity,
     .also = KeepNodeText},
    {.texts = kBackupText, .page = "Lower/Upper"},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .rereads = kRereads,
    .backs = kBacks,
    .polls = kPolls,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::calibration
