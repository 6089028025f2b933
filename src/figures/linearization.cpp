#include "figures/linearization.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "figures/axis.h"
#include "pages/table_points.h"

namespace htr60::figures {
namespace {

using pages::kTablePoints;

struct Point {
  int number = 0;
  std::optional<FigurePoint> at;  // none: it cannot be drawn
  bool unwritten = false;
  bool tooLarge = false;  // its texts are numbers, but no axis reaches them
};

std::string PointName(int number) { return "point " + std::to_string(number); }

std::vector<Point> ReadPoints(const FigureSource& source, int count) {
  std::vector<Point> points;
  for (int k = 0; k < count; ++k) {
    const pages::TablePoint& fields = kTablePoints[static_cast<std::size_t>(k)];
    if (!source.known(fields.x) || !source.known(fields.y)) continue;
    const auto x = NumberIn(source, fields.x);
    const auto y = NumberIn(source, fields.y);
    Point point{k + 1, std::nullopt, source.unwritten(fields.x) || source.unwritten(fields.y)};
    if (x && y) {
      point.tooLarge = !Drawable(*x) || !Drawable(*y);
      if (!point.tooLarge) point.at = FigurePoint{*x, *y};
    }
    points.push_back(point);
  }
  return points;
}

// Direction of the first step that moves: 1 rising, -1 falling, 0 none.
int Direction(const std::vector<Point>& points, double FigurePoint::*part) {
  const Point* before = nullptr;
  for (const Point& point : points) {
    if (point.at && before != nullptr) {
      const double step = *point.at.*part - *before->at.*part;
      if (step != 0) return step > 0 ? 1 : -1;
    }
    before = point.at ? &point : nullptr;
  }
  return 0;
}

// What is wrong with the step from a to b; empty: nothing. A level step in Y is no fault.
std::string Fault(const Point& a, const Point& b, int xDirection, int yDirection) {
  const double dx = (b.at->x - a.at->x) * xDirection;
  const double dy = (b.at->y - a.at->y) * yDirection;
  if (dx <= 0) {
    return std::string("Check: X does not ") + (xDirection < 0 ? "fall" : "rise") + " from " + PointName(a.number) +
           " to " + PointName(b.number) + ".";
  }
  if (dy < 0) return "Check: Y turns between " + PointName(a.number) + " and " + PointName(b.number) + ".";
  return {};
}

void AddStep(Figure& figure, const Point& a, const Point& b, bool wrong) {
  figure.lines.push_back({{*a.at, *b.at}, wrong ? LineStyle::kWrong : LineStyle::kCurve});
  if (!wrong) return;
  const FigurePoint middle{(a.at->x + b.at->x) / 2, (a.at->y + b.at->y) / 2};
  figure.markers.push_back({middle, MarkerShape::kCross, {}});
}

// The steps between neighbouring points that are numbers; gives back the faults in their order.
std::vector<std::string> AddSteps(Figure& figure, const std::vector<Point>& points, std::vector<int>& named) {
  const int xDirection = Direction(points, &FigurePoint::x);
  const int yDirection = Direction(points, &FigurePoint::y);
  std::vector<std::string> faults;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Point& a = points[i - 1];
    const Point& b = points[i];
    if (!a.at || !b.at) continue;
    std::string fault = Fault(a, b, xDirection == 0 ? 1 : xDirection, yDirection);
    AddStep(figure, a, b, !fault.empty());
    if (fault.empty()) continue;
    named.push_back(a.number);
    named.push_back(b.number);
    faults.push_back(std::move(fault));
  }
  if (faults.empty() && (xDirection < 0 || yDirection < 0)) {
    faults.emplace_back("Check: the device takes rising curves only.");
  }
  return faults;
}

int FocusedPoint(const FigureSource& source) {
  for (std::size_t k = 0; k < kTablePoints.size(); ++k) {
    if (source.focus == kTablePoints[k].x || source.focus == kTablePoints[k].y) return static_cast<int>(k) + 1;
  }
  return 0;
}

void AddMarkers(Figure& figure, const std::vector<Point>& points, int focused, const std::vector<int>& named) {
  for (const Point& point : points) {
    if (!point.at) continue;
    const ControlId field = kTablePoints[static_cast<std::size_t>(point.number - 1)].x;
    figure.markers.push_back(
        {*point.at, point.unwritten ? MarkerShape::kHollowSquare : MarkerShape::kFilledSquare, field});
    if (point.number == focused) figure.markers.push_back({*point.at, MarkerShape::kRing, field});
    const bool numbered = point.number == points.front().number || point.number == points.back().number ||
                          point.number == focused || point.number % 5 == 0 ||
                          std::find(named.begin(), named.end(), point.number) != named.end();
    if (numbered) figure.texts.push_back({*point.at, std::to_string(point.number), false});
  }
}

void AddAxes(Figure& figure, const std::vector<Point>& points, char separator) {
  FigurePoint low{HUGE_VAL, HUGE_VAL};
  FigurePoint high{-HUGE_VAL, -HUGE_VAL};
  for (const Point& point : points) {
    if (!point.at) continue;
    low = {std::min(low.x, point.at->x), std::min(low.y, point.at->y)};
    high = {std::max(high.x, point.at->x), std::max(high.y, point.at->y)};
  }
  figure.x = RoundAxis("X", low.x, high.x, separator);
  figure.y = RoundAxis("Y", low.y, high.y, separator);
}

void AddRemarks(Figure& figure, const std::vector<std::string>& faults, const std::vector<Point>& points) {
  if (!faults.empty()) {
    std::string remark = faults.front();
    if (faults.size() > 1) remark += " and " + std::to_string(faults.size() - 1) + " more";
    figure.remarks.push_back(std::move(remark));
  }
  for (const Point& point : points) {
    if (point.at) continue;
    const char* const why = point.tooLarge ? ": too large to be drawn." : ": no number.";
    figure.remarks.push_back("Point " + std::to_string(point.number) + why);
  }
}

// Why no point is drawn.
std::string Missing(const std::vector<Point>& points) {
  if (points.empty()) return "No points read yet: open Table Points first.";
  const bool number = std::any_of(points.begin(), points.end(), [](const Point& point) { return point.tooLarge; });
  return number ? "No point can be drawn." : "No point is a number.";
}

}  // namespace

Figure LinearizationFigure(const FigureSource& source) {
  Figure figure;
  Form& form = source.form;
  figure.verdictCaption = "Table Status";
  if (source.known(id::txtParameter(45))) figure.verdict = form.txtParameter(45).Text();
  const auto count = NumberOf(form.cmbNrPoints.Text(), source.decimalSeparator);
  if (!source.known(id::cmbNrPoints) || !count) {
    figure.missing = Missing({});
    figure.sentence = figure.missing;
    return figure;
  }
  const int number = std::clamp(static_cast<int>(std::clamp(*count, 2.0, 21.0)), 2, 21);
  const std::vector<Point> points = ReadPoints(source, number);
  const bool any = std::any_of(points.begin(), points.end(), [](const Point& point) { return point.at.has_value(); });
  std::vector<int> named;
  const std::vector<std::string> faults = AddSteps(figure, points, named);
  AddRemarks(figure, faults, points);
  const bool unwritten = source.unwritten(id::cmbNrPoints) ||
                         std::any_of(points.begin(), points.end(), [](const Point& point) { return point.unwritten; });
  if (unwritten) figure.above.emplace_back("Not written yet: the status belongs to the curve in the device.");
  if (!any) {
    figure.missing = Missing(points);
    figure.sentence = figure.missing;
    return figure;
  }
  AddMarkers(figure, points, FocusedPoint(source), named);
  AddAxes(figure, points, source.decimalSeparator);
  figure.sentence = "Linearization curve of " + std::to_string(points.size()) + " points, X from " +
                    figure.x.ticks.front().text + " to " + figure.x.ticks.back().text + ", Y from " +
                    figure.y.ticks.front().text + " to " + figure.y.ticks.back().text + ".";
  return figure;
}

}  // namespace htr60::figures
