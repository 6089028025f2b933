#include "desktop/figure/tones.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace htr60::desktop {
namespace {

double Linear(double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

QColor Mixed(const QColor& a, const QColor& b, double share) {
  const auto part = [share](double from, double to) { return static_cast<float>(from + (to - from) * share); };
  return QColor::fromRgbF(part(a.redF(), b.redF()), part(a.greenF(), b.greenF()), part(a.blueF(), b.blueF()));
}

// Marks stand on a page and in its fields; which of the two is harder to stand out from depends on the palette.
QColor OnPage(const QPalette& palette, const QColor& wanted) {
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  const QColor base = palette.color(QPalette::Active, QPalette::Base);
  return Against(base, Against(window, wanted, kTextContrast), kTextContrast);
}

bool IsDark(const QPalette& palette) { return Luminance(palette.color(QPalette::Active, QPalette::Window)) < 0.18; }

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

double Contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

QColor Against(const QColor& ground, const QColor& wanted, double least) {
  if (Contrast(ground, wanted) >= least) return wanted;
  const QColor end = Contrast(ground, Qt::black) > Contrast(ground, Qt::white) ? Qt::black : Qt::white;
  constexpr int kSteps = 64;
  for (int i = 1; i < kSteps; ++i) {
    const QColor color = Mixed(wanted, end, static_cast<double>(i) / kSteps);
    if (Contrast(ground, color) >= least) return color;
  }
  return end;
}

QColor AccentColor(const QPalette& palette) {
  return OnPage(palette, palette.color(QPalette::Active, QPalette::Highlight));
}

QColor WarningColor(const QPalette& palette) {
  return OnPage(palette, IsDark(palette) ? QColor(0xFF, 0xC1, 0x4D) : QColor(0x8F, 0x5B, 0x00));
}

QColor AlertColor(const QPalette& palette) {
  return OnPage(palette, IsDark(palette) ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB0, 0x1B, 0x1B));
}

QPen SeriesPen(const QPalette& palette, std::size_t series, double width) {
  const bool dark = IsDark(palette);
  const QColor wanted[] = {palette.color(QPalette::Active, QPalette::Highlight), dark ? 0xFFB870 : 0xA84300,
                           dark ? 0x8EDB8E : 0x1F6B2A, dark ? 0xD7A8FF : 0x7A2E9E};
  constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DashDotLine, Qt::DotLine};
  const std::size_t which = series % std::size(wanted);
  return {OnPage(palette, wanted[which]), width, kStyles[which], Qt::FlatCap, Qt::RoundJoin};
}

QColor PaleColor(const QPalette& palette, QPalette::ColorRole ground) {
  return Against(palette.color(QPalette::Active, ground), palette.color(QPalette::Disabled, QPalette::Text),
                 kTextContrast);
}

QColor EdgeColor(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  return Against(palette.color(QPalette::Active, QPalette::Base),
                 Against(window, palette.color(QPalette::Active, QPalette::Mid), kShapeContrast), kShapeContrast);
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
