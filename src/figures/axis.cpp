#include "figures/axis.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "text/numbers.h"

namespace htr60::figures {
namespace {

constexpr double kMostDrawable = 1e300;

double NearestDrawable(double number) {
  return std::isnan(number) ? 0 : std::clamp(number, -kMostDrawable, kMostDrawable);
}

// Neighbouring numbers that cannot be told apart: ticks would stand on each other.
bool AreOne(double low, double high) { return high - low <= std::max({std::abs(low), std::abs(high), 1e-300}) * 1e-12; }

void Widen(double& from, double& to) {
  const double half = std::max(std::abs(from) * 0.5, 0.5);
  from -= half;
  to += half;
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

std::optional<double> NumberIn(const FigureSource& source, ControlId field) {
  const auto number = FindLocaleNumber(source.form.TextOf(field), source.decimalSeparator);
  const bool hinted = number && Drawable(*number) && source.hinted && source.hinted(field, *number);
  return hinted ? std::nullopt : number;
}

std::optional<double> TakeNumber(const FigureSource& source, ControlId field, std::string_view name, Figure& figure) {
  const auto number = NumberIn(source, field);
  if (number && Drawable(*number)) return number;
  figure.remarks.push_back(std::string(name) + (number ? ": too large to be drawn." : ": no number."));
  return std::nullopt;
}

FigureAxis RoundAxis(std::string caption, double from, double to, char decimalSeparator) {
  from = NearestDrawable(from);
  to = NearestDrawable(to);
  if (from > to) std::swap(from, to);
  if (AreOne(from, to)) Widen(from, to);
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

FigureAxis EndAxis(std::string caption, AxisEnd one, AxisEnd other) {
  if (one.value > other.value) std::swap(one, other);
  FigureAxis axis;
  axis.caption = std::move(caption);
  axis.from = one.value;
  axis.to = other.value;
  axis.ticks.push_back({one.value, std::move(one.text)});
  if (AreOne(axis.from, axis.to)) {
    Widen(axis.from, axis.to);
  } else {
    axis.ticks.push_back({other.value, std::move(other.text)});
  }
  return axis;
}

}  // namespace htr60::figures
