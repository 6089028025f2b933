#pragma once

#include "figures/figure.h"

namespace htr60::figures {

/// How an Analog Input block scales, and a bar of its output with limits and pointer.
Figure AnalogInputFigure(const FigureSource& source);

}  // namespace htr60::figures
