#include "codecs/mFunctions.h"

#include <cstddef>
#include <limits>

#include "codecs/ModFloatIeee.h"
#include "text/hex_digits.h"
#include "text/utf8.h"

namespace htr60 {
namespace {

/// Takes the pieces of a record one after the other.
class RecordReader {
 public:
  explicit RecordReader(std::string_view hex) : rest_(hex) {}

  void Skip(int characters) { Take(static_cast<std::size_t>(characters)); }

  /// A byte: two hexadecimal digits, or one where the text ends after it.
  bool Byte(std::int32_t& byte) {
    const std::string_view pair = Take(2);
    if (pair.empty() || pair.size() > 2) return false;
    const int high = HexValue(pair.front());
    const int low = HexValue(pair.back());
    if (high < 0 || low < 0) return false;
    byte = pair.size() == 1 ? low : high * 16 + low;
    return true;
  }

  bool Word(std::int32_t& word) {
    std::int32_t high = 0;
    std::int32_t low = 0;
    if (!Byte(high) || !Byte(low)) return false;
    word = high * 256 + low;
    return true;
  }

  bool SignedWord(std::int16_t& word) {
    std::int32_t number = 0;
    if (!Word(number) || number > std::numeric_limits<std::int16_t>::max()) return false;
    word = static_cast<std::int16_t>(number);
    return true;
  }

  double Float() { return HexToFloat(Take(8)); }

  bool AtEnd() const { return rest_.empty(); }

 private:
  std::string_view Take(std::size_t count) { return TakeCharacters(rest_, count); }

  std::string_view rest_;
};

constexpr bool IsFieldCharacter(std::int32_t code, bool strict) {
  return code == ' ' || (code == '%' && !strict) || code == '_' || (code >= '-' && code <= ':') ||
         (code >= 'A' && code <= '\\') || (code >= 'a' && code <= 'z');
}

FixedText<50> ReadTextField(std::string_view hex, bool strict) noexcept {
  RecordReader record(TakeCharacters(hex, 100));
  FixedText<50> text;
  std::int32_t code = 0;  // a pair that cannot be read keeps the code of the one before
  while (!record.AtEnd()) {
    record.Byte(code);
    if (IsFieldCharacter(code, strict)) {
      text.Append(static_cast<char>(code));
    } else if (!strict) {
      break;
    }
  }
  return text;
}

/// Windows-1252 from 80 to 9F; 0 where it has no character.
constexpr char32_t kUpperControls[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                         0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr unsigned AnsiCode(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character < 0x100)) return character;
  for (unsigned i = 0; i < 32; ++i) {
    if (kUpperControls[i] == character) return 0x80 + i;
  }
  return '?';
}

InlineText TextToHex(std::string_view utf8, std::size_t mostCharacters, int lastPaddingByte) {
  InlineText hex;
  for (; !utf8.empty() && mostCharacters > 0; --mostCharacters) {
    const unsigned code = AnsiCode(TakeCharacter(utf8));
    const std::string_view digits(kByteDigits.data() + std::size_t{2} * code, 2);
    hex.Append(code < 16 ? digits.substr(1) : digits);
  }
  // The padding counts from half the digits in steps of one, from a half too: a code below 10 is one digit.
  for (int twice = static_cast<int>(hex.size()); twice <= 2 * lastPaddingByte; twice += 2) hex.Append("00");
  return hex;
}

}  // namespace

void HexToWord(std::string_view hex, std::int32_t& word) noexcept { RecordReader(hex).Word(word); }

void HexToLong(std::string_view hex, std::int32_t& number) noexcept {
  RecordReader record(hex);
  std::int32_t high = 0;
  std::int32_t low = 0;
  if (record.Word(high) && record.Word(low) && high < 0x8000) number = high * 0x10000 + low;
}

void HexToFourWords(std::string_view hex, std::int16_t& first, std::int16_t& second, std::int16_t& third,
                    std::int16_t& fourth) noexcept {
  RecordReader record(hex);
  for (std::int16_t* const word : {&first, &second, &third, &fourth}) {
    if (!record.SignedWord(*word)) return;
  }
}

void HexToThreeBytes(std::string_view hex, std::int32_t& first, std::int32_t& second, std::int32_t& third) noexcept {
  RecordReader record(hex);
  for (std::int32_t* const byte : {&first, &second, &third}) {
    if (!record.Byte(*byte)) return;
  }
}

std::array<double, 2> HexToTwoFloats(std::string_view hex) noexcept {
  RecordReader record(hex);
  const double first = record.Float();
  return {first, record.Float()};
}

void HexToFloatArray(std::string_view hex, std::array<double, 16>& values) noexcept {
  RecordReader record(hex);
  for (double& value : values) value = record.Float();
}

void HexToSimulation(std::string_view hex, std::int32_t& first, double& value, std::int32_t& last) noexcept {
  RecordReader record(hex);
  if (!record.Byte(first)) return;
  value = record.Float();
  record.Byte(last);
}

bool HexToWordAt(std::string_view hex, int position, std::int16_t& word) noexcept {
  RecordReader record(hex);
  record.Skip(position - 1);
  return record.SignedWord(word);
}

bool HexToByteAt(std::string_view hex, int position, std::int32_t& byte) noexcept {
  RecordReader record(hex);
  record.Skip(position - 1);
  return record.Byte(byte);
}

double HexToFloatAt(std::string_view hex, int position) noexcept {
  RecordReader record(hex);
  record.Skip(position - 1);
  return record.Float();
}

FixedText<50> HexToTextField(std::string_view hex) noexcept { return ReadTextField(hex, false); }

FixedText<50> HexToTextFieldStrict(std::string_view hex) noexcept { return ReadTextField(hex, true); }

InlineText TextToHex32(std::string_view utf8) { return TextToHex(utf8, std::string_view::npos, 31); }

InlineText TextToHexPadded(std::string_view utf8) { return utf8.empty() ? InlineText() : TextToHex(utf8, 24, 15); }

InlineText MnemonicToHex(std::string_view utf8) { return TextToHexPadded(utf8); }

}  // namespace htr60
