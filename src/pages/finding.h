#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "pages/contents.h"

// How a wrong row of a unit's table is told at compile time: both compilers name the unit, the table and the row.
namespace htr60::checks {

/// The row that a check has found wrong; without a unit: none.
struct Finding {
  const char* unit = nullptr;
  const char* table = "";
  int row = 0;  ///< from 1
};

struct Word {
  char text[32]{};
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr Word(const char* from) {
    for (std::size_t i = 0; from != nullptr && from[i] != '\0' && i + 1 < sizeof text; ++i) text[i] = from[i];
  }
};

/// A finding as a template argument: g++ prints its texts.
struct Place {
  Word unit;
  Word table;
  int row;
  // NOLINTNEXTLINE(google-explicit-constructor): a finding stands where its place is wanted.
  constexpr Place(const Finding& finding) : unit(finding.unit), table(finding.table), row(finding.row) {}
};

template <Place kWrong>
struct Right {
  static_assert(kWrong.row == 0, "a page table is wrong: its unit, table and row stand in this instantiation");
  static constexpr bool kChecked = true;
};

// Never defined: a call from a constant expression is an error, and clang prints its texts.
void WrongRow(const char* unit, const char* table, int row);

constexpr bool Tell(const char* unit, const char* table, int row) {
  if (unit != nullptr) WrongRow(unit, table, row);
  return true;
}
constexpr bool Tell(const Finding& finding) { return Tell(finding.unit, finding.table, finding.row); }

/// Calls `look(row)` for the rows of one table of all units until one is wrong.
template <class Row, std::size_t N, class Look>
constexpr Finding FirstWrong(NamedUnits<N> units, std::span<const Row> PageUnit::*table, const char* name, Look look) {
  for (const NamedUnit& named : units) {
    int number = 0;
    for (const Row& row : named.unit->*table) {
      ++number;
      if (!look(row)) return {named.name, name, number};
    }
  }
  return {};
}

constexpr std::uint64_t Hash(std::string_view text, std::uint64_t seed = 14695981039346656037ULL) {
  for (const char c : text) seed = (seed ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  return seed;
}

/// Keys of rows; those that stand twice are found by sorting.
template <std::size_t kMost>
class Keys {
 public:
  constexpr void Add(std::uint64_t key, const Finding& row) { keys_[count_++] = {key, row}; }
  constexpr void Sort() {
    std::sort(keys_.begin(), keys_.begin() + static_cast<std::ptrdiff_t>(count_),
              [](const Key& a, const Key& b) { return a.key < b.key; });
  }
  /// Sorts, and gives the second row of the first key that stands twice.
  constexpr Finding Doubled() {
    Sort();
    for (std::size_t i = 1; i < count_; ++i) {
      if (keys_[i - 1].key == keys_[i].key) return keys_[i].row;
    }
    return {};
  }
  /// After `Sort`.
  constexpr bool Has(std::uint64_t key) const {
    const auto end = keys_.begin() + static_cast<std::ptrdiff_t>(count_);
    const auto found =
        std::lower_bound(keys_.begin(), end, key, [](const Key& a, std::uint64_t wanted) { return a.key < wanted; });
    return found != end && found->key == key;
  }

 private:
  struct Key {
    std::uint64_t key = 0;
    Finding row{};
  };
  std::array<Key, kMost> keys_{};
  std::size_t count_ = 0;
};

/// The first row whose key another row of that table has, too.
template <std::size_t kMost, class Row, std::size_t N, class KeyOf>
constexpr Finding Doubled(NamedUnits<N> units, std::span<const Row> PageUnit::*table, const char* name, KeyOf keyOf) {
  Keys<kMost> keys;
  for (const NamedUnit& named : units) {
    int number = 0;
    for (const Row& row : named.unit->*table) keys.Add(keyOf(row), {named.name, name, ++number});
  }
  return keys.Doubled();
}

}  // namespace htr60::checks
