#pragma once

#include <string_view>

namespace htr60::pages {

/// Pressure units that a calibration can be given in, in the order of the lists.
inline constexpr std::string_view kCalibrationUnits[] = {
    "Pa",          "MPa",          "kPa",   "bar",          "mbar",        "torr",
    "atm",         "psi",          "g/cm²", "kg/cm²",       "inH2O (4°C)", "inH2O (68°F)",
    "mmH2O (4°C)", "mmH2O (68°F)", "mH2O",  "ftH2O (68°F)", "inHg (0°C)",  "mmHg (0°C)",
};

inline constexpr std::string_view kTemperatureUnits[] = {"K", "°C", "°F"};

}  // namespace htr60::pages
