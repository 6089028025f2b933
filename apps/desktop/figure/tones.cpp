#include "desktop/figure/tones.h"

#include <cstdint>
#include <initializer_list>
#include <utility>

namespace htr60::desktop {
namespace {

using presentation::Rgb;

Rgb RgbOf(const QColor& color) {
  const auto part = [](int value) { return static_cast<std::uint8_t>(value); };
  return {part(color.red()), part(color.green()), part(color.blue())};
}

QColor ColorOf(Rgb color) { return {color.red, color.green, color.blue}; }

QColor Mixed(const QColor& a, const QColor& b, double share) {
  return ColorOf(presentation::Mixed(RgbOf(a), RgbOf(b), share));
}

presentation::Grounds GroundsOf(const QPalette& palette) {
  return {RgbOf(palette.color(QPalette::Active, QPalette::Window)),
          RgbOf(palette.color(QPalette::Active, QPalette::Base))};
}

QPalette Made(std::initializer_list<std::pair<QPalette::ColorRole, QColor>> colors, const QColor& disabled) {
  QPalette palette;
  for (const auto& [role, color] : colors) palette.setColor(role, color);
  for (const QPalette::ColorRole role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::PlaceholderText}) {
    palette.setColor(QPalette::Disabled, role, disabled);
  }
  return palette;
}

QPalette Plain(const QColor& ground, const QColor& field, const QColor& button, const QColor& ink,
               const QColor& highlight, const QColor& highlightedText, const QColor& disabled) {
  return Made({{QPalette::Window, ground},
               {QPalette::WindowText, ink},
               {QPalette::Base, field},
               {QPalette::AlternateBase, ground},
               {QPalette::Text, ink},
               {QPalette::PlaceholderText, Against(field, Mixed(field, ink, 0.6), kTextContrast)},
               {QPalette::Button, button},
               {QPalette::ButtonText, ink},
               {QPalette::BrightText, ink},
               {QPalette::ToolTipBase, field},
               {QPalette::ToolTipText, ink},
               {QPalette::Link, highlight},
               {QPalette::Highlight, highlight},
               {QPalette::HighlightedText, highlightedText},
               {QPalette::Light, button.lighter(140)},
               {QPalette::Midlight, button.lighter(115)},
               {QPalette::Mid, Mixed(ground, ink, 0.4)},
               {QPalette::Dark, Mixed(ground, ink, 0.6)},
               {QPalette::Shadow, Qt::black}},
              disabled);
}

constexpr const char* kLight = "light";
constexpr const char* kDark = "dark";
constexpr const char* kContrast = "contrast";

}  // namespace

double Contrast(const QColor& a, const QColor& b) { return presentation::Contrast(RgbOf(a), RgbOf(b)); }

QColor Against(const QColor& ground, const QColor& wanted, double least) {
  return ColorOf(presentation::Against(RgbOf(ground), RgbOf(wanted), least));
}

QColor AccentColor(const QPalette& palette) {
  return ColorOf(GroundsOf(palette).Text(RgbOf(palette.color(QPalette::Active, QPalette::Highlight))));
}

QColor WarningColor(const QPalette& palette) { return ColorOf(GroundsOf(palette).Warning()); }

QColor AlertColor(const QPalette& palette) { return ColorOf(GroundsOf(palette).Alert()); }

QPen SeriesPen(const QPalette& palette, std::size_t series, double width) {
  const presentation::Grounds grounds = GroundsOf(palette);
  const bool dark = grounds.IsDark();
  const QColor wanted[] = {palette.color(QPalette::Active, QPalette::Highlight), dark ? 0xFFB870 : 0xA84300,
                           dark ? 0x8EDB8E : 0x1F6B2A, dark ? 0xD7A8FF : 0x7A2E9E};
  constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DashDotLine, Qt::DotLine};
  const std::size_t which = series % std::size(wanted);
  return {ColorOf(grounds.Text(RgbOf(wanted[which]))), width, kStyles[which], Qt::FlatCap, Qt::RoundJoin};
}

QColor PaleColor(const QPalette& palette, QPalette::ColorRole ground) {
  return Against(palette.color(QPalette::Active, ground), palette.color(QPalette::Disabled, QPalette::Text),
                 kTextContrast);
}

QColor EdgeColor(const QPalette& palette) {
  return ColorOf(GroundsOf(palette).Shape(RgbOf(palette.color(QPalette::Active, QPalette::Mid))));
}

QColor BoxColor(const QPalette& palette) {
  constexpr double kShare = 0.25;
  return Mixed(palette.color(QPalette::Active, QPalette::Window), palette.color(QPalette::Active, QPalette::WindowText),
               kShare);
}

QColor StrongColor(const QPalette& palette) {
  // A style may lighten a button towards its upper edge.
  constexpr double kMargin = 1.5;
  return Against(palette.color(QPalette::Active, QPalette::HighlightedText),
                 palette.color(QPalette::Active, QPalette::Highlight), kTextContrast * kMargin);
}

QStringList PaletteNames() { return {QLatin1String(kLight), QLatin1String(kDark), QLatin1String(kContrast)}; }

std::optional<QPalette> PaletteOf(const QString& name) {
  if (name == QLatin1String(kLight)) {
    return Plain(0xEFEFEF, Qt::white, 0xEFEFEF, Qt::black, 0x1F6FA8, Qt::white, 0x8A8A8A);
  }
  if (name == QLatin1String(kDark)) {
    return Plain(0x2B2B2B, 0x1E1E1E, 0x3A3A3A, 0xE8E8E8, 0x6CB8F0, Qt::black, 0x8A8A8A);
  }
  if (name == QLatin1String(kContrast)) {
    return Plain(Qt::black, Qt::black, Qt::black, Qt::white, Qt::yellow, Qt::black, 0x9FFF9F);
  }
  return std::nullopt;
}

}  // namespace htr60::desktop
