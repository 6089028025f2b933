#pragma once

#include "desktop/tour/tour_steps.h"

namespace htr60::desktop {

// What stands around the pages.
inline constexpr TourStep kDockSteps[] = {
    {TourDo::kDock, {}, "Communication"},
    {TourDo::kNode, {}, "Calibration"},
    {TourDo::kWait},
    {TourDo::kChoose, id::cmbCalibUnit, "bar"},
    {TourDo::kWrite},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "communication"},
    {TourDo::kChoose, id::cmbCalibUnit, "kPa"},
    {TourDo::kWrite},
    {TourDo::kWait},
    {TourDo::kDock, {}, "Communication"},
};

}  // namespace htr60::desktop
