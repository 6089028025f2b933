#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "simulator/device/device.h"

namespace htr60::sim {

inline constexpr std::size_t kAttributes = 24;
using Attributes = std::array<std::string, kAttributes>;
/// The text of an attribute that leaves its parameter alone.
inline constexpr std::string_view kUnused = "None";

/// Carries out a write whose moment has come: every attribute is judged, stored or refused, and logged. A code without
/// a row does nothing.
void ExecuteWrite(Device& device, int code, const Attributes& attributes);

/// Sets parameters as an operator on site would: judged and with side effects, but without the write lock.
/// Throws `SettingsError` at the first one that is refused; the device is then to be thrown away.
void SetOnSite(Device& device, const std::map<std::string, std::string>& parameters);

}  // namespace htr60::sim
