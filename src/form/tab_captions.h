#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "form/control_id.h"

namespace htr60 {
namespace captions {

inline constexpr std::string_view kTwoSensors[] = {"Hi Sensor ", "Lo Sensor "};
inline constexpr std::string_view kSensorFlange[] = {"Sensor", "Flange"};
inline constexpr std::string_view kTrdSettings[] = {"Settings", "Scales/Units", "Simulate", "Sensor Value"};
inline constexpr std::string_view kDensity[] = {"Settings", "Scales/Units",   "Advanced", "Backup Restore",
                                                "Simulate", "HTR Range Code", "Others"};
inline constexpr std::string_view kAi[] = {"Basic Settings", "Scales",     "Alarm/Warning", "Fail Safe",
                                           "Simulate",       "Mode Block", "AI Graphic"};
inline constexpr std::string_view kLcd[] = {"Monit 1", "Monit 2", "Monit 3", "User Prmt", "LCD Switch", "LCD Bargraph"};
inline constexpr std::string_view kCalib[] = {"Diff. Pressure", "Temperature", "Sensor"};
inline constexpr std::string_view kDensityCalib[] = {"Measured Type", "Lower", "Upper", "Temperature", "Sensor"};
inline constexpr std::string_view kCalibWithRef[] = {"Cal Unit", "Hi Press Cal Sensor", "Lo Press Cal Sensor"};
inline constexpr std::string_view kUpperLower[] = {"Upper", "Lower"};
inline constexpr std::string_view kDiagnosis[] = {"Sensor", "Sensor Value", "Dynamic Values"};
inline constexpr std::string_view kFactory[] = {"Backup Restore",    "GSD",           "Reset", "Write Protect",
                                                " Hi/Lo Sensor Cal", "Factory Sensor"};
inline constexpr std::string_view kFactorySensor[] = {"Hi Sensor ",  "Lo Sensor ",         "Polynomial",
                                                      "Gain/OffSet", "Backup/Zero Filter", "Calibration"};

}  // namespace captions

/// A tab strip and its captions, a blank at the end included.
struct TabCaptions {
  TabsId strip;
  std::span<const std::string_view> captions;
};

inline constexpr TabCaptions kTabCaptions[] = {
    {id::SSTabInfoSensors, captions::kTwoSensors},
    {id::SSTabInfoSensor, captions::kSensorFlange},
    {id::SSTabInfoSensorLo, captions::kSensorFlange},
    {id::SSTabTRDSettings, captions::kTrdSettings},
    {id::SSTabDensity, captions::kDensity},
    {id::SSTabTRDLevel, captions::kTrdSettings},
    {id::SSTabAI, captions::kAi},
    {id::SSTabLCD, captions::kLcd},
    {id::SSTabCalib, captions::kCalib},
    {id::SSTabDensityCalib, captions::kDensityCalib},
    {id::SSTabCalibWithRef(0), captions::kCalibWithRef},
    {id::SSTabCalibWithRef(1), captions::kUpperLower},
    {id::SSTabCalibWithRef(2), captions::kUpperLower},
    {id::SSTabDiagnosis, captions::kDiagnosis},
    {id::SSTabFactory, captions::kFactory},
    {id::SSTabFactorySensorInfo, captions::kFactorySensor},
    {id::SSTabSensorHiFactory, captions::kSensorFlange},
    {id::SSTabSensorLoFactory, captions::kSensorFlange},
};

/// How many tabs a strip has; 0 for one that is not in the list.
constexpr std::size_t TabCountOf(TabsId strip) {
  for (const TabCaptions& row : kTabCaptions) {
    if (row.strip == strip) return row.captions.size();
  }
  return 0;
}

}  // namespace htr60
