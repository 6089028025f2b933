#pragma once

#include <optional>

#include "presentation/keys.h"
#include "windows/win.h"

namespace htr60::view {

/// A key message as the presentation takes it; none of those that only lead to another.
std::optional<presentation::KeyPress> PressOf(const MSG& message);

}  // namespace htr60::view
