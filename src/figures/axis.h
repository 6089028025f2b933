#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "figures/figure.h"

namespace htr60::figures {

/// Whether figures can draw it: with larger numbers the span of an axis would be infinite.
bool Drawable(double number);

/// An axis over `from` to `to` with round ticks; equal ends are widened. What is not drawable counts as the nearest
/// number that is, and NaN as 0.
FigureAxis RoundAxis(std::string caption, double from, double to, char decimalSeparator);

/// The number of a field's text in the operator's locale; none where it is no number.
std::optional<double> NumberOf(std::string_view text, char decimalSeparator);

}  // namespace htr60::figures
