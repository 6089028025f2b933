#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "codecs/mFunctions.h"
#include "shell/user_cntrl.h"
#include "text/utf8.h"

/// Fields of digits: serial numbers, and hexadecimal digits that travel as they are typed.
namespace htr60::pages {

/// A serial number as a decimal text; 0 where the digits cannot be read.
inline std::string SerialNumberText(std::string_view digits) {
  std::int32_t number = 0;
  HexToLong(digits, number);
  return std::to_string(number);
}

/// At least eight digits of a field's decimal number; throws for what is no number.
inline InlineText SerialNumberDigits(UserCntrl& c, TextId field) {
  return Codecs::IntToHex(c.codecs.TextToInt32(c.form.At(field).Text()), 8);
}

/// Zeros before a text that is shorter than `width` characters. An empty one stays empty, a longer one as it is.
inline InlineText WithLeadingZeros(std::string_view typed, std::size_t width) {
  InlineText digits;
  if (typed.empty()) return digits;
  for (; width > 1 && !HasCharacters(typed, width); --width) digits.Append('0');
  return digits.Append(typed);
}

}  // namespace htr60::pages
