#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace htr60::desktop {

/// The drawing of that name in the program's resources, for example "folder1", as a square of `side` on a screen of
/// `ratio` device pixels; null where there is none. It is drawn once and kept. No plug-in is needed for it.
QPixmap Drawing(const QString& name, int side, double ratio);

/// The same as an icon of the sizes that screens need for `side`; `selected` may be empty.
QIcon DrawingIcon(const QString& name, const QString& selected, int side);

}  // namespace htr60::desktop
