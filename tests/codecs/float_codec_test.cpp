#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "codecs/ModFloatIeee.h"
#include "codecs/codecs.h"
#include "plain/plain_codecs.h"
#include "text/failure.h"

namespace htr60 {
namespace {

/// Latin-1, one byte a character as the plain procedure counts, to UTF-8.
std::string ToUtf8(std::string_view latin) {
  std::string text;
  for (const char c : latin) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x80) {
      text += c;
    } else {
      text += static_cast<char>(0xC0U | code >> 6U);
      text += static_cast<char>(0x80U | (code & 0x3FU));
    }
  }
  return text;
}

/// Library and plain procedure side by side through one sequence of operations.
class Pair {
 public:
  explicit Pair(char separator) : plain_(separator), fast_(separator) {}

  void Encode(const std::string& text) {
    Same(
        text, [&] { return plain_.FloatToHex(text); },
        [&] { return std::string(fast_.FloatToHex(ToUtf8(text)).View()); });
  }
  void IntegerPart(const std::string& text) {
    Same(
        text, [&] { return plain_.IntegerPartToBits(text); },
        [&] { return std::string(fast_.IntegerPartToBits(ToUtf8(text)).View()); });
  }
  void Fraction(double value) {
    Same(
        std::to_string(value), [&] { return plain_.FractionToBits(value); },
        [&] { return std::string(fast_.FractionToBits(value).View()); });
  }
  void Normalize(const std::string& text) {
    Same(
        text,
        [&] {
          plain_.NormalizeMantissa(text);
          return std::string();
        },
        [&] {
          fast_.NormalizeMantissa(ToUtf8(text));
          return std::string();
        });
  }

 private:
  template <class Plain, class Fast>
  void Same(const std::string& text, Plain plain, Fast fast) {
    std::optional<std::string> expected;
    std::optional<std::string> actual;
    try {
      expected = plain();
    } catch (const plain::Failure&) {
    }
    try {
      actual = fast();
    } catch (const RuntimeFailure&) {
    }
    const bool same = expected == actual && ToUtf8(plain_.fractionText) == fast_.FractionText() &&
                      plain_.decimalSeparator == fast_.DecimalSeparator() &&
                      plain_.exponentBits == fast_.ExponentBits().View() &&
                      ToUtf8(plain_.mantissaBits) == fast_.MantissaBits().View();
    ASSERT_TRUE(same) << "text [" << text << "] plain " << expected.value_or("(fails)") << " library "
                      << actual.value_or("(fails)") << " states [" << plain_.fractionText << "] ["
                      << fast_.FractionText() << "] " << plain_.exponentBits << " " << fast_.ExponentBits().View()
                      << " " << plain_.mantissaBits << " " << fast_.MantissaBits().View();
  }

  plain::FloatCodec plain_;
  FloatCodec fast_;
};

class Texts {
 public:
  explicit Texts(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_); }
  bool Chance(std::size_t oneIn) { return Below(oneIn) == 0; }
  std::string Digits(std::size_t count) {
    std::string digits;
    const std::size_t kind = Below(8);
    for (std::size_t i = 0; i < count; ++i) {
      const char all = kind == 0 ? '0' : kind == 1 ? '9' : 0;
      digits += all != 0 && !Chance(20) ? all : static_cast<char>('0' + Below(10));
    }
    return digits;
  }
  /// A number as pages show it.
  std::string Usual(char separator) {
    std::string text = Chance(3) ? "-" : "";
    text += Digits(1 + Below(7));
    if (!Chance(6)) text += separator + Digits(1 + Below(10));
    return text;
  }
  /// Small fractions, many decimals, exponents, other separators, blanks and signs.
  std::string Unusual(char separator) {
    if (Chance(5)) separator = separator == '.' ? ',' : '.';
    std::string text = Chance(4) ? "-" : Chance(10) ? "+" : Chance(10) ? " " : "";
    if (!Chance(8)) text += Digits(Below(Chance(8) ? 14 : 4));
    if (!Chance(8)) text += separator;
    if (Chance(3)) text += std::string(Below(16), '0');
    text += Digits(Below(Chance(3) ? 40 : 19));
    if (Chance(8)) text += (Chance(2) ? "E" : "e") + std::string(Chance(2) ? "-" : "") + Digits(Below(3));
    if (Chance(30)) text += "E" + std::string(Chance(2) ? "-" : "") + std::to_string(Below(400));
    if (Chance(12)) text.insert(Below(text.size() + 1), Chance(2) ? "," : ".");
    if (Chance(20)) text.insert(Below(text.size() + 1), " ");
    return text;
  }
  std::string Any() {
    static constexpr std::string_view kAlphabet = "0123456789012345678901010000..,,--+ EeH&xF\xB5\xE9";
    std::string text = Chance(20) ? "&H" : "";
    for (std::size_t i = Below(16); i-- > 0;) text += kAlphabet[Below(kAlphabet.size())];
    return text;
  }
  double Number() {
    const double value = std::uniform_real_distribution<double>(0, 1)(random_);
    return Chance(4) ? std::ldexp(value, static_cast<int>(Below(200)) - 120) : value;
  }
  std::string BitLike() {
    static constexpr std::string_view kAlphabet = "0000011111..,5\xE9";
    std::string text;
    for (std::size_t i = Below(Chance(10) ? 300 : 60); i-- > 0;) text += kAlphabet[Below(kAlphabet.size())];
    return text;
  }
  std::mt19937_64& Random() { return random_; }

 private:
  std::mt19937_64 random_;
};

class EitherSeparator : public testing::TestWithParam<char> {};
INSTANTIATE_TEST_SUITE_P(Locale, EitherSeparator, testing::Values('.', ','),
                         [](const auto& name) { return name.param == '.' ? "Point" : "Comma"; });

TEST_P(EitherSeparator, EncodesAsThePlainProcedure) {
  Texts texts(GetParam() == '.' ? 1U : 2U);
  for (int sequence = 0; sequence < 40; ++sequence) {
    Pair pair(GetParam());
    for (int i = 0; i < 1300; ++i) {
      ASSERT_NO_FATAL_FAILURE(pair.Encode(texts.Usual(GetParam())));
      ASSERT_NO_FATAL_FAILURE(pair.Encode(texts.Unusual(GetParam())));
      ASSERT_NO_FATAL_FAILURE(pair.Encode(texts.Any()));
    }
  }
}

TEST_P(EitherSeparator, SingleOperationsMixWithEncoding) {
  Texts texts(GetParam() == '.' ? 3U : 4U);
  for (int sequence = 0; sequence < 60; ++sequence) {
    Pair pair(GetParam());
    for (int i = 0; i < 100; ++i) {
      ASSERT_NO_FATAL_FAILURE(pair.Fraction(texts.Number()));
      ASSERT_NO_FATAL_FAILURE(pair.IntegerPart(texts.Any()));
      ASSERT_NO_FATAL_FAILURE(pair.Normalize(texts.BitLike()));
      ASSERT_NO_FATAL_FAILURE(pair.Encode(texts.Chance(3) ? "0.0000000001" : texts.Unusual(GetParam())));
      ASSERT_NO_FATAL_FAILURE(pair.Encode("-"));
    }
  }
}

TEST_P(EitherSeparator, EncodesTextsAtTheEdges) {
  Pair pair(GetParam());
  std::vector<std::string> texts{"",
                                 "-",
                                 "--1",
                                 "-0",
                                 "00",
                                 "+1",
                                 " 1",
                                 " -1",
                                 "1E3",
                                 "1E",
                                 "1E+2",
                                 "abc",
                                 "&HFF",
                                 "&H",
                                 ".",
                                 ",",
                                 "1.x",
                                 "1234567890.5",
                                 "123456789.5",
                                 "1E9.5",
                                 "3E9.5",
                                 "1.5E3",
                                 "0.5E-300",
                                 "0.25E-279",
                                 "0.7E308",
                                 "0.5E400",
                                 "0.123E300",
                                 "2147483647",
                                 "2147483647.4",
                                 "2147483648",
                                 "-2147483648",
                                 "99999999999",
                                 "0.5 ",
                                 "0. 5",
                                 "0.-5",
                                 "1.2.3",
                                 "1,2.3",
                                 "1.2,3",
                                 "2.5E0",
                                 "1.9999999999999999",
                                 "0.000000059604644775390625",
                                 "0.00000011920928955078125",
                                 "0." + std::string(900, '3'),
                                 "0." + std::string(850, '0') + "1",
                                 std::string(900, '7'),
                                 "0.1" + std::string(820, '0') + "1",
                                 "\xE9\xE9\xE9.5",
                                 "1\xB5\xB5\xB5\xB5\xB5\xB5\xB5\xB5.5",
                                 "1\xB5\xB5\xB5\xB5\xB5\xB5\xB5\xB5\xB5.5"};
  for (int nines = 1; nines < 24; ++nines) texts.push_back("0." + std::string(static_cast<std::size_t>(nines), '9'));
  for (int zeros = 0; zeros < 24; ++zeros) {
    for (const char* const tail : {"", "1", "25", "123456789012345", "999999999999999", "1234567890123456789"}) {
      texts.push_back("0." + std::string(static_cast<std::size_t>(zeros), '0') + tail);
    }
  }
  for (std::string& text : texts) {
    ASSERT_NO_FATAL_FAILURE(pair.Encode(text));
    for (char& c : text) c = c == '.' ? ',' : c == ',' ? '.' : c;
    ASSERT_NO_FATAL_FAILURE(pair.Encode(text));
    ASSERT_NO_FATAL_FAILURE(pair.IntegerPart(text));
  }
}

TEST_P(EitherSeparator, DecodesAsThePlainProcedure) {
  static constexpr std::string_view kAlphabet = "0123456789ABCDEFabcdef0123456789G &+-.";
  Texts texts(5);
  for (unsigned exponent = 0; exponent < 512; ++exponent) {
    for (const unsigned mantissa : {0U, 1U, 0x400000U, 0x7FFFFFU, 0x2AAAAAU}) {
      std::array<char, 9> hex{};
      std::snprintf(hex.data(), hex.size(), "%08X", exponent << 23U | mantissa);
      ASSERT_EQ(HexToFloat(hex.data()), plain::HexToFloat(hex.data(), GetParam())) << hex.data();
    }
  }
  for (int i = 0; i < 30000; ++i) {
    std::string hex;
    const std::size_t letters = texts.Chance(4) ? kAlphabet.size() : 22;
    for (std::size_t n = texts.Chance(4) ? texts.Below(12) : 8; n-- > 0;) hex += kAlphabet[texts.Below(letters)];
    if (texts.Chance(50)) hex.insert(texts.Below(hex.size() + 1), "\xE9");
    ASSERT_EQ(HexToFloat(ToUtf8(hex)), plain::HexToFloat(hex, GetParam())) << hex;
  }
}

TEST(FloatCodec, KnownResults) {
  struct Row {
    const char* text;
    const char* hex;
  };
  for (const Row& row : {Row{"1", "3F800000"},
                         {"1.5", "3FC00000"},
                         {"-2.25", "C0100000"},
                         {"100", "42C80000"},
                         {"0.5", "3F000000"},
                         {"0.1", "3DCCCCC0"},
                         {"0.001", "3A831000"},
                         {"1.1", "3F8CCCCC"},
                         {"3.14159", "40490FCF"},
                         {"99.9", "42C7CCCC"},
                         {"123456.789", "47F12064"},
                         {"2147483647", "4EFFFFFF"},
                         {"16777217", "4B800000"},
                         {"", "00000000"},
                         {"-0", "80000000"},
                         {"1.5E3", "3FC00000"},
                         {"1E3", "447A0000"},
                         {"1234567890.5", "4E932C05"}}) {
    EXPECT_EQ(FloatCodec('.').FloatToHex(row.text), row.hex) << row.text;
  }
  EXPECT_EQ(FloatCodec(',').FloatToHex("1,5"), "3FC00000");
  EXPECT_EQ(FloatCodec(',').FloatToHex("0,25"), "3E800000");
}

TEST(FloatCodec, DecodesKnownResults) {
  const std::vector<std::pair<const char*, double>> rows{{"3F800000", 1},
                                                         {"c0000000", -2},
                                                         {"80000000", -5.87747175411144E-39},
                                                         {"00800000", 1.17549435082229E-38},
                                                         {"7F800000", 3.40282366920938E+38},
                                                         {"7FC00000", 5.10423550381407E+38},
                                                         {"00000000", 0},
                                                         {"3F8000001234", 1},
                                                         {"000000000", 5.87747175411144E-39},
                                                         {"", 5.87747175411144E-39}};
  for (const auto& [hex, value] : rows) EXPECT_DOUBLE_EQ(HexToFloat(hex), value) << hex;
  EXPECT_EQ(HexToFloat("3F8"), HexToFloat("3F080000"));
  EXPECT_EQ(HexToFloat("3G800000"), HexToFloat("03800000"));
  EXPECT_EQ(HexToFloat("G3800000"), HexToFloat("00800000"));
}

TEST(FloatCodec, KeepsTheExponentOfTheLastNumber) {
  FloatCodec codec('.');
  EXPECT_TRUE(codec.ExponentBits().empty());
  EXPECT_TRUE(codec.MantissaBits().empty());
  EXPECT_TRUE(codec.DecimalSeparator().empty());
  EXPECT_EQ(codec.FloatToHex("0.001"), "3A831000");
  EXPECT_EQ(codec.FloatToHex("0.000"), "00000000");
  EXPECT_EQ(codec.MantissaBits(), "00000110001000000000000");  // a zero by its spelling leaves all texts
  EXPECT_EQ(codec.FloatToHex("0.0000001"), "3A800000");
  EXPECT_EQ(codec.FloatToHex("-"), "BA800000");
  EXPECT_EQ(codec.ExponentBits(), "01110101");
  EXPECT_EQ(codec.FractionText(), "0.0");
  EXPECT_EQ(codec.DecimalSeparator(), ".");
}

TEST(FloatCodec, FailuresLeaveWhatWasSet) {
  FloatCodec codec('.');
  codec.FloatToHex("1.5");
  EXPECT_THROW(codec.FloatToHex("1.x"), RuntimeFailure);
  EXPECT_EQ(codec.FractionText(), "0.x");
  EXPECT_EQ(codec.MantissaBits(), "10000000000000000000000");
  EXPECT_THROW(codec.FloatToHex("2147483648"), RuntimeFailure);
  EXPECT_EQ(codec.FractionText(), "");
  EXPECT_THROW(codec.FloatToHex("3E9,5"), RuntimeFailure);
  EXPECT_EQ(codec.DecimalSeparator(), ",");
}

TEST(FloatCodec, SmallOperations) {
  EXPECT_EQ(FloatCodec::ByteToBits(0), "00000000");
  EXPECT_EQ(FloatCodec::ByteToBits(0xA5), "10100101");
  EXPECT_EQ(FloatCodec::IntegerToBits(-7), "0");
  EXPECT_EQ(FloatCodec::IntegerToBits(2147483647), std::string(31, '1'));
  for (const char* const text :
       {"", "1", "01", "0000", "1001", "1010", "1110", "1111", "9999", "2000", "x1x1", "11111"}) {
    EXPECT_EQ(std::string(1, FloatCodec::BitsToHexDigit(text)), plain::BitsToHexDigit(text)) << text;
  }
}

TEST(FloatCodec, WritesBackWhatItShows) {
  Codecs codecs(',');
  Texts texts(6);
  for (int i = 0; i < 20000; ++i) {
    const std::string text(codecs.FormatValue(static_cast<double>(texts.Below(2000000)) / 8 - 100000));
    EXPECT_EQ(codecs.FormatValue(HexToFloat(codecs.FloatToHex(text))).View(), text);
  }
}

}  // namespace
}  // namespace htr60
