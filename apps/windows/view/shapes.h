#pragma once

#include <cstdint>

#include "presentation/field_state.h"
#include "presentation/marks.h"
#include "windows/view/canvas.h"

namespace htr60::view {

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
};

Shape ShapeOf(presentation::FieldState state);
Shape ShapeOf(presentation::Mark mark);

void PaintShape(const Canvas& canvas, const RECT& room, Shape shape);

}  // namespace htr60::view
