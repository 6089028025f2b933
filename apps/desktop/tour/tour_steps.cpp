#include "desktop/tour/tour_steps.h"

#include <algorithm>
#include <array>

#include "desktop/tour/tour_blocks.h"
#include "desktop/tour/tour_calibration.h"
#include "desktop/tour/tour_density_calibration.h"
#include "desktop/tour/tour_docks.h"
#include "desktop/tour/tour_factory.h"
#include "desktop/tour/tour_transducer.h"
#include "desktop/tour/tour_views.h"

namespace htr60::desktop {
namespace {

using enum TourDo;

constexpr ControlId kTag = id::txtParameter(0);
constexpr ControlId kSensorModel = id::txtParameter(11);
constexpr ControlId kFlangeTypeLo = id::txtParameter(25);

constexpr TourStep kIdentificationSteps[] = {
    {kPicture, {}, "start"},
    {kWait},
    {kPicture, {}, "identification"},
    {kSmallest},
    {kPicture, {}, "identification at the smallest size"},
    {kSmallest, {}, "no"},

    {kType, kTag, "HTR60-TOUR"},
    {kClose},
    {kPicture, {}, "closing"},
    {kBar, {}, "Stay"},
    {kChoose, id::cmbWriteProtection, "Write Locked"},
    {kPicture, {}, "identification not written"},
    {kWrite},
    {kPicture, {}, "identification sent"},
    {kWait},
    {kExpect, id::cmbWriteProtection, "Write Locked"},
    {kPicture, {}, "identification confirmed"},
    {kType, kTag, "HTR60-2"},
    {kWrite},
    {kWait},
    {kExpect, kTag, "HTR60-TOUR"},
    {kPicture, {}, "identification write locked"},
    {kChoose, id::cmbWriteProtection, "Write Unlocked"},
    {kWrite},
    {kWait},
    {kExpect, id::cmbWriteProtection, "Write Unlocked"},
    {kExpect, kTag, "HTR60-TOUR"},

    {kButton, id::cmdSensorDetails},
    {kWait},
    {kExpect, kSensorModel, "Gauge"},
    {kPicture, {}, "sensor details"},
    {kTab, id::SSTabInfoSensor, {}, 1},
    {kWait},
    {kPicture, {}, "sensor details flange"},
    {kTab, id::SSTabInfoSensors, {}, 1},
    {kWait},
    {kTab, id::SSTabInfoSensorLo, {}, 1},
    {kWait},
    {kExpect, kFlangeTypeLo, "Conventional"},
    {kPicture, {}, "sensor details low flange"},
    {kButton, id::cmdBack},
    {kPicture, {}, "identification again"},

    {kNode, {}, "Primary Value Type"},
    {kWait},
    {kPicture, {}, "primary value type"},
    {kChoose, id::cmbPVType, "Level"},
    {kWrite},
    {kWait},
    {kExpect, id::cmbPVType, "Level"},
    {kPicture, {}, "type level"},
    {kChoose, id::cmbPVType, "Density"},
    {kWrite},
    {kWait},
    {kPicture, {}, "type density"},
    {kChoose, id::cmbPVType, "Pressure"},
    {kWrite},
    {kWait},
    {kPicture, {}, "type pressure"},
};

template <std::size_t... kCounts>
constexpr auto Join(const TourStep (&... parts)[kCounts]) {
  std::array<TourStep, (kCounts + ...)> steps{};
  auto* end = steps.data();
  ((end = std::copy(parts, parts + kCounts, end)), ...);
  return steps;
}

constexpr auto kSteps =
    Join(kIdentificationSteps, kViewSteps, kPressureSteps, kAnalogInputSteps, kCalibrationSteps, kDockSteps,
         kFactorySteps, kFlowSteps, kLevelSteps, kDensitySteps, kDensityCalibrationSteps);

}  // namespace

std::span<const TourStep> TourSteps() { return kSteps; }

}  // namespace htr60::desktop
