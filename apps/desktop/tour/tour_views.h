#pragma once

#include "desktop/tour/tour_steps.h"

namespace htr60::desktop {

// What the instrument measures and how it is: the views of the device and of a block, the diagnosis, the local display.
inline constexpr TourStep kViewSteps[] = {
    {TourDo::kNode, {}, "Observe"},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "observe"},
    {TourDo::kSmallest},
    {TourDo::kPicture, {}, "observe at the smallest size"},
    {TourDo::kSmallest, {}, "no"},
    {TourDo::kNode, {}, "AI 1 View"},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "analog input view"},
    {TourDo::kSmallest},
    {TourDo::kPicture, {}, "analog input view at the smallest size"},
    {TourDo::kSmallest, {}, "no"},
    {TourDo::kNode, {}, "Diagnosis"},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "diagnosis"},
    {TourDo::kTab, id::SSTabDiagnosis, {}, 1},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "diagnosis sensor values"},
    {TourDo::kTab, id::SSTabDiagnosis, {}, 2},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "diagnosis measuring chain"},
    {TourDo::kMenu, {}, "Offline"},
    {TourDo::kPass, {}, {}, 25},
    {TourDo::kPicture, {}, "no answer"},
    {TourDo::kNode, {}, "Observe"},
    {TourDo::kBox, {}, "OK"},
    {TourDo::kPicture, {}, "disconnected"},
    {TourDo::kMenu, {}, "Offline"},
    {TourDo::kPass, {}, {}, 3},
    {TourDo::kPicture, {}, "connected again"},

    {TourDo::kNode, {}, "LCD Config"},
    {TourDo::kWait},
    {TourDo::kExpect, id::txtParameter(46), "10.000"},
    {TourDo::kPicture, {}, "local display"},
    {TourDo::kTab, id::SSTabLCD, {}, 1},
    {TourDo::kWait},
    {TourDo::kExpect, id::txtParameter(47), "10.000"},
    {TourDo::kPicture, {}, "local display second monitor"},
    {TourDo::kTab, id::SSTabLCD, {}, 3},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "local display user parameter"},
    {TourDo::kTab, id::SSTabLCD, {}, 4},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "local display switch"},
    {TourDo::kTab, id::SSTabLCD, {}, 5},
    {TourDo::kWait},
    {TourDo::kPicture, {}, "local display bargraph"},
};

}  // namespace htr60::desktop
