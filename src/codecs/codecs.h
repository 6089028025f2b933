#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "codecs/ModFloatIeee.h"
#include "codecs/mFunctions.h"
#include "text/fixed_text.h"
#include "text/numbers.h"

namespace htr60 {

/// A number in a display format: room for every double.
using FormattedNumber = FixedText<352>;

/// The codecs that need the operator's locale or the float codec's memory. One object a control.
class Codecs {
 public:
  explicit Codecs(char decimalSeparator) noexcept : separator_(decimalSeparator), float_(decimalSeparator) {}

  char DecimalSeparator() const noexcept { return separator_; }
  FloatCodec& Float() noexcept { return float_; }
  const FloatCodec& Float() const noexcept { return float_; }

  /// See `FloatCodec::FloatToHex`; throws.
  FixedText<8> FloatToHex(std::string_view text) { return float_.FloatToHex(text); }

  /// "###0.000". No minus sign before a zero. Throws for what is no finite number.
  FormattedNumber FormatValue(double value) const;
  /// The same with 0 to 15 decimals.
  FormattedNumber FormatDecimals(double value, int decimals) const;
  NumberText NumberToText(double value) const { return htr60::NumberToText(value, separator_); }
  double ParseLocaleNumber(std::string_view text) const { return htr60::ParseLocaleNumber(text, separator_); }
  /// A field's text taken as a whole number: ties to even; throws for what is no number or does not fit.
  std::int32_t TextToInt32(std::string_view text) const { return RoundToInt32(ParseLocaleNumber(text)); }
  /// Upper-case digits, at least `minDigits` (0 to 8); a negative number gives its eight two's complement digits.
  static FixedText<8> IntToHex(std::int32_t value, int minDigits = 0);

  // Record readers that set fields: `Field` has `SetText(std::string_view)`. Numbers are shown by `FormatValue`.

  /// Two numbers of eight digits.
  template <class Field>
  void HexToFloatPair(std::string_view hex, Field& first, Field& second) const {
    const std::array<double, 2> values = HexToTwoFloats(hex);
    first.SetText(FormatValue(values[0]));
    second.SetText(FormatValue(values[1]));
  }
  /// High value, low value, unit code; the code stays where it cannot be read or is 8000 or more.
  template <class Field>
  void HexToScale(std::string_view hex, Field& high, Field& low, std::int16_t& unit) const {
    HexToFloatPair(hex, high, low);
    HexToWordAt(hex, 17, unit);
  }
  /// Value and status byte; the status stays where it cannot be read.
  template <class Field>
  void HexToFloatStatus(std::string_view hex, Field& value, std::int32_t& status) const {
    value.SetText(FormatValue(HexToFloatAt(hex, 1)));
    HexToByteAt(hex, 9, status);
  }

 private:
  char separator_;
  FloatCodec float_;
};

}  // namespace htr60
