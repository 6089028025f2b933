#include "simulator/device/write_rules.h"

#include <algorithm>
#include <cmath>

#include "simulator/device/density.h"
#include "simulator/device/units.h"

namespace htr60::sim {
namespace {

/// Pascal that a pressure may pass a limit by, for the control cuts its floats off.
double Tolerance(const Device& d) { return d.UpperRangeLimit(0) / 1000; }

double SensorPascal(const Device& d, double value) { return value * PascalPer(d.Code("sensorUnit")); }

bool WithinLimits(const Device& d, double pascal) {
  return pascal <= SensorPascal(d, d.Number("limHi.hi")) + Tolerance(d) &&
         pascal >= SensorPascal(d, d.Number("limLo.hi")) - Tolerance(d);
}

Refusal RefuseUnless(bool condition, std::string_view reason) { return condition ? Refusal() : Refusal(reason); }

std::size_t SideOf(const WriteContext& c) { return c.names[0].ends_with(".lo") ? 1 : 0; }

Refusal CheckScale(const WriteContext& c, UnitSet set) {
  if (!IsUnit(set, c.Code(1))) return kRefusedUnit;
  return RefuseUnless(c.Number(0, 0) != c.Number(0, 8), kRefusedEqual);
}

}  // namespace

Refusal CheckCodes(const WriteContext& c) {
  return RefuseUnless(std::find(c.item.codes.begin(), c.item.codes.end(), c.Code(0)) != c.item.codes.end(),
                      kRefusedCode);
}

Refusal CheckRange(const WriteContext& c) {
  const double value = DecimalOf(c.Number(0));
  return RefuseUnless(value >= c.item.least && value <= c.item.most, kRefusedRange);
}

Refusal CheckLinType(const WriteContext& c) {
  const bool whole = c.code == 2 && (c.device.IsType(kPressure) || c.device.IsType(kFlow));
  const auto code = c.Code(0);
  const bool table = code == 0x01 || code == 0xF0;
  if (code != 0x00 && code != 0x01 && !(whole && (code == 0x0A || code == 0xF0))) return kRefusedCode;
  return RefuseUnless(!table || c.device.tableAccepted, "no table has been accepted");
}

Refusal CheckInScale(const WriteContext& c) {
  if (const auto refusal = CheckScale(c, UnitSet::kPressures)) return refusal;
  const double unit = PascalPer(c.Code(1));
  const double upper = c.Number(0, 0) * unit;
  const double lower = c.Number(0, 8) * unit;
  if (std::abs(upper - lower) < SensorPascal(c.device, c.device.Number("minSpan")) - Tolerance(c.device)) {
    return "span below the minimum";
  }
  return RefuseUnless(WithinLimits(c.device, upper) && WithinLimits(c.device, lower), "outside the sensor limits");
}

Refusal CheckOutScale(const WriteContext& c) {
  if (c.device.IsType(kFlow)) return CheckScale(c, UnitSet::kFlows);
  return CheckScale(c, c.device.IsType(kLevel) ? UnitSet::kLengths : UnitSet::kPressures);
}

Refusal CheckVolScale(const WriteContext& c) { return CheckScale(c, UnitSet::kVolumes); }

Refusal CheckTemperatureUnit(const WriteContext& c) {
  return RefuseUnless(IsUnit(UnitSet::kTemperatures, c.Code(0)), kRefusedUnit);
}

Refusal CheckPressureUnit(const WriteContext& c) {
  return RefuseUnless(IsUnit(UnitSet::kPressures, c.Code(0)), kRefusedUnit);
}

Refusal CheckAlarms(const WriteContext& c) {
  const double hiHi = c.Number(0);
  const double hi = c.Number(1);
  const double loLo = c.Number(2);
  const double lo = c.Number(3);
  if (!(loLo <= lo && lo <= hi && hi <= hiHi)) return "limits out of order";
  const std::string scale = BlockName(c.block, "outScale");
  const double span = std::abs(c.device.Number(scale, 0) - c.device.Number(scale, 8));
  return RefuseUnless(c.Number(4) >= 0 && c.Number(4) <= span / 2, "hysteresis out of range");
}

Refusal CheckSimulation(const WriteContext& c) {
  return RefuseUnless(NumberOf(c.digits[0].substr(10)) <= 1, kRefusedCode);
}

Refusal CheckBlockScale(const WriteContext& c) {
  if (!IsUnit(UnitSet::kAny, NumberOf(c.digits[0].substr(16, 4)))) return kRefusedUnit;
  return RefuseUnless(c.Number(0, 0) != c.Number(0, 8), kRefusedEqual);
}

Refusal CheckPressureOffset(const WriteContext& c) {
  const double limit = c.device.UpperRangeLimit(SideOf(c));
  return RefuseUnless(std::abs(1000 * c.Number(0)) <= limit * 1.001, kRefusedRange);
}

Refusal CheckSerial(const WriteContext& c) { return RefuseUnless(c.Code(0) <= 0x7FFFFFFF, kRefusedRange); }

Refusal CheckAzReference(const WriteContext& c) {
  return RefuseUnless(WithinLimits(c.device, SensorPascal(c.device, c.Number(0))), "outside the sensor limits");
}

Refusal CheckAzBand(const WriteContext& c) {
  const double band = SensorPascal(c.device, c.Number(0));
  return RefuseUnless(band >= 0 && band <= c.device.UpperRangeLimit(0) / 10 + Tolerance(c.device), kRefusedRange);
}

Refusal CheckAzTime(const WriteContext& c) {
  constexpr std::uint64_t kDay = 86400;
  return RefuseUnless(c.Code(0) <= kDay, kRefusedRange);
}

Refusal CheckDeadBand(const WriteContext& c) {
  const double band = SensorPascal(c.device, c.Number(0));
  return RefuseUnless(band >= 0 && band <= c.device.UpperRangeLimit(0) + Tolerance(c.device), kRefusedRange);
}

Refusal CheckUpperAbove(const WriteContext& c) {
  return RefuseUnless(c.Number(0) > c.Number(1), "upper limit not above lower");
}

Refusal CheckSelector(const WriteContext& c) {
  if (c.Code(0) == 0x80 && !c.device.Version().AtLeast(1, 5)) return kRefusedFirmware;
  return CheckCodes(c);
}

Refusal CheckAiConfig(const WriteContext& c) {
  // A write of its own is refused by an old firmware, where an attribute among others is passed over.
  if (!c.device.Version().AtLeast(1, 7)) return kRefusedFirmware;
  return CheckCodes(c);
}

Refusal GateDensityScale(const Device& device) { return RefuseUnless(!device.IsType(kDensity), kRefusedType); }

Refusal GateAlways(const Device& /*device*/) { return "the scale follows the measured type"; }

void PutAll(const WriteContext& c) {
  for (std::size_t i = 0; i < c.item.Count(); ++i) c.device.Put(c.names[i], c.digits[i]);
}

void ApplyPvType(const WriteContext& c) { c.device.SetPrimaryValueType(static_cast<int>(c.Code(0))); }

void ApplyInScale(const WriteContext& c) {
  if (c.digits[1] != c.device.Digits("inUnit")) ConvertInputUnit(c.device.Change(), c.digits[1]);
  c.device.Put("inScale", c.digits[0]);
}

void ApplyScaleCopy(const WriteContext& c) {
  PutAll(c);
  const std::string copy = c.digits[0] + c.digits[1] + "00";
  if (c.device.Digits("ai1.outScale") == copy) return;
  c.device.Put("ai1.outScale", copy);
  PutAlarmLimits(c.device.Change(), 1);
}

void ApplyTemperatureUnit(const WriteContext& c) { ConvertTemperatureUnit(c.device.Change(), c.digits[0]); }

void ApplySensorUnit(const WriteContext& c) { ConvertSensorUnit(c.device.Change(), c.digits[0]); }

void ApplyMeasuredType(const WriteContext& c) { c.device.SetMeasuredType(static_cast<int>(c.Code(0))); }

void ApplyDensityRange(const WriteContext& c) { c.device.SetDensityRange(static_cast<int>(c.Code(0))); }

void ApplyAiConfig(const WriteContext& c) {
  ParameterStore& p = c.device.Change();
  p.Set("aiConfig", c.digits[0]);
  for (const std::string_view side : {".hi", ".lo"}) {
    p.Set(std::string("snsScale").append(side), PairDigits(37.4, 0));
    p.Set(std::string("snsUnit").append(side), std::string(kUnitKilopascal));
  }
  PutBlockDefaults(p, 2);
  PutBlockDefaults(p, 3);
}

void ApplyRange(const WriteContext& c) {
  PutAll(c);
  c.device.RangeChanged(SideOf(c));
}

void ApplyModel(const WriteContext& c) {
  PutAll(c);
  c.device.ModelChanged(SideOf(c));
}

void ApplySolidLimits(const WriteContext& c) {
  PutAll(c);
  if (c.device.IsType(kDensity) && c.device.Code("measuredType") == kMeasuredSolid) PutMeasuredScale(c.device.Change());
}

void ApplyCompensation(const WriteContext& c) {
  PutAll(c);
  if (c.device.IsType(kLevel)) PutBlockDefaults(c.device.Change(), 3);
}

void ApplyAutoZero(const WriteContext& c) {
  PutAll(c);
  c.device.RestartAutoZero();
}

}  // namespace htr60::sim
