#include "figures/analog_input.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "figures/axis.h"
#include "figures/bar.h"

namespace htr60::figures {
namespace {

constexpr std::string_view kEqual = "Check: upper and lower value are equal.";

/// A field as the figure takes it.
struct Quantity {
  ControlId field{};
  std::string_view name;
};
constexpr Quantity kPvUpper{id::txtParameter(64), "PV Scale, Upper [EU (100%)]"};
constexpr Quantity kPvLower{id::txtParameter(63), "PV Scale, Lower [EU (0%)]"};
constexpr Quantity kOutUpper{id::txtParameter(129), "Out Scale, Upper [EU (100%)]"};
constexpr Quantity kOutLower{id::txtParameter(130), "Out Scale, Lower [EU (0%)]"};
constexpr Quantity kHysteresis{id::txtParameter(124), "Hysteresis"};
constexpr Quantity kOutput{id::txtParameter(125), "Output"};
constexpr ControlId kStatus = id::cmbStatusAIModeBlock;

/// From the highest to the lowest. The bracket of the hysteresis leads inside: down from an upper limit.
struct Limit {
  Quantity quantity;
  int inside;
};
constexpr Limit kLimits[] = {
    {{id::txtParameter(120), "Upper Limit Alarm"}, -1},
    {{id::txtParameter(121), "Upper Limit Warning"}, -1},
    {{id::txtParameter(123), "Lower Limit Warning"}, 1},
    {{id::txtParameter(122), "Lower Limit Alarm"}, 1},
};

std::string TextOf(const FigureSource& source, ControlId field) { return std::string(source.form.TextOf(field)); }

std::string KnownText(const FigureSource& source, ControlId field) {
  return source.known(field) ? TextOf(source, field) : std::string();
}

// What may be drawn of a field; where it is known but cannot be drawn a remark says so.
std::optional<double> Take(const FigureSource& source, const Quantity& quantity, Figure& figure) {
  if (!source.known(quantity.field)) return std::nullopt;
  return TakeNumber(source, quantity.field, quantity.name, figure);
}

struct Scales {
  std::optional<double> pvUpper;
  std::optional<double> pvLower;
  std::optional<double> outUpper;
  std::optional<double> outLower;
  bool pvKnown = false;
  bool outKnown = false;

  bool PvIs() const { return pvUpper && pvLower; }
  bool OutIs() const { return outUpper && outLower; }
  bool PvSpans() const { return PvIs() && *pvUpper != *pvLower; }
  bool OutSpans() const { return OutIs() && *outUpper != *outLower; }
};

Scales TakeScales(const FigureSource& source, Figure& figure) {
  Scales scales;
  scales.pvKnown = source.known(kPvUpper.field) && source.known(kPvLower.field);
  scales.outKnown = source.known(kOutUpper.field) && source.known(kOutLower.field);
  scales.pvUpper = Take(source, kPvUpper, figure);
  scales.pvLower = Take(source, kPvLower, figure);
  scales.outUpper = Take(source, kOutUpper, figure);
  scales.outLower = Take(source, kOutLower, figure);
  const bool equal = (scales.PvIs() && !scales.PvSpans()) || (scales.OutIs() && !scales.OutSpans());
  if (equal) figure.remarks.emplace_back(kEqual);
  return scales;
}

void AddEnd(Figure& figure, const FigureSource& source, const Quantity& pv, const Quantity& out, FigurePoint at) {
  const bool unwritten = source.unwritten(pv.field) || source.unwritten(out.field);
  figure.markers.push_back({at, unwritten ? MarkerShape::kHollowSquare : MarkerShape::kFilledSquare, {}});
}

// An end that is no number leaves its point out, and with it the line; the axis then has the other end alone.
FigureAxis AxisOf(std::string caption, const FigureSource& source, const Quantity& upper, std::optional<double> high,
                  const Quantity& lower, std::optional<double> low) {
  const AxisEnd top{high ? *high : *low, TextOf(source, high ? upper.field : lower.field)};
  const AxisEnd bottom{low ? *low : *high, TextOf(source, low ? lower.field : upper.field)};
  return EndAxis(std::move(caption), bottom, top);
}

void AddLine(Figure& figure, const FigureSource& source, const Scales& s) {
  if (!s.pvKnown || !s.outKnown) {
    figure.missing = "No scales read yet: open Scales first.";
    return;
  }
  const bool upper = s.pvUpper && s.outUpper;
  const bool lower = s.pvLower && s.outLower;
  if (!upper && !lower) {
    figure.missing = "The scales are no numbers.";
    return;
  }
  const std::string pvUnit = KnownText(source, id::txtParameter(302));
  const std::string outUnit = KnownText(source, id::lbArray(201));
  figure.x = AxisOf(WithUnit("PV", pvUnit), source, kPvUpper, s.pvUpper, kPvLower, s.pvLower);
  figure.y = AxisOf(WithUnit("Output", outUnit), source, kOutUpper, s.outUpper, kOutLower, s.outLower);
  if (s.PvSpans() && s.OutSpans()) {
    figure.lines.push_back({{{*s.pvLower, *s.outLower}, {*s.pvUpper, *s.outUpper}}, LineStyle::kCurve});
  }
  if (lower) AddEnd(figure, source, kPvLower, kOutLower, {*s.pvLower, *s.outLower});
  if (upper) AddEnd(figure, source, kPvUpper, kOutUpper, {*s.pvUpper, *s.outUpper});
}

// ---- the bar

struct PlacedLimit {
  const Limit* limit = nullptr;
  double value = 0;
};

std::vector<PlacedLimit> TakeLimits(const FigureSource& source, Figure& figure) {
  std::vector<PlacedLimit> placed;
  for (const Limit& limit : kLimits) {
    if (const auto value = Take(source, limit.quantity, figure)) placed.push_back({&limit, *value});
  }
  return placed;
}

void AddLimits(FigureBar& bar, const FigureSource& source, const std::vector<PlacedLimit>& limits,
               std::optional<double> hysteresis) {
  for (const PlacedLimit& placed : limits) {
    const Quantity& quantity = placed.limit->quantity;
    bar.marks.push_back({OnBar(bar, placed.value), std::string(quantity.name) + " " + TextOf(source, quantity.field),
                         ReachOf(bar, placed.value), source.unwritten(quantity.field)});
    if (hysteresis && *hysteresis > 0) {
      AddBracket(bar, placed.value, placed.value + placed.limit->inside * *hysteresis);
    }
  }
}

// Neighbours that stand the wrong way round.
void CheckOrder(Figure& figure, const std::vector<PlacedLimit>& limits) {
  for (std::size_t i = 1; i < limits.size(); ++i) {
    const PlacedLimit& higher = limits[i - 1];
    const PlacedLimit& lower = limits[i];
    if (lower.value <= higher.value) continue;
    figure.remarks.push_back("Check: " + std::string(lower.limit->quantity.name) + " lies above " +
                             std::string(higher.limit->quantity.name) + ".");
    if (figure.bar) AddWrong(*figure.bar, lower.value, higher.value);
  }
}

std::optional<FigureBar> BarOf(const FigureSource& source, const Scales& s) {
  if (!s.OutSpans()) return std::nullopt;
  FigureBar bar;
  bar.from = std::min(*s.outLower, *s.outUpper);
  bar.to = std::max(*s.outLower, *s.outUpper);
  bar.axis = AxisOf(WithUnit("Output", KnownText(source, id::lbArray(201))), source, kOutUpper, s.outUpper, kOutLower,
                    s.outLower);
  return bar;
}

void AddPointer(FigureBar& bar, const FigureSource& source, std::optional<double> output) {
  if (!output) return;
  bar.pointer = BarPointer{OnBar(bar, *output), TextOf(source, kOutput.field), FirstWord(KnownText(source, kStatus)),
                           ReachOf(bar, *output)};
}

void AddBar(Figure& figure, const FigureSource& source, const Scales& scales) {
  const std::vector<PlacedLimit> limits = TakeLimits(source, figure);
  const auto hysteresis = Take(source, kHysteresis, figure);
  const auto output = Take(source, kOutput, figure);
  figure.bar = BarOf(source, scales);
  if (figure.bar) {
    AddLimits(*figure.bar, source, limits, hysteresis);
    AddPointer(*figure.bar, source, output);
  }
  CheckOrder(figure, limits);
}

void AddAlarms(Figure& figure, const FigureSource& source) {
  figure.alarmCaption = "Current Alarm";
  if (source.known(id::ListAIAlarm)) figure.alarms = source.form.ListAIAlarm.Rows();
}

void AddMissing(Figure& figure, const FigureSource& source) {
  const bool anyLimit = std::any_of(std::begin(kLimits), std::end(kLimits),
                                    [&](const Limit& limit) { return source.known(limit.quantity.field); });
  if (!anyLimit) figure.above.emplace_back("No limits read yet: open Alarm/Warning first.");
  if (!source.known(kOutput.field)) figure.above.emplace_back("No output read yet: open Mode Block first.");
}

// ---- the sentence

std::string Between(const FigureSource& source, const Quantity& lower, const Quantity& upper, const std::string& unit) {
  return TextOf(source, lower.field) + " to " + TextOf(source, upper.field) + (unit.empty() ? "" : " ") + unit;
}

std::string SentenceOf(const Figure& figure, const FigureSource& source) {
  std::string sentence = figure.missing;
  if (figure.missing.empty()) {
    sentence = "PV " + Between(source, kPvLower, kPvUpper, KnownText(source, id::txtParameter(302))) +
               " gives output " + Between(source, kOutLower, kOutUpper, KnownText(source, id::lbArray(201))) + ".";
  }
  if (figure.bar) {
    const char* before = " Limits: ";
    for (const BarMark& mark : figure.bar->marks) {
      sentence += std::exchange(before, ", ") + mark.text;
    }
    if (!figure.bar->marks.empty()) sentence += ".";
    if (figure.bar->pointer) {
      const BarPointer& pointer = *figure.bar->pointer;
      sentence += " Output " + pointer.text + (pointer.status.empty() ? "" : ", ") + pointer.status + ".";
    }
  }
  for (const std::string& line : figure.above) sentence += " " + line;
  return sentence;
}

}  // namespace

Figure AnalogInputFigure(const FigureSource& source) {
  Figure figure;
  const Scales scales = TakeScales(source, figure);
  AddLine(figure, source, scales);
  AddBar(figure, source, scales);
  AddAlarms(figure, source);
  AddMissing(figure, source);
  figure.sentence = SentenceOf(figure, source);
  return figure;
}

}  // namespace htr60::figures
