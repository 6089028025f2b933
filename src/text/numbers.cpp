#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

#include "text/decimal_text.h"
#include "text/hex_digits.h"

namespace htr60 {
namespace {

constexpr std::array<double, 23> kExactPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t kExactIntegers = std::uint64_t{1} << 53U;
constexpr std::int64_t kExponentLimit = 1'000'000'000;  // far beyond every double and every text

/// Reads the digits of a mantissa one after the other.
class MantissaReader {
 public:
  void Digit(char digit) {
    ++seen_;
    if (afterPoint_) --exponent_;
    if (count_ == 0 && digit == '0') return;
    if (count_ < DecimalText::kMaxDigits) digits_ = digits_ * 10 + static_cast<std::uint64_t>(digit - '0');
    ++count_;
  }
  void Point() { afterPoint_ = true; }
  bool AfterPoint() const { return afterPoint_; }
  bool Any() const { return seen_ > 0; }

  DecimalText Number(bool negative, std::string_view mantissa, std::int64_t exponent) const {
    return {mantissa, negative, digits_, count_, exponent_ + exponent};
  }

 private:
  bool afterPoint_ = false;
  std::int64_t seen_ = 0;
  std::uint64_t digits_ = 0;
  std::int64_t count_ = 0;
  std::int64_t exponent_ = 0;
};

bool TakeSign(std::string_view& text) {
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
  const bool negative = text.front() == '-';
  text.remove_prefix(1);
  return negative;
}

void SkipBlanks(std::string_view& text) {
  while (!text.empty() && text.front() == kBlank) text.remove_prefix(1);
}

/// Takes an exponent off the front of `text`; leaves `text` as it is where none stands there.
std::int64_t TakeExponent(std::string_view& text) {
  if (text.empty() || (text.front() != 'E' && text.front() != 'e')) return 0;
  std::string_view rest = text.substr(1);
  const bool negative = TakeSign(rest);
  if (rest.empty() || !IsDigit(rest.front())) return 0;
  std::int64_t exponent = 0;
  while (!rest.empty() && IsDigit(rest.front())) {
    exponent = std::min(exponent * 10 + (rest.front() - '0'), kExponentLimit);
    rest.remove_prefix(1);
  }
  text = rest;
  return negative ? -exponent : exponent;
}

double LeadingHexNumber(std::string_view text) {
  double value = 0;
  for (const char character : text) {
    const int digit = HexValue(character);
    if (digit < 0) break;
    value = value * 16 + digit;
  }
  return value;
}

/// More digits than a word holds: the digits are written out for the library, those beyond the longest exact double
/// as one.
double LongToDouble(const DecimalText& number) {
  constexpr std::size_t kKept = 800;
  std::array<char, kKept + 32> buffer;
  std::size_t size = 0;
  bool more = false;
  for (const char character : number.mantissa) {
    if (!IsDigit(character) || (size == 0 && character == '0')) continue;
    if (size < kKept) {
      buffer[size++] = character;
    } else {
      more = more || character != '0';
    }
  }
  std::int64_t exponent = number.exponent + number.count - static_cast<std::int64_t>(size);
  if (more) {
    buffer[size++] = '1';
    --exponent;
  }
  const std::int64_t leading = exponent + static_cast<std::int64_t>(size);
  if (leading > 400) return std::numeric_limits<double>::infinity();
  if (leading < -400) return 0;
  buffer[size++] = 'E';
  char* const end = std::to_chars(buffer.data() + size, buffer.data() + buffer.size(), exponent).ptr;
  double value = 0;
  const std::from_chars_result result = std::from_chars(buffer.data(), end, value);
  if (result.ec == std::errc::result_out_of_range) return leading > 0 ? std::numeric_limits<double>::infinity() : 0;
  return value;
}

std::uint32_t HexDigitsToBits(std::string_view digits, std::size_t most) {
  std::uint32_t bits = 0;
  std::size_t significant = 0;
  for (const char character : digits) {
    const int digit = HexValue(character);
    if (digit < 0) throw RuntimeFailure("not a hexadecimal digit");
    if ((significant > 0 || digit > 0) && ++significant > most) throw RuntimeFailure("too many hexadecimal digits");
    bits = bits << 4U | static_cast<std::uint32_t>(digit);
  }
  if (digits.empty()) throw RuntimeFailure("no hexadecimal digit");
  return bits;
}

}  // namespace

bool ReadLocaleNumber(std::string_view text, char decimalSeparator, DecimalText& number) noexcept {
  const char groupSeparator = decimalSeparator == ',' ? '.' : ',';
  SkipBlanks(text);
  while (!text.empty() && text.back() == kBlank) text.remove_suffix(1);
  const bool negative = TakeSign(text);
  const std::string_view whole = text;
  MantissaReader reader;
  for (; !text.empty(); text.remove_prefix(1)) {
    const char character = text.front();
    if (IsDigit(character)) {
      reader.Digit(character);
    } else if (reader.AfterPoint() || (character != decimalSeparator && character != groupSeparator)) {
      break;
    } else if (character == decimalSeparator) {
      reader.Point();
    }
  }
  const std::string_view mantissa = whole.substr(0, whole.size() - text.size());
  if (!reader.Any()) return false;
  const std::int64_t exponent = TakeExponent(text);
  number = reader.Number(negative, mantissa, exponent);
  return text.empty();
}

double ToDouble(const DecimalText& number) noexcept {
  double value = 0;
  if (number.count <= DecimalText::kMaxDigits && number.digits <= kExactIntegers && number.exponent >= -22 &&
      number.exponent <= 22) {
    // Both operands are exact, so the one rounding of the operation gives the nearest double.
    const double digits = static_cast<double>(number.digits);
    const double power = kExactPowersOfTen[static_cast<std::size_t>(std::abs(number.exponent))];
    value = number.exponent < 0 ? digits / power : digits * power;
  } else if (number.digits != 0) {
    value = LongToDouble(number);
  }
  return number.negative ? -value : value;
}

Decimal15 ToDecimal15(double value) noexcept {
  std::array<char, 32> text;
  const char* const end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, 14).ptr;
  Decimal15 decimal{static_cast<std::uint64_t>(text[0] - '0'), 0};
  for (std::size_t i = 2; i < 16; ++i) decimal.digits = decimal.digits * 10 + static_cast<std::uint64_t>(text[i] - '0');
  std::string_view exponent(text.data() + 16, static_cast<std::size_t>(end - text.data()) - 16);
  decimal.exponent = static_cast<int>(TakeExponent(exponent)) - 14;
  StripZeros(decimal);
  return decimal;
}

double ParseLeadingNumber(std::string_view text) noexcept {
  SkipBlanks(text);
  if (text.size() > 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h')) return LeadingHexNumber(text.substr(2));
  const bool negative = TakeSign(text);
  const std::string_view whole = text;
  MantissaReader reader;
  for (; !text.empty(); text.remove_prefix(1)) {
    if (IsDigit(text.front())) {
      reader.Digit(text.front());
    } else if (text.front() == '.' && !reader.AfterPoint()) {
      reader.Point();
    } else {
      break;
    }
  }
  if (!reader.Any()) return 0;
  const std::string_view mantissa = whole.substr(0, whole.size() - text.size());
  return ToDouble(reader.Number(negative, mantissa, TakeExponent(text)));
}

double ParseLocaleNumber(std::string_view text, char decimalSeparator) {
  DecimalText number;
  if (!ReadLocaleNumber(text, decimalSeparator, number)) throw RuntimeFailure("not a number");
  const double value = ToDouble(number);
  if (std::isinf(value)) throw RuntimeFailure("number too large");
  return value;
}

std::optional<double> FindLocaleNumber(std::string_view text, char decimalSeparator) {
  DecimalText number;
  if (!ReadLocaleNumber(text, decimalSeparator, number)) return std::nullopt;
  const double value = ToDouble(number);
  return std::isinf(value) ? std::nullopt : std::optional(value);
}

NumberText NumberToText(double value, char decimalSeparator) {
  if (!std::isfinite(value)) throw RuntimeFailure("not a finite number");
  NumberText text;
  if (value == 0) return text.Append('0');
  if (value < 0) text.Append('-');
  const Decimal15 decimal = ToDecimal15(std::abs(value));
  std::array<char, 20> buffer;
  const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), decimal.digits).ptr;
  const std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const int point = static_cast<int>(digits.size()) + decimal.exponent;  // digits in front of the separator
  if (point > 15 || decimal.exponent < -15) {
    text.Append(digits.front());
    if (digits.size() > 1) text.Append(decimalSeparator).Append(digits.substr(1));
    const int exponent = point - 1;
    text.Append('E').Append(exponent < 0 ? '-' : '+');
    if (std::abs(exponent) < 10) text.Append('0');
    const char* const last = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(exponent)).ptr;
    return text.Append({buffer.data(), static_cast<std::size_t>(last - buffer.data())});
  }
  if (point <= 0) {
    return text.Append('0').Append(decimalSeparator).Append(static_cast<std::size_t>(-point), '0').Append(digits);
  }
  const auto whole = static_cast<std::size_t>(point);
  if (whole >= digits.size()) return text.Append(digits).Append(whole - digits.size(), '0');
  return text.Append(digits.substr(0, whole)).Append(decimalSeparator).Append(digits.substr(whole));
}

std::int32_t HexNumber32(std::string_view digits) { return static_cast<std::int32_t>(HexDigitsToBits(digits, 8)); }

std::int16_t HexNumber16(std::string_view digits) { return static_cast<std::int16_t>(HexDigitsToBits(digits, 4)); }

std::int32_t RoundToInt32(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max())) {
    throw RuntimeFailure("number does not fit 32 bits");
  }
  return static_cast<std::int32_t>(rounded);
}

}  // namespace htr60
