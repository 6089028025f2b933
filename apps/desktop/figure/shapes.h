#pragma once

#include <QIcon>
#include <QPainter>
#include <QWidget>
#include <cstdint>
#include <string_view>

#include "desktop/core.h"
#include "desktop/figure/tones.h"

namespace htr60::desktop {

/// Small pictures before fields. Each differs from all others in its outline: grey print loses nothing.
enum class Shape : std::uint8_t {
  kNone,
  kCircle,            ///< hollow: not read
  kPencil,            ///< slanted bar: not written
  kHourglass,         ///< sent
  kCheck,             ///< confirmed
  kCheckOverLine,     ///< stored as the code can hold it
  kNotEqual,          ///< the device differs
  kDottedNotEqual,    ///< replaced by the device
  kFilledTriangle,    ///< changed
  kCrossedHourglass,  ///< sent, not read back
  kWarning,           ///< triangle: uncertain
  kFault,             ///< square with a cross: bad
  kQuestion,          ///< square with a question mark: outside of its limits
  kFunctionCheck,     ///< filled triangle: simulated
  kFailure,           ///< circle with a cross
};

Shape ShapeOf(presentation::FieldState state);

/// The shape before a status, a verdict, an alarm, a message.
Shape ShapeOf(presentation::Mark mark);

/// The shape before the word of the instrument's health.
Shape ShapeOf(presentation::HealthState health);

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
