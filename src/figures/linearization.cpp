#include "figures/linearization.h"

#include <algorithm>

#include "figures/axis.h"
#include "figures/curve.h"
#include "pages/table_points.h"
#include "text/numbers.h"

namespace htr60::figures {
namespace {

using pages::kTablePoints;

std::vector<CurvePoint> ReadPoints(const FigureSource& source, int count) {
  std::vector<CurvePoint> points;
  points.reserve(static_cast<std::size_t>(count));
  for (int k = 0; k < count; ++k) {
    const pages::PointFields& fields = kTablePoints[static_cast<std::size_t>(k)];
    if (source.known(fields.x) && source.known(fields.y)) points.push_back(ReadPoint(source, k + 1, fields));
  }
  return points;
}

void AddMarkers(Figure& figure, const std::vector<CurvePoint>& points, ControlId focus, const std::vector<int>& named) {
  for (const CurvePoint& point : points) {
    if (!point.at) continue;
    AddMarker(figure, point, point.unwritten ? MarkerShape::kHollowSquare : MarkerShape::kFilledSquare, focus);
    const bool numbered = point.number == points.front().number || point.number == points.back().number ||
                          HasFocus(point, focus) || point.number % 5 == 0 ||
                          std::find(named.begin(), named.end(), point.number) != named.end();
    if (numbered) figure.texts.push_back({*point.at, std::to_string(point.number), false, true});
  }
}

Figure Missing(Figure figure, std::string why) {
  figure.missing = std::move(why);
  figure.sentence = figure.missing;
  return figure;
}

constexpr const char* kNotRead = "No points read yet: open Table Points first.";

}  // namespace

Figure LinearizationFigure(const FigureSource& source) {
  Figure figure;
  Form& form = source.form;
  figure.verdictCaption = "Table Status";
  if (source.known(id::txtParameter(45))) figure.verdict = form.txtParameter(45).Text();
  const auto count = FindLocaleNumber(form.cmbNrPoints.Text(), source.decimalSeparator);
  if (!source.known(id::cmbNrPoints) || !count) return Missing(std::move(figure), kNotRead);
  const int number = std::clamp(static_cast<int>(std::clamp(*count, 2.0, 21.0)), 2, 21);
  const std::vector<CurvePoint> points = ReadPoints(source, number);
  std::vector<int> named;
  std::vector<std::string> faults = AddSteps(figure, points, named);
  const CurveDirection direction = DirectionOf(points);
  if (faults.empty() && (direction.x < 0 || direction.y < 0)) {
    faults.emplace_back("Check: the device takes rising curves only");
  }
  AddRemarks(figure, faults, points);
  const bool unwritten = source.unwritten(id::cmbNrPoints) ||
                         std::any_of(points.begin(), points.end(), [](const CurvePoint& p) { return p.unwritten; });
  if (unwritten) figure.above.emplace_back("Not written yet: the status belongs to the curve in the device.");
  if (!AnyDrawn(points)) return Missing(std::move(figure), points.empty() ? kNotRead : WhyNoneDrawn(points));
  AddMarkers(figure, points, source.focus, named);
  SetAxes(figure, CurveBounds(points), "X", "Y", source.decimalSeparator);
  figure.sentence = "Linearization curve of " + std::to_string(points.size()) + " points, X " + SpanOf(figure.x) +
                    ", Y " + SpanOf(figure.y) + ".";
  return figure;
}

}  // namespace htr60::figures
