#include "presentation/numbers_shown.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "text/failure.h"
#include "text/numbers.h"

namespace htr60::presentation {
namespace {

constexpr std::size_t kMostBeforeSeparator = 9;
constexpr double kTooLarge = 2147483648.0;  // the integer part no longer fits
constexpr double kLeastLoss = 0.0001;

char OtherOf(char separator) { return separator == '.' ? ',' : '.'; }

bool HasTooManyDigits(std::string_view text, double number, char separator) {
  std::string_view whole = text.substr(0, text.find(separator));
  whole.remove_prefix(std::min(whole.find_first_not_of(" +-"), whole.size()));
  return whole.size() > kMostBeforeSeparator || std::abs(number) >= kTooLarge;
}

int DecimalsOf(std::string_view number, char separator) {
  const std::size_t at = number.find(separator);
  if (at == std::string_view::npos) return 0;
  const auto last = std::find_if_not(number.begin() + static_cast<std::ptrdiff_t>(at) + 1, number.end(),
                                     [](char c) { return c >= '0' && c <= '9'; });
  return static_cast<int>(last - number.begin()) - static_cast<int>(at) - 1;
}

// Not by the C library, whose separator is that of the process.
std::string Rounded(double value, int decimals) {
  std::array<char, 400> text;
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
  std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
  if (digits.find_first_not_of("-0.") == std::string_view::npos && digits.front() == '-') digits.remove_prefix(1);
  return std::string(digits);
}

// At the decimals that `shown` has; with an exponent as the same single.
bool IsAtDecimals(double value, std::string_view shown, char separator) {
  const auto number = FindLocaleNumber(shown, separator);
  if (!number) return false;
  if (shown.find_first_of("eE") != std::string_view::npos) {
    return static_cast<float>(*number) == static_cast<float>(value);
  }
  const int decimals = DecimalsOf(shown, separator);
  return Rounded(*number, decimals) == Rounded(value, decimals);
}

// One decimal below 10 %, two below 0.1 %, none from 10 %; the rounded number decides.
std::string Percent(double percent, char separator) {
  const auto from = [&](int decimals, double least) {
    return *FindLocaleNumber(Rounded(percent, decimals), '.') >= least;
  };
  std::string text = Rounded(percent, from(1, 10) ? 0 : from(2, 0.1) ? 1 : 2);
  std::replace(text.begin(), text.end(), '.', separator);
  return text;
}

}  // namespace

bool IsSameNumber(std::string_view a, std::string_view b, char separator) {
  const auto first = FindLocaleNumber(a, separator);
  const auto second = FindLocaleNumber(b, separator);
  return first && second && *first == *second;
}

bool ReadsAs(std::string_view sent, std::string_view device, char separator) {
  const auto number = FindLocaleNumber(sent, separator);
  return number && IsAtDecimals(*number, device, separator);
}

Stored StoredAs(std::string_view sent, std::string_view device, char separator) {
  Stored stored;
  const auto number = FindLocaleNumber(sent, separator);
  if (!number) return stored;
  try {
    FloatCodec codec(separator);
    const double coded = HexToFloat(codec.FloatToHex(sent));
    stored.reads = IsAtDecimals(coded, device, separator);
    const double loss = *number == 0 ? 0 : std::abs(coded) / std::abs(*number) - 1;
    if (std::abs(loss) >= kLeastLoss) {
      stored.loss = Percent(std::abs(loss) * 100, separator) + (loss < 0 ? " % below" : " % above");
    }
  } catch (const RuntimeFailure&) {
    return {};  // a text that no write takes
  }
  return stored;
}

bool IsMeantOtherwise(std::string_view text, double number, char separator) {
  return text.find(OtherOf(separator)) != std::string_view::npos || HasTooManyDigits(text, number, separator);
}

std::string NumberHint(std::string_view text, char separator) {
  const char other = OtherOf(separator);
  const auto number = FindLocaleNumber(text, separator);
  // "12,5" is a number to the control too, for it passes over group separators: 125. So the other separator comes
  // first.
  if (text.find(other) != std::string_view::npos) {
    std::string plain(text);
    std::replace(plain.begin(), plain.end(), other, separator);
    if (number || FindLocaleNumber(plain, separator)) return std::string("Decimal separator here is ") + separator;
  }
  if (!number) return "No number";
  return HasTooManyDigits(text, *number, separator) ? "Too many digits" : "";
}

}  // namespace htr60::presentation
