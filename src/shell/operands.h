#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "text/fixed_text.h"

namespace htr60 {

inline constexpr std::size_t kAttributeCount = 24;

/// Operands of a request, from `Attribute1` upward; the positions after them are "None". Written as a braced list, so
/// that they are converted in the order of the attributes: the float codec remembers.
class Operands {
 public:
  Operands() = default;
  Operands(std::initializer_list<InlineText> values) : count_(values.size()) {
    std::copy(values.begin(), values.end(), values_.begin());
  }
  /// A write that sends nothing: its check failed, or it did something else instead.
  static Operands Nothing() {
    Operands nothing;
    nothing.sends_ = false;
    return nothing;
  }

  bool Sends() const { return sends_; }
  std::string_view operator[](std::size_t position) const {
    return position < count_ ? values_[position].View() : std::string_view("None");
  }
  void Add(InlineText value) { values_.at(count_++) = std::move(value); }

 private:
  std::array<InlineText, kAttributeCount> values_;
  std::size_t count_ = 0;
  bool sends_ = true;
};

/// A record: the digits of its members one after the other, converted in their order.
inline InlineText Join(std::initializer_list<std::string_view> members) {
  InlineText record;
  for (const std::string_view member : members) record.Append(member);
  return record;
}

}  // namespace htr60
