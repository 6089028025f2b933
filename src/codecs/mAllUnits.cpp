#include "codecs/mAllUnits.h"

#include <array>
#include <cstddef>

#include "codecs/unit_tables.h"
#include "text/hex_digits.h"
#include "text/text_map.h"

namespace htr60 {
namespace {

constexpr std::int32_t kFirstCode = kUnitCodeRows.front().code;
constexpr std::int32_t kLastCode = kUnitCodeRows.back().code;

constexpr auto kTexts = [] {
  std::array<std::string_view, kLastCode - kFirstCode + 1> texts{};
  for (const UnitCodeRow& row : kUnitCodeRows) texts[static_cast<std::size_t>(row.code - kFirstCode)] = row.text;
  return texts;
}();

constexpr TextMap kRowOfText(kUnitListRows);
constexpr TextMap kCodeRowOfText(kUnitCodeRows);
constexpr TextMap kWritesRowOfText(kUnitWrites);

using CodeDigits = std::array<char, 4>;

constexpr CodeDigits DigitsOf(std::int32_t code) {
  const auto high = static_cast<std::size_t>(code / 256);
  const auto low = static_cast<std::size_t>(code % 256);
  return {kByteDigits[2 * high], kByteDigits[2 * high + 1], kByteDigits[2 * low], kByteDigits[2 * low + 1]};
}

/// What each row of the full list is written as.
constexpr auto kDigits = [] {
  std::array<CodeDigits, kUnitListRows.size()> digits{};
  for (std::size_t i = 0; i < digits.size(); ++i) {
    const std::size_t own = kWritesRowOfText.Find(kUnitListRows[i]);
    if (own < kUnitWrites.size()) {
      for (std::size_t k = 0; k < 4; ++k) digits[i][k] = kUnitWrites[own].value[k];
    } else {
      digits[i] = DigitsOf(kUnitCodeRows[kCodeRowOfText.Find(kUnitListRows[i])].code);
    }
  }
  return digits;
}();

}  // namespace

std::string_view UnitCodeToText(std::int32_t code) noexcept {
  if (code < kFirstCode || code > kLastCode) return {};
  return kTexts[static_cast<std::size_t>(code - kFirstCode)];
}

std::string_view UnitTextToCode(std::string_view text) noexcept {
  const std::size_t row = kRowOfText.Find(text);
  if (row == kUnitListRows.size()) return {};
  return {kDigits[row].data(), kDigits[row].size()};
}

std::span<const std::string_view> UnitListRows() noexcept { return kUnitListRows; }
std::span<const std::string_view> VolumeUnitListRows() noexcept { return kVolumeUnitListRows; }
std::span<const std::string_view> LengthUnitListRows() noexcept { return kLengthUnitListRows; }
std::span<const std::string_view> DensityUnitListRows() noexcept { return kDensityUnitListRows; }

}  // namespace htr60
