#pragma once

#include "figures/figure.h"

namespace htr60::figures {

/// The square root with its linear beginning and its cut-off: flow over differential pressure, both 0 to 100 %.
Figure SquareRootFigure(const FigureSource& source);

}  // namespace htr60::figures
