#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "shell/page_unit.h"

// Compile-time checks over the tables of all units. Names are compared as sorted hashes: comparing all pairs of texts
// would exceed the number of steps that a compiler allows.
namespace htr60::checks {

constexpr std::uint64_t Hash(std::string_view text, std::uint64_t seed = 14695981039346656037ULL) {
  for (const char c : text) seed = (seed ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  return seed;
}

template <std::size_t kMost>
class Keys {
 public:
  constexpr void Add(std::uint64_t key) { keys_[count_++] = key; }
  constexpr bool AllDifferent() {
    std::sort(keys_.begin(), keys_.begin() + static_cast<std::ptrdiff_t>(count_));
    for (std::size_t i = 1; i < count_; ++i) {
      if (keys_[i - 1] == keys_[i]) return false;
    }
    return true;
  }

 private:
  std::array<std::uint64_t, kMost> keys_{};
  std::size_t count_ = 0;
};

template <std::size_t N>
using Units = const PageUnit* const (&)[N];

template <std::size_t N>
constexpr bool AnswersOnce(Units<N> units) {
  Keys<256> keys;
  for (const PageUnit* unit : units) {
    for (const AnswerRow& row : unit->answers) keys.Add(static_cast<std::uint64_t>(row.code));
  }
  return keys.AllDifferent();
}

// One key a page and sub-page; a row for any sub-page must be alone on its page, which the second set of keys tells.
template <class Row, std::size_t N>
constexpr bool PairsOnce(Units<N> units, std::span<const Row> PageUnit::*rows) {
  Keys<512> pairs;
  for (const PageUnit* unit : units) {
    for (const Row& row : unit->*rows) {
      for (std::size_t p = 0; p < row.pages.Count(); ++p) {
        const std::uint64_t page = Hash(row.pages[p]);
        if (row.subPages.Any()) pairs.Add(Hash("\x01", page));
        for (std::size_t s = 0; s < row.subPages.Set().Count(); ++s) pairs.Add(Hash(row.subPages.Set()[s], page + 1));
      }
    }
  }
  return pairs.AllDifferent();
}

template <std::size_t N>
constexpr bool WritesOnce(Units<N> units) {
  return PairsOnce<WriteRow>(units, &PageUnit::writes);
}

template <std::size_t N>
constexpr bool RereadsOnce(Units<N> units) {
  return PairsOnce<RereadRow>(units, &PageUnit::rereads);
}

template <std::size_t N>
constexpr bool BacksOnce(Units<N> units) {
  Keys<128> keys;
  for (const PageUnit* unit : units) {
    for (const BackRow& row : unit->backs) {
      for (std::size_t p = 0; p < row.pages.Count(); ++p) keys.Add(Hash(row.pages[p]));
    }
  }
  return keys.AllDifferent();
}

template <std::size_t N>
constexpr bool EventsOnce(Units<N> units) {
  Keys<256> keys;
  for (const PageUnit* unit : units) {
    for (const ButtonRow& row : unit->buttons) keys.Add(row.button.ordinal);
    for (const TabRow& row : unit->tabs) keys.Add(row.strip.ordinal);
    for (const ListRow& row : unit->lists) keys.Add(row.list.ordinal);
    for (const PollRow& row : unit->polls) keys.Add(kControlCount + static_cast<std::uint64_t>(row.timer));
  }
  return keys.AllDifferent();
}

// Counts the places of every control: rows, captions, units, groups, strips, and fields declared as working fields.
class Places {
 public:
  constexpr void Put(ControlId control) {
    if (control) ++counts_[control.ordinal];
  }
  constexpr void Put(const LayoutRow& row) {
    Put(row.control);
    if (row.captionControl && !(row.captionControl == row.control)) Put(row.captionControl);
    if (!row.unit.echo) Put(row.unit.control);
    Put(row.second);
  }
  constexpr void Put(const PageLayout& layout) {
    Put(ControlId{layout.frame});
    Put(ControlId{layout.strip});
    for (const LayoutInnerStrip& inner : layout.innerStrips) Put(ControlId{inner.strip});
    for (const LayoutGroup& group : layout.groups) {
      if (group.rows.empty() || !group.frame || !placedFrames_[group.frame.ordinal]) Put(group.frame);
      if (group.frame) placedFrames_[group.frame.ordinal] = true;
      Put(ControlId{group.panel});
      for (const LayoutRow& row : group.rows) Put(row);
    }
  }
  constexpr bool None() const {
    return std::all_of(counts_.begin(), counts_.end(), [](int count) { return count <= 1; });
  }

 private:
  std::array<int, kControlCount> counts_{};
  std::array<bool, kControlCount> placedFrames_{};
};

template <std::size_t N>
constexpr bool PlacedOnce(Units<N> units) {
  Places places;
  for (const PageUnit* unit : units) {
    for (const PageLayout& layout : unit->layouts) places.Put(layout);
    for (const ControlId control : unit->workingFields) places.Put(control);
  }
  return places.None();
}

}  // namespace htr60::checks
