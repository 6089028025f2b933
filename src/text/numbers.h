#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/fixed_text.h"

namespace htr60 {

using NumberText = FixedText<32>;

/// Reads a number from the start of `text` and ignores the rest: blanks, a sign, digits, "." in every locale, an
/// exponent, or "&H" and hexadecimal digits. 0 where nothing fits; too large a number is infinite. Never fails.
double ParseLeadingNumber(std::string_view text) noexcept;

/// Reads the whole `text` as a number of the locale. The other of "," and "." is a group separator and passed over as
/// long as the decimal separator has not come; blanks around the number, a sign and an exponent are accepted. Throws.
double ParseLocaleNumber(std::string_view text, char decimalSeparator);
/// The same; none where it would throw.
std::optional<double> FindLocaleNumber(std::string_view text, char decimalSeparator);

/// At most 15 significant digits, no trailing zeros; plain while that needs at most 15 decimals and the value is below
/// 1E15, else with an exponent of at least two digits ("1.00000004749745E-03"). Throws for what is no finite number.
NumberText NumberToText(double value, char decimalSeparator);

/// Hexadecimal digits, either case, as a two's complement number: "FFFFFFFF" is -1, "FFFF" is 65535 as 32 and -1 as 16
/// bits. Throws for an empty text, another character, or more significant digits than fit.
std::int32_t HexNumber32(std::string_view digits);
std::int16_t HexNumber16(std::string_view digits);

/// Nearest integer, ties to even; throws where it does not fit.
std::int32_t RoundToInt32(double value);

}  // namespace htr60
