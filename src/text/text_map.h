#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace htr60 {

/// A text and what it is written as or means.
struct TextPair {
  std::string_view text;
  std::string_view value;
};

namespace text_map_detail {

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

/// Takes in the whole of a text of up to 16 bytes, and the ends and the middle of a longer one.
constexpr std::uint64_t Hash(std::string_view text) {
  const char* const first = text.data();
  const std::size_t size = text.size();
  std::uint64_t a = 0;
  std::uint64_t b = size;
  if (size >= 8) {
    a = Load<8>(first);
    b += Load<8>(first + size - 8);
    if (size > 16) a ^= std::rotl(Load<8>(first + size / 2 - 4), 27);
  } else if (size >= 4) {
    a = Load<4>(first) | Load<4>(first + size - 4) << 32U;
  } else if (size > 0) {
    a = Load<1>(first) | Load<1>(first + size / 2) << 8U | Load<1>(first + size - 1) << 16U;
  }
  std::uint64_t hash = (a ^ std::rotl(b * 0x9E3779B97F4A7C15U, 32)) * 0xD6E8FEB86659FD93U;
  hash ^= hash >> 32U;
  return hash * 0xD6E8FEB86659FD93U;
}

constexpr bool Equal(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (std::is_constant_evaluated()) return a == b;
  return std::memcmp(a.data(), b.data(), a.size()) == 0;
}

constexpr std::string_view TextOf(std::string_view row) { return row; }
template <class Row>
constexpr std::string_view TextOf(const Row& row) {
  return row.text;
}

}  // namespace text_map_detail

/// Finds the row of a text among `N` rows in constant time; made at compile time. Of rows with one text the first
/// counts.
template <std::size_t N>
class TextMap {
 public:
  template <class Row>
  constexpr explicit TextMap(const std::array<Row, N>& rows) {
    for (std::size_t row = 0; row < N; ++row) {
      texts_[row] = text_map_detail::TextOf(rows[row]);
      std::size_t slot = FirstSlot(texts_[row]);
      while (slots_[slot] != 0 && texts_[slots_[slot] - 1U] != texts_[row]) slot = (slot + 1) % kSlots;
      if (slots_[slot] == 0) slots_[slot] = static_cast<std::uint16_t>(row + 1);
    }
  }

  /// Number of the first row with `text`; `N` where there is none.
  constexpr std::size_t Find(std::string_view text) const noexcept {
    std::size_t slot = FirstSlot(text);
    while (slots_[slot] != 0) {
      const std::size_t row = slots_[slot] - 1U;
      if (text_map_detail::Equal(texts_[row], text)) return row;
      slot = (slot + 1) % kSlots;
    }
    return N;
  }

 private:
  static_assert(N > 0 && N < 0x4000);
  static constexpr std::size_t kSlots = std::bit_ceil(4 * N);

  static constexpr std::size_t FirstSlot(std::string_view text) {
    return static_cast<std::size_t>(text_map_detail::Hash(text) >> (64U - std::countr_zero(kSlots)));
  }

  std::array<std::uint16_t, kSlots> slots_{};  // row + 1, 0 for none
  std::array<std::string_view, N> texts_{};
};

}  // namespace htr60
