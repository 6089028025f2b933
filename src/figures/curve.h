#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "figures/figure.h"
#include "pages/point_fields.h"

/// What the figures of a curve through numbered points share.
namespace htr60::figures {

struct CurvePoint {
  int number = 0;
  pages::PointFields fields;
  std::optional<FigurePoint> at;  // none: it cannot be drawn
  bool unwritten = false;
  bool tooLarge = false;  // its texts are numbers, but no axis reaches them
};

/// The point as its two fields show it.
CurvePoint ReadPoint(const FigureSource& source, int number, const pages::PointFields& fields);
/// A point that can be drawn is among them.
bool AnyDrawn(const std::vector<CurvePoint>& points);
/// Why no point is drawn, where there are points.
std::string WhyNoneDrawn(const std::vector<CurvePoint>& points);

/// The direction of the first step that moves: 1 rising, -1 falling, 0 none.
struct CurveDirection {
  int x = 0;
  int y = 0;
};
CurveDirection DirectionOf(const std::vector<CurvePoint>& points);

/// The steps between neighbouring points that can be drawn; those that stand still or turn back in X, or turn back in
/// Y, are marked. Gives what is wrong with them, each without its full stop, and adds the numbers of their points to
/// `named`.
std::vector<std::string> AddSteps(Figure& figure, const std::vector<CurvePoint>& points, std::vector<int>& named);
/// One remark on all that is wrong, the first in full, and one on each point that is not drawn.
void AddRemarks(Figure& figure, const std::vector<std::string>& faults, const std::vector<CurvePoint>& points);
/// The square of a point, with a ring while its fields have the focus.
void AddMarker(Figure& figure, const CurvePoint& point, MarkerShape shape, ControlId focus);
bool HasFocus(const CurvePoint& point, ControlId focus);

/// Ends of the axes so that all that is taken in lies between them.
struct CurveBounds {
  FigurePoint low;
  FigurePoint high;

  CurveBounds();
  explicit CurveBounds(const std::vector<CurvePoint>& points);
  void Take(FigurePoint at);
};
void SetAxes(Figure& figure, const CurveBounds& bounds, std::string xCaption, std::string yCaption, char separator);
/// "from 0 to 40"
std::string SpanOf(const FigureAxis& axis);

}  // namespace htr60::figures
