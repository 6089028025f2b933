#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace htr60 {

/// What stands for a character of an attribute value in double quotes; empty: the character itself. White space that a
/// parser would turn into blanks is kept by its number.
constexpr std::string_view XmlEscapeOf(char c) {
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

/// Bytes of `value` once it is escaped.
constexpr std::size_t XmlEscapedSize(std::string_view value) {
  std::size_t size = value.size();
  for (const char c : value) {
    if (const std::string_view escape = XmlEscapeOf(c); !escape.empty()) size += escape.size() - 1;
  }
  return size;
}

inline void AppendXmlEscaped(std::string& document, std::string_view value) {
  for (const char c : value) {
    const std::string_view escape = XmlEscapeOf(c);
    if (escape.empty()) {
      document += c;
    } else {
      document += escape;
    }
  }
}

}  // namespace htr60
