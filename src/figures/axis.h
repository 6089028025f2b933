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

/// An axis that two numbers bound, in either order, with their texts as its ticks; equal ones are widened. Both must be
/// drawable.
struct AxisEnd {
  double value = 0;
  std::string text;
};
FigureAxis EndAxis(std::string caption, AxisEnd one, AxisEnd other);

/// The same of a field of the form; none too where the field bears a hint, but for what is too large to be drawn: that
/// has words of its own.
std::optional<double> NumberIn(const FigureSource& source, ControlId field);

/// The same as far as it can be drawn; where it cannot, a remark names it.
std::optional<double> TakeNumber(const FigureSource& source, ControlId field, std::string_view name, Figure& figure);

}  // namespace htr60::figures
