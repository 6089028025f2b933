#pragma once

#include "figures/figure.h"

namespace htr60::figures {

/// The curve that the instrument holds, applied over measured pressure, with the pressure measured now.
Figure CharacterizationFigure(const FigureSource& source);
/// The points recorded so far, with the pressure measured now as that of the next one.
Figure CharacterizationEntryFigure(const FigureSource& source);

}  // namespace htr60::figures
