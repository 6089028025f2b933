#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "text/text_hash.h"

namespace htr60 {

/// A text and what it is written as or means.
struct TextPair {
  std::string_view text;
  std::string_view value;
};

namespace text_map_detail {

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
    return static_cast<std::size_t>(HashOfText(text) >> (64U - std::countr_zero(kSlots)));
  }

  std::array<std::uint16_t, kSlots> slots_{};  // row + 1, 0 for none
  std::array<std::string_view, N> texts_{};
};

}  // namespace htr60
