#pragma once

#include "screen_driver.h"

/// Opens the pages of the calibration, and looks at no request of that.
namespace htr60::automation {

inline void OpenCalibration(PageDriver& driver) {
  driver.Activate("Calibration");
  driver.Requests();
}

inline void OpenPressure(PageDriver& driver) {
  OpenCalibration(driver);
  driver.Click("cmdCalibLower");
  driver.Requests();
}

inline void OpenTemperature(PageDriver& driver) {
  OpenCalibration(driver);
  driver.Click("cmdTempCalib");
  driver.Requests();
}

}  // namespace htr60::automation
