#include <array>
#include <string_view>

#include "shell/user_cntrl.h"

namespace htr60 {
namespace {

constexpr std::string_view kOpen = "<ViewData><ControlData";
constexpr std::string_view kClose = "/></ViewData>";
constexpr std::string_view kName = " Attribute";

// What stands for a character of an attribute value; empty: the character itself.
constexpr std::string_view EscapeOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

std::size_t EscapedSize(std::string_view value) {
  std::size_t size = value.size();
  for (const char c : value) {
    if (const std::string_view escape = EscapeOf(c); !escape.empty()) size += escape.size() - 1;
  }
  return size;
}

}  // namespace

std::string UserCntrl::DocXML(std::span<const std::string_view, kAttributeCount> values) {
  std::size_t size = kOpen.size() + kClose.size();
  for (std::size_t i = 0; i < values.size(); ++i) {
    size += kName.size() + (i < 9 ? 1 : 2) + 3 + EscapedSize(values[i]);
  }
  std::string document;
  document.reserve(size);
  document += kOpen;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::size_t number = i + 1;
    document += kName;
    if (number > 9) document += static_cast<char>('0' + number / 10);
    document += static_cast<char>('0' + number % 10);
    document += "=\"";
    for (const char c : values[i]) {
      const std::string_view escape = EscapeOf(c);
      if (escape.empty()) {
        document += c;
      } else {
        document += escape;
      }
    }
    document += '"';
  }
  document += kClose;
  return document;
}

}  // namespace htr60
