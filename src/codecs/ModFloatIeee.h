#pragma once

#include <cstdint>
#include <string_view>

#include "text/fixed_text.h"

namespace htr60 {

/// The number of eight hexadecimal digits: sign, exponent (bias 127), 23 fraction bits, the power of two rounded to 15
/// significant digits. "00000000" alone is 0; there is no case for denormal numbers, infinities or NaN. A digit pair
/// that is missing or no hexadecimal number counts as far as it can be read, else as 0. Never fails.
double HexToFloat(std::string_view hex) noexcept;

/// Writes decimal text as eight hexadecimal digits. Bits are cut off, never rounded, and counted from the binary point,
/// so a number below 1 has fewer than 23 significant ones; the device expects them so. The codec remembers four texts:
/// a text without a "1" bit reuses the exponent of the one before.
class FloatCodec {
 public:
  using BitText = FixedText<64>;
  using FractionBitText = FixedText<24>;
  using ExponentText = BitText;
  using MantissaText = FixedText<92>;  // 23 characters of up to four bytes

  /// `localeSeparator` is the decimal separator of the operator's locale: '.' or ','.
  explicit FloatCodec(char localeSeparator) noexcept : localeSeparator_(localeSeparator) {}

  /// `text` is a decimal number in the locale's form. Throws where its integer part does not fit 32 bits or its
  /// fraction is no number; what the texts had become stays.
  FixedText<8> FloatToHex(std::string_view text);

  /// Eight bits of 0 to 255, the most significant first.
  static FixedText<8> ByteToBits(int byte);
  /// Bits of the integer part of a text without sign; sets the fraction text and the separator. Throws.
  BitText IntegerPartToBits(std::string_view text);
  /// Bits, the most significant first; "0" for a value below 1.
  static BitText IntegerToBits(std::int64_t value);
  /// Up to 23 characters, for a number from 0 to 1; a number outside, or one with the locale's other separator, may
  /// give digits other than bits.
  FractionBitText FractionToBits(double value) const;
  /// `text` is "<integer bits>.<fraction bits>"; sets the exponent and mantissa texts.
  void NormalizeMantissa(std::string_view text);
  /// One digit of four characters; a missing one counts as 0, a value above 14 as "F".
  static char BitsToHexDigit(std::string_view text) noexcept;

  std::string_view FractionText() const noexcept { return fractionText_; }
  /// "," or "." as the last text that had one; empty before.
  std::string_view DecimalSeparator() const noexcept { return {&separator_, separator_ == 0 ? 0U : 1U}; }
  ExponentText ExponentBits() const;
  MantissaText MantissaBits() const;

 private:
  bool EncodePlain(bool negative, std::string_view magnitude, FixedText<8>& hex);
  FractionBitText FractionTextToBits() const;
  void SetExponent(std::int64_t exponent) noexcept;
  void SetMantissa(std::string_view workingText);
  FixedText<8> Join(bool negative) const;

  char localeSeparator_;
  char separator_ = 0;  // 0: no text had one yet
  bool exponentKnown_ = false;
  bool mantissaKnown_ = false;
  std::int64_t exponent_ = 0;   // stands for the characters of the exponent text
  std::uint32_t mantissa_ = 0;  // stands for those of the mantissa text, unless they are in mantissaText_
  MantissaText mantissaText_;   // where a character is no bit, else empty
  InlineText fractionText_;
};

}  // namespace htr60
