#include <gtest/gtest.h>

#include <QImage>
#include <set>

#include "desktop/figure/shapes.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

TEST(Shapes, DifferFromEachOtherInGrey) {
  std::set<QByteArray> seen;
  for (int i = 0; i <= static_cast<int>(Shape::kFailure); ++i) {
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintShape(painter, QRectF(0.5, 0.5, 15, 15), static_cast<Shape>(i), QPalette(Qt::lightGray));
    painter.end();
    QByteArray ink;
    for (int y = 0; y < 16; ++y) {
      for (int x = 0; x < 16; ++x) ink += qGray(image.pixel(x, y)) < 200 ? '#' : ' ';
    }
    EXPECT_TRUE(seen.insert(ink).second) << i;
  }
}

TEST(Letters, AreMarkedAsQtWritesThem) {
  EXPECT_EQ(WithMnemonic("Concentration", 'O'), QStringLiteral("C&oncentration"));
  EXPECT_EQ(WithMnemonic("Trd & Out", 'T'), QStringLiteral("&Trd && Out"));
  EXPECT_EQ(WithMnemonic("BWS", '\0'), QStringLiteral("BWS"));
}

}  // namespace
}  // namespace htr60::desktop
