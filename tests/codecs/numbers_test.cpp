#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "codecs/codecs.h"
#include "plain/plain_codecs.h"
#include "text/failure.h"
#include "text/numbers.h"

namespace htr60 {
namespace {

double AnyDouble(std::mt19937_64& random) {
  switch (random() % 4) {
    case 0: {
      const std::uint64_t bits = random();
      double value = 0;
      std::memcpy(&value, &bits, sizeof value);
      return std::isfinite(value) ? value : 1.0;
    }
    case 1:
      return static_cast<double>(static_cast<std::int64_t>(random() % 2000000) - 1000000) / 1024;
    case 2:
      return static_cast<double>(random() % 1000000000) / 1e6;
    default:
      return std::ldexp(static_cast<double>(random() % 1000003), static_cast<int>(random() % 120) - 80);
  }
}

TEST(Numbers, ParseLeading) {
  const std::vector<std::pair<const char*, double>> rows{
      {"", 0},         {"abc", 0},    {"12abc", 12},   {"  -3.5x", -3.5}, {"+4", 4},
      {"1,5", 1},      {".5", 0.5},   {"5.", 5},       {"1.2.3", 1.2},    {"1E3", 1000},
      {"1e-2x", 0.01}, {"1E", 1},     {"1E+", 1},      {"&HfF", 255},     {"&H3G", 3},
      {"&HG3", 0},     {"&H", 0},     {"-", 0},        {".", 0},          {"- 5", 0},
      {"1 2", 1},      {"1E-999", 0}, {"\xC3\xA9", 0}, {"  &H10", 16},    {"0E99999999999999999999", 0}};
  for (const auto& [text, value] : rows) EXPECT_EQ(ParseLeadingNumber(text), value) << text;
  EXPECT_TRUE(std::isinf(ParseLeadingNumber("1E99999999999999999999")));
}

TEST(Numbers, ParseLocale) {
  struct Row {
    const char* text;
    char separator;
    double value;
  };
  for (const Row& row : {Row{"0,25", '.', 25},
                         {"0,25", ',', 0.25},
                         {"1.234,5", ',', 1234.5},
                         {",1,2.5", '.', 12.5},
                         {" 5 ", '.', 5},
                         {"5.", '.', 5},
                         {".5", '.', 0.5},
                         {"-1.5E+2", '.', -150},
                         {"+7", '.', 7},
                         {"1e2", ',', 100},
                         {"1,E2", '.', 100}}) {
    EXPECT_EQ(ParseLocaleNumber(row.text, row.separator), row.value) << row.text;
  }
  for (const char* const text :
       {"", " ", ".", ",", "-", "1.5,5", "1.2.3", "1E", "1E+", "abc", "1x", "- 5", "1 2", "&H10", "1E999"}) {
    EXPECT_THROW(ParseLocaleNumber(text, '.'), RuntimeFailure) << text;
  }
}

TEST(Numbers, ReadsLongTextsToTheNearestDouble) {
  std::mt19937_64 random(11);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (std::size_t n = 1 + random() % (i % 100 == 0 ? 1200 : 30); n-- > 0;)
      text += static_cast<char>('0' + random() % 10);
    text.insert(random() % std::min<std::size_t>(text.size(), 250), 1, '.');
    if (random() % 2 == 0) text.append(1, 'E').append(std::to_string(static_cast<int>(random() % 80) - 40));
    ASSERT_EQ(ParseLocaleNumber(text, '.'), std::strtod(text.c_str(), nullptr)) << text;
    ASSERT_EQ(ParseLeadingNumber(text), std::strtod(text.c_str(), nullptr)) << text;
  }
  // A half-way number is decided by a digit far after it.
  const std::string half = "9007199254740993" + std::string(900, '0');
  EXPECT_EQ(ParseLeadingNumber(half + "E-900"), 9007199254740992.0);
  EXPECT_EQ(ParseLeadingNumber("9007199254740993." + std::string(900, '0') + "1"), 9007199254740994.0);
}

TEST(Numbers, ToText) {
  const std::vector<std::pair<double, const char*>> rows{{0.5, "0.5"},
                                                         {1.5, "1.5"},
                                                         {1, "1"},
                                                         {-0.0, "0"},
                                                         {-2.25, "-2.25"},
                                                         {1e14, "100000000000000"},
                                                         {1e15, "1E+15"},
                                                         {0.000000000000001, "0.000000000000001"},
                                                         {1e-16, "1E-16"},
                                                         {0.00100000004749745, "1.00000004749745E-03"},
                                                         {3.40282366920938E+38, "3.40282366920938E+38"},
                                                         {999999999999999.9, "1E+15"},
                                                         {0.1 + 0.2, "0.3"},
                                                         {1e300, "1E+300"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(NumberToText(value, '.'), text);
  EXPECT_EQ(NumberToText(-1234.5, ','), "-1234,5");
  EXPECT_THROW(NumberToText(std::numeric_limits<double>::quiet_NaN(), '.'), RuntimeFailure);
  std::mt19937_64 random(12);
  for (int i = 0; i < 50000; ++i) {
    const double value = AnyDouble(random);
    ASSERT_EQ(NumberToText(value, ','), plain::NumberToText(value, ',')) << value;
  }
}

TEST(Numbers, Formats) {
  const Codecs point('.');
  const Codecs comma(',');
  EXPECT_EQ(point.FormatValue(1.5), "1.500");
  EXPECT_EQ(comma.FormatValue(1.5), "1,500");
  EXPECT_EQ(point.FormatValue(0), "0.000");
  EXPECT_EQ(point.FormatValue(-0.0004), "0.000");
  EXPECT_EQ(point.FormatValue(-0.0006), "-0.001");
  EXPECT_EQ(point.FormatValue(-5.87747175411144E-39), "0.000");
  EXPECT_EQ(point.FormatDecimals(9.80665, 7), "9.8066500");
  EXPECT_EQ(point.FormatDecimals(2.6, 0), "3");
  EXPECT_EQ(point.FormatValue(-std::numeric_limits<double>::max()).size(), 314U);
  EXPECT_THROW(point.FormatValue(std::numeric_limits<double>::infinity()), RuntimeFailure);
  std::mt19937_64 random(13);
  for (int i = 0; i < 50000; ++i) {
    const double value = AnyDouble(random);
    const int decimals = std::vector<int>{3, 3, 6, 7, 8, 4}[random() % 6];
    ASSERT_EQ(comma.FormatDecimals(value, decimals), plain::Format(value, decimals, ',')) << value << " " << decimals;
  }
  // Next to a half, where only the exact value decides.
  for (int i = 0; i < 20000; ++i) {
    const double half = (static_cast<double>(random() % 1000000) + 0.5) / 1000;
    for (const double value : {half, std::nextafter(half, 0), std::nextafter(half, 1e9)}) {
      ASSERT_EQ(point.FormatValue(value), plain::Format(value, 3, '.')) << value;
    }
  }
}

TEST(Numbers, HexNumbers) {
  EXPECT_EQ(HexNumber32("FFFF"), 65535);
  EXPECT_EQ(HexNumber32("ffffFFFF"), -1);
  EXPECT_EQ(HexNumber32("80000000"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(HexNumber32("000000001A"), 26);
  EXPECT_EQ(HexNumber16("FFFF"), -1);
  EXPECT_EQ(HexNumber16("00007FFF"), 32767);
  for (const char* const text : {"", "G", "1G", " 1", "1 ", "-1", "100000000"}) {
    EXPECT_THROW(HexNumber32(text), RuntimeFailure) << text;
  }
  EXPECT_THROW(HexNumber16("10000"), RuntimeFailure);
}

TEST(Numbers, WholeNumbers) {
  const Codecs codecs(',');
  const std::vector<std::pair<const char*, std::int32_t>> rows{
      {"2,5", 2},   {"3,5", 4}, {"-2,5", -2}, {"2147483647,4", 2147483647}, {"-2147483648,5", -2147483647 - 1},
      {"1E3", 1000}};
  for (const auto& [text, value] : rows) EXPECT_EQ(codecs.TextToInt32(text), value) << text;
  for (const char* const text : {"", "x", "2147483647,5", "-2147483649"}) {
    EXPECT_THROW(codecs.TextToInt32(text), RuntimeFailure) << text;
  }
  EXPECT_EQ(Codecs::IntToHex(0), "0");
  EXPECT_EQ(Codecs::IntToHex(0, 4), "0000");
  EXPECT_EQ(Codecs::IntToHex(0xAB, 4), "00AB");
  EXPECT_EQ(Codecs::IntToHex(0x12AB, 2), "12AB");
  EXPECT_EQ(Codecs::IntToHex(-2, 2), "FFFFFFFE");
}

}  // namespace
}  // namespace htr60
