#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace htr60 {

inline constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// Value of a hexadecimal digit by its character, -1 for another.
inline constexpr std::array<std::int8_t, 256> kHexValues = [] {
  std::array<std::int8_t, 256> values{};
  values.fill(-1);
  for (int digit = 0; digit < 16; ++digit) {
    const auto upper = static_cast<unsigned char>(kHexDigits[static_cast<std::size_t>(digit)]);
    values[upper] = static_cast<std::int8_t>(digit);
    if (digit > 9) values[upper + std::size_t{'a' - 'A'}] = static_cast<std::int8_t>(digit);
  }
  return values;
}();

constexpr int HexValue(char character) { return kHexValues[static_cast<unsigned char>(character)]; }

/// Digits of every byte, one after the other.
inline constexpr std::array<char, 512> kByteDigits = [] {
  std::array<char, 512> digits{};
  for (std::size_t byte = 0; byte < 256; ++byte) {
    digits[2 * byte] = kHexDigits[byte >> 4U];
    digits[2 * byte + 1] = kHexDigits[byte & 15U];
  }
  return digits;
}();

}  // namespace htr60
