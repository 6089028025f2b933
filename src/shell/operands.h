#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>
#include <utility>

#include "text/failure.h"
#include "text/fixed_text.h"

namespace htr60 {

inline constexpr std::size_t kAttributeCount = 24;

/// Operands of a request, from `Attribute1` upward; the positions after them are "None". Written as a braced list, so
/// that they are converted in the order of the attributes: the float codec remembers.
class Operands {
 public:
  Operands() = default;
  template <class... Values>
  requires(sizeof...(Values) > 0 && (std::is_convertible_v<Values, InlineText> && ...))
      // NOLINTNEXTLINE(google-explicit-constructor): a write returns its operands as a braced list.
      Operands(Values&&... values)
      : values_{InlineText(std::forward<Values>(values))...}, count_(sizeof...(Values)) {
    static_assert(sizeof...(Values) <= kAttributeCount, "more operands than a document has attributes");
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
  /// Throws where the document has no attribute left.
  void Add(InlineText value) {
    if (count_ == values_.size()) throw RuntimeFailure("more operands than a document has attributes");
    values_[count_++] = std::move(value);
  }

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
