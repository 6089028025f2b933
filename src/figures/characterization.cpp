#include "figures/characterization.h"

#include <algorithm>
#include <charconv>

#include "figures/axis.h"
#include "figures/curve.h"
#include "pages/char_points.h"

namespace htr60::figures {
namespace {

using Points = std::vector<CurvePoint>;

/// The pressure measured now, as a vertical line.
struct Live {
  double measured = 0;
  std::string text;  // beside the line
};

std::optional<Live> ReadLive(const FigureSource& source, TextId field, std::string text) {
  if (!source.known(field)) return std::nullopt;
  const auto measured = NumberIn(source, field);
  if (!measured || !Drawable(*measured)) return std::nullopt;
  return Live{*measured, std::move(text)};
}

// The number of points in hexadecimal digits; all where it is no number that a curve can have.
std::size_t HeldCount(const FigureSource& source) {
  constexpr std::size_t kAll = pages::kHeldPoints.size();
  if (!source.known(id::txtParameter(110))) return kAll;
  const std::string& digits = source.form.txtParameter(110).Text();
  std::size_t count = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count, 16);
  const bool whole = error == std::errc() && end == digits.data() + digits.size();
  return whole && count >= 2 && count <= kAll ? count : kAll;
}

Points HeldPoints(const FigureSource& source) {
  Points points;
  const std::size_t count = HeldCount(source);
  for (std::size_t i = 0; i < count; ++i) {
    const pages::PointFields& fields = pages::kHeldPoints[i].fields;
    if (!source.known(fields.x) || !source.known(fields.y)) continue;
    points.push_back(ReadPoint(source, static_cast<int>(i) + 1, fields));
  }
  return points;
}

Points RecordedPoints(const FigureSource& source) {
  Points points;
  for (std::size_t i = 0; i < pages::kRecordedPoints.size(); ++i) {
    const pages::PointFields& fields = pages::kRecordedPoints[i].fields;
    if (!source.known(fields.x) || !source.form.At(fields.x).Visible()) continue;
    points.push_back(ReadPoint(source, static_cast<int>(i) + 1, fields));
  }
  return points;
}

// A curve may be entered from its upper end down: only where applied runs against measured is the whole of it wrong.
void AddCurve(Figure& figure, const Points& points) {
  std::vector<int> named;
  std::vector<std::string> faults = AddSteps(figure, points, named);
  const CurveDirection direction = DirectionOf(points);
  if (faults.empty() && direction.x * direction.y < 0) {
    faults.emplace_back("Check: the device takes rising curves only");
  }
  AddRemarks(figure, faults, points);
}

void AddMarkers(Figure& figure, const Points& points, MarkerShape shape, ControlId focus) {
  for (const CurvePoint& point : points) {
    if (!point.at) continue;
    AddMarker(figure, point, shape, focus);
    figure.texts.push_back({*point.at, std::to_string(point.number), false, true});
  }
}

// Measured equal to applied, as far as both axes reach.
void AddDiagonal(Figure& figure) {
  const double from = std::max(figure.x.from, figure.y.from);
  const double to = std::min(figure.x.to, figure.y.to);
  if (from < to) figure.lines.push_back({{{from, from}, {to, to}}, LineStyle::kReference});
}

// Its text stands on the side that has more room.
void AddLive(Figure& figure, const Live& live) {
  figure.lines.push_back({{{live.measured, figure.y.from}, {live.measured, figure.y.to}}, LineStyle::kLevel});
  const bool right = live.measured - figure.x.from > figure.x.to - live.measured;
  figure.texts.push_back({{live.measured, figure.y.to}, live.text, right});
}

void SetPressureAxes(Figure& figure, const CurveBounds& bounds, const std::string& unit, char separator) {
  const std::string behind = unit.empty() ? "" : " (" + unit + ")";
  SetAxes(figure, bounds, "Measured" + behind, "Applied" + behind, separator);
  AddDiagonal(figure);
}

Figure Missing(std::string why) {
  Figure figure;
  figure.sentence = why;
  figure.missing = std::move(why);
  return figure;
}

std::string WithUnit(const std::string& number, const std::string& unit) {
  return unit.empty() ? number : number + " " + unit;
}

}  // namespace

Figure CharacterizationFigure(const FigureSource& source) {
  Form& form = source.form;
  const Points points = HeldPoints(source);
  if (points.empty()) return Missing("No curve read yet.");
  Figure figure;
  AddCurve(figure, points);
  if (!AnyDrawn(points)) {
    figure.missing = WhyNoneDrawn(points);
    figure.sentence = figure.missing;
    return figure;
  }
  const std::string& unit = form.lbArray(148).Text();
  const std::string& status = form.cmbStatusChar.Text();
  const std::string now = WithUnit(form.txtParameter(109).Text(), unit) + (status.empty() ? "" : ", " + status);
  const auto live = ReadLive(source, id::txtParameter(109), now);
  CurveBounds bounds(points);
  if (live) bounds.Take({live->measured, bounds.low.y});
  SetPressureAxes(figure, bounds, unit, source.decimalSeparator);
  if (live) AddLive(figure, *live);
  AddMarkers(figure, points, MarkerShape::kFilledSquare, source.focus);
  figure.sentence = "Characterization curve of " + std::to_string(points.size()) + " points, measured " +
                    SpanOf(figure.x) + ", applied " + SpanOf(figure.y);
  if (live) figure.sentence += "; measured now " + now;
  figure.sentence += ".";
  return figure;
}

Figure CharacterizationEntryFigure(const FigureSource& source) {
  Form& form = source.form;
  const Points points = RecordedPoints(source);
  const std::string next = "P" + std::to_string(points.size() + 1);
  const auto live = ReadLive(source, id::txtParameter(39), next);
  Figure figure;
  AddCurve(figure, points);
  if (!AnyDrawn(points) && !live) {
    figure.missing = points.empty() ? "No point recorded and no pressure read yet." : WhyNoneDrawn(points);
    figure.sentence = figure.missing;
    return figure;
  }
  const std::string& unit = form.lbParameter(40).Text();
  CurveBounds bounds(points);
  if (live) bounds.Take({live->measured, live->measured});  // the next point will stand near the diagonal
  SetPressureAxes(figure, bounds, unit, source.decimalSeparator);
  if (live) AddLive(figure, *live);
  AddMarkers(figure, points, MarkerShape::kHollowSquare, source.focus);
  figure.sentence = std::to_string(points.size()) + (points.size() == 1 ? " point" : " points") + " recorded";
  if (live) figure.sentence += "; measured now, for " + next + ", " + WithUnit(form.txtParameter(39).Text(), unit);
  figure.sentence += ".";
  return figure;
}

}  // namespace htr60::figures
