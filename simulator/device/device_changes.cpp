#include <array>

#include "simulator/device/device.h"
#include "simulator/device/units.h"

namespace htr60::sim {
namespace {

/// What a calibration sets.
constexpr std::array<std::string_view, 19> kCalibration{"gain",      "offset",   "gain.hi",     "offset.hi",  "gain.lo",
                                                        "offset.lo", "gainTemp", "offsetTemp",  "calHi",      "calLo",
                                                        "calHi.hi",  "calLo.hi", "calHi.lo",    "calLo.lo",   "calTemp",
                                                        "densHi",    "densLo",   "densPressHi", "densPressLo"};

/// The sensor data of both sensors: make, remote parts and polynomials.
constexpr std::array<std::string_view, 22> kSensorData{
    "sensorMaker",       "connected",         "initialized.hi",  "initialized.lo",  "sensorType.hi", "sensorType.lo",
    "range.hi",          "range.lo",          "fluid.hi",        "fluid.lo",        "diaphragm.hi",  "diaphragm.lo",
    "sensorModel.hi",    "sensorModel.lo",    "sensorSerial.hi", "sensorSerial.lo", "flangeType.hi", "flangeType.lo",
    "flangeMaterial.hi", "flangeMaterial.lo", "oRing.hi",        "oRing.lo"};
constexpr std::array<std::string_view, 3> kPolynomials{"polyVersion", "poly.hi", "poly.lo"};

/// A density point in the unit of another measured type; where one of both cannot be turned round, `end` of the scale.
double ConvertPoint(double value, int from, int to, const Live& live, const DensityCoefficients& c, double end) {
  if (to == kMeasuredSolid || to == kMeasuredConcentration) return end;
  const auto rho = DensityFromMeasured(from, value, live.t, live.rho < WaterDensity(live.t));
  return rho ? MeasuredFromDensity(to, *rho, live.t, c).value : end;
}

}  // namespace

void Device::SetPrimaryValueType(int type) { PutTypeDefaults(Change(), type); }

void Device::SetMeasuredType(int type) {
  ParameterStore& p = Change();
  const int before = p.Index("measuredType", kMeasuredTypes - 1);
  p.Set("measuredType", NumberDigits(static_cast<std::uint64_t>(type), 2));
  const bool density = IsType(kDensity);
  if (density) {
    PutMeasuredScale(p);
    PutBlockDefaults(p, 1);
  }
  const MeasuredScale scale = ScaleOfMeasuredType(type, p.Index("densityRange", 2));
  const double upper = density ? p.Number("outScale", 0) : scale.upper;
  const double lower = density ? p.Number("outScale", 8) : scale.lower;
  p.SetNumber("densHi", ConvertPoint(p.Number("densHi"), before, type, Now(), config_.coefficients, upper));
  p.SetNumber("densLo", ConvertPoint(p.Number("densLo"), before, type, Now(), config_.coefficients, lower));
}

void Device::SetDensityRange(int range) {
  ParameterStore& p = Change();
  p.Set("densityRange", NumberDigits(static_cast<std::uint64_t>(range), 2));
  if (!IsType(kDensity)) return;
  PutMeasuredScale(p);
  for (int block = 1; block <= 3; ++block) PutBlockDefaults(p, block);
}

void Device::RangeChanged(std::size_t sensor) {
  ParameterStore& p = Change();
  PutSensorLimits(p, sensor, FittedRange(sensor));
  const auto reset = [&](std::string_view suffix, std::size_t trim) {
    PutCalibrationPoints(p, suffix, UpperRangeLimit(sensor) / 1000);
    p.SetNumber(SideName("gain", suffix), 1);
    p.SetNumber(SideName("offset", suffix), 0);
    trim_.reference[trim] = 0;
  };
  reset(kSides[sensor], 1 + sensor);
  if (sensor == 0) reset("", 0);
}

void Device::ModelChanged(std::size_t sensor) {
  ParameterStore& p = Change();
  p.Set(SideName("transducerType", kSides[sensor]), p.Digits(SideName("sensorModel", kSides[sensor])));
  PutSensorLimits(p, sensor, FittedRange(sensor));
}

CalibrationCopy Device::TakeCalibration() const {
  CalibrationCopy copy;
  for (const auto name : kCalibration) copy.digits[std::string(name)] = Digits(name);
  copy.trim = trim_;
  copy.sensorUnit = Digits("sensorUnit");
  copy.tempUnit = Digits("tempUnit");
  copy.inUnit = Digits("inUnit");
  copy.measuredType = p_.Index("measuredType", kMeasuredTypes - 1);
  return copy;
}

void Device::PutCalibration(const CalibrationCopy& copy) {
  // The copy goes in under its own units, so that its digits come back where the units are still the same; the
  // conversion then brings it to the present ones. What else the conversion touches is put back after it.
  ParameterStore& p = Change();
  ParameterStore converted = p;
  converted.Set("sensorUnit", copy.sensorUnit);
  converted.Set("tempUnit", copy.tempUnit);
  converted.Set("inUnit", copy.inUnit);
  for (const auto& [name, digits] : copy.digits) converted.Set(name, digits);
  if (copy.sensorUnit != p.Digits("sensorUnit")) ConvertSensorUnit(converted, p.Digits("sensorUnit"));
  if (copy.tempUnit != p.Digits("tempUnit")) ConvertTemperatureUnit(converted, p.Digits("tempUnit"));
  if (copy.inUnit != p.Digits("inUnit")) ConvertInputUnit(converted, p.Digits("inUnit"));
  for (const auto name : kCalibration) p.Set(name, converted.Digits(name));
  trim_ = copy.trim;
  const int type = p.Index("measuredType", kMeasuredTypes - 1);
  if (type == copy.measuredType) return;
  const auto& c = config_.coefficients;
  p.SetNumber("densHi", ConvertPoint(p.Number("densHi"), copy.measuredType, type, Now(), c, p.Number("outScale", 0)));
  p.SetNumber("densLo", ConvertPoint(p.Number("densLo"), copy.measuredType, type, Now(), c, p.Number("outScale", 8)));
}

void Device::BackUpSensorData() {
  for (const auto name : kSensorData) sensorData_[std::string(name)] = Digits(name);
  for (const auto name : kPolynomials) sensorData_[std::string(name)] = Digits(name);
}

void Device::RestoreSensorData() {
  for (std::size_t s = 0; s < 2; ++s) {
    const std::string range = SideName("range", kSides[s]);
    const std::string model = SideName("sensorModel", kSides[s]);
    const bool newRange = Digits(range) != sensorData_.at(range);
    const bool newModel = Digits(model) != sensorData_.at(model);
    Put(range, sensorData_.at(range));
    Put(model, sensorData_.at(model));
    if (newRange) RangeChanged(s);
    if (newModel) ModelChanged(s);
  }
  for (const auto& [name, digits] : sensorData_) Put(name, digits);
}

void Device::RestoreTransducerDefaults() {
  constexpr std::array<std::string_view, 30> kDefaults{
      "sqrtPoint",    "cutOff",      "volScale",    "volUnit",    "tablePoints", "tableStatus",
      "compensation", "deadBand",    "mounting",    "gravity",    "height",      "dilatation",
      "pressCoeff",   "zeroTemp",    "heightTemp",  "limDensHi",  "limDensLo",   "limTempHi",
      "limTempLo",    "kDens",       "kTemp",       "solidHi",    "solidLo",     "zeroFilter",
      "simValue",     "snsScale.hi", "snsScale.lo", "snsUnit.hi", "snsUnit.lo",  "azSelect"};
  ParameterStore& p = Change();
  ConvertSensorUnit(p, start_.Digits("sensorUnit"));
  ConvertTemperatureUnit(p, start_.Digits("tempUnit"));
  for (const auto name : kDefaults) p.Set(name, start_.Digits(name));
  for (int i = 1; i <= 21; ++i)
    p.Set("point[" + std::to_string(i) + "]", start_.Digits("point[" + std::to_string(i) + "]"));
  for (int i = 0; i < 18; ++i) p.Set("k[" + std::to_string(i) + "]", start_.Digits("k[" + std::to_string(i) + "]"));
  for (int i = 0; i < 6; ++i) {
    p.Set("solid[" + std::to_string(i) + "]", start_.Digits("solid[" + std::to_string(i) + "]"));
  }
  tableAccepted = false;
  PutTypeDefaults(p, static_cast<int>(p.Code("pvType")));
}

void Device::ResetParameters() {
  ParameterStore kept = p_;
  ParameterStore& p = Change();
  p = start_;
  for (const auto name : kSensorData) p.Set(name, kept.Digits(name));
  for (const auto name : kPolynomials) p.Set(name, kept.Digits(name));
  for (std::size_t s = 0; s < 2; ++s) {
    p.Set(SideName("transducerType", kSides[s]), kept.Digits(SideName("transducerType", kSides[s])));
    PutSensorLimits(p, s, FittedRange(s));
  }
  p.Set("serial", kept.Digits("serial"));
  p.Set("writeLock", "0999");
  p.Set("factoryReset", "0000");
  tableAccepted = false;
  enteringCurve = false;
  RestoreFactory();
  WarmStart();
}

void Device::WarmStart() {
  ParameterStore& p = Change();
  p.Set("simEnable", "00");
  p.Set("debugEnable", "00");
  for (int block = 1; block <= 3; ++block) {
    const std::string name = BlockName(block, "sim");
    p.Set(name, p.Digits(name).substr(0, 10) + "00");
  }
  Settle();
}

}  // namespace htr60::sim
