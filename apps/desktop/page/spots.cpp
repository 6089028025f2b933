#include "desktop/page/spots.h"

#include <QVariant>
#include <QWidget>
#include <optional>

namespace htr60::desktop {
namespace {

using presentation::Spot;

constexpr const char* kProperty = "spot";

unsigned NumberOf(Spot spot) {
  return static_cast<unsigned>(spot.part) << 24U | unsigned{spot.answer} << 16U | spot.control.ordinal;
}

std::optional<unsigned> NumberAt(const QWidget& widget) {
  const QVariant number = widget.property(kProperty);
  return number.isValid() ? std::optional(number.toUInt()) : std::nullopt;
}

}  // namespace

void BearSpot(QWidget& widget, Spot spot) { widget.setProperty(kProperty, NumberOf(spot)); }

Spot SpotOf(const QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    const auto number = NumberAt(*widget);
    if (!number) continue;
    Spot spot(static_cast<Spot::Part>(*number >> 24U));
    spot.answer = static_cast<std::uint8_t>(*number >> 16U & 0xFFU);
    spot.control.ordinal = static_cast<std::uint16_t>(*number & 0xFFFFU);
    return spot;
  }
  return {};
}

QWidget* FindSpot(const QWidget& root, Spot spot) {
  const unsigned wanted = NumberOf(spot);
  for (QWidget* widget : root.findChildren<QWidget*>()) {
    if (NumberAt(*widget) == wanted && widget->isVisibleTo(&root)) return widget;
  }
  return nullptr;
}

}  // namespace htr60::desktop
