#include "desktop/number_hints.h"

#include <algorithm>

#include "text/failure.h"
#include "text/numbers.h"

namespace htr60::desktop {
namespace {

constexpr std::size_t kMostBeforeSeparator = 9;

bool IsNumber(std::string_view text, char separator) {
  try {
    ParseLocaleNumber(text, separator);
    return true;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

}  // namespace

std::string NumberHint(std::string_view text, char decimalSeparator) {
  const char other = decimalSeparator == '.' ? ',' : '.';
  // "12,5" is a number to the control too, for it passes over group separators: 125. So the other separator comes
  // first.
  if (text.find(other) != std::string_view::npos) {
    std::string plain(text);
    std::replace(plain.begin(), plain.end(), other, decimalSeparator);
    if (IsNumber(plain, decimalSeparator) || IsNumber(text, decimalSeparator)) {
      return std::string("Decimal separator here is ") + decimalSeparator;
    }
  }
  if (!IsNumber(text, decimalSeparator)) return "No number";
  if (std::min(text.find(decimalSeparator), text.size()) > kMostBeforeSeparator) return "Too many digits";
  return {};
}

}  // namespace htr60::desktop
