#include <cmath>

#include "simulator/device/calibration.h"
#include "simulator/device/density.h"
#include "simulator/device/units.h"
#include "simulator/device/write_rules.h"

namespace htr60::sim {
namespace {

constexpr double kLeastGain = 0.9;
constexpr double kMostGain = 1.1;

bool GainInOrder(double gain) { return gain >= kLeastGain && gain <= kMostGain; }

/// A pair of one straight line: trimmed = gain x measured + offset.
struct Line {
  double gain = 1;
  double offset = 0;
};

/// What a trim of the differential pressure or of a sensor works on, in Pa.
struct TrimTarget {
  std::size_t which = 0;  ///< 0: differential pressure, 1 and 2: sensor
  std::string suffix;
  std::size_t sensor = 0;  ///< whose limits hold
  SensorSet concerned{};

  double Unit(const Device& d) const { return PascalPer(d.Code("sensorUnit")); }
  std::string Name(std::string_view parameter) const { return std::string(parameter).append(suffix); }
  double Pascal(const Device& d, std::string_view parameter) const { return d.Number(Name(parameter)) * Unit(d); }
  double Measured(const Device& d) const { return which == 0 ? d.Now().curve : d.Now().sensors[sensor].untrimmed; }
  const History& Past(const Device& d) const { return which == 0 ? d.DifferentialHistory() : d.SensorHistory(sensor); }
  double Tolerance(const Device& d) const { return d.UpperRangeLimit(sensor) / 1000; }
  bool WithinLimits(const Device& d, double pascal) const {
    const std::string side = sensor == 0 ? ".hi" : ".lo";
    return pascal <= d.Number("limHi" + side) * Unit(d) + Tolerance(d) &&
           pascal >= d.Number("limLo" + side) * Unit(d) - Tolerance(d);
  }
  double MinimumSpan(const Device& d) const { return d.Number("minSpan") * Unit(d) - Tolerance(d); }
  Line Present(const Device& d) const { return {d.Number(Name("gain")), 1000 * d.Number(Name("offset"))}; }
  void Store(Device& d, const Line& line) const {
    d.Change().SetNumber(Name("gain"), line.gain);
    d.Change().SetNumber(Name("offset"), line.offset / 1000);
  }
  bool OffsetInOrder(const Device& d, double offset) const {
    return std::abs(offset) <= d.UpperRangeLimit(sensor) / 10;
  }
};

TrimTarget TargetOf(std::size_t which) {
  if (which == 0) return {0, "", 0, {true, true}};
  if (which == 1) return {1, ".hi", 0, {true, false}};
  return {2, ".lo", 1, {false, true}};
}

bool IsFloat(const std::string& operand) { return !CheckForm(operand, Form::kF8).has_value(); }

Verdict TrimPoint(Device& d, const TrimTarget& target, bool upper, const std::string& operand) {
  if (!MayCalibrate(d, target.concerned) || !IsFloat(operand)) return Verdict::kInvalid;
  if (!Answers(d, target.concerned)) return Verdict::kFailed;
  const double v = FloatAt(operand) * target.Unit(d);
  const double c = target.Measured(d);
  if (!target.WithinLimits(d, v) || !target.WithinLimits(d, c)) return Verdict::kOutOfRange;
  if (target.Past(d).Movement() > 0.005 * d.UpperRangeLimit(target.sensor)) return Verdict::kFailed;
  Line line = target.Present(d);
  double& reference = d.Trim().reference[target.which];
  if (upper) {
    const double low = line.gain * reference + line.offset;
    if (std::abs(v - low) < target.MinimumSpan(d) || c == reference) return Verdict::kInvalid;
    line.gain = (v - low) / (c - reference);
    line.offset = low - line.gain * reference;
    if (!GainInOrder(line.gain)) return Verdict::kExcess;
  } else {
    if (std::abs(target.Pascal(d, "calHi") - v) < target.MinimumSpan(d)) return Verdict::kInvalid;
    line.offset = v - line.gain * c;
  }
  if (!target.OffsetInOrder(d, line.offset)) return Verdict::kExcess;
  if (!upper) reference = c;
  target.Store(d, line);
  d.Put(target.Name(upper ? "calHi" : "calLo"), ToCapitals(operand));
  return Verdict::kGood;
}

Verdict TrimWithoutReference(Device& d, const TrimTarget& target, const std::string& high, const std::string& low) {
  if (!MayCalibrate(d, target.concerned) || !IsFloat(high) || !IsFloat(low)) return Verdict::kInvalid;
  if (!Answers(d, target.concerned)) return Verdict::kFailed;
  const double hi = FloatAt(high) * target.Unit(d);
  const double lo = FloatAt(low) * target.Unit(d);
  if (!target.WithinLimits(d, hi) || !target.WithinLimits(d, lo)) return Verdict::kOutOfRange;
  const double calLo = target.Pascal(d, "calLo");
  const double span = target.Pascal(d, "calHi") - calLo;
  if (hi - lo < target.MinimumSpan(d) || span == 0) return Verdict::kInvalid;
  const double k = (hi - lo) / span;
  Line line = target.Present(d);
  line = {k * line.gain, lo + k * (line.offset - calLo)};
  if (!GainInOrder(line.gain) || !target.OffsetInOrder(d, line.offset)) return Verdict::kExcess;
  target.Store(d, line);
  d.Put(target.Name("calHi"), ToCapitals(high));
  d.Put(target.Name("calLo"), ToCapitals(low));
  return Verdict::kGood;
}

Verdict TrimTemperature(Device& d, const std::string& operand) {
  constexpr double kMostOffset = 10;
  constexpr double kMostMovement = 0.5;
  if (!MayCalibrate(d, {}) || !IsFloat(operand)) return Verdict::kInvalid;
  if (d.Now().tStatus == kBadDevice) return Verdict::kFailed;
  const auto celsius = [&](double value) { return ToCelsius(value, d.Code("tempUnit")); };
  const double v = celsius(FloatAt(operand));
  const double least = celsius(d.Number("tempMin"));
  const double most = celsius(d.Number("tempMax"));
  const double measured = d.Now().tRaw;
  if (v < least || v > most || measured < least || measured > most) return Verdict::kOutOfRange;
  if (d.TemperatureHistory().Movement() > kMostMovement) return Verdict::kFailed;
  const double offset = v - d.Number("gainTemp") * measured;
  if (std::abs(offset) > kMostOffset) return Verdict::kExcess;
  d.Change().SetNumber("offsetTemp", offset);
  d.Put("calTemp", ToCapitals(operand));
  return Verdict::kGood;
}

/// The density before its trim with the present height.
double MeasuredDensity(const Device& d) {
  const double t = d.Now().t;
  const double height = d.Number("height") * (1 + d.Number("dilatation") * (t - d.Number("heightTemp")));
  return d.Now().densityDp / (d.Number("gravity") * height);
}

/// Tests 5 to 7 of a density point whose values are in order.
Verdict StoreDensityPoint(Device& d, bool upper, double v, double c, const std::string& point) {
  constexpr double kMostOffset = 100;
  constexpr double kLeastDistance = 20;
  TrimState& trim = d.Trim();
  Line line{trim.densGain, trim.densOffset};
  if (upper) {
    const double low = line.gain * trim.densReference + line.offset;
    if (std::abs(v - low) < kLeastDistance || c == trim.densReference) return Verdict::kInvalid;
    line.gain = (v - low) / (c - trim.densReference);
    line.offset = low - line.gain * trim.densReference;
    if (!GainInOrder(line.gain)) return Verdict::kExcess;
  } else {
    line.offset = v - line.gain * c;
  }
  if (std::abs(line.offset) > kMostOffset) return Verdict::kExcess;
  trim.densGain = line.gain;
  trim.densOffset = line.offset;
  if (!upper) trim.densReference = c;
  d.Put(upper ? "densHi" : "densLo", point);
  d.Change().SetNumber(upper ? "densPressHi" : "densPressLo", d.Now().press / PascalPer(d.Code("inUnit")));
  return Verdict::kGood;
}

bool DensitySettled(const Device& d) { return d.DensityHistory().Movement() <= 5; }

Verdict DensityPoint(Device& d, bool upper, const std::string& operand) {
  constexpr double kBelowZero = 5;
  const int type = d.Parameters().Index("measuredType", kMeasuredTypes - 1);
  const bool reversible = type != kMeasuredSolid && type != kMeasuredConcentration;
  if (!MayCalibrate(d, {true, true}) || !d.IsType(kDensity) || !reversible || !IsFloat(operand)) {
    return Verdict::kInvalid;
  }
  if (!Answers(d, {true, true})) return Verdict::kFailed;
  const Live& live = d.Now();
  const bool light = live.rho < WaterDensity(live.t);
  const auto v = DensityFromMeasured(type, FloatAt(operand), live.t, light);
  const double c = MeasuredDensity(d);
  const double most = 1100 * DensityRangeUpper(d.Parameters().Index("densityRange", 2));
  const bool within = v && *v >= 0 && *v <= most && c >= -kBelowZero && c <= most;
  if (!within || !TargetOf(0).WithinLimits(d, live.raw)) return Verdict::kOutOfRange;
  if (!DensitySettled(d)) return Verdict::kFailed;
  return StoreDensityPoint(d, upper, *v, c, ToCapitals(operand));
}

Verdict SelfCalibration(Device& d, int type) {
  constexpr double kAir = 50;
  constexpr double kWaterLeast = 900;
  constexpr double kWaterMost = 1100;
  const bool water = type == kMeasuredBrix;
  if (!MayCalibrate(d, {true, true}) || !d.IsType(kDensity) || (water && !d.airCalibrated)) return Verdict::kInvalid;
  if (!Answers(d, {true, true})) return Verdict::kFailed;
  const double t = d.Now().t;
  const double c = MeasuredDensity(d);
  const bool within = water ? c >= kWaterLeast && c <= kWaterMost : std::abs(c) <= kAir;
  if (!within) return Verdict::kOutOfRange;
  if (!DensitySettled(d)) return Verdict::kFailed;
  const double v = water ? WaterDensity(t) : 101325 / (287.05 * (t + 273.15));
  const double point = MeasuredFromDensity(type, v, t, {}).value;
  const Verdict verdict = StoreDensityPoint(d, water, v, c, FloatDigits(point));
  if (!water && verdict == Verdict::kGood) d.airCalibrated = true;
  return verdict;
}

}  // namespace

bool MayCalibrate(const Device& d, SensorSet concerned) {
  if (d.Locked() || d.Code("simEnable") != 0 || d.Code("debugEnable") == 1) return false;
  for (std::size_t s = 0; s < 2; ++s) {
    const std::string side = s == 0 ? ".hi" : ".lo";
    if (concerned[s] && (d.Code("initialized" + side) != 0xAA || d.Code("range" + side) == 0)) return false;
  }
  return true;
}

bool Answers(const Device& d, SensorSet concerned) {
  constexpr double kHealthy = 9000;
  for (std::size_t s = 0; s < 2; ++s) {
    if (concerned[s] && d.Now().sensors[s].cap > kHealthy) return false;
  }
  return true;
}

void Conclude(Device& device, int code, std::string_view what, Verdict verdict) {
  device.Put("operResult", NumberDigits(static_cast<std::uint64_t>(verdict), 2));
  Refusal refusal;
  switch (verdict) {
    case Verdict::kGood:
      break;
    case Verdict::kOutOfRange:
      refusal = "applied process out of range";
      break;
    case Verdict::kInvalid:
      refusal = "invalid configuration for request";
      break;
    case Verdict::kExcess:
      refusal = "excess correction";
      break;
    case Verdict::kFailed:
      refusal = "calibration failed";
      break;
  }
  LogWrite(device, code, 1, what, refusal);
}

void WriteTrim(Device& device, int code, const Attributes& attributes) {
  struct Row {
    int code;
    std::size_t which;
    bool upper;
  };
  static constexpr std::array<Row, 6> kRows{
      {{14, 0, false}, {15, 0, true}, {65, 1, true}, {66, 1, false}, {67, 2, true}, {68, 2, false}}};
  if (attributes[0] == kUnused) return;
  for (const auto& row : kRows) {
    if (row.code != code) continue;
    const TrimTarget target = TargetOf(row.which);
    const std::string point = target.Name(row.upper ? "calHi" : "calLo");
    Conclude(device, code, point, TrimPoint(device, target, row.upper, attributes[0]));
  }
}

void WriteWithoutReference(Device& device, int code, const Attributes& attributes) {
  if (attributes[0] == kUnused && attributes[1] == kUnused) return;
  const TrimTarget target = TargetOf(code == 44 ? 0 : static_cast<std::size_t>(code - 62));
  const auto operand = [&](std::size_t i, std::string_view present) {
    return attributes[i] == kUnused ? device.Digits(target.Name(present)) : attributes[i];
  };
  Conclude(device, code, target.Name("calHi"),
           TrimWithoutReference(device, target, operand(0, "calHi"), operand(1, "calLo")));
  // The high point of the differential pressure travels with all three writes and is not used.
  for (std::size_t i = 2; i < 4; ++i) {
    if (attributes[i] != kUnused) LogWrite(device, code, i + 1, "not used", {});
  }
}

void WriteTemperatureTrim(Device& device, int code, const Attributes& attributes) {
  if (attributes[0] == kUnused) return;
  Conclude(device, code, "calTemp", TrimTemperature(device, attributes[0]));
}

void WriteDensityPoint(Device& device, int code, const Attributes& attributes) {
  static constexpr WriteItem kHeight{
      .attribute = 2, .names = {"height"}, .check = CheckRange, .least = 0.05, .most = 100};
  const bool upper = code == 53;
  const Refusal height = ExecuteItem(device, code, 1, kHeight, attributes, device.Locked());
  if (attributes[0] == kUnused) return;
  const Verdict verdict = height ? Verdict::kInvalid : DensityPoint(device, upper, attributes[0]);
  Conclude(device, code, upper ? "densHi" : "densLo", verdict);
}

void WriteMeasuredType(Device& device, int code, const Attributes& attributes) {
  if (attributes[0] == kUnused) return;
  const bool calibrating = device.GetSettings().selfCalibration;
  Refusal refusal = CheckForm(attributes[0], Form::kE2);
  if (!refusal && NumberOf(attributes[0]) >= kMeasuredTypes) refusal = kRefusedCode;
  const int type = refusal ? 0 : static_cast<int>(NumberOf(attributes[0]));
  const bool point = !refusal && calibrating && (type == kMeasuredKilogram || type == kMeasuredBrix);
  if (!refusal && device.Locked()) refusal = kRefusedLocked;
  if (!refusal && device.Parameters().Index("measuredType", 0xFF) != type) device.SetMeasuredType(type);
  LogWrite(device, code, 1, "measuredType", refusal);
  if (point) Conclude(device, code, "self calibration", SelfCalibration(device, type));
}

}  // namespace htr60::sim
