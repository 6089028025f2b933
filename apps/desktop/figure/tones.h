#pragma once

#include <QColor>
#include <QPalette>
#include <QPen>
#include <QStringList>
#include <optional>

#include "presentation/contrast.h"

// Colours that follow the palette and can be told from their ground by every eye.
namespace htr60::desktop {

using presentation::kShapeContrast;
using presentation::kTextContrast;

/// Of two opaque colours, by their relative luminance: 1 to 21.
double Contrast(const QColor& a, const QColor& b);
/// `wanted`, only as far towards black or white as it takes to stand out from `ground` by `least`.
QColor Against(const QColor& ground, const QColor& wanted, double least);

/// The operator's states, what is doubtful, and what the operator must look at. Readable as text on a page and in a
/// field.
QColor AccentColor(const QPalette& palette);
QColor WarningColor(const QPalette& palette);
QColor AlertColor(const QPalette& palette);
/// Of several curves in one drawing that one: told from the others by its dashes, too.
QPen SeriesPen(const QPalette& palette, std::size_t series, double width);
/// Text that steps back, on the ground of a page or of a field.
QColor PaleColor(const QPalette& palette, QPalette::ColorRole ground);
/// Edge of a field or a button.
QColor EdgeColor(const QPalette& palette);
/// Frame around a group: seen, and quieter than the fields in it.
QColor BoxColor(const QPalette& palette);
/// Ground of a button or of a selection on which `QPalette::HighlightedText` is readable.
QColor StrongColor(const QPalette& palette);

/// Ready-made palettes beside the system's own: "light", "dark", "contrast".
QStringList PaletteNames();
std::optional<QPalette> PaletteOf(const QString& name);

}  // namespace htr60::desktop
