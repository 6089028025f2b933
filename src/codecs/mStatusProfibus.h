#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace htr60 {

/// Text of a status byte; a value without a row gives its range's text, never "".
std::string_view StatusByteToText(std::int32_t status) noexcept;
/// Two hexadecimal digits of a status text, compared exactly; "" for an unknown text.
std::string_view StatusTextToHex(std::string_view text) noexcept;
/// Rows of the status lists, in their order, duplicates included.
std::span<const std::string_view> StatusListRows() noexcept;

}  // namespace htr60
