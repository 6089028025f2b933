#include "windows/view/shapes.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

namespace htr60::view {
namespace {

/// Points of the unit square, mapped to the room.
class Pen {
 public:
  Pen(const Canvas& canvas, const RECT& square, Canvas::Stroke stroke)
      : canvas_(canvas), square_(square), stroke_(stroke) {}

  using Points = std::initializer_list<std::array<double, 2>>;
  void Line(double x1, double y1, double x2, double y2) const { canvas_.Line(At(x1, y1), At(x2, y2), stroke_); }
  void Path(Points points) const { canvas_.Lines(Mapped(points), stroke_); }
  void Closed(Points points, const COLORREF* fill = nullptr) const { canvas_.Polygon(Mapped(points), stroke_, fill); }
  void Dot(double x, double y) const { Line(x, y, x, y + 0.02); }
  Pen With(Canvas::Stroke stroke) const { return {canvas_, square_, stroke}; }
  const Canvas::Stroke& Drawn() const { return stroke_; }
  void Circle(double inset) const {
    const POINT first = At(inset, inset);
    const POINT last = At(1 - inset, 1 - inset);
    canvas_.Ellipse({first.x, first.y, last.x, last.y}, stroke_, nullptr);
  }

 private:
  POINT At(double x, double y) const {
    return {square_.left + static_cast<LONG>(x * (square_.right - square_.left - 1) + 0.5),
            square_.top + static_cast<LONG>(y * (square_.bottom - square_.top - 1) + 0.5)};
  }
  std::vector<POINT> Mapped(Points points) const {
    std::vector<POINT> mapped;
    for (const auto& [x, y] : points) mapped.push_back(At(x, y));
    return mapped;
  }

  const Canvas& canvas_;
  RECT square_;
  Canvas::Stroke stroke_;
};

void Hourglass(const Pen& pen) { pen.Closed({{0.2, 0.08}, {0.8, 0.08}, {0.2, 0.92}, {0.8, 0.92}}); }

// Less high with a dot below.
void NotEqual(const Pen& pen, bool dotted) {
  const double scale = dotted ? 0.76 : 1;
  pen.Line(0.05, 0.36 * scale, 0.95, 0.36 * scale);
  pen.Line(0.05, 0.66 * scale, 0.95, 0.66 * scale);
  pen.Line(0.74, 0.06 * scale, 0.26, 0.96 * scale);
  if (dotted) pen.Dot(0.5, 0.95);
}

COLORREF ColorOf(Shape shape, const Look& look) {
  switch (shape) {
    case Shape::kWarning:
      return look.warning;
    case Shape::kNotEqual:
    case Shape::kDottedNotEqual:
    case Shape::kFault:
      return look.alert;
    default:
      return look.accent;
  }
}

void Paint(const Pen& pen, Shape shape, int side) {
  const COLORREF color = pen.Drawn().color;
  switch (shape) {
    case Shape::kNone:
    case Shape::kQuestion:
    case Shape::kFunctionCheck:
    case Shape::kFailure:
      return;
    case Shape::kCircle:
      return pen.Circle(0.15);
    case Shape::kPencil:
      pen.With({.color = color, .width = side / 4, .round = false}).Line(0.28, 0.72, 0.9, 0.1);
      return pen.Line(0.1, 0.9, 0.2, 0.8);
    case Shape::kHourglass:
      return Hourglass(pen);
    case Shape::kCheck:
      return pen.Path({{0.08, 0.55}, {0.38, 0.86}, {0.92, 0.16}});
    case Shape::kCheckOverLine:
      pen.Path({{0.12, 0.42}, {0.38, 0.68}, {0.88, 0.08}});
      return pen.Line(0.08, 0.92, 0.92, 0.92);
    case Shape::kNotEqual:
      return NotEqual(pen, false);
    case Shape::kDottedNotEqual:
      return NotEqual(pen, true);
    case Shape::kFilledTriangle:
      return pen.Closed({{0.5, 0.28}, {0.78, 0.76}, {0.22, 0.76}}, &color);
    case Shape::kCrossedHourglass:
      Hourglass(pen);
      return pen.Line(0.0, 0.78, 1.0, 0.22);
    case Shape::kWarning:
      pen.Closed({{0.5, 0.06}, {0.97, 0.94}, {0.03, 0.94}});
      pen.Line(0.5, 0.38, 0.5, 0.64);
      return pen.Dot(0.5, 0.8);
    case Shape::kFault:
      pen.Closed({{0.06, 0.06}, {0.94, 0.06}, {0.94, 0.94}, {0.06, 0.94}});
      pen.Line(0.3, 0.3, 0.7, 0.7);
      return pen.Line(0.7, 0.3, 0.3, 0.7);
  }
}

}  // namespace

void PaintShape(const Canvas& canvas, const RECT& room, Shape shape) {
  const LONG side = std::min(room.right - room.left, room.bottom - room.top);
  if (shape == Shape::kNone || side <= 0) return;
  const LONG left = (room.left + room.right - side) / 2;
  const LONG top = (room.top + room.bottom - side) / 2;
  const RECT square{left, top, left + side, top + side};
  const Pen pen(canvas, square,
                {.color = ColorOf(shape, canvas.Style()), .width = std::max(1, static_cast<int>(side) / 8)});
  Paint(pen, shape, static_cast<int>(side));
}

}  // namespace htr60::view
