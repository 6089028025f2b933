#include <cmath>

#include "simulator/device/calibration.h"
#include "simulator/device/units.h"
#include "simulator/device/write_rules.h"

namespace htr60::sim {
namespace {

constexpr SensorSet kBoth{true, true};
constexpr std::size_t kFloatDigits = 8;
constexpr std::size_t kMostPoints = 5;

Verdict RunOperation(Device& d, std::uint64_t operation) {
  const bool needsCurve = operation == 3 || operation == 4;
  if (needsCurve && d.Parameters().Index("curveLength", 16) < 2) return Verdict::kInvalid;
  if (operation == 2) d.RestoreLast();
  if (operation == 3) {
    d.BackUpLast();
    d.Change().SetNumber("gain", 1);
    d.Change().SetNumber("offset", 0);
    d.Trim().reference[0] = 0;
  }
  d.Put("charOperation", NumberDigits(operation, 4));
  return Verdict::kGood;
}

Verdict Operation(Device& d, const std::string& operand) {
  if (!MayCalibrate(d, kBoth) || CheckForm(operand, Form::kE4) || NumberOf(operand) > 4) return Verdict::kInvalid;
  return RunOperation(d, NumberOf(operand));
}

bool FiveFloats(const std::string& digits) {
  if (digits.size() != kMostPoints * kFloatDigits || !IsHexadecimal(digits)) return false;
  for (std::size_t i = 0; i < kMostPoints; ++i) {
    if (!std::isfinite(FloatAt(digits, i * kFloatDigits))) return false;
  }
  return true;
}

/// The judgement of the points by themselves: limits, order, correction.
Verdict JudgePoints(const Device& d, const std::string& x, const std::string& y, std::size_t count) {
  const double unit = PascalPer(d.Code("sensorUnit"));
  const double url = d.UpperRangeLimit(0);
  const auto at = [unit](const std::string& digits, std::size_t i) { return FloatAt(digits, i * kFloatDigits) * unit; };
  const double most = d.Number("limHi.hi") * unit + url / 1000;
  const double least = d.Number("limLo.hi") * unit - url / 1000;
  for (std::size_t i = 0; i < count; ++i) {
    for (const double value : {at(x, i), at(y, i)}) {
      if (value > most || value < least) return Verdict::kOutOfRange;
    }
  }
  const double direction = at(x, 1) > at(x, 0) ? 1 : -1;
  for (std::size_t i = 0; i + 1 < count; ++i) {
    if (direction * (at(x, i + 1) - at(x, i)) <= 0 || direction * (at(y, i + 1) - at(y, i)) <= 0) {
      return Verdict::kFailed;
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (std::abs(at(y, i) - at(x, i)) > url / 10) return Verdict::kExcess;
  }
  return Verdict::kGood;
}

Verdict Points(Device& d, const Attributes& attributes) {
  const std::string& number = attributes[0];
  const std::string& operation = attributes[3];
  const bool digits = number.size() == 2 && IsHexadecimal(number) && FiveFloats(attributes[1]) &&
                      FiveFloats(attributes[2]) && !CheckForm(operation, Form::kE4);
  if (!MayCalibrate(d, kBoth) || !digits) return Verdict::kInvalid;
  const auto count = static_cast<std::size_t>(NumberOf(number));
  const auto code = NumberOf(operation);
  if (count < 2 || count > kMostPoints || (code != 0 && code != 2 && code != 3)) return Verdict::kInvalid;
  if (!Answers(d, kBoth)) return Verdict::kFailed;
  const Verdict verdict = JudgePoints(d, attributes[1], attributes[2], count);
  if (verdict != Verdict::kGood) return verdict;
  const auto stored = [&](const std::string& floats) {
    std::string result = ToCapitals(std::string_view(floats).substr(0, count * kFloatDigits));
    result.resize(DigitsOf(Form::kA128), '0');
    return result;
  };
  d.Put("curveX", stored(attributes[1]));
  d.Put("curveY", stored(attributes[2]));
  d.Put("curveLength", number);
  return RunOperation(d, code);
}

Verdict BackupRestore(Device& d, const std::string& operand) {
  if (d.Locked() || CheckForm(operand, Form::kE2)) return Verdict::kInvalid;
  const auto code = NumberOf(operand);
  const bool sensorData = code == 0x05 || code == 0x0F;
  if (sensorData && !Answers(d, kBoth)) return Verdict::kFailed;
  switch (code) {
    case 0x00:
      break;
    case 0x01:
      d.RestoreFactory();
      break;
    case 0x02:
      d.RestoreLast();
      break;
    case 0x03:
      d.RestoreTransducerDefaults();
      break;
    case 0x05:
      d.RestoreSensorData();
      break;
    case 0x0B:
      d.BackUpFactory();
      break;
    case 0x0C:
      d.BackUpLast();
      break;
    case 0x0F:
      d.BackUpSensorData();
      break;
    default:
      return Verdict::kInvalid;
  }
  d.Put("backupRestore", ToCapitals(operand));
  return Verdict::kGood;
}

}  // namespace

void WriteCharOperation(Device& device, int code, const Attributes& attributes) {
  if (attributes[0] == kUnused) return;
  device.enteringCurve = false;
  Conclude(device, code, "charOperation", Operation(device, attributes[0]));
}

void WriteCharPoints(Device& device, int code, const Attributes& attributes) {
  device.enteringCurve = false;
  Conclude(device, code, "curve", Points(device, attributes));
}

void WriteBackupRestore(Device& device, int code, const Attributes& attributes) {
  if (attributes[0] == kUnused) return;
  Conclude(device, code, "backupRestore", BackupRestore(device, attributes[0]));
}

}  // namespace htr60::sim
