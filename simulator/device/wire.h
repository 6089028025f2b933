#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace htr60::sim {

/// Form of a parameter on the wire: two digits a byte, most significant byte first.
enum class Form : std::uint8_t {
  kE2,    ///< enumeration of one byte
  kE4,    ///< enumeration of two bytes
  kU4,    ///< unit code
  kW4,    ///< word
  kD8,    ///< long
  kB6,    ///< mode record
  kX2,    ///< digits shown as they stand
  kX4,    ///< digits shown as they stand
  kF8,    ///< IEEE single
  kS10,   ///< float and status byte
  kP16,   ///< two floats
  kR22,   ///< upper and lower float, unit, decimal point byte
  kM12,   ///< status byte, float, enable byte
  kA128,  ///< sixteen floats
  kL16,   ///< alarm record of four words
  kT32,   ///< text of 32 bytes, padded with 00
  kT16,   ///< text of 16 bytes, padded with 00
  kT16b,  ///< text of 16 bytes, padded with blanks
};

constexpr std::size_t DigitsOf(Form form) {
  constexpr std::array<std::size_t, 18> kDigits{2, 4, 4, 4, 8, 6, 2, 4, 8, 10, 16, 22, 12, 128, 16, 64, 32, 32};
  return kDigits[static_cast<std::size_t>(form)];
}

/// Where the floats of a form stand: the position of the first, and how many follow one after the other.
struct FloatPlaces {
  std::size_t first = 0;
  std::size_t count = 0;
};
constexpr FloatPlaces FloatsOf(Form form) {
  switch (form) {
    case Form::kF8:
    case Form::kS10:
      return {0, 1};
    case Form::kP16:
    case Form::kR22:
      return {0, 2};
    case Form::kM12:
      return {2, 1};
    case Form::kA128:
      return {0, 16};
    default:
      return {};
  }
}

/// The nearest single, ties to even, as eight capital digits. Zeros lose their sign, values beyond the range of a
/// single become its ends, values too small for a normal single become zero.
std::string FloatDigits(double value);
/// The single at `position` of `digits`, 0 where the digits end before it.
double FloatAt(std::string_view digits, std::size_t position = 0);
/// The shortest decimal number that rounds to this single: 37.4 for 4215999A.
double DecimalOf(double single);

/// `value` as `width` capital digits.
std::string NumberDigits(std::uint64_t value, std::size_t width);
/// The number of hexadecimal digits `digits` (at most 16), which must all be digits.
std::uint64_t NumberOf(std::string_view digits);

bool IsHexadecimal(std::string_view text);
std::string ToCapitals(std::string_view text);

/// `bytes` bytes of text, cut or padded with `padding`.
std::string TextDigits(std::string_view text, std::size_t bytes, char padding = '\0');
/// The bytes of a text parameter up to its padding.
std::string TextOf(std::string_view digits);

std::string PairDigits(double first, double second);
std::string ValueStatusDigits(double value, unsigned status);
/// A SCALING record with the decimal point byte 00.
std::string ScaleDigits(double upper, double lower, std::string_view unit);

}  // namespace htr60::sim
