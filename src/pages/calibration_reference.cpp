#include "pages/pages.h"

#include "pages/calibration_units.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::calibration_reference {
namespace {

// One frame under four names, for the four ways that lead to it.
constexpr NameSet kPages{"Cal With Ref", "Cal With Ref_", "Cal With Ref-1", "Cal With Ref-2"};

void StopPolling(UserCntrl& c) { c.StopPollingTimers(); }

constexpr PageLayout kLayouts[] = {{.frame = id::frmCalWithRef}, {.frame = id::frmCalWithoutRef}};

constexpr AnswerRow kAnswers[] = {{5600}, {7300}, {7400}, {7500}, {7600}, {7700}, {7800}};
constexpr PageStepRow kBeforeWrites[] = {{kPages, StopPolling}};
constexpr RereadRow kRereads[] = {
    {kPages, "Cal Unit", 77},        {kPages, "Hi Press - Sns1", 73}, {kPages, "Lo Press - Sns1", 74},
    {kPages, "Hi Press - Sns2", 75}, {kPages, "Lo Press - Sns2", 76}, {"Cal Without Ref", kAnySubPage, 56},
};
constexpr BackRow kBacks[] = {
    {{"Cal With Ref", "Cal Without Ref"},
     {.page = "Factory Sensor", .frame = id::frmFactorySensorInfo, .write = ButtonState::kDisabled}},
    {"Cal With Ref_", {.page = "Factory", .frame = id::frmfactory, .write = ButtonState::kDisabled}},
    {"Cal With Ref-1", {.page = "Calibration", .frame = id::frmCalib, .write = ButtonState::kDisabled}},
    {"Cal With Ref-2", {.page = "Density Calib", .frame = id::frmDensityCalib, .write = ButtonState::kDisabled}},
};
constexpr PollRow kPolls[] = {{TimerId::TimerCalibRef, 78, PollDocument::kStored}};
constexpr FillRow kFills[] = {{id::cmbCalUnit, &UserCntrl::FirstVisitCalRef, kCalibrationUnits}};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .beforeWrites = kBeforeWrites,
    .rereads = kRereads,
    .backs = kBacks,
    .polls = kPolls,
    .fills = kFills,
};

}  // namespace htr60::pages::calibration_reference
