#include "desktop/figure/drawings.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace htr60::desktop {
namespace {

constexpr int kScales[] = {1, 2, 3};

}  // namespace

QPixmap Drawing(const QString& name, int side, double ratio) {
  const QString key = QStringLiteral("htr60/%1/%2/%3").arg(name).arg(side).arg(ratio);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  QSvgRenderer renderer(QStringLiteral(":/htr60/%1.svg").arg(name));
  if (!renderer.isValid()) return {};
  picture = QPixmap((QSizeF(side, side) * ratio).toSize());
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter, QRectF(0, 0, side, side));
  painter.end();
  QPixmapCache::insert(key, picture);
  return picture;
}

QIcon DrawingIcon(const QString& name, const QString& selected, int side) {
  QIcon icon;
  for (const int scale : kScales) {
    icon.addPixmap(Drawing(name, side * scale, 1));
    if (!selected.isEmpty()) icon.addPixmap(Drawing(selected, side * scale, 1), QIcon::Selected);
  }
  return icon;
}

}  // namespace htr60::desktop
