#include "codecs/mStatusProfibus.h"

#include <array>
#include <cstddef>

#include "codecs/status_tables.h"
#include "text/hex_digits.h"
#include "text/text_map.h"

namespace htr60 {
namespace {

constexpr std::int32_t kBytes = 256;

/// Values without a row fall back on their range, and from 192 up on "Good (NC)", not "Good (C)".
constexpr std::string_view RangeText(std::int32_t status) {
  if (status < 64) return "Bad";
  return status < 128 ? "Uncertain" : "Good (NC)";
}

constexpr auto kTexts = [] {
  std::array<std::string_view, kBytes> texts{};
  for (std::int32_t value = 0; value < kBytes; ++value) texts[static_cast<std::size_t>(value)] = RangeText(value);
  for (const StatusRow& row : kStatusRows) {
    for (std::int32_t value = row.first; value <= row.last; ++value) texts[static_cast<std::size_t>(value)] = row.text;
  }
  return texts;
}();

/// The first row of a text is its lowest value, which is what it is written as.
constexpr TextMap kRowOfText(kStatusRows);

}  // namespace

std::string_view StatusByteToText(std::int32_t status) noexcept {
  return status >= 0 && status < kBytes ? kTexts[static_cast<std::size_t>(status)] : RangeText(status);
}

std::string_view StatusTextToHex(std::string_view text) noexcept {
  const std::size_t row = kRowOfText.Find(text);
  if (row == kStatusRows.size()) return {};
  return {kByteDigits.data() + 2 * kStatusRows[row].first, 2};
}

std::span<const std::string_view> StatusListRows() noexcept { return kStatusListRows; }

}  // namespace htr60
