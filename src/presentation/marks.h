#pragma once

#include <cstdint>
#include <string_view>

#include "form/layout.h"

namespace htr60::presentation {

/// What stands before a status, a verdict, an alarm, a message: none, a triangle, a square with a cross.
enum class Mark : std::uint8_t { kNone, kUncertain, kBad };

/// By the text as shown; the text itself is never touched.
Mark MarkOf(RowRole role, RowKind kind, std::string_view text);

/// "uncertain", "bad", or empty: the name of a mark, for scripts and assistive technology.
std::string_view NameOf(Mark mark);

}  // namespace htr60::presentation
