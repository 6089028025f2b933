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

QColor ColorOf(Shape shape, const QPalette& palette) {
  switch (shape) {
    case Shape::kWarning:
      return WarningColor(palette);
    case Shape::kNotEqual:
    case Shape::kDottedNotEqual:
    case Shape::kFault:
      return AlertColor(palette);
    default:
      return AccentColor(palette);
  }
}

// The colours that the field knows for an instrument's health, with an ink that is seen on each.
struct HealthTone {
  QColor ground;
  QColor ink;
};

HealthTone ToneOf(Shape shape) {
  switch (shape) {
    case Shape::kFailure:
      return {QColor(0xD3, 0x2F, 0x2F), Qt::white};
    case Shape::kFunctionCheck:
      return {QColor(0xFF, 0x98, 0x00), Qt::black};
    default:
      return {QColor(0xFF, 0xEB, 0x3B), Qt::black};
  }
}

// Filled, with an outline that stands out where the fill does not.
void PaintHealth(const Pen& pen, const QRectF& square, Shape shape, const QPen& outline) {
  const HealthTone tone = ToneOf(shape);
  pen.painter.setPen(outline);
  pen.painter.setBrush(tone.ground);
  const double side = square.width();
  if (shape == Shape::kFailure) {
    pen.painter.drawEllipse(square.adjusted(side * 0.06, side * 0.06, -side * 0.06, -side * 0.06));
  } else if (shape == Shape::kFunctionCheck) {
    pen.Path({{0.5, 0.06}, {0.97, 0.94}, {0.03, 0.94}}, true);
  } else {
    pen.Path({{0.06, 0.06}, {0.94, 0.06}, {0.94, 0.94}, {0.06, 0.94}}, true);
  }
  QPen ink = outline;
  ink.setColor(tone.ink);
  pen.painter.setPen(ink);
  pen.painter.setBrush(Qt::NoBrush);
  if (shape == Shape::kFailure) {
    pen.Line(0.3, 0.3, 0.7, 0.7);
    pen.Line(0.7, 0.3, 0.3, 0.7);
  } else if (shape == Shape::kFunctionCheck) {
    Exclaim(pen);
  } else {
    pen.Path({{0.34, 0.34}, {0.5, 0.22}, {0.66, 0.34}, {0.5, 0.52}, {0.5, 0.62}}, false);
    pen.Line(0.5, 0.78, 0.5, 0.79);
  }
}

}  // namespace

void PaintShape(QPainter& painter, const QRectF& room, Shape shape, const QPalette& palette) {
  if (shape == Shape::kNone) return;
  const QColor color = ColorOf(shape, palette);
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
    case Shape::kFailure:
    case Shape::kFunctionCheck:
    case Shape::kQuestion:
      PaintHealth(pen, square, shape,
                  QPen(palette.color(QPalette::Active, QPalette::Text), std::max(1.0, side / 10), Qt::SolidLine,
                       Qt::RoundCap, Qt::RoundJoin));
      break;
  }
  painter.restore();
}

QIcon ShapeIcon(Shape shape, int side, const QPalette& palette) {
  QIcon icon;
  for (const int scale : {1, 2, 3}) {
    QPixmap picture(QSize(side, side) * scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.scale(scale, scale);
    PaintShape(painter, QRectF(0.5, 0.5, side - 1, side - 1), shape, palette);
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
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
