#include "codecs/ModFloatIeee.h"

#include <array>
#include <bit>
#include <cstddef>

#include "codecs/fraction_bits.h"
#include "codecs/power_table.h"
#include "text/decimal_text.h"
#include "text/hex_digits.h"
#include "text/numbers.h"
#include "text/utf8.h"

namespace htr60 {
namespace {

constexpr int kBias = 127;
constexpr int kMantissaSize = 23;
constexpr std::uint32_t kMantissaMask = 0x7FFFFF;
constexpr int kMaxPlainDecimals = 14;

double FloatOfBits(std::uint32_t bits) {
  constexpr double kOne = 1U << kMantissaSize;
  const double scale = kPowersOfTwo[bits >> kMantissaSize & 0xFFU];
  const double fraction = 1 + (bits & kMantissaMask) / kOne;
  return ((bits & 0x80000000U) != 0 ? -scale : scale) * fraction;
}

/// A digit pair, read as far as it is hexadecimal.
std::uint32_t LeadingByte(std::string_view pair) {
  const int high = pair.empty() ? -1 : HexValue(pair[0]);
  if (high < 0) return 0;
  const int low = pair.size() < 2 ? -1 : HexValue(pair[1]);
  return static_cast<std::uint32_t>(low < 0 ? high : high * 16 + low);
}

/// "0", or "0" and a separator and one to eight zeros. No other spelling is zero.
bool IsZeroText(std::string_view text) {
  if (text.empty() || text.size() > 10 || text.size() == 2 || text[0] != '0') return false;
  return text.size() == 1 ||
         ((text[1] == '.' || text[1] == ',') && text.find_first_not_of('0', 2) == std::string_view::npos);
}

struct FirstSeparator {
  std::size_t at = std::string_view::npos;
  bool found = false;
};

/// A separator among the first ten characters.
FirstSeparator FindSeparator(std::string_view text) {
  std::size_t at = 0;
  for (int character = 0; character < 10 && at < text.size(); ++character) {
    if (text[at] == ',' || text[at] == '.') return {at, true};
    at += CharacterSize(text.substr(at));
  }
  return {};
}

FixedText<8> HexOfBits(std::uint32_t bits) {
  std::array<char, 8> digits;
  for (std::size_t i = 0; i < 4; ++i) {
    const std::size_t byte = bits >> (24 - 8 * i) & 0xFFU;
    digits[2 * i] = kByteDigits[2 * byte];
    digits[2 * i + 1] = kByteDigits[2 * byte + 1];
  }
  return FixedText<8>({digits.data(), digits.size()});
}

}  // namespace

double HexToFloat(std::string_view hex) noexcept {
  if (hex.size() >= 8) {
    std::uint32_t bits = 0;
    int bad = 0;
    for (std::size_t i = 0; i < 8; ++i) {
      const int digit = HexValue(hex[i]);
      bad |= digit;
      bits = bits << 4U | static_cast<std::uint32_t>(digit);
    }
    if (bad >= 0) return bits == 0 && hex.size() == 8 ? 0 : FloatOfBits(bits);
  }
  std::uint32_t bits = 0;
  for (int i = 0; i < 4; ++i) bits = bits << 8U | LeadingByte(TakeCharacters(hex, 2));
  return FloatOfBits(bits);
}

FixedText<8> FloatCodec::FloatToHex(std::string_view text) {
  if (IsZeroText(text)) return FixedText<8>("00000000");
  const bool negative = !text.empty() && text.front() == '-';
  const std::string_view magnitude = text.substr(negative ? 1 : 0);
  FixedText<8> hex;
  if (EncodePlain(negative, magnitude, hex)) return hex;

  fractionText_.Clear();
  const BitText integerBits = IntegerPartToBits(magnitude);
  if (fractionText_.empty()) fractionText_.Append("0.0");
  const FractionBitText fractionBits = FractionTextToBits();
  FixedText<96> bits;
  bits.Append(integerBits).Append('.').Append(fractionBits);
  NormalizeMantissa(bits);
  return Join(negative);
}

/// Numbers as users and formats write them: digits, and up to 14 decimals after the locale's separator. Their doubles
/// stay exact in 15-digit texts, so the bits are those of the decimal number, cut off: one multiplication.
bool FloatCodec::EncodePlain(bool negative, std::string_view magnitude, FixedText<8>& hex) {
  static constexpr std::uint64_t kFiveTo14 = 6'103'515'625;
  const std::size_t size = magnitude.size();
  std::uint64_t whole = 0;
  std::size_t at = 0;
  for (; at < size && at < 10 && IsDigit(magnitude[at]); ++at) {
    whole = whole * 10 + static_cast<std::uint64_t>(magnitude[at] - '0');
  }
  std::uint64_t decimals = 0;
  const bool separated = at < size;
  if (separated) {
    const std::size_t count = size - at - 1;
    if (at > 9 || magnitude[at] != localeSeparator_ || count > kMaxPlainDecimals) return false;
    for (std::size_t i = at + 1; i < size; ++i) {
      if (!IsDigit(magnitude[i])) return false;
      decimals = decimals * 10 + static_cast<std::uint64_t>(magnitude[i] - '0');
    }
    static constexpr std::array<std::uint64_t, kMaxPlainDecimals + 1> kToFourteen = [] {
      std::array<std::uint64_t, kMaxPlainDecimals + 1> powers{};
      std::uint64_t power = 1;
      for (std::size_t i = powers.size(); i-- > 0; power *= 10) powers[i] = power;
      return powers;
    }();
    decimals *= kToFourteen[count];
  } else if (size == 0 || whole > INT32_MAX) {
    return false;
  }

  // decimals / 10^14 * 2^23, with 2^14 taken out of both.
  const std::uint64_t fraction = (decimals << 9U) / kFiveTo14;
  const std::uint64_t number = whole << kMantissaSize | fraction;
  if (number != 0) {
    const int width = static_cast<int>(std::bit_width(number));
    exponentKnown_ = true;
    exponent_ = kBias + width - 1 - kMantissaSize;
    // A number below 1 has its bits after the leading one, and zeros after those.
    const std::uint64_t aligned =
        width > kMantissaSize ? number >> (width - 1 - kMantissaSize) : number << (kMantissaSize + 1 - width);
    mantissa_ = static_cast<std::uint32_t>(aligned) & kMantissaMask;
  } else {
    if (!exponentKnown_ || exponent_ > 0xFF) return false;
    mantissa_ = 0;
  }
  mantissaKnown_ = true;
  mantissaText_.Clear();
  fractionText_.Clear();
  if (separated) {
    separator_ = localeSeparator_;
    fractionText_.Append('0').Append(magnitude.substr(at));
  } else {
    fractionText_.Append("0.0");
  }
  hex = HexOfBits((negative ? 0x80000000U : 0U) | static_cast<std::uint32_t>(exponent_) << kMantissaSize | mantissa_);
  return true;
}

FixedText<8> FloatCodec::ByteToBits(int byte) {
  const BitText bits = IntegerToBits(byte & 0xFF);
  FixedText<8> padded;
  return padded.Append(8 - bits.size(), '0').Append(bits);
}

FloatCodec::BitText FloatCodec::IntegerPartToBits(std::string_view text) {
  const FirstSeparator separator = FindSeparator(text);
  if (separator.found) {
    separator_ = text[separator.at];
    try {
      const std::int32_t whole = RoundToInt32(ParseLeadingNumber(text.substr(0, separator.at)));
      fractionText_.Clear();
      fractionText_.Append('0').Append(text.substr(separator.at));
      return IntegerToBits(whole);
    } catch (const RuntimeFailure&) {
      // Falls back on the whole text, as if it had no separator.
    }
  }
  return IntegerToBits(RoundToInt32(ParseLeadingNumber(text)));
}

FloatCodec::BitText FloatCodec::IntegerToBits(std::int64_t value) {
  BitText bits;
  if (value < 1) return bits.Append('0');
  for (int bit = static_cast<int>(std::bit_width(static_cast<std::uint64_t>(value))); bit-- > 0;) {
    bits.Append((value >> bit & 1) != 0 ? '1' : '0');
  }
  return bits;
}

FloatCodec::FractionBitText FloatCodec::FractionToBits(double value) const {
  return FractionBits(value, {localeSeparator_, DecimalSeparator()});
}

FloatCodec::FractionBitText FloatCodec::FractionTextToBits() const {
  DecimalText number;
  if (!ReadLocaleNumber(fractionText_, localeSeparator_, number)) throw RuntimeFailure("fraction is no number");
  return FractionBits(number, {localeSeparator_, DecimalSeparator()});
}

void FloatCodec::NormalizeMantissa(std::string_view text) {
  if (!text.empty() && text.front() == '1') {
    const std::size_t separator = text.find_first_of(",.", 1);
    const std::string_view before = text.substr(0, separator);
    const std::string_view after = separator == std::string_view::npos ? "" : text.substr(separator + 1);
    std::int64_t position = 1;
    for (const char byte : before) position += IsContinuation(byte) ? 0 : 1;
    SetExponent(position + 125);
    InlineText working(before);
    SetMantissa(working.Append(after));
    return;
  }
  std::string_view rest = text;
  TakeCharacters(rest, 2);
  for (std::int64_t position = 3; !rest.empty(); ++position) {
    const char32_t character = TakeCharacter(rest);
    if (character == U'1') {
      SetExponent(129 - position);
      InlineText working("0");
      SetMantissa(working.Append(rest));
      return;
    }
  }
  SetMantissa("");  // one character or none, and it is dropped
}

void FloatCodec::SetExponent(std::int64_t exponent) noexcept {
  exponentKnown_ = true;
  exponent_ = exponent < 0 ? 0 : exponent;
}

/// The mantissa text is characters 2 to 24 of the working text, with zeros where it is shorter.
void FloatCodec::SetMantissa(std::string_view workingText) {
  TakeCharacters(workingText, 1);
  mantissaKnown_ = true;
  mantissaText_.Clear();
  mantissa_ = 0;
  std::string_view rest = workingText;
  bool bits = true;
  for (int i = kMantissaSize; i-- > 0 && !rest.empty();) {
    const char32_t character = TakeCharacter(rest);
    bits = bits && (character == U'0' || character == U'1');
    if (character == U'1') mantissa_ |= std::uint32_t{1} << i;
  }
  if (bits) return;
  std::size_t missing = kMantissaSize;
  for (std::string_view left = workingText; missing > 0 && !left.empty(); --missing) {
    mantissaText_.Append(TakeCharacters(left, 1));
  }
  mantissaText_.Append(missing, '0');
}

char FloatCodec::BitsToHexDigit(std::string_view text) noexcept {
  int value = 0;
  for (int i = 0; i < 4; ++i) {
    const std::string_view character = TakeCharacters(text, 1);
    value = 2 * value + (character.size() == 1 && IsDigit(character[0]) ? character[0] - '0' : 0);
  }
  return value > 15 ? 'F' : kHexDigits[static_cast<std::size_t>(value)];
}

FixedText<8> FloatCodec::Join(bool negative) const {
  if (exponentKnown_ && exponent_ <= 0xFF && mantissaText_.empty()) {
    return HexOfBits((negative ? 0x80000000U : 0U) | static_cast<std::uint32_t>(exponent_) << kMantissaSize |
                     mantissa_);
  }
  FixedText<192> bits;
  bits.Append(negative ? '1' : '0').Append(ExponentBits()).Append(MantissaBits());
  std::string_view rest = bits;
  FixedText<8> hex;
  for (int i = 0; i < 8; ++i) hex.Append(BitsToHexDigit(TakeCharacters(rest, 4)));
  return hex;
}

FloatCodec::ExponentText FloatCodec::ExponentBits() const {
  ExponentText text;
  if (!exponentKnown_) return text;
  const BitText bits = IntegerToBits(exponent_);
  if (bits.size() < 8) text.Append(8 - bits.size(), '0');
  return text.Append(bits);
}

FloatCodec::MantissaText FloatCodec::MantissaBits() const {
  if (!mantissaText_.empty()) return mantissaText_;
  MantissaText text;
  for (int i = mantissaKnown_ ? kMantissaSize : 0; i-- > 0;) text.Append((mantissa_ >> i & 1U) != 0 ? '1' : '0');
  return text;
}

}  // namespace htr60
