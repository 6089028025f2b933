#pragma once

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

constexpr int DigitCount(std::uint64_t value) {
  int count = 1;
  while (value >= 10) {
    value /= 10;
    ++count;
  }
  return count;
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
