#pragma once

#include "figures/figure.h"
#include "windows/view/canvas.h"

namespace htr60::view {

/// Paints a figure into a room.
void PaintFigure(const Canvas& canvas, const RECT& room, const Figure& figure);

/// The field of the point at a place; none where there is no point.
ControlId FieldAt(const Figure& figure, const RECT& room, const Look& look, POINT place);

}  // namespace htr60::view
