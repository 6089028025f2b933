#pragma once

#include <string_view>

#include "text/decimal_text.h"
#include "text/fixed_text.h"

namespace htr60 {

using FractionBitText = FixedText<24>;

/// How the doubling of a fraction writes and reads its decimal texts.
struct FractionSeparators {
  char locale;            ///< with which numbers are written and read
  std::string_view text;  ///< put in front of the digits that go on; empty before any text had one
};

/// Up to 23 characters of `value`: its doubles are written as decimal texts of 15 digits, whose first characters are
/// the result and whose rest is what goes on. What this gives for a number that is not below 1, or below 1E-15, or
/// with another separator than the locale's is odd, and is what it has to give.
FractionBitText FractionBits(double value, FractionSeparators separators);
/// The same of a number read from text; throws where it is too large.
FractionBitText FractionBits(const DecimalText& value, FractionSeparators separators);

}  // namespace htr60
