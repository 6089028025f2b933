#pragma once

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <vector>

#include "desktop/core.h"
#ifndef Q_MOC_RUN
#include "figures/figure.h"
#endif

namespace htr60::desktop {

/// Paints a bar upright: the numbers of its ends and the pointer on its left, marks and spans on its right.
class BarPainter {
 public:
  BarPainter(const FigureBar& bar, const QFont& font, const QPalette& palette, double hairline);

  /// The width that no text is cut at.
  double Width() const;
  void Paint(QPainter& painter, const QRectF& room) const;

 private:
  double LeftWidth() const;
  double RightWidth() const;
  double PointerWidth() const;
  double Y(double value) const;
  void PaintBody(QPainter& painter) const;
  void PaintLeft(QPainter& painter) const;
  void PaintPointer(QPainter& painter, double labelY) const;
  void PaintSpan(QPainter& painter, const BarSpan& span) const;
  void PaintMarks(QPainter& painter, double right) const;
  void PaintArrow(QPainter& painter, BarReach reach, double x, double y) const;

  const FigureBar& bar_;
  QFontMetricsF metrics_;
  const QPalette& palette_;
  double hairline_;
  double gap_;
  mutable QRectF body_;
};

}  // namespace htr60::desktop
