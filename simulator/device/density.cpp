#include "simulator/device/density.h"

#include <algorithm>
#include <cmath>

namespace htr60::sim {
namespace {

constexpr double kPoundPerCubicFoot = 0.0624279606;
// Below this a relative density stands for an empty vessel; it keeps the reciprocal scales finite.
constexpr double kLeastRelative = 0.001;

double Brix(double s) { return ((182.4601 * s - 775.6821) * s + 1262.7794) * s - 669.5622; }
double Plato(double s) { return ((135.997 * s - 630.272) * s + 1111.14) * s - 616.868; }
double AlcoholByVolume(double p) { return 100 * p * AlcoholDensity20(p) / AlcoholDensity20(1); }

/// Where the monotonous `f` takes `value` between `low` and `high`; none outside.
template <typename F>
std::optional<double> Solve(F f, double value, double low, double high) {
  const bool rising = f(high) > f(low);
  const double least = rising ? f(low) : f(high);
  const double most = rising ? f(high) : f(low);
  if (!(value >= least && value <= most)) return std::nullopt;
  for (int step = 0; step < 60; ++step) {
    const double middle = (low + high) / 2;
    ((f(middle) < value) == rising ? low : high) = middle;
  }
  return (low + high) / 2;
}

struct Fraction {
  double p = 0;
  int held = 0;
};

Fraction AlcoholFraction(double relative) {
  const double rho20 = relative * WaterDensity(20);
  if (rho20 > AlcoholDensity20(0)) return {0, -1};
  if (rho20 < AlcoholDensity20(1)) return {1, 1};
  return {Solve(AlcoholDensity20, rho20, 0.0, 1.0).value_or(0), 0};
}

int Hold(double& value, double low, double high) {
  if (value > high) {
    value = high;
    return 1;
  }
  if (value < low) {
    value = low;
    return -1;
  }
  return 0;
}

MeasuredValue Solid(double rho, const DensityCoefficients& c) {
  MeasuredValue result;
  for (std::size_t i = c.solid.size(); i > 0; --i) result.value = result.value * (rho / 1000) + c.solid[i - 1];
  result.held = Hold(result.value, c.solidLo, c.solidHi);
  return result;
}

MeasuredValue Concentration(double rho, double celsius, const DensityCoefficients& c) {
  double d = rho / 1000;
  double t = celsius;
  const int heldDensity = Hold(d, c.limDensLo, c.limDensHi);
  const int heldTemperature = Hold(t, c.limTempLo, c.limTempHi);
  MeasuredValue result;
  double byTemperature = 1;
  for (std::size_t j = 0; j < 3; ++j, byTemperature *= t - c.kTemp) {
    double term = byTemperature;
    for (std::size_t i = 0; i < 6; ++i, term *= d - c.kDens) result.value += c.k[6 * j + i] * term;
  }
  result.held = heldDensity != 0 ? heldDensity : heldTemperature;
  return result;
}

}  // namespace

double WaterDensity(double t) {
  const double numerator =
      999.83952 + t * (16.945176 + t * (-7.9870401e-3 + t * (-46.170461e-6 + t * (105.56302e-9 + t * -280.54253e-12))));
  return numerator / (1 + 16.879850e-3 * t);
}

double AlcoholDensity20(double p) {
  constexpr std::array<double, 12> kA{998.2012300, -192.9769495, 389.1238958, -1668.103923, 13522.15441, -88292.78388,
                                      306287.4042, -613838.1234, 747017.2998, -547846.1354, 223446.0334, -39032.85426};
  double rho = 0;
  for (std::size_t k = kA.size(); k > 0; --k) rho = rho * p + kA[k - 1];
  return rho;
}

MeasuredValue MeasuredFromDensity(int type, double rho, double celsius, const DensityCoefficients& coefficients) {
  const double s = rho / WaterDensity(celsius);
  const double divisor = std::max(s, kLeastRelative);
  switch (type) {
    case 0x01:
      return {rho};
    case 0x02:
      return {s * WaterDensity(20) / 1000};
    case 0x03:
      return {s * WaterDensity(4) / 1000};
    case 0x04:
      return {s >= 1 ? 145 - 145 / s : 140 / divisor - 130};
    case 0x05:
      return {Brix(s)};
    case 0x06:
      return {Plato(s)};
    case 0x07: {
      const Fraction f = AlcoholFraction(s);
      return {100 * f.p, f.held};
    }
    case 0x08: {
      const Fraction f = AlcoholFraction(s);
      return {AlcoholByVolume(f.p), f.held};
    }
    case kMeasuredSolid:
      return Solid(rho, coefficients);
    case 0x0A:
      return {rho * kPoundPerCubicFoot};
    case 0x0B:
      return {141.5 / divisor - 131.5};
    case kMeasuredConcentration:
      return Concentration(rho, celsius, coefficients);
    default:
      return {rho / 1000};
  }
}

std::optional<double> DensityFromMeasured(int type, double value, double celsius, bool lighterThanWater) {
  const double water = WaterDensity(celsius);
  std::optional<double> relative;
  switch (type) {
    case 0x00:
    case 0x0D:
      return value * 1000;
    case 0x01:
      return value;
    case 0x02:
      return value * 1000 / WaterDensity(20) * water;
    case 0x03:
      return value * 1000 / WaterDensity(4) * water;
    case 0x04:
      relative = lighterThanWater ? 140 / (value + 130) : 145 / (145 - value);
      break;
    case 0x05:
      relative = Solve(Brix, value, 0.0, 10.0);
      break;
    case 0x06:
      relative = Solve(Plato, value, 0.0, 10.0);
      break;
    case 0x07:
      if (value >= 0 && value <= 100) relative = AlcoholDensity20(value / 100) / WaterDensity(20);
      break;
    case 0x08:
      if (const auto p = Solve(AlcoholByVolume, value, 0.0, 1.0)) relative = AlcoholDensity20(*p) / WaterDensity(20);
      break;
    case 0x0A:
      return value / kPoundPerCubicFoot;
    case 0x0B:
      relative = 141.5 / (value + 131.5);
      break;
    default:
      return std::nullopt;
  }
  if (!relative || !std::isfinite(*relative) || *relative < 0) return std::nullopt;
  return *relative * water;
}

MeasuredScale ScaleOfMeasuredType(int type, int range) {
  constexpr std::array<MeasuredScale, kMeasuredTypes> kScales{{
      {"044C", 1.8, 0.5, true},
      {"0449", 1800, 500, true},
      {"044C", 1.8, 0.5, true},
      {"044C", 1.8, 0.5, true},
      {"0457", 60, 0, false},
      {"0592", 100, 0, false},
      {"0542", 100, 0, false},
      {"05F2", 100, 0, false},
      {"05F1", 100, 0, false},
      {"053F", 100, 0, false},
      {"0453", 112.3703, 31.21398, true},
      {"05F3", 100, 0, false},
      {"05F4", 100, 0, false},
      {"044E", 1.8, 0.5, true},
  }};
  constexpr std::array<double, 3> kLower{0.5, 1.0, 2.0};
  MeasuredScale scale = kScales[static_cast<std::size_t>(type)];
  if (!scale.givenByDensity || range == 0) return scale;
  double perGram = 1;
  if (type == kMeasuredKilogram) perGram = 1000;
  if (type == 0x0A) perGram = 1000 * kPoundPerCubicFoot;
  scale.upper = DensityRangeUpper(range) * perGram;
  scale.lower = kLower[static_cast<std::size_t>(range)] * perGram;
  return scale;
}

double DensityRangeUpper(int range) {
  constexpr std::array<double, 3> kUpper{1.8, 2.5, 5.0};
  return kUpper[static_cast<std::size_t>(range)];
}

}  // namespace htr60::sim
