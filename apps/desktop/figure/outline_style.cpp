#include "desktop/figure/outline_style.h"

#include <QGroupBox>
#include <QListWidget>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "desktop/figure/tones.h"

namespace htr60::desktop {
namespace {

constexpr double kRadius = 2;
constexpr int kAboveBox = 3;  // pixels, as the style below leaves them

void DrawBox(QPainter& painter, const QRect& rect, const QColor& color) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(color);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  painter.restore();
}

// What is disabled stays as it is. Where the focus is, the style's own frame is not seen on every ground.
void Outline(QPainter& painter, const QStyleOption& option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return;
  const bool focus = option.state.testFlag(QStyle::State_HasFocus);
  DrawBox(painter, option.rect, focus ? AccentColor(option.palette) : EdgeColor(option.palette));
}

}  // namespace

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  if (element == PE_FrameGroupBox) {
    const auto* box = qobject_cast<const QGroupBox*>(widget);
    const int title = box != nullptr && box->title().isEmpty() ? 0 : option->fontMetrics.height();
    return DrawBox(*painter, option->rect.adjusted(0, title + kAboveBox, 0, 0), BoxColor(option->palette));
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool edged = element == PE_FrameLineEdit || element == PE_PanelButtonCommand || element == PE_IndicatorCheckBox;
  if (edged) Outline(*painter, *option);
  if (element != PE_Frame || widget == nullptr) return;
  // Frames have no colour of their own. A list to be read is a field.
  const bool field = qobject_cast<const QListWidget*>(widget) != nullptr;
  const QColor edge = field ? EdgeColor(option->palette) : BoxColor(option->palette);
  DrawBox(*painter, option->rect, field && widget->hasFocus() ? AccentColor(option->palette) : edge);
}

void OutlineStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  // Shades alone tell the tab in front from the others.
  if (element != CE_TabBarTabShape || !option->state.testFlag(State_Selected)) return;
  const int high = std::max(2, option->fontMetrics.height() / 5);
  painter->fillRect(QRect(option->rect.left() + 1, option->rect.top(), option->rect.width() - 2, high),
                    AccentColor(option->palette));
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ComboBox || control == CC_SpinBox) Outline(*painter, *option);
  if (control != CC_Slider) return;
  QStyleOption part(*option);
  for (const SubControl sub : {SC_SliderGroove, SC_SliderHandle}) {
    part.rect = proxy()->subControlRect(CC_Slider, option, sub, widget);
    part.state.setFlag(State_HasFocus, sub == SC_SliderHandle && option->state.testFlag(State_HasFocus));
    Outline(*painter, part);
  }
}

}  // namespace htr60::desktop
