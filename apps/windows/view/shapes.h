#pragma once

#include "presentation/shapes.h"
#include "windows/view/canvas.h"

namespace htr60::view {

using presentation::Shape;
using presentation::ShapeOf;

/// Those of the health stand in no frame, which names the device by itself: they are not painted.
void PaintShape(const Canvas& canvas, const RECT& room, Shape shape);

}  // namespace htr60::view
