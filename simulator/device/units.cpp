#include "simulator/device/units.h"

#include <algorithm>
#include <array>
#include <span>

namespace htr60::sim {
namespace {

struct PressureUnit {
  std::uint16_t code;
  double pascal;
};

constexpr std::array<PressureUnit, 18> kPressureUnits{{
    {0x46A, 1},
    {0x46C, 1e6},
    {0x46D, 1e3},
    {0x471, 1e5},
    {0x472, 100},
    {0x473, 133.322368},
    {0x474, 101325},
    {0x475, 6894.757293},
    {0x478, 98.0665},
    {0x479, 98066.5},
    {0x47B, 249.08891},
    {0x47C, 248.64177},
    {0x47E, 9.80665},
    {0x47F, 9.7890457},
    {0x482, 2983.7012},
    {0x484, 3386.389},
    {0x486, 133.322387},
    {0x5F5, 9806.65},
}};

struct Codes {
  std::uint16_t first;
  std::uint16_t last;
};

constexpr std::array<Codes, 1> kTemperature{{{0x3E8, 0x3EA}}};
constexpr std::array<Codes, 7> kFlow{
    {{0x526, 0x528}, {0x52A, 0x52D}, {0x52F, 0x535}, {0x543, 0x549}, {0x54C, 0x54F}, {0x552, 0x555}, {0x55B, 0x55E}}};
constexpr std::array<Codes, 3> kLength{{{0x3F2, 0x3F2}, {0x3F4, 0x3F5}, {0x3FA, 0x3FB}}};
constexpr std::array<Codes, 8> kVolume{{{0x40A, 0x40A},
                                        {0x40E, 0x40E},
                                        {0x413, 0x413},
                                        {0x418, 0x418},
                                        {0x41B, 0x41B},
                                        {0x440, 0x441},
                                        {0x444, 0x444},
                                        {0x446, 0x446}}};
constexpr std::array<Codes, 1> kAny{{{0x3E8, 0x5F5}}};

bool Holds(std::span<const Codes> set, std::uint64_t code) {
  return std::any_of(set.begin(), set.end(), [code](const Codes& c) { return code >= c.first && code <= c.last; });
}

}  // namespace

bool IsUnit(UnitSet set, std::uint64_t code) {
  switch (set) {
    case UnitSet::kPressures:
      return std::any_of(kPressureUnits.begin(), kPressureUnits.end(),
                         [code](const PressureUnit& u) { return u.code == code; });
    case UnitSet::kTemperatures:
      return Holds(kTemperature, code);
    case UnitSet::kFlows:
      return Holds(kFlow, code);
    case UnitSet::kLengths:
      return Holds(kLength, code);
    case UnitSet::kVolumes:
      return Holds(kVolume, code);
    case UnitSet::kAny:
      return Holds(kAny, code);
  }
  return false;
}

double PascalPer(std::uint64_t unitCode) {
  for (const auto& unit : kPressureUnits) {
    if (unit.code == unitCode) return unit.pascal;
  }
  return 1;
}

double ConvertPressure(double value, std::uint64_t fromUnit, std::uint64_t toUnit) {
  if (fromUnit == toUnit) return value;
  return value * PascalPer(fromUnit) / PascalPer(toUnit);
}

double FromCelsius(double celsius, std::uint64_t unitCode) {
  if (unitCode == kKelvin) return celsius + 273.15;
  if (unitCode == kFahrenheit) return 1.8 * celsius + 32;
  return celsius;
}

double ToCelsius(double value, std::uint64_t unitCode) {
  if (unitCode == kKelvin) return value - 273.15;
  if (unitCode == kFahrenheit) return (value - 32) / 1.8;
  return value;
}

}  // namespace htr60::sim
