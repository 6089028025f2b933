#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace htr60 {

// Decoder, encoder and lists do not agree at every unit; the differences are part of the system.

/// Unit text of a code; "" for a code without one.
std::string_view UnitCodeToText(std::int32_t code) noexcept;
/// Four hexadecimal digits of a unit text, compared exactly; "" for an unknown text.
std::string_view UnitTextToCode(std::string_view text) noexcept;

/// Rows of the choice lists, in their order.
std::span<const std::string_view> UnitListRows() noexcept;
std::span<const std::string_view> VolumeUnitListRows() noexcept;
std::span<const std::string_view> LengthUnitListRows() noexcept;
std::span<const std::string_view> DensityUnitListRows() noexcept;

}  // namespace htr60
