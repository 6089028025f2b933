#include "pages/pages.h"

#include "pages/calibration_units.h"
#include "pages/measured_types.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::density_calibration {
namespace {

bool IsDensity(UserCntrl& c) { return c.form.cmbPVType.Text() == "Density"; }

void KeepNodeText(UserCntrl& c, std::string_view node) { c.CalibNodeText = node; }

constexpr NameSet kPages{"Density Calib", "Density Self Calib"};

constexpr PageLayout kLayouts[] = {{.frame = id::frmDensityCalib}};

constexpr AnswerRow kAnswers[] = {{6400}, {6500}, {6600}};
constexpr RereadRow kRereads[] = {{kPages, "Measured Type", 66}, {kPages, {"Lower", "Upper"}, 64}};
// The page's name stays: until a tab or node is chosen, the temperature page's write goes on.
constexpr BackRow kBacks[] = {{"Density Calib Temp", {.frame = id::frmDensityCalib}}};
constexpr PollRow kPolls[] = {{TimerId::TimerMonitCalib, 65, PollDocument::kFresh}};
constexpr FillRow kFills[] = {
    {id::cmbCalibMeasuredType, &UserCntrl::FirstVisitDensityCalib, kMeasuredTypes},
    {id::cmbCalibTempUnit, &UserCntrl::FirstVisitDensityCalib, kTemperatureUnits},
    {id::cmbDensityTemp, &UserCntrl::FirstVisitDensityCalib, kTemperatureUnits},
};
constexpr NodeText kNodeTexts[] = {
    {.text = "Calibration", .parent = "Density/Concentration", .picture = "konqueror8", .trees = TreeShape::kDensity},
    ByTextAlone("Calibration."),
};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = "Density Calib",
     .subPage = "Measured Type",
     .frame = id::frmDensityCalib,
     .strip = id::SSTabDensityCalib,
     .read = 66,
     .firstVisit = &UserCntrl::FirstVisitDensityCalib,
     .when = IsDensity,
     .also = KeepNodeText},
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

}  // namespace htr60::pages::density_calibration
