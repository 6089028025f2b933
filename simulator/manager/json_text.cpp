#include "simulator/manager/json_text.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <system_error>

#include "simulator/manager/settings.h"

namespace htr60::sim {
namespace {

using nlohmann::json;

// Nothing of use is nested as deeply as this; what is deeper could only exhaust the stack of whoever walks through it.
constexpr int kDeepest = 64;
constexpr std::size_t kLargestFile = 1'000'000;

bool IsTooDeep(std::string_view text) {
  int depth = 0;
  bool inText = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char character = text[i];
    if (inText) {
      if (character == '\\') ++i;
      if (character == '"') inText = false;
    } else if (character == '"') {
      inText = true;
    } else if (character == '[' || character == '{') {
      if (++depth > kDeepest) return true;
    } else if (character == ']' || character == '}') {
      --depth;
    }
  }
  return false;
}

/// "line 2, byte 5" of the byte that the parser counts from 1, as an editor counts.
std::string PlaceOf(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, byte - std::min<std::size_t>(byte, 1));
  const std::size_t lineBegin = before.rfind('\n') + 1;  // none: 0
  const auto lines = std::count(before.begin(), before.end(), '\n');
  return "line " + std::to_string(lines + 1) + ", byte " + std::to_string(before.size() - lineBegin + 1);
}

}  // namespace

json ParseJsonText(std::string_view text) {
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) throw SettingsError("the text is empty");
  if (IsTooDeep(text)) throw SettingsError("the text is nested too deeply");
  // The parser takes a NUL for the end of its input.
  if (text.find('\0') != std::string_view::npos) throw SettingsError("the text is no JSON: it holds a NUL");
  try {
    return json::parse(text);
  } catch (const json::parse_error& error) {
    throw SettingsError("the text is no JSON in UTF-8, from " + PlaceOf(text, error.byte));
  } catch (const json::exception&) {
    throw SettingsError("the text is no JSON: a number is out of range");
  }
}

json ReadSettingsFile(const std::filesystem::path& file) {
  std::error_code error;
  const auto kind = std::filesystem::status(file, error).type();
  if (kind == std::filesystem::file_type::not_found) throw SettingsError("there is no such file");
  // A pipe or a terminal might never end, and a folder opens like an empty file.
  if (kind != std::filesystem::file_type::regular) throw SettingsError("this is no regular file");
  std::ifstream stream(file, std::ios::binary);
  std::string text(kLargestFile + 1, '\0');
  if (!stream || (!stream.read(text.data(), static_cast<std::streamsize>(text.size())) && !stream.eof())) {
    throw SettingsError("the file cannot be read");
  }
  text.resize(static_cast<std::size_t>(stream.gcount()));
  if (text.size() > kLargestFile) throw SettingsError("the file is larger than 1 MB");
  return ParseJsonText(text);
}

}  // namespace htr60::sim
