#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace htr60 {

namespace text_hash_detail {

template <std::size_t kBytes>
constexpr std::uint64_t Load(const char* from) {
  if (std::is_constant_evaluated() || std::endian::native != std::endian::little) {
    std::uint64_t value = 0;
    for (std::size_t i = kBytes; i-- > 0;) value = (value << 8U) | static_cast<unsigned char>(from[i]);
    return value;
  }
  std::uint64_t value = 0;
  std::memcpy(&value, from, kBytes);
  return value;
}

}  // namespace text_hash_detail

/// A quick hash. Takes in the whole of a text of up to 16 bytes, and the ends and the middle of a longer one: texts
/// that share it are easily made, so nothing may rest on its spread where others choose the texts.
constexpr std::uint64_t HashOfText(std::string_view text) {
  const char* const first = text.data();
  const std::size_t size = text.size();
  std::uint64_t a = 0;
  std::uint64_t b = size;
  if (size >= 8) {
    a = text_hash_detail::Load<8>(first);
    b += text_hash_detail::Load<8>(first + size - 8);
    if (size > 16) a ^= std::rotl(text_hash_detail::Load<8>(first + size / 2 - 4), 27);
  } else if (size >= 4) {
    a = text_hash_detail::Load<4>(first) | text_hash_detail::Load<4>(first + size - 4) << 32U;
  } else if (size > 0) {
    a = text_hash_detail::Load<1>(first) | text_hash_detail::Load<1>(first + size / 2) << 8U |
        text_hash_detail::Load<1>(first + size - 1) << 16U;
  }
  std::uint64_t hash = (a ^ std::rotl(b * 0x9E3779B97F4A7C15U, 32)) * 0xD6E8FEB86659FD93U;
  hash ^= hash >> 32U;
  return hash * 0xD6E8FEB86659FD93U;
}

}  // namespace htr60
