#pragma once

#include "desktop/tour/tour_steps.h"

namespace htr60::desktop {

// The calibration of a pressure device: a point that is taken, one that is refused, the graphic before and after, and
// the pages of the temperature and of each sensor. What is taken is what is measured, so nothing changes for the rest.
inline constexpr TourStep kCalibrationSteps[] = {
    {TourDo::kNode, {}, "Calibration"},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "calibration"},
    {TourDo::kButton, id::cmdCalibGraphic},
    {TourDo::kPicture, {}, "calibration graphic not read"},
    {TourDo::kButton, id::cmdBack},
    {TourDo::kButton, id::cmdCalibLower},
    {TourDo::kWait},
    {TourDo::kType, id::txtParameter(103), "10"},
    {TourDo::kButton, id::cmdWriteCalibLower},
    {TourDo::kWait},
    {TourDo::kExpect, id::txtParameter(43), "Good"},
    {TourDo::kExpect, id::txtParameter(103), "10.000"},
    {TourDo::kPicture, {}, "calibration lower point"},
    {TourDo::kButton, id::cmdBack},
    {TourDo::kButton, id::cmdCalibGraphic},
    {TourDo::kPicture, {}, "calibration graphic"},
    {TourDo::kButton, id::cmdBack},
    {TourDo::kButton, id::cmdCalibLower},
    {TourDo::kWait},
    {TourDo::kType, id::txtParameter(95), "40"},
    {TourDo::kButton, id::cmdWriteCalibUpper},
    {TourDo::kWait},
    {TourDo::kExpect, id::txtParameter(43), "Applied process out of range"},
    {TourDo::kPicture, {}, "calibration refused"},
    {TourDo::kType, id::txtParameter(95), "9.5"},
    {TourDo::kButton, id::cmdBack},
    {TourDo::kButton, id::cmdCalibGraphic},
    {TourDo::kPicture, {}, "calibration points out of order"},
    {TourDo::kButton, id::cmdBack},
    {TourDo::kButton, id::cmdCalibLower},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "calibration point replaced"},
    {TourDo::kPass, {}, {}, 11},
    {TourDo::kButton, id::cmdBack},
    {TourDo::kTab, id::SSTabCalib, {}, 1},
    {TourDo::kWait},
    {TourDo::kButton, id::cmdTempCalib},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "calibration temperature"},
    {TourDo::kButton, id::cmdBack},
    {TourDo::kTab, id::SSTabCalib, {}, 2},
    {TourDo::kButton, id::Command3},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "calibration reference unit"},
    {TourDo::kTab, id::SSTabCalibWithRef(0), {}, 2},
    {TourDo::kTab, id::SSTabCalibWithRef(2), {}, 1},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "calibration reference low sensor"},
    {TourDo::kButton, id::cmdBack},
};

}  // namespace htr60::desktop
