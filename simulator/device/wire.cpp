#include "simulator/device/wire.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace htr60::sim {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

std::string FloatDigits(double value) {
  constexpr double kMax = std::numeric_limits<float>::max();
  if (value > kMax) value = kMax;
  if (value < -kMax) value = -kMax;
  auto single = static_cast<float>(value);
  if (!std::isnormal(single)) single = 0.0F;
  return NumberDigits(std::bit_cast<std::uint32_t>(single), 8);
}

double FloatAt(std::string_view digits, std::size_t position) {
  if (digits.size() < position + 8) return 0;
  return std::bit_cast<float>(static_cast<std::uint32_t>(NumberOf(digits.substr(position, 8))));
}

double DecimalOf(double single) {
  std::array<char, 64> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), static_cast<float>(single));
  double result = 0;
  std::from_chars(text.data(), written.ptr, result);
  return result;
}

std::string NumberDigits(std::uint64_t value, std::size_t width) {
  std::string digits(width, '0');
  for (std::size_t i = width; i > 0; --i, value >>= 4U) digits[i - 1] = kHexDigits[value & 0xFU];
  return digits;
}

std::uint64_t NumberOf(std::string_view digits) {
  std::uint64_t value = 0;
  for (const char c : digits) value = (value << 4U) | static_cast<std::uint64_t>(DigitValue(c) & 0xF);
  return value;
}

bool IsHexadecimal(std::string_view text) {
  for (const char c : text) {
    if (DigitValue(c) < 0) return false;
  }
  return true;
}

std::string ToCapitals(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return result;
}

std::string TextDigits(std::string_view text, std::size_t bytes, char padding) {
  std::string digits;
  for (std::size_t i = 0; i < bytes; ++i) {
    digits += NumberDigits(static_cast<unsigned char>(i < text.size() ? text[i] : padding), 2);
  }
  return digits;
}

std::string TextOf(std::string_view digits) {
  std::string text;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
    const auto code = NumberOf(digits.substr(i, 2));
    if (code == 0) break;
    text += static_cast<char>(code);
  }
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

std::string PairDigits(double first, double second) { return FloatDigits(first) + FloatDigits(second); }

std::string ValueStatusDigits(double value, unsigned status) { return FloatDigits(value) + NumberDigits(status, 2); }

std::string ScaleDigits(double upper, double lower, std::string_view unit) {
  return PairDigits(upper, lower).append(unit).append("00");
}

}  // namespace htr60::sim
