#pragma once

#include "figures/figure.h"

namespace htr60::figures {

/// The calibration points of the pressure between the sensor limits, their least distance, and the live value.
Figure CalibrationFigure(const FigureSource& source);

}  // namespace htr60::figures
