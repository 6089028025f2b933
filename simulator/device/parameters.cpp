#include "simulator/device/parameters.h"

#include <array>

#include "simulator/device/density.h"
#include "simulator/device/units.h"

namespace htr60::sim {
namespace {

void ConvertPressures(ParameterStore& p, std::string_view name, std::uint64_t from, std::uint64_t to) {
  std::string digits;
  const std::size_t floats = p.Digits(name).size() / 8;
  for (std::size_t i = 0; i < floats; ++i) digits += FloatDigits(ConvertPressure(p.Number(name, 8 * i), from, to));
  p.Set(name, digits);
}

struct TypeDefaults {
  int type;
  std::string_view linType;
  double inUpper;
  double outUpper;
  std::string_view outUnit;
};
constexpr std::array<TypeDefaults, 4> kTypeDefaults{{
    {kPressure, "00", 37.4, 37.4, "046D"},
    {kFlow, "0A", 37.4, 100, "0545"},
    {kLevel, "00", 29.41995, 3, "03F2"},
    {kDensity, "00", 37.4, 1.8, "044C"},
}};

}  // namespace

void ParameterStore::Add(std::string name, Form form, std::string digits) {
  entries_.insert_or_assign(std::move(name), Entry{form, std::move(digits)});
}

const std::string& ParameterStore::Digits(std::string_view name) const {
  const auto entry = entries_.find(name);
  if (entry == entries_.end()) throw std::out_of_range("no parameter " + std::string(name));
  return entry->second.digits;
}

void ParameterStore::Set(std::string_view name, std::string digits) {
  const auto entry = entries_.find(name);
  if (entry == entries_.end()) throw std::out_of_range("no parameter " + std::string(name));
  entry->second.digits = std::move(digits);
}

int ParameterStore::Index(std::string_view name, int most) const {
  const auto code = Code(name);
  return code <= static_cast<std::uint64_t>(most) ? static_cast<int>(code) : 0;
}

std::string BlockName(int block, std::string_view rest) {
  return std::string("ai").append(std::to_string(block)).append(".").append(rest);
}

double RangeLimitKilopascal(std::uint64_t rangeCode, int fittedRange) {
  constexpr std::array<double, 7> kLimits{7.5, 37.4, 147.1, 690, 2068, 6890, 20680};
  if (rangeCode >= 1 && rangeCode <= kLimits.size()) return kLimits[static_cast<std::size_t>(rangeCode - 1)];
  return kLimits[static_cast<std::size_t>(fittedRange - 1)];
}

void PutSensorLimits(ParameterStore& p, std::size_t sensor, int fittedRange) {
  const std::string_view side = kSides[sensor];
  const double limit = RangeLimitKilopascal(p.Code(SideName("range", side)), fittedRange);
  const bool absolute = p.Code(SideName("sensorModel", side)) == 0x6D;
  const auto unit = p.Code("sensorUnit");
  const auto inUnit = [unit](double kilopascal) { return ConvertPressure(kilopascal, 0x46D, unit); };
  p.SetNumber(SideName("limHi", side), inUnit(limit));
  p.SetNumber(SideName("limLo", side), absolute ? 0 : inUnit(-limit));
  if (sensor == 0) p.SetNumber("minSpan", inUnit(limit / 100));
}

void PutCalibrationPoints(ParameterStore& p, std::string_view suffix, double limitKilopascal) {
  p.SetNumber(SideName("calHi", suffix), ConvertPressure(limitKilopascal, 0x46D, p.Code("sensorUnit")));
  p.SetNumber(SideName("calLo", suffix), 0);
}

void PutMeasuredScale(ParameterStore& p) {
  const int type = p.Index("measuredType", kMeasuredTypes - 1);
  const MeasuredScale scale = ScaleOfMeasuredType(type, p.Index("densityRange", 2));
  p.Set("outScale",
        type == kMeasuredSolid ? p.Digits("solidHi") + p.Digits("solidLo") : PairDigits(scale.upper, scale.lower));
  p.Set("outUnit", std::string(scale.unit));
}

void PutTypeDefaults(ParameterStore& p, int primaryValueType) {
  for (const auto& row : kTypeDefaults) {
    if (row.type != primaryValueType) continue;
    p.Set("pvType", NumberDigits(static_cast<std::uint64_t>(row.type), 4));
    p.Set("linType", std::string(row.linType));
    p.Set("inScale", PairDigits(row.inUpper, 0));
    ConvertInputUnit(p, kUnitKilopascal);
    p.Set("outScale", PairDigits(row.outUpper, 0));
    p.Set("outUnit", std::string(row.outUnit));
  }
  if (primaryValueType == kDensity) PutMeasuredScale(p);
  p.Set("simEnable", "00");
  p.Set("debugEnable", "00");
  for (int block = 1; block <= 3; ++block) {
    PutBlockDefaults(p, block);
    p.Set(BlockName(block, "sim"), "800000000000");
  }
}

void PutBlockDefaults(ParameterStore& p, int block) {
  const PvScale scale = PvScaleOf(p, block);
  p.Set(BlockName(block, "outScale"),
        ScaleDigits(scale.upper, scale.lower, scale.unit == kUnitNone ? kUnitCelsius : std::string_view(scale.unit)));
  PutAlarmLimits(p, block);
}

void PutAlarmLimits(ParameterStore& p, int block) {
  // The shares are taken of the decimal numbers that the scale stands for, and rounded once.
  const double upper = DecimalOf(p.Number(BlockName(block, "outScale"), 0));
  const double lower = DecimalOf(p.Number(BlockName(block, "outScale"), 8));
  const double span = upper - lower;
  p.SetNumber(BlockName(block, "hiHi"), lower + 1.1 * span);
  p.SetNumber(BlockName(block, "hi"), lower + 1.05 * span);
  p.SetNumber(BlockName(block, "loLo"), lower - 0.1 * span);
  p.SetNumber(BlockName(block, "lo"), lower - 0.05 * span);
  p.SetNumber(BlockName(block, "hyst"), 0.005 * span);
}

ChannelSource ChannelOf(const ParameterStore& p, int block) {
  if (block == 1) return ChannelSource::kPv;
  const bool second = block == 2;
  switch (p.Code("pvType")) {
    case kFlow:
      return second ? ChannelSource::kPress : ChannelSource::kTemperature;
    case kLevel:
      if (second) return ChannelSource::kVolume;
      return p.Code("compensation") == 1 ? ChannelSource::kCompensatedDensity : ChannelSource::kTemperature;
    case kDensity:
      return second ? ChannelSource::kTrueDensity : ChannelSource::kDensity20;
    default:
      if (p.Code("aiConfig") == 2) return second ? ChannelSource::kSensorLo : ChannelSource::kTemperature;
      return second ? ChannelSource::kSensorHi : ChannelSource::kSensorLo;
  }
}

PvScale PvScaleOf(const ParameterStore& p, int block) {
  const auto stored = [&p](std::string_view scale, std::string_view unit) {
    return PvScale{p.Number(scale, 0), p.Number(scale, 8), p.Digits(unit)};
  };
  switch (ChannelOf(p, block)) {
    case ChannelSource::kPv:
      return stored("outScale", "outUnit");
    case ChannelSource::kSensorHi:
      return stored("snsScale.hi", "snsUnit.hi");
    case ChannelSource::kSensorLo:
      return stored("snsScale.lo", "snsUnit.lo");
    case ChannelSource::kPress:
      return stored("inScale", "inUnit");
    case ChannelSource::kVolume:
      return stored("volScale", "volUnit");
    case ChannelSource::kCompensatedDensity:
      return {100, 0, std::string(kUnitKilogramPerCubicMetre)};
    case ChannelSource::kTemperature:
      // The control takes any unit that stands there for a density, so a Level device names none.
      return {110, -10, std::string(p.Code("pvType") == kLevel ? kUnitNone : kUnitCelsius)};
    default:
      break;
  }
  constexpr std::array<std::array<double, 2>, 3> kDensityScales{{{1800, 500}, {2500, 1000}, {5000, 2500}}};
  const auto& scale = kDensityScales[static_cast<std::size_t>(p.Index("densityRange", 2))];
  return {scale[0], scale[1], std::string(kUnitKilogramPerCubicMetre)};
}

void ConvertSensorUnit(ParameterStore& p, std::string_view unit) {
  constexpr std::array<std::string_view, 16> kNames{"limHi.hi", "limHi.lo", "limLo.hi", "limLo.lo", "minSpan",  "calHi",
                                                    "calHi.hi", "calHi.lo", "calLo",    "calLo.hi", "calLo.lo", "azRef",
                                                    "azBand",   "deadBand", "curveX",   "curveY"};
  const auto from = p.Code("sensorUnit");
  for (const auto name : kNames) ConvertPressures(p, name, from, NumberOf(unit));
  p.Set("sensorUnit", std::string(unit));
}

void ConvertTemperatureUnit(ParameterStore& p, std::string_view unit) {
  constexpr std::array<std::string_view, 4> kNames{"tempMax", "tempMin", "calTemp", "debugTemp"};
  const auto from = p.Code("tempUnit");
  for (const auto name : kNames) {
    if (from != NumberOf(unit)) p.SetNumber(name, FromCelsius(ToCelsius(p.Number(name), from), NumberOf(unit)));
  }
  p.Set("tempUnit", std::string(unit));
}

void ConvertInputUnit(ParameterStore& p, std::string_view unit) {
  constexpr std::array<std::string_view, 3> kNames{"debugPressure", "densPressHi", "densPressLo"};
  const auto from = p.Code("inUnit");
  for (const auto name : kNames) ConvertPressures(p, name, from, NumberOf(unit));
  p.Set("inUnit", std::string(unit));
}

}  // namespace htr60::sim
