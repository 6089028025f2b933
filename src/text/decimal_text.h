#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace htr60 {

inline constexpr char kBlank = ' ';

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }

/// A decimal number as it was read: digits times 10 to the power of the exponent.
struct DecimalText {
  static constexpr int kMaxDigits = 19;

  std::string_view mantissa;  ///< from the first to the last digit, with what stands between
  bool negative = false;
  std::uint64_t digits = 0;   ///< the first `kMaxDigits` significant digits
  std::int64_t count = 0;     ///< significant digits in all
  std::int64_t exponent = 0;  ///< of the last significant digit
};

/// Reads `text` as `ParseLocaleNumber` does; false where it is no number.
bool ReadLocaleNumber(std::string_view text, char decimalSeparator, DecimalText& number) noexcept;

/// The nearest double; infinite where it is too large.
double ToDouble(const DecimalText& number) noexcept;

/// A number of at most 15 significant digits.
struct Decimal15 {
  std::uint64_t digits = 0;  ///< no trailing zeros
  int exponent = 0;          ///< of the last digit
};

inline constexpr std::uint64_t kTenTo15 = 1'000'000'000'000'000;

inline constexpr std::array<std::uint64_t, 16> kTens = [] {
  std::array<std::uint64_t, 16> tens{};
  std::uint64_t power = 1;
  for (std::uint64_t& ten : tens) {
    ten = power;
    power *= 10;
  }
  return tens;
}();

/// Ten to the power of 0 to 15.
constexpr std::uint64_t TenTo(int power) { return kTens[static_cast<std::size_t>(power)]; }

/// Decimal digits of a value from 1 to below 10 to the 15th.
constexpr int DigitCount(std::uint64_t value) {
  // 1233 / 4096 is a little less than the logarithm of 2.
  const int atLeast = static_cast<int>(std::bit_width(value)) * 1233 / 4096;
  return atLeast + (value >= TenTo(atLeast) ? 1 : 0);
}

constexpr void StripZeros(Decimal15& value) {
  while (value.digits != 0 && value.digits % 10 == 0) {
    value.digits /= 10;
    ++value.exponent;
  }
}

/// `value`, positive and finite, rounded to 15 significant digits.
Decimal15 ToDecimal15(double value) noexcept;

}  // namespace htr60
