#include <algorithm>
#include <cmath>

#include "figures/axis.h"
#include "observe/csv.h"
#include "observe/trend.h"

namespace htr60::observe {
namespace {

std::string Sentence(const std::vector<TrendField>& fields, const TrendPlot& plot) {
  std::string names;
  for (const std::size_t field : plot.fields) names += (names.empty() ? "" : "; ") + fields[field].name;
  return "Trend of " + names + (plot.unit.empty() ? "" : " in " + plot.unit) + ".";
}

}  // namespace

std::vector<TrendPlot> Trend::Plots() const {
  std::vector<TrendPlot> plots;
  const auto plotOf = [&](const std::string& unit) -> TrendPlot& {
    const auto found =
        std::find_if(plots.begin(), plots.end(), [&](const TrendPlot& plot) { return plot.unit == unit; });
    if (found != plots.end()) return *found;
    plots.push_back({unit, {}, {}});
    return plots.back();
  };
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const TrendField& field = fields_[i];
    std::set<std::uint16_t> units;
    for (const TrendSample& sample : field.samples) {
      if (sample.at >= From() && sample.at <= To()) units.insert(sample.unit);
    }
    for (const std::uint16_t unit : units) plotOf(field.units[unit]).fields.push_back(i);
  }
  const char separator = control_.codecs.DecimalSeparator();
  for (TrendPlot& plot : plots) {
    Figure& figure = plot.figure;
    figure.x = TimeAxis();
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    for (const std::size_t field : plot.fields) AddCurve(figure, fields_[field], field, plot.unit, low, high);
    const bool empty = low > high;
    AddLimits(figure, plot, low, high);
    if (low > high) low = high = 0;
    figure.y = figures::RoundAxis(plot.unit, low, high, separator);
    if (empty) figure.remarks.emplace_back("No value that can be trusted in this time.");
    if (cursor_ && *cursor_ >= From() && *cursor_ <= To()) {
      const auto at = static_cast<double>(*cursor_);
      figure.lines.push_back({{{at, figure.y.from}, {at, figure.y.to}}, LineStyle::kReference});
    }
    figure.sentence = Sentence(fields_, plot);
  }
  return plots;
}

std::string Trend::Csv() const {
  struct Line {
    const TrendField* field;
    const TrendSample* sample;
  };
  std::vector<Line> lines;
  for (const TrendField& field : fields_) {
    for (const TrendSample& sample : field.samples) {
      if (sample.at >= From() && sample.at <= To()) lines.push_back({&field, &sample});
    }
  }
  std::stable_sort(lines.begin(), lines.end(),
                   [](const Line& a, const Line& b) { return a.sample->at < b.sample->at; });
  const char separator = control_.codecs.DecimalSeparator();
  std::string text;
  AddCsvLine(text, {"Time", "Field", "Value", "Unit", "Status"}, separator);
  for (const Line& line : lines) {
    const TrendReading reading = Read(*line.field, *line.sample);
    AddCsvLine(text,
               {surroundings_.timeStamp(reading.at), line.field->name, reading.value, reading.unit, reading.status},
               separator);
  }
  return text;
}

}  // namespace htr60::observe
