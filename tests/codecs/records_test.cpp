#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "codecs/codecs.h"
#include "codecs/mFunctions.h"
#include "text/hex_digits.h"

namespace htr60 {
namespace {

constexpr std::int32_t kOld = -77;
constexpr std::int16_t kOldWord = -77;

struct Field {
  void SetText(std::string_view value) { text = value; }
  std::string text = "old";
};

TEST(Records, Numbers) {
  struct Row {
    const char* hex;
    std::int32_t word;
    std::int32_t number;
  };
  for (const Row& row : {Row{"0999", 2457, kOld},
                         {"FFFF", 65535, kOld},
                         {"7fffffff", 32767, 2147483647},
                         {"80000000", 32768, kOld},
                         {"12345678ZZ", 0x1234, 0x12345678},
                         {"", kOld, kOld},
                         {"12", kOld, kOld},
                         {"123", 0x1203, kOld},
                         {"12G4", kOld, kOld},
                         {"G234", kOld, kOld},
                         {" 123", kOld, kOld},
                         {"1234567", 0x1234, 0x12345607},
                         {"12\xC3\xA9"
                          "4",
                          kOld, kOld}}) {
    std::int32_t word = kOld;
    std::int32_t number = kOld;
    HexToWord(row.hex, word);
    HexToLong(row.hex, number);
    EXPECT_EQ(word, row.word) << row.hex;
    EXPECT_EQ(number, row.number) << row.hex;
  }
}

TEST(Records, OutputsBehindABadPieceKeepTheirValues) {
  using Words = std::array<std::int16_t, 4>;
  for (const auto& [hex, expected] :
       std::vector<std::pair<const char*, Words>>{{"0001000200038000", {1, 2, 3, kOldWord}},
                                                  {"8000000100020003", {kOldWord, kOldWord, kOldWord, kOldWord}},
                                                  {"7FFF0002000", {32767, 2, 0, kOldWord}},
                                                  {"00010002000x0004", {1, 2, kOldWord, kOldWord}},
                                                  {"0001000200030004FF", {1, 2, 3, 4}}}) {
    Words words{kOldWord, kOldWord, kOldWord, kOldWord};
    HexToFourWords(hex, words[0], words[1], words[2], words[3]);
    EXPECT_EQ(words, expected) << hex;
  }
  using Bytes = std::array<std::int32_t, 3>;
  for (const auto& [hex, expected] : std::vector<std::pair<const char*, Bytes>>{{"0AFF80", {10, 255, 128}},
                                                                                {"0AFF8", {10, 255, 8}},
                                                                                {"0A-1FF", {10, kOld, kOld}},
                                                                                {"", {kOld, kOld, kOld}}}) {
    Bytes bytes{kOld, kOld, kOld};
    HexToThreeBytes(hex, bytes[0], bytes[1], bytes[2]);
    EXPECT_EQ(bytes, expected) << hex;
  }
}

TEST(Records, Simulation) {
  struct Row {
    const char* hex;
    std::int32_t first;
    double value;
    std::int32_t last;
  };
  constexpr double kTiny = 5.87747175411144E-39;
  for (const Row& row : {Row{"803FC0000001", 128, 1.5, 1},
                         {"803FC00000", 128, 1.5, kOld},
                         {"80", 128, kTiny, kOld},
                         {"x03FC0000001", kOld, 9.5, kOld},
                         {"80GG80000001", 128, HexToFloat("00800000"), 1},
                         {"80\xC3\xA9"
                          "FC0000001",
                          128, HexToFloat("00C00000"), 1},
                         {"803FC000000x", 128, 1.5, kOld}}) {
    std::int32_t first = kOld;
    double value = 9.5;
    std::int32_t last = kOld;
    HexToSimulation(row.hex, first, value, last);
    EXPECT_EQ(first, row.first) << row.hex;
    EXPECT_EQ(value, row.value) << row.hex;
    EXPECT_EQ(last, row.last) << row.hex;
  }
}

// Pieces are counted in characters, however many bytes these have.
TEST(Records, PiecesAreTakenByCharacters) {
  std::mt19937 random(5);
  for (int round = 0; round < 20000; ++round) {
    std::vector<std::string> characters;
    for (std::size_t left = random() % 21; left > 0; --left) {
      characters.push_back(random() % 8 != 0 ? std::string(1, kHexDigits[random() % 16]) : random() % 2 ? "é" : "\xC3");
    }
    std::string first;
    std::string second;
    std::string hex;
    for (std::size_t i = 0; i < characters.size(); ++i) {
      hex += characters[i];
      if (i < 16) (i < 8 ? first : second) += characters[i];
    }
    const std::array<double, 2> values = HexToTwoFloats(hex);
    ASSERT_EQ(values[0], HexToFloat(first)) << hex;
    ASSERT_EQ(values[1], HexToFloat(second)) << hex;
    ASSERT_EQ(HexToFloatAt(hex, 9), values[1]) << hex;
  }
}

TEST(Records, FieldsAreFormatted) {
  const Codecs codecs(',');
  for (const auto& [hex, high, low, unit] : std::vector<std::tuple<const char*, const char*, const char*, int>>{
           {"42C8000000000000046D03", "100,000", "0,000", 0x46D},
           {"42C80000BF8000008000", "100,000", "-1,000", kOldWord},
           {"42C80000BF80000004", "100,000", "-1,000", kOldWord},
           {"42C8", "0,000", "0,000", kOldWord}}) {
    Field a;
    Field b;
    std::int16_t word = kOldWord;
    codecs.HexToScale(hex, a, b, word);
    EXPECT_EQ(a.text, std::string_view(hex) == "42C8" ? codecs.FormatValue(HexToFloat("42C80000")).View() : high)
        << hex;
    EXPECT_EQ(b.text, low) << hex;
    EXPECT_EQ(word, unit) << hex;
  }
  Field value;
  std::int32_t status = kOld;
  codecs.HexToFloatStatus("3FC00000FF", value, status);
  EXPECT_EQ(value.text, "1,500");
  EXPECT_EQ(status, 255);
  status = kOld;
  codecs.HexToFloatStatus("40000000", value, status);
  EXPECT_EQ(value.text, "2,000");
  EXPECT_EQ(status, kOld);
  std::array<double, 16> values{};
  HexToFloatArray("3F80000040000000" + std::string(96, '0') + "C0000000", values);
  EXPECT_EQ(values[0], 1);
  EXPECT_EQ(values[1], 2);
  EXPECT_EQ(values[2], 0);
  EXPECT_EQ(values[14], -2);
  EXPECT_EQ(values[15], 5.87747175411144E-39);  // nothing there: zero bytes, which are not the spelling of zero
}

TEST(Records, TextFields) {
  struct Row {
    std::string hex;
    std::string text;
    std::string strict;
  };
  std::string all;
  std::string accepted;
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    if (std::string_view(" %_-./:[\\").find(c) != std::string_view::npos || (c >= '0' && c <= '9') ||
        (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
      const auto hex = Codecs::IntToHex(code, 2);
      std::string kept;
      kept += c;
      EXPECT_EQ(HexToTextField(hex), kept);
      EXPECT_EQ(HexToTextFieldStrict(hex), c == '%' ? std::string() : kept);
    } else {
      EXPECT_EQ(HexToTextField(Codecs::IntToHex(code, 2)), "") << code;
      EXPECT_EQ(HexToTextFieldStrict(Codecs::IntToHex(code, 2)), "") << code;
    }
  }
  for (const Row& row :
       {Row{"312E3034", "1.04", "1.04"},
        {"312E00FF34", "1.", "1.4"},
        {"412542", "A%B", "AB"},
        {"41GG42", "AAB", "AAB"},
        {"xx41", "", "A"},
        {"4142004", "AB", "AB"},
        {"41\xC3\xA9"
         "142",
         "AAB", "AAB"},
        {"", "", ""},
        {std::string(98, '3') + "41" + "42", std::string(49, '3') + "A", std::string(49, '3') + "A"}}) {
    EXPECT_EQ(HexToTextField(row.hex), row.text) << row.hex;
    EXPECT_EQ(HexToTextFieldStrict(row.hex), row.strict) << row.hex;
  }
}

TEST(Records, TextsBecomeDigits) {
  const auto zeros = [](std::size_t count) { return std::string(count, '0'); };
  EXPECT_EQ(TextToHex32("AB"), "4142" + zeros(60));
  EXPECT_EQ(TextToHex32(""), zeros(64));
  EXPECT_EQ(TextToHex32("é€Œ\xC2\x81Ω"), "E9808C3F3F" + zeros(54));
  EXPECT_EQ(TextToHex32("\xFF"
                        "A"),
            "3F41" + zeros(60));
  std::string digits;
  for (int i = 0; i < 33; ++i) digits += "7A";
  EXPECT_EQ(TextToHex32(std::string(33, 'z')), digits);
  EXPECT_EQ(TextToHex32(std::string(80, 'z')).size(), 160U);
  EXPECT_EQ(TextToHexPadded(""), "");
  EXPECT_EQ(TextToHexPadded("P1"), "5031" + zeros(28));
  EXPECT_EQ(MnemonicToHex("²"), "B2" + zeros(30));
  EXPECT_EQ(TextToHexPadded("12345678901234567").size(), 34U);
  EXPECT_EQ(TextToHexPadded(std::string(30, 'z')), digits.substr(0, 48));
}

TEST(InlineText, SpillsAndComesBack) {
  const std::string longText(300, 'x');
  InlineText text("ab");
  text.Append(longText);
  EXPECT_EQ(text, "ab" + longText);
  InlineText copy(text);
  InlineText moved(std::move(text));
  EXPECT_EQ(copy, moved);
  EXPECT_TRUE(text.empty());  // NOLINT(bugprone-use-after-move): a moved-from text is empty
  moved = InlineText("short");
  EXPECT_EQ(moved, "short");
  copy = moved;
  EXPECT_EQ(copy.Append("er"), "shorter");
  moved.Clear();
  EXPECT_EQ(moved.Append(std::string(104, 'y')).Append('z'), std::string(104, 'y') + 'z');
  FixedText<4> fixed("abc");
  EXPECT_THROW(fixed.Append("de"), RuntimeFailure);
  EXPECT_EQ(fixed, "abc");
}

}  // namespace
}  // namespace htr60
