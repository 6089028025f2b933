#pragma once

#include <cstdint>
#include <string_view>

namespace htr60::sim {

enum class UnitSet : std::uint8_t { kPressures, kTemperatures, kFlows, kLengths, kVolumes, kAny };

/// Whether the unit code (1000 to 1525) belongs to the set.
bool IsUnit(UnitSet set, std::uint64_t code);

/// Pascal per unit of a pressure unit; 1 for a code that is none.
double PascalPer(std::uint64_t unitCode);
double ConvertPressure(double value, std::uint64_t fromUnit, std::uint64_t toUnit);

/// Degrees Celsius to and from one of the three temperature units.
double FromCelsius(double celsius, std::uint64_t unitCode);
double ToCelsius(double value, std::uint64_t unitCode);

inline constexpr std::uint64_t kKelvin = 0x3E8;
inline constexpr std::uint64_t kFahrenheit = 0x3EA;

inline constexpr std::string_view kUnitCelsius = "03E9";
inline constexpr std::string_view kUnitKilopascal = "046D";
inline constexpr std::string_view kUnitKilogramPerCubicMetre = "0449";
inline constexpr std::string_view kUnitNone = "0000";

}  // namespace htr60::sim
