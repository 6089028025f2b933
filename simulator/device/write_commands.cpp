#include <algorithm>

#include "simulator/device/units.h"
#include "simulator/device/write_rules.h"

namespace htr60::sim {
namespace {

void LogAll(Device& device, int code, const Attributes& attributes, std::size_t first, std::size_t last,
            std::string_view parameter, const Refusal& refusal) {
  for (std::size_t i = first; i <= last; ++i) {
    if (attributes[i - 1] != kUnused) LogWrite(device, code, i, parameter, refusal);
  }
}

Refusal Locked(const Device& device) { return device.Locked() ? Refusal(kRefusedLocked) : Refusal(); }

struct TablePoints {
  std::vector<std::string> digits;
  std::string_view violation;  ///< table status, empty for a good table
};

/// The first n points of attributes 2 to 12, two to an attribute; what stands after them is not judged.
Refusal ParsePoints(const Attributes& attributes, TablePoints& table) {
  constexpr std::size_t kMostPoints = 21;
  constexpr std::size_t kPointDigits = 16;
  const std::string& number = attributes[0];
  if (number.size() != 2 || !IsHexadecimal(number)) return "wrong number of points";
  const auto n = NumberOf(number);
  if (n < 2 || n > kMostPoints) return "wrong number of points";
  for (std::size_t k = 0; k < n; ++k) {
    const std::string& pair = attributes[1 + k / 2];
    const std::size_t at = k % 2 * kPointDigits;
    if (pair.size() < at + kPointDigits) return kRefusedDigits;
    const std::string point = ToCapitals(std::string_view(pair).substr(at, kPointDigits));
    if (const auto refusal = CheckForm(point, Form::kP16)) return refusal;
    table.digits.push_back(point);
  }
  for (std::size_t k = 0; k + 1 < n && table.violation.empty(); ++k) {
    const std::string& here = table.digits[k];
    const std::string& next = table.digits[k + 1];
    if (FloatAt(next, 0) <= FloatAt(here, 0)) {
      table.violation = "02";
    } else if (FloatAt(next, 8) < FloatAt(here, 8)) {
      table.violation = "03";
    }
  }
  return {};
}

void StoreTable(Device& device, const TablePoints& table) {
  constexpr int kPoints = 21;
  for (int k = 1; k <= kPoints; ++k) {
    const auto i = static_cast<std::size_t>(k - 1);
    device.Put("point[" + std::to_string(k) + "]", i < table.digits.size() ? table.digits[i] : PairDigits(0, 0));
  }
  device.Put("tablePoints", NumberDigits(table.digits.size(), 2));
  device.Put("tableStatus", "01");
  device.tableAccepted = true;
}

/// The sensor side whose scale the channel of a block has.
Refusal ChannelSide(const Device& device, const Attributes& attributes, std::string& side) {
  const std::string& block = attributes[0];
  const std::string& configuration = attributes[2];
  if (!device.IsType(kPressure)) return kRefusedType;
  if (block == "1") return "the block has no sensor channel";
  bool second = device.Version().AtLeast(1, 7) && device.Code("aiConfig") == 2;
  if (configuration == "Config 1" || configuration == "Config 2") {
    if (device.Version().AtLeast(1, 7)) second = configuration == "Config 2";
  } else if (configuration != "255" && !configuration.empty() && configuration != kUnused) {
    return "unknown configuration";
  }
  if (second && block == "3") return "the block has no sensor channel";
  side = block == "2" && !second ? ".hi" : ".lo";
  return {};
}

Refusal SetChannelScale(Device& device, const Attributes& attributes) {
  std::string side;
  if (const auto refusal = ChannelSide(device, attributes, side)) return refusal;
  const std::string digits = ToCapitals(attributes[1]);
  if (const auto refusal = CheckForm(digits, Form::kP16)) return refusal;
  if (FloatAt(digits, 0) == FloatAt(digits, 8)) return kRefusedEqual;
  device.Put("snsScale" + side, digits);
  return {};
}

Refusal SetChannelUnit(Device& device, const Attributes& attributes) {
  std::string side;
  if (const auto refusal = ChannelSide(device, attributes, side)) return refusal;
  const std::string unit = ToCapitals(attributes[1]);
  if (const auto refusal = CheckForm(unit, Form::kU4)) return refusal;
  if (!IsUnit(UnitSet::kPressures, NumberOf(unit))) return kRefusedUnit;
  const auto from = device.Code("snsUnit" + side);
  const auto convert = [&](std::size_t at) {
    return ConvertPressure(device.Number("snsScale" + side, at), from, NumberOf(unit));
  };
  device.Put("snsScale" + side, PairDigits(convert(0), convert(8)));
  device.Put("snsUnit" + side, unit);
  return {};
}

void WriteChannel(Device& device, int code, const Attributes& attributes, std::string_view parameter,
                  Refusal (*set)(Device&, const Attributes&)) {
  if (attributes[1] == kUnused) return;
  Refusal refusal = Locked(device);
  if (!refusal) refusal = set(device, attributes);
  LogAll(device, code, attributes, 2, 3, parameter, refusal);
}

}  // namespace

void WriteIdentification(Device& device, int code, const Attributes& attributes) {
  static constexpr std::array<std::uint16_t, 2> kLockCodes{0x0000, 0x0999};
  static constexpr WriteItem kTag{.attribute = 1, .names = {"tag"}};
  static constexpr WriteItem kLock{.attribute = 2, .names = {"writeLock"}, .check = CheckCodes, .codes = kLockCodes};
  // The tag counts where the device is unlocked before or after.
  const bool locked = device.Locked() && attributes[1] != "0999";
  ExecuteItem(device, code, 1, kTag, attributes, locked);
  ExecuteItem(device, code, 1, kLock, attributes, locked);
}

void WriteTablePoints(Device& device, int code, const Attributes& attributes) {
  constexpr std::size_t kEnable = 12;
  const bool given = std::any_of(attributes.begin(), attributes.begin() + kEnable,
                                 [](const std::string& text) { return text != kUnused; });
  if (!given) return;
  TablePoints table;
  Refusal refusal = Locked(device);
  if (!refusal) refusal = ParsePoints(attributes, table);
  if (!refusal && !table.violation.empty()) {
    device.Put("tableStatus", std::string(table.violation));
    refusal = table.violation == "02" ? "X does not rise" : "Y falls";
  }
  if (!refusal) {
    StoreTable(device, table);
    if (attributes[kEnable] == "Yes") {
      if (device.Code("linType") == 0x00) device.Put("linType", "01");
      if (device.Code("linType") == 0x0A) device.Put("linType", "F0");
    }
  }
  LogAll(device, code, attributes, 1, 13, "table", refusal);
}

void WriteBlockMode(Device& device, int code, const Attributes& attributes) {
  static constexpr std::array<std::uint16_t, 3> kTargets{kTargetAuto, kTargetMan, kTargetOutOfService};
  static constexpr WriteItem kTarget{.attribute = 3, .names = {"ai.target"}, .check = CheckCodes, .codes = kTargets};
  const int block = attributes[0][0] - '0';
  const bool locked = device.Locked();
  ExecuteItem(device, code, block, kTarget, attributes, locked);
  if (attributes[1] == kUnused) return;
  const std::string digits = ToCapitals(attributes[1]);
  Refusal refusal = locked ? Refusal(kRefusedLocked) : CheckForm(digits, Form::kS10);
  if (!refusal && device.Code(BlockName(block, "target")) != kTargetMan) refusal = "the block is not in manual mode";
  if (!refusal) {
    device.WriteOut(block, FloatAt(digits), static_cast<unsigned>(NumberOf(std::string_view(digits).substr(8))));
  }
  LogWrite(device, code, 2, BlockName(block, "out"), refusal);
}

void WriteChannelScale(Device& device, int code, const Attributes& attributes) {
  WriteChannel(device, code, attributes, "snsScale", SetChannelScale);
}

void WriteChannelUnit(Device& device, int code, const Attributes& attributes) {
  WriteChannel(device, code, attributes, "snsUnit", SetChannelUnit);
}

void WriteFactoryReset(Device& device, int code, const Attributes& attributes) {
  if (attributes[0] == kUnused) return;
  Refusal refusal = Locked(device);
  if (!refusal) refusal = CheckForm(attributes[0], Form::kE4);
  if (!refusal) {
    switch (NumberOf(attributes[0])) {
      case 0x0000:
        break;
      case 0x0001:
        device.ResetParameters();
        device.LeaveLink(Absence::kRestart);
        break;
      case 0x09CA:
        device.WarmStart();
        device.LeaveLink(Absence::kRestart);
        break;
      case 0x0A98:
        device.LeaveLink(Absence::kSearch);
        break;
      default:
        refusal = kRefusedCode;
    }
  }
  LogWrite(device, code, 1, "factoryReset", refusal);
}

}  // namespace htr60::sim
