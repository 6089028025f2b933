#pragma once

#include "desktop/tour/tour_steps.h"

namespace htr60::desktop {

// The calibration of a density device.
inline constexpr TourStep kDensityCalibrationSteps[] = {
    {TourDo::kNode, {}, "Calibration"},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "density calibration"},
    {TourDo::kTab, id::SSTabDensityCalib, {}, 1},
    {TourDo::kWait},
    {TourDo::kExpect, id::txtParameter(256), "20.000"},
    {TourDo::kPicture, {}, "density calibration lower point"},
    {TourDo::kTab, id::SSTabDensityCalib, {}, 2},
    {TourDo::kWait},
    {TourDo::kExpect, id::txtParameter(265), "20.000"},
    {TourDo::kPicture, {}, "density calibration upper point"},
    {TourDo::kTab, id::SSTabDensityCalib, {}, 3},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "density calibration temperature unit"},
    {TourDo::kButton, id::cmdDensityTemp},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "density calibration temperature"},
    {TourDo::kButton, id::cmdBack},
    {TourDo::kTab, id::SSTabDensityCalib, {}, 4},
    {TourDo::kPicture, {}, "density calibration sensors"},
};

}  // namespace htr60::desktop
