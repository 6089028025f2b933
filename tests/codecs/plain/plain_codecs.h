#pragma once

// The codecs as plain text procedures, step by step and without regard to speed: what the library has to equal.
// One char is one character here.

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

namespace plain {

struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

inline bool Digit(char c) { return c >= '0' && c <= '9'; }

inline double ParseLeadingNumber(const std::string& text) {
  std::size_t i = text.find_first_not_of(' ');
  if (i == std::string::npos) return 0;
  if (text.compare(i, 2, "&H") == 0 || text.compare(i, 2, "&h") == 0) {
    double value = 0;
    for (i += 2; i < text.size() && std::isxdigit(static_cast<unsigned char>(text[i])); ++i) {
      value = value * 16 + static_cast<double>(std::strtol(text.substr(i, 1).c_str(), nullptr, 16));
    }
    return value;
  }
  std::string number;
  if (text[i] == '-' || text[i] == '+') number += text[i++];
  bool any = false;
  bool point = false;
  for (; i < text.size(); ++i) {
    if (Digit(text[i])) {
      any = true;
    } else if (text[i] == '.' && !point) {
      point = true;
    } else {
      break;
    }
    number += text[i];
  }
  if (!any) return 0;
  if (i < text.size() && (text[i] == 'E' || text[i] == 'e')) {
    std::string exponent = "e";
    ++i;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) exponent += text[i++];
    std::string digits;
    while (i < text.size() && Digit(text[i])) digits += text[i++];
    if (!digits.empty()) number += exponent + digits;
  }
  return std::strtod(number.c_str(), nullptr);
}

inline double ParseLocaleNumber(const std::string& text, char separator) {
  const char group = separator == ',' ? '.' : ',';
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) throw Failure("empty");
  const std::size_t last = text.find_last_not_of(' ');
  std::string number;
  bool any = false;
  bool point = false;
  std::size_t i = first;
  if (text[i] == '-' || text[i] == '+') number += text[i++];
  for (; i <= last; ++i) {
    if (Digit(text[i])) {
      any = true;
      number += text[i];
    } else if (text[i] == separator && !point) {
      point = true;
      number += '.';
    } else if (text[i] != group || point) {
      break;
    }
  }
  if (!any) throw Failure("no digit");
  if (i <= last && (text[i] == 'E' || text[i] == 'e')) {
    number += 'e';
    ++i;
    if (i <= last && (text[i] == '-' || text[i] == '+')) number += text[i++];
    if (i > last) throw Failure("no exponent");
    for (; i <= last && Digit(text[i]); ++i) number += text[i];
  }
  if (i <= last) throw Failure("no number");
  const double value = std::strtod(number.c_str(), nullptr);
  if (std::isinf(value)) throw Failure("overflow");
  return value;
}

inline std::string NumberToText(double value, char separator) {
  if (!std::isfinite(value)) throw Failure("not finite");
  if (value == 0) return "0";
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.14e", std::fabs(value));
  const std::string written = buffer;
  std::string digits = written.substr(0, 1) + written.substr(2, 14);
  int exponent = std::atoi(written.substr(17).c_str());
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  std::string text;
  const int decimals = static_cast<int>(digits.size()) - 1 - exponent;
  if (exponent >= 15 || decimals > 15) {
    text = digits.substr(0, 1);
    if (digits.size() > 1) text += separator + digits.substr(1);
    std::snprintf(buffer, sizeof buffer, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    text += buffer;
  } else if (exponent < 0) {
    text = std::string("0") + separator + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
  } else {
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() < whole) digits.append(whole - digits.size(), '0');
    text = digits.substr(0, whole);
    if (digits.size() > whole) text += separator + digits.substr(whole);
  }
  return value < 0 ? "-" + text : text;
}

inline std::int32_t RoundToInt32(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) throw Failure("overflow");
  return static_cast<std::int32_t>(rounded);
}

inline std::string IntegerToBits(std::int64_t value) {
  if (value < 1) return "0";
  std::string bits;
  for (; value > 0; value /= 2) bits = (value % 2 != 0 ? "1" : "0") + bits;
  return bits;
}

inline std::string ByteToBits(int byte) {
  std::string bits = IntegerToBits(byte);
  while (bits.size() < 8) bits = "0" + bits;
  return bits;
}

inline double HexToFloat(const std::string& hex, char separator) {
  if (hex == "00000000") return 0;
  std::string bytes[4];
  for (std::size_t i = 0; i < 4; ++i) {
    const std::string pair = 2 * i < hex.size() ? hex.substr(2 * i, 2) : "";
    bytes[i] = ByteToBits(static_cast<int>(ParseLeadingNumber("&H" + pair)));
  }
  const double sign = std::pow(-1, ParseLeadingNumber(bytes[0].substr(0, 1)));
  double exponent = 0;
  double weight = 128;
  for (std::size_t i = 1; i < 8; ++i, weight /= 2) exponent += weight * ParseLeadingNumber(bytes[0].substr(i, 1));
  exponent += ParseLeadingNumber(bytes[1].substr(0, 1));
  exponent -= 127;
  const double scale = ParseLocaleNumber(NumberToText(sign * std::pow(2, exponent), separator), separator);
  const std::string bits = bytes[1].substr(1) + bytes[2] + bytes[3];
  double fraction = 1;
  for (std::size_t k = 1; k <= bits.size(); ++k) {
    fraction += ParseLeadingNumber(bits.substr(k - 1, 1)) * std::pow(2, -static_cast<double>(k));
  }
  return scale * fraction;
}

inline std::string BitsToHexDigit(const std::string& text) {
  int value = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    value = 2 * value + static_cast<int>(i < text.size() ? ParseLeadingNumber(text.substr(i, 1)) : 0);
  }
  if (value <= 9) return std::to_string(value);
  switch (value) {
    case 10:
      return "A";
    case 11:
      return "B";
    case 12:
      return "C";
    case 13:
      return "D";
    case 14:
      return "E";
    default:
      return "F";
  }
}

inline bool IsZero(const std::string& text) {
  for (const char* const zero :
       {"0", "0.0", "0,0", "0.00", "0,00", "0.000", "0,000", "0.0000", "0,0000", "0.00000", "0,00000", "0.000000",
        "0,000000", "0.0000000", "0,0000000", "0.00000000", "0,00000000"}) {
    if (text == zero) return true;
  }
  return false;
}

class FloatCodec {
 public:
  explicit FloatCodec(char localeSeparator) : locale_(localeSeparator) {}

  std::string FloatToHex(const std::string& text) {
    if (IsZero(text)) return "00000000";
    fractionText.clear();
    const bool negative = text.substr(0, 1) == "-";
    const std::string sign = negative ? "1" : "0";
    const std::string integerBits = IntegerPartToBits(negative ? text.substr(1) : text);
    if (fractionText.empty()) fractionText = "0.0";
    const std::string fractionBits = FractionToBits(ParseLocaleNumber(fractionText, locale_));
    NormalizeMantissa(integerBits + "." + fractionBits);
    const std::string bits = sign + exponentBits + mantissaBits;
    std::string hex;
    for (std::size_t at = 0; at < 32; at += 4) hex += BitsToHexDigit(at < bits.size() ? bits.substr(at, 4) : "");
    return hex;
  }

  std::string IntegerPartToBits(const std::string& text) {
    for (std::size_t i = 0; i < 10 && i < text.size(); ++i) {
      if (text[i] != ',' && text[i] != '.') continue;
      decimalSeparator = text.substr(i, 1);
      try {
        const std::int32_t whole = RoundToInt32(ParseLeadingNumber(text.substr(0, i)));
        fractionText = std::string("0").append(text, i);
        return IntegerToBits(whole);
      } catch (const Failure&) {
        break;
      }
    }
    return IntegerToBits(RoundToInt32(ParseLeadingNumber(text)));
  }

  std::string FractionToBits(double value) {
    std::string bits;
    int count = 0;
    try {
      while (!(value <= 0) && count != 23) {
        const std::string text = NumberToText(2 * value, locale_);
        bits += text.substr(0, 1);
        if (text.size() == 1) return bits;
        value = ParseLocaleNumber("0" + decimalSeparator + text.substr(2), locale_);
        ++count;
      }
    } catch (const Failure&) {
    }
    return bits;
  }

  void NormalizeMantissa(const std::string& text) {
    std::string working;
    if (text.substr(0, 1) == "1") {
      const std::size_t separator = std::min(text.find_first_of(",.", 1), text.size());
      SetExponent(static_cast<int>(separator) + 1 + 125);
      working = text.substr(0, separator) + (separator < text.size() ? text.substr(separator + 1) : "");
    } else {
      const std::size_t one = text.find('1', 2);
      if (one != std::string::npos) {
        SetExponent(129 - (static_cast<int>(one) + 1));
        working = std::string("0").append(text, one + 1);
      } else if (text.size() > 2) {
        working = text.substr(text.size() - 1);
      }
    }
    while (working.size() < 24) working += "0";
    mantissaBits = working.substr(1, 23);
  }

  std::string fractionText;
  std::string decimalSeparator;
  std::string exponentBits;
  std::string mantissaBits;

 private:
  void SetExponent(int exponent) {
    exponentBits = IntegerToBits(exponent);
    while (exponentBits.size() < 8) exponentBits = "0" + exponentBits;
  }

  char locale_;
};

/// "###0.000" and its kin.
inline std::string Format(double value, int decimals, char separator) {
  char buffer[400];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  std::string text = buffer;
  if (text.find_first_not_of("-0.") == std::string::npos && text[0] == '-') text.erase(0, 1);
  if (const std::size_t point = text.find('.'); point != std::string::npos) text[point] = separator;
  return text;
}

/// The chain of comparisons that a table of texts stands for: the first row with the text counts.
template <class Rows>
const char* FindInChain(const Rows& rows, const std::string& text) {
  for (const auto& row : rows) {
    if (text == row.first) return row.second;
  }
  return "";
}

}  // namespace plain
