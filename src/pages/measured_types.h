#pragma once

#include <string_view>

namespace htr60::pages {

/// Rows of the three lists of measured types.
inline constexpr std::string_view kMeasuredTypes[] = {
    "Density (g/cm³)", "Density (kg/m³)", "Density (20°C)", "Density (4°C)", "Baume",         "Brix", "Plato", "INPM",
    "Alcohol (0-100)", "Solid %",         "lb/ft³",         "API",           "Concentration", "t/m³",
};

}  // namespace htr60::pages
