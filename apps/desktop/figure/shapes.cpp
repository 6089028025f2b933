#include "desktop/figure/shapes.h"

#include <QPainterPath>
#include <algorithm>
#include <array>

#include "desktop/edge.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

// Points of the unit square, mapped to the room.
struct Pen {
  QPainter& painter;
  QRectF room;
  QPointF At(double x, double y) const { return {room.left() + x * room.width(), room.top() + y * room.height()}; }
  void Line(double x1, double y1, double x2, double y2) const { painter.drawLine(At(x1, y1), At(x2, y2)); }
  void Path(std::initializer_list<std::array<double, 2>> points, bool close) const {
    QPainterPath path;
    for (const auto& [x, y] : points) {
      if (path.elementCount() == 0) {
        path.moveTo(At(x, y));
      } else {
        path.lineTo(At(x, y));
      }
    }
    if (close) path.closeSubpath();
    painter.drawPath(path);
  }
};

void Hourglass(const Pen& pen) { pen.Path({{0.2, 0.08}, {0.8, 0.08}, {0.2, 0.92}, {0.8, 0.92}}, true); }

// Less high with a dot below.
void NotEqual(const Pen& pen, bool dotted) {
  const double scale = dotted ? 0.76 : 1;
  pen.Line(0.05, 0.36 * scale, 0.95, 0.36 * scale);
  pen.Line(0.05, 0.66 * scale, 0.95, 0.66 * scale);
  pen.Line(0.74, 0.06 * scale, 0.26, 0.96 * scale);
  if (dotted) pen.Line(0.5, 0.95, 0.5, 0.96);
}

void Exclaim(const Pen& pen) {
  pen.Line(0.5, 0.38, 0.5, 0.64);
  pen.Line(0.5, 0.8, 0.5, 0.81);
}

bool IsAlert(Shape shape) {
  return shape == Shape::kNotEqual || shape == Shape::kDottedNotEqual || shape == Shape::kWarning ||
         shape == Shape::kFault || shape == Shape::kQuestion || shape == Shape::kFailure;
}

}  // namespace

Shape ShapeOf(presentation::FieldState state) {
  using presentation::FieldState;
  switch (state) {
    case FieldState::kNotRead:
      return Shape::kCircle;
    case FieldState::kNotWritten:
      return Shape::kPencil;
    case FieldState::kSent:
      return Shape::kHourglass;
    case FieldState::kConfirmed:
      return Shape::kCheck;
    case FieldState::kStored:
      return Shape::kCheckOverLine;
    case FieldState::kDiffers:
      return Shape::kNotEqual;
    case FieldState::kReplaced:
      return Shape::kDottedNotEqual;
    case FieldState::kChanged:
      return Shape::kFilledTriangle;
    case FieldState::kNotReadBack:
      return Shape::kCrossedHourglass;
    case FieldState::kAsRead:
    case FieldState::kShown:
      break;
  }
  return Shape::kNone;
}

Shape ShapeOf(presentation::Mark mark) {
  switch (mark) {
    case presentation::Mark::kUncertain:
      return Shape::kWarning;
    case presentation::Mark::kBad:
      return Shape::kFault;
    case presentation::Mark::kNone:
      break;
  }
  return Shape::kNone;
}

Shape ShapeOf(presentation::HealthState health) {
  using presentation::HealthState;
  switch (health) {
    case HealthState::kFailure:
      return Shape::kFailure;
    case HealthState::kFunctionCheck:
      return Shape::kWarning;
    case HealthState::kOutOfSpecification:
      return Shape::kQuestion;
    case HealthState::kGood:
    case HealthState::kNotRead:
      break;
  }
  return Shape::kNone;
}

QColor AccentColor(const QPalette& palette) {
  const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
  const QColor ground = palette.color(QPalette::Active, QPalette::Window);
  // A highlight as light or as dark as the ground cannot be seen on it.
  const bool visible = qAbs(highlight.lightness() - ground.lightness()) > 60;
  return visible ? highlight : palette.color(QPalette::Active, QPalette::WindowText);
}

QColor AlertColor(const QPalette& palette) {
  return palette.color(QPalette::Active, QPalette::Window).lightness() < 128 ? QColor(0xFF, 0x8A, 0x80)
                                                                             : QColor(0xB0, 0x1B, 0x1B);
}

void PaintShape(QPainter& painter, const QRectF& room, Shape shape, const QPalette& palette) {
  if (shape == Shape::kNone) return;
  const QColor color = IsAlert(shape) ? AlertColor(palette) : AccentColor(palette);
  const double side = std::min(room.width(), room.height());
  const QRectF square(room.center().x() - side / 2, room.center().y() - side / 2, side, side);
  const Pen pen{painter, square};
  const QPen stroke(color, std::max(1.0, side / 8), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(stroke);
  painter.setBrush(Qt::NoBrush);
  switch (shape) {
    case Shape::kNone:
      break;
    case Shape::kCircle:
      painter.drawEllipse(square.adjusted(side * 0.15, side * 0.15, -side * 0.15, -side * 0.15));
      break;
    case Shape::kPencil:
      painter.setPen(QPen(color, side / 4, Qt::SolidLine, Qt::FlatCap));
      pen.Line(0.28, 0.72, 0.9, 0.1);
      painter.setPen(stroke);
      pen.Line(0.1, 0.9, 0.2, 0.8);
      break;
    case Shape::kHourglass:
      Hourglass(pen);
      break;
    case Shape::kCheck:
      pen.Path({{0.08, 0.55}, {0.38, 0.86}, {0.92, 0.16}}, false);
      break;
    case Shape::kCheckOverLine:
      pen.Path({{0.12, 0.42}, {0.38, 0.68}, {0.88, 0.08}}, false);
      pen.Line(0.08, 0.92, 0.92, 0.92);
      break;
    case Shape::kNotEqual:
      NotEqual(pen, false);
      break;
    case Shape::kDottedNotEqual:
      NotEqual(pen, true);
      break;
    case Shape::kFilledTriangle:
      painter.setBrush(color);
      pen.Path({{0.5, 0.28}, {0.78, 0.76}, {0.22, 0.76}}, true);
      break;
    case Shape::kCrossedHourglass:
      Hourglass(pen);
      pen.Line(0.0, 0.78, 1.0, 0.22);
      break;
    case Shape::kWarning:
      pen.Path({{0.5, 0.06}, {0.97, 0.94}, {0.03, 0.94}}, true);
      Exclaim(pen);
      break;
    case Shape::kFault:
      pen.Path({{0.06, 0.06}, {0.94, 0.06}, {0.94, 0.94}, {0.06, 0.94}}, true);
      pen.Line(0.3, 0.3, 0.7, 0.7);
      pen.Line(0.7, 0.3, 0.3, 0.7);
      break;
    case Shape::kQuestion:
      pen.Path({{0.06, 0.06}, {0.94, 0.06}, {0.94, 0.94}, {0.06, 0.94}}, true);
      pen.Path({{0.34, 0.34}, {0.5, 0.22}, {0.66, 0.34}, {0.5, 0.52}, {0.5, 0.62}}, false);
      pen.Line(0.5, 0.78, 0.5, 0.79);
      break;
    case Shape::kFailure:
      painter.drawEllipse(square.adjusted(side * 0.06, side * 0.06, -side * 0.06, -side * 0.06));
      pen.Line(0.3, 0.3, 0.7, 0.7);
      pen.Line(0.7, 0.3, 0.3, 0.7);
      break;
  }
  painter.restore();
}

ShapeSlot::ShapeSlot(QWidget* parent) : QWidget(parent) { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void ShapeSlot::SetShape(Shape shape, std::string_view name) {
  if (shape_ == shape) return;
  shape_ = shape;
  setAccessibleName(ToQt(name));
  update();
}

QSize ShapeSlot::sizeHint() const {
  const int side = fontMetrics().ascent();
  return {side, side};
}

void ShapeSlot::paintEvent(QPaintEvent* /*event*/) {
  Guarded([this] {
    QPainter painter(this);
    PaintShape(painter, QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), shape_, palette());
  });
}

}  // namespace htr60::desktop
