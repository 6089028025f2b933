#pragma once

#include <QProxyStyle>

namespace htr60::desktop {

/// The style below it with an edge around fields, lists, buttons and groups, and a bar on the tab in front, that are
/// seen on every ground.
class OutlineStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

}  // namespace htr60::desktop
