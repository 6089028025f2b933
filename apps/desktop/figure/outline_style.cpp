#include "desktop/figure/outline_style.h"

#include <QPainter>
#include <QStyleOption>

#include "desktop/figure/tones.h"

namespace htr60::desktop {
namespace {

constexpr double kRadius = 2;

// What is disabled, or has the focus' own frame, stays as it is.
void Outline(QPainter& painter, const QStyleOption& option) {
  if (!option.state.testFlag(QStyle::State_Enabled) || option.state.testFlag(QStyle::State_HasFocus)) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(EdgeColor(option.palette));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  painter.restore();
}

}  // namespace

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (element == PE_FrameLineEdit || element == PE_PanelButtonCommand) Outline(*painter, *option);
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ComboBox) Outline(*painter, *option);
}

}  // namespace htr60::desktop
