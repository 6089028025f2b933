#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "simulator/manager/json_text.h"
#include "simulator/manager/settings.h"

namespace htr60::sim {
namespace {

using namespace std::string_view_literals;

/// The sentence with which `read` is refused; empty where it is not.
template <typename Read>
std::string Refusal(Read read) {
  try {
    read();
  } catch (const SettingsError& error) {
    return error.what();
  }
  return {};
}

TEST(JsonText, WhatIsNoOneJsonTextIsRefusedWithItsReason) {
  struct Case {
    std::string_view text;
    std::string_view sentence;
  };
  const std::string nested = std::string(65, '[') + std::string(65, ']');
  const std::string huge = std::string(200000, '[');
  const Case cases[] = {
      {"", "the text is empty"},
      {" \t\r\n", "the text is empty"},
      {"{} x", "the text is no JSON in UTF-8, from line 1, byte 4"},
      {"{}{}", "the text is no JSON in UTF-8, from line 1, byte 3"},
      {"{\n  \"a\": x\n}", "the text is no JSON in UTF-8, from line 2, byte 8"},
      {"{\"a\":\"\xFF\"}", "the text is no JSON in UTF-8, from line 1, byte 7"},
      {"{}\0"sv, "the text is no JSON: it holds a NUL"},
      {"{\"a\":1e999}", "the text is no JSON: a number is out of range"},
      {nested, "the text is nested too deeply"},
      {huge, "the text is nested too deeply"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Refusal([&] { ParseJsonText(c.text); }), c.sentence) << c.text.substr(0, 80);
  }
}

TEST(JsonText, DepthCountsOutsideOfTextsOnly) {
  EXPECT_EQ(ParseJsonText(std::string(64, '[') + std::string(64, ']')).size(), 1U);
  const std::string brackets(100, '{');
  EXPECT_EQ(ParseJsonText("[\"\\\"" + brackets + "\"]")[0], "\"" + brackets);
}

class SettingsFile : public testing::Test {
 protected:
  SettingsFile() : file(std::filesystem::temp_directory_path() / ("htr60-settings-" + std::to_string(getpid()))) {}
  ~SettingsFile() override { std::filesystem::remove(file); }
  void Write(std::string_view text) { std::ofstream(file, std::ios::binary) << text; }

  const std::filesystem::path file;
};

TEST_F(SettingsFile, IsReadWithItsBlanksUpToOneMegabyte) {
  Write("\r\n{ \"device\": {\"tag\": \"µ\"} }\r\n");
  EXPECT_EQ(ReadSettingsFile(file).at("device").at("tag"), "µ");
  Write("{}" + std::string(999'998, ' '));
  EXPECT_TRUE(ReadSettingsFile(file).empty());
  Write("{}" + std::string(999'999, ' '));
  EXPECT_EQ(Refusal([&] { ReadSettingsFile(file); }), "the file is larger than 1 MB");
}

TEST_F(SettingsFile, WhatIsNoSuchFileIsRefused) {
  EXPECT_EQ(Refusal([&] { ReadSettingsFile(file); }), "there is no such file");
  EXPECT_EQ(Refusal([&] { ReadSettingsFile(file.parent_path()); }), "this is no regular file");
  EXPECT_EQ(Refusal([&] { ReadSettingsFile("/dev/zero"); }), "this is no regular file");
  Write("");
  EXPECT_EQ(Refusal([&] { ReadSettingsFile(file); }), "the text is empty");
  Write("{]");
  EXPECT_EQ(Refusal([&] { ReadSettingsFile(file); }), "the text is no JSON in UTF-8, from line 1, byte 2");
}

}  // namespace
}  // namespace htr60::sim
