#include "desktop/figure/bar_painter.h"

#include <algorithm>

#include "desktop/figure/shapes.h"
#include "desktop/qt_text.h"
#include "figures/spread.h"

namespace htr60::desktop {

namespace {

// In average characters.
constexpr double kBody = 2;
constexpr double kPointerRoom = 2;
constexpr double kSpanRoom = 4;
constexpr double kLeaderRoom = 2;

Shape ShapeOfStatus(std::string_view status) {
  return ShapeOf(presentation::MarkOf(RowRole::kNone, RowKind::kStatus, status));
}

QColor Faint(const QPalette& palette, float share) {
  QColor color = palette.color(QPalette::WindowText);
  color.setAlphaF(share);
  return color;
}

}  // namespace

BarPainter::BarPainter(const FigureBar& bar, const QFont& font, const QPalette& palette, double hairline)
    : bar_(bar), metrics_(font), palette_(palette), hairline_(hairline), gap_(metrics_.averageCharWidth()) {}

double BarPainter::PointerWidth() const {
  if (!bar_.pointer) return 0;
  double width = metrics_.horizontalAdvance(ToQt(bar_.pointer->text));
  if (!bar_.pointer->status.empty()) {
    width += gap_ + metrics_.horizontalAdvance(ToQt(bar_.pointer->status));
    if (ShapeOfStatus(bar_.pointer->status) != Shape::kNone) width += metrics_.ascent() + gap_ / 2;
  }
  return width;
}

double BarPainter::LeftWidth() const {
  double width = PointerWidth();
  for (const FigureTick& tick : bar_.axis.ticks) width = std::max(width, metrics_.horizontalAdvance(ToQt(tick.text)));
  return width + gap_ * kPointerRoom;
}

double BarPainter::RightWidth() const {
  double width = 0;
  for (const BarMark& mark : bar_.marks) width = std::max(width, metrics_.horizontalAdvance(ToQt(mark.text)));
  return width + gap_ * (kSpanRoom + kLeaderRoom + 1);
}

double BarPainter::Width() const { return LeftWidth() + gap_ * kBody + RightWidth(); }

double BarPainter::Y(double value) const {
  const double span = bar_.axis.to - bar_.axis.from;
  const double share = span == 0 ? 0.5 : (value - bar_.axis.from) / span;
  return body_.bottom() - share * body_.height();
}

void BarPainter::Paint(QPainter& painter, const QRectF& room) const {
  const double line = metrics_.lineSpacing();
  painter.setPen(palette_.color(QPalette::WindowText));
  painter.drawText(QRectF(room.left(), room.top(), room.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
                   metrics_.elidedText(ToQt(bar_.axis.caption), Qt::ElideRight, room.width()));
  // Half a line at either end for the labels of the ends, and room for their arrows.
  body_ = QRectF(QPointF(room.left() + LeftWidth(), room.top() + line * 2),
                 QPointF(room.left() + LeftWidth() + gap_ * kBody, room.bottom() - line));
  if (body_.height() <= 0) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  PaintBody(painter);
  for (const BarSpan& span : bar_.spans) PaintSpan(painter, span);
  PaintMarks(painter, room.right());
  PaintLeft(painter);
  painter.restore();
}

void BarPainter::PaintBody(QPainter& painter) const {
  const QRectF bar(QPointF(body_.left(), Y(bar_.to)), QPointF(body_.right(), Y(bar_.from)));
  painter.fillRect(body_, QBrush(Faint(palette_, 0.5F), Qt::BDiagPattern));
  painter.fillRect(bar, palette_.color(QPalette::Window));
  painter.fillRect(bar, Faint(palette_, 0.15F));
  painter.setPen(QPen(palette_.color(QPalette::WindowText), 0));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(body_);
}

void BarPainter::PaintArrow(QPainter& painter, BarReach reach, double x, double y) const {
  if (reach == BarReach::kWithin) return;
  const double tip = reach == BarReach::kAbove ? y - gap_ * 2 : y + gap_ * 2;
  const double back = reach == BarReach::kAbove ? tip + gap_ : tip - gap_;
  painter.setPen(QPen(palette_.color(QPalette::WindowText), hairline_));
  painter.drawLine(QPointF(x, y), QPointF(x, tip));
  painter.drawLine(QPointF(x, tip), QPointF(x - gap_ / 2, back));
  painter.drawLine(QPointF(x, tip), QPointF(x + gap_ / 2, back));
}

// Brackets open to the bar; what is wrong is dashed further out, in the alert colour.
void BarPainter::PaintSpan(QPainter& painter, const BarSpan& span) const {
  const bool wrong = span.style == BarSpanStyle::kWrong;
  const double from = Y(span.from);
  const double to = Y(span.to);
  const double x = body_.right() + gap_ * (wrong ? 3 : 1.5);
  const double foot = body_.right() + gap_ * (wrong ? 0.5 : 0.6);
  painter.setPen(wrong ? QPen(AlertColor(palette_), 3 * hairline_, Qt::DashLine, Qt::FlatCap)
                       : QPen(palette_.color(QPalette::WindowText), hairline_));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF({{foot, from}, {x, from}, {x, to}, {foot, to}}));
  if (!wrong) return;
  const double arm = gap_ / 2;
  const QPointF middle(x, (from + to) / 2);
  painter.setPen(QPen(AlertColor(palette_), std::max(1.5, gap_ / 4)));
  painter.drawLine(middle - QPointF(arm, arm), middle + QPointF(arm, arm));
  painter.drawLine(middle - QPointF(arm, -arm), middle + QPointF(arm, -arm));
}

void BarPainter::PaintMarks(QPainter& painter, double right) const {
  std::vector<double> wanted;
  for (const BarMark& mark : bar_.marks) wanted.push_back(Y(mark.at));
  const double line = metrics_.lineSpacing();
  const auto places = figures::SpreadLabels(wanted, line, body_.top() - line / 2, body_.bottom() + line / 2);
  const QColor ink = AccentColor(palette_);
  for (std::size_t i = 0; i < bar_.marks.size(); ++i) {
    const BarMark& mark = bar_.marks[i];
    const double leader = body_.right() + gap_ * kSpanRoom;
    const double x = leader + gap_ * kLeaderRoom;
    painter.setPen(QPen(Faint(palette_, 0.6F), 0));
    painter.drawPolyline(QPolygonF({{body_.left(), wanted[i]}, {leader, wanted[i]}, {x - gap_ / 2, places[i]}}));
    const QRectF square(body_.right() - gap_ / 2, wanted[i] - gap_ / 2, gap_, gap_);
    painter.setPen(QPen(ink, std::max(1.0, gap_ / 6)));
    painter.setBrush(mark.unwritten ? palette_.color(QPalette::Window) : ink);
    painter.drawRect(square);
    PaintArrow(painter, mark.reach, body_.right(), wanted[i]);
    painter.setPen(palette_.color(QPalette::WindowText));
    painter.drawText(QRectF(x, places[i] - line / 2, right - x, line), Qt::AlignLeft | Qt::AlignVCenter,
                     metrics_.elidedText(ToQt(mark.text), Qt::ElideRight, right - x));
  }
}

// The ends' numbers stay where they are wanted unless the pointer needs their place.
void BarPainter::PaintLeft(QPainter& painter) const {
  std::vector<double> wanted;
  for (const FigureTick& tick : bar_.axis.ticks) wanted.push_back(Y(tick.value));
  if (bar_.pointer) wanted.push_back(Y(bar_.pointer->at));
  const double line = metrics_.lineSpacing();
  const auto places = figures::SpreadLabels(wanted, line, body_.top() - line / 2, body_.bottom() + line / 2);
  const double right = body_.left() - gap_ * kPointerRoom;
  painter.setPen(palette_.color(QPalette::WindowText));
  for (std::size_t i = 0; i < bar_.axis.ticks.size(); ++i) {
    painter.drawText(QRectF(0, places[i] - line / 2, right, line), Qt::AlignRight | Qt::AlignVCenter,
                     ToQt(bar_.axis.ticks[i].text));
    painter.drawLine(QPointF(body_.left() - gap_ / 2, wanted[i]), QPointF(body_.left(), wanted[i]));
  }
  if (bar_.pointer) PaintPointer(painter, places.back());
}

void BarPainter::PaintPointer(QPainter& painter, double labelY) const {
  const BarPointer& pointer = *bar_.pointer;
  const double y = Y(pointer.at);
  const QColor ink = AccentColor(palette_);
  painter.setPen(QPen(ink, hairline_));
  painter.setBrush(ink);
  painter.drawPolygon(QPolygonF(
      {{body_.left(), y}, {body_.left() - gap_ * 1.5, y - gap_ * 0.7}, {body_.left() - gap_ * 1.5, y + gap_ * 0.7}}));
  painter.drawLine(QPointF(body_.left(), y), QPointF(body_.right(), y));
  PaintArrow(painter, pointer.reach, body_.center().x(), y);
  const double line = metrics_.lineSpacing();
  double x = body_.left() - gap_ * kPointerRoom - PointerWidth();
  painter.setPen(palette_.color(QPalette::WindowText));
  const auto word = [&](const QString& text) {
    const double wide = metrics_.horizontalAdvance(text);
    painter.drawText(QRectF(x, labelY - line / 2, wide + 1, line), Qt::AlignLeft | Qt::AlignVCenter, text);
    x += wide;
  };
  word(ToQt(pointer.text));
  if (pointer.status.empty()) return;
  x += gap_;
  if (const Shape shape = ShapeOfStatus(pointer.status); shape != Shape::kNone) {
    const double side = metrics_.ascent();
    PaintShape(painter, QRectF(x, labelY - side / 2, side, side), shape, palette_);
    x += side + gap_ / 2;
  }
  painter.setPen(palette_.color(QPalette::WindowText));
  word(ToQt(pointer.status));
}

}  // namespace htr60::desktop
