#include "figures/output_bar.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "figures/axis.h"

namespace htr60::figures {
namespace {

constexpr LabelId kUpper = id::lbDeviceView(37);
constexpr LabelId kLower = id::lbDeviceView(38);
constexpr LabelId kUnit = id::lbDeviceView(39);
constexpr LabelId kOutput = id::lbDeviceView(36);
constexpr LabelId kStatus = id::lbDeviceView(52);

// Across the bar, in shares of the figure's height; the pointer stands out on both sides.
constexpr double kBottom = 0.3;
constexpr double kTop = 0.55;
constexpr double kPointerBottom = 0.2;
constexpr double kPointerTop = 0.7;
constexpr double kWords = 0.75;
// As far as the pointer goes beyond an end, in shares of the scale.
constexpr double kBeyond = 0.1;

std::string_view FirstWord(std::string_view text) { return text.substr(0, text.find(' ')); }

// The number of a field; where it is none, a remark names the field.
std::optional<double> NumberFor(const FigureSource& source, LabelId field, std::string_view caption, Figure& figure) {
  const auto number = NumberIn(source, field);
  if (number && Drawable(*number)) return number;
  figure.remarks.push_back(std::string(caption) + ": no number.");
  return std::nullopt;
}

std::string WithUnit(const FigureSource& source, std::string text) {
  const std::string& unit = source.form.At(kUnit).Text();
  return unit.empty() ? text : text + " " + unit;
}

// "12.500 kPa, Good"
std::string OutputWords(const FigureSource& source) {
  std::string words = WithUnit(source, source.form.At(kOutput).Text());
  const std::string_view status = FirstWord(source.form.At(kStatus).Text());
  if (source.known(kStatus) && !status.empty()) words += ", " + std::string(status);
  return words;
}

void AddBar(Figure& figure, double lower, double upper) {
  figure.lines.push_back(
      {{{lower, kBottom}, {upper, kBottom}, {upper, kTop}, {lower, kTop}, {lower, kBottom}}, LineStyle::kCurve});
}

// An output beyond the scale is legal: the pointer stands outside the bar, at most a tenth of the scale away.
void AddPointer(Figure& figure, const FigureSource& source, double lower, double upper, double output) {
  const double share = (output - lower) / (upper - lower);
  const double shown = lower + std::clamp(share, -kBeyond, 1 + kBeyond) * (upper - lower);
  figure.lines.push_back({{{shown, kPointerBottom}, {shown, kPointerTop}}, LineStyle::kCurve});
  figure.markers.push_back({{shown, (kBottom + kTop) / 2}, MarkerShape::kFilledSquare});
  figure.texts.push_back({{shown, kWords}, OutputWords(source), share > 0.5});
  if (share < 0 || share > 1) {
    const bool above = (output > upper) == (upper > lower);
    figure.remarks.push_back(std::string("Check: the output lies beyond ") +
                             (above ? "Upper [EU (100%)]." : "Lower [EU (0%)]."));
  }
}

}  // namespace

Figure OutputBarFigure(const FigureSource& source) {
  Figure figure;
  if (!source.known(kUpper) || !source.known(kLower)) {
    figure.missing = "No output scale read yet.";
    figure.sentence = figure.missing;
    return figure;
  }
  const auto lower = NumberFor(source, kLower, "Lower [EU (0%)]", figure);
  const auto upper = NumberFor(source, kUpper, "Upper [EU (100%)]", figure);
  const auto output = source.known(kOutput) ? NumberFor(source, kOutput, "Value", figure) : std::nullopt;
  figure.sentence = "Output on its scale from " + source.form.At(kLower).Text() + " to " +
                    WithUnit(source, source.form.At(kUpper).Text());
  figure.sentence += (source.known(kOutput) ? ": " + OutputWords(source) : std::string(": not read yet")) + ".";
  if (lower && upper && *lower == *upper)
    figure.remarks.insert(figure.remarks.begin(), "Check: upper and lower value are equal.");
  if (!lower || !upper || *lower == *upper) {
    figure.missing = "The scale cannot be drawn.";
    return figure;
  }
  // A falling scale runs from its lower value on the left, too.
  const double margin = (*upper - *lower) * kBeyond * 1.2;
  figure.x = {.caption = source.form.At(kUnit).Text(), .from = *lower - margin, .to = *upper + margin, .ticks = {}};
  figure.x.ticks = {{*lower, source.form.At(kLower).Text()}, {*upper, source.form.At(kUpper).Text()}};
  AddBar(figure, *lower, *upper);
  if (output) AddPointer(figure, source, *lower, *upper, *output);
  return figure;
}

}  // namespace htr60::figures
