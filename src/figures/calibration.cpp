#include "figures/calibration.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "codecs/codecs.h"
#include "figures/axis.h"
#include "figures/bar.h"

namespace htr60::figures {
namespace {

constexpr double kMargin = 0.1;  // of the scale, hatched beyond each of its ends

struct Quantity {
  TextId field;
  std::string_view name;
};
constexpr Quantity kLowLimit{id::txtParameter(101), "Lower Sensor Limit"};
constexpr Quantity kHighLimit{id::txtParameter(97), "Upper Sensor Limit"};
constexpr Quantity kLower{id::txtParameter(103), "Lower"};
constexpr Quantity kUpper{id::txtParameter(95), "Upper"};
constexpr Quantity kMinSpan{id::txtParameter(102), "Cal Min Span"};
constexpr Quantity kLive{id::txtParameter(93), "Value"};
constexpr TextId kStatus = id::txtParameter(307);
constexpr TextId kResult = id::txtParameter(43);
constexpr LabelId kUnit = id::lbArray(104);

const std::string& TextOf(const FigureSource& source, TextId field) { return source.form.At(field).Text(); }

// The page reads nothing itself: what was read last counts, whichever node was activated since.
bool WasRead(const FigureSource& source, TextId field) {
  return source.form.At(field).Sets() > 0 || !TextOf(source, field).empty();
}

/// The numbers of the page before this one, as far as they can be drawn.
struct Values {
  std::optional<double> lower;
  std::optional<double> upper;
  std::optional<double> minSpan;
  std::optional<double> live;
};

// None where it was not read; where it cannot be drawn a remark says so.
std::optional<double> Take(const FigureSource& source, const Quantity& quantity, Figure& figure) {
  if (!WasRead(source, quantity.field)) return std::nullopt;
  return TakeNumber(source, quantity.field, quantity.name, figure);
}

// The limits bound the scale and stand on it as they are; the round numbers between them keep clear of them.
FigureAxis AxisOf(const FigureSource& source, double low, double high) {
  FigureAxis axis = RoundAxis(WithUnit("Pressure", source.form.At(kUnit).Text()), low, high, source.decimalSeparator);
  const double clear = (axis.ticks[1].value - axis.ticks[0].value) / 2;
  std::vector<FigureTick> ticks{{low, TextOf(source, kLowLimit.field)}};
  for (FigureTick& tick : axis.ticks) {
    if (tick.value >= low + clear && tick.value <= high - clear) ticks.push_back(std::move(tick));
  }
  ticks.push_back({high, TextOf(source, kHighLimit.field)});
  axis.ticks = std::move(ticks);
  axis.from = low - kMargin * (high - low);
  axis.to = high + kMargin * (high - low);
  return axis;
}

// Points beyond the limits stand in the hatched ends, those still further out at the end of the axis.
double OnAxis(const FigureBar& bar, double value) { return std::clamp(value, bar.axis.from, bar.axis.to); }

BarReach ReachOfAxis(const FigureBar& bar, double value) {
  if (value > bar.axis.to) return BarReach::kAbove;
  return value < bar.axis.from ? BarReach::kBelow : BarReach::kWithin;
}

void AddMark(FigureBar& bar, const FigureSource& source, const Quantity& point, std::optional<double> value) {
  if (!value) return;
  bar.marks.push_back({OnAxis(bar, *value), std::string(point.name) + " " + TextOf(source, point.field),
                       ReachOfAxis(bar, *value), source.unwritten(point.field)});
}

void AddPointer(FigureBar& bar, const FigureSource& source, std::optional<double> live) {
  if (!live) return;
  bar.pointer = BarPointer{OnAxis(bar, *live), TextOf(source, kLive.field), FirstWord(TextOf(source, kStatus)),
                           ReachOfAxis(bar, *live)};
}

// A difference of two texts is not exact: what is short of the other by less than this is equal to it.
bool IsBelow(double distance, double least, double scale) { return distance < least - 1e-9 * std::abs(scale); }

/// What is wrong with the points: a dashed stretch and a line below for each.
class Checks {
 public:
  Checks(FigureBar& bar, std::vector<std::string>& remarks) : bar_(bar), remarks_(remarks) {}

  void Distance(const FigureSource& source, const Values& values) {
    if (!values.lower || !values.upper) return;
    const double distance = *values.upper - *values.lower;
    const double scale = std::max(std::abs(*values.upper), std::abs(*values.lower));
    if (distance <= 0) {
      Say(*values.lower, *values.upper, "Check: Upper does not lie above Lower.");
    } else if (values.minSpan && IsBelow(distance, *values.minSpan, scale)) {
      const FormattedNumber apart = Codecs(source.decimalSeparator).FormatValue(distance);
      Say(*values.lower, *values.upper,
          "Check: the points are " + std::string(apart.View()) + " apart, " + std::string(kMinSpan.name) + " is " +
              TextOf(source, kMinSpan.field) + ".");
    }
  }

  void Limits(const Quantity& point, std::optional<double> value) {
    if (!value || ReachOf(bar_, *value) == BarReach::kWithin) return;
    Say(OnBar(bar_, *value), *value, "Check: " + std::string(point.name) + " lies outside the sensor limits.");
  }

 private:
  void Say(double from, double to, std::string remark) {
    bar_.spans.push_back({OnAxis(bar_, from), OnAxis(bar_, to), BarSpanStyle::kWrong});
    remarks_.push_back(std::move(remark));
  }

  FigureBar& bar_;
  std::vector<std::string>& remarks_;
};

void AddBar(Figure& figure, const FigureSource& source, const Values& values, double low, double high) {
  FigureBar& bar = figure.bar.emplace();
  bar.axis = AxisOf(source, low, high);
  bar.from = low;
  bar.to = high;
  AddMark(bar, source, kLower, values.lower);
  AddMark(bar, source, kUpper, values.upper);
  if (values.lower && values.minSpan && *values.minSpan > 0) {
    AddBracket(bar, *values.lower, *values.lower + *values.minSpan);
  }
  AddPointer(bar, source, values.live);
  // Checks go before what was left out.
  std::vector<std::string> wrong;
  Checks checks(bar, wrong);
  checks.Distance(source, values);
  checks.Limits(kLower, values.lower);
  checks.Limits(kUpper, values.upper);
  figure.remarks.insert(figure.remarks.begin(), std::make_move_iterator(wrong.begin()),
                        std::make_move_iterator(wrong.end()));
}

// Why there is no scale; empty where there is one.
std::string WhyNoScale(const FigureSource& source, std::optional<double> low, std::optional<double> high) {
  if (!WasRead(source, kLowLimit.field) || !WasRead(source, kHighLimit.field)) {
    return "No values read yet: open Lower/Upper first.";
  }
  if (!low || !high) return "The sensor limits cannot be drawn.";
  const double least = 1e-9 * std::max({std::abs(*low), std::abs(*high), 1e-300});
  return *high - *low > least ? "" : "The upper sensor limit does not lie above the lower one.";
}

std::string SentenceOf(const Figure& figure, const FigureSource& source) {
  const std::string& unit = source.form.At(kUnit).Text();
  std::string sentence = "Calibration points between the sensor limits " + TextOf(source, kLowLimit.field) + " and " +
                         TextOf(source, kHighLimit.field) + (unit.empty() ? "" : " ") + unit;
  const char* before = ": ";
  for (const BarMark& mark : figure.bar->marks) sentence += std::exchange(before, ", ") + mark.text;
  sentence += ".";
  if (figure.bar->pointer) {
    const BarPointer& pointer = *figure.bar->pointer;
    sentence += " Live value " + pointer.text + (pointer.status.empty() ? "" : ", ") + pointer.status + ".";
  }
  return sentence;
}

}  // namespace

Figure CalibrationFigure(const FigureSource& source) {
  Figure figure;
  figure.barAlone = true;
  const auto low = Take(source, kLowLimit, figure);
  const auto high = Take(source, kHighLimit, figure);
  figure.missing = WhyNoScale(source, low, high);
  if (!WasRead(source, kLowLimit.field) || !WasRead(source, kHighLimit.field)) {
    figure.sentence = figure.missing;
    return figure;
  }
  figure.verdictCaption = "Calibration Result";
  figure.verdict = TextOf(source, kResult);
  figure.verdictRole = RowRole::kVerdict;
  if (!source.lastRead.empty()) figure.above.push_back("As last read " + source.lastRead);
  const Values values{.lower = Take(source, kLower, figure),
                      .upper = Take(source, kUpper, figure),
                      .minSpan = Take(source, kMinSpan, figure),
                      .live = Take(source, kLive, figure)};
  if (figure.missing.empty()) AddBar(figure, source, values, *low, *high);
  figure.sentence = figure.bar ? SentenceOf(figure, source) : figure.missing;
  return figure;
}

}  // namespace htr60::figures
