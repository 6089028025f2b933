#pragma once

#include "figures/figure.h"

namespace htr60::figures {

/// The curve through the points of the linearization table, with the steps that are out of order marked.
Figure LinearizationFigure(const FigureSource& source);

}  // namespace htr60::figures
