#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace htr60 {

/// A byte that begins no character of UTF-8 counts as one character, and as this one.
inline constexpr char32_t kNoCharacter = 0xFFFD;

constexpr bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Size in bytes of the character that `text` (not empty) begins with.
constexpr std::size_t CharacterSize(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) return 1;
  std::size_t size = 1;
  if (lead >= 0xC2 && lead < 0xE0) size = 2;
  if (lead >= 0xE0 && lead < 0xF0) size = 3;
  if (lead >= 0xF0 && lead < 0xF5) size = 4;
  if (size > text.size()) return 1;
  for (std::size_t i = 1; i < size; ++i) {
    if (!IsContinuation(text[i])) return 1;
  }
  return size;
}

/// Whether the eight bytes at `text` are eight characters.
inline bool EightCharacters(const char* text) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, text, sizeof bytes);
  return (bytes & 0x8080808080808080U) == 0;
}

/// Takes at most `count` characters off the front of `text`.
constexpr std::string_view TakeCharacters(std::string_view& text, std::size_t count) {
  std::size_t size = 0;
  if (!std::is_constant_evaluated()) {
    for (; count >= 8 && text.size() - size >= 8 && EightCharacters(text.data() + size); count -= 8) size += 8;
  }
  while (count > 0 && size < text.size()) {
    size += CharacterSize(text.substr(size));
    --count;
  }
  const std::string_view taken = text.substr(0, size);
  text.remove_prefix(size);
  return taken;
}

/// Whether `text` has at least `count` characters, one or more.
constexpr bool HasCharacters(std::string_view text, std::size_t count) {
  TakeCharacters(text, count - 1);
  return !text.empty();
}

/// Takes the first character off `text`, which is not empty.
constexpr char32_t TakeCharacter(std::string_view& text) {
  const std::size_t size = CharacterSize(text);
  const auto lead = static_cast<unsigned char>(text.front());
  char32_t character = lead;
  if (size == 1 && lead >= 0x80) character = kNoCharacter;
  if (size > 1) {
    character = lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) character = character << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  text.remove_prefix(size);
  return character;
}

}  // namespace htr60
