#include "desktop/figure/figure_widget.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/edge.h"
#include "desktop/figure/bar_painter.h"
#include "desktop/qt_text.h"
#include "figures/labels.h"

namespace htr60::desktop {
namespace {

constexpr double kLeastWidth = 300;  // 1/96 inch
constexpr double kLeastHeight = 160;
constexpr double kLeastFlat = 110;
constexpr double kBarShare = 0.6;  // a bar leaves the rest to the axes

double Share(const FigureAxis& axis, double value) {
  return axis.to == axis.from ? 0.5 : (value - axis.from) / (axis.to - axis.from);
}

QPen PenOf(LineStyle style, const QPalette& palette, double hairline) {
  const QColor ink = palette.color(QPalette::WindowText);
  QColor faint = ink;
  faint.setAlphaF(0.6F);
  switch (style) {
    case LineStyle::kCurve:
      return {AccentColor(palette), 2 * hairline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
    case LineStyle::kWrong:
      return {AlertColor(palette), 3 * hairline, Qt::DashLine, Qt::FlatCap};
    case LineStyle::kLevel:
      return {ink, hairline, Qt::DotLine, Qt::FlatCap};
    case LineStyle::kReference:
      break;
  }
  return {faint, hairline, Qt::DashLine, Qt::FlatCap};
}

}  // namespace

FigureWidget::FigureWidget(bool flat, QWidget* parent) : QWidget(parent), flat_(flat) {
  setObjectName(QStringLiteral("figure"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void FigureWidget::Show(Figure figure) {
  figure_ = std::move(figure);
  const QString sentence = ToQt(figure_.sentence);
  if (accessibleName() != sentence) setAccessibleName(sentence);
  Arrange();
  update();
}

double FigureWidget::WidthOfNumbers() const {
  double width = 0;
  for (const FigureTick& tick : figure_.y.ticks) {
    width = std::max(width, static_cast<double>(fontMetrics().horizontalAdvance(ToQt(tick.text))));
  }
  return width;
}

void FigureWidget::SetWidthOfNumbers(double least) {
  if (leastNumbers_ == least) return;
  leastNumbers_ = least;
  Arrange();
  update();
}

QSize FigureWidget::minimumSizeHint() const {
  return {Pixels(*this, kLeastWidth), Pixels(*this, flat_ ? kLeastFlat : kLeastHeight)};
}

QSize FigureWidget::sizeHint() const { return minimumSizeHint(); }

void FigureWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Guarded([this] { Arrange(); });
}

std::vector<FigureWidget::Line> FigureWidget::Above() const {
  std::vector<Line> lines;
  const auto said = [&](const std::string& caption, const std::string& text, RowRole role, RowKind kind) {
    lines.push_back(
        {ToQt(caption) + QStringLiteral(": ") + ToQt(text), ShapeOf(presentation::MarkOf(role, kind, text))});
  };
  if (!figure_.verdict.empty()) said(figure_.verdictCaption, figure_.verdict, figure_.verdictRole, RowKind::kStatus);
  for (const std::string& alarm : figure_.alarms) {
    said(figure_.alarmCaption, alarm, RowRole::kVerdict, RowKind::kListBox);
  }
  for (const std::string& line : figure_.above) lines.push_back({ToQt(line)});
  return lines;
}

double FigureWidget::Hairline() const { return std::max(1.0, Pixels(*this, 1) / 1.0); }

void FigureWidget::Arrange() {
  const QFontMetrics metrics = fontMetrics();
  const double line = metrics.lineSpacing();
  const double gap = metrics.averageCharWidth();
  QRectF room = QRectF(rect()).adjusted(gap / 2, gap / 2, -gap / 2, -gap / 2);
  above_ = QRectF(room.topLeft(), QSizeF(room.width(), line * static_cast<double>(Above().size())));
  double remarks = 0;
  for (const std::string& remark : figure_.remarks) {
    remarks += metrics.boundingRect(QRect(0, 0, static_cast<int>(room.width()), 1'000), Qt::TextWordWrap, ToQt(remark))
                   .height();
  }
  below_ = QRectF(room.left(), room.bottom() - remarks, room.width(), remarks);
  const QRectF middle(QPointF(room.left(), above_.bottom()), QPointF(room.right(), below_.top()));
  bar_ = QRectF();
  if (figure_.bar) {
    const double wanted = BarPainter(*figure_.bar, font(), palette(), Hairline()).Width();
    const double width = figure_.barAlone ? middle.width() : std::min(wanted, middle.width() * kBarShare);
    bar_ = QRectF(middle.right() - width, middle.top(), width, middle.height());
    room.setRight(std::max(room.left(), bar_.left() - gap * 2));
  }
  const double left = std::max(leastNumbers_, WidthOfNumbers());
  double right = gap * 2;
  if (!figure_.x.ticks.empty()) {
    right = std::max(right, metrics.horizontalAdvance(ToQt(figure_.x.ticks.back().text)) / 2.0);
  }
  const double under = figure_.x.caption.empty() ? 1.4 : 2.4;  // lines for numbers and caption of the axis
  plot_ = QRectF(QPointF(room.left() + left + gap * 1.5, above_.bottom() + line * 1.4),
                 QPointF(room.right() - right, below_.top() - line * under));
}

QPointF FigureWidget::Place(FigurePoint point) const {
  return {plot_.left() + Share(figure_.x, point.x) * plot_.width(),
          plot_.bottom() - Share(figure_.y, point.y) * plot_.height()};
}

FigurePoint FigureWidget::At(QPointF place) const {
  const auto share = [](double from, double length) { return length <= 0 ? 0 : from / length; };
  const double x = share(place.x() - plot_.left(), plot_.width());
  const double y = share(plot_.bottom() - place.y(), plot_.height());
  return {figure_.x.from + x * (figure_.x.to - figure_.x.from), figure_.y.from + y * (figure_.y.to - figure_.y.from)};
}

// ---- painting

void FigureWidget::paintEvent(QPaintEvent* /*event*/) {
  Guarded([this] {
    QPainter painter(this);
    PaintOn(painter);
  });
}

void FigureWidget::PaintOn(QPainter& painter) {
  painter.setPen(palette().color(QPalette::WindowText));
  PaintWords(painter);
  PaintBar(painter);
  if (figure_.barAlone && figure_.bar) return;
  if (!figure_.missing.empty()) {
    const double right = figure_.bar ? bar_.left() : rect().right();
    const QRectF middle(rect().left(), above_.bottom(), right - rect().left(), below_.top() - above_.bottom());
    painter.drawText(middle, Qt::AlignCenter | Qt::TextWordWrap, ToQt(figure_.missing));
    return;
  }
  if (plot_.width() <= 0 || plot_.height() <= 0) return;
  PaintAxes(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintLines(painter);
  PaintMarkers(painter);
  PaintTexts(painter);
}

void FigureWidget::PaintBar(QPainter& painter) const {
  if (!figure_.bar || bar_.width() <= 0) return;
  BarPainter(*figure_.bar, font(), palette(), Hairline()).Paint(painter, bar_);
}

void FigureWidget::PaintWords(QPainter& painter) const {
  const double line = fontMetrics().lineSpacing();
  QRectF row(above_.left(), above_.top(), above_.width(), line);
  for (const Line& said : Above()) {
    QRectF words = row;
    if (said.shape != Shape::kNone) {
      const double side = fontMetrics().ascent();
      PaintShape(painter, QRectF(row.left(), row.top() + (line - side) / 2, side, side), said.shape, palette());
      words.setLeft(row.left() + side + fontMetrics().averageCharWidth() / 2.0);
    }
    painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(said.text, Qt::ElideRight, static_cast<int>(words.width())));
    row.translate(0, line);
  }
  QRectF remark = below_;
  for (const std::string& text : figure_.remarks) {
    QRectF used;
    painter.drawText(remark, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, ToQt(text), &used);
    remark.setTop(used.bottom());
  }
}

void FigureWidget::PaintAxes(QPainter& painter) const {
  const QFontMetrics metrics = fontMetrics();
  const double line = metrics.lineSpacing();
  const double gap = metrics.averageCharWidth();
  QColor grid = palette().color(QPalette::WindowText);
  grid.setAlphaF(0.15F);
  const QPen axisPen(palette().color(QPalette::WindowText), 0);  // hairlines: whole device pixels at every scale
  for (const FigureTick& tick : figure_.x.ticks) {
    const double x = std::round(plot_.left() + Share(figure_.x, tick.value) * plot_.width());
    painter.setPen(QPen(grid, 0));
    painter.drawLine(QPointF(x, plot_.top()), QPointF(x, plot_.bottom()));
    painter.setPen(axisPen);
    painter.drawLine(QPointF(x, plot_.bottom()), QPointF(x, plot_.bottom() + gap / 2));
    painter.drawText(RoomOfX(tick), Qt::AlignCenter, ToQt(tick.text));
  }
  for (const FigureTick* tick : TicksWithRoom()) {
    const double y = std::round(plot_.bottom() - Share(figure_.y, tick->value) * plot_.height());
    painter.setPen(QPen(grid, 0));
    painter.drawLine(QPointF(plot_.left(), y), QPointF(plot_.right(), y));
    painter.setPen(axisPen);
    painter.drawLine(QPointF(plot_.left() - gap / 2, y), QPointF(plot_.left(), y));
    painter.drawText(RoomOfY(*tick), Qt::AlignRight | Qt::AlignVCenter, ToQt(tick->text));
  }
  painter.setPen(axisPen);
  painter.drawLine(plot_.bottomLeft(), plot_.bottomRight());
  painter.drawLine(plot_.bottomLeft(), plot_.topLeft());
  painter.drawText(QRectF(plot_.left(), plot_.bottom() + gap / 2 + line * 0.95, plot_.width(), line),
                   Qt::AlignRight | Qt::AlignVCenter, ToQt(figure_.x.caption));
  painter.drawText(QRectF(above_.left(), above_.bottom(), above_.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
                   ToQt(figure_.y.caption));
}

// Where there is no room for all numbers before the axis, each second, third, ... stands there: 0 among them.
std::vector<const FigureTick*> FigureWidget::TicksWithRoom() const {
  const std::vector<FigureTick>& ticks = figure_.y.ticks;
  std::vector<const FigureTick*> shown;
  if (ticks.empty()) return shown;
  const double all = std::abs(Share(figure_.y, ticks.back().value) - Share(figure_.y, ticks.front().value));
  const double each = all * plot_.height() / std::max(1.0, static_cast<double>(ticks.size()) - 1);
  const auto step = static_cast<std::size_t>(std::clamp(std::ceil(fontMetrics().ascent() / each), 1.0, 1000.0));
  const auto zero = std::find_if(ticks.begin(), ticks.end(), [](const FigureTick& tick) { return tick.value == 0; });
  const auto first = zero == ticks.end() ? 0 : static_cast<std::size_t>(zero - ticks.begin()) % step;
  for (std::size_t i = first; i < ticks.size(); i += step) shown.push_back(&ticks[i]);
  return shown;
}

// Of the number of a tick below the plot, and before it.
QRectF FigureWidget::RoomOfX(const FigureTick& tick) const {
  const double gap = fontMetrics().averageCharWidth();
  const double x = std::round(plot_.left() + Share(figure_.x, tick.value) * plot_.width());
  const double wide = fontMetrics().horizontalAdvance(ToQt(tick.text)) + gap;
  return {x - wide / 2, plot_.bottom() + gap / 2, wide, static_cast<double>(fontMetrics().lineSpacing())};
}

QRectF FigureWidget::RoomOfY(const FigureTick& tick) const {
  const double line = fontMetrics().lineSpacing();
  const double y = std::round(plot_.bottom() - Share(figure_.y, tick.value) * plot_.height());
  const double wide = fontMetrics().horizontalAdvance(ToQt(tick.text)) + 1;
  return {plot_.left() - fontMetrics().averageCharWidth() - wide, y - line / 2, wide, line};
}

void FigureWidget::PaintLines(QPainter& painter) const {
  painter.save();
  painter.setClipRect(plot_.adjusted(-2, -2, 2, 2));
  const double hairline = Hairline();
  for (const FigureBand& band : figure_.bands) {
    QColor ground = AccentColor(palette());
    ground.setAlphaF(0.15F);
    painter.fillRect(QRectF(Place({figure_.x.from, band.to}), Place({figure_.x.to, band.from})), ground);
  }
  for (const FigureLine& line : figure_.lines) {
    QPolygonF points;
    for (const FigurePoint& point : line.points) points << Place(point);
    painter.setPen(line.series == 0 ? PenOf(line.style, palette(), hairline)
                                    : SeriesPen(palette(), line.series, 2 * hairline));
    painter.drawPolyline(points);
  }
  painter.restore();
}

void FigureWidget::PaintMarkers(QPainter& painter) const {
  const double side = MarkerSide();
  const QColor ink = AccentColor(palette());
  for (const FigureMarker& marker : figure_.markers) {
    const QPointF at = Place(marker.at);
    const QRectF square(at.x() - side / 2, at.y() - side / 2, side, side);
    painter.setPen(QPen(ink, std::max(1.0, side / 6)));
    painter.setBrush(Qt::NoBrush);
    switch (marker.shape) {
      case MarkerShape::kFilledSquare:
        painter.fillRect(square, ink);
        break;
      case MarkerShape::kHollowSquare:
        painter.setBrush(palette().color(QPalette::Window));
        painter.drawRect(square);
        break;
      case MarkerShape::kRing:
        painter.drawEllipse(square.adjusted(-side / 2, -side / 2, side / 2, side / 2));
        break;
      case MarkerShape::kCross:
        painter.setPen(QPen(AlertColor(palette()), std::max(1.5, side / 4)));
        painter.drawLine(square.topLeft(), square.bottomRight());
        painter.drawLine(square.topRight(), square.bottomLeft());
        break;
    }
  }
}

void FigureWidget::PaintTexts(QPainter& painter) const {
  const QFontMetrics metrics = fontMetrics();
  const auto places = figures::PlaceTexts(
      figure_,
      {.at = [this](FigurePoint point) { return Pixel(point); },
       .widthOf = [&](std::string_view text) { return static_cast<double>(metrics.horizontalAdvance(ToQt(text))); },
       .letters = static_cast<double>(metrics.ascent()),
       .character = static_cast<double>(MarkerSide()),
       .plot = {plot_.x(), plot_.y(), plot_.width(), plot_.height()},
       .top = above_.bottom(),
       .right = static_cast<double>(width())});
  painter.setPen(palette().color(QPalette::WindowText));
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (places[i])
      painter.drawText(QPointF(places[i]->x, places[i]->y + places[i]->height), ToQt(figure_.texts[i].text));
  }
}

FigurePoint FigureWidget::Pixel(FigurePoint point) const {
  const QPointF at = Place(point);
  return {at.x(), at.y()};
}

void FigureWidget::mousePressEvent(QMouseEvent* event) {
  const double reach = MarkerSide() * 1.5;
  const FigureMarker* nearest = nullptr;
  double least = reach;
  for (const FigureMarker& marker : figure_.markers) {
    const double distance = QLineF(Place(marker.at), event->position()).length();
    if (!marker.field || distance > least) continue;
    least = distance;
    nearest = &marker;
  }
  if (nearest != nullptr && figure_.missing.empty()) Q_EMIT FieldWanted(nearest->field);
}

}  // namespace htr60::desktop
