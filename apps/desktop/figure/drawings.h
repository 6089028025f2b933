#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>

namespace htr60::desktop {

/// The drawing of that name in the program's resources, for example "folder1", as a square of `side` on a screen of
/// `ratio` device pixels; null where there is none. In `ink` alone where that is valid, else in its own colours. It is
/// drawn once and kept. No plug-in is needed for it.
QPixmap Drawing(const QString& name, int side, double ratio, const QColor& ink = {});

/// The same as an icon of the sizes that screens need for `side`.
QIcon DrawingIcon(const QString& name, int side);
/// In the text colours of an item view, selected or not.
QIcon ItemIcon(const QString& name, int side, const QPalette& palette);

}  // namespace htr60::desktop
