#pragma once

#include <QWidget>

#include "desktop/core.h"
#include "desktop/figure/shapes.h"
#ifndef Q_MOC_RUN
#include "figures/figure.h"
#endif

namespace htr60::desktop {

/// Paints a figure. It takes no focus; a click on a point asks for the point's field.
class FigureWidget final : public QWidget {
  Q_OBJECT

 public:
  /// `flat`: one axis alone, which needs less height.
  FigureWidget(bool flat, QWidget* parent);
  void Show(Figure figure);
  const Figure& Shown() const { return figure_; }
  /// Width of the numbers before the axis, and what it shall at least be: so axes below each other begin alike.
  double WidthOfNumbers() const;
  void SetWidthOfNumbers(double least);
  /// Where a point of the figure stands in the widget.
  QPointF Place(FigurePoint point) const;
  /// Paints it somewhere else, as large as the widget, in the widget's colours.
  void PaintOn(QPainter& painter);
  /// What stands at a place of the widget, in the units of the axes.
  FigurePoint At(QPointF place) const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void FieldWanted(htr60::ControlId field);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Arrange();
  void PaintAxes(QPainter& painter) const;
  void PaintLines(QPainter& painter) const;
  void PaintMarkers(QPainter& painter) const;
  void PaintTexts(QPainter& painter) const;
  void PaintWords(QPainter& painter) const;
  void PaintBar(QPainter& painter) const;
  std::vector<const FigureTick*> TicksWithRoom() const;
  QRectF RoomOfX(const FigureTick& tick) const;
  QRectF RoomOfY(const FigureTick& tick) const;
  FigurePoint Pixel(FigurePoint point) const;
  double Hairline() const;
  /// A line above the drawing: words, and for what the device says a shape before them.
  struct Line {
    QString text;
    Shape shape = Shape::kNone;
  };
  std::vector<Line> Above() const;
  int MarkerSide() const { return fontMetrics().averageCharWidth(); }

  const bool flat_;
  Figure figure_;
  double leastNumbers_ = 0;
  QRectF plot_;   // where the axes' units lie
  QRectF bar_;    // beside the plot, or alone
  QRectF above_;  // verdict and further lines
  QRectF below_;  // remarks
};

}  // namespace htr60::desktop
