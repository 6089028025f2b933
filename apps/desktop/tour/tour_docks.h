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

    // A value simulated in a block, beside the temperature: an axis each, with the limits of the block.
    {TourDo::kLarge},
    {TourDo::kDock, {}, "Trend"},
    {TourDo::kNode, {}, "Observe"},
    {TourDo::kWait},
    {TourDo::kFollow, id::lbDeviceView(21)},
    {TourDo::kLater, {}, {}, 60},
    {TourDo::kNode, {}, "AI 1 View"},
    {TourDo::kWait},
    {TourDo::kFollow, id::lbDeviceView(36)},
    {TourDo::kFollow, id::lbDeviceView(40)},
    {TourDo::kLater, {}, {}, 60},
    {TourDo::kNode, {}, "Analog Input 1"},
    {TourDo::kWait},
    {TourDo::kTab, id::SSTabAI, {}, 2},
    {TourDo::kWait},
    {TourDo::kTab, id::SSTabAI, {}, 4},
    {TourDo::kWait},
    {TourDo::kChoose, id::cmbSimulateEnable, "Active"},
    {TourDo::kType, id::txtParameter(172), "150"},
    {TourDo::kWrite},
    {TourDo::kWait},
    {TourDo::kNode, {}, "AI 1 View"},
    {TourDo::kWait},
    {TourDo::kLater, {}, {}, 60},
    {TourDo::kPicture, {}, "trend"},
    {TourDo::kNode, {}, "Analog Input 1"},
    {TourDo::kWait},
    {TourDo::kTab, id::SSTabAI, {}, 4},
    {TourDo::kWait},
    {TourDo::kChoose, id::cmbSimulateEnable, "Disable"},
    {TourDo::kWrite},
    {TourDo::kWait},
    {TourDo::kDock, {}, "Trend"},

    // A fault, on the page, in the health and on the badge.
    {TourDo::kDock, {}, "Simulator"},
    {TourDo::kFault, {}, "boardFailure"},
    {TourDo::kNode, {}, "Diagnosis"},
    {TourDo::kWait},
    {TourDo::kTab, id::SSTabDiagnosis, {}, 2},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "simulator"},
    {TourDo::kFault, {}, "none"},
    {TourDo::kDock, {}, "Simulator"},
    {TourDo::kLarge, {}, "no"},
};

}  // namespace htr60::desktop
