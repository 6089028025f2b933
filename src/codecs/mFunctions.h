#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "text/fixed_text.h"

namespace htr60 {

// Record readers. `hex` holds two digits a byte, most significant byte first, the members of a record one after the
// other. Each reader stops at the first piece that it cannot read, or that does not fit; outputs from there on keep
// their values. A floating-point piece is always read (see `HexToFloat`). Nothing is reported.

/// Two bytes: 0 to 65535.
void HexToWord(std::string_view hex, std::int32_t& word) noexcept;
/// Four bytes; from 80000000 up the number does not fit.
void HexToLong(std::string_view hex, std::int32_t& number) noexcept;
/// Four words of two bytes; from 8000 up a word does not fit.
void HexToFourWords(std::string_view hex, std::int16_t& first, std::int16_t& second, std::int16_t& third,
                    std::int16_t& fourth) noexcept;
void HexToThreeBytes(std::string_view hex, std::int32_t& first, std::int32_t& second, std::int32_t& third) noexcept;
std::array<double, 2> HexToTwoFloats(std::string_view hex) noexcept;
void HexToFloatArray(std::string_view hex, std::array<double, 16>& values) noexcept;
/// A byte, eight digits of a number, a byte.
void HexToSimulation(std::string_view hex, std::int32_t& first, double& value, std::int32_t& last) noexcept;
/// One 16-bit word at the 1-based character `position`; false, and `word` unchanged, where it cannot be read or is
/// 8000 or more.
bool HexToWordAt(std::string_view hex, int position, std::int16_t& word) noexcept;
/// One byte at the 1-based character `position`; false, and `byte` unchanged, where it cannot be read.
bool HexToByteAt(std::string_view hex, int position, std::int32_t& byte) noexcept;
/// `HexToFloat` of the eight characters from the 1-based character `position`.
double HexToFloatAt(std::string_view hex, int position) noexcept;

/// Text of at most 50 character codes. The first code that is no accepted character ends it.
FixedText<50> HexToTextField(std::string_view hex) noexcept;
/// As `HexToTextField`, but "%" is not accepted, and what is not accepted is passed over.
FixedText<50> HexToTextFieldStrict(std::string_view hex) noexcept;

/// Windows-1252 codes of the characters of a UTF-8 text in hexadecimal, without leading zeros, then "00" up to 32
/// bytes. A character without such a code counts as "?".
InlineText TextToHex32(std::string_view utf8);
/// The same of at most 24 characters, then "00" up to 16 bytes; the empty text gives "".
InlineText TextToHexPadded(std::string_view utf8);
/// `TextToHexPadded`.
InlineText MnemonicToHex(std::string_view utf8);

}  // namespace htr60
