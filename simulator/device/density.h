#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace htr60::sim {

/// Density of water after Kell (1975) in kg/m³ at `celsius`.
double WaterDensity(double celsius);
/// Density in kg/m³ at 20 °C of a mixture with the mass fraction `p` of ethanol, 0 to 1.
double AlcoholDensity20(double p);

/// What a measured type with coefficients needs besides the density.
struct DensityCoefficients {
  std::array<double, 18> k{};
  double limTempHi = 100, limTempLo = 0;  ///< °C
  double limDensHi = 5, limDensLo = 0.5;  ///< g/cm³
  double kDens = 1, kTemp = 20;           ///< g/cm³, °C
  std::array<double, 6> solid{};
  double solidHi = 100, solidLo = 0;
};

inline constexpr int kMeasuredTypes = 14;
inline constexpr int kMeasuredSolid = 0x09;
inline constexpr int kMeasuredConcentration = 0x0C;
inline constexpr int kMeasuredKilogram = 0x01;
inline constexpr int kMeasuredBrix = 0x05;

struct MeasuredValue {
  double value = 0;
  int held = 0;  ///< 1 or -1 where an input or the result was held at its upper or lower limit
};

/// Value of the measured type 0 to 13 for the density `rho` in kg/m³ at `celsius`.
MeasuredValue MeasuredFromDensity(int type, double rho, double celsius, const DensityCoefficients& coefficients);

/// The density in kg/m³ of a value of the measured type; none where the type cannot be turned round or no density has
/// that value. `lighterThanWater` selects the branch of Baume.
std::optional<double> DensityFromMeasured(int type, double value, double celsius, bool lighterThanWater);

/// Output scale of a measured type.
struct MeasuredScale {
  std::string_view unit;
  double upper = 0;
  double lower = 0;
  bool givenByDensity = false;  ///< follows the density range
};
/// `range` is the density range 0 to 2. The scale of the type Solid % is that of the coefficients and not told here.
MeasuredScale ScaleOfMeasuredType(int type, int range);
/// Upper limit of the density range in g/cm³.
double DensityRangeUpper(int range);

}  // namespace htr60::sim
