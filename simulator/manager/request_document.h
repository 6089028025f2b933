#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/device/writes.h"

namespace htr60::sim {

/// The attributes of a `ViewData` document; those that it does not have are none.
using RequestAttributes = std::array<std::optional<std::string>, kAttributes>;

/// Reads a request document; none where it is not well-formed or no `ViewData` with a `ControlData`.
std::optional<RequestAttributes> ParseRequest(std::string_view document);

}  // namespace htr60::sim
