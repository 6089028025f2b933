#pragma once

#include <cstdint>

#include "presentation/field_state.h"
#include "presentation/health.h"
#include "presentation/marks.h"

namespace htr60::presentation {

/// Small pictures before fields. Each differs from all others in its outline: grey print loses nothing.
enum class Shape : std::uint8_t {
  kNone,
  kCircle,            ///< hollow: not read
  kPencil,            ///< slanted bar: not written
  kHourglass,         ///< sent
  kCheck,             ///< confirmed
  kCheckOverLine,     ///< stored as the code can hold it
  kNotEqual,          ///< the device differs
  kDottedNotEqual,    ///< replaced by the device
  kFilledTriangle,    ///< changed
  kCrossedHourglass,  ///< sent, not read back
  kWarning,           ///< triangle: uncertain
  kFault,             ///< square with a cross: bad
  kQuestion,          ///< square with a question mark: outside of its limits
  kFunctionCheck,     ///< filled triangle: simulated
  kFailure,           ///< circle with a cross
};

Shape ShapeOf(FieldState state);

/// The shape before a status, a verdict, an alarm, a message.
Shape ShapeOf(Mark mark);

/// The shape before the word of the instrument's health.
Shape ShapeOf(HealthState health);

}  // namespace htr60::presentation
