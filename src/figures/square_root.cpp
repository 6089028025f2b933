#include "figures/square_root.h"

#include <cmath>
#include <optional>
#include <string_view>

#include "figures/axis.h"

namespace htr60::figures {
namespace {

constexpr double kFull = 100;
constexpr int kSteps = 100;

struct Setting {
  TextId field;
  std::string_view caption;
};
constexpr Setting kLinear{id::txtParameter(37), "Flow Lin Sqrt (%)"};
constexpr Setting kCutOff{id::txtParameter(40), "Low Flow Cut Off (%)"};

// The setting's percent of flow; none where it is no number from 0 to 100, and then a remark says so.
std::optional<double> PercentOf(const FigureSource& source, const Setting& setting, Figure& figure) {
  if (!source.known(setting.field)) return std::nullopt;
  const auto percent = NumberIn(source, setting.field);
  if (percent && *percent >= 0 && *percent <= kFull) return percent;
  figure.remarks.push_back("Check: " + std::string(setting.caption) + " is no number from 0 to 100.");
  return std::nullopt;
}

double PressureAt(double flow) { return flow * flow / kFull; }

// Flow at a pressure: the root, below `linear` a straight line to the origin.
double FlowAt(double pressure, double linear) {
  const double corner = PressureAt(linear);
  if (linear > 0 && pressure < corner) return pressure * linear / corner;
  return 10 * std::sqrt(pressure);
}

void AddLevel(Figure& figure, const FigureSource& source, const Setting& setting, double percent) {
  figure.lines.push_back({{{0, percent}, {kFull, percent}}, LineStyle::kLevel});
  figure.texts.push_back(
      {{kFull, percent}, std::string(setting.caption) + " " + source.form.At(setting.field).Text(), true});
}

// The pressure at which the flow reaches the cut-off: on the straight line or on the root.
double CutOffPressure(double cutOff, double linear) {
  return cutOff < linear ? cutOff * PressureAt(linear) / linear : PressureAt(cutOff);
}

void AddCurve(Figure& figure, double linear, double cutOff) {
  FigureLine curve;
  const double from = CutOffPressure(cutOff, linear);
  if (cutOff > 0) curve.points = {{0, 0}, {from, 0}, {from, cutOff}};
  const double corner = PressureAt(linear);
  if (cutOff <= 0) curve.points.push_back({0, 0});
  if (linear > 0 && corner > from) curve.points.push_back({corner, linear});
  // Denser towards the origin, where the root is steep.
  for (int i = 1; i <= kSteps; ++i) {
    const double share = static_cast<double>(i) / kSteps;
    const double pressure = kFull * share * share;
    if (pressure > from && pressure > corner) curve.points.push_back({pressure, FlowAt(pressure, linear)});
  }
  figure.lines.push_back(std::move(curve));
}

}  // namespace

Figure SquareRootFigure(const FigureSource& source) {
  Figure figure;
  if (!source.known(id::cmbLinearizationType)) {
    figure.missing = "No settings read yet: open Settings first.";
    figure.sentence = figure.missing;
    return figure;
  }
  figure.x = RoundAxis("Differential pressure (%)", 0, kFull, source.decimalSeparator);
  figure.y = RoundAxis("Flow (%)", 0, kFull, source.decimalSeparator);
  figure.lines.push_back({{{0, 0}, {kFull, kFull}}, LineStyle::kReference});
  figure.texts.push_back({{kFull * 0.7, kFull * 0.62}, "No Linearization.", false});
  const auto linear = PercentOf(source, kLinear, figure);
  const auto cutOff = PercentOf(source, kCutOff, figure);
  const bool whole = linear && cutOff;
  AddCurve(figure, whole ? *linear : 0, whole ? *cutOff : 0);
  if (linear) AddLevel(figure, source, kLinear, *linear);
  if (cutOff) AddLevel(figure, source, kCutOff, *cutOff);
  const std::string& chosen = source.form.cmbLinearizationType.Text();
  if (chosen != "Square Root" && chosen != "Square Root & Table") {
    figure.above.emplace_back("The linearization now chosen does not use this curve.");
  }
  figure.sentence = "Flow in percent over differential pressure in percent: a square root";
  if (whole) {
    figure.sentence += ", straight below " + source.form.At(kLinear.field).Text() + " % of flow, zero below " +
                       source.form.At(kCutOff.field).Text() + " %";
  }
  figure.sentence += ".";
  return figure;
}

}  // namespace htr60::figures
