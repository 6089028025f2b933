#include "desktop/figure/drawings.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace htr60::desktop {
namespace {

constexpr int kScales[] = {1, 2, 3};

}  // namespace

QPixmap Drawing(const QString& name, int side, double ratio, const QColor& ink) {
  const QString color = ink.isValid() ? ink.name() : QString();
  const QString key = QStringLiteral("htr60/%1/%2/%3/%4").arg(name).arg(side).arg(ratio).arg(color);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  QSvgRenderer renderer(QStringLiteral(":/htr60/%1.svg").arg(name));
  if (!renderer.isValid()) return {};
  picture = QPixmap((QSizeF(side, side) * ratio).toSize());
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF room(0, 0, side, side);
  renderer.render(&painter, room);
  if (ink.isValid()) {
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(room, ink);
  }
  painter.end();
  QPixmapCache::insert(key, picture);
  return picture;
}

QIcon DrawingIcon(const QString& name, int side) {
  QIcon icon;
  for (const int scale : kScales) icon.addPixmap(Drawing(name, side * scale, 1));
  return icon;
}

QIcon ItemIcon(const QString& name, int side, const QPalette& palette) {
  QIcon icon;
  for (const int scale : kScales) {
    icon.addPixmap(Drawing(name, side * scale, 1, palette.color(QPalette::Active, QPalette::Text)));
    icon.addPixmap(Drawing(name, side * scale, 1, palette.color(QPalette::Active, QPalette::HighlightedText)),
                   QIcon::Selected);
  }
  return icon;
}

}  // namespace htr60::desktop
