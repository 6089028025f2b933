#pragma once

#include "desktop/tour/tour_steps.h"

namespace htr60::desktop {

// The pages of the first Analog Input block, tab by tab, and its graphic: as read, and with limits out of order.
inline constexpr TourStep kAnalogInputSteps[] = {
    {TourDo::kNode, {}, "Analog Input 1"},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "analog input"},
    {TourDo::kTab, id::SSTabAI, {}, 1},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "analog input scales"},
    {TourDo::kTab, id::SSTabAI, {}, 2},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "analog input limits"},
    {TourDo::kTab, id::SSTabAI, {}, 3},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "analog input fail safe"},
    {TourDo::kTab, id::SSTabAI, {}, 4},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "analog input simulate"},
    {TourDo::kTab, id::SSTabAI, {}, 5},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "analog input mode"},
    {TourDo::kTab, id::SSTabAI, {}, 6},
    {TourDo::kButton, id::cmdAIGraphic},
    {TourDo::kPicture, {}, "analog input graphic"},
    {TourDo::kNode, {}, "Analog Input 2"},
    {TourDo::kWait},
    {TourDo::kTab, id::SSTabAI, {}, 1},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "second analog input scales"},
    {TourDo::kTab, id::SSTabAI, {}, 2},
    {TourDo::kWait},
    {TourDo::kType, id::txtParameter(121), "10"},
    {TourDo::kType, id::txtParameter(123), "15"},
    {TourDo::kTab, id::SSTabAI, {}, 6},
    {TourDo::kButton, id::cmdAIGraphic},
    {TourDo::kPicture, {}, "analog input limits out of order"},
    {TourDo::kNode, {}, "Analog Input 2"},
    {TourDo::kWait},
    {TourDo::kTab, id::SSTabAI, {}, 2},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "analog input limits replaced"},
    {TourDo::kPass, {}, {}, 11},
};

}  // namespace htr60::desktop
