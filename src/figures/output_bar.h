#pragma once

#include "figures/figure.h"

namespace htr60::figures {

/// A block's output as a pointer on the bar of its scale.
Figure OutputBarFigure(const FigureSource& source);

}  // namespace htr60::figures
