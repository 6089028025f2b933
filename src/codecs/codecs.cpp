#include "codecs/codecs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "text/hex_digits.h"

namespace htr60 {
namespace {

constexpr int kMaxDecimals = 15;

constexpr std::array<double, kMaxDecimals + 1> kPowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                            1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Rounds `magnitude` times 10 to the power of `decimals`, as the C library prints it. False for a large number, and
/// where the product is a half: its own rounding cannot pass a half, but may have led to it.
bool RoundScaled(double magnitude, int decimals, std::uint64_t& rounded) {
  constexpr double kLargest = 1e12;
  const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (!(scaled < kLargest)) return false;
  const auto whole = static_cast<std::uint64_t>(scaled);
  const double rest = scaled - static_cast<double>(whole);
  if (rest == 0.5) return false;
  rounded = whole + (rest > 0.5 ? 1 : 0);
  return true;
}

FormattedNumber FormatExactly(double value, int decimals, char separator) {
  if (!std::isfinite(value)) throw RuntimeFailure("not a finite number");
  std::array<char, 352> buffer;
  char* const end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value), std::chars_format::fixed, decimals)
          .ptr;
  const std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  FormattedNumber text;
  if (value < 0 && digits.find_first_not_of("0.") != std::string_view::npos) text.Append('-');
  const std::size_t point = digits.find('.');
  text.Append(digits.substr(0, point));
  if (decimals > 0) text.Append(separator).Append(digits.substr(point + 1));
  return text;
}

// Inlined, as the usual number of decimals is a constant.
inline FormattedNumber Format(double value, int decimals, char separator) {
  std::uint64_t scaled = 0;
  if (!RoundScaled(std::abs(value), decimals, scaled)) return FormatExactly(value, decimals, separator);
  std::array<char, 32> buffer;
  char* const end = buffer.data() + buffer.size();
  char* first = end;
  const bool negative = value < 0 && scaled != 0;
  const auto digit = [&] {
    *--first = static_cast<char>('0' + scaled % 10);
    scaled /= 10;
  };
  for (int i = 0; i < decimals; ++i) digit();
  if (decimals > 0) *--first = separator;
  do digit();
  while (scaled != 0);
  if (negative) *--first = '-';
  return FormattedNumber({first, static_cast<std::size_t>(end - first)});
}

}  // namespace

FormattedNumber Codecs::FormatValue(double value) const { return Format(value, 3, separator_); }

FormattedNumber Codecs::FormatDecimals(double value, int decimals) const {
  return Format(value, std::clamp(decimals, 0, kMaxDecimals), separator_);
}

FixedText<8> Codecs::IntToHex(std::int32_t value, int minDigits) {
  auto bits = static_cast<std::uint32_t>(value);
  std::array<char, 8> buffer;
  std::size_t first = buffer.size();
  const auto most = buffer.size() - static_cast<std::size_t>(std::clamp(minDigits, 1, 8));
  while (bits != 0 || first > most) {
    buffer[--first] = kHexDigits[bits & 15U];
    bits >>= 4U;
  }
  return FixedText<8>({buffer.data() + first, buffer.size() - first});
}

}  // namespace htr60
