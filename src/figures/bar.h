#pragma once

#include <string>
#include <string_view>

#include "figures/figure.h"

namespace htr60::figures {

/// "Output (kPa)"; without a unit the name alone.
std::string WithUnit(std::string_view name, std::string_view unit);

/// "Uncertain" of "Uncertain & Substitute".
std::string FirstWord(std::string_view text);

/// Where a drawable number lies for the bar.
BarReach ReachOf(const FigureBar& bar, double value);

/// The number, or the end of the bar that it lies beyond.
double OnBar(const FigureBar& bar, double value);

/// The part of a span that the bar reaches; none where it lies beyond.
void AddBracket(FigureBar& bar, double from, double to);

/// Joins two that are out of order.
void AddWrong(FigureBar& bar, double from, double to);

}  // namespace htr60::figures
