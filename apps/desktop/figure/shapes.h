#pragma once

#include <QIcon>
#include <QPainter>
#include <QWidget>
#include <string_view>

#include "desktop/core.h"
#include "desktop/figure/tones.h"

namespace htr60::desktop {

using presentation::Shape;
using presentation::ShapeOf;

void PaintShape(QPainter& painter, const QRectF& room, Shape shape, const QPalette& palette);

/// The shape as a picture of an item, for every scale.
QIcon ShapeIcon(Shape shape, int side, const QPalette& palette);

/// Room for one shape, as high as a line of text.
class ShapeSlot final : public QWidget {
  Q_OBJECT

 public:
  explicit ShapeSlot(QWidget* parent);
  /// `name`: what assistive technology calls it.
  void SetShape(Shape shape, std::string_view name = {});
  Shape Current() const { return shape_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Shape shape_ = Shape::kNone;
};

}  // namespace htr60::desktop
