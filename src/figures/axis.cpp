#include "figures/axis.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "text/failure.h"
#include "text/numbers.h"

namespace htr60::figures {
namespace {

constexpr double kMostDrawable = 1e300;

double NearestDrawable(double number) {
  return std::isnan(number) ? 0 : std::clamp(number, -kMostDrawable, kMostDrawable);
}

// The largest of 1, 2, 5 times a power of ten that gives at least four steps over the span.
double RoundStep(double span) {
  const double power = std::pow(10.0, std::floor(std::log10(span / 4)));
  const double ratio = span / 4 / power;
  if (ratio >= 5) return 5 * power;
  if (ratio >= 2) return 2 * power;
  return power;
}

}  // namespace

bool Drawable(double number) { return std::abs(number) <= kMostDrawable; }

std::optional<double> NumberOf(std::string_view text, char decimalSeparator) {
  try {
    const double number = ParseLocaleNumber(text, decimalSeparator);
    if (std::isfinite(number)) return number;
  } catch (const RuntimeFailure&) {
    return std::nullopt;
  }
  return std::nullopt;
}

FigureAxis RoundAxis(std::string caption, double from, double to, char decimalSeparator) {
  from = NearestDrawable(from);
  to = NearestDrawable(to);
  if (from > to) std::swap(from, to);
  // Beyond this neighbouring numbers cannot be told apart, so ticks would stand on each other.
  const double least = std::max({std::abs(from), std::abs(to), 1e-300}) * 1e-12;
  if (to - from <= least) {
    const double half = std::max(std::abs(from) * 0.5, 0.5);
    from -= half;
    to += half;
  }
  const double step = RoundStep(to - from);
  FigureAxis axis;
  axis.caption = std::move(caption);
  const double first = std::floor(from / step);
  const double last = std::ceil(to / step);
  axis.from = first * step;
  axis.to = last * step;
  const int count = static_cast<int>(last - first);
  for (int i = 0; i <= count && i <= 20; ++i) {
    const double value = (first + i) * step;
    const NumberText text = NumberToText(std::abs(value) < step * 1e-9 ? 0.0 : value, decimalSeparator);
    axis.ticks.push_back({value, std::string(text.View())});
  }
  return axis;
}

}  // namespace htr60::figures
