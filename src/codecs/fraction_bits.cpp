#include "codecs/fraction_bits.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "text/numbers.h"

namespace htr60 {
namespace {

constexpr int kBits = 23;
// Beyond these powers of ten a double no longer carries 15 digits, or overflows on the way.
constexpr int kLeastExponent = -280;
constexpr int kMostExponent = 250;

bool InRange(const Decimal15& value) { return value.exponent >= kLeastExponent && value.exponent <= kMostExponent; }

/// Twice the number, rounded to 15 digits. The same as doubling the nearest double and writing it: twice a number of
/// 15 digits is even in the 16th, so it never stands near a half.
void Double(Decimal15& value) {
  value.digits *= 2;
  if (value.digits >= kTenTo15) {
    value.digits = (value.digits + 5) / 10;
    ++value.exponent;
  }
  StripZeros(value);
}

/// Takes the first character off the text of `value` and leaves in `value` what its text from the third character on
/// reads as after "0" and the separator: a fraction where that is the locale's, else a whole number. False where
/// nothing is left, or what is left is no number.
bool TakeFirst(Decimal15& value, bool readsAsFraction, char& first) {
  const int count = DigitCount(value.digits);
  const int point = count + value.exponent;  // digits in front of the separator
  const std::uint64_t top = TenTo(count - 1);
  first = static_cast<char>('0' + value.digits / top);
  if (point > 15 || value.exponent < -15) {  // "d.ddE-dd"
    value.digits %= top;
    if (!readsAsFraction) value.exponent = point - 1;
    return true;  // of one digit nothing is left: the sign of the exponent stands third, which is no number
  }
  if (point <= 1) {  // "d", "d.dd" or "0.dd"
    if (point <= 0) {
      first = '0';
    } else {
      value.digits %= top;
      if (value.exponent == 0) return false;
    }
    if (!readsAsFraction) value.exponent = 0;
    return true;
  }
  if (value.exponent < 0) {  // "dd.dd": a second separator would stand in the text
    value.digits %= count > 2 ? TenTo(count - 2) : 1;
    return !readsAsFraction;
  }
  value.digits = value.digits * TenTo(value.exponent) % TenTo(point - 2);
  value.exponent = readsAsFraction ? 2 - point : 0;
  return true;
}

/// The bits of a number of 15 digits, after those in `bits`. False where the numbers leave the range.
bool BitsOfDecimal(Decimal15 value, bool readsAsFraction, bool alreadyDoubled, FractionBitText& bits) {
  while (value.digits != 0 && bits.size() < kBits) {
    if (!InRange(value)) return false;
    if (!alreadyDoubled) Double(value);
    alreadyDoubled = false;
    char first = 0;
    const bool goesOn = TakeFirst(value, readsAsFraction, first);
    bits.Append(first);
    if (!goesOn) break;
    StripZeros(value);
  }
  return true;
}

/// The plain way, for numbers at the edges of what a double holds.
FractionBitText BitsByText(double value, FractionSeparators separators) {
  FractionBitText bits;
  try {
    while (value > 0 && bits.size() < kBits) {
      const NumberText doubled = NumberToText(value * 2, separators.locale);
      bits.Append(doubled.View().front());
      if (doubled.size() == 1) break;
      FixedText<40> rest;
      rest.Append('0').Append(separators.text).Append(doubled.View().substr(2));
      value = ParseLocaleNumber(rest, separators.locale);
    }
  } catch (const RuntimeFailure&) {
    // What is left is no number: the bits so far stand.
  }
  return bits;
}

bool ReadsAsFraction(FractionSeparators separators) {
  return !separators.text.empty() && separators.text.front() == separators.locale;
}

}  // namespace

FractionBitText FractionBits(double value, FractionSeparators separators) {
  FractionBitText bits;
  const double doubled = value * 2;
  if (!(value > 0) || !std::isfinite(doubled)) return bits;
  const Decimal15 decimal = ToDecimal15(doubled);
  if (BitsOfDecimal(decimal, ReadsAsFraction(separators), true, bits)) return bits;
  return BitsByText(value, separators);
}

FractionBitText FractionBits(const DecimalText& value, FractionSeparators separators) {
  if (value.count <= 15 && value.exponent >= kLeastExponent && value.exponent <= kMostExponent) {
    Decimal15 decimal{value.digits, static_cast<int>(value.exponent)};
    StripZeros(decimal);
    FractionBitText bits;
    if (!value.negative && BitsOfDecimal(decimal, ReadsAsFraction(separators), false, bits)) return bits;
  }
  const double number = ToDouble(value);
  if (std::isinf(number)) throw RuntimeFailure("fraction too large");
  return FractionBits(number, separators);
}

}  // namespace htr60
