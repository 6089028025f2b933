#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "text/failure.h"

namespace htr60 {

/// Text of at most `N` bytes held in place. Copying costs what the text is long, not what it may become.
/// A text that does not fit throws `RuntimeFailure`.
template <std::size_t N>
class FixedText {
 public:
  constexpr FixedText() noexcept {}  // the characters stay unset until they are used
  constexpr explicit FixedText(std::string_view text) { Append(text); }
  constexpr FixedText(const FixedText& other) noexcept : size_(other.size_) {
    std::copy_n(other.chars_.data(), size_, chars_.data());
  }
  constexpr FixedText& operator=(const FixedText& other) noexcept {
    if (this != &other) {
      size_ = other.size_;
      std::copy_n(other.chars_.data(), size_, chars_.data());
    }
    return *this;
  }
  constexpr FixedText& operator=(std::string_view text) {
    Clear();
    return Append(text);
  }

  constexpr FixedText& Append(std::string_view text) {
    if (text.size() > N - size_) throw RuntimeFailure("text longer than its place");
    std::copy_n(text.data(), text.size(), chars_.data() + size_);
    size_ += text.size();
    return *this;
  }
  constexpr FixedText& Append(std::size_t count, char character) {
    if (count > N - size_) throw RuntimeFailure("text longer than its place");
    std::fill_n(chars_.data() + size_, count, character);
    size_ += count;
    return *this;
  }
  constexpr FixedText& Append(char character) { return Append(1, character); }
  constexpr void Clear() noexcept { size_ = 0; }

  constexpr std::string_view View() const noexcept { return {chars_.data(), size_}; }
  // NOLINTNEXTLINE(google-explicit-constructor): a fixed text goes wherever a text goes.
  constexpr operator std::string_view() const noexcept { return View(); }
  constexpr std::size_t size() const noexcept { return size_; }
  constexpr bool empty() const noexcept { return size_ == 0; }

  template <class Text>
  requires std::is_convertible_v<const Text&, std::string_view>
  friend constexpr bool operator==(const FixedText& a, const Text& b) noexcept {
    return a.View() == std::string_view(b);
  }

 private:
  std::array<char, N> chars_;
  std::size_t size_ = 0;
};

/// Text of any length: the usual one in place, a longer one on the heap.
class InlineText {
 public:
  static constexpr std::size_t kInlineSize = 104;

  InlineText() noexcept {}  // the characters stay unset until they are used
  // NOLINTBEGIN(google-explicit-constructor): an operand is written as the text it is.
  InlineText(std::string_view text) { Append(text); }
  InlineText(const char* text) { Append(text); }
  InlineText(const std::string& text) { Append(text); }
  template <std::size_t N>
  InlineText(const FixedText<N>& text) {
    Append(text.View());
  }
  // NOLINTEND(google-explicit-constructor)
  InlineText(const InlineText& other) { Append(other.View()); }
  InlineText(InlineText&& other) noexcept { Take(other); }
  InlineText& operator=(const InlineText& other) {
    if (this != &other) {
      Clear();
      Append(other.View());
    }
    return *this;
  }
  InlineText& operator=(InlineText&& other) noexcept {
    if (this != &other) Take(other);
    return *this;
  }
  ~InlineText() = default;

  InlineText& Append(std::string_view text) {
    if (Spilled()) {
      spill_.append(text);
    } else if (text.size() <= kInlineSize - size_) {
      std::copy_n(text.data(), text.size(), chars_.data() + size_);
    } else {
      spill_.reserve(size_ + text.size());
      spill_.assign(chars_.data(), size_).append(text);
    }
    size_ += text.size();
    return *this;
  }
  InlineText& Append(char character) { return Append(std::string_view(&character, 1)); }
  /// Empties the text and gives back what it had on the heap.
  void Clear() noexcept {
    if (Spilled()) spill_ = std::string();
    size_ = 0;
  }

  std::string_view View() const noexcept {
    return Spilled() ? std::string_view(spill_) : std::string_view(chars_.data(), size_);
  }
  // NOLINTNEXTLINE(google-explicit-constructor): a text goes wherever a text goes.
  operator std::string_view() const noexcept { return View(); }
  std::size_t size() const noexcept { return size_; }
  bool empty() const noexcept { return size_ == 0; }

  template <class Text>
  requires std::is_convertible_v<const Text&, std::string_view>
  friend bool operator==(const InlineText& a, const Text& b) noexcept { return a.View() == std::string_view(b); }

 private:
  bool Spilled() const noexcept { return size_ > kInlineSize; }
  void Take(InlineText& other) noexcept {
    size_ = other.size_;
    if (other.Spilled()) {
      spill_ = std::move(other.spill_);
      other.spill_ = std::string();
    } else {
      spill_ = std::string();
      std::copy_n(other.chars_.data(), size_, chars_.data());
    }
    other.size_ = 0;
  }

  std::array<char, kInlineSize> chars_;
  std::size_t size_ = 0;
  std::string spill_;  // holds the text whenever it is longer than its place
};

}  // namespace htr60
