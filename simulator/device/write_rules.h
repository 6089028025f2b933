#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "simulator/device/writes.h"

namespace htr60::sim {

/// Why something is refused; none: accepted.
using Refusal = std::optional<std::string_view>;

struct WriteItem;

/// One item of a write on its way: the new digits of its parameters, the present ones where nothing is given.
struct WriteContext {
  Device& device;
  const WriteItem& item;
  int code = 0;
  int block = 1;
  std::array<std::string, 5> names;
  std::array<std::string, 5> digits;

  double Number(std::size_t i, std::size_t position = 0) const { return FloatAt(digits[i], position); }
  std::uint64_t Code(std::size_t i) const { return NumberOf(digits[i]); }
};

using Check = Refusal (*)(const WriteContext&);
using Effect = void (*)(const WriteContext&);

/// How the digits of an attribute become those of the parameter.
enum class Shape : std::uint8_t {
  kForm,      ///< exactly the digits of the parameter's form
  kMnemonic,  ///< bytes, padded and cut
  kLong,      ///< two to eight digits
  kTwelve,    ///< the first twelve floats of the array
};

/// One parameter of a write, or several that are judged together: their attributes stand one after the other.
struct WriteItem {
  std::size_t attribute = 1;
  std::array<std::string_view, 5> names{};  ///< "ai." and "lcd." stand for the block and monitor of the write
  Check check = nullptr;
  Effect effect = nullptr;  ///< none: the digits are stored
  std::span<const std::uint16_t> codes{};
  double least = 0, most = 0;
  int since = 100;  ///< before this firmware the attribute is passed over
  Shape shape = Shape::kForm;
  bool always = false;  ///< acts also where nothing changes

  constexpr std::size_t Count() const {
    std::size_t count = 0;
    while (count < names.size() && !names[count].empty()) ++count;
    return count;
  }
};

using Gate = Refusal (*)(const Device&);
using Command = void (*)(Device&, int code, const Attributes&);

/// One attribute of a command: what it stands for.
struct WriteOperand {
  std::size_t attribute = 1;
  std::string_view name{};  ///< as in an item; "points" for pairs of points
};

struct WriteRow {
  int code = 0;
  std::span<const WriteItem> items{};
  bool block = false;                        ///< `Attribute1` is the block
  Gate gate = nullptr;                       ///< refuses the whole write
  Command command = nullptr;                 ///< instead of items
  std::span<const WriteOperand> operands{};  ///< of a command
};

const WriteRow* FindWrite(int code);
std::span<const WriteRow> WriteRows();

// Checks of items.
Refusal CheckCodes(const WriteContext& c);
Refusal CheckRange(const WriteContext& c);
Refusal CheckLinType(const WriteContext& c);
Refusal CheckInScale(const WriteContext& c);
Refusal CheckOutScale(const WriteContext& c);
Refusal CheckVolScale(const WriteContext& c);
Refusal CheckTemperatureUnit(const WriteContext& c);
Refusal CheckPressureUnit(const WriteContext& c);
Refusal CheckAlarms(const WriteContext& c);
Refusal CheckSimulation(const WriteContext& c);
Refusal CheckBlockScale(const WriteContext& c);
Refusal CheckPressureOffset(const WriteContext& c);
Refusal CheckSerial(const WriteContext& c);
Refusal CheckAzReference(const WriteContext& c);
Refusal CheckAzBand(const WriteContext& c);
Refusal CheckAzTime(const WriteContext& c);
Refusal CheckDeadBand(const WriteContext& c);
Refusal CheckUpperAbove(const WriteContext& c);
Refusal CheckSelector(const WriteContext& c);
Refusal CheckAiConfig(const WriteContext& c);
Refusal GateDensityScale(const Device& device);
Refusal GateAlways(const Device& device);

// Side effects of items.
void PutAll(const WriteContext& c);
void ApplyPvType(const WriteContext& c);
void ApplyInScale(const WriteContext& c);
void ApplyScaleCopy(const WriteContext& c);
void ApplyTemperatureUnit(const WriteContext& c);
void ApplySensorUnit(const WriteContext& c);
void ApplyMeasuredType(const WriteContext& c);
void ApplyDensityRange(const WriteContext& c);
void ApplyAiConfig(const WriteContext& c);
void ApplyRange(const WriteContext& c);
void ApplyModel(const WriteContext& c);
void ApplySolidLimits(const WriteContext& c);
void ApplyCompensation(const WriteContext& c);
void ApplyAutoZero(const WriteContext& c);

// Writes that are more than items.
void WriteIdentification(Device& device, int code, const Attributes& attributes);
void WriteTablePoints(Device& device, int code, const Attributes& attributes);
void WriteBlockMode(Device& device, int code, const Attributes& attributes);
void WriteChannelScale(Device& device, int code, const Attributes& attributes);
void WriteChannelUnit(Device& device, int code, const Attributes& attributes);
void WriteTrim(Device& device, int code, const Attributes& attributes);
void WriteWithoutReference(Device& device, int code, const Attributes& attributes);
void WriteTemperatureTrim(Device& device, int code, const Attributes& attributes);
void WriteDensityPoint(Device& device, int code, const Attributes& attributes);
void WriteMeasuredType(Device& device, int code, const Attributes& attributes);
void WriteCharOperation(Device& device, int code, const Attributes& attributes);
void WriteCharPoints(Device& device, int code, const Attributes& attributes);
void WriteBackupRestore(Device& device, int code, const Attributes& attributes);
void WriteFactoryReset(Device& device, int code, const Attributes& attributes);

/// Logs what became of an attribute.
void LogWrite(Device& device, int code, std::size_t attribute, std::string_view parameter, const Refusal& refusal);
/// Judges one item by its attributes and carries it out; `locked` refuses everything but the write lock itself.
/// The answer tells whether it was accepted; an item without operands is neither judged nor logged.
Refusal ExecuteItem(Device& device, int code, int block, const WriteItem& item, const Attributes& attributes,
                    bool locked);
/// Digits of a form: their number, hexadecimal characters, finite floats.
Refusal CheckForm(std::string_view digits, Form form);

inline constexpr std::string_view kRefusedLocked = "write locked";
inline constexpr std::string_view kRefusedDigits = "wrong digits";
inline constexpr std::string_view kRefusedCode = "code not listed";
inline constexpr std::string_view kRefusedRange = "out of range";
inline constexpr std::string_view kRefusedUnit = "unit not allowed";
inline constexpr std::string_view kRefusedEqual = "upper and lower value are equal";
inline constexpr std::string_view kRefusedType = "not for this primary value type";
inline constexpr std::string_view kRefusedFirmware = "unknown to this firmware";

}  // namespace htr60::sim
