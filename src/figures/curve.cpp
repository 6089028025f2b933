#include "figures/curve.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "figures/axis.h"

namespace htr60::figures {
namespace {

std::string PointName(int number) { return "point " + std::to_string(number); }

int Direction(const std::vector<CurvePoint>& points, double FigurePoint::*part) {
  const CurvePoint* before = nullptr;
  for (const CurvePoint& point : points) {
    if (point.at && before != nullptr) {
      const double step = *point.at.*part - *before->at.*part;
      if (step != 0) return step > 0 ? 1 : -1;
    }
    before = point.at ? &point : nullptr;
  }
  return 0;
}

// What is wrong with the step from a to b; empty: nothing. A level step in Y is no fault.
std::string Fault(const CurvePoint& a, const CurvePoint& b, const CurveDirection& direction) {
  const int xDirection = direction.x == 0 ? 1 : direction.x;
  const double dx = (b.at->x - a.at->x) * xDirection;
  const double dy = (b.at->y - a.at->y) * direction.y;
  if (dx <= 0) {
    return std::string("Check: X does not ") + (xDirection < 0 ? "fall" : "rise") + " from " + PointName(a.number) +
           " to " + PointName(b.number);
  }
  if (dy < 0) return "Check: Y turns between " + PointName(a.number) + " and " + PointName(b.number);
  return {};
}

// Right steps that follow each other are one line.
void AddStep(Figure& figure, const CurvePoint& a, const CurvePoint& b, bool wrong, bool continues) {
  if (continues && !wrong) {
    figure.lines.back().points.push_back(*b.at);
    return;
  }
  figure.lines.push_back({{*a.at, *b.at}, wrong ? LineStyle::kWrong : LineStyle::kCurve});
  if (!wrong) return;
  const FigurePoint middle{(a.at->x + b.at->x) / 2, (a.at->y + b.at->y) / 2};
  figure.markers.push_back({middle, MarkerShape::kCross, {}});
}

}  // namespace

CurvePoint ReadPoint(const FigureSource& source, int number, const pages::PointFields& fields) {
  const auto x = NumberIn(source, fields.x);
  const auto y = NumberIn(source, fields.y);
  CurvePoint point{number, fields, std::nullopt, source.unwritten(fields.x) || source.unwritten(fields.y)};
  if (x && y) {
    point.tooLarge = !Drawable(*x) || !Drawable(*y);
    if (!point.tooLarge) point.at = FigurePoint{*x, *y};
  }
  return point;
}

bool AnyDrawn(const std::vector<CurvePoint>& points) {
  return std::any_of(points.begin(), points.end(), [](const CurvePoint& point) { return point.at.has_value(); });
}

std::string WhyNoneDrawn(const std::vector<CurvePoint>& points) {
  const bool number = std::any_of(points.begin(), points.end(), [](const CurvePoint& point) { return point.tooLarge; });
  return number ? "No point can be drawn." : "No point is a number.";
}

CurveDirection DirectionOf(const std::vector<CurvePoint>& points) {
  return {Direction(points, &FigurePoint::x), Direction(points, &FigurePoint::y)};
}

std::vector<std::string> AddSteps(Figure& figure, const std::vector<CurvePoint>& points, std::vector<int>& named) {
  const CurveDirection direction = DirectionOf(points);
  std::vector<std::string> faults;
  bool continues = false;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const CurvePoint& a = points[i - 1];
    const CurvePoint& b = points[i];
    if (!a.at || !b.at) {
      continues = false;
      continue;
    }
    std::string fault = Fault(a, b, direction);
    AddStep(figure, a, b, !fault.empty(), continues);
    continues = fault.empty();
    if (continues) continue;
    named.push_back(a.number);
    named.push_back(b.number);
    faults.push_back(std::move(fault));
  }
  return faults;
}

void AddRemarks(Figure& figure, const std::vector<std::string>& faults, const std::vector<CurvePoint>& points) {
  if (!faults.empty()) {
    std::string remark = faults.front();
    if (faults.size() > 1) remark += ", and " + std::to_string(faults.size() - 1) + " more";
    figure.remarks.push_back(remark + ".");
  }
  for (const CurvePoint& point : points) {
    if (point.at) continue;
    const char* const why = point.tooLarge ? ": too large to be drawn." : ": no number.";
    figure.remarks.push_back("Point " + std::to_string(point.number) + why);
  }
}

bool HasFocus(const CurvePoint& point, ControlId focus) { return focus == point.fields.x || focus == point.fields.y; }

void AddMarker(Figure& figure, const CurvePoint& point, MarkerShape shape, ControlId focus) {
  figure.markers.push_back({*point.at, shape, point.fields.x});
  if (HasFocus(point, focus)) figure.markers.push_back({*point.at, MarkerShape::kRing, point.fields.x});
}

CurveBounds::CurveBounds() : low{HUGE_VAL, HUGE_VAL}, high{-HUGE_VAL, -HUGE_VAL} {}

CurveBounds::CurveBounds(const std::vector<CurvePoint>& points) : CurveBounds() {
  for (const CurvePoint& point : points) {
    if (point.at) Take(*point.at);
  }
}

void CurveBounds::Take(FigurePoint at) {
  low = {std::min(low.x, at.x), std::min(low.y, at.y)};
  high = {std::max(high.x, at.x), std::max(high.y, at.y)};
}

void SetAxes(Figure& figure, const CurveBounds& bounds, std::string xCaption, std::string yCaption, char separator) {
  figure.x = RoundAxis(std::move(xCaption), bounds.low.x, bounds.high.x, separator);
  figure.y = RoundAxis(std::move(yCaption), bounds.low.y, bounds.high.y, separator);
}

std::string SpanOf(const FigureAxis& axis) {
  return "from " + axis.ticks.front().text + " to " + axis.ticks.back().text;
}

}  // namespace htr60::figures
