#pragma once

#include <string_view>

namespace htr60::pages {

/// The backup commands that the factory and density pages offer.
inline constexpr std::string_view kBackupRows[] = {
    "Initial Value",       "Restore Factory Calibration", "Restore Last Calibration",
    "Sensor Data Restore", "Backup Factory Calibration",  "Backup Last Calibration",
};

}  // namespace htr60::pages
